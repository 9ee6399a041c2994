#include "resources/VdImages.h"

#include <QDir>
#include <QFont>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

const char* const kAllImages[] = {
    "TABLEBMP", "FIELDBMP",   "ADD",        "ADD_ALL",   "REMOVE",    "REMOVE_ALL",
    "CHECKBMP", "UNCHECKBMP", "INPUTPARAM", "INPUTNULL", "BTN1",      "BTN2",
    "BTN3",     "BOX1",       "BOX2",       "BOX3",      "DRAGCURSOR"};

QImage ImageOf(const char* name, qreal ratio)
{
    return vd::VdImage(name, ratio).toImage().convertToFormat(QImage::Format_ARGB32);
}

bool SamePixels(const QImage& a, const QImage& b) { return a.size() == b.size() && a == b; }

// One row per image: its name, then the image at 100 % and at 200 % on white and on the grey of
// a table caption, each drawn at its logical size, plus the 200 % one magnified so that pixel
// edges can be judged.
QImage ContactSheet()
{
    const int rowHeight = 72;
    QImage sheet(560, rowHeight * int(std::size(kAllImages)) + 8, QImage::Format_ARGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    int y = 4;
    for (const char* name : kAllImages) {
        const QSize size = vd::VdImageSize(name);
        painter.setPen(Qt::black);
        painter.drawText(QRect(4, y, 110, rowHeight), Qt::AlignVCenter, QString::fromLatin1(name));
        painter.fillRect(QRect(120, y, 200, rowHeight - 4), QColor(0xF0, 0xF0, 0xF0));
        painter.fillRect(QRect(220, y, 100, rowHeight - 4), QColor(0xC0, 0xC0, 0xC0));
        for (int column = 0; column < 2; ++column) {
            const int x = 130 + column * 100;
            painter.drawPixmap(x, y + 4, vd::VdImage(name, 1.0));
            // A 2x pixmap drawn into a 1x image keeps its logical size; show it enlarged instead.
            const QImage twice = ImageOf(name, 2.0);
            painter.drawImage(QRect(x + 40, y + 4, size.width() * 2, size.height() * 2), twice);
        }
        const QImage twice = ImageOf(name, 2.0);
        painter.drawImage(QRect(340, y, twice.width() * 2, twice.height() * 2)
                              .intersected(QRect(340, y, 200, rowHeight - 4)),
                          twice.copy(0, 0, std::min(twice.width(), 100),
                                     std::min(twice.height(), (rowHeight - 4) / 2)));
        y += rowHeight;
    }
    return sheet;
}

} // namespace

TEST(VdImagesTest, EveryNamedImageExistsWithItsSize)
{
    for (const char* name : kAllImages) {
        SCOPED_TRACE(name);
        const QSize size = vd::VdImageSize(name);
        ASSERT_FALSE(size.isEmpty());
        const QPixmap one = vd::VdImage(name, 1.0);
        ASSERT_FALSE(one.isNull());
        EXPECT_EQ(one.size(), size);
        const QPixmap two = vd::VdImage(name, 2.0);
        EXPECT_EQ(two.size(), size * 2);
        EXPECT_EQ(two.devicePixelRatio(), 2.0);
        EXPECT_EQ(two.deviceIndependentSize(), QSizeF(size));
    }
    EXPECT_EQ(vd::VdImageSize("TABLEBMP"), QSize(16, 16));
    EXPECT_EQ(vd::VdImageSize("BTN2"), QSize(12, 12));
    EXPECT_EQ(vd::VdImageSize("BOX3"), QSize(12, 12));
    EXPECT_EQ(vd::VdImageSize("DRAGCURSOR"), QSize(32, 32));
}

TEST(VdImagesTest, NamesAreCaseInsensitiveAndUnknownNamesGiveNothing)
{
    EXPECT_EQ(vd::VdImagePath("DragCursor"), QStringLiteral(":/vandor/DRAGCURSOR.svg"));
    EXPECT_EQ(vd::VdImagePath("add_all"), QStringLiteral(":/vandor/ADD_ALL.svg"));
    EXPECT_TRUE(vd::VdImagePath("NOSUCH").isEmpty());
    EXPECT_TRUE(vd::VdImagePath(nullptr).isEmpty());
    EXPECT_TRUE(vd::VdImage("NOSUCH").isNull());
    EXPECT_TRUE(vd::VdIcon("NOSUCH").isNull());
    EXPECT_TRUE(vd::VdImage("ADD", 0.0).isNull());
}

TEST(VdImagesTest, ImagesAreDrawnNotBlank)
{
    for (const char* name : kAllImages) {
        SCOPED_TRACE(name);
        const QImage image = ImageOf(name, 1.0);
        int opaque = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                opaque += qAlpha(image.pixel(x, y)) > 128;
        EXPECT_GT(opaque, 10);
        EXPECT_LT(opaque, image.width() * image.height());
    }
}

TEST(VdImagesTest, StatePairsAreToldApart)
{
    EXPECT_FALSE(SamePixels(ImageOf("CHECKBMP", 1), ImageOf("UNCHECKBMP", 1)));
    EXPECT_FALSE(SamePixels(ImageOf("INPUTPARAM", 1), ImageOf("INPUTNULL", 1)));
    EXPECT_FALSE(SamePixels(ImageOf("BOX1", 1), ImageOf("BOX2", 1)));
    EXPECT_FALSE(SamePixels(ImageOf("BOX2", 1), ImageOf("BOX3", 1)));
    EXPECT_FALSE(SamePixels(ImageOf("ADD", 1), ImageOf("REMOVE", 1)));
    EXPECT_FALSE(SamePixels(ImageOf("ADD_ALL", 1), ImageOf("REMOVE_ALL", 1)));
    // An unticked box is white inside, a ticked one is not.
    EXPECT_EQ(QColor(ImageOf("UNCHECKBMP", 1).pixel(5, 5)), QColor(Qt::white));
    EXPECT_NE(QColor(ImageOf("CHECKBMP", 1).pixel(5, 5)), QColor(Qt::white));
    EXPECT_EQ(QColor(ImageOf("BOX1", 1).pixel(3, 3)), QColor(Qt::white));
    EXPECT_NE(QColor(ImageOf("BOX3", 1).pixel(3, 3)), QColor(Qt::white));
}

TEST(VdImagesTest, BoxEdgesSitOnWholePixelsAtOneHundredPercent)
{
    // Straight one-pixel edges fall on pixel centres: the edge column is solid, the column
    // outside it untouched, so nothing looks blurred at 100 %.
    const QImage check = ImageOf("UNCHECKBMP", 1);
    EXPECT_EQ(qAlpha(check.pixel(2, 8)), 255);
    EXPECT_EQ(qAlpha(check.pixel(1, 8)), 0);
    EXPECT_EQ(qAlpha(check.pixel(13, 8)), 255);
    EXPECT_EQ(qAlpha(check.pixel(14, 8)), 0);
    const QImage box = ImageOf("BOX1", 1);
    EXPECT_EQ(qAlpha(box.pixel(0, 6)), 255);
    EXPECT_EQ(qAlpha(box.pixel(11, 6)), 255);
    EXPECT_EQ(qAlpha(box.pixel(6, 0)), 255);
    const QImage table = ImageOf("TABLEBMP", 1);
    EXPECT_EQ(qAlpha(table.pixel(1, 8)), 255);
    EXPECT_EQ(qAlpha(table.pixel(0, 8)), 0);
}

TEST(VdImagesTest, TwoHundredPercentIsRenderedNotScaled)
{
    // At 200 % the one-pixel edge becomes two device pixels, and the inner pixel next to it is
    // the fill, not a blend: the SVG was rendered at the higher resolution.
    const QImage check = ImageOf("UNCHECKBMP", 2);
    EXPECT_EQ(qAlpha(check.pixel(4, 16)), 255);
    EXPECT_EQ(qAlpha(check.pixel(3, 16)), 0);
    EXPECT_EQ(QColor(check.pixel(6, 16)), QColor(Qt::white));
    const QImage scaled =
        ImageOf("BTN3", 1).scaled(24, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_FALSE(SamePixels(scaled, ImageOf("BTN3", 2)));
}

TEST(VdImagesTest, IconsRenderFromSvgAtAnyRatio)
{
    const QIcon icon = vd::VdIcon("ADD");
    ASSERT_FALSE(icon.isNull());
    const QPixmap normal = icon.pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(normal.size(), QSize(32, 32));
    EXPECT_EQ(normal.devicePixelRatio(), 2.0);
    const QPixmap disabled = icon.pixmap(QSize(16, 16), 2.0, QIcon::Disabled);
    EXPECT_EQ(disabled.size(), QSize(32, 32));
    EXPECT_NE(normal.toImage(), disabled.toImage());
}

TEST(VdImagesTest, DragCursorHasItsHotSpotAtTheArrowTip)
{
    const QCursor cursor = vd::VdDragCursor(1.0);
    EXPECT_EQ(cursor.shape(), Qt::BitmapCursor);
    EXPECT_EQ(cursor.hotSpot(), QPoint(1, 1));
    EXPECT_EQ(cursor.pixmap().size(), QSize(32, 32));
    // The arrow's outline is black at its tip.
    EXPECT_EQ(qAlpha(ImageOf("DRAGCURSOR", 1).pixel(1, 2)), 255);
}

TEST(VdImagesTest, ContactSheetOfAllImages)
{
    const QImage sheet = ContactSheet();
    ASSERT_TRUE(QDir().mkpath(QStringLiteral(VD_SHOT_DIR)));
    ASSERT_TRUE(sheet.save(QStringLiteral(VD_SHOT_DIR "/images-contact-sheet.png")));
    // The sheet is not a blank page: every row drew its image.
    EXPECT_NE(sheet.pixel(140, 14), QColor(0xF0, 0xF0, 0xF0).rgb());
}
