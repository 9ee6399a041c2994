#include "tests/core/TrickyStatements.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace vdtest {

namespace {

// Words with the troubles names bring: letter case, keywords, function names, generated
// alias names, blanks, dots (also leading a part), quotes, backslashes, digits, "$".
constexpr std::array<std::string_view, 42> Words = {
    "A",    "B",     "T",    "U",      "K",     "X",   "a",    "b",   "t",       "x",    "id",
    "Name", "ORDER", "From", "select", "count", "MIN", "T2",   "A1",  "FIELD_1", "my t", "a.b",
    ".",    "",      " ",    "e.",     "\\",    "a\\", "`",    "a`b", "'",       "\"",   "1",
    "_x",   "$",     "Y1",   "RDB$X",  "AS",    "ON",  "JOIN", ".e",  "'.'"};

// Words any dialect reads as a plain name.
constexpr std::array<std::string_view, 17> PlainWords = {"A",  "B",  "T",       "U",  "K",  "X",
                                                         "a",  "b",  "t",       "x",  "id", "Name",
                                                         "T2", "A1", "FIELD_1", "_x", "Y1"};

class TGenerator
{
public:
    explicit TGenerator(std::mt19937& rng) : Rng(rng) {}

    std::string Statement();

private:
    int Below(int n) { return int(Rng() % unsigned(n)); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <typename T, size_t N> std::string_view Pick(const std::array<T, N>& items)
    {
        return items[size_t(Below(int(N)))];
    }
    const std::string& Pick(const std::vector<std::string>& items)
    {
        return items[size_t(Below(int(items.size())))];
    }

    std::string Name();
    std::string Dotted(int maxParts);
    std::pair<std::string, std::string> TableRef(); // entry text, its qualifier
    std::string Column(int depth);
    std::string Condition(int depth);

    std::mt19937& Rng;
    std::vector<std::string> Qualifiers;
};

std::string Quoted(std::string_view word, char quote)
{
    std::string result(1, quote);
    for (char c : word) {
        result += c;
        if (c == quote)
            result += c;
    }
    return result + quote;
}

std::string TGenerator::Name()
{
    if (Chance(50))
        return std::string(Pick(PlainWords));
    static constexpr std::array<char, 4> Quotes = {'"', '"', '\'', '`'};
    return Quoted(Pick(Words), Quotes[size_t(Below(4))]);
}

std::string TGenerator::Dotted(int maxParts)
{
    std::string result = Name();
    for (int parts = 1 + Below(maxParts); parts > 1; --parts)
        result += "." + Name();
    return result;
}

std::pair<std::string, std::string> TGenerator::TableRef()
{
    std::string entry = Dotted(2);
    std::string qualifier = entry;
    if (Chance(20)) {
        static constexpr std::array<std::string_view, 3> Args = {"1", ":p", "'s'"};
        entry += "(" + std::string(Pick(Args));
        if (Chance(40))
            entry += ", " + Name();
        entry += ")";
    }
    if (Chance(50)) {
        qualifier = Name();
        entry += (Chance(20) ? " AS " : " ") + qualifier;
    }
    return {entry, qualifier};
}

std::string TGenerator::Column(int depth)
{
    const int roll = Below(100);
    if (!Qualifiers.empty() && roll < 50)
        return Pick(Qualifiers) + "." + (Chance(90) ? Name() : std::string("*"));
    if (roll < 60 || depth > 3)
        return Name();
    if (roll < 75) {
        static constexpr std::array<std::string_view, 6> Calls = {"MIN",   "MAX", "SUM",
                                                                  "COUNT", "AVG", "F"};
        std::string call = std::string(Pick(Calls)) + "(" + Column(depth + 1);
        if (Chance(50))
            call += ", " + Column(depth + 1);
        return call + ")";
    }
    if (roll < 85) {
        static constexpr std::array<std::string_view, 4> Operations = {" + ", " - ", " * ", " || "};
        return Column(depth + 1) + std::string(Pick(Operations)) + Column(depth + 1);
    }
    static constexpr std::array<std::string_view, 4> Literals = {"1", "'s'", "2.5", "NULL"};
    return std::string(Pick(Literals));
}

std::string TGenerator::Condition(int depth)
{
    if (depth < 2 && Chance(25)) {
        const char* connector = Chance(50) ? " AND " : " OR ";
        std::string group = "(";
        for (int i = 0, n = 2 + Below(2); i < n; ++i)
            group += (i ? connector : "") + ("(" + Condition(depth + 1) + ")");
        group += ")";
        return Chance(20) ? "NOT " + group : group;
    }
    const std::string operand = Column(2);
    switch (Below(8)) {
    case 0:
        return operand + " IS NULL";
    case 1:
        return operand + " IN (1, 2)";
    case 2:
        return operand + " BETWEEN 1 AND 2";
    default:
        break;
    }
    static constexpr std::array<std::string_view, 4> Comparisons = {" = ", " <> ", " < ", " >= "};
    static constexpr std::array<std::string_view, 3> Values = {"1", "'v'", ":p"};
    const std::string right = Chance(40) ? Column(2) : std::string(Pick(Values));
    return operand + (Chance(15) ? std::string(" LIKE ") : std::string(Pick(Comparisons))) + right;
}

std::string TGenerator::Statement()
{
    Qualifiers.clear();
    std::vector<std::string> entries;
    for (int i = 0, n = 1 + Below(3); i < n; ++i) {
        auto [entry, qualifier] = TableRef();
        entries.push_back(std::move(entry));
        Qualifiers.push_back(std::move(qualifier));
    }
    if (Chance(30))
        Qualifiers.push_back(Dotted(2)); // a qualifier no entry gives
    // The clauses of every dialect, each refused where its dialect is not the parser's.
    static constexpr std::array<std::string_view, 10> Heads = {
        "DISTINCT ",       "FIRST 5 ", "FIRST 1 SKIP 2 ", "SKIP 3 ",        "STRAIGHT_JOIN ",
        "SQL_BIG_RESULT ", "ALL ",     "DISTINCTROW ",    "HIGH_PRIORITY ", "FIRST 2 DISTINCT "};
    static constexpr std::array<std::string_view, 6> Tails = {
        " ROWS 5",  " ROWS 1 TO 5", " ROWS 2 TO 8 BY 3 PERCENT WITH TIES",
        " LIMIT 5", " LIMIT 2, 5",  " ROWS 3 WITH TIES"};
    std::string text = "SELECT " + std::string(Chance(25) ? Pick(Heads) : "");
    for (int i = 0, n = 1 + Below(4); i < n; ++i) {
        text += (i ? ", " : "") + Column(0);
        if (Chance(20))
            text += " AS " + Name();
    }
    text += " FROM " + entries[0];
    for (size_t i = 1; i < entries.size(); ++i) {
        if (Chance(40)) {
            static constexpr std::array<std::string_view, 5> Kinds = {"INNER", "LEFT", "LEFT OUTER",
                                                                      "RIGHT", "FULL OUTER"};
            text += " " + std::string(Pick(Kinds)) + " JOIN " + entries[i] + " ON (" +
                    Pick(Qualifiers) + "." + Name() + " = " + Pick(Qualifiers) + "." + Name() + ")";
        } else {
            text += ", " + entries[i];
        }
    }
    if (Chance(50))
        text += " WHERE " + Condition(0);
    if (Chance(30)) {
        text += " GROUP BY " + Column(1);
        if (Chance(50))
            text += ", " + Column(1);
        if (Chance(50))
            text += " HAVING " + Condition(0);
    }
    if (Chance(30)) {
        static constexpr std::array<std::string_view, 3> Orders = {"", " DESC", " ASC"};
        text +=
            " ORDER BY " + (Chance(50) ? Column(1) : std::string("1")) + std::string(Pick(Orders));
        if (Chance(50))
            text += ", " + Column(1);
    }
    if (Chance(20))
        text += Pick(Tails);
    return text;
}

} // namespace

std::string TrickyStatement(std::mt19937& rng) { return TGenerator(rng).Statement(); }

} // namespace vdtest
