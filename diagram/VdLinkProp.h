#pragma once

// The small modal dialog that edits one link: the comparison between its two fields and
// whether all rows of either table are included (the outer-join options of the pair).

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace vd {

class TVdFloatObject;
class TVdLink;

class TfmLinkProp : public QDialog
{
    Q_OBJECT

public:
    // Sizes as designed; the width grows to MinWidth when the texts need it.
    static constexpr int DesignWidth = 341;
    static constexpr int DesignHeight = 156;
    static constexpr int LeastWidth = 360;

    explicit TfmLinkProp(QWidget* parent = nullptr);
    ~TfmLinkProp() override;

    // The link being edited.
    TVdFloatObject* CurrentLnk() const { return FCurrentLnk; }
    void SetCurrentLnk(TVdFloatObject* link) { FCurrentLnk = link; }

    // Fills the controls from the current link and widens the form to MinWidth; raises
    // EVdError "Invalid link" when the current object is not a link.
    void FormShow();
    // Writes the join kind into the link's join and the model's join definition, and the
    // comparison into the link and the definition's operator; closes with OK.
    void buOKClick();
    // Whether a resize to this size is allowed: never another height, never below MinWidth.
    bool FormCanResize(int newWidth, int newHeight) const;
    // Centres every control on the form's middle.
    void FormResize();
    void CalcMinWidth();
    int MinWidth() const { return FMinWidth; }

    QLabel* laCaption() const { return FCaption; }
    QLabel* laLeftField() const { return FLeftField; }
    QLabel* laRightField() const { return FRightField; }
    QPushButton* buOK() const { return FOK; }
    QPushButton* buCancel() const { return FCancel; }
    QComboBox* cbConditions() const { return FConditions; }
    QCheckBox* chLeftOuter() const { return FLeftOuter; }
    QCheckBox* chRightOuter() const { return FRightOuter; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    TVdLink* Link() const;

    QLabel* FCaption;
    QLabel* FLeftField;
    QLabel* FRightField;
    QPushButton* FOK;
    QPushButton* FCancel;
    QComboBox* FConditions;
    QCheckBox* FLeftOuter;
    QCheckBox* FRightOuter;
    TVdFloatObject* FCurrentLnk = nullptr;
    int FMinWidth = LeastWidth;
};

// Opens the work area's link dialog on link; true when closed with OK. Raises EVdError
// "Invalid link" for a null link.
bool ShowLinkProperties(TVdLink* link);

} // namespace vd
