#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vd {

// A list of words with case-insensitive lookup: binary search once sorted, a scan otherwise.
// Backs the keyword, function, operation and aggregate lists.
class TVdWordList
{
public:
    void Clear();
    void Add(const std::string& word);
    void SetCommaText(std::string_view commaText);
    std::string GetCommaText() const;
    void Sort();
    // Copies the other list's words; with upperCase the copies are upper-cased.
    void Assign(const TVdWordList& other, bool upperCase);

    // Index of the word (case-insensitive), or -1.
    int IndexOf(std::string_view word) const
    {
        if (!FIndexValid)
            BuildIndex();
        if (word.empty())
            return IndexOfEmpty();
        // Most probes are no word of the list: turned away here, without a call.
        return MayHold(word) ? Lookup(word) : -1;
    }
    bool Contains(std::string_view word) const { return IndexOf(word) >= 0; }
    // Builds the lookup index now rather than at the first lookup: a list read from several
    // threads at once must be prepared before it is shared.
    void PrepareLookups() const
    {
        if (!FIndexValid)
            BuildIndex();
    }

    int Count() const { return int(FItems.size()); }
    const std::string& operator[](int i) const { return FItems[size_t(i)]; }
    bool Sorted() const { return FSorted; }
    const std::vector<std::string>& Items() const { return FItems; }
    // Changes with every change of the words, never the same for two different contents
    // (0 for a list never filled): what a cache built from the list compares.
    std::uint64_t Stamp() const { return FStamp; }

private:
    void Changed()
    {
        FIndexValid = false;
        FStamp = NextStamp();
    }
    static std::uint64_t NextStamp();
    void BuildIndex() const;
    int IndexOfEmpty() const;
    // The probe of the table, for a word that is not empty and passed the filters.
    int Lookup(std::string_view word) const;
    // Case-insensitive for letters; other characters may share a row, which only weakens
    // the filter.
    static unsigned FilterRow(char c) { return static_cast<unsigned char>(c) & 31u; }
    static std::uint64_t FilterBit(size_t length)
    {
        return std::uint64_t(1) << (length < 63 ? length : 63);
    }
    bool MayHold(std::string_view word) const
    {
        const unsigned row = FilterRow(word[0]);
        return (FFilter[row] & FilterBit(word.size())) &&
               (FEnds[row] & (std::uint64_t(1) << (FilterRow(word.back()))));
    }

    std::vector<std::string> FItems;
    bool FSorted = false;
    std::uint64_t FStamp = 0;
    // A hash of a few upper-cased characters and the length: cheap for the probe, and the
    // full case-insensitive compare settles it.
    static std::uint32_t ProbeHash(std::string_view s);

    // Rebuilt after a change: an open-addressing table of the first place of each word (slot
    // value place + 1, 0 for empty), and filters on (first letter, length) and (first letter,
    // last letter) that turn most non-words away before hashing.
    mutable std::vector<std::int32_t> FSlots;
    mutable std::uint32_t FSlotMask = 0;
    mutable std::uint64_t FFilter[32] = {};
    mutable std::uint64_t FEnds[32] = {};
    mutable bool FIndexValid = false;
};

} // namespace vd
