#include "cli/ParserFactory.h"

#include "core/VdSelectParser.h"
#include "dialects/VdIBParser.h"
#include "dialects/VdMyParser.h"

namespace vdsql {

namespace {

struct TDialect {
    const char* Name;
    std::unique_ptr<vd::TVdSelectParser> (*Create)(const TOptions& options);
};

// A dialect with its own parser class gets one row here; its factory reads the options
// it needs (SqlDialect for the dialects that number their quoting rules).
std::unique_ptr<vd::TVdSelectParser> CreateIBParser(const TOptions& options,
                                                    vd::TVdIBSQLServer server)
{
    auto parser = std::make_unique<vd::TVdIBSelectParser>();
    parser->SetSQLServer(server);
    auto& scanner = static_cast<vd::TVdIBScanner&>(parser->Scanner());
    scanner.SetDialect(options.SqlDialect == 1 ? vd::qibDialect1 : vd::qibDialect3);
    return parser;
}

const TDialect Dialects[] = {
    {"generic", [](const TOptions&) { return std::make_unique<vd::TVdSelectParser>(); }},
    {"interbase", [](const TOptions& o) { return CreateIBParser(o, vd::qssInterBase); }},
    {"firebird", [](const TOptions& o) { return CreateIBParser(o, vd::qssFireBird); }},
    {"mysql",
     [](const TOptions&) -> std::unique_ptr<vd::TVdSelectParser> {
         return std::make_unique<vd::TVdMySelectParser>();
     }},
};

const TDialect* FindDialect(const std::string& name)
{
    for (const TDialect& dialect : Dialects)
        if (name == dialect.Name)
            return &dialect;
    return nullptr;
}

} // namespace

bool IsKnownDialect(const std::string& name) { return FindDialect(name) != nullptr; }

std::string KnownDialects()
{
    std::string names;
    for (const TDialect& dialect : Dialects)
        names += (names.empty() ? "" : ", ") + std::string(dialect.Name);
    return names;
}

std::unique_ptr<vd::TVdSelectParser> CreateParser(const TOptions& options)
{
    const TDialect* dialect = FindDialect(options.Dialect);
    if (!dialect)
        throw ECliError("vdsql: unsupported dialect '" + options.Dialect + "'", exUsage);
    std::unique_ptr<vd::TVdSelectParser> parser = dialect->Create(options);
    parser->ScriptFormat().KeywordsFormat = options.Keywords;
    parser->ScriptFormat().FunctionsFormat = options.Functions;
    parser->Scanner().SetQuoteIdentifiers(options.QuoteIdentifiers);
    return parser;
}

} // namespace vdsql
