#pragma once

#include "cli/Options.h"

namespace vdsql {

// The help text of a verb; TVerb::None gives the overview.
const char* UsageText(TVerb verb);

} // namespace vdsql
