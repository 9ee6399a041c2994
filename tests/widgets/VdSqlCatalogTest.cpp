// The QtSql catalogue on an embedded SQLite database: object lists, field types as the
// declared types give them, foreign keys, name resolution and the builder's question.

#include "builder/VdSqlCatalog.h"
#include "builder/VdSqlFieldTypes.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

using namespace vd;

namespace {

const char* const Schema[] = {
    "CREATE TABLE SUPPLIERS (ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40) NOT NULL,"
    " PHONE CHAR(12), OPENS TIME, RATING FLOAT, ACTIVE BOOLEAN)",
    "CREATE TABLE PRODUCTS (ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40),"
    " SUPPLIER_ID INTEGER REFERENCES SUPPLIERS (ID), PRICE NUMERIC(10,2), WEIGHT DOUBLE,"
    " STOCK BIGINT, PICTURE BLOB, NOTES TEXT, ADDED DATE, CHANGED TIMESTAMP, SHELF SMALLINT)",
    "CREATE TABLE ORDERS (ID INTEGER PRIMARY KEY AUTOINCREMENT, PLACED DATETIME)",
    "CREATE TABLE LINES (ORDER_ID INTEGER NOT NULL, LINE_NO SMALLINT NOT NULL,"
    " PRODUCT_ID INTEGER, PRIMARY KEY (ORDER_ID, LINE_NO),"
    " FOREIGN KEY (ORDER_ID) REFERENCES ORDERS (ID),"
    " FOREIGN KEY (PRODUCT_ID) REFERENCES PRODUCTS)",
    "CREATE TABLE SPLITS (ORDER_ID INTEGER, LINE_NO SMALLINT, PART INTEGER,"
    " CONSTRAINT SPLIT_LINE FOREIGN KEY (ORDER_ID, LINE_NO) REFERENCES LINES (ORDER_ID, LINE_NO))",
    "CREATE TABLE \"odd name\" (\"my col\" VARCHAR(5))",
    "CREATE VIEW CHEAP AS SELECT ID, NAME, PRICE, PRICE * 2 AS DOUBLED FROM PRODUCTS"
    " WHERE PRICE < 10",
};

class VdSqlCatalog : public testing::Test
{
protected:
    void SetUp() override
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), Connection());
        db.setDatabaseName(QStringLiteral(":memory:"));
        ASSERT_TRUE(db.open()) << db.lastError().text().toStdString();
        QSqlQuery query(db);
        for (const char* statement : Schema)
            ASSERT_TRUE(query.exec(QString::fromLatin1(statement)))
                << statement << "\n"
                << query.lastError().text().toStdString();
    }

    void TearDown() override { QSqlDatabase::removeDatabase(Connection()); }

    static QString Connection() { return QStringLiteral("catalog-test"); }
    static QSqlDatabase Database() { return QSqlDatabase::database(Connection()); }

    // "NAME:Type" per field, in the data set's order.
    static QStringList Described(const TDataSet* dataSet)
    {
        QStringList fields;
        for (const TField& field : dataSet->Fields())
            fields << field.FieldName + QLatin1Char(':') + FieldTypeName(field.DataType);
        return fields;
    }
};

} // namespace

TEST_F(VdSqlCatalog, ListsTablesAndViewsWithoutSQLiteBookkeeping)
{
    TVdSqlCatalog catalog(Database());
    EXPECT_EQ(catalog.Engine(), TVdSqlEngine::SQLite);
    QStringList tables = catalog.Tables();
    tables.sort();
    EXPECT_EQ(tables,
              (QStringList{"LINES", "ORDERS", "PRODUCTS", "SPLITS", "SUPPLIERS", "odd name"}));
    EXPECT_EQ(catalog.Views(), QStringList{"CHEAP"});
    EXPECT_TRUE(catalog.Procedures().isEmpty());
}

TEST_F(VdSqlCatalog, FieldTypesFollowTheDeclaredTypes)
{
    TVdSqlCatalog catalog(Database());
    EXPECT_EQ(Described(catalog.DataSet(QStringLiteral("SUPPLIERS"))),
              (QStringList{"ID:Integer", "NAME:String", "PHONE:FixedChar", "OPENS:Time",
                           "RATING:Float", "ACTIVE:Boolean"}));
    EXPECT_EQ(Described(catalog.DataSet(QStringLiteral("PRODUCTS"))),
              (QStringList{"ID:Integer", "NAME:String", "SUPPLIER_ID:Integer", "PRICE:BCD",
                           "WEIGHT:Float", "STOCK:Largeint", "PICTURE:Blob", "NOTES:Memo",
                           "ADDED:Date", "CHANGED:DateTime", "SHELF:Smallint"}));
    EXPECT_EQ(Described(catalog.DataSet(QStringLiteral("ORDERS"))),
              (QStringList{"ID:AutoInc", "PLACED:DateTime"}));
}

TEST_F(VdSqlCatalog, RequiredFollowsNotNull)
{
    TVdSqlCatalog catalog(Database());
    const TDataSet* products = catalog.DataSet(QStringLiteral("PRODUCTS"));
    ASSERT_NE(products, nullptr);
    EXPECT_TRUE(products->FindField(QStringLiteral("ID"))->Required);
    EXPECT_FALSE(products->FindField(QStringLiteral("NAME"))->Required);
}

// An expression column of a view has no declared type: the driver's value type decides.
TEST_F(VdSqlCatalog, ViewColumnsWithoutDeclaredTypeFallBackToTheDriversType)
{
    TVdSqlCatalog catalog(Database());
    EXPECT_EQ(Described(catalog.DataSet(QStringLiteral("CHEAP"))),
              (QStringList{"ID:Integer", "NAME:String", "PRICE:BCD", "DOUBLED:String"}));
}

TEST_F(VdSqlCatalog, ForeignKeysWithOneAndTwoColumns)
{
    TVdSqlCatalog catalog(Database());
    const QList<TVdForeignKey> products = catalog.ForeignKeys(QStringLiteral("PRODUCTS"));
    ASSERT_EQ(products.size(), 1);
    EXPECT_EQ(products[0].Table, QStringLiteral("PRODUCTS"));
    EXPECT_EQ(products[0].Columns, QStringList{"SUPPLIER_ID"});
    EXPECT_EQ(products[0].RefTable, QStringLiteral("SUPPLIERS"));
    EXPECT_EQ(products[0].RefColumns, QStringList{"ID"});

    const QList<TVdForeignKey> splits = catalog.ForeignKeys(QStringLiteral("SPLITS"));
    ASSERT_EQ(splits.size(), 1);
    EXPECT_EQ(splits[0].Columns, (QStringList{"ORDER_ID", "LINE_NO"}));
    EXPECT_EQ(splits[0].RefTable, QStringLiteral("LINES"));
    EXPECT_EQ(splits[0].RefColumns, (QStringList{"ORDER_ID", "LINE_NO"}));
}

// REFERENCES PRODUCTS without a column list means the referenced table's primary key.
TEST_F(VdSqlCatalog, ForeignKeyWithoutColumnsNamesThePrimaryKey)
{
    TVdSqlCatalog catalog(Database());
    QList<TVdForeignKey> lines = catalog.ForeignKeys(QStringLiteral("LINES"));
    ASSERT_EQ(lines.size(), 2);
    std::sort(lines.begin(), lines.end(), [](const TVdForeignKey& a, const TVdForeignKey& b) {
        return a.RefTable < b.RefTable;
    });
    EXPECT_EQ(lines[0].RefTable, QStringLiteral("ORDERS"));
    EXPECT_EQ(lines[0].RefColumns, QStringList{"ID"});
    EXPECT_EQ(lines[1].RefTable, QStringLiteral("PRODUCTS"));
    EXPECT_EQ(lines[1].Columns, QStringList{"PRODUCT_ID"});
    EXPECT_EQ(lines[1].RefColumns, QStringList{"ID"});
}

TEST_F(VdSqlCatalog, ViewsAndUnknownNamesHaveNoForeignKeys)
{
    TVdSqlCatalog catalog(Database());
    EXPECT_TRUE(catalog.ForeignKeys(QStringLiteral("CHEAP")).isEmpty());
    EXPECT_TRUE(catalog.ForeignKeys(QStringLiteral("NOWHERE")).isEmpty());
}

TEST_F(VdSqlCatalog, ResolvesExactlyThenUnquotedThenIgnoringCase)
{
    TVdSqlCatalog catalog(Database());
    TVdCatalogKind kind = TVdCatalogKind::ckNone;
    EXPECT_EQ(catalog.Resolve(QStringLiteral("PRODUCTS"), &kind), QStringLiteral("PRODUCTS"));
    EXPECT_EQ(kind, TVdCatalogKind::ckTable);
    EXPECT_EQ(catalog.Resolve(QStringLiteral("\"odd name\""), &kind), QStringLiteral("odd name"));
    EXPECT_EQ(catalog.Resolve(QStringLiteral("`PRODUCTS`")), QStringLiteral("PRODUCTS"));
    EXPECT_EQ(catalog.Resolve(QStringLiteral("cheap"), &kind), QStringLiteral("CHEAP"));
    EXPECT_EQ(kind, TVdCatalogKind::ckView);
    EXPECT_EQ(catalog.Resolve(QStringLiteral("NOWHERE"), &kind), QString());
    EXPECT_EQ(kind, TVdCatalogKind::ckNone);
}

TEST_F(VdSqlCatalog, AnswersTheBuildersQuestion)
{
    TVdSqlCatalog catalog(Database());
    const TVdSqlCatalog::TGetTableFields handler = catalog.Handler();
    TDataSet* dataSet = nullptr;
    TParams stale;
    TParams* params = &stale; // a table has none: the answer resets it
    handler(QStringLiteral("products"), dataSet, params);
    ASSERT_NE(dataSet, nullptr);
    EXPECT_EQ(dataSet->Name(), QStringLiteral("PRODUCTS"));
    EXPECT_EQ(dataSet->FieldCount(), 11);
    EXPECT_EQ(params, nullptr);
    // The same object answers again: the builder may keep the pointer.
    TDataSet* again = nullptr;
    handler(QStringLiteral("PRODUCTS"), again, params);
    EXPECT_EQ(again, dataSet);
}

TEST_F(VdSqlCatalog, UnknownTableGetsNoDataSet)
{
    TVdSqlCatalog catalog(Database());
    TDataSet* dataSet = nullptr;
    TParams* params = nullptr;
    catalog.GetTableFields(QStringLiteral("NOWHERE"), dataSet, params);
    EXPECT_EQ(dataSet, nullptr);
    EXPECT_EQ(params, nullptr);
}

// Data sets handed out stay where they are and are refilled from the changed table.
TEST_F(VdSqlCatalog, RefreshRefillsDataSetsInPlace)
{
    TVdSqlCatalog catalog(Database());
    TDataSet* orders = catalog.DataSet(QStringLiteral("ORDERS"));
    ASSERT_NE(orders, nullptr);
    QSqlQuery query(Database());
    ASSERT_TRUE(query.exec(QStringLiteral("ALTER TABLE ORDERS ADD COLUMN NOTE TEXT")));
    ASSERT_TRUE(query.exec(QStringLiteral("CREATE TABLE LATER (X INTEGER)")));
    EXPECT_FALSE(catalog.Tables().contains(QStringLiteral("LATER")));
    catalog.Refresh();
    EXPECT_TRUE(catalog.Tables().contains(QStringLiteral("LATER")));
    EXPECT_EQ(catalog.DataSet(QStringLiteral("ORDERS")), orders);
    EXPECT_EQ(Described(orders), (QStringList{"ID:AutoInc", "PLACED:DateTime", "NOTE:Memo"}));
}

TEST(VdSqlFieldTypes, DeclaredTypesOfEveryEngine)
{
    const std::vector<std::pair<const char*, TFieldType>> cases = {
        {"INTEGER", ftInteger},
        {"int4", ftInteger},
        {"mediumint(9)", ftInteger},
        {"smallint", ftSmallint},
        {"tinyint(4)", ftSmallint},
        {"tinyint(1)", ftBoolean},
        {"bigint(20)", ftLargeint},
        {"BOOLEAN", ftBoolean},
        {"numeric(12,2)", ftBCD},
        {"decimal(10,2)", ftBCD},
        {"money", ftCurrency},
        {"double precision", ftFloat},
        {"REAL", ftFloat},
        {"float", ftFloat},
        {"character varying", ftString},
        {"varchar(40)", ftString},
        {"character", ftFixedChar},
        {"char(2)", ftFixedChar},
        {"text", ftMemo},
        {"BLOB SUB_TYPE TEXT", ftMemo},
        {"longtext", ftMemo},
        {"bytea", ftBlob},
        {"BLOB", ftBlob},
        {"varbinary(16)", ftBlob},
        {"date", ftDate},
        {"time without time zone", ftTime},
        {"TIMESTAMP", ftDateTime},
        {"timestamp with time zone", ftDateTime},
        {"datetime", ftDateTime},
        {"uuid", ftGuid},
        {"integer identity", ftAutoInc},
        {"int(11) auto_increment", ftAutoInc},
        {"serial", ftAutoInc},
        {"INTEGER autoincrement", ftAutoInc},
        {"interval", ftUnknown},
        {"json", ftUnknown},
        {"", ftUnknown},
    };
    for (const auto& [declared, expected] : cases)
        EXPECT_EQ(FieldTypeFromDeclared(QString::fromLatin1(declared)), expected) << declared;
}

TEST(VdSqlFieldTypes, DriverValueTypes)
{
    EXPECT_EQ(FieldTypeFromMetaType(QMetaType(QMetaType::Int)), ftInteger);
    EXPECT_EQ(FieldTypeFromMetaType(QMetaType(QMetaType::LongLong)), ftLargeint);
    EXPECT_EQ(FieldTypeFromMetaType(QMetaType(QMetaType::Double)), ftFloat);
    EXPECT_EQ(FieldTypeFromMetaType(QMetaType(QMetaType::QDateTime)), ftDateTime);
    EXPECT_EQ(FieldTypeFromMetaType(QMetaType(QMetaType::QByteArray)), ftBlob);
    EXPECT_EQ(FieldTypeFromMetaType(QMetaType(QMetaType::QString)), ftString);
    EXPECT_EQ(FieldTypeFromMetaType(QMetaType()), ftUnknown);
}
