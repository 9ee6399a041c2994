#pragma once

// Printing helpers of the model: each appends its piece to one output string, so that a
// statement prints without a temporary string per word. They give exactly the text of the
// Process* operations of TVdCollectionItem and TVdSelectParser.

#include "core/VdSelectParser.h"

#include <string>
#include <string_view>
#include <typeinfo>

namespace vd::script {

// ProcessKeyword(word) of an item with this parser, written straight into out.
inline void AppendKeyword(std::string& out, const TVdSelectParser* parser, std::string_view word)
{
    const TVdFormatMode mode = parser ? parser->ScriptFormat().KeywordsFormat : qfmAsIs;
    if (mode == qfmAsIs)
        out += word;
    else
        AppendFormatted(out, word, mode);
}

// "GROUP BY\r\n  " (first, a blank, second, a line break and the indent) in the parser's
// keyword case.
inline void AppendClauseHead(std::string& out, const TVdSelectParser* parser,
                             std::string_view first, std::string_view second)
{
    AppendKeyword(out, parser, first);
    out += ' ';
    AppendKeyword(out, parser, second);
    out += "\r\n  ";
}

// ProcessFunction(name) of an item with this parser.
inline void AppendFunctionName(std::string& out, const TVdSelectParser* parser,
                               const std::string& name)
{
    const TVdFormatMode mode = parser ? parser->ScriptFormat().FunctionsFormat : qfmAsIs;
    if (mode == qfmAsIs)
        out += name;
    else
        AppendFormatted(out, name, mode);
}

// Whether name holds ".db" in any letter case; firstDot is where its first "." stands.
inline bool HasDbDot(const std::string& name, size_t firstDot)
{
    for (size_t dot = firstDot; dot != std::string::npos && dot + 3 <= name.size();
         dot = name.find('.', dot + 1))
        if (text::UpperChar(name[dot + 1]) == 'D' && text::UpperChar(name[dot + 2]) == 'B')
            return true;
    return false;
}

// Whether the base scanner's NeedQuotes holds for name; for an object of that very class.
inline bool BaseNeedsQuotes(const TVdSQLScanner& scanner, std::string_view name)
{
    if (name.size() < 2)
        return true;
    // Equal ends are both quotes or neither.
    return name.front() != name.back() || !scanner.TVdSQLScanner::IsIdentQuote(name.front());
}

// A part of a name as the base scanner prints it: quoted unless it stands in its quotes.
inline void AppendBasePart(std::string& out, const TVdSQLScanner& scanner, std::string_view part)
{
    if (BaseNeedsQuotes(scanner, part))
        text::AppendQuoted(out, part, scanner.TVdSQLScanner::GetIdentQuote());
    else
        out += part;
}

// The base scanner's ProcessName(name) with quoting on, appended to out; firstDot is where the
// first "." of name stands. A name of one word, or a plain qualifier and one "." before the
// last part (T.COL), is written here; any other shape is left to ProcessName.
inline void AppendBaseName(std::string& out, const TVdSQLScanner& scanner, const std::string& name,
                           size_t firstDot)
{
    const size_t split = firstDot == 0 ? TVdSQLScanner::PartEnd(name) : firstDot;
    if (split == std::string::npos) {
        AppendBasePart(out, scanner, name);
        return;
    }
    if (name.front() == scanner.TVdSQLScanner::GetIdentQuote() ||
        name.find('.', split + 1) != std::string::npos) {
        out += scanner.ProcessName(name);
        return;
    }
    const std::string_view whole(name);
    AppendBasePart(out, scanner, whole.substr(0, split));
    out += '.';
    AppendBasePart(out, scanner, whole.substr(split + 1));
}

// scanner.ProcessName(name) appended to out; firstDot is where the first "." of name stands.
// Another scanner class may print names its own way, so it is asked.
inline void AppendScannerName(std::string& out, const TVdSQLScanner& scanner,
                              const std::string& name, size_t firstDot)
{
    if (typeid(scanner) != typeid(TVdSQLScanner))
        out += scanner.ProcessName(name);
    else if (!scanner.TVdSQLScanner::GetQuoteIdentifiers())
        out += name;
    else
        AppendBaseName(out, scanner, name, firstDot);
}

// TVdSelectParser::ProcessItemName(name) appended to out.
inline void AppendItemName(std::string& out, const TVdSelectParser& parser, const std::string& name)
{
    const TVdSQLScanner& scanner = parser.Scanner();
    const bool quoting = scanner.GetQuoteIdentifiers();
    const size_t firstDot = name.find('.');
    // A file-name table such as customer.db is quoted as one name, not split at its dot. A
    // name that holds the quote already (".db""" kept in its quotes, ".db""".M) has its
    // quoted parts, which quoting it whole would break.
    if (quoting && HasDbDot(name, firstDot) &&
        name.find(scanner.GetIdentQuote()) == std::string::npos) {
        const char quote = scanner.GetIdentQuote();
        out += quote;
        out += name;
        out += quote;
        return;
    }
    // AppendScannerName written out: every name of a print passes here, and calling it kept
    // the compiler from inlining the plain-name path (+1 % instructions on a parse and print).
    if (typeid(scanner) != typeid(TVdSQLScanner))
        out += scanner.ProcessName(name);
    else if (!quoting)
        out += name;
    else
        AppendBaseName(out, scanner, name, firstDot);
}

// ProcessAlias(alias) of a table or field with this parser: processed as a name where the
// scanner asks for it.
inline void AppendAlias(std::string& out, const TVdSelectParser* parser, const std::string& alias)
{
    if (parser && parser->Scanner().GetProcessAliases())
        AppendItemName(out, *parser, alias);
    else
        out += alias;
}

// ProcessName(name) of an item with this parser.
inline void AppendName(std::string& out, const TVdSelectParser* parser, const std::string& name)
{
    if (parser)
        AppendItemName(out, *parser, name);
    else
        out += name;
}

// The model's scripts appended to out. The library's own classes print in place; an object of
// a subclass, which may override GetScript, is asked through GetScript.
// What TVdFunctionDef::GetScript prints for node (also the base part of a field's script).
void AppendFunctionScript(std::string& out, const TVdFunctionDef& node);
// node.GetScript().
void AppendNodeScript(std::string& out, const TVdFunctionDef& node);
// list.GetScript() of an argument list: the items joined by ", ".
void AppendNodeList(std::string& out, const TVdFunctionDefs& list);
// field.GetScript().
void AppendFieldScript(std::string& out, const TVdFieldDef& field);

// criterion.GetScript().
void AppendCriterionScript(std::string& out, const TVdCriterion& criterion);
// list.GetScript() (a WHERE or HAVING clause for a top-level list of those classes).
void AppendCriteriaScript(std::string& out, const TVdCriterions& list);

// TVdTableDef::GetSourceText appended to out.
void AppendSourceText(std::string& out, const TVdTableDef& table);

} // namespace vd::script
