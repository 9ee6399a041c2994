#include "panels/VdSelectPanel.h"

#include "builder/VdQtText.h"
#include "core/VdSelectParser.h"
#include "panels/VdSelectGrid.h"
#include "resources/VdResource.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace vd {

TVdSelectPanel::TVdSelectPanel(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    FDistinct = new QCheckBox(VdResource::SelectUniqueRecordsBox(), this);
    FGrid = new TVdSelectGrid(this);
    layout->addWidget(FDistinct);
    layout->addWidget(FGrid);
    setFocusPolicy(Qt::NoFocus);
    connect(FDistinct, &QCheckBox::clicked, this, &TVdSelectPanel::HandleDistinctClick);
}

void TVdSelectPanel::SetParser(TVdSelectParser* parser)
{
    FParser = parser;
    QStringList aggregates;
    if (parser)
        for (const std::string& word : parser->Aggregates().Items())
            aggregates.append(ToQString(word));
    FGrid->SetAggregates(aggregates);
}

void TVdSelectPanel::Clear() { FGrid->Clear(); }

void TVdSelectPanel::RefreshFields()
{
    Clear();
    if (!FParser)
        return;
    for (const TVdFieldDef* field : FParser->TableDefs().FieldsInOrder())
        if (field)
            FGrid->CheckField(*field);
    FDistinct->setChecked(FParser->GetDistinct());
}

bool TVdSelectPanel::GetDistinct() const { return FDistinct->isChecked(); }

void TVdSelectPanel::SetDistinct(bool value) { FDistinct->setChecked(value); }

void TVdSelectPanel::HandleDistinctClick()
{
    if (!FParser)
        return;
    FParser->SetDistinct(FDistinct->isChecked());
    emit distinctChanged(FDistinct->isChecked());
}

} // namespace vd
