// The QtSql catalogue on the private Firebird server: names in upper case, RDB$ tables,
// selectable procedures as the procedures FROM can name.

#include "tests/engines/catalog/CatalogSuite.h"

#include "builder/VdSqlCatalog.h"

#include <QSqlQuery>

namespace vdengine {

const TEngine SuiteEngine = TEngine::Firebird;

VD_CATALOG_TESTS(Firebird);

TEST(FirebirdCatalog, SelectableProcedureWithItsInputParameter)
{
    CheckAProceduresParametersAndResult();
}

// An executable procedure (no SUSPEND) returns one row of outputs and cannot stand in FROM.
TEST(FirebirdCatalog, ExecutableProcedureIsNotListed)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    QSqlQuery query(CatalogDatabase());
    query.exec(QStringLiteral("DROP PROCEDURE CAT_TWICE"));
    ASSERT_TRUE(query.exec(QStringLiteral("CREATE PROCEDURE CAT_TWICE (X INTEGER)"
                                          " RETURNS (Y INTEGER) AS BEGIN Y = 2 * X; END")));
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    EXPECT_FALSE(catalog.Procedures().contains(QStringLiteral("CAT_TWICE")));
    EXPECT_TRUE(catalog.Procedures().contains(QStringLiteral("ORDERS_OF")));
}

TEST(FirebirdCatalog, TypeNamesOfTheSystemTables)
{
    EXPECT_EQ(vd::FirebirdTypeName(8, 0, 0), QStringLiteral("INTEGER"));
    EXPECT_EQ(vd::FirebirdTypeName(8, 1, -2), QStringLiteral("NUMERIC"));
    EXPECT_EQ(vd::FirebirdTypeName(16, 0, 0), QStringLiteral("BIGINT"));
    EXPECT_EQ(vd::FirebirdTypeName(261, 1, 0), QStringLiteral("BLOB SUB_TYPE TEXT"));
    EXPECT_EQ(vd::FirebirdTypeName(261, 0, 0), QStringLiteral("BLOB"));
    EXPECT_EQ(vd::FirebirdTypeName(999, 0, 0), QString());
}

} // namespace vdengine
