#pragma once

#include "tests/engines/Engine.h"

#include <string>
#include <vector>

namespace vdengine {

// The statements that create the suite's small business (suppliers, products, customers,
// employees, orders, order lines) on an engine and fill it. The tables and columns are
// created with unquoted names, so each engine keeps them in its own letter case (upper
// case on Firebird, lower case on PostgreSQL); the column types cover every kind the
// field-type mapping knows: small, ordinary, big and auto-increment integers, floating
// point and fixed-point (currency) numbers, fixed and variable characters, text memos,
// binary data, booleans, dates, times and timestamps.
std::vector<std::string> SchemaStatements(TEngine engine);

} // namespace vdengine
