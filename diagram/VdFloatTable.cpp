#include "diagram/VdFloatTable.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "diagram/VdFloatPanel.h"
#include "resources/VdResource.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

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
        return QStringLiteral("Float");
    if (IsNumericType(FDataType))
        return QStringLiteral("Integer");
    if (IsStringType(FDataType))
        return QStringLiteral("String");
    if (FDataType == ftUnknown || FDataType == ftTimeStamp || FDataType == ftFMTBcd)
        return QString();
    return FieldTypeName(FDataType);
}

void TVdListItem::SetSelect(bool value)
{
    FSelected = value;
    if (FTable)
        FTable->Changed();
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
        FTable->Changed();
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
    const int fontHeight = std::abs(QFontMetrics(workArea->font()).height());
    SetCaptionHeight(fontHeight + 4);
    SetItemHeight(fontHeight);
    AssignItems(dataSet);
    UpdateHeight();
}

TVdTable::~TVdTable() = default;

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
    FFieldState = std::clamp(state, 0, 2);
    for (const auto& item : FItems)
        if (item->ParamType() == ptOutput && item->Checked() != (FFieldState == 2))
            item->SetCheck(FFieldState == 2);
    Changed();
}

void TVdTable::UpdateFieldState(int state)
{
    FFieldState = std::clamp(state, 0, 2);
    Changed();
}

void TVdTable::SetExpand(bool value)
{
    if (FExpanded == value)
        return;
    FExpanded = value;
    FWorkArea->CMResizeControl(this);
}

void TVdTable::SetLeft(int value)
{
    if (FLeft == value)
        return;
    FLeft = value;
    FWorkArea->CMResizeControl(this);
}

void TVdTable::SetTop(int value)
{
    if (FTop == value)
        return;
    FTop = value;
    FWorkArea->CMResizeControl(this);
}

void TVdTable::SetWidth(int value)
{
    value = std::max(value, FCaptionHeight + ButtonsWidth + 20);
    if (FWidth == value)
        return;
    FWidth = value;
    FWorkArea->CMResizeControl(this);
}

void TVdTable::SetHeight(int value)
{
    value = std::max(value, 2 * FItemHeight + FCaptionHeight + 4);
    if (FHeight == value)
        return;
    FHeight = value;
    FVisibleItems = (FHeight - FCaptionHeight - BorderWidth - 2 * Margin - 1) / (FItemHeight + 1);
    if (FFirstVisibleItem + FVisibleItems > Count())
        FFirstVisibleItem = std::max(0, Count() - FVisibleItems);
    FWorkArea->CMResizeControl(this);
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
    if (!FExpanded)
        return nullptr;
    const int last = std::min(Count(), FFirstVisibleItem + FVisibleItems);
    for (int i = FFirstVisibleItem; i < last; ++i) {
        const QRect row = GetItemRect(Items(i));
        if (row.bottom() >= point.y())
            return point.y() >= GetClientRect().top() ? Items(i) : nullptr;
    }
    return nullptr;
}

TColor TVdTable::GetClientColor() const { return FWorkArea->Vandor()->GetPalette()->TableClient(); }

TTableHitTest TVdTable::HitTest(const QPoint& windowPoint) const
{
    const QPoint p = windowPoint + FWorkArea->ScrollOffset();
    const QRect b = GetBoundsRect();
    if (!b.contains(p))
        return htTOutSide;
    if (FExpanded) {
        const bool left = p.x() < b.left() + 4;
        const bool right = p.x() > b.right() - 4;
        const bool top = p.y() < b.top() + 4;
        const bool bottom = p.y() > b.bottom() - 4;
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
    if (QRect(FLeft + 4, FTop + 2, 12, 12).contains(p))
        return htTCheck;
    return htTCaption;
}

void TVdTable::MouseDown(QMouseEvent* event, TTableHitTest hit)
{
    const QPoint window = event->position().toPoint();
    const QPoint p = window + FWorkArea->ScrollOffset();
    if (hit == htTCheck) {
        SetFieldState(FFieldState == 2 ? 0 : 2);
    } else if (hit == htTbutton) {
        const QRect buttons = GetButtonRect();
        const int w = 12;
        const int button = p.x() < buttons.left() + w + 1    ? 0
                           : p.x() > buttons.right() - w - 2 ? 2
                                                             : 1;
        if (button == 2)
            Close();
        else if (button == 1)
            Unlink();
        else
            SetExpand(!FExpanded);
    } else if (hit == htTClient) {
        TVdListItem* row = GetItemAt(window.x(), window.y());
        if (row) {
            FCurrentItem = row;
            const QRect rect = GetItemRect(row);
            if (row->ParamType() == ptOutput && p.x() >= rect.left() &&
                p.x() < rect.left() + FItemHeight)
                row->SetCheck(!row->Checked());
            Changed();
        }
    }
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

// ---- Painting: a plain look until the owner-drawn one lands ----

void TVdTable::Paint(QPainter& painter)
{
    const QPoint offset = FWorkArea->ScrollOffset();
    const TVdPalette* palette = FWorkArea->Vandor()->GetPalette();
    painter.save();
    painter.translate(-offset);
    const QRect bounds = GetBoundsRect();
    const QRect caption(bounds.left(), bounds.top(), bounds.width(), FCaptionHeight);
    painter.fillRect(
        caption, ColorToQColor(FSelected ? palette->ActiveCaption() : palette->InactiveCaption()));
    QFont bold = FWorkArea->font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(Qt::black);
    const QRect textRect = GetCaptionRect();
    const QString text =
        QFontMetrics(bold).elidedText(GetCaption(), Qt::ElideRight, textRect.width());
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     text.isEmpty() ? QStringLiteral(" ") : text);
    // Tick-all box: empty, partly ticked, ticked.
    const QRect box(FLeft + 6, FTop + 4, 12, 12);
    painter.fillRect(box, Qt::white);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    if (FFieldState == 1)
        painter.fillRect(box.adjusted(3, 3, -3, -3), Qt::gray);
    else if (FFieldState == 2)
        painter.drawPolyline(
            QPolygon({QPoint(box.left() + 2, box.top() + 6), QPoint(box.left() + 5, box.top() + 9),
                      QPoint(box.left() + 10, box.top() + 2)}));
    // Buttons: collapse/expand, unlink, close.
    const QRect buttons = GetButtonRect();
    for (int i = 0; i < 3; ++i) {
        const QRect square(buttons.left() + 13 * i, buttons.top() + (buttons.height() - 12) / 2, 12,
                           12);
        painter.setPen(Qt::gray);
        painter.drawRect(square.adjusted(0, 0, -1, -1));
        painter.setPen(Qt::black);
        const QPoint c = square.center();
        if (i == 0)
            painter.drawLine(c.x() - 3, c.y(), c.x() + 3, c.y());
        if (i == 0 && !FExpanded)
            painter.drawLine(c.x(), c.y() - 3, c.x(), c.y() + 3);
        if (i == 1)
            painter.drawEllipse(c, 3, 2);
        if (i == 2) {
            painter.drawLine(c.x() - 3, c.y() - 3, c.x() + 3, c.y() + 3);
            painter.drawLine(c.x() - 3, c.y() + 3, c.x() + 3, c.y() - 3);
        }
    }
    if (FExpanded)
        PaintRows(painter, GetClientRect());
    painter.setPen(FSelected ? Qt::black : Qt::darkGray);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(bounds.adjusted(0, 0, -1, -1));
    painter.restore();
}

void TVdTable::PaintRows(QPainter& painter, const QRect& client)
{
    const TCustomVandor* vandor = FWorkArea->Vandor();
    const TVdPalette* palette = vandor->GetPalette();
    painter.fillRect(client, ColorToQColor(GetClientColor()));
    painter.save();
    painter.setClipRect(client);
    const bool showTypes = vandor->GetOptions().testFlag(vdoShowFieldTypes);
    const bool hideSelection = vandor->GetOptions().testFlag(vdoHideSelection) && !FSelected;
    const int last = std::min(Count(), FFirstVisibleItem + FVisibleItems);
    for (int i = FFirstVisibleItem; i < last; ++i) {
        const TVdListItem* row = Items(i);
        const QRect rect = GetItemRect(row).translated(0, 1);
        const bool current = row == FCurrentItem && !hideSelection;
        QFont font = FWorkArea->font();
        font.setBold(row->IsSelected());
        painter.setFont(font);
        const QRect textRect = rect.adjusted(FItemHeight, 0, 0, 0);
        if (current)
            painter.fillRect(textRect, QColor(192, 192, 192));
        painter.setPen(ColorToQColor(current ? palette->SelectedItemText() : palette->ItemText()));
        QString text = QLatin1Char(' ') + row->Name();
        if (showTypes)
            text += QStringLiteral(" (") + row->GetDataName() + QLatin1Char(')');
        painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
        const QRect check(rect.left() + 2, rect.top() + (rect.height() - 11) / 2, 11, 11);
        painter.setPen(row->ParamType() == ptOutput ? Qt::black : Qt::darkBlue);
        painter.fillRect(check, Qt::white);
        painter.drawRect(check.adjusted(0, 0, -1, -1));
        if (row->Checked())
            painter.drawPolyline(QPolygon({QPoint(check.left() + 2, check.top() + 5),
                                           QPoint(check.left() + 4, check.top() + 8),
                                           QPoint(check.left() + 8, check.top() + 2)}));
    }
    painter.restore();
}

} // namespace vd
