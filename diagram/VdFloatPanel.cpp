#include "diagram/VdFloatPanel.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdDialogService.h"
#include "builder/VdProc.h"
#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinkProp.h"
#include "diagram/VdLinks.h"
#include "resources/VdResource.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace vd {

TVdWorkArea::TVdWorkArea(QWidget* owner) : QAbstractScrollArea(owner)
{
    FVandor = qobject_cast<TCustomVandor*>(owner);
    if (!FVandor)
        throw EVdError(ToStdString(VdResource::InvalidWorkAreaParent()));
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    UpdateScrollRanges();
}

TVdWorkArea::~TVdWorkArea()
{
    // Links refer to rows of the tables: they go first.
    FLinks.clear();
    FJoins.clear();
    FTables.clear();
}

QPoint TVdWorkArea::ScrollOffset() const
{
    return QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void TVdWorkArea::InvalidateContent(const QRect& rect)
{
    viewport()->update(rect.translated(-ScrollOffset()).adjusted(-1, -1, 1, 1));
}

void TVdWorkArea::UpdateScrollRanges()
{
    horizontalScrollBar()->setRange(0, std::max(0, Extent - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setRange(0, std::max(0, Extent - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
}

void TVdWorkArea::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollRanges();
}

void TVdWorkArea::scrollContentsBy(int, int) { viewport()->update(); }

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

void TVdWorkArea::PlaceTable(TVdTable& table) const
{
    QRect candidate(50, 20, table.Width(), table.Height());
    for (size_t i = 0; i < FTables.size();) {
        const QRect bounds = FTables[i]->GetBoundsRect();
        if (candidate.intersects(bounds)) {
            candidate.moveLeft(bounds.left() + bounds.width() + 10);
            i = 0;
            continue;
        }
        ++i;
    }
    table.SetLeft(candidate.left());
    table.SetTop(candidate.top());
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
    PlaceTable(*table);
    TVdTable* added = table.get();
    FTables.insert(FTables.begin(), std::move(table));
    if (OnAddTable)
        OnAddTable(this, added);
    SetSelected(added);
    viewport()->update();
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

void TVdWorkArea::SetSelected(TVdFloatObject* object)
{
    if (FSelected == object)
        return;
    if (FSelected)
        FSelected->SetSelect(false);
    FSelected = object;
    if (FSelected)
        FSelected->SetSelect(true);
    viewport()->update();
}

void TVdWorkArea::ClearSelection() { SetSelected(nullptr); }

void TVdWorkArea::TableToFront(TVdFloatObject* object)
{
    auto it = std::find_if(FTables.begin(), FTables.end(),
                           [object](const auto& table) { return table.get() == object; });
    if (it == FTables.end() || it == FTables.begin())
        return;
    std::rotate(FTables.begin(), it, it + 1);
    viewport()->update();
}

void TVdWorkArea::ClearContents()
{
    FHitObject = nullptr;
    FSelected = nullptr;
    FMoving = false;
    FLinks.clear();
    FJoins.clear();
    FTables.clear();
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

void TVdWorkArea::CMCloseTable(TVdTable* table)
{
    auto it = std::find_if(FTables.begin(), FTables.end(),
                           [table](const auto& t) { return t.get() == table; });
    if (it == FTables.end())
        return;
    if (!FVandor->DoAddRemoveTable(table, vdaRemove)) {
        (*it)->SetClosing(false);
        return;
    }
    CMUnlinkTable(table);
    if (FHitObject == table)
        FHitObject = nullptr;
    if (FSelected == table) {
        table->SetSelect(false);
        FSelected = nullptr;
    }
    std::unique_ptr<TVdTable> owned = std::move(*it);
    FTables.erase(it);
    if (OnRemoveTable)
        OnRemoveTable(this, owned.get());
    viewport()->update();
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
    for (size_t i = 0; i < FLinks.size(); ++i)
        if (FLinks[i].get() == link) {
            if (FVandor->DoAddRemoveLink(link, vdaRemove))
                RemoveLink(link, int(i), true);
            return;
        }
}

void TVdWorkArea::CMResizeControl(TVdTable* table)
{
    for (const auto& link : FLinks) {
        TVdJoin* join = link->Join();
        if (join->GetTable(0) == table || join->GetTable(1) == table)
            link->SetBoundaryRect();
    }
    viewport()->update();
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
    if (def->JoinDefs().Find(field, joinTable, joinField))
        return;
    TVdJoinDef* join = def->JoinDefs().Add();
    join->FieldName = field;
    join->JoinTable = joinTable;
    join->JoinField = joinField;
    join->JoinKind = link.Join()->JoinKind;
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

TVdLink* TVdWorkArea::AddLink(TVdFloatObject* object1, TVdFloatObject* object2,
                              TVdListItem* targetRow, TVdListItem* sourceRow)
{
    auto* table1 = dynamic_cast<TVdTable*>(object1);
    auto* table2 = dynamic_cast<TVdTable*>(object2);
    if (!table1 || !table2 || !targetRow || !sourceRow)
        return nullptr;
    bool reversed = false;
    TVdJoin* join = FindJoin(table1, table2, reversed);
    std::unique_ptr<TVdJoin> created;
    if (!join) {
        created = std::make_unique<TVdJoin>(this, table1, table2);
        join = created.get();
        FJoins.push_back(std::move(created));
    }
    if (reversed)
        std::swap(targetRow, sourceRow);
    auto link = std::make_unique<TVdLink>(this, join, targetRow, sourceRow);
    if (!FVandor->DoAddRemoveLink(link.get(), vdaAdd)) {
        const bool used = std::any_of(FLinks.begin(), FLinks.end(),
                                      [join](const auto& l) { return l->Join() == join; });
        if (!used)
            FJoins.erase(std::find_if(FJoins.begin(), FJoins.end(),
                                      [join](const auto& j) { return j.get() == join; }));
        return nullptr;
    }
    TVdLink* added = link.get();
    FLinks.push_back(std::move(link));
    AddJoinDef(*added);
    if (OnAddLink)
        OnAddLink(this, added);
    viewport()->update();
    return added;
}

void TVdWorkArea::RemoveLink(TVdLink* link, int index, bool notify)
{
    if (index < 0 || index >= int(FLinks.size()) || FLinks[size_t(index)].get() != link)
        return;
    if (FHitObject == link)
        FHitObject = nullptr;
    if (FSelected == link) {
        link->SetSelect(false);
        FSelected = nullptr;
    }
    if (notify)
        InvalidateContent(link->GetBounds());
    DeleteJoinDef(*link);
    std::unique_ptr<TVdLink> owned = std::move(FLinks[size_t(index)]);
    FLinks.erase(FLinks.begin() + index);
    if (OnRemoveLink)
        OnRemoveLink(this, owned.get());
    TVdJoin* join = owned->Join();
    owned.reset();
    const bool used = std::any_of(FLinks.begin(), FLinks.end(),
                                  [join](const auto& l) { return l->Join() == join; });
    if (!used)
        FJoins.erase(std::find_if(FJoins.begin(), FJoins.end(),
                                  [join](const auto& j) { return j.get() == join; }));
}

// ---- Painting and the mouse ----

void TVdWorkArea::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing, false);
    // Links first, so that they pass behind every table; then the tables, back to front.
    for (const auto& link : FLinks)
        link->Paint(painter);
    for (auto it = FTables.rbegin(); it != FTables.rend(); ++it)
        (*it)->Paint(painter);
}

TVdFloatObject* TVdWorkArea::ObjectAt(const QPoint& point, int& hit) const
{
    for (const auto& table : FTables) {
        hit = table->HitTest(point);
        if (hit != htTOutSide)
            return table.get();
    }
    for (const auto& link : FLinks) {
        hit = link->HitTest(point);
        if (hit != htTOutSide)
            return link.get();
    }
    hit = htTOutSide;
    return nullptr;
}

void TVdWorkArea::mousePressEvent(QMouseEvent* event)
{
    // A refusal raised by an object (or by the host through an event) ends here, shown.
    VdRunGuarded(this, [&] { MouseDownAt(event); });
}

void TVdWorkArea::MouseDownAt(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setFocus();
    int hit = htTOutSide;
    FHitObject = ObjectAt(event->position().toPoint(), hit);
    SetSelected(FHitObject);
    if (!FHitObject)
        return;
    auto* table = dynamic_cast<TVdTable*>(FHitObject);
    FMoving = table && hit == htTCaption;
    if (FMoving)
        FGrabPoint =
            event->position().toPoint() + ScrollOffset() - QPoint(table->Left(), table->Top());
    FHitObject->MouseDown(event, TTableHitTest(hit));
}

void TVdWorkArea::mouseMoveEvent(QMouseEvent* event)
{
    auto* table = dynamic_cast<TVdTable*>(FSelected);
    if (!FMoving || !table || !(event->buttons() & Qt::LeftButton))
        return;
    const QPoint p = event->position().toPoint() + ScrollOffset() - FGrabPoint;
    const QRect bounds = table->GetBoundsRect();
    table->SetLeft(std::clamp(p.x(), 0, Extent - bounds.width()));
    table->SetTop(std::clamp(p.y(), 0, Extent - bounds.height()));
}

void TVdWorkArea::mouseReleaseEvent(QMouseEvent*) { FMoving = false; }

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

void TVdWorkArea::StartFieldDrag(TVdTable* table) { FFieldDragTable = table; }

void TVdWorkArea::CMMoveControl(TVdTable* table) { CMResizeControl(table); }

bool TVdWorkArea::HasTable(const TVdTable* table) const
{
    return table && std::any_of(FTables.begin(), FTables.end(),
                                [table](const auto& t) { return t.get() == table; });
}

} // namespace vd
