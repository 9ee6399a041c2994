// The FROM clause: tables, stored procedure calls and joins.
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"

#include <algorithm>
#include <vector>

namespace vd {

namespace {

// What the scanner reads back from a printed name: the content of a name in identifier
// quotes, or an unquoted word as the dialect reads it; empty when the text would not read
// back as one name (a keyword, a function name, several tokens).
std::string ReadBack(const TVdSQLScanner& scanner, const std::string& printed)
{
    const char first = printed.empty() ? '\0' : printed.front();
    if (printed.size() >= 2 && printed.back() == first && scanner.IsIdentQuote(first)) {
        const std::string_view body = std::string_view(printed).substr(1, printed.size() - 2);
        return scanner.ClosesAtEnd(body, first) ? text::UndoubleQuotes(body, first) : std::string();
    }
    if (scanner.IsKeyword(printed) || scanner.IsFunction(printed))
        return std::string();
    std::string word = scanner.ProcessIdent(printed);
    return scanner.IsIdentifier(word) ? word : std::string();
}

// Whether a name is parts joined by dots, each part holding text (a.b; not ., .a or a..b).
bool IsDottedName(const std::string& name)
{
    const size_t dot = name.find('.');
    return dot != std::string::npos && dot > 0 && name.back() != '.' &&
           name.find("..") == std::string::npos;
}

// The dots the print of an unquoted name splits it at, where the scanner ends its parts (K..x
// is K and .x, as ".x" reads back).
struct TPartDots {
    int Count = 0;
    size_t Last = std::string::npos;
};

TPartDots SplitDots(const std::string& name)
{
    TPartDots dots;
    for (size_t start = 0;;) {
        const size_t end = TVdSQLScanner::PartEnd(std::string_view(name).substr(start));
        if (end == std::string::npos)
            break;
        ++dots.Count;
        dots.Last = start + end;
        start = dots.Last + 1;
    }
    return dots;
}

// Whether a text quoted other than in identifier quotes ('a.b') holds a dot, which splits it
// where it prints as a part of a dotted name: only identifier quotes keep it whole.
bool SplitsAsPart(const TVdSQLScanner& scanner, const std::string& raw)
{
    return scanner.GetQuoteIdentifiers() && raw.front() != scanner.GetIdentQuote() &&
           raw.find('.') != std::string::npos;
}

// A quoted name kept with its quotes: as written when it prints as written, else in identifier
// quotes when those print unchanged ('a.b' would otherwise print split at its dot); empty when
// neither. dotted: whether the text prints as a part of dotted names, where only identifier
// quotes keep a dot in it from splitting it ('''.''' splits into ''' and ''', which print as
// written yet read back as two parts).
std::string KeptQuoted(const TVdSQLScanner& scanner, const std::string& plain,
                       const std::string& raw, bool dotted,
                       const std::function<std::string(const std::string&)>& print)
{
    const bool splits = dotted && SplitsAsPart(scanner, raw);
    if (!splits && print(raw) == raw)
        return raw;
    const std::string requoted = scanner.QuotedName(plain);
    if (print(requoted) != requoted)
        return std::string();
    // Where the plain text prints in those quotes ('.' gives "."), it is kept plain, as "."
    // itself reads.
    return print(plain) == requoted ? plain : requoted;
}

// A string standing where a name belongs, in a dialect that quotes identifiers otherwise
// ("From" in back-quote dialects, "my t" where double quotes make strings): the name its text
// reads back as once printed. Empty when it cannot be printed as a name at all (a keyword
// where names are never quoted).
std::string StringAsName(const TVdSQLScanner& scanner, const std::string& plain,
                         const std::string& raw, const std::string& printed, bool dotted,
                         const std::function<std::string(const std::string&)>& print)
{
    if (plain.find('.') == std::string::npos) {
        const std::string reread = ReadBack(scanner, printed);
        if (reread.empty() || reread == plain)
            return reread;
        return print(reread) == printed ? reread : std::string();
    }
    // Without identifier quotes a name with a dot in it cannot be written.
    return KeptQuoted(scanner, plain, raw, dotted, print);
}

// A name the text gives quoted is kept without its quotes when printing it brings the same
// quotes back, and as written otherwise ("my t", "a.b"): the model's text then reads back
// to itself.
// fold: whether a name that prints bare may drop its quotes (names, and aliases of dialects
// that print aliases as names; an alias printed as written keeps the quotes it was given).
// Such names print as parts of dotted names too.
std::string ModelText(const TVdSQLScanner& scanner, const std::string& content, bool fold,
                      const std::function<std::string(const std::string&)>& print)
{
    const char quote = scanner.TokenQuote();
    const std::string plain = text::UndoubleQuotes(content, quote);
    if (plain.empty())
        return plain;
    const std::string raw = scanner.RawToken();
    const std::string printed = print(plain);
    if (printed == raw)
        return plain;
    // "CUSTOMER" where CUSTOMER prints bare and reads back as the same name.
    if (fold && quote == scanner.GetIdentQuote() && plain.find('.') == std::string::npos &&
        ReadBack(scanner, printed) == plain)
        return plain;
    if (!scanner.IsIdentQuote(quote))
        return StringAsName(scanner, plain, raw, printed, fold, print);
    const std::string quoted = KeptQuoted(scanner, plain, raw, fold, print);
    return quoted.empty() ? raw : quoted;
}

} // namespace

std::string TVdSelectParser::NameText() const
{
    const TVdSQLScanner& scanner = Scanner();
    if (!scanner.TokenQuoted())
        return scanner.ProcessIdent(Token());
    return ModelText(scanner, Token(), true,
                     [this](const std::string& name) { return ProcessItemName(name); });
}

std::string TVdSelectParser::AliasText() const
{
    const TVdSQLScanner& scanner = Scanner();
    if (!scanner.TokenQuoted())
        return scanner.ProcessIdent(Token());
    return ModelText(scanner, Token(), scanner.GetProcessAliases(),
                     [&scanner](const std::string& alias) {
                         return scanner.GetProcessAliases() ? scanner.ProcessName(alias) : alias;
                     });
}

void TVdSelectParser::AppendKeptPart(std::string& kept, bool& keptSame, const std::string& plain,
                                     const std::string& part, bool partSame)
{
    if (keptSame && partSame)
        return;
    if (keptSame)
        kept = plain;
    keptSame = false;
    kept += '.';
    kept += part;
}

// A name with a part kept in its quotes ("a.b") prints its other parts as they stand, so there
// a part read from quotes that it needs ("x", lower-case) keeps them: "a.b"."x"."y" would
// otherwise print as "a.b".x."y" and read back as another name.
std::string TVdSelectParser::QuotedPartText(const std::string& text) const
{
    const TVdSQLScanner& scanner = Scanner();
    if (!scanner.TokenQuoted() || text == scanner.RawToken() ||
        (!text.empty() && scanner.ProcessName(text) == text))
        return text;
    return scanner.QuotedName(text);
}

std::string TVdSelectParser::DottedNameText(const std::string& name, const std::string& kept) const
{
    if (name == kept)
        return name;
    const std::string printed = ProcessItemName(kept);
    if (ProcessItemName(name) == printed)
        return name;
    // Kept in its printed form where that prints as itself: "".K prints as ""."K", which
    // reads back as that, and two spellings of one name must not make two alias texts.
    return ProcessItemName(printed) == printed ? printed : kept;
}

// A name of three parts or more without quotes (S.T.U) prints with its prefix quoted whole
// ("S.T"."U"), which reads back as that quoted prefix: the model takes it in that form, so that
// the table a text names and the table its print names are one.
std::string TVdSelectParser::TableNameText(const std::string& name) const
{
    const TVdSQLScanner& scanner = Scanner();
    if (!scanner.GetQuoteIdentifiers() || name.find(scanner.GetIdentQuote()) != std::string::npos)
        return name;
    const TPartDots dots = SplitDots(name);
    if (dots.Count < 2 || script::HasDbDot(name, name.find('.')))
        return name;
    const std::string prefix = name.substr(0, dots.Last);
    if (!scanner.NeedQuotes(prefix))
        return name;
    return scanner.QuotedName(prefix) + name.substr(dots.Last);
}

bool TVdSelectParser::ReadsBackAsName(const std::string& printed) const
{
    return !ReadBack(Scanner(), printed).empty();
}

// An alias qualifies the table's columns in the select list: one that would not read back as
// one name once printed there (a string holding a dot, 'a.b') cannot be a table's alias.
// Nor can a string holding a dot whose halves each print as a string ('''.'''): it reads back
// as one string, but a qualifier keeps a string with a dot in identifier quotes ("'.'"), as a
// part of a dotted name, and would name another table than the alias printed as written.
bool TVdSelectParser::QualifiesAsAlias(const std::string& alias) const
{
    const TVdSQLScanner& scanner = Scanner();
    const bool writtenQuoted = !alias.empty() && scanner.IsIdentQuote(alias.front());
    if (writtenQuoted && !scanner.GetProcessAliases() && SplitsAsPart(scanner, alias))
        return false;
    return ReadsBackAsName(ProcessItemName(alias));
}

std::string TVdSelectParser::ProcessItemName(const std::string& name) const
{
    std::string result;
    script::AppendItemName(result, *this, name);
    return result;
}

// A qualifier names a table by its alias, written as an alias or as a name, or by its name.
TVdTableDef* TVdSelectParser::FindTable(const std::string& aliasText,
                                        const std::string& nameText) const
{
    TVdTableDefs& tables = TableDefs();
    if (TVdTableDef* table = tables.FindByAlias(aliasText))
        return table;
    if (TVdTableDef* table = tables.FindByAlias(nameText))
        return table;
    return tables.FindByName(nameText);
}

void TVdSelectParser::DoParseTableDefs()
{
    for (;;) {
        if (Kind() == tkEnd) {
            FState = ssEnd;
            MergeQualifierTables();
            return;
        }
        // A join word need not be a keyword of the dialect (LEFT can also name a function).
        const bool keyword = IsClauseToken();
        if (keyword && (IsJoinDef(Token()) || IsKeywordToken("JOIN"))) {
            DoParseJoinDef();
        } else if (!keyword) {
            DoParseTableDef();
        } else {
            if (IsWord("WHERE"))
                FState = ssWhere;
            else if (IsWord("GROUP") && PeekIs("BY"))
                FState = ssGroupBy;
            else if (IsWord("HAVING"))
                Fail(); // without GROUP BY: the grouping would print nothing to stand after
            else if (IsWord("ORDER") && PeekIs("BY"))
                FState = ssOrderBy;
            else
                FState = ssAppendix;
            MergeQualifierTables();
            return;
        }
        if (FState == ssError) {
            TableDefs().Clear();
            return;
        }
        if (IsDelimToken(','))
            Next();
    }
}

// A table an earlier FROM entry took is that entry's. An entry whose alias (or name, when it
// has none) is the alias of an earlier entry of another name would qualify two tables
// (FROM A E, B E or FROM A E, E): refused. Of the same name it is that table again (FROM T, T),
// as documented. The steps that look past the alias never take a table an earlier entry took
// (FROM T, T X names two tables).
TVdTableDef* TVdSelectParser::Untaken(TVdTableDef* table) const
{
    return table && !FFromTables.count(table) ? table : nullptr;
}

bool TVdSelectParser::TakenByOther(const TVdTableDef* table, const std::string& name) const
{
    return table && FFromTables.count(table) && table->Name() != name;
}

// An alias is found in its quoted spelling too ("X" for X), among the tables FROM took:
// FROM A "X", B X is refused, FROM T "X", T X names one table. Not a dotted one: "a.b" is
// one name, a.b two (a text of dots only, ".", is no dotted name).
TVdTableDef* TVdSelectParser::FindEntryAlias(const std::string& alias) const
{
    TVdTableDefs& tables = TableDefs();
    if (TVdTableDef* table = tables.FindByAlias(alias))
        return table;
    if (IsDottedName(alias))
        return nullptr;
    TVdTableDef* spelled = tables.FindByAlias(Scanner().QuotedName(alias));
    return spelled && FFromTables.count(spelled) ? spelled : nullptr;
}

// Finds the table a FROM entry stands for: the select list has already made tables known
// only by alias (qualified fields) or with an empty alias (unqualified fields). Null where the
// entry is refused.
TVdTableDef* TVdSelectParser::ResolveTable(const std::string& name, const std::string* alias)
{
    if (alias)
        return ResolveAliasedTable(name, *alias);
    TVdTableDef* table = FindEntryAlias(name);
    if (TakenByOther(table, name))
        return nullptr;
    if (!table)
        table = Untaken(TableDefs().FindByAlias(std::string()));
    if (!table)
        table = GiveBackLentTable(name, name);
    if (!table)
        return AddTable(name, name);
    table->SetName(name);
    return table;
}

TVdTableDef* TVdSelectParser::ResolveAliasedTable(const std::string& name, const std::string& alias)
{
    TVdTableDefs& tables = TableDefs();
    // SELECT D., O.A FROM D O: where the alias finds the entry's table, in either spelling or
    // given back, the qualifier D may have made a table of its own as well, which an earlier
    // entry may have taken by its name.
    // ownTable: the table is the entry's whatever made it (given back to it, or holding its
    // copies of unqualified columns); otherwise only one a qualifier made counts.
    const auto noteFoundByAlias = [this, &name](TVdTableDef* found, bool ownTable) {
        if (found && (ownTable || (found->Name().empty() && !FFromTables.count(found)))) {
            ClaimName(name, *found);
            ReclaimLentTable(name);
        }
    };
    TVdTableDef* table = FindEntryAlias(alias);
    if (TakenByOther(table, name))
        return nullptr;
    noteFoundByAlias(table, false);
    // A quoted alias ("A1") that a qualifier of the select list named as a name (A1) is the
    // alias itself, in both steps that look at it.
    const bool quoted = alias.size() > 2 && alias.front() == Scanner().GetIdentQuote() &&
                        alias.back() == alias.front();
    const std::string spelled = quoted ? ReadBack(Scanner(), alias) : std::string();
    if (!table) {
        table = GiveBackLentTable(name, alias);
        if (!table && !spelled.empty())
            table = GiveBackLentTable(name, spelled);
        noteFoundByAlias(table, true);
    }
    // Before any step that looks past the alias, and like it refused where it is an earlier
    // entry's alias of another name (FROM A X, B "X").
    if (!table && !spelled.empty()) {
        table = tables.FindByAlias(spelled);
        if (TakenByOther(table, name))
            return nullptr;
        noteFoundByAlias(table, false);
    }
    // The name used as an alias finds a table a qualifier made, not one an earlier FROM entry
    // named otherwise (T2 WZB, WZB W: the second is a table of its own), nor one an earlier
    // entry of that name found by its alias merges (A1 E, A1 P in SELECT A1.X, E.Y).
    if (!table && !FNamedByAlias.count(name)) {
        TVdTableDef* byAlias = Untaken(tables.FindByAlias(name));
        if (byAlias && (byAlias->Name().empty() || byAlias->Name() == name)) {
            table = byAlias;
            FLentTables.emplace(name, table);
        }
    }
    if (!table) {
        TVdTableDef* byName = Untaken(tables.FindByName(name));
        if (byName && (byName->Alias().empty() || byName->Alias() == name))
            table = byName;
    }
    // Unqualified columns print qualified by the alias of the table that holds them: read
    // back, that entry is found by its alias.
    const bool holdsColumns = !table && !FUnqualified.empty();
    if (!table)
        table = UnnamedTable();
    if (!table) {
        table = AddTable(name, alias);
    } else {
        table->SetAlias(alias);
        if (table->Name().empty())
            table->SetName(name);
    }
    if (holdsColumns)
        noteFoundByAlias(table, true);
    return table;
}

// Of the entries found by their alias under one name, the one standing first among the
// tables takes the tables that name made. Read back, a print names them in that order, and
// the first found wins; FROM's order as written does not count (an entry holding copies of
// unqualified columns is found by its alias when FROM adds it, after those the select list
// names).
void TVdSelectParser::ClaimName(const std::string& name, TVdTableDef& entry)
{
    const auto [claim, added] = FNamedByAlias.emplace(name, &entry);
    if (!added && entry.Index() < claim->second->Index())
        claim->second = &entry;
}

// SELECT D., O.A FROM D O: the qualifier D made a table, and O another, and this entry is what
// both mean (D by the name used as an alias) when no other entry took D. Once FROM is read the
// two become the entry's table, standing where the first of them stood, each column keeping
// its place in the select list. Otherwise the print, which writes the expression's D as
// written and qualifies the columns with O, would read back with the tables in another order.
void TVdSelectParser::MergeQualifierTables()
{
    TVdTableDefs& tables = TableDefs();
    std::unordered_map<TVdTableDef*, TVdTableDef*> merged;
    for (const auto& [name, entry] : FNamedByAlias) {
        TVdTableDef* made = tables.FindByAlias(name);
        if (!made || made == entry || !made->Name().empty() || FFromTables.count(made) ||
            merged.count(made))
            continue;
        merged.emplace(made, entry);
        MoveFields(*made, *entry, false);
        // The entry takes the place of the table it emptied, which goes once all are merged:
        // the tables between keep their order.
        if (made->Index() < entry->Index())
            tables.Swap(made->Index(), entry->Index());
    }
    FNamedByAlias.clear();
    SettleMixedCalls(merged);
    std::vector<int> emptied;
    emptied.reserve(merged.size());
    for (const auto& pair : merged)
        emptied.push_back(pair.first->Index());
    tables.DeleteItems(std::move(emptied));
}

// merged: the tables MergeQualifierTables empties, with the table each became part of; the
// calls' tables are compared while all of them still stand.
void TVdSelectParser::SettleMixedCalls(const std::unordered_map<TVdTableDef*, TVdTableDef*>& merged)
{
    const auto settled = [&merged](TVdTableDef* table) {
        const auto it = merged.find(table);
        return it == merged.end() ? table : it->second;
    };
    for (const TMixedCall& call : FMixedCalls) {
        TVdTableDef* first = settled(call.Tables.front());
        const bool one = std::all_of(call.Tables.begin(), call.Tables.end(),
                                     [&](TVdTableDef* t) { return settled(t) == first; });
        if (one)
            FOneTableCalls.insert(call.Start);
    }
    FMixedCalls.clear();
}

// Moves the columns of from, or the arguments of its procedure call, to the end of to. The
// fields themselves move: each keeps its index in the select list.
void TVdSelectParser::MoveFields(TVdTableDef& from, TVdTableDef& to, bool arguments)
{
    TVdFieldDefs& fields = from.FieldDefs();
    std::vector<int> moved;
    for (int f = 0; f < fields.Count(); ++f)
        if (fields.Items(f)->IsInputParam() == arguments)
            moved.push_back(f);
    fields.TransferItems(std::move(moved), to.FieldDefs());
}

// The table the unqualified columns of the select list went to before FROM named any.
TVdTableDef* TVdSelectParser::UnnamedTable() const
{
    TVdTableDef* table = TableDefs().FindByAlias(std::string());
    return table && table->Name().empty() ? table : nullptr;
}

// A table FROM adds: the unqualified columns of the select list belong to it too.
TVdTableDef* TVdSelectParser::AddTable(const std::string& name, const std::string& alias,
                                       int position)
{
    TVdTableDef* table = position < 0 ? TableDefs().Add() : TableDefs().Insert(position);
    FAddedByFrom.insert(table);
    table->SetKeys(name, alias);
    for (const TUnqualified& column : FUnqualified)
        CopyField(*column.Field, column.HasAlias, column.Alias, *table, column.Place);
    return table;
}

// Where the table of an entry that gave a table back stands (-1: last). Read back, a print
// makes the tables its select list names first, in that order, then those only FROM names,
// in FROM's order. Where the select list has unqualified columns every table holds them, so
// the new table is the one the select list names last; otherwise it is one only FROM names,
// and stands before the first of them that FROM added after the entry.
int TVdSelectParser::TakenTablePosition(int entryAt) const
{
    if (!FUnqualified.empty())
        return -1;
    const TVdTableDefs& tables = TableDefs();
    for (int t = 0; t < tables.Count(); ++t) {
        const TVdTableDef* table = tables.Items(t);
        const auto entry = FFromTables.find(table);
        if (entry != FFromTables.end() && entry->second > entryAt && FAddedByFrom.count(table))
            return t;
    }
    return -1;
}

// SELECT T.A ... FROM T X, T: the qualifier T made a table that T X took by its name, yet
// it means a later entry that T names (T, or U T). Its columns print with the table's alias,
// but an expression prints T as written and read back named that later entry: the table goes
// to the later entry, and the one that took it becomes a table of its own, with the joins it
// owns.
TVdTableDef* TVdSelectParser::GiveBackLentTable(const std::string& name, const std::string& alias)
{
    TVdTableDef* table = TakeLentTable(alias);
    if (table)
        Unlend(*table, name, alias);
    return table;
}

// SELECT U.A ... FROM U X, U K: the qualifier U made a table that U X took by its name, but
// U K, found by its alias, stands for the tables made under its name (MergeQualifierTables),
// in whatever order FROM names the two. The table becomes the qualifier's again, and U X a
// table of its own.
void TVdSelectParser::ReclaimLentTable(const std::string& name)
{
    if (TVdTableDef* table = TakeLentTable(name))
        Unlend(*table, std::string(), name);
}

// The table an entry took by its name as an alias, where it is still that entry's.
TVdTableDef* TVdSelectParser::TakeLentTable(const std::string& key)
{
    const auto lent = FLentTables.find(key);
    if (lent == FLentTables.end())
        return nullptr;
    TVdTableDef* table = lent->second;
    FLentTables.erase(lent);
    if (table->Alias() == key || table->Alias() == table->Name())
        return nullptr;
    return table;
}

// The table takes the name and alias given; the entry that had it becomes a table of its own,
// with its name and alias as they were, the joins it wrote and its procedure call: its kind
// and its arguments. Keys are set, not renamed: the joins that name the table by its alias
// mean the entry that wrote it, so they do not follow the table, and the joins it owns go
// with the alias.
void TVdSelectParser::Unlend(TVdTableDef& table, const std::string& name, const std::string& alias)
{
    const std::string lenderName = table.Name();
    const std::string lenderAlias = table.Alias();
    table.SetKeys(name, alias);
    const auto lender = FFromTables.find(&table);
    const int lenderAt = lender != FFromTables.end() ? lender->second : 0;
    if (lender != FFromTables.end())
        FFromTables.erase(lender);
    TVdTableDef* taken = AddTable(lenderName, lenderAlias, TakenTablePosition(lenderAt));
    taken->JoinDefs().Assign(table.JoinDefs());
    table.JoinDefs().Clear();
    FFromTables.emplace(taken, lenderAt);
    if (table.TableType() != qttTable) {
        taken->SetTableType(table.TableType());
        table.SetTableType(qttTable);
        MoveFields(table, *taken, true);
    }
}

// Looks past "(...)" of a procedure call for an alias; returns it as model text, or nothing.
std::string TVdSelectParser::PeekAliasAfterParams()
{
    TVdSQLScanner& scanner = Scanner();
    const TVdSQLScanner::TState state = scanner.SaveState();
    std::string alias;
    int depth = 0;
    do {
        if (IsDelimToken('('))
            ++depth;
        else if (IsDelimToken(')'))
            --depth;
        Next();
    } while (depth > 0 && Kind() != tkEnd);
    if (depth == 0 && IsAliasToken() && !IsClauseToken())
        alias = AliasText();
    scanner.RestoreState(state);
    return alias;
}

void TVdSelectParser::DoParseTableDef()
{
    if (!IsNameKind())
        return Fail();
    // Where an entry that names a table another entry aliases is refused: at its name or alias.
    TVdSQLScanner::TState blame = Scanner().SaveState();
    const int entryAt = Scanner().TokenStart();
    // A qualified name (S.T, customer.db) is one table name; "" names no table.
    std::string name = NameText();
    if (name.empty())
        return Fail();
    // The parts kept in their quotes, held only once one differs from its plain text.
    std::string kept;
    bool keptSame = KeepsPlainPart(name, kept);
    Next();
    std::string keptPart;
    while (IsDelimToken('.')) {
        Next();
        if (!IsNameKind())
            return Fail();
        const std::string part = NameText();
        const bool partSame = KeepsPlainPart(part, keptPart);
        AppendKeptPart(kept, keptSame, name, partSame ? part : keptPart, partSame);
        name += '.';
        name += part;
        Next();
    }
    name = TableNameText(keptSame ? name : DottedNameText(name, kept));
    // What follows the name: an alias, "(" of a procedure call, or the end of this entry.
    const bool call = IsDelimToken('(');
    std::string alias;
    bool hasAlias = false;
    // FROM T AS X names the alias as FROM T X does.
    const bool as = !call && IsKeywordToken("AS");
    if (as)
        Next();
    if (call) {
        alias = PeekAliasAfterParams();
        hasAlias = !alias.empty();
    } else if (as ||
               (Kind() != tkEnd && !IsClauseToken() && !IsDelimToken(',') && !IsDelimToken(';'))) {
        if (!IsAliasToken() || (Kind() == tkKeyword && !Scanner().TokenQuoted()))
            return Fail();
        alias = AliasText();
        if (!QualifiesAsAlias(alias))
            return Fail();
        hasAlias = true;
        blame = Scanner().SaveState();
        Next();
    }
    TVdTableDef* table = ResolveTable(name, hasAlias ? &alias : nullptr);
    if (!table) {
        Scanner().RestoreState(blame);
        return Fail();
    }
    FFromTables.emplace(table, entryAt);
    FLastTable = table;
    FLastTableName = table->Name();
    FLastTableAlias = table->Alias();
    if (call) {
        DoParseProcParams();
        if (FState == ssError)
            return;
        if (hasAlias && !QualifiesAsAlias(alias))
            return Fail();
        if (hasAlias)
            Next();
    }
    if (Kind() != tkEnd && !IsClauseToken() && !IsDelimToken(','))
        Fail();
}

void TVdSelectParser::DoParseProcParams()
{
    TVdTableDefs& tables = TableDefs();
    // The entry just read, not the first of its name: FROM P(1) X, P(2) would give the first
    // entry the arguments of both, and print a call that reads otherwise.
    TVdTableDef* proc = FLastTable && FLastTable->Name() == FLastTableName
                            ? FLastTable
                            : tables.FindByName(FLastTableName);
    if (!proc)
        proc = tables.Add();
    proc->SetName(FLastTableName);
    proc->SetTableType(qttStoredProc);
    // A procedure joined twice prints its call at each join: the same arguments read again
    // are that call, not more arguments (which would double at every round trip).
    TVdFieldDefs& fields = proc->FieldDefs();
    std::vector<std::string> held;
    for (int i = 0; i < fields.Count(); ++i)
        if (fields.Items(i)->IsInputParam())
            held.push_back(fields.Items(i)->Name());
    const int first = fields.Count();
    const auto dropRepeatedCall = [&] {
        const int added = fields.Count() - first;
        if (held.empty() || added != int(held.size()))
            return;
        for (int i = 0; i < added; ++i)
            if (fields.Items(first + i)->Name() != held[size_t(i)])
                return;
        while (fields.Count() > first)
            fields.Delete(fields.Count() - 1);
    };
    Next(); // "("
    if (IsDelimToken(')'))
        return Fail(); // a call without arguments would print as a plain table
    for (;;) {
        if (Kind() == tkEnd)
            return Fail();
        TVdFieldDef* param = fields.Add();
        if (IsDelimToken(':'))
            Next();
        TVdTableDef* unused = nullptr;
        DoParseExpression(*param, unused, TTokenKinds(), std::string(), TVdExprContext::Parameter);
        if (FState == ssError)
            return;
        param->SetParamType(ptInput);
        if (IsDelimToken(')')) {
            Next();
            dropRepeatedCall();
            return;
        }
        if (!IsDelimToken(','))
            return Fail();
        Next();
    }
}

void TVdSelectParser::DoParseJoinDef()
{
    TVdJoinKind kind = vdjInnerJoin;
    // JOIN alone is an inner join, as in SQL; it prints as INNER JOIN.
    if (!IsKeywordToken("JOIN")) {
        if (IsWord("LEFT"))
            kind = vdjLOuterJoin;
        else if (IsWord("RIGHT"))
            kind = vdjROuterJoin;
        else if (IsWord("FULL"))
            kind = vdjFOuterJoin;
        Next();
        if (kind != vdjInnerJoin && IsKeywordToken("OUTER"))
            Next();
    }
    if (!IsKeywordToken("JOIN"))
        return Fail();
    if (!TableDefs().FindByAlias(FLastTableAlias))
        return Fail();
    Next();
    if (Kind() == tkKeyword)
        return Fail();
    const TVdSQLScanner::TState atJoined = Scanner().SaveState();
    DoParseTableDef();
    if (FState == ssError)
        return;
    if (!IsKeywordToken("ON"))
        return Fail();
    Next();
    TVdTableDef* joined = TableDefs().FindByAlias(FLastTableAlias);
    std::vector<TJoinCondition> conditions;
    if (!joined || !ReadJoinConditions(joined, conditions, 0))
        return Fail();
    for (const TJoinCondition& condition : conditions) {
        // A table that reaches the owner through its joins cannot be joined to it: FROM
        // prints the tables no join reaches, and of a ring of joins none.
        if (TableDefs().JoinsReach(*joined, *condition.Owner)) {
            Scanner().RestoreState(atJoined);
            return Fail();
        }
    }
    for (const TJoinCondition& condition : conditions)
        AddJoinCondition(condition, *joined, kind);
}

// A table joined from two tables prints its own joins after each: the same join read again is
// that join, not one more (which would double at every round trip).
void TVdSelectParser::AddJoinCondition(const TJoinCondition& condition, const TVdTableDef& joined,
                                       TVdJoinKind kind)
{
    const TVdJoinDefs& joins = condition.Owner->JoinDefs();
    for (int i = 0; i < joins.Count(); ++i) {
        const TVdJoinDef* held = joins.Items(i);
        if (held->FieldName == condition.OwnerField && held->JoinTable == joined.Alias() &&
            held->JoinField == condition.JoinedField && held->Operation == condition.Operation &&
            held->JoinKind == kind)
            return;
    }
    TVdJoinDef* join = condition.Owner->JoinDefs().Add();
    join->FieldName = condition.OwnerField;
    join->JoinTable = joined.Alias();
    join->JoinField = condition.JoinedField;
    join->Operation = condition.Operation;
    join->JoinKind = kind;
}

// ON c AND c ...: each c a comparison of a column of the joined table with a column of a
// table before it, or such a list in parentheses. OR and NOT have no place in the model.
bool TVdSelectParser::ReadJoinConditions(TVdTableDef* joined, std::vector<TJoinCondition>& out,
                                         int depth)
{
    // Parentheses nest no deeper than a person writes them.
    constexpr int MaxDepth = 32;
    for (;;) {
        if (IsDelimToken('(')) {
            if (depth == MaxDepth)
                return false;
            Next();
            if (!ReadJoinConditions(joined, out, depth + 1) || !IsDelimToken(')'))
                return false;
            Next();
        } else {
            TJoinCondition condition;
            if (!ReadJoinCondition(condition.Owner, condition.OwnerField, joined,
                                   condition.JoinedField, condition.Operation))
                return false;
            out.push_back(std::move(condition));
        }
        if (!IsKeywordToken("AND"))
            return true;
        Next();
    }
}

// A.X = B.Y: the pair before the comparison is the joined side when it names the joined
// table, the owning side otherwise; the pair after it fills the side still empty.
bool TVdSelectParser::ReadJoinCondition(TVdTableDef*& owner, std::string& ownerField,
                                        TVdTableDef* joined, std::string& joinedField,
                                        std::string& operation)
{
    int sides = 0;
    bool joinedFirst = false;
    while (sides < 2) {
        if (Kind() == tkEnd || (Kind() == tkKeyword && !Scanner().TokenQuoted()))
            break;
        if (Kind() == tkComparison) {
            operation += Token();
            Next();
            continue;
        }
        if (!IsNameKind() || !PeekIs("."))
            return false;
        // alias.field, or S.T.field for a table with a dotted name. An error names the
        // qualifier, so the scanner goes back to it.
        const TVdSQLScanner::TState atQualifier = Scanner().SaveState();
        auto refuse = [&] {
            Scanner().RestoreState(atQualifier);
            return false;
        };
        // The kept texts are held only where a quoted part's differs from its plain text;
        // without quotes the alias text is the name text.
        std::string qualifier = NameText();
        std::string keptQualifier;
        bool keptSame = KeepsPlainPart(qualifier, keptQualifier);
        TVdTableDef* table =
            FindTable(Scanner().TokenQuoted() ? AliasText() : qualifier, qualifier);
        Next();
        Next();
        if (!IsNameKind())
            return false;
        TVdSQLScanner::TState atField = Scanner().SaveState();
        std::string field = NameText();
        std::string keptField;
        bool fieldSame = KeepsPlainPart(field, keptField);
        Next();
        bool dotted = false;
        while (IsDelimToken('.')) {
            Next();
            if (!IsNameKind())
                return false;
            atField = Scanner().SaveState();
            AppendKeptPart(keptQualifier, keptSame, qualifier, fieldSame ? field : keptField,
                           fieldSame);
            qualifier += '.';
            qualifier += field;
            field = NameText();
            fieldSame = KeepsPlainPart(field, keptField);
            dotted = true;
            Next();
        }
        // The whole dotted name is looked up once it is read, not once per part.
        if (dotted) {
            qualifier =
                TableNameText(keptSame ? qualifier : DottedNameText(qualifier, keptQualifier));
            table = FindTable(qualifier, qualifier);
        }
        if (!table)
            return refuse();
        const bool joinedSide = sides == 0 ? table == joined : joinedField.empty();
        // The side after the owning one is the joined table's: a qualifier that names another
        // table (ON (A.X = B.Y) in A JOIN C) would print as the joined table's.
        if (joinedSide && table != joined)
            return refuse();
        // A join that would print nothing (ON (A.X = B."")) is refused at the field: an empty
        // field of the owning side, or a joined field of blanks and control characters only.
        if (joinedSide ? !text::HasText(field) : field.empty()) {
            Scanner().RestoreState(atField);
            return false;
        }
        if (joinedSide) {
            joinedField = field;
            joinedFirst = sides == 0;
        } else {
            // A join needs its owning table in FROM, not only named by a qualifier.
            if (table->Name().empty())
                return refuse();
            owner = table;
            ownerField = field;
        }
        ++sides;
    }
    if (sides != 2 || !owner || owner == joined || operation.empty())
        return false;
    // The join prints its owning side first: ON (U.K < T.ID) is ON (T.ID > U.K).
    return !joinedFirst || MirrorComparison(operation);
}

} // namespace vd
