#pragma once

// The criteria editor: WHERE (or HAVING) criteria as a tree of rows that read as sentences,
// "All of following are met" / "1. C.NAME LIKE 'A%'". Every underlined word opens a menu or
// an in-place editor, and every change is written into the model's criteria at once
// (criteriaChanged follows each one).
//
// Actions called by a host (AddCondition, DeleteCondition, ...) raise EVdError on refusal;
// the same actions reached through menus, mouse or keys show the refusal as an error message.

#include "builder/VdTypes.h"

#include <QAbstractScrollArea>
#include <QPlainTextEdit>
#include <QTreeWidget>

#include <memory>

class QMenu;
class QAction;
class QPainter;

namespace vd {

class TVdControl;
class TVdCriterion;
class TVdCriterionRow;
class TVdCriterionRows;
class TVdCriterions;
class TVdOperators;
class TVdSelectParser;
class TVdWordList;
class TCustomVandor;
class TVdPalette;

// The in-place editor: a borderless one-line memo.
class TMemoEx : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TMemoEx(QWidget* parent);

signals:
    void commitRequested();
    void cancelRequested();
    void insertFieldRequested();
    void focusLeft();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

// The field list: tables and their fields, sorted by text.
class TTreeViewEx : public QTreeWidget
{
    Q_OBJECT

public:
    explicit TTreeViewEx(QWidget* parent);

signals:
    void chosen();

protected:
    void keyReleaseEvent(QKeyEvent* event) override;
};

class TVdCriterionPanel : public QAbstractScrollArea
{
    Q_OBJECT

public:
    // parent must be a widget: raises EVdError "Invalid parent for conditions panel".
    explicit TVdCriterionPanel(QWidget* parent);
    ~TVdCriterionPanel() override;

    TVdSelectParser* Parser() const { return FParser; }
    void SetParser(TVdSelectParser* parser);
    bool UsesAggregates() const { return FUsesAggregates; }
    TVdOperators* GetOperators() const;
    // Null without a parser.
    const TVdWordList* GetAggregates() const;
    // Aggregate elements take room: the having editor with a non-empty aggregate list.
    bool ShowsAggregates() const;
    int RowHeight() const { return FRowHeight; }
    void SetRowHeight(int value);
    int Indent() const { return FIndent; }
    TVdCriterionRows& Rows() const { return *FRows; }
    TVdCriterionRow* RootRow() const;
    // The criteria the root row stands for: the parser's WHERE or HAVING list.
    TVdCriterions* RootCriterions() const;

    void Activate();
    void Clear();
    // Fills the rows from the model.
    virtual void RefreshRows() = 0;
    // The builder is about to replace its operators, and has replaced them.
    void PrepareToReloadOperators();
    void ReloadOperators();
    // A table's alias changed: fields qualified by the old alias take the new one.
    void ChangeAlias(const QString& newAlias, const QString& oldAlias);
    // While the field list is open, a page change only closes it.
    void HideFieldList(QObject* sender, bool& allow);
    QPoint GetFullExtention(bool all) const;
    void UpdateScrollRanges();

    // The element under the pointer or last chosen by keyboard; the target of menu actions.
    TVdControl* ActiveElement() const { return FActiveElement; }
    void SetActiveElement(TVdControl* element);
    TVdControl* FocusElement() const { return FFocusElement; }
    // Makes the element the focus and active element and scrolls it into view.
    void SetFocusElement(TVdControl* element);

    // Menu actions (raise on refusal).
    void InsertField();
    void AddCondition();
    void MakeCompositCondition();
    void DeleteCondition();
    void ExpandCollapse();
    void SelectGroupFuncs(QAction* item);
    void SelectAgrFuncs(QAction* item);
    void SelectOperator(QAction* item);
    void HandlePopupOpersMenu();

    // Clicks; top is the row's top in viewport coordinates.
    void ButtonClick(TVdControl* element, int top);
    void TextClick(TVdControl* element, int top);
    // Hit tests in viewport coordinates.
    TVdCriterionRow* LookRows(int y, int* top = nullptr) const;
    TVdControl* LookControl(TVdCriterionRow* row, int x) const;

    // The in-place editor and the field list.
    TMemoEx* Editor() const { return FEditor; }
    TTreeViewEx* FieldList() const { return FFieldList; }
    TVdControl* EditElement() const { return FEditElement; }
    void SetFieldText();
    void SetBoundText();
    void SetFieldFromList();
    void HideFieldList();
    void CancelEdit();

    // Drops of fields from the diagram: source is the drag's source.
    void HandleDragOver(QObject* source, const QPoint& pos, bool& accept);
    void HandleDragDrop(QObject* source, const QPoint& pos);
    TVdControl* DropElement() const { return FDropElement; }

    QMenu* RowMenu() const { return FRowMenu; }
    QMenu* GroupMenu() const { return FGroupMenu; }
    QMenu* AggregateMenu() const { return FAggregateMenu; }
    QMenu* OperatorMenu() const { return FOperatorMenu; }
    QMenu* FieldMenu() const { return FFieldMenu; }
    QAction* AddConditionAction() const { return FAddAction; }
    QAction* ComposeAction() const { return FComposeAction; }
    QAction* DeleteAction() const { return FDeleteAction; }
    QAction* ExpandAction() const { return FExpandAction; }
    // Sets the row menu's items for a row, as opening it does.
    void PrepareRowMenu(TVdCriterionRow* row);

    // Drawing, in viewport coordinates.
    void DrawRow(TVdCriterionRow* row, int top, QPainter& dc);
    void DrawButton(TVdCriterionRow* row, int top, QPainter& dc, TVdButtonStyle style);
    void DrawGroupCondition(const QString& text, int left, int top, QPainter& dc);
    void DrawActiveElement(QPainter& dc, const QRect& rect, TVdControl* element);

    // Text measuring for the rows: bold and underlined, or normal.
    int TextWidth(const QString& text, bool bold) const;
    // " of following are met".
    QString GroupPhrase() const;

    // The rows as text, one line per condition below the root ("1.1. A = 1").
    QString Text() const;
    // The row that mirrors a criterion, or null.
    TVdCriterionRow* FindRow(const TVdCriterion* criterion) const;
    // Checks a row's arguments against its field's type; sets Valid and InvalidReason.
    void ValidateRow(TVdCriterionRow* row) const;

signals:
    // After every write into the model.
    void criteriaChanged();

protected:
    void SetUsesAggregates(bool value) { FUsesAggregates = value; }
    // Fills the rows from a criteria list.
    void FillRows(TVdCriterions& list);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void CreateMenus();
    void FillGroupMenu();
    void FillAggregateMenu();
    TCustomVandor* Builder() const;
    TVdButtonStyle BuilderButtonStyle() const;
    bool RowSelect() const;
    void Changed();
    void OpenMenu(QMenu* menu, TVdControl* element, int top);
    void OpenEditor(TVdControl* element, int top);
    void FillFieldList();
    void FillFrom(TVdCriterionRow* parent, TVdCriterions& list);
    void FillCondition(TVdCriterionRow* row, TVdCriterion* criterion);
    // Writes an argument text into the criterion at the element's place.
    QString QualifiedName(const QString& alias, const QString& field) const;
    void WriteArgument(TVdCriterionRow* row, int index, const QString& text);
    void ApplyText(TVdControl* element, const QString& text);
    TVdControl* RequireActive() const;
    void KeyDown(int key, Qt::KeyboardModifiers modifiers);
    TVdControl* MoveTarget(TVdControl* from, int key) const;
    void InvalidateElement(TVdControl* element, bool wholeRow);
    void ScrollIntoView(TVdControl* element);
    QRect ElementRect(TVdControl* element) const;
    TVdControl* ElementAt(const QPoint& pos, int* top = nullptr) const;
    void Guarded(const std::function<void()>& action);
    int Baseline(int top) const;
    QFont ItemFont() const;
    // The builder's palette, or the default colours outside a builder.
    const TVdPalette& Colors() const;

    std::unique_ptr<TVdCriterionRows> FRows;
    int FRowHeight = 20;
    int FIndent = 15;
    QMenu* FRowMenu = nullptr;
    QAction* FAddAction = nullptr;
    QAction* FComposeAction = nullptr;
    QAction* FDeleteAction = nullptr;
    QAction* FExpandAction = nullptr;
    QMenu* FGroupMenu = nullptr;
    QMenu* FAggregateMenu = nullptr;
    QMenu* FOperatorMenu = nullptr;
    QMenu* FFieldMenu = nullptr;
    TTreeViewEx* FFieldList = nullptr;
    TMemoEx* FEditor = nullptr;
    TVdControl* FActiveElement = nullptr;
    TVdControl* FFocusElement = nullptr;
    TVdControl* FEditElement = nullptr;
    QString FEditOpenedWith; // the editor's text when it opened
    TVdControl* FDropElement = nullptr;
    // The row whose button the pointer is over or pressing, and how it is drawn.
    TVdCriterionRow* FHotButton = nullptr;
    TVdButtonStyle FHotStyle = vdsFlat;
    bool FPressed = false;
    TVdSelectParser* FParser = nullptr;
    bool FUsesAggregates = false;
    bool FReloading = false;
};

} // namespace vd
