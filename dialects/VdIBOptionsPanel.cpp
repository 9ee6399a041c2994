#include "dialects/VdIBOptionsPanel.h"

#include "dialects/VdIBParser.h"
#include "resources/VdResource.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace vd {

namespace {

QLineEdit* NumberEdit(QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setAlignment(Qt::AlignRight);
    edit->setMaximumWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
    return edit;
}

} // namespace

TVdIBOptionsPanel::TVdIBOptionsPanel(QWidget* parent) : TVdOptionsPanel(parent)
{
    CreateControls();
    LayOut();
    Wire();
    // One line of controls: taller would only add empty space in a host's layout.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TVdIBOptionsPanel::CreateControls()
{
    FRowsFromEdit = NumberEdit(this);
    FRowsToEdit = NumberEdit(this);
    FRowsByEdit = NumberEdit(this);
    FPercentBox = new QCheckBox(VdResource::PercentBox(), this);
    FTiesBox = new QCheckBox(VdResource::WithTiesBox(), this);
}

// One line that reads like the clause: Rows [ ] To [ ] By [ ] [x] Percent [x] With ties.
void TVdIBOptionsPanel::LayOut()
{
    auto* layout = new QHBoxLayout(this);
    const auto addLabelled = [this, layout](const QString& text, QLineEdit* edit) {
        auto* label = new QLabel(text, this);
        label->setBuddy(edit);
        layout->addWidget(label);
        layout->addWidget(edit);
    };
    addLabelled(VdResource::RowsLabel(), FRowsFromEdit);
    addLabelled(VdResource::ToLabel(), FRowsToEdit);
    addLabelled(VdResource::ByLabel(), FRowsByEdit);
    layout->addWidget(FPercentBox);
    layout->addWidget(FTiesBox);
    layout->addStretch(1);
}

void TVdIBOptionsPanel::Wire()
{
    connect(FRowsFromEdit, &QLineEdit::textChanged, this,
            &TVdIBOptionsPanel::HandleRowsFromEditChange);
    connect(FRowsToEdit, &QLineEdit::textChanged, this, &TVdIBOptionsPanel::HandleRowsToEditChange);
    connect(FRowsByEdit, &QLineEdit::textChanged, this, &TVdIBOptionsPanel::HandleRowsByEditChange);
    // Toggled, not clicked: a check state set by code is stored as well.
    connect(FPercentBox, &QCheckBox::toggled, this, &TVdIBOptionsPanel::HandlePercentBoxClick);
    connect(FTiesBox, &QCheckBox::toggled, this, &TVdIBOptionsPanel::HandleTiesBoxClick);
}

void TVdIBOptionsPanel::HandleRowsFromEditChange()
{
    if (!Parser())
        return;
    Parser()->IBOptions().RowsFrom = EditValue(FRowsFromEdit);
    emit optionsChanged();
}

void TVdIBOptionsPanel::HandleRowsToEditChange()
{
    if (!Parser())
        return;
    Parser()->IBOptions().RowsTo = EditValue(FRowsToEdit);
    emit optionsChanged();
}

void TVdIBOptionsPanel::HandleRowsByEditChange()
{
    if (!Parser())
        return;
    Parser()->IBOptions().RowsBy = EditValue(FRowsByEdit);
    emit optionsChanged();
}

void TVdIBOptionsPanel::HandlePercentBoxClick()
{
    if (!Parser())
        return;
    Parser()->IBOptions().Percent = FPercentBox->isChecked();
    emit optionsChanged();
}

void TVdIBOptionsPanel::HandleTiesBoxClick()
{
    if (!Parser())
        return;
    Parser()->IBOptions().Ties = FTiesBox->isChecked();
    emit optionsChanged();
}

void TVdIBOptionsPanel::ShowOptions(const TVdIBSelectParser& parser)
{
    const TVdIBOptions& options = parser.IBOptions();
    ShowValue(FRowsFromEdit, options.RowsFrom);
    ShowValue(FRowsToEdit, options.RowsTo);
    ShowValue(FRowsByEdit, options.RowsBy);
    FPercentBox->setChecked(options.Percent);
    FTiesBox->setChecked(options.Ties);
}

QList<QWidget*> TVdIBOptionsPanel::OptionControls() const
{
    return {FRowsFromEdit, FRowsToEdit, FRowsByEdit, FPercentBox, FTiesBox};
}

} // namespace vd
