#pragma once

// The grid of output fields: name of output field, aggregate, source field. It reports edits
// through its four events and never writes the model itself.
//
// Rows are counted as Qt counts them: the header is the horizontal header view, row 0 is the
// first data row, and the last row is always the blank "new" row, which the field lists,
// drags and deletions treat specially. A position above the first row (y < 0 in viewport
// coordinates) is the header row.

#include <QStringList>
#include <QTableWidget>

#include <functional>

class QComboBox;
class QLineEdit;
class QMenu;

namespace vd {

class TVdFieldDef;
class TVdListItem;
class TVdTable;

using TVdSelectEvent = std::function<void(const QString& FieldValue, const QString& AggregateValue,
                                          const QString& AliasValue)>;
using TVdChangeFieldAliasEvent =
    std::function<void(const QString& FieldName, const QString& Alias, QString& NewAlias)>;

class TVdSelectGrid : public QTableWidget
{
    Q_OBJECT

public:
    static constexpr int DefaultRowHeight = 20;

    // Raises EVdError "Invalid parent for SelectGrid" without a parent widget: the in-place
    // editors live on the parent.
    explicit TVdSelectGrid(QWidget* parent);

    // Back to the header and one blank new row.
    void Clear();
    // Fills a row from a field definition of the model, above the blank row; raises nothing.
    void CheckField(const TVdFieldDef& field);
    // Deletes every row that shows the plain field (identifiers only).
    void UnCheckField(const TVdFieldDef& field);
    // Column 2 of every row: "old." becomes "new." where the old alias stands as a whole
    // qualifier (a.x is renamed, ca.x is another table's field and stays).
    void ChangeAlias(const QString& newAlias, const QString& oldAlias);
    // Column 0 of the first data row whose column 2 is the name, else empty.
    QString GetFieldAlias(const QString& sourceFieldName) const;

    const QStringList& Aggregates() const { return FAggregates; }
    void SetAggregates(const QStringList& list) { FAggregates = list; }
    // The choices of the source field column: "alias.field" lines.
    QStringList& Fields() { return FFields; }
    const QStringList& Fields() const { return FFields; }
    void SetFields(const QStringList& list) { FFields = list; }

    // Column 0 of the current row (the row being edited or dropped on).
    void SetCurrentAliasCell(const QString& text);
    QString CellText(int row, int column) const;
    void SetCell(int row, int column, const QString& text);
    // Data rows, without the blank new row.
    int DataRowCount() const { return rowCount() - 1; }
    int LastRow() const { return rowCount() - 1; }

    // In-place editing: the text editor for column 0, the combo for columns 1 and 2.
    void HandleEditText(int column, int row);
    // The open editor closes and its text goes to the cell, reporting the change.
    void HandleSetCellText(QWidget* editor);
    // Escape: the open editor closes and nothing is written.
    void CancelEdit();
    // The editor that is open, else null.
    QWidget* ActiveEditor() const;
    QLineEdit* TextEditor() const { return FTextEditor; }
    QComboBox* ComboEditor() const { return FComboEditor; }

    // Deletes the current row and reports it; raises EVdError "Can't delete last row!" on the
    // blank row.
    void HandleDeleteCurrentRow();
    // Ctrl+Delete: asks first, then deletes unless the answer is No; refusals are shown.
    void AskAndDeleteCurrentRow();
    QMenu* PopupMenu() const { return FPopupMenu; }
    QAction* DeleteRowAction() const { return FDeleteRowAction; }

    // Drags over and drops on the grid; pos in viewport coordinates. A field dragged from the
    // diagram (source: the work area, its selected table with a current item) or a row of this
    // grid are accepted; the header row refuses.
    bool HandleDragOver(QObject* source, const QPoint& pos);
    bool HandleDragDrop(QObject* source, const QPoint& pos);
    TVdListItem* DraggedItem() const { return FDraggedItem; }
    // The row the mouse may start dragging from: a data row that is not the blank row.
    bool CanDragRow(int row) const;

    TVdSelectEvent OnSelectField;
    TVdSelectEvent OnUnselectField;
    TVdSelectEvent OnDeleteField;
    TVdChangeFieldAliasEvent OnChangeAlias;
    // A row was dragged from one place to another (data rows, counted from 0).
    std::function<void(int from, int to)> OnMoveField;

    static constexpr const char* RowMimeType = "application/x-vandor-select-row";

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateEditors();
    void CreatePopupMenu();
    bool EditorKey(QWidget* editor, QKeyEvent* event);
    void ShowEditor(QWidget* editor, const QRect& cell, const QString& text);
    void AppendBlankRowAfterEdit(int row, int column);
    void RaiseSelectEvent(const TVdSelectEvent& event, int row) const;
    // The row and column a drop at pos means: outside any cell is column 2 of the last row;
    // false for the header row.
    bool DropCell(const QPoint& pos, int& row, int& column) const;
    TVdTable* DraggedTable(QObject* source) const;
    void DropField(TVdTable* table, TVdListItem* item, int row, int column);
    void MoveRow(int from, int to);
    void StartRowDrag();
    // Drags over the header view: refused there.
    bool DragEventFilter(QObject* watched, QEvent* event);

    QStringList FAggregates;
    QStringList FFields;
    QComboBox* FComboEditor = nullptr;
    QLineEdit* FTextEditor = nullptr;
    QMenu* FPopupMenu = nullptr;
    QAction* FDeleteRowAction = nullptr;
    TVdListItem* FDraggedItem = nullptr;
    // The cell the open editor writes to.
    int FEditRow = -1;
    int FEditColumn = -1;
    QPoint FPressPos;
    bool FPressed = false;
};

} // namespace vd
