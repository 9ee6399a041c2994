#pragma once

#include "panels/VdCriterionPanel.h"

namespace vd {

// The "Criteria" page: the WHERE criteria.
class TVdWherePanel : public TVdCriterionPanel
{
    Q_OBJECT

public:
    explicit TVdWherePanel(QWidget* parent);
    void RefreshRows() override;
};

} // namespace vd
