#include "tests/meaning/MeaningReduce.h"

#include <algorithm>
#include <functional>

namespace vdmeaning {

namespace {

// Arithmetic and function calls shrink to their first argument.
bool Simpler(const TExpr& expr, TExpr& simpler)
{
    if ((expr.Kind != TExpr::eArith && expr.Kind != TExpr::eFunc) || expr.Args.empty())
        return false;
    simpler = expr.Args[0];
    return true;
}

void CondCandidates(const TCond& cond, std::vector<TCond>& out)
{
    if (cond.ExtraParens > 0) {
        TCond c = cond;
        c.ExtraParens = 0;
        out.push_back(c);
    }
    switch (cond.Kind) {
    case TCond::Not:
        out.push_back(cond.Kids[0]);
        break;
    case TCond::And:
    case TCond::Or:
        for (const TCond& kid : cond.Kids)
            out.push_back(kid);
        for (size_t i = 0; i < cond.Kids.size() && cond.Kids.size() > 2; ++i) {
            TCond c = cond;
            c.Kids.erase(c.Kids.begin() + std::ptrdiff_t(i));
            out.push_back(c);
        }
        for (size_t i = 0; i < cond.Kids.size(); ++i) {
            std::vector<TCond> kids;
            CondCandidates(cond.Kids[i], kids);
            for (TCond& kid : kids) {
                TCond c = cond;
                c.Kids[i] = std::move(kid);
                out.push_back(std::move(c));
            }
        }
        break;
    case TCond::Compare: {
        TCond c = cond;
        if (Simpler(cond.Left, c.Left))
            out.push_back(c);
        for (size_t i = 0; i < cond.Right.size(); ++i) {
            c = cond;
            if (Simpler(cond.Right[i], c.Right[i]))
                out.push_back(c);
        }
        for (size_t i = 0; i < cond.Right.size() && cond.Right.size() > 1 &&
                           (cond.Op == "IN" || cond.Op == "NOT IN");
             ++i) {
            c = cond;
            c.Right.erase(c.Right.begin() + std::ptrdiff_t(i));
            out.push_back(c);
        }
        break;
    }
    }
}

bool Refers(const TExpr& expr, int entry)
{
    if (expr.Kind == TExpr::eColumn && expr.Entry == entry)
        return true;
    return std::any_of(expr.Args.begin(), expr.Args.end(),
                       [&](const TExpr& a) { return Refers(a, entry); });
}

bool Refers(const TCond& cond, int entry)
{
    if (cond.Kind == TCond::Compare)
        return Refers(cond.Left, entry) ||
               std::any_of(cond.Right.begin(), cond.Right.end(),
                           [&](const TExpr& a) { return Refers(a, entry); });
    return std::any_of(cond.Kids.begin(), cond.Kids.end(),
                       [&](const TCond& k) { return Refers(k, entry); });
}

// True when nothing but its own join names the entry.
bool Unused(const TStatement& s, int entry)
{
    for (const TItem& item : s.Items)
        if (Refers(item.Expr, entry))
            return false;
    for (const TExpr& group : s.GroupBy)
        if (Refers(group, entry))
            return false;
    for (const TOrder& order : s.OrderBy)
        if (order.Kind == TOrder::oExpr && Refers(order.Value, entry))
            return false;
    if ((s.HasWhere && Refers(s.Where, entry)) || (s.HasHaving && Refers(s.Having, entry)))
        return false;
    for (size_t j = 0; j < s.Joins.size(); ++j)
        if (int(j) + 1 != entry &&
            (s.Joins[j].LeftEntry == entry || s.Joins[j].RightEntry == entry))
            return false;
    return true;
}

// Candidates in the order of what they drop: whole clauses first, then items, then parts.
std::vector<TStatement> Candidates(const TStatement& s)
{
    std::vector<TStatement> out;
    auto with = [&](const std::function<void(TStatement&)>& change) {
        TStatement t = s;
        change(t);
        out.push_back(std::move(t));
    };
    if (!s.OrderBy.empty())
        with([](TStatement& t) { t.OrderBy.clear(); });
    if (s.HasHaving)
        with([](TStatement& t) { t.HasHaving = false; });
    if (s.HasWhere)
        with([](TStatement& t) { t.HasWhere = false; });
    if (s.Distinct)
        with([](TStatement& t) { t.Distinct = false; });
    if (s.From.size() > 1 && Unused(s, int(s.From.size()) - 1))
        with([](TStatement& t) {
            t.From.pop_back();
            t.Joins.pop_back();
        });
    for (size_t i = 0; i < s.OrderBy.size() && s.OrderBy.size() > 1; ++i)
        with([i](TStatement& t) { t.OrderBy.erase(t.OrderBy.begin() + std::ptrdiff_t(i)); });
    for (size_t i = 0; i < s.Items.size() && s.Items.size() > 1 && !s.Star; ++i)
        with([i](TStatement& t) { t.Items.erase(t.Items.begin() + std::ptrdiff_t(i)); });
    // A grouped column that is not selected can go; a selected one would become a bare column.
    for (size_t i = 0; i < s.GroupBy.size() && s.GroupBy.size() > 1; ++i) {
        const bool selected = std::any_of(s.Items.begin(), s.Items.end(), [&](const TItem& item) {
            return item.Expr == s.GroupBy[i];
        });
        if (!selected)
            with([i](TStatement& t) { t.GroupBy.erase(t.GroupBy.begin() + std::ptrdiff_t(i)); });
    }
    std::vector<TCond> conds;
    if (s.HasWhere)
        CondCandidates(s.Where, conds);
    for (TCond& c : conds)
        with([&c](TStatement& t) { t.Where = std::move(c); });
    conds.clear();
    if (s.HasHaving)
        CondCandidates(s.Having, conds);
    for (TCond& c : conds)
        with([&c](TStatement& t) { t.Having = std::move(c); });
    for (size_t i = 0; i < s.Items.size(); ++i) {
        TExpr simpler;
        if (Simpler(s.Items[i].Expr, simpler))
            with([&](TStatement& t) { t.Items[i].Expr = simpler; });
        if (!s.Items[i].Alias.empty())
            with([i](TStatement& t) { t.Items[i].Alias.clear(); });
    }
    for (size_t i = 0; i < s.Joins.size(); ++i)
        if (s.Joins[i].Kind != TJoin::Inner && s.Joins[i].Kind != TJoin::Comma)
            with([i](TStatement& t) { t.Joins[i].Kind = TJoin::Inner; });
    for (size_t i = 0; i < s.From.size(); ++i)
        if (!s.From[i].Alias.empty())
            with([i](TStatement& t) { t.From[i].Alias.clear(); });
    for (size_t i = 0; i < s.OrderBy.size(); ++i)
        if (s.OrderBy[i].Dir != TOrder::None)
            with([i](TStatement& t) { t.OrderBy[i].Dir = TOrder::None; });
    if (s.LowerKeywords)
        with([](TStatement& t) { t.LowerKeywords = false; });
    if (s.QuoteNames)
        with([](TStatement& t) { t.QuoteNames = false; });
    return out;
}

bool HasKind(const TCond& cond, TCond::TKind kind)
{
    return cond.Kind == kind || std::any_of(cond.Kids.begin(), cond.Kids.end(),
                                            [&](const TCond& k) { return HasKind(k, kind); });
}

// How NOT stands in the condition: 3 NOT NOT, 2 in a chain, 1 over a group, 0 before a
// comparison, -1 none.
int NotPlace(const TCond& cond, const TCond* parent)
{
    int place = -1;
    if (cond.Kind == TCond::Not) {
        const TCond& kid = cond.Kids[0];
        if (kid.Kind == TCond::Not)
            place = 3;
        else if (parent && (parent->Kind == TCond::And || parent->Kind == TCond::Or))
            place = 2;
        else if (kid.Kind != TCond::Compare)
            place = 1;
        else
            place = 0;
    }
    for (const TCond& kid : cond.Kids)
        place = std::max(place, NotPlace(kid, &cond));
    return place;
}

} // namespace

TStatement Reduce(TEngine& engine, const TStatement& statement, const TCheck& check,
                  TCheck& smallCheck)
{
    TStatement current = statement;
    smallCheck = check;
    int budget = 400;
    for (bool progress = true; progress && budget > 0;) {
        progress = false;
        for (const TStatement& candidate : Candidates(current)) {
            if (--budget < 0)
                break;
            TCheck c = CheckStatement(engine, candidate);
            if (c.Outcome == check.Outcome) {
                current = candidate;
                smallCheck = std::move(c);
                progress = true;
                break;
            }
        }
    }
    return current;
}

std::string ShapeOf(const TStatement& s, const TCheck& check)
{
    if (check.Outcome == TOutcome::OriginalFails)
        return "generator: the text fails on the engine";
    if (check.Outcome == TOutcome::Internal)
        return "internal error";
    for (const TCond* cond : {s.HasWhere ? &s.Where : nullptr, s.HasHaving ? &s.Having : nullptr}) {
        if (cond && HasKind(*cond, TCond::And) && HasKind(*cond, TCond::Or))
            return "mixed AND/OR";
    }
    int notPlace = -1;
    if (s.HasWhere)
        notPlace = NotPlace(s.Where, nullptr);
    if (s.HasHaving)
        notPlace = std::max(notPlace, NotPlace(s.Having, nullptr));
    static const char* const nots[] = {"NOT before a comparison", "NOT over a group",
                                       "NOT in a chain", "NOT NOT"};
    if (notPlace >= 0)
        return nots[notPlace];
    if (!s.GroupBy.empty())
        return s.HasHaving ? "GROUP BY with HAVING" : "GROUP BY";
    for (const TOrder& order : s.OrderBy)
        if (order.Kind == TOrder::oPosition)
            return "ORDER BY position";
    for (const TOrder& order : s.OrderBy)
        if (order.Kind == TOrder::oAlias)
            return "ORDER BY alias";
    for (const TOrder& order : s.OrderBy)
        if (order.Value.Kind != TExpr::eColumn)
            return "ORDER BY expression";
    for (const TItem& item : s.Items)
        if (item.Expr.Kind == TExpr::eString || item.Expr.Kind == TExpr::eInteger ||
            item.Expr.Kind == TExpr::eReal)
            return "literal select item";
    if (s.Joins.size() >= 2)
        return "join order";
    if (!s.Joins.empty() && s.Joins[0].Kind != TJoin::Inner)
        return s.Joins[0].Kind == TJoin::Comma ? "comma join" : "outer join";
    if (IsAggregateQuery(s))
        return "aggregates";
    if (s.Distinct)
        return "DISTINCT";
    if (!s.OrderBy.empty())
        return "ORDER BY";
    return "other";
}

} // namespace vdmeaning
