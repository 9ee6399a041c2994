#include "builder/VdPageControl.h"

namespace vd {

TVdPageControl::TVdPageControl(QWidget* parent) : QTabWidget(parent)
{
    connect(this, &QTabWidget::currentChanged, this, &TVdPageControl::HandleCurrentChanged);
}

int TVdPageControl::VisibleTabIndex(int index) const
{
    if (index < 0 || index >= count() || !isTabVisible(index))
        return -1;
    int position = 0;
    for (int i = 0; i < index; ++i)
        if (isTabVisible(i))
            ++position;
    return position;
}

void TVdPageControl::HandleCurrentChanged(int index)
{
    if (FQuiet) {
        FPrevious = index;
        return;
    }
    bool allow = true;
    if (OnChanging && FPrevious >= 0)
        OnChanging(this, allow);
    if (!allow) {
        // Qt has already switched: put the previous page back without asking again.
        Quietly([this] { setCurrentIndex(FPrevious); });
        return;
    }
    FPrevious = index;
    if (OnChange)
        OnChange(this);
}

} // namespace vd
