#pragma once

#include "core/VdCriteria.h"
#include "core/VdError.h"
#include "core/VdFieldDef.h"
#include "core/VdGroupByItems.h"
#include "core/VdJoinDef.h"
#include "core/VdOperators.h"
#include "core/VdScanner.h"
#include "core/VdScriptFormat.h"
#include "core/VdStringList.h"
#include "core/VdTableDef.h"
#include "core/VdText.h"
#include "core/VdWordList.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace vd {

enum TVdSelectState : std::uint8_t {
    ssBegin,
    ssError,
    ssEnd,
    ssSelect,
    ssFieldDefs,
    ssInto,
    ssFrom,
    ssTableDefs,
    ssWhere,
    ssGroupBy,
    ssHaving,
    ssOrderBy,
    ssAppendix
};

class TVdSelectParser;

using TVdParserErrorEvent = std::function<void(TVdSelectParser* sender, const std::string& errorMsg,
                                               const std::string& token, int lineNo, int linePos)>;

// What a token of a statement is read as.
enum class TVdExprContext : std::uint8_t {
    SelectList, // a field of the select list: qualifiers name the field's table
    Condition,  // WHERE, HAVING: a qualifier stays part of the name
    Parameter   // an argument of a stored procedure call
};

// The root of the query model, and the converter between SQL text and model.
// Assigning text (SetExpression) parses it; GetExpression prints the statement.
class TVdSelectParser
{
public:
    TVdSelectParser();
    virtual ~TVdSelectParser();
    TVdSelectParser(const TVdSelectParser&) = delete;
    TVdSelectParser& operator=(const TVdSelectParser&) = delete;

    virtual std::unique_ptr<TVdSQLScanner> CreateScanner();
    virtual std::unique_ptr<TVdTableDefs> CreateTableDefs();
    virtual std::unique_ptr<TVdCriterions> CreateWhereItems();
    virtual std::unique_ptr<TVdCriterions> CreateHavingItems();
    virtual std::string GetCommaAggregates() const;
    virtual std::string GetExpression();
    virtual bool IsJoinDef(const std::string& word) const;
    virtual void DefineAggregates();
    virtual void DefineOperators();
    virtual void DoParse();
    virtual void DoParseBegin();
    virtual void DoParseSelectClause();
    virtual void DoParseIntoClause();
    virtual void DoParseFieldDef();
    virtual void DoParseFieldDefs();
    virtual void DoParseFromClause();
    virtual void DoParseTableDef();
    virtual void DoParseProcParams();
    virtual void DoParseJoinDef();
    virtual void DoParseTableDefs();
    virtual void DoParseWhereClause();
    virtual void DoParseGroupByClause();
    virtual void DoParseHavingClause();
    virtual void DoParseOrderByClause();
    virtual void DoParseAppendix();
    virtual void DoParseCriterions(TVdCriterions& list);
    // Reads one expression into node, from the current token up to a token of a stop kind,
    // the stop word, a "," or ")" outside the expression's own parentheses, or the end.
    // table receives the table a qualifier names (select list only).
    virtual void DoParseExpression(TVdFunctionDef& node, TVdTableDef*& table, TTokenKinds stopKinds,
                                   const std::string& stopWord, TVdExprContext context);
    virtual void ProcessError(const std::string& token, int lineNo, int linePos);
    virtual bool GetDistinct() const;
    virtual void SetDistinct(bool value);
    virtual void Clear();

    void SetExpression(const std::string& text);
    std::string ProcessKeyword(const std::string& word) const;
    std::string ProcessFunction(const std::string& name) const;
    // How the model prints a name of a table, field or alias (a file name such as customer.db
    // is quoted whole).
    std::string ProcessItemName(const std::string& name) const;

    TVdSQLScanner& Scanner() const { return FScanner ? *FScanner : MakeScanner(); }
    bool IsValid() const { return FIsValid; }
    TVdSelectState State() const { return FState; }
    void SetState(TVdSelectState state) { FState = state; }
    TVdTableDefs& TableDefs() const;
    TVdCriterions& WhereItems() const;
    TVdOrderByItems& OrderByItems() { return FOrderByItems; }
    const TVdOrderByItems& OrderByItems() const { return FOrderByItems; }
    TVdGroupByItems& GroupByItems() { return FGroupByItems; }
    const TVdGroupByItems& GroupByItems() const { return FGroupByItems; }
    TVdCriterions& HavingItems() const;
    const TVdWordList& Aggregates() const;
    // The parser's own operator table, made on the first call: the caller may change it.
    TVdOperators& Operators() const;
    // The operators as parsing and printing read them: the parser's own table once it has one,
    // until then the table DefineOperators builds, shared with every parser that built the same.
    // Inline: conditions ask for every word they read.
    const TVdOperators& OperatorTable() const
    {
        if (FOperators)
            return *FOperators;
        return FSharedOperators ? *FSharedOperators : ShareOperators();
    }
    bool Distinct() const { return GetDistinct(); }
    const std::string& LastTableName() const { return FLastTableName; }
    const std::string& LastTableAlias() const { return FLastTableAlias; }
    TVdScriptFormat& ScriptFormat() { return FScriptFormat; }
    const TVdScriptFormat& ScriptFormat() const { return FScriptFormat; }

    // Copies the host's lists and settings.
    void SetAggregates(const TVdWordList& words);
    void SetOperators(const TVdOperators& operators);
    void SetScriptFormat(const TVdScriptFormat& format);

    TVdParserErrorEvent OnError;

    // How deep function calls and parenthesised groups may nest in one statement; deeper text is
    // refused at the "(" that goes too deep, so that no tree is too deep to print, copy or free.
    static constexpr int MaxNesting = 256;

protected:
    // Token helpers over the scanner.
    const std::string& Token() const { return Scanner().Token(); }
    TTokenKind Kind() const { return Scanner().TokenKind(); }
    bool IsWord(const char* word) const;
    bool IsKeywordToken(const char* word) const;
    bool IsDelimToken(char c) const
    {
        const std::string& token = Token();
        return token.size() == 1 && token[0] == c && !Scanner().TokenQuoted();
    }
    // Reads the next token. A string that runs to the end of the text is reported as
    // unterminated before its content is looked at. Inline: every token passes here.
    void Next()
    {
        TVdSQLScanner& scanner = Scanner();
        scanner.GetNextToken();
        if (scanner.InString())
            RaiseIfUnterminated();
    }
    void RaiseIfUnterminated();
    bool PeekIs(const char* word);
    // Inline for the common token without quotes; a quoted one is weighed out of line.
    bool IsNameKind() const
    {
        if (Scanner().TokenQuoted())
            return IsQuotedNameKind();
        const TTokenKind kind = Kind();
        return kind == tkIdent || kind == tkIdentString || kind == tkString;
    }
    bool IsQuotedNameKind() const;
    // A word that ends a table entry of FROM: a keyword, or a join word such as LEFT, which a
    // dialect may know as a function name too.
    bool IsClauseToken() const;
    // Whether the current token can begin the select list: "*" or an operand.
    bool StartsSelectList() const;
    // The statement from head (SELECT and what stands before the list), the select list, FROM,
    // WHERE, GROUP BY, HAVING, ORDER BY, and tail, a clause of the dialect (it follows the line
    // break that ends the last clause).
    // A select list without FROM is printed alone.
    std::string StatementScript(const std::string& head, const std::string& tail);
    // Reads the token after the current one as a 32-bit signed integer and moves past it (the
    // number of a dialect clause: LIMIT 5, ROWS 10); fails the parse when it is no such number.
    bool ReadInteger(std::int32_t& value);
    // A name that can stand as an alias: "" cannot.
    bool IsAliasToken() const;
    bool IsOperandKind() const;
    void Fail() { FState = ssError; }

    // The model text of the current token read as a name, and read as an alias.
    std::string NameText() const;
    std::string AliasText() const;
    // A dotted name (S.T, "a.b"."x".C) read part by part: the text of the current token as a
    // part kept in its quotes (text is its NameText), and the model text of the whole name
    // from its parts' NameTexts joined (name) and their kept texts joined (kept).
    std::string QuotedPartText(const std::string& text) const;
    std::string DottedNameText(const std::string& name, const std::string& kept) const;
    // Joins the next part (its kept text, partSame when that is its plain text) to a dotted
    // name's kept text, which is held only from the first part that differs: until then the
    // plain text so far (plain) stands for it and keptSame is true.
    static void AppendKeptPart(std::string& kept, bool& keptSame, const std::string& plain,
                               const std::string& part, bool partSame);
    // Whether the current token, read as a part with the plain text text, keeps that text;
    // otherwise its kept text (QuotedPartText) is put into kept. Only a quoted part can differ.
    bool KeepsPlainPart(const std::string& text, std::string& kept) const
    {
        if (!Scanner().TokenQuoted())
            return true;
        kept = QuotedPartText(text);
        return kept == text;
    }
    // The model text of a dotted name that names a table (FROM, a qualifier, a join).
    std::string TableNameText(const std::string& name) const;
    // Whether a printed name reads back as one name.
    bool ReadsBackAsName(const std::string& printed) const;
    bool QualifiesAsAlias(const std::string& alias) const;
    TVdTableDef* FindTable(const std::string& aliasText, const std::string& nameText) const;

    TVdTableDef* FLastTable = nullptr;
    std::string FLastTableName;
    std::string FLastTableAlias;

private:
    friend class TVdCriteriaReader;
    friend class TVdExpressionReader;

    TVdSQLScanner& MakeScanner() const;
    void CollectNames(bool ordered);
    bool ReadOrderExpression();
    bool IsOperatorWord(const std::string& word) const;
    // The current token is CASE, WHEN, THEN, ELSE (or END when closing is true): the words of
    // a CASE expression, which stand between its operands.
    bool AtCaseWord(bool closing) const;
    TVdTableDef* ResolveTable(const std::string& name, const std::string* alias);
    TVdTableDef* ResolveAliasedTable(const std::string& name, const std::string& alias);
    TVdTableDef* Untaken(TVdTableDef* table) const;
    bool TakenByOther(const TVdTableDef* table, const std::string& name) const;
    TVdTableDef* FindEntryAlias(const std::string& alias) const;
    TVdTableDef* UnnamedTable() const;
    void MergeQualifierTables();
    void MoveFields(TVdTableDef& from, TVdTableDef& to, bool arguments);
    static bool NamesColumn(const TVdFunctionDef& node);
    std::string PrintableAlias(const std::string& alias) const;
    TVdTableDef* AddTable(const std::string& name, const std::string& alias, int position = -1);
    TVdTableDef* GiveBackLentTable(const std::string& name, const std::string& alias);
    void ReclaimLentTable(const std::string& name);
    void ClaimName(const std::string& name, TVdTableDef& entry);
    TVdTableDef* TakeLentTable(const std::string& key);
    void Unlend(TVdTableDef& table, const std::string& name, const std::string& alias);
    int TakenTablePosition(int entryAt) const;
    std::string PeekAliasAfterParams();
    struct TJoinCondition {
        TVdTableDef* Owner = nullptr;
        std::string OwnerField;
        std::string JoinedField;
        std::string Operation;
    };
    bool ReadJoinConditions(TVdTableDef* joined, std::vector<TJoinCondition>& out, int depth);
    bool ReadJoinCondition(TVdTableDef*& owner, std::string& ownerField, TVdTableDef* joined,
                           std::string& joinedField, std::string& operation);
    void AddJoinCondition(const TJoinCondition& condition, const TVdTableDef& joined,
                          TVdJoinKind kind);

    mutable std::unique_ptr<TVdSQLScanner> FScanner;
    bool FIsValid = true;
    TVdSelectState FState = ssBegin;
    mutable std::unique_ptr<TVdTableDefs> FTableDefs;
    mutable std::unique_ptr<TVdCriterions> FWhereItems;
    TVdOrderByItems FOrderByItems;
    TVdGroupByItems FGroupByItems;
    mutable std::unique_ptr<TVdCriterions> FHavingItems;
    // The parser's own lists; while it has none of its own, it reads a shared one.
    mutable std::unique_ptr<TVdWordList> FAggregates;
    mutable std::unique_ptr<TVdOperators> FOperators;
    mutable std::shared_ptr<const TVdWordList> FSharedAggregates;
    mutable std::shared_ptr<const TVdOperators> FSharedOperators;
    const TVdOperators& ShareOperators() const;
    bool FDistinct = false;
    TVdScriptFormat FScriptFormat;
    int FNesting = 0;
    // The unqualified columns of the select list being parsed, with their explicit aliases:
    // every table FROM adds later is given a copy of each.
    // Where a select item starts, to report it: its first token and the place after it.
    struct TPlace {
        std::string Token;
        int LineNo = 0;
        int LinePos = 0;
    };
    struct TUnqualified {
        std::unique_ptr<TVdFieldDef> Field;
        bool HasAlias;
        std::string Alias;
        TPlace Place;
    };
    std::vector<TUnqualified> FUnqualified;
    // Tables a qualifier made that an aliased FROM entry took by their name (T.A ... FROM T X),
    // by that name: a later entry that T names (T, or U T) is what the qualifier meant.
    std::unordered_map<std::string, TVdTableDef*> FLentTables;
    // The tables FROM entries have taken so far, with where their entry starts: a later entry
    // never takes one again.
    std::unordered_map<const TVdTableDef*, int> FFromTables;
    // The tables FROM added, which no qualifier of the select list made.
    std::unordered_set<const TVdTableDef*> FAddedByFrom;
    // The names of FROM entries found by an alias a qualifier made, each with the one of those
    // entries that stands first among the tables (ClaimName, MergeQualifierTables).
    std::unordered_map<std::string, TVdTableDef*> FNamedByAlias;
    // Calls in the select list whose arguments name tables by two qualifiers (MAX(A.X, S.Y)),
    // by where they start. They are read as text, yet FROM can make their qualifiers one table
    // (FROM A S): such calls are kept as calls when the statement is read again.
    struct TMixedCall {
        int Start;
        std::vector<TVdTableDef*> Tables;
    };
    std::vector<TMixedCall> FMixedCalls;
    std::unordered_set<int> FOneTableCalls;
    void SettleMixedCalls(const std::unordered_map<TVdTableDef*, TVdTableDef*>& merged);
    void ParseOnce();
    void CopyField(const TVdFieldDef& field, bool hasAlias, const std::string& alias,
                   TVdTableDef& target, const TPlace& place);
    // The select items as written (a lone "*" is none) and where each field's item starts.
    int FSelectItems = 0;
    // Looked up only to report an error: kept in the order the fields came, a later entry for
    // the same field standing for it.
    std::vector<std::pair<const TVdFieldDef*, TPlace>> FFieldPlaces;
    TPlace FGroupByPlace; // the first item of GROUP BY
    // The output fields in the order the select list prints them.
    std::vector<const TVdFieldDef*> PrintedFields() const;
    // Whether a position in ORDER BY or GROUP BY names the column it named as written: the
    // print lists the same number of columns.
    bool PositionsKeepTheirColumns() const;
    // The plain column beside aggregates that a GROUP BY read does not group by, if any:
    // printed, the derived GROUP BY would add it and the statement would return other rows.
    const TVdFieldDef* UngroupedColumn() const;
};

} // namespace vd
