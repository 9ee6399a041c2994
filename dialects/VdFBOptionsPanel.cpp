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
    // The controls sit at fixed places: a layout around the panel must not stretch it.
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    PlaceControls();
    connect(FFirstEdit, &QLineEdit::textChanged, this, &TVdFBOptionsPanel::HandleFirstEditChange);
    connect(FSkipEdit, &QLineEdit::textChanged, this, &TVdFBOptionsPanel::HandleSkipEditChange);
}

// Labels at (8, 8) and (8, 32), edits at (30, 6) and (30, 30). A font whose label texts are
// wider than the 22 pixels before the edits moves both edits right just enough, rather than
// letting the edits cover the labels. Each label reaches 2 pixels short of its edit's bottom
// as it starts 2 below its top, and centres its text, so that label and edit text share a line.
void TVdFBOptionsPanel::PlaceControls()
{
    const int editHeight = FFirstEdit->sizeHint().height();
    const int labelHeight = std::max(FFirstLabel->sizeHint().height(), editHeight - 4);
    const int labelWidth =
        std::max(FFirstLabel->sizeHint().width(), FSkipLabel->sizeHint().width());
    for (QLabel* label : {FFirstLabel, FSkipLabel})
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    FFirstLabel->setGeometry(kLabelLeft, 8, labelWidth, labelHeight);
    FSkipLabel->setGeometry(kLabelLeft, 32, labelWidth, labelHeight);
    const int editLeft = std::max(kEditLeft, kLabelLeft + labelWidth + kLabelGap);
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
