#include "core/VdScriptFormat.h"

#include "core/VdText.h"

namespace vd {

void TVdScriptFormat::Assign(const TVdScriptFormat& source)
{
    KeywordsFormat = source.KeywordsFormat;
    FunctionsFormat = source.FunctionsFormat;
}

std::string FormatWord(const std::string& word, TVdFormatMode mode)
{
    if (mode == qfmAsIs)
        return word;
    std::string result;
    AppendFormatted(result, word, mode);
    return result;
}

void AppendFormatted(std::string& out, std::string_view word, TVdFormatMode mode)
{
    switch (mode) {
    case qfmUpperCase:
        for (const char c : word)
            out += text::UpperChar(c);
        return;
    case qfmLowerCase:
        for (const char c : word)
            out += text::LowerChar(c);
        return;
    case qfmFirstUpper:
        // The character before, as read or as written: no letter case turns anything into
        // "_" or "_" into anything else.
        for (size_t i = 0; i < word.size(); ++i)
            out += (i == 0 || word[i - 1] == '_') ? text::UpperChar(word[i])
                                                  : text::LowerChar(word[i]);
        return;
    default:
        out += word;
    }
}

} // namespace vd
