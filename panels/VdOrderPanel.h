#pragma once

// The "Sorting" page: the fields that can be sorted on, and the ORDER BY list with a direction
// per entry. Every change is written straight into the parser's ORDER BY list (UpdateParser);
// the available fields are asked of the builder through OnGetFields.

#include <QStringList>
#include <QWidget>

#include <functional>

class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace vd {

class TVdSelectParser;

using TVdGetFieldsEvent = std::function<void(QObject* Sender, QStringList& Fields)>;

class TVdOrderPanel : public QWidget
{
    Q_OBJECT

public:
    // Raises EVdError "Invalid parent for OrderPanel" without a parent widget.
    explicit TVdOrderPanel(QWidget* parent);

    TVdSelectParser* Parser() const { return FParser; }
    void SetParser(TVdSelectParser* parser);
    void Clear();
    // Asks for the available fields; when they differ from the unsorted list, both lists are
    // filled anew from them and the model's ORDER BY list.
    void RefreshFields();
    // The model's ORDER BY list becomes the sorted entries, in display order.
    void UpdateParser();
    // Asks OnGetFields and returns its answer (kept until the next call).
    const QStringList& GetFields();
    // The last answer of the fields event.
    const QStringList& Fields() const { return FFields; }

    // Button states from the lists' selections.
    void HandleSelectItem();
    void HandleAddClick();
    void HandleAddAllClick();
    void HandleRemoveClick();
    void HandleRemoveAllClick();
    void HandleChangeOrder();
    void HandleMoveUp();
    void HandleMoveDown();
    // Drags onto the sorted list: from the unsorted list (adds) or from itself (reorders);
    // pos in the sorted list's viewport coordinates.
    bool HandleDragOverOrder(QObject* source);
    void HandleDragDropOrder(QObject* source, const QPoint& pos);
    // Drags onto the unsorted list: only from the sorted list (removes).
    bool HandleDragOverUnOrder(QObject* source);
    void HandleDragDropUnOrder(QObject* source);

    QLabel* CaptionLabel() const { return FCaption; }
    QListWidget* UnsortedList() const { return FUnsorted; }
    QTreeWidget* SortedList() const { return FSorted; }
    QToolButton* AddButton() const { return FAdd; }
    QToolButton* AddAllButton() const { return FAddAll; }
    QToolButton* RemoveButton() const { return FRemove; }
    QToolButton* RemoveAllButton() const { return FRemoveAll; }
    QPushButton* DirectionButton() const { return FDirection; }
    QPushButton* UpButton() const { return FUp; }
    QPushButton* DownButton() const { return FDown; }

    TVdGetFieldsEvent OnGetFields;

signals:
    // The model's ORDER BY list was rebuilt from the sorted entries.
    void orderChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateLists();
    void CreateButtons();
    QToolButton* MakePictureButton(const char* glyph, int top, const QString& hint);
    QPushButton* MakePushButton(const QString& caption, int width, const QString& hint);
    QTreeWidgetItem* AppendSorted(const QString& text, const QString& order);
    QTreeWidgetItem* SelectedEntry() const;
    // Moves the selected entry so that it lands at index (display order).
    void MoveSelectedTo(int index);
    bool ListKey(QObject* list, int key, Qt::KeyboardModifiers modifiers);
    bool DragEvent(QObject* list, QEvent* event);

    QLabel* FCaption;
    QListWidget* FUnsorted;
    QTreeWidget* FSorted;
    QToolButton* FAdd;
    QToolButton* FAddAll;
    QToolButton* FRemove;
    QToolButton* FRemoveAll;
    QPushButton* FDirection;
    QPushButton* FUp;
    QPushButton* FDown;
    TVdSelectParser* FParser = nullptr;
    QStringList FFields;
};

} // namespace vd
