#include "cli/Commands.h"
#include "cli/ErrorMessage.h"
#include "cli/Input.h"
#include "cli/ParserFactory.h"

#include "core/VdSelectParser.h"

#include <iostream>

namespace vdsql {

int RunFormat(const TOptions& options)
{
    const std::string text = ToCrLf(ReadInput(options.File));
    const std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(options);
    std::string printed;
    try {
        parser->SetExpression(text);
        printed = parser->GetExpression();
    } catch (const std::exception& e) {
        std::cerr << ErrorMessage(e) << '\n';
        return exRejected;
    }
    std::cout << printed;
    return exOk;
}

} // namespace vdsql
