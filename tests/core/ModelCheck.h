#pragma once

// Invariant checkers for the query model, meant to run after every mutation in a test:
//   EXPECT_TRUE(vdcheck::CheckModel(parser));
// Each returns an AssertionResult that names the first broken invariant. The checkers only
// read the model; they never touch lazily made parts that do not exist yet (sub-items).

#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <initializer_list>
#include <string>
#include <vector>

namespace vdcheck {

using ::testing::AssertionFailure;
using ::testing::AssertionResult;
using ::testing::AssertionSuccess;

// Field order: the fields of all tables carry the indexes 0..n-1, each once; GetFieldCount
// is n and GetFieldDefs(i) finds the field holding index i.
inline AssertionResult CheckFieldOrder(const vd::TVdTableDefs& tables)
{
    int total = 0;
    for (int t = 0; t < tables.Count(); ++t)
        total += tables.Items(t)->FieldDefs().Count();
    if (tables.GetFieldCount() != total)
        return AssertionFailure() << "GetFieldCount() is " << tables.GetFieldCount()
                                  << " but the tables hold " << total << " fields";
    std::vector<const vd::TVdFieldDef*> byIndex(size_t(total), nullptr);
    for (int t = 0; t < tables.Count(); ++t) {
        const vd::TVdTableDef* table = tables.Items(t);
        const vd::TVdFieldDefs& fields = table->FieldDefs();
        for (int f = 0; f < fields.Count(); ++f) {
            const vd::TVdFieldDef* field = fields.Items(f);
            const int index = field->FieldIndex();
            if (index < 0 || index >= total)
                return AssertionFailure()
                       << "field '" << field->Name() << "' of table '" << table->Name()
                       << "' has index " << index << ", outside 0.." << total - 1;
            if (byIndex[size_t(index)])
                return AssertionFailure()
                       << "index " << index << " is held by both '"
                       << byIndex[size_t(index)]->Name() << "' and '" << field->Name() << "'";
            byIndex[size_t(index)] = field;
            if (field->Table() != table)
                return AssertionFailure()
                       << "field '" << field->Name() << "' does not name its table '"
                       << table->Name() << "' as owner";
        }
    }
    // GetFieldDefs walks the fields: asked for every index it would make the check cost the
    // square of a long select list. The first 32, the last and about 32 in between stand for all.
    const int stride = std::max(1, total / 32);
    for (int i = 0; i < total; i += i < 32 ? 1 : stride)
        if (tables.GetFieldDefs(i) != byIndex[size_t(i)])
            return AssertionFailure()
                   << "GetFieldDefs(" << i << ") is not the field with index " << i;
    if (total > 0 && tables.GetFieldDefs(total - 1) != byIndex[size_t(total - 1)])
        return AssertionFailure() << "GetFieldDefs(" << total - 1
                                  << ") is not the field with index " << total - 1;
    if (tables.GetFieldDefs(total) != nullptr)
        return AssertionFailure() << "GetFieldDefs(" << total << ") found a field past the end";
    return AssertionSuccess();
}

inline AssertionResult CheckFieldOrder(const vd::TVdSelectParser& parser)
{
    return CheckFieldOrder(parser.TableDefs());
}

// An expression node: every argument list is owned by its node, holds its items and passes
// the node's parser on, down to the leaves.
inline AssertionResult CheckFunctionTree(const vd::TVdFunctionDef& node)
{
    for (int i = 0; i < node.ArgumentCount(); ++i) {
        const vd::TVdFunctionDef* arg = node.Argument(i);
        const auto* list = dynamic_cast<const vd::TVdFunctionDefs*>(arg->Collection());
        if (!list || list->Owner() != &node)
            return AssertionFailure() << "argument " << i << " of '" << node.Name()
                                      << "' is not in a list owned by that node";
        if (arg->Index() != i)
            return AssertionFailure() << "argument " << i << " of '" << node.Name()
                                      << "' reports position " << arg->Index();
        if (arg->Parser() != node.Parser())
            return AssertionFailure() << "argument " << i << " of '" << node.Name()
                                      << "' has another parser than its node";
        AssertionResult sub = CheckFunctionTree(*arg);
        if (!sub)
            return sub;
    }
    return AssertionSuccess();
}

// Joins: every join list is owned by its table and every join names that table as owner.
inline AssertionResult CheckJoins(const vd::TVdTableDefs& tables)
{
    for (int t = 0; t < tables.Count(); ++t) {
        const vd::TVdTableDef* table = tables.Items(t);
        const vd::TVdJoinDefs& joins = table->JoinDefs();
        if (joins.Owner() != table)
            return AssertionFailure()
                   << "the join list of '" << table->Name() << "' has another owner";
        for (int j = 0; j < joins.Count(); ++j) {
            const vd::TVdJoinDef* join = joins.Items(j);
            if (join->GetTableDef() != table)
                return AssertionFailure()
                       << "join " << j << " of '" << table->Name() << "' names another owner table";
            if (join->Collection() != &joins || join->Index() != j)
                return AssertionFailure() << "join " << j << " of '" << table->Name()
                                          << "' does not know its place in its list";
            if (join->Parser() != tables.Parser())
                return AssertionFailure() << "join " << j << " of '" << table->Name()
                                          << "' has another parser than the tables";
        }
    }
    return AssertionSuccess();
}

// No ring of joins: FROM prints the tables no join reaches, each with what its joins reach,
// and would print none of a ring. Peeling off the tables no remaining join reaches must
// empty the statement.
inline AssertionResult CheckNoJoinRing(const vd::TVdTableDefs& tables)
{
    std::vector<std::vector<int>> joined(size_t(tables.Count()));
    std::vector<int> reachedBy(size_t(tables.Count()), 0);
    for (int t = 0; t < tables.Count(); ++t) {
        const vd::TVdJoinDefs& joins = tables.Items(t)->JoinDefs();
        for (int j = 0; j < joins.Count(); ++j)
            if (const vd::TVdTableDef* to = tables.FindByAlias(joins.Items(j)->JoinTable)) {
                joined[size_t(t)].push_back(to->Index());
                ++reachedBy[size_t(to->Index())];
            }
    }
    std::vector<int> free;
    for (int t = 0; t < tables.Count(); ++t)
        if (reachedBy[size_t(t)] == 0)
            free.push_back(t);
    int peeled = 0;
    while (!free.empty()) {
        const int t = free.back();
        free.pop_back();
        ++peeled;
        for (int to : joined[size_t(t)])
            if (--reachedBy[size_t(to)] == 0)
                free.push_back(to);
    }
    if (peeled != tables.Count())
        return AssertionFailure() << tables.Count() - peeled << " tables are joined in a ring";
    return AssertionSuccess();
}

inline AssertionResult CheckTables(const vd::TVdTableDefs& tables)
{
    for (int t = 0; t < tables.Count(); ++t) {
        const vd::TVdTableDef* table = tables.Items(t);
        if (table->Collection() != &tables || table->Index() != t)
            return AssertionFailure() << "table " << t << " does not know its place";
        if (table->Parser() != tables.Parser())
            return AssertionFailure()
                   << "table '" << table->Name() << "' has another parser than its collection";
        const vd::TVdFieldDefs& fields = table->FieldDefs();
        if (fields.Owner() != table)
            return AssertionFailure()
                   << "the field list of '" << table->Name() << "' has another owner";
        for (int f = 0; f < fields.Count(); ++f) {
            const vd::TVdFieldDef* field = fields.Items(f);
            if (field->Parser() != tables.Parser())
                return AssertionFailure() << "field '" << field->Name() << "' of '" << table->Name()
                                          << "' has another parser";
            AssertionResult tree = CheckFunctionTree(*field);
            if (!tree)
                return tree;
        }
    }
    return AssertionSuccess();
}

// Criteria: every sub-list's Owner is the criterion holding it, items know their list and
// parser, and a WHERE (HAVING) tree holds WHERE (HAVING) items and lists all the way down.
inline AssertionResult CheckCriteriaTree(const vd::TVdCriterions& list,
                                         const vd::TVdCriterion* owner)
{
    if (list.Owner() != owner)
        return AssertionFailure() << "a criteria list does not name the criterion holding it";
    const bool whereList = dynamic_cast<const vd::TVdWhereItems*>(&list) != nullptr;
    const bool havingList = dynamic_cast<const vd::TVdHavingItems*>(&list) != nullptr;
    for (int i = 0; i < list.Count(); ++i) {
        const vd::TVdCriterion* item = list.Items(i);
        if (item->Collection() != &list || item->OwnerList() != &list || item->Index() != i)
            return AssertionFailure() << "criterion " << i << " does not know its list";
        if (item->ParentCriterion() != owner)
            return AssertionFailure() << "criterion " << i << " names the wrong parent";
        if (item->Parser() != list.Parser())
            return AssertionFailure() << "criterion " << i << " has another parser than its list";
        if (whereList && !dynamic_cast<const vd::TVdWhereItem*>(item))
            return AssertionFailure() << "criterion " << i << " of a WHERE list is no WHERE item";
        if (havingList && !dynamic_cast<const vd::TVdHavingItem*>(item))
            return AssertionFailure() << "criterion " << i << " of a HAVING list is no HAVING item";
        if (item->RightSide().Owner() != item)
            return AssertionFailure()
                   << "the right side of criterion " << i << " has another owner";
        if (item->LeftSide().Parser() != item->Parser())
            return AssertionFailure()
                   << "the left side of criterion " << i << " has another parser";
        AssertionResult left = CheckFunctionTree(item->LeftSide());
        if (!left)
            return left;
        for (int a = 0; a < item->RightSide().Count(); ++a) {
            const vd::TVdFunctionDef* arg = item->RightSide().Items(a);
            if (arg->Parser() != item->Parser())
                return AssertionFailure()
                       << "argument " << a << " of criterion " << i << " has another parser";
            AssertionResult right = CheckFunctionTree(*arg);
            if (!right)
                return right;
        }
        if (item->IsGroup()) {
            const vd::TVdCriterions& sub = item->SubItems();
            if (whereList && !dynamic_cast<const vd::TVdWhereItems*>(&sub))
                return AssertionFailure()
                       << "the sub-items of WHERE criterion " << i << " are no WHERE list";
            if (havingList && !dynamic_cast<const vd::TVdHavingItems*>(&sub))
                return AssertionFailure()
                       << "the sub-items of HAVING criterion " << i << " are no HAVING list";
            if (sub.Parser() != item->Parser())
                return AssertionFailure()
                       << "the sub-items of criterion " << i << " have another parser";
            AssertionResult nested = CheckCriteriaTree(sub, item);
            if (!nested)
                return nested;
        }
    }
    return AssertionSuccess();
}

// The whole model of a parser.
inline AssertionResult CheckModel(const vd::TVdSelectParser& parser)
{
    const vd::TVdTableDefs& tables = parser.TableDefs();
    if (tables.Parser() != &parser)
        return AssertionFailure() << "the table collection does not know its parser";
    for (const AssertionResult& r : {CheckTables(tables), CheckFieldOrder(tables),
                                     CheckJoins(tables), CheckNoJoinRing(tables)})
        if (!r)
            return r;
    if (parser.WhereItems().Parser() != &parser || parser.HavingItems().Parser() != &parser)
        return AssertionFailure() << "a top-level criteria list does not know its parser";
    if (!dynamic_cast<const vd::TVdWhereItems*>(&parser.WhereItems()))
        return AssertionFailure() << "the WHERE list is no TVdWhereItems";
    if (!dynamic_cast<const vd::TVdHavingItems*>(&parser.HavingItems()))
        return AssertionFailure() << "the HAVING list is no TVdHavingItems";
    for (const vd::TVdCriterions* list : {&parser.WhereItems(), &parser.HavingItems()}) {
        AssertionResult r = CheckCriteriaTree(*list, nullptr);
        if (!r)
            return r;
    }
    if (parser.GroupByItems().Parser() != &parser || parser.OrderByItems().Parser() != &parser)
        return AssertionFailure() << "a GROUP BY or ORDER BY list does not know its parser";
    const vd::TVdOrderByItems& order = parser.OrderByItems();
    try {
        for (int i = 0; i < order.Count(); ++i) {
            const vd::TVdOrderKind kind = order.Orders(i);
            if (kind != vd::okAsc && kind != vd::okDesc)
                return AssertionFailure() << "ORDER BY line " << i << " has no valid direction";
        }
    } catch (const std::exception& e) {
        return AssertionFailure() << "ORDER BY lines and directions out of step: " << e.what();
    }
    return AssertionSuccess();
}

// ---- small builders, used the way the views build statements ----

inline vd::TVdTableDef* AddTable(vd::TVdSelectParser& parser, const std::string& name,
                                 const std::string& alias = std::string())
{
    vd::TVdTableDef* table = parser.TableDefs().Add();
    table->SetName(name);
    if (!alias.empty())
        table->SetAlias(alias);
    return table;
}

inline vd::TVdFieldDef* AddField(vd::TVdTableDef& table, const std::string& name,
                                 vd::TVdFunctionKind kind = vd::fkIdentifier)
{
    vd::TVdFieldDef* field = table.FieldDefs().Add();
    field->SetName(name);
    field->SetKind(kind);
    return field;
}

inline vd::TVdFunctionDef* AddArg(vd::TVdFunctionDefs& list, const std::string& name,
                                  vd::TVdFunctionKind kind)
{
    vd::TVdFunctionDef* node = list.Add();
    node->SetName(name);
    node->SetKind(kind);
    return node;
}

inline vd::TVdJoinDef* AddJoin(vd::TVdTableDef& owner, const std::string& fieldName,
                               const std::string& joinTable, const std::string& joinField,
                               vd::TVdJoinKind kind = vd::vdjInnerJoin,
                               const std::string& operation = "=")
{
    vd::TVdJoinDef* join = owner.JoinDefs().Add();
    join->FieldName = fieldName;
    join->JoinTable = joinTable;
    join->JoinField = joinField;
    join->JoinKind = kind;
    join->Operation = operation;
    return join;
}

struct TArg {
    std::string Name;
    vd::TVdFunctionKind Kind;
};

// A comparison criterion: left side, operator caption, right-side arguments.
inline vd::TVdCriterion* AddComparison(vd::TVdCriterions& list, const std::string& left,
                                       vd::TVdFunctionKind leftKind, const std::string& op,
                                       const std::vector<TArg>& args = {})
{
    vd::TVdCriterion* criterion = list.Add();
    criterion->LeftSide().SetName(left);
    criterion->LeftSide().SetKind(leftKind);
    criterion->SetOperator(op);
    for (const TArg& arg : args)
        AddArg(criterion->RightSide(), arg.Name, arg.Kind);
    return criterion;
}

// Lines joined by CR LF; a last empty line gives the closing line break.
inline std::string Crlf(std::initializer_list<const char*> lines)
{
    std::string result;
    bool first = true;
    for (const char* line : lines) {
        if (!first)
            result += "\r\n";
        result += line;
        first = false;
    }
    return result;
}

} // namespace vdcheck
