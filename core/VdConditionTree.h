#pragma once

// A condition as SQL reads it, before it becomes criteria: comparisons under AND, OR, NOT and
// parentheses. The reader builds it with SQL's precedence; FillClause turns it into the
// smallest criteria tree that means the same.

#include "core/VdCriteria.h"
#include "core/VdObjectPool.h"
#include "core/VdScanner.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace vd {

class TVdSelectParser;

enum TVdConditionKind : std::uint8_t { cnComparison, cnAnd, cnOr, cnNot, cnParenthesis };

struct TVdConditionNode {
    VD_POOLED_OBJECT

    TVdConditionKind Kind = cnComparison;
    // A comparison's criterion, not yet in any list.
    std::unique_ptr<TVdCriterion> Criterion;
    // The chain's items (AND, OR), the negated or the enclosed condition (NOT, parenthesis).
    std::vector<std::unique_ptr<TVdConditionNode>> Items;
    // Where the condition begins, to report a group nested too deep.
    TVdSQLScanner::TState Start{};

    static std::unique_ptr<TVdConditionNode> Comparison(TVdSelectParser& parser,
                                                        const TVdSQLScanner::TState& start);
    // A comparison whose criterion is made by the list the clause fills, so that filling it
    // can take the criterion in rather than copy it.
    static std::unique_ptr<TVdConditionNode>
    Comparison(TVdSelectParser& parser, TVdCriterions& list, const TVdSQLScanner::TState& start);
    static std::unique_ptr<TVdConditionNode> Chain(TVdConditionKind kind,
                                                   const TVdSQLScanner::TState& start);

    // A WHERE or HAVING clause from this condition: a chain at the top is the clause's list,
    // a parenthesised chain one group in it. Groups nest at most MaxGroupNesting deep below
    // the clause's list; the node that would open a deeper one is returned (the list is then
    // incomplete), null when all went in.
    const TVdConditionNode* FillClause(TVdCriterions& list);

    // Each group prints in parentheses, and NOT adds its own: so deep, a print stays within
    // the parentheses the parser reads back (TVdSelectParser::MaxNesting).
    static constexpr int MaxGroupNesting = 127;
};

} // namespace vd
