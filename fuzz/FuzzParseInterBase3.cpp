// Arbitrary text through the InterBase parser, SQL dialect 3 (ROWS; double-quoted identifiers):
// only documented refusals, and a parsed model prints, copies and clears.
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vdfuzz::ParseAndWork(vdfuzz::TSetting::InterBase3, data, size);
    return 0;
}
