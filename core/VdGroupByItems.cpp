#include "core/VdGroupByItems.h"

#include "core/VdFieldDef.h"
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"
#include "core/VdTableDef.h"
#include "core/VdText.h"

#include <unordered_map>
#include <utility>

namespace vd {

namespace {

const std::string& TablePrefix(const TVdFieldDef& field)
{
    static const std::string none;
    const TVdTableDef* table = field.Table();
    if (!table)
        return none;
    return table->Alias().empty() ? table->Name() : table->Alias();
}

// A name with its quotes taken out, so that "T".A, T.A and "T"."A" compare alike (the model
// keeps a part in its quotes only where names print as they stand).
std::string Unquoted(std::string_view name)
{
    std::string result;
    result.reserve(name.size());
    for (const char c : name)
        if (c != '"' && c != '`' && c != '\'')
            result += c;
    return result;
}

} // namespace

std::vector<const TVdFieldDef*> TVdGroupByItems::DerivedFields() const
{
    std::vector<const TVdFieldDef*> derived;
    const TVdSelectParser* parser = Parser();
    if (!parser)
        return derived;
    const std::vector<TVdFieldDef*> fields = parser->TableDefs().FieldsInOrder();
    bool aggregates = false;
    bool plain = false;
    // Only output fields count: a procedure's input parameters are its arguments.
    for (const TVdFieldDef* field : fields) {
        if (!field || field->IsInputParam())
            continue;
        if (field->Kind() == fkFunction && parser->Aggregates().Contains(field->Name()))
            aggregates = true;
        else
            plain = true;
    }
    if (!aggregates || !plain)
        return derived;
    for (const TVdFieldDef* field : fields)
        if (field && !field->IsInputParam() && field->Kind() == fkIdentifier &&
            !parser->Aggregates().Contains(field->Name()))
            derived.push_back(field);
    return derived;
}

// The column as the select list prints it, qualifier and name each quoted on its own: the
// whole text split anew at its dots would name another column once a qualifier holds a dot
// (A.C.A.I prints "A.C"."A"."I", and "A.C.A"."I" would not read back the same).
std::string TVdGroupByItems::DerivedLine(const TVdFieldDef& field) const
{
    const TVdSelectParser& parser = *Parser();
    std::string line;
    const std::string& prefix = TablePrefix(field);
    if (!prefix.empty()) {
        script::AppendItemName(line, parser, prefix);
        line += '.';
    }
    script::AppendItemName(line, parser, field.Name());
    return line;
}

std::vector<std::string>
TVdGroupByItems::DerivedLines(const std::vector<const TVdFieldDef*>& derived) const
{
    std::vector<std::string> lines;
    lines.reserve(derived.size());
    for (const TVdFieldDef* field : derived)
        lines.push_back(DerivedLine(*field));
    return lines;
}

namespace {

// The derived fields under every spelling a GROUP BY item may name them by. A statement
// groups by a handful of columns: then the spellings are kept in flat lists and searched in
// order, no node per key. Beyond that they are hashed, so that each kept item is looked up once
// rather than compared with every field.
class TDerivedIndex
{
public:
    TDerivedIndex(const std::vector<const TVdFieldDef*>& derived,
                  const std::vector<std::string>& lines)
        : FDerived(derived), FHashed(derived.size() > FlatLimit)
    {
        if (FHashed) {
            FByLine.Map.reserve(derived.size());
            FByName.Map.reserve(2 * derived.size());
            FPositions.reserve(derived.size());
        }
        for (int i = 0; i < int(derived.size()); ++i) {
            const TVdFieldDef& field = *derived[size_t(i)];
            FByLine.Add(FHashed, lines[size_t(i)], i);
            const std::string name = Unquoted(field.Name());
            FByName.Add(FHashed, text::Upper(name), i);
            const std::string prefix = Unquoted(TablePrefix(field));
            if (!prefix.empty())
                FByName.Add(FHashed, text::Upper(prefix + '.' + name), i);
            if (!field.Alias().empty())
                FByAlias.Add(FHashed, text::Upper(field.Alias()), i);
            if (FHashed)
                FPositions.emplace(&field, i);
        }
    }

    // The fields item names as a derived line does: it prints as that line (script), or it is
    // the name alone or qualified with the table's alias (or name), in any letter case and
    // quotes aside.
    template <class Visit>
    void ForNamed(const std::string& item, const std::string& script, Visit visit) const
    {
        FByLine.ForEach(script, visit);
        FByName.ForEach(text::Upper(Unquoted(item)), visit);
    }

    // The fields item groups by: those it names, the one whose alias it is, the one at its
    // position in printed (the printed select list).
    template <class Visit>
    void ForGrouped(const std::string& item, const std::string& script,
                    const std::vector<const TVdFieldDef*>& printed, Visit visit) const
    {
        ForNamed(item, script, visit);
        if (!FByAlias.Empty())
            FByAlias.ForEach(text::Upper(item), visit);
        if (!TVdStringList::IsPosition(item) || item.size() > 9)
            return;
        const size_t position = std::stoul(item);
        if (position < 1 || position > printed.size())
            return;
        const int at = PositionOf(printed[position - 1]);
        if (at >= 0)
            visit(at);
    }

private:
    static constexpr size_t FlatLimit = 16;

    struct TKeys {
        std::vector<std::pair<std::string, int>> List;
        // Visitors only mark fields, so the order among equal keys does not matter.
        std::unordered_multimap<std::string, int> Map;

        void Add(bool hashed, std::string key, int i)
        {
            if (hashed)
                Map.emplace(std::move(key), i);
            else
                List.emplace_back(std::move(key), i);
        }
        bool Empty() const { return List.empty() && Map.empty(); }
        // The fields under key.
        template <class Visit> void ForEach(const std::string& key, Visit visit) const
        {
            for (const auto& [spelling, i] : List)
                if (spelling == key)
                    visit(i);
            if (Map.empty())
                return;
            const auto [first, last] = Map.equal_range(key);
            for (auto it = first; it != last; ++it)
                visit(it->second);
        }
    };

    // The first place of a field among the derived ones, or -1.
    int PositionOf(const TVdFieldDef* field) const
    {
        if (FHashed) {
            const auto found = FPositions.find(field);
            return found == FPositions.end() ? -1 : found->second;
        }
        for (size_t i = 0; i < FDerived.size(); ++i)
            if (FDerived[i] == field)
                return int(i);
        return -1;
    }

    const std::vector<const TVdFieldDef*>& FDerived;
    const bool FHashed;
    TKeys FByLine;
    TKeys FByName;
    TKeys FByAlias;
    std::unordered_map<const TVdFieldDef*, int> FPositions;
};

} // namespace

void TVdGroupByItems::Rebuild()
{
    const std::vector<const TVdFieldDef*> derived = DerivedFields();
    std::vector<std::string> lines = DerivedLines(derived);
    if (FKept.empty()) {
        FLines = std::move(lines);
        return;
    }
    const TDerivedIndex index(derived, lines);
    FLines = std::move(lines);
    for (const std::string& item : FKept) {
        std::string script = ItemScript(item);
        bool named = false;
        index.ForNamed(item, script, [&named](int) { named = true; });
        if (!named)
            Add(script);
    }
}

std::vector<bool>
TVdGroupByItems::KeptGroupings(const std::vector<const TVdFieldDef*>& derived,
                               const std::vector<const TVdFieldDef*>& printed) const
{
    std::vector<bool> grouped(derived.size(), false);
    if (FKept.empty())
        return grouped;
    const TDerivedIndex index(derived, DerivedLines(derived));
    for (const std::string& item : FKept)
        index.ForGrouped(item, ItemScript(item), printed,
                         [&grouped](int i) { grouped[size_t(i)] = true; });
    return grouped;
}

std::string TVdGroupByItems::GetScript()
{
    std::string out;
    AppendScript(out);
    return out;
}

void TVdGroupByItems::AppendScript(std::string& out)
{
    if (Parser())
        Rebuild();
    AppendClause(out, "GROUP", "BY", FLines);
}

int TVdGroupByItems::AddKept(const std::string& item)
{
    for (size_t i = 0; i < FKept.size(); ++i)
        if (FKept[i] == item)
            return int(i);
    FKept.push_back(item);
    return int(FKept.size()) - 1;
}

void TVdGroupByItems::DeleteKept(int index)
{
    if (index >= 0 && index < int(FKept.size()))
        FKept.erase(FKept.begin() + index);
}

void TVdGroupByItems::KeepLines() { FKept = FLines; }

void TVdGroupByItems::Clear()
{
    TVdStringList::Clear();
    FKept.clear();
}

} // namespace vd
