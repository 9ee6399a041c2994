#include "diagram/VdFloatPanel.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdDialogService.h"
#include "builder/VdProc.h"
#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinkProp.h"
#include "diagram/VdLinks.h"
#include "diagram/VdPlacement.h"
#include "resources/VdResource.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>

namespace vd {

const char* const TVdWorkArea::FieldMimeType = "application/x-vandor-field";

TVdWorkArea::TVdWorkArea(QWidget* owner) : QAbstractScrollArea(owner)
{
    FVandor = qobject_cast<TCustomVandor*>(owner);
    if (!FVandor)
        throw EVdError(ToStdString(VdResource::InvalidWorkAreaParent()));
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    viewport()->setMouseTracking(true);
    viewport()->setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    // The platform's own tooltips would fight the hint window.
    setAttribute(Qt::WA_AlwaysShowToolTips, false);

    FHintWindow = new QLabel(this, Qt::ToolTip);
    FHintWindow->setForegroundRole(QPalette::ToolTipText);
    FHintWindow->setBackgroundRole(QPalette::ToolTipBase);
    FHintWindow->setAutoFillBackground(true);
    FHintWindow->setFrameShape(QFrame::Box);
    FHintWindow->setMargin(2);
    FHintWindow->setWordWrap(true);
    FHintWindow->hide();

    // Committing a new alias is ours; the table shows the edit over its caption.
    AliasEdit()->installEventFilter(this);

    FMenu = new QMenu(this);
    UpdateScrollRanges();
}

TVdWorkArea::~TVdWorkArea()
{
    // Links refer to rows of the tables: they go first.
    FLinks.clear();
    FJoins.clear();
    FTables.clear();
    FClosed.clear();
}

QPoint TVdWorkArea::ScrollOffset() const
{
    return QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void TVdWorkArea::InvalidateContent(const QRect& rect)
{
    viewport()->update(rect.translated(-ScrollOffset()).adjusted(-1, -1, 1, 1));
}

void TVdWorkArea::InvalidateRegion(const QRegion& contentRegion)
{
    viewport()->update(contentRegion.translated(-ScrollOffset()));
}

QColor TVdWorkArea::LinkColor() const { return viewport()->palette().color(QPalette::Text); }

void TVdWorkArea::UpdateScrollRanges()
{
    horizontalScrollBar()->setRange(0, std::max(0, Extent - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(20);
    verticalScrollBar()->setRange(0, std::max(0, Extent - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(20);
}

void TVdWorkArea::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollRanges();
}

void TVdWorkArea::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        VdRunGuarded(this, [this] { HandleSetFont(); });
}

void TVdWorkArea::HandleSetFont()
{
    const int fontHeight = QFontMetrics(font()).height();
    for (const auto& table : FTables) {
        const int rows = table->VisibleItems();
        InvalidateContent(table->GetBoundsRect());
        table->SetCaptionHeight(fontHeight + 4);
        table->SetItemHeight(fontHeight);
        table->SetHeight((table->ItemHeight() + 1) * rows + table->CaptionHeight() +
                         TVdTable::BorderWidth + 2 * TVdTable::Margin + 1);
        table->FitCaption();
        InvalidateContent(table->GetBoundsRect());
        CMResizeControl(table.get());
    }
}

void TVdWorkArea::scrollContentsBy(int dx, int dy)
{
    viewport()->scroll(dx, dy);
    if (FAliasEdit && FAliasEdit->isVisible())
        FAliasEdit->move(FAliasEdit->pos() + QPoint(dx, dy));
}

void TVdWorkArea::ShowPanel(TVdTable* table)
{
    if (!table)
        return;
    const QRect bounds = table->GetBoundsRect();
    const QRect view(ScrollOffset(), viewport()->size());
    if (view.contains(bounds.topLeft()))
        return;
    horizontalScrollBar()->setValue(std::max(0, bounds.left() - 20));
    verticalScrollBar()->setValue(std::max(0, bounds.top() - 20));
}

// ---- Tables ----

QString TVdWorkArea::UniqueAlias(const QString& name, bool& numbered) const
{
    QString candidate = name;
    int count = 0;
    numbered = false;
    for (size_t i = 0; i < FTables.size();) {
        if (FTables[i]->GetAlias() == candidate) {
            candidate = name + QString::number(++count);
            numbered = true;
            i = 0;
            continue;
        }
        ++i;
    }
    return candidate;
}

void TVdWorkArea::PlaceNewTable(TVdTable& table) const
{
    std::vector<QRect> placed;
    placed.reserve(FTables.size());
    for (const auto& other : FTables)
        placed.push_back(other->GetBoundsRect());
    const QPoint at = PlaceTable(placed, table.GetBoundsRect().size());
    table.SetLeft(at.x());
    table.SetTop(at.y());
}

template <class Table, class... Args>
TVdTable* TVdWorkArea::AddObject(const QString& name, Args&&... args)
{
    bool numbered = false;
    const QString alias = UniqueAlias(name, numbered);
    SetSelected(nullptr);
    auto table = std::make_unique<Table>(this, std::forward<Args>(args)...);
    if (numbered)
        table->SetAlias(alias);
    if (!FVandor->DoAddRemoveTable(table.get(), vdaAdd))
        return nullptr;
    table->FitCaption();
    PlaceNewTable(*table);
    TVdTable* added = table.get();
    FTables.insert(FTables.begin(), std::move(table));
    if (OnAddTable)
        OnAddTable(this, added);
    SetSelected(added);
    InvalidateContent(added->GetBoundsRect());
    return added;
}

TVdTable* TVdWorkArea::AddPanel(const QString& tableName, TDataSet* dataSet)
{
    return AddObject<TVdTable>(tableName, dataSet, tableName);
}

TVdTable* TVdWorkArea::AddProc(const QString& name, TDataSet* dataSet, TParams* params)
{
    return AddObject<TVdStoredProc>(name, dataSet, name, static_cast<const TParams*>(params));
}

TVdTable* TVdWorkArea::GetTable(const QString& name) const
{
    for (const auto& table : FTables)
        if (table->GetAlias() == name)
            return table.get();
    return nullptr;
}

void TVdWorkArea::InvalidateObject(TVdFloatObject* object)
{
    if (auto* table = dynamic_cast<TVdTable*>(object))
        InvalidateContent(table->GetBoundsRect());
    else if (auto* link = dynamic_cast<TVdLink*>(object))
        InvalidateRegion(link->GetClipRgn());
}

void TVdWorkArea::SetSelected(TVdFloatObject* object)
{
    if (FSelected == object)
        return;
    if (FSelected) {
        TVdFloatObject* previous = FSelected;
        FSelected = nullptr;
        previous->SetSelect(false);
        InvalidateObject(previous);
        if (auto* link = dynamic_cast<TVdLink*>(previous))
            SelectLink(link->Row1(), link->Row2(), false);
    }
    FSelected = object;
    if (FSelected) {
        FSelected->SetSelect(true);
        InvalidateObject(FSelected);
        if (auto* link = dynamic_cast<TVdLink*>(FSelected))
            SelectLink(link->Row1(), link->Row2(), true);
    }
}

void TVdWorkArea::ClearSelection() { SetSelected(nullptr); }

void TVdWorkArea::SelectLink(TVdListItem* firstRow, TVdListItem* secondRow, bool state)
{
    if (OnSelectionLink && firstRow && secondRow)
        OnSelectionLink(this, firstRow->Table(), secondRow->Table(), firstRow, secondRow, state);
}

void TVdWorkArea::TableToFront(TVdFloatObject* object)
{
    auto it = std::find_if(FTables.begin(), FTables.end(),
                           [object](const auto& table) { return table.get() == object; });
    if (it == FTables.end() || it == FTables.begin())
        return;
    std::rotate(FTables.begin(), it, it + 1);
    InvalidateContent(FTables.front()->GetBoundsRect());
}

void TVdWorkArea::ClearContents()
{
    HideHint();
    StopRowScroll();
    FAliasTable = nullptr;
    FAliasEdit->hide();
    FHitObject = nullptr;
    FSelected = nullptr;
    FDragTarget = nullptr;
    FDropTable = nullptr;
    FDropHighlightRow = nullptr;
    FFieldDragTable = nullptr;
    FRowScrollTable = nullptr;
    FFindTable = nullptr;
    if (FRowScrollBar)
        FRowScrollBar->hide();
    if (FFindEdit)
        FFindEdit->hide();
    FPressHit = htTOutSide;
    FLinks.clear();
    FJoins.clear();
    FTables.clear();
    FClosed.clear();
    viewport()->update();
}

void TVdWorkArea::HandleCheckItem(TVdTable* table, TVdListItem* row)
{
    if (OnCheckItem)
        OnCheckItem(table, row);
}

void TVdWorkArea::DoEnterParameter(TVdTable* table, TVdListItem* row)
{
    if (FVandor->OnEnterProcParameter)
        FVandor->OnEnterProcParameter(FVandor, table, row);
}

// ---- Notifications ----

void TVdWorkArea::CMCloseTable(TVdTable* table)
{
    auto it = std::find_if(FTables.begin(), FTables.end(),
                           [table](const auto& t) { return t.get() == table; });
    if (it == FTables.end())
        return;
    if (!FVandor->DoAddRemoveTable(table, vdaRemove)) {
        table->SetClosing(false);
        return;
    }
    CMUnlinkTable(table);
    if (FHitObject == table)
        FHitObject = nullptr;
    if (FSelected == table) {
        FSelected = nullptr;
        table->SetSelect(false);
    }
    if (FAliasTable == table) {
        FAliasTable = nullptr;
        FAliasEdit->hide();
    }
    // The shared editors let go now, not when the object is finally freed.
    if (FFindTable == table) {
        FFindTable = nullptr;
        FindEdit()->hide();
    }
    if (FRowScrollTable == table) {
        FRowScrollTable = nullptr;
        RowScrollBar()->hide();
    }
    if (FFieldDragTable == table)
        FFieldDragTable = nullptr;
    if (FDropTable == table) {
        FDropTable = nullptr;
        FDropHighlightRow = nullptr;
        FDragTarget = nullptr;
    }
    InvalidateContent(table->GetBoundsRect());
    // The list may have changed while the host was asked.
    it = std::find_if(FTables.begin(), FTables.end(),
                      [table](const auto& t) { return t.get() == table; });
    std::unique_ptr<TVdTable> owned = std::move(*it);
    FTables.erase(it);
    for (const auto& join : FJoins)
        join->ForgetTable(table);
    if (OnRemoveTable)
        OnRemoveTable(this, owned.get());
    FClosed.push_back(std::move(owned));
    QMetaObject::invokeMethod(
        this, [this] { FClosed.clear(); }, Qt::QueuedConnection);
}

void TVdWorkArea::CMUnlinkTable(TVdTable* table)
{
    for (int i = int(FLinks.size()) - 1; i >= 0; --i) {
        TVdJoin* join = FLinks[size_t(i)]->Join();
        if (join->GetTable(0) == table || join->GetTable(1) == table)
            RemoveLink(FLinks[size_t(i)].get(), i, true);
    }
}

void TVdWorkArea::CMDeleteLink(TVdLink* link)
{
    if (!FVandor->DoAddRemoveLink(link, vdaRemove))
        return;
    for (size_t i = 0; i < FLinks.size(); ++i)
        if (FLinks[i].get() == link) {
            RemoveLink(link, int(i), true);
            return;
        }
}

void TVdWorkArea::RerouteLinks(TVdTable* table, bool moved)
{
    for (const auto& link : FLinks) {
        TVdJoin* join = link->Join();
        const bool first = join->GetTable(0) == table;
        if (!first && join->GetTable(1) != table)
            continue;
        // A moved table changes only the part of a bent link that reaches it.
        const TVdLinkPart part = !moved ? vdlpWhole : first ? vdlpStart : vdlpEnd;
        InvalidateRegion(link->GetClipRgn(part));
        link->SetBoundaryRect();
        InvalidateRegion(link->GetClipRgn(part));
    }
}

void TVdWorkArea::CMResizeControl(TVdTable* table) { RerouteLinks(table, false); }

void TVdWorkArea::PostCloseTable(TVdTable* table)
{
    PostTableCommand(table, &TVdWorkArea::CMCloseTable);
}

void TVdWorkArea::PostUnlinkTable(TVdTable* table)
{
    PostTableCommand(table, &TVdWorkArea::CMUnlinkTable);
}

// The command runs once the event loop is back, and only if the table is still there.
void TVdWorkArea::PostTableCommand(TVdTable* table, void (TVdWorkArea::*command)(TVdTable*))
{
    QMetaObject::invokeMethod(
        this,
        [this, table, command] {
            for (const auto& own : FTables)
                if (own.get() == table) {
                    VdRunGuarded(this, [&] { (this->*command)(table); });
                    return;
                }
        },
        Qt::QueuedConnection);
}

void TVdWorkArea::PostDeleteLink(TVdLink* link)
{
    // By serial: the address may belong to another link by the time this runs.
    const std::uint64_t serial = link->Serial();
    QMetaObject::invokeMethod(
        this,
        [this, serial] {
            for (const auto& own : FLinks)
                if (own->Serial() == serial) {
                    TVdLink* found = own.get();
                    VdRunGuarded(this, [&] { CMDeleteLink(found); });
                    return;
                }
        },
        Qt::QueuedConnection);
}

bool TVdWorkArea::ShowLinkProperties(TVdLink* link)
{
    // Modal: the dialog writes the join kind of every link of the pair and the comparison.
    return ::vd::ShowLinkProperties(link);
}

// ---- Links ----

TVdJoin* TVdWorkArea::FindJoin(TVdTable* table1, TVdTable* table2, bool& reversed) const
{
    reversed = false;
    for (const auto& join : FJoins) {
        if (join->GetTable(0) == table1 && join->GetTable(1) == table2)
            return join.get();
        if (join->GetTable(0) == table2 && join->GetTable(1) == table1) {
            reversed = true;
            return join.get();
        }
    }
    return nullptr;
}

TVdLink* TVdWorkArea::FindLink(TVdTable* table1, TVdTable* table2, TVdListItem* firstRow,
                               TVdListItem* secondRow) const
{
    bool reversed = false;
    TVdJoin* join = FindJoin(table1, table2, reversed);
    if (!join)
        return nullptr;
    if (reversed)
        std::swap(firstRow, secondRow);
    for (const auto& link : FLinks)
        if (link->Join() == join && link->Row1() == firstRow && link->Row2() == secondRow)
            return link.get();
    return nullptr;
}

// The model definition of a table object: by its alias, else by its name.
static TVdTableDef* DefOf(TCustomVandor* vandor, const TVdTable* table)
{
    TVdTableDefs& defs = vandor->Parser()->TableDefs();
    TVdTableDef* def = defs.FindByAlias(ToStdString(table->GetAlias()));
    return def ? def : defs.FindByName(ToStdString(table->TableName()));
}

void TVdWorkArea::AddJoinDef(TVdLink& link)
{
    TVdTableDef* def = DefOf(FVandor, link.Join()->GetTable(0));
    if (!def)
        return;
    const std::string field = ToStdString(link.Row1()->Name());
    const std::string joinTable = ToStdString(link.Join()->GetTable(1)->GetAlias());
    const std::string joinField = ToStdString(link.Row2()->Name());
    if (const TVdJoinDef* found = def->JoinDefs().Find(field, joinTable, joinField)) {
        // A loaded join keeps its comparison; the link shows it.
        for (int i = 0; i < 6; ++i)
            if (ToStdString(TVdLink::ConditionText(i)) == found->Operation)
                link.Condition = i;
        return;
    }
    TVdJoinDef* join = def->JoinDefs().Add();
    join->FieldName = field;
    join->JoinTable = joinTable;
    join->JoinField = joinField;
    join->JoinKind = link.Join()->JoinKind;
    join->Operation = ToStdString(TVdLink::ConditionText(link.Condition));
}

void TVdWorkArea::DeleteJoinDef(TVdLink& link)
{
    TVdTableDef* def = DefOf(FVandor, link.Join()->GetTable(0));
    if (!def)
        return;
    TVdJoinDef* join = def->JoinDefs().Find(ToStdString(link.Row1()->Name()),
                                            ToStdString(link.Join()->GetTable(1)->GetAlias()),
                                            ToStdString(link.Row2()->Name()));
    if (join)
        def->JoinDefs().Delete(join->Index());
}

void TVdWorkArea::DropJoin(TVdJoin* join)
{
    const bool used = std::any_of(FLinks.begin(), FLinks.end(),
                                  [join](const auto& l) { return l->Join() == join; });
    if (used)
        return;
    auto it = std::find_if(FJoins.begin(), FJoins.end(),
                           [join](const auto& j) { return j.get() == join; });
    if (it != FJoins.end())
        FJoins.erase(it);
}

TVdLink* TVdWorkArea::AddLink(TVdFloatObject* object1, TVdFloatObject* object2,
                              TVdListItem* targetRow, TVdListItem* sourceRow)
{
    auto* table1 = dynamic_cast<TVdTable*>(object1);
    auto* table2 = dynamic_cast<TVdTable*>(object2);
    if (!table1 || !table2 || !targetRow || !sourceRow)
        return nullptr;
    bool reversed = false;
    TVdJoin* join = FindJoin(table1, table2, reversed);
    if (!join) {
        FJoins.push_back(std::make_unique<TVdJoin>(this, table1, table2));
        join = FJoins.back().get();
    }
    if (reversed)
        std::swap(targetRow, sourceRow);
    auto link = std::make_unique<TVdLink>(this, join, targetRow, sourceRow);
    if (!FVandor->DoAddRemoveLink(link.get(), vdaAdd)) {
        link.reset();
        DropJoin(join);
        return nullptr;
    }
    TVdLink* added = link.get();
    FLinks.push_back(std::move(link));
    AddJoinDef(*added);
    InvalidateRegion(added->GetClipRgn());
    if (OnAddLink)
        OnAddLink(this, added);
    return added;
}

void TVdWorkArea::RemoveLink(TVdLink* link, int index, bool notify)
{
    if (index < 0 || index >= int(FLinks.size()) || FLinks[size_t(index)].get() != link)
        return;
    if (FHitObject == link)
        FHitObject = nullptr;
    if (FSelected == link) {
        FSelected = nullptr;
        link->SetSelect(false);
    }
    if (notify)
        InvalidateRegion(link->GetClipRgn());
    DeleteJoinDef(*link);
    std::unique_ptr<TVdLink> owned = std::move(FLinks[size_t(index)]);
    FLinks.erase(FLinks.begin() + index);
    if (OnRemoveLink)
        OnRemoveLink(this, owned.get());
    TVdJoin* join = owned->Join();
    owned.reset();
    DropJoin(join);
}

// ---- Alias editing ----

void TVdWorkArea::EditAlias(TVdTable* table)
{
    if (!table)
        return;
    table->HandleRenameTable();
    FAliasTable = table;
}

bool TVdWorkArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != FAliasEdit)
        return QAbstractScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            FAliasTable = nullptr;
            FAliasEdit->hide();
            return true;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            VdRunGuarded(this, [this] { HandleEditNameKillFocus(); });
            return true;
        }
    } else if (event->type() == QEvent::FocusOut && !FAliasEdit->isHidden()) {
        VdRunGuarded(this, [this] { HandleEditNameKillFocus(); });
    }
    return false;
}

void TVdWorkArea::HandleEditNameKillFocus()
{
    // The edit belongs to the table being renamed, which renaming selected.
    TVdTable* table = HasTable(FAliasTable) ? FAliasTable : dynamic_cast<TVdTable*>(FSelected);
    const bool pending = !FAliasEdit->isHidden();
    FAliasTable = nullptr;
    FAliasEdit->hide();
    if (table && pending)
        CommitAlias(table, FAliasEdit->text());
}

void TVdWorkArea::CommitAlias(TVdTable* table, const QString& text)
{
    for (const auto& other : FTables)
        if (other.get() != table && other->GetAlias() == text)
            throw EVdError(ToStdString(VdResource::TableAliasExists(text)));
    QString alias = text == table->TableName() ? QString() : text;
    alias.remove(QLatin1Char('.'));
    const QString oldAlias = table->Alias();
    InvalidateContent(table->GetBoundsRect());
    table->SetAlias(alias);
    InvalidateContent(table->GetBoundsRect());
    CMResizeControl(table);
    if (OnChangeAlias)
        OnChangeAlias(table, oldAlias);
}

// ---- Facilities the table objects use ----

TfmLinkProp* TVdWorkArea::LinkPropDialog()
{
    if (!FLinkPropDialog)
        FLinkPropDialog = new TfmLinkProp(this);
    return FLinkPropDialog;
}

QScrollBar* TVdWorkArea::RowScrollBar()
{
    if (!FRowScrollBar) {
        FRowScrollBar = new QScrollBar(Qt::Vertical, viewport());
        FRowScrollBar->hide();
        connect(FRowScrollBar, &QScrollBar::valueChanged, this, [this](int value) {
            VdRunGuarded(this, [&] {
                if (HasTable(FRowScrollTable))
                    FRowScrollTable->SetFirstVisibleItem(value);
            });
        });
        // The bar sits in window coordinates: it follows the diagram when that scrolls.
        const auto follow = [this] {
            if (HasTable(FRowScrollTable))
                FRowScrollTable->UpdateScrollBar();
        };
        connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, follow);
        connect(verticalScrollBar(), &QScrollBar::valueChanged, this, follow);
    }
    return FRowScrollBar;
}

QLineEdit* TVdWorkArea::FindEdit()
{
    if (!FFindEdit) {
        FFindEdit = new QLineEdit(viewport());
        FFindEdit->setFrame(false);
        FFindEdit->setFixedHeight(15);
        FFindEdit->hide();
        connect(FFindEdit, &QLineEdit::textEdited, this, [this] {
            VdRunGuarded(this, [this] {
                if (HasTable(FFindTable))
                    FFindTable->HandleFindField(FFindEdit, 0, {});
            });
        });
        InstallFindEditKeys(FFindEdit, this);
    }
    return FFindEdit;
}

QLineEdit* TVdWorkArea::AliasEdit()
{
    if (!FAliasEdit) {
        FAliasEdit = new QLineEdit(viewport());
        FAliasEdit->setFrame(false);
        QPalette colours = FAliasEdit->palette();
        colours.setColor(QPalette::Base, ColorToQColor(FVandor->GetPalette()->ActiveCaption()));
        FAliasEdit->setPalette(colours);
        FAliasEdit->hide();
    }
    return FAliasEdit;
}

void TVdWorkArea::CMMoveControl(TVdTable* table) { RerouteLinks(table, true); }

bool TVdWorkArea::HasTable(const TVdTable* table) const
{
    return table && std::any_of(FTables.begin(), FTables.end(),
                                [table](const auto& t) { return t.get() == table; });
}

} // namespace vd
