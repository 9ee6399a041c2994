#include "panels/VdKeptGroupingList.h"

#include "builder/VdQtText.h"
#include "core/VdSelectParser.h"
#include "resources/VdResource.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QToolButton>

#include <algorithm>

namespace vd {

TVdKeptGroupingList::TVdKeptGroupingList(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 0, 0, 0);
    layout->setSpacing(4);
    FLabel = new QLabel(VdResource::KeptGroupingLabel(), this);
    FList = new QListWidget(this);
    // One line of items side by side, like tags.
    FList->setFlow(QListView::LeftToRight);
    FList->setWrapping(false);
    FList->setSpacing(1);
    FList->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    FList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    FList->setFixedHeight(fontMetrics().height() + 12);
    FList->setSelectionMode(QAbstractItemView::SingleSelection);
    FList->installEventFilter(this);
    FRemove = new QToolButton(this);
    FRemove->setText(VdResource::RemoveKeptGroupingButton());
    FRemove->setToolTip(VdResource::RemoveKeptGroupingHint());
    FRemove->setAutoRaise(true);
    layout->addWidget(FLabel);
    layout->addWidget(FList, 1);
    layout->addWidget(FRemove);
    connect(FRemove, &QToolButton::clicked, this, &TVdKeptGroupingList::RemoveSelected);
    connect(FList, &QListWidget::itemSelectionChanged, this, &TVdKeptGroupingList::UpdateButton);
    setVisible(false);
    UpdateButton();
}

void TVdKeptGroupingList::Refresh()
{
    FList->clear();
    if (FParser) {
        TVdGroupByItems& grouping = FParser->GroupByItems();
        // Only what prints beyond the grouping the output fields give: an item that names one
        // of those adds nothing while they are grouped by anyway.
        grouping.Rebuild();
        const std::vector<std::string>& lines = grouping.Lines();
        const auto extra = lines.begin() + qsizetype(grouping.DerivedFields().size());
        const std::vector<std::string>& kept = grouping.KeptItems();
        for (size_t i = 0; i < kept.size(); ++i) {
            if (std::find(extra, lines.end(), grouping.ItemScript(kept[i])) == lines.end())
                continue;
            auto* item = new QListWidgetItem(ToQString(kept[i]), FList);
            item->setData(Qt::UserRole, int(i));
            if (TVdStringList::IsPosition(kept[i]))
                item->setToolTip(VdResource::KeptGroupingPositionHint());
        }
    }
    if (FList->count() > 0)
        FList->setCurrentRow(0);
    setVisible(FList->count() > 0);
    UpdateButton();
}

void TVdKeptGroupingList::UpdateButton() { FRemove->setEnabled(!FList->selectedItems().isEmpty()); }

void TVdKeptGroupingList::RemoveSelected()
{
    const QList<QListWidgetItem*> selected = FList->selectedItems();
    if (!selected.isEmpty())
        RemoveAt(selected.first()->data(Qt::UserRole).toInt());
}

void TVdKeptGroupingList::RemoveAt(int index)
{
    if (!FParser || index < 0 || index >= int(FParser->GroupByItems().KeptItems().size()))
        return;
    const int row = std::max(FList->currentRow(), 0);
    FParser->GroupByItems().DeleteKept(index);
    Refresh();
    if (FList->count() > 0)
        FList->setCurrentRow(std::min(row, FList->count() - 1));
    emit groupingChanged();
}

bool TVdKeptGroupingList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == FList && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
            RemoveSelected();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace vd
