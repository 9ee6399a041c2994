#pragma once

// Which database engine a QtSql connection talks to, as far as the catalogue queries care.

#include <QString>

#include <cstdint>

class QSqlDatabase;

namespace vd {

enum class TVdSqlEngine : std::uint8_t { Other, SQLite, PostgreSQL, MySQL, Firebird };

// From the connection's driver name: QSQLITE, QPSQL, QMYSQL or QMARIADB, QIBASE.
TVdSqlEngine SqlEngineOf(const QSqlDatabase& db);
TVdSqlEngine SqlEngineOfDriver(const QString& driverName);
QString SqlEngineName(TVdSqlEngine engine);

// The name in the engine's identifier quotes, inner quotes doubled: for statements that
// cannot bind a name (SQLite's PRAGMA).
QString QuotedSqlName(TVdSqlEngine engine, const QString& name);

} // namespace vd
