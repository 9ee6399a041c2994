#include "cli/ErrorMessage.h"

#include "core/VdError.h"

namespace vdsql {

std::string ErrorMessage(const std::exception& error)
{
    if (const auto* parserError = dynamic_cast<const vd::EVdParserError*>(&error))
        return vd::EVdParserError::MessageFor(parserError->Code, parserError->Token,
                                              parserError->LineNo, parserError->LinePos);
    return error.what();
}

} // namespace vdsql
