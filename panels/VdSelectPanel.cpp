#include "panels/VdSelectPanel.h"

#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "core/VdSelectParser.h"
#include "panels/VdKeptGroupingList.h"
#include "panels/VdSelectGrid.h"
#include "resources/VdResource.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace vd {

namespace {

QWidget* CheckedParent(QWidget* parent)
{
    if (!parent)
        throw EVdError(ToStdString(VdResource::InvalidOrderPanelParent()));
    return parent;
}

} // namespace

TVdSelectPanel::TVdSelectPanel(QWidget* parent) : QWidget(CheckedParent(parent))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    FDistinct = new QCheckBox(VdResource::SelectUniqueRecordsBox(), this);
    FGrid = new TVdSelectGrid(this);
    FKeptGrouping = new TVdKeptGroupingList(this);
    layout->addWidget(FDistinct);
    layout->addWidget(FGrid, 1);
    layout->addWidget(FKeptGrouping);
    setFocusPolicy(Qt::NoFocus);
    connect(FDistinct, &QCheckBox::clicked, this, &TVdSelectPanel::HandleDistinctClick);
    connect(FKeptGrouping, &TVdKeptGroupingList::groupingChanged, this,
            &TVdSelectPanel::groupingChanged);
}

void TVdSelectPanel::SetParser(TVdSelectParser* parser)
{
    if (parser == FParser)
        return;
    FParser = parser;
    QStringList aggregates;
    if (parser)
        for (const std::string& word : parser->Aggregates().Items())
            aggregates.append(ToQString(word));
    FGrid->SetAggregates(aggregates);
    FKeptGrouping->SetParser(parser);
}

void TVdSelectPanel::Clear()
{
    FGrid->Clear();
    FKeptGrouping->Refresh();
}

void TVdSelectPanel::RefreshFields()
{
    FGrid->Clear();
    if (FParser) {
        for (const TVdFieldDef* field : FParser->TableDefs().FieldsInOrder())
            if (field)
                FGrid->CheckField(*field);
        FDistinct->setChecked(FParser->GetDistinct());
    }
    FKeptGrouping->Refresh();
}

void TVdSelectPanel::RefreshKeptGrouping() { FKeptGrouping->Refresh(); }

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
