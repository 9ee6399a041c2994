#include "core/VdCriteria.h"

#include "core/VdOperators.h"
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"

#include <typeinfo>

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
        const TVdOperators& operators = parser->OperatorTable();
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
void AppendRightSide(std::string& out, const TVdCriterion& criterion, const TVdOperator* op)
{
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

// criterion.OwnerList(), without a cast for the lists of this library.
const TVdCriterions* ListOf(const TVdCriterion& criterion)
{
    const TVdCollection* collection = criterion.Collection();
    if (!collection)
        return nullptr;
    const std::type_info& type = typeid(*collection);
    if (type == typeid(TVdWhereItems) || type == typeid(TVdHavingItems) ||
        type == typeid(TVdCriterions))
        return static_cast<const TVdCriterions*>(collection);
    return criterion.OwnerList();
}

// What TVdCriterion::GetScript prints for a comparison, appended to out.
void AppendComparison(std::string& out, const TVdCriterion& criterion)
{
    script::AppendNodeScript(out, criterion.LeftSide());
    out += ' ';
    // An operator the table does not hold is text the statement gave (NOT IN-1, a partial
    // match that an operand completed): it prints as read, as a letter case could cut it into
    // other words (not in-1 reads as NOT, IN, -1 where only upper-case letters make words).
    const TVdSelectParser* parser = criterion.Parser();
    const TVdOperator* op =
        parser ? parser->OperatorTable().FindByCaption(criterion.Operator()) : nullptr;
    if (!parser || op)
        script::AppendKeyword(out, parser, criterion.Operator());
    else
        out += criterion.Operator();
    // The right side looks the operator up through the list's parser, which is almost always
    // the criterion's own.
    const TVdCriterions* list = ListOf(criterion);
    const TVdSelectParser* listParser = list ? list->Parser() : nullptr;
    if (listParser != parser)
        op = listParser ? listParser->OperatorTable().FindByCaption(criterion.Operator()) : nullptr;
    // No blank after an operator without right side (IS NULL).
    const size_t mark = out.size();
    out += ' ';
    AppendRightSide(out, criterion, op);
    if (out.size() == mark + 1)
        out.resize(mark);
}

} // namespace

void script::AppendCriterionScript(std::string& out, const TVdCriterion& criterion)
{
    const std::type_info& type = typeid(criterion);
    if (type != typeid(TVdWhereItem) && type != typeid(TVdHavingItem) &&
        type != typeid(TVdCriterion)) {
        out += criterion.GetScript();
        return;
    }
    if (criterion.IsGroup())
        AppendCriteriaScript(out, criterion.SubItems());
    else
        AppendComparison(out, criterion);
}

std::string TVdCriterion::GetScript() const
{
    if (IsGroup())
        return FSubItems->GetScript();
    std::string out;
    AppendComparison(out, *this);
    return out;
}

// ---- TVdCriterions ----

TVdCriterions::TVdCriterions(TVdCriterion* owner, TItemMaker maker)
    : TVdCollectionOf<TVdCriterion>(maker), FOwner(owner)
{
}

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
        script::AppendCriterionScript(out, *list.Items(i));
        out += ')';
    }
    if (negated)
        out += ')';
    if (!list.Owner())
        out += "\r\n";
}

// A top-level WHERE or HAVING clause appended to out: the keyword, then the criteria;
// nothing without any.
void AppendClause(std::string& out, const TVdCriterions& list, const char* keyword)
{
    if (list.Count() == 0)
        return;
    script::AppendKeyword(out, list.Parser(), keyword);
    out += "\r\n  ";
    AppendCriteria(out, list);
}

// TVdWhereItems::GetScript appended to out.
void AppendWhere(std::string& out, const TVdCriterions& list)
{
    if (list.Owner())
        AppendCriteria(out, list);
    else
        AppendClause(out, list, "WHERE");
}

// TVdHavingItems::GetScript appended to out.
void AppendHaving(std::string& out, const TVdCriterions& list)
{
    if (list.Owner()) {
        AppendCriteria(out, list);
        return;
    }
    if (list.Parser() && list.Parser()->GroupByItems().Count() == 0)
        return;
    AppendClause(out, list, "HAVING");
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
    std::string out;
    AppendWhere(out, *this);
    return out;
}

TVdHavingItems::TVdHavingItems(TVdCriterion* owner)
    : TVdCriterions(owner, [] { return std::make_unique<TVdHavingItem>(); })
{
}

std::string TVdHavingItems::GetScript() const
{
    std::string out;
    AppendHaving(out, *this);
    return out;
}

void script::AppendCriteriaScript(std::string& out, const TVdCriterions& list)
{
    const std::type_info& type = typeid(list);
    if (type == typeid(TVdWhereItems))
        AppendWhere(out, list);
    else if (type == typeid(TVdHavingItems))
        AppendHaving(out, list);
    else if (type == typeid(TVdCriterions))
        AppendCriteria(out, list);
    else
        out += list.GetScript();
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
