#include "diagram/VdFloatTable.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdQtText.h"
#include "builder/VdStyle.h"
#include "core/VdError.h"
#include "diagram/VdFloatPanel.h"
#include "resources/VdResource.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QLineEdit>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

namespace vd {

bool IsFloatType(TFieldType type) { return type == ftFloat || type == ftCurrency; }

bool IsNumericType(TFieldType type)
{
    return type == ftSmallint || type == ftInteger || type == ftWord || type == ftAutoInc ||
           type == ftLargeint;
}

bool IsStringType(TFieldType type)
{
    return type == ftString || type == ftMemo || type == ftFmtMemo || type == ftFixedChar ||
           type == ftWideString;
}

bool IsDateTimeType(TFieldType type)
{
    return type == ftDate || type == ftTime || type == ftDateTime;
}

// ---- TVdListItem ----

TVdListItem::TVdListItem(TVdTable* table, const QString& name, TFieldType dataType,
                         TParamType paramType)
    : FTable(table), FName(name), FDataType(dataType), FParamType(paramType), FFieldName(name)
{
}

int TVdListItem::GetIndex() const { return FTable ? FTable->IndexOf(this) : -1; }

QRect TVdListItem::GetBoundsRect() const { return FTable ? FTable->GetItemRect(this) : QRect(); }

QString TVdListItem::GetDataName() const
{
    if (IsFloatType(FDataType))
        return VdResource::DataFloat();
    if (IsNumericType(FDataType))
        return VdResource::DataInteger();
    if (IsStringType(FDataType))
        return VdResource::DataString();
    switch (FDataType) {
    case ftBoolean:
        return VdResource::DataBoolean();
    case ftBCD:
        return VdResource::DataBCD();
    case ftDate:
        return VdResource::DataDate();
    case ftTime:
        return VdResource::DataTime();
    case ftDateTime:
        return VdResource::DataDateTime();
    case ftBytes:
        return VdResource::DataBytes();
    case ftVarBytes:
        return VdResource::DataVarBytes();
    case ftBlob:
        return VdResource::DataBlob();
    case ftGraphic:
        return VdResource::DataGraphic();
    case ftParadoxOle:
        return VdResource::DataParadoxOle();
    case ftDBaseOle:
        return VdResource::DataDBaseOle();
    case ftTypedBinary:
        return VdResource::DataTypedBinary();
    case ftCursor:
        return VdResource::DataCursor();
    case ftADT:
        return VdResource::DataADT();
    case ftArray:
        return VdResource::DataArray();
    case ftReference:
        return VdResource::DataReference();
    case ftDataSet:
        return VdResource::DataDataSet();
    case ftOraBlob:
        return VdResource::DataOraBlob();
    case ftOraClob:
        return VdResource::DataOraClob();
    case ftVariant:
        return VdResource::DataVariant();
    case ftInterface:
        return VdResource::DataInterface();
    case ftIDispatch:
        return VdResource::DataIDispatch();
    case ftGuid:
        return VdResource::DataGuid();
    default:
        return QString(); // ftUnknown, ftTimeStamp, ftFMTBcd
    }
}

void TVdListItem::SetSelect(bool value)
{
    FSelected = value;
    if (FTable)
        FTable->InvalidateRow(this);
}

void TVdListItem::SetCheck(bool flag)
{
    if (FLoading) {
        UpdateCheck(flag);
        return;
    }
    TVdWorkArea* area = FTable ? FTable->WorkArea() : nullptr;
    if (FParamType == ptInput && !FEntering && area) {
        FEntering = true;
        area->DoEnterParameter(FTable, this);
        FEntering = false;
    } else {
        FChecked = flag;
    }
    if (FTable)
        FTable->InvalidateRow(this);
    if (FParamType == ptOutput && area)
        area->HandleCheckItem(FTable, this);
    UpdateCheck(flag);
}

void TVdListItem::UpdateCheck(bool flag)
{
    FChecked = flag;
    if (!FTable || FParamType != ptOutput) {
        if (FTable)
            FTable->Changed();
        return;
    }
    int state = flag ? 2 : 0;
    for (int i = 0; i < FTable->Count(); ++i) {
        const TVdListItem* row = FTable->Items(i);
        if (row->ParamType() == ptOutput && row->Checked() != flag) {
            state = 1;
            break;
        }
    }
    if (state != FTable->FieldState())
        FTable->UpdateFieldState(state);
    FTable->Changed();
}

// ---- TVdTable ----

TVdTable::TVdTable(TVdWorkArea* workArea, TDataSet* dataSet, const QString& tableName)
    : TVdFloatObject(workArea), FTableName(tableName)
{
    if (!workArea)
        throw EVdError(ToStdString(VdResource::InvalidTableParent()));
    // The font's height is its pixel size; a row is never lower than the font's line, so
    // that large fonts are not clipped.
    const int pixels = std::abs(QFontInfo(workArea->font()).pixelSize());
    SetCaptionHeight(pixels + 4);
    SetItemHeight(std::max(pixels, QFontMetrics(workArea->font()).height()));
    AssignItems(dataSet);
    UpdateHeight();
}

TVdTable::~TVdTable()
{
    // The work area's shared editors must not keep pointing here.
    if (FWorkArea->RowScrollTable() == this) {
        FWorkArea->RowScrollBar()->hide();
        FWorkArea->SetRowScrollTable(nullptr);
    }
    if (FWorkArea->FindTable() == this) {
        FWorkArea->FindEdit()->hide();
        FWorkArea->SetFindTable(nullptr);
    }
    if (FWorkArea->FieldDragTable() == this)
        FWorkArea->StartFieldDrag(nullptr);
}

QString TVdTable::GetCaption() const
{
    if (FAlias.trimmed().isEmpty())
        return FTableName;
    return FTableName + QStringLiteral(" (") + FAlias + QLatin1Char(')');
}

void TVdTable::SetAlias(const QString& alias)
{
    FAlias = alias;
    FitCaption();
    Changed();
}

void TVdTable::FitCaption()
{
    const int needed = CaptionRect(false).width() + CaptionHeight() + 2 + ButtonsWidth + 4;
    if (needed > Width())
        SetWidth(needed);
}

QString TVdTable::GetAlias() const { return FAlias.trimmed().isEmpty() ? FTableName : FAlias; }

int TVdTable::IndexOf(const TVdListItem* item) const
{
    for (size_t i = 0; i < FItems.size(); ++i)
        if (FItems[i].get() == item)
            return int(i);
    return -1;
}

TVdListItem* TVdTable::FindItem(const QString& name) const
{
    for (const auto& item : FItems)
        if (item->Name() == name)
            return item.get();
    return nullptr;
}

void TVdTable::SetFieldState(int state)
{
    // Each tick recomputes the state on the way; the target is fixed before the first.
    const int target = std::clamp(state, 0, 2);
    const bool tick = target == 2;
    FFieldState = target;
    for (const auto& item : FItems)
        if (item->ParamType() == ptOutput && item->Checked() != tick)
            item->SetCheck(tick);
    FFieldState = target;
    Changed();
}

void TVdTable::UpdateFieldState(int state)
{
    FFieldState = std::clamp(state, 0, 2);
    FWorkArea->InvalidateContent(GetCheckRect().adjusted(0, 0, 2, 2));
}

void TVdTable::Resized(const QRect& oldBounds)
{
    FWorkArea->InvalidateContent(oldBounds);
    FWorkArea->InvalidateContent(GetBoundsRect());
    UpdateScrollBar();
    FWorkArea->CMResizeControl(this);
}

void TVdTable::SetExpand(bool value)
{
    if (FExpanded == value)
        return;
    const QRect old = GetBoundsRect();
    FExpanded = value;
    Resized(old);
}

void TVdTable::SetLeft(int value)
{
    if (FLeft == value)
        return;
    const QRect old = GetBoundsRect();
    FLeft = value;
    Resized(old);
}

void TVdTable::SetTop(int value)
{
    if (FTop == value)
        return;
    const QRect old = GetBoundsRect();
    FTop = value;
    Resized(old);
}

void TVdTable::SetWidth(int value)
{
    value = std::max(value, MinWidth());
    if (FWidth == value)
        return;
    const QRect old = GetBoundsRect();
    FWidth = value;
    Resized(old);
}

void TVdTable::SetHeight(int value)
{
    value = std::max(value, MinHeight());
    if (FHeight == value)
        return;
    const QRect old = GetBoundsRect();
    ApplyHeight(value);
    Resized(old);
}

void TVdTable::ApplyHeight(int value)
{
    FHeight = value;
    FVisibleItems = (FHeight - FCaptionHeight - BorderWidth - 2 * Margin - 1) / (FItemHeight + 1);
    if (FFirstVisibleItem + FVisibleItems > Count())
        FFirstVisibleItem = std::max(0, Count() - FVisibleItems);
}

// Qt keeps the viewport's pixels in its backing store, so moving an edge only repaints the
// old and new bounds instead of copying the box's pixels by hand.
void TVdTable::MoveLeft(int value)
{
    const int right = FLeft + FWidth;
    value = std::min(value, right - MinWidth());
    if (value == FLeft)
        return;
    const QRect old = GetBoundsRect();
    FLeft = value;
    FWidth = right - value;
    Resized(old);
}

void TVdTable::MoveUpper(int value)
{
    const int bottom = FTop + FHeight;
    value = std::min(value, bottom - MinHeight());
    if (value == FTop)
        return;
    const QRect old = GetBoundsRect();
    FTop = value;
    ApplyHeight(bottom - value);
    Resized(old);
}

void TVdTable::MoveTable(int left, int top)
{
    if (left == FLeft && top == FTop)
        return;
    const QRect old = GetBoundsRect();
    FLeft = left;
    FTop = top;
    FWorkArea->InvalidateContent(old);
    FWorkArea->InvalidateContent(GetBoundsRect());
    UpdateScrollBar();
    FWorkArea->CMMoveControl(this);
}

void TVdTable::SetCaptionHeight(int value)
{
    value = std::abs(value);
    if (value == 0 || value == FCaptionHeight)
        return;
    FCaptionHeight = std::max(value, 20);
}

void TVdTable::SetItemHeight(int value)
{
    value = std::abs(value);
    if (value == 0 || value == FItemHeight)
        return;
    FItemHeight = std::max(value, 16);
}

void TVdTable::SetFirstVisibleItem(int value)
{
    value = std::clamp(value, 0, std::max(0, Count() - FVisibleItems));
    if (value == FFirstVisibleItem)
        return;
    FFirstVisibleItem = value;
    Changed();
    UpdateScrollBar();
    // Links to rows that scrolled in or out attach elsewhere now.
    FWorkArea->CMMoveControl(this);
}

void TVdTable::UpdateHeight()
{
    FHeight = (FItemHeight + 1) * FVisibleItems + FCaptionHeight + BorderWidth + 2 * Margin;
}

QRect TVdTable::GetBoundsRect() const
{
    const int bottom = FExpanded ? FTop + FHeight : FTop + FCaptionHeight;
    return QRect(QPoint(FLeft, FTop), QPoint(FLeft + FWidth - 1, bottom - 1));
}

QRect TVdTable::GetCaptionRect() const
{
    const int top = FTop + 2;
    return QRect(QPoint(FLeft + FCaptionHeight + 2, top),
                 QPoint(FLeft + FWidth - ButtonsWidth - 2 - 1, top + FCaptionHeight - 4 - 1));
}

QRect TVdTable::GetButtonRect() const
{
    const int right = FLeft + FWidth - 2;
    return QRect(QPoint(right - ButtonsWidth, FTop + 2),
                 QPoint(right - 1, FTop + FCaptionHeight - 1));
}

QRect TVdTable::GetClientRect() const
{
    return GetBoundsRect().adjusted(4, FCaptionHeight + 2, -4, -4);
}

QRect TVdTable::GetCheckRect() const { return QRect(FLeft + 4, FTop + 2, GlyphSize, GlyphSize); }

QRect TVdTable::GetItemRect(const TVdListItem* item) const
{
    const int index = IndexOf(item);
    if (index < 0)
        return QRect();
    const QRect bounds = GetBoundsRect();
    const int top =
        bounds.top() + FCaptionHeight + 1 + (index - FFirstVisibleItem) * (FItemHeight + 1);
    return QRect(bounds.left() + 4, top, bounds.width() - 8, FItemHeight);
}

QRect TVdTable::GetFullItemRect(const TVdListItem* item) const
{
    const int index = IndexOf(item);
    const QRect bounds = GetBoundsRect();
    if (index < 0)
        return QRect();
    if (!FExpanded || index < FFirstVisibleItem)
        return QRect(bounds.left(), bounds.top(), bounds.width(), FCaptionHeight);
    if (index >= FFirstVisibleItem + FVisibleItems)
        return QRect(bounds.left(), bounds.bottom() - 4, bounds.width(), 4);
    QRect row = GetItemRect(item);
    if (index == FFirstVisibleItem + FVisibleItems - 1)
        row.setBottom(bounds.bottom() - 4);
    return row;
}

QRect TVdTable::CaptionRect(bool rightAligned) const
{
    QFont bold = FWorkArea->font();
    bold.setBold(true);
    const int width = QFontMetrics(bold).horizontalAdvance(GetCaption()) + 2;
    const QRect caption = GetCaptionRect();
    if (rightAligned)
        return QRect(caption.right() - width + 1, caption.top(), width, caption.height());
    return QRect(caption.left(), caption.top(), width, caption.height());
}

TVdListItem* TVdTable::GetItemAt(int x, int y) const
{
    const QPoint point = QPoint(x, y) + FWorkArea->ScrollOffset();
    if (!FExpanded || point.y() < GetClientRect().top())
        return nullptr;
    const int last = std::min(Count(), FFirstVisibleItem + FVisibleItems);
    for (int i = FFirstVisibleItem; i < last; ++i)
        if (GetItemRect(Items(i)).bottom() >= point.y())
            return Items(i);
    return nullptr;
}

int TVdTable::GetButtonAt(const QPoint& windowPoint) const
{
    const int x = windowPoint.x() + FWorkArea->ScrollOffset().x();
    const QRect buttons = GetButtonRect();
    if (x < buttons.left() + GlyphSize + 1)
        return 0;
    if (x > buttons.right() + 1 - GlyphSize - 2)
        return 2;
    return 1;
}

int TVdTable::GetTableBorder() const
{
    return FWorkArea->Vandor()->GetStyle()->ObjectStyle()->BorderKind();
}

bool TVdTable::GetFlat() const { return FWorkArea->Vandor()->GetStyle()->ObjectStyle()->Flat(); }

bool TVdTable::GetbtnFlat() const
{
    return FWorkArea->Vandor()->GetStyle()->ObjectStyle()->FlatButtons();
}

bool TVdTable::GetHideSelection() const
{
    return FWorkArea->Vandor()->GetOptions().testFlag(vdoHideSelection);
}

TColor TVdTable::GetClientColor() const { return FWorkArea->Vandor()->GetPalette()->TableClient(); }

TTableHitTest TVdTable::HitTest(const QPoint& windowPoint) const
{
    const QPoint p = windowPoint + FWorkArea->ScrollOffset();
    const QRect b = GetBoundsRect();
    if (!b.contains(p))
        return htTOutSide;
    if (FExpanded) {
        // QRect's right and bottom are the last pixel inside: the far bands are (Right-4, Right].
        const bool left = p.x() < b.left() + 4;
        const bool right = p.x() > b.right() + 1 - 4;
        const bool top = p.y() < b.top() + 4;
        const bool bottom = p.y() > b.bottom() + 1 - 4;
        if (left)
            return top ? htTLeftTop : bottom ? htTLeftBottom : htTLeft;
        if (right)
            return top ? htTRightTop : bottom ? htTRightBottom : htTRight;
        if (top)
            return htTTop;
        if (bottom)
            return htTBottom;
    }
    if (p.y() >= FTop + FCaptionHeight)
        return htTClient;
    if (GetButtonRect().contains(p))
        return htTbutton;
    if (GetCheckRect().contains(p))
        return htTCheck;
    return htTCaption;
}

bool TVdTable::ScrollBarShown() const
{
    return FWorkArea->RowScrollTable() == this && !FWorkArea->RowScrollBar()->isHidden();
}

bool TVdTable::UpdateScrollBar()
{
    QScrollBar* bar = FWorkArea->RowScrollBar();
    const bool needed = FSelected && FExpanded && Count() > FVisibleItems;
    if (!needed) {
        if (FWorkArea->RowScrollTable() == this) {
            bar->hide();
            FWorkArea->SetRowScrollTable(nullptr);
        }
        return false;
    }
    const QRect client = GetClientRect().translated(-FWorkArea->ScrollOffset());
    const QSignalBlocker quiet(bar);
    bar->setGeometry(client.right() + 1 - ScrollBarWidth, client.top(), ScrollBarWidth,
                     client.height());
    bar->setRange(0, Count() - FVisibleItems);
    bar->setPageStep(std::max(1, FVisibleItems - 1));
    bar->setValue(FFirstVisibleItem);
    FWorkArea->SetRowScrollTable(this);
    bar->show();
    return true;
}

void TVdTable::SetSelect(bool value)
{
    TVdFloatObject::SetSelect(value);
    UpdateScrollBar();
    Changed();
}

void TVdTable::AssignItems(TDataSet* dataSet)
{
    FItems.clear();
    FCurrentItem = nullptr;
    if (!dataSet)
        return;
    FVisibleItems = std::min(dataSet->FieldCount(), MaxInitialRows);
    for (const TField& field : dataSet->Fields())
        AppendItem(std::make_unique<TVdListItem>(this, field.FieldName, field.DataType, ptOutput));
}

void TVdTable::AppendItem(std::unique_ptr<TVdListItem> item) { FItems.push_back(std::move(item)); }

void TVdTable::Close()
{
    FClosing = true;
    FWorkArea->CMCloseTable(this);
}

void TVdTable::Unlink() { FWorkArea->CMUnlinkTable(this); }

void TVdTable::Changed()
{
    if (FWorkArea)
        FWorkArea->InvalidateContent(GetBoundsRect());
}

void TVdTable::InvalidateRow(const TVdListItem* item)
{
    QRect row = GetItemRect(item);
    if (row.isEmpty())
        return;
    if (ScrollBarShown())
        row.setRight(row.right() - ScrollBarWidth);
    FWorkArea->InvalidateContent(row.adjusted(0, 0, 0, 1));
}

void TVdTable::InvalidateButtons() { FWorkArea->InvalidateContent(GetButtonRect()); }

QPoint TVdTable::EventOrigin() const { return QPoint(FLeft, FTop) - FWorkArea->ScrollOffset(); }

} // namespace vd
