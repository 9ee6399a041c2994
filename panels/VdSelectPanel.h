#pragma once

// The "Selection" page: the DISTINCT switch above the grid of output fields.

#include <QWidget>

class QCheckBox;

namespace vd {

class TVdSelectGrid;
class TVdSelectParser;

class TVdSelectPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TVdSelectPanel(QWidget* parent = nullptr);

    TVdSelectGrid* Grid() const { return FGrid; }
    QCheckBox* DistinctBox() const { return FDistinct; }
    TVdSelectParser* Parser() const { return FParser; }
    void SetParser(TVdSelectParser* parser);
    void Clear();
    // The rows from the model's output fields in their order, and the DISTINCT switch.
    void RefreshFields();
    bool GetDistinct() const;
    void SetDistinct(bool value);
    // The switch was clicked: the parser takes its state.
    void HandleDistinctClick();

signals:
    // The DISTINCT switch changed the model.
    void distinctChanged(bool value);

private:
    TVdSelectGrid* FGrid;
    QCheckBox* FDistinct;
    TVdSelectParser* FParser = nullptr;
};

} // namespace vd
