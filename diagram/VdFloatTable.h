#pragma once

// A table object of the diagram: caption with the alias, three buttons, a box that ticks all
// fields, and the field rows with their check boxes.

#include "builder/VdColor.h"
#include "builder/VdDataSet.h"
#include "diagram/VdFloatObject.h"

#include <QRect>
#include <QString>
#include <QVariant>

#include <initializer_list>
#include <memory>
#include <vector>

class QFont;
class QLineEdit;

namespace vd {

class TVdTable;

// Field types grouped for type names and for the compatibility of linked fields.
bool IsFloatType(TFieldType type);    // sFloat
bool IsNumericType(TFieldType type);  // sNumeric
bool IsStringType(TFieldType type);   // sString
bool IsDateTimeType(TFieldType type); // sDateTime

// Ends the find-as-you-type search of the edit's table on Enter, Escape and the row keys.
void InstallFindEditKeys(QLineEdit* edit, TVdWorkArea* workArea);

enum TVdItemStateFlag : std::uint8_t { isSelected, isFocused, isDroped };
using TVdItemState = TVdSet<TVdItemStateFlag>;

// One row of a table object: a field (parameter type ptOutput) or a stored procedure's input
// parameter (ptInput).
class TVdListItem
{
public:
    TVdListItem(TVdTable* table, const QString& name, TFieldType dataType, TParamType paramType);

    TVdTable* Table() const { return FTable; }
    const QString& Name() const { return FName; }
    TFieldType DataType() const { return FDataType; }
    TParamType ParamType() const { return FParamType; }
    bool Checked() const { return FChecked; }
    bool IsSelected() const { return FSelected; }
    bool Entering() const { return FEntering; }
    const QString& FieldName() const { return FFieldName; }
    void SetFieldName(const QString& name) { FFieldName = name; }
    // A procedure parameter's value as entered; null marks an explicit NULL.
    bool IsNull() const { return FIsNull; }
    void SetIsNull(bool value) { FIsNull = value; }
    const QVariant& Value() const { return FValue; }
    void SetValue(const QVariant& value) { FValue = value; }
    // While set, SetCheck neither asks the host nor reports the change.
    bool Loading() const { return FLoading; }
    void SetLoading(bool value) { FLoading = value; }

    int GetIndex() const;
    QRect GetBoundsRect() const;
    QString GetDataName() const;
    void SetSelect(bool value);
    // Ticks or unticks the row and reports it: a table field to the builder's check handler,
    // a procedure parameter by asking the host for its value.
    void SetCheck(bool flag);
    // Ticks or unticks without any event, and updates the table's tick-all box.
    void UpdateCheck(bool flag);

private:
    TVdTable* FTable;
    QString FName;
    TFieldType FDataType;
    TParamType FParamType;
    bool FChecked = false;
    bool FSelected = false;
    bool FActive = true;
    bool FEntering = false;
    QString FFieldName;
    bool FIsNull = false;
    QVariant FValue;
    bool FLoading = false;
};

class TVdTable : public TVdFloatObject
{
public:
    static constexpr int ButtonsWidth = 40;
    static constexpr int BorderWidth = 2;
    static constexpr int Margin = 2;
    static constexpr int ScrollBarWidth = 16;
    static constexpr int MaxInitialRows = 6;
    // Side of the button glyphs and of the tick-all image.
    static constexpr int GlyphSize = 12;

    // Raises EVdError "Invalid parent for table object!" without a work area.
    TVdTable(TVdWorkArea* workArea, TDataSet* dataSet, const QString& tableName);
    ~TVdTable() override;

    const QString& TableName() const { return FTableName; }
    const QString& Alias() const { return FAlias; }
    // Sets the alias and widens the object so that its caption (name and alias) shows whole.
    void SetAlias(const QString& alias);
    void FitCaption();
    // The name, with " (alias)" when an alias is set.
    QString GetCaption() const;
    // The alias when one is set, else the name.
    QString GetAlias() const;
    // Set once Close has begun: the table is on its way out.
    bool Closing() const { return FClosing; }
    void SetClosing(bool value) { FClosing = value; }

    int Count() const { return int(FItems.size()); }
    TVdListItem* Items(int index) const { return FItems.at(size_t(index)).get(); }
    int IndexOf(const TVdListItem* item) const;
    // The first row of that name (exact), or null.
    TVdListItem* FindItem(const QString& name) const;
    TVdListItem* CurrentItem() const { return FCurrentItem; }
    void SetCurrentItem(TVdListItem* item) { FCurrentItem = item; }

    // 0 no field ticked, 1 some, 2 all.
    int FieldState() const { return FFieldState; }
    // Ticks (2) or unticks every field row and records the state.
    void SetFieldState(int state);
    // Records the state only.
    void UpdateFieldState(int state);
    bool Expanded() const { return FExpanded; }
    void SetExpand(bool value);

    int Left() const { return FLeft; }
    int Top() const { return FTop; }
    int Width() const { return FWidth; }
    int Height() const { return FHeight; }
    void SetLeft(int value);
    void SetTop(int value);
    // Never narrower than CaptionHeight + ButtonsWidth + 20.
    void SetWidth(int value);
    // Never lower than 2 * ItemHeight + CaptionHeight + 4; recomputes the rows shown.
    void SetHeight(int value);
    // Move the left or top edge, keeping the right or bottom edge where it is.
    void MoveLeft(int value);
    void MoveUpper(int value);
    // Moves the box to (left, top) and tells the work area (its links follow).
    void MoveTable(int left, int top);
    int MinWidth() const { return FCaptionHeight + ButtonsWidth + 20; }
    int MinHeight() const { return 2 * FItemHeight + FCaptionHeight + 4; }
    int CaptionHeight() const { return FCaptionHeight; }
    int ItemHeight() const { return FItemHeight; }
    void SetCaptionHeight(int value);
    void SetItemHeight(int value);
    int FirstVisibleItem() const { return FFirstVisibleItem; }
    void SetFirstVisibleItem(int value);
    int VisibleItems() const { return FVisibleItems; }
    int PressedButton() const { return FPressedButton; }
    int HotButton() const { return FHotButton; }

    // Content coordinates.
    QRect GetBoundsRect() const;
    QRect GetCaptionRect() const;
    QRect GetButtonRect() const;
    QRect GetClientRect() const;
    QRect GetItemRect(const TVdListItem* item) const;
    // Where a link attaches: rows scrolled out of view attach to the caption or the bottom.
    QRect GetFullItemRect(const TVdListItem* item) const;
    // The 12 x 12 square that a click ticks or clears all fields in.
    QRect GetCheckRect() const;
    // The caption text's extent in the bold font, 2 pixels wider than the text.
    QRect CaptionRect(bool rightAligned) const;
    // The visible row at a window point, or null.
    TVdListItem* GetItemAt(int x, int y) const;
    // The button (0 collapse/expand, 1 unlink, 2 close) at a window point in the button area.
    int GetButtonAt(const QPoint& windowPoint) const;

    // The style's edge of the box, its flat flags, and the hide-selection option.
    int GetTableBorder() const;
    bool GetFlat() const;
    bool GetbtnFlat() const;
    bool GetHideSelection() const;
    virtual TColor GetClientColor() const;

    QString GetHint() const override { return FHint; }
    void SetSelect(bool value) override;
    void Paint(QPainter& painter) override;
    TTableHitTest HitTest(const QPoint& point) const override;
    void MouseDown(QMouseEvent* event, TTableHitTest hit) override;
    void MouseMove(QMouseEvent* event, TTableHitTest hit) override;
    void MouseUp(QMouseEvent* event, TTableHitTest hit) override;
    void KeyDown(int& key, Qt::KeyboardModifiers shift) override;
    void LeaveHit(QMouseEvent* event, TTableHitTest hit) override;
    void PopupMenu(QMenu* menu, int x, int y, TTableHitTest hit) override;
    virtual void DblClick(QMouseEvent* event, TTableHitTest hit);

    // Shows the shared row scroll bar along the client area when this table is selected and
    // has more rows than it shows; returns whether the bar is needed.
    bool UpdateScrollBar();
    // The row scroll bar is shown inside this box (rows are narrowed by its width).
    bool ScrollBarShown() const;
    // The find-as-you-type edit bound to this table changed or got a key (0 for a change).
    void HandleFindField(QLineEdit* edit, int key, Qt::KeyboardModifiers shift);
    // Selects the table and puts the work area's alias edit over the caption.
    void HandleRenameTable();
    // The menu's "Delete table": closes the table (the host may refuse).
    void HandleRemoveTable();

    // Draws one row into rect (window coordinates); the state tells how it is marked.
    void DrawItem(QPainter& painter, const TVdListItem* item, const QRect& rect,
                  bool fillWithTableBrush, TVdItemState state) const;
    // Draws button index (0..2) in state 0 pressed, 1 normal, 2 hot into the button area rect.
    void DrawButton(QPainter& painter, int state, int index, const QRect& rect) const;

    // Rebuilds the rows from the data set's fields.
    void AssignItems(TDataSet* dataSet);
    // Asks the work area to close this table (the host may refuse).
    void Close();
    // Asks the work area to remove every link of this table.
    void Unlink();

protected:
    QPoint EventOrigin() const override;
    void AppendItem(std::unique_ptr<TVdListItem> item);
    void SetVisibleItems(int value) { FVisibleItems = value; }
    // Height from the rows shown and the fixed parts.
    void UpdateHeight();
    void PaintRows(QPainter& painter, const QRect& client);
    void PaintEdges(QPainter& painter, const QRect& bounds) const;
    void PaintCaption(QPainter& painter, const QRect& bounds) const;

private:
    friend class TVdListItem;
    void Changed();
    void InvalidateRow(const TVdListItem* item);
    void InvalidateButtons();
    // Old and new bounds are repainted and the work area routes the links again.
    void Resized(const QRect& oldBounds);
    // Stores the height and recounts the rows it shows, keeping the last rows in view.
    void ApplyHeight(int value);
    void MoveCurrent(int index);
    void ScrollIntoView(int index);
    void ToggleCurrent();
    void StartFind(int key);
    int ButtonState(int index) const;

    QString FTableName;
    QString FAlias;
    QString FHint;
    int FFieldState = 0;
    int FPressedButton = -1;
    int FHotButton = -1;
    bool FPressedOver = false;
    bool FExpanded = true;
    int FCaptionHeight = 20;
    TVdListItem* FCurrentItem = nullptr;
    int FLeft = 0;
    int FTop = 0;
    int FWidth = 100;
    int FHeight = 0;
    int FItemHeight = 16;
    int FFirstVisibleItem = 0;
    int FVisibleItems = 0;
    std::vector<std::unique_ptr<TVdListItem>> FItems;
    bool FClosing = false;
};

} // namespace vd
