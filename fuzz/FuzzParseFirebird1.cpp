// Arbitrary text through the Firebird parser, SQL dialect 1 (FIRST/SKIP; double quotes make
// strings): only documented refusals, and a parsed model prints, copies and clears.
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vdfuzz::ParseAndWork(vdfuzz::TSetting::Firebird1, data, size);
    return 0;
}
