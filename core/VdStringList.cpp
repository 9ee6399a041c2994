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

std::string TVdStringList::ClauseScript(const char* first, const char* second,
                                        const std::vector<std::string>& lines) const
{
    std::string result;
    if (lines.empty())
        return result;
    script::AppendClauseHead(result, FParser, first, second);
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i)
            result += ",\r\n  ";
        result += lines[i];
    }
    result += "\r\n";
    return result;
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
    script::AppendClauseHead(result, Parser(), "ORDER", "BY");
    for (size_t i = 0; i < FLines.size(); ++i) {
        if (i)
            result += ",\r\n  ";
        result += ItemScript(FLines[i]);
        if (FOrders[i] == okDesc)
            result += " DESC";
    }
    result += "\r\n";
    return result;
}

} // namespace vd
