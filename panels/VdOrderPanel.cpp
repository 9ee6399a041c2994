#include "panels/VdOrderPanel.h"

#include "builder/VdQtText.h"
#include "core/VdSelectParser.h"
#include "resources/VdResource.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QTreeWidget>

namespace vd {

TVdOrderPanel::TVdOrderPanel(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    FCaption = new QLabel(VdResource::OutputFieldsLabel(), this);
    FCaption->setFixedHeight(20);
    FUnsorted = new QListWidget(this);
    FSorted = new QTreeWidget(this);
    FSorted->setRootIsDecorated(false);
    FSorted->setHeaderLabels({VdResource::SortedFieldsColumn(), VdResource::SortOrderColumn()});
    FSorted->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    layout->addWidget(FCaption, 0, 0);
    layout->addWidget(FUnsorted, 1, 0);
    layout->addWidget(FSorted, 1, 1);
    setFocusPolicy(Qt::TabFocus);
}

void TVdOrderPanel::SetParser(TVdSelectParser* parser) { FParser = parser; }

void TVdOrderPanel::Clear()
{
    FUnsorted->clear();
    FSorted->clear();
}

void TVdOrderPanel::RefreshFields()
{
    Clear();
    FFields.clear();
    if (OnGetFields)
        OnGetFields(this, FFields);
    QStringList sorted;
    if (FParser) {
        const TVdOrderByItems& order = FParser->OrderByItems();
        for (int i = 0; i < order.Count(); ++i) {
            const QString text = ToQString(order[i]);
            sorted.append(text);
            FSorted->addTopLevelItem(
                new QTreeWidgetItem({text, order.Orders(i) == okDesc ? VdResource::Descending()
                                                                     : VdResource::Ascending()}));
        }
    }
    for (const QString& field : FFields)
        if (!sorted.contains(field))
            FUnsorted->addItem(field);
}

} // namespace vd
