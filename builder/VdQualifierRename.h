#pragma once

// A table's new alias carried into the lists that name its columns by text: the sort order
// and the kept GROUP BY items. Left behind, they would name a table the statement no longer
// has, and the Sorting page would drop them at its next edit.

#include <string>

namespace vd {

class TVdSelectParser;

// Every ORDER BY name and kept GROUP BY item that starts with oldAlias and "." starts with
// newAlias and "." instead. Expressions and positions are left as written.
void RenameQualifier(TVdSelectParser& parser, const std::string& newAlias,
                     const std::string& oldAlias);

} // namespace vd
