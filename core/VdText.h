#pragma once

#include <string>
#include <string_view>
#include <vector>

// Small ASCII text helpers shared by the scanner, the model and the parser.
namespace vd::text {

inline char UpperChar(char c) { return (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c; }

inline char LowerChar(char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; }

std::string Upper(std::string_view s);
std::string Lower(std::string_view s);
inline bool SameText(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && UpperChar(a[i]) != UpperChar(b[i]))
            return false;
    return true;
}
int CompareText(std::string_view a, std::string_view b);
std::string Trim(std::string_view s);
// Whether s holds more than blanks and control characters (what Trim would remove).
bool HasText(std::string_view s);
std::vector<std::string> SplitComma(std::string_view commaText);
// Encloses s in quote, doubling every quote inside.
std::string QuotedStr(std::string_view s, char quote);
// QuotedStr(s, quote) appended to out, without a temporary; from where the first quote inside
// stands (at).
void AppendQuotedFrom(std::string& out, std::string_view s, char quote, size_t at);
// QuotedStr(s, quote) appended to out, without a temporary.
inline void AppendQuoted(std::string& out, std::string_view s, char quote)
{
    // Names rarely hold the quote: then they are copied whole.
    const size_t at = s.find(quote);
    if (at != std::string_view::npos) {
        AppendQuotedFrom(out, s, quote, at);
        return;
    }
    out += quote;
    out += s;
    out += quote;
}
// Replaces every doubled quote by a single one.
std::string UndoubleQuotes(std::string_view s, char quote);

} // namespace vd::text
