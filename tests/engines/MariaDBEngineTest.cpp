#include "tests/engines/EngineSuite.h"

namespace vdengine {

const TEngine SuiteEngine = TEngine::MariaDB;

VD_ENGINE_FAMILY(MariaDB);

} // namespace vdengine
