// The query model built through its API: collections, name processing, expression nodes,
// output fields and the statement-wide field order.

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

TEST(VdFunctionDefs, ListBelongsToATableOrToANode)
{
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "CUSTOMERS", "C");
    TVdFieldDef* upper = AddField(*t, "UPPER", fkFunction);
    TVdFunctionDefs& args = upper->Arguments();
    EXPECT_EQ(args.OwnerNode(), upper);
    EXPECT_EQ(args.OwnerTable(), nullptr);
    args.SetOwnerTable(t);
    EXPECT_EQ(args.OwnerTable(), t);
    EXPECT_EQ(args.OwnerNode(), nullptr);
    // Clearing the link the list does not have leaves the one it has.
    args.SetOwnerNode(nullptr);
    EXPECT_EQ(args.OwnerTable(), t);
    args.SetOwnerTable(nullptr);
    EXPECT_EQ(args.OwnerTable(), nullptr);
    args.SetOwnerNode(upper);
    EXPECT_EQ(args.OwnerNode(), upper);
}

TEST(VdCollection, FactoryWithStateMakesTheItems)
{
    int made = 0;
    TVdFunctionDefs list(nullptr, TVdCollection::TItemFactory([&made] {
                             ++made;
                             return std::make_unique<TVdFieldDef>();
                         }));
    list.Add();
    list.Add();
    EXPECT_EQ(made, 2);
    EXPECT_NE(dynamic_cast<TVdFieldDef*>(list.Items(1)), nullptr);
}

// A lambda without captures is kept as a plain maker; a list, a lambda with state or one that
// makes no item is not taken for one.
TEST(VdCollection, OnlyALambdaWithoutStateIsAPlainMaker)
{
    int made = 0;
    const auto plain = [] { return std::make_unique<TVdFieldDef>(); };
    const auto withState = [&made] {
        ++made;
        return std::make_unique<TVdFieldDef>();
    };
    const auto noItem = [] { return 1; };
    const auto withArgument = [](int) { return std::make_unique<TVdFieldDef>(); };
    EXPECT_TRUE(IsStatelessItemMaker<decltype(plain)>);
    EXPECT_FALSE(IsStatelessItemMaker<decltype(withState)>);
    EXPECT_FALSE(IsStatelessItemMaker<decltype(noItem)>);
    EXPECT_FALSE(IsStatelessItemMaker<decltype(withArgument)>);
    EXPECT_FALSE(IsStatelessItemMaker<TVdFunctionDefs>);
    TVdFunctionDefs list(nullptr, plain);
    EXPECT_NE(dynamic_cast<TVdFieldDef*>(list.Add()), nullptr);
    EXPECT_EQ(made, 0);
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

TEST(VdFieldDef, EndUpdateKeepsAnAliasOfTheFieldsOwn)
{
    // A prints as "A AS X": B taking the alias A clashes with no column, so X stays (renewing
    // it renamed a column the user had named).
    TVdSelectParser p;
    TVdTableDef* t = AddTable(p, "T");
    TVdFieldDef* a = AddField(*t, "A");
    TVdFieldDef* b = AddField(*t, "B");
    p.TableDefs().BeginUpdate();
    a->SetAlias("X");
    b->SetAlias("A");
    p.TableDefs().EndUpdate();
    EXPECT_MODEL_OK(p);
    EXPECT_EQ(a->Alias(), "X");
    EXPECT_EQ(b->Alias(), "A");
}

TEST(VdFieldDef, EndUpdateKeepsAnExpressionColumnsFieldAlias)
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
    EXPECT_EQ(x->Alias(), "FIELD_1");
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
