#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
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
    bool Empty() const { return Size() == 0; }
    size_t Size() const { return FTable ? FTable->Count : FList.size(); }
    void Clear();

private:
    static constexpr size_t ListLimit = 32;

    // A name of the table: its characters in the table's Names, at At, Size long. Sixteen
    // bytes, as the table is at most half full.
    static constexpr std::uint32_t Vacant = 0xFFFFFFFF;
    struct TSlot {
        std::uint32_t At = 0;
        std::uint32_t Size = Vacant;
        std::uint32_t Hash = 0;
        int Count = 0;
        bool Used() const { return Size != Vacant; }
    };

    static std::uint32_t HashOf(std::string_view name);
    std::string_view NameOf(const TSlot& slot) const
    {
        return {FTable->Names.data() + slot.At, slot.Size};
    }
    size_t SlotOf(std::string_view name, std::uint32_t hash) const;
    // The names placed anew in a table of the given size, their characters packed (an erased
    // name leaves its characters behind until then).
    void Repack(size_t size);
    void Place(const TSlot& slot);
    // A slot for a new name, its characters appended to the table's Names.
    TSlot Store(std::string_view name, std::uint32_t hash, int count);

    // Up to ListLimit names; empty once the table is in use.
    std::vector<std::pair<std::string, int>> FList;
    // Made once the list is full: most statements never need it. No name costs an allocation
    // of its own: the characters of all of them are in Names.
    struct TTable {
        // A power of two in size, at most half full.
        std::vector<TSlot> Slots;
        std::string Names;
        // The characters of the names in the table, for telling when Names is worth packing.
        size_t LiveSize = 0;
        size_t Count = 0;
    };
    std::unique_ptr<TTable> FTable;
};

} // namespace vd
