#pragma once

#include "panels/VdCriterionPanel.h"

namespace vd {

// The "Grouping criteria" page: the HAVING criteria, which may use aggregates.
class TVdHavingPanel : public TVdCriterionPanel
{
    Q_OBJECT

public:
    explicit TVdHavingPanel(QWidget* parent);
    void RefreshRows() override;
};

} // namespace vd
