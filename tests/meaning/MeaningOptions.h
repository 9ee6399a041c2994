#pragma once

// The run's size and seed from VD_MEANING_COUNT and VD_MEANING_SEED, so that a test run can look
// further than its fixed default.

#include "tests/meaning/MeaningRunner.h"

#include <cstdlib>
#include <string>

namespace vdmeaning {

inline TRunOptions OptionsFromEnvironment(TDialect dialect, int defaultCount)
{
    TRunOptions options;
    options.Dialect = dialect;
    options.Count = defaultCount;
    if (const char* count = std::getenv("VD_MEANING_COUNT"))
        options.Count = std::max(1, std::atoi(count));
    if (const char* seed = std::getenv("VD_MEANING_SEED"))
        options.Seed = std::uint32_t(std::strtoul(seed, nullptr, 10));
    return options;
}

} // namespace vdmeaning
