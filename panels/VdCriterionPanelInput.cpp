// The criteria editor's mouse, keyboard, in-place editor, field list and drops.

#include "builder/VdCustomVandor.h"
#include "builder/VdQtText.h"
#include "builder/VdTableList.h"
#include "core/VdSelectParser.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "panels/VdCriterionPanel.h"
#include "panels/VdCriterionRow.h"
#include "resources/VdResource.h"

#include <QContextMenuEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QToolTip>

namespace vd {

namespace {

void SetTyped(TVdFunctionDef& node, const QString& text)
{
    // Typed text stands for the whole expression: no operands of what it replaces remain.
    if (node.ArgumentList())
        node.Arguments().Clear();
    node.SetName(ToStdString(text));
    node.SetKind(fkExpression);
}

QString OneLine(QString text)
{
    text.remove(QLatin1Char('\r'));
    text.remove(QLatin1Char('\n'));
    return text;
}

} // namespace

TMemoEx::TMemoEx(QWidget* parent) : QPlainTextEdit(parent)
{
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setWordWrapMode(QTextOption::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    document()->setDocumentMargin(1);
    setToolTip(VdResource::InsertFieldHint());
    hide();
}

void TMemoEx::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers() & Qt::ShiftModifier) {
        emit insertFieldRequested();
        return;
    }
    if (enter) {
        // Line breaks never reach the text: Enter commits.
        if (!(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
            emit commitRequested();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        emit cancelRequested();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void TMemoEx::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        emit focusLeft();
}

TTreeViewEx::TTreeViewEx(QWidget* parent) : QTreeWidget(parent)
{
    setFrameShape(QFrame::Box);
    setHeaderHidden(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    setRootIsDecorated(true);
    hide();
}

void TTreeViewEx::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit chosen();
    else if (event->key() == Qt::Key_Escape)
        hide();
    QTreeWidget::keyReleaseEvent(event);
}

TVdCriterionRow* TVdCriterionPanel::LookRows(int y, int* top) const
{
    int rowTop = -verticalScrollBar()->value();
    for (TVdCriterionRow* row = RootRow(); row; row = row->GetNextRow()) {
        if (y >= rowTop && y < rowTop + FRowHeight) {
            if (top)
                *top = rowTop;
            return row;
        }
        rowTop += FRowHeight;
    }
    return nullptr;
}

TVdControl* TVdCriterionPanel::LookControl(TVdCriterionRow* row, int x) const
{
    if (!row)
        return nullptr;
    const int content = x + horizontalScrollBar()->value();
    for (int i = 0; i < row->ControlCount(); ++i) {
        TVdControl* control = row->Controls(i);
        if (control->Left <= content && content < control->Right())
            return control;
    }
    return nullptr;
}

TVdControl* TVdCriterionPanel::ElementAt(const QPoint& pos, int* top) const
{
    return LookControl(LookRows(pos.y(), top), pos.x());
}

QRect TVdCriterionPanel::ElementRect(TVdControl* element) const
{
    const int top = element->Row()->GetTopBound() - verticalScrollBar()->value();
    return QRect(element->Left - 1 - horizontalScrollBar()->value(), top + 1, element->Width + 3,
                 FRowHeight - 2);
}

void TVdCriterionPanel::InvalidateElement(TVdControl* element, bool wholeRow)
{
    if (!element || element->Row()->GetTopBound() < 0)
        return;
    QRect rect = ElementRect(element).adjusted(-2, -2, 2, 2);
    if (wholeRow)
        rect = QRect(0, rect.top(), viewport()->width(), rect.height());
    viewport()->update(rect);
}

void TVdCriterionPanel::ScrollIntoView(TVdControl* element)
{
    const int top = element->Row()->GetTopBound();
    if (top < 0)
        return;
    QScrollBar* vertical = verticalScrollBar();
    if (top < vertical->value())
        vertical->setValue(top);
    else if (top + FRowHeight > vertical->value() + viewport()->height())
        vertical->setValue(top + FRowHeight - viewport()->height());
    QScrollBar* horizontal = horizontalScrollBar();
    const int left = element->Left - 1;
    const int right = element->Right() + 2;
    if (left < horizontal->value())
        horizontal->setValue(left);
    else if (right > horizontal->value() + viewport()->width())
        horizontal->setValue(right - viewport()->width());
}

void TVdCriterionPanel::SetFocusElement(TVdControl* element)
{
    if (!element)
        return;
    const bool rowChanged = !FFocusElement || FFocusElement->Row() != element->Row();
    InvalidateElement(FFocusElement, RowSelect() && rowChanged);
    FFocusElement = element;
    SetActiveElement(element);
    ScrollIntoView(element);
    InvalidateElement(element, RowSelect() && rowChanged);
}

void TVdCriterionPanel::ButtonClick(TVdControl* element, int top)
{
    PrepareRowMenu(element->Row());
    OpenMenu(FRowMenu, element, top);
}

void TVdCriterionPanel::OpenMenu(QMenu* menu, TVdControl* element, int top)
{
    const QPoint at(element->Left - horizontalScrollBar()->value(), top + FRowHeight);
    menu->popup(viewport()->mapToGlobal(at));
}

void TVdCriterionPanel::TextClick(TVdControl* element, int top)
{
    TVdCriterionRow* row = element->Row();
    if (row->IsGroup()) {
        if (element->Index != vdpAggregate1)
            return;
        if (row->Expanded()) {
            OpenMenu(FGroupMenu, element, top);
        } else {
            row->SetExpanded(true);
            UpdateScrollRanges();
            viewport()->update();
        }
        return;
    }
    switch (element->Index) {
    case vdpNumber:
        ButtonClick(element, top);
        break;
    case vdpAggregate1:
    case vdpAggregate2:
        if (!FAggregateMenu->isEmpty())
            OpenMenu(FAggregateMenu, element, top);
        break;
    case vdpOperator:
        OpenMenu(FOperatorMenu, element, top);
        break;
    default:
        OpenEditor(element, top);
        break;
    }
}

void TVdCriterionPanel::FillFieldList()
{
    FFieldList->clear();
    const TCustomVandor* builder = Builder();
    const TVdTableList* tables = builder ? builder->TableList() : nullptr;
    const QFontMetrics metrics(FFieldList->font());
    int widest = 0;
    for (int i = 0; tables && i < tables->GetTablesCount(); ++i) {
        const TVdTable* table = tables->GetTable(i);
        if (!table || table->Closing())
            continue;
        auto* node = new QTreeWidgetItem(FFieldList, QStringList(table->GetAlias()));
        if (builder->Images().size() > 1)
            node->setIcon(0, builder->Images().at(0));
        for (int j = 0; j < table->Count(); ++j) {
            const TVdListItem* item = table->Items(j);
            if (item->ParamType() == ptInput)
                continue;
            auto* field = new QTreeWidgetItem(node, QStringList(item->Name()));
            if (builder->Images().size() > 1)
                field->setIcon(0, builder->Images().at(1));
            widest = std::max(widest, metrics.horizontalAdvance(item->Name()));
        }
    }
    FFieldList->expandAll();
    FFieldList->resize(std::max(150, widest + 85),
                       std::min(160, std::max(60, viewport()->height())));
}

void TVdCriterionPanel::OpenEditor(TVdControl* element, int top)
{
    FillFieldList();
    TVdCriterionRow* row = element->Row();
    const int place = element->Index - vdpFirstArgument;
    const QString text = element->Index == vdpField        ? row->Field()
                         : place < row->Arguments().size() ? row->Arguments().at(place)
                                                           : QString();
    FEditElement = nullptr;
    FEditor->setFont(ItemFont());
    FEditOpenedWith = text.trimmed().isEmpty() ? QString() : text;
    FEditor->setPlainText(FEditOpenedWith);
    FEditor->move(element->Left - horizontalScrollBar()->value(), top + 2);
    FEditor->resize(element->Width, FRowHeight - 3);
    FEditElement = element;
    SetBoundText();
    FEditor->show();
    FEditor->raise();
    FEditor->setFocus(Qt::OtherFocusReason);
    FEditor->selectAll();
}

void TVdCriterionPanel::SetBoundText()
{
    if (!FEditElement)
        return;
    const QFontMetrics metrics(FEditor->font());
    const int needed = metrics.horizontalAdvance(FEditor->toPlainText()) + 8;
    FEditor->resize(std::max(FEditElement->Width + 2, needed), FRowHeight - 3);
}

void TVdCriterionPanel::SetFieldText()
{
    if (!FEditElement)
        return;
    TVdControl* element = FEditElement;
    FEditElement = nullptr;
    FEditor->hide();
    FFieldList->hide();
    // Leaving the editor as it opened changes nothing: an argument shown empty may stand for
    // an operand the row does not list (a second aggregate's).
    const QString text = OneLine(FEditor->toPlainText());
    if (text == OneLine(FEditOpenedWith))
        return;
    ApplyText(element, text);
}

void TVdCriterionPanel::CancelEdit()
{
    // The commit handler sees no element while the editor hides.
    FEditElement = nullptr;
    if (FEditor && !FEditor->isHidden()) {
        FEditor->hide();
        if (FEditor->hasFocus() || !hasFocus())
            setFocus(Qt::OtherFocusReason);
    }
    if (FFieldList)
        FFieldList->hide();
}

void TVdCriterionPanel::ApplyText(TVdControl* element, const QString& text)
{
    TVdCriterionRow* row = element->Row();
    if (element->Index == vdpField) {
        row->SetField(text);
    } else if (element->Index >= vdpFirstArgument) {
        const int place = element->Index - vdpFirstArgument;
        row->SetArgument(place, text);
        WriteArgument(row, place, text);
    }
    row->Valid = true;
    ValidateRow(row);
    row->SetDimensionControls(row->GetLeftBound());
    Changed();
}

void TVdCriterionPanel::WriteArgument(TVdCriterionRow* row, int index, const QString& text)
{
    TVdCriterion* criterion = row->Criterion();
    if (!criterion)
        return;
    TVdFunctionDefs& arguments = criterion->RightSide();
    while (arguments.Count() <= index)
        arguments.Add();
    TVdFunctionDef& node = *arguments.Items(index);
    const TVdWordList* aggregates = GetAggregates();
    // A later aggregate shows its single operand in its place (filling the rows): the text
    // goes there, so the aggregate stays.
    const bool laterAggregate = index > 0 && FUsesAggregates && aggregates &&
                                !node.Name().empty() && aggregates->IndexOf(node.Name()) >= 0 &&
                                node.ArgumentCount() == 1;
    if (index == 0 && !row->AggregateFunc2().trimmed().isEmpty()) {
        node.Arguments().Clear();
        SetTyped(*node.Arguments().Add(), text);
    } else if (laterAggregate) {
        SetTyped(*node.Arguments().Items(0), text);
    } else {
        SetTyped(node, text);
    }
}

void TVdCriterionPanel::InsertField()
{
    if (!!FEditor->isHidden())
        return;
    const QRect memo = FEditor->geometry();
    int y = memo.bottom() + 1;
    if (y + FFieldList->height() > viewport()->height())
        y = std::max(0, memo.top() - FFieldList->height());
    FFieldList->move(memo.left(), y);
    FFieldList->show();
    FFieldList->raise();
    FFieldList->setFocus(Qt::OtherFocusReason);
    if (!FFieldList->currentItem() && FFieldList->topLevelItemCount() > 0)
        FFieldList->setCurrentItem(FFieldList->topLevelItem(0));
}

void TVdCriterionPanel::SetFieldFromList()
{
    const QTreeWidgetItem* item = FFieldList->currentItem();
    if (!item || !item->parent())
        return;
    FEditor->setPlainText(QualifiedName(item->parent()->text(0), item->text(0)));
    HideFieldList();
    FEditor->moveCursor(QTextCursor::End);
}

void TVdCriterionPanel::HideFieldList()
{
    FFieldList->hide();
    if (!FEditor->isHidden())
        FEditor->setFocus(Qt::OtherFocusReason);
}

void TVdCriterionPanel::HideFieldList(QObject*, bool& allow)
{
    if (!!FFieldList->isHidden())
        return;
    HideFieldList();
    allow = false;
}

// A picked field is written as the statement prints names, so that a name that needs quotes
// ("ZIP CODE", a mixed-case name where quotes keep the case) still names that field.
QString TVdCriterionPanel::QualifiedName(const QString& alias, const QString& field) const
{
    if (!FParser)
        return alias + QLatin1Char('.') + field;
    const TVdSQLScanner& scanner = FParser->Scanner();
    return ToQString(scanner.ProcessName(ToStdString(alias))) + QLatin1Char('.') +
           ToQString(scanner.ProcessName(ToStdString(field)));
}

void TVdCriterionPanel::HandleDragOver(QObject* source, const QPoint& pos, bool& accept)
{
    accept = false;
    TVdControl* target = nullptr;
    const auto* workArea = qobject_cast<const TVdWorkArea*>(source);
    const auto* table = workArea ? dynamic_cast<const TVdTable*>(workArea->Selected()) : nullptr;
    if (table && table->CurrentItem()) {
        TVdControl* element = ElementAt(pos);
        if (element && !element->Row()->IsGroup() &&
            (element->Index == vdpField || element->Index >= vdpFirstArgument))
            target = element;
    }
    accept = target != nullptr;
    if (target != FDropElement) {
        InvalidateElement(FDropElement, false);
        FDropElement = target;
        InvalidateElement(FDropElement, false);
    }
}

void TVdCriterionPanel::HandleDragDrop(QObject* source, const QPoint& pos)
{
    bool accept = false;
    HandleDragOver(source, pos, accept);
    TVdControl* element = FDropElement;
    FDropElement = nullptr;
    if (!accept || !element)
        return;
    const auto* table =
        dynamic_cast<const TVdTable*>(qobject_cast<TVdWorkArea*>(source)->Selected());
    ApplyText(element, QualifiedName(table->GetAlias(), table->CurrentItem()->Name()));
    setFocus(Qt::OtherFocusReason);
}

void TVdCriterionPanel::dragEnterEvent(QDragEnterEvent* event) { dragMoveEvent(event); }

void TVdCriterionPanel::dragMoveEvent(QDragMoveEvent* event)
{
    bool accept = false;
    HandleDragOver(event->source(), event->position().toPoint(), accept);
    if (accept)
        event->acceptProposedAction();
    else
        event->ignore();
}

void TVdCriterionPanel::dragLeaveEvent(QDragLeaveEvent*)
{
    InvalidateElement(FDropElement, false);
    FDropElement = nullptr;
}

void TVdCriterionPanel::dropEvent(QDropEvent* event)
{
    Guarded([&] { HandleDragDrop(event->source(), event->position().toPoint()); });
    event->acceptProposedAction();
}

void TVdCriterionPanel::mouseMoveEvent(QMouseEvent* event)
{
    int top = 0;
    TVdControl* element = ElementAt(event->position().toPoint(), &top);
    TVdCriterionRow* button = element && element->Index == vdpNumber ? element->Row() : nullptr;
    if (FPressed) {
        if (FHotButton && button == FHotButton)
            FHotStyle = vdsRaise;
        viewport()->update(0, top, viewport()->width(), FRowHeight);
        return;
    }
    if (button != FHotButton) {
        if (FHotButton) {
            // Deliberately flat until the next full paint.
            FHotStyle = vdsFlat;
            viewport()->update();
        }
        if (button) {
            FHotButton = button;
            FHotStyle = vds3DLook;
        }
    }
    SetActiveElement(element);
}

void TVdCriterionPanel::mousePressEvent(QMouseEvent* event)
{
    FFieldList->hide();
    setFocus(Qt::MouseFocusReason);
    if (!FEditor->isHidden())
        Guarded([this] { SetFieldText(); });
    if (event->button() != Qt::LeftButton)
        return;
    TVdControl* element = ElementAt(event->position().toPoint());
    SetActiveElement(element);
    if (!element)
        return;
    if (element->Index != vdpNumber) {
        SetFocusElement(element);
        return;
    }
    FPressed = true;
    FHotButton = element->Row();
    FHotStyle = vdsRaise;
    viewport()->update();
}

// The row menu opens under the right button too, where people look for it first.
void TVdCriterionPanel::contextMenuEvent(QContextMenuEvent* event)
{
    TVdControl* element = ElementAt(event->pos());
    if (!element || element->Row()->ControlCount() == 0)
        return;
    SetFocusElement(element->Row()->Controls(vdpNumber));
    PrepareRowMenu(element->Row());
    FRowMenu->popup(event->globalPos());
}

void TVdCriterionPanel::mouseReleaseEvent(QMouseEvent* event)
{
    const bool pressed = FPressed;
    FPressed = false;
    if (event->button() != Qt::LeftButton)
        return;
    int top = 0;
    TVdControl* element = ElementAt(event->position().toPoint(), &top);
    if (!element || element != FActiveElement)
        return;
    if (element->Index == vdpNumber) {
        FHotStyle = BuilderButtonStyle();
        viewport()->update();
        if (pressed)
            Guarded([&] { ButtonClick(element, top); });
        return;
    }
    Guarded([&] { TextClick(element, top); });
}

void TVdCriterionPanel::leaveEvent(QEvent* event)
{
    QAbstractScrollArea::leaveEvent(event);
    if (FHotButton) {
        FHotStyle = vdsFlat;
        viewport()->update();
    }
}

bool TVdCriterionPanel::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const TVdControl* element = ElementAt(help->pos());
        const TVdCriterionRow* row = element ? element->Row() : nullptr;
        if (row && !row->IsGroup() && !row->Valid)
            QToolTip::showText(help->globalPos(), row->InvalidReason, viewport());
        else
            QToolTip::hideText();
        return true;
    }
    if (event->type() == QEvent::Leave)
        leaveEvent(event);
    return QAbstractScrollArea::viewportEvent(event);
}

void TVdCriterionPanel::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void TVdCriterionPanel::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

TVdControl* TVdCriterionPanel::MoveTarget(TVdControl* from, int key) const
{
    // A move that lands on a hidden element, or on a group row's hidden places, goes on.
    const auto usable = [](const TVdControl* c) {
        return c->Width > 0 && (!c->Row()->IsGroup() || c->Index == vdpAggregate1);
    };
    const auto step = [](TVdControl* c, int k) -> TVdControl* {
        TVdCriterionRow* row = c->Row();
        switch (k) {
        case Qt::Key_Left:
            if (c->Index > vdpAggregate1)
                return row->Controls(c->Index - 1);
            if (TVdCriterionRow* previous = row->GetPreviousRow())
                return previous->LastControl();
            return nullptr;
        case Qt::Key_Right:
            if (c->Index < row->ControlCount() - 1)
                return row->Controls(c->Index + 1);
            if (TVdCriterionRow* next = row->GetNextRow())
                return next->Controls(vdpAggregate1);
            return nullptr;
        default: {
            TVdCriterionRow* other = k == Qt::Key_Up ? row->GetPreviousRow() : row->GetNextRow();
            if (!other)
                return nullptr;
            if (other->IsGroup())
                return other->Controls(vdpAggregate1);
            return other->Controls(std::min(c->Index, other->ControlCount() - 1));
        }
        }
    };
    TVdControl* target = step(from, key);
    // Up and Down continue to the right from a hidden element.
    const int onward = key == Qt::Key_Left ? Qt::Key_Left : Qt::Key_Right;
    for (int guard = 0; target && !usable(target) && guard < 10000; ++guard)
        target = step(target, onward);
    return target && usable(target) ? target : nullptr;
}

void TVdCriterionPanel::KeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    if (!FFocusElement)
        return;
    TVdCriterionRow* row = FFocusElement->Row();
    const bool ctrl = modifiers & Qt::ControlModifier;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (ctrl && row->IsGroup()) {
            if (!row->IsRoot()) {
                row->SetExpanded(!row->Expanded());
                UpdateScrollRanges();
                viewport()->update();
            }
            return;
        }
        [[fallthrough]];
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (TVdControl* target = MoveTarget(FFocusElement, key))
            SetFocusElement(target);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        SetActiveElement(FFocusElement);
        ScrollIntoView(FFocusElement);
        TextClick(FFocusElement, row->GetTopBound() - verticalScrollBar()->value());
        return;
    case Qt::Key_Insert:
        SetActiveElement(FFocusElement);
        if (ctrl && !row->IsGroup())
            MakeCompositCondition();
        else
            AddCondition();
        return;
    case Qt::Key_Delete:
        if (ctrl) {
            SetActiveElement(FFocusElement);
            DeleteCondition();
        }
        return;
    default:
        return;
    }
}

void TVdCriterionPanel::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Insert:
    case Qt::Key_Delete:
        Guarded([&] { KeyDown(event->key(), event->modifiers()); });
        event->accept();
        return;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

} // namespace vd
