#pragma once

#include "core/VdSet.h"

#include <cstdint>
#include <string>

namespace vd {

class TVdSelectParser;

// The duplicate filter after SELECT and the select options.
enum TVdMySQLFilter : std::uint8_t { myfoNone, myfoDistinct, myfoDistinctRow, myfoAll };

enum TVdMySQLSelectOption : std::uint8_t {
    mysoStraightJoin,
    mysoSQLSmallResult,
    mysoSQLBigResult,
    mysoSQLBufferResult,
    mysoHighPriority
};

// One bit per option in the order above: 1, 2, 4, 8, 16.
using TVdMySQLSelectOptions = TVdSet<TVdMySQLSelectOption>;

// The words of each option, in the order they print.
const char* SelectOptionWord(TVdMySQLSelectOption option);
inline constexpr TVdMySQLSelectOption AllSelectOptions[] = {
    mysoStraightJoin, mysoSQLSmallResult, mysoSQLBigResult, mysoSQLBufferResult, mysoHighPriority};

// The MySQL parts of a statement: select options, filter and LIMIT.
class TVdMySQLOptions
{
public:
    // The parser prints the keywords in its letter case; without one they print as written.
    explicit TVdMySQLOptions(const TVdSelectParser* parser = nullptr) : FParser(parser) {}

    void Clear();
    // Copies the values, not the parser.
    void Assign(const TVdMySQLOptions& source);

    // "DISTINCT ", "DISTINCTROW ", "ALL " or nothing.
    std::string FilterScript() const;
    // The set options in their fixed order, each followed by a blank.
    std::string OptionsScript() const;
    // "LIMIT 5", "LIMIT 10, 20" (the row count printed even as 0 after an offset), or nothing.
    std::string LimitScript() const;

    const TVdSelectParser* Parser() const { return FParser; }

    std::int32_t LimitRows = 0;
    std::int32_t LimitOffset = 0;
    TVdMySQLSelectOptions SelectOptions;
    TVdMySQLFilter Filter = myfoNone;

private:
    std::string Keyword(const char* word) const;

    const TVdSelectParser* FParser;
};

} // namespace vd
