#include "core/VdGroupByItems.h"

#include "core/VdFieldDef.h"
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"
#include "core/VdTableDef.h"
#include "core/VdText.h"

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
    if (!prefix.empty())
        line += parser.ProcessItemName(prefix) + '.';
    line += parser.ProcessItemName(field.Name());
    return line;
}

void TVdGroupByItems::Rebuild()
{
    const std::vector<const TVdFieldDef*> derived = DerivedFields();
    TVdStringList::Clear();
    for (const TVdFieldDef* field : derived)
        Add(DerivedLine(*field));
    for (const std::string& item : FKept) {
        bool named = false;
        for (const TVdFieldDef* field : derived)
            if (NamesField(item, *field)) {
                named = true;
                break;
            }
        if (!named)
            Add(ItemScript(item));
    }
}

std::string TVdGroupByItems::GetScript()
{
    if (Parser())
        Rebuild();
    return ClauseScript("GROUP", "BY", FLines);
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

void TVdGroupByItems::Clear()
{
    TVdStringList::Clear();
    FKept.clear();
}

bool TVdGroupByItems::NamesField(const std::string& item, const TVdFieldDef& field) const
{
    if (Parser() && ItemScript(item) == DerivedLine(field))
        return true;
    const std::string bare = Unquoted(item);
    const std::string name = Unquoted(field.Name());
    if (text::SameText(bare, name))
        return true;
    const std::string prefix = Unquoted(TablePrefix(field));
    return !prefix.empty() && bare.size() == prefix.size() + 1 + name.size() &&
           bare[prefix.size()] == '.' &&
           text::SameText(std::string_view(bare).substr(0, prefix.size()), prefix) &&
           text::SameText(std::string_view(bare).substr(prefix.size() + 1), name);
}

bool TVdGroupByItems::GroupsField(const std::string& item, const TVdFieldDef& field,
                                  const std::vector<const TVdFieldDef*>& printed) const
{
    if (NamesField(item, field))
        return true;
    if (!field.Alias().empty() && text::SameText(item, field.Alias()))
        return true;
    if (!IsPosition(item) || item.size() > 9)
        return false;
    const size_t position = std::stoul(item);
    return position >= 1 && position <= printed.size() && printed[position - 1] == &field;
}

} // namespace vd
