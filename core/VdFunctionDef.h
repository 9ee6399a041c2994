#pragma once

#include "core/VdCollection.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vd {

enum TVdFunctionKind : std::uint8_t {
    fkUnknown,
    fkFunction,
    fkIdentifier,
    fkInteger,
    fkFloat,
    fkString,
    fkExpression
};

class TVdFunctionDefs;
class TVdTableDef;

// One expression node: a function call with its arguments, an identifier or a literal.
class TVdFunctionDef : public TVdCollectionItem
{
public:
    TVdFunctionDef();
    ~TVdFunctionDef() override;

    void SetParser(TVdSelectParser* parser) override;
    virtual std::unique_ptr<TVdFunctionDefs> CreateArguments();
    virtual std::string GetScript() const;
    virtual void SetName(const std::string& name);
    virtual void SetKind(TVdFunctionKind kind);
    // Back to an empty node of unknown kind without arguments.
    virtual void Clear();
    void Assign(const TVdCollectionItem& source) override;

    const std::string& Name() const { return FName; }
    TVdFunctionKind Kind() const { return FKind; }
    // The argument list, made on first use through CreateArguments.
    TVdFunctionDefs& Arguments();
    int ArgumentCount() const;
    // The argument list if it has been made, else null.
    const TVdFunctionDefs* ArgumentList() const { return FArguments.get(); }
    const TVdFunctionDef* Argument(int index) const;

    // The table whose field this node is part of, reached through nested argument lists.
    const TVdTableDef* OwnerTable() const;

protected:
    // First, so it sits in the base's tail padding.
    TVdFunctionKind FKind = fkUnknown;
    std::string FName;
    std::unique_ptr<TVdFunctionDefs> FArguments;
};

// An argument list or a table's field list; Owner is the item these belong to.
class TVdFunctionDefs : public TVdCollectionOf<TVdFunctionDef>
{
public:
    // Without a maker the items are plain nodes.
    explicit TVdFunctionDefs(TVdCollectionItem* owner, TItemMaker maker = nullptr);
    TVdFunctionDefs(TVdCollectionItem* owner, TItemFactory factory);
    template <class F>
    requires IsStatelessItemMaker<F> TVdFunctionDefs(TVdCollectionItem* owner, F)
        : TVdFunctionDefs(owner, MakerOf<F>())
    {
    }

    // The items' scripts joined by ", ".
    virtual std::string GetScript() const;
    TVdCollectionItem* Owner() const { return FOwner; }
    TVdFunctionDefs* AsFunctionDefs() override { return this; }

    // What the owner is, known when the list is made: the table of a field list, or the node
    // of an argument list.
    // A list belongs to a table or to a node: setting one forgets the other.
    TVdTableDef* OwnerTable() const
    {
        return FLinkKind == lkTable ? static_cast<TVdTableDef*>(FLink) : nullptr;
    }
    TVdFunctionDef* OwnerNode() const
    {
        return FLinkKind == lkNode ? static_cast<TVdFunctionDef*>(FLink) : nullptr;
    }
    void SetOwnerTable(TVdTableDef* table) { SetLink(table, lkTable); }
    void SetOwnerNode(TVdFunctionDef* node) { SetLink(node, lkNode); }

private:
    enum TLinkKind : std::uint8_t { lkNone, lkTable, lkNode };
    void SetLink(void* link, TLinkKind kind)
    {
        if (link) {
            FLink = link;
            FLinkKind = kind;
        } else if (FLinkKind == kind) {
            FLink = nullptr;
            FLinkKind = lkNone;
        }
    }

    // First, so it sits in the base's tail padding.
    TLinkKind FLinkKind = lkNone;
    TVdCollectionItem* FOwner;
    // The table or the node, as FLinkKind says: one word for both.
    void* FLink = nullptr;
};

} // namespace vd
