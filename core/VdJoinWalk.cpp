#include "core/VdJoinWalk.h"

#include "core/VdJoinDef.h"
#include "core/VdTableDef.h"

#include <algorithm>
#include <queue>

namespace vd {

TVdJoinWalk::TVdJoinWalk(const TVdTableDefs& tables, bool backwards)
    : FTables(tables), FBackwards(backwards)
{
    const int count = tables.Count();
    FJoinStart.reserve(size_t(count) + 1);
    for (int t = 0; t < count; ++t) {
        FJoinStart.push_back(int(FJoins.size()));
        const TVdJoinDefs& joins = tables.Items(t)->JoinDefs();
        for (int j = 0; j < joins.Count(); ++j)
            FJoins.push_back(Describe(*joins.Items(j)));
    }
    FJoinStart.push_back(int(FJoins.size()));
    FStepOf.assign(size_t(count), NotEntered);
    // Counted, then placed: the joins leading to a table stand together in join order.
    FLeadingStart.assign(size_t(count) + 1, 0);
    for (const TJoin& join : FJoins)
        if (join.Target) {
            const int slot = Slot(*join.Target);
            if (slot >= 0)
                ++FLeadingStart[size_t(slot) + 1];
        }
    for (int t = 0; t < count; ++t)
        FLeadingStart[size_t(t) + 1] += FLeadingStart[size_t(t)];
    FLeading.resize(size_t(FLeadingStart[size_t(count)]));
    std::vector<int> next(FLeadingStart.begin(), FLeadingStart.end() - 1);
    for (const TJoin& join : FJoins)
        if (join.Target) {
            const int slot = Slot(*join.Target);
            if (slot >= 0)
                FLeading[size_t(next[size_t(slot)]++)] = &join;
        }
}

TVdJoinWalk::TJoin TVdJoinWalk::Describe(const TVdJoinDef& join)
{
    const TVdTableDef* owner = join.GetTableDef();
    const TVdTableDef* target = join.JoinedTable();
    return {&join, owner, target == owner ? nullptr : target};
}

int TVdJoinWalk::Slot(const TVdTableDef& table) const
{
    const int index = table.Index();
    return table.Collection() == &FTables && index >= 0 && index < int(FStepOf.size()) ? index : -1;
}

int TVdJoinWalk::StepOf(const TVdTableDef& table) const
{
    const int slot = Slot(table);
    if (slot >= 0)
        return FStepOf[size_t(slot)];
    for (const auto& [other, step] : FOtherSteps)
        if (other == &table)
            return step;
    return NotEntered;
}

void TVdJoinWalk::SetStepOf(const TVdTableDef& table, int step)
{
    const int slot = Slot(table);
    if (slot >= 0) {
        FStepOf[size_t(slot)] = step;
        return;
    }
    for (auto& [other, known] : FOtherSteps)
        if (other == &table) {
            known = step;
            return;
        }
    FOtherSteps.emplace_back(&table, step);
}

bool TVdJoinWalk::IsJoined(const TVdTableDef& table) const
{
    const int slot = Slot(table);
    return slot >= 0 && FLeadingStart[size_t(slot) + 1] > FLeadingStart[size_t(slot)];
}

std::pair<const TVdJoinWalk::TJoin*, const TVdJoinWalk::TJoin*>
TVdJoinWalk::JoinsOf(const TVdTableDef& table)
{
    const int slot = Slot(table);
    if (slot >= 0)
        return {FJoins.data() + FJoinStart[size_t(slot)],
                FJoins.data() + FJoinStart[size_t(slot) + 1]};
    const TVdJoinDefs& joins = table.JoinDefs();
    if (joins.Count() == 0)
        return {nullptr, nullptr};
    // A table of another collection: its joins are described as it is reached.
    std::vector<TJoin>& described = FOtherJoins.emplace_back();
    for (int j = 0; j < joins.Count(); ++j)
        described.push_back(Describe(*joins.Items(j)));
    return {described.data(), described.data() + described.size()};
}

void TVdJoinWalk::Append(const TVdTableDef& root, std::string& out)
{
    auto later = [](const TJoin* a, const TJoin* b) {
        return a->Join->Sequence > b->Join->Sequence;
    };
    std::priority_queue<const TJoin*, std::vector<const TJoin*>, decltype(later)> ready(later);
    auto offer = [&](const TVdTableDef& table) {
        const auto [first, last] = JoinsOf(table);
        for (const TJoin* join = first; join != last; ++join)
            ready.push(join);
        if (!FBackwards)
            return;
        const int slot = Slot(table);
        if (slot >= 0)
            for (int i = FLeadingStart[size_t(slot)]; i < FLeadingStart[size_t(slot) + 1]; ++i)
                ready.push(FLeading[size_t(i)]);
    };
    std::vector<TStep> steps;
    SetStepOf(root, -1);
    offer(root);
    while (!ready.empty()) {
        const TJoin& next = *ready.top();
        ready.pop();
        const TVdJoinDef* join = next.Join;
        const TVdTableDef* owner = next.Owner;
        const TVdTableDef* target = next.Target;
        if (!target)
            continue;
        const int ownerStep = StepOf(*owner);
        const int targetStep = StepOf(*target);
        const bool ownerIn = ownerStep != NotEntered;
        const bool targetIn = targetStep != NotEntered;
        if (ownerIn && targetIn) {
            // Offered from both of its tables: its condition is added once.
            const int step = std::max(ownerStep, targetStep);
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
        SetStepOf(*table, int(steps.size()));
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
