// Mouse, keyboard and menu handling of a table object. The work area hit-tests and routes;
// positions arrive in window coordinates.

#include "builder/VdCustomVandor.h"
#include "builder/VdDialogService.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "resources/VdResource.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace vd {

namespace {

// Keys that end the find-as-you-type search; everything else edits the text.
bool EndsFind(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape ||
           key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

class TVdFindEditKeys : public QObject
{
public:
    TVdFindEditKeys(QLineEdit* edit, TVdWorkArea* workArea)
        : QObject(edit), FEdit(edit), FWorkArea(workArea)
    {
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != FEdit || event->type() != QEvent::KeyPress)
            return false;
        const auto* keyEvent = static_cast<QKeyEvent*>(event);
        TVdTable* table = FWorkArea->FindTable();
        if (!EndsFind(keyEvent->key()) || !FWorkArea->HasTable(table))
            return false;
        VdRunGuarded(
            FEdit, [&] { table->HandleFindField(FEdit, keyEvent->key(), keyEvent->modifiers()); });
        return true;
    }

private:
    QLineEdit* FEdit;
    TVdWorkArea* FWorkArea;
};

} // namespace

void InstallFindEditKeys(QLineEdit* edit, TVdWorkArea* workArea)
{
    edit->installEventFilter(new TVdFindEditKeys(edit, workArea));
}

void TVdTable::MouseDown(QMouseEvent* event, TTableHitTest hit)
{
    const QPoint window = event->position().toPoint();
    if (hit == htTCheck) {
        SetFieldState(FFieldState == 2 ? 0 : 2);
    } else if (hit == htTbutton) {
        FPressedButton = GetButtonAt(window);
        FPressedOver = true;
        InvalidateButtons();
    } else if (hit == htTClient) {
        if (FCurrentItem)
            InvalidateRow(FCurrentItem);
        if (TVdListItem* row = GetItemAt(window.x(), window.y())) {
            FCurrentItem = row;
            InvalidateRow(row);
        }
    }
    TVdFloatObject::MouseDown(event, hit);
}

void TVdTable::MouseMove(QMouseEvent* event, TTableHitTest hit)
{
    const QPoint window = event->position().toPoint();
    const bool buttonDown = event->buttons() != Qt::NoButton;
    if (hit == htTbutton && FSelected) {
        const int button = GetButtonAt(window);
        static QString (*const hints[3])() = {VdResource::CollapseExpandTableHint,
                                              VdResource::UnlinkTableHint,
                                              VdResource::CloseTableHint};
        FHint = hints[button]();
        FHotButton = button;
        FPressedOver = FPressedButton == button;
        InvalidateButtons();
    } else {
        if (FHotButton >= 0 || FPressedButton >= 0) {
            FHotButton = -1;
            FPressedOver = false;
            InvalidateButtons();
        }
        if (hit == htTClient) {
            const QRect row = FCurrentItem ? GetItemRect(FCurrentItem) : QRect();
            const int x = window.x() + FWorkArea->ScrollOffset().x();
            if (FCurrentItem && FCurrentItem->ParamType() == ptOutput &&
                (event->buttons() & Qt::LeftButton) && x > row.left() + FItemHeight) {
                FWorkArea->StartFieldDrag(this);
            } else if (const TVdListItem* under = GetItemAt(window.x(), window.y())) {
                FHint =
                    under->Name() + QStringLiteral(" (") + under->GetDataName() + QLatin1Char(')');
            }
        } else if (hit == htTCheck && !buttonDown) {
            FHint = FFieldState == 2 ? VdResource::UnselectAllFieldsHint()
                                     : VdResource::SelectAllFieldsHint();
        } else if (hit == htTCaption && !buttonDown) {
            FHint = VdResource::EditAliasHint();
        }
    }
    TVdFloatObject::MouseMove(event, hit);
}

void TVdTable::LeaveHit(QMouseEvent* event, TTableHitTest hit)
{
    if (FHotButton >= 0) {
        FHotButton = -1;
        FPressedOver = false;
        InvalidateButtons();
    }
    TVdFloatObject::LeaveHit(event, hit);
}

void TVdTable::MouseUp(QMouseEvent* event, TTableHitTest hit)
{
    const QPoint window = event->position().toPoint();
    const int pressed = FPressedButton;
    FPressedButton = -1;
    FPressedOver = false;
    if (pressed >= 0)
        InvalidateButtons();
    if (hit == htTbutton && pressed >= 0 && GetButtonAt(window) == pressed) {
        if (pressed == 2) {
            // The table may be gone after this: nothing of it may run afterwards.
            Close();
            return;
        }
        if (pressed == 1)
            Unlink();
        else
            SetExpand(!FExpanded);
    } else if (hit == htTClient) {
        TVdListItem* row = GetItemAt(window.x(), window.y());
        const QRect rect = row ? GetItemRect(row) : QRect();
        const int x = window.x() + FWorkArea->ScrollOffset().x();
        if (row && row == FCurrentItem && row->ParamType() == ptOutput && x >= rect.left() &&
            x < rect.left() + FItemHeight)
            row->SetCheck(!row->Checked());
    }
    TVdFloatObject::MouseUp(event, hit);
}

void TVdTable::DblClick(QMouseEvent*, TTableHitTest hit)
{
    if (hit == htTCaption)
        HandleRenameTable();
    else if (hit == htTClient)
        ToggleCurrent();
}

void TVdTable::ToggleCurrent()
{
    if (FCurrentItem)
        FCurrentItem->SetCheck(!FCurrentItem->Checked());
}

void TVdTable::KeyDown(int& key, Qt::KeyboardModifiers shift)
{
    TVdFloatObject::KeyDown(key, shift);
    const int current = FCurrentItem ? IndexOf(FCurrentItem) : FFirstVisibleItem;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        ToggleCurrent();
        return;
    case Qt::Key_Right:
    case Qt::Key_Down:
        MoveCurrent(current + 1);
        return;
    case Qt::Key_Left:
    case Qt::Key_Up:
        MoveCurrent(current - 1);
        return;
    case Qt::Key_PageUp:
        MoveCurrent(current + 1 - FVisibleItems);
        return;
    case Qt::Key_PageDown:
        MoveCurrent(current + FVisibleItems - 1);
        return;
    case Qt::Key_Home:
        MoveCurrent(0);
        return;
    case Qt::Key_End:
        MoveCurrent(Count() - 1);
        return;
    default:
        break;
    }
    if (key >= 48 && key <= 90 && !(shift & (Qt::ControlModifier | Qt::AltModifier)))
        StartFind(key);
}

void TVdTable::MoveCurrent(int index)
{
    if (Count() == 0)
        return;
    index = std::clamp(index, 0, Count() - 1);
    TVdListItem* row = Items(index);
    if (row == FCurrentItem)
        return;
    if (FCurrentItem)
        InvalidateRow(FCurrentItem);
    FCurrentItem = row;
    ScrollIntoView(index);
    InvalidateRow(row);
    FWorkArea->viewport()->repaint();
}

void TVdTable::ScrollIntoView(int index)
{
    int first = FFirstVisibleItem;
    if (index >= first + FVisibleItems)
        first += index - first - FVisibleItems + 1;
    else if (index < first)
        first += index - first;
    if (first == FFirstVisibleItem)
        return;
    // Through the shared bar when it shows this table, so that bar and rows agree.
    if (ScrollBarShown())
        FWorkArea->RowScrollBar()->setValue(first);
    else
        SetFirstVisibleItem(first);
}

void TVdTable::StartFind(int key)
{
    FWorkArea->SetSelected(this);
    QLineEdit* edit = FWorkArea->FindEdit();
    const QRect bounds = GetBoundsRect().translated(-FWorkArea->ScrollOffset());
    edit->setGeometry(bounds.left(), bounds.bottom() + 2, bounds.width(), 15);
    FWorkArea->SetFindTable(this);
    edit->setText(QString(QChar(key)));
    edit->show();
    edit->setFocus();
    HandleFindField(edit, 0, {});
}

void TVdTable::HandleFindField(QLineEdit* edit, int key, Qt::KeyboardModifiers)
{
    if (EndsFind(key)) {
        edit->hide();
        if (FWorkArea->FindTable() == this)
            FWorkArea->SetFindTable(nullptr);
        FWorkArea->setFocus();
        return;
    }
    const QString wanted = edit->text().toUpper();
    for (int i = 0; i < Count(); ++i)
        if (Items(i)->Name().toUpper().startsWith(wanted)) {
            MoveCurrent(i);
            return;
        }
}

void TVdTable::HandleRenameTable()
{
    FWorkArea->SetSelected(this);
    QLineEdit* edit = FWorkArea->AliasEdit();
    edit->setGeometry(GetCaptionRect().translated(-FWorkArea->ScrollOffset()).translated(0, 1));
    edit->setText(GetAlias());
    edit->show();
    edit->setFocus();
    edit->selectAll();
}

void TVdTable::HandleRemoveTable() { Close(); }

void TVdTable::PopupMenu(QMenu* menu, int, int, TTableHitTest hit)
{
    if (!menu || hit != htTCaption)
        return;
    menu->clear();
    TVdWorkArea* area = FWorkArea;
    QObject::connect(menu->addAction(VdResource::DeleteTableItem()), &QAction::triggered, area,
                     [this, area] { VdRunGuarded(area, [this] { HandleRemoveTable(); }); });
    menu->addSeparator();
    QObject::connect(menu->addAction(VdResource::RenameTableItem()), &QAction::triggered, area,
                     [this, area] { VdRunGuarded(area, [this] { HandleRenameTable(); }); });
}

} // namespace vd
