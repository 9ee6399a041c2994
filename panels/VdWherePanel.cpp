#include "panels/VdWherePanel.h"

#include "core/VdSelectParser.h"

namespace vd {

TVdWherePanel::TVdWherePanel(QWidget* parent) : TVdCriterionPanel(parent)
{
    SetUsesAggregates(false);
}

void TVdWherePanel::RefreshRows()
{
    if (Parser())
        FillRows(Parser()->WhereItems());
    else
        Clear();
}

} // namespace vd
