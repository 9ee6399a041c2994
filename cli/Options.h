#pragma once

#include "core/VdScriptFormat.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vdsql {

enum TExitCode : int {
    exOk = 0,
    exRejected = 1, // the input was rejected (parse error)
    exUsage = 2     // the command could not run: bad command line, unreadable file
};

enum class TVerb { None, Format, Tokens, Bench };

// A failure that ends the program with a message on standard error and the given code.
class ECliError : public std::runtime_error
{
public:
    ECliError(const std::string& message, int exitCode);
    int ExitCode;
};

struct TOptions {
    TVerb Verb = TVerb::None;
    bool Help = false;
    std::string Dialect = "generic";
    int SqlDialect = 3;
    vd::TVdFormatMode Keywords = vd::qfmAsIs;
    vd::TVdFormatMode Functions = vd::qfmAsIs;
    bool QuoteIdentifiers = true;
    bool JsonLines = false;
    int Repeat = 1;
    bool ScanOnly = false; // bench: the scanner alone, no model
    std::string File;      // empty or "-": standard input
};

// Reads the arguments after the program name; throws ECliError (exUsage) on a bad command line.
TOptions ParseCommandLine(const std::vector<std::string>& args);

} // namespace vdsql
