// Expressions: function calls, qualified names, literals, and anything longer kept as text.
#include "core/VdSelectParser.h"

namespace vd {

// Reads one expression for TVdSelectParser::DoParseExpression. Single tokens, function calls
// and qualified names become typed nodes; any other run of tokens becomes an fkExpression
// node whose name is the text exactly as written, so that it prints back to itself.
class TVdExpressionReader
{
public:
    TVdExpressionReader(TVdSelectParser& parser, TTokenKinds stopKinds, const std::string& stopWord,
                        TVdExprContext context)
        : P(parser), S(parser.Scanner()), StopKinds(stopKinds), StopWord(stopWord), Context(context)
    {
    }

    void Read(TVdFunctionDef& node, TVdTableDef*& table);

private:
    bool AtStop(int depth) const;
    bool AtAliasWithoutAs() const;
    // A name, a number or a text: what an operand begins with.
    bool AtOperand() const
    {
        return S.TokenQuoted() || P.IsNameKind() || S.TokenKind() == tkInteger ||
               S.TokenKind() == tkFloat;
    }
    void Consume()
    {
        LastEnd = S.TokenEnd();
        // The scanner ends a float at its point ("1." then "5"): its digits may follow.
        AfterOperand = (AtOperand() && !P.AtCaseWord(false) && S.TokenKind() != tkFloat) ||
                       P.IsDelimToken(')');
        P.Next();
    }
    bool ReadCall(TVdFunctionDef& node, TVdTableDef*& table);
    bool ReadQualified(TVdFunctionDef& node, TVdTableDef*& table);
    bool ReadSingle(TVdFunctionDef& node);
    void ReadRest(TVdFunctionDef& node, TVdTableDef*& table, int start);
    TVdTableDef* QualifierTable(const std::string& aliasText, const std::string& nameText);

    TVdSelectParser& P;
    TVdSQLScanner& S;
    TTokenKinds StopKinds;
    const std::string& StopWord;
    TVdExprContext Context;
    int LastEnd = 0;
    bool AfterOperand = false; // the last token read ends an operand (a name, a number, ")")
};

bool TVdExpressionReader::AtStop(int depth) const
{
    const TTokenKind kind = S.TokenKind();
    if (kind == tkEnd)
        return true;
    if (depth > 0)
        return false;
    if (Context == TVdExprContext::SelectList && AtAliasWithoutAs())
        return true;
    if (S.TokenQuoted())
        return false;
    if (P.IsDelimToken(',') || P.IsDelimToken(')'))
        return true;
    if (StopKinds.Contains(kind))
        return true;
    if (!StopWord.empty() && kind == tkKeyword && text::SameText(S.Token(), StopWord))
        return true;
    // LIKE, IN, BETWEEN, IS are plain words to the scanner: in a condition they end an operand.
    if (Context == TVdExprContext::Condition && (kind == tkIdent || kind == tkKeyword)) {
        return P.OperatorTable().IsCaptionOrStart(S.Token());
    }
    return false;
}

// SUM(A) TOTAL, A X: a name right after an operand, standing last in its select item, is the
// item's alias, as SQL reads it (the words that close a CASE expression excepted).
bool TVdExpressionReader::AtAliasWithoutAs() const
{
    if (!AfterOperand || !P.IsAliasToken() || S.TokenKind() == tkFunction)
        return false;
    if (S.TokenQuoted() ? !S.IsIdentQuote(S.TokenQuote()) || S.TokenQuote() == '\''
                        : S.TokenKind() != tkIdent)
        return false;
    if (P.AtCaseWord(true))
        return false;
    const TVdSQLScanner::TState alias = S.SaveState();
    S.GetNextToken();
    const bool last = S.TokenKind() == tkEnd || P.IsDelimToken(',') ||
                      (S.TokenKind() == tkKeyword && !S.TokenQuoted());
    S.RestoreState(alias);
    return last;
}

TVdTableDef* TVdExpressionReader::QualifierTable(const std::string& aliasText,
                                                 const std::string& nameText)
{
    TVdTableDef* table = P.FindTable(aliasText, nameText);
    if (!table) {
        // A qualified field read before FROM makes a table known only by its alias; the table
        // the unqualified items before it went to is that table.
        table = P.UnnamedTable();
        if (!table)
            table = P.TableDefs().Add();
        table->SetAlias(nameText);
    }
    return table;
}

bool TVdExpressionReader::ReadCall(TVdFunctionDef& node, TVdTableDef*& table)
{
    const std::string name = S.Token();
    const int start = S.TokenStart();
    Consume();
    if (P.FNesting >= TVdSelectParser::MaxNesting) {
        P.Fail();
        return true;
    }
    Consume(); // "("
    ++P.FNesting;
    struct TLeave {
        int& Depth;
        ~TLeave() { --Depth; }
    } leave{P.FNesting};
    std::vector<TVdTableDef*> argTables;
    bool mixed = false;
    if (!P.IsDelimToken(')')) {
        for (;;) {
            TVdFunctionDef* arg = node.Arguments().Add();
            TVdTableDef* t = nullptr;
            P.DoParseExpression(*arg, t, TTokenKinds(), std::string(), Context);
            if (P.State() == ssError)
                return true;
            // Arguments of two tables keep the call as text, with the table named first:
            // its unqualified arguments print with that table, which then is named first on
            // reading back too, as it was here.
            if (t) {
                mixed = mixed || (!argTables.empty() && argTables.front() != t);
                argTables.push_back(t);
            }
            if (P.IsDelimToken(',')) {
                Consume();
                continue;
            }
            if (!P.IsDelimToken(')')) {
                P.Fail();
                return true;
            }
            break;
        }
    }
    Consume(); // ")"
    table = argTables.empty() ? nullptr : argTables.front();
    if (mixed && P.FOneTableCalls.count(start))
        mixed = false;
    else if (mixed && AtStop(0))
        P.FMixedCalls.push_back({start, std::move(argTables)});
    if (mixed || !AtStop(0)) {
        node.Arguments().Clear();
        return false;
    }
    node.SetName(name);
    node.SetKind(fkFunction);
    return true;
}

// T.A, "my t".A, T.*, and S.T.A where a dotted table name qualifies the field.
bool TVdExpressionReader::ReadQualified(TVdFunctionDef& node, TVdTableDef*& table)
{
    // A procedure's argument prints as written after its ":": a quoted part with its quotes.
    const bool parameter = Context == TVdExprContext::Parameter;
    const auto written = [this] { return S.TokenQuoted() ? S.RawToken() : P.NameText(); };
    std::string asWritten = parameter ? written() : std::string();
    const TVdSQLScanner::TState atQualifier = S.SaveState();
    // The kept texts (QuotedPartText) are held only where they differ from the plain ones:
    // a part read without quotes keeps its plain text, and so do most names.
    std::string qualifier = P.NameText();
    std::string keptQualifier;
    bool keptSame = P.KeepsPlainPart(qualifier, keptQualifier);
    // Without quotes the alias text is the name text.
    std::string qualifierAlias = S.TokenQuoted() ? P.AliasText() : qualifier;
    Consume();
    Consume(); // "."
    bool star = false;
    bool dotted = false;
    std::string field, keptField;
    bool fieldSame = true;
    for (;;) {
        star = !S.TokenQuoted() && S.Token() == "*";
        if (!star && !P.IsNameKind())
            break;
        // In the select list T."*" would print as T.*, all columns of T.
        if (S.TokenQuoted() && S.Token() == "*" && Context == TVdExprContext::SelectList) {
            P.Fail();
            return true;
        }
        field = star ? std::string("*") : P.NameText();
        fieldSame = star || P.KeepsPlainPart(field, keptField);
        if (parameter)
            asWritten += "." + (star ? field : written());
        Consume();
        if (star || !P.IsDelimToken('.'))
            break;
        TVdSelectParser::AppendKeptPart(keptQualifier, keptSame, qualifier,
                                        fieldSame ? field : keptField, fieldSame);
        qualifier += '.';
        qualifier += field;
        dotted = true;
        field.clear();
        fieldSame = true;
        Consume(); // "."
    }
    // In a condition the qualifier and the field print as one name, in which the qualifier's
    // last part is no longer the last ("E."."y".C): its quotes are weighed on the whole name.
    std::string conditionName;
    if (Context == TVdExprContext::Condition && !field.empty()) {
        conditionName = qualifier + "." + field;
        if (!keptSame || !fieldSame)
            conditionName =
                P.DottedNameText(conditionName, (keptSame ? qualifier : keptQualifier) + "." +
                                                    (fieldSame ? field : keptField));
    }
    // A dotted qualifier is its own alias text; taken once, as a copy per part would make a
    // long name cost its square.
    // In the select list it names a table, whose name of three parts or more takes its
    // printed form first: the plain and the kept text are weighed in that form (Q.'.' is
    // "Q".".", not the table "Q."."" that Q.. would be).
    if (dotted) {
        if (Context == TVdExprContext::SelectList)
            qualifier = keptSame ? P.TableNameText(qualifier)
                                 : P.DottedNameText(P.TableNameText(qualifier),
                                                    P.TableNameText(keptQualifier));
        else if (!keptSame)
            qualifier = P.DottedNameText(qualifier, keptQualifier);
        qualifierAlias = qualifier;
    }
    // An empty qualifier names the table of the unqualified columns, whose star prints bare:
    // "".* beside other items would not read back. Refused at the qualifier.
    if (Context == TVdExprContext::SelectList && star && qualifier.empty()) {
        S.RestoreState(atQualifier);
        P.Fail();
        return true;
    }
    if (Context == TVdExprContext::SelectList)
        table = QualifierTable(qualifierAlias, qualifier);
    if (field.empty() || !AtStop(0))
        return false;
    if (parameter)
        node.SetName(asWritten);
    else
        node.SetName(Context == TVdExprContext::SelectList ? field : conditionName);
    node.SetKind(fkIdentifier);
    return true;
}

namespace {

// A string prints without one pair of quotes that encloses its text, so a text that begins
// and ends with a quote ('"a"') is kept inside a pair of its own.
std::string StringName(std::string value)
{
    auto quote = [](char c) { return c == '\'' || c == '"'; };
    if (value.size() > 1 && quote(value.front()) && quote(value.back()))
        return '\'' + value + '\'';
    return value;
}

} // namespace

// False, with the parser failed, for a token that cannot stand as an expression.
bool TVdExpressionReader::ReadSingle(TVdFunctionDef& node)
{
    const TTokenKind kind = S.TokenKind();
    if (S.TokenQuoted()) {
        // Quoted text that is an operation ('/') is read as tkOperation: its quote still tells
        // a string from a name.
        const char quote = S.TokenQuote();
        // A select item in apostrophes is a text to every engine, also where the scanner takes
        // both quotes for names: 'GBP' AS CUR must not print as a column of a table. (In a
        // condition such a name already prints in its own quotes.)
        const bool string =
            kind == tkString ||
            (kind == tkOperation && S.IsQuote(quote) && !S.IsIdentQuote(quote)) ||
            (kind == tkIdentString && quote == '\'' && Context == TVdExprContext::SelectList);
        if (Context == TVdExprContext::Parameter) {
            // A procedure's argument prints as written after its ":".
            node.SetName(S.RawToken());
            node.SetKind(string ? fkString : fkIdentifier);
        } else if (string) {
            node.SetName(StringName(S.UnquoteString(S.Token(), S.TokenQuote())));
            node.SetKind(fkString);
        } else if ((S.Token().empty() && !S.GetQuoteIdentifiers()) ||
                   (S.Token() == "*" && Context == TVdExprContext::SelectList)) {
            // An empty name ("") prints nothing where names print unquoted, and in the select
            // list a name "*" prints as the star of all columns.
            P.Fail();
            return false;
        } else {
            node.SetName(P.NameText());
            node.SetKind(fkIdentifier);
        }
        return true;
    }
    // An identifier as the dialect reads it (one that folds unquoted names keeps them folded).
    node.SetName(kind == tkIdent || kind == tkIdentString ? P.NameText() : S.Token());
    switch (kind) {
    case tkFunction:
        node.SetKind(fkFunction);
        break;
    case tkIdent:
    case tkIdentString:
        node.SetKind(fkIdentifier);
        break;
    case tkInteger:
        node.SetKind(fkInteger);
        break;
    case tkFloat:
        node.SetKind(fkFloat);
        break;
    case tkString:
        node.SetKind(fkString);
        break;
    default:
        node.SetKind(fkUnknown);
        break;
    }
    return true;
}

void TVdExpressionReader::ReadRest(TVdFunctionDef& node, TVdTableDef*& table, int start)
{
    int depth = 0;
    std::string prevName, prevAlias;
    bool prevIsName = false;
    while (!AtStop(depth)) {
        if (P.IsDelimToken('('))
            ++depth;
        else if (P.IsDelimToken(')'))
            --depth;
        if (Context == TVdExprContext::SelectList && !table && prevIsName && P.IsDelimToken('.'))
            table = QualifierTable(prevAlias, prevName);
        // Two operands in a row that are no alias (SELECT A B C) make no expression.
        if (Context == TVdExprContext::SelectList && depth == 0 && AfterOperand && AtOperand() &&
            !P.AtCaseWord(true)) {
            P.Fail();
            return;
        }
        prevIsName = P.IsNameKind();
        if (prevIsName) {
            prevName = P.NameText();
            prevAlias = P.AliasText();
        }
        Consume();
    }
    if (depth > 0) {
        P.Fail(); // an unclosed parenthesis would swallow the rest of the statement
        return;
    }
    node.Arguments().Clear();
    const std::string& source = S.Expression();
    node.SetName(source.substr(size_t(start - 1), size_t(LastEnd - start)));
    node.SetKind(fkExpression);
}

void TVdExpressionReader::Read(TVdFunctionDef& node, TVdTableDef*& table)
{
    table = nullptr;
    if (AtStop(0)) {
        P.Fail();
        return;
    }
    const int start = S.TokenStart();
    if (!S.TokenQuoted() && S.TokenKind() == tkFunction && P.PeekIs("(")) {
        if (ReadCall(node, table) || P.State() == ssError)
            return;
    } else if (P.IsNameKind() && P.PeekIs(".")) {
        if (ReadQualified(node, table))
            return;
    } else if (Context == TVdExprContext::Condition && P.IsDelimToken('(')) {
        // (A + 1) * 2: the text runs to where its parentheses close, and on.
    } else {
        if (!ReadSingle(node))
            return;
        Consume();
        if (AtStop(0))
            return;
    }
    ReadRest(node, table, start);
}

void TVdSelectParser::DoParseExpression(TVdFunctionDef& node, TVdTableDef*& table,
                                        TTokenKinds stopKinds, const std::string& stopWord,
                                        TVdExprContext context)
{
    TVdExpressionReader reader(*this, stopKinds, stopWord, context);
    reader.Read(node, table);
}

} // namespace vd
