#include "VdDemoDatabase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QUrl>

// The script and the query live in a static library: its resources are registered by hand,
// outside any namespace.
static void VdInitDemoResources() { Q_INIT_RESOURCE(vandor_demo); }

namespace vd {

namespace {

QString ReadResource(const QString& path)
{
    static const bool registered = (VdInitDemoResources(), true);
    Q_UNUSED(registered);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

QString DriverOfScheme(const QString& scheme)
{
    if (scheme == QLatin1String("postgresql") || scheme == QLatin1String("postgres"))
        return QStringLiteral("QPSQL");
    if (scheme == QLatin1String("mariadb") || scheme == QLatin1String("mysql"))
        return QStringLiteral("QMYSQL");
    if (scheme == QLatin1String("firebird"))
        return QStringLiteral("QIBASE");
    return QString();
}

// Skips a quoted text or a comment starting at i; returns the index after it, or i when
// nothing of the kind starts there.
qsizetype SkipQuotedOrComment(const QString& text, qsizetype i)
{
    const QChar c = text[i];
    if (c == QLatin1Char('-') && text.mid(i, 2) == QLatin1String("--")) {
        const qsizetype end = text.indexOf(QLatin1Char('\n'), i);
        return end < 0 ? text.size() : end;
    }
    if (c == QLatin1Char('/') && text.mid(i, 2) == QLatin1String("/*")) {
        const qsizetype end = text.indexOf(QLatin1String("*/"), i + 2);
        return end < 0 ? text.size() : end + 2;
    }
    if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('`')) {
        // A doubled quote stays inside: the scan just goes on from the second one.
        const qsizetype end = text.indexOf(c, i + 1);
        return end < 0 ? text.size() : end + 1;
    }
    return i;
}

// The statement without its comments, trimmed.
QString WithoutComments(const QString& statement)
{
    QString kept;
    qsizetype i = 0;
    while (i < statement.size()) {
        const qsizetype after = SkipQuotedOrComment(statement, i);
        if (after == i) {
            kept += statement[i++];
            continue;
        }
        const bool comment = statement[i] == QLatin1Char('-') || statement[i] == QLatin1Char('/');
        kept += comment ? QStringLiteral(" ") : statement.mid(i, after - i);
        i = after;
    }
    return kept.trimmed();
}

bool CreateSample(const QString& path, QString& error)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QString connection = QStringLiteral("vandor-demo-sample-setup");
    bool created = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        db.setDatabaseName(path);
        if (!db.open())
            error = db.lastError().text();
        else
            created = RunSqlScript(db, SampleScript(), error);
        db.close();
    }
    QSqlDatabase::removeDatabase(connection);
    if (!created) {
        QFile::remove(path);
        error = QStringLiteral("cannot create the sample database %1: %2").arg(path, error);
    }
    return created;
}

} // namespace

bool ParseDatabaseUrl(const QString& url, TVdDatabaseUrl& parsed, QString& error)
{
    parsed = TVdDatabaseUrl();
    if (url.startsWith(QLatin1String("sqlite:"))) {
        QString path = url.mid(7);
        if (path.startsWith(QLatin1String("//")))
            path = path.mid(2);
        parsed.Driver = QStringLiteral("QSQLITE");
        parsed.Database = path;
        if (path.isEmpty())
            error = QStringLiteral("sqlite: needs a file path (sqlite:/path/to/file.sqlite)");
        return !path.isEmpty();
    }
    const QUrl parsedUrl(url, QUrl::StrictMode);
    parsed.Driver = DriverOfScheme(parsedUrl.scheme());
    if (!parsedUrl.isValid() || parsed.Driver.isEmpty() || parsedUrl.host().isEmpty()) {
        error = QStringLiteral("cannot read the database URL '%1' (sqlite:PATH, "
                               "postgresql://user@host:port/db, mariadb://..., "
                               "firebird://user@host:port/path.fdb)")
                    .arg(url);
        return false;
    }
    parsed.Host = parsedUrl.host();
    parsed.Port = parsedUrl.port();
    parsed.User = parsedUrl.userName();
    parsed.Password = parsedUrl.password();
    parsed.Options = parsedUrl.query();
    const QString path = parsedUrl.path();
    parsed.Database = parsed.Driver == QLatin1String("QIBASE") ? path : path.mid(1);
    if (parsed.Database.isEmpty() || parsed.Database == QLatin1String("/")) {
        error = QStringLiteral("the database URL '%1' names no database").arg(url);
        return false;
    }
    return true;
}

QString DefaultSamplePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/business.sqlite");
}

QStringList SplitSqlScript(const QString& script)
{
    QStringList statements;
    qsizetype start = 0;
    qsizetype i = 0;
    while (i < script.size()) {
        const qsizetype after = SkipQuotedOrComment(script, i);
        if (after != i) {
            i = after;
            continue;
        }
        if (script[i] == QLatin1Char(';')) {
            statements << WithoutComments(script.mid(start, i - start));
            start = i + 1;
        }
        ++i;
    }
    statements << WithoutComments(script.mid(start));
    statements.removeAll(QString());
    return statements;
}

bool RunSqlScript(QSqlDatabase& db, const QString& script, QString& error)
{
    const QStringList statements = SplitSqlScript(script);
    QSqlQuery query(db);
    db.transaction();
    for (const QString& statement : statements) {
        if (!query.exec(statement)) {
            error = QStringLiteral("%1\nin: %2").arg(query.lastError().text(), statement.left(200));
            db.rollback();
            return false;
        }
    }
    if (!db.commit()) {
        error = db.lastError().text();
        return false;
    }
    return true;
}

QString SampleScript() { return ReadResource(QStringLiteral(":/vandor-demo/sample/business.sql")); }

QString SampleQuery() { return ReadResource(QStringLiteral(":/vandor-demo/sample/orders.sql")); }

bool OpenDemoDatabase(const QString& url, const QString& connectionName, QString& error,
                      QString* created)
{
    TVdDatabaseUrl parsed;
    if (url.isEmpty()) {
        parsed.Driver = QStringLiteral("QSQLITE");
        parsed.Database = DefaultSamplePath();
    } else if (!ParseDatabaseUrl(url, parsed, error)) {
        return false;
    }
    if (parsed.Driver == QLatin1String("QSQLITE") && parsed.Database != QLatin1String(":memory:") &&
        !QFileInfo::exists(parsed.Database)) {
        if (!CreateSample(parsed.Database, error))
            return false;
        if (created)
            *created = parsed.Database;
    }
    QSqlDatabase db = QSqlDatabase::addDatabase(parsed.Driver, connectionName);
    if (!db.isValid()) {
        error = QStringLiteral("the Qt SQL driver %1 is not installed").arg(parsed.Driver);
        return false;
    }
    db.setHostName(parsed.Host);
    if (parsed.Port > 0)
        db.setPort(parsed.Port);
    db.setDatabaseName(parsed.Database);
    db.setUserName(parsed.User);
    db.setPassword(parsed.Password);
    db.setConnectOptions(parsed.Options);
    if (!db.open()) {
        error = db.lastError().text();
        return false;
    }
    if (parsed.Driver == QLatin1String("QSQLITE"))
        QSqlQuery(db).exec(QStringLiteral("PRAGMA foreign_keys = ON"));
    return true;
}

} // namespace vd
