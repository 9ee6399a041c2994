#include "core/VdWordList.h"

#include "core/VdText.h"

#include <algorithm>

namespace vd {

void TVdWordList::Clear()
{
    FItems.clear();
    FSorted = false;
}

void TVdWordList::Add(const std::string& word)
{
    FItems.push_back(word);
    FSorted = false;
}

void TVdWordList::SetCommaText(std::string_view commaText)
{
    FItems = text::SplitComma(commaText);
    FSorted = false;
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
}

void TVdWordList::Assign(const TVdWordList& other, bool upperCase)
{
    if (&other == this)
        return;
    FItems.clear();
    for (const std::string& w : other.FItems)
        FItems.push_back(upperCase ? text::Upper(w) : w);
    FSorted = false;
}

int TVdWordList::IndexOf(std::string_view word) const
{
    if (FSorted) {
        auto it = std::lower_bound(FItems.begin(), FItems.end(), word,
                                   [](const std::string& a, std::string_view b) {
                                       return text::CompareText(a, b) < 0;
                                   });
        if (it != FItems.end() && text::SameText(*it, word))
            return int(it - FItems.begin());
        return -1;
    }
    for (size_t i = 0; i < FItems.size(); ++i)
        if (text::SameText(FItems[i], word))
            return int(i);
    return -1;
}

} // namespace vd
