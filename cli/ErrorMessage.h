#pragma once

#include <exception>
#include <string>

namespace vdsql {

// The full message of an exception raised by the core. A parser error's token may hold a
// NUL byte, where what() would cut the text short, so its message is built from its fields.
std::string ErrorMessage(const std::exception& error);

} // namespace vdsql
