#include "core/VdNameCounts.h"

#include <functional>
#include <stdexcept>

namespace vd {

std::uint32_t TVdNameCounts::HashOf(std::string_view name)
{
    return std::uint32_t(std::hash<std::string_view>{}(name));
}

// The slot that holds name, or the empty one where it would go.
size_t TVdNameCounts::SlotOf(std::string_view name, std::uint32_t hash) const
{
    const std::vector<TSlot>& slots = FTable->Slots;
    const size_t mask = slots.size() - 1;
    size_t at = hash & mask;
    while (slots[at].Used() && (slots[at].Hash != hash || NameOf(slots[at]) != name))
        at = (at + 1) & mask;
    return at;
}

int* TVdNameCounts::Find(std::string_view name)
{
    if (FTable) {
        TSlot& slot = FTable->Slots[SlotOf(name, HashOf(name))];
        return slot.Used() ? &slot.Count : nullptr;
    }
    for (auto& entry : FList)
        if (entry.first == name)
            return &entry.second;
    return nullptr;
}

int& TVdNameCounts::operator[](std::string_view name)
{
    if (!FTable) {
        if (int* found = Find(name))
            return *found;
        if (FList.size() < ListLimit)
            return FList.emplace_back(std::string(name), 0).second;
        // The list is full: its names move to the table.
        FTable = std::make_unique<TTable>();
        Repack(64);
        for (const auto& [listed, count] : FList)
            Place(Store(listed, HashOf(listed), count));
        FTable->Count = FList.size();
        FList.clear();
        FList.shrink_to_fit();
    }
    TTable& table = *FTable;
    const std::uint32_t hash = HashOf(name);
    size_t at = SlotOf(name, hash);
    if (table.Slots[at].Used())
        return table.Slots[at].Count;
    if ((table.Count + 1) * 2 > table.Slots.size()) {
        Repack(table.Slots.size() * 2);
        at = SlotOf(name, hash);
    } else if (table.Names.size() > 4 * table.LiveSize + 4096) {
        Repack(table.Slots.size());
        at = SlotOf(name, hash);
    }
    table.Slots[at] = Store(name, hash, 0);
    ++table.Count;
    return table.Slots[at].Count;
}

// Linear probing without tombstones: the names after the freed slot that would be found
// through it move back into it, one after another.
void TVdNameCounts::Erase(std::string_view name)
{
    if (!FTable) {
        for (auto it = FList.begin(); it != FList.end(); ++it)
            if (it->first == name) {
                FList.erase(it);
                return;
            }
        return;
    }
    std::vector<TSlot>& slots = FTable->Slots;
    const size_t mask = slots.size() - 1;
    size_t hole = SlotOf(name, HashOf(name));
    if (!slots[hole].Used())
        return;
    FTable->LiveSize -= slots[hole].Size;
    for (size_t at = (hole + 1) & mask; slots[at].Used(); at = (at + 1) & mask) {
        const size_t home = slots[at].Hash & mask;
        // The name at `at` stays where it is when its home lies after the hole, up to `at`.
        const bool stays = hole <= at ? (hole < home && home <= at) : (hole < home || home <= at);
        if (stays)
            continue;
        slots[hole] = slots[at];
        hole = at;
    }
    slots[hole] = TSlot{};
    --FTable->Count;
}

void TVdNameCounts::Clear()
{
    FList.clear();
    FTable.reset();
}

void TVdNameCounts::Repack(size_t size)
{
    TTable& table = *FTable;
    std::vector<TSlot> old(size);
    old.swap(table.Slots);
    std::string names;
    names.reserve(table.LiveSize);
    names.swap(table.Names);
    table.LiveSize = 0;
    for (const TSlot& slot : old)
        if (slot.Used())
            Place(Store({names.data() + slot.At, slot.Size}, slot.Hash, slot.Count));
}

// A name known to be absent, placed in the first empty slot from its home.
void TVdNameCounts::Place(const TSlot& slot)
{
    std::vector<TSlot>& slots = FTable->Slots;
    const size_t mask = slots.size() - 1;
    size_t at = slot.Hash & mask;
    while (slots[at].Used())
        at = (at + 1) & mask;
    slots[at] = slot;
}

TVdNameCounts::TSlot TVdNameCounts::Store(std::string_view name, std::uint32_t hash, int count)
{
    TTable& table = *FTable;
    // Offsets and lengths are kept in 32 bits: names past that much text are refused.
    if (table.Names.size() + name.size() >= Vacant)
        throw std::length_error("alias names beyond 4 GiB");
    TSlot slot;
    slot.At = std::uint32_t(table.Names.size());
    slot.Size = std::uint32_t(name.size());
    slot.Hash = hash;
    slot.Count = count;
    table.Names.append(name);
    table.LiveSize += name.size();
    return slot;
}

} // namespace vd
