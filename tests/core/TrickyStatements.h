#pragma once

// A seeded generator of SELECT statements made of awkward names: quoted in every quote
// character, empty, blank, holding dots, quotes or backslashes, keywords and function names,
// names of several parts; tables named twice, aliased by each other's names, procedures,
// joins, calls over columns of several tables, nested conditions, GROUP BY, HAVING and
// ORDER BY over such names. Many of them are refused, which is expected: what a test built on
// them checks is that whatever is accepted prints a text that reads back and prints the same.
// The same seed always gives the same text.

#include <random>
#include <string>

namespace vdtest {

std::string TrickyStatement(std::mt19937& rng);

} // namespace vdtest
