#pragma once

// The order of the output columns as the select grid shows them: every field definition that
// is not a procedure's input parameter, by its place in the select list.

#include <vector>

namespace vd {

class TVdFieldDef;
class TVdTableDefs;

std::vector<TVdFieldDef*> OutputFields(const TVdTableDefs& tables);

// Moves the output column at position from to position to; the others keep their order.
// Positions out of range change nothing.
void MoveOutputField(TVdTableDefs& tables, int from, int to);

// field takes replaced's place in the select list and replaced is deleted from its table.
void ReplaceOutputField(TVdTableDefs& tables, TVdFieldDef* field, TVdFieldDef* replaced);

} // namespace vd
