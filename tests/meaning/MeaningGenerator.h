#pragma once

// A seeded generator of SELECT statements written the way people write them: minimal and extra
// parentheses, mixed AND/OR, NOT anywhere, every operator of the default table, qualified and
// unqualified columns, aliases, DISTINCT, aggregates with GROUP BY and HAVING, ORDER BY names,
// positions, aliases and expressions, literal select items, and chains of joins of every kind.
// Every statement runs on the dialect's engine and returns the same rows every time.

#include "tests/meaning/MeaningStatement.h"

#include <random>

namespace vdmeaning {

TStatement GenerateStatement(std::mt19937& rng, TDialect dialect);

} // namespace vdmeaning
