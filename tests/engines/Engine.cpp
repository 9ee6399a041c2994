#include "tests/engines/Engine.h"

#include "core/VdSelectParser.h"
#include "dialects/VdIBParser.h"
#include "dialects/VdMyParser.h"

namespace vdengine {

const char* EngineName(TEngine engine)
{
    switch (engine) {
    case TEngine::SQLite:
        return "SQLite";
    case TEngine::PostgreSQL:
        return "PostgreSQL";
    case TEngine::MariaDB:
        return "MariaDB";
    case TEngine::Firebird:
        return "Firebird";
    }
    return "?";
}

std::unique_ptr<vd::TVdSelectParser> CreateParser(TEngine engine)
{
    switch (engine) {
    case TEngine::SQLite:
        return std::make_unique<vd::TVdSelectParser>();
    case TEngine::PostgreSQL: {
        auto parser = std::make_unique<vd::TVdSelectParser>();
        parser->Scanner().SetQuoteIdentifiers(false);
        return parser;
    }
    case TEngine::MariaDB:
        return std::make_unique<vd::TVdMySelectParser>();
    case TEngine::Firebird: {
        auto parser = std::make_unique<vd::TVdIBSelectParser>();
        parser->SetSQLServer(vd::qssFireBird);
        static_cast<vd::TVdIBScanner&>(parser->Scanner()).SetDialect(vd::qibDialect3);
        return parser;
    }
    }
    return nullptr;
}

} // namespace vdengine
