#pragma once

// Edits the InterBase ROWS clause of a parser: ROWS from TO to BY step, PERCENT, WITH TIES.

#include "dialects/VdOptionsPanel.h"

class QCheckBox;
class QLineEdit;

namespace vd {

class TVdIBOptionsPanel : public TVdOptionsPanel
{
    Q_OBJECT

public:
    explicit TVdIBOptionsPanel(QWidget* parent = nullptr);

    QLineEdit* RowsFromEdit() const { return FRowsFromEdit; }
    QLineEdit* RowsToEdit() const { return FRowsToEdit; }
    QLineEdit* RowsByEdit() const { return FRowsByEdit; }
    QCheckBox* PercentBox() const { return FPercentBox; }
    QCheckBox* TiesBox() const { return FTiesBox; }

    // Each stores its control's value into the parser's IBOptions; nothing without a parser.
    void HandleRowsFromEditChange();
    void HandleRowsToEditChange();
    void HandleRowsByEditChange();
    void HandlePercentBoxClick();
    void HandleTiesBoxClick();

protected:
    void ShowOptions(const TVdIBSelectParser& parser) override;
    QList<QWidget*> OptionControls() const override;

private:
    void CreateControls();
    void LayOut();
    void Wire();

    QLineEdit* FRowsFromEdit = nullptr;
    QLineEdit* FRowsToEdit = nullptr;
    QLineEdit* FRowsByEdit = nullptr;
    QCheckBox* FPercentBox = nullptr;
    QCheckBox* FTiesBox = nullptr;
};

} // namespace vd
