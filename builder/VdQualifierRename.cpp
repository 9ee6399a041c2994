#include "builder/VdQualifierRename.h"

#include "core/VdSelectParser.h"

#include <vector>

namespace vd {

namespace {

// line with its qualifier replaced; true when it had the old one.
bool Requalify(std::string& line, const std::string& newAlias, const std::string& oldAlias)
{
    const std::string prefix = oldAlias + ".";
    if (line.compare(0, prefix.size(), prefix) != 0)
        return false;
    line = newAlias + "." + line.substr(prefix.size());
    return true;
}

void RenameOrderBy(TVdOrderByItems& items, const std::string& newAlias, const std::string& oldAlias)
{
    TVdOrderByItems old;
    old.Assign(items);
    bool changed = false;
    std::vector<std::string> lines = old.Lines();
    for (int i = 0; i < old.Count(); ++i)
        if (!old.IsExpression(i))
            changed = Requalify(lines[size_t(i)], newAlias, oldAlias) || changed;
    if (!changed)
        return;
    items.Clear();
    for (int i = 0; i < old.Count(); ++i) {
        if (old.IsExpression(i))
            items.AddExpression(lines[size_t(i)], old.Orders(i));
        else
            items.AddOrdered(lines[size_t(i)], old.Orders(i));
    }
}

void RenameKept(TVdGroupByItems& items, const std::string& newAlias, const std::string& oldAlias)
{
    std::vector<std::string> kept = items.KeptItems();
    bool changed = false;
    for (std::string& item : kept)
        changed = Requalify(item, newAlias, oldAlias) || changed;
    if (!changed)
        return;
    items.ClearKept();
    for (const std::string& item : kept)
        items.AddKept(item);
}

} // namespace

void RenameQualifier(TVdSelectParser& parser, const std::string& newAlias,
                     const std::string& oldAlias)
{
    if (newAlias == oldAlias || oldAlias.empty() || newAlias.empty())
        return;
    RenameOrderBy(parser.OrderByItems(), newAlias, oldAlias);
    RenameKept(parser.GroupByItems(), newAlias, oldAlias);
}

} // namespace vd
