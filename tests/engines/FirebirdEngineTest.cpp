// The family on a private Firebird server, printed by the InterBase/Firebird parser (server
// Firebird, SQL dialect 3; the ROWS forms with the InterBase setting); then the prints
// Firebird refuses, each with the reason it stays.

#include "tests/engines/EngineMeaning.h"
#include "tests/engines/EngineSuite.h"

#include "core/VdError.h"
#include "dialects/VdIBParser.h"

namespace vdengine {

const TEngine SuiteEngine = TEngine::Firebird;

VD_ENGINE_FAMILY(Firebird);

namespace {

// The family's ROWS statement with other ROWS options, printed with the InterBase setting.
std::string RowsPrint(const vd::TVdIBOptions& options)
{
    const TFamilyStatement entry = FamilyEntry("InterBaseBuiltRowsTo");
    std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(TEngine::Firebird, entry);
    entry.Build(*parser);
    dynamic_cast<vd::TVdIBSelectParser&>(*parser).SetIBOptions(options);
    return parser->GetExpression();
}

testing::AssertionResult RowsRefused(const vd::TVdIBOptions& options, const std::string& tail)
{
    const std::string printed = RowsPrint(options);
    if (printed.size() < tail.size() ||
        printed.compare(printed.size() - tail.size(), tail.size(), tail))
        return testing::AssertionFailure() << "the print does not end in " << tail << ":\n"
                                           << printed;
    return Refuses(FamilyEntry("InterBaseBuiltRowsTo"), printed, "Token unknown");
}

} // namespace

// ROWS ... BY, PERCENT and WITH TIES are InterBase's: the InterBase setting prints them for
// InterBase servers; Firebird reads ROWS n [TO m] only (the family runs those).
TEST(FirebirdRefuses, RowsBy)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    vd::TVdIBOptions options;
    options.RowsFrom = 1;
    options.RowsTo = 3;
    options.RowsBy = 2;
    EXPECT_TRUE(RowsRefused(options, "\r\nROWS 1 TO 3 BY 2"));
}

TEST(FirebirdRefuses, RowsPercent)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    vd::TVdIBOptions options;
    options.RowsFrom = 50;
    options.Percent = true;
    EXPECT_TRUE(RowsRefused(options, "\r\nROWS 50 PERCENT"));
}

TEST(FirebirdRefuses, RowsWithTies)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    vd::TVdIBOptions options;
    options.RowsFrom = 2;
    options.Ties = true;
    EXPECT_TRUE(RowsRefused(options, "\r\nROWS 2 WITH TIES"));
}

// GROUP BY is rebuilt from the plain columns of the select list; an expression beside an
// aggregate is not grouped, which Firebird refuses. Tick the expression's columns instead.
TEST(FirebirdRefuses, GroupByListsPlainColumnsOnly)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const TFamilyStatement entry = FamilyEntry("BuiltExpressionBesideAggregate");
    std::string printed;
    ASSERT_TRUE(PrintFor(TEngine::Firebird, entry, printed));
    EXPECT_NE(printed.find("GROUP BY\r\n  L.ORDER_ID\r\n"), std::string::npos) << printed;
    EXPECT_TRUE(Refuses(entry, printed, "Invalid expression in the select list"));
}

// A word of the dialect's keyword list is no name unless quoted: Firebird takes S.ACTIVE,
// the parser refuses it at the word; S."ACTIVE" reads, prints quoted and runs.
TEST(FirebirdDeliberate, KeywordOfTheListNamesAColumnOnlyQuoted)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    TFamilyStatement entry;
    entry.Text = "SELECT S.NAME FROM SUPPLIERS S WHERE (S.ACTIVE = TRUE)";
    std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(TEngine::Firebird, entry);
    try {
        parser->SetExpression(entry.Text);
        ADD_FAILURE() << "the parser took the keyword ACTIVE as a name";
    } catch (const vd::EVdParserError& e) {
        EXPECT_STREQ(e.what(), "Invalid token 'ACTIVE' at position 41 of line 1.");
    }
    TRows reference;
    ASSERT_TRUE(Runs(entry, entry.Text, reference));
    EXPECT_EQ(reference.size(), 2u);
    entry.Text = "SELECT S.NAME FROM SUPPLIERS S WHERE (S.\"ACTIVE\" = TRUE)";
    std::string printed;
    ASSERT_TRUE(PrintFor(TEngine::Firebird, entry, printed));
    EXPECT_NE(printed.find("(S.\"ACTIVE\" = TRUE)"), std::string::npos) << printed;
    TRows rows;
    ASSERT_TRUE(Runs(entry, printed, rows));
    EXPECT_EQ(rows, reference);
}

// Generated statements written as people write them, in the InterBase/Firebird parser's dialect:
// what it accepts prints SQL that returns the same rows on Firebird; what it cannot hold it
// refuses.
TEST(FirebirdMeaning, FirebirdDialectOnFirebird)
{
    EXPECT_TRUE(SuiteKeepsMeaning(vdmeaning::TDialect::Firebird, 200));
}

} // namespace vdengine
