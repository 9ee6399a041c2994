#pragma once

#include <stdexcept>
#include <string>

namespace vd {

// The library's exception. Refusals and programming errors carry their message text.
class EVdError : public std::runtime_error
{
public:
    explicit EVdError(const std::string& message);
};

// Raised by a collection asked for a position it does not hold.
class EVdListError : public EVdError
{
public:
    explicit EVdListError(int index);
    int Index;
};

// A syntax error in SQL text: code 1 invalid token, 2 unexpected end, 3 unterminated string.
class EVdParserError : public EVdError
{
public:
    EVdParserError(int code, const std::string& token, int lineNo, int linePos);

    static std::string MessageFor(int code, const std::string& token, int lineNo, int linePos);

    int Code;
    int LineNo;
    int LinePos;
    std::string Token;
};

} // namespace vd
