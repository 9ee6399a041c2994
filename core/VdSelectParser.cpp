#include "core/VdSelectParser.h"

#include "core/VdScriptText.h"
#include "core/VdSharedTable.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <typeinfo>
#include <unordered_set>

namespace vd {

TVdSelectParser::TVdSelectParser()
{
    FOrderByItems.SetParser(this);
    FGroupByItems.SetParser(this);
}

TVdSelectParser::~TVdSelectParser() = default;

// ---- factories and owned parts (made on first use, so that overrides are reached) ----

std::unique_ptr<TVdSQLScanner> TVdSelectParser::CreateScanner()
{
    return std::make_unique<TVdSQLScanner>();
}

std::unique_ptr<TVdTableDefs> TVdSelectParser::CreateTableDefs()
{
    return std::make_unique<TVdTableDefs>();
}

std::unique_ptr<TVdCriterions> TVdSelectParser::CreateWhereItems()
{
    return std::make_unique<TVdWhereItems>();
}

std::unique_ptr<TVdCriterions> TVdSelectParser::CreateHavingItems()
{
    return std::make_unique<TVdHavingItems>();
}

TVdSQLScanner& TVdSelectParser::MakeScanner() const
{
    FScanner = const_cast<TVdSelectParser*>(this)->CreateScanner();
    return *FScanner;
}

TVdTableDefs& TVdSelectParser::TableDefs() const
{
    if (!FTableDefs) {
        FTableDefs = const_cast<TVdSelectParser*>(this)->CreateTableDefs();
        FTableDefs->SetParser(const_cast<TVdSelectParser*>(this));
    }
    return *FTableDefs;
}

TVdCriterions& TVdSelectParser::WhereItems() const
{
    if (!FWhereItems) {
        FWhereItems = const_cast<TVdSelectParser*>(this)->CreateWhereItems();
        FWhereItems->SetParser(const_cast<TVdSelectParser*>(this));
    }
    return *FWhereItems;
}

TVdCriterions& TVdSelectParser::HavingItems() const
{
    if (!FHavingItems) {
        FHavingItems = const_cast<TVdSelectParser*>(this)->CreateHavingItems();
        FHavingItems->SetParser(const_cast<TVdSelectParser*>(this));
    }
    return *FHavingItems;
}

namespace {

bool SameWords(const TVdWordList& a, const TVdWordList& b)
{
    return a.Sorted() == b.Sorted() && a.Items() == b.Items();
}

bool SameOperator(const TVdOperator& a, const TVdOperator& b)
{
    return typeid(a) == typeid(b) && a.Count == b.Count && a.Prefix == b.Prefix &&
           a.Relate == b.Relate && a.Caption == b.Caption && a.Name == b.Name &&
           a.Postfix == b.Postfix;
}

bool SameOperators(const TVdOperators& a, const TVdOperators& b)
{
    if (a.Count() != b.Count())
        return false;
    for (int i = 0; i < a.Count(); ++i)
        if (!SameOperator(*a.Items(i), *b.Items(i)))
            return false;
    return true;
}

} // namespace

const TVdWordList& TVdSelectParser::Aggregates() const
{
    if (FAggregates)
        return *FAggregates;
    if (!FSharedAggregates) {
        FAggregates = std::make_unique<TVdWordList>();
        const_cast<TVdSelectParser*>(this)->DefineAggregates();
        // The lookup index fills on first use: filled here, a shared list is only read.
        FAggregates->PrepareLookups();
        FSharedAggregates = TVdSharedTables<TVdWordList>::Share(std::move(FAggregates), SameWords);
    }
    return *FSharedAggregates;
}

TVdOperators& TVdSelectParser::Operators() const
{
    if (!FOperators) {
        FOperators = std::make_unique<TVdOperators>();
        if (FSharedOperators)
            FOperators->Assign(*FSharedOperators);
        else
            const_cast<TVdSelectParser*>(this)->DefineOperators();
        FSharedOperators.reset();
    }
    return *FOperators;
}

const TVdOperators& TVdSelectParser::ShareOperators() const
{
    FOperators = std::make_unique<TVdOperators>();
    const_cast<TVdSelectParser*>(this)->DefineOperators();
    FSharedOperators = TVdSharedTables<TVdOperators>::Share(std::move(FOperators), SameOperators);
    return *FSharedOperators;
}

std::string TVdSelectParser::GetCommaAggregates() const { return "SUM,MIN,MAX,AVG,COUNT"; }

void TVdSelectParser::DefineAggregates()
{
    if (!FAggregates)
        FAggregates = std::make_unique<TVdWordList>();
    FAggregates->Clear();
    FAggregates->SetCommaText(GetCommaAggregates());
    FAggregates->Sort();
}

void TVdSelectParser::DefineOperators()
{
    if (!FOperators)
        FOperators = std::make_unique<TVdOperators>();
    TVdOperators& ops = *FOperators;
    ops.Clear();
    ops.Add("=", "=", 1);
    ops.Add("<>", "<>", 1);
    ops.Add("<", "<", 1);
    ops.Add(">", ">", 1);
    ops.Add("<=", "<=", 1);
    ops.Add(">=", ">=", 1);
    ops.Add("LIKE", "LIKE", 1);
    ops.Add("NOT LIKE", "NOT LIKE", 1);
    ops.Add("IN", "IN", 1, "", "(", ")");
    ops.Add("NOT IN", "NOT IN", 1, "", "(", ")");
    ops.Add("BETWEEN", "BETWEEN", 2, "AND");
    ops.Add("NOT BETWEEN", "NOT BETWEEN", 2, "AND");
    ops.Add("IS NULL", "IS NULL", 0);
    ops.Add("IS NOT NULL", "IS NOT NULL", 0);
}

void TVdSelectParser::SetAggregates(const TVdWordList& words)
{
    Aggregates();
    if (!FAggregates)
        FAggregates = std::make_unique<TVdWordList>();
    FSharedAggregates.reset();
    FAggregates->Assign(words, false);
    FAggregates->Sort();
}

void TVdSelectParser::SetOperators(const TVdOperators& operators) { Operators().Assign(operators); }

void TVdSelectParser::SetScriptFormat(const TVdScriptFormat& format)
{
    FScriptFormat.Assign(format);
}

bool TVdSelectParser::IsJoinDef(const std::string& word) const
{
    return text::SameText(word, "INNER") || text::SameText(word, "LEFT") ||
           text::SameText(word, "RIGHT") || text::SameText(word, "FULL");
}

bool TVdSelectParser::GetDistinct() const { return FDistinct; }

void TVdSelectParser::SetDistinct(bool value) { FDistinct = value; }

std::string TVdSelectParser::ProcessKeyword(const std::string& word) const
{
    return FormatWord(word, FScriptFormat.KeywordsFormat);
}

std::string TVdSelectParser::ProcessFunction(const std::string& name) const
{
    return FormatWord(name, FScriptFormat.FunctionsFormat);
}

// ---- text in and out ----

void TVdSelectParser::Clear()
{
    TableDefs().Clear();
    WhereItems().Clear();
    WhereItems().Filter = cfAll;
    FGroupByItems.Clear();
    HavingItems().Clear();
    HavingItems().Filter = cfAll;
    FOrderByItems.Clear();
    SetDistinct(false);
    FLastTable = nullptr;
    FLastTableName.clear();
    FLastTableAlias.clear();
    Scanner().SetExpression(std::string());
    FIsValid = true;
}

void TVdSelectParser::SetExpression(const std::string& text)
{
    Scanner().SetExpression(text);
    if (Scanner().TokenKind() == tkEnd)
        Clear();
    else
        DoParse();
}

std::string TVdSelectParser::GetExpression()
{
    std::string head;
    script::AppendKeyword(head, this, "SELECT");
    head += ' ';
    if (GetDistinct()) {
        script::AppendKeyword(head, this, "DISTINCT");
        head += ' ';
    }
    return StatementScript(head, std::string());
}

std::string TVdSelectParser::StatementScript(const std::string& head, const std::string& tail)
{
    std::string result;
    // The print of a statement read from text is rarely twice as long (quotes, line breaks,
    // aliases): one buffer for the whole of it.
    result.reserve(head.size() + tail.size() + 2 * Scanner().Expression().size() + 64);
    result += head;
    const size_t start = result.size();
    size_t listSize = 0;
    const TVdTableDefs& tables = TableDefs();
    // The fields in order serve the select list and the GROUP BY alike.
    std::vector<TVdFieldDef*> fields;
    bool haveFields = false;
    if (typeid(tables) == typeid(TVdTableDefs)) {
        fields = tables.FieldsInOrder();
        haveFields = true;
        tables.AppendScript(result, listSize, fields);
    } else {
        std::string selectList;
        result += tables.GetScript(selectList);
        listSize = selectList.size();
    }
    if (result.size() == start)
        return std::string();
    // A select list without FROM (SELECT A) is the whole statement: no clause can follow it,
    // and a GROUP BY rebuilt from its fields would not read back.
    if (result.size() - start == listSize)
        return result;
    script::AppendCriteriaScript(result, WhereItems());
    if (haveFields && FGroupByItems.Parser() == this)
        FGroupByItems.AppendScript(result, fields);
    else
        FGroupByItems.AppendScript(result);
    script::AppendCriteriaScript(result, HavingItems());
    FOrderByItems.AppendScript(result);
    // Every clause ends its last line, so the tail stands on a line of its own.
    result += tail;
    return result;
}

void TVdSelectParser::ProcessError(const std::string& token, int lineNo, int linePos)
{
    FIsValid = false;
    const int code = token.empty() ? 2 : 1;
    const int position = linePos - int(token.size());
    if (!OnError)
        throw EVdParserError(code, token, lineNo, position);
    OnError(this, EVdParserError::MessageFor(code, token, lineNo, position), token, lineNo,
            position);
}

// ---- the state machine ----

void TVdSelectParser::DoParse()
{
    FOneTableCalls.clear();
    ParseOnce();
    // Calls read as text that FROM showed to name one table: read again, keeping them calls.
    // The second reading makes the same tables, so it settles no call the first did not.
    if (FState == ssEnd && !FOneTableCalls.empty())
        ParseOnce();
}

void TVdSelectParser::ParseOnce()
{
    FIsValid = true;
    std::string text = Scanner().Expression();
    Clear();
    FMixedCalls.clear();
    FState = ssBegin;
    FNesting = 0;
    FUnqualified.clear();
    FLentTables.clear();
    FFromTables.clear();
    FAddedByFrom.clear();
    FNamedByAlias.clear();
    FSelectItems = 0;
    FFieldPlaces.clear();
    try {
        Scanner().SetExpression(std::move(text));
        RaiseIfUnterminated();
        while (FState != ssError && FState != ssEnd) {
            switch (FState) {
            case ssBegin:
                DoParseBegin();
                break;
            case ssSelect:
                DoParseSelectClause();
                break;
            case ssFieldDefs:
                DoParseFieldDefs();
                break;
            case ssInto:
                DoParseIntoClause();
                break;
            case ssFrom:
                DoParseFromClause();
                break;
            case ssTableDefs:
                DoParseTableDefs();
                break;
            case ssWhere:
                DoParseWhereClause();
                break;
            case ssGroupBy:
                DoParseGroupByClause();
                break;
            case ssHaving:
                DoParseHavingClause();
                break;
            case ssOrderBy:
                DoParseOrderByClause();
                break;
            case ssAppendix:
                DoParseAppendix();
                break;
            default:
                FState = ssError;
                break;
            }
            if (FState == ssError)
                break;
            if (Kind() == tkEnd)
                FState = ssEnd;
            else if (FState != ssFieldDefs && FState != ssTableDefs && FState != ssAppendix)
                Next();
        }
    } catch (const EVdParserError& e) {
        // An unterminated string, raised by the scanner with its position already set.
        FIsValid = false;
        FState = ssError;
        if (!OnError)
            throw;
        OnError(this, e.what(), e.Token, e.LineNo, e.LinePos);
        return;
    }
    if (FState == ssEnd) {
        if (const TVdFieldDef* column = UngroupedColumn()) {
            // Reported where the column stands in the select list, else at the GROUP BY list.
            FState = ssError;
            const auto found =
                std::find_if(FFieldPlaces.rbegin(), FFieldPlaces.rend(),
                             [column](const auto& entry) { return entry.first == column; });
            const TPlace& place = found != FFieldPlaces.rend() ? found->second : FGroupByPlace;
            return ProcessError(place.Token, place.LineNo, place.LinePos);
        }
    }
    if (FState == ssError)
        ProcessError(Token(), Scanner().LineNo(), Scanner().LinePos());
}

void TVdSelectParser::DoParseBegin() { FState = IsKeywordToken("SELECT") ? ssSelect : ssError; }

void TVdSelectParser::DoParseSelectClause()
{
    const bool distinct = IsKeywordToken("DISTINCT");
    SetDistinct(distinct);
    if (distinct)
        Next();
    FState = StartsSelectList() ? ssFieldDefs : ssError;
}

bool TVdSelectParser::StartsSelectList() const
{
    const TTokenKind kind = Kind();
    // Quoted text of any kind starts an item: '/' reads as an operation yet is a string, or
    // the qualifier of a table aliased '/'.
    if (Scanner().TokenQuoted())
        return kind != tkEnd;
    const bool star = Token() == "*";
    return star || kind == tkFunction || kind == tkInteger || kind == tkFloat || kind == tkString ||
           kind == tkIdent || kind == tkIdentString;
}

void TVdSelectParser::DoParseIntoClause() { FState = ssError; }

void TVdSelectParser::DoParseFieldDefs()
{
    for (;;) {
        if (Kind() == tkEnd) {
            FState = ssEnd;
            return;
        }
        if (Kind() == tkKeyword && !Scanner().TokenQuoted()) {
            FState = IsWord("FROM") ? ssFrom : ssError;
            break;
        }
        DoParseFieldDef();
        if (FState == ssError)
            break;
        // Items are separated by commas: SELECT A AS X Y would read Y as a column of its own.
        if (IsDelimToken(','))
            Next();
        else if (Kind() != tkEnd && !(Kind() == tkKeyword && !Scanner().TokenQuoted())) {
            Fail();
            break;
        }
    }
    if (FState == ssError)
        TableDefs().Clear();
}

void TVdSelectParser::DoParseFieldDef()
{
    const bool firstItem = TableDefs().GetFieldCount() == 0 && TableDefs().Count() == 0;
    // No item begins with a comparison, as the first cannot: ">>" is one token before a blank
    // but two as the last characters of a text, where a select list without FROM prints it.
    if (Kind() == tkComparison && !Scanner().TokenQuoted())
        return Fail();
    const TPlace place{Token(), Scanner().LineNo(), Scanner().LinePos()};
    TVdFieldDef field;
    TVdTableDef* table = nullptr;
    DoParseExpression(field, table, TTokenKinds{tkKeyword}, "AS", TVdExprContext::SelectList);
    if (FState == ssError)
        return;
    // An empty quoted name ("") names no column.
    if (field.Name().empty())
        return Fail();
    const bool starOnly = field.Kind() == fkUnknown && field.Name() == "*";
    std::string alias;
    bool hasAlias = IsKeywordToken("AS");
    // The expression stopped before a name that ends the item: its alias, written without AS.
    const bool aliasWithoutAs = !hasAlias && IsAliasToken() && Kind() != tkKeyword;
    if (hasAlias || aliasWithoutAs) {
        if (hasAlias)
            Next();
        hasAlias = true;
        if (!IsAliasToken())
            return Fail();
        alias = AliasText();
        Next();
        // X AS X names the column as X alone does: an alias equal to the name does not print,
        // so taken as given it would read back as a generated one (X1) beside another X.
        if (alias == field.Name())
            hasAlias = false;
    }
    // "*" alone is the select list of a query without fields: it adds none. Beside other
    // items it would be lost, so there it is refused.
    if (starOnly && !hasAlias) {
        if (!firstItem || IsDelimToken(','))
            Fail();
        return;
    }
    TVdTableDefs& tables = TableDefs();
    // Only a column (a name, or a call over names) is given to every table; a text that names
    // no column, such as COUNT(*) or 1, would print the same once for each table and read back
    // as that many columns.
    const bool column = NamesColumn(field);
    if (!table && column) {
        auto copy = std::make_unique<TVdFieldDef>();
        copy->Assign(field);
        FUnqualified.push_back({std::move(copy), hasAlias, alias, place});
    }
    if (!table)
        table = tables.FindByAlias(std::string());
    if (!table && tables.Count() == 0)
        table = tables.Add();
    if (!table && !column)
        table = tables.Items(0);
    ++FSelectItems;
    if (table) {
        CopyField(field, hasAlias, alias, *table, place);
        return;
    }
    // An unqualified column of a query with several tables is given to each of them (those
    // there before the first copy: a copy adds no table).
    const int count = tables.Count();
    for (int i = 0; i < count; ++i)
        CopyField(field, hasAlias, alias, *tables.Items(i), place);
}

bool TVdSelectParser::NamesColumn(const TVdFunctionDef& node)
{
    if (node.Kind() == fkIdentifier)
        return true;
    for (int i = 0; i < node.ArgumentCount(); ++i)
        if (NamesColumn(*node.Argument(i)))
            return true;
    return false;
}

// A column of the select list placed into a table: its alias is generated unique across the
// statement (ID, ID1, FIELD_1, ...) unless the text gave one.
void TVdSelectParser::CopyField(const TVdFieldDef& field, bool hasAlias, const std::string& alias,
                                TVdTableDef& target, const TPlace& place)
{
    TVdFieldDef* copy = target.FieldDefs().Add();
    FFieldPlaces.emplace_back(copy, place);
    // T.* takes no alias. An alias known from the start is set first, so that the name does
    // not generate one only to have it replaced; set again at the end, it stays whatever
    // the kind generated meanwhile.
    const std::string* known = hasAlias ? &alias : field.Name() == "*" ? &field.Name() : nullptr;
    if (known)
        copy->SetAlias(*known);
    copy->SetName(field.Name());
    copy->SetKind(field.Kind());
    if (field.ArgumentCount() > 0)
        copy->Arguments().Assign(*field.ArgumentList());
    if (known)
        copy->SetAlias(*known);
    else if (copy->Alias() != copy->Name())
        copy->SetAlias(PrintableAlias(copy->Alias()));
}

// A generated alias made from a name ("my col" -> "my col1") is kept in the quotes it needs to
// read back, where aliases print as they are. Where aliases print as names, one that would not
// read back as a name is generated as for an expression instead: #1 where names are never
// quoted (InterBase dialect 1), one ending in a backslash where that escapes the closing
// quote (MySQL).
std::string TVdSelectParser::PrintableAlias(const std::string& alias) const
{
    const TVdSQLScanner& scanner = Scanner();
    if (scanner.GetProcessAliases()) {
        if (ReadsBackAsName(ProcessItemName(alias)))
            return alias;
        return TableDefs().GetUniqueAlias("FIELD_", true);
    }
    if (!scanner.NeedQuotes(alias))
        return alias;
    if (scanner.IsIdentifier(alias) && !scanner.IsKeyword(alias) && !scanner.IsFunction(alias))
        return alias;
    return scanner.QuotedName(alias);
}

void TVdSelectParser::DoParseFromClause()
{
    const TTokenKind kind = Kind();
    FState = (kind == tkString || kind == tkIdent || kind == tkIdentString) ? ssTableDefs : ssError;
}

void TVdSelectParser::DoParseWhereClause()
{
    DoParseCriterions(WhereItems());
    if (FState == ssError)
        return;
    if (WhereItems().Count() == 0)
        return Fail();
    if (Kind() == tkEnd)
        FState = ssEnd;
    else if (IsKeywordToken("GROUP") && PeekIs("BY"))
        FState = ssGroupBy;
    else if (IsKeywordToken("HAVING"))
        Fail(); // without GROUP BY: the grouping would print nothing to stand after
    else if (IsKeywordToken("ORDER") && PeekIs("BY"))
        FState = ssOrderBy;
    else
        FState = ssAppendix;
}

void TVdSelectParser::DoParseGroupByClause()
{
    Next(); // past BY
    FGroupByPlace = {Token(), Scanner().LineNo(), Scanner().LinePos()};
    CollectNames(false);
    FGroupByItems.KeepLines();
    if (FState == ssError)
        return;
    if (Kind() == tkEnd)
        FState = ssEnd;
    else if (IsKeywordToken("HAVING"))
        FState = ssHaving;
    else if (IsKeywordToken("ORDER") && PeekIs("BY"))
        FState = ssOrderBy;
    else
        FState = ssAppendix;
}

void TVdSelectParser::DoParseHavingClause()
{
    DoParseCriterions(HavingItems());
    if (FState == ssError)
        return;
    if (HavingItems().Count() == 0)
        return Fail();
    if (Kind() == tkEnd)
        FState = ssEnd;
    else if (IsKeywordToken("ORDER") && PeekIs("BY"))
        FState = ssOrderBy;
    else
        FState = ssAppendix;
}

void TVdSelectParser::DoParseOrderByClause()
{
    Next(); // BY
    CollectNames(true);
    if (FState == ssError)
        return;
    FState = Kind() == tkEnd ? ssEnd : ssAppendix;
}

void TVdSelectParser::DoParseAppendix() { FState = ssError; }

namespace {

// Whether a dotted name read so far ends in a part the scanner reads as an integer, then ".".
bool EndsWithIntegerPart(const TVdSQLScanner& scanner, const std::string& name)
{
    if (name.size() < 2 || name.back() != '.')
        return false;
    const size_t dot = name.rfind('.', name.size() - 2);
    const size_t start = dot == std::string::npos ? 0 : dot + 1;
    return scanner.IsInteger(name.substr(start, name.size() - 1 - start));
}

} // namespace

// GROUP BY and ORDER BY items: names, continued across "." ("T"."A" is the item T.A). A
// dotted name is weighed against its parts kept in their quotes, as in the select list: a
// part that needs them ("select"."a.b".X) keeps them where a quoted part beside it makes the
// others print as they stand.
void TVdSelectParser::CollectNames(bool ordered)
{
    std::string name, kept;
    bool dotted = false;
    bool expectPart = true;
    // The GROUP BY names met so far, so that a long list is not searched once per item.
    std::unordered_set<std::string> grouped;
    if (!ordered)
        grouped.insert(FGroupByItems.Lines().begin(), FGroupByItems.Lines().end());
    // Whether the last part read is the star of T.*.
    bool starred = false;
    auto flush = [&](TVdOrderKind kind) {
        if (starred) {
            // T.*: the qualifier is weighed as a name of its own, the star stays bare (in its
            // printed form it would be quoted, the name of a column called *).
            name.resize(name.size() - 2);
            kept.resize(kept.size() - 2);
            if (name != kept)
                name = DottedNameText(name, kept);
            name += ".*";
        } else if (dotted && name != kept) {
            name = DottedNameText(name, kept);
        }
        if (ordered) {
            FOrderByItems.AddOrdered(name, kind);
        } else if (grouped.insert(name).second) {
            FGroupByItems.Add(name);
        }
        name.clear();
        kept.clear();
        dotted = false;
        starred = false;
    };
    TVdSQLScanner::TState itemStart = Scanner().SaveState();
    // Asked at the first position only: the select list does not change here.
    std::optional<bool> positionsKept;
    for (;;) {
        if (name.empty() && expectPart)
            itemStart = Scanner().SaveState();
        const bool quoted = Scanner().TokenQuoted();
        const bool keyword = Kind() == tkKeyword && !quoted;
        if (ordered && keyword && !name.empty() && !expectPart &&
            (IsWord("ASC") || IsWord("DESC"))) {
            flush(IsWord("DESC") ? okDesc : okAsc);
            Next();
            if (IsDelimToken(',')) {
                expectPart = true;
                Next();
                continue;
            }
            if (Kind() == tkEnd || (Kind() == tkKeyword && !Scanner().TokenQuoted()))
                return;
            return Fail();
        }
        const bool comma = IsDelimToken(',');
        if (Kind() == tkEnd || keyword || comma) {
            if (name.empty() || expectPart)
                return Fail();
            flush(okAsc);
            if (!comma)
                return;
            expectPart = true;
            Next();
            continue;
        }
        if (IsDelimToken('.') && !expectPart) {
            name += '.';
            kept += '.';
            dotted = true;
            expectPart = true;
            Next();
            continue;
        }
        // T.* stands in GROUP BY where T.* is an output field beside aggregates.
        const bool star = !name.empty() && !Scanner().TokenQuoted() && Token() == "*";
        if (!expectPart || !(IsNameKind() || star || Kind() == tkInteger || Kind() == tkFunction)) {
            // More than a name: in ORDER BY an expression, read again from its start.
            if (!ordered)
                return Fail();
            Scanner().RestoreState(itemStart);
            if (!ReadOrderExpression())
                return;
            name.clear();
            kept.clear();
            dotted = false;
            starred = false;
            expectPart = true;
            continue;
        }
        // 2.5 at the very end of the text is the name of the parts 2 and 5; printed as it
        // stands (names unquoted), with the line break after it, it would read as a number.
        if (Kind() == tkInteger && !Scanner().TokenQuoted() && !Scanner().GetQuoteIdentifiers() &&
            EndsWithIntegerPart(Scanner(), name) && !PeekIs("."))
            return Fail();
        // A column named * would print as T.*, all columns of T: refused, as in the select list.
        if (Scanner().TokenQuoted() && Token() == "*")
            return Fail();
        std::string part = NameText();
        if (name.empty() && TVdStringList::IsPosition(part) && !PeekIs(".")) {
            if (!Scanner().TokenQuoted()) {
                // A position (ORDER BY 2): it keeps its column only where the print lists
                // the columns as written.
                if (!positionsKept)
                    positionsKept = PositionsKeepTheirColumns();
                if (!*positionsKept)
                    return Fail();
            } else if (Scanner().GetQuoteIdentifiers()) {
                part = Scanner().ProcessName(part); // a column named "2" stays a name
            } else {
                return Fail(); // "2" would print as the position 2
            }
        }
        name += part;
        starred = star;
        // A part without quotes is kept as it reads.
        if (star || !Scanner().TokenQuoted())
            kept += part;
        else
            kept += QuotedPartText(part);
        expectPart = false;
        Next();
    }
}

bool TVdSelectParser::AtCaseWord(bool closing) const
{
    if (Scanner().TokenQuoted() || (Kind() != tkIdent && Kind() != tkKeyword))
        return false;
    const std::string& word = Token();
    return text::SameText(word, "CASE") || text::SameText(word, "WHEN") ||
           text::SameText(word, "THEN") || text::SameText(word, "ELSE") ||
           (closing && text::SameText(word, "END"));
}

bool TVdSelectParser::IsOperatorWord(const std::string& word) const
{
    if (text::SameText(word, "NULL"))
        return true;
    bool partial = false;
    return OperatorTable().FindNearest(word, partial) || OperatorTable().IsCaptionStart(word);
}

// An ORDER BY item that is an expression, from its first token up to a "," or a keyword outside
// parentheses, kept as written with its direction. True when a "," followed (the next item is
// current); false at the end of the list or on an error.
bool TVdSelectParser::ReadOrderExpression()
{
    TVdSQLScanner& scanner = Scanner();
    const int start = scanner.TokenStart();
    int end = start;
    int depth = 0;
    bool afterOperand = false;
    for (;;) {
        const bool quoted = scanner.TokenQuoted();
        const bool keyword = Kind() == tkKeyword && !quoted;
        if (Kind() == tkEnd || (depth == 0 && (keyword || IsDelimToken(','))))
            break;
        if (IsDelimToken('('))
            ++depth;
        else if (IsDelimToken(')') && --depth < 0)
            break;
        // Two operands in a row (A LIMIT 5) or a delimiter such as ";" make no expression.
        // Words of CASE and of the operators (IS NULL, LIKE, IN) stand between operands.
        const bool caseWord = AtCaseWord(true) || (!quoted && IsOperatorWord(Token()));
        const bool operand = quoted || IsNameKind() || Kind() == tkInteger || Kind() == tkFloat;
        if ((operand && afterOperand && !caseWord) ||
            (Kind() == tkDelim && !quoted && !IsDelimToken('(') && !IsDelimToken(')') &&
             !IsDelimToken('.') && !IsDelimToken(','))) {
            Fail();
            return false;
        }
        afterOperand = (operand && !caseWord && Kind() != tkFloat) || IsDelimToken(')') ||
                       (caseWord && text::SameText(Token(), "END"));
        end = scanner.TokenEnd();
        Next();
    }
    if (depth != 0 || end == start) {
        Fail();
        return false;
    }
    TVdOrderKind kind = okAsc;
    if (Kind() == tkKeyword && !scanner.TokenQuoted() && (IsWord("ASC") || IsWord("DESC"))) {
        kind = IsWord("DESC") ? okDesc : okAsc;
        Next();
    }
    FOrderByItems.AddExpression(scanner.Expression().substr(size_t(start - 1), size_t(end - start)),
                                kind);
    if (IsDelimToken(',')) {
        Next();
        return true;
    }
    if (Kind() != tkEnd && !(Kind() == tkKeyword && !scanner.TokenQuoted()))
        Fail();
    return false;
}

std::vector<const TVdFieldDef*> TVdSelectParser::PrintedFields() const
{
    std::vector<const TVdFieldDef*> printed;
    for (const TVdFieldDef* field : TableDefs().FieldsInOrder())
        if (field && !field->IsInputParam())
            printed.push_back(field);
    return printed;
}

bool TVdSelectParser::PositionsKeepTheirColumns() const
{
    return int(PrintedFields().size()) == FSelectItems;
}

const TVdFieldDef* TVdSelectParser::UngroupedColumn() const
{
    // Without a GROUP BY written the print groups by the plain columns, as a builder does;
    // engines other than SQLite refuse such a statement as written.
    if (FGroupByItems.KeptItems().empty())
        return nullptr;
    const std::vector<const TVdFieldDef*> derived = FGroupByItems.DerivedFields();
    const std::vector<bool> grouped = FGroupByItems.KeptGroupings(derived, PrintedFields());
    for (size_t i = 0; i < derived.size(); ++i)
        if (!grouped[i])
            return derived[i];
    return nullptr;
}

// ---- token helpers ----

void TVdSelectParser::RaiseIfUnterminated()
{
    TVdSQLScanner& scanner = Scanner();
    if (!scanner.InString())
        return;
    if (scanner.Position() > scanner.Length())
        scanner.GetNextToken(); // raises "Unterminated string." for the same token and place
    // 'abc'' at the very end: the last character closes the text only because nothing follows
    // it; the doubled quote before it is content, so the string is in fact left open. The
    // scanner is asked whether the quote would also close the text with more after it (any
    // character other than the quote).
    const std::string& token = Scanner().Token();
    const char quote = scanner.TokenQuote();
    if (scanner.Position() == scanner.Length() && scanner.TokenQuoted() &&
        !scanner.IsTerminator(quote, token, quote, ' '))
        throw EVdParserError(3, token, scanner.LineNo(), scanner.LinePos() - int(token.size()));
}

bool TVdSelectParser::IsWord(const char* word) const
{
    if (Scanner().TokenQuoted())
        return false;
    // Compared as it is walked, without measuring the word first: most tokens differ at once.
    const std::string& token = Token();
    size_t i = 0;
    for (; i < token.size(); ++i)
        if (word[i] == '\0' || text::UpperChar(token[i]) != text::UpperChar(word[i]))
            return false;
    return word[i] == '\0';
}

bool TVdSelectParser::IsKeywordToken(const char* word) const
{
    return Kind() == tkKeyword && IsWord(word);
}

bool TVdSelectParser::PeekIs(const char* word)
{
    if (word[0] != '\0' && word[1] == '\0' && (word[0] == '(' || word[0] == '.'))
        return Scanner().NextIsDelim(word[0]);
    const TVdSQLScanner::TState state = Scanner().SaveState();
    Scanner().GetNextToken();
    const bool match = IsWord(word);
    Scanner().RestoreState(state);
    return match;
}

bool TVdSelectParser::IsQuotedNameKind() const
{
    const TTokenKind kind = Kind();
    const TVdSQLScanner& scanner = Scanner();
    // A quoted text is a name unless it is a string that cannot be printed as one. An empty
    // one ("") only where names are quoted: elsewhere (InterBase dialect 1) it prints nothing.
    if (Token().empty())
        return kind != tkEnd && scanner.GetQuoteIdentifiers();
    return kind != tkEnd && (scanner.IsIdentQuote(scanner.TokenQuote()) || !NameText().empty());
}

bool TVdSelectParser::IsAliasToken() const
{
    if (!IsNameKind() || Token().empty())
        return false;
    return !Scanner().TokenQuoted() || !AliasText().empty();
}

bool TVdSelectParser::IsClauseToken() const
{
    return !Scanner().TokenQuoted() && (Kind() == tkKeyword || IsJoinDef(Token()));
}

bool TVdSelectParser::ReadInteger(std::int32_t& value)
{
    Next();
    const std::string& token = Token();
    const char* last = token.data() + token.size();
    const auto [end, error] = std::from_chars(token.data(), last, value);
    if (Kind() != tkInteger || Scanner().TokenQuoted() || error != std::errc() || end != last) {
        Fail();
        return false;
    }
    Next();
    return true;
}

bool TVdSelectParser::IsOperandKind() const
{
    const TTokenKind kind = Kind();
    return kind == tkFunction || kind == tkInteger || kind == tkFloat || kind == tkString ||
           kind == tkIdent || kind == tkIdentString || (Scanner().TokenQuoted() && kind != tkEnd);
}

} // namespace vd
