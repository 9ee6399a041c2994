#pragma once

// The scrolling diagram: owns the table objects, the joins and the links, turns mouse,
// keyboard, timer and paint events into calls on them, links fields by dragging one row onto
// another, and reports every change to the builder through its events.
//
// Coordinates: objects live in content coordinates of a fixed 5000 x 5000 extent; events and
// painting use the viewport's window coordinates (content minus ScrollOffset()).
//
// Painting follows the scroll-area contract: an object that changes invalidates only its own
// pixels (a table its bounds, a link its clip region) and paintEvent paints only the objects
// the dirty region touches: the links first, then the tables back to front, so that links
// pass behind every box.

#include "builder/VdDataSet.h"
#include "builder/VdTypes.h"
#include "diagram/VdFloatObject.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QPoint>
#include <QPointer>
#include <QRegion>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QDragMoveEvent;
class QDropEvent;
class QLabel;
class QLineEdit;
class QMenu;
class QMimeData;
class QScrollBar;

namespace vd {

class TCustomVandor;
class TfmLinkProp;
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
    // Hint delay and life, row auto-scroll period while dragging a field (milliseconds).
    static constexpr int HintDelay = 500;
    static constexpr int HintLife = 2000;
    static constexpr int RowScrollPeriod = 200;
    static constexpr int HintMaxWidth = 200;
    // The bands of a target table that scroll its rows while a field is dragged over them.
    static constexpr int RowScrollTopBand = 25;
    static constexpr int RowScrollBottomBand = 5;
    // The MIME type of a field drag; its data is the work area's address, so that a drop
    // built without a live drag source is still known as ours. text/plain carries
    // "alias.field".
    static const char* const FieldMimeType;
    // The hits that move or resize a table.
    static constexpr TSetOfTableHits MoveHits{htTLeft,     htTTop,         htTRight,
                                              htTBottom,   htTLeftTop,     htTLeftBottom,
                                              htTRightTop, htTRightBottom, htTCaption};

    // Raises EVdError "Given parent is not valid for WorkArea!" unless owner is a builder.
    explicit TVdWorkArea(QWidget* owner);
    ~TVdWorkArea() override;

    TCustomVandor* Vandor() const { return FVandor; }

    // The font the tables are drawn with. Setting it resizes every table's caption and rows so
    // that each keeps showing as many rows as before.
    QFont GetFont() const { return font(); }
    void SetFont(const QFont& value) { setFont(value); }
    void HandleSetFont();

    // A new table object named tableName, with an alias numbered after the name when the
    // name is taken; null when the host refuses it.
    TVdTable* AddPanel(const QString& tableName, TDataSet* dataSet);
    TVdTable* AddProc(const QString& name, TDataSet* dataSet, TParams* params);
    // A link between targetRow (of table1) and sourceRow (of table2); null when the host
    // refuses it or an object is not a table.
    TVdLink* AddLink(TVdFloatObject* table1, TVdFloatObject* table2, TVdListItem* targetRow,
                     TVdListItem* sourceRow);
    void RemoveLink(TVdLink* link, int index, bool notify);
    // Fires OnSelectionLink.
    void SelectLink(TVdListItem* firstRow, TVdListItem* secondRow, bool state);
    // Removes all links, joins and tables, without asking anyone.
    void ClearContents();
    void ClearSelection();
    // Moves the object to index 0 and repaints it.
    void TableToFront(TVdFloatObject* object);
    // Scrolls so that the table shows.
    void ShowPanel(TVdTable* table);

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
    // The link between these rows, matched in the join's order.
    TVdLink* FindLink(TVdTable* table1, TVdTable* table2, TVdListItem* firstRow,
                      TVdListItem* secondRow) const;
    TVdFloatObject* Selected() const { return FSelected; }
    // Deselects the previous object and selects this one (a table comes to the front).
    void SetSelected(TVdFloatObject* object);
    TVdFloatObject* HitObject() const { return FHitObject; }
    TTableHitTest HitKind() const { return FHitKind; }

    // Reports from the objects.
    void HandleCheckItem(TVdTable* table, TVdListItem* row);
    void DoEnterParameter(TVdTable* table, TVdListItem* row);
    // Asks the host, then removes the table with its links.
    void CMCloseTable(TVdTable* table);
    // Removes every link of the table.
    void CMUnlinkTable(TVdTable* table);
    // Asks the host, then removes the link.
    void CMDeleteLink(TVdLink* link);
    // A table changed its size, collapsed or scrolled its rows: the same for its links.
    void CMResizeControl(TVdTable* table);
    // The same notifications, posted: they run after the handler that sends them returned,
    // so an object is never freed inside its own menu or mouse handler.
    void PostCloseTable(TVdTable* table);
    void PostUnlinkTable(TVdTable* table);
    void PostDeleteLink(TVdLink* link);
    std::uint64_t NextSerial() { return ++FSerial; }

    // The link properties dialog for a link; true when closed with OK.
    bool ShowLinkProperties(TVdLink* link);

    // Alias editing over a table's caption: Escape hides without committing, Enter or
    // leaving the edit commits.
    void EditAlias(TVdTable* table);
    // Commits the alias edit's text to the table being renamed. Raises "Table with alias X
    // already exist" when another table has it; a text equal to the table name clears the
    // alias; "." is dropped.
    void HandleEditNameKillFocus();
    void CommitAlias(TVdTable* table, const QString& text);

    // The field drag (StartFieldDrag below runs it for the selected table's current row).
    // HandleDragOver decides whether a drop at a window point would link (source: the drag's
    // source object); HandleDragEnd links when the drag ended over a compatible row.
    bool HandleDragOver(QObject* source, const QPoint& point, bool moving);
    void HandleDragEnd(bool dropped);
    // Whether a field of type source may be linked to one of type target.
    static bool CompatibleTypes(TFieldType source, TFieldType target);
    TVdListItem* DragTarget() const { return FDragTarget; }
    TVdTable* DropTable() const { return FDropTable; }
    // The drag picture: "alias.field" in bold on a filled box, cached per text.
    QPixmap DragPicture(const QString& text) const;

    // Row auto-scroll while dragging a field over a table's top or bottom band: timer 1
    // scrolls up, 2 down; each tick scrolls one row and the next drag move re-arms it.
    bool RowScrollActive(int id) const;
    void HandleRowScrollTimer(int id);

    // Hints: HandleHintTimer shows the hit object's hint, HandleHintLifeTimer hides it.
    bool HintTimerActive() const { return FHintTimer.isActive(); }
    bool HintLifeTimerActive() const { return FHintLifeTimer.isActive(); }
    void HandleHintTimer();
    void HandleHintLifeTimer();
    QLabel* HintWindow() const { return FHintWindow; }
    void HideHint();

    // The right-click menu at a window point; false when nothing is under it or the object
    // has no menu there. The menu is filled and popped up without waiting.
    bool PopupAt(const QPoint& point, const QPoint& globalPoint);
    QMenu* PopupMenuWidget() const { return FMenu; }
    // Tab, Delete and the keys the selected object handles.
    void KeyDown(QKeyEvent* event);

    // Content coordinates of the viewport's top-left corner.
    QPoint ScrollOffset() const;
    // Repaints a content rectangle or region.
    void InvalidateContent(const QRect& rect);
    void InvalidateRegion(const QRegion& contentRegion);
    // The colour links are drawn in.
    QColor LinkColor() const;
    // Paints the given window region of the diagram, as paintEvent does.
    void PaintRegion(QPainter& painter, const QRegion& region);

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
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void PostTableCommand(TVdTable* table, void (TVdWorkArea::*command)(TVdTable*));
    template <class Table, class... Args> TVdTable* AddObject(const QString& name, Args&&... args);
    QString UniqueAlias(const QString& name, bool& numbered) const;
    void PlaceNewTable(TVdTable& table) const;
    void AddJoinDef(TVdLink& link);
    void DeleteJoinDef(TVdLink& link);
    void DropJoin(TVdJoin* join);
    void UpdateScrollRanges();
    TVdFloatObject* ObjectAt(const QPoint& point, TTableHitTest& hit) const;
    void InvalidateObject(TVdFloatObject* object);
    void SetupCursor(TTableHitTest hit);
    void MouseDownAt(QMouseEvent* event);
    void MouseMoveFree(QMouseEvent* event);
    void MouseMoveHeld(QMouseEvent* event);
    void MoveSelectedTable(const QPoint& mouse);
    void ResizeSelectedTable(const QPoint& mouse);
    void AutoScroll(const QPoint& mouse);
    void RerouteLinks(TVdTable* table, bool moved);
    void SetDropHighlight(TVdListItem* row);
    void StopRowScroll();
    // Drags that are not field drags of this area go to the builder.
    bool IsFieldDrag(QObject* source, const QMimeData* data) const;
    bool PassDragOver(QDragMoveEvent* event);
    bool PassDrop(QDropEvent* event);
    void PaintRubberBand(QPainter& painter);

    TCustomVandor* FVandor;
    std::vector<std::unique_ptr<TVdJoin>> FJoins;
    std::vector<std::unique_ptr<TVdLink>> FLinks;
    std::vector<std::unique_ptr<TVdTable>> FTables;
    TVdFloatObject* FHitObject = nullptr;
    TTableHitTest FHitKind = htTOutSide;
    TVdFloatObject* FSelected = nullptr;
    TVdListItem* FDragTarget = nullptr;
    TVdTable* FDropTable = nullptr;
    QPoint FGrabPoint;
    QPoint FLastMouse{-1, -1};
    QPoint FHintPoint;
    QPoint FAutoScrollPoint;
    // The hit of the last press, while the left button is down.
    TTableHitTest FPressHit = htTOutSide;
    QBasicTimer FHintTimer;
    QBasicTimer FHintLifeTimer;
    QBasicTimer FRowUpTimer;
    QBasicTimer FRowDownTimer;
    QLabel* FHintWindow = nullptr;
    TVdTable* FAliasTable = nullptr;
    QMenu* FMenu = nullptr;
    std::uint64_t FSerial = 0;
    // Closed tables wait here until the event loop comes back: a table may be closed from
    // inside its own mouse handler.
    std::vector<std::unique_ptr<TVdTable>> FClosed;

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
