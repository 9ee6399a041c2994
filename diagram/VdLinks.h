#pragma once

// The lines between field rows of two tables. All links between the same two tables share
// one TVdJoin, which carries the join kind.
//
// Points are kept in content coordinates: 0 and 1 are the start and its stub, the last two
// the end stub and the end, anything between is a point the user inserted. The routing
// attaches each end to the side of its box that faces the partner (the next user point when
// there is one).

#include "core/VdJoinDef.h"
#include "diagram/VdFloatObject.h"

#include <QPoint>
#include <QRect>
#include <QRegion>

#include <cstdint>
#include <vector>

class QColor;

namespace vd {

class TVdListItem;
class TVdTable;

class TVdJoin
{
public:
    TVdJoin(TVdWorkArea* workArea, TVdTable* table1, TVdTable* table2);
    virtual ~TVdJoin() = default;

    TVdJoinKind JoinKind = vdjInnerJoin;
    // index 0 or 1.
    TVdTable* GetTable(int index) const { return FTables[index & 1]; }
    QString GetTableName(int index) const;
    TVdWorkArea* WorkArea() const { return FWorkArea; }
    // A table that leaves the diagram is forgotten here, so routing can tell.
    void ForgetTable(const TVdTable* table);

private:
    TVdTable* FTables[2];
    TVdWorkArea* FWorkArea;
};

// Which end of a link a clip region covers.
enum TVdLinkPart : std::uint8_t { vdlpWhole, vdlpStart, vdlpEnd };

class TVdLink : public TVdFloatObject
{
public:
    // Distance on both axes within which a point is under the mouse.
    static constexpr int PointGrip = 4;
    // Length of the stubs that leave the boxes.
    static constexpr int StubLength = 10;

    // Row1 is a row of the join's first table, Row2 one of its second.
    TVdLink(TVdWorkArea* workArea, TVdJoin* join, TVdListItem* row1, TVdListItem* row2);

    TVdJoin* Join() const { return FJoin; }
    TVdListItem* Row1() const { return FRow1; }
    TVdListItem* Row2() const { return FRow2; }
    // Index into "=", ">", "<", ">=", "<=", "<>".
    int Condition = 0;
    static QString ConditionText(int condition);
    // Unique for the work area's life: posted notifications name links by it.
    std::uint64_t Serial() const { return FSerial; }

    // Content coordinates, all points inflated by 3.
    QRect GetBounds() const { return FBounds; }
    void SetBounds(const QRect& bounds) { FBounds = bounds; }
    int GetCountPoints() const { return int(FPoints.size()); }
    // Window coordinates; an index out of range raises "Invalid index = %d ".
    QPoint GetPoint(int index) const;
    void SetPoint(int index, const QPoint& point);
    // Content coordinates.
    const std::vector<QPoint>& Points() const { return FPoints; }
    // Inserts a user point (content coordinates) before index; 2 <= index <= count - 2.
    void InsertPoint(int index, const QPoint& contentPoint);
    // The pixels this link paints, in content coordinates: the whole link, or the part at its
    // start or end table (the whole link when it has no user points).
    QRegion GetClipRgn(TVdLinkPart part = vdlpWhole) const;
    // Routes both ends from the rows' positions; user points stay where they are. Raises
    // "Invalid table %s in Link control" when a table of the join has gone.
    void SetBoundaryRect();

    // ORDERS.CUSTNO=CUSTOMER.CUSTNO
    QString GetHint() const override;
    void Paint(QPainter& painter) override;
    TTableHitTest HitTest(const QPoint& point) const override;
    void MouseDown(QMouseEvent* event, TTableHitTest hit) override;
    void MouseMove(QMouseEvent* event, TTableHitTest hit) override;
    void MouseUp(QMouseEvent* event, TTableHitTest hit) override;
    void PopupMenu(QMenu* menu, int x, int y, TTableHitTest hit) override;

    // The point being dragged (-1 none) and, while a user point is dragged, the rubber band:
    // the two segments from its neighbours to where the mouse is (content coordinates).
    int DragPoint() const { return FDragPoint; }
    bool RubberBand(QPoint& from, QPoint& at, QPoint& to) const;
    QPoint MenuPoint() const { return FMenuPoint; }
    void SetMenuPoint(const QPoint& contentPoint) { FMenuPoint = contentPoint; }

    // Menu commands; they act at MenuPoint.
    void HandleInsertPoint();
    void HandleDeletePoint();
    // Asks "Do you really want to delete the link between ..." and, unless answered No,
    // posts the delete-link notification to the work area.
    void HandleDeleteLink();
    void HandleLinkProperties();
    // The Delete key's way out: the same question as the menu's.
    void Remove();

    // Draws a polyline with the end markers of kind; points in the painter's coordinates.
    static void DrawLink(QPainter& painter, const std::vector<QPoint>& points, TVdJoinKind kind,
                         bool selected, const QColor& color);

private:
    // The user point within PointGrip of a content point, or -1.
    int UserPointAt(const QPoint& contentPoint) const;
    void RepaintRegion(const QRegion& region) const;

    TVdJoin* FJoin;
    TVdListItem* FRow1;
    TVdListItem* FRow2;
    QRect FBounds;
    std::vector<QPoint> FPoints;
    QPoint FMenuPoint;
    int FDragPoint = -1;
    bool FRubberShown = false;
    std::uint64_t FSerial;
};

} // namespace vd
