// GROUP BY and ORDER BY lists, aliases and lookups under random edits, and the dialect hooks
// the model reaches through the scanner.

#include "tests/core/ModelCheck.h"

#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace vd;
using vdcheck::AddArg;
using vdcheck::AddField;
using vdcheck::AddJoin;
using vdcheck::AddTable;
using vdcheck::CheckModel;

#define EXPECT_MODEL_OK(parser) EXPECT_TRUE(CheckModel(parser))

namespace {

// PRODUCTS P with CATEGORY and COUNT(*).
TVdFieldDef* AddCountStar(TVdTableDef& table)
{
    TVdFieldDef* count = AddField(table, "COUNT", fkFunction);
    AddArg(count->Arguments(), "*", fkUnknown);
    return count;
}

} // namespace

TEST(VdGroupBy, RebuiltFromPlainIdentifiersWhenAggregatesArePresent)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddField(*o, "ORDER_DATE");
    AddCountStar(*o);
    AddField(*c, "NAME");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.GroupByItems().GetScript(),
              "GROUP BY\r\n  \"O\".\"ORDER_DATE\",\r\n  \"C\".\"NAME\"\r\n");
    EXPECT_MODEL_OK(p);
    ASSERT_EQ(p.GroupByItems().Count(), 2);
    EXPECT_EQ(p.GroupByItems()[0], "\"O\".\"ORDER_DATE\"");
    EXPECT_EQ(p.GroupByItems()[1], "\"C\".\"NAME\"");
}

TEST(VdGroupBy, OnlyAggregatesGiveNoGroupBy)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddCountStar(*t);
    TVdFieldDef* sum = AddField(*t, "SUM", fkFunction);
    AddArg(sum->Arguments(), "X", fkIdentifier);
    p.GroupByItems().Add("stale");
    EXPECT_EQ(p.GroupByItems().GetScript(), "");
    EXPECT_EQ(p.GroupByItems().Count(), 0);
}

TEST(VdGroupBy, OnlyPlainFieldsGiveNoGroupBy)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "A");
    TVdFieldDef* upper = AddField(*t, "UPPER", fkFunction);
    AddArg(upper->Arguments(), "B", fkIdentifier);
    p.GroupByItems().Add("stale");
    EXPECT_EQ(p.GroupByItems().GetScript(), "");
    EXPECT_EQ(p.GroupByItems().Count(), 0);
}

TEST(VdGroupBy, AggregateNamesAreLookedUpIgnoringCase)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "A");
    TVdFieldDef* sum = AddField(*t, "sum", fkFunction);
    AddArg(sum->Arguments(), "X", fkIdentifier);
    EXPECT_EQ(p.GroupByItems().GetScript(), "GROUP BY\r\n  \"T\".\"A\"\r\n");
}

TEST(VdGroupBy, OnlyIdentifiersThatAreNoAggregateNamesAreAdded)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddCountStar(*t);
    AddField(*t, "A + B", fkExpression);                    // plain, but no identifier
    TVdFieldDef* upper = AddField(*t, "UPPER", fkFunction); // no aggregate: plain
    AddArg(upper->Arguments(), "C", fkIdentifier);
    AddField(*t, "MAX"); // an identifier named like an aggregate
    AddField(*t, "D");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.GroupByItems().GetScript(), "GROUP BY\r\n  \"T\".\"D\"\r\n");
}

TEST(VdGroupBy, PlainFieldsThatAreNoIdentifiersGiveAnEmptyList)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddCountStar(*t);
    AddField(*t, "MAX");
    EXPECT_EQ(p.GroupByItems().GetScript(), "");
}

TEST(VdGroupBy, IdentifierUsesTableNameWhenAliasIsEmpty)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "ORDERS");
    t->SetAlias("");
    AddCountStar(*t);
    AddField(*t, "STATUS");
    EXPECT_EQ(p.GroupByItems().GetScript(), "GROUP BY\r\n  \"ORDERS\".\"STATUS\"\r\n");
}

TEST(VdGroupBy, KeywordsFollowTheFormat)
{
    TVdSelectParser p;
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    TVdTableDef* t = AddTable(p, "T");
    AddCountStar(*t);
    AddField(*t, "A");
    EXPECT_EQ(p.GroupByItems().GetScript(), "group by\r\n  \"T\".\"A\"\r\n");
}

TEST(VdGroupBy, WithoutParserTheLinesArePrintedAsTheyAre)
{
    TVdGroupByItems list;
    EXPECT_EQ(list.GetScript(), "");
    list.Add("A.B");
    list.Add("my col");
    EXPECT_EQ(list.GetScript(), "GROUP BY\r\n  A.B,\r\n  my col\r\n");
    EXPECT_EQ(list.Count(), 2);
}

// ---- ORDER BY ----

TEST(VdOrderBy, AddIsAscendingAndAddOrderedKeepsTheKind)
{
    TVdOrderByItems list;
    EXPECT_EQ(list.Add("A"), 0);
    EXPECT_EQ(list.AddOrdered("B", okDesc), 1);
    EXPECT_EQ(list.AddOrdered("C", okAsc), 2);
    EXPECT_EQ(list.Orders(0), okAsc);
    EXPECT_EQ(list.Orders(1), okDesc);
    EXPECT_EQ(list.Orders(2), okAsc);
    EXPECT_EQ(list.GetScript(), "ORDER BY\r\n  A,\r\n  B DESC,\r\n  C\r\n");
}

TEST(VdOrderBy, WritingAnOrderOutOfRangeIsIgnored)
{
    TVdOrderByItems list;
    list.Add("A");
    list.SetOrders(1, okDesc);
    list.SetOrders(-1, okDesc);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Orders(0), okAsc);
    list.SetOrders(0, okDesc);
    EXPECT_EQ(list.Orders(0), okDesc);
    EXPECT_EQ(list.GetScript(), "ORDER BY\r\n  A DESC\r\n");
}

TEST(VdOrderBy, DeleteKeepsTheKindsInStep)
{
    TVdOrderByItems list;
    list.Add("A");
    list.AddOrdered("B", okDesc);
    list.Add("C");
    list.Delete(0);
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list[0], "B");
    EXPECT_EQ(list.Orders(0), okDesc);
    EXPECT_EQ(list.Orders(1), okAsc);
    list.Delete(5); // out of range: nothing happens
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.GetScript(), "ORDER BY\r\n  B DESC,\r\n  C\r\n");
}

TEST(VdOrderBy, ClearKeepsTheKindsInStep)
{
    TVdOrderByItems list;
    list.AddOrdered("A", okDesc);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.GetScript(), "");
    list.Add("B");
    EXPECT_EQ(list.Orders(0), okAsc);
    EXPECT_EQ(list.GetScript(), "ORDER BY\r\n  B\r\n");
}

TEST(VdOrderBy, AssignCopiesLinesAndKinds)
{
    TVdOrderByItems source;
    source.Add("A");
    source.AddOrdered("B", okDesc);
    TVdOrderByItems copy;
    copy.AddOrdered("X", okDesc);
    copy.AddOrdered("Y", okDesc);
    copy.AddOrdered("Z", okDesc);
    copy.Assign(source);
    ASSERT_EQ(copy.Count(), 2);
    EXPECT_EQ(copy[0], "A");
    EXPECT_EQ(copy.Orders(0), okAsc);
    EXPECT_EQ(copy[1], "B");
    EXPECT_EQ(copy.Orders(1), okDesc);
    copy.Delete(0);
    EXPECT_EQ(copy.Orders(0), okDesc);
    EXPECT_EQ(source.Count(), 2);
}

TEST(VdOrderBy, NamesAreQuotedAndDescIsAppendedAsWritten)
{
    TVdSelectParser p;
    p.OrderByItems().AddOrdered("O.ORDER_DATE", okDesc);
    p.OrderByItems().Add("TOTAL");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.OrderByItems().GetScript(),
              "ORDER BY\r\n  \"O\".\"ORDER_DATE\" DESC,\r\n  \"TOTAL\"\r\n");
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    EXPECT_EQ(p.OrderByItems().GetScript(),
              "order by\r\n  \"O\".\"ORDER_DATE\" DESC,\r\n  \"TOTAL\"\r\n");
}

TEST(VdOrderBy, StringListWithoutParserProcessesNothing)
{
    TVdOrderByItems list;
    EXPECT_EQ(list.ProcessName("A.B"), "A.B");
    EXPECT_EQ(list.ProcessKeyword("order"), "order");
    TVdSelectParser p;
    list.SetParser(&p);
    EXPECT_EQ(list.ProcessName("A.B"), "\"A\".\"B\"");
}

TEST(VdGroupBy, FileNameTableKeepsItsDotInTheQualifier)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "customer.db");
    AddCountStar(*t);
    AddField(*t, "ID");
    EXPECT_MODEL_OK(p);
    // customer.db.ID: the prefix customer.db is quoted as one name.
    EXPECT_EQ(p.GroupByItems().GetScript(), "GROUP BY\r\n  \"customer.db\".\"ID\"\r\n");
}

// ---- aliases, field order and lookups under random edits ----

namespace {

// The alias rule written out plainly: name, or name1, name2, ... while forced or taken.
std::string PlainUniqueAlias(const TVdTableDefs& tables, const std::string& name, bool force)
{
    auto taken = [&tables](const std::string& alias) {
        for (int t = 0; t < tables.Count(); ++t) {
            const TVdFieldDefs& fields = tables.Items(t)->FieldDefs();
            for (int f = 0; f < fields.Count(); ++f)
                if (fields.Items(f)->Alias() == alias)
                    return true;
        }
        return false;
    };
    std::string result = name;
    for (int counter = 1; force || taken(result); ++counter) {
        result = name + std::to_string(counter);
        force = false;
    }
    return result;
}

TVdTableDef* PlainFind(const TVdTableDefs& tables, const std::string& text, bool byAlias)
{
    for (int t = 0; t < tables.Count(); ++t) {
        TVdTableDef* table = tables.Items(t);
        if ((byAlias ? table->Alias() : table->Name()) == text)
            return table;
    }
    return nullptr;
}

struct TFieldSnap {
    std::string Name;
    std::string Alias;
    TVdFunctionKind Kind;
};

} // namespace

TEST(VdModelEdits, RandomEditsKeepAliasesOrderAndLookupsConsistent)
{
    const std::vector<std::string> names = {"A", "A1", "B", "ID", "ID1", "FIELD_1", "FIELD_"};
    const std::vector<std::string> aliases = {"A", "A1", "A2", "ID", "ID2", "X", "", "FIELD_2"};
    const std::vector<std::string> tableWords = {"T", "U", "V", "W", ""};
    std::mt19937 random(20240611u);
    auto pick = [&random](size_t n) { return size_t(random() % n); };

    TVdSelectParser p;
    TVdTableDefs& tables = p.TableDefs();
    auto randomField = [&]() -> TVdFieldDef* {
        if (tables.GetFieldCount() == 0)
            return nullptr;
        return tables.GetFieldDefs(int(pick(size_t(tables.GetFieldCount()))));
    };

    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        switch (pick(10)) {
        case 0: {
            AddTable(p, tableWords[pick(tableWords.size())], tableWords[pick(tableWords.size())]);
            break;
        }
        case 1:
        case 2: {
            if (tables.Count() == 0)
                break;
            const std::string name = names[pick(names.size())];
            const std::string expected = PlainUniqueAlias(tables, name, false);
            TVdFieldDef* f = tables.Items(int(pick(size_t(tables.Count()))))->FieldDefs().Add();
            f->SetName(name);
            ASSERT_EQ(f->Alias(), expected);
            break;
        }
        case 3: {
            TVdFieldDef* f = randomField();
            if (!f)
                break;
            const std::string name = names[pick(names.size())];
            const std::string expected =
                f->Alias() == f->Name() ? PlainUniqueAlias(tables, name, false) : f->Alias();
            f->SetName(name);
            ASSERT_EQ(f->Alias(), expected);
            break;
        }
        case 4: {
            if (TVdFieldDef* f = randomField())
                f->SetAlias(aliases[pick(aliases.size())]);
            break;
        }
        case 5: {
            TVdFieldDef* f = randomField();
            if (!f)
                break;
            const std::string expected =
                f->Alias() == f->Name() ? PlainUniqueAlias(tables, "FIELD_", true) : f->Alias();
            f->SetKind(fkExpression);
            ASSERT_EQ(f->Alias(), expected);
            break;
        }
        case 6: {
            if (TVdFieldDef* f = randomField())
                f->Table()->FieldDefs().Delete(f->Index());
            break;
        }
        case 7: {
            if (tables.Count() > 0 && pick(3) == 0)
                tables.Delete(int(pick(size_t(tables.Count()))));
            break;
        }
        case 8: {
            if (tables.Count() == 0)
                break;
            TVdTableDef* t = tables.Items(int(pick(size_t(tables.Count()))));
            if (pick(2))
                t->SetAlias(tableWords[pick(tableWords.size())]);
            else
                t->SetName(tableWords[pick(tableWords.size())]);
            break;
        }
        case 9: {
            // A batch of alias edits, then the renewal at EndUpdate, simulated plainly.
            tables.BeginUpdate();
            for (int k = 0; k < 3; ++k)
                if (TVdFieldDef* f = randomField())
                    f->SetAlias(aliases[pick(aliases.size())]);
            std::vector<std::vector<TFieldSnap>> snap;
            for (int t = 0; t < tables.Count(); ++t) {
                snap.emplace_back();
                const TVdFieldDefs& fields = tables.Items(t)->FieldDefs();
                for (int f = 0; f < fields.Count(); ++f)
                    snap.back().push_back({fields.Items(f)->Name(), fields.Items(f)->Alias(),
                                           fields.Items(f)->Kind()});
            }
            auto takenInSnap = [&snap](const std::string& alias) {
                for (const auto& table : snap)
                    for (const TFieldSnap& field : table)
                        if (field.Alias == alias)
                            return true;
                return false;
            };
            for (auto& table : snap)
                for (size_t f = 0; f < table.size(); ++f) {
                    bool clash = false;
                    for (size_t g = 0; g < table.size(); ++g)
                        if (g != f && table[g].Alias == table[f].Name)
                            clash = true;
                    // A field under an alias of its own is left alone.
                    const bool ownAlias =
                        !table[f].Alias.empty() && table[f].Alias != table[f].Name;
                    if (!clash || ownAlias)
                        continue;
                    const std::string base =
                        table[f].Kind == fkIdentifier ? table[f].Name : std::string("FIELD_");
                    std::string alias = base;
                    bool force = true;
                    for (int counter = 1; force || takenInSnap(alias); ++counter) {
                        alias = base + std::to_string(counter);
                        force = false;
                    }
                    table[f].Alias = alias;
                }
            tables.EndUpdate();
            for (int t = 0; t < tables.Count(); ++t) {
                const TVdFieldDefs& fields = tables.Items(t)->FieldDefs();
                for (int f = 0; f < fields.Count(); ++f)
                    ASSERT_EQ(fields.Items(f)->Alias(), snap[size_t(t)][size_t(f)].Alias)
                        << "table " << t << " field " << f;
            }
            break;
        }
        }
        ASSERT_TRUE(CheckModel(p));
        for (const std::string& name : names) {
            ASSERT_EQ(tables.GetUniqueAlias(name, false), PlainUniqueAlias(tables, name, false))
                << name;
            ASSERT_EQ(tables.GetUniqueAlias(name, true), PlainUniqueAlias(tables, name, true))
                << name;
        }
        for (const std::string& word : tableWords) {
            ASSERT_EQ(tables.FindByName(word), PlainFind(tables, word, false)) << word;
            ASSERT_EQ(tables.FindByAlias(word), PlainFind(tables, word, true)) << word;
        }
    }
}

// ---- dialect hooks reached through the scanner and the parser's lists ----

namespace {

class TAliasQuotingScanner : public TVdSQLScanner
{
public:
    bool GetProcessAliases() const override { return true; }
};

class TBackQuoteScanner : public TVdSQLScanner
{
public:
    char GetIdentQuote() const override { return '`'; }
};

template <class TScanner> class TScannerParser : public TVdSelectParser
{
public:
    std::unique_ptr<TVdSQLScanner> CreateScanner() override { return std::make_unique<TScanner>(); }
};

} // namespace

TEST(VdProcessing, AliasesAreQuotedWhenTheScannerProcessesThem)
{
    TScannerParser<TAliasQuotingScanner> p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    TVdFieldDef* f = AddField(*o, "ID");
    f->SetAlias("my id");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "C", "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->ProcessAlias("my id"), "\"my id\"");
    EXPECT_EQ(o->ProcessAlias("O"), "\"O\"");
    EXPECT_EQ(f->GetScript(), "\"O\".\"ID\" AS \"my id\"");
    EXPECT_EQ(j->GetScript(),
              "INNER JOIN \"CUSTOMERS\" \"C\" ON (\"O\".\"CUST_ID\" = \"C\".\"ID\")");
    EXPECT_EQ(o->GetScript(),
              "  \"ORDERS\" \"O\" \r\n"
              "  INNER JOIN \"CUSTOMERS\" \"C\" ON (\"O\".\"CUST_ID\" = \"C\".\"ID\")");

    TVdSelectParser generic;
    TVdTableDef* t = AddTable(generic, "ORDERS", "O");
    EXPECT_EQ(t->ProcessAlias("O"), "O");
    EXPECT_EQ(AddField(*t, "ID")->ProcessAlias("my id"), "my id");
}

TEST(VdProcessing, FileNameIsEnclosedInTheScannersIdentifierQuote)
{
    TScannerParser<TBackQuoteScanner> p;
    TVdTableDef* t = AddTable(p, "customer.db");
    AddField(*t, "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->ProcessName("customer.db"), "`customer.db`");
    EXPECT_EQ(t->ProcessName("T.A"), "`T`.`A`");
    EXPECT_EQ(p.GetExpression(), "SELECT \r\n  `customer.db`.`ID`\r\nFROM\r\n  `customer.db`\r\n");
}

TEST(VdGroupBy, UsesTheParsersAggregateList)
{
    TVdSelectParser p;
    TVdWordList words;
    words.SetCommaText("median");
    p.SetAggregates(words);
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "A");
    TVdFieldDef* count = AddCountStar(*t);
    EXPECT_MODEL_OK(p);
    // COUNT is no aggregate any more: two plain fields, no GROUP BY.
    EXPECT_EQ(p.GroupByItems().GetScript(), "");
    count->SetName("MEDIAN");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.GroupByItems().GetScript(), "GROUP BY\r\n  \"T\".\"A\"\r\n");
}

TEST(VdFieldDef, AssignCopiesExpressionAliasAndParameterType)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* src = AddField(*t, "SUM", fkFunction);
    AddArg(src->Arguments(), "X", fkIdentifier);
    src->SetAlias("TOTAL");
    src->SetParamType(ptInputOutput);
    TVdFieldDef* dst = AddField(*t, "B");
    dst->Assign(*src);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(dst->Name(), "SUM");
    EXPECT_EQ(dst->Kind(), fkFunction);
    EXPECT_EQ(dst->Alias(), "TOTAL");
    EXPECT_EQ(dst->ParamType(), ptInputOutput);
    EXPECT_EQ(dst->FieldIndex(), 1);
    ASSERT_EQ(dst->ArgumentCount(), 1);
    EXPECT_NE(dst->Argument(0), src->Argument(0));
    EXPECT_EQ(dst->GetScript(), "SUM(\"T\".\"X\") AS TOTAL");
    // The copied alias is taken: the next B gets B1 only if B is still used.
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("TOTAL", false), "TOTAL1");
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("B", false), "B");
}

TEST(VdTableDef, AssignCopiesNameAliasTypeFieldsAndJoins)
{
    TVdSelectParser p;
    TVdTableDef* src = AddTable(p, "GET_ITEMS", "G");
    src->SetTableType(qttStoredProc);
    AddField(*src, "P")->SetParamType(ptInput);
    AddField(*src, "X");
    AddJoin(*src, "X", "O", "ID", vdjLOuterJoin);
    TVdTableDef* dst = AddTable(p, "OTHER");
    AddField(*dst, "Y");
    dst->Assign(*src);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(dst->Name(), "GET_ITEMS");
    EXPECT_EQ(dst->Alias(), "G");
    EXPECT_EQ(dst->TableType(), qttStoredProc);
    ASSERT_EQ(dst->FieldDefs().Count(), 2);
    EXPECT_EQ(dst->FieldDefs().Items(0)->Name(), "P");
    EXPECT_TRUE(dst->FieldDefs().Items(0)->IsInputParam());
    ASSERT_EQ(dst->JoinDefs().Count(), 1);
    EXPECT_EQ(dst->JoinDefs().Items(0)->JoinKind, vdjLOuterJoin);
    EXPECT_EQ(dst->JoinDefs().Items(0)->GetTableDef(), dst);
    EXPECT_EQ(p.TableDefs().GetFieldCount(), 4);
}

namespace {

std::string CriterionNames(const TVdCriterions& list)
{
    std::string result;
    for (int i = 0; i < list.Count(); ++i) {
        EXPECT_EQ(list.Items(i)->Index(), i);
        EXPECT_EQ(list.Items(i)->Collection(), &list);
        result += list.Items(i)->LeftSide().Name() + " ";
    }
    return result;
}

void AddCriterions(TVdCriterions& list, const std::string& prefix, int count)
{
    for (int i = 0; i < count; ++i)
        list.Add()->LeftSide().SetName(prefix + std::to_string(i));
}

} // namespace

// Swapping two items renumbers both; a position out of range swaps nothing.
TEST(VdCollectionSwap, TwoItemsExchangePlaces)
{
    TVdSelectParser parser;
    TVdCriterions& list = parser.WhereItems();
    AddCriterions(list, "A", 5);
    list.Swap(3, 1);
    EXPECT_EQ(CriterionNames(list), "A0 A3 A2 A1 A4 ");
    list.Swap(0, 4);
    EXPECT_EQ(CriterionNames(list), "A4 A3 A2 A1 A0 ");
    list.Swap(2, 2);
    EXPECT_EQ(CriterionNames(list), "A4 A3 A2 A1 A0 ");
    EXPECT_THROW(list.Swap(5, 0), EVdListError);
    EXPECT_THROW(list.Swap(0, -1), EVdListError);
    EXPECT_EQ(CriterionNames(list), "A4 A3 A2 A1 A0 ");
}

// Transferred items go to the end of the other list in their order, in any order given and
// each once; both lists are renumbered and the items know their new list.
TEST(VdCollectionTransfer, ItemsGoToTheEndOfTheOtherList)
{
    TVdSelectParser parser;
    TVdCriterions& from = parser.WhereItems();
    TVdCriterions& to = parser.HavingItems();
    AddCriterions(from, "A", 5);
    AddCriterions(to, "B", 2);
    TVdCriterion* moved = from.Items(3);
    from.TransferItems({3, 1, 3}, to);
    EXPECT_EQ(CriterionNames(from), "A0 A2 A4 ");
    EXPECT_EQ(CriterionNames(to), "B0 B1 A1 A3 ");
    EXPECT_EQ(to.Items(3), moved);
    EXPECT_EQ(moved->Parser(), &parser);
    from.TransferItems({}, to);
    EXPECT_EQ(CriterionNames(from), "A0 A2 A4 ");
}

TEST(VdCollectionTransfer, PositionOutOfRangeMovesNothing)
{
    TVdSelectParser parser;
    TVdCriterions& from = parser.WhereItems();
    TVdCriterions& to = parser.HavingItems();
    AddCriterions(from, "A", 3);
    EXPECT_THROW(from.TransferItems({0, 3}, to), EVdListError);
    EXPECT_EQ(CriterionNames(from), "A0 A1 A2 ");
    EXPECT_EQ(to.Count(), 0);
}

// All items move at once to the end of the other list, in their order, renumbered and knowing
// their new list; the source is left empty. A list moved onto itself stays as it is.
TEST(VdCollectionTransfer, AllItemsGoToTheEndOfTheOtherList)
{
    TVdSelectParser parser;
    TVdCriterions& from = parser.WhereItems();
    TVdCriterions& to = parser.HavingItems();
    AddCriterions(from, "A", 3);
    AddCriterions(to, "B", 1);
    TVdCriterion* last = from.Items(2);
    from.TransferAll(to);
    EXPECT_EQ(from.Count(), 0);
    EXPECT_EQ(CriterionNames(to), "B0 A0 A1 A2 ");
    EXPECT_EQ(to.Items(3), last);
    EXPECT_EQ(last->Index(), 3);
    EXPECT_EQ(last->Collection(), &to);
    to.TransferAll(to);
    EXPECT_EQ(CriterionNames(to), "B0 A0 A1 A2 ");
    from.TransferAll(to);
    EXPECT_EQ(to.Count(), 4);
}

// An item made by a list and filled outside it is taken in at the end, as AddItem would have
// added it; an item of another class or of another parser is refused and left as it was.
TEST(VdCollectionAdopt, OwnItemsAreTakenInOthersRefused)
{
    TVdSelectParser parser;
    TVdCriterions& list = parser.WhereItems();
    AddCriterions(list, "A", 1);
    std::unique_ptr<TVdCollectionItem> made = list.NewItem();
    made->SetParser(&parser);
    auto* criterion = dynamic_cast<TVdCriterion*>(made.get());
    ASSERT_NE(criterion, nullptr);
    criterion->LeftSide().SetName("B");
    EXPECT_EQ(list.AdoptItem(made), criterion);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(CriterionNames(list), "A0 B ");
    EXPECT_EQ(criterion->Index(), 1);
    EXPECT_EQ(criterion->Collection(), &list);

    std::unique_ptr<TVdCollectionItem> plain = std::make_unique<TVdCriterion>();
    plain->SetParser(&parser);
    EXPECT_EQ(list.AdoptItem(plain), nullptr) << "another class";
    EXPECT_NE(plain, nullptr);

    std::unique_ptr<TVdCollectionItem> orphan = list.NewItem();
    EXPECT_EQ(list.AdoptItem(orphan), nullptr) << "another parser";
    EXPECT_NE(orphan, nullptr);
    EXPECT_EQ(list.Count(), 2);
}

// A list that has not made an item yet knows no class to compare with and takes nothing in.
TEST(VdCollectionAdopt, AFreshListTakesNothingIn)
{
    TVdSelectParser parser;
    TVdCriterions& made = parser.WhereItems();
    std::unique_ptr<TVdCollectionItem> item = made.NewItem();
    item->SetParser(&parser);
    TVdCriterions& fresh = parser.WhereItems().Add()->SubItems();
    EXPECT_EQ(fresh.AdoptItem(item), nullptr);
    EXPECT_EQ(fresh.Count(), 0);
    EXPECT_NE(item, nullptr);
}
