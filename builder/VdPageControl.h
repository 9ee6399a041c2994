#pragma once

// The builder's tab pages. A page change is offered first (OnChanging may refuse it, and the
// previous page comes back) and then reported (OnChange). Changes made by the builder itself
// inside Quietly() are neither offered nor reported.

#include <QTabWidget>

#include <functional>

namespace vd {

class TVdPageControl : public QTabWidget
{
    Q_OBJECT

public:
    using TChangingEvent = std::function<void(QObject* sender, bool& allow)>;
    using TChangeEvent = std::function<void(QObject* sender)>;

    explicit TVdPageControl(QWidget* parent = nullptr);

    // The tab position among the visible tabs, -1 for a hidden tab or none.
    int VisibleTabIndex(int index) const;
    template <class F> void Quietly(F&& change)
    {
        const bool old = FQuiet;
        FQuiet = true;
        change();
        FQuiet = old;
        FPrevious = currentIndex();
    }

    TChangingEvent OnChanging;
    TChangeEvent OnChange;

private:
    void HandleCurrentChanged(int index);

    int FPrevious = -1;
    bool FQuiet = false;
};

} // namespace vd
