#include "panels/VdWherePanel.h"

#include "core/VdSelectParser.h"

namespace vd {

TVdWherePanel::TVdWherePanel(QWidget* parent) : TVdCriterionPanel(parent)
{
    SetUsesAggregates(false);
}

void TVdWherePanel::RefreshRows() { ShowCriterions(Parser() ? &Parser()->WhereItems() : nullptr); }

} // namespace vd
