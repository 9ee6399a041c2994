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

size_t TVdWordList::TNoCaseHash::operator()(std::string_view s) const
{
    size_t h = 1469598103934665603ull;
    for (char c : s)
        h = (h ^ static_cast<unsigned char>(text::UpperChar(c))) * 1099511628211ull;
    return h;
}

bool TVdWordList::TNoCaseEqual::operator()(std::string_view a, std::string_view b) const
{
    return text::SameText(a, b);
}

namespace {

inline unsigned FilterRow(char c) { return static_cast<unsigned char>(text::UpperChar(c)) & 63u; }

inline std::uint64_t FilterBit(size_t length)
{
    return std::uint64_t(1) << (length < 63 ? length : 63);
}

} // namespace

void TVdWordList::BuildIndex() const
{
    FIndex.clear();
    for (std::uint64_t& row : FFilter)
        row = 0;
    for (std::uint64_t& row : FEnds)
        row = 0;
    for (size_t i = 0; i < FItems.size(); ++i) {
        const std::string& word = FItems[i];
        FIndex.emplace(word, int(i));
        if (word.empty())
            continue;
        FFilter[FilterRow(word[0])] |= FilterBit(word.size());
        FEnds[FilterRow(word[0])] |= std::uint64_t(1) << FilterRow(word.back());
    }
    FIndexValid = true;
}

// Case-insensitive: the first place of the word in the list, sorted or not (the same place a
// binary search over the sorted list or a scan over the unsorted one finds).
int TVdWordList::IndexOf(std::string_view word) const
{
    if (!FIndexValid)
        BuildIndex();
    if (word.empty())
        return IndexOfEmpty();
    const unsigned row = FilterRow(word[0]);
    if (!(FFilter[row] & FilterBit(word.size())) ||
        !(FEnds[row] & (std::uint64_t(1) << FilterRow(word.back()))))
        return -1;
    auto it = FIndex.find(word);
    return it == FIndex.end() ? -1 : it->second;
}

int TVdWordList::IndexOfEmpty() const
{
    for (size_t i = 0; i < FItems.size(); ++i)
        if (FItems[i].empty())
            return int(i);
    return -1;
}

} // namespace vd
