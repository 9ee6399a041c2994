#pragma once

#include "cli/Options.h"

#include <memory>
#include <string>

namespace vd {
class TVdSelectParser;
}

namespace vdsql {

// The one place that knows the dialects the tool offers.
bool IsKnownDialect(const std::string& name);
// The dialect names, comma separated, for messages.
std::string KnownDialects();

// A parser of the chosen dialect, with the letter case and quoting the options ask for.
std::unique_ptr<vd::TVdSelectParser> CreateParser(const TOptions& options);

} // namespace vdsql
