// The demo's database side: the sample database made from its script, script splitting,
// database URLs and the command line.

#include "VdDemoDatabase.h"
#include "VdDemoFixture.h"
#include "VdDemoOptions.h"

#include <QSqlQuery>

#include <gtest/gtest.h>

using namespace vd;
using vd::test::VdDemoFixture;

namespace {

int Count(const QString& sql)
{
    QSqlQuery query(QSqlDatabase::database(QStringLiteral("demo-test")));
    if (!query.exec(sql) || !query.next())
        return -1;
    return query.value(0).toInt();
}

} // namespace

using VdSampleDatabase = VdDemoFixture;

TEST_F(VdSampleDatabase, HasEightTablesWithForeignKeysAndAFewHundredRows)
{
    QStringList tables = Catalog->Tables();
    tables.sort();
    EXPECT_EQ(tables, (QStringList{"CATEGORIES", "CUSTOMERS", "EMPLOYEES", "ORDERS", "ORDER_LINES",
                                   "PRODUCTS", "SHIPPERS", "SUPPLIERS"}));
    EXPECT_EQ(Catalog->Views(), (QStringList{"ORDER_TOTALS", "PRODUCT_SALES"}));
    int keys = 0;
    for (const QString& table : Catalog->Tables())
        keys += int(Catalog->ForeignKeys(table).size());
    EXPECT_EQ(keys, 8);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM CUSTOMERS")), 60);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM ORDERS")), 320);
    EXPECT_GT(Count(QStringLiteral("SELECT COUNT(*) FROM ORDER_LINES")), 500);
}

TEST_F(VdSampleDatabase, EveryForeignKeyHoldsAndIsEnforced)
{
    QSqlQuery query(QSqlDatabase::database(Connection()));
    ASSERT_TRUE(query.exec(QStringLiteral("PRAGMA foreign_key_check")));
    EXPECT_FALSE(query.next()) << "row of " << query.value(0).toString().toStdString()
                               << " breaks a foreign key";
    EXPECT_FALSE(query.exec(QStringLiteral("INSERT INTO ORDERS (CUSTOMER_ID, ORDER_DATE, STATUS) "
                                           "VALUES (999, '2024-01-01', 'OPEN')")));
}

TEST_F(VdSampleDatabase, AnExistingFileIsOpenedNotRebuilt)
{
    QSqlQuery(QSqlDatabase::database(Connection()))
        .exec(QStringLiteral("DELETE FROM ORDER_LINES WHERE ORDER_ID = 1"));
    TearDown();
    QString error;
    QString created;
    ASSERT_TRUE(
        OpenDemoDatabase(QStringLiteral("sqlite:") + Path(), Connection(), error, &created));
    EXPECT_TRUE(created.isEmpty());
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM ORDER_LINES WHERE ORDER_ID = 1")), 0);
}

TEST(VdSqlScript, SplitsAtSemicolonsOutsideStringsNamesAndComments)
{
    const QString script = QStringLiteral("-- a; comment\nCREATE TABLE \"A;B\" (X TEXT);\n"
                                          "INSERT INTO \"A;B\" VALUES ('1;2'); /* ; */\n"
                                          "INSERT INTO \"A;B\" VALUES ('it''s');\n;\n");
    EXPECT_EQ(SplitSqlScript(script),
              (QStringList{"CREATE TABLE \"A;B\" (X TEXT)", "INSERT INTO \"A;B\" VALUES ('1;2')",
                           "INSERT INTO \"A;B\" VALUES ('it''s')"}));
}

TEST(VdDatabaseUrl, ReadsEachScheme)
{
    TVdDatabaseUrl url;
    QString error;
    ASSERT_TRUE(ParseDatabaseUrl(QStringLiteral("sqlite:/tmp/x.sqlite"), url, error));
    EXPECT_EQ(url.Driver, QStringLiteral("QSQLITE"));
    EXPECT_EQ(url.Database, QStringLiteral("/tmp/x.sqlite"));
    ASSERT_TRUE(
        ParseDatabaseUrl(QStringLiteral("postgresql://ann:pw@127.0.0.1:5433/shop"), url, error));
    EXPECT_EQ(url.Driver, QStringLiteral("QPSQL"));
    EXPECT_EQ(url.Host, QStringLiteral("127.0.0.1"));
    EXPECT_EQ(url.Port, 5433);
    EXPECT_EQ(url.User, QStringLiteral("ann"));
    EXPECT_EQ(url.Password, QStringLiteral("pw"));
    EXPECT_EQ(url.Database, QStringLiteral("shop"));
    ASSERT_TRUE(ParseDatabaseUrl(QStringLiteral("mariadb://root@localhost/shop"), url, error));
    EXPECT_EQ(url.Driver, QStringLiteral("QMYSQL"));
    EXPECT_EQ(url.Port, -1);
    ASSERT_TRUE(
        ParseDatabaseUrl(QStringLiteral("firebird://sysdba@host:3050/data/shop.fdb"), url, error));
    EXPECT_EQ(url.Driver, QStringLiteral("QIBASE"));
    EXPECT_EQ(url.Database, QStringLiteral("/data/shop.fdb"));
}

TEST(VdDatabaseUrl, RefusesUnknownSchemesAndMissingDatabases)
{
    TVdDatabaseUrl url;
    QString error;
    EXPECT_FALSE(ParseDatabaseUrl(QStringLiteral("oracle://x/y"), url, error));
    EXPECT_TRUE(error.startsWith(QStringLiteral("cannot read the database URL 'oracle://x/y'")));
    EXPECT_FALSE(ParseDatabaseUrl(QStringLiteral("postgresql://127.0.0.1/"), url, error));
    EXPECT_EQ(error,
              QStringLiteral("the database URL 'postgresql://127.0.0.1/' names no database"));
    EXPECT_FALSE(ParseDatabaseUrl(QStringLiteral("sqlite:"), url, error));
}

TEST(VdDemoOptions, ReadsEveryOption)
{
    TVdDemoOptions options;
    QString error;
    ASSERT_TRUE(
        ParseDemoOptions({"--db", "sqlite:/x", "--dialect=mysql", "--sql", "q.sql", "--print-sql",
                          "--screenshot", "s.png", "--size", "800x600", "--page", "sorting"},
                         options, error))
        << error.toStdString();
    EXPECT_EQ(options.Database, QStringLiteral("sqlite:/x"));
    EXPECT_EQ(options.Dialect, QStringLiteral("mysql"));
    EXPECT_EQ(options.SqlFile, QStringLiteral("q.sql"));
    EXPECT_TRUE(options.PrintSql);
    EXPECT_EQ(options.Screenshot, QStringLiteral("s.png"));
    EXPECT_EQ(options.Size, QSize(800, 600));
    EXPECT_EQ(options.Page, 3);
}

TEST(VdDemoOptions, RefusesUnknownOptionsAndBadValues)
{
    TVdDemoOptions options;
    QString error;
    EXPECT_FALSE(ParseDemoOptions({"--frobnicate"}, options, error));
    EXPECT_EQ(error, QStringLiteral("unknown option '--frobnicate'"));
    EXPECT_FALSE(ParseDemoOptions({"--sql"}, options, error));
    EXPECT_EQ(error, QStringLiteral("--sql needs a value"));
    EXPECT_FALSE(ParseDemoOptions({"--page", "joins"}, options, error));
    EXPECT_FALSE(ParseDemoOptions({"--size", "800"}, options, error));
    EXPECT_FALSE(ParseDemoOptions({"--print-sql=yes"}, options, error));
}
