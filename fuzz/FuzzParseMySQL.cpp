// Arbitrary text through the MySQL parser (select options, LIMIT, back-quoted identifiers):
// only documented refusals, and a parsed model prints, copies and clears.
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vdfuzz::ParseAndWork(vdfuzz::TSetting::MySQL, data, size);
    return 0;
}
