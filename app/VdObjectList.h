#pragma once

// The database's tables, views and procedures, grouped, for the demo's left pane. An entry
// is dragged onto the builder (MIME type ObjectMimeType, the name as UTF-8) or activated
// (double-click, Enter) to be added.

#include <QTreeWidget>

namespace vd {

class TVdSqlCatalog;

class TVdObjectList : public QTreeWidget
{
    Q_OBJECT

public:
    static const char* const ObjectMimeType;

    explicit TVdObjectList(QWidget* parent = nullptr);

    // Fills the groups from the catalogue; the tool tips list each table's foreign keys.
    void Fill(TVdSqlCatalog& catalog);
    // The object name an item stands for; empty for a group.
    static QString ObjectName(const QTreeWidgetItem* item);
    // What a drag of the object carries; the caller owns it.
    static QMimeData* ObjectMimeData(const QString& name);
    // The object a drag carries; empty when it carries none.
    static QString ObjectOf(const QMimeData* data);

signals:
    void addRequested(const QString& name);

protected:
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;
    QStringList mimeTypes() const override;

private:
    QTreeWidgetItem* AddGroup(const QString& title, const QStringList& names, const QIcon& icon);
};

} // namespace vd
