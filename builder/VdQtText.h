#pragma once

// The one place where the core's UTF-8 std::string meets QString.

#include <QString>

#include <string>

namespace vd {

inline QString ToQString(const std::string& text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

inline std::string ToStdString(const QString& text)
{
    return text.toUtf8().toStdString();
}

} // namespace vd
