#pragma once

// Printing helpers of the model: each appends its piece to one output string, so that a
// statement prints without a temporary string per word. They give exactly the text of the
// Process* operations of TVdCollectionItem and TVdSelectParser.

#include "core/VdSelectParser.h"

#include <string>
#include <string_view>
#include <typeinfo>

namespace vd::script {

// ProcessKeyword(word) of an item with this parser. Keywords printed as written (the
// default) are copied without going through FormatWord.
inline void AppendKeyword(std::string& out, const TVdSelectParser* parser, std::string_view word)
{
    if (!parser || parser->ScriptFormat().KeywordsFormat == qfmAsIs)
        out += word;
    else
        out += parser->ProcessKeyword(std::string(word));
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
    if (!parser || parser->ScriptFormat().FunctionsFormat == qfmAsIs)
        out += name;
    else
        out += parser->ProcessFunction(name);
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

// scanner.ProcessName(name) appended to out.
inline void AppendScannerName(std::string& out, const TVdSQLScanner& scanner,
                              const std::string& name)
{
    out += scanner.ProcessName(name);
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
    // Most names have no "." after their first character: the base scanner's ProcessName
    // then quotes the whole name or keeps it, which is written here in place. Another
    // scanner class may print names its own way, so it is asked.
    const bool oneWord = TVdSQLScanner::PartEnd(name) == std::string::npos;
    if (oneWord && typeid(scanner) == typeid(TVdSQLScanner)) {
        if (quoting && scanner.NeedQuotes(name))
            text::AppendQuoted(out, name, scanner.GetIdentQuote());
        else
            out += name;
        return;
    }
    out += scanner.ProcessName(name);
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
