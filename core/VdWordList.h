#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
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

    std::vector<std::string> FItems;
    bool FSorted = false;
    std::uint64_t FStamp = 0;
    // Lookup without copying the probe: hash and compare ignore ASCII case.
    struct TNoCaseHash {
        using is_transparent = void;
        size_t operator()(std::string_view s) const;
    };
    struct TNoCaseEqual {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const;
    };
    // Rebuilt after a change: the first place of each word, and filters on (first letter,
    // length) and (first letter, last letter) that turn most non-words away before hashing.
    mutable std::unordered_map<std::string, int, TNoCaseHash, TNoCaseEqual> FIndex;
    mutable std::uint64_t FFilter[64] = {};
    mutable std::uint64_t FEnds[64] = {};
    mutable bool FIndexValid = false;
};

} // namespace vd
