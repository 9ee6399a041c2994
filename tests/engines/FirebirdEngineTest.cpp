#include "tests/engines/EngineSuite.h"

namespace vdengine {

const TEngine SuiteEngine = TEngine::Firebird;

VD_ENGINE_FAMILY(Firebird);

} // namespace vdengine
