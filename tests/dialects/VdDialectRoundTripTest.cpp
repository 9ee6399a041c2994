// Round trip in every dialect: a parsed statement prints a text that the same dialect parses
// back to the same model, dialect options included, and prints the same text again.
#include "tests/core/ModelCompare.h"
#include "tests/core/ParserSettings.h"
#include "tests/core/StatementGenerator.h"

#include "dialects/VdIBParser.h"
#include "dialects/VdMyParser.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <random>
#include <set>
#include <string>

using namespace vd;
using vdtest::CreateParser;
using vdtest::TGeneratorDialect;
using vdtest::TSetting;

namespace {

struct TDialect {
    const char* Name;
    TSetting Setting; // the parser, set up as the command-line tool sets it up
    TGeneratorDialect Generator;
    int SqlDialect; // InterBase and Firebird only
};

void PrintTo(const TDialect& dialect, std::ostream* os) { *os << dialect.Name; }

const TDialect InterBase3{"InterBase3", TSetting::InterBase3, TGeneratorDialect::InterBase, 3};
const TDialect InterBase1{"InterBase1", TSetting::InterBase1, TGeneratorDialect::InterBase, 1};
const TDialect Firebird3{"Firebird3", TSetting::Firebird3, TGeneratorDialect::Firebird, 3};
const TDialect Firebird1{"Firebird1", TSetting::Firebird1, TGeneratorDialect::Firebird, 1};
const TDialect MySQL{"MySQL", TSetting::MySQL, TGeneratorDialect::MySQL, 3};

// The dialect's own part of the model.
std::string DescribeDialectOptions(const TVdSelectParser& parser)
{
    if (const auto* ib = dynamic_cast<const TVdIBSelectParser*>(&parser)) {
        const TVdIBOptions& rows = ib->IBOptions();
        const TVdFBOptions& fb = ib->FBOptions();
        return "rows " + std::to_string(rows.RowsFrom) + " to " + std::to_string(rows.RowsTo) +
               " by " + std::to_string(rows.RowsBy) + " percent " +
               std::to_string(int(rows.Percent)) + " ties " + std::to_string(int(rows.Ties)) +
               "\nfirst " + std::to_string(fb.First) + " skip " + std::to_string(fb.Skip) + "\n";
    }
    if (const auto* my = dynamic_cast<const TVdMySelectParser*>(&parser)) {
        const TVdMySQLOptions& options = my->MySQLOptions();
        return "select options " + std::to_string(options.SelectOptions.Bits()) + " filter " +
               std::to_string(int(options.Filter)) + "\nlimit offset " +
               std::to_string(options.LimitOffset) + " rows " + std::to_string(options.LimitRows) +
               "\n";
    }
    return std::string();
}

// The forms of the dialect clauses a parsed statement holds, one word each: the parts of
// ROWS, FIRST and SKIP, the LIMIT form, each select option and the filter.
std::set<std::string> ClauseForms(const TVdSelectParser& parser)
{
    std::set<std::string> forms;
    if (const auto* ib = dynamic_cast<const TVdIBSelectParser*>(&parser)) {
        const TVdIBOptions& rows = ib->IBOptions();
        if (rows.RowsFrom > 0)
            forms.insert(std::string("ROWS") + (rows.RowsTo > 0 ? " TO" : "") +
                         (rows.RowsBy > 0 ? " BY" : "") + (rows.Percent ? " PERCENT" : "") +
                         (rows.Ties ? " WITH TIES" : ""));
        const TVdFBOptions& fb = ib->FBOptions();
        if (fb.First > 0 || fb.Skip > 0)
            forms.insert(std::string(fb.First > 0 ? "FIRST" : "") +
                         (fb.First > 0 && fb.Skip > 0 ? " " : "") + (fb.Skip > 0 ? "SKIP" : ""));
    }
    if (const auto* my = dynamic_cast<const TVdMySelectParser*>(&parser)) {
        const TVdMySQLOptions& options = my->MySQLOptions();
        if (options.LimitOffset > 0)
            forms.insert("LIMIT offset, rows");
        else if (options.LimitRows > 0)
            forms.insert("LIMIT rows");
        for (TVdMySQLSelectOption option : AllSelectOptions)
            if (options.SelectOptions.Contains(option))
                forms.insert(SelectOptionWord(option));
        static const char* const Filters[] = {"", "DISTINCT", "DISTINCTROW", "ALL"};
        if (options.Filter != myfoNone)
            forms.insert(Filters[options.Filter]);
    }
    return forms;
}

// Every form the generator writes for a dialect.
std::set<std::string> ExpectedClauseForms(TGeneratorDialect dialect)
{
    std::set<std::string> forms;
    switch (dialect) {
    case TGeneratorDialect::InterBase:
        for (int parts = 0; parts < 16; ++parts)
            forms.insert(std::string("ROWS") + (parts & 1 ? " TO" : "") + (parts & 2 ? " BY" : "") +
                         (parts & 4 ? " PERCENT" : "") + (parts & 8 ? " WITH TIES" : ""));
        break;
    case TGeneratorDialect::Firebird:
        forms = {"FIRST", "SKIP", "FIRST SKIP"};
        break;
    case TGeneratorDialect::MySQL:
        forms = {"LIMIT rows", "LIMIT offset, rows", "DISTINCT", "DISTINCTROW", "ALL"};
        for (TVdMySQLSelectOption option : AllSelectOptions)
            forms.insert(SelectOptionWord(option));
        break;
    case TGeneratorDialect::Generic:
        break;
    }
    return forms;
}

struct TRound {
    std::string Text;  // the statement printed from the model
    std::string Model; // the model, described after printing (printing rebuilds GROUP BY)
    std::set<std::string> ClauseForms;
};

struct TFormat {
    TVdFormatMode Keywords = qfmAsIs;
    TVdFormatMode Functions = qfmAsIs;
};

TRound ParseAndPrint(const TDialect& dialect, const TFormat& format, const std::string& text)
{
    const std::unique_ptr<TVdSelectParser> parser = CreateParser(dialect.Setting);
    parser->ScriptFormat().KeywordsFormat = format.Keywords;
    parser->ScriptFormat().FunctionsFormat = format.Functions;
    parser->SetExpression(text);
    TRound round;
    round.Text = parser->GetExpression();
    round.Model = vdtest::DescribeModel(*parser) + DescribeDialectOptions(*parser);
    round.ClauseForms = ClauseForms(*parser);
    return round;
}

// The outcome of one statement: rejected by the first parse (with the message), or run
// through three rounds, with what differed when they did not agree.
struct TTrip {
    bool Rejected = false;
    std::string Problem;
    TRound First;
};

TTrip RoundTrip(const TDialect& dialect, const TFormat& format, const std::string& text)
{
    TTrip trip;
    try {
        trip.First = ParseAndPrint(dialect, format, text);
    } catch (const std::exception& e) {
        trip.Rejected = true;
        trip.Problem = std::string("rejected: ") + e.what();
        return trip;
    }
    if (trip.First.Text.empty()) {
        trip.Problem = "nothing printed";
        return trip;
    }
    TRound previous = trip.First;
    for (int round = 2; round <= 3; ++round) {
        TRound next;
        try {
            next = ParseAndPrint(dialect, format, previous.Text);
        } catch (const std::exception& e) {
            trip.Problem = "round " + std::to_string(round) + " rejected the text\n" +
                           previous.Text + "\nwith: " + e.what();
            return trip;
        }
        if (next.Text != previous.Text) {
            trip.Problem = "round " + std::to_string(round) + " printed\n" + next.Text +
                           "\nafter\n" + previous.Text;
            return trip;
        }
        if (next.Model != trip.First.Model) {
            trip.Problem = "round " + std::to_string(round) + " gave the model\n" + next.Model +
                           "\ninstead of\n" + trip.First.Model + "\nfrom the text\n" +
                           previous.Text;
            return trip;
        }
        previous = next;
    }
    return trip;
}

// Empty when the statement parses and survives the three rounds.
std::string RoundTripProblem(const TDialect& dialect, const std::string& text,
                             const TFormat& format = TFormat())
{
    return RoundTrip(dialect, format, text).Problem;
}

vdtest::GeneratorOptions OptionsFor(const TDialect& dialect)
{
    vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Typical();
    options.Dialect = dialect.Generator;
    options.SqlDialect = dialect.SqlDialect;
    return options;
}

struct TGeneratedRun {
    int Total = 0;
    int Rejected = 0;
    int Failures = 0;
    std::string Report;                // the first failures and rejections, with their text
    std::set<std::string> ClauseForms; // the dialect clauses the accepted statements held
};

// Where a generated statement comes from: the seed of the run and its place in it.
std::string Where(unsigned firstSeed, int index)
{
    return "seed " + std::to_string(firstSeed) + ", statement " + std::to_string(index) + ":\n";
}

TGeneratedRun RunGenerated(const TDialect& dialect, const vdtest::GeneratorOptions& options,
                           unsigned firstSeed, int count, const TFormat& format = TFormat())
{
    TGeneratedRun run;
    std::mt19937 rng(firstSeed);
    for (int i = 0; i < count; ++i) {
        const std::string text = vdtest::GenerateStatement(rng, options);
        ++run.Total;
        const TTrip trip = RoundTrip(dialect, format, text);
        if (trip.Rejected) {
            if (++run.Rejected <= 3)
                run.Report += Where(firstSeed, i) + text + "\n" + trip.Problem + "\n\n";
            continue;
        }
        run.ClauseForms.insert(trip.First.ClauseForms.begin(), trip.First.ClauseForms.end());
        if (trip.Problem.empty())
            continue;
        if (++run.Failures <= 3)
            run.Report += Where(firstSeed, i) + text + "\n" + trip.Problem + "\n\n";
    }
    return run;
}

// Most generated statements must be accepted, or the property says little.
void ExpectMostlyAccepted(const TGeneratedRun& run)
{
    EXPECT_GT((run.Total - run.Rejected) * 100, run.Total * 95)
        << run.Rejected << " of " << run.Total << " statements rejected\n"
        << run.Report;
}

class DialectRoundTripGenerated : public ::testing::TestWithParam<TDialect>
{
};

} // namespace

TEST_P(DialectRoundTripGenerated, TypicalStatements)
{
    const TGeneratedRun run = RunGenerated(GetParam(), OptionsFor(GetParam()), 101, 400);
    ExpectMostlyAccepted(run);
    EXPECT_EQ(run.Failures, 0) << run.Report;
    // Each form of the dialect's clauses was read, so none goes untested.
    for (const std::string& form : ExpectedClauseForms(GetParam().Generator))
        EXPECT_TRUE(run.ClauseForms.count(form)) << "no statement held " << form;
}

TEST_P(DialectRoundTripGenerated, SingleTableStatements)
{
    vdtest::GeneratorOptions options = OptionsFor(GetParam());
    options.MinTables = options.MaxTables = 1;
    options.AliasPercent = 40;
    const TGeneratedRun run = RunGenerated(GetParam(), options, 202, 200);
    ExpectMostlyAccepted(run);
    EXPECT_EQ(run.Failures, 0) << run.Report;
}

TEST_P(DialectRoundTripGenerated, StatementsWithoutExoticNames)
{
    vdtest::GeneratorOptions options = OptionsFor(GetParam());
    options.ExoticNames = false;
    options.MixedKeywordCase = false;
    options.LineBreaks = false;
    const TGeneratedRun run = RunGenerated(GetParam(), options, 303, 150);
    ExpectMostlyAccepted(run);
    EXPECT_EQ(run.Failures, 0) << run.Report;
}

TEST_P(DialectRoundTripGenerated, EveryFormatMode)
{
    struct TMode {
        TFormat Format;
        vdtest::TFunctionCase Case;
    };
    const TMode modes[] = {
        {{qfmUpperCase, qfmUpperCase}, vdtest::TFunctionCase::Upper},
        {{qfmLowerCase, qfmLowerCase}, vdtest::TFunctionCase::Lower},
        {{qfmFirstUpper, qfmFirstUpper}, vdtest::TFunctionCase::FirstUpper},
    };
    unsigned seed = 404;
    for (const TMode& mode : modes) {
        SCOPED_TRACE(int(mode.Format.Keywords));
        vdtest::GeneratorOptions options = OptionsFor(GetParam());
        options.FunctionCase = mode.Case;
        const TGeneratedRun run = RunGenerated(GetParam(), options, seed++, 80, mode.Format);
        ExpectMostlyAccepted(run);
        EXPECT_EQ(run.Failures, 0) << run.Report;
    }
}

TEST_P(DialectRoundTripGenerated, LargeStatements)
{
    vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Large();
    options.Dialect = GetParam().Generator;
    options.SqlDialect = GetParam().SqlDialect;
    const TGeneratedRun run = RunGenerated(GetParam(), options, 505, 2);
    EXPECT_EQ(run.Rejected, 0) << run.Report;
    EXPECT_EQ(run.Failures, 0) << run.Report;
}

INSTANTIATE_TEST_SUITE_P(DialectRoundTrip, DialectRoundTripGenerated,
                         ::testing::Values(InterBase3, InterBase1, Firebird3, Firebird1, MySQL),
                         [](const ::testing::TestParamInfo<TDialect>& info) {
                             return std::string(info.param.Name);
                         });

// ---- hand-written statements ----

namespace {

struct TStatement {
    const char* Name;
    TDialect Dialect;
    const char* Text;
};

void PrintTo(const TStatement& statement, std::ostream* os)
{
    *os << statement.Dialect.Name << ": " << statement.Text;
}

class DialectRoundTripStatements : public ::testing::TestWithParam<TStatement>
{
};

} // namespace

TEST_P(DialectRoundTripStatements, SameModelAndTextAfterPrinting)
{
    const TStatement& statement = GetParam();
    EXPECT_EQ(RoundTripProblem(statement.Dialect, statement.Text), "");
}

INSTANTIATE_TEST_SUITE_P(
    DialectRoundTrip, DialectRoundTripStatements,
    ::testing::Values(
        TStatement{"InterBase3EveryRowsPart", InterBase3,
                   "select a.x from t a order by a.x rows 10 to 20 by 2 percent with ties"},
        TStatement{"InterBase3RowsAfterFrom", InterBase3, "SELECT * FROM T ROWS 2147483647"},
        TStatement{"InterBase3RowsAfterGroupBy", InterBase3,
                   "SELECT A.X, COUNT(*) FROM T A GROUP BY A.X ROWS 1 BY 3"},
        TStatement{"InterBase3RowsAfterHaving", InterBase3,
                   "SELECT A.X, COUNT(*) FROM T A GROUP BY A.X HAVING COUNT(*) > 1 ROWS 1 TO 9"},
        TStatement{"InterBase3QuotedClauseWords", InterBase3,
                   "SELECT T.\"FIRST\", T.\"ROWS\" FROM T WHERE T.\"TIES\" = 1 ROWS 1"},
        TStatement{"InterBase3QuotedLowerCase", InterBase3,
                   "SELECT A.\"select\", A.\"lower\" FROM \"ORDER\" A WHERE A.\"x y\" = 'it''s'"},
        TStatement{"InterBase3SameNameWithBlankInTwoTables", InterBase3,
                   "SELECT A.\"unit price\", B.\"unit price\" FROM T A, U B"},
        TStatement{"InterBase3SameNameWithMinusInTwoTables", InterBase3,
                   "SELECT A.\"MY-COL\", B.\"MY-COL\" FROM T A, U B"},
        TStatement{"InterBase3ProcedureWithRows", InterBase3,
                   "SELECT P.X FROM PROC(:A, 'x') P ROWS 5 WITH TIES"},
        TStatement{"InterBase1StringsInDoubleQuotes", InterBase1,
                   "select a.x from \"my table\" a where (a.y = \"it's\") or (a.z = 'a\"b')"},
        TStatement{"InterBase1RowsPercent", InterBase1, "SELECT A.X FROM T A ROWS 1 PERCENT"},
        TStatement{"Firebird3FirstSkipDistinct", Firebird3,
                   "select first 5 skip 10 distinct a.x from t a"},
        TStatement{"Firebird3SkipAlone", Firebird3, "SELECT SKIP 3 \"SKIP\" FROM T"},
        TStatement{"Firebird3FirstStar", Firebird3, "SELECT FIRST 1 * FROM T"},
        TStatement{"Firebird3FirstZero", Firebird3, "SELECT FIRST 0 SKIP 2147483647 A FROM T"},
        TStatement{"Firebird1FirstWithStringTable", Firebird1,
                   "SELECT FIRST 5 A.X FROM \"sales rep\" A"},
        TStatement{"MySQLEveryHeadPart", MySQL,
                   "SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW A FROM T LIMIT 10, 20"},
        TStatement{"MySQLOptionsInAnyOrder", MySQL,
                   "select sql_buffer_result high_priority Sql_Small_Result all "
                   "`SQL_BUFFER_RESULT` from t limit 5"},
        TStatement{"MySQLStringEscapes", MySQL,
                   "SELECT A FROM T WHERE (A = 'it\\'s') OR (B = 'a''b') OR (C = \"x\\\"y\") OR "
                   "(D = \"it's\") OR (E = \"a\"\"b\") OR (F = 'back\\\\slash')"},
        TStatement{"MySQLBackQuotedNames", MySQL,
                   "SELECT `my t`.`unit price`, `o'brien`.X FROM `my t`, `o'brien`"},
        TStatement{"MySQLLeftAndRightJoins", MySQL,
                   "SELECT A.X FROM T A LEFT JOIN U B ON (A.ID = B.ID) "
                   "RIGHT OUTER JOIN V C ON (B.K = C.K) LIMIT 0, 5"},
        TStatement{"MySQLSameNameWithApostropheInTwoTables", MySQL,
                   "SELECT A.`it's`, B.`it's` FROM T A, U B"},
        TStatement{"InterBase3RowsFromZero", InterBase3, "SELECT * FROM T ROWS 0 TO 5"},
        TStatement{"InterBase3StringItems", InterBase3, "SELECT 'abc', 'x\"y', 1 FROM T"},
        TStatement{"InterBase1EmptyStrings", InterBase1,
                   "SELECT A FROM T WHERE (A = '') OR (B = \"\")"},
        TStatement{"MySQLEmptyStrings", MySQL, "SELECT A FROM T WHERE (A = '') OR (B = \"\")"},
        TStatement{"MySQLEscapedQuoteAlone", MySQL, "SELECT A FROM T WHERE A = '\\''"},
        TStatement{"MySQLLimitWithZeroRows", MySQL, "SELECT * FROM T LIMIT 5, 0"},
        TStatement{"MySQLStringItems", MySQL, "SELECT 'it\\'s', \"x\" FROM T"},
        TStatement{"MySQLStringsInProcedureArguments", MySQL,
                   "SELECT P.X FROM PROC(:A, 'it\\'s', \"q\") P LIMIT 1"},
        TStatement{"MySQLKeywordNamedColumns", MySQL,
                   "SELECT `STATUS`, `LIMIT`, `LEFT` FROM `ORDER` WHERE `STATUS` = 1 "
                   "ORDER BY `LIMIT` LIMIT 3"}),
    [](const ::testing::TestParamInfo<TStatement>& info) { return std::string(info.param.Name); });
