#include "StatementGenerator.h"

#include <set>
#include <span>
#include <vector>

namespace vdtest {

GeneratorOptions GeneratorOptions::Typical() { return GeneratorOptions(); }

GeneratorOptions GeneratorOptions::Large()
{
    GeneratorOptions options;
    options.MinTables = options.MaxTables = 50;
    options.MinColumns = options.MaxColumns = 500;
    options.MinConditions = options.MaxConditions = 200;
    options.MaxDepth = 3;
    options.GroupByPercent = 100;
    options.HavingPercent = 100;
    options.OrderByPercent = 100;
    return options;
}

namespace {

struct TTable {
    std::string Source;    // name as written, with a procedure's arguments
    std::string Alias;     // empty when the table has none
    std::string Qualifier; // what fields are qualified with: the alias, else the name
    bool Named = false;    // the name may be used once only (no alias, keyword name)
    int Owner = -1;        // the table this one is joined from; -1 for a FROM entry
};

using TNameList = std::span<const char* const>;

// The names of one dialect. Blank and keyword names are listed without their quotes.
struct TNames {
    TNameList PlainTables, LowerTables, BlankTables, KeywordTables;
    TNameList PlainColumns, LowerColumns, BlankColumns, KeywordColumns;
};

const char* const PlainTables[] = {"CUSTOMERS", "ORDERS",     "ORDER_LINES",   "PRODUCTS",
                                   "EMPLOYEES", "WAREHOUSES", "PRODUCT_GROUPS"};
const char* const LowerTables[] = {"invoices", "stock", "suppliers"};
const char* const BlankTables[] = {"order items", "sales rep", "price list"};
const char* const KeywordTables[] = {"ORDER", "GROUP", "select", "From"};

const char* const PlainColumns[] = {"ID",          "NAME",       "AMOUNT",      "PRICE",
                                    "QTY",         "STATUS",     "CODE",        "CREATED_AT",
                                    "CUSTOMER_ID", "ORDER_DATE", "DESCRIPTION", "UNIT_PRICE"};
const char* const LowerColumns[] = {"total", "note", "city"};
// Names whose generated alias could not be read back where aliases print as written.
const char* const BlankColumns[] = {"unit price", "due date", "last name", "MY-COL"};
const char* const KeywordColumns[] = {"ORDER", "select", "FROM", "Desc"};

const TNames GenericNames = {PlainTables,  LowerTables,  BlankTables,  KeywordTables,
                             PlainColumns, LowerColumns, BlankColumns, KeywordColumns};

// InterBase and Firebird: "$" belongs to names; the clause words, keywords and function
// names of the server need quotes, and so does a quoted name in lower case. No column is
// named like an aggregate: the rebuilt GROUP BY leaves such a column out, and HAVING with it.
const char* const IBKeywordTables[] = {"ORDER", "GROUP", "select", "From", "ROWS", "FIRST", "DATE"};
const char* const IBPlainColumns[] = {
    "ID",         "NAME",        "AMOUNT",     "PRICE",       "QTY",        "STATUS",  "CODE",
    "CREATED_AT", "CUSTOMER_ID", "ORDER_DATE", "DESCRIPTION", "UNIT_PRICE", "ITEM$NO", "PRICE$EUR"};
const char* const IBLowerColumns[] = {"total", "note", "city", "line$no"};
const char* const IBKeywordColumns[] = {"ORDER", "select", "FROM",  "Desc",  "ROWS",
                                        "FIRST", "SKIP",   "TIES",  "VALUE", "PERCENT",
                                        "CAST",  "UPPER",  "lower", "Mixed"};

const TNames IBNames = {PlainTables,    LowerTables,    BlankTables,  IBKeywordTables,
                        IBPlainColumns, IBLowerColumns, BlankColumns, IBKeywordColumns};
// Dialect 1 has no quoted names; a table name with blanks is written as a string.
const TNames IBDialect1Names = {PlainTables,    LowerTables,    BlankTables, {},
                                IBPlainColumns, IBLowerColumns, {},          {}};

// MySQL: STATUS is a keyword there, LEFT a function name; the words of the statement head
// and LIMIT are quoted names too.
const char* const MyBlankTables[] = {"order items", "sales rep", "price list", "o'brien"};
const char* const MyKeywordTables[] = {"ORDER", "GROUP",  "select", "From",
                                       "LIMIT", "STATUS", "LEFT"};
const char* const MyPlainColumns[] = {"ID",         "NAME",        "AMOUNT",     "PRICE",
                                      "QTY",        "CODE",        "CREATED_AT", "CUSTOMER_ID",
                                      "ORDER_DATE", "DESCRIPTION", "UNIT_PRICE"};
const char* const MyBlankColumns[] = {"unit price", "due date", "last name", "MY-COL", "it's"};
const char* const MyKeywordColumns[] = {
    "ORDER",         "select", "FROM",        "Desc",
    "STATUS",        "LIMIT",  "DISTINCTROW", "SQL_BUFFER_RESULT",
    "STRAIGHT_JOIN", "ALL",    "LEFT",        "CONCAT"};

const TNames MyNames = {PlainTables,    LowerTables,  MyBlankTables,  MyKeywordTables,
                        MyPlainColumns, LowerColumns, MyBlankColumns, MyKeywordColumns};

// String literals besides numbers. MySQL keeps backslash escapes; a double-quoted text is a
// string there and in InterBase dialect 1.
const char* const IBLiterals[] = {"'abc'", "'it''s'", "'A%'", "'x\"y'"};
const char* const IBDialect1Literals[] = {"'abc'",    "'it''s'",    "\"x y\"",
                                          "\"it's\"", "\"a\"\"b\"", "'say \"hi\"'"};
const char* const MyLiterals[] = {"'abc'",        "'it\\'s'",        "'a''b'",
                                  "\"x\\\"y\"",   "\"it's\"",        "\"a\"\"b\"",
                                  "'tab\\there'", "'back\\\\slash'", "'say \"hi\"'"};

const char* const MySelectOptions[] = {"STRAIGHT_JOIN", "SQL_SMALL_RESULT", "SQL_BIG_RESULT",
                                       "SQL_BUFFER_RESULT", "HIGH_PRIORITY"};
const char* const MyFilters[] = {"DISTINCT", "DISTINCTROW", "ALL"};

const char* const Aggregates[] = {"SUM", "MIN", "MAX", "AVG", "COUNT"};

template <size_t N> constexpr int Count(const char* const (&)[N]) { return int(N); }

class TGenerator
{
public:
    TGenerator(std::mt19937& rng, const GeneratorOptions& options) : R(rng), O(options) {}

    std::string Statement();

private:
    int Pick(int n) { return n <= 1 ? 0 : int(R() % unsigned(n)); }
    int Range(int lo, int hi) { return hi <= lo ? lo : lo + Pick(hi - lo + 1); }
    bool Chance(int percent) { return Pick(100) < percent; }
    template <size_t N> const char* Any(const char* const (&list)[N]) { return list[Pick(int(N))]; }
    const char* Any(TNameList list) { return list[size_t(Pick(int(list.size())))]; }

    std::string Kw(const std::string& word);
    std::string Fn(const std::string& name) const;
    std::string Space() { return O.LineBreaks && Chance(40) ? "\r\n" : " "; }

    bool IsIB() const
    {
        return O.Dialect == TGeneratorDialect::InterBase ||
               O.Dialect == TGeneratorDialect::Firebird;
    }
    bool IsDialect1() const { return IsIB() && O.SqlDialect == 1; }
    // Where aliases go through the quoting of names, a generated alias with a blank reads back.
    bool AliasesQuoted() const { return O.Dialect != TGeneratorDialect::Generic; }
    const TNames& Names() const;
    std::string Quote(const std::string& name) const;
    std::string MaybeLower(const char* name);
    std::string Number();
    std::string FieldAlias(int item);
    std::string Head();
    std::string Tail();

    void MakeTables();
    std::string Column(bool selectList);
    std::string ColumnRef(int table, bool selectList);
    std::string AnyColumnRef(bool selectList);
    std::string SelectList();
    std::string FromClause();
    std::string Comparison(bool having);
    std::string ListText(int count, int depth, bool top, bool allowOr, bool having);
    std::string Condition(int count, bool having);
    std::string Literal();

    std::mt19937& R;
    const GeneratorOptions& O;
    std::vector<TTable> Tables;
    std::set<std::string> UsedNames;
    std::set<std::string> UsedBlankColumns;
    std::vector<std::string> IdentifierFields; // column references of the select list
    bool HasStar = false;
    std::vector<std::string> StarItems; // T.* of the select list, which GROUP BY names too
    bool HasAggregate = false;
    bool Single = false;
    int AliasCounter = 0;
};

std::string TGenerator::Kw(const std::string& word)
{
    if (!O.MixedKeywordCase)
        return word;
    std::string result = word;
    switch (Pick(4)) {
    case 1:
        for (char& c : result)
            if (c >= 'A' && c <= 'Z')
                c = char(c - 'A' + 'a');
        break;
    case 2:
        for (size_t i = 1; i < result.size(); ++i)
            if (result[i - 1] != ' ' && result[i] >= 'A' && result[i] <= 'Z')
                result[i] = char(result[i] - 'A' + 'a');
        break;
    default:
        break;
    }
    return result;
}

std::string TGenerator::Fn(const std::string& name) const
{
    std::string result = name;
    if (O.FunctionCase == TFunctionCase::Upper)
        return result;
    for (size_t i = 0; i < result.size(); ++i) {
        const bool first =
            O.FunctionCase == TFunctionCase::FirstUpper && (i == 0 || result[i - 1] == '_');
        if (!first && result[i] >= 'A' && result[i] <= 'Z')
            result[i] = char(result[i] - 'A' + 'a');
    }
    return result;
}

void TGenerator::MakeTables()
{
    const int count = Range(O.MinTables, O.MaxTables);
    Single = count == 1;
    int root = 0;
    bool chain = false;
    for (int i = 0; i < count; ++i) {
        TTable table;
        bool aliased = Chance(O.AliasPercent);
        std::string name;
        if (Chance(O.ProcedurePercent)) {
            name = "PROC_" + std::to_string(i);
            switch (Pick(3)) {
            case 0:
                table.Source = name + "(:P" + std::to_string(i) + ")";
                break;
            case 1:
                table.Source = name + "(:P" + std::to_string(i) + ", " + Literal() + ")";
                break;
            default:
                table.Source = name + "(" + std::to_string(Pick(100)) + ", 'x')";
                break;
            }
        } else {
            // A self join: the same table once more; both occurrences need their aliases.
            std::vector<int> aliasedTables;
            for (int t = 0; t < int(Tables.size()); ++t)
                if (!Tables[size_t(t)].Alias.empty() &&
                    Tables[size_t(t)].Source.find('(') == std::string::npos)
                    aliasedTables.push_back(t);
            if (!aliasedTables.empty() && Chance(12)) {
                name =
                    Tables[size_t(aliasedTables[size_t(Pick(int(aliasedTables.size())))])].Source;
                aliased = true;
            } else {
                const int style = O.ExoticNames ? Pick(10) : 0;
                const std::string suffix = "_" + std::to_string(i);
                const TNames& names = Names();
                if (style == 7)
                    name = std::string(Any(names.LowerTables)) + suffix;
                else if (style == 8 && IsDialect1() && aliased)
                    // A string names the table; it is folded to upper case with underscores.
                    name =
                        "\"" + std::string(Any(names.BlankTables)) + " " + std::to_string(i) + "\"";
                else if (style == 8 && !IsDialect1())
                    name = Quote(std::string(Any(names.BlankTables)) + " " + std::to_string(i));
                else if (style == 9 && !names.KeywordTables.empty())
                    name = Quote(Any(names.KeywordTables));
                else
                    name = MaybeLower(Any(names.PlainTables)) + suffix;
                if (UsedNames.count(name))
                    name = std::string(PlainTables[0]) + suffix;
            }
            table.Source = name;
        }
        if (!aliased && UsedNames.count(name))
            aliased = true;
        UsedNames.insert(name);
        if (aliased) {
            table.Alias = (Chance(80) ? "A" : "a") + std::to_string(++AliasCounter);
            table.Qualifier = table.Alias;
        } else {
            table.Qualifier = name;
        }
        // Joins are written in the order they print: a chain (each joined from the one
        // before) or a star (all joined from the FROM entry).
        if (i > 0 && Chance(O.JoinPercent)) {
            table.Owner = chain ? i - 1 : root;
        } else {
            root = i;
            chain = Chance(50);
        }
        Tables.push_back(table);
    }
}

std::string TGenerator::Column(bool selectList)
{
    const TNames& names = Names();
    const int style = O.ExoticNames ? Pick(12) : 0;
    if (style == 9)
        return Any(names.LowerColumns);
    if (style == 10 && !names.BlankColumns.empty()) {
        const std::string name = Quote(Any(names.BlankColumns));
        // A second field of that name would get an alias with a blank, which prints as
        // written and cannot be read back: keep such names once in the select list.
        if (!selectList || AliasesQuoted() || UsedBlankColumns.insert(name).second)
            return name;
        return names.PlainColumns[0];
    }
    if (style == 11 && !names.KeywordColumns.empty())
        return Quote(Any(names.KeywordColumns));
    return MaybeLower(Any(names.PlainColumns));
}

std::string TGenerator::ColumnRef(int table, bool selectList)
{
    return Tables[size_t(table)].Qualifier + "." + Column(selectList);
}

std::string TGenerator::AnyColumnRef(bool selectList)
{
    if (Single && !selectList && Chance(30))
        return Column(false);
    return ColumnRef(Pick(int(Tables.size())), selectList);
}

std::string TGenerator::Literal()
{
    if (O.Dialect != TGeneratorDialect::Generic) {
        const TNameList literals = O.Dialect == TGeneratorDialect::MySQL ? TNameList(MyLiterals)
                                   : IsDialect1() ? TNameList(IBDialect1Literals)
                                                  : TNameList(IBLiterals);
        // Half strings, half numbers.
        const int pick = Pick(2 * int(literals.size()));
        if (pick < int(literals.size()))
            return literals[size_t(pick)];
        return std::to_string(Pick(1000));
    }
    switch (Pick(6)) {
    case 0:
        return "'abc'";
    case 1:
        return "'it''s'";
    case 2:
        return "'A%'";
    default:
        return std::to_string(Pick(1000));
    }
}

std::string TGenerator::SelectList()
{
    const int count = Range(O.MinColumns, O.MaxColumns);
    // The tables the list names must be the first ones of FROM, named in FROM order:
    // the parser makes a table for each qualifier it meets.
    const int named = Range(1, int(Tables.size()));
    std::vector<int> order(static_cast<size_t>(count));
    for (int& t : order)
        t = Pick(named);
    std::vector<int> remap(static_cast<size_t>(named), -1);
    int next = 0;
    for (int& t : order) {
        if (remap[size_t(t)] < 0)
            remap[size_t(t)] = next++;
        t = remap[size_t(t)];
    }
    // A single unaliased table can take unqualified fields.
    const bool unqualified = Single && Tables[0].Alias.empty() && Chance(50);
    std::string result;
    for (int i = 0; i < count; ++i) {
        const int t = order[size_t(i)];
        const std::string q = unqualified ? std::string() : Tables[size_t(t)].Qualifier + ".";
        std::string item;
        // An unqualified expression prints without a table; standing first it would make
        // the parser open an anonymous table when the text is read back.
        const int kind = (unqualified && i == 0) ? 0 : Pick(100);
        if (kind < 50) {
            item = q + Column(true);
            IdentifierFields.push_back(item);
        } else if (kind < 60) {
            const std::string ref = q + Column(true);
            item = ref + " " + Kw("AS") + " " + FieldAlias(i);
            IdentifierFields.push_back(ref);
        } else if (kind < 80) {
            item = Fn(Any(Aggregates)) + "(" + q + Column(true) + ")";
            if (Chance(30))
                item += " " + Kw("AS") + " " + FieldAlias(i);
            HasAggregate = true;
        } else if (kind < 90) {
            item = q + Column(true) + (Chance(50) ? " + " : " * ") + std::to_string(Pick(10));
        } else if (kind < 94 && !unqualified && !HasStar) {
            // A second star would be aliased *1, which cannot be read back.
            item = q + "*";
            HasStar = true;
            StarItems.push_back(item);
        } else if (Single) {
            // Unqualified items would go to every table of a query with several tables.
            if (Chance(50)) {
                item = Fn("COUNT") + "(*)";
                HasAggregate = true;
            } else if (O.Dialect != TGeneratorDialect::Generic && Chance(50)) {
                item = Literal();
            } else {
                item = std::to_string(Pick(100));
            }
        } else {
            item = q + Column(true);
            IdentifierFields.push_back(item);
        }
        if (i)
            result += O.LineBreaks && Chance(20) ? ",\r\n  " : ", ";
        result += item;
    }
    return result;
}

std::string TGenerator::FromClause()
{
    static const char* const JoinWords[] = {"INNER JOIN",     "LEFT JOIN",        "LEFT OUTER JOIN",
                                            "RIGHT JOIN",     "RIGHT OUTER JOIN", "FULL JOIN",
                                            "FULL OUTER JOIN"};
    static const char* const JoinOperations[] = {"=", "=", "=", "=", "<>", ">=", "<="};
    std::string result;
    for (size_t i = 0; i < Tables.size(); ++i) {
        const TTable& table = Tables[i];
        std::string source = table.Source;
        if (!table.Alias.empty())
            source += " " + table.Alias;
        if (table.Owner < 0) {
            if (i)
                result += O.LineBreaks && Chance(30) ? ",\r\n  " : ", ";
            result += source;
            continue;
        }
        const TTable& owner = Tables[size_t(table.Owner)];
        std::string left = owner.Qualifier + "." + Column(false);
        std::string right = table.Qualifier + "." + Column(false);
        if (Chance(50))
            std::swap(left, right);
        result += Space() + Kw(Any(JoinWords)) + " " + source + " " + Kw("ON") + " (" + left + " " +
                  Any(JoinOperations) + " " + right + ")";
    }
    return result;
}

std::string TGenerator::Comparison(bool having)
{
    std::string left;
    if (having)
        left = Chance(20) ? Fn("COUNT") + "(*)"
                          : Fn(Any(Aggregates)) + "(" + AnyColumnRef(false) + ")";
    else
        left = AnyColumnRef(false);
    static const char* const Compare[] = {"=", "<>", "<", ">", "<=", ">="};
    switch (Pick(14)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5: {
        const char* op = Any(Compare);
        const std::string right = Chance(30) ? AnyColumnRef(false) : Literal();
        // Blanks around a comparison are optional.
        return Chance(20) ? left + op + right : left + " " + op + " " + right;
    }
    case 6:
        if (O.Dialect != TGeneratorDialect::Generic && Chance(50))
            return left + " " + Kw("LIKE") + " " + Literal();
        return left + " " + Kw("LIKE") + " 'A%'";
    case 7:
        return left + " " + Kw("NOT LIKE") + " '%z'";
    case 8:
        return left + " " + Kw("IN") + " (1, 2, 3)";
    case 9:
        // The list is kept as written, the dialect's string quotes and escapes included.
        if (O.Dialect != TGeneratorDialect::Generic && Chance(50))
            return left + " " + Kw("NOT IN") + " (" + Literal() + ", " + Literal() + ")";
        return left + " " + Kw("NOT IN") + " ('a','b')";
    case 10:
        return left + " " + Kw("BETWEEN") + " 1 " + Kw("AND") + " " + std::to_string(Pick(100));
    case 11:
        if (O.Dialect != TGeneratorDialect::Generic && Chance(50))
            return left + " " + Kw("NOT BETWEEN") + " " + Literal() + " " + Kw("AND") + " " +
                   Literal();
        return left + " " + Kw("NOT BETWEEN") + " 'a' " + Kw("AND") + " 'm'";
    case 12:
        return left + " " + Kw("IS NULL");
    default:
        return left + " " + Kw("IS NOT NULL");
    }
}

// The items of one list, joined by one connector, NOT over them when chosen. A group that
// stands third or later in its list must not change its connector: allowOr is false there.
std::string TGenerator::ListText(int count, int depth, bool top, bool allowOr, bool having)
{
    std::vector<int> sizes;
    for (int remaining = count; remaining > 0;) {
        int size = 1;
        if (depth < O.MaxDepth && remaining > 1 && Chance(30))
            size = Range(1, remaining < 8 ? remaining : 8);
        sizes.push_back(size);
        remaining -= size;
    }
    const bool negated = Chance(15);
    const std::string connector = " " + Kw(allowOr && Chance(50) ? "OR" : "AND") + " ";
    std::string result;
    for (size_t j = 0; j < sizes.size(); ++j) {
        if (j)
            result += connector + (O.LineBreaks && Chance(30) ? "\r\n  " : "");
        if (sizes[j] > 1 || (depth < O.MaxDepth && Chance(10))) {
            // A group: its own parentheses around its items.
            result += "(" + ListText(sizes[j], depth + 1, false, j < 2, having) + ")";
        } else if (top && !negated && Chance(40)) {
            result += Comparison(having);
        } else {
            result += "(" + Comparison(having) + ")";
        }
    }
    if (negated)
        result = Kw("NOT") + " (" + result + ")";
    return result;
}

std::string TGenerator::Condition(int count, bool having)
{
    return ListText(count, 0, true, true, having);
}

std::string TGenerator::Statement()
{
    MakeTables();
    std::string text = Kw("SELECT") + " ";
    text += Head();
    if (Chance(O.DistinctPercent))
        text += Kw(O.Dialect == TGeneratorDialect::MySQL ? Any(MyFilters) : "DISTINCT") + " ";
    text += SelectList();
    text += Space() + Kw("FROM") + " " + FromClause();
    const int conditions = Range(O.MinConditions, O.MaxConditions);
    if (conditions > 0)
        text += Space() + Kw("WHERE") + " " + Condition(conditions, false);
    // GROUP BY names every plain column beside the aggregates (the print's derived list),
    // T.* included; HAVING stands only under a GROUP BY.
    if (HasAggregate && (HasStar || !IdentifierFields.empty()) && Chance(O.GroupByPercent)) {
        text += Space() + Kw("GROUP") + " " + Kw("BY") + " ";
        std::set<std::string> seen;
        if (IdentifierFields.empty())
            IdentifierFields.push_back(Tables[0].Qualifier + "." + PlainColumns[0]);
        bool first = true;
        std::vector<std::string> grouped = IdentifierFields;
        grouped.insert(grouped.end(), StarItems.begin(), StarItems.end());
        for (const std::string& field : grouped) {
            if (!seen.insert(field).second)
                continue;
            text += (first ? "" : ", ") + field;
            first = false;
        }
        if (Chance(O.HavingPercent))
            text +=
                Space() + Kw("HAVING") + " " + Condition(Range(1, 2 + O.MaxConditions / 4), true);
    }
    if (Chance(O.OrderByPercent)) {
        text += Space() + Kw("ORDER") + " " + Kw("BY") + " ";
        const int count = Range(1, 3);
        for (int i = 0; i < count; ++i) {
            if (i)
                text += ", ";
            text += AnyColumnRef(false);
            const int direction = Pick(3);
            if (direction == 1)
                text += " " + Kw("ASC");
            else if (direction == 2)
                text += " " + Kw("DESC");
        }
    }
    return text + Tail();
}

const TNames& TGenerator::Names() const
{
    switch (O.Dialect) {
    case TGeneratorDialect::Generic:
        break;
    case TGeneratorDialect::InterBase:
    case TGeneratorDialect::Firebird:
        return IsDialect1() ? IBDialect1Names : IBNames;
    case TGeneratorDialect::MySQL:
        return MyNames;
    }
    return GenericNames;
}

std::string TGenerator::Quote(const std::string& name) const
{
    const char quote = O.Dialect == TGeneratorDialect::MySQL ? '`' : '"';
    return quote + name + quote;
}

// InterBase reads an unquoted name in upper case, so it may be written in lower case.
std::string TGenerator::MaybeLower(const char* name)
{
    std::string result = name;
    if (IsIB() && Chance(25))
        for (char& c : result)
            if (c >= 'A' && c <= 'Z')
                c = char(c - 'A' + 'a');
    return result;
}

// Where aliases go through the quoting of names, an alias may be a quoted name with a blank.
std::string TGenerator::FieldAlias(int item)
{
    if (AliasesQuoted() && !IsDialect1() && Chance(25))
        return Quote("al " + std::to_string(item));
    return "AL" + std::to_string(item);
}

// A row count or offset: mostly small, sometimes 0, sometimes up to the largest 32-bit value.
std::string TGenerator::Number()
{
    switch (Pick(20)) {
    case 0:
        return "0";
    case 1:
        return "2147483647";
    case 2:
        return std::to_string(R() % 2147483648u);
    default:
        return std::to_string(Range(1, 100));
    }
}

// The dialect's words between SELECT and the filter: Firebird's FIRST and SKIP (each
// optional, FIRST first), MySQL's select options (each at most once, in any order).
std::string TGenerator::Head()
{
    std::string result;
    if (O.Dialect == TGeneratorDialect::Firebird) {
        if (Chance(O.DialectClausePercent))
            result += Kw("FIRST") + Space() + Number() + Space();
        if (Chance(O.DialectClausePercent / 2))
            result += Kw("SKIP") + Space() + Number() + Space();
    } else if (O.Dialect == TGeneratorDialect::MySQL && Chance(O.DialectClausePercent / 2)) {
        std::vector<const char*> options;
        for (const char* option : MySelectOptions)
            if (Chance(40))
                options.push_back(option);
        for (size_t i = options.size(); i > 1; --i)
            std::swap(options[i - 1], options[size_t(Pick(int(i)))]);
        for (const char* option : options)
            result += Kw(option) + Space();
    }
    return result;
}

// The dialect's clause after the statement: InterBase's ROWS with any of its optional parts
// in their order, MySQL's LIMIT in either form.
std::string TGenerator::Tail()
{
    if (O.Dialect == TGeneratorDialect::InterBase && Chance(O.DialectClausePercent)) {
        const int parts = Pick(16);
        // ROWS 0 would print nothing once neither TO nor BY is above 0, losing PERCENT and
        // WITH TIES: the first number is at least 1.
        std::string number = Number();
        if (number == "0")
            number = "1";
        std::string result = Space() + Kw("ROWS") + " " + number;
        if (parts & 1)
            result += Space() + Kw("TO") + " " + Number();
        if (parts & 2)
            result += Space() + Kw("BY") + " " + Number();
        if (parts & 4)
            result += Space() + Kw("PERCENT");
        if (parts & 8)
            result += Space() + Kw("WITH") + Space() + Kw("TIES");
        return result;
    }
    if (O.Dialect == TGeneratorDialect::MySQL && Chance(O.DialectClausePercent)) {
        std::string result = Space() + Kw("LIMIT") + " " + Number();
        if (Chance(50))
            result += (Chance(50) ? ", " : " ,") + Number();
        return result;
    }
    return std::string();
}

} // namespace

std::string GenerateStatement(std::mt19937& rng, const GeneratorOptions& options)
{
    TGenerator generator(rng, options);
    return generator.Statement();
}

} // namespace vdtest
