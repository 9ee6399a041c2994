#include "dialects/VdFBOptionsPanel.h"

#include "dialects/VdIBParser.h"
#include "resources/VdResource.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace vd {

namespace {

constexpr int kLabelLeft = 8;
constexpr int kEditLeft = 30;
constexpr int kEditWidth = 121;
constexpr int kMargin = 8;
// Between a label's text and its edit when the text is too wide for the edits' column.
constexpr int kLabelGap = 4;

} // namespace

TVdFBOptionsPanel::TVdFBOptionsPanel(QWidget* parent) : TVdOptionsPanel(parent)
{
    FFirstLabel = new QLabel(VdResource::FirstLabel(), this);
    FFirstEdit = new QLineEdit(this);
    FSkipLabel = new QLabel(VdResource::SkipLabel(), this);
    FSkipEdit = new QLineEdit(this);
    FFirstLabel->setBuddy(FFirstEdit);
    FSkipLabel->setBuddy(FSkipEdit);
    PlaceControls();
    connect(FFirstEdit, &QLineEdit::textChanged, this, &TVdFBOptionsPanel::HandleFirstEditChange);
    connect(FSkipEdit, &QLineEdit::textChanged, this, &TVdFBOptionsPanel::HandleSkipEditChange);
}

// Labels at (8, 8) and (8, 32), edits at (30, 6) and (30, 30). A font whose label texts are
// wider than the 22 pixels before the edits moves both edits right just enough, rather than
// letting the edits cover the labels.
void TVdFBOptionsPanel::PlaceControls()
{
    FFirstLabel->adjustSize();
    FSkipLabel->adjustSize();
    FFirstLabel->move(kLabelLeft, 8);
    FSkipLabel->move(kLabelLeft, 32);
    const int labelsRight = kLabelLeft + std::max(FFirstLabel->width(), FSkipLabel->width());
    const int editLeft = std::max(kEditLeft, labelsRight + kLabelGap);
    const int editHeight = FFirstEdit->sizeHint().height();
    FFirstEdit->setGeometry(editLeft, 6, kEditWidth, editHeight);
    FSkipEdit->setGeometry(editLeft, 30, kEditWidth, editHeight);
    updateGeometry();
}

QSize TVdFBOptionsPanel::sizeHint() const
{
    const QRect used = FFirstEdit->geometry() | FSkipEdit->geometry();
    return QSize(used.right() + 1 + kMargin, used.bottom() + 1 + kMargin);
}

void TVdFBOptionsPanel::changeEvent(QEvent* event)
{
    TVdOptionsPanel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        PlaceControls();
}

void TVdFBOptionsPanel::HandleFirstEditChange()
{
    if (!Parser())
        return;
    Parser()->FBOptions().First = EditValue(FFirstEdit);
    emit optionsChanged();
}

void TVdFBOptionsPanel::HandleSkipEditChange()
{
    if (!Parser())
        return;
    Parser()->FBOptions().Skip = EditValue(FSkipEdit);
    emit optionsChanged();
}

void TVdFBOptionsPanel::ShowOptions(const TVdIBSelectParser& parser)
{
    ShowValue(FFirstEdit, parser.FBOptions().First);
    ShowValue(FSkipEdit, parser.FBOptions().Skip);
}

QList<QWidget*> TVdFBOptionsPanel::OptionControls() const { return {FFirstEdit, FSkipEdit}; }

} // namespace vd
