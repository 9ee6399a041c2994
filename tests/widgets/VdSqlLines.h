#pragma once

// The builder prints one clause or list entry per line, each ended by CR LF; tests spell the
// expected text line by line.

#include <QString>

#include <initializer_list>

namespace vd::test {

inline QString Sql(std::initializer_list<const char*> lines)
{
    QString text;
    for (const char* line : lines)
        text += QString::fromLatin1(line) + QStringLiteral("\r\n");
    return text;
}

} // namespace vd::test
