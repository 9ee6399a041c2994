#pragma once

#include "core/VdScanner.h"

namespace vd {

// Tokens and names of MySQL: back-quoted identifiers (a double-quoted text is a string),
// strings with backslash escapes, and the server's keywords and functions.
class TVdMySQLScanner : public TVdSQLScanner
{
public:
    TVdMySQLScanner();

    char GetIdentQuote() const override;
    bool IsIdentQuote(char c) const override;
    bool GetProcessAliases() const override;
    // A quote escaped by a backslash, or doubled, does not close the string.
    bool IsTerminator(char c, const std::string& text, char quote, int next) const override;
    std::string GetCommaFunctions() const override;
    std::string GetCommaKeywords() const override;
    // A string is kept as the text between apostrophes, escapes as written: 'it\'s' keeps
    // it\'s. A double-quoted string is turned into that form ("it's" gives it\'s).
    std::string UnquoteString(const std::string& content, char quote) const override;
    // The kept text between apostrophes when it reads back as one string; otherwise each
    // apostrophe that would end it is escaped with a backslash.
    std::string QuoteString(const std::string& value) const override;
    // A back quote doubled, except in a run of them after a backslash, which already escapes
    // one: `\`` reads back as \`, so k such quotes are written 2k - 1 times.
    void AppendQuotedName(std::string& out, std::string_view name) const override;

private:
    bool ReadsBackAsString(const std::string& body) const;
};

} // namespace vd
