// Round trip: a parsed statement prints a text that parses back to the same model and prints
// the same text again.
#include "ModelCompare.h"
#include "StatementGenerator.h"

#include "core/VdSelectParser.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>

using namespace vd;

namespace {

struct TRound {
    std::string Text;  // the statement printed from the model
    std::string Model; // the model, described after printing (printing rebuilds GROUP BY)
};

TRound ParseAndPrint(const std::string& text, TVdFormatMode keywords, TVdFormatMode functions)
{
    TVdSelectParser parser;
    parser.ScriptFormat().KeywordsFormat = keywords;
    parser.ScriptFormat().FunctionsFormat = functions;
    parser.SetExpression(text);
    TRound round;
    round.Text = parser.GetExpression();
    round.Model = vdtest::DescribeModel(parser);
    return round;
}

// Empty when the statement survives three rounds unchanged, else what differed.
std::string RoundTripProblem(const std::string& text, TVdFormatMode keywords = qfmAsIs,
                             TVdFormatMode functions = qfmAsIs)
{
    try {
        const TRound first = ParseAndPrint(text, keywords, functions);
        if (first.Text.empty())
            return "nothing printed";
        TRound previous = first;
        for (int round = 2; round <= 3; ++round) {
            const TRound next = ParseAndPrint(previous.Text, keywords, functions);
            if (next.Text != previous.Text)
                return "round " + std::to_string(round) + " printed\n" + next.Text + "\nafter\n" +
                       previous.Text;
            if (next.Model != first.Model)
                return "round " + std::to_string(round) + " gave the model\n" + next.Model +
                       "\ninstead of\n" + first.Model + "\nfrom the text\n" + previous.Text;
            previous = next;
        }
    } catch (const std::exception& e) {
        return std::string("exception: ") + e.what();
    }
    return std::string();
}

struct TStatement {
    const char* Name;
    const char* Text;
};

void PrintTo(const TStatement& statement, std::ostream* os) { *os << statement.Text; }

class RoundTripStatements : public ::testing::TestWithParam<TStatement>
{
};

struct TFormatCase {
    const char* Name;
    TVdFormatMode Keywords;
    TVdFormatMode Functions;
    const char* Text; // function names written as the mode prints them
};

void PrintTo(const TFormatCase& c, std::ostream* os) { *os << c.Text; }

class RoundTripFormats : public ::testing::TestWithParam<TFormatCase>
{
};

} // namespace

TEST_P(RoundTripStatements, SameModelAndTextAfterPrinting)
{
    const TStatement& statement = GetParam();
    {
        TVdSelectParser parser;
        parser.SetExpression(statement.Text);
        ASSERT_TRUE(parser.IsValid());
    }
    EXPECT_EQ(RoundTripProblem(statement.Text), "");
}

INSTANTIATE_TEST_SUITE_P(
    HandWritten, RoundTripStatements,
    ::testing::Values(
        TStatement{"Star", "SELECT * FROM T"},
        TStatement{"StarOfTwoTables", "SELECT * FROM T1, T2 B"},
        TStatement{"Distinct", "SELECT DISTINCT A, B FROM T"},
        TStatement{"DistinctStar", "SELECT DISTINCT * FROM T"},
        TStatement{"FieldsWithoutFrom", "SELECT A, B"},
        TStatement{"TableStar", "SELECT C.* FROM CUSTOMERS C"},
        TStatement{"InnerJoin", "SELECT C.NAME AS CUSTOMER, O.AMOUNT FROM CUSTOMERS C "
                                "INNER JOIN ORDERS O ON (C.ID = O.CUSTOMER_ID)"},
        TStatement{"LeftJoin", "SELECT * FROM T1 A LEFT JOIN T2 B ON (B.ID = A.ID)"},
        TStatement{"RightJoin", "SELECT * FROM T1 A RIGHT OUTER JOIN T2 B ON (A.ID = B.ID)"},
        TStatement{"FullJoin", "SELECT * FROM T1 A FULL JOIN T2 B ON (A.ID <> B.ID)"},
        TStatement{"JoinWithoutAliases", "SELECT * FROM T1 INNER JOIN T2 ON (T1.ID = T2.ID)"},
        TStatement{"ChainedJoins", "SELECT A.X FROM T1 A INNER JOIN T2 B ON (A.ID = B.ID) "
                                   "LEFT JOIN T3 C ON (B.K = C.K) RIGHT JOIN T4 D ON (C.Z >= D.Z)"},
        TStatement{"StarJoins", "SELECT A.X, C.Y FROM T1 A INNER JOIN T2 B ON (A.ID = B.ID) "
                                "FULL OUTER JOIN T3 C ON (A.K = C.K), T5 E"},
        TStatement{"SelfJoin", "SELECT A.ID, B.ID FROM EMP A INNER JOIN EMP B ON (A.BOSS = B.ID)"},
        TStatement{"EveryOperatorUnderAnd",
                   "SELECT * FROM T WHERE (A = 1) AND (A <> 2) AND (A < 3) AND (A > 4) AND "
                   "(A <= 5) AND (A >= 6) AND (A LIKE 'x%') AND (A NOT LIKE 'y') AND "
                   "(A IN (1, 2)) AND (A NOT IN (3,4)) AND (A BETWEEN 1 AND 5) AND "
                   "(A NOT BETWEEN 2 AND 3) AND (A IS NULL) AND (A IS NOT NULL)"},
        TStatement{"EveryOperatorUnderOr",
                   "SELECT * FROM T WHERE A = 1 OR A <> 2 OR A < 3 OR A > 4 OR A <= 5 OR "
                   "A >= 6 OR A LIKE 'x%' OR A NOT LIKE 'y' OR A IN (1, 2) OR "
                   "A NOT IN ('a', 'b') OR A BETWEEN 1 AND 5 OR A NOT BETWEEN 'a' AND 'c' OR "
                   "A IS NULL OR A IS NOT NULL"},
        TStatement{"ColumnsOnBothSides",
                   "SELECT * FROM T A, S B WHERE (A.X = B.X) AND (A.Y <= B.Y) "
                   "AND (A.Z >= B.Z) AND (A.W <> B.W)"},
        TStatement{"NotOverAndAtTopLevel", "SELECT * FROM T WHERE NOT ((A = 1) AND (B = 2))"},
        TStatement{"NotOverOrAtTopLevel",
                   "SELECT * FROM T WHERE NOT ((A = 1) OR (B = 2) OR (C = 3))"},
        TStatement{"NotOverOneComparison", "SELECT * FROM T WHERE NOT (A = 1)"},
        TStatement{"NestedNotOverOr",
                   "SELECT * FROM T WHERE (C = 3) AND (NOT ((A = 1) OR (B = 2)))"},
        TStatement{"NestedNotOverAnd",
                   "SELECT * FROM T WHERE (C = 3) OR (NOT ((A = 1) AND (B = 2)))"},
        TStatement{"NotInsideNot",
                   "SELECT * FROM T WHERE NOT ((A = 1) AND (NOT ((B = 2) OR (C = 3))))"},
        TStatement{"NotInThirdPlace", "SELECT * FROM T WHERE (X = 0) AND (Y = 0) AND "
                                      "(NOT ((A = 1) AND (B = 2)))"},
        TStatement{"NestedGroups", "SELECT * FROM T WHERE ((A = 1) OR ((B = 2) AND ((C = 3) OR "
                                   "(D = 4)))) AND (E = 5)"},
        TStatement{"GroupWithOneItem", "SELECT * FROM T WHERE ((A = 1)) OR (B = 2)"},
        TStatement{"GroupByHavingOrderBy",
                   "SELECT A, SUM(B), COUNT(*) FROM T WHERE A > 0 GROUP BY A "
                   "HAVING (SUM(B) > 10) OR (COUNT(*) < 3) ORDER BY A DESC, T.B"},
        TStatement{"GroupByWithoutAggregates", "SELECT A FROM T GROUP BY A"},
        TStatement{"HavingWithNot", "SELECT A, MAX(B) FROM T GROUP BY A "
                                    "HAVING NOT ((MAX(B) > 1) OR (MAX(B) < 0))"},
        TStatement{"StoredProcedure", "SELECT * FROM PROC(:A, 5)"},
        TStatement{"StoredProcedureWithAlias", "SELECT P.X FROM PROC(:A, 5, 'x') P WHERE P.X = 1"},
        TStatement{"JoinedStoredProcedure",
                   "SELECT A.X, P.Y FROM T1 A INNER JOIN PROC(:A) P ON (A.ID = P.ID)"},
        TStatement{"GeneratedAliases", "SELECT A AS AMOUNT, A + B, COUNT(*), 1.5 FROM T"},
        TStatement{"IdAndId1", "SELECT A.ID, B.ID, C.ID FROM T1 A, T2 B, T3 C"},
        TStatement{"UnqualifiedFieldOfEveryTable", "SELECT T1.X, T2.Y, Z FROM T1, T2"},
        TStatement{"QuotedAlias", "SELECT A AS \"my alias\" FROM T"},
        TStatement{"QuotedNamesWithBlanks",
                   "SELECT \"order items\".\"unit price\", \"order items\".\"due date\" "
                   "FROM \"order items\" WHERE \"order items\".\"unit price\" > 5 "
                   "ORDER BY \"order items\".\"due date\" DESC"},
        TStatement{"KeywordNamedColumns",
                   "SELECT \"FROM\", \"select\", \"ORDER\" FROM \"GROUP\" WHERE \"ORDER\" = 1 "
                   "ORDER BY \"select\""},
        TStatement{"LowerCaseNames", "select a, b from t where a like 'x%' order by b"},
        TStatement{"StringsAndFloats",
                   "SELECT * FROM T WHERE (A = 'it''s') OR (B = 1.5) OR (C = \"D E\")"},
        TStatement{"LineBreaks", "SELECT\r\n  A,\r\n  B\r\nFROM\r\n  T\r\nWHERE\r\n  A = 1\r\n"}),
    [](const ::testing::TestParamInfo<TStatement>& info) { return info.param.Name; });

TEST_P(RoundTripFormats, SameModelAndTextInEveryFormatMode)
{
    const TFormatCase& c = GetParam();
    EXPECT_EQ(RoundTripProblem(c.Text, c.Keywords, c.Functions), "");
}

INSTANTIATE_TEST_SUITE_P(
    Modes, RoundTripFormats,
    ::testing::Values(
        TFormatCase{"AsIs", qfmAsIs, qfmAsIs,
                    "SELECT DISTINCT A, sum(B), Count(*) FROM T1 LEFT JOIN T2 ON (T1.ID = T2.ID) "
                    "WHERE NOT ((A NOT LIKE 'x') OR (B IS NOT NULL) OR (C NOT BETWEEN 1 AND 2)) "
                    "GROUP BY A HAVING sum(B) > 1 ORDER BY A DESC"},
        TFormatCase{"Upper", qfmUpperCase, qfmUpperCase,
                    "SELECT DISTINCT A, SUM(B), COUNT(*) FROM T1 LEFT JOIN T2 ON (T1.ID = T2.ID) "
                    "WHERE NOT ((A NOT LIKE 'x') OR (B IS NOT NULL) OR (C NOT BETWEEN 1 AND 2)) "
                    "GROUP BY A HAVING SUM(B) > 1 ORDER BY A DESC"},
        TFormatCase{"Lower", qfmLowerCase, qfmLowerCase,
                    "SELECT DISTINCT A, sum(B), count(*) FROM T1 RIGHT JOIN T2 ON (T1.ID = T2.ID) "
                    "WHERE NOT ((A NOT LIKE 'x') OR (B IS NOT NULL) OR (C NOT BETWEEN 1 AND 2)) "
                    "GROUP BY A HAVING sum(B) > 1 ORDER BY A DESC"},
        TFormatCase{"FirstUpper", qfmFirstUpper, qfmFirstUpper,
                    "SELECT DISTINCT A, Sum(B), Count(*) FROM T1 FULL JOIN T2 ON (T1.ID = T2.ID) "
                    "WHERE NOT ((A NOT LIKE 'x') OR (B IS NOT NULL) OR (C NOT BETWEEN 1 AND 2)) "
                    "GROUP BY A HAVING Sum(B) > 1 ORDER BY A DESC"}),
    [](const ::testing::TestParamInfo<TFormatCase>& info) { return info.param.Name; });

// Printing in another letter case renames the functions in the model, but the text itself
// is stable from the first print on.
TEST(RoundTrip, PrintedTextIsStableWhateverTheInputCase)
{
    const std::string text = "select a, Sum(b) from t group by a having SUM(b) > 1";
    for (TVdFormatMode mode : {qfmAsIs, qfmUpperCase, qfmLowerCase, qfmFirstUpper}) {
        SCOPED_TRACE(int(mode));
        const TRound first = ParseAndPrint(text, mode, mode);
        const TRound second = ParseAndPrint(first.Text, mode, mode);
        EXPECT_EQ(second.Text, first.Text);
    }
}

// A generated alias prints as written after AS; these two read back only when it is one name.
TEST(RoundTripAliases, StarsOfTwoTables)
{
    EXPECT_EQ(RoundTripProblem("SELECT A.*, B.* FROM T1 A, T2 B"), "");
}

TEST(RoundTripAliases, SameNameWithBlankInTwoTables)
{
    EXPECT_EQ(RoundTripProblem("SELECT A.\"my col\", B.\"my col\" FROM T1 A, T2 B"), "");
}

// An expression prints as written, without a table; standing first in the select list it
// makes the parser open a table of its own when the printed text is read back.
TEST(RoundTripTables, ExpressionFirstInSelectList)
{
    EXPECT_EQ(RoundTripProblem("SELECT A + 1, B FROM T"), "");
    EXPECT_EQ(RoundTripProblem("SELECT COUNT(*), B FROM T"), "");
}

// TVdFieldDefs::GetScript writes the separator after every item that is not the last of the
// collection, so an input parameter in last place leaves a trailing ",\r\n". The statement
// text is built from the fields in order and never shows it.
TEST(RoundTrip, InputParameterInLastPlaceLeavesTrailingSeparator)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT P.X FROM PROC(:A) P");
    const TVdTableDef& proc = *parser.TableDefs().Items(0);
    ASSERT_EQ(proc.FieldDefs().Count(), 2);
    ASSERT_TRUE(proc.FieldDefs().Items(1)->IsInputParam());
    EXPECT_EQ(proc.FieldDefs().GetScript(), "  \"P\".\"X\",\r\n");
    EXPECT_EQ(parser.GetExpression(), "SELECT \r\n  \"P\".\"X\"\r\nFROM\r\n  \"PROC\"(:A) P\r\n");
    EXPECT_EQ(RoundTripProblem("SELECT P.X FROM PROC(:A) P"), "");
}

// ---- generated statements ----

namespace {

// Runs the round trip over seeds [first, first + count); returns a report of the failures.
std::string GeneratedProblems(unsigned first, int count, const vdtest::GeneratorOptions& options,
                              TVdFormatMode keywords, TVdFormatMode functions, int& failures)
{
    std::string report;
    failures = 0;
    for (int i = 0; i < count; ++i) {
        const unsigned seed = first + unsigned(i);
        std::mt19937 rng(seed);
        const std::string text = vdtest::GenerateStatement(rng, options);
        std::string problem = RoundTripProblem(text, keywords, functions);
        if (problem.empty())
            continue;
        if (++failures <= 3)
            report += "seed " + std::to_string(seed) + ":\n" + text + "\n" + problem + "\n\n";
    }
    return report;
}

} // namespace

TEST(RoundTripGenerated, TypicalStatements)
{
    int failures = 0;
    const std::string report =
        GeneratedProblems(1, 400, vdtest::GeneratorOptions::Typical(), qfmAsIs, qfmAsIs, failures);
    EXPECT_EQ(failures, 0) << report;
}

TEST(RoundTripGenerated, TypicalStatementsWithoutExoticNames)
{
    vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Typical();
    options.ExoticNames = false;
    options.MixedKeywordCase = false;
    options.LineBreaks = false;
    int failures = 0;
    const std::string report = GeneratedProblems(5001, 100, options, qfmAsIs, qfmAsIs, failures);
    EXPECT_EQ(failures, 0) << report;
}

TEST(RoundTripGenerated, SingleTableStatements)
{
    vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Typical();
    options.MinTables = options.MaxTables = 1;
    options.AliasPercent = 40;
    int failures = 0;
    const std::string report = GeneratedProblems(7001, 150, options, qfmAsIs, qfmAsIs, failures);
    EXPECT_EQ(failures, 0) << report;
}

TEST(RoundTripGenerated, EveryFormatMode)
{
    struct TMode {
        TVdFormatMode Keywords;
        TVdFormatMode Functions;
        vdtest::TFunctionCase Case;
    };
    const TMode modes[] = {
        {qfmUpperCase, qfmUpperCase, vdtest::TFunctionCase::Upper},
        {qfmLowerCase, qfmLowerCase, vdtest::TFunctionCase::Lower},
        {qfmFirstUpper, qfmFirstUpper, vdtest::TFunctionCase::FirstUpper},
        {qfmLowerCase, qfmAsIs, vdtest::TFunctionCase::FirstUpper},
    };
    unsigned first = 2001;
    for (const TMode& mode : modes) {
        SCOPED_TRACE(int(mode.Keywords) * 10 + int(mode.Functions));
        vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Typical();
        options.FunctionCase = mode.Case;
        int failures = 0;
        const std::string report =
            GeneratedProblems(first, 60, options, mode.Keywords, mode.Functions, failures);
        EXPECT_EQ(failures, 0) << report;
        first += 60;
    }
}

TEST(RoundTripGenerated, LargeStatements)
{
    int failures = 0;
    const std::string report =
        GeneratedProblems(9001, 4, vdtest::GeneratorOptions::Large(), qfmAsIs, qfmAsIs, failures);
    EXPECT_EQ(failures, 0) << report;
}

// ---- the generator itself ----

namespace {

int Comparisons(const TVdCriterions& list)
{
    int count = 0;
    for (int i = 0; i < list.Count(); ++i)
        count += list.Items(i)->IsGroup() ? Comparisons(list.Items(i)->SubItems()) : 1;
    return count;
}

} // namespace

TEST(StatementGenerator, SameSeedSameText)
{
    std::mt19937 a(77), b(77), c(78);
    const vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Typical();
    const std::string first = vdtest::GenerateStatement(a, options);
    EXPECT_EQ(first, vdtest::GenerateStatement(b, options));
    EXPECT_NE(first, vdtest::GenerateStatement(c, options));
}

TEST(StatementGenerator, TypicalStatementsParseAndStayInRange)
{
    const vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Typical();
    size_t bytes = 0;
    const int count = 300;
    for (int seed = 1; seed <= count; ++seed) {
        std::mt19937 rng(unsigned(seed) * 7919u);
        const std::string text = vdtest::GenerateStatement(rng, options);
        bytes += text.size();
        TVdSelectParser parser;
        ASSERT_NO_THROW(parser.SetExpression(text)) << text;
        ASSERT_TRUE(parser.IsValid()) << text;
        int named = 0;
        for (int t = 0; t < parser.TableDefs().Count(); ++t)
            named += parser.TableDefs().Items(t)->Name().empty() ? 0 : 1;
        EXPECT_GE(named, options.MinTables) << text;
        EXPECT_LE(named, options.MaxTables) << text;
        const int conditions = Comparisons(parser.WhereItems());
        EXPECT_GE(conditions, options.MinConditions) << text;
        EXPECT_LE(conditions, options.MaxConditions) << text;
    }
    const size_t average = bytes / count;
    EXPECT_GE(average, 250u);
    EXPECT_LE(average, 600u);
}

TEST(StatementGenerator, LargeStatementHasItsSize)
{
    std::mt19937 rng(4242);
    const vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Large();
    const std::string text = vdtest::GenerateStatement(rng, options);
    TVdSelectParser parser;
    ASSERT_NO_THROW(parser.SetExpression(text));
    ASSERT_TRUE(parser.IsValid());
    EXPECT_EQ(parser.TableDefs().Count(), 50);
    int outputFields = 0;
    for (int t = 0; t < parser.TableDefs().Count(); ++t) {
        const TVdFieldDefs& fields = parser.TableDefs().Items(t)->FieldDefs();
        for (int f = 0; f < fields.Count(); ++f)
            outputFields += fields.Items(f)->IsInputParam() ? 0 : 1;
    }
    EXPECT_EQ(outputFields, 500);
    EXPECT_EQ(Comparisons(parser.WhereItems()), 200);
}

TEST(RoundTripNames, DottedTableNamesQualifyTheirFields)
{
    EXPECT_EQ(RoundTripProblem("SELECT S.T.A, X.B FROM S.T, U X INNER JOIN V.W ON (X.B = V.W.C)"), "");
}

TEST(RoundTripNames, QuotedTextWithADotStaysOneName)
{
    // 'a.b' would print split at its dot; it is kept in identifier quotes as one name.
    EXPECT_EQ(RoundTripProblem("SELECT A FROM T WHERE A BETWEEN '1.5a' AND 'm'"), "");
    EXPECT_EQ(RoundTripProblem("SELECT * FROM T WHERE A = 'x.y'"), "");
}

TEST(RoundTripNames, ProcedureArgumentsKeepTheirQuotes)
{
    EXPECT_EQ(RoundTripProblem("SELECT P.X FROM PROC(:A, '.abc', \"q q\") P"), "");
    TVdSelectParser parser;
    parser.SetExpression("SELECT P.X FROM PROC('.abc') P");
    EXPECT_EQ(parser.TableDefs().FindByAlias("P")->FieldDefs().FindByName("'.abc'")->ParamType(), ptInput);
}

TEST(RoundTripNames, GroupByLeavesProcedureArgumentsOut)
{
    TVdSelectParser parser;
    parser.SetExpression("SELECT P.X, COUNT(*) FROM PROC(:A, 5) P");
    EXPECT_EQ(parser.GetExpression(), "SELECT \r\n"
                                      "  \"P\".\"X\",\r\n"
                                      "  COUNT(*) AS FIELD_1\r\n"
                                      "FROM\r\n"
                                      "  \"PROC\"(:A, :5) P\r\n"
                                      "GROUP BY\r\n"
                                      "  \"P\".\"X\"\r\n");
    EXPECT_EQ(RoundTripProblem("SELECT P.X, COUNT(*) FROM PROC(:A, 5) P"), "");
}

TEST(RoundTripNames, SelectListWithoutFromPrintsNoOtherClause)
{
    // GROUP BY is rebuilt from the fields when printing; after a select list without FROM it
    // would be a clause the parser refuses.
    TVdSelectParser parser;
    parser.SetExpression("SELECT A1.X, COUNT(*)");
    EXPECT_EQ(parser.GetExpression(), "SELECT \r\n  \"A1\".\"X\",\r\n  COUNT(*) AS FIELD_1");
    EXPECT_EQ(RoundTripProblem("SELECT A1.X, COUNT(*)"), "");
}
