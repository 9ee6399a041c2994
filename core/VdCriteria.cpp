#include "core/VdCriteria.h"

#include "core/VdOperators.h"
#include "core/VdSelectParser.h"

namespace vd {

std::string GetFilterAsString(TVdCriterionFilter filter)
{
    switch (filter) {
    case cfAll:
        return "All";
    case cfAny:
        return "Any";
    case cfNone:
        return "None";
    case cfNotAll:
        return "Not all";
    }
    return std::string();
}

// ---- TVdCriterion ----

TVdCriterion::TVdCriterion()
    : FRightSide(std::make_unique<TVdFunctionDefs>(this))
    , FLeftSide(std::make_unique<TVdFunctionDef>())
{
}

TVdCriterion::~TVdCriterion() = default;

std::unique_ptr<TVdCriterions> TVdCriterion::CreateSubItems()
{
    return std::make_unique<TVdCriterions>(this, [] { return std::make_unique<TVdCriterion>(); });
}

TVdCriterions& TVdCriterion::SubItems()
{
    if (!FSubItems) {
        FSubItems = CreateSubItems();
        FSubItems->SetParser(Parser());
    }
    return *FSubItems;
}

const TVdCriterions& TVdCriterion::SubItems() const
{
    return const_cast<TVdCriterion*>(this)->SubItems();
}

bool TVdCriterion::IsGroup() const
{
    return FSubItems && FSubItems->Count() > 0;
}

void TVdCriterion::SetParser(TVdSelectParser* parser)
{
    TVdCollectionItem::SetParser(parser);
    FLeftSide->SetParser(parser);
    FRightSide->SetParser(parser);
    if (FSubItems)
        FSubItems->SetParser(parser);
    if (parser) {
        const TVdOperators& operators = parser->Operators();
        if (operators.Count() > 0 && !operators.FindByCaption(FOperator))
            FOperator = operators.Items(0)->Caption;
    }
}

void TVdCriterion::Assign(const TVdCollectionItem& source)
{
    const auto* src = dynamic_cast<const TVdCriterion*>(&source);
    if (!src || src == this)
        return;
    FOperator = src->FOperator;
    SetLeftSide(*src->FLeftSide);
    SetRightSide(*src->FRightSide);
    if (src->FSubItems)
        SetSubItems(*src->FSubItems);
    else if (FSubItems)
        FSubItems->Clear();
}

void TVdCriterion::SetLeftSide(const TVdFunctionDef& value)
{
    FLeftSide->Assign(value);
}

void TVdCriterion::SetRightSide(const TVdFunctionDefs& value)
{
    FRightSide->Assign(value);
}

void TVdCriterion::SetSubItems(const TVdCriterions& value)
{
    SubItems().Assign(value);
}

TVdCriterions* TVdCriterion::OwnerList() const
{
    return dynamic_cast<TVdCriterions*>(Collection());
}

TVdCriterion* TVdCriterion::ParentCriterion() const
{
    const TVdCriterions* list = OwnerList();
    return list ? list->Owner() : nullptr;
}

std::string TVdCriterion::RightSideScript() const
{
    const TVdCriterions* list = OwnerList();
    const TVdOperator* op = list && list->Parser() ? list->Parser()->Operators().FindByCaption(FOperator)
                                                   : nullptr;
    if (!op || op->Count < 1)
        return FRightSide->GetScript();
    std::string result;
    for (int i = 0; i < op->Count; ++i) {
        result += i < FRightSide->Count() ? FRightSide->Items(i)->GetScript() : std::string(" ");
        if (i < op->Count - 1)
            result += " " + ProcessKeyword(op->Relate) + " ";
    }
    return result;
}

std::string TVdCriterion::GetScript() const
{
    if (IsGroup())
        return FSubItems->GetScript();
    const std::string right = RightSideScript();
    const std::string left = FLeftSide->GetScript();
    if (right.empty())
        return left + " " + ProcessKeyword(FOperator);
    return left + " " + ProcessKeyword(FOperator) + " " + right;
}

// ---- TVdCriterions ----

TVdCriterions::TVdCriterions(TVdCriterion* owner, TItemFactory factory)
    : TVdCollectionOf<TVdCriterion>(std::move(factory))
    , FOwner(owner)
{
}

void TVdCriterions::Assign(const TVdCollection& source)
{
    TVdCollection::Assign(source);
    if (const auto* src = dynamic_cast<const TVdCriterions*>(&source))
        Filter = src->Filter;
}

std::string TVdCriterions::GetScript() const
{
    if (Count() == 0)
        return std::string();
    const bool any = Filter == cfAny || Filter == cfNotAll;
    const std::string word = any ? "OR" : "AND";
    const std::string connector = " " + (Parser() ? Parser()->ProcessKeyword(word) : word) + " ";
    std::string result;
    for (int i = 0; i < Count(); ++i) {
        if (i)
            result += "\r\n  ";
        result += '(';
        result += Items(i)->GetScript();
        result += ')';
        if (i < Count() - 1)
            result += connector;
    }
    // cfNone is NOT over an AND-chain, cfNotAll NOT over an OR-chain; the parser reads the
    // pairing back the same way.
    if (Filter == cfNone || Filter == cfNotAll) {
        const std::string notWord = Parser() ? Parser()->ProcessKeyword("NOT") : std::string("NOT");
        result = notWord + " (" + result + ")";
    }
    if (!FOwner)
        result += "\r\n";
    return result;
}

TVdWhereItems::TVdWhereItems(TVdCriterion* owner)
    : TVdCriterions(owner, [] { return std::make_unique<TVdWhereItem>(); })
{
}

std::string TVdWhereItems::GetScript() const
{
    const std::string text = TVdCriterions::GetScript();
    if (text.empty() || Owner())
        return text;
    const std::string where = Parser() ? Parser()->ProcessKeyword("WHERE") : std::string("WHERE");
    return where + "\r\n  " + text;
}

TVdHavingItems::TVdHavingItems(TVdCriterion* owner)
    : TVdCriterions(owner, [] { return std::make_unique<TVdHavingItem>(); })
{
}

std::string TVdHavingItems::GetScript() const
{
    if (Owner())
        return TVdCriterions::GetScript();
    if (Parser() && Parser()->GroupByItems().Count() == 0)
        return std::string();
    const std::string text = TVdCriterions::GetScript();
    if (text.empty())
        return text;
    return (Parser() ? Parser()->ProcessKeyword("HAVING") : std::string("HAVING")) + "\r\n  " + text;
}

std::unique_ptr<TVdCriterions> TVdWhereItem::CreateSubItems()
{
    return std::make_unique<TVdWhereItems>(this);
}

std::unique_ptr<TVdCriterions> TVdHavingItem::CreateSubItems()
{
    return std::make_unique<TVdHavingItems>(this);
}

} // namespace vd
