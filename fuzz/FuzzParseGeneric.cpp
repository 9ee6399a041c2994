// Arbitrary text through the generic SQL parser:
// only documented refusals, and a parsed model prints, copies and clears.
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vdfuzz::ParseAndWork(vdfuzz::TSetting::Generic, data, size);
    return 0;
}
