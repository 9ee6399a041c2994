#pragma once

// The rows of the criteria editor. The editor does not draw the model's criteria tree
// itself: it keeps a parallel tree of rows, one per criterion plus a root row for the whole
// clause. A row holds the texts the user sees (aggregate, field, operator, arguments, group
// word), its clickable elements with their measured positions, and the criterion it mirrors,
// so that every edit on a row is written straight into the model.

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace vd {

class TVdCriterion;
class TVdCriterionPanel;
class TVdCriterionRow;
class TVdFunctionDef;
class TVdOperator;

// What an empty text shows: nine blanks, wide enough to be clicked.
QString VdBlankText();

// Element places in a row.
enum TVdRowPlace : int {
    vdpNumber = 0,     // the button and the row number
    vdpAggregate1 = 1, // on a group row: the group word
    vdpField = 2,
    vdpOperator = 3,
    vdpAggregate2 = 4,
    vdpFirstArgument = 5
};

// One clickable text element of a row. A width of 0 hides it.
class TVdControl
{
public:
    TVdControl(TVdCriterionRow* row, int index) : Index(index), FRow(row) {}

    TVdCriterionRow* Row() const { return FRow; }
    const QString& Text() const { return FText; }
    // Empty -> nine blanks; longer than 30 characters -> the first 30 and "..."; line breaks
    // become blanks.
    void SetText(const QString& text);
    int Right() const { return Left + Width; }

    int Left = 0;
    int Index;
    int Width = 0;

private:
    TVdCriterionRow* FRow;
    QString FText;
};

class TVdCriterionRows
{
public:
    TVdCriterionRows(TVdCriterionPanel* panel, TVdCriterionRow* parentRow);
    ~TVdCriterionRows();
    TVdCriterionRows(const TVdCriterionRows&) = delete;
    TVdCriterionRows& operator=(const TVdCriterionRows&) = delete;

    TVdCriterionPanel* Panel() const { return FPanel; }
    TVdCriterionRow* ParentRow() const { return FParentRow; }
    int Count() const { return int(FItems.size()); }
    TVdCriterionRow* Items(int index) const { return FItems.at(size_t(index)).get(); }
    // Assigns the given row into the existing item, unless it is that item.
    void SetItems(int index, const TVdCriterionRow& row);
    TVdCriterionRow* Add();
    TVdCriterionRow* Insert(int index);
    void Delete(int index);
    void Clear();
    int IndexOf(const TVdCriterionRow* row) const;
    void Assign(const TVdCriterionRows& source);
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate() { --FUpdateCount; }

private:
    TVdCriterionPanel* FPanel;
    TVdCriterionRow* FParentRow;
    std::vector<std::unique_ptr<TVdCriterionRow>> FItems;
    int FUpdateCount = 0;
};

class TVdCriterionRow
{
public:
    explicit TVdCriterionRow(TVdCriterionRows* collection);
    ~TVdCriterionRow();
    TVdCriterionRow(const TVdCriterionRow&) = delete;
    TVdCriterionRow& operator=(const TVdCriterionRow&) = delete;

    TVdCriterionRows* Collection() const { return FCollection; }
    TVdCriterionPanel* Panel() const { return FCollection->Panel(); }
    TVdCriterionRow* ParentRow() const { return FCollection->ParentRow(); }
    int Index() const { return FCollection->IndexOf(this); }
    bool IsGroup() const { return !FGroupOperator.isEmpty(); }
    bool IsRoot() const { return !ParentRow(); }

    void Init();
    TVdCriterionRows& Rows() { return *FRows; }
    const TVdCriterionRows& Rows() const { return *FRows; }
    void SetRows(const TVdCriterionRows& rows);
    const QString& Field() const { return FField; }
    void SetField(const QString& text);
    const QString& AggregateFunc1() const { return FAggregateFunc1; }
    void SetAggregateFunc1(const QString& text);
    const QString& AggregateFunc2() const { return FAggregateFunc2; }
    void SetAggregateFunc2(const QString& text);
    TVdOperator* Operator() const { return FOperator; }
    void SetOperator(TVdOperator* value);
    // Drops the reference without touching the model (the operator list is being replaced).
    void ForgetOperator() { FOperator = nullptr; }
    const QStringList& Arguments() const { return FArguments; }
    // The argument text only; the model is written by the panel's editor.
    void SetArgument(int index, const QString& text);
    void SetArguments(const QStringList& list);
    void ClearArguments() { FArguments.clear(); }
    void AppendArgument(const QString& text) { FArguments.append(text); }
    // Keeps Arguments and the argument elements at the operator's Count.
    void SetArgumentStrings();
    const QString& GroupOperator() const { return FGroupOperator; }
    void SetGroupOperator(const QString& text);
    bool Expanded() const { return FExpanded; }
    void SetExpanded(bool flag);
    TVdCriterion* Criterion() const { return FCriterion; }
    void SetCriterion(TVdCriterion* criterion);

    bool Valid = true;
    // Why the row is not valid, shown as its hint.
    QString InvalidReason;
    // Copied with the row; no other use.
    QString Text;

    int ControlCount() const { return int(FControls.size()); }
    TVdControl* Controls(int index) const { return FControls.at(size_t(index)).get(); }
    TVdControl* LastControl() const { return FControls.empty() ? nullptr : FControls.back().get(); }

    // "1.", "3.2."; a single blank for the root.
    QString GetFullIndex() const;
    int GetLeftBound() const;
    // The row's top in the panel's content, or -1 when a collapsed group hides it.
    int GetTopBound() const;
    TVdCriterionRow* GetNextRow() const;
    TVdCriterionRow* GetPreviousRow() const;
    // The right edge of what the row shows, its group phrase included.
    int GetRightBound() const;

    void SetDimensionControls(int left);
    void OffsetControls(int from, int amount);
    void RemoveControls();
    void Assign(const TVdCriterionRow& source);
    // Lays a row out once it stands in its collection.
    void LayOutNew();

    // The operator's name while the builder's operator list is being replaced.
    QString ReloadName;

private:
    void AddControls(int count);
    // Applies an aggregate change to node: wrap, unwrap or rename.
    static void ApplyAggregate(TVdFunctionDef& node, const QString& oldText, const QString& text);

    TVdCriterionRows* FCollection;
    std::unique_ptr<TVdCriterionRows> FRows;
    QString FField;
    QString FAggregateFunc1;
    QString FAggregateFunc2;
    TVdOperator* FOperator = nullptr;
    QStringList FArguments;
    bool FExpanded = false;
    std::vector<std::unique_ptr<TVdControl>> FControls;
    QString FGroupOperator;
    TVdCriterion* FCriterion = nullptr;
};

} // namespace vd
