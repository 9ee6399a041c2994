#pragma once

#include "core/VdFunctionDef.h"

#include <cstdint>
#include <string>

namespace vd {

class TVdTableDef;
class TVdTableDefs;

enum TParamType : std::uint8_t { ptUnknown, ptInput, ptOutput, ptInputOutput, ptResult };

// One output column, or one parameter of a stored procedure.
class TVdFieldDef : public TVdFunctionDef
{
public:
    TVdFieldDef();
    ~TVdFieldDef() override;

    void Assign(const TVdCollectionItem& source) override;
    std::string GetScript() const override;
    // A field whose alias followed its name gets an alias generated from the new name.
    void SetName(const std::string& name) override;
    // An expression column whose alias followed its name is named FIELD_1, FIELD_2, ...
    void SetKind(TVdFunctionKind kind) override;
    void Clear() override;
    virtual std::string GenerateAlias(const std::string& name, bool unique) const;

    const std::string& Alias() const { return FAlias; }
    void SetAlias(const std::string& alias);
    // The place in the statement-wide field order, 0-based.
    int FieldIndex() const { return FIndex; }
    void SetFieldIndex(int index) { FIndex = index; }
    TParamType ParamType() const { return FParamType; }
    void SetParamType(TParamType type) { FParamType = type; }
    // Input parameters print as a procedure's arguments, never as output columns.
    bool IsInputParam() const { return FParamType == ptInput || FParamType == ptInputOutput; }

    // The owning table's alias, or its name when the alias is empty.
    std::string GetTableAlias() const;
    std::string ProcessAlias(const std::string& alias) const;

    TVdTableDef* Table() const;
    TVdTableDefs* TableDefs() const;

protected:
    void Added() override;
    void Removing() override;

private:
    // SetAlias for the collection TableDefs gives.
    void SetAliasIn(TVdTableDefs* tables, const std::string& alias);

    // The small members first: they share a word the alias would leave as padding.
    TParamType FParamType = ptResult;
    int FIndex = -1;
    std::string FAlias;
};

// A table's field list.
class TVdFieldDefs : public TVdFunctionDefs
{
public:
    explicit TVdFieldDefs(TVdCollectionItem* owner);

    TVdFieldDef* Items(int index) const { return static_cast<TVdFieldDef*>(GetItem(index)); }
    TVdFieldDef* Add() { return static_cast<TVdFieldDef*>(AddItem()); }
    TVdFieldDef* Insert(int index) { return static_cast<TVdFieldDef*>(InsertItem(index)); }
    TVdFieldDef* FindByName(const std::string& name) const;
    TVdFieldDef* FindByAlias(const std::string& alias) const;
    // Every field but the input parameters, each on its own line; a separator is written
    // after every item that is not the collection's last, so an input parameter in last
    // place leaves a trailing ",\r\n".
    std::string GetScript() const override;

protected:
    void Clearing() override;
};

} // namespace vd
