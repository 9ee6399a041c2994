#pragma once

#include <string>
#include <vector>

namespace vdsql {

// The whole of FILE as bytes; empty or "-" reads standard input. Throws ECliError when
// the file cannot be read.
std::string ReadInput(const std::string& file);

// Turns every LF not preceded by CR into CR LF: the scanner breaks lines only at CR LF
// and would read a lone LF as part of a name.
std::string ToCrLf(const std::string& text);

// The lines of text without their line ends (LF, or CR LF).
std::vector<std::string> SplitLines(const std::string& text);

} // namespace vdsql
