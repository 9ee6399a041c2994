#include "tests/meaning/MeaningStatement.h"

#include "core/VdText.h"

#include <algorithm>
#include <cctype>

namespace vdmeaning {

namespace {

class TRenderer
{
public:
    explicit TRenderer(const TStatement& statement) : S(statement) {}

    std::string Statement() const;
    std::string Expr(const TExpr& expr) const;
    std::string Cond(const TCond& cond, int required) const;

private:
    std::string Kw(const std::string& word) const;
    std::string Name(const std::string& name) const;
    std::string Ref(int entry) const;
    std::string Compare(const TCond& cond) const;
    std::string From() const;
    std::string Order(const TOrder& order) const;

    const TStatement& S;
};

std::string TRenderer::Kw(const std::string& word) const
{
    if (!S.LowerKeywords)
        return word;
    std::string lower = word;
    for (char& c : lower)
        c = char(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

std::string TRenderer::Name(const std::string& name) const
{
    if (!S.QuoteNames)
        return name;
    const char quote = S.Dialect == TDialect::MySQL ? '`' : '"';
    return quote + name + quote;
}

std::string TRenderer::Ref(int entry) const
{
    const TEntry& e = S.From[size_t(entry)];
    return Name(e.Alias.empty() ? Tables()[size_t(e.Table)].Name : e.Alias);
}

std::string TRenderer::Expr(const TExpr& expr) const
{
    switch (expr.Kind) {
    case TExpr::eColumn: {
        const std::string column = Name(
            Tables()[size_t(S.From[size_t(expr.Entry)].Table)].Columns[size_t(expr.Column)].Name);
        return S.From.size() == 1 && !S.Qualify ? column : Ref(expr.Entry) + "." + column;
    }
    case TExpr::eInteger:
    case TExpr::eReal:
        return expr.Text;
    case TExpr::eString:
        return vd::text::QuotedStr(expr.Text, '\'');
    case TExpr::eArith:
        return Expr(expr.Args[0]) + " " + expr.Text + " " + Expr(expr.Args[1]);
    case TExpr::eFunc:
    case TExpr::eAggregate: {
        std::string text = Kw(expr.Text) + "(";
        for (size_t i = 0; i < expr.Args.size(); ++i)
            text += (i ? ", " : "") + Expr(expr.Args[i]);
        return text + ")";
    }
    case TExpr::eStar:
        return "*";
    }
    return "";
}

std::string TRenderer::Compare(const TCond& cond) const
{
    const std::string left = Expr(cond.Left) + " " + Kw(cond.Op);
    if (cond.Op == "IS NULL" || cond.Op == "IS NOT NULL")
        return left;
    if (cond.Op == "IN" || cond.Op == "NOT IN") {
        std::string list;
        for (size_t i = 0; i < cond.Right.size(); ++i)
            list += (i ? ", " : "") + Expr(cond.Right[i]);
        return left + " (" + list + ")";
    }
    if (cond.Op == "BETWEEN" || cond.Op == "NOT BETWEEN")
        return left + " " + Expr(cond.Right[0]) + " " + Kw("AND") + " " + Expr(cond.Right[1]);
    return left + " " + Expr(cond.Right[0]);
}

// Precedence: OR 1, AND 2, NOT 3, a comparison 4 (5 requires parentheses). A node is parenthesised
// when it binds less tightly than its place requires, plus the parentheses the writer added anyway.
std::string TRenderer::Cond(const TCond& cond, int required) const
{
    std::string text;
    int precedence = 4;
    switch (cond.Kind) {
    case TCond::Compare:
        text = Compare(cond);
        break;
    case TCond::Not:
        precedence = 3;
        // Firebird reads NOT A = 1 as (NOT A) = 1: its writers put the comparison in
        // parentheses.
        text = Kw("NOT") + " " + Cond(cond.Kids[0], S.Dialect == TDialect::Firebird ? 5 : 3);
        break;
    case TCond::And:
    case TCond::Or: {
        precedence = cond.Kind == TCond::And ? 2 : 1;
        const std::string connector = Kw(cond.Kind == TCond::And ? " AND " : " OR ");
        for (size_t i = 0; i < cond.Kids.size(); ++i)
            text += (i ? connector : "") + Cond(cond.Kids[i], precedence);
        break;
    }
    }
    const int parens = (precedence < required ? 1 : 0) + cond.ExtraParens;
    return std::string(size_t(parens), '(') + text + std::string(size_t(parens), ')');
}

std::string TRenderer::From() const
{
    std::string text;
    for (size_t i = 0; i < S.From.size(); ++i) {
        const TEntry& entry = S.From[i];
        std::string table = Name(Tables()[size_t(entry.Table)].Name);
        if (!entry.Alias.empty())
            table += " " + Name(entry.Alias);
        if (i == 0) {
            text = table;
            continue;
        }
        const TJoin& join = S.Joins[i - 1];
        if (join.Kind == TJoin::Comma) {
            text += ", " + table;
            continue;
        }
        static const char* const kinds[] = {"", "INNER", "LEFT", "RIGHT", "FULL"};
        std::string kind = kinds[join.Kind];
        if (join.Kind != TJoin::Inner && join.OuterWord)
            kind += " OUTER";
        const std::string joinWord = join.Kind == TJoin::Inner && !join.OuterWord
                                         ? "JOIN" // INNER left out
                                         : kind + " JOIN";
        TExpr left{TExpr::eColumn, join.LeftEntry, join.LeftColumn, "", {}};
        TExpr right{TExpr::eColumn, join.RightEntry, join.RightColumn, "", {}};
        std::string on = Expr(left) + " = " + Expr(right);
        if (!join.ExtraOp.empty())
            on += " " + Kw("AND") + " " +
                  (join.ExtraSwapped ? Expr(right) + " " + join.ExtraOp + " " + Expr(left)
                                     : Expr(left) + " " + join.ExtraOp + " " + Expr(right));
        if (join.Parens)
            on = "(" + on + ")";
        text += " " + Kw(joinWord) + " " + table + " " + Kw("ON") + " " + on;
    }
    return text;
}

std::string TRenderer::Order(const TOrder& order) const
{
    std::string text;
    switch (order.Kind) {
    case TOrder::oExpr:
        text = Expr(order.Value);
        break;
    case TOrder::oPosition:
        text = std::to_string(order.Position);
        break;
    case TOrder::oAlias:
        text = Name(order.Alias);
        break;
    }
    if (order.Dir == TOrder::Asc)
        text += " " + Kw("ASC");
    else if (order.Dir == TOrder::Desc)
        text += " " + Kw("DESC");
    return text;
}

std::string TRenderer::Statement() const
{
    std::string text = Kw("SELECT") + " ";
    if (S.Distinct)
        text += Kw("DISTINCT") + " ";
    if (S.Star || S.Items.empty())
        text += "*";
    for (size_t i = 0; i < S.Items.size() && !S.Star; ++i) {
        text += (i ? ", " : "") + Expr(S.Items[i].Expr);
        if (!S.Items[i].Alias.empty())
            text += " " + Kw("AS") + " " + Name(S.Items[i].Alias);
    }
    text += " " + Kw("FROM") + " " + From();
    if (S.HasWhere)
        text += " " + Kw("WHERE") + " " + Cond(S.Where, 0);
    if (!S.GroupBy.empty()) {
        text += " " + Kw("GROUP BY") + " ";
        for (size_t i = 0; i < S.GroupBy.size(); ++i)
            text += (i ? ", " : "") + Expr(S.GroupBy[i]);
    }
    if (S.HasHaving && !S.GroupBy.empty())
        text += " " + Kw("HAVING") + " " + Cond(S.Having, 0);
    if (!S.OrderBy.empty()) {
        text += " " + Kw("ORDER BY") + " ";
        for (size_t i = 0; i < S.OrderBy.size(); ++i)
            text += (i ? ", " : "") + Order(S.OrderBy[i]);
    }
    return text;
}

bool HasAggregate(const TExpr& expr)
{
    if (expr.Kind == TExpr::eAggregate)
        return true;
    return std::any_of(expr.Args.begin(), expr.Args.end(), HasAggregate);
}

// The result column an ORDER BY item sorts by, or -1 when it names none.
int ResultColumn(const TStatement& s, const TOrder& order)
{
    if (s.Star)
        return -1;
    switch (order.Kind) {
    case TOrder::oPosition:
        return order.Position >= 1 && order.Position <= int(s.Items.size()) ? order.Position - 1
                                                                            : -1;
    case TOrder::oAlias:
        for (size_t i = 0; i < s.Items.size(); ++i)
            if (s.Items[i].Alias == order.Alias)
                return int(i);
        return -1;
    case TOrder::oExpr:
        for (size_t i = 0; i < s.Items.size(); ++i)
            if (s.Items[i].Expr == order.Value)
                return int(i);
        return -1;
    }
    return -1;
}

bool SortsEveryRow(const TStatement& s)
{
    if (!s.GroupBy.empty())
        return std::all_of(s.GroupBy.begin(), s.GroupBy.end(),
                           [&](const TExpr& e) { return Sorts(s, e); });
    if (IsAggregateQuery(s))
        return true; // one row
    if (s.Distinct && !s.Star)
        return std::all_of(s.Items.begin(), s.Items.end(),
                           [&](const TItem& item) { return Sorts(s, item.Expr); });
    // The keys of all tables tell the rows of a join apart, NULLs of outer joins included.
    for (size_t entry = 0; entry < s.From.size(); ++entry)
        if (!Sorts(s, TExpr{TExpr::eColumn, int(entry), 0, "", {}}))
            return false;
    return true;
}

} // namespace

const TExpr* SortedExpr(const TStatement& s, const TOrder& order)
{
    if (order.Kind == TOrder::oExpr)
        return &order.Value;
    const int column = ResultColumn(s, order);
    return column < 0 ? nullptr : &s.Items[size_t(column)].Expr;
}

bool Sorts(const TStatement& s, const TExpr& expr)
{
    return std::any_of(s.OrderBy.begin(), s.OrderBy.end(), [&](const TOrder& order) {
        const TExpr* sorted = SortedExpr(s, order);
        return sorted && *sorted == expr;
    });
}

std::string Render(const TStatement& statement) { return TRenderer(statement).Statement(); }

bool IsAggregateQuery(const TStatement& statement)
{
    if (!statement.GroupBy.empty())
        return true;
    return !statement.Star &&
           std::any_of(statement.Items.begin(), statement.Items.end(),
                       [](const TItem& item) { return HasAggregate(item.Expr); });
}

TOrderCheck OrderCheckOf(const TStatement& statement)
{
    TOrderCheck check;
    if (statement.OrderBy.empty())
        return check;
    if (SortsEveryRow(statement)) {
        check.Kind = TOrderCheck::Full;
        return check;
    }
    for (const TOrder& order : statement.OrderBy) {
        const int column = ResultColumn(statement, order);
        if (column < 0) {
            check.KeyColumns.clear();
            return check;
        }
        check.KeyColumns.push_back(column);
    }
    check.Kind = TOrderCheck::Keys;
    return check;
}

TValueType TypeOf(const TStatement& statement, const TExpr& expr)
{
    switch (expr.Kind) {
    case TExpr::eColumn:
        return Tables()[size_t(statement.From[size_t(expr.Entry)].Table)]
            .Columns[size_t(expr.Column)]
            .Type;
    case TExpr::eInteger:
    case TExpr::eStar:
        return TValueType::Integer;
    case TExpr::eReal:
        return TValueType::Real;
    case TExpr::eString:
        return TValueType::Text;
    case TExpr::eArith:
        return TypeOf(statement, expr.Args[0]) == TValueType::Real ||
                       TypeOf(statement, expr.Args[1]) == TValueType::Real
                   ? TValueType::Real
                   : TValueType::Integer;
    case TExpr::eFunc:
        return expr.Text == "UPPER" || expr.Text == "LOWER" ? TValueType::Text
                                                            : TypeOf(statement, expr.Args[0]);
    case TExpr::eAggregate:
        if (expr.Text == "COUNT")
            return TValueType::Integer;
        if (expr.Text == "AVG")
            return TValueType::Real;
        return TypeOf(statement, expr.Args[0]);
    }
    return TValueType::Integer;
}

} // namespace vdmeaning
