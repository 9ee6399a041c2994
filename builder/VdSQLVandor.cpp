#include "builder/VdSQLVandor.h"

namespace vd {

TSQLVandor::TSQLVandor(QObject* owner, bool designMode) : TCustomVandor(owner, designMode)
{
    Construct();
}

TSQLVandor::TSQLVandor(QObject* owner, bool designMode, TVdDeferConstruct)
    : TCustomVandor(owner, designMode)
{
}

} // namespace vd
