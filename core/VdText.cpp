#include "core/VdText.h"

#include <algorithm>

namespace vd::text {

std::string Upper(std::string_view s)
{
    std::string r(s);
    for (char& c : r)
        c = UpperChar(c);
    return r;
}

std::string Lower(std::string_view s)
{
    std::string r(s);
    for (char& c : r)
        c = LowerChar(c);
    return r;
}

int CompareText(std::string_view a, std::string_view b)
{
    const size_t n = a.size() < b.size() ? a.size() : b.size();
    for (size_t i = 0; i < n; ++i) {
        const unsigned char x = static_cast<unsigned char>(UpperChar(a[i]));
        const unsigned char y = static_cast<unsigned char>(UpperChar(b[i]));
        if (x != y)
            return x < y ? -1 : 1;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool HasText(std::string_view s)
{
    return std::any_of(s.begin(), s.end(),
                       [](char c) { return static_cast<unsigned char>(c) > ' '; });
}

std::string Trim(std::string_view s)
{
    size_t b = 0;
    size_t e = s.size();
    while (b < e && static_cast<unsigned char>(s[b]) <= ' ')
        ++b;
    while (e > b && static_cast<unsigned char>(s[e - 1]) <= ' ')
        --e;
    return std::string(s.substr(b, e - b));
}

std::vector<std::string> SplitComma(std::string_view commaText)
{
    std::vector<std::string> items;
    size_t start = 0;
    while (start <= commaText.size()) {
        size_t comma = commaText.find(',', start);
        if (comma == std::string_view::npos)
            comma = commaText.size();
        std::string item = Trim(commaText.substr(start, comma - start));
        if (!item.empty())
            items.push_back(std::move(item));
        start = comma + 1;
    }
    return items;
}

std::string QuotedStr(std::string_view s, char quote)
{
    std::string r;
    AppendQuoted(r, s, quote);
    return r;
}

void AppendQuotedFrom(std::string& out, std::string_view s, char quote, size_t at)
{
    out += quote;
    // Copy the runs between quotes whole.
    for (; at != std::string_view::npos; at = s.find(quote)) {
        out.append(s.data(), at + 1);
        out += quote;
        s.remove_prefix(at + 1);
    }
    out += s;
    out += quote;
}

std::string UndoubleQuotes(std::string_view s, char quote)
{
    std::string r;
    r.reserve(s.size());
    for (size_t i = 0; i < s.size(); ++i) {
        r += s[i];
        if (s[i] == quote && i + 1 < s.size() && s[i + 1] == quote)
            ++i;
    }
    return r;
}

} // namespace vd::text
