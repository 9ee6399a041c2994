#pragma once

// The "Selection" page: the DISTINCT switch above the grid of output fields, and under it what
// the statement groups by beyond its output fields.

#include <QWidget>

class QCheckBox;

namespace vd {

class TVdKeptGroupingList;
class TVdSelectGrid;
class TVdSelectParser;

class TVdSelectPanel : public QWidget
{
    Q_OBJECT

public:
    // Raises EVdError "Invalid parent for OrderPanel" without a parent widget (the message is
    // the order panel's, kept so).
    explicit TVdSelectPanel(QWidget* parent);

    TVdSelectGrid* Grid() const { return FGrid; }
    QCheckBox* DistinctBox() const { return FDistinct; }
    TVdKeptGroupingList* KeptGrouping() const { return FKeptGrouping; }
    TVdSelectParser* Parser() const { return FParser; }
    void SetParser(TVdSelectParser* parser);
    void Clear();
    // The rows from the model's output fields in their order, and the DISTINCT switch.
    void RefreshFields();
    // The grouping kept beyond the output fields, from the model.
    void RefreshKeptGrouping();
    bool GetDistinct() const;
    void SetDistinct(bool value);
    // The switch was clicked: the parser takes its state.
    void HandleDistinctClick();

signals:
    // The DISTINCT switch changed the model.
    void distinctChanged(bool value);
    // A kept grouping item was removed from the model.
    void groupingChanged();

private:
    TVdSelectGrid* FGrid;
    QCheckBox* FDistinct;
    TVdKeptGroupingList* FKeptGrouping;
    TVdSelectParser* FParser = nullptr;
};

} // namespace vd
