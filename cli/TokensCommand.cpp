#include "cli/Commands.h"
#include "cli/ErrorMessage.h"
#include "cli/Input.h"
#include "cli/ParserFactory.h"

#include "core/VdSelectParser.h"

#include <iostream>

namespace vdsql {

namespace {

void PrintToken(const vd::TVdSQLScanner& scanner)
{
    const std::string& token = scanner.Token();
    // LinePos stands just behind the token; the listing shows where it starts.
    const int position = scanner.LinePos() - int(token.size());
    std::cout << vd::TokenKindName(scanner.TokenKind()) << '\t' << token << '\t' << scanner.LineNo()
              << '\t' << position << '\n';
}

} // namespace

int RunTokens(const TOptions& options)
{
    const std::string text = ToCrLf(ReadInput(options.File));
    // The parser's scanner is the scanner of the chosen dialect.
    const std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(options);
    vd::TVdSQLScanner& scanner = parser->Scanner();
    try {
        scanner.SetExpression(text);
        while (scanner.TokenKind() != vd::tkEnd) {
            PrintToken(scanner);
            scanner.GetNextToken();
        }
    } catch (const std::exception& e) {
        std::cout.flush();
        std::cerr << ErrorMessage(e) << '\n';
        return exRejected;
    }
    return exOk;
}

} // namespace vdsql
