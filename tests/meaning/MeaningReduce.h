#pragma once

// Shrinks a failing statement to a small one that fails the same way (clauses, items, tables
// and condition parts dropped one at a time while the failure stays), and names its shape.

#include "tests/meaning/MeaningRunner.h"

namespace vdmeaning {

// The smallest statement found within a fixed number of tries; smallCheck receives its check.
TStatement Reduce(TEngine& engine, const TStatement& statement, const TCheck& check,
                  TCheck& smallCheck);

// What a (small) failing statement is about: "mixed AND/OR", "NOT in a chain", "GROUP BY /
// HAVING", "ORDER BY position", "literal select item", "join order", ...
std::string ShapeOf(const TStatement& statement, const TCheck& check);

} // namespace vdmeaning
