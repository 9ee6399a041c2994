#include "panels/VdOrderPanel.h"

#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "core/VdSelectParser.h"
#include "resources/VdImages.h"
#include "resources/VdResource.h"

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>

namespace vd {

namespace {

constexpr int LabelHeight = 20;
constexpr int PictureWidth = 23;
constexpr int PictureHeight = 22;

QWidget* CheckedParent(QWidget* parent)
{
    if (!parent)
        throw EVdError(ToStdString(VdResource::InvalidOrderPanelParent()));
    return parent;
}

} // namespace

TVdOrderPanel::TVdOrderPanel(QWidget* parent) : QWidget(CheckedParent(parent))
{
    FCaption = new QLabel(VdResource::OutputFieldsLabel(), this);
    FCaption->setGeometry(0, 0, FCaption->width(), LabelHeight);
    CreateLists();
    CreateButtons();
    setFocusPolicy(Qt::TabFocus);
    setToolTipDuration(-1);
    FCaption->setBuddy(FUnsorted);
}

void TVdOrderPanel::CreateLists()
{
    FUnsorted = new QListWidget(this);
    FUnsorted->setObjectName(QStringLiteral("UnsortedList"));
    FUnsorted->move(0, LabelHeight + 2);
    FUnsorted->setSelectionMode(QAbstractItemView::SingleSelection);
    FUnsorted->setDragEnabled(true);
    FUnsorted->setDefaultDropAction(Qt::CopyAction);

    FSorted = new QTreeWidget(this);
    FSorted->setObjectName(QStringLiteral("SortedList"));
    FSorted->move(0, LabelHeight + 2);
    FSorted->setColumnCount(2);
    FSorted->setHeaderLabels({VdResource::SortedFieldsColumn(), VdResource::SortOrderColumn()});
    FSorted->setRootIsDecorated(false);
    FSorted->setItemsExpandable(false);
    FSorted->setUniformRowHeights(true);
    FSorted->setAllColumnsShowFocus(true);
    FSorted->setSelectionMode(QAbstractItemView::SingleSelection);
    FSorted->setSelectionBehavior(QAbstractItemView::SelectRows);
    FSorted->setEditTriggers(QAbstractItemView::NoEditTriggers);
    FSorted->setDragEnabled(true);
    FSorted->setDefaultDropAction(Qt::CopyAction);
    FSorted->header()->setStretchLastSection(false);
    FSorted->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    FSorted->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    FSorted->header()->setSectionsMovable(false);

    for (QAbstractItemView* list :
         {static_cast<QAbstractItemView*>(FUnsorted), static_cast<QAbstractItemView*>(FSorted)}) {
        list->setAcceptDrops(true);
        list->viewport()->setAcceptDrops(true);
        list->viewport()->installEventFilter(this);
        list->installEventFilter(this);
    }
    connect(FUnsorted, &QListWidget::itemDoubleClicked, this, [this] { HandleAddClick(); });
    connect(FSorted, &QTreeWidget::itemDoubleClicked, this, [this] { HandleRemoveClick(); });
}

QToolButton* TVdOrderPanel::MakePictureButton(const char* glyph, int top, const QString& hint)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(glyph));
    button->setIcon(VdIcon(glyph));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(hint);
    button->setGeometry(0, top, PictureWidth, PictureHeight);
    button->setEnabled(false);
    return button;
}

QPushButton* TVdOrderPanel::MakePushButton(const QString& caption, int width, const QString& hint)
{
    auto* button = new QPushButton(caption, this);
    button->setToolTip(hint);
    button->setAutoDefault(false);
    // Wide enough for the caption in the font in use: the fixed widths fit only small fonts.
    const int needed = button->fontMetrics().horizontalAdvance(caption) + 12;
    button->setGeometry(0, 0, std::max(width, needed), LabelHeight);
    button->setEnabled(false);
    return button;
}

void TVdOrderPanel::CreateButtons()
{
    FAdd = MakePictureButton("ADD", 30, VdResource::AddSortHint());
    FAddAll = MakePictureButton("ADD_ALL", 55, VdResource::AddAllSortHint());
    FRemove = MakePictureButton("REMOVE", 80, VdResource::RemoveSortHint());
    FRemoveAll = MakePictureButton("REMOVE_ALL", 105, VdResource::RemoveAllSortHint());
    // Both captions are measured so the button does not change width when it flips.
    const int directionWidth =
        std::max(fontMetrics().horizontalAdvance(VdResource::ZToAButton()) + 12, 30);
    FDirection =
        MakePushButton(VdResource::AToZButton(), directionWidth, VdResource::DirectionHint());
    FUp = MakePushButton(VdResource::UpButton(), 35, VdResource::MoveUpHint());
    FDown = MakePushButton(VdResource::DownButton(), 35, VdResource::MoveDownHint());
    connect(FAdd, &QToolButton::clicked, this, [this] { HandleAddClick(); });
    connect(FAddAll, &QToolButton::clicked, this, [this] { HandleAddAllClick(); });
    connect(FRemove, &QToolButton::clicked, this, [this] { HandleRemoveClick(); });
    connect(FRemoveAll, &QToolButton::clicked, this, [this] { HandleRemoveAllClick(); });
    connect(FDirection, &QPushButton::clicked, this, [this] { HandleChangeOrder(); });
    connect(FUp, &QPushButton::clicked, this, [this] { HandleMoveUp(); });
    connect(FDown, &QPushButton::clicked, this, [this] { HandleMoveDown(); });
    // Tab order follows the picture: unsorted list, the arrows, the sorted list's buttons, the
    // sorted list.
    setTabOrder(FUnsorted, FAdd);
    setTabOrder(FAdd, FAddAll);
    setTabOrder(FAddAll, FRemove);
    setTabOrder(FRemove, FRemoveAll);
    setTabOrder(FRemoveAll, FUp);
    setTabOrder(FUp, FDown);
    setTabOrder(FDown, FDirection);
    setTabOrder(FDirection, FSorted);
}

void TVdOrderPanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int w = (width() - FAdd->width()) / 2;
    FCaption->setGeometry(0, 0, w, LabelHeight);
    // Down to the bottom edge like the sorted list, so its frame shows whole.
    FUnsorted->setGeometry(0, FUnsorted->y(), std::max(w - 2, 0),
                           std::max(height() - FUnsorted->y(), 0));
    const int sortedLeft = w + FAdd->width() + 2;
    FSorted->setGeometry(sortedLeft, FSorted->y(), std::max(w - 2, 0),
                         std::max(height() - FSorted->y(), 0));
    for (QToolButton* button : {FAdd, FAddAll, FRemove, FRemoveAll})
        button->move(w, button->y());
    FUp->move(sortedLeft, 0);
    FDown->move(FUp->x() + FUp->width() + 2, 0);
    FDirection->move(width() - FDirection->width() - 2, 0);
}

void TVdOrderPanel::SetParser(TVdSelectParser* parser)
{
    if (parser != FParser)
        FParser = parser;
}

void TVdOrderPanel::Clear()
{
    FSorted->clear();
    FUnsorted->clear();
    FDirection->setText(VdResource::AToZButton());
}

const QStringList& TVdOrderPanel::GetFields()
{
    if (OnGetFields)
        OnGetFields(this, FFields);
    return FFields;
}

QTreeWidgetItem* TVdOrderPanel::AppendSorted(const QString& text, const QString& order)
{
    auto* entry = new QTreeWidgetItem(FSorted, {text, order});
    entry->setFlags(entry->flags() & ~Qt::ItemIsDropEnabled);
    return entry;
}

QTreeWidgetItem* TVdOrderPanel::SelectedEntry() const
{
    const QList<QTreeWidgetItem*> selected = FSorted->selectedItems();
    return selected.isEmpty() ? nullptr : selected.first();
}

void TVdOrderPanel::RefreshFields()
{
    QStringList unsorted;
    for (int i = 0; i < FUnsorted->count(); ++i)
        unsorted.append(FUnsorted->item(i)->text());
    if (GetFields() == unsorted)
        return;
    if (FParser) {
        FUnsorted->clear();
        FUnsorted->addItems(FFields);
        FSorted->clear();
        const TVdOrderByItems& order = FParser->OrderByItems();
        for (int i = 0; i < order.Count(); ++i) {
            const QString text = ToQString(order[i]);
            const QList<QListWidgetItem*> found = FUnsorted->findItems(text, Qt::MatchExactly);
            // An entry no loaded table offers is not shown; the next edit here drops it.
            if (found.isEmpty())
                continue;
            delete found.first();
            AppendSorted(text, order.Orders(i) == okDesc ? VdResource::Descending()
                                                         : VdResource::Ascending());
        }
    }
    HandleSelectItem();
}

void TVdOrderPanel::HandleSelectItem()
{
    FAdd->setEnabled(!FUnsorted->selectedItems().isEmpty());
    FAddAll->setEnabled(FUnsorted->count() > 0);
    QTreeWidgetItem* entry = SelectedEntry();
    FRemove->setEnabled(entry);
    FDirection->setEnabled(entry);
    FUp->setEnabled(entry);
    FDown->setEnabled(entry);
    FRemoveAll->setEnabled(FSorted->topLevelItemCount() > 0);
    if (!entry)
        return;
    FDirection->setText(entry->text(1) == VdResource::Ascending() ? VdResource::ZToAButton()
                                                                  : VdResource::AToZButton());
    const int index = FSorted->indexOfTopLevelItem(entry);
    if (index == 0)
        FUp->setEnabled(false);
    if (index == FSorted->topLevelItemCount() - 1)
        FDown->setEnabled(false);
}

void TVdOrderPanel::HandleAddClick()
{
    const QList<QListWidgetItem*> selected = FUnsorted->selectedItems();
    if (selected.isEmpty())
        return;
    AppendSorted(selected.first()->text(), VdResource::Ascending());
    delete selected.first();
    UpdateParser();
    HandleSelectItem();
}

void TVdOrderPanel::HandleAddAllClick()
{
    for (int n = FUnsorted->count(); n > 0; --n) {
        AppendSorted(FUnsorted->item(0)->text(), VdResource::Ascending());
        delete FUnsorted->item(0);
        UpdateParser();
    }
    HandleSelectItem();
}

// Remove and remove-all leave the buttons as they are until the next click in a list.
void TVdOrderPanel::HandleRemoveClick()
{
    QTreeWidgetItem* entry = SelectedEntry();
    if (!entry)
        return;
    FUnsorted->addItem(entry->text(0));
    delete entry;
    UpdateParser();
}

void TVdOrderPanel::HandleRemoveAllClick()
{
    for (int n = FSorted->topLevelItemCount(); n > 0; --n) {
        QTreeWidgetItem* first = FSorted->topLevelItem(0);
        FUnsorted->addItem(first->text(0));
        delete first;
        UpdateParser();
    }
}

void TVdOrderPanel::HandleChangeOrder()
{
    QTreeWidgetItem* entry = SelectedEntry();
    if (!entry)
        return;
    entry->setText(1, entry->text(1) == VdResource::Ascending() ? VdResource::Descending()
                                                                : VdResource::Ascending());
    UpdateParser();
    HandleSelectItem();
}

void TVdOrderPanel::MoveSelectedTo(int index)
{
    QTreeWidgetItem* entry = SelectedEntry();
    const int from = entry ? FSorted->indexOfTopLevelItem(entry) : -1;
    if (from < 0 || index < 0 || index >= FSorted->topLevelItemCount() || index == from)
        return;
    FSorted->takeTopLevelItem(from);
    FSorted->insertTopLevelItem(index, entry);
    FSorted->setCurrentItem(entry);
    entry->setSelected(true);
}

void TVdOrderPanel::HandleMoveUp()
{
    QTreeWidgetItem* entry = SelectedEntry();
    const int index = entry ? FSorted->indexOfTopLevelItem(entry) : 0;
    if (index <= 0)
        return;
    MoveSelectedTo(index - 1);
    FUp->setEnabled(index - 1 > 0);
    FDown->setEnabled(index - 1 < FSorted->topLevelItemCount() - 1);
    UpdateParser();
}

void TVdOrderPanel::HandleMoveDown()
{
    QTreeWidgetItem* entry = SelectedEntry();
    const int index = entry ? FSorted->indexOfTopLevelItem(entry) : -1;
    if (index < 0 || index >= FSorted->topLevelItemCount() - 1)
        return;
    MoveSelectedTo(index + 1);
    FUp->setEnabled(true);
    FDown->setEnabled(index + 1 < FSorted->topLevelItemCount() - 1);
    UpdateParser();
}

void TVdOrderPanel::UpdateParser()
{
    if (!FParser)
        return;
    TVdOrderByItems& order = FParser->OrderByItems();
    order.Clear();
    for (int i = 0; i < FSorted->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* entry = FSorted->topLevelItem(i);
        const bool descending =
            entry->columnCount() > 1 && entry->text(1) == VdResource::Descending();
        order.AddOrdered(ToStdString(entry->text(0)), descending ? okDesc : okAsc);
    }
    emit orderChanged();
}

} // namespace vd
