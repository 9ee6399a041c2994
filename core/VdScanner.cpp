#include "core/VdScanner.h"

#include "core/VdError.h"
#include "core/VdText.h"

#include <typeinfo>
#include <unordered_map>

namespace vd {

const char* TokenKindName(TTokenKind kind)
{
    static const char* const names[] = {"tkUnknown",     "tkKeyword",   "tkFunction",  "tkDelim",
                                        "tkInteger",     "tkFloat",     "tkString",    "tkQuote",
                                        "tkSpace",       "tkEol",       "tkEnd",       "tkIdent",
                                        "tkIdentString", "tkOperation", "tkComparison"};
    return kind <= tkComparison ? names[kind] : "tkUnknown";
}

// ---- TVdScanner ----

TVdScanner::TVdScanner() = default;
TVdScanner::~TVdScanner() = default;

bool TVdScanner::IsAlpha(char c) const { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool TVdScanner::IsDelim(char c) const
{
    static constexpr std::string_view delims = ".,/\\;:(){}[]*+-<=>!";
    return c == '\r' || (c != '\0' && delims.find(c) != std::string_view::npos);
}

bool TVdScanner::IsDigit(char c) const { return c >= '0' && c <= '9'; }

bool TVdScanner::IsQuote(char c) const { return c == '"' || c == '\''; }

bool TVdScanner::IsSpace(char c) const { return c == '\t' || c == ' '; }

std::string TVdScanner::GetTokenPlus()
{
    const int position = FPosition;
    std::string token = FToken;
    const int level = FLevel;
    const bool inString = FInString;
    const char quoteChar = FQuoteChar;
    std::string next = GetNextToken();
    FPosition = position;
    FToken = std::move(token);
    FLevel = level;
    FInString = inString;
    FQuoteChar = quoteChar;
    return next;
}

bool TVdScanner::ShouldLevelUp(char c) const { return c == '('; }

bool TVdScanner::ShouldLevelDown(char c) const { return c == ')'; }

void TVdScanner::Init()
{
    FToken.clear();
    FPosition = 1;
    FLevel = 0;
    FInString = false;
    FQuoteChar = '\0';
}

void TVdScanner::SetPosition(int p)
{
    if (p == FPosition)
        return;
    if (p == 1)
        GetFirstToken();
    else
        Init();
    if (p < 1 || FLength == 0)
        FPosition = 1;
    else if (p > FLength)
        FPosition = FLength;
    else
        FPosition = p;
}

const std::string& TVdScanner::GetFirstToken()
{
    Init();
    return GetNextToken();
}

void TVdScanner::SetExpression(const std::string& text) { SetExpression(std::string(text)); }

void TVdScanner::SetExpression(std::string&& text)
{
    FExpression = std::move(text);
    FLength = int(FExpression.size());
    GetFirstToken();
}

// ---- TVdSQLScanner ----

TVdSQLScanner::TVdSQLScanner()
{
    // Virtual calls made here reach this class's own word lists; a dialect scanner
    // loads its lists again from its own constructor.
    TVdSQLScanner::DefineFunctions();
    TVdSQLScanner::DefineKeywords();
    TVdSQLScanner::DefineOperations();
    FLineNo = 1;
    FLinePos = 1;
    FQuoteIdentifiers = true;
}

TVdSQLScanner::~TVdSQLScanner() = default;

bool TVdSQLScanner::IsOperation(const std::string& s) const { return FOperations.Contains(s); }

bool TVdSQLScanner::IsComparison(char c) const { return c == '<' || c == '=' || c == '>'; }

bool TVdSQLScanner::IsLegalSymbol(char c) const
{
    return IsAlpha(c) || IsDigit(c) || c == '-' || c == '_';
}

bool TVdSQLScanner::IsIdentQuote(char c) const { return c == '"' || c == '\''; }

// Both read the cached classes, which hold what IsAlpha, IsLegalSymbol and IsDigit answer.
bool TVdSQLScanner::IsIdentifier(const std::string& s) const
{
    const_cast<TVdSQLScanner*>(this)->EnsureCharClasses();
    return OwnIdentifier(s);
}

bool TVdSQLScanner::IsInteger(const std::string& s) const
{
    const_cast<TVdSQLScanner*>(this)->EnsureCharClasses();
    return OwnInteger(s);
}

bool TVdSQLScanner::AllHave(std::string_view s, std::uint16_t cls) const
{
    for (char c : s)
        if (!Has(c, cls))
            return false;
    return true;
}

bool TVdSQLScanner::OwnIdentifier(std::string_view s) const
{
    return !s.empty() && Has(s[0], ccAlpha) && AllHave(s.substr(1), ccLegal);
}

bool TVdSQLScanner::OwnInteger(std::string_view s) const
{
    return !s.empty() && AllHave(s, ccDigit);
}

std::string_view TVdSQLScanner::OwnUnquotedIdent(std::string_view name) const
{
    if (name.size() > 1 && Has(name.front(), ccIdentQuote) && Has(name.back(), ccIdentQuote))
        return name.substr(1, name.size() - 2);
    return name;
}

bool TVdSQLScanner::IsKeyword(const std::string& s) const { return FKeywords.Contains(s); }

bool TVdSQLScanner::IsFunction(const std::string& s) const { return FFunctions.Contains(s); }

size_t TVdSQLScanner::ClosingQuote(std::string_view text, char quote, int after) const
{
    std::string read;
    read.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == quote) {
            const int next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : after;
            if (IsTerminator(quote, read, quote, next))
                return i;
        }
        read += text[i];
    }
    return std::string_view::npos;
}

bool TVdSQLScanner::ClosesAtEnd(std::string_view body, char quote) const
{
    return ClosingQuote(std::string(body) + quote, quote, ' ') == body.size();
}

bool TVdSQLScanner::IsTerminator(char c, const std::string& text, char quote, int next) const
{
    if (c != quote)
        return false;
    if (next < 0)
        return true;
    if (next == static_cast<unsigned char>(quote))
        return false;
    size_t k = 0;
    while (k < text.size() && text[text.size() - 1 - k] == quote)
        ++k;
    return k % 2 == 0;
}

char TVdSQLScanner::GetIdentQuote() const { return '"'; }

bool TVdSQLScanner::GetProcessAliases() const { return false; }

bool TVdSQLScanner::GetQuoteIdentifiers() const { return FQuoteIdentifiers; }

char TVdSQLScanner::GetStringQuote() const { return '\''; }

// NeedQuotes and ProcessIdent read IsIdentQuote's answers from the class table.
bool TVdSQLScanner::NeedQuotes(const std::string& name) const
{
    if (name.size() < 2)
        return true;
    const_cast<TVdSQLScanner*>(this)->EnsureCharClasses();
    const char first = name.front();
    const char last = name.back();
    return first != last || !Has(first, ccIdentQuote);
}

std::string TVdSQLScanner::GetCommaKeywords() const
{
    return "SELECT,DISTINCT,INTO,FROM,WHERE,GROUP,BY,HAVING,ORDER,ASC,DESC,AS,LEFT,RIGHT,FULL,"
           "INNER,OUTER,JOIN,ON,AND,OR,NOT";
}

std::string TVdSQLScanner::GetCommaFunctions() const { return "SUM,MIN,MAX,AVG,COUNT"; }

std::string TVdSQLScanner::GetCommaOperations() const { return "+,-,*,/"; }

std::string TVdSQLScanner::ProcessIdent(const std::string& name) const
{
    if (name.size() < 2)
        return name;
    const_cast<TVdSQLScanner*>(this)->EnsureCharClasses();
    return std::string(OwnUnquotedIdent(name));
}

void TVdSQLScanner::DefineKeywords()
{
    FKeywords.Clear();
    FKeywords.SetCommaText(GetCommaKeywords());
    FKeywords.Sort();
}

void TVdSQLScanner::DefineFunctions()
{
    FFunctions.Clear();
    FFunctions.SetCommaText(GetCommaFunctions());
    FFunctions.Sort();
}

void TVdSQLScanner::DefineOperations()
{
    FOperations.Clear();
    FOperations.SetCommaText(GetCommaOperations());
    FOperations.Sort();
}

namespace {

// End (exclusive) of a part that opens with quote at 0, where the scanner closes it; npos if
// it stays open.
size_t QuotedPartEnd(const TVdSQLScanner& scanner, std::string_view s, char quote)
{
    const size_t closing = scanner.ClosingQuote(s.substr(1), quote, ' ');
    return closing == std::string_view::npos ? closing : closing + 2;
}

} // namespace

std::string TVdSQLScanner::ProcessName(const std::string& name) const
{
    if (!GetQuoteIdentifiers())
        return name;
    // Without a "." after the first character the whole name is the last part (no prefix).
    if (PartEnd(name) == std::string::npos)
        return NeedQuotes(name) ? QuotedName(name) : name;
    const char quote = GetIdentQuote();
    std::string prefix;
    bool hasPrefix = false;
    bool anyQuoted = false;
    std::string_view rest(name);
    for (;;) {
        const size_t dot = PartEnd(rest);
        if (dot == std::string_view::npos)
            break;
        std::string_view part;
        if (rest.front() == quote) {
            const size_t end = QuotedPartEnd(*this, rest, quote);
            if (end == std::string_view::npos || end >= rest.size())
                break; // the quoted text runs to the end: it is the last part
            if (rest[end] == '.') {
                part = rest.substr(0, end);
                rest.remove_prefix(end + 1);
                anyQuoted = true;
            } else {
                // Text follows the closing quote ("a.b"1, an alias made from a quoted name):
                // the dots inside the quotes split nothing, the part runs on to the next dot.
                const size_t next = rest.find('.', end);
                if (next == std::string_view::npos)
                    break;
                part = rest.substr(0, next);
                rest.remove_prefix(next + 1);
            }
        }
        if (part.empty()) {
            part = rest.substr(0, dot);
            rest.remove_prefix(dot + 1);
        }
        if (hasPrefix && !prefix.empty() && prefix.back() != '.')
            prefix += '.';
        prefix += part;
        hasPrefix = true;
    }
    std::string result;
    if (hasPrefix) {
        if (!anyQuoted && NeedQuotes(prefix))
            AppendQuotedName(result, prefix);
        else
            result = prefix;
        result += '.';
    }
    const std::string last(rest);
    if (NeedQuotes(last))
        AppendQuotedName(result, last);
    else
        result += last;
    return result;
}

std::string TVdSQLScanner::UnquoteString(const std::string& content, char quote) const
{
    return text::UndoubleQuotes(content, quote);
}

std::string TVdSQLScanner::QuoteString(const std::string& value) const
{
    return text::QuotedStr(value, '\'');
}

void TVdSQLScanner::AppendQuotedName(std::string& out, std::string_view name) const
{
    text::AppendQuoted(out, name, GetIdentQuote());
}

std::string TVdSQLScanner::QuotedName(std::string_view name) const
{
    std::string result;
    AppendQuotedName(result, name);
    return result;
}

void TVdSQLScanner::SetKeywords(const TVdWordList& words)
{
    FKeywords.Assign(words, true);
    FKeywords.Sort();
}

void TVdSQLScanner::SetFunctions(const TVdWordList& words)
{
    FFunctions.Assign(words, true);
    FFunctions.Sort();
}

void TVdSQLScanner::SetOperations(const TVdWordList& words) { FOperations.Assign(words, false); }

std::string TVdSQLScanner::GetTokenPlus()
{
    const TState state = SaveState();
    std::string next = GetNextToken();
    RestoreState(state);
    return next;
}

void TVdSQLScanner::RestoreState(const TState& s)
{
    FPosition = s.Position;
    FLevel = s.Level;
    FLineNo = s.LineNo;
    FLinePos = s.LinePos;
    FSpaceCount = s.SpaceCount;
    FTokenStart = s.TokenStart;
    FTokenEnd = s.TokenEnd;
    FTokenAt = s.TokenAt;
    FToken.assign(FExpression, size_t(s.TokenAt), size_t(s.TokenSize));
    FInString = s.InString;
    FEmptyStringPending = s.EmptyStringPending;
    FTokenQuoted = s.TokenQuoted;
    FQuoteChar = s.QuoteChar;
    FTokenQuote = s.TokenQuote;
    FOpenQuote = s.OpenQuote;
    FQuoteStart = s.QuoteStart;
    FTokenKind = s.TokenKind;
}

void TVdSQLScanner::Init()
{
    TVdScanner::Init();
    FEmptyStringPending = false;
    if (FTokenKind == tkEol) {
        FLineNo = 2;
        FLinePos = 1;
    } else {
        FLineNo = 1;
        FLinePos = int(FToken.size()) + 1;
    }
    FTokenStart = FTokenEnd = 1;
    FTokenQuoted = false;
    FTokenQuote = '\0';
    EnsureCharClasses();
    // Decided here rather than in the constructor, where every scanner is still of this class.
    FOwnWordTests = typeid(*this) == typeid(TVdSQLScanner);
}

void TVdSQLScanner::SetPosition(int p)
{
    if (p == FPosition)
        return;
    TVdScanner::SetPosition(p);
    if (FPosition == FLength)
        FTokenKind = tkEnd;
    else if (FToken.empty())
        FTokenKind = tkUnknown;
}

void TVdSQLScanner::ReadCharClasses()
{
    for (int i = 0; i < 256; ++i) {
        const char c = char(i);
        std::uint16_t cls = 0;
        if (IsAlpha(c))
            cls |= ccAlpha;
        if (IsDigit(c))
            cls |= ccDigit;
        if (IsDelim(c))
            cls |= ccDelim;
        if (IsQuote(c))
            cls |= ccQuote;
        if (IsIdentQuote(c))
            cls |= ccIdentQuote;
        if (IsSpace(c))
            cls |= ccSpace;
        if (IsComparison(c))
            cls |= ccComparison;
        if (IsLegalSymbol(c))
            cls |= ccLegal;
        if (ShouldLevelUp(c))
            cls |= ccLevelUp;
        if (ShouldLevelDown(c))
            cls |= ccLevelDown;
        FClasses[i] = cls;
    }
    const std::uint16_t quotes = ccQuote | ccIdentQuote;
    for (std::uint16_t& cls : FClasses) {
        if ((cls & ccAlpha) && !(cls & (quotes | ccDelim | ccSpace)))
            cls |= ccWordStart;
        // MY-COL is one word: a delimiter that is also a legal character goes on with it.
        if ((cls & quotes) || (!(cls & ccLegal) && (cls & (ccDelim | ccSpace))))
            cls |= ccWordStop;
    }
    FCrIsDelim = Has('\r', ccDelim) && !Has('\r', ccQuote | ccIdentQuote | ccComparison);
    FClassesValid = true;
}

bool TVdSQLScanner::Closes(char c, const std::string& result) const
{
    const int next = FPosition < FLength ? static_cast<unsigned char>(CharAt(FPosition + 1)) : -1;
    return IsTerminator(c, result, FQuoteChar, next);
}

bool TVdSQLScanner::ScanDelimOrSpace(char c, std::string& result, TTokenKind& kind)
{
    if (!Has(c, ccDelim) && !Has(c, ccSpace))
        return false;
    if (!result.empty())
        return true; // ends the token, stays unread
    FTokenStart = FPosition;
    result = c;
    kind = Has(c, ccDelim) ? tkDelim : tkSpace;
    ++FPosition;
    if (c == '\r' && CharAt(FPosition) == '\n') {
        result += '\n';
        kind = tkEol;
        ++FPosition;
        ++FLineNo;
        FLinePos = 1;
    }
    if (Has(result[0], ccComparison)) {
        kind = tkComparison;
        // Two comparison characters form one token, but not as the last two of the text.
        if (FPosition < FLength && Has(CharAt(FPosition), ccComparison)) {
            result += CharAt(FPosition);
            ++FPosition;
        }
    }
    return true;
}

// Steps through the text for one raw token (quotes, blanks and line ends included).
TTokenKind TVdSQLScanner::ScanOne(std::string& result)
{
    TTokenKind kind = tkUnknown;
    while (FPosition <= FLength) {
        const char c = CharAt(FPosition);
        if (Has(c, ccQuote | ccIdentQuote) && (FQuoteChar == '\0' || Closes(c, result))) {
            if (result.empty() && !FEmptyStringPending) {
                const bool opening = !FInString;
                FQuoteChar = opening ? c : '\0';
                FInString = FQuoteChar != '\0';
                FEmptyStringPending = opening && CharAt(FPosition + 1) == c &&
                                      (FPosition + 1 == FLength || CharAt(FPosition + 2) != c);
                if (opening)
                    FQuoteStart = FPosition;
                FTokenStart = FPosition;
                result = c;
                ++FPosition;
                return tkQuote;
            }
            if (FInString) {
                const bool ident = Has(c, ccIdentQuote);
                const bool str = Has(c, ccQuote);
                kind = ident && str ? tkIdentString : ident ? tkIdent : str ? tkString : tkUnknown;
            }
            FEmptyStringPending = false;
            return kind;
        }
        if (!FInString) {
            // "1.5 " is a float, "1.5" at the very end of the text is not: the fraction must
            // be followed by one more character. The token keeps its integer part only.
            if (c == '.' && IsInteger(result)) {
                int j = FPosition + 1;
                while (j <= FLength && Has(CharAt(j), ccDigit))
                    ++j;
                const char after = CharAt(j);
                if (j == FLength || (j <= FLength && (Has(after, ccSpace) ||
                                                      (Has(after, ccDelim) && after != '.')))) {
                    FPosition = j - 1;
                    return tkFloat;
                }
            }
            // MY-COL is one identifier: a delimiter that is also a legal identifier character
            // continues a word that began with a letter.
            const bool inWord = !result.empty() && Has(c, ccLegal) && Has(result[0], ccAlpha);
            if (!inWord && ScanDelimOrSpace(c, result, kind))
                return kind;
        }
        if (result.empty())
            FTokenStart = FPosition;
        // Characters that end nothing are taken as a run.
        const std::uint16_t stops =
            FInString ? (ccQuote | ccIdentQuote) : (ccQuote | ccIdentQuote | ccDelim | ccSpace);
        const char* text = FExpression.data();
        int end = FPosition + 1;
        while (end <= FLength && !Has(text[end - 1], stops))
            ++end;
        result.append(FExpression, size_t(FPosition - 1), size_t(end - FPosition));
        FPosition = end;
    }
    return kind;
}

TTokenKind TVdSQLScanner::ClassifyWord(const std::string& result) const
{
    if (result.empty())
        return tkEnd;
    if (IsFunction(result))
        return tkFunction;
    if (IsKeyword(result))
        return tkKeyword;
    if (IsInteger(result))
        return tkInteger;
    if (IsIdentifier(result) || IsIdentifier(ProcessIdent(result)))
        return tkIdent;
    return tkUnknown;
}

void TVdSQLScanner::MergeWordLists()
{
    FMergedWords.Clear();
    FMergedFlags.clear();
    std::unordered_map<std::string, size_t> at;
    const std::pair<const TVdWordList*, std::uint8_t> lists[] = {
        {&FFunctions, wfFunction}, {&FKeywords, wfKeyword}, {&FOperations, wfOperation}};
    for (const auto& [list, flag] : lists)
        for (const std::string& word : list->Items()) {
            const auto [place, added] = at.emplace(text::Upper(word), FMergedFlags.size());
            if (added) {
                FMergedWords.Add(word);
                FMergedFlags.push_back(flag);
            } else {
                FMergedFlags[place->second] |= flag;
            }
        }
    FMergedStamps[0] = FFunctions.Stamp();
    FMergedStamps[1] = FKeywords.Stamp();
    FMergedStamps[2] = FOperations.Stamp();
    for (int i = 0; i < 256; ++i) {
        const char c = char(i);
        const int at = FMergedWords.IndexOf(std::string_view(&c, 1));
        FSingleFlags[i] = at < 0 ? 0 : FMergedFlags[size_t(at)];
    }
}

// ClassifyWord with this class's own tests, called without virtual dispatch.
TTokenKind TVdSQLScanner::ClassifyOwnWord(std::string_view word, std::uint8_t flags) const
{
    if (word.empty())
        return tkEnd;
    if (flags & wfFunction)
        return tkFunction;
    if (flags & wfKeyword)
        return tkKeyword;
    if (OwnInteger(word))
        return tkInteger;
    if (OwnIdentifier(word) || OwnIdentifier(OwnUnquotedIdent(word)))
        return tkIdent;
    return tkUnknown;
}

void TVdSQLScanner::RaiseUnterminated() const
{
    throw EVdParserError(3, FToken, FLineNo, FLinePos - int(FToken.size()));
}

// Kept small: most tokens are read by the plain path, and the character-by-character rules
// (strings, comparisons, quotes) live in ScanRest.
const std::string& TVdSQLScanner::GetNextToken()
{
    EnsureCharClasses();
    if (StartToken())
        return FToken;
    return ScanRest();
}

// One round of GetNextToken up to the character rules: true when the plain path read the token.
bool TVdSQLScanner::StartToken()
{
    if (FTokenKind != tkSpace && FTokenKind != tkEol)
        FSpaceCount = 0;
    // Outside strings: blanks and the common tokens are read in runs.
    if (FInString || FEmptyStringPending)
        return false;
    // Most tokens follow a blank or none; a delimiter follows its token directly.
    if (FPosition <= FLength) {
        const char c = FExpression[size_t(FPosition - 1)];
        if (Has(c, ccSpace) || c == '\r')
            SkipBlankRun();
    }
    FTokenKind = tkUnknown;
    return ScanPlainToken();
}

const std::string& TVdSQLScanner::ScanRest()
{
    std::string& result = FBuffer;
    for (;;) {
        FTokenKind = tkUnknown;
        result.clear();
        const bool wasPending = FEmptyStringPending;
        TTokenKind kind = ScanOne(result);
        const int textAt = FTokenStart - 1;
        const bool quoted = FInString && kind != tkQuote;
        if (kind == tkUnknown)
            kind = ClassifyWord(result);
        else if (result.empty() && !(wasPending && quoted))
            kind = tkEnd;
        // Blanks, line ends and quotes are never operations (list items are trimmed words).
        if (kind != tkSpace && kind != tkEol && kind != tkQuote &&
            (FOwnWordTests ? FOperations.Contains(result) : IsOperation(result)))
            kind = tkOperation;
        FTokenKind = kind;
        if (kind != tkEol)
            FLinePos += int(result.size());
        if (kind == tkQuote || kind == tkSpace || kind == tkEol) {
            if (kind != tkQuote)
                ++FSpaceCount;
            if (StartToken())
                return FToken;
            continue;
        }
        if (!FInString && FPosition > 1) {
            const char last = CharAt(FPosition - 1);
            if (Has(last, ccLevelUp))
                ++FLevel;
            else if (Has(last, ccLevelDown))
                --FLevel;
        }
        if (kind == tkEnd && FInString)
            RaiseUnterminated();

        FTokenQuoted = quoted;
        FTokenQuote = quoted ? FQuoteChar : '\0';
        if (quoted) {
            FTokenStart = FQuoteStart;
            FTokenEnd = FPosition <= FLength ? FPosition + 1 : FPosition;
        } else {
            if (kind == tkEnd)
                FTokenStart = FPosition;
            FTokenEnd = FPosition;
        }
        // Every path of ScanOne sets TokenStart where its result begins, before the quote
        // adjustment above.
        FTokenAt = result.empty() ? FPosition - 1 : textAt;
        FToken.swap(result);
        return FToken;
    }
}

// The common tokens outside strings, a word or a single delimiter, read in one step with the
// same outcome as the character-by-character rules: a word runs up to a quote, or a blank or
// delimiter that is no legal identifier character; a delimiter that is no comparison, no CR
// and no quote is a token of its own.
bool TVdSQLScanner::ScanPlainToken()
{
    if (FPosition > FLength)
        return false;
    const char* text = FExpression.data();
    const char c = text[FPosition - 1];
    int end = FPosition + 1;
    // Whether the word is an identifier by this class's own test: a letter that is no digit
    // (so no integer either), then legal characters only.
    bool plainIdent = false;
    if (Has(c, ccWordStart)) {
        std::uint16_t seen = ccLegal;
        while (end <= FLength) {
            const std::uint16_t cls = FClasses[static_cast<unsigned char>(text[end - 1])];
            if (cls & ccWordStop)
                break;
            seen &= cls;
            ++end;
        }
        plainIdent = (seen & ccLegal) && !Has(c, ccDigit);
    } else if (Has(c, ccDigit) && !Has(c, ccAlpha | ccQuote | ccIdentQuote | ccDelim | ccSpace)) {
        // A number (or a word that starts with a digit) runs up to a quote, a blank or any
        // delimiter; a "." after it may make a float, which ScanOne decides.
        const std::uint16_t stops = ccQuote | ccIdentQuote | ccDelim | ccSpace;
        while (end <= FLength && !Has(text[end - 1], stops))
            ++end;
        if (end <= FLength && text[end - 1] == '.')
            return false;
    } else if (!Has(c, ccDelim) || Has(c, ccQuote | ccIdentQuote | ccSpace | ccComparison) ||
               c == '\r' || (c == '.' && !FOwnWordTests)) {
        // A "." opening a token is a delimiter of its own, unless a subclass's IsInteger
        // takes the empty text for a number (ScanOne asks it).
        return false;
    }
    FTokenAt = FPosition - 1;
    FToken.assign(text + FTokenAt, size_t(end - FPosition));
    const bool word = end - FPosition > 1 || !Has(c, ccDelim);
    TTokenKind kind;
    if (FOwnWordTests) {
        const std::uint8_t flags = OwnWordFlags(FToken);
        if (!word)
            kind = tkDelim;
        else if (plainIdent && !(flags & (wfFunction | wfKeyword)))
            kind = tkIdent;
        else
            kind = ClassifyOwnWord(FToken, flags);
        if (flags & wfOperation)
            kind = tkOperation;
    } else {
        kind = word ? ClassifyWord(FToken) : tkDelim;
        if (IsOperation(FToken))
            kind = tkOperation;
    }
    FTokenKind = kind;
    FTokenStart = FPosition;
    FPosition = end;
    FTokenEnd = end;
    FLinePos += end - FTokenStart;
    const char last = text[end - 2];
    if (Has(last, ccLevelUp))
        ++FLevel;
    else if (Has(last, ccLevelDown))
        --FLevel;
    FTokenQuoted = false;
    FTokenQuote = '\0';
    return true;
}

// Blanks and CR LF pairs between tokens, taken a run at a time: each would be a token of its
// own that only counts in SpaceCount, LinePos and LineNo, exactly as counted here.
void TVdSQLScanner::SkipBlankRun()
{
    const char* text = FExpression.data();
    const std::uint16_t other = ccDelim | ccQuote | ccIdentQuote | ccComparison;
    const bool crIsDelim = FCrIsDelim;
    for (;;) {
        if (FPosition > FLength)
            return;
        const char c = text[FPosition - 1];
        if (Has(c, ccSpace) && !Has(c, other)) {
            ++FPosition;
            ++FLinePos;
            FTokenKind = tkSpace;
        } else if (c == '\r' && crIsDelim && FPosition < FLength && text[FPosition] == '\n') {
            FPosition += 2;
            ++FLineNo;
            FLinePos = 1;
            FTokenKind = tkEol;
        } else {
            return;
        }
        ++FSpaceCount;
    }
}

bool TVdSQLScanner::NextIsDelim(char c)
{
    EnsureCharClasses();
    if (!FInString && !FEmptyStringPending) {
        int p = FPosition;
        for (;;) {
            const char ch = CharAt(p);
            if (p <= FLength && Has(ch, ccSpace)) {
                ++p;
            } else if (ch == '\r' && CharAt(p + 1) == '\n') {
                p += 2;
            } else {
                // A plain delimiter is a token of its own; anything else is looked at in full.
                if (p > FLength || Has(ch, ccQuote | ccIdentQuote | ccComparison) ||
                    !Has(ch, ccDelim))
                    break;
                return ch == c;
            }
        }
    }
    const TState state = SaveState();
    GetNextToken();
    const bool match = !FTokenQuoted && FToken.size() == 1 && FToken[0] == c;
    RestoreState(state);
    return match;
}

std::string TVdSQLScanner::RawToken() const
{
    if (FTokenEnd <= FTokenStart)
        return FToken;
    return FExpression.substr(size_t(FTokenStart - 1), size_t(FTokenEnd - FTokenStart));
}

} // namespace vd
