#include "panels/VdHavingPanel.h"

#include "core/VdSelectParser.h"

namespace vd {

TVdHavingPanel::TVdHavingPanel(QWidget* parent) : TVdCriterionPanel(parent)
{
    SetUsesAggregates(true);
}

void TVdHavingPanel::RefreshRows()
{
    if (Parser())
        FillRows(Parser()->HavingItems());
    else
        Clear();
}

} // namespace vd
