#include "core/VdCollection.h"

#include "core/VdError.h"
#include "core/VdSelectParser.h"

#include <algorithm>

namespace vd {

TVdCollectionItem::TVdCollectionItem() = default;
TVdCollectionItem::~TVdCollectionItem() = default;

void TVdCollectionItem::SetParser(TVdSelectParser* parser) { FParser = parser; }

void TVdCollectionItem::Assign(const TVdCollectionItem&) {}

std::string TVdCollectionItem::ProcessName(const std::string& name) const
{
    return FParser ? FParser->ProcessItemName(name) : name;
}

std::string TVdCollectionItem::ProcessKeyword(const std::string& word) const
{
    return FParser ? FParser->ProcessKeyword(word) : word;
}

std::string TVdCollectionItem::ProcessFunction(const std::string& name) const
{
    return FParser ? FParser->ProcessFunction(name) : name;
}

TVdCollection::TVdCollection(TItemMaker maker) : FMaker(maker) {}

TVdCollection::TVdCollection(TItemFactory factory)
    : FFactory(new TItemFactory(std::move(factory))), FOwnsFactory(true)
{
}

TVdCollection::~TVdCollection()
{
    Clear();
    if (FOwnsFactory)
        delete FFactory;
}

void TVdCollection::RaiseIndex(int index) { throw EVdListError(index); }

TVdCollectionItem* TVdCollection::AddItem() { return InsertItem(int(FItems.size())); }

TVdCollectionItem* TVdCollection::InsertItem(int index)
{
    if (index < 0 || index > int(FItems.size()))
        throw EVdListError(index);
    std::unique_ptr<TVdCollectionItem> item = MakeItem();
    TVdCollectionItem* raw = item.get();
    FItemType = &typeid(*raw);
    raw->FCollection = this;
    // Most lists of a statement hold a few items: room for four at once spares the vector
    // growing through one and two.
    if (FItems.capacity() == 0)
        FItems.reserve(4);
    FItems.insert(FItems.begin() + index, std::move(item));
    Renumber(size_t(index));
    raw->SetParser(FParser);
    raw->Added();
    return raw;
}

std::unique_ptr<TVdCollectionItem> TVdCollection::NewItem()
{
    std::unique_ptr<TVdCollectionItem> item = MakeItem();
    const TVdCollectionItem& made = *item;
    FItemType = &typeid(made);
    return item;
}

TVdCollectionItem* TVdCollection::AdoptItem(std::unique_ptr<TVdCollectionItem>& item)
{
    TVdCollectionItem* raw = item.get();
    if (!raw || raw->FCollection || !FItemType || typeid(*raw) != *FItemType ||
        raw->Parser() != FParser)
        return nullptr;
    raw->FCollection = this;
    if (FItems.capacity() == 0)
        FItems.reserve(4);
    FItems.push_back(std::move(item));
    Renumber(FItems.size() - 1);
    raw->Added();
    return raw;
}

void TVdCollection::Delete(int index)
{
    TVdCollectionItem* item = GetItem(index);
    item->Removing();
    std::unique_ptr<TVdCollectionItem> owned = std::move(FItems[size_t(index)]);
    FItems.erase(FItems.begin() + index);
    Renumber(size_t(index));
    owned.reset();
}

void TVdCollection::Swap(int first, int second)
{
    GetItem(first);
    GetItem(second);
    std::swap(FItems[size_t(first)], FItems[size_t(second)]);
    FItems[size_t(first)]->FIndexInCollection = first;
    FItems[size_t(second)]->FIndexInCollection = second;
}

void TVdCollection::TransferItems(std::vector<int> indexes, TVdCollection& to)
{
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    if (indexes.empty() || &to == this)
        return;
    for (int index : indexes)
        GetItem(index);
    const size_t appended = to.FItems.size();
    const size_t first = size_t(indexes.front());
    size_t kept = first;
    size_t next = 0;
    for (size_t i = first; i < FItems.size(); ++i) {
        if (next < indexes.size() && size_t(indexes[next]) == i) {
            FItems[i]->FCollection = &to;
            to.FItems.push_back(std::move(FItems[i]));
            ++next;
        } else {
            FItems[kept++] = std::move(FItems[i]);
        }
    }
    FItems.resize(kept);
    Renumber(first);
    to.Renumber(appended);
}

void TVdCollection::TransferAll(TVdCollection& to)
{
    if (&to == this || FItems.empty())
        return;
    const size_t appended = to.FItems.size();
    to.FItems.reserve(appended + FItems.size());
    for (auto& item : FItems) {
        item->FCollection = &to;
        to.FItems.push_back(std::move(item));
    }
    FItems.clear();
    to.Renumber(appended);
}

void TVdCollection::DeleteItems(std::vector<int> indexes)
{
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    if (indexes.empty())
        return;
    for (int index : indexes)
        GetItem(index);
    for (int index : indexes)
        FItems[size_t(index)]->Removing();
    std::vector<std::unique_ptr<TVdCollectionItem>> removed;
    removed.reserve(indexes.size());
    const size_t first = size_t(indexes.front());
    size_t kept = first;
    size_t next = 0;
    for (size_t i = first; i < FItems.size(); ++i) {
        if (next < indexes.size() && size_t(indexes[next]) == i) {
            removed.push_back(std::move(FItems[i]));
            ++next;
        } else {
            FItems[kept++] = std::move(FItems[i]);
        }
    }
    FItems.resize(kept);
    Renumber(first);
}

void TVdCollection::Clear()
{
    if (FItems.empty())
        return;
    Clearing();
    // The items go while the list is already empty; the buffer comes back for the next fill
    // (a parser reused for statement after statement refills the same lists).
    std::vector<std::unique_ptr<TVdCollectionItem>> items;
    items.swap(FItems);
    items.clear();
    if (FItems.empty())
        FItems.swap(items);
}

void TVdCollection::Assign(const TVdCollection& source)
{
    if (&source == this)
        return;
    BeginUpdate();
    Clear();
    // The count is known: room for exactly that many (InsertItem would make room for four).
    FItems.reserve(source.FItems.size());
    for (const auto& item : source.FItems)
        AddItem()->Assign(*item);
    EndUpdate();
}

void TVdCollection::BeginUpdate() { ++FUpdateCount; }

void TVdCollection::EndUpdate()
{
    if (FUpdateCount > 0)
        --FUpdateCount;
}

void TVdCollection::SetParser(TVdSelectParser* parser)
{
    FParser = parser;
    for (auto& item : FItems)
        item->SetParser(parser);
}

void TVdCollection::Renumber(size_t from)
{
    for (size_t i = from; i < FItems.size(); ++i)
        FItems[i]->FIndexInCollection = int(i);
}

} // namespace vd
