#pragma once

#include <cstdint>
#include <string>

namespace vd {

// The InterBase ROWS clause: ROWS RowsFrom [TO RowsTo] [BY RowsBy] [PERCENT] [WITH TIES].
class TVdIBOptions
{
public:
    void Clear();
    void Assign(const TVdIBOptions& source);
    // "ROWS 10 TO 20 BY 2 PERCENT WITH TIES"; empty when no number is above 0 (PERCENT and
    // WITH TIES alone print nothing). RowsFrom prints even as 0 when only TO or BY is set.
    std::string GetScript() const;
    bool operator==(const TVdIBOptions&) const = default;

    bool Percent = false;
    bool Ties = false;
    std::int32_t RowsFrom = 0;
    std::int32_t RowsBy = 0;
    std::int32_t RowsTo = 0;
};

// The Firebird clause after SELECT: FIRST First SKIP Skip.
class TVdFBOptions
{
public:
    void Clear();
    void Assign(const TVdFBOptions& source);
    // "FIRST 5 SKIP 10 ", with its own trailing blank; empty when neither is above 0.
    std::string GetScript() const;
    bool operator==(const TVdFBOptions&) const = default;

    std::int32_t First = 0;
    std::int32_t Skip = 0;
};

} // namespace vd
