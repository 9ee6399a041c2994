#include "core/VdConditionTree.h"

#include "core/VdSelectParser.h"

namespace vd {

namespace {

using TNode = TVdConditionNode;

// Parentheses around a parenthesis say nothing more.
TNode& Unwrapped(TNode& node)
{
    TNode* inner = &node;
    while (inner->Kind == cnParenthesis)
        inner = inner->Items.front().get();
    return *inner;
}

const TNode* FillList(TNode& node, TVdCriterions& list, int level);

// What Assign copies into a new list item, with the right side's operands moved rather than
// copied: the condition tree is dropped once the clause is filled.
void TakeComparison(TVdCriterion& to, TVdCriterion& from)
{
    if (to.RightSide().Count() != 0 || to.RightSide().Parser() != from.RightSide().Parser()) {
        to.Assign(from);
        return;
    }
    to.SetOperator(from.Operator());
    to.SetLeftSide(from.LeftSide());
    from.RightSide().TransferAll(to.RightSide());
}

// One item of a list: a comparison, or a group holding the condition's own list.
const TNode* AddItem(TNode& node, TVdCriterions& list, int level)
{
    TNode& inner = Unwrapped(node);
    if (inner.Kind != cnComparison && level >= TVdConditionNode::MaxGroupNesting)
        return &node;
    if (inner.Kind == cnComparison) {
        std::unique_ptr<TVdCollectionItem> criterion(inner.Criterion.release());
        const bool taken = list.AdoptItem(criterion) != nullptr;
        inner.Criterion.reset(static_cast<TVdCriterion*>(criterion.release()));
        if (!taken)
            TakeComparison(*list.Add(), *inner.Criterion);
        return nullptr;
    }
    TVdCriterion* item = list.Add();
    return FillList(inner, item->SubItems(), level + 1);
}

// A list whose filter and items mean the condition: AND and OR chains are cfAll and cfAny,
// NOT over them cfNone and cfNotAll, as the list prints; anything else is the one item of a
// cfAll list, or under NOT of a cfNone list.
const TNode* FillList(TNode& node, TVdCriterions& list, int level)
{
    TNode& inner = Unwrapped(node);
    bool negated = false;
    TNode* chain = &inner;
    if (inner.Kind == cnNot) {
        negated = true;
        chain = &Unwrapped(*inner.Items.front());
    }
    if (chain->Kind == cnAnd || chain->Kind == cnOr) {
        const bool any = chain->Kind == cnOr;
        list.Filter = negated ? (any ? cfNotAll : cfNone) : (any ? cfAny : cfAll);
        for (auto& item : chain->Items)
            if (const TNode* tooDeep = AddItem(*item, list, level))
                return tooDeep;
        return nullptr;
    }
    list.Filter = negated ? cfNone : cfAll;
    return AddItem(*chain, list, level);
}

} // namespace

std::unique_ptr<TVdConditionNode> TVdConditionNode::Comparison(TVdSelectParser& parser,
                                                               const TVdSQLScanner::TState& start)
{
    auto node = std::make_unique<TVdConditionNode>();
    node->Kind = cnComparison;
    node->Start = start;
    node->Criterion = std::make_unique<TVdCriterion>();
    node->Criterion->SetParser(&parser);
    return node;
}

std::unique_ptr<TVdConditionNode> TVdConditionNode::Comparison(TVdSelectParser& parser,
                                                               TVdCriterions& list,
                                                               const TVdSQLScanner::TState& start)
{
    std::unique_ptr<TVdCollectionItem> made = list.NewItem();
    auto* criterion = dynamic_cast<TVdCriterion*>(made.get());
    if (!criterion)
        return Comparison(parser, start);
    made.release();
    auto node = std::make_unique<TVdConditionNode>();
    node->Kind = cnComparison;
    node->Start = start;
    node->Criterion.reset(criterion);
    node->Criterion->SetParser(&parser);
    return node;
}

std::unique_ptr<TVdConditionNode> TVdConditionNode::Chain(TVdConditionKind kind,
                                                          const TVdSQLScanner::TState& start)
{
    auto node = std::make_unique<TVdConditionNode>();
    node->Kind = kind;
    node->Start = start;
    return node;
}

const TVdConditionNode* TVdConditionNode::FillClause(TVdCriterions& list)
{
    // WHERE ((A = 1) AND (B = 2)) is one group criterion; WHERE (A = 1) a comparison.
    if (Kind == cnParenthesis && Unwrapped(*this).Kind != cnComparison) {
        list.Filter = cfAll;
        return AddItem(*this, list, 0);
    }
    return FillList(*this, list, 0);
}

} // namespace vd
