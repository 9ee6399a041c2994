#include "core/VdNameCounts.h"

#include <functional>

namespace vd {

std::uint32_t TVdNameCounts::HashOf(std::string_view name)
{
    return std::uint32_t(std::hash<std::string_view>{}(name));
}

// The slot that holds name, or the empty one where it would go.
size_t TVdNameCounts::SlotOf(std::string_view name, std::uint32_t hash) const
{
    const size_t mask = FSlots.size() - 1;
    size_t at = hash & mask;
    while (FSlots[at].Used && (FSlots[at].Hash != hash || NameOf(FSlots[at]) != name))
        at = (at + 1) & mask;
    return at;
}

int* TVdNameCounts::Find(std::string_view name)
{
    if (Hashed()) {
        TSlot& slot = FSlots[SlotOf(name, HashOf(name))];
        return slot.Used ? &slot.Count : nullptr;
    }
    for (auto& entry : FList)
        if (entry.first == name)
            return &entry.second;
    return nullptr;
}

int& TVdNameCounts::operator[](std::string_view name)
{
    if (!Hashed()) {
        for (auto& entry : FList)
            if (entry.first == name)
                return entry.second;
        if (FList.size() < ListLimit) {
            ++FCount;
            return FList.emplace_back(std::string(name), 0).second;
        }
        // The list is full: its names move to the table.
        Repack(64);
        for (const auto& [listed, count] : FList)
            Place(Store(listed, HashOf(listed), count));
        FList.clear();
    }
    const std::uint32_t hash = HashOf(name);
    size_t at = SlotOf(name, hash);
    if (FSlots[at].Used)
        return FSlots[at].Count;
    if ((FCount + 1) * 2 > FSlots.size()) {
        Repack(FSlots.size() * 2);
        at = SlotOf(name, hash);
    } else if (FNames.size() > 4 * FLiveSize + 4096) {
        Repack(FSlots.size());
        at = SlotOf(name, hash);
    }
    FSlots[at] = Store(name, hash, 0);
    ++FCount;
    return FSlots[at].Count;
}

// Linear probing without tombstones: the names after the freed slot that would be found
// through it move back into it, one after another.
void TVdNameCounts::Erase(std::string_view name)
{
    if (!Hashed()) {
        for (auto it = FList.begin(); it != FList.end(); ++it)
            if (it->first == name) {
                FList.erase(it);
                --FCount;
                return;
            }
        return;
    }
    const size_t mask = FSlots.size() - 1;
    size_t hole = SlotOf(name, HashOf(name));
    if (!FSlots[hole].Used)
        return;
    FLiveSize -= FSlots[hole].Size;
    for (size_t at = (hole + 1) & mask; FSlots[at].Used; at = (at + 1) & mask) {
        const size_t home = FSlots[at].Hash & mask;
        // The name at `at` stays where it is when its home lies after the hole, up to `at`.
        const bool stays = hole <= at ? (hole < home && home <= at) : (hole < home || home <= at);
        if (stays)
            continue;
        FSlots[hole] = FSlots[at];
        hole = at;
    }
    FSlots[hole] = TSlot{};
    --FCount;
}

void TVdNameCounts::Clear()
{
    FList.clear();
    FSlots.clear();
    FNames.clear();
    FLiveSize = 0;
    FCount = 0;
}

void TVdNameCounts::Repack(size_t size)
{
    std::vector<TSlot> old(size);
    old.swap(FSlots);
    std::string names;
    names.reserve(FLiveSize);
    names.swap(FNames);
    FLiveSize = 0;
    for (const TSlot& slot : old)
        if (slot.Used)
            Place(Store({names.data() + slot.At, slot.Size}, slot.Hash, slot.Count));
}

// A name known to be absent, placed in the first empty slot from its home.
void TVdNameCounts::Place(const TSlot& slot)
{
    const size_t mask = FSlots.size() - 1;
    size_t at = slot.Hash & mask;
    while (FSlots[at].Used)
        at = (at + 1) & mask;
    FSlots[at] = slot;
}

TVdNameCounts::TSlot TVdNameCounts::Store(std::string_view name, std::uint32_t hash, int count)
{
    TSlot slot;
    slot.At = FNames.size();
    slot.Size = name.size();
    slot.Hash = hash;
    slot.Count = count;
    slot.Used = true;
    FNames.append(name);
    FLiveSize += name.size();
    return slot;
}

} // namespace vd
