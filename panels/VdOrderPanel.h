#pragma once

// The "Sorting" page: the fields that can be sorted on, and the ORDER BY list with its
// directions. For now both lists are filled read-only; moving fields extends this class.

#include <QStringList>
#include <QWidget>

#include <functional>

class QLabel;
class QListWidget;
class QTreeWidget;

namespace vd {

class TVdSelectParser;

using TVdGetFieldsEvent = std::function<void(QObject* Sender, QStringList& Fields)>;

class TVdOrderPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TVdOrderPanel(QWidget* parent = nullptr);

    TVdSelectParser* Parser() const { return FParser; }
    void SetParser(TVdSelectParser* parser);
    void Clear();
    // Asks for the available fields and shows those not sorted on beside the ORDER BY list.
    void RefreshFields();
    // The last answer of the fields event.
    const QStringList& GetFields() const { return FFields; }
    QListWidget* UnsortedList() const { return FUnsorted; }
    QTreeWidget* SortedList() const { return FSorted; }

    TVdGetFieldsEvent OnGetFields;

private:
    QLabel* FCaption;
    QListWidget* FUnsorted;
    QTreeWidget* FSorted;
    TVdSelectParser* FParser = nullptr;
    QStringList FFields;
};

} // namespace vd
