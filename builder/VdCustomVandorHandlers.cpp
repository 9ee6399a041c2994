// The builder's handlers of the views' events: each writes the model, then refreshes the view
// of the active sheet where that is the rule.

#include "builder/VdCustomVandor.h"

#include "builder/VdAliasText.h"
#include "builder/VdOutputOrder.h"
#include "builder/VdPageControl.h"
#include "builder/VdProc.h"
#include "builder/VdQtText.h"
#include "builder/VdTableList.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "panels/VdHavingPanel.h"
#include "panels/VdOrderPanel.h"
#include "panels/VdSelectGrid.h"
#include "panels/VdSelectPanel.h"
#include "panels/VdWherePanel.h"

namespace vd {

namespace {

void SplitFieldValue(const QString& value, QString& table, QString& field)
{
    const qsizetype dot = value.indexOf(QLatin1Char('.'));
    table = dot < 0 ? value : value.left(dot);
    field = dot < 0 ? QString() : value.mid(dot + 1);
}

// File-based tables keep their extension: customer.db.NAME names table customer.db and field
// NAME. Lower case only, "dbf." before "db.".
void ApplyExtensionRule(QString& table, QString& field)
{
    const qsizetype dbf = field.indexOf(QStringLiteral("dbf."));
    const bool extension = dbf == 0 || (dbf < 0 && field.startsWith(QStringLiteral("db.")));
    if (!extension)
        return;
    const qsizetype dot = field.indexOf(QLatin1Char('.'));
    table += QLatin1Char('.') + field.left(dot);
    field = field.mid(dot + 1);
}

} // namespace

TVdTableDef* TCustomVandor::FindDef(const QString& alias) const
{
    return FParser->TableDefs().FindByAlias(ToStdString(alias));
}

void TCustomVandor::HandleHideFieldList(QObject* sender, bool& allow)
{
    if (FWherePanel)
        FWherePanel->HideFieldList(sender, allow);
    if (allow && FHavingPanel)
        FHavingPanel->HideFieldList(sender, allow);
}

void TCustomVandor::HandlePagesChange(QObject*) { RefreshActivePage(); }

void TCustomVandor::HandleCheckField(TVdTable* table, TVdListItem* item)
{
    if (!table || !item)
        return;
    TVdTableDef* def = FindDef(table->GetAlias());
    const std::string name = ToStdString(item->Name());
    bool changed = false;
    if (item->Checked()) {
        if (def && !def->FieldDefs().FindByName(name)) {
            TVdFieldDef* field = def->FieldDefs().Add();
            field->SetName(name);
            field->SetKind(fkIdentifier);
            changed = true;
        }
    } else if (def) {
        if (TVdFieldDef* field = def->FieldDefs().FindByName(name)) {
            def->FieldDefs().Delete(field->Index());
            changed = true;
        }
    }
    RefreshActivePage();
    if (changed)
        emit sqlChanged();
}

void TCustomVandor::HandleAddTable(QObject*, TVdFloatObject* object)
{
    auto* table = dynamic_cast<TVdTable*>(object);
    if (!table)
        return;
    TVdTableDefs& defs = FParser->TableDefs();
    const std::string alias = ToStdString(table->GetAlias());
    const std::string name = ToStdString(table->TableName());
    TVdTableDef* def = defs.FindByAlias(alias);
    if (!def)
        def = defs.FindByName(alias);
    if (!def) {
        def = defs.Add();
        def->SetName(name);
        def->SetAlias(alias);
    }
    def->SetName(name);
    if (auto* proc = dynamic_cast<TVdStoredProc*>(table)) {
        def->SetTableType(qttStoredProc);
        TVdFieldDefs& fields = def->FieldDefs();
        int ordinal = 0;
        for (int i = 0; i < proc->Count(); ++i) {
            TVdListItem* item = proc->Items(i);
            if (item->ParamType() != ptInput && item->ParamType() != ptInputOutput)
                continue;
            const std::string paramName = ToStdString(item->Name());
            TVdFieldDef* field = fields.FindByName(paramName);
            if (!field) {
                // A loaded call already holds its argument at this place (P(5), P(:X)):
                // the argument stays what the statement says.
                int seen = 0;
                for (int f = 0; f < fields.Count() && !field; ++f)
                    if (fields.Items(f)->IsInputParam() && seen++ == ordinal)
                        field = fields.Items(f);
                if (!field) {
                    field = fields.Add();
                    field->SetName(paramName);
                    field->SetKind(fkIdentifier);
                }
            }
            field->SetParamType(item->ParamType());
            ++ordinal;
        }
    } else {
        def->SetTableType(qttTable);
    }
    RefreshActivePage();
    emit sqlChanged();
}

void TCustomVandor::HandleRemoveTable(QObject*, TVdFloatObject* object)
{
    auto* table = dynamic_cast<TVdTable*>(object);
    if (table) {
        if (TVdTableDef* def = FindDef(table->GetAlias()))
            FParser->TableDefs().Delete(def->Index());
    }
    RefreshActivePage();
    emit sqlChanged();
}

namespace {

// The definition that the statement knows by the table's name. With the table twice (a
// self-join) the one under another alias is not it.
TVdTableDef* UnaliasedDef(const TVdTableDefs& defs, const QString& name)
{
    const std::string text = ToStdString(name);
    for (int i = 0; i < defs.Count(); ++i) {
        TVdTableDef* def = defs.Items(i);
        if (def->Name() == text && (def->Alias().empty() || def->Alias() == text))
            return def;
    }
    return defs.FindByName(text);
}

} // namespace

void TCustomVandor::HandleChangeAlias(TVdTable* table, const QString& oldAliasGiven)
{
    if (!table)
        return;
    // A table without an alias was known to the statement by its name.
    const QString oldAlias = oldAliasGiven.trimmed().isEmpty() ? table->TableName() : oldAliasGiven;
    TVdTableDefs& defs = FParser->TableDefs();
    TVdTableDef* def = oldAlias == table->TableName() ? UnaliasedDef(defs, oldAlias)
                                                      : defs.FindByAlias(ToStdString(oldAlias));
    const QString newAlias = table->GetAlias();
    if (def)
        def->SetAlias(ToStdString(newAlias));
    const TVdSQLScanner& scanner = FParser->Scanner();
    const QString newName = ToQString(scanner.ProcessName(ToStdString(newAlias)));
    const QString oldName = ToQString(scanner.ProcessName(ToStdString(oldAlias)));
    if (FWherePanel)
        FWherePanel->ChangeAlias(newName, oldName);
    if (FHavingPanel)
        FHavingPanel->ChangeAlias(newName, oldName);
    if (FSelectPanel)
        FSelectPanel->Grid()->ChangeAlias(newAlias, oldAlias);
    RenameKeptQualifiers(newName, oldName, newAlias, oldAlias);
    RefreshActivePage();
    emit sqlChanged();
}

// What the statement groups by beyond its output fields, and what it orders by, is kept as
// read: a qualifier there follows the table's new alias too, or the statement would name a
// table its FROM no longer has.
void TCustomVandor::RenameKeptQualifiers(const QString& newName, const QString& oldName,
                                         const QString& newAlias, const QString& oldAlias)
{
    const auto rename = [&](const std::string& item) {
        QString text = RenameQualifierInText(ToQString(item), newName, oldName);
        if (newAlias != newName || oldAlias != oldName)
            text = RenameQualifierInText(text, newAlias, oldAlias);
        return ToStdString(text);
    };
    TVdGroupByItems& groups = FParser->GroupByItems();
    std::vector<std::string> kept = groups.KeptItems();
    bool changed = false;
    for (std::string& item : kept) {
        const std::string renamed = rename(item);
        changed = changed || renamed != item;
        item = renamed;
    }
    if (changed) {
        groups.ClearKept();
        for (const std::string& item : kept)
            groups.AddKept(item);
    }
    TVdOrderByItems& orders = FParser->OrderByItems();
    TVdOrderByItems renamed;
    changed = false;
    for (int i = 0; i < orders.Count(); ++i) {
        const std::string line = rename(orders[i]);
        changed = changed || line != orders[i];
        if (orders.IsExpression(i))
            renamed.AddExpression(line, orders.Orders(i));
        else
            renamed.AddOrdered(line, orders.Orders(i));
    }
    if (changed)
        orders.Assign(renamed);
}

void TCustomVandor::HandleSelectField(const QString& fieldValue, const QString& aggregateValue,
                                      const QString& aliasValue)
{
    QString tablePart;
    QString fieldPart;
    SplitFieldValue(fieldValue, tablePart, fieldPart);
    ApplyExtensionRule(tablePart, fieldPart);
    TVdTable* table = FTableList ? FTableList->FindByAlias(tablePart) : nullptr;
    TVdListItem* item = table ? table->FindItem(fieldPart) : nullptr;
    if (!item)
        return;
    // A field that is only aggregated shows no tick in the diagram.
    item->UpdateCheck(aggregateValue.isEmpty());
    TVdTableDef* def = FindDef(tablePart);
    if (!def) {
        def = FParser->TableDefs().Add();
        def->SetName(ToStdString(table->TableName()));
        def->SetAlias(ToStdString(table->GetAlias()));
    }
    const std::string alias = ToStdString(aliasValue);
    TVdFieldDef* field = def->FieldDefs().FindByAlias(alias);
    if (!field)
        field = def->FieldDefs().Add();
    field->SetAlias(alias);
    // A name set again would count as taken by the field itself: its alias would turn into
    // name1 when nothing changed.
    auto rename = [field](const std::string& name) {
        if (field->Name() != name)
            field->SetName(name);
    };
    if (!aggregateValue.isEmpty()) {
        rename(ToStdString(aggregateValue));
        field->SetKind(fkFunction);
        field->Arguments().Clear();
        TVdFunctionDef* argument = field->Arguments().Add();
        argument->SetName(ToStdString(fieldPart));
        argument->SetKind(fkIdentifier);
    } else {
        rename(ToStdString(fieldPart));
        field->SetKind(fkIdentifier);
        field->Arguments().Clear();
    }
    // A row that showed another field now shows this one: that field leaves the select list
    // and this one takes its place, as the grid shows it.
    ReplaceOutputField(FParser->TableDefs(), field, TakeUnselectedField());
    if (FSelectPanel)
        FSelectPanel->Grid()->SetCurrentAliasCell(ToQString(field->Alias()));
    emit sqlChanged();
}

TVdFieldDef* TCustomVandor::TakeUnselectedField()
{
    TVdTableDef* def = FUnselectedAlias.isEmpty() ? nullptr : FindDef(FUnselectedTable);
    TVdFieldDef* field =
        def ? def->FieldDefs().FindByAlias(ToStdString(FUnselectedAlias)) : nullptr;
    FUnselectedTable.clear();
    FUnselectedAlias.clear();
    return field;
}

void TCustomVandor::HandleMoveField(int from, int to)
{
    MoveOutputField(FParser->TableDefs(), from, to);
    emit sqlChanged();
}

TVdFieldDef* TCustomVandor::UntickGridField(const QString& fieldValue, const QString& aliasValue)
{
    QString tablePart;
    QString fieldPart;
    SplitFieldValue(fieldValue, tablePart, fieldPart);
    TVdTable* table = FTableList ? FTableList->FindByAlias(tablePart) : nullptr;
    if (TVdListItem* item = table ? table->FindItem(fieldPart) : nullptr)
        item->UpdateCheck(false);
    TVdTableDef* def = FindDef(tablePart);
    return def ? def->FieldDefs().FindByAlias(ToStdString(aliasValue)) : nullptr;
}

void TCustomVandor::HandleUnselectField(const QString& fieldValue, const QString& aggregateValue,
                                        const QString& aliasValue)
{
    TVdFieldDef* field = UntickGridField(fieldValue, aliasValue);
    FUnselectedTable = field ? ToQString(field->Table()->Alias()) : QString();
    FUnselectedAlias = field ? aliasValue : QString();
    if (!field)
        return;
    const std::string aggregate = ToStdString(aggregateValue);
    if (field->Kind() == fkFunction) {
        if (field->Name() == aggregate)
            return;
        // Even to empty: the select event that follows rebuilds the definition.
        field->SetName(aggregate);
    } else if (field->Kind() == fkIdentifier && !aggregate.empty()) {
        const std::string plain = field->Name();
        field->Arguments().Clear();
        field->SetName(aggregate);
        field->SetKind(fkFunction);
        TVdFunctionDef* argument = field->Arguments().Add();
        argument->SetName(plain);
        argument->SetKind(fkIdentifier);
    } else {
        return;
    }
    emit sqlChanged();
}

void TCustomVandor::HandleDeleteField(const QString& fieldValue, const QString&,
                                      const QString& aliasValue)
{
    TVdFieldDef* field = UntickGridField(fieldValue, aliasValue);
    // A row over no column (COUNT(*)) names no table: its output field is found by its name.
    if (!field && fieldValue.isEmpty())
        for (TVdFieldDef* candidate : FParser->TableDefs().FieldsInOrder())
            if (candidate && !candidate->IsInputParam() &&
                candidate->Alias() == ToStdString(aliasValue)) {
                field = candidate;
                break;
            }
    if (!field)
        return;
    field->Table()->FieldDefs().Delete(field->Index());
    emit sqlChanged();
}

void TCustomVandor::HandleChangeFieldAlias(const QString& fieldValue, const QString& aliasValue,
                                           QString& newAlias)
{
    QString tablePart;
    QString fieldPart;
    SplitFieldValue(fieldValue, tablePart, fieldPart);
    TVdTableDef* def = FindDef(tablePart);
    TVdFieldDef* field = def ? def->FieldDefs().FindByAlias(ToStdString(aliasValue)) : nullptr;
    if (!field)
        return;
    // A column always has a name: a blank cell would show one the statement does not print.
    if (newAlias.trimmed().isEmpty())
        newAlias = aliasValue;
    if (newAlias == aliasValue)
        return;
    // Two output columns of one name would read back as name and name1: the row takes the
    // name the statement will give it.
    const std::string alias = FParser->TableDefs().GetUniqueAlias(ToStdString(newAlias), false);
    newAlias = ToQString(alias);
    field->SetAlias(alias);
    emit sqlChanged();
}

void TCustomVandor::HandleGetOrderFields(QObject*, QStringList& list) { GetAvailableFields(&list); }

void TCustomVandor::HandleAddRemoveField(TVdTable* table, TVdListItem* item)
{
    if (table && item) {
        TVdTableDef* def = FindDef(table->GetAlias());
        if (def && def->FieldDefs().FindByAlias(ToStdString(item->Name()))) {
            if (FSelectPanel)
                FSelectPanel->RefreshFields();
            if (FOrderPanel)
                FOrderPanel->RefreshFields();
        }
    }
    RefreshActivePage();
}

} // namespace vd
