#pragma once

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
    int IndexOf(std::string_view word) const;
    bool Contains(std::string_view word) const { return IndexOf(word) >= 0; }

    int Count() const { return int(FItems.size()); }
    const std::string& operator[](int i) const { return FItems[size_t(i)]; }
    bool Sorted() const { return FSorted; }
    const std::vector<std::string>& Items() const { return FItems; }

private:
    std::vector<std::string> FItems;
    bool FSorted = false;
};

} // namespace vd
