#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vd {

// A number per name (case-sensitive). A statement names a few dozen things, so the names are
// kept in a flat list, searched in order, until there are more than a list serves well; then
// they move to a table with open addressing. Either way no name costs a node of its own.
class TVdNameCounts
{
public:
    // The number kept for name, or nullptr. Valid until the next change of the counts.
    int* Find(std::string_view name);
    const int* Find(std::string_view name) const
    {
        return const_cast<TVdNameCounts*>(this)->Find(name);
    }
    // The number kept for name, 0 for a new name. Valid until the next change of the counts.
    int& operator[](std::string_view name);
    void Erase(std::string_view name);
    bool Empty() const { return FCount == 0; }
    size_t Size() const { return FCount; }
    void Clear();

private:
    static constexpr size_t ListLimit = 32;

    // A name of the table: its characters in FNames, at At, Size long.
    struct TSlot {
        size_t At = 0;
        size_t Size = 0;
        std::uint32_t Hash = 0;
        int Count = 0;
        bool Used = false;
    };

    static std::uint32_t HashOf(std::string_view name);
    bool Hashed() const { return !FSlots.empty(); }
    std::string_view NameOf(const TSlot& slot) const
    {
        return {FNames.data() + slot.At, slot.Size};
    }
    size_t SlotOf(std::string_view name, std::uint32_t hash) const;
    // The names placed anew in a table of the given size, their characters packed (an erased
    // name leaves its characters behind until then).
    void Repack(size_t size);
    void Place(const TSlot& slot);
    // A slot for a new name, its characters appended to FNames.
    TSlot Store(std::string_view name, std::uint32_t hash, int count);

    // Up to ListLimit names; empty once the table is in use.
    std::vector<std::pair<std::string, int>> FList;
    // A power of two in size, at most half full; empty while the list serves. No name costs
    // an allocation of its own: the characters of all of them are in FNames.
    std::vector<TSlot> FSlots;
    std::string FNames;
    // The characters of the names in the table, for telling when FNames is worth packing.
    size_t FLiveSize = 0;
    size_t FCount = 0;
};

} // namespace vd
