#include "core/VdFieldDef.h"

#include "core/VdScanner.h"
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"
#include "core/VdTableDef.h"

#include <typeinfo>

namespace vd {

TVdFieldDef::TVdFieldDef() = default;

TVdFieldDef::~TVdFieldDef() = default;

TVdTableDef* TVdFieldDef::Table() const
{
    TVdCollection* collection = Collection();
    const TVdFunctionDefs* list = collection ? collection->AsFunctionDefs() : nullptr;
    return list ? list->OwnerTable() : nullptr;
}

TVdTableDefs* TVdFieldDef::TableDefs() const
{
    const TVdTableDef* table = Table();
    return table && table->Collection() ? table->Collection()->AsTableDefs() : nullptr;
}

void TVdFieldDef::Added()
{
    if (TVdTableDefs* tables = TableDefs())
        tables->FieldAdded(*this);
    else
        FIndex = Index();
}

void TVdFieldDef::Removing()
{
    if (TVdTableDefs* tables = TableDefs())
        tables->FieldRemoved(*this);
}

void TVdFieldDef::SetAlias(const std::string& alias) { SetAliasIn(TableDefs(), alias); }

void TVdFieldDef::SetAliasIn(TVdTableDefs* tables, const std::string& alias)
{
    if (alias == FAlias)
        return;
    if (tables)
        tables->AliasChanged(FAlias, alias);
    FAlias = alias;
}

void TVdFieldDef::Assign(const TVdCollectionItem& source)
{
    TVdFunctionDef::Assign(source);
    if (const auto* src = dynamic_cast<const TVdFieldDef*>(&source)) {
        SetAlias(src->FAlias);
        FParamType = src->FParamType;
    }
}

namespace {

// What TVdFieldDef::GetScript prints: the node, then " AS alias" unless the alias is the name.
void AppendOwnScript(std::string& out, const TVdFieldDef& field)
{
    script::AppendFunctionScript(out, field);
    const std::string& alias = field.Alias();
    if (alias.empty() || alias == field.Name())
        return;
    out += ' ';
    script::AppendKeyword(out, field.Parser(), "AS");
    out += ' ';
    script::AppendAlias(out, field.Parser(), alias);
}

} // namespace

void script::AppendFieldScript(std::string& out, const TVdFieldDef& field)
{
    if (typeid(field) == typeid(TVdFieldDef))
        AppendOwnScript(out, field);
    else
        out += field.GetScript();
}

std::string TVdFieldDef::GetScript() const
{
    std::string out;
    AppendOwnScript(out, *this);
    return out;
}

void TVdFieldDef::SetName(const std::string& name)
{
    if (FAlias == FName) {
        TVdTableDefs* tables = TableDefs();
        // What GenerateAlias gives where no other field holds the name, taken without the
        // copy it returns.
        if (tables && typeid(*this) == typeid(TVdFieldDef) && !tables->IsAliasUsed(name))
            SetAliasIn(tables, name);
        else
            SetAlias(GenerateAlias(name, false));
    }
    TVdFunctionDef::SetName(name);
}

void TVdFieldDef::SetKind(TVdFunctionKind kind)
{
    if (FAlias == FName && kind != fkUnknown && kind != fkIdentifier)
        SetAlias(GenerateAlias("FIELD_", true));
    TVdFunctionDef::SetKind(kind);
}

void TVdFieldDef::Clear()
{
    TVdFunctionDef::Clear();
    SetAlias(std::string());
}

std::string TVdFieldDef::GenerateAlias(const std::string& name, bool unique) const
{
    if (TVdTableDefs* tables = TableDefs())
        return tables->GetUniqueAlias(name, unique);
    return unique ? name + "1" : name;
}

std::string TVdFieldDef::GetTableAlias() const
{
    const TVdTableDef* table = Table();
    if (!table)
        return std::string();
    return table->Alias().empty() ? table->Name() : table->Alias();
}

std::string TVdFieldDef::ProcessAlias(const std::string& alias) const
{
    if (Parser() && Parser()->Scanner().GetProcessAliases())
        return ProcessName(alias);
    return alias;
}

TVdFieldDefs::TVdFieldDefs(TVdCollectionItem* owner)
    : TVdFunctionDefs(owner, [] { return std::make_unique<TVdFieldDef>(); })
{
}

TVdFieldDef* TVdFieldDefs::FindByName(const std::string& name) const
{
    for (int i = 0; i < Count(); ++i)
        if (Items(i)->Name() == name)
            return Items(i);
    return nullptr;
}

TVdFieldDef* TVdFieldDefs::FindByAlias(const std::string& alias) const
{
    for (int i = 0; i < Count(); ++i)
        if (Items(i)->Alias() == alias)
            return Items(i);
    return nullptr;
}

std::string TVdFieldDefs::GetScript() const
{
    std::string result;
    for (int i = 0; i < Count(); ++i) {
        const TVdFieldDef* field = Items(i);
        if (field->IsInputParam())
            continue;
        result += "  ";
        script::AppendFieldScript(result, *field);
        if (i < Count() - 1)
            result += ",\r\n";
    }
    return result;
}

void TVdFieldDefs::Clearing()
{
    if (auto* table = dynamic_cast<TVdTableDef*>(Owner()))
        if (auto* tables = dynamic_cast<TVdTableDefs*>(table->Collection()))
            tables->FieldsRemoved(*table);
}

} // namespace vd
