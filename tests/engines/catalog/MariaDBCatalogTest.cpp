// The QtSql catalogue on the private MariaDB server: names as written, information_schema,
// no procedure that FROM can name.

#include "tests/engines/catalog/CatalogSuite.h"

#include "builder/VdSqlCatalog.h"

#include <QSqlQuery>

namespace vdengine {

const TEngine SuiteEngine = TEngine::MariaDB;

VD_CATALOG_TESTS(MariaDB);

// MariaDB's procedures are CALLed, never selected from: none is offered for FROM.
TEST(MariaDBCatalog, StoredProceduresAreNotOffered)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    QSqlQuery query(CatalogDatabase());
    query.exec(QStringLiteral("DROP PROCEDURE IF EXISTS CAT_LIST"));
    ASSERT_TRUE(query.exec(QStringLiteral(
        "CREATE PROCEDURE CAT_LIST (IN X INTEGER) SELECT * FROM CUSTOMERS WHERE ID = X")));
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    EXPECT_TRUE(catalog.Procedures().isEmpty());
    EXPECT_EQ(catalog.Params(QStringLiteral("CAT_LIST")), nullptr);
}

// BOOLEAN is TINYINT(1); a wider TINYINT is a number.
TEST(MariaDBCatalog, TinyIntOfOneIsBoolean)
{
    ASSERT_TRUE(SuiteDatabaseReady());
    QSqlQuery query(CatalogDatabase());
    query.exec(QStringLiteral("DROP TABLE IF EXISTS CAT_FLAGS"));
    ASSERT_TRUE(query.exec(QStringLiteral(
        "CREATE TABLE CAT_FLAGS (F BOOLEAN, T TINYINT, M MEDIUMINT, L LONGTEXT, B VARBINARY(8),"
        " N INTEGER AUTO_INCREMENT PRIMARY KEY)")));
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    EXPECT_EQ(
        Described(catalog.DataSet(QStringLiteral("CAT_FLAGS"))),
        (QStringList{"F:Boolean", "T:Smallint", "M:Integer", "L:Memo", "B:Blob", "N:AutoInc"}));
}

} // namespace vdengine
