#pragma once

#include "core/VdObjectPool.h"

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace vd {

class TVdCollection;
class TVdFunctionDefs;
class TVdSelectParser;
class TVdTableDefs;

// An item owned by a TVdCollection. It knows the parser that owns the whole model, through
// which it finds the scanner (quoting) and the script format (letter case).
class TVdCollectionItem
{
public:
    VD_POOLED_OBJECT

    TVdCollectionItem();
    virtual ~TVdCollectionItem();
    TVdCollectionItem(const TVdCollectionItem&) = delete;
    TVdCollectionItem& operator=(const TVdCollectionItem&) = delete;

    TVdSelectParser* Parser() const { return FParser; }
    virtual void SetParser(TVdSelectParser* parser);
    // Copies the contents of another item of a compatible class.
    virtual void Assign(const TVdCollectionItem& source);

    TVdCollection* Collection() const { return FCollection; }
    int Index() const { return FIndexInCollection; }

    std::string ProcessName(const std::string& name) const;
    std::string ProcessKeyword(const std::string& word) const;
    std::string ProcessFunction(const std::string& name) const;

protected:
    // Called once the item stands in its collection, and just before it leaves it.
    virtual void Added() {}
    virtual void Removing() {}

private:
    friend class TVdCollection;
    TVdSelectParser* FParser = nullptr;
    TVdCollection* FCollection = nullptr;
    int FIndexInCollection = -1;
};

// Whether F() makes some item class; false where F cannot be called without arguments.
template <class F, class = void> struct TMakesItem : std::false_type {
};
template <class F>
struct TMakesItem<F, std::void_t<std::invoke_result_t<F>>>
    : std::is_convertible<std::invoke_result_t<F>, std::unique_ptr<TVdCollectionItem>> {
};

// A lambda without captures that makes some item class: a collection keeps it as a plain
// function pointer. The call is looked at only for an empty class: a collection's own copy is
// weighed against the constructors that take one.
template <class F>
inline constexpr bool IsStatelessItemMaker =
    std::conjunction_v<std::is_empty<F>, std::is_default_constructible<F>, TMakesItem<F>>;

// An owning collection. Items are made by the factory the collection was given, so a
// subclass decides the item class; Add hands the new item the collection's parser.
class TVdCollection
{
public:
    VD_POOLED_OBJECT

    using TItemFactory = std::function<std::unique_ptr<TVdCollectionItem>()>;
    // A factory without state: kept as a plain pointer, so a collection costs no std::function
    // (a statement holds dozens of lists).
    using TItemMaker = std::unique_ptr<TVdCollectionItem> (*)();

    // The maker that calls such a lambda.
    template <class F> static TItemMaker MakerOf()
    {
        return []() -> std::unique_ptr<TVdCollectionItem> { return F{}(); };
    }

    explicit TVdCollection(TItemMaker maker);
    explicit TVdCollection(TItemFactory factory);
    // A lambda without captures goes the cheap way.
    template <class F>
    requires IsStatelessItemMaker<F>
    explicit TVdCollection(F) : TVdCollection(MakerOf<F>()) {}

    virtual ~TVdCollection();
    TVdCollection(const TVdCollection&) = delete;
    TVdCollection& operator=(const TVdCollection&) = delete;

    int Count() const { return int(FItems.size()); }
    // Throws EVdListError for a position out of range. Inline: the parser and the printer walk
    // every list through it.
    TVdCollectionItem* GetItem(int index) const
    {
        if (index < 0 || index >= int(FItems.size())) [[unlikely]]
            RaiseIndex(index);
        return FItems[size_t(index)].get();
    }
    TVdCollectionItem* AddItem();
    // An item of the class this collection makes, in no list yet, for AdoptItem to take in
    // once it is filled.
    std::unique_ptr<TVdCollectionItem> NewItem();
    // Appends an item made elsewhere, as AddItem would have added it: taken only when it is
    // of the class the factory makes (known once the collection has made an item) and has the
    // collection's parser; otherwise nothing happens and null is returned, item left as it was.
    TVdCollectionItem* AdoptItem(std::unique_ptr<TVdCollectionItem>& item);
    TVdCollectionItem* InsertItem(int index);
    void Delete(int index);
    // Exchanges the items at two positions. Throws EVdListError for a position out of range.
    void Swap(int first, int second);
    // Moves the items at the given positions to the end of another collection, in their
    // order, in one pass over each. The items stay what they are to the model: neither
    // collection tells them (Removing, Added), so both must belong to one model, as the
    // fields of two of its tables do. Throws EVdListError for a position out of range,
    // before anything moves.
    void TransferItems(std::vector<int> indexes, TVdCollection& to);
    // Moves every item to the end of another collection, in order, on the same terms as
    // TransferItems.
    void TransferAll(TVdCollection& to);
    // Deletes the items at the given positions (in any order) in one pass over the list;
    // each is told (Removing) before any leaves. Throws EVdListError for a position out of
    // range, before anything is deleted.
    void DeleteItems(std::vector<int> indexes);
    void Clear();

    // Replaces the contents with copies of the source's items.
    virtual void Assign(const TVdCollection& source);
    virtual void BeginUpdate();
    virtual void EndUpdate();
    int UpdateCount() const { return FUpdateCount; }

    TVdSelectParser* Parser() const { return FParser; }
    virtual void SetParser(TVdSelectParser* parser);

    // A checked downcast without RTTI cost on the printing and parsing paths.
    virtual TVdFunctionDefs* AsFunctionDefs() { return nullptr; }
    virtual TVdTableDefs* AsTableDefs() { return nullptr; }

protected:
    const std::vector<std::unique_ptr<TVdCollectionItem>>& RawItems() const { return FItems; }
    // Called before Clear removes all items; lets subclasses do bulk bookkeeping.
    virtual void Clearing() {}

private:
    void Renumber(size_t from);
    std::unique_ptr<TVdCollectionItem> MakeItem() const
    {
        return FOwnsFactory ? (*FFactory)() : FMaker();
    }
    [[noreturn]] static void RaiseIndex(int index);

    // One word for either: a statement holds dozens of lists. A factory with state is owned
    // (FOwnsFactory) and deleted with the collection.
    union {
        TItemMaker FMaker;
        TItemFactory* FFactory;
    };
    // The class of the items the factory makes, once it has made one.
    const std::type_info* FItemType = nullptr;
    std::vector<std::unique_ptr<TVdCollectionItem>> FItems;
    TVdSelectParser* FParser = nullptr;
    int FUpdateCount = 0;
    bool FOwnsFactory = false;
};

// Typed access over TVdCollection for a known item class.
template <class Item> class TVdCollectionOf : public TVdCollection
{
public:
    using TVdCollection::TVdCollection;
    Item* Items(int index) const { return static_cast<Item*>(GetItem(index)); }
    Item* Add() { return static_cast<Item*>(AddItem()); }
    Item* Insert(int index) { return static_cast<Item*>(InsertItem(index)); }
};

} // namespace vd
