#include "core/VdWordList.h"

#include "core/VdText.h"

#include <algorithm>
#include <atomic>

namespace vd {

std::uint64_t TVdWordList::NextStamp()
{
    static std::atomic<std::uint64_t> stamps{0};
    return ++stamps;
}

void TVdWordList::Clear()
{
    FItems.clear();
    FSorted = false;
    Changed();
}

void TVdWordList::Add(const std::string& word)
{
    FItems.push_back(word);
    FSorted = false;
    Changed();
}

void TVdWordList::SetCommaText(std::string_view commaText)
{
    FItems = text::SplitComma(commaText);
    FSorted = false;
    Changed();
}

std::string TVdWordList::GetCommaText() const
{
    std::string r;
    for (size_t i = 0; i < FItems.size(); ++i) {
        if (i)
            r += ',';
        r += FItems[i];
    }
    return r;
}

void TVdWordList::Sort()
{
    std::stable_sort(FItems.begin(), FItems.end(), [](const std::string& a, const std::string& b) {
        return text::CompareText(a, b) < 0;
    });
    FSorted = true;
    Changed();
}

void TVdWordList::Assign(const TVdWordList& other, bool upperCase)
{
    if (&other == this)
        return;
    FItems.clear();
    for (const std::string& w : other.FItems)
        FItems.push_back(upperCase ? text::Upper(w) : w);
    FSorted = false;
    Changed();
}

inline std::uint32_t TVdWordList::ProbeHash(std::string_view s)
{
    const size_t n = s.size();
    // Bit 5 cleared: a letter and its other case hash alike (so do a few other pairs, which
    // the full compare tells apart), without a test per character.
    auto up = [](char c) { return std::uint32_t(static_cast<unsigned char>(c) & 0xDFu); };
    std::uint32_t h = std::uint32_t(n) * 0x9E3779B1u;
    if (n) {
        h ^= up(s[0]) | up(s[n - 1]) << 8 | up(s[n / 2]) << 16 | up(s[n > 1 ? 1 : 0]) << 24;
        h *= 0x85EBCA6Bu;
        h ^= h >> 15;
    }
    return h;
}

void TVdWordList::BuildIndex() const
{
    size_t slots = 16;
    while (slots < FItems.size() * 2)
        slots *= 2;
    FSlots.assign(slots, 0);
    FSlotMask = std::uint32_t(slots - 1);
    for (std::uint64_t& row : FFilter)
        row = 0;
    for (std::uint64_t& row : FEnds)
        row = 0;
    for (size_t i = 0; i < FItems.size(); ++i) {
        const std::string& word = FItems[i];
        // The first place wins: a later word equal to it ignoring case is never found.
        for (std::uint32_t s = ProbeHash(word) & FSlotMask;; s = (s + 1) & FSlotMask) {
            if (FSlots[s] == 0) {
                FSlots[s] = std::int32_t(i + 1);
                break;
            }
            if (text::SameText(FItems[size_t(FSlots[s] - 1)], word))
                break;
        }
        if (word.empty())
            continue;
        FFilter[FilterRow(word[0])] |= FilterBit(word.size());
        FEnds[FilterRow(word[0])] |= std::uint64_t(1) << FilterRow(word.back());
    }
    FIndexValid = true;
}

// Case-insensitive: the first place of the word in the list, sorted or not (the same place a
// binary search over the sorted list or a scan over the unsorted one finds).
int TVdWordList::Lookup(std::string_view word) const
{
    for (std::uint32_t s = ProbeHash(word) & FSlotMask;; s = (s + 1) & FSlotMask) {
        const std::int32_t at = FSlots[s];
        if (at == 0)
            return -1;
        const std::string& item = FItems[size_t(at - 1)];
        if (item.size() == word.size() && text::SameText(item, word))
            return at - 1;
    }
}

int TVdWordList::IndexOfEmpty() const
{
    for (size_t i = 0; i < FItems.size(); ++i)
        if (FItems[i].empty())
            return int(i);
    return -1;
}

} // namespace vd
