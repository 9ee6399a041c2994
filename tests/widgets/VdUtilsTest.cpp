// The diagram's geometry helpers, on their own: proximity of a point to a polyline, the
// point-in-polygon test, the affine transform, upper-casing and the transparent copy.

#include "diagram/VdUtils.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

using namespace vd;

TEST(VdUtilsTest, HorizontalSegmentMatchesWithinToleranceOnly)
{
    const std::vector<QPoint> line{{0, 0}, {100, 0}};
    EXPECT_EQ(IsPointNearLine(line, {50, 4}, 4), 0);
    EXPECT_EQ(IsPointNearLine(line, {50, -4}, 4), 0);
    EXPECT_EQ(IsPointNearLine(line, {50, 5}, 4), -1);
    EXPECT_EQ(IsPointNearLine(line, {101, 0}, 4), -1);
    EXPECT_EQ(IsPointNearLine(line, {100, 0}, 4), 0);
}

TEST(VdUtilsTest, VerticalSegmentMatchesBetweenItsEndsInEitherOrder)
{
    const std::vector<QPoint> line{{10, 80}, {10, 20}};
    EXPECT_EQ(IsPointNearLine(line, {14, 50}, 4), 0);
    EXPECT_EQ(IsPointNearLine(line, {15, 50}, 4), -1);
    EXPECT_EQ(IsPointNearLine(line, {10, 81}, 4), -1);
    EXPECT_EQ(IsPointNearLine(line, {10, 20}, 4), 0);
}

TEST(VdUtilsTest, FewerThanTwoPointsNeverMatch)
{
    EXPECT_EQ(IsPointNearLine({}, {0, 0}, 10), -1);
    EXPECT_EQ(IsPointNearLine({{5, 5}}, {5, 5}, 10), -1);
}

TEST(VdUtilsTest, SlopedSegmentUsesTheSumOfAxisDistances)
{
    const std::vector<QPoint> line{{0, 0}, {100, 50}};
    EXPECT_EQ(IsPointNearLine(line, {50, 25}, 4), 0);
    EXPECT_EQ(IsPointNearLine(line, {50, 28}, 4), 0); // 0 + 3
    EXPECT_EQ(IsPointNearLine(line, {50, 30}, 4), -1);
    // Reversed ends give the same answers.
    const std::vector<QPoint> back{{100, 50}, {0, 0}};
    EXPECT_EQ(IsPointNearLine(back, {50, 28}, 4), 0);
    EXPECT_EQ(IsPointNearLine(back, {50, 30}, 4), -1);
}

TEST(VdUtilsTest, SteepSegmentIsWalkedAlongY)
{
    const std::vector<QPoint> line{{0, 0}, {20, 100}};
    EXPECT_EQ(IsPointNearLine(line, {10, 50}, 2), 0);
    EXPECT_EQ(IsPointNearLine(line, {12, 50}, 2), 0);
    EXPECT_EQ(IsPointNearLine(line, {16, 50}, 2), -1);
}

TEST(VdUtilsTest, ReturnsTheFirstSegmentThatMatches)
{
    const std::vector<QPoint> route{{0, 0}, {10, 0}, {10, 40}, {60, 40}};
    EXPECT_EQ(IsPointNearLine(route, {5, 2}, 4), 0);
    EXPECT_EQ(IsPointNearLine(route, {12, 20}, 4), 1);
    EXPECT_EQ(IsPointNearLine(route, {30, 43}, 4), 2);
    // The corner is near both; the first one wins.
    EXPECT_EQ(IsPointNearLine(route, {10, 0}, 4), 0);
    EXPECT_EQ(IsPointNearLine(route, {30, 20}, 4), -1);
}

TEST(VdUtilsTest, ToleranceComparesLessOrEqual)
{
    const std::vector<QPoint> line{{0, 0}, {100, 0}};
    EXPECT_EQ(IsPointNearLine(line, {50, 6}, 6.0), 0);
    EXPECT_EQ(IsPointNearLine(line, {50, 6}, 5.9), -1);
}

TEST(VdUtilsTest, TransformWithIdentityAndOffsetMovesEveryPoint)
{
    std::vector<QPoint> points{{0, 0}, {5, 7}, {-3, 100}};
    TransformCoordinates(points, TVdTransformMatrix{1, 0, 0, 1, 10, 20});
    EXPECT_EQ(points, (std::vector<QPoint>{{10, 20}, {15, 27}, {7, 120}}));
}

TEST(VdUtilsTest, TransformUsesTheOldCoordinatesForBothResults)
{
    // A quarter turn: x' = -y, y' = x.
    QPoint points[2] = {{3, 4}, {10, 0}};
    TransformCoordinates(points, 2, TVdTransformMatrix{0, 1, -1, 0, 0, 0});
    EXPECT_EQ(points[0], QPoint(-4, 3));
    EXPECT_EQ(points[1], QPoint(0, 10));
}

TEST(VdUtilsTest, TransformTouchesOnlyCountPoints)
{
    QPoint points[2] = {{1, 1}, {2, 2}};
    TransformCoordinates(points, 1, TVdTransformMatrix{2, 0, 0, 2, 0, 0});
    EXPECT_EQ(points[0], QPoint(2, 2));
    EXPECT_EQ(points[1], QPoint(2, 2));
}

TEST(VdUtilsTest, UpperCaseItemsInPlaceAndIgnoresNull)
{
    QStringList list{QStringLiteral("count"), QStringLiteral("Sum"), QStringLiteral("straße")};
    UpperCaseItems(&list);
    EXPECT_EQ(list.at(0), QStringLiteral("COUNT"));
    EXPECT_EQ(list.at(1), QStringLiteral("SUM"));
    EXPECT_EQ(list.at(2), QStringLiteral("STRASSE"));
    UpperCaseItems(nullptr);
}

TEST(VdUtilsTest, PointInPolygonByCrossings)
{
    const std::vector<QPoint> square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    EXPECT_TRUE(IsPointInPoly(square, {5, 5}));
    EXPECT_FALSE(IsPointInPoly(square, {15, 5}));
    EXPECT_FALSE(IsPointInPoly(square, {-1, 5}));
    EXPECT_FALSE(IsPointInPoly(square, {5, 11}));
    const std::vector<QPoint> triangle{{0, 0}, {20, 10}, {0, 20}};
    EXPECT_TRUE(IsPointInPoly(triangle, {5, 10}));
    EXPECT_FALSE(IsPointInPoly(triangle, {19, 2}));
}

TEST(VdUtilsTest, TransparentCopyKeepsTheDestinationWhereTheImageIsClear)
{
    QImage dest(4, 4, QImage::Format_ARGB32);
    dest.fill(Qt::red);
    QImage source(2, 2, QImage::Format_ARGB32);
    source.fill(Qt::transparent);
    source.setPixelColor(0, 0, Qt::blue);
    {
        QPainter painter(&dest);
        EXPECT_TRUE(TransparentBlt(painter, 1, 1, QPixmap::fromImage(source)));
    }
    EXPECT_EQ(dest.pixelColor(1, 1), QColor(Qt::blue));
    EXPECT_EQ(dest.pixelColor(2, 1), QColor(Qt::red));
    EXPECT_EQ(dest.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(dest.pixelColor(0, 0), QColor(Qt::red));
}
