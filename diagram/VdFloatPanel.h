#pragma once

// The scrolling diagram: owns the table objects, the joins and the links, and reports every
// change to the builder through its events.
//
// What is here: adding tables and procedures (with the host's consent), numbered aliases,
// placement, links and their joins written into the model, closing and unlinking, clearing,
// selection, moving a table by its caption, and a plain painting. What waits for the diagram
// work: the owner-drawn look, dragging fields and tables in from the host, drawing links by
// dragging between rows, link points and the link properties dialog, alias editing over the
// caption, resizing, row scrolling and its auto-scroll timer, hints, and the pop-up menus.

#include "builder/VdDataSet.h"
#include "builder/VdTypes.h"

#include <QAbstractScrollArea>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QLineEdit;
class QScrollBar;

namespace vd {

class TCustomVandor;
class TfmLinkProp;
class TVdFloatObject;
class TVdJoin;
class TVdLink;
class TVdListItem;
class TVdTable;

using TVdAddEvent = std::function<void(QObject* sender, TVdFloatObject* item)>;
using TVdRemoveEvent = std::function<void(QObject* sender, TVdFloatObject* item)>;
using TVdCheckItemEvent = std::function<void(TVdTable* table, TVdListItem* row)>;
using TVdChangeStringEvent = std::function<void(TVdTable* table, const QString& oldAlias)>;
using TVdSelectionLinkEvent =
    std::function<void(QObject* sender, TVdTable* table1, TVdTable* table2, TVdListItem* row1,
                       TVdListItem* row2, bool state)>;

class TVdWorkArea : public QAbstractScrollArea
{
    Q_OBJECT

public:
    // The fixed scrollable extent in both directions.
    static constexpr int Extent = 5000;

    // Raises EVdError "Given parent is not valid for WorkArea!" unless owner is a builder.
    explicit TVdWorkArea(QWidget* owner);
    ~TVdWorkArea() override;

    TCustomVandor* Vandor() const { return FVandor; }

    // A new table object named tableName, with an alias numbered after the name when the
    // name is taken; null when the host refuses it.
    TVdTable* AddPanel(const QString& tableName, TDataSet* dataSet);
    TVdTable* AddProc(const QString& name, TDataSet* dataSet, TParams* params);
    // A link between two rows; null when the host refuses it or an object is not a table.
    TVdLink* AddLink(TVdFloatObject* table1, TVdFloatObject* table2, TVdListItem* targetRow,
                     TVdListItem* sourceRow);
    void RemoveLink(TVdLink* link, int index, bool notify);
    // Removes all links, joins and tables, without asking anyone.
    void ClearContents();
    void ClearSelection();
    void TableToFront(TVdFloatObject* object);

    int TablesCount() const { return int(FTables.size()); }
    // Index 0 is the front-most table.
    TVdTable* Tables(int index) const { return FTables.at(size_t(index)).get(); }
    // The first table whose alias (or name, when it has none) is name.
    TVdTable* GetTable(const QString& name) const;
    int LinksCount() const { return int(FLinks.size()); }
    TVdLink* Links(int index) const { return FLinks.at(size_t(index)).get(); }
    int JoinsCount() const { return int(FJoins.size()); }
    TVdJoin* Joins(int index) const { return FJoins.at(size_t(index)).get(); }
    // The join of two tables in either order; reversed tells it was found the other way.
    TVdJoin* FindJoin(TVdTable* table1, TVdTable* table2, bool& reversed) const;
    TVdLink* FindLink(TVdTable* table1, TVdTable* table2, TVdListItem* firstRow,
                      TVdListItem* secondRow) const;
    TVdFloatObject* Selected() const { return FSelected; }
    void SetSelected(TVdFloatObject* object);

    // Reports from the objects.
    void HandleCheckItem(TVdTable* table, TVdListItem* row);
    void DoEnterParameter(TVdTable* table, TVdListItem* row);
    // The close-table command: asks the host, then removes the table with its links.
    void CMCloseTable(TVdTable* table);
    // Removes every link of the table.
    void CMUnlinkTable(TVdTable* table);
    // Asks the host, then removes the link.
    void CMDeleteLink(TVdLink* link);
    // A table moved or changed its size: its links are routed again.
    void CMResizeControl(TVdTable* table);

    // Content coordinates of the viewport's top-left corner.
    QPoint ScrollOffset() const;
    // Repaints a content rectangle.
    void InvalidateContent(const QRect& rect);

    // Facilities the table objects use
    // The link properties dialog, made on first use.
    TfmLinkProp* LinkPropDialog();
    // The one vertical scroll bar that the selected table shows its rows with; made on first
    // use, hidden until a table needs it.
    QScrollBar* RowScrollBar();
    TVdTable* RowScrollTable() const { return FRowScrollTable; }
    void SetRowScrollTable(TVdTable* table) { FRowScrollTable = table; }
    // The find-as-you-type edit and the table it searches.
    QLineEdit* FindEdit();
    TVdTable* FindTable() const { return FFindTable; }
    void SetFindTable(TVdTable* table) { FFindTable = table; }
    // The edit that renames a table over its caption.
    QLineEdit* AliasEdit();
    // A field row of table is being dragged out: the drag that draws a link begins.
    void StartFieldDrag(TVdTable* table);
    TVdTable* FieldDragTable() const { return FFieldDragTable; }
    // A table moved: its links are routed again.
    void CMMoveControl(TVdTable* table);
    // The row drawn as the target of a field drop.
    TVdListItem* DropHighlightRow() const { return FDropHighlightRow; }
    void SetDropHighlightRow(TVdListItem* row) { FDropHighlightRow = row; }
    bool HasTable(const TVdTable* table) const;

    TVdAddEvent OnAddLink;
    TVdRemoveEvent OnRemoveLink;
    TVdSelectionLinkEvent OnSelectionLink;
    TVdCheckItemEvent OnCheckItem;
    TVdAddEvent OnAddTable;
    TVdRemoveEvent OnRemoveTable;
    TVdChangeStringEvent OnChangeAlias;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    template <class Table, class... Args> TVdTable* AddObject(const QString& name, Args&&... args);
    QString UniqueAlias(const QString& name, bool& numbered) const;
    void PlaceTable(TVdTable& table) const;
    void AddJoinDef(TVdLink& link);
    void DeleteJoinDef(TVdLink& link);
    void UpdateScrollRanges();
    TVdFloatObject* ObjectAt(const QPoint& point, int& hit) const;
    void MouseDownAt(QMouseEvent* event);

    TCustomVandor* FVandor;
    std::vector<std::unique_ptr<TVdJoin>> FJoins;
    std::vector<std::unique_ptr<TVdLink>> FLinks;
    std::vector<std::unique_ptr<TVdTable>> FTables;
    TVdFloatObject* FHitObject = nullptr;
    TVdFloatObject* FSelected = nullptr;
    QPoint FGrabPoint;
    bool FMoving = false;

    // Facilities the table objects use
    TfmLinkProp* FLinkPropDialog = nullptr;
    QScrollBar* FRowScrollBar = nullptr;
    TVdTable* FRowScrollTable = nullptr;
    QLineEdit* FFindEdit = nullptr;
    TVdTable* FFindTable = nullptr;
    QLineEdit* FAliasEdit = nullptr;
    TVdTable* FFieldDragTable = nullptr;
    TVdListItem* FDropHighlightRow = nullptr;
};

} // namespace vd
