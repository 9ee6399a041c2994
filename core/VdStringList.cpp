#include "core/VdStringList.h"

#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"

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

bool TVdStringList::IsPosition(const std::string& line)
{
    if (line.empty())
        return false;
    for (const char c : line)
        if (c < '0' || c > '9')
            return false;
    return true;
}

std::string TVdStringList::ItemScript(const std::string& line) const
{
    return IsPosition(line) ? line : ProcessName(line);
}

void TVdStringList::AppendItemScript(std::string& out, const std::string& line) const
{
    if (!FParser || IsPosition(line)) {
        out += line;
        return;
    }
    // T.*: the star is no name and is never quoted ("T"."*" names a column called *).
    if (line.size() > 2 && line.compare(line.size() - 2, 2, ".*") == 0) {
        const std::string qualifier = line.substr(0, line.size() - 2);
        script::AppendScannerName(out, FParser->Scanner(), qualifier, qualifier.find('.'));
        out += ".*";
        return;
    }
    script::AppendScannerName(out, FParser->Scanner(), line, line.find('.'));
}

std::string TVdStringList::ClauseScript(const char* first, const char* second,
                                        const std::vector<std::string>& lines) const
{
    std::string result;
    AppendClause(result, first, second, lines);
    return result;
}

void TVdStringList::AppendClause(std::string& out, const char* first, const char* second,
                                 const std::vector<std::string>& lines) const
{
    if (lines.empty())
        return;
    script::AppendClauseHead(out, FParser, first, second);
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i)
            out += ",\r\n  ";
        out += lines[i];
    }
    out += "\r\n";
}

int TVdOrderByItems::Add(const std::string& line) { return AddOrdered(line, okAsc); }

int TVdOrderByItems::AddOrdered(const std::string& line, TVdOrderKind kind)
{
    FOrders.push_back(kind);
    FExpressions.push_back(false);
    return TVdStringList::Add(line);
}

int TVdOrderByItems::AddExpression(const std::string& text, TVdOrderKind kind)
{
    const int index = AddOrdered(text, kind);
    FExpressions.back() = true;
    return index;
}

bool TVdOrderByItems::IsExpression(int index) const
{
    return index >= 0 && index < int(FExpressions.size()) && FExpressions[size_t(index)];
}

void TVdOrderByItems::Delete(int index)
{
    if (index >= 0 && index < Count()) {
        FOrders.erase(FOrders.begin() + index);
        FExpressions.erase(FExpressions.begin() + index);
        TVdStringList::Delete(index);
    }
}

void TVdOrderByItems::Clear()
{
    FOrders.clear();
    FExpressions.clear();
    TVdStringList::Clear();
}

void TVdOrderByItems::Assign(const TVdOrderByItems& source)
{
    if (&source == this)
        return;
    FLines = source.FLines;
    FOrders = source.FOrders;
    FExpressions = source.FExpressions;
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
    AppendScript(result);
    return result;
}

void TVdOrderByItems::AppendScript(std::string& out) const
{
    if (FLines.empty())
        return;
    script::AppendClauseHead(out, Parser(), "ORDER", "BY");
    for (size_t i = 0; i < FLines.size(); ++i) {
        if (i)
            out += ",\r\n  ";
        if (FExpressions[i])
            out += FLines[i];
        else
            AppendItemScript(out, FLines[i]);
        if (FOrders[i] == okDesc)
            out += " DESC";
    }
    out += "\r\n";
}

} // namespace vd
