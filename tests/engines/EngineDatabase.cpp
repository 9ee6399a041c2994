#include "tests/engines/EngineDatabase.h"

#include <QFile>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

#include <atomic>

namespace vdengine {

namespace {

// KEY=VALUE lines of the file the engine scripts write.
QHash<QString, QString> ReadEnvFile(const QString& path, QString& error)
{
    QHash<QString, QString> values;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return values;
    }
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq > 0)
            values.insert(line.left(eq), line.mid(eq + 1));
    }
    return values;
}

QString RowText(const QSqlRecord& record)
{
    QStringList values;
    for (int i = 0; i < record.count(); ++i) {
        const QVariant value = record.value(i);
        values << (value.isNull() ? QStringLiteral("NULL") : value.toString());
    }
    return values.join(QLatin1Char('|'));
}

} // namespace

TEngineDatabase::TEngineDatabase(TEngine engine) : FEngine(engine)
{
    static std::atomic<int> counter{0};
    FConnection = QStringLiteral("vdengine%1").arg(++counter);
}

TEngineDatabase::~TEngineDatabase()
{
    {
        QSqlDatabase db = QSqlDatabase::database(FConnection, false);
        if (db.isValid())
            db.close();
    }
    QSqlDatabase::removeDatabase(FConnection);
}

bool TEngineDatabase::Fail(const QString& what, const QString& detail)
{
    FError = (what + QStringLiteral(": ") + detail).toStdString();
    return false;
}

bool TEngineDatabase::Open()
{
    if (FEngine == TEngine::SQLite) {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), FConnection);
        db.setDatabaseName(QStringLiteral(":memory:"));
        return db.open() || Fail(QStringLiteral("open SQLite"), db.lastError().text());
    }
    const QString envPath = qEnvironmentVariable("VD_ENGINE_ENV");
    if (envPath.isEmpty())
        return Fail(QString::fromLatin1(EngineName(FEngine)),
                    QStringLiteral("VD_ENGINE_ENV is not set (the engine's start script "
                                   "writes the file it names)"));
    QString error;
    const QHash<QString, QString> env = ReadEnvFile(envPath, error);
    if (!error.isEmpty())
        return Fail(QString::fromLatin1(EngineName(FEngine)), error);
    QSqlDatabase db =
        QSqlDatabase::addDatabase(env.value(QStringLiteral("VD_ENGINE_DRIVER")), FConnection);
    if (!db.isValid())
        return Fail(QStringLiteral("QtSql driver"), env.value(QStringLiteral("VD_ENGINE_DRIVER")));
    db.setHostName(env.value(QStringLiteral("VD_ENGINE_HOST")));
    db.setPort(env.value(QStringLiteral("VD_ENGINE_PORT")).toInt());
    db.setDatabaseName(env.value(QStringLiteral("VD_ENGINE_DATABASE")));
    db.setUserName(env.value(QStringLiteral("VD_ENGINE_USER")));
    db.setPassword(env.value(QStringLiteral("VD_ENGINE_PASSWORD")));
    db.setConnectOptions(env.value(QStringLiteral("VD_ENGINE_OPTIONS")));
    return db.open() ||
           Fail(QStringLiteral("open %1").arg(EngineName(FEngine)), db.lastError().text());
}

bool TEngineDatabase::Exec(const std::string& sql)
{
    QSqlQuery query(QSqlDatabase::database(FConnection, false));
    if (!query.exec(QString::fromStdString(sql)))
        return Fail(QStringLiteral("engine refused"), query.lastError().text());
    return true;
}

bool TEngineDatabase::Query(const std::string& sql, TRows& rows) { return Query(sql, {}, rows); }

bool TEngineDatabase::Query(const std::string& sql,
                            const std::vector<std::pair<QString, QString>>& params, TRows& rows)
{
    rows.clear();
    QSqlQuery query(QSqlDatabase::database(FConnection, false));
    query.setForwardOnly(true);
    // Without parameters the text goes to the engine as it is: QtSql's placeholder
    // rewriting stays out of the way of what is being tested.
    bool ran = false;
    if (params.empty()) {
        ran = query.exec(QString::fromStdString(sql));
    } else if (query.prepare(QString::fromStdString(sql))) {
        for (const auto& [name, value] : params)
            query.bindValue(name, value);
        ran = query.exec();
    }
    if (!ran)
        return Fail(QStringLiteral("engine refused"), query.lastError().text());
    while (query.next())
        rows.push_back(RowText(query.record()).toStdString());
    if (query.lastError().isValid())
        return Fail(QStringLiteral("engine failed while reading rows"), query.lastError().text());
    return true;
}

bool TEngineDatabase::QueryValues(const std::string& sql,
                                  std::vector<std::vector<std::string>>& rows)
{
    rows.clear();
    QSqlQuery query(QSqlDatabase::database(FConnection, false));
    query.setForwardOnly(true);
    if (!query.exec(QString::fromStdString(sql)))
        return Fail(QStringLiteral("engine refused"), query.lastError().text());
    while (query.next()) {
        const QSqlRecord record = query.record();
        std::vector<std::string> row;
        for (int i = 0; i < record.count(); ++i) {
            const QVariant value = record.value(i);
            row.push_back(value.isNull() ? "NULL" : value.toString().toStdString());
        }
        rows.push_back(std::move(row));
    }
    if (query.lastError().isValid())
        return Fail(QStringLiteral("engine failed while reading rows"), query.lastError().text());
    return true;
}

} // namespace vdengine
