#include "VdDemoRun.h"

#include "VdDemoBuilders.h"
#include "VdDemoDatabase.h"
#include "VdDemoOptions.h"
#include "VdDemoWindow.h"
#include "builder/VdCustomVandor.h"
#include "builder/VdQtText.h"
#include "builder/VdSqlCatalog.h"
#include "core/VdError.h"
#include "dialects/VdOptionsPanel.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPixmap>
#include <QSqlDatabase>
#include <QStandardPaths>

#include <cstdio>
#include <memory>
#include <string>

namespace vd {

namespace {

const char* const ConnectionName = "vandor-demo";

void Write(std::FILE* stream, const QString& text)
{
    const std::string bytes = ToStdString(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::fflush(stream);
}

// Chooses the window system before the application exists: none without a display, and
// for pictures and printing, which never need one. Where a display is named, offscreen is
// the fallback when it cannot be reached.
void ChoosePlatform(bool batch)
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return;
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    const bool wayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    const bool x11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    if (batch || (!wayland && !x11))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    else
        qputenv("QT_QPA_PLATFORM", wayland ? "wayland;xcb;offscreen" : "xcb;offscreen");
#else
    if (batch)
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

// The offscreen window system's notes about what it cannot do are no news to someone who
// asked for a picture; everything else is passed on.
QtMessageHandler PreviousHandler = nullptr;

void QuietOffscreenNotes(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (text.startsWith(QLatin1String("This plugin does not support")) ||
        text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set")))
        return;
    if (PreviousHandler)
        PreviousHandler(type, context, text);
}

bool WithoutDisplay()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal");
}

// Line breaks as the parser counts lines: a lone LF reads as CR LF.
QString WithCrLf(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return text;
}

// A file's text; "-" reads standard input.
bool ReadSqlFile(const QString& path, QString& text, QString& error)
{
    QFile file;
    const bool opened = path == QLatin1String("-")
                            ? file.open(stdin, QIODevice::ReadOnly)
                            : (file.setFileName(path), file.open(QIODevice::ReadOnly));
    if (!opened) {
        error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    text = QString::fromUtf8(file.readAll());
    return true;
}

int PrintSql(TVdSqlCatalog& catalog, const QString& dialect, const QString& sql)
{
    const TVdDemoBuilder made =
        CreateDemoBuilder(DemoDialectFor(catalog.Engine(), dialect), catalog.Engine(), nullptr);
    std::unique_ptr<TCustomVandor> builder(made.Builder);
    // Declared second, gone first: the panel points at the builder's parser.
    std::unique_ptr<TVdOptionsPanel> panel(made.OptionsPanel);
    builder->OnGetTableFields = catalog.Handler();
    try {
        builder->SetSQL(sql);
    } catch (const EVdError& e) {
        Write(stderr, ToQString(e.what()) + QLatin1Char('\n'));
        return 1;
    }
    Write(stdout, builder->GetSQL());
    return 0;
}

bool Render(QWidget& window, const QString& path, QString& error)
{
    window.show();
    QApplication::processEvents();
    if (const QString dir = QFileInfo(path).absolutePath(); !QDir().mkpath(dir)) {
        error = QStringLiteral("cannot create the folder %1").arg(dir);
        return false;
    }
    if (!window.grab().save(path, "PNG")) {
        error = QStringLiteral("cannot write the picture %1").arg(path);
        return false;
    }
    return true;
}

int Fail(const QString& message)
{
    Write(stderr, QStringLiteral("vandor-demo: %1\n").arg(message));
    return 1;
}

int RunWindow(TVdSqlCatalog& catalog, const TVdDemoOptions& options, const QString& sql)
{
    TVdDemoWindow window(catalog, options.Dialect);
    window.resize(options.Size);
    QString error;
    const bool loaded = window.LoadSql(sql, &error, true);
    if (!loaded)
        Write(stderr, error + QLatin1Char('\n'));
    else
        window.RunQuery();
    window.ShowPage(options.Page);
    if (!options.Screenshot.isEmpty()) {
        if (!Render(window, options.Screenshot, error))
            return Fail(error);
        if (options.PrintSql)
            Write(stdout, window.Builder()->GetSQL());
        return loaded ? 0 : 1;
    }
    if (WithoutDisplay()) {
        const QString picture =
            QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
            QStringLiteral("/vandor-demo.png");
        Write(stdout, QStringLiteral("vandor-demo: no display available, so the window is "
                                     "rendered to a picture instead of shown.\n"));
        if (!Render(window, picture, error))
            return Fail(error);
        Write(stdout, QStringLiteral("Window: %1\nSQL:\n%2\n")
                          .arg(QDir::toNativeSeparators(picture), window.Builder()->GetSQL()));
        return 0;
    }
    window.show();
    return QApplication::exec();
}

} // namespace

int RunDemo(int argc, char* argv[])
{
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    TVdDemoOptions options;
    QString error;
    if (!ParseDemoOptions(args, options, error)) {
        Write(stderr, QStringLiteral("vandor-demo: %1\n%2").arg(error, DemoUsage()));
        return 2;
    }
    if (options.Help) {
        Write(stdout, DemoUsage());
        return 0;
    }
    ChoosePlatform(options.PrintSql || !options.Screenshot.isEmpty());
    if (qEnvironmentVariable("QT_QPA_PLATFORM").startsWith(QLatin1String("offscreen")))
        PreviousHandler = qInstallMessageHandler(QuietOffscreenNotes);
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("VandorRT"));
    QApplication::setApplicationName(QStringLiteral("vandor-demo"));
    // Pictures look the same on every machine.
    if (WithoutDisplay() && QFontDatabase::families().contains(QStringLiteral("DejaVu Sans")))
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));

    QString sql = SampleQuery();
    if (!options.SqlFile.isEmpty() && !ReadSqlFile(options.SqlFile, sql, error))
        return Fail(error);
    sql = WithCrLf(sql);
    QString created;
    if (!OpenDemoDatabase(options.Database, QString::fromLatin1(ConnectionName), error, &created))
        return Fail(error);
    if (!created.isEmpty())
        Write(stderr, QStringLiteral("vandor-demo: created the sample database %1\n")
                          .arg(QDir::toNativeSeparators(created)));
    int result = 0;
    {
        TVdSqlCatalog catalog(QSqlDatabase::database(QString::fromLatin1(ConnectionName)));
        result = options.PrintSql && options.Screenshot.isEmpty()
                     ? PrintSql(catalog, options.Dialect, sql)
                     : RunWindow(catalog, options, sql);
    }
    QSqlDatabase::removeDatabase(QString::fromLatin1(ConnectionName));
    return result;
}

} // namespace vd
