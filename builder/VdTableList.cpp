#include "builder/VdTableList.h"

#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"

namespace vd {

int TVdTableList::GetTablesCount() const { return FWorkArea->TablesCount(); }

TVdTable* TVdTableList::GetTable(int index) const { return FWorkArea->Tables(index); }

TVdTable* TVdTableList::AddTable(const QString& name, TDataSet* dataSet)
{
    return FWorkArea->AddPanel(name, dataSet);
}

TVdTable* TVdTableList::AddProc(const QString& name, TDataSet* dataSet, TParams* params)
{
    return FWorkArea->AddProc(name, dataSet, params);
}

void TVdTableList::DeleteTable(TVdTable* table) { FWorkArea->CMCloseTable(table); }

TVdTable* TVdTableList::FindByName(const QString& name) const
{
    for (int i = 0; i < GetTablesCount(); ++i) {
        TVdTable* table = GetTable(i);
        if (table && table->TableName() == name)
            return table;
    }
    return nullptr;
}

TVdTable* TVdTableList::FindByAlias(const QString& alias) const
{
    for (int i = 0; i < GetTablesCount(); ++i) {
        TVdTable* table = GetTable(i);
        if (table && table->GetAlias() == alias)
            return table;
    }
    return nullptr;
}

} // namespace vd
