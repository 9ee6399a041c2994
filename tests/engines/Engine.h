#pragma once

#include <memory>
#include <string>

namespace vd {
class TVdSelectParser;
}

namespace vdengine {

// The database engines the printed SQL is run on.
enum class TEngine { SQLite, PostgreSQL, MariaDB, Firebird };

const char* EngineName(TEngine engine);

// One bit per engine, for the statements a family entry runs on.
enum TEngineMask : unsigned {
    emSQLite = 1u << unsigned(TEngine::SQLite),
    emPostgreSQL = 1u << unsigned(TEngine::PostgreSQL),
    emMariaDB = 1u << unsigned(TEngine::MariaDB),
    emFirebird = 1u << unsigned(TEngine::Firebird),
    emAll = emSQLite | emPostgreSQL | emMariaDB | emFirebird,
};

inline bool RunsOn(unsigned mask, TEngine engine) { return (mask >> unsigned(engine)) & 1u; }

// The builder and settings that suit each engine, as the suite measured them:
//   SQLite      generic parser, identifiers quoted (the default);
//   PostgreSQL  generic parser with QuoteIdentifiers off (the schema's names are folded to
//               lower case by the server, and so are the printed names);
//   MariaDB     MySQL parser (back-quoted names, the server's default sql_mode);
//   Firebird    InterBase/Firebird parser, server Firebird, SQL dialect 3.
std::unique_ptr<vd::TVdSelectParser> CreateParser(TEngine engine);

} // namespace vdengine
