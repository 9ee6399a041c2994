#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vd {

enum TVdFormatMode : std::uint8_t { qfmAsIs, qfmUpperCase, qfmLowerCase, qfmFirstUpper };

// The letter case in which keywords and function names are printed.
class TVdScriptFormat
{
public:
    void Assign(const TVdScriptFormat& source);
    bool operator==(const TVdScriptFormat&) const = default;

    TVdFormatMode KeywordsFormat = qfmAsIs;
    TVdFormatMode FunctionsFormat = qfmAsIs;
};

// Applies a mode: qfmFirstUpper turns order_date into Order_Date.
std::string FormatWord(const std::string& word, TVdFormatMode mode);
// FormatWord(word, mode) appended to out.
void AppendFormatted(std::string& out, std::string_view word, TVdFormatMode mode);

} // namespace vd
