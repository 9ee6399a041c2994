#pragma once

// The meaning property on the suite's server: generated statements in the engine's dialect,
// run as written and as printed (tests/meaning/), on tables of their own beside the
// business schema.

#include "tests/meaning/MeaningSchema.h"

#include <gtest/gtest.h>

namespace vdengine {

// Creates the generated statements' tables in the suite's database and runs the property;
// VD_MEANING_ENGINE_COUNT and VD_MEANING_SEED change the run's size and seed.
testing::AssertionResult SuiteKeepsMeaning(vdmeaning::TDialect dialect, int defaultCount);

} // namespace vdengine
