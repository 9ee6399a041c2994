// Whole statements built through the API the way the views build them, printed and compared
// byte for byte with the expected text; then the printed text is parsed and printed again.

#include "tests/core/ModelCheck.h"

#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <string>

using namespace vd;
using vdcheck::AddArg;
using vdcheck::AddComparison;
using vdcheck::AddField;
using vdcheck::AddJoin;
using vdcheck::AddTable;
using vdcheck::CheckModel;
using vdcheck::Crlf;

#define EXPECT_MODEL_OK(parser) EXPECT_TRUE(CheckModel(parser))

namespace {

// Parses the text in a fresh parser with the same script format and prints it again.
std::string Reprint(const TVdSelectParser& built, const std::string& text)
{
    TVdSelectParser again;
    again.SetScriptFormat(built.ScriptFormat());
    again.SetExpression(text);
    EXPECT_TRUE(again.IsValid());
    EXPECT_TRUE(CheckModel(again));
    return again.GetExpression();
}

TVdFieldDef* AddCountStar(TVdTableDef& table)
{
    TVdFieldDef* count = AddField(table, "COUNT", fkFunction);
    AddArg(count->Arguments(), "*", fkUnknown);
    return count;
}

} // namespace

TEST(VdModelBuild, EmptyModelPrintsNothing)
{
    TVdSelectParser p;
    p.SetDistinct(true);
    AddComparison(p.WhereItems(), "A", fkIdentifier, "=", {{"1", fkInteger}});
    p.OrderByItems().Add("A");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.GetExpression(), "");
}

TEST(VdModelBuild, GroupedSingleTable)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "PRODUCTS", "P");
    EXPECT_MODEL_OK(p);
    AddField(*t, "CATEGORY");
    EXPECT_MODEL_OK(p);
    TVdFieldDef* count = AddCountStar(*t);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(count->Alias(), "FIELD_1");
    TVdFieldDef* sum = AddField(*t, "SUM", fkFunction);
    AddArg(sum->Arguments(), "PRICE", fkIdentifier);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(sum->Alias(), "FIELD_2");
    sum->SetAlias("TOTAL");
    EXPECT_MODEL_OK(p);
    AddComparison(p.WhereItems(), "P.PRICE", fkIdentifier, ">", {{"0", fkInteger}});
    EXPECT_MODEL_OK(p);
    TVdCriterion* having =
        AddComparison(p.HavingItems(), "COUNT", fkFunction, ">", {{"1", fkInteger}});
    AddArg(having->LeftSide().Arguments(), "*", fkUnknown);
    EXPECT_MODEL_OK(p);
    p.OrderByItems().Add("P.CATEGORY");
    p.OrderByItems().AddOrdered("TOTAL", okDesc);
    EXPECT_MODEL_OK(p);

    const std::string expected = Crlf({
        "SELECT ",
        R"(  "P"."CATEGORY",)",
        R"(  COUNT(*) AS FIELD_1,)",
        R"(  SUM("P"."PRICE") AS TOTAL)",
        "FROM",
        R"(  "PRODUCTS" P)",
        "WHERE",
        R"(  ("P"."PRICE" > 0))",
        "GROUP BY",
        R"(  "P"."CATEGORY")",
        "HAVING",
        R"(  (COUNT(*) > 1))",
        "ORDER BY",
        R"(  "P"."CATEGORY",)",
        R"(  "TOTAL" DESC)",
        "",
    });
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, expected);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.GetExpression(), printed); // printing changes nothing
    EXPECT_EQ(Reprint(p, printed), printed);
}

namespace {

// ORDERS O joined to CUSTOMERS C (inner), EMPLOYEES E (left), PAYMENTS PY (full), and
// CUSTOMERS C joined to ADDRESSES A (right); nested WHERE groups.
void BuildJoinedOrders(TVdSelectParser& p)
{
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdTableDef* e = AddTable(p, "EMPLOYEES", "E");
    TVdTableDef* a = AddTable(p, "ADDRESSES", "A");
    TVdTableDef* py = AddTable(p, "PAYMENTS", "PY");
    EXPECT_MODEL_OK(p);
    AddField(*o, "ID");
    EXPECT_MODEL_OK(p);
    AddField(*c, "NAME");
    EXPECT_MODEL_OK(p);
    TVdFieldDef* employee = AddField(*e, "NAME");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(employee->Alias(), "NAME1");
    AddField(*a, "CITY");
    EXPECT_MODEL_OK(p);
    AddField(*py, "AMOUNT")->SetAlias("PAID");
    EXPECT_MODEL_OK(p);
    AddJoin(*o, "CUST_ID", "C", "ID", vdjInnerJoin);
    EXPECT_MODEL_OK(p);
    AddJoin(*o, "EMP_ID", "E", "ID", vdjLOuterJoin);
    EXPECT_MODEL_OK(p);
    AddJoin(*o, "ID", "PY", "ORDER_ID", vdjFOuterJoin);
    EXPECT_MODEL_OK(p);
    AddJoin(*c, "ADDR_ID", "A", "ID", vdjROuterJoin);
    EXPECT_MODEL_OK(p);
    p.SetDistinct(true);

    TVdCriterions& where = p.WhereItems();
    AddComparison(where, "O.ORDER_DATE", fkIdentifier, ">=", {{"2020-01-01", fkString}});
    EXPECT_MODEL_OK(p);
    TVdCriterion* any = where.Add();
    any->SubItems().Filter = cfAny;
    AddComparison(any->SubItems(), "C.NAME", fkIdentifier, "LIKE", {{"A%", fkString}});
    AddComparison(any->SubItems(), "C.NAME", fkIdentifier, "IS NULL");
    EXPECT_MODEL_OK(p);
    TVdCriterion* none = where.Add();
    none->SubItems().Filter = cfNone;
    AddComparison(none->SubItems(), "O.STATUS", fkIdentifier, "IN", {{"(1,2)", fkExpression}});
    AddComparison(none->SubItems(), "PY.AMOUNT", fkIdentifier, "BETWEEN",
                  {{"10", fkInteger}, {"20", fkInteger}});
    EXPECT_MODEL_OK(p);

    p.OrderByItems().AddOrdered("O.ID", okDesc);
    p.OrderByItems().Add("NAME1");
    EXPECT_MODEL_OK(p);
}

} // namespace

TEST(VdModelBuild, JoinsOfEveryKindWithNestedCriteria)
{
    TVdSelectParser p;
    BuildJoinedOrders(p);
    const std::string expected = Crlf({
        "SELECT DISTINCT ",
        R"(  "O"."ID",)",
        R"(  "C"."NAME",)",
        R"(  "E"."NAME" AS NAME1,)",
        R"(  "A"."CITY",)",
        R"(  "PY"."AMOUNT" AS PAID)",
        "FROM",
        R"(  "ORDERS" O )",
        R"(  INNER JOIN "CUSTOMERS" C ON ("O"."CUST_ID" = "C"."ID"))",
        R"(  LEFT OUTER JOIN "EMPLOYEES" E ON ("O"."EMP_ID" = "E"."ID"))",
        R"(  FULL OUTER JOIN "PAYMENTS" PY ON ("O"."ID" = "PY"."ORDER_ID") )",
        R"(  RIGHT OUTER JOIN "ADDRESSES" A ON ("C"."ADDR_ID" = "A"."ID"))",
        "WHERE",
        R"(  ("O"."ORDER_DATE" >= '2020-01-01') AND )",
        R"(  (("C"."NAME" LIKE 'A%') OR )",
        R"(  ("C"."NAME" IS NULL)) AND )",
        R"(  (NOT (("O"."STATUS" IN (1,2)) AND )",
        R"(  ("PY"."AMOUNT" BETWEEN 10 AND 20))))",
        "ORDER BY",
        R"(  "O"."ID" DESC,)",
        R"(  "NAME1")",
        "",
    });
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, expected);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, UpdateJoinsDropsJoinsToMissingTablesAndFields)
{
    TVdSelectParser p;
    BuildJoinedOrders(p);
    // PAYMENTS goes; its field leaves the select list and the join to it prints nothing.
    p.TableDefs().Delete(4);
    EXPECT_MODEL_OK(p);
    ASSERT_EQ(p.TableDefs().Items(0)->JoinDefs().Count(), 3);
    EXPECT_EQ(p.TableDefs().Items(0)->JoinDefs().Items(2)->GetScript(), "");
    p.TableDefs().UpdateJoins();
    EXPECT_MODEL_OK(p);
    // The remaining joins name fields the joined tables do not list: UpdateJoins drops
    // them too, so only the tables remain.
    EXPECT_EQ(p.TableDefs().Items(0)->JoinDefs().Count(), 0);
    EXPECT_EQ(p.TableDefs().Items(1)->JoinDefs().Count(), 0);
    p.WhereItems().Clear();
    p.OrderByItems().Clear();
    EXPECT_MODEL_OK(p);
    const std::string expected = Crlf({
        "SELECT DISTINCT ",
        R"(  "O"."ID",)",
        R"(  "C"."NAME",)",
        R"(  "E"."NAME" AS NAME1,)",
        R"(  "A"."CITY")",
        "FROM",
        R"(  "ORDERS" O,)",
        R"(  "CUSTOMERS" C,)",
        R"(  "EMPLOYEES" E,)",
        R"(  "ADDRESSES" A)",
        "",
    });
    EXPECT_EQ(p.GetExpression(), expected);
}

TEST(VdModelBuild, UpdateJoinsKeepsJoinsToListedFields)
{
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdTableDef* e = AddTable(p, "EMPLOYEES", "E");
    AddField(*o, "ID");
    AddField(*c, "ID");
    AddField(*e, "ID");
    AddJoin(*o, "CUST_ID", "C", "ID");
    AddJoin(*o, "EMP_ID", "E", "ID", vdjLOuterJoin);
    EXPECT_MODEL_OK(p);
    p.TableDefs().Delete(2);
    EXPECT_MODEL_OK(p);
    p.TableDefs().UpdateJoins();
    EXPECT_MODEL_OK(p);
    const std::string expected = Crlf({
        "SELECT ",
        R"(  "O"."ID",)",
        R"(  "C"."ID" AS ID1)",
        "FROM",
        R"(  "ORDERS" O )",
        R"(  INNER JOIN "CUSTOMERS" C ON ("O"."CUST_ID" = "C"."ID"))",
        "",
    });
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, expected);
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, ScriptFormatLowerKeywordsFirstUpperFunctions)
{
    TVdSelectParser p;
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    p.ScriptFormat().FunctionsFormat = qfmFirstUpper;
    p.SetDistinct(true);
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    TVdTableDef* c = AddTable(p, "CUSTOMERS", "C");
    TVdFieldDef* count = AddCountStar(*o);
    count->SetAlias("ORDER_COUNT");
    EXPECT_MODEL_OK(p);
    AddField(*c, "NAME");
    EXPECT_MODEL_OK(p);
    AddJoin(*o, "CUST_ID", "C", "ID", vdjLOuterJoin);
    EXPECT_MODEL_OK(p);
    p.WhereItems().Filter = cfNotAll;
    AddComparison(p.WhereItems(), "C.NAME", fkIdentifier, "LIKE", {{"A%", fkString}});
    AddComparison(p.WhereItems(), "C.NAME", fkIdentifier, "=", {{"Smith", fkString}});
    EXPECT_MODEL_OK(p);
    TVdCriterion* having =
        AddComparison(p.HavingItems(), "COUNT", fkFunction, ">", {{"1", fkInteger}});
    AddArg(having->LeftSide().Arguments(), "*", fkUnknown);
    EXPECT_MODEL_OK(p);
    p.OrderByItems().AddOrdered("ORDER_COUNT", okDesc);
    EXPECT_MODEL_OK(p);

    const std::string expected = Crlf({
        "select distinct ",
        R"(  Count(*) as ORDER_COUNT,)",
        R"(  "C"."NAME")",
        "from",
        R"(  "ORDERS" O )",
        R"(  left outer join "CUSTOMERS" C on ("O"."CUST_ID" = "C"."ID"))",
        "where",
        R"(  not (("C"."NAME" like 'A%') or )",
        R"(  ("C"."NAME" = 'Smith')))",
        "group by",
        R"(  "C"."NAME")",
        "having",
        R"(  (Count(*) > 1))",
        "order by",
        R"(  "ORDER_COUNT" DESC)",
        "",
    });
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, expected);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, ScriptFormatFirstUpperKeywordsUpperFunctions)
{
    TVdSelectParser p;
    p.ScriptFormat().KeywordsFormat = qfmFirstUpper;
    p.ScriptFormat().FunctionsFormat = qfmUpperCase;
    TVdTableDef* t = AddTable(p, "PRODUCTS", "P");
    AddField(*t, "CATEGORY");
    EXPECT_MODEL_OK(p);
    TVdFieldDef* max = AddField(*t, "max", fkFunction);
    AddArg(max->Arguments(), "PRICE", fkIdentifier);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(max->Alias(), "FIELD_1");
    AddComparison(p.WhereItems(), "P.CATEGORY", fkIdentifier, "NOT IN",
                  {{"('A','B')", fkExpression}});
    AddComparison(p.WhereItems(), "P.PRICE", fkIdentifier, "IS NOT NULL");
    AddComparison(p.WhereItems(), "P.PRICE", fkIdentifier, "<>", {{"0", fkInteger}});
    EXPECT_MODEL_OK(p);
    p.OrderByItems().AddOrdered("FIELD_1", okDesc);
    EXPECT_MODEL_OK(p);

    const std::string expected = Crlf({
        "Select ",
        R"(  "P"."CATEGORY",)",
        R"(  MAX("P"."PRICE") As FIELD_1)",
        "From",
        R"(  "PRODUCTS" P)",
        "Where",
        R"(  ("P"."CATEGORY" Not in ('A','B')) And )",
        R"(  ("P"."PRICE" Is not null) And )",
        R"(  ("P"."PRICE" <> 0))",
        "Group By",
        R"(  "P"."CATEGORY")",
        "Order By",
        R"(  "FIELD_1" DESC)",
        "",
    });
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, expected);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, StoredProcedureInFrom)
{
    TVdSelectParser p;
    TVdTableDef* sp = AddTable(p, "GET_ORDERS", "G");
    sp->SetTableType(qttStoredProc);
    AddField(*sp, "CUST_ID")->SetParamType(ptInput);
    EXPECT_MODEL_OK(p);
    AddField(*sp, "YEAR")->SetParamType(ptInput);
    EXPECT_MODEL_OK(p);
    AddField(*sp, "ORDER_ID");
    EXPECT_MODEL_OK(p);
    AddField(*sp, "TOTAL");
    EXPECT_MODEL_OK(p);
    const std::string expected = Crlf({
        "SELECT ",
        R"(  "G"."ORDER_ID",)",
        R"(  "G"."TOTAL")",
        "FROM",
        R"(  "GET_ORDERS"(:CUST_ID, :YEAR) G)",
        "",
    });
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, expected);
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, StarWithDistinct)
{
    TVdSelectParser p;
    AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    p.SetDistinct(true);
    EXPECT_MODEL_OK(p);
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, "SELECT DISTINCT *\r\nFROM\r\n  \"ORDERS\" O,\r\n  \"CUSTOMERS\" C\r\n");
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, CustomerDbTable)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "customer.db");
    EXPECT_MODEL_OK(p);
    const std::string star = p.GetExpression();
    EXPECT_EQ(star, "SELECT *\r\nFROM\r\n  \"customer.db\"\r\n");
    EXPECT_EQ(Reprint(p, star), star);
    AddField(*t, "ID");
    EXPECT_MODEL_OK(p);
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, "SELECT \r\n  \"customer.db\".\"ID\"\r\nFROM\r\n  \"customer.db\"\r\n");
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, ExpressionColumnsAndStringLiterals)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "ITEMS", "I");
    AddField(*t, "QTY");
    AddField(*t, "PRICE * QTY", fkExpression);
    EXPECT_MODEL_OK(p);
    AddField(*t, "1", fkInteger)->SetAlias("ONE");
    EXPECT_MODEL_OK(p);
    AddComparison(p.WhereItems(), "I.NOTE", fkIdentifier, "<>", {{"it's", fkString}});
    EXPECT_MODEL_OK(p);
    const std::string expected = Crlf({
        "SELECT ",
        R"(  "I"."QTY",)",
        R"(  PRICE * QTY AS FIELD_1,)",
        R"(  1 AS ONE)",
        "FROM",
        R"(  "ITEMS" I)",
        "WHERE",
        R"(  ("I"."NOTE" <> 'it''s'))",
        "",
    });
    const std::string printed = p.GetExpression();
    EXPECT_EQ(printed, expected);
    EXPECT_EQ(Reprint(p, printed), printed);
}

TEST(VdModelBuild, ClearResetsDistinctAndFilters)
{
    TVdSelectParser p;
    BuildJoinedOrders(p);
    p.WhereItems().Filter = cfNotAll;
    p.Clear();
    EXPECT_MODEL_OK(p);
    EXPECT_FALSE(p.Distinct());
    EXPECT_EQ(p.WhereItems().Filter, cfAll);
    EXPECT_EQ(p.TableDefs().Count(), 0);
    EXPECT_EQ(p.TableDefs().GetFieldCount(), 0);
    EXPECT_EQ(p.OrderByItems().Count(), 0);
    EXPECT_EQ(p.GetExpression(), "");
    // A new statement starts its aliases afresh.
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* name = AddField(*t, "NAME");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(name->Alias(), "NAME");
    EXPECT_EQ(p.GetExpression(), "SELECT \r\n  \"T\".\"NAME\"\r\nFROM\r\n  \"T\"\r\n");
}

// The model check the fuzz targets run knows a ring of joins, which would print no FROM.
TEST(VdModelBuild, CheckFindsARingOfJoins)
{
    TVdSelectParser p;
    TVdTableDef* a = AddTable(p, "A");
    TVdTableDef* b = AddTable(p, "B");
    TVdTableDef* c = AddTable(p, "C");
    AddField(*a, "X");
    AddJoin(*a, "X", "B", "Y");
    AddJoin(*b, "X", "C", "Y");
    EXPECT_MODEL_OK(p);
    AddJoin(*c, "X", "A", "Y");
    const ::testing::AssertionResult ring = CheckModel(p);
    ASSERT_FALSE(ring);
    EXPECT_STREQ(ring.message(), "3 tables are joined in a ring");
}
