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
    switch (mode) {
    case qfmUpperCase:
        return text::Upper(word);
    case qfmLowerCase:
        return text::Lower(word);
    case qfmFirstUpper: {
        std::string result(word);
        for (size_t i = 0; i < result.size(); ++i)
            result[i] = (i == 0 || result[i - 1] == '_') ? text::UpperChar(result[i])
                                                         : text::LowerChar(result[i]);
        return result;
    }
    default:
        return word;
    }
}

} // namespace vd
