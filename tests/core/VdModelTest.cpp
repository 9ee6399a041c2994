// The query model built through its API: collections, expression nodes, output fields,
// tables, joins, aliases, the statement-wide field order and the GROUP BY / ORDER BY lists.

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

// ---- collections ----

TEST(VdCollection, AddHandsTheCollectionsParserToTheItem)
{
    TVdSelectParser p;
    TVdTableDef* t = p.TableDefs().Add();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->Parser(), &p);
    TVdFieldDef* f = t->FieldDefs().Add();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Parser(), &p);
    TVdFunctionDef* arg = f->Arguments().Add();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(arg->Parser(), &p);
}

TEST(VdCollection, SetParserReachesItemsAndNestedArguments)
{
    TVdSelectParser p;
    TVdFunctionDefs list(nullptr);
    TVdFunctionDef* node = list.Add();
    TVdFunctionDef* inner = node->Arguments().Add();
    TVdFunctionDef* leaf = inner->Arguments().Add();
    EXPECT_EQ(node->Parser(), nullptr);
    EXPECT_EQ(leaf->Parser(), nullptr);
    list.SetParser(&p);
    EXPECT_EQ(list.Parser(), &p);
    EXPECT_EQ(node->Parser(), &p);
    EXPECT_EQ(inner->Parser(), &p);
    EXPECT_EQ(leaf->Parser(), &p);
    EXPECT_TRUE(vdcheck::CheckFunctionTree(*node));
}

TEST(VdCollection, DeleteRemovesTheItemAndRenumbers)
{
    TVdFunctionDefs list(nullptr);
    AddArg(list, "A", fkIdentifier);
    AddArg(list, "B", fkIdentifier);
    AddArg(list, "C", fkIdentifier);
    list.Delete(0);
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Items(0)->Name(), "B");
    EXPECT_EQ(list.Items(0)->Index(), 0);
    EXPECT_EQ(list.Items(1)->Name(), "C");
    EXPECT_EQ(list.Items(1)->Index(), 1);
    EXPECT_THROW(list.Items(2), EVdListError);
    EXPECT_THROW(list.Delete(-1), EVdListError);
}

TEST(VdCollection, ItemWithoutParserProcessesNothing)
{
    TVdFunctionDef node;
    EXPECT_EQ(node.ProcessName("customer.db"), "customer.db");
    EXPECT_EQ(node.ProcessName("T.A"), "T.A");
    EXPECT_EQ(node.ProcessName("my name"), "my name");
    EXPECT_EQ(node.ProcessKeyword("select"), "select");
    EXPECT_EQ(node.ProcessFunction("count"), "count");
}

// ---- name, keyword and function processing ----

TEST(VdProcessing, ItemQuotesNamesThroughTheScanner)
{
    TVdSelectParser p;
    TVdFunctionDef node;
    node.SetParser(&p);
    EXPECT_EQ(node.ProcessName("NAME"), "\"NAME\"");
    EXPECT_EQ(node.ProcessName("CUSTOMER.NAME"), "\"CUSTOMER\".\"NAME\"");
    EXPECT_EQ(node.ProcessName("\"NAME\""), "\"NAME\"");
}

TEST(VdProcessing, TableNamedCustomerDbIsQuotedAsOneName)
{
    TVdSelectParser p;
    TVdFunctionDef node;
    node.SetParser(&p);
    EXPECT_EQ(node.ProcessName("customer.db"), "\"customer.db\"");
    // The test is on the lower-cased name: any ".db" keeps the name whole.
    EXPECT_EQ(node.ProcessName("DATA/CUSTOMER.DB"), "\"DATA/CUSTOMER.DB\"");
    EXPECT_EQ(node.ProcessName("sales.dbo.orders"), "\"sales.dbo.orders\"");
}

TEST(VdProcessing, DbNameIsLeftAloneWhenQuotingIsOff)
{
    TVdSelectParser p;
    p.Scanner().SetQuoteIdentifiers(false);
    TVdFunctionDef node;
    node.SetParser(&p);
    EXPECT_EQ(node.ProcessName("customer.db"), "customer.db");
    EXPECT_EQ(node.ProcessName("CUSTOMER.NAME"), "CUSTOMER.NAME");
}

TEST(VdProcessing, KeywordsFollowEachFormatMode)
{
    struct Row {
        TVdFormatMode Mode;
        const char* Word;
        const char* Expected;
    };
    const std::vector<Row> rows = {
        {qfmAsIs, "order_date", "order_date"},
        {qfmAsIs, "Order_DATE", "Order_DATE"},
        {qfmUpperCase, "order_date", "ORDER_DATE"},
        {qfmLowerCase, "Order_DATE", "order_date"},
        {qfmFirstUpper, "order_date", "Order_Date"},
        {qfmFirstUpper, "ORDER_DATE", "Order_Date"},
        {qfmFirstUpper, "SELECT", "Select"},
        {qfmFirstUpper, "LEFT OUTER", "Left outer"},
        {qfmFirstUpper, "_x_y", "_X_Y"},
        {qfmFirstUpper, "", ""},
    };
    for (const Row& row : rows) {
        TVdSelectParser p;
        p.ScriptFormat().KeywordsFormat = row.Mode;
        TVdFunctionDef node;
        node.SetParser(&p);
        EXPECT_EQ(p.ProcessKeyword(row.Word), row.Expected) << row.Word << " mode " << row.Mode;
        EXPECT_EQ(node.ProcessKeyword(row.Word), row.Expected) << row.Word;
        // The functions format is independent of the keywords format.
        EXPECT_EQ(p.ProcessFunction(row.Word), row.Word);
    }
}

TEST(VdProcessing, FunctionsFollowTheirOwnFormatMode)
{
    TVdSelectParser p;
    TVdFunctionDef node;
    node.SetParser(&p);
    p.ScriptFormat().FunctionsFormat = qfmUpperCase;
    EXPECT_EQ(node.ProcessFunction("count"), "COUNT");
    EXPECT_EQ(node.ProcessKeyword("count"), "count");
    p.ScriptFormat().FunctionsFormat = qfmLowerCase;
    EXPECT_EQ(node.ProcessFunction("COUNT"), "count");
    p.ScriptFormat().FunctionsFormat = qfmFirstUpper;
    EXPECT_EQ(node.ProcessFunction("date_part"), "Date_Part");
    p.ScriptFormat().FunctionsFormat = qfmAsIs;
    EXPECT_EQ(node.ProcessFunction("CoUnT"), "CoUnT");
}

TEST(VdProcessing, ScriptFormatAssignCopiesBothModes)
{
    TVdScriptFormat format;
    format.KeywordsFormat = qfmLowerCase;
    format.FunctionsFormat = qfmFirstUpper;
    TVdSelectParser p;
    EXPECT_EQ(p.ScriptFormat().KeywordsFormat, qfmAsIs);
    EXPECT_EQ(p.ScriptFormat().FunctionsFormat, qfmAsIs);
    p.SetScriptFormat(format);
    EXPECT_EQ(p.ScriptFormat().KeywordsFormat, qfmLowerCase);
    EXPECT_EQ(p.ScriptFormat().FunctionsFormat, qfmFirstUpper);
    format.KeywordsFormat = qfmUpperCase;
    EXPECT_EQ(p.ScriptFormat().KeywordsFormat, qfmLowerCase);
}

// ---- expression nodes ----

TEST(VdFunctionDef, FunctionWithNoArgumentsPrintsNameAndEmptyParentheses)
{
    TVdSelectParser p;
    TVdFunctionDef node;
    node.SetParser(&p);
    node.SetName("CURRENT_DATE");
    node.SetKind(fkFunction);
    EXPECT_EQ(node.GetScript(), "CURRENT_DATE()");
    p.ScriptFormat().FunctionsFormat = qfmLowerCase;
    EXPECT_EQ(node.GetScript(), "current_date()");
}

TEST(VdFunctionDef, CountStarPrintsItsArgument)
{
    TVdSelectParser p;
    TVdFunctionDef node;
    node.SetParser(&p);
    node.SetName("COUNT");
    node.SetKind(fkFunction);
    AddArg(node.Arguments(), "*", fkUnknown);
    EXPECT_TRUE(vdcheck::CheckFunctionTree(node));
    EXPECT_EQ(node.GetScript(), "COUNT(*)");
    p.ScriptFormat().FunctionsFormat = qfmFirstUpper;
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    EXPECT_EQ(node.GetScript(), "Count(*)");
}

TEST(VdFunctionDef, ArgumentsAreJoinedByCommaAndBlank)
{
    TVdSelectParser p;
    TVdFunctionDef node;
    node.SetParser(&p);
    node.SetName("SUBSTRING");
    node.SetKind(fkFunction);
    AddArg(node.Arguments(), "NAME", fkIdentifier);
    AddArg(node.Arguments(), "1", fkInteger);
    AddArg(node.Arguments(), "3", fkInteger);
    EXPECT_TRUE(vdcheck::CheckFunctionTree(node));
    EXPECT_EQ(node.Arguments().GetScript(), "\"NAME\", 1, 3");
    EXPECT_EQ(node.GetScript(), "SUBSTRING(\"NAME\", 1, 3)");
}

TEST(VdFunctionDef, AnyKindWithArgumentsPrintsAsCall)
{
    TVdFunctionDef node;
    node.SetName("F");
    node.SetKind(fkString);
    AddArg(node.Arguments(), "1", fkInteger);
    EXPECT_EQ(node.GetScript(), "F(1)");
}

TEST(VdFunctionDef, IdentifierOutsideTableHasNoPrefix)
{
    TVdFunctionDef node;
    node.SetName("NAME");
    node.SetKind(fkIdentifier);
    EXPECT_EQ(node.GetScript(), "NAME");
    TVdSelectParser p;
    node.SetParser(&p);
    EXPECT_EQ(node.GetScript(), "\"NAME\"");
    // A qualifier kept in the name is quoted part by part.
    node.SetName("T.NAME");
    EXPECT_EQ(node.GetScript(), "\"T\".\"NAME\"");
}

TEST(VdFunctionDef, IdentifierFieldIsPrefixedByTableAlias)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "CUSTOMERS", "C");
    TVdFieldDef* f = AddField(*t, "NAME");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->TVdFunctionDef::GetScript(), "\"C\".\"NAME\"");
}

TEST(VdFunctionDef, IdentifierPrefixIsTableNameWhenAliasIsEmpty)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "CUSTOMERS");
    t->SetAlias("");
    TVdFieldDef* f = AddField(*t, "NAME");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->GetScript(), "\"CUSTOMERS\".\"NAME\"");
}

TEST(VdFunctionDef, IdentifierPrefixIsFoundThroughNestedArgumentLists)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "CUSTOMERS", "C");
    TVdFieldDef* upper = AddField(*t, "UPPER", fkFunction);
    TVdFunctionDef* trim = AddArg(upper->Arguments(), "TRIM", fkFunction);
    TVdFunctionDef* name = AddArg(trim->Arguments(), "NAME", fkIdentifier);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(name->OwnerTable(), t);
    EXPECT_EQ(name->GetScript(), "\"C\".\"NAME\"");
    EXPECT_EQ(upper->TVdFunctionDef::GetScript(), "UPPER(TRIM(\"C\".\"NAME\"))");
}

TEST(VdFunctionDef, IdentifierInCriterionHasNoTablePrefix)
{
    TVdSelectParser p;
    AddTable(p, "CUSTOMERS", "C");
    TVdCriterion* c = p.WhereItems().Add();
    c->LeftSide().SetName("NAME");
    c->LeftSide().SetKind(fkIdentifier);
    TVdFunctionDef* fn = AddArg(c->RightSide(), "UPPER", fkFunction);
    AddArg(fn->Arguments(), "CITY", fkIdentifier);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(c->LeftSide().OwnerTable(), nullptr);
    EXPECT_EQ(c->LeftSide().GetScript(), "\"NAME\"");
    EXPECT_EQ(fn->GetScript(), "UPPER(\"CITY\")");
}

TEST(VdFunctionDef, StringLiteralIsRequotedWithApostrophes)
{
    struct Row {
        const char* Name;
        const char* Expected;
    };
    const std::vector<Row> rows = {
        {"abc", "'abc'"},
        {"'abc'", "'abc'"},
        {"\"abc\"", "'abc'"},
        {"it's", "'it''s'"},
        {"\"say 'hi'\"", "'say ''hi'''"},
        {"''abc''", "'''abc'''"}, // only one pair of enclosing quotes goes
        {"'abc", "'''abc'"},      // no closing quote: nothing is stripped
        {"", "''"},
        {"''", "''"},
        {"'", "''''"}, // a single character is never stripped
        {"\"", "'\"'"},
        {"a.b", "'a.b'"},
    };
    TVdSelectParser p;
    for (const Row& row : rows) {
        TVdFunctionDef node;
        node.SetParser(&p);
        node.SetName(row.Name);
        node.SetKind(fkString);
        EXPECT_EQ(node.GetScript(), row.Expected) << "name [" << row.Name << "]";
    }
}

TEST(VdFunctionDef, OtherKindsPrintTheNameUnchanged)
{
    struct Row {
        TVdFunctionKind Kind;
        const char* Name;
    };
    const std::vector<Row> rows = {
        {fkInteger, "42"}, {fkFloat, "1.5"}, {fkExpression, "A.B + c"},
        {fkUnknown, "*"},  {fkUnknown, ""},
    };
    TVdSelectParser p;
    p.ScriptFormat().FunctionsFormat = qfmLowerCase;
    for (const Row& row : rows) {
        TVdFunctionDef node;
        node.SetParser(&p);
        node.SetName(row.Name);
        node.SetKind(row.Kind);
        EXPECT_EQ(node.GetScript(), row.Name) << row.Kind;
    }
}

TEST(VdFunctionDef, ClearEmptiesNameKindAndArguments)
{
    TVdFunctionDef node;
    node.SetName("SUM");
    node.SetKind(fkFunction);
    AddArg(node.Arguments(), "X", fkIdentifier);
    node.Clear();
    EXPECT_EQ(node.Name(), "");
    EXPECT_EQ(node.Kind(), fkUnknown);
    EXPECT_EQ(node.ArgumentCount(), 0);
    EXPECT_EQ(node.GetScript(), "");
}

TEST(VdFunctionDef, AssignMakesADeepCopy)
{
    TVdFunctionDef source;
    source.SetName("SUM");
    source.SetKind(fkFunction);
    AddArg(source.Arguments(), "X", fkIdentifier);
    TVdFunctionDef copy;
    copy.Assign(source);
    EXPECT_EQ(copy.Name(), "SUM");
    EXPECT_EQ(copy.Kind(), fkFunction);
    ASSERT_EQ(copy.ArgumentCount(), 1);
    EXPECT_NE(copy.Argument(0), source.Argument(0));
    EXPECT_TRUE(vdcheck::CheckFunctionTree(copy));
    source.Arguments().Items(0)->SetName("Y");
    EXPECT_EQ(copy.Argument(0)->Name(), "X");
    EXPECT_EQ(copy.GetScript(), "SUM(X)");
}

// ---- output fields and aliases ----

TEST(VdFieldDef, AliasEqualToNamePrintsWithoutAs)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "NAME");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Alias(), "NAME");
    EXPECT_EQ(f->GetScript(), "\"T\".\"NAME\"");
}

TEST(VdFieldDef, AliasName2ForNamePrintsAsAndTheAlias)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "NAME");
    f->SetAlias("NAME2");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->GetScript(), "\"T\".\"NAME\" AS NAME2");
}

TEST(VdFieldDef, EmptyAliasPrintsTheExpressionOnly)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "NAME");
    f->SetAlias("");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->GetScript(), "\"T\".\"NAME\"");
}

TEST(VdFieldDef, AsFollowsKeywordFormatAndAliasIsNotQuoted)
{
    TVdSelectParser p;
    p.ScriptFormat().KeywordsFormat = qfmLowerCase;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "NAME");
    f->SetAlias("my alias");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->GetScript(), "\"T\".\"NAME\" as my alias");
}

TEST(VdFieldDef, AliasComparisonWithNameIsCaseSensitive)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "NAME");
    f->SetAlias("name");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->GetScript(), "\"T\".\"NAME\" AS name");
}

TEST(VdFieldDef, SetNameCarriesAFollowingAliasAlong)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = t->FieldDefs().Add();
    EXPECT_EQ(f->Alias(), "");
    f->SetName("A");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Alias(), "A");
    f->SetName("B");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Name(), "B");
    EXPECT_EQ(f->Alias(), "B");
    f->SetAlias("X");
    f->SetName("C");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Name(), "C");
    EXPECT_EQ(f->Alias(), "X");
}

TEST(VdFieldDef, SetNameGeneratesAUniqueAliasAcrossTables)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "ORDERS", "O");
    AddField(*t1, "ID");
    TVdTableDef* t2 = AddTable(p, "CUSTOMERS", "C");
    TVdFieldDef* f = AddField(*t2, "X");
    EXPECT_EQ(f->Alias(), "X");
    f->SetName("ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Alias(), "ID1");
}

TEST(VdFieldDef, SettingTheSameNameAgainCountsTheFieldsOwnAlias)
{
    // The field's own alias is one of the aliases already taken.
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "ID");
    EXPECT_EQ(f->Alias(), "ID");
    f->SetName("ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Alias(), "ID1");
}

TEST(VdFieldDef, TwoTablesWithFieldIdGiveTheSecondAliasId1)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "ORDERS", "O");
    TVdFieldDef* f1 = AddField(*t1, "ID");
    EXPECT_MODEL_OK(p);
    TVdTableDef* t2 = AddTable(p, "CUSTOMERS", "C");
    TVdFieldDef* f2 = AddField(*t2, "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f1->Alias(), "ID");
    EXPECT_EQ(f2->Alias(), "ID1");
    EXPECT_EQ(f1->GetScript(), "\"O\".\"ID\"");
    EXPECT_EQ(f2->GetScript(), "\"C\".\"ID\" AS ID1");
    TVdTableDef* t3 = AddTable(p, "ITEMS", "I");
    TVdFieldDef* f3 = AddField(*t3, "ID");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f3->Alias(), "ID2");
}

TEST(VdFieldDef, SetKindGivesExpressionColumnsFieldAliases)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* expr = AddField(*t, "PRICE * QTY", fkExpression);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(expr->Alias(), "FIELD_1");
    TVdFieldDef* fn = AddField(*t, "NOW", fkFunction);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(fn->Alias(), "FIELD_2");
    TVdTableDef* t2 = AddTable(p, "U");
    TVdFieldDef* num = AddField(*t2, "42", fkInteger);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(num->Alias(), "FIELD_3");
    EXPECT_EQ(expr->GetScript(), "PRICE * QTY AS FIELD_1");
    EXPECT_EQ(fn->GetScript(), "NOW() AS FIELD_2");
    EXPECT_EQ(num->GetScript(), "42 AS FIELD_3");
}

TEST(VdFieldDef, SetKindKeepsTheAliasOfIdentifiersAndOwnAliases)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "A");
    f->SetKind(fkUnknown);
    EXPECT_EQ(f->Alias(), "A");
    f->SetKind(fkIdentifier);
    EXPECT_EQ(f->Alias(), "A");
    f->SetAlias("TOTAL");
    f->SetKind(fkExpression);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Alias(), "TOTAL");
    EXPECT_EQ(f->Kind(), fkExpression);
}

TEST(VdFieldDef, SetKindBeforeSetNameKeepsTheFieldAlias)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = t->FieldDefs().Add();
    f->SetKind(fkFunction);
    EXPECT_EQ(f->Alias(), "FIELD_1");
    f->SetName("COUNT");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(f->Alias(), "FIELD_1");
}

TEST(VdFieldDef, GenerateAliasOutsideTablesAppendsOneWhenUnique)
{
    TVdFieldDefs list(nullptr);
    TVdFieldDef* f = list.Add();
    EXPECT_EQ(f->GenerateAlias("N", false), "N");
    EXPECT_EQ(f->GenerateAlias("N", true), "N1");
    f->SetName("N");
    EXPECT_EQ(f->Alias(), "N");
    TVdFieldDef* g = list.Add();
    g->SetName("N");
    EXPECT_EQ(g->Alias(), "N"); // no statement to be unique in
    g->SetKind(fkExpression);
    EXPECT_EQ(g->Alias(), "FIELD_1");

    TVdTableDef lone;
    TVdFieldDef* h = lone.FieldDefs().Add();
    EXPECT_EQ(h->GenerateAlias("ID", true), "ID1");
    EXPECT_EQ(h->GenerateAlias("ID", false), "ID");
}

TEST(VdFieldDef, GetUniqueAliasCountsFromOne)
{
    TVdSelectParser p;
    TVdTableDefs& tables = p.TableDefs();
    EXPECT_EQ(tables.GetUniqueAlias("A", false), "A");
    EXPECT_EQ(tables.GetUniqueAlias("A", true), "A1");
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* a = AddField(*t, "A");
    EXPECT_EQ(a->Alias(), "A");
    EXPECT_EQ(tables.GetUniqueAlias("A", false), "A1");
    EXPECT_EQ(tables.GetUniqueAlias("A", true), "A1");
    TVdFieldDef* b = AddField(*t, "B");
    b->SetAlias("A1");
    EXPECT_MODEL_OK(p);
    // The counter is appended to the given name: A2, never A11.
    EXPECT_EQ(tables.GetUniqueAlias("A", false), "A2");
    EXPECT_EQ(tables.GetUniqueAlias("A", true), "A2");
    // Asking does not reserve.
    EXPECT_EQ(tables.GetUniqueAlias("A", true), "A2");
}

TEST(VdFieldDef, GetUniqueAliasForceSkipsTheBareName)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* f = AddField(*t, "X");
    f->SetAlias("A1");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("A", false), "A");
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("A", true), "A2");
}

TEST(VdFieldDef, GetUniqueAliasComparesExactly)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "id");
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("ID", false), "ID");
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("id", false), "id1");
}

TEST(VdFieldDef, FreedAliasIsGivenOutAgain)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "T1");
    TVdTableDef* t2 = AddTable(p, "T2");
    TVdTableDef* t3 = AddTable(p, "T3");
    TVdFieldDef* a = AddField(*t1, "A");
    TVdFieldDef* a1 = AddField(*t2, "A");
    TVdFieldDef* a2 = AddField(*t3, "A");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->Alias(), "A");
    EXPECT_EQ(a1->Alias(), "A1");
    EXPECT_EQ(a2->Alias(), "A2");
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("A", false), "A3");
    a1->SetAlias("B");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("A", false), "A1");
    a1->SetAlias("A1");
    t3->FieldDefs().Delete(0);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("A", false), "A2");
    p.TableDefs().Delete(1);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("A", true), "A1");
    TVdFieldDef* again = AddField(*t1, "A");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(again->Alias(), "A1");
}

TEST(VdFieldDef, EndUpdateRenewsAFieldWhoseNameIsAnotherFieldsAlias)
{
    TVdSelectParser p;
    TVdTableDefs& tables = p.TableDefs();
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* a = AddField(*t, "A");
    TVdFieldDef* b = AddField(*t, "B");
    tables.BeginUpdate();
    b->SetAlias("A");
    EXPECT_EQ(a->Alias(), "A"); // nothing happens before EndUpdate
    tables.EndUpdate();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->Alias(), "A1");
    EXPECT_EQ(b->Alias(), "A");
}

TEST(VdFieldDef, EndUpdateRenewsTheAliasWhateverItWas)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* a = AddField(*t, "A");
    TVdFieldDef* b = AddField(*t, "B");
    p.TableDefs().BeginUpdate();
    a->SetAlias("X");
    b->SetAlias("A");
    p.TableDefs().EndUpdate();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->Alias(), "A1");
    EXPECT_EQ(b->Alias(), "A");
}

TEST(VdFieldDef, EndUpdateGivesExpressionColumnsAFieldAlias)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* x = AddField(*t, "A + B", fkExpression);
    EXPECT_EQ(x->Alias(), "FIELD_1");
    TVdFieldDef* y = AddField(*t, "C");
    p.TableDefs().BeginUpdate();
    y->SetAlias("A + B");
    p.TableDefs().EndUpdate();
    EXPECT_MODEL_OK(p);
    // FIELD_1 is still taken by the field itself when the new alias is chosen.
    EXPECT_EQ(x->Alias(), "FIELD_2");
    EXPECT_EQ(y->Alias(), "A + B");
}

TEST(VdFieldDef, EndUpdateLooksOnlyWithinTheSameTable)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "T1");
    TVdTableDef* t2 = AddTable(p, "T2");
    TVdFieldDef* a = AddField(*t1, "A");
    TVdFieldDef* b = AddField(*t2, "B");
    p.TableDefs().BeginUpdate();
    b->SetAlias("A");
    p.TableDefs().EndUpdate();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->Alias(), "A");
    EXPECT_EQ(b->Alias(), "A");
}

TEST(VdFieldDef, NestedUpdatesRenewAliasesAtTheOuterEnd)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* a = AddField(*t, "A");
    TVdFieldDef* b = AddField(*t, "B");
    p.TableDefs().BeginUpdate();
    p.TableDefs().BeginUpdate();
    b->SetAlias("A");
    p.TableDefs().EndUpdate();
    EXPECT_EQ(a->Alias(), "A");
    p.TableDefs().EndUpdate();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->Alias(), "A1");
}

TEST(VdFieldDef, GetTableAliasIsAliasOrName)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "ORDERS", "O");
    TVdFieldDef* f = AddField(*t, "ID");
    EXPECT_EQ(f->GetTableAlias(), "O");
    t->SetAlias("");
    EXPECT_EQ(f->GetTableAlias(), "ORDERS");
    TVdFieldDefs list(nullptr);
    EXPECT_EQ(list.Add()->GetTableAlias(), "");
}

TEST(VdFieldDef, FindByNameAndAliasAreExactFirstMatch)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* a = AddField(*t, "A");
    TVdFieldDef* b = AddField(*t, "A");
    b->SetAlias("X");
    TVdFieldDef* c = AddField(*t, "C");
    c->SetAlias("X");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->FieldDefs().FindByName("A"), a);
    EXPECT_EQ(t->FieldDefs().FindByName("a"), nullptr);
    EXPECT_EQ(t->FieldDefs().FindByAlias("X"), b);
    EXPECT_EQ(t->FieldDefs().FindByAlias("x"), nullptr);
    EXPECT_EQ(t->FieldDefs().FindByAlias("A1"), nullptr);
    EXPECT_EQ(t->FieldDefs().FindByName("Z"), nullptr);
}

// ---- a table's field list ----

TEST(VdFieldDefs, ScriptPutsEachFieldOnItsOwnLine)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "A");
    AddField(*t, "B")->SetAlias("BB");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(t->FieldDefs().GetScript(), "  \"T\".\"A\",\r\n  \"T\".\"B\" AS BB");
}

TEST(VdFieldDefs, InputParameterInLastPlaceLeavesTrailingSeparator)
{
    TVdSelectParser p;
    TVdTableDef* sp = AddTable(p, "SP");
    sp->SetTableType(qttStoredProc);
    AddField(*sp, "X");
    AddField(*sp, "P")->SetParamType(ptInput);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(sp->FieldDefs().GetScript(), "  \"SP\".\"X\",\r\n");
}

TEST(VdFieldDefs, InputParametersElsewhereAreSkipped)
{
    TVdSelectParser p;
    TVdTableDef* sp = AddTable(p, "SP");
    sp->SetTableType(qttStoredProc);
    AddField(*sp, "P")->SetParamType(ptInput);
    AddField(*sp, "X");
    AddField(*sp, "Q")->SetParamType(ptInputOutput);
    AddField(*sp, "Y")->SetParamType(ptOutput);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(sp->FieldDefs().GetScript(), "  \"SP\".\"X\",\r\n  \"SP\".\"Y\"");
}

TEST(VdFieldDefs, ParamTypeDecidesWhatIsAnInputParameter)
{
    TVdFieldDef f;
    EXPECT_EQ(f.ParamType(), ptResult);
    EXPECT_FALSE(f.IsInputParam());
    f.SetParamType(ptInput);
    EXPECT_TRUE(f.IsInputParam());
    f.SetParamType(ptInputOutput);
    EXPECT_TRUE(f.IsInputParam());
    f.SetParamType(ptOutput);
    EXPECT_FALSE(f.IsInputParam());
    f.SetParamType(ptUnknown);
    EXPECT_FALSE(f.IsInputParam());
}

// ---- the statement-wide field order ----

TEST(VdFieldOrder, NewFieldIsLastAcrossAllTables)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "T1");
    TVdTableDef* t2 = AddTable(p, "T2");
    TVdFieldDef* a = AddField(*t1, "A");
    EXPECT_MODEL_OK(p);
    TVdFieldDef* b = AddField(*t2, "B");
    EXPECT_MODEL_OK(p);
    TVdFieldDef* c = AddField(*t1, "C");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->FieldIndex(), 0);
    EXPECT_EQ(b->FieldIndex(), 1);
    EXPECT_EQ(c->FieldIndex(), 2);
    EXPECT_EQ(p.TableDefs().GetFieldCount(), 3);
    EXPECT_EQ(p.TableDefs().GetFieldDefs(1), b);
    EXPECT_EQ(p.TableDefs().GetFieldDefs(3), nullptr);
    EXPECT_EQ(p.TableDefs().GetFieldDefs(-1), nullptr);
}

TEST(VdFieldOrder, InsertedFieldIsStillLast)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "A");
    AddField(*t, "B");
    TVdFieldDef* first = t->FieldDefs().Insert(0);
    first->SetName("Z");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(first->Index(), 0);
    EXPECT_EQ(first->FieldIndex(), 2);
}

TEST(VdFieldOrder, DeletingAFieldDecrementsGreaterIndexes)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "T1");
    TVdTableDef* t2 = AddTable(p, "T2");
    TVdFieldDef* a = AddField(*t1, "A");
    AddField(*t1, "B");
    TVdFieldDef* c = AddField(*t2, "C");
    TVdFieldDef* d = AddField(*t1, "D");
    EXPECT_MODEL_OK(p);
    t1->FieldDefs().Delete(1);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->FieldIndex(), 0);
    EXPECT_EQ(c->FieldIndex(), 1);
    EXPECT_EQ(d->FieldIndex(), 2);
    EXPECT_EQ(p.TableDefs().GetFieldCount(), 3);
}

TEST(VdFieldOrder, DeletingATableRenumbersTheRest)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "T1");
    TVdTableDef* t2 = AddTable(p, "T2");
    TVdTableDef* t3 = AddTable(p, "T3");
    TVdFieldDef* a = AddField(*t1, "A");
    AddField(*t2, "B");
    AddField(*t2, "C");
    TVdFieldDef* d = AddField(*t3, "D");
    TVdFieldDef* e = AddField(*t1, "E");
    AddField(*t2, "F");
    TVdFieldDef* g = AddField(*t3, "G");
    EXPECT_MODEL_OK(p);
    p.TableDefs().Delete(1);
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->FieldIndex(), 0);
    EXPECT_EQ(d->FieldIndex(), 1);
    EXPECT_EQ(e->FieldIndex(), 2);
    EXPECT_EQ(g->FieldIndex(), 3);
    EXPECT_EQ(p.TableDefs().GetFieldCount(), 4);
    TVdFieldDef* h = AddField(*t3, "H");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(h->FieldIndex(), 4);
}

TEST(VdFieldOrder, ClearingATablesFieldsRenumbersTheRest)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "T1");
    TVdTableDef* t2 = AddTable(p, "T2");
    AddField(*t1, "A");
    TVdFieldDef* b = AddField(*t2, "B");
    AddField(*t1, "C");
    TVdFieldDef* d = AddField(*t2, "D");
    t1->FieldDefs().Clear();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(b->FieldIndex(), 0);
    EXPECT_EQ(d->FieldIndex(), 1);
    EXPECT_EQ(p.TableDefs().GetFieldCount(), 2);
    // The aliases of the cleared fields are free again.
    EXPECT_EQ(p.TableDefs().GetUniqueAlias("A", false), "A");
}

TEST(VdFieldOrder, ClearingAllTablesStartsFromZero)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    AddField(*t, "A");
    AddField(*t, "B");
    p.TableDefs().Clear();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(p.TableDefs().GetFieldCount(), 0);
    TVdTableDef* u = AddTable(p, "U");
    TVdFieldDef* a = AddField(*u, "A");
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->FieldIndex(), 0);
    EXPECT_EQ(a->Alias(), "A");
}

TEST(VdFieldOrder, FieldOutsideATableGetsItsPositionInTheList)
{
    TVdFieldDefs list(nullptr);
    EXPECT_EQ(list.Add()->FieldIndex(), 0);
    EXPECT_EQ(list.Add()->FieldIndex(), 1);
    TVdTableDef lone;
    EXPECT_EQ(lone.FieldDefs().Add()->FieldIndex(), 0);
    EXPECT_EQ(lone.FieldDefs().Add()->FieldIndex(), 1);
}

TEST(VdFieldOrder, SelectListFollowsFieldOrderNotTableOrder)
{
    TVdSelectParser p;
    TVdTableDef* t1 = AddTable(p, "T1");
    TVdTableDef* t2 = AddTable(p, "T2");
    AddField(*t2, "B");
    AddField(*t1, "A");
    AddField(*t2, "C");
    EXPECT_MODEL_OK(p);
    std::string selectList;
    p.TableDefs().GetScript(selectList);
    EXPECT_EQ(selectList, "\r\n  \"T2\".\"B\",\r\n  \"T1\".\"A\",\r\n  \"T2\".\"C\"");
}

// ---- tables ----

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

TEST(VdTableDef, JoinedTablesJoinsFollowAfterAllOwnJoins)
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

TEST(VdTableDefs, TableJoinedByNameOnlyStaysInTheList)
{
    // A join naming the table by name still prints, but the table counts as joined only
    // through its alias.
    TVdSelectParser p;
    TVdTableDef* o = AddTable(p, "ORDERS", "O");
    AddTable(p, "CUSTOMERS", "C");
    AddJoin(*o, "CUST_ID", "CUSTOMERS", "ID");
    EXPECT_EQ(p.TableDefs().GetScript(),
              vdcheck::Crlf({
                  "*",
                  "FROM",
                  R"(  "ORDERS" O )",
                  R"(  INNER JOIN "CUSTOMERS" C ON ("O"."CUST_ID" = "C"."ID"),)",
                  R"(  "CUSTOMERS" C)",
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
                    if (!clash)
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
