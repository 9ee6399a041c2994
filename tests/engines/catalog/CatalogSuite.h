#pragma once

// The QtSql catalogue on a server engine: the suite's business schema (created by the
// fixture that starts the server) plus a few objects of the catalogue's own tests: two
// tables joined by a two-column foreign key and a view.

#include "builder/VdDataSet.h"
#include "tests/engines/EngineSuite.h"

#include <QSqlDatabase>
#include <QStringList>

namespace vdengine {

QSqlDatabase CatalogDatabase();

// CAT_PARENT (A, B, NAME), CAT_CHILD (ID, PA, PB) with foreign key CAT_FK (PA, PB) to
// CAT_PARENT (A, B), and the view CAT_VIEW over CUSTOMERS; created once per process, in
// the engine's letter case for unquoted names.
testing::AssertionResult CatalogObjectsReady();

// "NAME:Type" per field, in the data set's order ("<null>" for no data set).
QStringList Described(const vd::TDataSet* dataSet);

// The name as the engine keeps an unquoted name: lower case on PostgreSQL, upper case on
// Firebird, as written on MariaDB.
QString EngineCase(const QString& name);

// What every server's catalogue must tell, whatever its system tables look like.
void CheckListsTheBusinessTables();
void CheckForeignKeyOfTwoColumns();
void CheckViewIsListedWithItsFields(const QStringList& expected);
void CheckAnswersTheBuildersQuestionInAnyLetterCase();
void CheckFieldTypesOfTheBusinessSchema();
void CheckCharacterLengthsCountCharacters();
void CheckAProceduresParametersAndResult();

} // namespace vdengine

// The tests every server's catalogue runs, named <Engine>Catalog.* so that
// `ctest -L engines -R ^<Engine>` runs them with the engine's statements.
#define VD_CATALOG_TESTS(Engine)                                                                   \
    TEST(Engine##Catalog, ListsTheBusinessTables) { CheckListsTheBusinessTables(); }               \
    TEST(Engine##Catalog, ForeignKeyOfTwoColumns) { CheckForeignKeyOfTwoColumns(); }               \
    TEST(Engine##Catalog, AnswersTheBuildersQuestionInAnyLetterCase)                               \
    {                                                                                              \
        CheckAnswersTheBuildersQuestionInAnyLetterCase();                                          \
    }                                                                                              \
    TEST(Engine##Catalog, FieldTypesOfTheBusinessSchema) { CheckFieldTypesOfTheBusinessSchema(); } \
    TEST(Engine##Catalog, CharacterLengthsCountCharacters)                                         \
    {                                                                                              \
        CheckCharacterLengthsCountCharacters();                                                    \
    }                                                                                              \
    TEST(Engine##Catalog, ViewIsListedWithItsFields)                                               \
    {                                                                                              \
        CheckViewIsListedWithItsFields(                                                            \
            {EngineCase("ID") + ":Integer", EngineCase("NAME") + ":String",                        \
             EngineCase("CITY") + ":String", EngineCase("DOUBLED") + ":BCD"});                     \
    }
