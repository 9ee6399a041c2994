#include "core/VdJoinWalk.h"

#include "core/VdJoinDef.h"
#include "core/VdTableDef.h"

#include <algorithm>
#include <queue>

namespace vd {

TVdJoinWalk::TVdJoinWalk(const TVdTableDefs& tables, bool backwards) : FBackwards(backwards)
{
    for (int t = 0; t < tables.Count(); ++t) {
        const TVdJoinDefs& joins = tables.Items(t)->JoinDefs();
        for (int j = 0; j < joins.Count(); ++j)
            if (const TVdTableDef* target = Target(*joins.Items(j)))
                FLeadingTo[target].push_back(joins.Items(j));
    }
}

const TVdTableDef* TVdJoinWalk::Target(const TVdJoinDef& join)
{
    const TVdTableDef* target = join.JoinedTable();
    return target == join.GetTableDef() ? nullptr : target;
}

bool TVdJoinWalk::IsJoined(const TVdTableDef& table) const { return FLeadingTo.count(&table) > 0; }

void TVdJoinWalk::Append(const TVdTableDef& root, std::string& out)
{
    auto later = [](const TVdJoinDef* a, const TVdJoinDef* b) { return a->Sequence > b->Sequence; };
    std::priority_queue<const TVdJoinDef*, std::vector<const TVdJoinDef*>, decltype(later)> ready(
        later);
    auto offer = [&](const TVdTableDef& table) {
        const TVdJoinDefs& joins = table.JoinDefs();
        for (int j = 0; j < joins.Count(); ++j)
            ready.push(joins.Items(j));
        if (!FBackwards)
            return;
        const auto leading = FLeadingTo.find(&table);
        if (leading != FLeadingTo.end())
            for (const TVdJoinDef* join : leading->second)
                ready.push(join);
    };
    std::vector<TStep> steps;
    FStepOf[&root] = -1;
    offer(root);
    while (!ready.empty()) {
        const TVdJoinDef* join = ready.top();
        ready.pop();
        const TVdTableDef* owner = join->GetTableDef();
        const TVdTableDef* target = Target(*join);
        if (!target)
            continue;
        const bool ownerIn = Entered(*owner);
        const bool targetIn = Entered(*target);
        if (ownerIn && targetIn) {
            // Offered from both of its tables: its condition is added once.
            const int step = std::max(FStepOf[owner], FStepOf[target]);
            if (step < 0)
                continue;
            std::vector<const TVdJoinDef*>& more = steps[size_t(step)].More;
            if (steps[size_t(step)].Join != join &&
                std::find(more.begin(), more.end(), join) == more.end())
                more.push_back(join);
            continue;
        }
        const TVdTableDef* from = ownerIn ? owner : target;
        const TVdTableDef* table = ownerIn ? target : owner;
        FStepOf[table] = int(steps.size());
        steps.push_back({join, from, table, !ownerIn, {}});
        offer(*table);
    }
    const TVdTableDef* runOf = nullptr;
    for (const TStep& step : steps) {
        // Each run of joins from one table follows a blank.
        if (step.From != runOf)
            out += ' ';
        runOf = step.From;
        AppendStep(step, out);
    }
}

void TVdJoinWalk::AppendStep(const TStep& step, std::string& out) const
{
    out += "\r\n  ";
    const TVdJoinKind kind = step.Join->JoinKind;
    // Brought in from the other side, the table that keeps all its rows is on the other side.
    const TVdJoinKind printed = !step.Backwards         ? kind
                                : kind == vdjLOuterJoin ? vdjROuterJoin
                                : kind == vdjROuterJoin ? vdjLOuterJoin
                                                        : kind;
    step.Join->AppendHead(out, printed, *step.Table);
    out += " (";
    step.Join->AppendCondition(out, step.Backwards);
    for (const TVdJoinDef* more : step.More) {
        out += ' ';
        step.Join->AppendKeyword(out, "AND");
        out += ' ';
        more->AppendCondition(out, false);
    }
    out += ')';
}

} // namespace vd
