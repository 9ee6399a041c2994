#pragma once

#include "core/VdSet.h"
#include "core/VdWordList.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vd {

enum TTokenKind : std::uint8_t {
    tkUnknown,
    tkKeyword,
    tkFunction,
    tkDelim,
    tkInteger,
    tkFloat,
    tkString,
    tkQuote,
    tkSpace,
    tkEol,
    tkEnd,
    tkIdent,
    tkIdentString,
    tkOperation,
    tkComparison
};

using TTokenKinds = TVdSet<TTokenKind>;

// The name of a token kind as written in code ("tkIdent", ...).
const char* TokenKindName(TTokenKind kind);

// Holds the text, the read position and the character classes. Positions are 1-based.
class TVdScanner
{
public:
    TVdScanner();
    virtual ~TVdScanner();
    TVdScanner(const TVdScanner&) = delete;
    TVdScanner& operator=(const TVdScanner&) = delete;

    virtual bool IsAlpha(char c) const;
    virtual bool IsDelim(char c) const;
    virtual bool IsDigit(char c) const;
    virtual bool IsQuote(char c) const;
    virtual bool IsSpace(char c) const;
    // Look-ahead: the next token without consuming it.
    virtual std::string GetTokenPlus();
    virtual bool ShouldLevelUp(char c) const;
    virtual bool ShouldLevelDown(char c) const;
    virtual void Init();
    virtual void SetPosition(int p);
    virtual const std::string& GetFirstToken();
    virtual const std::string& GetNextToken() = 0;

    void SetExpression(const std::string& text);
    void SetExpression(std::string&& text);

    const std::string& Expression() const { return FExpression; }
    int Position() const { return FPosition; }
    int Length() const { return FLength; }
    const std::string& Token() const { return FToken; }
    int Level() const { return FLevel; }
    bool InString() const { return FInString; }
    char QuoteChar() const { return FQuoteChar; }

protected:
    // 1-based access; 0 outside the text.
    char CharAt(int p) const
    {
        return (p >= 1 && p <= FLength) ? FExpression[size_t(p - 1)] : '\0';
    }

    std::string FExpression;
    int FPosition = 1;
    int FLength = 0;
    std::string FToken;
    int FLevel = 0;
    bool FInString = false;
    char FQuoteChar = '\0';
};

// The SQL token rules, the word lists, line counting and the quoting of names.
class TVdSQLScanner : public TVdScanner
{
public:
    TVdSQLScanner();
    ~TVdSQLScanner() override;

    std::string GetTokenPlus() override;
    void Init() override;
    void SetPosition(int p) override;
    const std::string& GetNextToken() override;

    virtual bool IsOperation(const std::string& s) const;
    virtual bool IsComparison(char c) const;
    virtual bool IsLegalSymbol(char c) const;
    virtual bool IsIdentQuote(char c) const;
    virtual bool IsIdentifier(const std::string& s) const;
    virtual bool IsInteger(const std::string& s) const;
    virtual bool IsKeyword(const std::string& s) const;
    virtual bool IsFunction(const std::string& s) const;
    // Whether c, met inside a string opened by quote, closes it. text is what the string
    // holds so far, next the character after c (-1 at the end of the text).
    virtual bool IsTerminator(char c, const std::string& text, char quote, int next) const;
    // Where a text opened by quote closes: the index in text of the quote that closes it
    // (a doubled quote does not, nor in MySQL a quote after a backslash), or npos when it
    // stays open. text starts after the opening quote; after is the character behind it.
    size_t ClosingQuote(std::string_view text, char quote, int after) const;
    // Whether quote, body, quote reads as one quoted text: no quote inside closes it and the
    // last one does (in MySQL `\`` does not close).
    bool ClosesAtEnd(std::string_view body, char quote) const;
    // Where ProcessName ends the part that opens rest: at the first "." after its first
    // character (a part may begin with a dot); npos where rest is its last part.
    static size_t PartEnd(std::string_view rest)
    {
        return rest.size() > 1 ? rest.find('.', 1) : std::string_view::npos;
    }
    virtual char GetIdentQuote() const;
    virtual bool GetProcessAliases() const;
    virtual bool GetQuoteIdentifiers() const;
    virtual char GetStringQuote() const;
    virtual bool NeedQuotes(const std::string& name) const;
    virtual std::string GetCommaKeywords() const;
    virtual std::string GetCommaFunctions() const;
    virtual std::string GetCommaOperations() const;
    virtual std::string ProcessIdent(const std::string& name) const;
    virtual void DefineKeywords();
    virtual void DefineFunctions();
    virtual void DefineOperations();
    virtual std::string ProcessName(const std::string& name) const;
    // The text of a string token as the model keeps it: its quotes' escapes undone.
    virtual std::string UnquoteString(const std::string& content, char quote) const;
    // A string the model keeps (the inverse of UnquoteString) written as a literal of this
    // dialect: in apostrophes, an apostrophe inside doubled.
    virtual std::string QuoteString(const std::string& value) const;
    // A name written in identifier quotes so that it reads back as itself: a quote inside
    // doubled.
    virtual void AppendQuotedName(std::string& out, std::string_view name) const;
    std::string QuotedName(std::string_view name) const;

    void SetKeywords(const TVdWordList& words);
    void SetFunctions(const TVdWordList& words);
    void SetOperations(const TVdWordList& words);
    void SetQuoteIdentifiers(bool value) { FQuoteIdentifiers = value; }

    TTokenKind TokenKind() const { return FTokenKind; }
    const TVdWordList& Keywords() const { return FKeywords; }
    const TVdWordList& Functions() const { return FFunctions; }
    const TVdWordList& Operations() const { return FOperations; }
    int LineNo() const { return FLineNo; }
    int LinePos() const { return FLinePos; }
    int SpaceCount() const { return FSpaceCount; }
    bool EmptyStringPending() const { return FEmptyStringPending; }
    bool QuoteIdentifiers() const { return FQuoteIdentifiers; }

    // Where the last token stands in the text, its quotes included: [TokenStart, TokenEnd).
    int TokenStart() const { return FTokenStart; }
    int TokenEnd() const { return FTokenEnd; }
    // Whether the last token was the content of a quoted text.
    bool TokenQuoted() const { return FTokenQuoted; }
    // The quote that enclosed the last token (0 when it was not quoted).
    char TokenQuote() const { return FTokenQuote; }
    // The text of the last token as written, quotes included.
    std::string RawToken() const;

    // Everything GetTokenPlus saves, for parsers that look further ahead.
    // The token is kept as where its text stands in the expression (it always is a piece of
    // it), so that saving and restoring copy no text.
    struct TState {
        int Position, Level, LineNo, LinePos, SpaceCount, TokenStart, TokenEnd;
        int TokenAt, TokenSize;
        bool InString, EmptyStringPending, TokenQuoted;
        char QuoteChar, TokenQuote, OpenQuote;
        int QuoteStart;
        TTokenKind TokenKind;
    };
    // Inline: parsers save a state before most looks ahead.
    TState SaveState() const
    {
        return TState{
            FPosition,           FLevel,       FLineNo,    FLinePos,           FSpaceCount,
            FTokenStart,         FTokenEnd,    FTokenAt,   int(FToken.size()), FInString,
            FEmptyStringPending, FTokenQuoted, FQuoteChar, FTokenQuote,        FOpenQuote,
            FQuoteStart,         FTokenKind};
    }
    void RestoreState(const TState& state);
    // Whether the next token is the single delimiter c; the same answer as looking ahead with
    // GetTokenPlus, without scanning a whole token where blanks and line ends are all that
    // stand between.
    bool NextIsDelim(char c);

protected:
    // Re-reads the character classes on the next scan; dialects call it when a setting
    // that their classes depend on changes.
    void InvalidateCharClasses() { FClassesValid = false; }

private:
    enum : std::uint16_t {
        ccAlpha = 1,
        ccDigit = 2,
        ccDelim = 4,
        ccQuote = 8,
        ccIdentQuote = 16,
        ccSpace = 32,
        ccComparison = 64,
        ccLegal = 128,
        ccLevelUp = 256,
        ccLevelDown = 512,
        // Derived from the classes above, for the word loop: a character that can open a plain
        // word, and one that ends it.
        ccWordStart = 1024,
        ccWordStop = 2048
    };
    // Inline: every token asks.
    void EnsureCharClasses()
    {
        if (!FClassesValid)
            ReadCharClasses();
    }
    void ReadCharClasses();
    bool StartToken();
    const std::string& ScanRest();
    // Both only outside strings (no string open, no empty string pending).
    void SkipBlankRun();
    bool ScanPlainToken();
    bool Has(char c, std::uint16_t cls) const
    {
        return FClasses[static_cast<unsigned char>(c)] & cls;
    }
    TTokenKind ScanOne(std::string& result);
    bool ScanDelimOrSpace(char c, std::string& result, TTokenKind& kind);
    TTokenKind ClassifyWord(const std::string& result) const;
    // This class's own IsFunction, IsKeyword and IsOperation answered by one lookup in the
    // three lists merged; used only while the scanner is of this class exactly, where none
    // of them is overridden.
    enum : std::uint8_t { wfFunction = 1, wfKeyword = 2, wfOperation = 4 };
    std::uint8_t OwnWordFlags(std::string_view word)
    {
        if (FMergedStamps[0] != FFunctions.Stamp() || FMergedStamps[1] != FKeywords.Stamp() ||
            FMergedStamps[2] != FOperations.Stamp())
            MergeWordLists();
        if (word.size() == 1)
            return FSingleFlags[static_cast<unsigned char>(word[0])];
        const int i = FMergedWords.IndexOf(word);
        return i < 0 ? 0 : FMergedFlags[size_t(i)];
    }
    void MergeWordLists();
    TTokenKind ClassifyOwnWord(std::string_view word, std::uint8_t flags) const;
    // This class's IsIdentifier, IsInteger and ProcessIdent on the class table, which must be
    // read already; shared by those and by ClassifyOwnWord.
    bool AllHave(std::string_view s, std::uint16_t cls) const;
    bool OwnIdentifier(std::string_view s) const;
    bool OwnInteger(std::string_view s) const;
    std::string_view OwnUnquotedIdent(std::string_view name) const;
    bool Closes(char c, const std::string& result) const;
    void RaiseUnterminated() const;

    TTokenKind FTokenKind = tkUnknown;
    TVdWordList FKeywords;
    TVdWordList FFunctions;
    int FLineNo = 1;
    int FLinePos = 1;
    int FSpaceCount = 0;
    bool FEmptyStringPending = false;
    bool FQuoteIdentifiers = true;
    TVdWordList FOperations;

    int FTokenStart = 1;
    int FTokenEnd = 1;
    bool FTokenQuoted = false;
    char FTokenQuote = '\0';
    char FOpenQuote = '\0';
    int FQuoteStart = 0;
    // Where the text of FToken starts in FExpression (0-based).
    int FTokenAt = 0;
    std::uint16_t FClasses[256] = {};
    std::string FBuffer;
    bool FClassesValid = false;
    // Whether a CR LF pair between tokens is a line end that SkipBlankRun may take.
    bool FCrIsDelim = false;
    bool FOwnWordTests = false;
    TVdWordList FMergedWords;
    std::vector<std::uint8_t> FMergedFlags;
    std::uint64_t FMergedStamps[3] = {~0ull, ~0ull, ~0ull};
    // The flags of every one-character word, looked up once per merge: most of the tokens
    // that are no word at all (",", "(", ")") are one character long.
    std::uint8_t FSingleFlags[256] = {};
};

} // namespace vd
