#pragma once

// A thin index over the tables of the work area; it owns nothing.

#include <QString>

namespace vd {

class TDataSet;
class TParams;
class TVdTable;
class TVdWorkArea;

class TVdTableList
{
public:
    explicit TVdTableList(TVdWorkArea* workArea) : FWorkArea(workArea) {}

    TVdWorkArea* WorkArea() const { return FWorkArea; }
    int GetTablesCount() const;
    TVdTable* GetTable(int index) const;
    TVdTable* AddTable(const QString& name, TDataSet* dataSet);
    TVdTable* AddProc(const QString& name, TDataSet* dataSet, TParams* params);
    // Closes the table through the work area's close-table command (the host is asked).
    void DeleteTable(TVdTable* table);
    // Exact, case-sensitive, first in index order; null when absent.
    TVdTable* FindByName(const QString& name) const;
    TVdTable* FindByAlias(const QString& alias) const;

private:
    TVdWorkArea* FWorkArea;
};

} // namespace vd
