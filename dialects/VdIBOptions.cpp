#include "dialects/VdIBOptions.h"

namespace vd {

void TVdIBOptions::Clear() { *this = TVdIBOptions(); }

void TVdIBOptions::Assign(const TVdIBOptions& source)
{
    Percent = source.Percent;
    Ties = source.Ties;
    RowsFrom = source.RowsFrom;
    RowsBy = source.RowsBy;
    RowsTo = source.RowsTo;
}

std::string TVdIBOptions::GetScript() const
{
    if (RowsFrom < 1 && RowsTo < 1 && RowsBy < 1)
        return std::string();
    std::string result = "ROWS " + std::to_string(RowsFrom);
    if (RowsTo > 0)
        result += " TO " + std::to_string(RowsTo);
    if (RowsBy > 0)
        result += " BY " + std::to_string(RowsBy);
    if (Percent)
        result += " PERCENT";
    if (Ties)
        result += " WITH TIES";
    return result;
}

void TVdFBOptions::Clear() { *this = TVdFBOptions(); }

void TVdFBOptions::Assign(const TVdFBOptions& source)
{
    First = source.First;
    Skip = source.Skip;
}

std::string TVdFBOptions::GetScript() const
{
    std::string result;
    if (First > 0)
        result = "FIRST " + std::to_string(First);
    if (Skip > 0) {
        if (!result.empty())
            result += ' ';
        result += "SKIP " + std::to_string(Skip);
    }
    if (!result.empty())
        result += ' ';
    return result;
}

} // namespace vd
