// Joins on more than one pair of fields: ON with AND reads into one join per pair and prints
// back as one JOIN with all its conditions; anything else in ON is refused where it stands.
#include "core/VdSelectParser.h"

#include "ModelCheck.h"
#include "ParseErrorReport.h"

#include <gtest/gtest.h>

#include <string>

using namespace vd;

namespace {

std::string Print(const std::string& text)
{
    TVdSelectParser parser;
    parser.SetExpression(text);
    EXPECT_TRUE(vdcheck::CheckModel(parser));
    return parser.GetExpression();
}

std::string Refusal(const std::string& text) { return vdtest::ParseError(text).Message; }

const char* const TwoConditions = "SELECT \r\n  \"A\".\"X\"\r\nFROM\r\n  \"A\" \r\n"
                                  "  INNER JOIN \"B\" ON (\"A\".\"X\" = \"B\".\"X\" AND "
                                  "\"A\".\"Y\" = \"B\".\"Y\")\r\n";

} // namespace

TEST(JoinConditions, AndInOnReadsAsTwoJoinsOfOnePair)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT A.X FROM A INNER JOIN B ON (A.X = B.X AND A.Y = B.Y)");
    const TVdJoinDefs& joins = parser.TableDefs().FindByAlias("A")->JoinDefs();
    ASSERT_EQ(joins.Count(), 2);
    EXPECT_EQ(joins.Items(0)->FieldName, "X");
    EXPECT_EQ(joins.Items(1)->FieldName, "Y");
    EXPECT_EQ(joins.Items(1)->JoinTable, "B");
    EXPECT_EQ(parser.GetExpression(), TwoConditions);
}

TEST(JoinConditions, ParenthesesAroundEachConditionOrNoneReadTheSame)
{
    EXPECT_EQ(Print("SELECT A.X FROM A JOIN B ON A.X = B.X AND A.Y = B.Y"), TwoConditions);
    EXPECT_EQ(Print("SELECT A.X FROM A JOIN B ON (A.X = B.X) AND (A.Y = B.Y)"), TwoConditions);
    EXPECT_EQ(Print("SELECT A.X FROM A JOIN B ON ((A.X = B.X) AND ((A.Y = B.Y)))"), TwoConditions);
}

TEST(JoinConditions, OuterJoinKeepsItsKindForEveryCondition)
{
    EXPECT_EQ(Print("SELECT A.X FROM A LEFT JOIN B ON A.X = B.X AND A.Y <= B.Y WHERE A.X = 1"),
              "SELECT \r\n  \"A\".\"X\"\r\nFROM\r\n  \"A\" \r\n  LEFT OUTER JOIN \"B\" ON "
              "(\"A\".\"X\" = \"B\".\"X\" AND \"A\".\"Y\" <= \"B\".\"Y\")\r\nWHERE\r\n  "
              "(\"A\".\"X\" = 1)\r\n");
}

TEST(JoinConditions, ConditionsWithTwoEarlierTablesStayInTheirJoin)
{
    EXPECT_EQ(
        Print("SELECT * FROM A JOIN B ON (A.X = B.X) JOIN C ON (A.X = C.X AND C.Y <= B.Y)"),
        "SELECT *\r\nFROM\r\n  \"A\" \r\n  INNER JOIN \"B\" ON (\"A\".\"X\" = \"B\".\"X\")\r\n"
        "  INNER JOIN \"C\" ON (\"A\".\"X\" = \"C\".\"X\" AND \"B\".\"Y\" >= \"C\".\"Y\")\r\n");
}

TEST(JoinConditions, OrInOnIsRefusedAtOr)
{
    EXPECT_EQ(Refusal("SELECT A.X FROM A JOIN B ON (A.X = B.X OR A.Y = B.Y)"),
              "Invalid token 'OR' at position 40 of line 1.");
}

TEST(JoinConditions, AComparisonWithAValueIsRefusedAtTheValue)
{
    EXPECT_EQ(Refusal("SELECT A.X FROM A JOIN B ON (A.X = B.X AND A.Y = 1)"),
              "Invalid token '1' at position 50 of line 1.");
}

TEST(JoinConditions, AConditionThatLeavesOutTheJoinedTableIsRefused)
{
    EXPECT_EQ(Refusal("SELECT * FROM A JOIN B ON (A.X = B.X) JOIN C ON (A.X = C.X AND A.Y = B.Y)"),
              "Invalid token 'B' at position 70 of line 1.");
}

TEST(JoinConditions, AnAndWithNothingAfterItIsRefused)
{
    EXPECT_EQ(Refusal("SELECT A.X FROM A JOIN B ON (A.X = B.X AND)"),
              "Invalid token ')' at position 43 of line 1.");
}

TEST(JoinConditions, ParenthesesNestedPastAnyPersonsHabitAreRefused)
{
    const std::string deep =
        "SELECT A.X FROM A JOIN B ON " + std::string(40, '(') + "A.X = B.X" + std::string(40, ')');
    EXPECT_EQ(Refusal(deep), "Invalid token '(' at position 61 of line 1.");
    const std::string fine =
        "SELECT A.X FROM A JOIN B ON " + std::string(20, '(') + "A.X = B.X" + std::string(20, ')');
    EXPECT_EQ(Print(fine), "SELECT \r\n  \"A\".\"X\"\r\nFROM\r\n  \"A\" \r\n"
                           "  INNER JOIN \"B\" ON (\"A\".\"X\" = \"B\".\"X\")\r\n");
}
