#pragma once

// Builders of long statement texts, shared by the hostile-input tests and their benchmark.

#include <cstdint>
#include <functional>
#include <string>

namespace vdtest {

// s, n times.
inline std::string Repeat(const std::string& s, size_t n)
{
    std::string result;
    result.reserve(s.size() * n);
    for (size_t i = 0; i < n; ++i)
        result += s;
    return result;
}

// item(0) sep item(1) sep ... item(n - 1)
inline std::string Join(std::int64_t n, const std::string& sep,
                        const std::function<std::string(std::int64_t)>& item)
{
    std::string result;
    for (std::int64_t i = 0; i < n; ++i) {
        if (i)
            result += sep;
        result += item(i);
    }
    return result;
}

inline std::string N(std::int64_t i) { return std::to_string(i); }

} // namespace vdtest
