#include "dialects/VdMyOptions.h"

#include "core/VdSelectParser.h"

namespace vd {

const char* SelectOptionWord(TVdMySQLSelectOption option)
{
    switch (option) {
    case mysoStraightJoin:
        return "STRAIGHT_JOIN";
    case mysoSQLSmallResult:
        return "SQL_SMALL_RESULT";
    case mysoSQLBigResult:
        return "SQL_BIG_RESULT";
    case mysoSQLBufferResult:
        return "SQL_BUFFER_RESULT";
    case mysoHighPriority:
        return "HIGH_PRIORITY";
    }
    return "";
}

void TVdMySQLOptions::Clear()
{
    LimitRows = 0;
    LimitOffset = 0;
    SelectOptions = TVdMySQLSelectOptions();
    Filter = myfoNone;
}

void TVdMySQLOptions::Assign(const TVdMySQLOptions& source)
{
    Filter = source.Filter;
    LimitRows = source.LimitRows;
    LimitOffset = source.LimitOffset;
    SelectOptions = source.SelectOptions;
}

std::string TVdMySQLOptions::Keyword(const char* word) const
{
    return FParser ? FParser->ProcessKeyword(word) : std::string(word);
}

std::string TVdMySQLOptions::FilterScript() const
{
    switch (Filter) {
    case myfoDistinct:
        return Keyword("DISTINCT") + " ";
    case myfoDistinctRow:
        return Keyword("DISTINCTROW") + " ";
    case myfoAll:
        return Keyword("ALL") + " ";
    case myfoNone:
        break;
    }
    return std::string();
}

std::string TVdMySQLOptions::OptionsScript() const
{
    std::string result;
    for (TVdMySQLSelectOption option : AllSelectOptions) {
        if (!SelectOptions.Contains(option))
            continue;
        result += Keyword(SelectOptionWord(option));
        result += ' ';
    }
    return result;
}

std::string TVdMySQLOptions::LimitScript() const
{
    if (LimitOffset < 1) {
        if (LimitRows < 1)
            return std::string();
        return Keyword("LIMIT") + " " + std::to_string(LimitRows);
    }
    return Keyword("LIMIT") + " " + std::to_string(LimitOffset) + ", " + std::to_string(LimitRows);
}

} // namespace vd
