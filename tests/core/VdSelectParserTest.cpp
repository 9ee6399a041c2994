// The SELECT parser: clause steps, edge cases and the printed statement, byte for byte.
#include "ModelCompare.h"

#include "core/VdSelectParser.h"

#include "tests/core/ParseErrorReport.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

using namespace vd;

namespace {

std::unique_ptr<TVdSelectParser> Parse(const std::string& text)
{
    auto parser = std::make_unique<TVdSelectParser>();
    parser->SetExpression(text);
    return parser;
}

std::string Print(const std::string& text, TVdFormatMode keywords = qfmAsIs,
                  TVdFormatMode functions = qfmAsIs)
{
    TVdSelectParser parser;
    parser.ScriptFormat().KeywordsFormat = keywords;
    parser.ScriptFormat().FunctionsFormat = functions;
    parser.SetExpression(text);
    return parser.GetExpression();
}

using vdtest::ParseError;
using vdtest::TErrorReport;

std::string InvalidToken(const std::string& token, int position, int line = 1)
{
    return "Invalid token '" + token + "' at position " + std::to_string(position) + " of line " +
           std::to_string(line) + ".";
}

const TVdFieldDef& Field(const TVdSelectParser& parser, int table, int field)
{
    return *parser.TableDefs().Items(table)->FieldDefs().Items(field);
}

} // namespace

// ---- edge cases ----

TEST(SelectParserEdgeCases, EmptyTextClearsTheModelWithoutError)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT DISTINCT A FROM T WHERE A = 1 ORDER BY A");
    ASSERT_EQ(parser.TableDefs().Count(), 1);
    EXPECT_NO_THROW(parser.SetExpression(""));
    EXPECT_EQ(parser.TableDefs().Count(), 0);
    EXPECT_EQ(parser.WhereItems().Count(), 0);
    EXPECT_EQ(parser.OrderByItems().Count(), 0);
    EXPECT_FALSE(parser.Distinct());
    EXPECT_TRUE(parser.IsValid());
    EXPECT_EQ(parser.GetExpression(), "");
}

TEST(SelectParserEdgeCases, BlanksAndLineBreaksOnlyClearTheModelToo)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT A FROM T");
    EXPECT_NO_THROW(parser.SetExpression("  \r\n\t "));
    EXPECT_EQ(parser.TableDefs().Count(), 0);
    EXPECT_TRUE(parser.IsValid());
}

TEST(SelectParserEdgeCases, StatementNotStartingWithSelectNamesItsFirstWord)
{
    const TErrorReport report = ParseError("UPDATE T SET A = 1");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "UPDATE");
    EXPECT_EQ(report.LineNo, 1);
    EXPECT_EQ(report.LinePos, 1);
    EXPECT_EQ(report.Message, "Invalid token 'UPDATE' at position 1 of line 1.");
}

TEST(SelectParserEdgeCases, SelectStarGivesOneTableWithoutFields)
{
    auto parser = Parse("SELECT * FROM T");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "T");
    EXPECT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 0);
    EXPECT_EQ(parser->GetExpression(), "SELECT *\r\nFROM\r\n  \"T\"\r\n");
}

// The select list is read before FROM; an unqualified column of a query over two tables is
// meant to land in both of them.
TEST(SelectParserEdgeCases, UnqualifiedFieldOfTwoTablesGoesToBoth)
{
    auto parser = Parse("SELECT A FROM T1, T2");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 2);
    EXPECT_EQ(tables.Items(0)->Name(), "T1");
    EXPECT_EQ(tables.Items(1)->Name(), "T2");
    ASSERT_EQ(tables.Items(0)->FieldDefs().Count(), 1);
    ASSERT_EQ(tables.Items(1)->FieldDefs().Count(), 1);
    EXPECT_EQ(tables.Items(0)->FieldDefs().Items(0)->Name(), "A");
    EXPECT_EQ(tables.Items(1)->FieldDefs().Items(0)->Name(), "A");
}

TEST(SelectParserEdgeCases, IntoClauseIsAnError)
{
    const TErrorReport report = ParseError("SELECT A INTO X FROM T");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_EQ(report.Token, "INTO");
    EXPECT_EQ(report.Message, InvalidToken("INTO", 10));
}

TEST(SelectParserEdgeCases, GroupByKeepsDottedNamesAsOneItemAndDropsDuplicates)
{
    auto parser = Parse("SELECT * FROM T GROUP BY T.A, B, T.A, \"T\".\"A\", B");
    const TVdGroupByItems& groupBy = parser->GroupByItems();
    ASSERT_EQ(groupBy.Count(), 2);
    EXPECT_EQ(groupBy[0], "T.A");
    EXPECT_EQ(groupBy[1], "B");
}

TEST(SelectParserEdgeCases, OrderByKeepsDottedNamesAsOneItem)
{
    auto parser = Parse("SELECT * FROM T ORDER BY T.A, S.B.C DESC, T.A");
    const TVdOrderByItems& orderBy = parser->OrderByItems();
    ASSERT_EQ(orderBy.Count(), 3);
    EXPECT_EQ(orderBy[0], "T.A");
    EXPECT_EQ(orderBy[1], "S.B.C");
    EXPECT_EQ(orderBy[2], "T.A");
    EXPECT_EQ(orderBy.Orders(1), okDesc);
}

TEST(SelectParserEdgeCases, AndGivesTwoCriteriaUnderAll)
{
    auto parser = Parse("SELECT * FROM T WHERE A = 1 AND B = 2");
    const TVdCriterions& where = parser->WhereItems();
    ASSERT_EQ(where.Count(), 2);
    EXPECT_EQ(where.Filter, cfAll);
    EXPECT_EQ(where.Items(0)->LeftSide().Name(), "A");
    EXPECT_EQ(where.Items(1)->LeftSide().Name(), "B");
}

TEST(SelectParserEdgeCases, OrGivesTwoCriteriaUnderAny)
{
    auto parser = Parse("SELECT * FROM T WHERE A = 1 OR B = 2");
    const TVdCriterions& where = parser->WhereItems();
    ASSERT_EQ(where.Count(), 2);
    EXPECT_EQ(where.Filter, cfAny);
    EXPECT_EQ(where.Items(0)->LeftSide().Name(), "A");
    EXPECT_EQ(where.Items(1)->LeftSide().Name(), "B");
}

// Read with its meaning: one group of two comparisons.
TEST(SelectParserEdgeCases, UnparenthesisedItemAfterConnectorInsideGroupIsRead)
{
    auto parser = Parse("SELECT * FROM T WHERE ((A = 1) AND B = 2)");
    const TVdCriterions& where = parser->WhereItems();
    ASSERT_EQ(where.Count(), 1);
    const TVdCriterions& group = where.Items(0)->SubItems();
    ASSERT_EQ(group.Count(), 2);
    EXPECT_EQ(group.Filter, cfAll);
    EXPECT_EQ(group.Items(1)->LeftSide().Name(), "B");
    EXPECT_EQ(parser->GetExpression(),
              "SELECT *\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  ((\"A\" = 1) AND \r\n  (\"B\" = 2))\r\n");
}

TEST(SelectParserEdgeCases, ParenthesisedItemsInsideGroupReadAsOneGroup)
{
    auto parser = Parse("SELECT * FROM T WHERE ((A = 1) AND (B = 2))");
    const TVdCriterions& where = parser->WhereItems();
    ASSERT_EQ(where.Count(), 1);
    const TVdCriterion& group = *where.Items(0);
    ASSERT_TRUE(group.IsGroup());
    ASSERT_EQ(group.SubItems().Count(), 2);
    EXPECT_EQ(group.SubItems().Filter, cfAll);
    EXPECT_EQ(group.SubItems().Items(0)->LeftSide().Name(), "A");
    EXPECT_EQ(group.SubItems().Items(1)->LeftSide().Name(), "B");
}

// ---- clause steps ----

TEST(SelectParserSteps, DistinctIsReadAndResetByTheNextParse)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT DISTINCT A FROM T");
    EXPECT_TRUE(parser.Distinct());
    ASSERT_EQ(parser.TableDefs().Count(), 1);
    EXPECT_EQ(Field(parser, 0, 0).Name(), "A");
    parser.SetExpression("SELECT A FROM T");
    EXPECT_FALSE(parser.Distinct());
    parser.SetExpression("select distinct * from T");
    EXPECT_TRUE(parser.Distinct());
    EXPECT_EQ(parser.TableDefs().Items(0)->FieldDefs().Count(), 0);
}

TEST(SelectParserSteps, SelectListStartsWithStarFunctionNumberOrName)
{
    struct TRow {
        const char* Text;
        const char* Name;
        TVdFunctionKind Kind;
    };
    const TRow rows[] = {
        {"SELECT COUNT(*) FROM T", "COUNT", fkFunction},
        {"SELECT 7 FROM T", "7", fkInteger},
        {"SELECT 1.5 FROM T", "1.5", fkExpression},
        {"SELECT A FROM T", "A", fkIdentifier},
        {"SELECT \"my col\" FROM T", "my col", fkIdentifier},
        // Text in apostrophes is a literal, though the generic scanner reads both quotes as
        // a name's.
        {"SELECT 'abc' FROM T", "abc", fkString},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Text);
        auto parser = Parse(row.Text);
        EXPECT_TRUE(parser->IsValid());
        ASSERT_EQ(parser->TableDefs().Count(), 1);
        ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 1);
        EXPECT_EQ(Field(*parser, 0, 0).Name(), row.Name);
        EXPECT_EQ(Field(*parser, 0, 0).Kind(), row.Kind);
    }
}

TEST(SelectParserSteps, SelectListRejectsOtherFirstTokens)
{
    struct TRow {
        const char* Text;
        const char* Token;
        int Position;
    };
    const TRow rows[] = {
        {"SELECT FROM T", "FROM", 8},  {"SELECT , A FROM T", ",", 8},
        {"SELECT (A) FROM T", "(", 8}, {"SELECT + A FROM T", "+", 8},
        {"SELECT = A FROM T", "=", 8}, {"SELECT DISTINCT WHERE", "WHERE", 17},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Text);
        const TErrorReport report = ParseError(row.Text);
        ASSERT_TRUE(report.Raised);
        EXPECT_EQ(report.Code, 1);
        EXPECT_EQ(report.Token, row.Token);
        EXPECT_EQ(report.LinePos, row.Position);
        EXPECT_EQ(report.Message, InvalidToken(row.Token, row.Position));
    }
    const TErrorReport end = ParseError("SELECT");
    ASSERT_TRUE(end.Raised);
    EXPECT_EQ(end.Code, 2);
    EXPECT_EQ(end.Message, "Unexpected end of statement.");
}

TEST(SelectParserSteps, FieldListEndsAtTheEndOfTheText)
{
    auto parser = Parse("SELECT A, B");
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->State(), ssEnd);
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    const TVdTableDef& table = *parser->TableDefs().Items(0);
    EXPECT_EQ(table.Name(), "");
    EXPECT_EQ(table.Alias(), "");
    ASSERT_EQ(table.FieldDefs().Count(), 2);
    // A table no text has named has no FROM line.
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  \"A\",\r\n  \"B\"");
}

TEST(SelectParserSteps, KeywordOtherThanFromInFieldListIsAnErrorAndClearsTables)
{
    TVdSelectParser parser;
    const TErrorReport report = ParseError(parser, "SELECT A, B WHERE A = 1");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "WHERE");
    EXPECT_EQ(report.LinePos, 13);
    EXPECT_EQ(parser.TableDefs().Count(), 0);
}

TEST(SelectParserSteps, QuotedKeywordsAreFieldNames)
{
    auto parser = Parse("SELECT \"FROM\", \"select\", \"ORDER\" FROM \"GROUP\"");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "GROUP");
    ASSERT_EQ(parser->TableDefs().Items(0)->FieldDefs().Count(), 3);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "FROM");
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "select");
    EXPECT_EQ(Field(*parser, 0, 2).Name(), "ORDER");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  \"GROUP\".\"FROM\",\r\n"
                                       "  \"GROUP\".\"select\",\r\n"
                                       "  \"GROUP\".\"ORDER\"\r\n"
                                       "FROM\r\n"
                                       "  \"GROUP\"\r\n");
}

TEST(SelectParserSteps, FieldAliasFollowsAs)
{
    auto parser = Parse("SELECT A AS AMOUNT, B FROM T");
    EXPECT_EQ(Field(*parser, 0, 0).Alias(), "AMOUNT");
    EXPECT_EQ(Field(*parser, 0, 1).Alias(), "B");
    const TErrorReport report = ParseError("SELECT A AS FROM T");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "FROM");
    EXPECT_EQ(report.LinePos, 13);
}

TEST(SelectParserSteps, FieldIndexesFollowTheSelectList)
{
    auto parser = Parse("SELECT B.Y, A.X, B.Z FROM T1 A, T2 B");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 2);
    EXPECT_EQ(tables.Items(0)->Alias(), "B");
    EXPECT_EQ(tables.Items(1)->Alias(), "A");
    EXPECT_EQ(Field(*parser, 0, 0).FieldIndex(), 0);
    EXPECT_EQ(Field(*parser, 1, 0).FieldIndex(), 1);
    EXPECT_EQ(Field(*parser, 0, 1).FieldIndex(), 2);
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  \"B\".\"Y\",\r\n"
                                       "  \"A\".\"X\",\r\n"
                                       "  \"B\".\"Z\"\r\n"
                                       "FROM\r\n"
                                       "  \"T2\" B,\r\n"
                                       "  \"T1\" A\r\n");
}

TEST(SelectParserSteps, FromAcceptsNamesAndQuotedNames)
{
    auto plain = Parse("SELECT * FROM CUSTOMERS");
    EXPECT_EQ(plain->TableDefs().Items(0)->Name(), "CUSTOMERS");
    auto quoted = Parse("SELECT * FROM \"order items\"");
    EXPECT_EQ(quoted->TableDefs().Items(0)->Name(), "order items");
    EXPECT_EQ(quoted->GetExpression(), "SELECT *\r\nFROM\r\n  \"order items\"\r\n");
    // An apostrophe is no identifier quote in printing: the name keeps what was written.
    auto apostrophes = Parse("SELECT * FROM 'abc'");
    EXPECT_EQ(apostrophes->TableDefs().Items(0)->Name(), "'abc'");
    EXPECT_EQ(apostrophes->GetExpression(), "SELECT *\r\nFROM\r\n  'abc'\r\n");
}

TEST(SelectParserSteps, FromRejectsOtherTokens)
{
    struct TRow {
        const char* Text;
        const char* Token;
        int Position;
    };
    const TRow rows[] = {
        {"SELECT A FROM 5", "5", 15},
        {"SELECT A FROM (T)", "(", 15},
        {"SELECT A FROM WHERE X = 1", "WHERE", 15},
        {"SELECT A FROM INNER JOIN T", "INNER", 15},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Text);
        const TErrorReport report = ParseError(row.Text);
        ASSERT_TRUE(report.Raised);
        EXPECT_EQ(report.Code, 1);
        EXPECT_EQ(report.Token, row.Token);
        EXPECT_EQ(report.LinePos, row.Position);
    }
    const TErrorReport end = ParseError("SELECT A FROM");
    ASSERT_TRUE(end.Raised);
    EXPECT_EQ(end.Code, 2);
}

TEST(SelectParserSteps, TableAliasFollowsTheName)
{
    auto parser = Parse("SELECT * FROM CUSTOMERS C, ORDERS");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 2);
    EXPECT_EQ(tables.Items(0)->Name(), "CUSTOMERS");
    EXPECT_EQ(tables.Items(0)->Alias(), "C");
    EXPECT_EQ(tables.Items(1)->Name(), "ORDERS");
    EXPECT_EQ(tables.Items(1)->Alias(), "ORDERS");
    EXPECT_EQ(parser->GetExpression(),
              "SELECT *\r\nFROM\r\n  \"CUSTOMERS\" C,\r\n  \"ORDERS\"\r\n");
}

TEST(SelectParserSteps, SecondWordAfterTableAliasIsAnError)
{
    const TErrorReport report = ParseError("SELECT * FROM T A B");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "B");
    EXPECT_EQ(report.LinePos, 19);
}

TEST(SelectParserSteps, SelfJoinKeepsTwoTables)
{
    auto parser = Parse("SELECT A.X, B.Y FROM T A, T B");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 2);
    EXPECT_EQ(tables.Items(0)->Name(), "T");
    EXPECT_EQ(tables.Items(0)->Alias(), "A");
    EXPECT_EQ(tables.Items(1)->Name(), "T");
    EXPECT_EQ(tables.Items(1)->Alias(), "B");
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "X");
    EXPECT_EQ(Field(*parser, 1, 0).Name(), "Y");
    auto withoutFields = Parse("SELECT * FROM T A, T B");
    EXPECT_EQ(withoutFields->TableDefs().Count(), 2);
}

TEST(SelectParserSteps, TableFirstKnownByAliasFromSelectList)
{
    auto parser = Parse("SELECT C.NAME, C.CITY FROM CUSTOMERS C");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 1);
    EXPECT_EQ(tables.Items(0)->Name(), "CUSTOMERS");
    EXPECT_EQ(tables.Items(0)->Alias(), "C");
    ASSERT_EQ(tables.Items(0)->FieldDefs().Count(), 2);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "NAME");
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "CITY");
}

TEST(SelectParserSteps, UnqualifiedFieldsShareTheTableWithEmptyAlias)
{
    auto parser = Parse("SELECT X, Y FROM T");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 1);
    EXPECT_EQ(tables.Items(0)->Name(), "T");
    EXPECT_EQ(tables.Items(0)->Alias(), "T");
    ASSERT_EQ(tables.Items(0)->FieldDefs().Count(), 2);
}

TEST(SelectParserSteps, UnqualifiedFieldWithoutTablesMakesAnAnonymousTable)
{
    auto parser = Parse("SELECT X");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Name(), "");
    EXPECT_EQ(parser->TableDefs().Items(0)->Alias(), "");
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "X");
}

TEST(SelectParserSteps, UnqualifiedFieldAfterQualifiedOnesGoesToEveryTable)
{
    auto parser = Parse("SELECT T1.X, T2.Y, Z FROM T1, T2");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 2);
    ASSERT_EQ(tables.Items(0)->FieldDefs().Count(), 2);
    ASSERT_EQ(tables.Items(1)->FieldDefs().Count(), 2);
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "Z");
    EXPECT_EQ(Field(*parser, 0, 1).Alias(), "Z");
    EXPECT_EQ(Field(*parser, 1, 1).Name(), "Z");
    EXPECT_EQ(Field(*parser, 1, 1).Alias(), "Z1");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n"
                                       "  \"T1\".\"X\",\r\n"
                                       "  \"T2\".\"Y\",\r\n"
                                       "  \"T1\".\"Z\",\r\n"
                                       "  \"T2\".\"Z\" AS Z1\r\n"
                                       "FROM\r\n"
                                       "  \"T1\",\r\n"
                                       "  \"T2\"\r\n");
}

TEST(SelectParserSteps, QualifierInsideFunctionSelectsTheFieldsTable)
{
    auto parser = Parse("SELECT MAX(C.AMOUNT) FROM CUSTOMERS C");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    const TVdFieldDef& field = Field(*parser, 0, 0);
    EXPECT_EQ(field.Name(), "MAX");
    EXPECT_EQ(field.Kind(), fkFunction);
    ASSERT_EQ(field.ArgumentCount(), 1);
    EXPECT_EQ(field.Argument(0)->Name(), "AMOUNT");
    EXPECT_EQ(field.Argument(0)->Kind(), fkIdentifier);
}

TEST(SelectParserSteps, StoredProcedureCallGivesInputParameters)
{
    auto parser = Parse("SELECT * FROM PROC(:A, 5)");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    const TVdTableDef& proc = *parser->TableDefs().Items(0);
    EXPECT_EQ(proc.Name(), "PROC");
    EXPECT_EQ(proc.TableType(), qttStoredProc);
    ASSERT_EQ(proc.FieldDefs().Count(), 2);
    EXPECT_EQ(Field(*parser, 0, 0).Name(), "A");
    EXPECT_EQ(Field(*parser, 0, 0).Kind(), fkIdentifier);
    EXPECT_EQ(Field(*parser, 0, 0).ParamType(), ptInput);
    EXPECT_EQ(Field(*parser, 0, 1).Name(), "5");
    EXPECT_EQ(Field(*parser, 0, 1).Kind(), fkInteger);
    EXPECT_EQ(Field(*parser, 0, 1).ParamType(), ptInput);
    EXPECT_EQ(proc.GetParamsText(), ":A, :5");
    EXPECT_EQ(parser->GetExpression(), "SELECT *\r\nFROM\r\n  \"PROC\"(:A, :5)\r\n");
}

TEST(SelectParserSteps, StoredProcedureWithAliasAndOutputFields)
{
    auto parser = Parse("SELECT P.X, P.Y FROM PROC(:A) P");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    const TVdTableDef& proc = *parser->TableDefs().Items(0);
    EXPECT_EQ(proc.Name(), "PROC");
    EXPECT_EQ(proc.Alias(), "P");
    EXPECT_EQ(proc.TableType(), qttStoredProc);
    ASSERT_EQ(proc.FieldDefs().Count(), 3);
    EXPECT_EQ(Field(*parser, 0, 0).ParamType(), ptResult);
    EXPECT_EQ(Field(*parser, 0, 1).ParamType(), ptResult);
    EXPECT_EQ(Field(*parser, 0, 2).Name(), "A");
    EXPECT_EQ(Field(*parser, 0, 2).ParamType(), ptInput);
    EXPECT_EQ(parser->LastTableName(), "PROC");
    EXPECT_EQ(parser->LastTableAlias(), "P");
}

TEST(SelectParserSteps, StoredProcedureWithoutArgumentsIsAnError)
{
    TVdSelectParser parser;
    const TErrorReport report = ParseError(parser, "SELECT * FROM PROC()");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, ")");
    EXPECT_EQ(report.LinePos, 20);
    EXPECT_EQ(parser.TableDefs().Count(), 0);
}

namespace {

struct TJoinRow {
    const char* Words;
    TVdJoinKind Kind;
};

void PrintTo(const TJoinRow& row, std::ostream* os) { *os << row.Words; }

class SelectParserJoinKinds : public ::testing::TestWithParam<TJoinRow>
{
};

} // namespace

TEST_P(SelectParserJoinKinds, KindWordGivesTheJoinKind)
{
    const TJoinRow& row = GetParam();
    auto parser = Parse(std::string("SELECT * FROM T1 A ") + row.Words + " T2 B ON (A.ID = B.REF)");
    ASSERT_TRUE(parser->IsValid());
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 2);
    const TVdJoinDefs& joins = tables.Items(0)->JoinDefs();
    ASSERT_EQ(joins.Count(), 1);
    EXPECT_EQ(joins.Items(0)->JoinKind, row.Kind);
    EXPECT_EQ(joins.Items(0)->FieldName, "ID");
    EXPECT_EQ(joins.Items(0)->JoinTable, "B");
    EXPECT_EQ(joins.Items(0)->JoinField, "REF");
    EXPECT_EQ(joins.Items(0)->Operation, "=");
    EXPECT_EQ(tables.Items(1)->JoinDefs().Count(), 0);
}

INSTANTIATE_TEST_SUITE_P(AllWords, SelectParserJoinKinds,
                         ::testing::Values(TJoinRow{"INNER JOIN", vdjInnerJoin},
                                           TJoinRow{"LEFT JOIN", vdjLOuterJoin},
                                           TJoinRow{"LEFT OUTER JOIN", vdjLOuterJoin},
                                           TJoinRow{"RIGHT JOIN", vdjROuterJoin},
                                           TJoinRow{"RIGHT OUTER JOIN", vdjROuterJoin},
                                           TJoinRow{"FULL JOIN", vdjFOuterJoin},
                                           TJoinRow{"FULL OUTER JOIN", vdjFOuterJoin},
                                           TJoinRow{"left outer join", vdjLOuterJoin}));

TEST(SelectParserSteps, JoinSidesDoNotDependOnTheOrderInTheCondition)
{
    auto first = Parse("SELECT * FROM T1 A LEFT JOIN T2 B ON (B.REF = A.ID)");
    auto second = Parse("SELECT * FROM T1 A LEFT JOIN T2 B ON (A.ID = B.REF)");
    EXPECT_EQ(vdtest::DescribeModel(*first), vdtest::DescribeModel(*second));
    const TVdJoinDef& join = *first->TableDefs().Items(0)->JoinDefs().Items(0);
    EXPECT_EQ(join.FieldName, "ID");
    EXPECT_EQ(join.JoinTable, "B");
    EXPECT_EQ(join.JoinField, "REF");
}

TEST(SelectParserSteps, JoinOperationIsTheComparison)
{
    auto parser = Parse("SELECT * FROM T1 A INNER JOIN T2 B ON (A.ID >= B.REF)");
    ASSERT_EQ(parser->TableDefs().Items(0)->JoinDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->JoinDefs().Items(0)->Operation, ">=");
}

TEST(SelectParserSteps, JoinOwnerIsTheTableTheConditionNames)
{
    auto parser = Parse("SELECT * FROM T1 A INNER JOIN T2 B ON (A.ID = B.ID) "
                        "INNER JOIN T3 C ON (A.ID = C.ID) LEFT JOIN T4 D ON (D.K = B.K), T5 E");
    const TVdTableDefs& tables = parser->TableDefs();
    ASSERT_EQ(tables.Count(), 5);
    ASSERT_EQ(tables.Items(0)->JoinDefs().Count(), 2);
    EXPECT_EQ(tables.Items(0)->JoinDefs().Items(0)->JoinTable, "B");
    EXPECT_EQ(tables.Items(0)->JoinDefs().Items(1)->JoinTable, "C");
    ASSERT_EQ(tables.Items(1)->JoinDefs().Count(), 1);
    EXPECT_EQ(tables.Items(1)->JoinDefs().Items(0)->JoinTable, "D");
    EXPECT_EQ(tables.Items(1)->JoinDefs().Items(0)->JoinKind, vdjLOuterJoin);
    EXPECT_EQ(tables.Items(2)->JoinDefs().Count(), 0);
    EXPECT_EQ(tables.Items(3)->JoinDefs().Count(), 0);
    EXPECT_EQ(tables.Items(4)->Alias(), "E");
    EXPECT_EQ(parser->LastTableName(), "T5");
    EXPECT_EQ(parser->LastTableAlias(), "E");
}

TEST(SelectParserSteps, JoinWithoutOnIsAnError)
{
    TVdSelectParser parser;
    const TErrorReport report =
        ParseError(parser, "SELECT * FROM T1 A INNER JOIN T2 B WHERE A.X = B.X");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "WHERE");
    EXPECT_EQ(report.LinePos, 36);
    EXPECT_EQ(parser.TableDefs().Count(), 0);
}

TEST(SelectParserSteps, JoinKindWithoutJoinIsAnError)
{
    const TErrorReport report = ParseError("SELECT * FROM T1 A LEFT T2 B ON (A.X = B.X)");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "T2");
    EXPECT_EQ(report.LinePos, 25);
}

TEST(SelectParserSteps, JoinConditionNamingAnUnknownTableIsAnError)
{
    TVdSelectParser parser;
    const TErrorReport report =
        ParseError(parser, "SELECT * FROM T1 A INNER JOIN T2 B ON (A.X = C.Y)");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Code, 1);
    EXPECT_FALSE(parser.IsValid());
    EXPECT_EQ(parser.TableDefs().Count(), 0);
}

TEST(SelectParserSteps, ClausesFollowEachOtherInOrder)
{
    auto parser = Parse("SELECT A, SUM(B) FROM T WHERE A > 1 GROUP BY A HAVING SUM(B) > 10 "
                        "ORDER BY A DESC");
    EXPECT_TRUE(parser->IsValid());
    EXPECT_EQ(parser->State(), ssEnd);
    EXPECT_EQ(parser->WhereItems().Count(), 1);
    ASSERT_EQ(parser->GroupByItems().Count(), 1);
    EXPECT_EQ(parser->GroupByItems()[0], "A");
    EXPECT_EQ(parser->HavingItems().Count(), 1);
    ASSERT_EQ(parser->OrderByItems().Count(), 1);
    EXPECT_EQ(parser->OrderByItems().Orders(0), okDesc);
}

TEST(SelectParserSteps, LaterClausesMayFollowFromDirectly)
{
    auto groupBy = Parse("SELECT * FROM T GROUP BY A ORDER BY B");
    EXPECT_EQ(groupBy->GroupByItems().Count(), 1);
    EXPECT_EQ(groupBy->OrderByItems().Count(), 1);
    auto having = Parse("SELECT * FROM T GROUP BY A HAVING COUNT(A) > 1");
    EXPECT_EQ(having->HavingItems().Count(), 1);
    auto orderBy = Parse("SELECT * FROM T ORDER BY A");
    EXPECT_EQ(orderBy->OrderByItems().Count(), 1);
    auto whereOrder = Parse("SELECT * FROM T WHERE A = 1 ORDER BY A");
    EXPECT_EQ(whereOrder->WhereItems().Count(), 1);
    EXPECT_EQ(whereOrder->OrderByItems().Count(), 1);
    auto whereGroup = Parse("SELECT * FROM T WHERE A = 1 GROUP BY A HAVING COUNT(A) > 1");
    EXPECT_EQ(whereGroup->HavingItems().Count(), 1);
}

TEST(SelectParserSteps, OrderByReadsDirections)
{
    auto parser = Parse("SELECT * FROM T ORDER BY A ASC, B DESC, C, D desc");
    const TVdOrderByItems& orderBy = parser->OrderByItems();
    ASSERT_EQ(orderBy.Count(), 4);
    EXPECT_EQ(orderBy.Orders(0), okAsc);
    EXPECT_EQ(orderBy.Orders(1), okDesc);
    EXPECT_EQ(orderBy.Orders(2), okAsc);
    EXPECT_EQ(orderBy.Orders(3), okDesc);
    EXPECT_EQ(orderBy[3], "D");
}

TEST(SelectParserSteps, GroupByNameFollowedByAnotherNameIsAnError)
{
    const TErrorReport report = ParseError("SELECT * FROM T GROUP BY A B");
    ASSERT_TRUE(report.Raised);
    EXPECT_EQ(report.Token, "B");
    EXPECT_EQ(report.LinePos, 28);
}

TEST(SelectParserSteps, AppendixTokensAreRejected)
{
    struct TRow {
        const char* Text;
        const char* Token;
        int Position;
    };
    const TRow rows[] = {
        {"SELECT * FROM T ON X", "ON", 17},
        {"SELECT * FROM T OUTER JOIN S", "OUTER", 17},
        {"SELECT * FROM T GROUP A", "GROUP", 17},
        {"SELECT * FROM T WHERE A = 1 DESC", "DESC", 29},
        {"SELECT * FROM T GROUP BY A WHERE X = 1", "WHERE", 28},
        {"SELECT * FROM T ORDER BY A GROUP BY B", "GROUP", 28},
        {"SELECT * FROM T ORDER BY A HAVING COUNT(A) > 1", "HAVING", 28},
        {"SELECT * FROM T GROUP BY A HAVING COUNT(A) > 1 WHERE X = 1", "WHERE", 48},
        {"SELECT * FROM T WHERE A = 1 ORDER BY A ASC DISTINCT", "DISTINCT", 44},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Text);
        TVdSelectParser parser;
        const TErrorReport report = ParseError(parser, row.Text);
        ASSERT_TRUE(report.Raised);
        EXPECT_EQ(report.Code, 1);
        EXPECT_EQ(report.Token, row.Token);
        EXPECT_EQ(report.LinePos, row.Position);
        EXPECT_EQ(report.Message, InvalidToken(row.Token, row.Position));
        EXPECT_FALSE(parser.IsValid());
        EXPECT_EQ(parser.State(), ssError);
        // The tables were read completely before the appendix.
        EXPECT_EQ(parser.TableDefs().Count(), 1);
    }
}

TEST(SelectParserSteps, IsValidAndStateAfterSuccessAndError)
{
    TVdSelectParser parser;
    EXPECT_TRUE(parser.IsValid());
    parser.SetExpression("SELECT A FROM T");
    EXPECT_TRUE(parser.IsValid());
    EXPECT_EQ(parser.State(), ssEnd);
    EXPECT_THROW(parser.SetExpression("SELECT A FROM T WHERE"), EVdParserError);
    EXPECT_FALSE(parser.IsValid());
    EXPECT_EQ(parser.State(), ssError);
    parser.SetExpression("SELECT B FROM S");
    EXPECT_TRUE(parser.IsValid());
    EXPECT_EQ(parser.State(), ssEnd);
    EXPECT_THROW(parser.SetExpression("SELECT A FROM T WHERE"), EVdParserError);
    parser.Clear();
    EXPECT_TRUE(parser.IsValid());
}

TEST(SelectParserSteps, LastTableNameAndAlias)
{
    auto parser = Parse("SELECT * FROM CUSTOMERS C, ORDERS O");
    EXPECT_EQ(parser->LastTableName(), "ORDERS");
    EXPECT_EQ(parser->LastTableAlias(), "O");
    auto unaliased = Parse("SELECT * FROM CUSTOMERS C, ORDERS");
    EXPECT_EQ(unaliased->LastTableName(), "ORDERS");
    EXPECT_EQ(unaliased->LastTableAlias(), "ORDERS");
    auto joined =
        Parse("SELECT * FROM CUSTOMERS C LEFT JOIN ORDERS O ON (C.ID = O.CUST) WHERE O.X = 1");
    EXPECT_EQ(joined->LastTableName(), "ORDERS");
    EXPECT_EQ(joined->LastTableAlias(), "O");
}

TEST(SelectParserSteps, OnErrorReceivesTheReportInsteadOfAnException)
{
    TVdSelectParser parser;
    int calls = 0;
    TVdSelectParser* sender = nullptr;
    std::string message, token;
    int line = 0, position = 0;
    parser.OnError = [&](TVdSelectParser* s, const std::string& m, const std::string& t, int l,
                         int p) {
        ++calls;
        sender = s;
        message = m;
        token = t;
        line = l;
        position = p;
    };
    EXPECT_NO_THROW(parser.SetExpression("SELECT A FROM T\r\nWHERE A = 1 GROUP X"));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(sender, &parser);
    EXPECT_EQ(message, "Invalid token 'GROUP' at position 13 of line 2.");
    EXPECT_EQ(token, "GROUP");
    EXPECT_EQ(line, 2);
    EXPECT_EQ(position, 13);
    EXPECT_FALSE(parser.IsValid());
    EXPECT_EQ(parser.State(), ssError);

    calls = 0;
    EXPECT_NO_THROW(parser.SetExpression("SELECT A FROM"));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(message, "Unexpected end of statement.");
    EXPECT_EQ(token, "");
}

TEST(SelectParserSteps, ModelAfterFailedParseKeepsWhatWasRead)
{
    TVdSelectParser parser;
    parser.OnError = [](TVdSelectParser*, const std::string&, const std::string&, int, int) {};
    parser.SetExpression("SELECT A FROM T WHERE X = 1 GROUP BY B, C D");
    EXPECT_FALSE(parser.IsValid());
    ASSERT_EQ(parser.TableDefs().Count(), 1);
    EXPECT_EQ(parser.TableDefs().Items(0)->FieldDefs().Count(), 1);
    EXPECT_EQ(parser.WhereItems().Count(), 1);
    ASSERT_EQ(parser.GroupByItems().Count(), 1);
    EXPECT_EQ(parser.GroupByItems()[0], "B");

    parser.SetExpression("SELECT DISTINCT A FROM T WHERE A = ");
    EXPECT_FALSE(parser.IsValid());
    EXPECT_TRUE(parser.Distinct());
    EXPECT_EQ(parser.TableDefs().Count(), 1);
}

TEST(SelectParserSteps, ErrorInsideFieldListClearsTables)
{
    TVdSelectParser parser;
    parser.OnError = [](TVdSelectParser*, const std::string&, const std::string&, int, int) {};
    parser.SetExpression("SELECT A, B AS FROM T");
    EXPECT_FALSE(parser.IsValid());
    EXPECT_EQ(parser.TableDefs().Count(), 0);
}

TEST(SelectParserSteps, ErrorInsideTableListClearsTables)
{
    TVdSelectParser parser;
    parser.OnError = [](TVdSelectParser*, const std::string&, const std::string&, int, int) {};
    parser.SetExpression("SELECT A FROM T, 5");
    EXPECT_FALSE(parser.IsValid());
    EXPECT_EQ(parser.TableDefs().Count(), 0);
    EXPECT_EQ(parser.GetExpression(), "");
}

TEST(SelectParserSteps, ErrorAfterTheTableListKeepsTables)
{
    TVdSelectParser parser;
    parser.OnError = [](TVdSelectParser*, const std::string&, const std::string&, int, int) {};
    parser.SetExpression("SELECT A FROM WHERE X = 1");
    // FROM itself failed: the table the select list made is kept.
    ASSERT_EQ(parser.TableDefs().Count(), 1);
    EXPECT_EQ(parser.TableDefs().Items(0)->FieldDefs().Count(), 1);
}

TEST(SelectParserSteps, EveryParseStartsFromAnEmptyModel)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT DISTINCT A FROM T WHERE A = 1 GROUP BY A HAVING COUNT(A) > 1 "
                         "ORDER BY A");
    parser.SetExpression("SELECT B FROM S");
    EXPECT_FALSE(parser.Distinct());
    ASSERT_EQ(parser.TableDefs().Count(), 1);
    EXPECT_EQ(parser.TableDefs().Items(0)->Name(), "S");
    EXPECT_EQ(parser.WhereItems().Count(), 0);
    EXPECT_EQ(parser.GroupByItems().Count(), 0);
    EXPECT_EQ(parser.HavingItems().Count(), 0);
    EXPECT_EQ(parser.OrderByItems().Count(), 0);
}

TEST(SelectParserSteps, ClearResetsTheWholeModel)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT DISTINCT A FROM T WHERE NOT ((A = 1) OR (B = 2)) GROUP BY A "
                         "HAVING (COUNT(A) > 1) OR (COUNT(B) > 1) ORDER BY A");
    ASSERT_EQ(parser.WhereItems().Filter, cfNotAll);
    ASSERT_EQ(parser.HavingItems().Filter, cfAny);
    parser.Clear();
    const std::string empty = "distinct false\n"
                              "tables 0\n"
                              "where\n"
                              "  filter cfAll count 0\n"
                              "group by 0\n"
                              "having\n"
                              "  filter cfAll count 0\n"
                              "order by 0\n";
    EXPECT_EQ(vdtest::DescribeModel(parser), empty);
    EXPECT_TRUE(parser.IsValid());
    EXPECT_EQ(parser.LastTableName(), "");
    EXPECT_EQ(parser.LastTableAlias(), "");
}

// ---- printed statements ----

TEST(SelectParserGolden, EveryClause)
{
    EXPECT_EQ(Print("SELECT A, SUM(B) FROM T WHERE A > 1 GROUP BY A HAVING SUM(B) > 10 "
                    "ORDER BY A DESC"),
              "SELECT \r\n"
              "  \"T\".\"A\",\r\n"
              "  SUM(\"T\".\"B\") AS FIELD_1\r\n"
              "FROM\r\n"
              "  \"T\"\r\n"
              "WHERE\r\n"
              "  (\"A\" > 1)\r\n"
              "GROUP BY\r\n"
              "  \"T\".\"A\"\r\n"
              "HAVING\r\n"
              "  (SUM(\"B\") > 10)\r\n"
              "ORDER BY\r\n"
              "  \"A\" DESC\r\n");
}

TEST(SelectParserGolden, Star)
{
    EXPECT_EQ(Print("SELECT * FROM T1, T2"), "SELECT *\r\nFROM\r\n  \"T1\",\r\n  \"T2\"\r\n");
}

TEST(SelectParserGolden, Distinct)
{
    EXPECT_EQ(Print("SELECT DISTINCT A FROM T"),
              "SELECT DISTINCT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\n");
    EXPECT_EQ(Print("SELECT DISTINCT * FROM T"), "SELECT DISTINCT *\r\nFROM\r\n  \"T\"\r\n");
}

TEST(SelectParserGolden, FieldsWithoutFrom)
{
    EXPECT_EQ(Print("SELECT A, 7"), "SELECT \r\n  \"A\",\r\n  7 AS FIELD_1");
}

TEST(SelectParserGolden, GroupByIsRebuiltFromTheFields)
{
    EXPECT_EQ(Print("SELECT A, B, MAX(C) FROM T"), "SELECT \r\n"
                                                   "  \"T\".\"A\",\r\n"
                                                   "  \"T\".\"B\",\r\n"
                                                   "  MAX(\"T\".\"C\") AS FIELD_1\r\n"
                                                   "FROM\r\n"
                                                   "  \"T\"\r\n"
                                                   "GROUP BY\r\n"
                                                   "  \"T\".\"A\",\r\n"
                                                   "  \"T\".\"B\"\r\n");
}

TEST(SelectParserGolden, HavingWithoutGroupByIsRefusedAtHaving)
{
    // It would print nothing to stand after: the condition would be lost.
    EXPECT_EQ(ParseError("SELECT * FROM T HAVING COUNT(A) > 1").Message,
              InvalidToken("HAVING", 17));
    EXPECT_EQ(ParseError("SELECT COUNT(*) FROM T WHERE A = 1 HAVING COUNT(*) > 1").Message,
              InvalidToken("HAVING", 36));
}

TEST(SelectParserGolden, OrderByNamesAndDirections)
{
    EXPECT_EQ(Print("SELECT * FROM T ORDER BY T.A DESC, B ASC, C"), "SELECT *\r\n"
                                                                    "FROM\r\n"
                                                                    "  \"T\"\r\n"
                                                                    "ORDER BY\r\n"
                                                                    "  \"T\".\"A\" DESC,\r\n"
                                                                    "  \"B\",\r\n"
                                                                    "  \"C\"\r\n");
}

namespace {

struct TGoldenJoin {
    const char* Words;
    const char* Printed;
};

void PrintTo(const TGoldenJoin& row, std::ostream* os) { *os << row.Words; }

class SelectParserGoldenJoins : public ::testing::TestWithParam<TGoldenJoin>
{
};

} // namespace

TEST_P(SelectParserGoldenJoins, PrintsKindJoinTableAndCondition)
{
    const TGoldenJoin& row = GetParam();
    EXPECT_EQ(
        Print(std::string("SELECT A.X, B.Y FROM T1 A ") + row.Words + " T2 B ON (B.REF = A.ID)"),
        std::string("SELECT \r\n"
                    "  \"A\".\"X\",\r\n"
                    "  \"B\".\"Y\"\r\n"
                    "FROM\r\n"
                    "  \"T1\" A \r\n"
                    "  ") +
            row.Printed + " \"T2\" B ON (\"A\".\"ID\" = \"B\".\"REF\")\r\n");
}

INSTANTIATE_TEST_SUITE_P(AllKinds, SelectParserGoldenJoins,
                         ::testing::Values(TGoldenJoin{"INNER JOIN", "INNER JOIN"},
                                           TGoldenJoin{"LEFT JOIN", "LEFT OUTER JOIN"},
                                           TGoldenJoin{"RIGHT OUTER JOIN", "RIGHT OUTER JOIN"},
                                           TGoldenJoin{"FULL JOIN", "FULL OUTER JOIN"}));

TEST(SelectParserGolden, JoinOfTablesWithoutAliases)
{
    EXPECT_EQ(Print("SELECT * FROM T1 INNER JOIN T2 ON (T1.ID = T2.ID)"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T1\" \r\n"
              "  INNER JOIN \"T2\" ON (\"T1\".\"ID\" = \"T2\".\"ID\")\r\n");
}

TEST(SelectParserGolden, ChainedJoinsFollowTheirOwners)
{
    EXPECT_EQ(Print("SELECT * FROM T1 A INNER JOIN T2 B ON (A.ID = B.ID) "
                    "LEFT JOIN T3 C ON (B.K = C.K), T4 D"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T1\" A \r\n"
              "  INNER JOIN \"T2\" B ON (\"A\".\"ID\" = \"B\".\"ID\") \r\n"
              "  LEFT OUTER JOIN \"T3\" C ON (\"B\".\"K\" = \"C\".\"K\"),\r\n"
              "  \"T4\" D\r\n");
}

TEST(SelectParserGolden, TwoJoinsOfOneTable)
{
    EXPECT_EQ(Print("SELECT * FROM T1 A INNER JOIN T2 B ON (A.ID = B.ID) "
                    "FULL OUTER JOIN T3 C ON (C.K <> A.K)"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T1\" A \r\n"
              "  INNER JOIN \"T2\" B ON (\"A\".\"ID\" = \"B\".\"ID\")\r\n"
              "  FULL OUTER JOIN \"T3\" C ON (\"A\".\"K\" <> \"C\".\"K\")\r\n");
}

namespace {

struct TGoldenOperator {
    const char* Name; // test name
    const char* Condition;
    const char* Printed;
};

void PrintTo(const TGoldenOperator& row, std::ostream* os) { *os << row.Condition; }

class SelectParserGoldenOperators : public ::testing::TestWithParam<TGoldenOperator>
{
};

} // namespace

TEST_P(SelectParserGoldenOperators, PrintsLeftSideOperatorAndArguments)
{
    const TGoldenOperator& row = GetParam();
    EXPECT_EQ(Print(std::string("SELECT * FROM T WHERE ") + row.Condition),
              std::string("SELECT *\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  (") + row.Printed + ")\r\n");
}

INSTANTIATE_TEST_SUITE_P(
    DefaultTable, SelectParserGoldenOperators,
    ::testing::Values(
        TGoldenOperator{"Equal", "A = 1", "\"A\" = 1"},
        TGoldenOperator{"NotEqual", "A <> 1", "\"A\" <> 1"},
        TGoldenOperator{"Less", "A < 1", "\"A\" < 1"},
        TGoldenOperator{"Greater", "A > 1", "\"A\" > 1"},
        TGoldenOperator{"LessOrEqual", "A <= 1", "\"A\" <= 1"},
        TGoldenOperator{"GreaterOrEqual", "A >= 1", "\"A\" >= 1"},
        TGoldenOperator{"Like", "A LIKE 'x%'", "\"A\" LIKE 'x%'"},
        TGoldenOperator{"NotLike", "A NOT LIKE 'x%'", "\"A\" NOT LIKE 'x%'"},
        TGoldenOperator{"In", "A IN (1, 2)", "\"A\" IN (1, 2)"},
        TGoldenOperator{"NotIn", "A NOT IN (1,2)", "\"A\" NOT IN (1,2)"},
        TGoldenOperator{"Between", "A BETWEEN 1 AND 5", "\"A\" BETWEEN 1 AND 5"},
        TGoldenOperator{"NotBetween", "A NOT BETWEEN 1 AND 5", "\"A\" NOT BETWEEN 1 AND 5"},
        TGoldenOperator{"IsNull", "A IS NULL", "\"A\" IS NULL"},
        TGoldenOperator{"IsNotNull", "A IS NOT NULL", "\"A\" IS NOT NULL"},
        TGoldenOperator{"LowerCaseWords", "a not between 1 and 5", "\"a\" NOT BETWEEN 1 AND 5"},
        TGoldenOperator{"NoBlanks", "A<=5", "\"A\" <= 5"},
        TGoldenOperator{"QualifiedOperands", "T.A <> S.B", "\"T\".\"A\" <> \"S\".\"B\""}),
    [](const ::testing::TestParamInfo<TGoldenOperator>& info) { return info.param.Name; });

namespace {

// The words of the statement below as each mode prints them, written out by hand.
struct TFormatWords {
    const char* Name;
    TVdFormatMode Keywords;
    TVdFormatMode Functions;
    const char* Select;
    const char* Distinct;
    const char* As;
    const char* From;
    const char* LeftOuter;
    const char* Join;
    const char* On;
    const char* Where;
    const char* Not;
    const char* Or;
    const char* IsNotNull;
    const char* Group;
    const char* By;
    const char* Having;
    const char* Between;
    const char* And;
    const char* Order;
    const char* Sum;
    const char* Count;
};

void PrintTo(const TFormatWords& row, std::ostream* os) { *os << row.Name; }

class SelectParserGoldenFormats : public ::testing::TestWithParam<TFormatWords>
{
};

} // namespace

TEST_P(SelectParserGoldenFormats, KeywordsAndFunctionsFollowTheirModes)
{
    const TFormatWords& w = GetParam();
    const std::string s = " ";
    const std::string expected = std::string(w.Select) + s + w.Distinct + " \r\n" +         //
                                 "  \"T1\".\"A\" " + w.As + " X,\r\n" +                     //
                                 "  " + w.Sum + "(\"T1\".\"B\") " + w.As + " FIELD_1\r\n" + //
                                 w.From + "\r\n" +                                          //
                                 "  \"T1\" \r\n" +                                          //
                                 "  " + w.LeftOuter + s + w.Join + " \"T2\" " + w.On +      //
                                 " (\"T1\".\"ID\" = \"T2\".\"ID\")\r\n" +                   //
                                 w.Where + "\r\n" +                                         //
                                 "  " + w.Not + " ((\"A\" = 1) " + w.Or + " \r\n" +         //
                                 "  (\"B\" " + w.IsNotNull + "))\r\n" +                     //
                                 w.Group + s + w.By + "\r\n" +                              //
                                 "  \"T1\".\"A\"\r\n" +                                     //
                                 w.Having + "\r\n" +                                        //
                                 "  (" + w.Count + "(\"B\") " + w.Between + " 1 " + w.And +
                                 " 2)\r\n" +                   //
                                 w.Order + s + w.By + "\r\n" + //
                                 "  \"A\" DESC\r\n";
    EXPECT_EQ(Print("select distinct T1.A as X, sum(T1.B) from T1 left join T2 on (T1.ID = T2.ID) "
                    "where not ((A = 1) or (B is not null)) group by A "
                    "having Count(B) between 1 and 2 order by A desc",
                    w.Keywords, w.Functions),
              expected);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, SelectParserGoldenFormats,
    ::testing::Values(
        TFormatWords{"AsIs", qfmAsIs,       qfmAsIs, "SELECT", "DISTINCT", "AS",
                     "FROM", "LEFT OUTER",  "JOIN",  "ON",     "WHERE",    "NOT",
                     "OR",   "IS NOT NULL", "GROUP", "BY",     "HAVING",   "BETWEEN",
                     "AND",  "ORDER",       "sum",   "Count"},
        TFormatWords{"Upper", qfmUpperCase,  qfmUpperCase, "SELECT", "DISTINCT", "AS",
                     "FROM",  "LEFT OUTER",  "JOIN",       "ON",     "WHERE",    "NOT",
                     "OR",    "IS NOT NULL", "GROUP",      "BY",     "HAVING",   "BETWEEN",
                     "AND",   "ORDER",       "SUM",        "COUNT"},
        TFormatWords{"Lower", qfmLowerCase,  qfmLowerCase, "select", "distinct", "as",
                     "from",  "left outer",  "join",       "on",     "where",    "not",
                     "or",    "is not null", "group",      "by",     "having",   "between",
                     "and",   "order",       "sum",        "count"},
        TFormatWords{"FirstUpper", qfmFirstUpper, qfmFirstUpper, "Select", "Distinct", "As",
                     "From",       "Left outer",  "Join",        "On",     "Where",    "Not",
                     "Or",         "Is not null", "Group",       "By",     "Having",   "Between",
                     "And",        "Order",       "Sum",         "Count"},
        TFormatWords{"LowerKeywordsUpperFunctions",
                     qfmLowerCase,
                     qfmUpperCase,
                     "select",
                     "distinct",
                     "as",
                     "from",
                     "left outer",
                     "join",
                     "on",
                     "where",
                     "not",
                     "or",
                     "is not null",
                     "group",
                     "by",
                     "having",
                     "between",
                     "and",
                     "order",
                     "SUM",
                     "COUNT"},
        TFormatWords{"UpperKeywordsFirstUpperFunctions",
                     qfmUpperCase,
                     qfmFirstUpper,
                     "SELECT",
                     "DISTINCT",
                     "AS",
                     "FROM",
                     "LEFT OUTER",
                     "JOIN",
                     "ON",
                     "WHERE",
                     "NOT",
                     "OR",
                     "IS NOT NULL",
                     "GROUP",
                     "BY",
                     "HAVING",
                     "BETWEEN",
                     "AND",
                     "ORDER",
                     "Sum",
                     "Count"}),
    [](const ::testing::TestParamInfo<TFormatWords>& info) { return info.param.Name; });

TEST(SelectParserGolden, FirstUpperCapitalisesAfterUnderscores)
{
    TVdSelectParser parser;
    parser.ScriptFormat().KeywordsFormat = qfmFirstUpper;
    parser.ScriptFormat().FunctionsFormat = qfmFirstUpper;
    EXPECT_EQ(parser.ProcessKeyword("order_date"), "Order_Date");
    EXPECT_EQ(parser.ProcessFunction("MY_FUNC"), "My_Func");
}

TEST(SelectParserGolden, NestedGroups)
{
    EXPECT_EQ(Print("SELECT * FROM T WHERE ((A = 1) OR ((B = 2) AND (C = 3))) AND (D = 4)"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T\"\r\n"
              "WHERE\r\n"
              "  ((\"A\" = 1) OR \r\n"
              "  ((\"B\" = 2) AND \r\n"
              "  (\"C\" = 3))) AND \r\n"
              "  (\"D\" = 4)\r\n");
}

TEST(SelectParserGolden, NotOverAndChainAtTopLevel)
{
    EXPECT_EQ(Print("SELECT * FROM T WHERE NOT ((A = 1) AND (B = 2))"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T\"\r\n"
              "WHERE\r\n"
              "  NOT ((\"A\" = 1) AND \r\n"
              "  (\"B\" = 2))\r\n");
}

TEST(SelectParserGolden, NotOverOrChainAtTopLevel)
{
    EXPECT_EQ(Print("SELECT * FROM T WHERE NOT ((A = 1) OR (B = 2))"), "SELECT *\r\n"
                                                                       "FROM\r\n"
                                                                       "  \"T\"\r\n"
                                                                       "WHERE\r\n"
                                                                       "  NOT ((\"A\" = 1) OR \r\n"
                                                                       "  (\"B\" = 2))\r\n");
}

TEST(SelectParserGolden, NotOverOneComparison)
{
    EXPECT_EQ(Print("SELECT * FROM T WHERE NOT (A = 1)"),
              "SELECT *\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  NOT ((\"A\" = 1))\r\n");
}

TEST(SelectParserGolden, NestedNotOverOrChain)
{
    EXPECT_EQ(Print("SELECT * FROM T WHERE (C = 3) AND (NOT ((A = 1) OR (B = 2)))"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T\"\r\n"
              "WHERE\r\n"
              "  (\"C\" = 3) AND \r\n"
              "  (NOT ((\"A\" = 1) OR \r\n"
              "  (\"B\" = 2)))\r\n");
}

TEST(SelectParserGolden, NestedNotOverAndChain)
{
    EXPECT_EQ(Print("SELECT * FROM T WHERE (C = 3) OR (NOT ((A = 1) AND (B = 2)))"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T\"\r\n"
              "WHERE\r\n"
              "  (\"C\" = 3) OR \r\n"
              "  (NOT ((\"A\" = 1) AND \r\n"
              "  (\"B\" = 2)))\r\n");
}

TEST(SelectParserGolden, ExpressionColumnsGetUniqueAliases)
{
    EXPECT_EQ(Print("SELECT A + B, COUNT(*), 1.5 FROM T"), "SELECT \r\n"
                                                           "  A + B AS FIELD_1,\r\n"
                                                           "  COUNT(*) AS FIELD_2,\r\n"
                                                           "  1.5 AS FIELD_3\r\n"
                                                           "FROM\r\n"
                                                           "  \"T\"\r\n");
}

TEST(SelectParserGolden, SameColumnOfTwoTablesGetsIdAndId1)
{
    EXPECT_EQ(Print("SELECT A.ID, B.ID FROM T1 A, T2 B"), "SELECT \r\n"
                                                          "  \"A\".\"ID\",\r\n"
                                                          "  \"B\".\"ID\" AS ID1\r\n"
                                                          "FROM\r\n"
                                                          "  \"T1\" A,\r\n"
                                                          "  \"T2\" B\r\n");
}

TEST(SelectParserGolden, ExplicitAliases)
{
    EXPECT_EQ(Print("SELECT A AS AMOUNT, B AS B, C + 1 AS NEXT_C, D AS \"my alias\" FROM T"),
              "SELECT \r\n"
              "  \"T\".\"A\" AS AMOUNT,\r\n"
              "  \"T\".\"B\",\r\n"
              "  C + 1 AS NEXT_C,\r\n"
              "  \"T\".\"D\" AS \"my alias\"\r\n"
              "FROM\r\n"
              "  \"T\"\r\n");
}

// A name given as an alias holds no generated one meanwhile: the next copy of the column
// takes the name, the one after it the first free counter; the star and an aggregate named
// as a column keep what the text gave.
TEST(SelectParserGolden, GivenAliasesLeaveTheGeneratedOnesFree)
{
    EXPECT_EQ(Print("SELECT A AS X, A, A, COUNT(*) AS A, T.*, MAX(B), C AS \"A1\" FROM T"),
              "SELECT \r\n"
              "  \"T\".\"A\" AS X,\r\n"
              "  \"T\".\"A\",\r\n"
              "  \"T\".\"A\" AS A1,\r\n"
              "  COUNT(*) AS A,\r\n"
              "  \"T\".*,\r\n"
              "  MAX(\"T\".\"B\") AS FIELD_1,\r\n"
              "  \"T\".\"C\" AS \"A1\"\r\n"
              "FROM\r\n"
              "  \"T\"\r\n"
              "GROUP BY\r\n"
              "  \"T\".\"A\",\r\n"
              "  \"T\".\"A\",\r\n"
              "  \"T\".\"A\",\r\n"
              "  \"T\".\"C\"\r\n");
}

TEST(SelectParserGolden, StoredProcedureCalls)
{
    EXPECT_EQ(Print("SELECT * FROM PROC(:A, 5)"), "SELECT *\r\nFROM\r\n  \"PROC\"(:A, :5)\r\n");
    EXPECT_EQ(Print("SELECT P.X FROM PROC(:A) P"),
              "SELECT \r\n  \"P\".\"X\"\r\nFROM\r\n  \"PROC\"(:A) P\r\n");
    EXPECT_EQ(Print("SELECT * FROM T1 A INNER JOIN PROC(:A, 'x') P ON (A.ID = P.ID)"),
              "SELECT *\r\n"
              "FROM\r\n"
              "  \"T1\" A \r\n"
              "  INNER JOIN \"PROC\"(:A, :'x') P ON (\"A\".\"ID\" = \"P\".\"ID\")\r\n");
}

TEST(SelectParserGolden, QuotedAndLowerCaseNames)
{
    EXPECT_EQ(Print("SELECT \"my col\", \"select\" FROM \"my t\""), "SELECT \r\n"
                                                                    "  \"my t\".\"my col\",\r\n"
                                                                    "  \"my t\".\"select\"\r\n"
                                                                    "FROM\r\n"
                                                                    "  \"my t\"\r\n");
    EXPECT_EQ(Print("select a from t where b = 'x' order by a"), "SELECT \r\n"
                                                                 "  \"t\".\"a\"\r\n"
                                                                 "FROM\r\n"
                                                                 "  \"t\"\r\n"
                                                                 "WHERE\r\n"
                                                                 "  (\"b\" = 'x')\r\n"
                                                                 "ORDER BY\r\n"
                                                                 "  \"a\"\r\n");
}

TEST(SelectParserGolden, TableStar)
{
    EXPECT_EQ(Print("SELECT C.* FROM CUSTOMERS C"),
              "SELECT \r\n  \"C\".*\r\nFROM\r\n  \"CUSTOMERS\" C\r\n");
}

// Aliases print as written in the generic dialect, so a quoted alias keeps its quotes even
// where the name inside them would print bare.
TEST(SelectParserSteps, QuotedAliasKeepsItsQuotes)
{
    auto parser = Parse("SELECT \"A1\".X FROM T \"A1\"");
    ASSERT_EQ(parser->TableDefs().Count(), 1);
    EXPECT_EQ(parser->TableDefs().Items(0)->Alias(), "\"A1\"");
    EXPECT_EQ(parser->GetExpression(), "SELECT \r\n  \"A1\".\"X\"\r\nFROM\r\n  \"T\" \"A1\"\r\n");
}

TEST(SelectParserPrint, DerivedGroupingIsTheSameWhenPrintedAgainAndAfterAFieldGoes)
{
    auto parser = Parse("SELECT T.A, B, SUM(C) FROM T");
    const std::string first = parser->GetExpression();
    EXPECT_NE(first.find("GROUP BY\r\n  \"T\".\"A\",\r\n  \"T\".\"B\"\r\n"), std::string::npos)
        << first;
    EXPECT_EQ(parser->GetExpression(), first);
    // One derived line fewer: the list written over the old lines loses the last.
    parser->TableDefs().Items(0)->FieldDefs().Delete(1);
    const std::string second = parser->GetExpression();
    EXPECT_NE(second.find("GROUP BY\r\n  \"T\".\"A\"\r\n"), std::string::npos) << second;
    EXPECT_EQ(parser->GroupByItems().Count(), 1);
    EXPECT_EQ(parser->GroupByItems().DerivedFields(parser->TableDefs().FieldsInOrder()),
              parser->GroupByItems().DerivedFields());
}
