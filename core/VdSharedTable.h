#pragma once

#include <memory>
#include <mutex>
#include <vector>

namespace vd {

// The settings tables a parser reads while it parses and prints (operators, aggregate words)
// are the same in nearly every parser of a process: a table a parser has built is handed in
// here and swapped for an equal one already kept, so that a thousand parsers hold one copy.
// A kept table is never changed again (a parser that is to change its table makes a copy of
// its own first) and lives as long as the process.
template <class T> class TVdSharedTables
{
public:
    // The kept table equal to table (same(kept, table)), or table itself, kept from now on
    // while there is room. table must be ready for reading from several threads: caches that
    // fill on first use are filled before it is handed in.
    static std::shared_ptr<const T> Share(std::unique_ptr<T> table,
                                          bool (*same)(const T&, const T&))
    {
        static std::mutex lock;
        static std::vector<std::shared_ptr<const T>> kept;
        const std::lock_guard<std::mutex> guard(lock);
        for (const std::shared_ptr<const T>& k : kept)
            if (same(*k, *table))
                return k;
        std::shared_ptr<const T> result(std::move(table));
        // A host that builds a table of its own for every parser does not fill memory here.
        if (kept.size() < MaxKept)
            kept.push_back(result);
        return result;
    }

private:
    static constexpr size_t MaxKept = 8;
};

} // namespace vd
