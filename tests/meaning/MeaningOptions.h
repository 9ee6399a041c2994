#pragma once

// The run's size, seed and number of failures shrunk from VD_MEANING_COUNT (or the variable
// given), VD_MEANING_SEED and VD_MEANING_REDUCE, so that a run can look further than its default.

#include "tests/meaning/MeaningRunner.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace vdmeaning {

inline TRunOptions OptionsFromEnvironment(TDialect dialect, int defaultCount,
                                          const char* countVariable = "VD_MEANING_COUNT",
                                          TRunOptions options = {})
{
    options.Dialect = dialect;
    options.Count = defaultCount;
    if (const char* count = std::getenv(countVariable))
        options.Count = std::max(1, std::atoi(count));
    if (const char* reduce = std::getenv("VD_MEANING_REDUCE"))
        options.ReduceLimit = std::max(0, std::atoi(reduce));
    if (const char* seed = std::getenv("VD_MEANING_SEED"))
        options.Seed = std::uint32_t(std::strtoul(seed, nullptr, 10));
    return options;
}

} // namespace vdmeaning
