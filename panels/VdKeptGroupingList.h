#pragma once

// What a statement groups by beyond the GROUP BY that its output fields give (a column that is
// no output, a position): shown under the output grid, each item removable. Hidden while there
// is none.

#include <QWidget>

class QLabel;
class QListWidget;
class QToolButton;

namespace vd {

class TVdSelectParser;

class TVdKeptGroupingList : public QWidget
{
    Q_OBJECT

public:
    explicit TVdKeptGroupingList(QWidget* parent);

    void SetParser(TVdSelectParser* parser) { FParser = parser; }
    // The items from the model; the widget shows itself exactly when there are any.
    void Refresh();
    // Stops grouping by the selected item (the button, the Delete key).
    void RemoveSelected();
    // Stops grouping by the item at index in the model's kept list.
    void RemoveAt(int index);

    QListWidget* List() const { return FList; }
    QToolButton* RemoveButton() const { return FRemove; }

signals:
    // An item was removed: the printed statement changed.
    void groupingChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void UpdateButton();

    QLabel* FLabel;
    QListWidget* FList;
    QToolButton* FRemove;
    TVdSelectParser* FParser = nullptr;
};

} // namespace vd
