#include "builder/VdSqlEngine.h"

#include <QSqlDatabase>

namespace vd {

TVdSqlEngine SqlEngineOfDriver(const QString& driverName)
{
    if (driverName.startsWith(QLatin1String("QSQLITE")))
        return TVdSqlEngine::SQLite;
    if (driverName == QLatin1String("QPSQL"))
        return TVdSqlEngine::PostgreSQL;
    if (driverName == QLatin1String("QMYSQL") || driverName == QLatin1String("QMARIADB"))
        return TVdSqlEngine::MySQL;
    if (driverName == QLatin1String("QIBASE"))
        return TVdSqlEngine::Firebird;
    return TVdSqlEngine::Other;
}

TVdSqlEngine SqlEngineOf(const QSqlDatabase& db) { return SqlEngineOfDriver(db.driverName()); }

QString SqlEngineName(TVdSqlEngine engine)
{
    switch (engine) {
    case TVdSqlEngine::SQLite:
        return QStringLiteral("SQLite");
    case TVdSqlEngine::PostgreSQL:
        return QStringLiteral("PostgreSQL");
    case TVdSqlEngine::MySQL:
        return QStringLiteral("MariaDB/MySQL");
    case TVdSqlEngine::Firebird:
        return QStringLiteral("Firebird");
    case TVdSqlEngine::Other:
        break;
    }
    return QStringLiteral("SQL");
}

QString QuotedSqlName(TVdSqlEngine engine, const QString& name)
{
    const QChar quote = engine == TVdSqlEngine::MySQL ? QLatin1Char('`') : QLatin1Char('"');
    QString inner = name;
    inner.replace(quote, QString(2, quote));
    return quote + inner + quote;
}

} // namespace vd
