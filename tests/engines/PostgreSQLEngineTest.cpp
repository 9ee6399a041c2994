#include "tests/engines/EngineSuite.h"

namespace vdengine {

const TEngine SuiteEngine = TEngine::PostgreSQL;

VD_ENGINE_FAMILY(PostgreSQL);

} // namespace vdengine
