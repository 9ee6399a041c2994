#include "core/VdStringList.h"

#include "core/VdFieldDef.h"
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"
#include "core/VdTableDef.h"

namespace vd {

TVdStringList::~TVdStringList() = default;

std::string TVdStringList::ProcessName(const std::string& name) const
{
    return FParser ? FParser->Scanner().ProcessName(name) : name;
}

std::string TVdStringList::ProcessKeyword(const std::string& word) const
{
    return FParser ? FParser->ProcessKeyword(word) : word;
}

int TVdStringList::IndexOf(const std::string& line) const
{
    for (size_t i = 0; i < FLines.size(); ++i)
        if (FLines[i] == line)
            return int(i);
    return -1;
}

int TVdStringList::Add(const std::string& line)
{
    FLines.push_back(line);
    return int(FLines.size()) - 1;
}

void TVdStringList::Delete(int index)
{
    if (index >= 0 && index < Count())
        FLines.erase(FLines.begin() + index);
}

void TVdStringList::Clear() { FLines.clear(); }

namespace {

// "GROUP BY\r\n  " in the parser's keyword case.
void AppendClauseHead(std::string& out, const TVdSelectParser* parser, const char* first,
                      const char* second)
{
    script::AppendKeyword(out, parser, first);
    out += ' ';
    script::AppendKeyword(out, parser, second);
    out += "\r\n  ";
}

} // namespace

std::string TVdStringList::ClauseScript(const char* first, const char* second,
                                        const std::vector<std::string>& lines) const
{
    std::string result;
    if (lines.empty())
        return result;
    AppendClauseHead(result, FParser, first, second);
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i)
            result += ",\r\n  ";
        result += lines[i];
    }
    result += "\r\n";
    return result;
}

void TVdGroupByItems::Rebuild()
{
    const TVdSelectParser* parser = Parser();
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
    Clear();
    if (!aggregates || !plain)
        return;
    std::string qualified;
    for (const TVdFieldDef* field : fields) {
        if (!field || field->IsInputParam() || field->Kind() != fkIdentifier ||
            parser->Aggregates().Contains(field->Name()))
            continue;
        // The column as the select list prints it, qualifier and name each quoted on its own: the
        // whole text split anew at its dots would name another column once a qualifier holds
        // a dot (A.C.A.I prints "A.C"."A"."I", and "A.C.A"."I" would not read back the same).
        const TVdTableDef* table = field->Table();
        qualified.clear();
        if (table) {
            const std::string& prefix = table->Alias().empty() ? table->Name() : table->Alias();
            if (!prefix.empty())
                qualified += parser->ProcessItemName(prefix) + '.';
        }
        qualified += parser->ProcessItemName(field->Name());
        Add(qualified);
    }
}

std::string TVdGroupByItems::GetScript()
{
    if (Parser())
        Rebuild();
    return ClauseScript("GROUP", "BY", FLines);
}

int TVdOrderByItems::Add(const std::string& line) { return AddOrdered(line, okAsc); }

int TVdOrderByItems::AddOrdered(const std::string& line, TVdOrderKind kind)
{
    FOrders.push_back(kind);
    return TVdStringList::Add(line);
}

void TVdOrderByItems::Delete(int index)
{
    if (index >= 0 && index < Count()) {
        FOrders.erase(FOrders.begin() + index);
        TVdStringList::Delete(index);
    }
}

void TVdOrderByItems::Clear()
{
    FOrders.clear();
    TVdStringList::Clear();
}

void TVdOrderByItems::Assign(const TVdOrderByItems& source)
{
    if (&source == this)
        return;
    FLines = source.FLines;
    FOrders = source.FOrders;
}

TVdOrderKind TVdOrderByItems::Orders(int index) const { return FOrders.at(size_t(index)); }

void TVdOrderByItems::SetOrders(int index, TVdOrderKind kind)
{
    if (index >= 0 && index < int(FOrders.size()))
        FOrders[size_t(index)] = kind;
}

std::string TVdOrderByItems::GetScript() const
{
    std::string result;
    if (FLines.empty())
        return result;
    AppendClauseHead(result, Parser(), "ORDER", "BY");
    for (size_t i = 0; i < FLines.size(); ++i) {
        if (i)
            result += ",\r\n  ";
        result += ProcessName(FLines[i]);
        if (FOrders[i] == okDesc)
            result += " DESC";
    }
    result += "\r\n";
    return result;
}

} // namespace vd
