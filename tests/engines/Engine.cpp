#include "tests/engines/Engine.h"

#include "core/VdSelectParser.h"
#include "tests/core/ParserSettings.h"

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
    using vdtest::TSetting;
    switch (engine) {
    case TEngine::SQLite:
        return vdtest::CreateParser(TSetting::Generic);
    case TEngine::PostgreSQL: {
        auto parser = vdtest::CreateParser(TSetting::Generic);
        parser->Scanner().SetQuoteIdentifiers(false);
        return parser;
    }
    case TEngine::MariaDB:
        return vdtest::CreateParser(TSetting::MySQL);
    case TEngine::Firebird:
        return vdtest::CreateParser(TSetting::Firebird3);
    }
    return nullptr;
}

} // namespace vdengine
