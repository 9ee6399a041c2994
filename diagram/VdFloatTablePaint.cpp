// Painting of a table object: caption band with its buttons and tick-all box, the edges, and
// the field rows.

#include "builder/VdCustomVandor.h"
#include "builder/VdPalette.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdUtils.h"
#include "resources/VdImages.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace vd {

namespace {

const QColor SelectedRowColor(192, 192, 192);
const QColor DropRowColor(0, 128, 128);

// Straight one-pixel lines sit on pixel centres; Qt scales them crisply.
void Line(QPainter& painter, const QColor& colour, int x1, int y1, int x2, int y2)
{
    painter.setPen(QPen(colour, 1));
    painter.drawLine(QPointF(x1 + 0.5, y1 + 0.5), QPointF(x2 + 0.5, y2 + 0.5));
}

// A two-colour frame: top-left in one colour, bottom-right in the other; r is inclusive.
void Frame(QPainter& painter, const QRect& r, const QColor& topLeft, const QColor& bottomRight)
{
    Line(painter, topLeft, r.left(), r.bottom(), r.left(), r.top());
    Line(painter, topLeft, r.left(), r.top(), r.right(), r.top());
    Line(painter, bottomRight, r.right(), r.top(), r.right(), r.bottom());
    Line(painter, bottomRight, r.right(), r.bottom(), r.left(), r.bottom());
}

// The classic two-pixel edges from the widget palette's light and shadow colours, so they
// follow a dark palette too.
void Edge(QPainter& painter, const QRect& r, TVdBorderKind kind, bool flat, const QPalette& pal)
{
    const QRect inner = r.adjusted(1, 1, -1, -1);
    if (flat) {
        Frame(painter, r, pal.color(QPalette::Dark), pal.color(QPalette::Dark));
        Frame(painter, inner, pal.color(QPalette::Button), pal.color(QPalette::Button));
        return;
    }
    const QColor light = pal.color(QPalette::Light);
    const QColor mid = pal.color(QPalette::Mid);
    const QColor dark = pal.color(QPalette::Shadow);
    const QColor face = pal.color(QPalette::Button);
    switch (kind) {
    case vdkRaised:
        Frame(painter, r, face, dark);
        Frame(painter, inner, light, mid);
        break;
    case vdkSunken:
        Frame(painter, r, mid, light);
        Frame(painter, inner, dark, face);
        break;
    case vdkEtched:
        Frame(painter, r, mid, light);
        Frame(painter, inner, light, mid);
        break;
    case vdkBump:
        Frame(painter, r, light, mid);
        Frame(painter, inner, mid, light);
        break;
    }
}

enum TGlyph { gBox1, gBox2, gBox3, gBtn1, gBtn2, gBtn3, gCheck, gUncheck, gParam, gNull, gCount };

// Rows look their glyphs up on every paint: the set for the last ratio is kept at hand
// instead of going through the pixmap cache's string keys each time.
const QPixmap& Glyph(TGlyph glyph, qreal ratio)
{
    static const char* const names[gCount] = {"BOX1",       "BOX2",     "BOX3",     "BTN1",
                                              "BTN2",       "BTN3",     "CHECKBMP", "UNCHECKBMP",
                                              "INPUTPARAM", "INPUTNULL"};
    static std::array<QPixmap, gCount> glyphs;
    static qreal loadedRatio = 0;
    if (ratio != loadedRatio) {
        for (int i = 0; i < gCount; ++i)
            glyphs[size_t(i)] = VdImage(names[i], ratio);
        loadedRatio = ratio;
    }
    return glyphs[size_t(glyph)];
}

// Black or white, whichever reads on the fill.
QColor TextOn(const QColor& fill) { return fill.lightness() < 128 ? Qt::white : Qt::black; }

} // namespace

void TVdTable::Paint(QPainter& painter)
{
    const QPoint offset = FWorkArea->ScrollOffset();
    const QRect bounds = GetBoundsRect().translated(-offset);
    QRegion clip = painter.hasClipping() ? painter.clipRegion() : QRegion(painter.window());
    if (!clip.intersects(bounds))
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    PaintCaption(painter, bounds);
    PaintEdges(painter, bounds);
    if (FExpanded)
        PaintRows(painter, GetClientRect().translated(-offset));
    painter.restore();
    // Whatever is painted after the box (links, boxes behind it) must not draw over it.
    painter.setClipRegion(clip.subtracted(bounds));
}

void TVdTable::PaintCaption(QPainter& painter, const QRect& bounds) const
{
    const TVdPalette* palette = FWorkArea->Vandor()->GetPalette();
    const QPoint offset = FWorkArea->ScrollOffset();
    const QColor fill =
        ColorToQColor(FSelected ? palette->ActiveCaption() : palette->InactiveCaption());
    painter.fillRect(QRect(bounds.left(), bounds.top(), bounds.width(), FCaptionHeight), fill);
    QFont bold = FWorkArea->font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(TextOn(fill));
    const QRect textRect = GetCaptionRect().translated(-offset);
    QString text = QFontMetrics(bold).elidedText(GetCaption(), Qt::ElideRight, textRect.width());
    if (text.isEmpty())
        text = QStringLiteral(" ");
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    const QRect buttons = GetButtonRect().translated(-offset);
    for (int i = 0; i < 3; ++i)
        DrawButton(painter, ButtonState(i), i, buttons);
    // Two pixels right of and below the square that takes the click, as it always was.
    TransparentBlt(painter, FLeft + 6 - offset.x(), FTop + 4 - offset.y(),
                   Glyph(TGlyph(gBox1 + FFieldState), painter.device()->devicePixelRatioF()));
}

void TVdTable::PaintEdges(QPainter& painter, const QRect& bounds) const
{
    const QPalette& pal = FWorkArea->palette();
    Edge(painter, bounds, TVdBorderKind(GetTableBorder()), GetFlat(), pal);
    if (FExpanded) {
        QRect list = bounds.adjusted(BorderWidth, 0, -BorderWidth, -BorderWidth);
        list.setTop(bounds.top() + FCaptionHeight);
        Edge(painter, list, vdkSunken, false, pal);
    }
    if (FSelected) {
        // The selected box is told apart by a frame in the highlight colour as well.
        const QRect r = bounds;
        Frame(painter, r, pal.color(QPalette::Highlight), pal.color(QPalette::Highlight));
    }
}

int TVdTable::ButtonState(int index) const
{
    if (FPressedButton == index)
        return FPressedOver ? 0 : 1;
    if (FPressedButton < 0 && FHotButton == index)
        return 2;
    return 1;
}

void TVdTable::DrawButton(QPainter& painter, int state, int index, const QRect& rect) const
{
    if (index < 0 || index > 2)
        return;
    const int w = GlyphSize;
    const int x = rect.left() + (w + 1) * index;
    const int y = rect.top() + (rect.height() - w - 2) / 2;
    const QRect square(x, y, w + 2, w + 2);
    const QColor grey(128, 128, 128);
    const bool flat = GetbtnFlat();
    QColor first = Qt::white;
    QColor second = grey;
    if (state == 0) {
        first = Qt::black;
        second = Qt::white;
    } else if (state == 1 && flat) {
        first = grey;
    }
    if (state == 2)
        painter.fillRect(square.adjusted(1, 1, -1, -1),
                         FWorkArea->palette().color(QPalette::Light));
    Frame(painter, square, first, second);
    const int shift = state == 0 ? 1 : 0;
    TransparentBlt(painter, x + 1 + shift, y + 1 + shift,
                   Glyph(TGlyph(gBtn1 + index), painter.device()->devicePixelRatioF()));
}

void TVdTable::PaintRows(QPainter& painter, const QRect& client)
{
    painter.fillRect(client, ColorToQColor(GetClientColor()));
    painter.save();
    QRect rows = client;
    if (ScrollBarShown())
        rows.setRight(rows.right() - ScrollBarWidth);
    painter.setClipRect(rows, Qt::IntersectClip);
    const bool hideSelection = GetHideSelection() && !FSelected;
    const QPoint offset = FWorkArea->ScrollOffset();
    const int last = std::min(Count(), FFirstVisibleItem + FVisibleItems);
    for (int i = FFirstVisibleItem; i < last; ++i) {
        const TVdListItem* row = Items(i);
        QRect rect = GetItemRect(row).translated(-offset);
        rect.setRight(rows.right());
        TVdItemState state;
        if (row == FCurrentItem && !hideSelection)
            state.Include(isSelected);
        if (FSelected)
            state.Include(isFocused);
        if (row == FWorkArea->DropHighlightRow())
            state.Include(isDroped);
        DrawItem(painter, row, rect, true, state);
    }
    painter.restore();
}

void TVdTable::DrawItem(QPainter& painter, const TVdListItem* item, const QRect& rect,
                        bool fillWithTableBrush, TVdItemState state) const
{
    const TVdPalette* palette = FWorkArea->Vandor()->GetPalette();
    const QRect row = rect.translated(0, 1);
    QFont font = FWorkArea->font();
    font.setBold(item->IsSelected());
    painter.setFont(font);
    QColor text = ColorToQColor(palette->ItemText());
    QColor fill = ColorToQColor(GetClientColor());
    bool filled = fillWithTableBrush;
    if (state.Contains(isSelected)) {
        text = ColorToQColor(palette->SelectedItemText());
        fill = SelectedRowColor;
        filled = true;
    } else if (state.Contains(isDroped)) {
        text = ColorToQColor(palette->SelectedItemText());
        fill = DropRowColor;
        filled = true;
    }
    const TGlyph image = item->ParamType() == ptOutput ? (item->Checked() ? gCheck : gUncheck)
                                                       : (item->Checked() ? gParam : gNull);
    const QPixmap& check = Glyph(image, painter.device()->devicePixelRatioF());
    const int side = int(check.width() / check.devicePixelRatio());
    TransparentBlt(painter, row.left(), row.top() + (row.height() - side) / 2, check);
    const QRect textRect = row.adjusted(FItemHeight, 0, 0, 0);
    if (filled)
        painter.fillRect(textRect, fill);
    painter.setPen(text);
    QString caption = QLatin1Char(' ') + item->Name();
    if (FWorkArea->Vandor()->GetOptions().testFlag(vdoShowFieldTypes))
        caption += QStringLiteral(" (") + item->GetDataName() + QLatin1Char(')');
    caption = QFontMetrics(font).elidedText(caption, Qt::ElideRight, textRect.width());
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption);
    if (state.Contains(isFocused) && state.Contains(isSelected)) {
        // A dotted frame in the highlight colour: clear on the grey row, and it leaves the
        // row's own colours alone (some styles tint the whole rectangle).
        QPen dots(FWorkArea->palette().color(QPalette::Highlight), 1, Qt::DotLine);
        dots.setCosmetic(true);
        painter.setPen(dots);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(textRect).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter.setPen(Qt::black);
}

} // namespace vd
