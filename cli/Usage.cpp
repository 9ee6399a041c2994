#include "cli/Usage.h"

namespace vdsql {

namespace {

// The dialect options, the same for every verb (a literal, so that it joins the texts below).
#define DIALECT_OPTIONS                                                                            \
    "  --dialect NAME        SQL dialect: generic (default), interbase, firebird\n"                \
    "                        or mysql\n"                                                           \
    "  --sql-dialect 1|3     InterBase/Firebird SQL dialect: 1 (double quotes are\n"               \
    "                        strings) or 3 (quoted names; default)\n"

const char* const OverviewText =
    "Usage: vdsql <verb> [options] [FILE]\n"
    "\n"
    "Parses SQL SELECT statements with the VandorRT core and prints them back.\n"
    "\n"
    "Verbs:\n"
    "  format   parse one statement and print it in the canonical layout\n"
    "  tokens   list the tokens the scanner produces\n"
    "  bench    time parsing and printing of one statement per line\n"
    "\n"
    "Run 'vdsql <verb> --help' for the options of a verb.\n"
    "\n"
    "Exit status: 0 success, 1 the input was rejected, 2 bad command line or\n"
    "unreadable file.\n";

const char* const FormatText =
    "Usage: vdsql format [options] [FILE]\n"
    "       vdsql format --jsonl [options] [FILE]\n"
    "\n"
    "Reads one SELECT statement from FILE (or standard input when FILE is\n"
    "missing or '-') and prints it as the model prints it, with CR LF line\n"
    "breaks. A lone LF in the input is read as CR LF. On a syntax error the\n"
    "message goes to standard error and the exit status is 1.\n"
    "\n"
    "Options:\n" DIALECT_OPTIONS
    "  --keywords MODE       letter case of keywords: asis (default), upper,\n"
    "                        lower or first (first letter upper)\n"
    "  --functions MODE      letter case of function names, as --keywords\n"
    "  --no-quote            print table and field names without quotes\n"
    "  --jsonl               read one JSON object {\"sql\": \"...\"} per line and\n"
    "                        write {\"sql\": \"...\"} or {\"error\": {\"code\": N,\n"
    "                        \"message\": \"...\", \"token\": \"...\", \"line\": L,\n"
    "                        \"pos\": P}} per line; blank lines are skipped\n"
    "  -h, --help            show this help\n";

const char* const TokensText =
    "Usage: vdsql tokens [options] [FILE]\n"
    "\n"
    "Reads SQL text from FILE (or standard input) and prints one line per\n"
    "token: kind, text, line and position (where the token starts), separated\n"
    "by tabs. A lone LF in the input is read as CR LF. An unterminated string\n"
    "ends the listing with the message on standard error and exit status 1.\n"
    "\n"
    "Options:\n" DIALECT_OPTIONS "  -h, --help            show this help\n";

const char* const BenchText =
    "Usage: vdsql bench [options] FILE\n"
    "\n"
    "FILE holds one statement per line (no ';'); empty lines are skipped. Each\n"
    "statement is parsed and printed by one reused parser, for the given number\n"
    "of rounds. Only that loop is timed. Prints one line:\n"
    "\n"
    "  vdsql <statements> <bytes> <seconds> <MB/s> <statements/s>\n"
    "\n"
    "Statements that fail to parse are counted and reported on standard error\n"
    "as 'ERRORS vdsql <count> first: <message>'.\n"
    "\n"
    "With --scan only the dialect's scanner runs, every token up to the end,\n"
    "and the line starts with 'scan' instead of 'vdsql'.\n"
    "\n"
    "Options:\n" DIALECT_OPTIONS "  --repeat N            number of rounds (default 1)\n"
    "  --scan                time the scanner alone\n"
    "  -h, --help            show this help\n";

#undef DIALECT_OPTIONS

} // namespace

const char* UsageText(TVerb verb)
{
    switch (verb) {
    case TVerb::Format:
        return FormatText;
    case TVerb::Tokens:
        return TokensText;
    case TVerb::Bench:
        return BenchText;
    case TVerb::None:
        break;
    }
    return OverviewText;
}

} // namespace vdsql
