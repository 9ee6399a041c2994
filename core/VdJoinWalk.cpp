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
    FSlots.assign(size_t(count) + 1, TSlot{0, 0, NotEntered});
    FJoins.reserve(size_t(std::max(tables.JoinCount(), 0)));
    for (int t = 0; t < count; ++t) {
        FSlots[size_t(t)].JoinStart = int(FJoins.size());
        const TVdJoinDefs* joins = tables.Items(t)->JoinList();
        for (int j = 0, n = joins ? joins->Count() : 0; j < n; ++j)
            FJoins.push_back(Describe(*joins->Items(j)));
    }
    FSlots[size_t(count)].JoinStart = int(FJoins.size());
    // Counted, then placed from the back: the joins leading to a table stand together in
    // join order.
    int leading = 0;
    for (const TJoin& join : FJoins)
        if (const int slot = join.Target ? Slot(*join.Target) : -1; slot >= 0) {
            ++FSlots[size_t(slot)].LeadingStart;
            ++leading;
        }
    int end = 0;
    for (TSlot& slot : FSlots) {
        end += slot.LeadingStart;
        slot.LeadingStart = end;
    }
    FLeading.resize(size_t(leading));
    for (auto join = FJoins.rbegin(); join != FJoins.rend(); ++join)
        if (const int slot = join->Target ? Slot(*join->Target) : -1; slot >= 0)
            FLeading[size_t(--FSlots[size_t(slot)].LeadingStart)] = &*join;
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
    return table.Collection() == &FTables && index >= 0 && index < int(FSlots.size()) - 1 ? index
                                                                                          : -1;
}

int TVdJoinWalk::StepOf(const TVdTableDef& table) const
{
    const int slot = Slot(table);
    if (slot >= 0)
        return FSlots[size_t(slot)].Step;
    for (const auto& [other, step] : FOtherSteps)
        if (other == &table)
            return step;
    return NotEntered;
}

void TVdJoinWalk::SetStepOf(const TVdTableDef& table, int step)
{
    const int slot = Slot(table);
    if (slot >= 0) {
        FSlots[size_t(slot)].Step = step;
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
    return slot >= 0 && FSlots[size_t(slot) + 1].LeadingStart > FSlots[size_t(slot)].LeadingStart;
}

std::pair<const TVdJoinWalk::TJoin*, const TVdJoinWalk::TJoin*>
TVdJoinWalk::JoinsOf(const TVdTableDef& table)
{
    const int slot = Slot(table);
    if (slot >= 0)
        return {FJoins.data() + FSlots[size_t(slot)].JoinStart,
                FJoins.data() + FSlots[size_t(slot) + 1].JoinStart};
    if (!table.JoinList() || table.JoinList()->Count() == 0)
        return {nullptr, nullptr};
    const TVdJoinDefs& joins = *table.JoinList();
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
            for (int i = FSlots[size_t(slot)].LeadingStart;
                 i < FSlots[size_t(slot) + 1].LeadingStart; ++i)
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
            std::vector<const TJoin*>& more = steps[size_t(step)].More;
            const auto same = [join](const TJoin* other) { return other->Join == join; };
            if (steps[size_t(step)].Join->Join != join &&
                std::find_if(more.begin(), more.end(), same) == more.end())
                more.push_back(&next);
            continue;
        }
        const TVdTableDef* from = ownerIn ? owner : target;
        const TVdTableDef* table = ownerIn ? target : owner;
        SetStepOf(*table, int(steps.size()));
        steps.push_back({&next, from, table, !ownerIn, {}});
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
    const TVdJoinDef& join = *step.Join->Join;
    const TVdJoinKind kind = join.JoinKind;
    // Brought in from the other side, the table that keeps all its rows is on the other side.
    const TVdJoinKind printed = !step.Backwards         ? kind
                                : kind == vdjLOuterJoin ? vdjROuterJoin
                                : kind == vdjROuterJoin ? vdjLOuterJoin
                                                        : kind;
    join.AppendHead(out, printed, *step.Table);
    out += " (";
    join.AppendCondition(out, step.Backwards, *step.Join->Owner, *step.Join->Target);
    for (const TJoin* more : step.More) {
        out += ' ';
        join.AppendKeyword(out, "AND");
        out += ' ';
        more->Join->AppendCondition(out, false, *more->Owner, *more->Target);
    }
    out += ')';
}

} // namespace vd
