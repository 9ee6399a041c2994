#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vd {

// A number per name (case-sensitive). A statement names a few dozen things, so the names are
// kept in a flat list, searched in order, until there are more than a list serves well; then
// they move to a hash map. Either way no name costs a node of its own while the list lasts.
class TVdNameCounts
{
public:
    // The number kept for name, or nullptr.
    int* Find(const std::string& name)
    {
        if (FMap) {
            const auto it = FMap->find(name);
            return it == FMap->end() ? nullptr : &it->second;
        }
        for (auto& entry : FList)
            if (entry.first == name)
                return &entry.second;
        return nullptr;
    }
    const int* Find(const std::string& name) const
    {
        return const_cast<TVdNameCounts*>(this)->Find(name);
    }
    // The number kept for name, 0 for a new name.
    int& operator[](const std::string& name)
    {
        if (int* found = Find(name))
            return *found;
        if (!FMap && FList.size() >= ListLimit) {
            FMap = std::make_unique<std::unordered_map<std::string, int>>();
            for (auto& entry : FList)
                FMap->emplace(std::move(entry.first), entry.second);
            FList.clear();
        }
        if (FMap)
            return (*FMap)[name];
        FList.emplace_back(name, 0);
        return FList.back().second;
    }
    void Erase(const std::string& name)
    {
        if (FMap) {
            FMap->erase(name);
            return;
        }
        for (auto it = FList.begin(); it != FList.end(); ++it)
            if (it->first == name) {
                FList.erase(it);
                return;
            }
    }
    bool Empty() const { return FMap ? FMap->empty() : FList.empty(); }
    void Clear()
    {
        FList.clear();
        FMap.reset();
    }

private:
    static constexpr size_t ListLimit = 32;
    std::vector<std::pair<std::string, int>> FList;
    // The map, made once the list grows too long: most statements never need it.
    std::unique_ptr<std::unordered_map<std::string, int>> FMap;
};

} // namespace vd
