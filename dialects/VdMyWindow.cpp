#include "dialects/VdMyWindow.h"

namespace vd {

TMySQLVandor::TMySQLVandor(QObject* owner, bool designMode) : TCustomVandor(owner, designMode)
{
    Construct();
}

TMySQLVandor::TMySQLVandor(QObject* owner, bool designMode, TVdDeferConstruct)
    : TCustomVandor(owner, designMode)
{
}

std::unique_ptr<TVdSelectParser> TMySQLVandor::CreateParser()
{
    return std::make_unique<TVdMySelectParser>();
}

TVdMySelectParser* TMySQLVandor::MyParser() const
{
    return dynamic_cast<TVdMySelectParser*>(Parser());
}

} // namespace vd
