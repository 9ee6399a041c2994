#include "cli/Input.h"

#include "cli/Options.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

namespace vdsql {

std::string ReadInput(const std::string& file)
{
    if (file.empty() || file == "-")
        return std::string(std::istreambuf_iterator<char>(std::cin), {});
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw ECliError("vdsql: cannot read '" + file + "': " + std::strerror(errno), exUsage);
    std::ostringstream content;
    content << stream.rdbuf();
    if (stream.bad())
        throw ECliError("vdsql: error reading '" + file + "'", exUsage);
    return std::move(content).str();
}

std::string ToCrLf(const std::string& text)
{
    std::string result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            result += '\r';
        result += text[i];
    }
    return result;
}

std::vector<std::string> SplitLines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        const size_t next = end == std::string::npos ? text.size() : end + 1;
        if (end == std::string::npos)
            end = text.size();
        if (end > start && text[end - 1] == '\r' && end < text.size())
            --end;
        lines.emplace_back(text, start, end - start);
        start = next;
    }
    return lines;
}

} // namespace vdsql
