// The meaning of generated statements on SQLite: what the generic parser accepts prints SQL
// that returns the same rows; what it cannot hold it refuses with its positioned error.

#include "tests/meaning/MeaningCheck.h"
#include "tests/meaning/MeaningGenerator.h"
#include "tests/meaning/MeaningOptions.h"
#include "tests/meaning/SQLiteEngine.h"

#include <gtest/gtest.h>

namespace vdmeaning {

TEST(Meaning, GenericOnSQLite)
{
    TSQLiteEngine engine;
    const TRunOptions options = OptionsFromEnvironment(TDialect::Generic, 2000);
    std::string error;
    ASSERT_TRUE(CreateSchema(engine, options.Dialect, options.Seed, error)) << error;
    EXPECT_TRUE(MeaningKept(engine, options));
}

// The runner itself: a statement and a print that differ are told apart, and orders are
// checked as far as ORDER BY fixes them.
TEST(Meaning, CompareRowsSeesOtherRowsAndOrders)
{
    const TRows ab = {{"a", "1"}, {"b", "2"}};
    const TRows ba = {{"b", "2"}, {"a", "1"}};
    EXPECT_EQ(CompareRows(ab, ba, {}), "");
    EXPECT_NE(CompareRows(ab, ba, {TOrderCheck::Full, {}}), "");
    EXPECT_NE(CompareRows(ab, ba, {TOrderCheck::Keys, {1}}), "");
    const TRows tie1 = {{"a", "1"}, {"b", "1"}};
    const TRows tie2 = {{"b", "1"}, {"a", "1"}};
    EXPECT_EQ(CompareRows(tie1, tie2, {TOrderCheck::Keys, {1}}), "");
    EXPECT_NE(CompareRows(ab, {{"a", "1"}}, {}), "");
    EXPECT_NE(CompareRows(ab, {{"a", "1"}, {"a", "1"}}, {}), "");
}

TEST(Meaning, GeneratedTextsRunOnSQLite)
{
    TSQLiteEngine engine;
    std::string error;
    ASSERT_TRUE(CreateSchema(engine, TDialect::Generic, 7, error)) << error;
    TRows rows;
    ASSERT_TRUE(engine.Query("SELECT COUNT(*), COUNT(A), COUNT(DISTINCT A) FROM T", rows, error))
        << error;
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0], "300");
    EXPECT_LT(std::stoi(rows[0][1]), 300) << "NULLs in T.A";
    EXPECT_LE(std::stoi(rows[0][2]), 10) << "a small range of T.A";
}

} // namespace vdmeaning

namespace vdmeaning {

namespace {

TCond Leaf(int column, const std::string& op, const std::string& value)
{
    TCond leaf;
    leaf.Left = {TExpr::eColumn, 0, column, "", {}};
    leaf.Op = op;
    leaf.Right.push_back({TExpr::eInteger, -1, -1, value, {}});
    return leaf;
}

TStatement OneTable(TCond where)
{
    TStatement s;
    s.From.push_back({0, ""});
    s.Qualify = false;
    s.Items.push_back({{TExpr::eColumn, 0, 1, "", {}}, ""});
    s.HasWhere = true;
    s.Where = std::move(where);
    return s;
}

// Answers the text as written with one row and the print (several lines) with another.
class TTwoFacedEngine : public TEngine
{
public:
    bool Exec(const std::string&, std::string&) override { return true; }
    bool Query(const std::string& sql, TRows& rows, std::string&) override
    {
        rows = {{sql.find('\n') == std::string::npos ? "written" : "printed"}};
        return true;
    }
};

} // namespace

// Conditions are written with the parentheses precedence needs and no more.
TEST(MeaningRender, MinimalParenthesesFollowPrecedence)
{
    TCond andBC{TCond::And, {Leaf(2, "=", "2"), Leaf(3, "=", "3")}, {}, "", {}, 0};
    TCond orABC{TCond::Or, {Leaf(1, "=", "1"), andBC}, {}, "", {}, 0};
    EXPECT_EQ(Render(OneTable(orABC)), "SELECT A FROM T WHERE A = 1 OR B = 2 AND C = 3");

    TCond orBC{TCond::Or, {Leaf(2, "=", "2"), Leaf(3, "=", "3")}, {}, "", {}, 0};
    TCond andABC{TCond::And, {Leaf(1, "=", "1"), orBC}, {}, "", {}, 0};
    EXPECT_EQ(Render(OneTable(andABC)), "SELECT A FROM T WHERE A = 1 AND (B = 2 OR C = 3)");

    TCond notB{TCond::Not, {Leaf(2, "=", "2")}, {}, "", {}, 0};
    TCond andNot{TCond::And, {Leaf(1, "=", "1"), notB}, {}, "", {}, 0};
    EXPECT_EQ(Render(OneTable(andNot)), "SELECT A FROM T WHERE A = 1 AND NOT B = 2");

    TCond notOr{TCond::Not, {orBC}, {}, "", {}, 1};
    EXPECT_EQ(Render(OneTable(notOr)), "SELECT A FROM T WHERE (NOT (B = 2 OR C = 3))");
}

// Firebird reads NOT A = 1 as (NOT A) = 1; its statements put the comparison in parentheses.
TEST(MeaningRender, FirebirdNotTakesAParenthesisedComparison)
{
    TStatement s = OneTable({TCond::Not, {Leaf(2, "=", "2")}, {}, "", {}, 0});
    s.Dialect = TDialect::Firebird;
    EXPECT_EQ(Render(s), "SELECT A FROM T WHERE NOT (B = 2)");
}

// A print that returns other rows is a change; a refusal is counted as one.
TEST(MeaningRunner, ChangedAndRefusedAreToldApart)
{
    TTwoFacedEngine engine;
    const TCheck changed = CheckStatement(engine, OneTable(Leaf(1, "=", "1")));
    EXPECT_EQ(changed.Outcome, TOutcome::Changed) << changed.Detail;
    EXPECT_NE(changed.Printed, "");

    // The fake engine runs anything; the parser refuses the stray parenthesis.
    const TCheck check = CheckStatement(engine, OneTable(Leaf(1, "=", ")")));
    EXPECT_EQ(check.Outcome, TOutcome::Refused) << check.Printed;
    EXPECT_EQ(check.Detail, "Invalid token ')' at position 27 of line 1.");
}

// The same seed gives the same statements: a failure found once can be found again.
TEST(MeaningGenerator, SeededRunsRepeat)
{
    std::mt19937 a(42), b(42);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(Render(GenerateStatement(a, TDialect::Generic)),
                  Render(GenerateStatement(b, TDialect::Generic)));
}

} // namespace vdmeaning
