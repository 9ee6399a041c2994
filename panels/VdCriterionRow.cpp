#include "panels/VdCriterionRow.h"

#include "builder/VdQtText.h"
#include "core/VdCriteria.h"
#include "core/VdOperators.h"
#include "panels/VdCriterionPanel.h"

namespace vd {

namespace {

constexpr int MaxShownChars = 30;
constexpr int ElementGap = 5;

// The expression receiving a typed text is printed back exactly as typed.
void SetTyped(TVdFunctionDef& node, const QString& text)
{
    // Typed text stands for the whole expression: no operands of what it replaces remain.
    if (node.ArgumentList())
        node.Arguments().Clear();
    node.SetName(ToStdString(text));
    node.SetKind(fkExpression);
}

// The row's place and the places of its ancestors below the root, outermost first.
void CollectPlaces(const TVdCriterionRow* row, QStringList& places)
{
    if (!row || row->IsRoot())
        return;
    CollectPlaces(row->ParentRow(), places);
    places.append(QString::number(row->Index() + 1));
}

} // namespace

QString VdBlankText() { return QString(9, QLatin1Char(' ')); }

void TVdControl::SetText(const QString& text)
{
    if (text.isEmpty()) {
        FText = VdBlankText();
        return;
    }
    QString shown =
        text.size() > MaxShownChars ? text.left(MaxShownChars) + QStringLiteral("...") : text;
    shown.replace(QLatin1Char('\r'), QLatin1Char(' '));
    shown.replace(QLatin1Char('\n'), QLatin1Char(' '));
    FText = shown;
}

TVdCriterionRows::TVdCriterionRows(TVdCriterionPanel* panel, TVdCriterionRow* parentRow)
    : FPanel(panel), FParentRow(parentRow)
{
}

TVdCriterionRows::~TVdCriterionRows() = default;

void TVdCriterionRows::SetItems(int index, const TVdCriterionRow& row)
{
    TVdCriterionRow* item = Items(index);
    if (item != &row)
        item->Assign(row);
}

TVdCriterionRow* TVdCriterionRows::Add() { return Insert(Count()); }

TVdCriterionRow* TVdCriterionRows::Insert(int index)
{
    // The layout needs the row's number, known once the row stands in the list.
    auto at = FItems.insert(FItems.begin() + index, std::make_unique<TVdCriterionRow>(this));
    TVdCriterionRow* row = at->get();
    row->LayOutNew();
    return row;
}

void TVdCriterionRows::Delete(int index) { FItems.erase(FItems.begin() + index); }

void TVdCriterionRows::Clear() { FItems.clear(); }

int TVdCriterionRows::IndexOf(const TVdCriterionRow* row) const
{
    for (size_t i = 0; i < FItems.size(); ++i)
        if (FItems[i].get() == row)
            return int(i);
    return -1;
}

void TVdCriterionRows::Assign(const TVdCriterionRows& source)
{
    if (&source == this)
        return;
    BeginUpdate();
    Clear();
    for (int i = 0; i < source.Count(); ++i)
        Add()->Assign(*source.Items(i));
    EndUpdate();
}

TVdCriterionRow::TVdCriterionRow(TVdCriterionRows* collection)
    : FCollection(collection), FRows(std::make_unique<TVdCriterionRows>(collection->Panel(), this))
{
    Init();
    AddControls(vdpFirstArgument);
    SetArgumentStrings();
}

void TVdCriterionRow::LayOutNew()
{
    // Each nesting level is indented by the panel's Indent.
    TVdCriterionPanel* panel = Panel();
    if (TVdCriterionRow* parent = ParentRow())
        SetDimensionControls(parent->GetLeftBound() + panel->Indent());
    else
        SetDimensionControls(panel->Indent());
}

TVdCriterionRow::~TVdCriterionRow()
{
    RemoveControls();
    FRows->Clear();
}

void TVdCriterionRow::AddControls(int count)
{
    while (ControlCount() < count)
        FControls.push_back(std::make_unique<TVdControl>(this, ControlCount()));
}

void TVdCriterionRow::Init()
{
    FGroupOperator.clear();
    FAggregateFunc1 = VdBlankText();
    SetField(VdBlankText());
    FAggregateFunc2 = VdBlankText();
    const TVdOperators* operators = Panel()->GetOperators();
    SetOperator(operators && operators->Count() > 0 ? operators->Items(0) : nullptr);
}

void TVdCriterionRow::SetRows(const TVdCriterionRows& rows)
{
    if (&rows != FRows.get())
        FRows->Assign(rows);
}

void TVdCriterionRow::SetField(const QString& text)
{
    if (text == FField)
        return;
    FField = text;
    if (!FCriterion)
        return;
    TVdFunctionDef& left = FCriterion->LeftSide();
    if (!FAggregateFunc1.trimmed().isEmpty()) {
        left.Arguments().Clear();
        SetTyped(*left.Arguments().Add(), text);
    } else {
        SetTyped(left, text);
    }
}

void TVdCriterionRow::SetOperator(TVdOperator* value)
{
    if (value == FOperator)
        return;
    FOperator = value;
    if (!FOperator || !FCriterion)
        return;
    FCriterion->SetOperator(FOperator->Caption);
    SetArgumentStrings();
    SetDimensionControls(GetLeftBound());
}

void TVdCriterionRow::SetArgument(int index, const QString& text)
{
    if (index >= 0 && index < FArguments.size())
        FArguments[index] = text;
}

void TVdCriterionRow::SetArguments(const QStringList& list)
{
    if (&list != &FArguments)
        FArguments = list;
}

void TVdCriterionRow::SetArgumentStrings()
{
    if (!FOperator)
        return;
    const int count = std::max(0, FOperator->Count);
    while (FArguments.size() > count)
        FArguments.removeAt(count);
    while (FArguments.size() < count)
        FArguments.append(VdBlankText());
    while (ControlCount() > vdpFirstArgument + count)
        FControls.pop_back();
    AddControls(vdpFirstArgument + count);
}

void TVdCriterionRow::ApplyAggregate(TVdFunctionDef& node, const QString& oldText,
                                     const QString& text)
{
    const bool wasSet = !oldText.trimmed().isEmpty();
    const bool isSet = !text.trimmed().isEmpty();
    if (isSet && !wasSet) {
        // The old expression becomes the aggregate's single argument.
        TVdFunctionDef scratch;
        scratch.Assign(node);
        node.Arguments().Clear();
        node.Arguments().Add()->Assign(scratch);
        node.SetName(ToStdString(text));
        node.SetKind(fkFunction);
    } else if (!isSet && wasSet) {
        if (node.ArgumentCount() == 1) {
            TVdFunctionDef scratch;
            scratch.Assign(*node.Argument(0));
            node.Assign(scratch);
        } else {
            node.SetName(std::string());
            node.SetKind(fkUnknown);
        }
    } else {
        node.SetName(ToStdString(text));
        node.SetKind(fkFunction);
    }
}

void TVdCriterionRow::SetAggregateFunc1(const QString& text)
{
    if (text == FAggregateFunc1)
        return;
    if (FCriterion)
        ApplyAggregate(FCriterion->LeftSide(), FAggregateFunc1, text);
    FAggregateFunc1 = text;
}

void TVdCriterionRow::SetAggregateFunc2(const QString& text)
{
    if (text == FAggregateFunc2)
        return;
    if (FCriterion) {
        TVdFunctionDefs& arguments = FCriterion->RightSide();
        if (arguments.Count() == 0)
            arguments.Add();
        const bool removed = text.trimmed().isEmpty() && !FAggregateFunc2.trimmed().isEmpty();
        ApplyAggregate(*arguments.Items(0), FAggregateFunc2, text);
        // The aggregate's operand was not listed; once it stands alone it is the argument.
        if (removed && !FArguments.isEmpty() && FArguments.first().trimmed().isEmpty())
            FArguments.first() = ToQString(arguments.Items(0)->GetScript());
    }
    FAggregateFunc2 = text;
}

void TVdCriterionRow::SetGroupOperator(const QString& text)
{
    FGroupOperator = text;
    FExpanded = true;
    SetDimensionControls(GetLeftBound());
}

void TVdCriterionRow::SetExpanded(bool flag)
{
    FExpanded = flag;
    SetArgumentStrings();
    SetDimensionControls(GetLeftBound());
}

void TVdCriterionRow::SetCriterion(TVdCriterion* criterion)
{
    if (criterion == FCriterion)
        return;
    FCriterion = criterion;
    if (FCriterion && FOperator)
        FCriterion->SetOperator(FOperator->Caption);
}

QString TVdCriterionRow::GetFullIndex() const
{
    if (IsRoot())
        return QStringLiteral(" ");
    QStringList places;
    CollectPlaces(this, places);
    return places.join(QLatin1Char('.')) + QLatin1Char('.');
}

int TVdCriterionRow::GetLeftBound() const { return FControls.empty() ? 0 : FControls[0]->Left; }

int TVdCriterionRow::GetTopBound() const
{
    const int height = Panel()->RowHeight();
    int top = 0;
    const TVdCriterionRows& top_level = Panel()->Rows();
    for (TVdCriterionRow* row = top_level.Count() ? top_level.Items(0) : nullptr; row;
         row = row->GetNextRow()) {
        if (row == this)
            return top;
        top += height;
    }
    return -1;
}

TVdCriterionRow* TVdCriterionRow::GetNextRow() const
{
    if (FExpanded && FRows->Count() > 0)
        return FRows->Items(0);
    const TVdCriterionRow* row = this;
    while (row) {
        const TVdCriterionRows* level = row->Collection();
        const int next = level->IndexOf(row) + 1;
        if (next < level->Count())
            return level->Items(next);
        row = level->ParentRow();
    }
    return nullptr;
}

TVdCriterionRow* TVdCriterionRow::GetPreviousRow() const
{
    const int index = Index();
    if (index == 0)
        return ParentRow();
    TVdCriterionRow* row = FCollection->Items(index - 1);
    while (row->Expanded() && row->Rows().Count() > 0)
        row = row->Rows().Items(row->Rows().Count() - 1);
    return row;
}

int TVdCriterionRow::GetRightBound() const
{
    int right = 0;
    for (const auto& control : FControls)
        if (control->Width > 0)
            right = std::max(right, control->Right());
    if (IsGroup() && ControlCount() > vdpAggregate1)
        right += Panel()->TextWidth(Panel()->GroupPhrase(), false);
    return right;
}

void TVdCriterionRow::SetDimensionControls(int left)
{
    if (ControlCount() < vdpFirstArgument)
        return;
    const TVdCriterionPanel* panel = Panel();
    const auto width = [panel](const QString& text) { return panel->TextWidth(text, true); };
    int x = left;
    TVdControl* number = FControls[vdpNumber].get();
    number->SetText(GetFullIndex());
    number->Left = x;
    number->Width = panel->RowHeight() + width(number->Text());
    x += number->Width + ElementGap;

    TVdControl* first = FControls[vdpAggregate1].get();
    if (IsGroup()) {
        first->SetText(FExpanded ? FGroupOperator : QStringLiteral(" "));
        first->Left = x;
        first->Width = width(first->Text());
        // A group shows only its word: the condition's elements take no room.
        for (int i = vdpField; i < ControlCount(); ++i) {
            FControls[size_t(i)]->Left = first->Right();
            FControls[size_t(i)]->Width = 0;
        }
        return;
    }
    const bool aggregates = panel->ShowsAggregates();
    const auto place = [&](TVdControl* control, const QString& text, bool shown) {
        control->SetText(text);
        control->Left = x;
        control->Width = shown ? width(control->Text()) : 0;
        if (shown)
            x += control->Width + ElementGap;
    };
    place(first, FAggregateFunc1, aggregates);
    place(FControls[vdpField].get(), FField, true);
    place(FControls[vdpOperator].get(),
          FOperator ? ToQString(FOperator->Caption) : QStringLiteral(" "), true);
    place(FControls[vdpAggregate2].get(), FAggregateFunc2, aggregates);
    const int spacing = (FOperator ? panel->TextWidth(ToQString(FOperator->Relate), false)
                                   : panel->TextWidth(QStringLiteral(" "), false)) +
                        ElementGap;
    for (int i = 0; i < FArguments.size() && vdpFirstArgument + i < ControlCount(); ++i) {
        TVdControl* control = FControls[size_t(vdpFirstArgument + i)].get();
        control->SetText(FArguments[i]);
        control->Left = x;
        control->Width = width(control->Text());
        x += control->Width + spacing;
    }
}

void TVdCriterionRow::OffsetControls(int from, int amount)
{
    for (auto& control : FControls)
        if (control->Index >= from)
            control->Left -= amount;
}

void TVdCriterionRow::RemoveControls() { FControls.clear(); }

void TVdCriterionRow::Assign(const TVdCriterionRow& source)
{
    if (&source == this)
        return;
    SetGroupOperator(source.FGroupOperator);
    SetAggregateFunc1(source.FAggregateFunc1);
    SetField(source.FField);
    SetAggregateFunc2(source.FAggregateFunc2);
    SetOperator(source.FOperator);
    SetArgumentStrings();
    FArguments = source.FArguments;
    Valid = source.Valid;
    InvalidReason = source.InvalidReason;
    Text = source.Text;
    FExpanded = source.FExpanded;
    SetDimensionControls(source.GetLeftBound() + Panel()->Indent());
}

} // namespace vd
