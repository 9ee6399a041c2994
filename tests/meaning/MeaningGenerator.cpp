#include "tests/meaning/MeaningGenerator.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace vdmeaning {

namespace {

class TGenerator
{
public:
    TGenerator(std::mt19937& rng, TDialect dialect) : Rng(rng) { S.Dialect = dialect; }

    TStatement Run();

private:
    int Pick(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(Rng); }
    bool Pct(int percent) { return Pick(0, 99) < percent; }
    template <class T> const T& OneOf(const std::vector<T>& items)
    {
        return items[size_t(Pick(0, int(items.size()) - 1))];
    }
    // The index of a weighted choice.
    int Weighted(const std::vector<int>& weights);

    void ChooseTables();
    void ChooseJoins();
    std::string NewAlias(std::vector<std::string>& pool);

    TExpr Column(int entry, int column) const { return {TExpr::eColumn, entry, column, "", {}}; }
    TExpr AnyColumn();
    TExpr ColumnOf(TValueType type, bool numeric);
    TExpr Literal(TValueType type);
    TExpr SmallExpression();
    TExpr AggregateCall();

    void PlainItems();
    void AggregateItems();
    void GroupedItems();
    TItem Item(TExpr expr, int aliasPercent);

    TCond Condition(int leaves, bool having);
    TCond WhereLeaf();
    TCond HavingLeaf();
    std::string Operator(TValueType type);
    void FillRight(TCond& leaf, TValueType type);

    void OrderBy();
    TOrder OrderItem(bool grouped);
    void CompleteOrder(bool grouped);

    std::mt19937& Rng;
    TStatement S;
    std::vector<std::string> ColumnAliases = {"N",  "CNT", "TOTAL", "CUR", "LABEL", "AMOUNT", "BB",
                                              "SX", "VAL", "QTY",   "TAG", "LO",    "HI"};
    std::vector<TExpr> Groups;
    bool InHaving = false;
};

int TGenerator::Weighted(const std::vector<int>& weights)
{
    int total = 0;
    for (int w : weights)
        total += w;
    int roll = Pick(0, total - 1);
    for (size_t i = 0; i < weights.size(); ++i) {
        if (roll < weights[i])
            return int(i);
        roll -= weights[i];
    }
    return 0;
}

std::string TGenerator::NewAlias(std::vector<std::string>& pool)
{
    const size_t i = size_t(Pick(0, int(pool.size()) - 1));
    std::string alias = pool[i];
    pool.erase(pool.begin() + std::ptrdiff_t(i));
    return alias;
}

// The first table at random; each next one linked to one read before it, so that every join
// condition compares related columns and the result stays small.
void TGenerator::ChooseTables()
{
    const int count = 1 + Weighted({40, 30, 20, 10});
    S.From.push_back({Pick(0, int(Tables().size()) - 1), ""});
    while (int(S.From.size()) < count) {
        std::vector<std::pair<const TLink*, int>> candidates; // link, entry already there
        std::vector<int> weights;
        for (const TLink& link : Links()) {
            if (!link.Key && count > 2)
                continue;
            for (size_t e = 0; e < S.From.size(); ++e) {
                const int table = S.From[e].Table;
                const int other = link.LeftTable == table    ? link.RightTable
                                  : link.RightTable == table ? link.LeftTable
                                                             : -1;
                const bool used = std::any_of(S.From.begin(), S.From.end(),
                                              [&](const TEntry& x) { return x.Table == other; });
                if (other >= 0 && !used) {
                    candidates.push_back({&link, int(e)});
                    weights.push_back(link.Key ? 8 : 1);
                }
            }
        }
        const auto [link, entry] = candidates[size_t(Weighted(weights))];
        const bool ownLeft = link->LeftTable == S.From[size_t(entry)].Table;
        const int newEntry = int(S.From.size());
        S.From.push_back({ownLeft ? link->RightTable : link->LeftTable, ""});
        TJoin join;
        const int ownColumn = ownLeft ? link->LeftColumn : link->RightColumn;
        const int newColumn = ownLeft ? link->RightColumn : link->LeftColumn;
        // People write either side first.
        if (Pct(60)) {
            join.LeftEntry = entry, join.LeftColumn = ownColumn;
            join.RightEntry = newEntry, join.RightColumn = newColumn;
        } else {
            join.LeftEntry = newEntry, join.LeftColumn = newColumn;
            join.RightEntry = entry, join.RightColumn = ownColumn;
        }
        S.Joins.push_back(join);
    }
    std::vector<std::string> pool = {"X", "Y", "Z", "P", "Q", "R", "T1", "U1", "V1", "W1", "TT"};
    const int aliasMode = Weighted({55, 25, 20}); // all, none, some
    for (TEntry& entry : S.From)
        if (aliasMode == 0 || (aliasMode == 2 && Pct(50)))
            entry.Alias = NewAlias(pool);
    S.Qualify = Pct(50);
}

void TGenerator::ChooseJoins()
{
    const bool comma = S.Joins.size() > 0 && S.Joins.size() < 3 && Pct(15);
    for (TJoin& join : S.Joins) {
        if (comma) {
            join.Kind = TJoin::Comma;
            continue;
        }
        join.Kind = TJoin::TKind(1 + Weighted({40, 30, 15, 15}));
        // MariaDB has no FULL OUTER JOIN.
        if (join.Kind == TJoin::Full && S.Dialect == TDialect::MySQL)
            join.Kind = TJoin::Left;
        join.OuterWord = Pct(70);
        join.Parens = Pct(85);
        // Joins on two conditions; the second one either keeps every row pair or none.
        if (Pct(20)) {
            static const char* const ops[] = {"<=", ">=", "<>", "<", ">", "="};
            join.ExtraOp = ops[Pick(0, 5)];
            join.ExtraSwapped = Pct(50);
        }
    }
}

TExpr TGenerator::AnyColumn()
{
    const int entry = Pick(0, int(S.From.size()) - 1);
    const TTable& table = Tables()[size_t(S.From[size_t(entry)].Table)];
    return Column(entry, Pick(0, int(table.Columns.size()) - 1));
}

// A column of the type, or of any numeric type when numeric is set.
TExpr TGenerator::ColumnOf(TValueType type, bool numeric)
{
    std::vector<TExpr> columns;
    for (size_t e = 0; e < S.From.size(); ++e) {
        const TTable& table = Tables()[size_t(S.From[e].Table)];
        for (size_t c = 0; c < table.Columns.size(); ++c) {
            const TValueType t = table.Columns[c].Type;
            if (numeric ? t != TValueType::Text : t == type)
                columns.push_back(Column(int(e), int(c)));
        }
    }
    if (columns.empty())
        return AnyColumn();
    return OneOf(columns);
}

TExpr TGenerator::Literal(TValueType type)
{
    switch (type) {
    case TValueType::Integer:
        return {TExpr::eInteger, -1, -1, std::to_string(Pct(3) ? -1 : Pick(0, 10)), {}};
    case TValueType::Real: {
        if (Pct(30))
            return {TExpr::eInteger, -1, -1, std::to_string(Pick(0, 10)), {}};
        char text[16];
        std::snprintf(text, sizeof text, "%g", Pick(0, 20) / 2.0 + 0.25 * Pick(0, 1));
        const std::string value = std::string(text).find('.') == std::string::npos
                                      ? std::string(text) + ".0"
                                      : std::string(text);
        return {TExpr::eReal, -1, -1, value, {}};
    }
    case TValueType::Text:
        return {TExpr::eString, -1, -1, OneOf(Words()), {}};
    }
    return {};
}

TExpr TGenerator::SmallExpression()
{
    const bool text = std::any_of(S.From.begin(), S.From.end(), [](const TEntry& e) {
        const auto& columns = Tables()[size_t(e.Table)].Columns;
        return std::any_of(columns.begin(), columns.end(),
                           [](const TColumn& c) { return c.Type == TValueType::Text; });
    });
    const int kind = Weighted({50, 15, text ? 12 : 0, 12, text ? 11 : 0});
    if (kind == 0) {
        static const std::vector<std::string> ops = {"+", "-", "*"};
        TExpr left = ColumnOf(TValueType::Integer, true);
        TExpr right = Pct(60) ? Literal(TValueType::Integer) : ColumnOf(TValueType::Integer, true);
        if (right.Kind == TExpr::eInteger && right.Text[0] == '-')
            right.Text = "1";
        return {TExpr::eArith, -1, -1, OneOf(ops), {left, right}};
    }
    if (kind == 1)
        return {TExpr::eFunc, -1, -1, "ABS", {ColumnOf(TValueType::Integer, true)}};
    if (kind == 2)
        return {
            TExpr::eFunc, -1, -1, Pct(50) ? "UPPER" : "LOWER", {ColumnOf(TValueType::Text, false)}};
    TExpr column =
        kind == 3 ? ColumnOf(TValueType::Integer, true) : ColumnOf(TValueType::Text, false);
    return {TExpr::eFunc, -1, -1, "COALESCE", {column, Literal(TypeOf(S, column))}};
}

TExpr TGenerator::AggregateCall()
{
    const int kind = Weighted({35, 15, 15, 12, 12, 11});
    if (kind == 0)
        return {TExpr::eAggregate, -1, -1, "COUNT", {{TExpr::eStar, -1, -1, "", {}}}};
    if (kind == 1)
        return {TExpr::eAggregate, -1, -1, "COUNT", {AnyColumn()}};
    static const char* const names[] = {"", "", "SUM", "MIN", "MAX", "AVG"};
    const bool numeric = kind == 2 || kind == 5 || Pct(60);
    return {TExpr::eAggregate,
            -1,
            -1,
            names[kind],
            {numeric ? ColumnOf(TValueType::Integer, true) : AnyColumn()}};
}

TItem TGenerator::Item(TExpr expr, int aliasPercent)
{
    TItem item{std::move(expr), ""};
    if (Pct(aliasPercent) && !ColumnAliases.empty())
        item.Alias = NewAlias(ColumnAliases);
    return item;
}

TExpr LiteralItem(int choice)
{
    static const std::vector<TExpr> literals = {{TExpr::eString, -1, -1, "GBP", {}},
                                                {TExpr::eString, -1, -1, "x", {}},
                                                {TExpr::eInteger, -1, -1, "1", {}},
                                                {TExpr::eReal, -1, -1, "2.5", {}},
                                                {TExpr::eString, -1, -1, "it's", {}}};
    return literals[size_t(choice) % literals.size()];
}

void TGenerator::PlainItems()
{
    const int count = Pick(1, 5);
    for (int i = 0; i < count; ++i) {
        const int kind = Weighted({75, 15, 10});
        if (kind == 0)
            S.Items.push_back(Item(AnyColumn(), 20));
        else if (kind == 1)
            S.Items.push_back(Item(SmallExpression(), 65));
        else
            S.Items.push_back(Item(LiteralItem(Pick(0, 4)), 70));
    }
    S.Distinct = Pct(15);
}

void TGenerator::AggregateItems()
{
    const int count = Pick(1, 3);
    for (int i = 0; i < count; ++i)
        S.Items.push_back(Item(AggregateCall(), 40));
    if (Pct(10))
        S.Items.insert(S.Items.begin() + Pick(0, int(S.Items.size())),
                       Item(LiteralItem(Pick(0, 4)), 70));
}

void TGenerator::GroupedItems()
{
    const int count = Pick(1, 3);
    while (int(Groups.size()) < count) {
        TExpr column = AnyColumn();
        if (std::find(Groups.begin(), Groups.end(), column) == Groups.end())
            Groups.push_back(column);
    }
    std::vector<TExpr> selected = Groups;
    if (Pct(40))
        std::shuffle(selected.begin(), selected.end(), Rng);
    for (TExpr& column : selected)
        S.Items.push_back(Item(column, 15));
    const int aggregates = Pick(1, 3);
    for (int i = 0; i < aggregates; ++i)
        S.Items.insert(S.Items.begin() + Pick(0, int(S.Items.size())), Item(AggregateCall(), 40));
    if (Pct(10))
        S.Items.insert(S.Items.begin() + Pick(0, int(S.Items.size())),
                       Item(LiteralItem(Pick(0, 4)), 70));
    S.GroupBy = Groups;
    if (Pct(45))
        std::shuffle(S.GroupBy.begin(), S.GroupBy.end(), Rng);
    // Rarely a column that is grouped but not selected.
    if (Pct(2)) {
        TExpr column = AnyColumn();
        if (std::find(Groups.begin(), Groups.end(), column) == Groups.end()) {
            S.GroupBy.insert(S.GroupBy.begin() + Pick(0, int(S.GroupBy.size())), column);
            Groups.push_back(column);
        }
    }
    if (Pct(40)) {
        S.HasHaving = true;
        InHaving = true;
        S.Having = Condition(1 + Weighted({55, 30, 15}), true);
        InHaving = false;
    }
}

std::string TGenerator::Operator(TValueType type)
{
    static const std::vector<std::string> ops = {
        "=",      "<>",      "<",           ">",       "<=",          ">=",   "IN",
        "NOT IN", "BETWEEN", "NOT BETWEEN", "IS NULL", "IS NOT NULL", "LIKE", "NOT LIKE"};
    if (type == TValueType::Text)
        return ops[size_t(Weighted({12, 6, 3, 3, 2, 2, 8, 5, 3, 2, 8, 6, 14, 6}))];
    // Firebird does not take LIKE on numbers.
    const int like = S.Dialect == TDialect::Firebird ? 0 : 1;
    return ops[size_t(Weighted({14, 8, 8, 8, 6, 6, 7, 5, 7, 4, 7, 6, 2 * like, like}))];
}

void TGenerator::FillRight(TCond& leaf, TValueType type)
{
    const std::string& op = leaf.Op;
    if (op == "IS NULL" || op == "IS NOT NULL")
        return;
    if (op == "LIKE" || op == "NOT LIKE") {
        static const std::vector<std::string> text = {"a%", "%b",  "_a%", "%a%",  "ab",
                                                      "%",  "c_t", "b%",  "it's", "%'%"};
        static const std::vector<std::string> numbers = {"1%", "%5", "2", "_"};
        leaf.Right.push_back(
            {TExpr::eString, -1, -1, type == TValueType::Text ? OneOf(text) : OneOf(numbers), {}});
        return;
    }
    if (op == "IN" || op == "NOT IN") {
        const int count = Pick(1, 4);
        while (int(leaf.Right.size()) < count) {
            TExpr value = Literal(type);
            if (std::find(leaf.Right.begin(), leaf.Right.end(), value) == leaf.Right.end())
                leaf.Right.push_back(value);
        }
        return;
    }
    const bool numeric = type != TValueType::Text;
    // HAVING compares with grouped columns only: engines refuse any other bare column there.
    std::vector<TExpr> grouped;
    for (const TExpr& group : Groups)
        if (numeric ? TypeOf(S, group) != TValueType::Text : TypeOf(S, group) == type)
            grouped.push_back(group);
    auto operand = [&]() {
        const int kind = Weighted({72, 18, 10});
        if (InHaving)
            return kind == 0 || grouped.empty() ? Literal(type) : OneOf(grouped);
        if (kind == 1)
            return ColumnOf(type, numeric);
        if (kind == 2 && numeric) {
            TExpr column = ColumnOf(type, true);
            return TExpr{TExpr::eArith,
                         -1,
                         -1,
                         Pct(50) ? "+" : "-",
                         {column, TExpr{TExpr::eInteger, -1, -1, std::to_string(Pick(1, 5)), {}}}};
        }
        if (kind == 2)
            return TExpr{TExpr::eFunc, -1, -1, "LOWER", {ColumnOf(type, false)}};
        return Literal(type);
    };
    leaf.Right.push_back(operand());
    if (op == "BETWEEN" || op == "NOT BETWEEN") {
        TExpr high = Pct(85) ? Literal(type) : operand();
        // Literal bounds the way people write them: low first.
        if (leaf.Right[0].Kind != TExpr::eColumn && high.Kind != TExpr::eColumn &&
            leaf.Right[0].Kind != TExpr::eArith && high.Kind != TExpr::eArith &&
            leaf.Right[0].Kind != TExpr::eFunc && high.Kind != TExpr::eFunc) {
            const bool text = type == TValueType::Text;
            const bool swap = text ? high.Text < leaf.Right[0].Text
                                   : std::stod(high.Text) < std::stod(leaf.Right[0].Text);
            if (swap)
                std::swap(leaf.Right[0], high);
        }
        leaf.Right.push_back(high);
    }
}

TCond TGenerator::WhereLeaf()
{
    TCond leaf;
    const int kind = Weighted({82, 12, 6});
    if (kind == 2) {
        // A literal first: 5 > T.A.
        static const std::vector<std::string> ops = {"=", "<>", "<", ">", "<=", ">="};
        TExpr column = AnyColumn();
        leaf.Left = Literal(TypeOf(S, column));
        leaf.Op = OneOf(ops);
        leaf.Right.push_back(column);
        return leaf;
    }
    leaf.Left = kind == 0 ? AnyColumn() : SmallExpression();
    const TValueType type = TypeOf(S, leaf.Left);
    leaf.Op = Operator(type);
    FillRight(leaf, type);
    return leaf;
}

TCond TGenerator::HavingLeaf()
{
    TCond leaf;
    leaf.Left = Pct(70) || Groups.empty() ? AggregateCall() : OneOf(Groups);
    const TValueType type = TypeOf(S, leaf.Left);
    static const std::vector<std::string> ops = {
        "=", "<>", "<", ">", "<=", ">=", "BETWEEN", "IN", "NOT BETWEEN", "IS NULL", "IS NOT NULL"};
    leaf.Op = ops[size_t(Weighted({8, 5, 10, 14, 6, 10, 6, 5, 2, 2, 2}))];
    if (leaf.Left.Kind == TExpr::eAggregate && leaf.Left.Text == "COUNT" &&
        (leaf.Op == "IS NULL" || leaf.Op == "IS NOT NULL"))
        leaf.Op = ">";
    FillRight(leaf, type == TValueType::Text ? type : TValueType::Integer);
    return leaf;
}

// A condition of the given number of comparisons. Groups mostly alternate their connector
// (a group under the same connector prints the same without its parentheses).
TCond TGenerator::Condition(int leaves, bool having)
{
    TCond cond;
    if (leaves == 1) {
        cond = having ? HavingLeaf() : WhereLeaf();
        if (Pct(25))
            cond.ExtraParens = 1;
    } else {
        cond.Kind = Pct(50) ? TCond::And : TCond::Or;
        const int kids = Pick(2, std::min(4, leaves));
        std::vector<int> parts(size_t(kids), 1);
        for (int rest = leaves - kids; rest > 0; --rest)
            ++parts[size_t(Pick(0, kids - 1))];
        for (int part : parts) {
            TCond kid = Condition(part, having);
            if (kid.Kind == cond.Kind && Pct(70))
                kid.Kind = cond.Kind == TCond::And ? TCond::Or : TCond::And;
            cond.Kids.push_back(std::move(kid));
        }
        if (Pct(12))
            cond.ExtraParens = 1;
    }
    if (Pct(leaves == 1 ? 12 : 8)) {
        TCond negated{TCond::Not, {std::move(cond)}, {}, "", {}, 0};
        cond = std::move(negated);
        if (Pct(10)) {
            TCond twice{TCond::Not, {std::move(cond)}, {}, "", {}, 0};
            cond = std::move(twice);
        }
        if (Pct(10))
            cond.ExtraParens = 1;
    }
    if (Pct(2))
        ++cond.ExtraParens;
    return cond;
}

TOrder TGenerator::OrderItem(bool grouped)
{
    TOrder order;
    std::vector<int> aliased;
    for (size_t i = 0; i < S.Items.size(); ++i)
        if (!S.Items[i].Alias.empty())
            aliased.push_back(int(i));
    const bool free = !grouped && !S.Distinct && !IsAggregateQuery(S);
    const int kind = S.Star ? 0 : Weighted({50, 22, aliased.empty() ? 0 : 15, free ? 10 : 0});
    if (kind == 1) {
        order.Kind = TOrder::oPosition;
        order.Position = Pick(1, int(S.Items.size()));
    } else if (kind == 2) {
        order.Kind = TOrder::oAlias;
        order.Alias = S.Items[size_t(OneOf(aliased))].Alias;
    } else if (kind == 3) {
        order.Value = {TExpr::eArith,
                       -1,
                       -1,
                       "+",
                       {ColumnOf(TValueType::Integer, true), ColumnOf(TValueType::Integer, true)}};
    } else if (grouped) {
        order.Value = Pct(60) ? OneOf(Groups) : AggregateCall();
    } else if (free) {
        order.Value = AnyColumn();
    } else {
        // An item of the list by its expression; a literal would be read as a position.
        std::vector<TExpr> sortable;
        for (const TItem& item : S.Items)
            if (item.Expr.Kind != TExpr::eInteger && item.Expr.Kind != TExpr::eReal &&
                item.Expr.Kind != TExpr::eString)
                sortable.push_back(item.Expr);
        if (sortable.empty()) {
            order.Kind = TOrder::oPosition;
            order.Position = Pick(1, int(S.Items.size()));
        } else {
            order.Value = OneOf(sortable);
        }
    }
    order.Dir = TOrder::TDir(Weighted({50, 12, 38}));
    return order;
}

// Adds the keys that give every row its place: the tables' IDs, the grouped columns, or every
// item of a DISTINCT list.
void TGenerator::CompleteOrder(bool grouped)
{
    std::vector<TExpr> keys;
    if (grouped)
        keys = S.GroupBy;
    else if (S.Distinct)
        for (const TItem& item : S.Items)
            keys.push_back(item.Expr);
    else
        for (size_t e = 0; e < S.From.size(); ++e)
            keys.push_back(Column(int(e), 0));
    for (const TExpr& key : keys) {
        if (Sorts(S, key))
            continue;
        TOrder order;
        order.Value = key;
        const auto item = std::find_if(S.Items.begin(), S.Items.end(),
                                       [&](const TItem& i) { return i.Expr == key; });
        const bool literal =
            key.Kind == TExpr::eInteger || key.Kind == TExpr::eReal || key.Kind == TExpr::eString;
        if (item != S.Items.end() && (literal || Pct(30))) {
            order.Kind = TOrder::oPosition;
            order.Position = int(item - S.Items.begin()) + 1;
        }
        order.Dir = TOrder::TDir(Weighted({60, 15, 25}));
        S.OrderBy.push_back(order);
    }
}

void TGenerator::OrderBy()
{
    const bool grouped = !S.GroupBy.empty();
    const int count = Pick(1, 3);
    for (int i = 0; i < count; ++i) {
        // Nobody sorts twice by the same key.
        TOrder order = OrderItem(grouped);
        const TExpr* key = SortedExpr(S, order);
        if (!key || !Sorts(S, *key))
            S.OrderBy.push_back(std::move(order));
    }
    if ((grouped || !IsAggregateQuery(S)) && !S.Star && Pct(50))
        CompleteOrder(grouped);
}

TStatement TGenerator::Run()
{
    S.LowerKeywords = Pct(15);
    S.QuoteNames = Pct(S.Dialect == TDialect::Firebird ? 5 : 12);
    ChooseTables();
    ChooseJoins();
    const int kind = Weighted({5, 57, 10, 28}); // *, plain, aggregates only, grouped
    if (kind == 0)
        S.Star = true;
    else if (kind == 1)
        PlainItems();
    else if (kind == 2)
        AggregateItems();
    if (Pct(75)) {
        S.HasWhere = true;
        S.Where = Condition(1 + Weighted({30, 30, 20, 12, 8}), false);
    }
    // A comma join's condition goes to WHERE, before what the writer filters on.
    TCond joined{TCond::And, {}, {}, "", {}, 0};
    for (const TJoin& join : S.Joins)
        if (join.Kind == TJoin::Comma) {
            TCond leaf;
            leaf.Left = Column(join.LeftEntry, join.LeftColumn);
            leaf.Op = "=";
            leaf.Right.push_back(Column(join.RightEntry, join.RightColumn));
            leaf.ExtraParens = Pct(50) ? 1 : 0;
            joined.Kids.push_back(leaf);
        }
    if (!joined.Kids.empty()) {
        if (S.HasWhere)
            joined.Kids.push_back(S.Where);
        S.Where = joined.Kids.size() == 1 ? joined.Kids[0] : joined;
        S.HasWhere = true;
    }
    if (kind == 3)
        GroupedItems();
    // Nobody selects the same thing twice, and engines find a name so selected ambiguous.
    for (size_t i = S.Items.size(); i-- > 1;) {
        const auto first = std::find_if(S.Items.begin(), S.Items.end(), [&](const TItem& item) {
            return item.Expr == S.Items[i].Expr;
        });
        if (first - S.Items.begin() < std::ptrdiff_t(i))
            S.Items.erase(S.Items.begin() + std::ptrdiff_t(i));
    }
    if (Pct(50))
        OrderBy();
    return S;
}

} // namespace

TStatement GenerateStatement(std::mt19937& rng, TDialect dialect)
{
    return TGenerator(rng, dialect).Run();
}

} // namespace vdmeaning
