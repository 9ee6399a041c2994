#pragma once

// Edits the Firebird FIRST and SKIP clause of a parser.

#include "dialects/VdOptionsPanel.h"

class QLabel;
class QLineEdit;

namespace vd {

class TVdFBOptionsPanel : public TVdOptionsPanel
{
    Q_OBJECT

public:
    explicit TVdFBOptionsPanel(QWidget* parent = nullptr);

    QLabel* FirstLabel() const { return FFirstLabel; }
    QLineEdit* FirstEdit() const { return FFirstEdit; }
    QLabel* SkipLabel() const { return FSkipLabel; }
    QLineEdit* SkipEdit() const { return FSkipEdit; }

    // Each stores its edit's number into the parser's FBOptions; nothing without a parser.
    void HandleFirstEditChange();
    void HandleSkipEditChange();

    QSize sizeHint() const override;

protected:
    void ShowOptions(const TVdIBSelectParser& parser) override;
    QList<QWidget*> OptionControls() const override;
    void changeEvent(QEvent* event) override;

private:
    void PlaceControls();

    QLabel* FFirstLabel = nullptr;
    QLineEdit* FFirstEdit = nullptr;
    QLabel* FSkipLabel = nullptr;
    QLineEdit* FSkipEdit = nullptr;
};

} // namespace vd
