#include "VdObjectList.h"

#include "builder/VdSqlCatalog.h"
#include "resources/VdImages.h"

#include <QHeaderView>
#include <QMimeData>

namespace vd {

const char* const TVdObjectList::ObjectMimeType = "application/x-vandor-object";

namespace {

constexpr int NameRole = Qt::UserRole + 1;

QString ForeignKeyTip(TVdSqlCatalog& catalog, const QString& table)
{
    QStringList lines;
    for (const TVdForeignKey& key : catalog.ForeignKeys(table))
        lines << QStringLiteral("%1 \u2192 %2 (%3)")
                     .arg(key.Columns.join(QStringLiteral(", ")), key.RefTable,
                          key.RefColumns.join(QStringLiteral(", ")));
    return lines.isEmpty() ? table : table + QLatin1Char('\n') + lines.join(QLatin1Char('\n'));
}

} // namespace

TVdObjectList::TVdObjectList(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setColumnCount(1);
    setRootIsDecorated(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        const QString name = ObjectName(item);
        if (!name.isEmpty())
            emit addRequested(name);
    });
}

QTreeWidgetItem* TVdObjectList::AddGroup(const QString& title, const QStringList& names,
                                         const QIcon& icon)
{
    auto* group =
        new QTreeWidgetItem(this, {QStringLiteral("%1 (%2)").arg(title).arg(names.size())});
    group->setFlags(Qt::ItemIsEnabled);
    QFont bold = group->font(0);
    bold.setBold(true);
    group->setFont(0, bold);
    QStringList sorted = names;
    sorted.sort(Qt::CaseInsensitive);
    for (const QString& name : sorted) {
        auto* item = new QTreeWidgetItem(group, {name});
        item->setData(0, NameRole, name);
        item->setIcon(0, icon);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
    }
    group->setExpanded(true);
    return group;
}

void TVdObjectList::Fill(TVdSqlCatalog& catalog)
{
    clear();
    QTreeWidgetItem* tables = AddGroup(tr("Tables"), catalog.Tables(), VdIcon("TABLEBMP"));
    for (int i = 0; i < tables->childCount(); ++i)
        tables->child(i)->setToolTip(0, ForeignKeyTip(catalog, ObjectName(tables->child(i))));
    AddGroup(tr("Views"), catalog.Views(), VdIcon("TABLEBMP"));
    AddGroup(tr("Procedures"), catalog.Procedures(), VdIcon("INPUTPARAM"));
}

QString TVdObjectList::ObjectName(const QTreeWidgetItem* item)
{
    return item ? item->data(0, NameRole).toString() : QString();
}

QStringList TVdObjectList::mimeTypes() const
{
    return {QString::fromLatin1(ObjectMimeType), QStringLiteral("text/plain")};
}

QMimeData* TVdObjectList::mimeData(const QList<QTreeWidgetItem*>& items) const
{
    const QString name = items.isEmpty() ? QString() : ObjectName(items.first());
    return name.isEmpty() ? nullptr : ObjectMimeData(name);
}

QMimeData* TVdObjectList::ObjectMimeData(const QString& name)
{
    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(ObjectMimeType), name.toUtf8());
    data->setText(name);
    return data;
}

QString TVdObjectList::ObjectOf(const QMimeData* data)
{
    const QString type = QString::fromLatin1(ObjectMimeType);
    if (!data || !data->hasFormat(type))
        return QString();
    return QString::fromUtf8(data->data(type));
}

} // namespace vd
