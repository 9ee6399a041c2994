#pragma once

// The meaning property as a GoogleTest assertion over one engine.

#include "tests/meaning/MeaningRunner.h"

#include <gtest/gtest.h>

namespace vdmeaning {

// Runs the options' statements and holds when none is changed, none breaks the parser and none
// fails on the engine as written; refusals are counted and listed, never failures. A failure lists
// the first failing statements with their prints and their smallest forms. With VD_MEANING_FAILURES
// set, every failure is written, grouped by shape, to the file it names.
testing::AssertionResult MeaningKept(TEngine& engine, const TRunOptions& options);

} // namespace vdmeaning
