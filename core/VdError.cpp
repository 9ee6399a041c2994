#include "core/VdError.h"

namespace vd {

EVdError::EVdError(const std::string& message) : std::runtime_error(message) {}

EVdListError::EVdListError(int index)
    : EVdError("List index out of bounds (" + std::to_string(index) + ")"), Index(index)
{
}

EVdParserError::EVdParserError(int code, const std::string& token, int lineNo, int linePos)
    : EVdError(MessageFor(code, token, lineNo, linePos)), Code(code), LineNo(lineNo),
      LinePos(linePos), Token(token)
{
}

std::string EVdParserError::MessageFor(int code, const std::string& token, int lineNo, int linePos)
{
    switch (code) {
    case 1:
        return "Invalid token '" + token + "' at position " + std::to_string(linePos) +
               " of line " + std::to_string(lineNo) + ".";
    case 2:
        return "Unexpected end of statement.";
    case 3:
        return "Unterminated string.";
    default:
        return "Unknown error (#" + std::to_string(code) + ").";
    }
}

} // namespace vd
