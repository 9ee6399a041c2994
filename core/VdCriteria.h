#pragma once

#include "core/VdCollection.h"
#include "core/VdFunctionDef.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vd {

enum TVdCriterionFilter : std::uint8_t { cfAll, cfAny, cfNone, cfNotAll };

// "All", "Any", "None", "Not all"; empty for anything else.
std::string GetFilterAsString(TVdCriterionFilter filter);

class TVdCriterions;

// A comparison (left side, operator, right-side arguments) or, when it has sub-items, a group.
class TVdCriterion : public TVdCollectionItem
{
public:
    TVdCriterion();
    ~TVdCriterion() override;

    // Also falls back to the first operator of the parser's table when Operator is unknown.
    void SetParser(TVdSelectParser* parser) override;
    void Assign(const TVdCollectionItem& source) override;
    virtual std::unique_ptr<TVdCriterions> CreateSubItems();
    virtual std::string GetScript() const;

    TVdCriterions& SubItems();
    const TVdCriterions& SubItems() const;
    bool IsGroup() const;
    const std::string& Operator() const { return FOperator; }
    void SetOperator(const std::string& caption) { FOperator = caption; }
    TVdFunctionDefs& RightSide() { return FRightSide; }
    const TVdFunctionDefs& RightSide() const { return FRightSide; }
    TVdFunctionDef& LeftSide() { return FLeftSide; }
    const TVdFunctionDef& LeftSide() const { return FLeftSide; }
    // The setters copy; they never take ownership.
    void SetLeftSide(const TVdFunctionDef& value);
    void SetRightSide(const TVdFunctionDefs& value);
    void SetSubItems(const TVdCriterions& value);

    // The list holding this criterion, and the criterion owning that list (null at the top).
    TVdCriterions* OwnerList() const;
    TVdCriterion* ParentCriterion() const;

private:
    mutable std::unique_ptr<TVdCriterions> FSubItems;
    std::string FOperator;
    // Both sides live in the criterion itself: every criterion has them.
    TVdFunctionDefs FRightSide{this};
    TVdFunctionDef FLeftSide;
};

// A list of criteria combined by Filter; Owner is the criterion whose sub-items these are,
// or null for a top-level list.
class TVdCriterions : public TVdCollectionOf<TVdCriterion>
{
public:
    TVdCriterions(TVdCriterion* owner, TItemMaker maker);
    TVdCriterions(TVdCriterion* owner, TItemFactory factory);
    template <class F>
    requires IsStatelessItemMaker<F> TVdCriterions(TVdCriterion* owner, F)
        : TVdCriterions(owner, MakerOf<F>())
    {
    }
    void Assign(const TVdCollection& source) override;
    // The group text; a top-level list ends with a line break.
    virtual std::string GetScript() const;

    TVdCriterionFilter Filter = cfAll;
    TVdCriterion* Owner() const { return FOwner; }

private:
    TVdCriterion* FOwner;
};

class TVdWhereItem : public TVdCriterion
{
public:
    std::unique_ptr<TVdCriterions> CreateSubItems() override;
};

class TVdHavingItem : public TVdCriterion
{
public:
    std::unique_ptr<TVdCriterions> CreateSubItems() override;
};

class TVdWhereItems : public TVdCriterions
{
public:
    explicit TVdWhereItems(TVdCriterion* owner = nullptr);
    std::string GetScript() const override;
};

class TVdHavingItems : public TVdCriterions
{
public:
    explicit TVdHavingItems(TVdCriterion* owner = nullptr);
    std::string GetScript() const override;
};

} // namespace vd
