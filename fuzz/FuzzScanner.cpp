// Arbitrary text through the scanners (the first byte picks one: generic, InterBase dialect 1,
// InterBase dialect 3, MySQL), token by token up to the end. The only documented failure is
// the unterminated string (code 3). Each token must move forward and lie inside the text, and
// looking ahead must show the token that comes next without moving.
#include "fuzz/FuzzSupport.h"

#include "dialects/VdIBScanner.h"
#include "dialects/VdMyScanner.h"

namespace {

using vd::TVdSQLScanner;

const char* const ScannerNames[] = {"generic", "interbase1", "interbase3", "mysql"};

std::unique_ptr<TVdSQLScanner> CreateScanner(int which)
{
    if (which == 1 || which == 2) {
        auto scanner = std::make_unique<vd::TVdIBScanner>();
        scanner->SetDialect(which == 1 ? vd::qibDialect1 : vd::qibDialect3);
        return scanner;
    }
    if (which == 3)
        return std::make_unique<vd::TVdMySQLScanner>();
    return std::make_unique<TVdSQLScanner>();
}

[[noreturn]] void Broken(int which, const std::string& what, const TVdSQLScanner& scanner)
{
    std::fprintf(
        stderr,
        "\nvd_fuzz_scanner [%s]: %s\n  token [%s] kind %s, position %d of %d, token %d..%d,"
        " line %d pos %d\n",
        ScannerNames[which], what.c_str(), scanner.Token().c_str(),
        vd::TokenKindName(scanner.TokenKind()), scanner.Position(), scanner.Length(),
        scanner.TokenStart(), scanner.TokenEnd(), scanner.LineNo(), scanner.LinePos());
    std::fflush(stderr);
    std::abort();
}

// Whether two states read the same: what GetTokenPlus must leave as it found it.
bool SameState(const TVdSQLScanner::TState& a, const TVdSQLScanner::TState& b)
{
    return a.Position == b.Position && a.Level == b.Level && a.LineNo == b.LineNo &&
           a.LinePos == b.LinePos && a.SpaceCount == b.SpaceCount && a.TokenStart == b.TokenStart &&
           a.TokenEnd == b.TokenEnd && a.TokenAt == b.TokenAt && a.TokenSize == b.TokenSize &&
           a.InString == b.InString && a.EmptyStringPending == b.EmptyStringPending &&
           a.TokenQuoted == b.TokenQuoted && a.QuoteChar == b.QuoteChar &&
           a.TokenQuote == b.TokenQuote && a.TokenKind == b.TokenKind;
}

void CheckToken(int which, const TVdSQLScanner& scanner, int before, int lineBefore)
{
    const int position = scanner.Position();
    const vd::TTokenKind kind = scanner.TokenKind();
    if (position < before || position > scanner.Length() + 1)
        Broken(which, "position went back or past the end (was " + std::to_string(before) + ")",
               scanner);
    if (kind == vd::tkQuote || kind == vd::tkSpace || kind == vd::tkEol || kind > vd::tkComparison)
        Broken(which, "a token of a kind that is never returned", scanner);
    if (scanner.LineNo() < lineBefore)
        Broken(which, "the line number went back", scanner);
    if (scanner.SpaceCount() < 0)
        Broken(which, "negative SpaceCount", scanner);
    // A saved state keeps the token as the place of its text: that text must be the token.
    const TVdSQLScanner::TState state = scanner.SaveState();
    if (state.TokenAt < 0 || state.TokenSize != int(scanner.Token().size()) ||
        scanner.Expression().compare(size_t(state.TokenAt), size_t(state.TokenSize),
                                     scanner.Token()) != 0)
        Broken(which, "the token is not the text at its saved place", scanner);
    if (kind == vd::tkEnd) {
        if (!scanner.Token().empty())
            Broken(which, "the end token has text", scanner);
        return;
    }
    if (position == before)
        Broken(which, "a token that consumed nothing", scanner);
    if (scanner.TokenStart() < 1 || scanner.TokenStart() > scanner.TokenEnd() ||
        scanner.TokenEnd() > scanner.Length() + 1)
        Broken(which, "the token's place lies outside the text", scanner);
    if (scanner.TokenQuoted()) {
        const std::string raw = scanner.RawToken();
        if (raw.empty() || raw.front() != scanner.TokenQuote())
            Broken(which, "a quoted token does not begin with its quote", scanner);
    } else if (kind != vd::tkFloat && scanner.RawToken() != scanner.Token()) {
        Broken(which,
               "an unquoted token is not the text it stands on: [" + scanner.RawToken() + "]",
               scanner);
    } else if (scanner.Token().empty()) {
        Broken(which, "an empty unquoted token", scanner);
    }
}

// The look-ahead forms agree with the next token and leave the scanner as it was.
void CheckLookAhead(int which, TVdSQLScanner& scanner)
{
    const TVdSQLScanner::TState before = scanner.SaveState();
    const std::string token = scanner.Token();
    const std::string plus = scanner.GetTokenPlus();
    if (!SameState(before, scanner.SaveState()))
        Broken(which, "GetTokenPlus moved the scanner", scanner);
    scanner.GetNextToken();
    const bool delimNext = !scanner.TokenQuoted() && scanner.Token().size() == 1;
    const char next = delimNext ? scanner.Token()[0] : '\0';
    if (scanner.Token() != plus)
        Broken(which, "GetTokenPlus gave [" + plus + "], the next token is another", scanner);
    scanner.RestoreState(before);
    if (scanner.Token() != token)
        Broken(which, "RestoreState gave back another token: [" + token + "]", scanner);
    for (const char c : {',', '(', ')', '.', '*'}) {
        if (scanner.NextIsDelim(c) != (delimNext && next == c))
            Broken(which, std::string("NextIsDelim('") + c + "') disagrees with the next token",
                   scanner);
        if (!SameState(before, scanner.SaveState()))
            Broken(which, "NextIsDelim moved the scanner", scanner);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const int which = data[0] % 4;
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    // One scanner of each kind for the whole run (SetExpression starts it afresh): building the
    // word lists for every input would cost more than the scan.
    static std::unique_ptr<TVdSQLScanner> scanners[4];
    std::unique_ptr<TVdSQLScanner>& scanner = scanners[which];
    if (!scanner)
        scanner = CreateScanner(which);
    try {
        scanner->SetExpression(text);
    } catch (const vd::EVdParserError& e) {
        if (e.Code != 3)
            Broken(which, std::string("the first token raised ") + e.what(), *scanner);
        return 0;
    }
    CheckToken(which, *scanner, 1, 1);
    // Every token consumes a character, and the end token comes once.
    const int limit = scanner->Length() + 1;
    int tokens = 0;
    while (scanner->TokenKind() != vd::tkEnd) {
        if (++tokens > limit)
            Broken(which, "more tokens than characters", *scanner);
        const int before = scanner->Position();
        const int lineBefore = scanner->LineNo();
        try {
            CheckLookAhead(which, *scanner);
            scanner->GetNextToken();
        } catch (const vd::EVdParserError& e) {
            if (e.Code != 3)
                Broken(which, std::string("a token raised ") + e.what(), *scanner);
            return 0;
        }
        CheckToken(which, *scanner, before, lineBefore);
    }
    return 0;
}
