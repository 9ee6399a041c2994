// Tables, joins and the table collection built through the model's API.

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

TEST(VdTableDef, SetNameCarriesAFollowingAliasAlong)
{
    TVdSelectParser p;
    TVdTableDef* t = p.TableDefs().Add();
    t->SetName("ORDERS");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->Alias(), "ORDERS");
    t->SetName("SALES");
    EXPECT_EQ(t->Alias(), "SALES");
    t->SetAlias("S");
    t->SetName("ORDERS");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->Name(), "ORDERS");
    EXPECT_EQ(t->Alias(), "S");
}

TEST(VdTableDef, SetAliasRenamesJoinsThatNamedTheOldAlias)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdTableDef* e = AddTable(p, "EMPLOYEES", "E");
    TVdJoinDef* oc = AddJoin(*o, "CUST_ID", "C", "ID");
    TVdJoinDef* oe = AddJoin(*o, "EMP_ID", "E", "ID");
    TVdJoinDef* ec = AddJoin(*e, "HOME_ID", "C", "ID");
    EXPECT_MODEL_OK(p);
    c->SetAlias("K");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->Alias(), "K");
    EXPECT_EQ(oc->JoinTable, "K");
    EXPECT_EQ(ec->JoinTable, "K");
    EXPECT_EQ(oe->JoinTable, "E");
    EXPECT_TRUE(p.TableDefs().IsTableJoined(*c));
    EXPECT_EQ(oc->GetScript(), "INNER JOIN \"CUSTOMERS\" K ON (\"O\".\"CUST_ID\" = \"K\".\"ID\")");
}

TEST(VdTableDef, UpdateTableAliasRenamesJoinsOnly)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "C", "ID");
    p.TableDefs().UpdateTableAlias("C", "X");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(j->JoinTable, "X");
    EXPECT_EQ(c->Alias(), "C");
    p.TableDefs().UpdateTableAlias("c", "Y"); // exact comparison
    EXPECT_EQ(j->JoinTable, "X");
}

TEST(VdTableDef, FindByNameAndAliasAreExactFirstMatch)
{
    TVdSelectParser p;
    TVdTableDefs& tables = p.TableDefs();
    TVdTableDef* a = AddTable(p, "T", "A");
    TVdTableDef* b = AddTable(p, "T", "B");
    TVdTableDef* b2 = AddTable(p, "U", "B");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(tables.FindByName("T"), a);
    EXPECT_EQ(tables.FindByName("t"), nullptr);
    EXPECT_EQ(tables.FindByAlias("B"), b);
    EXPECT_EQ(tables.FindByAlias("b"), nullptr);
    EXPECT_EQ(tables.FindByName("U"), b2);
    EXPECT_EQ(tables.FindByAlias("T"), nullptr);
    // The lookups follow renames, deletions and insertions.
    a->SetAlias("X");
    EXPECT_EQ(tables.FindByAlias("A"), nullptr);
    EXPECT_EQ(tables.FindByAlias("X"), a);
    b->SetName("V");
    EXPECT_EQ(tables.FindByName("V"), b);
    EXPECT_EQ(tables.FindByName("T"), a);
    tables.Delete(0);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(tables.FindByName("T"), nullptr);
    EXPECT_EQ(tables.FindByAlias("X"), nullptr);
    EXPECT_EQ(tables.FindByAlias("B"), b);
    TVdTableDef* first = tables.Insert(0);
    first->SetName("U");
    first->SetAlias("B");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(tables.FindByName("U"), first);
    EXPECT_EQ(tables.FindByAlias("B"), first);
}

TEST(VdTableDef, ScriptIsNameAndDifferingAlias)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "ORDERS", "O");
    EXPECT_EQ(t->GetScript(), "  \"ORDERS\" O");
    t->SetAlias("ORDERS");
    EXPECT_EQ(t->GetScript(), "  \"ORDERS\"");
    t->SetAlias("");
    EXPECT_EQ(t->GetScript(), "  \"ORDERS\"");
    t->SetAlias("my orders");
    EXPECT_EQ(t->GetScript(), "  \"ORDERS\" my orders");
    EXPECT_MODEL_OK(p);
}

TEST(VdTableDef, StoredProcedureListsItsInputParameters)
{
    TVdSelectParser p;
    TVdTableDef* sp = AddTable(p, "GET_ITEMS", "G");
    sp->SetTableType(qttStoredProc);
    AddField(*sp, "A")->SetParamType(ptInput);
    AddField(*sp, "X");
    AddField(*sp, "B")->SetParamType(ptInputOutput);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(sp->GetParamsText(), ":A, :B");
    EXPECT_EQ(sp->GetScript(), "  \"GET_ITEMS\"(:A, :B) G");
    sp->SetAlias("GET_ITEMS");
    EXPECT_EQ(sp->GetScript(), "  \"GET_ITEMS\"(:A, :B)");
}

TEST(VdTableDef, StoredProcedureWithoutInputParametersHasNoList)
{
    TVdSelectParser p;
    TVdTableDef* sp = AddTable(p, "GET_ITEMS", "G");
    sp->SetTableType(qttStoredProc);
    AddField(*sp, "X");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(sp->GetScript(), "  \"GET_ITEMS\" G");
}

TEST(VdTableDef, PlainTableNeverPrintsAParameterList)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "A")->SetParamType(ptInput);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->GetScript(), "  \"T\"");
}

TEST(VdTableDef, ScriptAppendsJoinsAndTheJoinedTablesJoins)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdTableDef* a = AddTable(p, "ADDRESSES", "A");
    AddJoin(*o, "CUST_ID", "C", "ID");
    AddJoin(*c, "ADDR_ID", "A", "ID", vdjLOuterJoin);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->GetScript(), "  \"ADDRESSES\" A");
    EXPECT_EQ(c->GetScript(),
              "  \"CUSTOMERS\" C \r\n"
              "  LEFT OUTER JOIN \"ADDRESSES\" A ON (\"C\".\"ADDR_ID\" = \"A\".\"ID\")");
    EXPECT_EQ(o->GetScript(),
              "  \"ORDERS\" O \r\n"
              "  INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\") \r\n"
              "  LEFT OUTER JOIN \"ADDRESSES\" A ON (\"C\".\"ADDR_ID\" = \"A\".\"ID\")");
}

TEST(VdTableDef, TableOfAnotherCollectionPrintsWithItsOwnJoins)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    AddTable(p, "ADDRESSES", "A");
    AddJoin(*o, "CUST_ID", "C", "ID");
    AddJoin(*p.TableDefs().Items(1), "ADDR_ID", "A", "ID", vdjLOuterJoin);
    // Another statement whose tables have joins of their own, under the same aliases.
    TVdSelectParser other;
    TVdTableDef* k = AddTable(other, "CUSTOMERS", "C");
    AddTable(other, "ORDERS", "O");
    AddJoin(*k, "ID", "O", "CUST_ID", vdjROuterJoin);
    EXPECT_MODEL_OK(p);
    EXPECT_MODEL_OK(other);
    // The joins followed are the table's own and those of the tables they reach in its own
    // statement, not those of the collection asked.
    const std::string expected =
        "  \"ORDERS\" O \r\n"
        "  INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\") \r\n"
        "  LEFT OUTER JOIN \"ADDRESSES\" A ON (\"C\".\"ADDR_ID\" = \"A\".\"ID\")";
    EXPECT_EQ(o->GetScript(), expected);
    EXPECT_EQ(other.TableDefs().GetTableScript(*o), expected);
    EXPECT_EQ(other.TableDefs().GetTableScript(*k),
              "  \"CUSTOMERS\" C \r\n"
              "  RIGHT OUTER JOIN \"ORDERS\" O ON (\"C\".\"ID\" = \"O\".\"CUST_ID\")");
}

TEST(VdTableDef, JoinsOfOneTablePrintAsARunAfterABlank)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddTable(p, "EMPLOYEES", "E");
    AddTable(p, "ADDRESSES", "A");
    AddJoin(*o, "CUST_ID", "C", "ID");
    AddJoin(*o, "EMP_ID", "E", "ID", vdjROuterJoin);
    AddJoin(*c, "ADDR_ID", "A", "ID", vdjFOuterJoin);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(o->GetScript(),
              "  \"ORDERS\" O \r\n"
              "  INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\")\r\n"
              "  RIGHT OUTER JOIN \"EMPLOYEES\" E ON (\"O\".\"EMP_ID\" = \"E\".\"ID\") \r\n"
              "  FULL OUTER JOIN \"ADDRESSES\" A ON (\"C\".\"ADDR_ID\" = \"A\".\"ID\")");
}

TEST(VdTableDef, JoinsPrintInTheOrderTheyWereMadeWhicheverTableOwnsThem)
{
    // O JOIN C ... FULL JOIN A (owned by C) ... RIGHT JOIN E (owned by O) means what its
    // order says; grouping E under O before A would change the rows.
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddTable(p, "EMPLOYEES", "E");
    AddTable(p, "ADDRESSES", "A");
    AddJoin(*o, "CUST_ID", "C", "ID");
    AddJoin(*c, "ADDR_ID", "A", "ID", vdjFOuterJoin);
    AddJoin(*o, "EMP_ID", "E", "ID", vdjROuterJoin);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(o->GetScript(),
              "  \"ORDERS\" O \r\n"
              "  INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\") \r\n"
              "  FULL OUTER JOIN \"ADDRESSES\" A ON (\"C\".\"ADDR_ID\" = \"A\".\"ID\") \r\n"
              "  RIGHT OUTER JOIN \"EMPLOYEES\" E ON (\"O\".\"EMP_ID\" = \"E\".\"ID\")");
}

TEST(VdTableDef, JoinWaitsUntilItsOwnTableIsJoined)
{
    // C's join to A was made first, but its condition names C: it follows the join that
    // brings C in.
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddTable(p, "ADDRESSES", "A");
    AddJoin(*c, "ADDR_ID", "A", "ID", vdjLOuterJoin);
    AddJoin(*o, "CUST_ID", "C", "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(o->GetScript(),
              "  \"ORDERS\" O \r\n"
              "  INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\") \r\n"
              "  LEFT OUTER JOIN \"ADDRESSES\" A ON (\"C\".\"ADDR_ID\" = \"A\".\"ID\")");
}

TEST(VdJoinDef, AssignKeepsWhenTheJoinWasMade)
{
    TVdJoinDef first;
    TVdJoinDef second;
    EXPECT_LT(first.Sequence, second.Sequence);
    second.Assign(first);
    EXPECT_EQ(second.Sequence, first.Sequence);
}

TEST(VdTableDef, TableOutsideACollectionPrintsWithoutJoins)
{
    TVdTableDef lone;
    lone.SetName("T");
    EXPECT_EQ(lone.Alias(), "T");
    AddJoin(lone, "A", "U", "B");
    EXPECT_EQ(lone.GetScript(), "  T");
    EXPECT_EQ(lone.JoinDefs().Items(0)->GetScript(), "");
}

// ---- joins ----

TEST(VdJoinDef, ScriptOfEachKind)
{
    struct Row {
        TVdJoinKind Kind;
        const char* Words;
    };
    const std::vector<Row> rows = {{vdjInnerJoin, "INNER"},
                                   {vdjLOuterJoin, "LEFT OUTER"},
                                   {vdjROuterJoin, "RIGHT OUTER"},
                                   {vdjFOuterJoin, "FULL OUTER"}};
    for (const Row& row : rows) {
        TVdSelectParser p;
        TVdTableDef* o = AddTable(p, "ORDERS", "O");
        AddTable(p, "CUSTOMERS", "C");
        TVdJoinDef* j = AddJoin(*o, "CUST_ID", "C", "ID", row.Kind);
        EXPECT_MODEL_OK(p);
        EXPECT_EQ(j->GetScript(),
                  std::string(row.Words) +
                      " JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\")");
    }
}

TEST(VdJoinDef, DefaultsAreInnerAndEquals)
{
    TVdJoinDef j;
    EXPECT_EQ(j.Operation, "=");
    EXPECT_EQ(j.JoinKind, vdjInnerJoin);
    EXPECT_EQ(j.FieldName, "");
    EXPECT_EQ(j.JoinTable, "");
    EXPECT_EQ(j.JoinField, "");
}

TEST(VdJoinDef, OperationIsPrintedAsGiven)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "C", "ID", vdjInnerJoin, ">=");
    EXPECT_EQ(j->GetScript(), "INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" >= \"C\".\"ID\")");
}

TEST(VdJoinDef, KeywordsFollowTheFormatAndKindWordsAreOneKeyword)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "C", "ID", vdjLOuterJoin);
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    EXPECT_EQ(j->GetScript(),
              "left outer join \"CUSTOMERS\" C on (\"O\".\"CUST_ID\" = \"C\".\"ID\")");
    p.ScriptFormat().KeywordsFormat = qfmFirstUpper;
    EXPECT_EQ(j->GetScript(),
              "Left outer Join \"CUSTOMERS\" C On (\"O\".\"CUST_ID\" = \"C\".\"ID\")");
}

TEST(VdJoinDef, JoinedTableIsFoundByNameToo)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "CUSTOMERS", "ID");
    EXPECT_EQ(j->GetScript(), "INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\")");
}

TEST(VdJoinDef, OwnerWithoutAliasIsNamedByItsName)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS");
    o->SetAlias("");
    AddTable(p, "CUSTOMERS");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "CUSTOMERS", "ID");
    EXPECT_EQ(j->GetScript(),
              "INNER JOIN \"CUSTOMERS\" ON (\"ORDERS\".\"CUST_ID\" = \"CUSTOMERS\".\"ID\")");
}

TEST(VdJoinDef, JoinToStoredProcedurePrintsItsParameters)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* sp = AddTable(p, "GET_ITEMS", "G");
    sp->SetTableType(qttStoredProc);
    AddField(*sp, "ORDER_ID")->SetParamType(ptInput);
    AddField(*sp, "KIND")->SetParamType(ptInput);
    AddField(*sp, "ITEM_ORDER");
    TVdJoinDef* j = AddJoin(*o, "ID", "G", "ITEM_ORDER");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(j->GetScript(), "INNER JOIN \"GET_ITEMS\"(:ORDER_ID, :KIND) G ON "
                              "(\"O\".\"ID\" = \"G\".\"ITEM_ORDER\")");
}

TEST(VdJoinDef, IncompleteJoinPrintsNothing)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "C", "ID");
    ASSERT_NE(j->GetScript(), "");
    j->FieldName = "";
    EXPECT_EQ(j->GetScript(), "");
    j->FieldName = "CUST_ID";
    j->JoinField = " \t ";
    EXPECT_EQ(j->GetScript(), "");
    j->JoinField = "ID";
    j->JoinTable = "";
    EXPECT_EQ(j->GetScript(), "");
    j->JoinTable = "Z";
    EXPECT_EQ(j->GetScript(), "");
    TVdJoinDefs ownerless(nullptr);
    TVdJoinDef* k = ownerless.Add();
    k->FieldName = "A";
    k->JoinTable = "C";
    k->JoinField = "B";
    EXPECT_EQ(k->GetTableDef(), nullptr);
    EXPECT_EQ(k->GetScript(), "");
}

TEST(VdJoinDef, JoinToRemovedTablePrintsNothingAndUpdateJoinsDeletesIt)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddField(*c, "ID");
    TVdJoinDef* j = AddJoin(*o, "CUST_ID", "C", "ID");
    EXPECT_MODEL_OK(p);
    ASSERT_NE(j->GetScript(), "");
    p.TableDefs().Delete(1);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(j->GetScript(), "");
    p.TableDefs().UpdateJoins();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(o->JoinDefs().Count(), 0);
    EXPECT_EQ(o->GetScript(), "  \"ORDERS\" O");
}

TEST(VdJoinDef, UpdateJoinsKeepsJoinsWhoseTableAndFieldExist)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddField(*c, "ID")->SetAlias("CID");
    AddField(*c, "CODE");
    AddJoin(*o, "A", "C", "ID");           // field by name
    AddJoin(*o, "B", "C", "CID");          // field by alias
    AddJoin(*o, "C", "CUSTOMERS", "CODE"); // table by name
    AddJoin(*o, "D", "C", "NOPE");         // field missing
    AddJoin(*o, "E", "X", "ID");           // table missing
    AddJoin(*o, "F", "C", "id");           // exact comparison
    EXPECT_MODEL_OK(p);
    p.TableDefs().UpdateJoins();
    EXPECT_MODEL_OK(p);
    ASSERT_EQ(o->JoinDefs().Count(), 3);
    EXPECT_EQ(o->JoinDefs().Items(0)->FieldName, "A");
    EXPECT_EQ(o->JoinDefs().Items(1)->FieldName, "B");
    EXPECT_EQ(o->JoinDefs().Items(2)->FieldName, "C");
}

TEST(VdJoinDef, JoinListScriptStartsEveryJoinOnANewLine)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    AddTable(p, "EMPLOYEES", "E");
    AddJoin(*o, "CUST_ID", "C", "ID");
    AddJoin(*o, "EMP_ID", "E", "ID", vdjFOuterJoin);
    EXPECT_EQ(o->JoinDefs().GetScript(),
              "\r\n  INNER JOIN \"CUSTOMERS\" C ON (\"O\".\"CUST_ID\" = \"C\".\"ID\")"
              "\r\n  FULL OUTER JOIN \"EMPLOYEES\" E ON (\"O\".\"EMP_ID\" = \"E\".\"ID\")");
}

TEST(VdJoinDef, FindMatchesAllThreeExactly)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdJoinDef* j1 = AddJoin(*o, "A", "C", "B");
    TVdJoinDef* j2 = AddJoin(*o, "A", "C", "X");
    EXPECT_EQ(o->JoinDefs().Find("A", "C", "B"), j1);
    EXPECT_EQ(o->JoinDefs().Find("A", "C", "X"), j2);
    EXPECT_EQ(o->JoinDefs().Find("a", "C", "B"), nullptr);
    EXPECT_EQ(o->JoinDefs().Find("A", "D", "B"), nullptr);
    EXPECT_EQ(o->JoinDefs().Find("A", "C", "Y"), nullptr);
}

TEST(VdJoinDef, AssignCopiesAllFields)
{
    TVdJoinDef src;
    src.Operation = "<>";
    src.JoinKind = vdjROuterJoin;
    src.JoinField = "JF";
    src.JoinTable = "JT";
    src.FieldName = "FN";
    TVdJoinDef dst;
    dst.Assign(src);
    EXPECT_EQ(dst.Operation, "<>");
    EXPECT_EQ(dst.JoinKind, vdjROuterJoin);
    EXPECT_EQ(dst.JoinField, "JF");
    EXPECT_EQ(dst.JoinTable, "JT");
    EXPECT_EQ(dst.FieldName, "FN");
}

TEST(VdJoinDef, IsTableJoinedComparesTheAlias)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdTableDef* e = AddTable(p, "EMPLOYEES", "E");
    AddJoin(*o, "CUST_ID", "C", "ID");
    AddJoin(*o, "EMP_ID", "EMPLOYEES", "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_FALSE(p.TableDefs().IsTableJoined(*o));
    EXPECT_TRUE(p.TableDefs().IsTableJoined(*c));
    EXPECT_FALSE(p.TableDefs().IsTableJoined(*e));
}

// ---- select list and FROM ----

TEST(VdTableDefs, NoTablesGiveNoText)
{
    TVdSelectParser p;
    std::string selectList = "x";
    EXPECT_EQ(p.TableDefs().GetScript(selectList), "");
    EXPECT_EQ(selectList, "");
    EXPECT_EQ(p.GetExpression(), "");
}

TEST(VdTableDefs, TablesWithoutTickedFieldsSelectStar)
{
    TVdSelectParser p;
    AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    EXPECT_MODEL_OK(p);
    std::string selectList;
    EXPECT_EQ(p.TableDefs().GetScript(selectList), vdcheck::Crlf({
                                                       "*",
                                                       "FROM",
                                                       R"(  "ORDERS" O,)",
                                                       R"(  "CUSTOMERS" C)",
                                                       "",
                                                   }));
    EXPECT_EQ(selectList, "*");
    EXPECT_EQ(p.GetExpression(), "SELECT *\r\nFROM\r\n  \"ORDERS\" O,\r\n  \"CUSTOMERS\" C\r\n");
}

TEST(VdTableDefs, SelectListAndFrom)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddField(*o, "ID");
    AddField(*c, "NAME")->SetAlias("CUSTOMER");
    AddField(*o, "TOTAL");
    EXPECT_MODEL_OK(p);
    std::string selectList;
    const std::string text = p.TableDefs().GetScript(selectList);
    EXPECT_EQ(selectList,
              "\r\n  \"O\".\"ID\",\r\n  \"C\".\"NAME\" AS CUSTOMER,\r\n  \"O\".\"TOTAL\"");
    EXPECT_EQ(text, vdcheck::Crlf({
                        "",
                        R"(  "O"."ID",)",
                        R"(  "C"."NAME" AS CUSTOMER,)",
                        R"(  "O"."TOTAL")",
                        "FROM",
                        R"(  "ORDERS" O,)",
                        R"(  "CUSTOMERS" C)",
                        "",
                    }));
}

TEST(VdTableDefs, JoinedTablesAreLeftOutOfTheTableList)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddTable(p, "ITEMS", "I");
    AddField(*c, "NAME");
    AddJoin(*o, "CUST_ID", "C", "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.TableDefs().GetScript(),
              vdcheck::Crlf({
                  "",
                  R"(  "C"."NAME")",
                  "FROM",
                  R"(  "ORDERS" O )",
                  R"(  INNER JOIN "CUSTOMERS" C ON ("O"."CUST_ID" = "C"."ID"),)",
                  R"(  "ITEMS" I)",
                  "",
              }));
}

TEST(VdTableDefs, TableJoinedByNameIsNamedOnceInFrom)
{
    // A join naming the table by name leads to it as well: FROM names it once, after the
    // join (twice would be an error on every engine).
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    AddJoin(*o, "CUST_ID", "CUSTOMERS", "ID");
    EXPECT_EQ(p.TableDefs().GetScript(),
              vdcheck::Crlf({
                  "*",
                  "FROM",
                  R"(  "ORDERS" O )",
                  R"(  INNER JOIN "CUSTOMERS" C ON ("O"."CUST_ID" = "C"."ID"))",
                  "",
              }));
}

TEST(VdTableDefs, TwoJoinsOfOnePairPrintOneJoinWithBothConditions)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "LINES", "L");
    AddJoin(*o, "ID", "L", "ORDER_ID", vdjLOuterJoin);
    AddJoin(*o, "REV", "L", "ORDER_REV", vdjLOuterJoin);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(
        p.TableDefs().GetScript(),
        vdcheck::Crlf({
            "*",
            "FROM",
            R"(  "ORDERS" O )",
            R"(  LEFT OUTER JOIN "LINES" L ON ("O"."ID" = "L"."ORDER_ID" AND "O"."REV" = "L"."ORDER_REV"))",
            "",
        }));
}

TEST(VdTableDefs, ATableJoinedFromTwoTablesIsNamedOnceAndBringsTheOtherIn)
{
    // Links drawn from CUSTOMERS to ORDERS and from EMPLOYEES to ORDERS: ORDERS comes in
    // once, EMPLOYEES through it, its outer join turned round to keep all of EMPLOYEES.
    TVdSelectParser p;
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    AddTable(p, "ORDERS", "O");
    TVdTableDef* e = AddTable(p, "EMPLOYEES", "E");
    AddJoin(*c, "ID", "O", "CUST_ID");
    AddJoin(*e, "ID", "O", "EMP_ID", vdjLOuterJoin);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.TableDefs().GetScript(),
              vdcheck::Crlf({
                  "*",
                  "FROM",
                  R"(  "CUSTOMERS" C )",
                  R"(  INNER JOIN "ORDERS" O ON ("C"."ID" = "O"."CUST_ID") )",
                  R"(  RIGHT OUTER JOIN "EMPLOYEES" E ON ("O"."EMP_ID" = "E"."ID"))",
                  "",
              }));
}

TEST(VdTableDefs, ARingOfJoinsNamesEveryTableOnceAndKeepsEveryCondition)
{
    TVdSelectParser p;
    TVdTableDef* a = AddTable(p, "A", "A");
    TVdTableDef* b = AddTable(p, "B", "B");
    TVdTableDef* c = AddTable(p, "C", "C");
    AddJoin(*a, "X", "B", "X");
    AddJoin(*b, "Y", "C", "Y");
    AddJoin(*c, "Z", "A", "Z");
    // No text reads into a ring (the parser refuses the join that closes one, and the model
    // checker with it), but links drawn in the diagram can close one.
    EXPECT_EQ(p.TableDefs().GetScript(),
              vdcheck::Crlf({
                  "*",
                  "FROM",
                  R"(  "A" )",
                  R"(  INNER JOIN "B" ON ("A"."X" = "B"."X") )",
                  R"(  INNER JOIN "C" ON ("B"."Y" = "C"."Y" AND "C"."Z" = "A"."Z"))",
                  "",
              }));
}

TEST(VdTableDefs, InputParametersAndEmptyFieldsAreNotInTheSelectList)
{
    TVdSelectParser p;
    TVdTableDef* sp = AddTable(p, "GET_ITEMS", "G");
    sp->SetTableType(qttStoredProc);
    AddField(*sp, "A");
    AddField(*sp, "P")->SetParamType(ptInput);
    sp->FieldDefs().Add(); // a field with no text yet
    AddField(*sp, "B");
    AddField(*sp, "Q")->SetParamType(ptInput);
    EXPECT_MODEL_OK(p);
    std::string selectList;
    EXPECT_EQ(p.TableDefs().GetScript(selectList), vdcheck::Crlf({
                                                       "",
                                                       R"(  "G"."A",)",
                                                       R"(  "G"."B")",
                                                       "FROM",
                                                       R"(  "GET_ITEMS"(:P, :Q) G)",
                                                       "",
                                                   }));
}

TEST(VdTableDefs, FromFollowsTheKeywordFormat)
{
    TVdSelectParser p;
    p.ScriptFormat().KeywordsFormat = qfmFirstUpper;
    AddTable(p, "ORDERS", "O");
    EXPECT_EQ(p.TableDefs().GetScript(), "*\r\nFrom\r\n  \"ORDERS\" O\r\n");
}

TEST(VdTableDefs, CustomerDbTableIsQuotedAsOneName)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "customer.db");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->GetScript(), "  \"customer.db\"");
    EXPECT_EQ(p.GetExpression(), "SELECT *\r\nFROM\r\n  \"customer.db\"\r\n");
    AddField(*t, "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.GetExpression(), vdcheck::Crlf({
                                     "SELECT ",
                                     R"(  "customer.db"."ID")",
                                     "FROM",
                                     R"(  "customer.db")",
                                     "",
                                 }));
}

// ---- GROUP BY ----

TEST(VdTableDefs, ManyTablesAndAliasesAreFoundAgainAfterAClear)
{
    TVdSelectParser p;
    // More tables than a scan serves and more aliases than the short list holds: the lookups
    // made for them are dropped with the tables and made again.
    for (int round = 0; round < 2; ++round) {
        for (int t = 0; t < 40; ++t) {
            TVdTableDef* table = AddTable(p, "T" + std::to_string(t), "A" + std::to_string(t));
            AddField(*table, "F");
        }
        EXPECT_MODEL_OK(p);
        EXPECT_EQ(p.TableDefs().FindByAlias("A33")->Name(), "T33");
        EXPECT_EQ(p.TableDefs().FindByName("T7")->Alias(), "A7");
        EXPECT_EQ(p.TableDefs().GetUniqueAlias("F", false), "F40");
        EXPECT_TRUE(p.TableDefs().IsAliasUsed("F39"));
        EXPECT_FALSE(p.TableDefs().IsAliasUsed("F40"));
        p.TableDefs().Clear();
        EXPECT_EQ(p.TableDefs().FindByAlias("A33"), nullptr);
        EXPECT_FALSE(p.TableDefs().IsAliasUsed("F1"));
    }
}

TEST(VdTableDefs, JoinsReachThroughMoreTablesThanTheInlineStackHolds)
{
    TVdSelectParser p;
    std::vector<TVdTableDef*> tables;
    for (int t = 0; t < 40; ++t) {
        tables.push_back(AddTable(p, "T" + std::to_string(t), "A" + std::to_string(t)));
        AddField(*tables.back(), "ID");
    }
    // A0 joins A1..A39 at once (forty pending at one time), and A39 joins nothing.
    for (int t = 1; t < 40; ++t)
        AddJoin(*tables[0], "ID", "A" + std::to_string(t), "ID");
    EXPECT_TRUE(p.TableDefs().JoinsReach(*tables[0], *tables[39]));
    EXPECT_TRUE(p.TableDefs().JoinsReach(*tables[0], *tables[1]));
    EXPECT_FALSE(p.TableDefs().JoinsReach(*tables[39], *tables[0]));
    EXPECT_FALSE(p.TableDefs().JoinsReach(*tables[5], *tables[6]));
}

// A13 is counter 13 of A and counter 3 of A1: freeing a generated name makes its counter the
// lowest free one of every name it may have been made from, while counters below it stay taken.
TEST(VdTableDefs, FreedCounterIsFoundAgainUnderEveryNameItEndsIn)
{
    for (const int filler : {0, 40}) {
        TVdSelectParser p;
        TVdTableDef* table = AddTable(p, "T");
        for (int f = 0; f < 14; ++f)
            AddField(*table, "A");
        TVdTableDef* other = AddTable(p, "U");
        for (int f = 0; f < filler; ++f)
            AddField(*other, "B");
        TVdTableDefs& tables = p.TableDefs();
        EXPECT_EQ(tables.GetUniqueAlias("A", true), "A14") << filler;
        EXPECT_EQ(tables.GetUniqueAlias("A1", true), "A14") << filler;
        table->FieldDefs().Delete(13); // A13
        EXPECT_EQ(tables.GetUniqueAlias("A", true), "A13") << filler;
        EXPECT_EQ(tables.GetUniqueAlias("A1", true), "A13") << filler;
        table->FieldDefs().Delete(5); // A5
        EXPECT_EQ(tables.GetUniqueAlias("A", true), "A5") << filler;
        EXPECT_EQ(tables.GetUniqueAlias("A1", true), "A13") << filler;
        AddField(*table, "A");
        EXPECT_EQ(table->FieldDefs().Items(12)->Alias(), "A5") << filler;
        EXPECT_EQ(tables.GetUniqueAlias("A", true), "A13") << filler;
        EXPECT_MODEL_OK(p);
    }
}

TEST(VdTableDefs, FreedGeneratedAliasIsFoundAgainWithFewAndManyFields)
{
    // Few fields are looked over, many are counted: both find the same aliases.
    for (const int count : {10, 40}) {
        TVdSelectParser p;
        TVdTableDef* table = AddTable(p, "T");
        for (int f = 0; f < count; ++f)
            AddField(*table, "X");
        EXPECT_EQ(table->FieldDefs().Items(3)->Alias(), "X3");
        EXPECT_EQ(p.TableDefs().GetUniqueAlias("X", true), "X" + std::to_string(count));
        table->FieldDefs().Delete(3);
        EXPECT_EQ(p.TableDefs().GetUniqueAlias("X", true), "X3") << count;
        table->FieldDefs().Items(4)->SetAlias("Y");
        EXPECT_EQ(p.TableDefs().GetUniqueAlias("X", false), "X3") << count;
        EXPECT_TRUE(p.TableDefs().IsAliasUsed("Y")) << count;
        EXPECT_FALSE(p.TableDefs().IsAliasUsed("X5")) << count;
        EXPECT_MODEL_OK(p);
    }
}
