#include "panels/VdCriterionPanel.h"

#include "builder/VdAliasText.h"
#include "builder/VdCustomVandor.h"
#include "builder/VdDialogService.h"
#include "builder/VdQtText.h"
#include "builder/VdStyle.h"
#include "core/VdError.h"
#include "core/VdSelectParser.h"
#include "panels/VdCriterionRow.h"
#include "resources/VdResource.h"

#include <QAction>
#include <QMenu>
#include <QScrollBar>

namespace vd {

namespace {

void ForEachRow(TVdCriterionRows& rows, const std::function<void(TVdCriterionRow*)>& action)
{
    for (int i = 0; i < rows.Count(); ++i) {
        TVdCriterionRow* row = rows.Items(i);
        action(row);
        ForEachRow(row->Rows(), action);
    }
}

bool IsWithin(const TVdCriterionRow* row, const TVdCriterionRow* ancestor)
{
    for (; row; row = row->ParentRow())
        if (row == ancestor)
            return true;
    return false;
}

// Every identifier or typed expression under node that is qualified by oldAlias gets
// newAlias instead. A typed expression is searched as text: "C.NAME || C.CITY".
void RenameQualifier(TVdFunctionDef& node, const QString& newAlias, const QString& oldAlias)
{
    if (node.Kind() == fkIdentifier || node.Kind() == fkExpression) {
        const QString name = ToQString(node.Name());
        const QString renamed = RenameQualifierInText(name, newAlias, oldAlias);
        if (renamed != name)
            node.SetName(ToStdString(renamed));
    }
    if (const TVdFunctionDefs* arguments = node.ArgumentList())
        for (int i = 0; i < arguments->Count(); ++i)
            RenameQualifier(*arguments->Items(i), newAlias, oldAlias);
}

void RenameQualifiers(TVdCriterions& list, const QString& newAlias, const QString& oldAlias)
{
    for (int i = 0; i < list.Count(); ++i) {
        TVdCriterion* criterion = list.Items(i);
        if (criterion->IsGroup()) {
            RenameQualifiers(criterion->SubItems(), newAlias, oldAlias);
            continue;
        }
        RenameQualifier(criterion->LeftSide(), newAlias, oldAlias);
        for (int j = 0; j < criterion->RightSide().Count(); ++j)
            RenameQualifier(*criterion->RightSide().Items(j), newAlias, oldAlias);
    }
}

// The builder passes aliases as the scanner prints them ("C" quoted); the model keeps them
// as written. "C" -> C, "A""B" -> A"B.
QString Unquoted(const TVdSQLScanner& scanner, const QString& alias)
{
    const QChar quote = QLatin1Char(scanner.GetIdentQuote());
    if (alias.size() < 2 || alias.front() != quote || alias.back() != quote)
        return alias;
    QString inner = alias.mid(1, alias.size() - 2);
    inner.replace(QString(2, quote), QString(quote));
    return inner;
}

} // namespace

TVdCriterionPanel::TVdCriterionPanel(QWidget* parent) : QAbstractScrollArea(parent)
{
    if (!parent)
        throw EVdError(ToStdString(VdResource::InvalidConditionsPanelParent()));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    setLineWidth(1);
    viewport()->setMouseTracking(true);
    viewport()->setAcceptDrops(true);
    viewport()->setAutoFillBackground(true);
    viewport()->setBackgroundRole(QPalette::Base);
    FRows = std::make_unique<TVdCriterionRows>(this, nullptr);
    CreateMenus();
    FEditor = new TMemoEx(viewport());
    FEditor->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(FEditor, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { FFieldMenu->popup(FEditor->mapToGlobal(at)); });
    connect(FEditor, &QPlainTextEdit::textChanged, this, [this] { SetBoundText(); });
    connect(FEditor, &TMemoEx::commitRequested, this, [this] {
        Guarded([this] { SetFieldText(); });
        setFocus(Qt::OtherFocusReason);
    });
    connect(FEditor, &TMemoEx::cancelRequested, this, [this] { CancelEdit(); });
    connect(FEditor, &TMemoEx::insertFieldRequested, this,
            [this] { Guarded([this] { InsertField(); }); });
    connect(FEditor, &TMemoEx::focusLeft, this, [this] {
        if (!!FFieldList->isHidden())
            Guarded([this] { SetFieldText(); });
    });
    FFieldList = new TTreeViewEx(viewport());
    connect(FFieldList, &TTreeViewEx::chosen, this, [this] { SetFieldFromList(); });
    connect(FFieldList, &QTreeWidget::itemDoubleClicked, this, [this] { SetFieldFromList(); });
}

TVdCriterionPanel::~TVdCriterionPanel()
{
    // The rows go before the widgets whose elements they may name.
    FActiveElement = FFocusElement = FEditElement = FDropElement = nullptr;
    FRows.reset();
}

void TVdCriterionPanel::CreateMenus()
{
    FRowMenu = new QMenu(this);
    FAddAction = FRowMenu->addAction(VdResource::AddConditionItem());
    FComposeAction = FRowMenu->addAction(VdResource::MakeComposeConditionItem());
    FDeleteAction = FRowMenu->addAction(VdResource::DeleteConditionItem());
    FRowMenu->addSeparator();
    FExpandAction = FRowMenu->addAction(VdResource::ExpandConditionItem());
    connect(FAddAction, &QAction::triggered, this, [this] { Guarded([this] { AddCondition(); }); });
    connect(FComposeAction, &QAction::triggered, this,
            [this] { Guarded([this] { MakeCompositCondition(); }); });
    connect(FDeleteAction, &QAction::triggered, this,
            [this] { Guarded([this] { DeleteCondition(); }); });
    connect(FExpandAction, &QAction::triggered, this,
            [this] { Guarded([this] { ExpandCollapse(); }); });

    FGroupMenu = new QMenu(this);
    connect(FGroupMenu, &QMenu::triggered, this,
            [this](QAction* item) { Guarded([this, item] { SelectGroupFuncs(item); }); });
    FAggregateMenu = new QMenu(this);
    connect(FAggregateMenu, &QMenu::triggered, this,
            [this](QAction* item) { Guarded([this, item] { SelectAgrFuncs(item); }); });
    FOperatorMenu = new QMenu(this);
    connect(FOperatorMenu, &QMenu::aboutToShow, this, [this] { HandlePopupOpersMenu(); });
    connect(FOperatorMenu, &QMenu::triggered, this,
            [this](QAction* item) { Guarded([this, item] { SelectOperator(item); }); });
    FFieldMenu = new QMenu(this);
    QAction* insert = FFieldMenu->addAction(VdResource::InsertFieldItem());
    connect(insert, &QAction::triggered, this, [this] { Guarded([this] { InsertField(); }); });
}

void TVdCriterionPanel::Guarded(const std::function<void()>& action)
{
    VdRunGuarded(this, action);
    unsetCursor();
}

void TVdCriterionPanel::SetParser(TVdSelectParser* parser) { FParser = parser; }

TVdOperators* TVdCriterionPanel::GetOperators() const
{
    return FParser ? &FParser->Operators() : nullptr;
}

const TVdWordList* TVdCriterionPanel::GetAggregates() const
{
    return FParser ? &FParser->Aggregates() : nullptr;
}

bool TVdCriterionPanel::ShowsAggregates() const
{
    const TVdWordList* aggregates = GetAggregates();
    return FUsesAggregates && aggregates && aggregates->Count() > 0;
}

void TVdCriterionPanel::SetRowHeight(int value)
{
    if (value == FRowHeight || value <= 0)
        return;
    FRowHeight = value;
    ForEachRow(*FRows,
               [](TVdCriterionRow* row) { row->SetDimensionControls(row->GetLeftBound()); });
    UpdateScrollRanges();
    viewport()->update();
}

TVdCriterionRow* TVdCriterionPanel::RootRow() const
{
    return FRows->Count() ? FRows->Items(0) : nullptr;
}

TVdCriterions* TVdCriterionPanel::RootCriterions() const
{
    if (!FParser)
        return nullptr;
    return FUsesAggregates ? &FParser->HavingItems() : &FParser->WhereItems();
}

TCustomVandor* TVdCriterionPanel::Builder() const
{
    for (QWidget* w = parentWidget(); w; w = w->parentWidget())
        if (auto* builder = qobject_cast<TCustomVandor*>(w))
            return builder;
    return nullptr;
}

TVdButtonStyle TVdCriterionPanel::BuilderButtonStyle() const
{
    const TCustomVandor* builder = Builder();
    return builder && builder->GetStyle() ? builder->GetStyle()->ButtonStyle() : vdsFlat;
}

bool TVdCriterionPanel::RowSelect() const
{
    const TCustomVandor* builder = Builder();
    return (builder ? builder->GetOptions() : TCustomVandor::DefOptions).testFlag(vdoRowSelect);
}

void TVdCriterionPanel::Changed()
{
    UpdateScrollRanges();
    viewport()->update();
    emit criteriaChanged();
}

void TVdCriterionPanel::FillGroupMenu()
{
    FGroupMenu->clear();
    for (TVdCriterionFilter filter : {cfAll, cfAny, cfNone, cfNotAll}) {
        QAction* item = FGroupMenu->addAction(VdResource::FilterText(filter));
        item->setData(int(filter));
    }
}

void TVdCriterionPanel::FillAggregateMenu()
{
    FAggregateMenu->clear();
    const TVdWordList* aggregates = GetAggregates();
    if (!FUsesAggregates || !aggregates || aggregates->Count() == 0)
        return;
    FAggregateMenu->addAction(QString())->setData(QString());
    for (int i = 0; i < aggregates->Count(); ++i) {
        const QString name = ToQString((*aggregates)[i]);
        FAggregateMenu->addAction(name)->setData(name);
    }
}

void TVdCriterionPanel::Activate()
{
    CancelEdit();
    FActiveElement = FFocusElement = FDropElement = nullptr;
    FHotButton = nullptr;
    FRows->Clear();
    TVdCriterionRow* root = FRows->Add();
    root->SetGroupOperator(VdResource::FilterText(cfAll));
    FFocusElement = root->Controls(vdpAggregate1);
    FillGroupMenu();
    FillAggregateMenu();
    UpdateScrollRanges();
    viewport()->update();
}

void TVdCriterionPanel::Clear()
{
    TVdCriterionRow* root = RootRow();
    if (!root) {
        Activate();
        return;
    }
    CancelEdit();
    FActiveElement = FDropElement = nullptr;
    FHotButton = nullptr;
    root->Rows().Clear();
    root->SetGroupOperator(VdResource::FilterText(cfAll));
    FFocusElement = root->Controls(vdpAggregate1);
    UpdateScrollRanges();
    viewport()->update();
}

void TVdCriterionPanel::FillRows(TVdCriterions& list)
{
    if (!RootRow())
        Activate();
    TVdCriterionRow* root = RootRow();
    CancelEdit();
    if (FFocusElement && FFocusElement->Row() != root)
        FFocusElement = root->Controls(vdpAggregate1);
    if (FActiveElement && FActiveElement->Row() != root)
        FActiveElement = nullptr;
    FDropElement = nullptr;
    FHotButton = nullptr;
    root->Rows().Clear();
    if (FParser) {
        FillAggregateMenu();
        root->SetGroupOperator(VdResource::FilterText(list.Filter));
        FillFrom(root, list);
    }
    UpdateScrollRanges();
    viewport()->update();
}

void TVdCriterionPanel::FillFrom(TVdCriterionRow* parent, TVdCriterions& list)
{
    for (int i = 0; i < list.Count(); ++i) {
        TVdCriterion* criterion = list.Items(i);
        TVdCriterionRow* row = parent->Rows().Add();
        if (criterion->IsGroup()) {
            row->SetGroupOperator(VdResource::FilterText(criterion->SubItems().Filter));
            FillFrom(row, criterion->SubItems());
        } else {
            FillCondition(row, criterion);
        }
        row->SetCriterion(criterion);
        row->SetExpanded(true);
        if (!row->IsGroup())
            ValidateRow(row);
    }
}

void TVdCriterionPanel::FillCondition(TVdCriterionRow* row, TVdCriterion* criterion)
{
    const TVdFunctionDef& left = criterion->LeftSide();
    const TVdWordList* aggregates = GetAggregates();
    const auto isAggregate = [&](const TVdFunctionDef& node) {
        return FUsesAggregates && aggregates && !node.Name().empty() &&
               aggregates->IndexOf(node.Name()) >= 0;
    };
    if (isAggregate(left)) {
        row->SetAggregateFunc1(ToQString(left.Name()));
        if (left.ArgumentCount() > 0)
            row->SetField(ToQString(left.Argument(0)->Name()));
    } else {
        row->SetField(ToQString(left.GetScript()));
    }
    TVdOperators* operators = GetOperators();
    row->SetOperator(operators ? operators->FindByName(criterion->Operator()) : nullptr);
    row->ClearArguments();
    const TVdFunctionDefs& arguments = criterion->RightSide();
    for (int i = 0; i < arguments.Count(); ++i) {
        const TVdFunctionDef& argument = *arguments.Items(i);
        if (!isAggregate(argument)) {
            row->AppendArgument(ToQString(argument.GetScript()));
        } else if (i == 0) {
            // The aggregate's own operand is deliberately not listed.
            row->SetAggregateFunc2(ToQString(argument.Name()));
        } else {
            for (int j = 0; j < argument.ArgumentCount(); ++j)
                row->AppendArgument(ToQString(argument.Argument(j)->GetScript()));
        }
    }
}

void TVdCriterionPanel::PrepareToReloadOperators()
{
    // The rows hold operators of the list about to be replaced: they let go of them now and
    // find them again by the model's captions afterwards.
    FReloading = true;
    ForEachRow(*FRows, [](TVdCriterionRow* row) { row->ForgetOperator(); });
}

void TVdCriterionPanel::ReloadOperators()
{
    if (!FReloading)
        return;
    FReloading = false;
    RefreshRows();
}

void TVdCriterionPanel::ChangeAlias(const QString& newAlias, const QString& oldAlias)
{
    if (!FParser || newAlias == oldAlias)
        return;
    const TVdSQLScanner& scanner = FParser->Scanner();
    RenameQualifiers(*RootCriterions(), Unquoted(scanner, newAlias), Unquoted(scanner, oldAlias));
    // Typed or dropped text may hold the qualifier as printed, in quotes.
    if (Unquoted(scanner, oldAlias) != oldAlias || Unquoted(scanner, newAlias) != newAlias)
        RenameQualifiers(*RootCriterions(), newAlias, oldAlias);
    RefreshRows();
    emit criteriaChanged();
}

QPoint TVdCriterionPanel::GetFullExtention(bool all) const
{
    int height = 0;
    int width = 0;
    const std::function<void(TVdCriterionRows&)> walk = [&](TVdCriterionRows& rows) {
        for (int i = 0; i < rows.Count(); ++i) {
            TVdCriterionRow* row = rows.Items(i);
            height += FRowHeight;
            width = std::max(width, row->GetRightBound());
            if (all || row->Expanded())
                walk(row->Rows());
        }
    };
    walk(*FRows);
    return QPoint(width, height);
}

void TVdCriterionPanel::UpdateScrollRanges()
{
    const QPoint extent = GetFullExtention(false);
    const QSize page = viewport()->size();
    // A few pixels past the widest row, so the last element's frame shows whole.
    horizontalScrollBar()->setRange(0, std::max(0, extent.x() + 4 - page.width()));
    horizontalScrollBar()->setPageStep(page.width());
    horizontalScrollBar()->setSingleStep(FRowHeight);
    verticalScrollBar()->setRange(0, std::max(0, extent.y() - page.height()));
    verticalScrollBar()->setPageStep(page.height());
    verticalScrollBar()->setSingleStep(FRowHeight);
}

void TVdCriterionPanel::SetActiveElement(TVdControl* element)
{
    if (element == FActiveElement)
        return;
    InvalidateElement(FActiveElement, false);
    FActiveElement = element;
    InvalidateElement(FActiveElement, false);
}

TVdControl* TVdCriterionPanel::RequireActive() const
{
    if (!FActiveElement)
        throw EVdError(ToStdString(VdResource::NoActiveButton()));
    return FActiveElement;
}

void TVdCriterionPanel::PrepareRowMenu(TVdCriterionRow* row)
{
    FComposeAction->setEnabled(row && !row->IsGroup());
    const bool root = !row || row->IsRoot();
    FDeleteAction->setEnabled(!root);
    FExpandAction->setEnabled(!root && row->IsGroup());
    FExpandAction->setText(row && row->Expanded() ? VdResource::CollapseConditionItem()
                                                  : VdResource::ExpandConditionItem());
}

void TVdCriterionPanel::AddCondition()
{
    TVdCriterionRow* row = RequireActive()->Row();
    TVdCriterionRow* added = nullptr;
    TVdCriterions* list = nullptr;
    if (row->IsGroup()) {
        added = row->Rows().Add();
        list = row->Criterion() ? &row->Criterion()->SubItems() : RootCriterions();
    } else {
        added = row->Collection()->Add();
        list = row->Criterion() ? row->Criterion()->OwnerList() : RootCriterions();
    }
    if (list)
        added->SetCriterion(list->Add());
    Changed();
}

void TVdCriterionPanel::MakeCompositCondition()
{
    TVdCriterionRow* row = RequireActive()->Row();
    if (row->IsGroup())
        throw EVdError(ToStdString(VdResource::ConditionAlreadyComposed()));
    // The child takes the row's texts before it is attached, so that copying them writes
    // nothing into the copied criterion.
    TVdCriterionRow* child = row->Rows().Add();
    child->Assign(*row);
    TVdCriterion* old = row->Criterion();
    TVdCriterions* list = old ? &old->SubItems() : RootCriterions();
    if (list) {
        TVdCriterion* copy = list->Add();
        if (old) {
            copy->SetLeftSide(old->LeftSide());
            copy->SetRightSide(old->RightSide());
            copy->SetOperator(old->Operator());
            // The condition lives on in the child only: a group emptied later must not
            // print it again.
            old->LeftSide().Clear();
            old->RightSide().Clear();
            old->SetOperator(std::string());
        }
        child->SetCriterion(copy);
    }
    row->SetGroupOperator(VdResource::FilterText(cfAll));
    Changed();
}

void TVdCriterionPanel::DeleteCondition()
{
    TVdCriterionRow* row = RequireActive()->Row();
    if (row->IsRoot())
        throw EVdError(ToStdString(VdResource::CantDeleteFirstRow()));
    if (VdAskYesNo(this, VdResource::ConfirmationCaption(),
                   VdResource::DeleteConditionQuestion()) == QMessageBox::No)
        return;
    if (FFocusElement && IsWithin(FFocusElement->Row(), row))
        FFocusElement = RootRow()->Controls(vdpAggregate1);
    if (FEditElement && IsWithin(FEditElement->Row(), row))
        CancelEdit();
    if (FDropElement && IsWithin(FDropElement->Row(), row))
        FDropElement = nullptr;
    if (FHotButton && IsWithin(FHotButton, row))
        FHotButton = nullptr;
    if (TVdCriterion* criterion = row->Criterion())
        if (TVdCriterions* list = criterion->OwnerList())
            list->Delete(criterion->Index());
    row->Collection()->Delete(row->Index());
    FActiveElement = nullptr;
    Changed();
}

void TVdCriterionPanel::ExpandCollapse()
{
    TVdCriterionRow* row = RequireActive()->Row();
    if (!row->IsGroup())
        throw EVdError(ToStdString(VdResource::CantExpandCollapseSimple()));
    if (row->IsRoot())
        throw EVdError(ToStdString(VdResource::CantCollapseFirst()));
    row->SetExpanded(!row->Expanded());
    if (FFocusElement && FFocusElement->Row() != row && IsWithin(FFocusElement->Row(), row))
        FFocusElement = row->Controls(vdpAggregate1);
    UpdateScrollRanges();
    viewport()->update();
}

void TVdCriterionPanel::SelectGroupFuncs(QAction* item)
{
    if (!FActiveElement || FActiveElement->Index != vdpAggregate1 ||
        !FActiveElement->Row()->IsGroup())
        throw EVdError(ToStdString(VdResource::NoActiveButton()));
    TVdCriterionRow* row = FActiveElement->Row();
    const auto filter = TVdCriterionFilter(item->data().toInt());
    row->SetGroupOperator(item->text());
    if (TVdCriterion* criterion = row->Criterion())
        criterion->SubItems().Filter = filter;
    else if (row->IsRoot() && RootCriterions())
        RootCriterions()->Filter = filter;
    Changed();
}

void TVdCriterionPanel::SelectAgrFuncs(QAction* item)
{
    TVdControl* element = RequireActive();
    TVdCriterionRow* row = element->Row();
    const QString caption = item->data().toString();
    if (element->Index == vdpAggregate1)
        row->SetAggregateFunc1(caption);
    else
        row->SetAggregateFunc2(caption);
    row->SetDimensionControls(row->GetLeftBound());
    Changed();
}

void TVdCriterionPanel::HandlePopupOpersMenu()
{
    FOperatorMenu->clear();
    const TVdOperators* operators = GetOperators();
    if (!operators)
        return;
    for (int i = 0; i < operators->Count(); ++i)
        FOperatorMenu->addAction(ToQString(operators->Items(i)->Caption))->setData(i);
}

void TVdCriterionPanel::SelectOperator(QAction* item)
{
    if (!FActiveElement || FActiveElement->Index != vdpOperator)
        throw EVdError(ToStdString(VdResource::NoActiveButton()));
    TVdOperators* operators = GetOperators();
    const int index = FOperatorMenu->actions().indexOf(item);
    if (!operators || index < 0 || index >= operators->Count())
        return;
    TVdCriterionRow* row = FActiveElement->Row();
    row->SetOperator(operators->Items(index));
    // What the row no longer shows is no longer printed either.
    if (TVdCriterion* criterion = row->Criterion())
        while (criterion->RightSide().Count() > std::max(0, operators->Items(index)->Count))
            criterion->RightSide().Delete(criterion->RightSide().Count() - 1);
    ValidateRow(row);
    Changed();
}

TVdCriterionRow* TVdCriterionPanel::FindRow(const TVdCriterion* criterion) const
{
    TVdCriterionRow* found = nullptr;
    ForEachRow(*FRows, [&](TVdCriterionRow* row) {
        if (!found && row->Criterion() == criterion)
            found = row;
    });
    return found;
}

QString TVdCriterionPanel::Text() const
{
    QStringList lines;
    TVdCriterionRow* root = RootRow();
    for (TVdCriterionRow* row = root ? root->GetNextRow() : nullptr; row; row = row->GetNextRow()) {
        QStringList words;
        int depth = 0;
        for (TVdCriterionRow* up = row->ParentRow(); up && !up->IsRoot(); up = up->ParentRow())
            ++depth;
        words << QString(depth * 2, QLatin1Char(' ')) + row->GetFullIndex();
        if (row->IsGroup()) {
            words << row->Controls(vdpAggregate1)->Text() + GroupPhrase();
        } else {
            for (int i = vdpAggregate1; i < row->ControlCount(); ++i) {
                const TVdControl* control = row->Controls(i);
                if (control->Width > 0 && !control->Text().trimmed().isEmpty())
                    words << control->Text();
            }
        }
        lines << words.join(QLatin1Char(' '));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace vd
