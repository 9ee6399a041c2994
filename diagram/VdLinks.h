#pragma once

// The lines between field rows of two tables. All links between the same two tables share
// one TVdJoin, which carries the join kind.

#include "core/VdJoinDef.h"
#include "diagram/VdFloatObject.h"

#include <QPoint>
#include <QRect>

#include <vector>

namespace vd {

class TVdListItem;
class TVdTable;

class TVdJoin
{
public:
    TVdJoin(TVdWorkArea* workArea, TVdTable* table1, TVdTable* table2);
    virtual ~TVdJoin() = default;

    TVdJoinKind JoinKind = vdjInnerJoin;
    TVdTable* GetTable(int index) const { return FTables[index & 1]; }
    QString GetTableName(int index) const;
    TVdWorkArea* WorkArea() const { return FWorkArea; }

private:
    TVdTable* FTables[2];
    TVdWorkArea* FWorkArea;
};

class TVdLink : public TVdFloatObject
{
public:
    // Row1 is a row of the join's first table, Row2 one of its second.
    TVdLink(TVdWorkArea* workArea, TVdJoin* join, TVdListItem* row1, TVdListItem* row2);

    TVdJoin* Join() const { return FJoin; }
    TVdListItem* Row1() const { return FRow1; }
    TVdListItem* Row2() const { return FRow2; }
    // Index into "=", ">", "<", ">=", "<=", "<>".
    int Condition = 0;
    static QString ConditionText(int condition);

    // Content coordinates.
    QRect GetBounds() const { return FBounds; }
    int GetCountPoints() const { return int(FPoints.size()); }
    // Window coordinates; an index out of range raises "Invalid index = %d ".
    QPoint GetPoint(int index) const;
    void SetPoint(int index, const QPoint& point);
    // Routes both ends from the rows' positions; user points stay where they are.
    void SetBoundaryRect();

    // ORDERS.CUSTNO=CUSTOMER.CUSTNO
    QString GetHint() const override;
    void Paint(QPainter& painter) override;
    TTableHitTest HitTest(const QPoint& point) const override;

private:
    TVdJoin* FJoin;
    TVdListItem* FRow1;
    TVdListItem* FRow2;
    QRect FBounds;
    std::vector<QPoint> FPoints;
};

} // namespace vd
