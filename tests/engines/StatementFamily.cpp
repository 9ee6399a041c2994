#include "tests/engines/StatementFamily.h"

#include "core/VdSelectParser.h"
#include "dialects/VdIBParser.h"

#include <stdexcept>

namespace vdengine {

std::vector<TFamilyStatement> FamilyFor(TEngine engine)
{
    std::vector<TFamilyStatement> family;
    for (auto part : {ParsedStatements, BuiltStatements, DialectStatements})
        for (TFamilyStatement& entry : part())
            if (RunsOn(entry.Engines, engine))
                family.push_back(std::move(entry));
    return family;
}

TFamilyStatement FamilyEntry(const std::string& name)
{
    for (auto part : {ParsedStatements, BuiltStatements, DialectStatements})
        for (TFamilyStatement& entry : part())
            if (entry.Name == name)
                return std::move(entry);
    throw std::out_of_range("no family entry named " + name);
}

std::unique_ptr<vd::TVdSelectParser> CreateParser(TEngine engine, const TFamilyStatement& entry)
{
    std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(engine);
    if (entry.InterBaseServer)
        if (auto* ib = dynamic_cast<vd::TVdIBSelectParser*>(parser.get()))
            ib->SetSQLServer(vd::qssInterBase);
    return parser;
}

} // namespace vdengine
