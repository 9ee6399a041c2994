#pragma once

#include "cli/Options.h"

namespace vdsql {

// Each verb returns the process exit code.
int RunFormat(const TOptions& options);
int RunFormatJsonLines(const TOptions& options);
int RunTokens(const TOptions& options);
int RunBench(const TOptions& options);

} // namespace vdsql
