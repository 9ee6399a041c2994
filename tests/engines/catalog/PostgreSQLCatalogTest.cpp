// The QtSql catalogue on the private PostgreSQL server: names folded to lower case,
// set-returning functions as the procedures FROM can name.

#include "tests/engines/catalog/CatalogSuite.h"

#include "builder/VdSqlCatalog.h"

#include <QSqlQuery>

namespace vdengine {

const TEngine SuiteEngine = TEngine::PostgreSQL;

VD_CATALOG_TESTS(PostgreSQL);

TEST(PostgreSQLCatalog, SetReturningFunctionWithItsInputParameter)
{
    CheckAProceduresParametersAndResult();
}

// A function that returns one value cannot stand in FROM as a row source of the builder.
TEST(PostgreSQLCatalog, ScalarFunctionIsNoProcedure)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    QSqlQuery query(CatalogDatabase());
    ASSERT_TRUE(query.exec(QStringLiteral("CREATE OR REPLACE FUNCTION CAT_TWICE(X INTEGER)"
                                          " RETURNS INTEGER AS 'SELECT 2 * $1' LANGUAGE SQL")));
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    EXPECT_FALSE(catalog.Procedures().contains(QStringLiteral("cat_twice")));
    EXPECT_EQ(catalog.Resolve(QStringLiteral("CAT_TWICE")), QString());
}

// RETURNS SETOF a table: the result columns are the table's.
TEST(PostgreSQLCatalog, FunctionReturningSetOfATable)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    QSqlQuery query(CatalogDatabase());
    ASSERT_TRUE(query.exec(QStringLiteral(
        "CREATE OR REPLACE FUNCTION CAT_SUPPLIERS_FROM(FIRST_ID INTEGER) RETURNS SETOF SUPPLIERS"
        " AS 'SELECT * FROM SUPPLIERS WHERE ID >= $1' LANGUAGE SQL")));
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    EXPECT_TRUE(catalog.Procedures().contains(QStringLiteral("cat_suppliers_from")));
    EXPECT_EQ(Described(catalog.DataSet(QStringLiteral("CAT_SUPPLIERS_FROM"))),
              (QStringList{"id:Integer", "name:String", "phone:FixedChar", "opens:Time",
                           "rating:Float", "status:String", "active:Boolean"}));
    const vd::TParams* params = catalog.Params(QStringLiteral("cat_suppliers_from"));
    ASSERT_NE(params, nullptr);
    ASSERT_EQ(params->Count(), 1);
    EXPECT_EQ(params->Items(0).Name(), QStringLiteral("first_id"));
    EXPECT_EQ(params->Items(0).ParamType(), vd::ptInput);
}

} // namespace vdengine
