// Drawing of the criteria editor's rows.

#include "builder/VdColor.h"
#include "builder/VdCustomVandor.h"
#include "builder/VdQtText.h"
#include "core/VdOperators.h"
#include "panels/VdCriterionPanel.h"
#include "panels/VdCriterionRow.h"
#include "resources/VdResource.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

namespace vd {

namespace {

constexpr TColor ButtonGrey = 0x00808080;

const TVdPalette& DefaultPalette()
{
    static const TVdPalette palette;
    return palette;
}

// A 1-pixel line on the pixel centres, so it stays one sharp pixel at every scale.
void HorizontalLine(QPainter& dc, int x1, int x2, int y)
{
    dc.drawLine(QPointF(x1 + 0.5, y + 0.5), QPointF(x2 + 0.5, y + 0.5));
}

} // namespace

const TVdPalette& TVdCriterionPanel::Colors() const
{
    const TCustomVandor* builder = Builder();
    return builder && builder->GetPalette() ? *builder->GetPalette() : DefaultPalette();
}

QFont TVdCriterionPanel::ItemFont() const
{
    QFont item = font();
    item.setBold(true);
    item.setUnderline(true);
    return item;
}

int TVdCriterionPanel::TextWidth(const QString& text, bool bold) const
{
    return QFontMetrics(bold ? ItemFont() : font()).horizontalAdvance(text);
}

QString TVdCriterionPanel::GroupPhrase() const { return VdResource::OfFollowingAreMet(); }

int TVdCriterionPanel::Baseline(int top) const
{
    // Bold and normal texts share one baseline, centred on the row.
    const QFontMetrics metrics(ItemFont());
    return top + (FRowHeight - metrics.height()) / 2 + metrics.ascent();
}

void TVdCriterionPanel::paintEvent(QPaintEvent* event)
{
    QPainter dc(viewport());
    const QRect dirty = event->rect();
    int top = -verticalScrollBar()->value();
    for (TVdCriterionRow* row = RootRow(); row && top < dirty.bottom() + 1;
         row = row->GetNextRow(), top += FRowHeight) {
        if (top + FRowHeight <= dirty.top())
            continue;
        DrawRow(row, top, dc);
    }
}

void TVdCriterionPanel::DrawRow(TVdCriterionRow* row, int top, QPainter& dc)
{
    const TVdPalette& palette = Colors();
    const int shift = horizontalScrollBar()->value();
    const bool focusRow = FFocusElement && FFocusElement->Row() == row;
    dc.setRenderHint(QPainter::Antialiasing, false);
    if (focusRow && RowSelect())
        dc.fillRect(QRect(0, top, viewport()->width(), FRowHeight),
                    ColorToQColor(palette.ActiveCondition()));
    // The element under the pointer is lit, so a person sees what a click will open.
    if (FActiveElement && FActiveElement->Row() == row && FActiveElement->Width > 0 &&
        FActiveElement->Index != vdpNumber) {
        QColor hover = this->palette().color(QPalette::Highlight);
        hover.setAlpha(40);
        dc.fillRect(QRect(FActiveElement->Left - 1 - shift, top + 2, FActiveElement->Width + 3,
                          FRowHeight - 4),
                    hover);
    }
    DrawButton(row, top, dc, FHotButton == row ? FHotStyle : BuilderButtonStyle());
    const int baseline = Baseline(top);
    if (row->IsGroup()) {
        const TVdControl* word = row->Controls(vdpAggregate1);
        DrawGroupCondition(word->Text(), word->Left - shift, top, dc);
    } else {
        const QColor item =
            ColorToQColor(row->Valid ? palette.ConditionItemText() : palette.ConditionErrorText());
        for (int i = vdpAggregate1; i < row->ControlCount(); ++i) {
            const TVdControl* control = row->Controls(i);
            if (control->Width <= 0)
                continue;
            dc.setFont(ItemFont());
            dc.setPen(item);
            dc.drawText(QPoint(control->Left - shift, baseline), control->Text());
            // The operator's relating word stands in the gap after every argument but the last.
            const bool relate = i >= vdpFirstArgument && i + 1 < row->ControlCount() &&
                                row->Operator() && !row->Operator()->Relate.empty();
            if (relate) {
                const QString word = ToQString(row->Operator()->Relate);
                const TVdControl* next = row->Controls(i + 1);
                const int gap = next->Left - control->Right();
                dc.setFont(font());
                dc.setPen(ColorToQColor(palette.ConditionText()));
                dc.drawText(
                    QPoint(control->Right() - shift + (gap - TextWidth(word, false)) / 2, baseline),
                    word);
            }
        }
    }
    if (FDropElement && FDropElement->Row() == row) {
        dc.setPen(QPen(this->palette().color(QPalette::Highlight), 1, Qt::DashLine));
        dc.setBrush(Qt::NoBrush);
        dc.drawRect(QRectF(ElementRect(FDropElement)).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    if (focusRow)
        DrawActiveElement(dc,
                          QRect(FFocusElement->Left - 1 - shift, top + 1, FFocusElement->Width + 3,
                                FRowHeight - 2),
                          FFocusElement);
}

void TVdCriterionPanel::DrawButton(TVdCriterionRow* row, int top, QPainter& dc,
                                   TVdButtonStyle style)
{
    const TVdPalette& palette = Colors();
    const TVdControl* element = row->Controls(vdpNumber);
    const int left = element->Left - horizontalScrollBar()->value();
    const int d = FRowHeight - 4;
    const int x1 = left + 2;
    const int x2 = left + element->Width - 2;
    const int y1 = top + 2;
    const QColor grey = ColorToQColor(ButtonGrey);
    QColor light = grey;
    QColor dark = grey;
    if (style == vds3DLook) {
        light = Qt::white;
        dark = Qt::black;
    } else if (style == vdsRaise) {
        light = Qt::black;
        dark = Qt::white;
    }
    dc.setBrush(Qt::NoBrush);
    dc.setRenderHint(QPainter::Antialiasing, true);
    const QRectF leftArc(x1 + 0.5, y1 + 0.5, d - 1, d - 1);
    const QRectF rightArc(x2 - d + 0.5, y1 + 0.5, d - 1, d - 1);
    dc.setPen(QPen(light, 1));
    dc.drawArc(leftArc, 90 * 16, 180 * 16);
    dc.setPen(QPen(dark, 1));
    dc.drawArc(rightArc, -90 * 16, 180 * 16);
    dc.setRenderHint(QPainter::Antialiasing, false);
    const int mid1 = x1 + d / 2;
    const int mid2 = x2 - d / 2;
    dc.setPen(QPen(light, 1));
    HorizontalLine(dc, mid1, mid2, y1);
    dc.setPen(QPen(dark, 1));
    HorizontalLine(dc, mid1, mid2, y1 + d - 1);
    dc.setFont(ItemFont());
    dc.setPen(ColorToQColor(palette.ConditionItemText()));
    // The root's number is a blank: an underlined blank would read as "_".
    const QString number = element->Text();
    if (number.trimmed().isEmpty())
        return;
    const int width = TextWidth(number, true);
    dc.drawText(QPoint(left + (element->Width - width) / 2, Baseline(top)), number);
}

void TVdCriterionPanel::DrawGroupCondition(const QString& text, int left, int top, QPainter& dc)
{
    const TVdPalette& palette = Colors();
    const int baseline = Baseline(top);
    dc.setFont(ItemFont());
    dc.setPen(ColorToQColor(palette.ConditionItemText()));
    dc.drawText(QPoint(left, baseline), text);
    dc.setFont(font());
    dc.setPen(ColorToQColor(palette.ConditionText()));
    dc.drawText(QPoint(left + TextWidth(text, true), baseline), GroupPhrase());
}

void TVdCriterionPanel::DrawActiveElement(QPainter& dc, const QRect& rect, TVdControl*)
{
    // Grey with a white light edge; the keyboard's own colour while the panel has the focus.
    dc.setRenderHint(QPainter::Antialiasing, false);
    dc.setBrush(Qt::NoBrush);
    dc.setPen(QPen(Qt::white, 1));
    dc.drawRect(QRectF(rect).adjusted(1.5, 1.5, -1.5, -1.5));
    const QColor frame =
        hasFocus() ? palette().color(QPalette::Highlight) : ColorToQColor(ButtonGrey);
    dc.setPen(QPen(frame, 1));
    dc.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
}

void TVdCriterionPanel::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollRanges();
}

void TVdCriterionPanel::scrollContentsBy(int, int)
{
    CancelEdit();
    viewport()->update();
}

} // namespace vd
