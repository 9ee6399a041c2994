#include "core/VdCriteria.h"

#include "core/VdOperators.h"
#include "core/VdScriptText.h"
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

TVdCriterion::TVdCriterion() = default;

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

bool TVdCriterion::IsGroup() const { return FSubItems && FSubItems->Count() > 0; }

void TVdCriterion::SetParser(TVdSelectParser* parser)
{
    TVdCollectionItem::SetParser(parser);
    FLeftSide.SetParser(parser);
    FRightSide.SetParser(parser);
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
    SetLeftSide(src->FLeftSide);
    SetRightSide(src->FRightSide);
    if (src->FSubItems)
        SetSubItems(*src->FSubItems);
    else if (FSubItems)
        FSubItems->Clear();
}

void TVdCriterion::SetLeftSide(const TVdFunctionDef& value) { FLeftSide.Assign(value); }

void TVdCriterion::SetRightSide(const TVdFunctionDefs& value) { FRightSide.Assign(value); }

void TVdCriterion::SetSubItems(const TVdCriterions& value) { SubItems().Assign(value); }

TVdCriterions* TVdCriterion::OwnerList() const
{
    return dynamic_cast<TVdCriterions*>(Collection());
}

TVdCriterion* TVdCriterion::ParentCriterion() const
{
    const TVdCriterions* list = OwnerList();
    return list ? list->Owner() : nullptr;
}

namespace {

// The right side of a comparison, appended to out: as many arguments as the operator takes,
// joined by its relating word (BETWEEN 1 AND 2); every argument when the operator is unknown.
void AppendRightSide(std::string& out, const TVdCriterion& criterion)
{
    const TVdCriterions* list = criterion.OwnerList();
    const TVdOperator* op = list && list->Parser()
                                ? list->Parser()->Operators().FindByCaption(criterion.Operator())
                                : nullptr;
    const TVdFunctionDefs& right = criterion.RightSide();
    if (!op || op->Count < 1) {
        script::AppendNodeList(out, right);
        return;
    }
    for (int i = 0; i < op->Count; ++i) {
        if (i < right.Count())
            script::AppendNodeScript(out, *right.Items(i));
        else
            out += ' ';
        if (i < op->Count - 1) {
            out += ' ';
            script::AppendKeyword(out, criterion.Parser(), op->Relate);
            out += ' ';
        }
    }
}

} // namespace

std::string TVdCriterion::GetScript() const
{
    if (IsGroup())
        return FSubItems->GetScript();
    std::string out;
    script::AppendNodeScript(out, FLeftSide);
    out += ' ';
    // An operator the table does not hold is text the statement gave (NOT IN-1, a partial
    // match that an operand completed): it prints as read, as a letter case could cut it into
    // other words (not in-1 reads as NOT, IN, -1 where only upper-case letters make words).
    const TVdSelectParser* parser = Parser();
    if (!parser || parser->Operators().FindByCaption(FOperator))
        script::AppendKeyword(out, parser, FOperator);
    else
        out += FOperator;
    // No blank after an operator without right side (IS NULL).
    const size_t mark = out.size();
    out += ' ';
    AppendRightSide(out, *this);
    if (out.size() == mark + 1)
        out.resize(mark);
    return out;
}

// ---- TVdCriterions ----

TVdCriterions::TVdCriterions(TVdCriterion* owner, TItemFactory factory)
    : TVdCollectionOf<TVdCriterion>(std::move(factory)), FOwner(owner)
{
}

void TVdCriterions::Assign(const TVdCollection& source)
{
    TVdCollection::Assign(source);
    if (const auto* src = dynamic_cast<const TVdCriterions*>(&source))
        Filter = src->Filter;
}

namespace {

// The text of a criteria list as TVdCriterions prints it, appended to out.
void AppendCriteria(std::string& out, const TVdCriterions& list)
{
    if (list.Count() == 0)
        return;
    const TVdSelectParser* parser = list.Parser();
    // cfNone is NOT over an AND-chain, cfNotAll NOT over an OR-chain; the parser reads the
    // pairing back the same way.
    const bool negated = list.Filter == cfNone || list.Filter == cfNotAll;
    if (negated) {
        script::AppendKeyword(out, parser, "NOT");
        out += " (";
    }
    const bool any = list.Filter == cfAny || list.Filter == cfNotAll;
    for (int i = 0; i < list.Count(); ++i) {
        if (i) {
            out += ' ';
            script::AppendKeyword(out, parser, any ? "OR" : "AND");
            out += " \r\n  ";
        }
        out += '(';
        out += list.Items(i)->GetScript();
        out += ')';
    }
    if (negated)
        out += ')';
    if (!list.Owner())
        out += "\r\n";
}

// A top-level WHERE or HAVING clause: the keyword, then the criteria; empty without any.
std::string ClauseScript(const TVdCriterions& list, const char* keyword)
{
    std::string out;
    if (list.Count() == 0)
        return out;
    script::AppendKeyword(out, list.Parser(), keyword);
    out += "\r\n  ";
    AppendCriteria(out, list);
    return out;
}

} // namespace

std::string TVdCriterions::GetScript() const
{
    std::string out;
    AppendCriteria(out, *this);
    return out;
}

TVdWhereItems::TVdWhereItems(TVdCriterion* owner)
    : TVdCriterions(owner, [] { return std::make_unique<TVdWhereItem>(); })
{
}

std::string TVdWhereItems::GetScript() const
{
    if (Owner())
        return TVdCriterions::GetScript();
    return ClauseScript(*this, "WHERE");
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
    return ClauseScript(*this, "HAVING");
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
