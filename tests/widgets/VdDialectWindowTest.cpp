#include "builder/VdStored.h"
#include "dialects/VdIBOptionsPanel.h"
#include "dialects/VdIBWindow.h"
#include "dialects/VdMyWindow.h"

#include <QLineEdit>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using vd::TInterBaseVandor;
using vd::TMySQLVandor;

namespace {

struct TReportedError {
    std::string Message;
    std::string Token;
};

class TDialectWindowTest : public ::testing::Test
{
protected:
    TInterBaseVandor IB;
    TMySQLVandor My;
    std::vector<TReportedError> IBErrors;
    std::vector<TReportedError> MyErrors;

    void SetUp() override
    {
        IB.SetOnParserError([this](vd::TVdSelectParser*, const std::string& message,
                                   const std::string& token, int, int) {
            IBErrors.push_back({message, token});
        });
        My.SetOnParserError([this](vd::TVdSelectParser*, const std::string& message,
                                   const std::string& token, int, int) {
            MyErrors.push_back({message, token});
        });
    }

    QMetaProperty IBProperty(const char* name) const
    {
        const QMetaObject* meta = IB.metaObject();
        return meta->property(meta->indexOfProperty(name));
    }
};

const std::string kInterBaseBase = "SELECT \r\n  T.A\r\nFROM\r\n  T\r\n";

} // namespace

TEST_F(TDialectWindowTest, BuildersCreateTheirDialectParsers)
{
    EXPECT_NE(dynamic_cast<vd::TVdIBSelectParser*>(IB.Parser()), nullptr);
    EXPECT_NE(dynamic_cast<vd::TVdIBScanner*>(&IB.Parser()->Scanner()), nullptr);
    EXPECT_EQ(IB.IBParser(), IB.Parser());
    EXPECT_NE(dynamic_cast<vd::TVdMySelectParser*>(My.Parser()), nullptr);
    EXPECT_NE(dynamic_cast<vd::TVdMySQLScanner*>(&My.Parser()->Scanner()), nullptr);
    EXPECT_EQ(My.MyParser(), My.Parser());
}

TEST_F(TDialectWindowTest, DialectAndServerArePublishedEnumsWithTheirDefaults)
{
    const QMetaProperty dialect = IBProperty("SQLDialect");
    const QMetaProperty server = IBProperty("SQLServer");
    ASSERT_TRUE(dialect.isValid());
    ASSERT_TRUE(server.isValid());
    ASSERT_TRUE(dialect.isEnumType());
    ASSERT_TRUE(server.isEnumType());
    EXPECT_STREQ(dialect.enumerator().valueToKey(vd::qibDialect1), "qibDialect1");
    EXPECT_STREQ(dialect.enumerator().valueToKey(vd::qibDialect3), "qibDialect3");
    EXPECT_STREQ(server.enumerator().valueToKey(vd::qssInterBase), "qssInterBase");
    EXPECT_STREQ(server.enumerator().valueToKey(vd::qssFireBird), "qssFireBird");
    EXPECT_EQ(dialect.read(&IB).value<vd::TVdSQLDialect>(), vd::qibDialect3);
    EXPECT_EQ(server.read(&IB).value<vd::TVdIBSQLServer>(), vd::qssInterBase);
    EXPECT_FALSE(vd::IsPropertyStored(&IB, "SQLDialect"));
    EXPECT_FALSE(vd::IsPropertyStored(&IB, "SQLServer"));
}

TEST_F(TDialectWindowTest, DialectAndServerAreWrittenReadAndResetThroughTheMetaObject)
{
    QSignalSpy changed(&IB, &vd::TCustomVandor::sqlChanged);
    ASSERT_TRUE(IBProperty("SQLDialect").write(&IB, QVariant::fromValue(vd::qibDialect1)));
    ASSERT_TRUE(IBProperty("SQLServer").write(&IB, QStringLiteral("qssFireBird")));
    EXPECT_EQ(IB.GetSQLDialect(), vd::qibDialect1);
    EXPECT_EQ(IB.GetSQLServer(), vd::qssFireBird);
    EXPECT_EQ(static_cast<vd::TVdIBScanner&>(IB.Parser()->Scanner()).Dialect(), vd::qibDialect1);
    EXPECT_EQ(IB.IBParser()->SQLServer(), vd::qssFireBird);
    EXPECT_TRUE(vd::IsPropertyStored(&IB, "SQLDialect"));
    EXPECT_TRUE(vd::IsPropertyStored(&IB, "SQLServer"));
    EXPECT_EQ(changed.count(), 2);

    // Writing the value already held changes nothing and says nothing.
    IB.SetSQLServer(vd::qssFireBird);
    EXPECT_EQ(changed.count(), 2);

    ASSERT_TRUE(IBProperty("SQLDialect").reset(&IB));
    ASSERT_TRUE(IBProperty("SQLServer").reset(&IB));
    EXPECT_EQ(IB.GetSQLDialect(), vd::qibDialect3);
    EXPECT_EQ(IB.GetSQLServer(), vd::qssInterBase);
}

TEST_F(TDialectWindowTest, InterBaseRowsClauseFillsTheOptionsAndPrints)
{
    IB.SetSQL(QStringLiteral("SELECT A FROM T ROWS 10 TO 20 BY 2 PERCENT WITH TIES"));
    ASSERT_TRUE(IBErrors.empty());
    const vd::TVdIBOptions& options = IB.IBParser()->IBOptions();
    EXPECT_EQ(options.RowsFrom, 10);
    EXPECT_EQ(options.RowsTo, 20);
    EXPECT_EQ(options.RowsBy, 2);
    EXPECT_TRUE(options.Percent);
    EXPECT_TRUE(options.Ties);
    EXPECT_EQ(options.GetScript(), "ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
    EXPECT_EQ(IB.GetSQL().toStdString(), kInterBaseBase + "ROWS 10 TO 20 BY 2 PERCENT WITH TIES");
}

TEST_F(TDialectWindowTest, InterBaseRowsFollowedByANameFailsToParse)
{
    IB.SetSQL(QStringLiteral("SELECT A FROM T ROWS X"));
    ASSERT_EQ(IBErrors.size(), 1u);
    EXPECT_EQ(IBErrors[0].Token, "X");
    EXPECT_EQ(IBErrors[0].Message, "Invalid token 'X' at position 22 of line 1.");
}

TEST_F(TDialectWindowTest, InterBaseRowsWithFollowedByAnythingButTiesFailsToParse)
{
    IB.SetSQL(QStringLiteral("SELECT A FROM T ROWS 10 WITH LOCK"));
    ASSERT_EQ(IBErrors.size(), 1u);
    EXPECT_EQ(IBErrors[0].Token, "LOCK");
    EXPECT_EQ(IBErrors[0].Message, "Invalid token 'LOCK' at position 30 of line 1.");
}

TEST_F(TDialectWindowTest, FirebirdFirstSkipFillsTheOptionsAndPrintsAfterSelect)
{
    IB.SetSQLServer(vd::qssFireBird);
    IB.SetSQL(QStringLiteral("SELECT FIRST 5 SKIP 10 A FROM T"));
    ASSERT_TRUE(IBErrors.empty());
    EXPECT_EQ(IB.IBParser()->FBOptions().First, 5);
    EXPECT_EQ(IB.IBParser()->FBOptions().Skip, 10);
    EXPECT_EQ(IB.GetSQL().toStdString(), "SELECT FIRST 5 SKIP 10 \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST_F(TDialectWindowTest, InterBaseDoesNotTakeFirstAsAClause)
{
    IB.SetSQL(QStringLiteral("SELECT FIRST 5 A FROM T"));
    EXPECT_EQ(IB.IBParser()->FBOptions().First, 0);
    ASSERT_EQ(IBErrors.size(), 1u);
    EXPECT_EQ(IB.GetSQL().toStdString().find("FIRST 5"), std::string::npos);
}

TEST_F(TDialectWindowTest, RowsClauseWrittenForFirebirdIsLeftToTheBaseAppendix)
{
    IB.SetSQLServer(vd::qssFireBird);
    IB.SetSQL(QStringLiteral("SELECT A FROM T ROWS 5"));
    EXPECT_EQ(IB.IBParser()->IBOptions().RowsFrom, 0);
    ASSERT_EQ(IBErrors.size(), 1u);
    EXPECT_EQ(IBErrors[0].Message, "Invalid token 'ROWS' at position 17 of line 1.");
}

TEST_F(TDialectWindowTest, DialectDecidesWhatDoubleQuotesMean)
{
    IB.SetSQLDialect(vd::qibDialect1);
    IB.SetSQL(QStringLiteral("SELECT \"abc\" FROM T"));
    EXPECT_EQ(IB.GetSQL().toStdString(), "SELECT \r\n  'abc' AS FIELD_1\r\nFROM\r\n  T\r\n");
    IB.SetSQLDialect(vd::qibDialect3);
    IB.SetSQL(QStringLiteral("SELECT \"abc\" FROM T"));
    EXPECT_EQ(IB.GetSQL().toStdString(), "SELECT \r\n  T.\"abc\"\r\nFROM\r\n  T\r\n");
    EXPECT_TRUE(IBErrors.empty());
}

TEST_F(TDialectWindowTest, DialectOneTurnsANameWithBlanksIntoUpperCaseWithUnderscores)
{
    IB.SetSQLDialect(vd::qibDialect1);
    EXPECT_EQ(IB.Parser()->Scanner().ProcessName("my table"), "MY_TABLE");
    IB.SetSQL(QStringLiteral("SELECT A FROM \"my table\""));
    EXPECT_EQ(IB.GetSQL().toStdString(), "SELECT \r\n  MY_TABLE.A\r\nFROM\r\n  MY_TABLE\r\n");
}

TEST_F(TDialectWindowTest, LowerCaseIdentifierCharacterIsNotALetterForInterBase)
{
    EXPECT_FALSE(IB.Parser()->Scanner().IsAlpha('a'));
    EXPECT_FALSE(IB.Parser()->Scanner().IsAlpha('z'));
    EXPECT_TRUE(IB.Parser()->Scanner().IsAlpha('A'));
}

TEST_F(TDialectWindowTest, OptionEditHoldingAbcStoresZeroWhichPrintsNothing)
{
    IB.SetSQL(QStringLiteral("SELECT A FROM T"));
    vd::TVdIBOptionsPanel panel;
    panel.SetParser(IB.IBParser());
    panel.RowsFromEdit()->setText(QStringLiteral("12"));
    EXPECT_EQ(IB.GetSQL().toStdString(), kInterBaseBase + "ROWS 12");
    panel.RowsFromEdit()->setText(QStringLiteral("abc"));
    EXPECT_EQ(IB.IBParser()->IBOptions().RowsFrom, 0);
    EXPECT_EQ(IB.GetSQL().toStdString(), kInterBaseBase);
}

TEST_F(TDialectWindowTest, ServerChangeKeepsOptionValuesAndChangesThePrint)
{
    IB.SetSQLServer(vd::qssFireBird);
    IB.SetSQL(QStringLiteral("SELECT FIRST 3 A FROM T"));
    IB.SetSQLServer(vd::qssInterBase);
    EXPECT_EQ(IB.IBParser()->FBOptions().First, 3);
    EXPECT_EQ(IB.GetSQL().toStdString(), kInterBaseBase);
    IB.SetSQLServer(vd::qssFireBird);
    EXPECT_EQ(IB.GetSQL().toStdString(), "SELECT FIRST 3 \r\n  T.A\r\nFROM\r\n  T\r\n");
}

TEST_F(TDialectWindowTest, ServerAndDialectSurviveLoadingButOptionsDoNot)
{
    IB.SetSQLDialect(vd::qibDialect1);
    IB.SetSQL(QStringLiteral("SELECT A FROM T ROWS 4"));
    ASSERT_EQ(IB.IBParser()->IBOptions().RowsFrom, 4);
    IB.SetSQL(QStringLiteral("SELECT A FROM T"));
    EXPECT_EQ(IB.IBParser()->IBOptions().RowsFrom, 0);
    EXPECT_EQ(IB.GetSQLDialect(), vd::qibDialect1);
    EXPECT_EQ(IB.GetSQLServer(), vd::qssInterBase);
}

TEST_F(TDialectWindowTest, MySQLSelectOptionsFilterAndLimitAreReadAndPrinted)
{
    My.SetSQL(
        QStringLiteral("SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW A FROM T LIMIT 10, 20"));
    ASSERT_TRUE(MyErrors.empty());
    const vd::TVdMySQLOptions& options = My.MyParser()->MySQLOptions();
    vd::TVdMySQLSelectOptions expected;
    expected.Include(vd::mysoStraightJoin);
    expected.Include(vd::mysoSQLBigResult);
    EXPECT_TRUE(options.SelectOptions == expected);
    EXPECT_EQ(options.Filter, vd::myfoDistinctRow);
    EXPECT_EQ(options.LimitOffset, 10);
    EXPECT_EQ(options.LimitRows, 20);
    EXPECT_EQ(My.GetSQL().toStdString(),
              "SELECT STRAIGHT_JOIN SQL_BIG_RESULT DISTINCTROW \r\n  `T`.`A`\r\nFROM\r\n"
              "  `T`\r\nLIMIT 10, 20");
}

TEST_F(TDialectWindowTest, MySQLStraightJoinTwiceFailsToParse)
{
    My.SetSQL(QStringLiteral("SELECT STRAIGHT_JOIN STRAIGHT_JOIN A FROM T"));
    ASSERT_EQ(MyErrors.size(), 1u);
    EXPECT_EQ(MyErrors[0].Message, "Invalid token 'STRAIGHT_JOIN' at position 22 of line 1.");
}

TEST_F(TDialectWindowTest, MySQLLimitForms)
{
    My.SetSQL(QStringLiteral("SELECT A FROM T LIMIT 5"));
    ASSERT_TRUE(MyErrors.empty());
    EXPECT_EQ(My.MyParser()->MySQLOptions().LimitOffset, 0);
    EXPECT_EQ(My.MyParser()->MySQLOptions().LimitRows, 5);
    EXPECT_EQ(My.GetSQL().toStdString(), "SELECT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\nLIMIT 5");

    My.SetSQL(QStringLiteral("SELECT A FROM T LIMIT 5, X"));
    My.SetSQL(QStringLiteral("SELECT A FROM T LIMIT 5 X"));
    My.SetSQL(QStringLiteral("SELECT A FROM T LIMIT 5, 6 ORDER BY A"));
    ASSERT_EQ(MyErrors.size(), 3u);
    EXPECT_EQ(MyErrors[0].Message, "Invalid token 'X' at position 26 of line 1.");
    EXPECT_EQ(MyErrors[1].Message, "Invalid token 'X' at position 25 of line 1.");
    EXPECT_EQ(MyErrors[2].Message, "Invalid token 'ORDER' at position 28 of line 1.");
}

TEST_F(TDialectWindowTest, MySQLBackslashEscapedAndDoubledQuotesEachMakeOneString)
{
    My.SetSQL(QStringLiteral("SELECT A FROM T WHERE A = 'it\\'s' OR A = 'it''s'"));
    ASSERT_TRUE(MyErrors.empty());
    EXPECT_EQ(My.GetSQL().toStdString(), "SELECT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\nWHERE\r\n"
                                         "  (`A` = 'it\\'s') OR \r\n  (`A` = 'it''s')\r\n");
}

TEST_F(TDialectWindowTest, MySQLBackQuotedNameIsAnIdentifierAndDoubleQuotedTextIsNot)
{
    My.SetSQL(QStringLiteral("SELECT `my col`, \"x\" FROM T"));
    ASSERT_TRUE(MyErrors.empty());
    EXPECT_EQ(My.GetSQL().toStdString(),
              "SELECT \r\n  `T`.`my col`,\r\n  'x' AS `FIELD_1`\r\nFROM\r\n  `T`\r\n");
}

TEST_F(TDialectWindowTest, MySQLDistinctOffAfterDistinctRowLeavesNoFilter)
{
    My.SetSQL(QStringLiteral("SELECT DISTINCTROW A FROM T"));
    ASSERT_EQ(My.MyParser()->MySQLOptions().Filter, vd::myfoDistinctRow);
    EXPECT_FALSE(My.Parser()->GetDistinct());
    My.Parser()->SetDistinct(false);
    EXPECT_EQ(My.MyParser()->MySQLOptions().Filter, vd::myfoNone);
    EXPECT_EQ(My.GetSQL().toStdString(), "SELECT \r\n  `T`.`A`\r\nFROM\r\n  `T`\r\n");
}
