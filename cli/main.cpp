#include "cli/Commands.h"
#include "cli/Options.h"
#include "cli/Usage.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

int Run(const vdsql::TOptions& options)
{
    using vdsql::TVerb;
    if (options.Help) {
        std::cout << vdsql::UsageText(options.Verb);
        return vdsql::exOk;
    }
    switch (options.Verb) {
    case TVerb::Format:
        return options.JsonLines ? vdsql::RunFormatJsonLines(options) : vdsql::RunFormat(options);
    case TVerb::Tokens:
        return vdsql::RunTokens(options);
    case TVerb::Bench:
        return vdsql::RunBench(options);
    case TVerb::None:
        break;
    }
    std::cerr << vdsql::UsageText(TVerb::None);
    return vdsql::exUsage;
}

} // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    try {
        const std::vector<std::string> args(argv + 1, argv + argc);
        return Run(vdsql::ParseCommandLine(args));
    } catch (const vdsql::ECliError& e) {
        std::cerr << e.what() << '\n';
        return e.ExitCode;
    } catch (const std::exception& e) {
        std::cerr << "vdsql: " << e.what() << '\n';
        return vdsql::exRejected;
    } catch (...) {
        std::cerr << "vdsql: unexpected failure\n";
        return vdsql::exRejected;
    }
}
