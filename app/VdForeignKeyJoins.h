#pragma once

// Links that a table's foreign keys suggest: between a table just added to the diagram and
// the tables already there, in both directions (keys the new table holds, and keys of the
// others that point to it). Nothing is linked until the user asks; then each pair of key
// columns becomes one link through the work area's AddLink, so the host still decides.

#include <QList>
#include <QString>

namespace vd {

class TVdListItem;
class TVdSqlCatalog;
class TVdTable;
class TVdWorkArea;

struct TVdKeyLink {
    TVdTable* Table1 = nullptr; // the table holding the key
    TVdListItem* Row1 = nullptr;
    TVdTable* Table2 = nullptr; // the table it references
    TVdListItem* Row2 = nullptr;
};

// The links the keys suggest for table that the diagram does not show yet.
QList<TVdKeyLink> ForeignKeyLinks(TVdSqlCatalog& catalog, const TVdWorkArea& area, TVdTable* table);
// Adds them; returns how many links the host accepted.
int JoinAlongForeignKeys(TVdSqlCatalog& catalog, TVdWorkArea& area, TVdTable* table);

} // namespace vd
