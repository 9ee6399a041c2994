#include "tests/engines/catalog/CatalogSuite.h"

#include "builder/VdSqlCatalog.h"

#include <QSqlError>
#include <QSqlQuery>

namespace vdengine {

// The engine suite's family of statements is linked in but run by the engine's own tests.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(EngineStatement);

namespace {

std::vector<const char*> CatalogObjects(TEngine engine)
{
    const char* trailer = engine == TEngine::MariaDB ? " ENGINE=InnoDB" : "";
    static std::string parent, child;
    parent = std::string("CREATE TABLE CAT_PARENT (A INTEGER NOT NULL, B INTEGER NOT NULL,"
                         " NAME VARCHAR(20), PRIMARY KEY (A, B))") +
             trailer;
    child = std::string("CREATE TABLE CAT_CHILD (ID INTEGER NOT NULL PRIMARY KEY, PA INTEGER,"
                        " PB INTEGER, CONSTRAINT CAT_FK FOREIGN KEY (PA, PB)"
                        " REFERENCES CAT_PARENT (A, B))") +
            trailer;
    return {parent.c_str(), child.c_str(),
            "CREATE VIEW CAT_VIEW AS SELECT ID, NAME, CITY, CREDIT_LIMIT * 2 AS DOUBLED"
            " FROM CUSTOMERS"};
}

testing::AssertionResult CreateCatalogObjects()
{
    if (testing::AssertionResult ready = SuiteDatabaseReady(); !ready)
        return ready;
    QSqlQuery query(CatalogDatabase());
    // A rerun on the same server finds them: start afresh (errors of missing objects are
    // expected here).
    for (const char* drop : {"DROP VIEW CAT_VIEW", "DROP TABLE CAT_CHILD", "DROP TABLE CAT_PARENT"})
        query.exec(QString::fromLatin1(drop));
    for (const char* statement : CatalogObjects(SuiteEngine))
        if (!query.exec(QString::fromLatin1(statement)))
            return testing::AssertionFailure() << statement << "\n"
                                               << query.lastError().text().toStdString();
    return testing::AssertionSuccess();
}

} // namespace

QSqlDatabase CatalogDatabase()
{
    return QSqlDatabase::database(SuiteDatabase().ConnectionName(), false);
}

testing::AssertionResult CatalogObjectsReady()
{
    static const testing::AssertionResult result = CreateCatalogObjects();
    return result;
}

QStringList Described(const vd::TDataSet* dataSet)
{
    if (!dataSet)
        return {QStringLiteral("<null>")};
    QStringList fields;
    for (const vd::TField& field : dataSet->Fields())
        fields << field.FieldName + QLatin1Char(':') + vd::FieldTypeName(field.DataType);
    return fields;
}

QString EngineCase(const QString& name)
{
    switch (SuiteEngine) {
    case TEngine::PostgreSQL:
        return name.toLower();
    case TEngine::Firebird:
        return name.toUpper();
    case TEngine::SQLite:
    case TEngine::MariaDB:
        break;
    }
    return name;
}

void CheckListsTheBusinessTables()
{
    ASSERT_TRUE(SuiteDatabaseReady());
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    for (const char* table :
         {"SUPPLIERS", "PRODUCTS", "CUSTOMERS", "EMPLOYEES", "ORDERS", "ORDER_LINES"})
        EXPECT_TRUE(catalog.Tables().contains(EngineCase(QString::fromLatin1(table))))
            << table << " not in " << catalog.Tables().join(QLatin1Char(',')).toStdString();
    EXPECT_FALSE(catalog.Views().contains(EngineCase(QStringLiteral("CUSTOMERS"))));
    EXPECT_TRUE(catalog.LastError().isEmpty()) << catalog.LastError().toStdString();
}

void CheckForeignKeyOfTwoColumns()
{
    ASSERT_TRUE(CatalogObjectsReady());
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    const QList<vd::TVdForeignKey> keys =
        catalog.ForeignKeys(EngineCase(QStringLiteral("CAT_CHILD")));
    ASSERT_EQ(keys.size(), 1) << catalog.LastError().toStdString();
    EXPECT_EQ(keys[0].Name, EngineCase(QStringLiteral("CAT_FK")));
    EXPECT_EQ(keys[0].Table, EngineCase(QStringLiteral("CAT_CHILD")));
    EXPECT_EQ(keys[0].Columns, (QStringList{EngineCase("PA"), EngineCase("PB")}));
    EXPECT_EQ(keys[0].RefTable, EngineCase(QStringLiteral("CAT_PARENT")));
    EXPECT_EQ(keys[0].RefColumns, (QStringList{EngineCase("A"), EngineCase("B")}));
    EXPECT_TRUE(catalog.ForeignKeys(EngineCase(QStringLiteral("CAT_PARENT"))).isEmpty());
}

void CheckViewIsListedWithItsFields(const QStringList& expected)
{
    ASSERT_TRUE(CatalogObjectsReady());
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    const QString view = EngineCase(QStringLiteral("CAT_VIEW"));
    EXPECT_TRUE(catalog.Views().contains(view)) << catalog.Views().join(',').toStdString();
    EXPECT_FALSE(catalog.Tables().contains(view));
    vd::TVdCatalogKind kind = vd::TVdCatalogKind::ckNone;
    EXPECT_EQ(catalog.Resolve(view, &kind), view);
    EXPECT_EQ(kind, vd::TVdCatalogKind::ckView);
    EXPECT_EQ(Described(catalog.DataSet(view)), expected);
}

// The builder asks with the name as the statement spells it; on PostgreSQL an unquoted
// CUSTOMERS is the table customers.
void CheckAnswersTheBuildersQuestionInAnyLetterCase()
{
    ASSERT_TRUE(SuiteDatabaseReady());
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    const vd::TVdSqlCatalog::TGetTableFields handler = catalog.Handler();
    for (const QString& name : {QStringLiteral("CUSTOMERS"), QStringLiteral("customers")}) {
        vd::TDataSet* dataSet = nullptr;
        vd::TParams* params = nullptr;
        handler(name, dataSet, params);
        ASSERT_NE(dataSet, nullptr) << name.toStdString();
        EXPECT_EQ(dataSet->Name(), EngineCase(QStringLiteral("CUSTOMERS")));
        EXPECT_EQ(dataSet->FieldCount(), 8);
        EXPECT_EQ(params, nullptr);
    }
    vd::TDataSet* dataSet = nullptr;
    vd::TParams* params = nullptr;
    handler(QStringLiteral("NO_SUCH_TABLE"), dataSet, params);
    EXPECT_EQ(dataSet, nullptr);
}

// Each engine spells the schema's column kinds its own way (BOOLEAN is TINYINT(1) on
// MariaDB, TEXT a BLOB SUB_TYPE TEXT on Firebird, NUMERIC a DECIMAL); every one of them
// must reach the same field type.
void CheckFieldTypesOfTheBusinessSchema()
{
    ASSERT_TRUE(SuiteDatabaseReady());
    const std::pair<const char*, QStringList> tables[] = {
        {"SUPPLIERS",
         {"ID:Integer", "NAME:String", "PHONE:FixedChar", "OPENS:Time", "RATING:Float",
          "STATUS:String", "ACTIVE:Boolean"}},
        {"PRODUCTS",
         {"ID:Integer", "NAME:String", "SUPPLIER_ID:Integer", "PRICE:BCD", "WEIGHT:Float",
          "STOCK:Largeint", "PICTURE:Blob"}},
        {"CUSTOMERS",
         {"ID:Integer", "NAME:String", "CITY:String", "COUNTRY:FixedChar", "CREDIT_LIMIT:BCD",
          "CREATED:Date", "ENABLED:Boolean", "NOTES:Memo"}},
        {"EMPLOYEES",
         {"ID:Integer", "FIRST_NAME:String", "LAST_NAME:String", "MANAGER_ID:Integer",
          "HIRED:DateTime", "SALARY:Float", "EXTENSION:Smallint"}},
        {"ORDERS",
         {"ID:AutoInc", "CUSTOMER_ID:Integer", "EMPLOYEE_ID:Integer", "ORDER_DATE:Date",
          "SHIPPED:DateTime", "STATE:String"}},
        {"ORDER_LINES",
         {"ORDER_ID:Integer", "LINE_NO:Smallint", "PRODUCT_ID:Integer", "QUANTITY:Integer",
          "UNIT_PRICE:BCD", "DISCOUNT:Float"}},
    };
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    for (const auto& [table, fields] : tables) {
        QStringList expected;
        for (const QString& field : fields) {
            const qsizetype colon = field.indexOf(QLatin1Char(':'));
            expected << EngineCase(field.left(colon)) + field.mid(colon);
        }
        EXPECT_EQ(Described(catalog.DataSet(EngineCase(QString::fromLatin1(table)))), expected)
            << table;
    }
    EXPECT_TRUE(catalog.LastError().isEmpty()) << catalog.LastError().toStdString();
}

// MariaDB and Firebird report the bytes of a UTF-8 column (four per character).
void CheckCharacterLengthsCountCharacters()
{
    ASSERT_TRUE(SuiteDatabaseReady());
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    const vd::TDataSet* customers = catalog.DataSet(EngineCase(QStringLiteral("CUSTOMERS")));
    ASSERT_NE(customers, nullptr);
    const vd::TField* name = customers->FindField(EngineCase(QStringLiteral("NAME")));
    const vd::TField* country = customers->FindField(EngineCase(QStringLiteral("COUNTRY")));
    const vd::TField* limit = customers->FindField(EngineCase(QStringLiteral("CREDIT_LIMIT")));
    ASSERT_TRUE(name && country && limit);
    EXPECT_EQ(name->Size, 40);
    EXPECT_TRUE(name->Required);
    EXPECT_EQ(country->Size, 2);
    EXPECT_FALSE(country->Required);
    EXPECT_EQ(limit->Size, 0);
}

// ORDERS_OF (CUST INTEGER) returns (ORDER_ID INTEGER, ORDER_DATE DATE): a Firebird
// selectable procedure, a PostgreSQL set-returning function.
void CheckAProceduresParametersAndResult()
{
    ASSERT_TRUE(SuiteDatabaseReady());
    vd::TVdSqlCatalog catalog(CatalogDatabase());
    const QString name = EngineCase(QStringLiteral("ORDERS_OF"));
    EXPECT_TRUE(catalog.Procedures().contains(name))
        << catalog.Procedures().join(',').toStdString() << catalog.LastError().toStdString();
    EXPECT_FALSE(catalog.Tables().contains(name));
    vd::TDataSet* dataSet = nullptr;
    vd::TParams* params = nullptr;
    catalog.GetTableFields(QStringLiteral("ORDERS_OF"), dataSet, params);
    EXPECT_EQ(Described(dataSet), (QStringList{EngineCase("ORDER_ID") + ":Integer",
                                               EngineCase("ORDER_DATE") + ":Date"}));
    ASSERT_NE(params, nullptr);
    ASSERT_EQ(params->Count(), 1);
    EXPECT_EQ(params->Items(0).Name(), EngineCase(QStringLiteral("CUST")));
    EXPECT_EQ(params->Items(0).ParamType(), vd::ptInput);
    EXPECT_EQ(params->Items(0).DataType(), vd::ftInteger);
    EXPECT_TRUE(params->Items(0).IsNull());
    EXPECT_TRUE(catalog.ForeignKeys(name).isEmpty());
}

} // namespace vdengine
