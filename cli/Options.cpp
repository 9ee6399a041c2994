#include "cli/Options.h"

#include "cli/ParserFactory.h"

#include <charconv>

namespace vdsql {

ECliError::ECliError(const std::string& message, int exitCode)
    : std::runtime_error(message), ExitCode(exitCode)
{
}

namespace {

const char* VerbName(TVerb verb)
{
    switch (verb) {
    case TVerb::Format:
        return "format";
    case TVerb::Tokens:
        return "tokens";
    case TVerb::Bench:
        return "bench";
    case TVerb::None:
        break;
    }
    return "";
}

[[noreturn]] void Fail(TVerb verb, const std::string& message)
{
    const std::string name = VerbName(verb);
    const std::string command = name.empty() ? "vdsql" : "vdsql " + name;
    throw ECliError(command + ": " + message + "\nTry '" + command + " --help'.", exUsage);
}

TVerb VerbFromName(const std::string& name)
{
    for (TVerb verb : {TVerb::Format, TVerb::Tokens, TVerb::Bench})
        if (name == VerbName(verb))
            return verb;
    Fail(TVerb::None, "unknown verb '" + name + "'");
}

vd::TVdFormatMode FormatMode(TVerb verb, const std::string& option, const std::string& value)
{
    if (value == "asis")
        return vd::qfmAsIs;
    if (value == "upper")
        return vd::qfmUpperCase;
    if (value == "lower")
        return vd::qfmLowerCase;
    if (value == "first")
        return vd::qfmFirstUpper;
    Fail(verb, "invalid value '" + value + "' for " + option + " (asis, upper, lower or first)");
}

int PositiveNumber(TVerb verb, const std::string& option, const std::string& value)
{
    int number = 0;
    const char* end = value.data() + value.size();
    const auto [ptr, ec] = std::from_chars(value.data(), end, number);
    if (ec != std::errc() || ptr != end || number < 1)
        Fail(verb, "invalid value '" + value + "' for " + option + " (a whole number from 1)");
    return number;
}

constexpr unsigned Bit(TVerb verb) { return 1u << static_cast<unsigned>(verb); }

constexpr unsigned AllVerbs = Bit(TVerb::Format) | Bit(TVerb::Tokens) | Bit(TVerb::Bench);

struct TOptionSpec {
    const char* Name;
    bool TakesValue;
    unsigned Verbs;
    void (*Apply)(TOptions& options, const std::string& name, const std::string& value);
};

const TOptionSpec OptionSpecs[] = {
    {"--help", false, AllVerbs,
     [](TOptions& o, const std::string&, const std::string&) { o.Help = true; }},
    {"--dialect", true, AllVerbs,
     [](TOptions& o, const std::string& name, const std::string& value) {
         if (!IsKnownDialect(value))
             Fail(o.Verb, "unsupported dialect '" + value + "' for " + name +
                              " (supported: " + KnownDialects() + ")");
         o.Dialect = value;
     }},
    {"--sql-dialect", true, AllVerbs,
     [](TOptions& o, const std::string& name, const std::string& value) {
         if (value != "1" && value != "3")
             Fail(o.Verb, "invalid value '" + value + "' for " + name + " (1 or 3)");
         o.SqlDialect = value[0] - '0';
     }},
    {"--keywords", true, Bit(TVerb::Format),
     [](TOptions& o, const std::string& name, const std::string& value) {
         o.Keywords = FormatMode(o.Verb, name, value);
     }},
    {"--functions", true, Bit(TVerb::Format),
     [](TOptions& o, const std::string& name, const std::string& value) {
         o.Functions = FormatMode(o.Verb, name, value);
     }},
    {"--no-quote", false, Bit(TVerb::Format),
     [](TOptions& o, const std::string&, const std::string&) { o.QuoteIdentifiers = false; }},
    {"--jsonl", false, Bit(TVerb::Format),
     [](TOptions& o, const std::string&, const std::string&) { o.JsonLines = true; }},
    {"--repeat", true, Bit(TVerb::Bench),
     [](TOptions& o, const std::string& name, const std::string& value) {
         o.Repeat = PositiveNumber(o.Verb, name, value);
     }},
    {"--scan", false, Bit(TVerb::Bench),
     [](TOptions& o, const std::string&, const std::string&) { o.ScanOnly = true; }},
};

const TOptionSpec* FindOption(TVerb verb, const std::string& name)
{
    for (const TOptionSpec& spec : OptionSpecs)
        if (name == spec.Name && (spec.Verbs & Bit(verb)))
            return &spec;
    return nullptr;
}

// Reads the option at args[i] ("--name", "--name value" or "--name=value"); returns the
// index of the last argument it used.
size_t ReadOption(TOptions& options, const std::vector<std::string>& args, size_t i)
{
    const std::string& arg = args[i];
    const size_t equals = arg.find('=');
    const std::string name = arg.substr(0, equals);
    const TOptionSpec* spec =
        name == "-h" ? FindOption(options.Verb, "--help") : FindOption(options.Verb, name);
    if (!spec)
        Fail(options.Verb, "unknown option '" + name + "'");
    if (!spec->TakesValue) {
        if (equals != std::string::npos)
            Fail(options.Verb, "option '" + name + "' takes no value");
        spec->Apply(options, name, std::string());
        return i;
    }
    if (equals != std::string::npos) {
        spec->Apply(options, name, arg.substr(equals + 1));
        return i;
    }
    if (i + 1 >= args.size())
        Fail(options.Verb, "option '" + name + "' needs a value");
    spec->Apply(options, name, args[i + 1]);
    return i + 1;
}

void SetFile(TOptions& options, const std::string& file, bool& fileSeen)
{
    if (fileSeen)
        Fail(options.Verb, "only one FILE may be given (extra '" + file + "')");
    options.File = file;
    fileSeen = true;
}

} // namespace

TOptions ParseCommandLine(const std::vector<std::string>& args)
{
    TOptions options;
    if (args.empty())
        Fail(TVerb::None, "missing verb (format, tokens or bench)");
    if (args[0] == "--help" || args[0] == "-h") {
        options.Help = true;
        return options;
    }
    options.Verb = VerbFromName(args[0]);
    bool fileSeen = false;
    bool optionsEnded = false;
    for (size_t i = 1; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (!optionsEnded && arg == "--")
            optionsEnded = true;
        else if (!optionsEnded && arg.size() > 1 && arg[0] == '-')
            i = ReadOption(options, args, i);
        else
            SetFile(options, arg, fileSeen);
    }
    if (options.Verb == TVerb::Bench && !fileSeen && !options.Help)
        Fail(options.Verb, "missing FILE");
    return options;
}

} // namespace vdsql
