#include "VdForeignKeyJoins.h"

#include "builder/VdSqlCatalog.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"

namespace vd {

namespace {

// Catalogue names come in the engine's letter case; the diagram keeps what the user added.
bool SameName(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

TVdListItem* Row(const TVdTable* table, const QString& column)
{
    for (int i = 0; i < table->Count(); ++i)
        if (SameName(table->Items(i)->Name(), column))
            return table->Items(i);
    return nullptr;
}

void AddKeyLinks(const TVdWorkArea& area, const TVdForeignKey& key, TVdTable* holder,
                 TVdTable* referenced, QList<TVdKeyLink>& links)
{
    const int pairs = std::min(key.Columns.size(), key.RefColumns.size());
    for (int i = 0; i < pairs; ++i) {
        TVdListItem* row1 = Row(holder, key.Columns[i]);
        TVdListItem* row2 = Row(referenced, key.RefColumns[i]);
        if (row1 && row2 && !area.FindLink(holder, referenced, row1, row2))
            links.append({holder, row1, referenced, row2});
    }
}

} // namespace

QList<TVdKeyLink> ForeignKeyLinks(TVdSqlCatalog& catalog, const TVdWorkArea& area, TVdTable* table)
{
    QList<TVdKeyLink> links;
    if (!table)
        return links;
    const QList<TVdForeignKey> own = catalog.ForeignKeys(table->TableName());
    for (int i = 0; i < area.TablesCount(); ++i) {
        TVdTable* other = area.Tables(i);
        if (other == table)
            continue;
        for (const TVdForeignKey& key : own)
            if (SameName(key.RefTable, other->TableName()))
                AddKeyLinks(area, key, table, other, links);
        for (const TVdForeignKey& key : catalog.ForeignKeys(other->TableName()))
            if (SameName(key.RefTable, table->TableName()))
                AddKeyLinks(area, key, other, table, links);
    }
    return links;
}

int JoinAlongForeignKeys(TVdSqlCatalog& catalog, TVdWorkArea& area, TVdTable* table)
{
    int made = 0;
    for (const TVdKeyLink& link : ForeignKeyLinks(catalog, area, table))
        made += area.AddLink(link.Table1, link.Table2, link.Row1, link.Row2) != nullptr;
    return made;
}

} // namespace vd
