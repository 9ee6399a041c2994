// Statements people write print SQL that returns the same rows: grouping kept beyond the
// list the fields derive, HAVING only under a GROUP BY, sort positions as numbers, texts in
// apostrophes as texts, conditions with SQL's precedence. Each case is printed whole.
#include "core/VdSelectParser.h"

#include "ParseErrorReport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vd;

namespace {

std::string Print(const std::string& text)
{
    TVdSelectParser parser;
    parser.SetExpression(text);
    return parser.GetExpression();
}

std::string Refusal(const std::string& text) { return vdtest::ParseError(text).Message; }

std::string InvalidToken(const std::string& token, int position)
{
    return "Invalid token '" + token + "' at position " + std::to_string(position) + " of line 1.";
}

const char* const SelectAFromT = "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\n";

} // namespace

// ---- conditions ----

TEST(KeepsMeaningConditions, OrOverAndBindsTheAndFirst)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = 1 OR B = 2 AND C = 3"),
              std::string(SelectAFromT) +
                  "WHERE\r\n  (\"A\" = 1) OR \r\n  ((\"B\" = 2) AND \r\n  (\"C\" = 3))\r\n");
}

TEST(KeepsMeaningConditions, ParenthesisedOrInsideAndStaysAGroup)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE (A = 1) AND (B = 2 OR C = 3)"),
              std::string(SelectAFromT) +
                  "WHERE\r\n  (\"A\" = 1) AND \r\n  ((\"B\" = 2) OR \r\n  (\"C\" = 3))\r\n");
}

TEST(KeepsMeaningConditions, NotInTheMiddleOfAChainNegatesOnlyItsOperand)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE A = 1 AND NOT (B = 2)"),
              std::string(SelectAFromT) +
                  "WHERE\r\n  (\"A\" = 1) AND \r\n  (NOT ((\"B\" = 2)))\r\n");
}

TEST(KeepsMeaningConditions, NotNotKeepsBothNegations)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE NOT (NOT (A > 1 OR C = 2))"),
              std::string(SelectAFromT) +
                  "WHERE\r\n  NOT ((NOT ((\"A\" > 1) OR \r\n  (\"C\" = 2))))\r\n");
}

// ---- grouping ----

TEST(KeepsMeaningGrouping, GroupByWithoutAggregatesIsKept)
{
    EXPECT_EQ(Print("SELECT B, A FROM T GROUP BY B, A"),
              "SELECT \r\n  \"T\".\"B\",\r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"B\",\r\n  \"A\"\r\n");
}

TEST(KeepsMeaningGrouping, GroupByAColumnThatIsNoOutputKeepsItAndHaving)
{
    EXPECT_EQ(Print("SELECT COUNT(*) FROM T GROUP BY A HAVING COUNT(*) > 1"),
              "SELECT \r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\nGROUP BY\r\n  \"A\"\r\n"
              "HAVING\r\n  (COUNT(*) > 1)\r\n");
}

TEST(KeepsMeaningGrouping, ItemTheDerivedListHasPrintsOnce)
{
    const std::string printed = "SELECT \r\n  \"T\".\"A\",\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n"
                                "  \"T\"\r\nGROUP BY\r\n  \"T\".\"A\"\r\n";
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY A"), printed);
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY T.A"), printed);
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY t.a"), printed);
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY \"T\".\"A\""), printed);
}

TEST(KeepsMeaningGrouping, ItemsBeyondTheDerivedListFollowInTheOrderRead)
{
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY C, A, B"),
              "SELECT \r\n  \"T\".\"A\",\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"T\".\"A\",\r\n  \"C\",\r\n  \"B\"\r\n");
}

TEST(KeepsMeaningGrouping, ManyColumnsAreGroupedUnderEverySpellingAsAFewAre)
{
    // Beyond sixteen columns the spellings are looked up hashed rather than compared in turn;
    // both ways must find a column by its name, qualified or not, in any letter case and
    // quotes aside, by its alias and by its position.
    for (const int count : {6, 40}) {
        std::string text = "SELECT ";
        std::string groupBy;
        std::string printed = "SELECT \r\n";
        std::string derived;
        for (int i = 1; i <= count; ++i) {
            const std::string column = "C" + std::to_string(i);
            const std::string lower = "c" + std::to_string(i);
            const bool last = i == count;
            text += "T." + column + (last ? " AS X, " : ", ");
            printed += "  \"T\".\"" + column + "\"" + (last ? " AS X" : "") + ",\r\n";
            derived += "  \"T\".\"" + column + "\",\r\n";
            if (i == count || i == count - 1)
                continue;
            const std::string spellings[] = {lower, "T." + column, "\"T\".\"" + column + "\"",
                                             "t.\"" + lower + "\""};
            groupBy += spellings[i % 4] + ", ";
        }
        text += "COUNT(*) FROM T GROUP BY " + groupBy + "x, " + std::to_string(count - 1) + ", ZZ";
        printed += "  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\nGROUP BY\r\n" + derived +
                   "  \"x\",\r\n  " + std::to_string(count - 1) + ",\r\n  \"ZZ\"\r\n";
        EXPECT_EQ(Print(text), printed) << count << " columns";
    }
}

namespace {

// SELECT T.C1, ..., T.Cn, COUNT(*) FROM T: the text, and its print up to GROUP BY followed by
// the derived lines.
struct TColumns {
    std::string Text;
    std::string Printed;
    std::vector<std::string> Lines;
};

TColumns Columns(int count)
{
    TColumns columns{"SELECT ", "SELECT \r\n", {}};
    for (int i = 1; i <= count; ++i) {
        const std::string column = "C" + std::to_string(i);
        columns.Text += "T." + column + ", ";
        columns.Printed += "  \"T\".\"" + column + "\",\r\n";
        columns.Lines.push_back("\"T\".\"" + column + "\"");
    }
    columns.Text += "COUNT(*) FROM T GROUP BY ";
    columns.Printed += "  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\nGROUP BY\r\n";
    for (const std::string& line : columns.Lines)
        columns.Printed += "  " + line + ",\r\n";
    return columns;
}

std::string WithoutLastComma(std::string printed)
{
    printed.erase(printed.size() - 3, 1);
    return printed;
}

} // namespace

// A GROUP BY written as the builder prints it, in any order, is matched by its text: a few
// items line by line, many through a table. Both must print what every other spelling does.
TEST(KeepsMeaningGrouping, ItemsWrittenAsPrintedInAnotherOrderAddNothing)
{
    for (const int count : {6, 20}) {
        TColumns columns = Columns(count);
        for (int i = count - 1; i >= 0; --i)
            columns.Text += columns.Lines[size_t(i)] + (i ? ", " : "");
        EXPECT_EQ(Print(columns.Text), WithoutLastComma(columns.Printed)) << count;
    }
}

TEST(KeepsMeaningGrouping, ColumnTwiceIsGroupedTwiceByOneItemWrittenAsPrinted)
{
    EXPECT_EQ(Print("SELECT A, A, COUNT(*) FROM T GROUP BY \"T\".\"A\""),
              "SELECT \r\n  \"T\".\"A\",\r\n  \"T\".\"A\" AS A1,\r\n  COUNT(*) AS FIELD_1\r\n"
              "FROM\r\n  \"T\"\r\nGROUP BY\r\n  \"T\".\"A\",\r\n  \"T\".\"A\"\r\n");
}

// One item spelled otherwise sends the whole list through the index of names, aliases and
// positions: an item no column has follows the derived lines.
TEST(KeepsMeaningGrouping, ItemsAsPrintedWithOneMoreKeepTheMoreOne)
{
    for (const int count : {6, 20}) {
        TColumns columns = Columns(count);
        for (const std::string& line : columns.Lines)
            columns.Text += line + ", ";
        columns.Text += "ZZ";
        EXPECT_EQ(Print(columns.Text), columns.Printed + "  \"ZZ\"\r\n") << count;
    }
}

// Items spelled otherwise than printed are looked up: a few compared with each column in turn,
// more through the index. Across that line, as with few columns, they name their columns and
// add nothing, and an item no column has stays.
TEST(KeepsMeaningGrouping, ItemsSpelledOtherwiseNameTheirColumnsHoweverMany)
{
    for (const int count : {6, 20}) {
        for (int respelled = 0; respelled <= 6; ++respelled) {
            TColumns columns = Columns(count);
            columns.Text.insert(std::string("SELECT ").size(), "T.*, ");
            columns.Printed.insert(std::string("SELECT \r\n").size(), "  \"T\".*,\r\n");
            for (int i = 0; i < count; ++i) {
                const std::string lower = "c" + std::to_string(i + 1);
                const std::string spellings[] = {lower, "T.C" + std::to_string(i + 1),
                                                 "t.\"" + lower + "\""};
                columns.Text +=
                    (i < respelled ? spellings[i % 3] : columns.Lines[size_t(i)]) + ", ";
            }
            columns.Text += "ZZ";
            EXPECT_EQ(Print(columns.Text), columns.Printed + "  \"ZZ\"\r\n")
                << count << " columns, " << respelled << " spelled otherwise";
        }
    }
}

TEST(KeepsMeaningGrouping, ColumnGroupedByAliasBesideItemsAsPrintedIsAccepted)
{
    for (const int count : {6, 20}) {
        TColumns columns = Columns(count);
        const std::string last = "T.C" + std::to_string(count);
        columns.Text.replace(columns.Text.find(last + ","), last.size(), last + " AS X");
        for (int i = 0; i + 1 < count; ++i)
            columns.Text += columns.Lines[size_t(i)] + ", ";
        columns.Text += "x";
        const std::string printed = Print(columns.Text);
        EXPECT_NE(printed.find(" AS X,\r\n"), std::string::npos) << printed;
        EXPECT_NE(printed.find(",\r\n  \"x\"\r\n"), std::string::npos) << printed;
    }
}

TEST(KeepsMeaningGrouping, ColumnLeftOutOfItemsAsPrintedIsRefused)
{
    for (const int count : {6, 20}) {
        TColumns columns = Columns(count);
        for (int i = 0; i + 1 < count; ++i)
            columns.Text += columns.Lines[size_t(i)] + (i + 2 < count ? ", " : "");
        // Reported where the column starts in the select list.
        const std::string column = "T.C" + std::to_string(count) + ",";
        EXPECT_EQ(Refusal(columns.Text), InvalidToken("T", int(columns.Text.find(column)) + 1))
            << count;
    }
}

// T.* is no column to group by: beside aggregates it derives no GROUP BY line, and a written
// GROUP BY need not name it.
TEST(KeepsMeaningGrouping, StarBesideAggregatesDerivesNoGroupByLine)
{
    EXPECT_EQ(Print("SELECT T.*, MAX(B) FROM T"),
              "SELECT \r\n  \"T\".*,\r\n  MAX(\"T\".\"B\") AS FIELD_1\r\nFROM\r\n  \"T\"\r\n");
    EXPECT_EQ(Print("SELECT A, T.*, COUNT(*) FROM T"),
              "SELECT \r\n  \"T\".\"A\",\r\n  \"T\".*,\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n"
              "  \"T\"\r\nGROUP BY\r\n  \"T\".\"A\"\r\n");
}

TEST(KeepsMeaningGrouping, WrittenGroupByNeedNotNameTheStar)
{
    EXPECT_EQ(Print("SELECT T.*, MAX(B) FROM T GROUP BY T.A, T.B"),
              "SELECT \r\n  \"T\".*,\r\n  MAX(\"T\".\"B\") AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"T\".\"A\",\r\n  \"T\".\"B\"\r\n");
}

// A T.* written in GROUP BY or ORDER BY prints as the star it is, not as "T"."*" (a column
// named *); PostgreSQL runs it (PostgreSQLRuns.StarWrittenInGroupByWithNamesQuoted).
TEST(KeepsMeaningGrouping, StarWrittenInGroupByPrintsAsTheStar)
{
    EXPECT_EQ(Print("SELECT T.*, COUNT(*) FROM T GROUP BY T.A, T.*"),
              "SELECT \r\n  \"T\".*,\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"T\".\"A\",\r\n  \"T\".*\r\n");
    EXPECT_EQ(Print("SELECT \"my t\".*, MAX(B) FROM \"my t\" GROUP BY \"my t\".*"),
              "SELECT \r\n  \"my t\".*,\r\n  MAX(\"my t\".\"B\") AS FIELD_1\r\nFROM\r\n"
              "  \"my t\"\r\nGROUP BY\r\n  \"my t\".*\r\n");
}

TEST(KeepsMeaningGrouping, StarWrittenInOrderByPrintsAsTheStar)
{
    EXPECT_EQ(Print("SELECT A FROM T ORDER BY T.* DESC, A"),
              "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nORDER BY\r\n  \"T\".* DESC,\r\n"
              "  \"A\"\r\n");
}

// A column named * would print as T.*, the star: refused at its token, as in the select list.
TEST(KeepsMeaningGrouping, QuotedStarInGroupByOrOrderByIsRefused)
{
    const std::string grouped = "SELECT A, COUNT(*) FROM T GROUP BY A, T.\"*\"";
    // Reported where the quoted text starts, as a quoted token is.
    EXPECT_EQ(Refusal(grouped), InvalidToken("*", int(grouped.rfind('*')) + 1));
    const std::string ordered = "SELECT A FROM T ORDER BY \"T\".\"*\"";
    EXPECT_EQ(Refusal(ordered), InvalidToken("*", int(ordered.rfind('*')) + 1));
}

TEST(KeepsMeaningGrouping, ColumnBesideAggregatesThatGroupByLeavesOutIsRefused)
{
    // Printed, the derived list would group by B too and return other rows.
    EXPECT_EQ(Refusal("SELECT A, B, COUNT(*) FROM T GROUP BY A"), InvalidToken("B", 11));
    EXPECT_EQ(Refusal("SELECT A, B, MAX(C) FROM T GROUP BY X"), InvalidToken("A", 8));
}

TEST(KeepsMeaningGrouping, AliasAndPositionGroupTheColumnToo)
{
    EXPECT_EQ(Print("SELECT A AS X, COUNT(*) FROM T GROUP BY X"),
              "SELECT \r\n  \"T\".\"A\" AS X,\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"T\".\"A\",\r\n  \"X\"\r\n");
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY 1"),
              "SELECT \r\n  \"T\".\"A\",\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"T\".\"A\",\r\n  1\r\n");
}

TEST(KeepsMeaningGrouping, WithoutGroupByTheFieldsStillDeriveIt)
{
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T"),
              "SELECT \r\n  \"T\".\"A\",\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"T\".\"A\"\r\n");
}

TEST(KeepsMeaningGrouping, HavingWithoutGroupByIsRefusedAtHaving)
{
    EXPECT_EQ(Refusal("SELECT COUNT(*) FROM T HAVING COUNT(*) > 1"), InvalidToken("HAVING", 24));
}

TEST(KeepsMeaningGrouping, KeptItemsCanBeListedAddedAndRemoved)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT COUNT(*) FROM T GROUP BY A, B");
    TVdGroupByItems& groupBy = parser.GroupByItems();
    ASSERT_EQ(groupBy.KeptItems(), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(groupBy.AddKept("C"), 2);
    EXPECT_EQ(groupBy.AddKept("A"), 0); // already kept
    groupBy.DeleteKept(0);
    groupBy.DeleteKept(7); // out of range: nothing happens
    EXPECT_EQ(groupBy.KeptItems(), (std::vector<std::string>{"B", "C"}));
    EXPECT_EQ(groupBy.GetScript(), "GROUP BY\r\n  \"B\",\r\n  \"C\"\r\n");
    groupBy.ClearKept();
    EXPECT_EQ(groupBy.GetScript(), "");
}

TEST(KeepsMeaningGrouping, ModelBuiltThroughTheApiPrintsTheDerivedListOnly)
{
    TVdSelectParser parser;
    TVdTableDef* table = parser.TableDefs().Add();
    table->SetName("T");
    TVdFieldDef* a = table->FieldDefs().Add();
    a->SetName("A");
    a->SetKind(fkIdentifier);
    TVdFieldDef* count = table->FieldDefs().Add();
    count->SetName("COUNT");
    count->SetKind(fkFunction);
    EXPECT_EQ(parser.GroupByItems().GetScript(), "GROUP BY\r\n  \"T\".\"A\"\r\n");
}

// ---- sort positions ----

TEST(KeepsMeaningSorting, PositionPrintsAsANumber)
{
    EXPECT_EQ(Print("SELECT DISTINCT A FROM T ORDER BY 1"),
              "SELECT DISTINCT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nORDER BY\r\n  1\r\n");
    EXPECT_EQ(
        Print("SELECT A, B FROM T ORDER BY 2, 1 DESC"),
        "SELECT \r\n  \"T\".\"A\",\r\n  \"T\".\"B\"\r\nFROM\r\n  \"T\"\r\nORDER BY\r\n  2,\r\n"
        "  1 DESC\r\n");
}

TEST(KeepsMeaningSorting, ColumnNamedByDigitsStaysAName)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT \"1\" FROM T ORDER BY \"1\"");
    EXPECT_EQ(parser.OrderByItems()[0], "\"1\"");
    EXPECT_EQ(parser.GetExpression(),
              "SELECT \r\n  \"T\".\"1\"\r\nFROM\r\n  \"T\"\r\nORDER BY\r\n  \"1\"\r\n");
}

TEST(KeepsMeaningSorting, PositionIsRefusedWhereThePrintListsOtherColumns)
{
    // A goes to both tables: printed, position 2 would be U.A.
    EXPECT_EQ(Refusal("SELECT A FROM T, U ORDER BY 1"), InvalidToken("1", 29));
    EXPECT_EQ(Refusal("SELECT A, COUNT(*) FROM T, U GROUP BY 1"), InvalidToken("1", 39));
}

TEST(KeepsMeaningSorting, ExpressionPrintsAsWrittenNeverQuotedAsAName)
{
    EXPECT_EQ(Print("SELECT A FROM T ORDER BY UPPER(A)"),
              std::string(SelectAFromT) + "ORDER BY\r\n  UPPER(A)\r\n");
    EXPECT_EQ(Print("SELECT A, COUNT(*) FROM T GROUP BY A ORDER BY COUNT(*) DESC, A + 1, 1"),
              "SELECT \r\n  \"T\".\"A\",\r\n  COUNT(*) AS FIELD_1\r\nFROM\r\n  \"T\"\r\n"
              "GROUP BY\r\n  \"T\".\"A\"\r\nORDER BY\r\n  COUNT(*) DESC,\r\n  A + 1,\r\n  1\r\n");
    TVdSelectParser parser;
    parser.SetExpression("SELECT A FROM T ORDER BY T.B * (2 + C) DESC, D");
    const TVdOrderByItems& orderBy = parser.OrderByItems();
    ASSERT_EQ(orderBy.Count(), 2);
    EXPECT_EQ(orderBy[0], "T.B * (2 + C)");
    EXPECT_TRUE(orderBy.IsExpression(0));
    EXPECT_EQ(orderBy.Orders(0), okDesc);
    EXPECT_FALSE(orderBy.IsExpression(1));
}

TEST(KeepsMeaningSorting, UnbalancedExpressionIsRefused)
{
    EXPECT_EQ(Refusal("SELECT A FROM T ORDER BY A)"), InvalidToken(")", 27));
    EXPECT_EQ(Refusal("SELECT A FROM T ORDER BY UPPER(A) DESC X"), InvalidToken("X", 40));
    EXPECT_EQ(Refusal("SELECT A FROM T ORDER BY (A"), "Unexpected end of statement.");
}

TEST(KeepsMeaningConditions, SignedLeftSideIsAnExpression)
{
    EXPECT_EQ(Print("SELECT A FROM T WHERE -1 <= A"),
              std::string(SelectAFromT) + "WHERE\r\n  (-1 <= \"A\")\r\n");
    EXPECT_EQ(Refusal("SELECT A FROM T WHERE - > 1"), InvalidToken("-", 23));
}

// ---- literals ----

TEST(KeepsMeaningLiterals, TextInApostrophesIsNeverQualified)
{
    EXPECT_EQ(Print("SELECT C.NAME, 'GBP' AS CUR FROM CUSTOMERS C"),
              "SELECT \r\n  \"C\".\"NAME\",\r\n  'GBP' AS CUR\r\nFROM\r\n  \"CUSTOMERS\" C\r\n");
}

TEST(KeepsMeaningLiterals, TextWithoutAliasGetsAGeneratedOne)
{
    EXPECT_EQ(Print("SELECT 'it''s' FROM T"),
              "SELECT \r\n  'it''s' AS FIELD_1\r\nFROM\r\n  \"T\"\r\n");
}

// ---- joins ----

TEST(KeepsMeaningJoins, ChainPrintsInTheOrderRead)
{
    EXPECT_EQ(Print("SELECT * FROM T INNER JOIN U ON (T.ID = U.T_ID) INNER JOIN V ON (U.ID = V.K) "
                    "RIGHT OUTER JOIN W ON (T.ID = W.K)"),
              "SELECT *\r\nFROM\r\n  \"T\" \r\n"
              "  INNER JOIN \"U\" ON (\"T\".\"ID\" = \"U\".\"T_ID\") \r\n"
              "  INNER JOIN \"V\" ON (\"U\".\"ID\" = \"V\".\"K\") \r\n"
              "  RIGHT OUTER JOIN \"W\" ON (\"T\".\"ID\" = \"W\".\"K\")\r\n");
}

TEST(KeepsMeaningJoins, JoinAloneIsAnInnerJoin)
{
    EXPECT_EQ(Print("SELECT * FROM T JOIN U ON T.ID = U.T_ID LEFT JOIN V ON (U.ID = V.K)"),
              "SELECT *\r\nFROM\r\n  \"T\" \r\n"
              "  INNER JOIN \"U\" ON (\"T\".\"ID\" = \"U\".\"T_ID\") \r\n"
              "  LEFT OUTER JOIN \"V\" ON (\"U\".\"ID\" = \"V\".\"K\")\r\n");
    EXPECT_EQ(Refusal("SELECT * FROM T JOIN JOIN U ON (T.ID = U.K)"), InvalidToken("JOIN", 22));
}

// ---- aliases without AS ----

TEST(KeepsMeaningAliases, NameAfterAnItemIsItsAlias)
{
    EXPECT_EQ(
        Print("SELECT c.name n, SUM(c.total) total, COUNT(*) \"Order Count\" FROM c "
              "GROUP BY c.name"),
        "SELECT \r\n  \"c\".\"name\" AS n,\r\n  SUM(\"c\".\"total\") AS total,\r\n"
        "  COUNT(*) AS \"Order Count\"\r\nFROM\r\n  \"c\"\r\nGROUP BY\r\n  \"c\".\"name\"\r\n");
    EXPECT_EQ(Print("SELECT o.total * 2 dbl FROM o"),
              "SELECT \r\n  o.total * 2 AS dbl\r\nFROM\r\n  \"o\"\r\n");
}

TEST(KeepsMeaningAliases, CaseExpressionKeepsItsWords)
{
    EXPECT_EQ(Print("SELECT CASE WHEN o.total > 100 THEN 'big' ELSE 'small' END size FROM o"),
              "SELECT \r\n  CASE WHEN o.total > 100 THEN 'big' ELSE 'small' END AS size\r\n"
              "FROM\r\n  \"o\"\r\n");
}

TEST(KeepsMeaningAliases, TwoNamesAfterAnItemAreRefused)
{
    EXPECT_EQ(Refusal("SELECT A B C FROM T"), InvalidToken("B", 10));
}

TEST(KeepsMeaningSorting, ExpressionMayNotRunIntoAnotherClauseOrStatement)
{
    EXPECT_EQ(Refusal("SELECT a FROM t ORDER BY a LIMIT 10"), InvalidToken("LIMIT", 28));
    EXPECT_EQ(Refusal("SELECT a FROM t ORDER BY a + 1; DROP TABLE t"), InvalidToken(";", 31));
    EXPECT_EQ(
        Print("SELECT a FROM t ORDER BY CASE WHEN a IS NULL THEN 1 ELSE 0 END, COALESCE(a, 1)"),
        "SELECT \r\n  \"t\".\"a\"\r\nFROM\r\n  \"t\"\r\nORDER BY\r\n"
        "  CASE WHEN a IS NULL THEN 1 ELSE 0 END,\r\n  COALESCE(a, 1)\r\n");
}

TEST(KeepsMeaningJoins, TableAliasMayFollowAs)
{
    EXPECT_EQ(Print("SELECT c.name FROM customers AS c JOIN orders AS o ON o.customer_id = c.id"),
              "SELECT \r\n  \"c\".\"name\"\r\nFROM\r\n  \"customers\" c \r\n"
              "  INNER JOIN \"orders\" o ON (\"c\".\"id\" = \"o\".\"customer_id\")\r\n");
    EXPECT_EQ(Refusal("SELECT a FROM t AS WHERE a = 1"), InvalidToken("WHERE", 20));
}

TEST(KeepsMeaningJoins, ConditionWrittenJoinedSideFirstMirrorsItsComparison)
{
    const std::string head =
        "SELECT \r\n  \"c\".\"a\"\r\nFROM\r\n  \"c\" \r\n  INNER JOIN \"o\" ON ";
    EXPECT_EQ(Print("SELECT c.a FROM c JOIN o ON o.x < c.y"),
              head + "(\"c\".\"y\" > \"o\".\"x\")\r\n");
    EXPECT_EQ(Print("SELECT c.a FROM c JOIN o ON (o.x >= c.y)"),
              head + "(\"c\".\"y\" <= \"o\".\"x\")\r\n");
    EXPECT_EQ(Print("SELECT c.a FROM c JOIN o ON (o.x <> c.y)"),
              head + "(\"c\".\"y\" <> \"o\".\"x\")\r\n");
    EXPECT_EQ(Print("SELECT c.a FROM c JOIN o ON (c.y < o.x)"),
              head + "(\"c\".\"y\" < \"o\".\"x\")\r\n");
}
