#pragma once

#include "core/VdScanner.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vd {

class TVdSelectParser;

enum TVdOrderKind : std::uint8_t { okAsc, okDesc };

// A list of lines that knows the parser, through whose scanner it quotes names.
class TVdStringList
{
public:
    virtual ~TVdStringList();

    TVdSelectParser* Parser() const { return FParser; }
    void SetParser(TVdSelectParser* parser) { FParser = parser; }
    std::string ProcessName(const std::string& name) const;
    std::string ProcessKeyword(const std::string& word) const;

    int Count() const { return int(FLines.size()); }
    const std::string& operator[](int i) const { return FLines.at(size_t(i)); }
    const std::vector<std::string>& Lines() const { return FLines; }
    int IndexOf(const std::string& line) const;
    // A line that is a position in the select list (ORDER BY 2) rather than a name: digits
    // only. A column named by digits is kept in its quotes ("2").
    static bool IsPosition(const std::string& line);
    // The line as the clause prints it: a position as it stands, a name processed.
    std::string ItemScript(const std::string& line) const;
    virtual int Add(const std::string& line);
    virtual void Delete(int index);
    virtual void Clear();

protected:
    // "GROUP BY\r\n  a,\r\n  b\r\n" from the given lines; empty for none.
    std::string ClauseScript(const char* first, const char* second,
                             const std::vector<std::string>& lines) const;
    // ClauseScript appended to out.
    void AppendClause(std::string& out, const char* first, const char* second,
                      const std::vector<std::string>& lines) const;
    // ItemScript(line) appended to out.
    void AppendItemScript(std::string& out, const std::string& line) const;

    std::vector<std::string> FLines;

private:
    TVdSelectParser* FParser = nullptr;
};

// The ORDER BY list, with a sort direction per line.
class TVdOrderByItems : public TVdStringList
{
public:
    int Add(const std::string& line) override;
    int AddOrdered(const std::string& line, TVdOrderKind kind);
    // An expression (UPPER(A), A + 1, COUNT(*)) kept as its text was written: it prints as it
    // stands, where a name is quoted.
    int AddExpression(const std::string& text, TVdOrderKind kind);
    bool IsExpression(int index) const;
    void Delete(int index) override;
    void Clear() override;
    void Assign(const TVdOrderByItems& source);
    TVdOrderKind Orders(int index) const;
    // A write out of range is ignored.
    void SetOrders(int index, TVdOrderKind kind);
    std::string GetScript() const;
    // GetScript() appended to out.
    void AppendScript(std::string& out) const;

private:
    std::vector<TVdOrderKind> FOrders;
    std::vector<bool> FExpressions;
};

} // namespace vd
