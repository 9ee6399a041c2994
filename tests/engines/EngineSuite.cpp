#include "tests/engines/EngineSuite.h"

#include "core/VdSelectParser.h"
#include "tests/engines/BusinessSchema.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <memory>

namespace vdengine {

namespace {

std::string& SuiteError()
{
    static std::string error;
    return error;
}

std::vector<std::pair<QString, QString>> QtParams(const TFamilyStatement& entry)
{
    std::vector<std::pair<QString, QString>> params;
    for (const auto& [name, value] : entry.Params)
        params.emplace_back(QString::fromStdString(name), QString::fromStdString(value));
    return params;
}

bool CreateSchema(TEngineDatabase& db)
{
    for (const std::string& statement : SchemaStatements(db.Engine()))
        if (!db.Exec(statement)) {
            SuiteError() = "creating the schema failed at\n  " + statement + "\n" + db.Error();
            return false;
        }
    return true;
}

// A server's schema is created once, by the fixture that starts the server; SQLite's lives
// in the memory of each test process.
std::unique_ptr<TEngineDatabase> OpenSuiteDatabase()
{
    auto db = std::make_unique<TEngineDatabase>(SuiteEngine);
    if (!db->Open())
        SuiteError() = db->Error();
    else if (SuiteEngine == TEngine::SQLite)
        CreateSchema(*db);
    return db;
}

// The fixture's step: --vd-create-schema fills the server the tests will use.
int CreateServerSchema()
{
    TEngineDatabase db(SuiteEngine);
    if (!db.Open() || !CreateSchema(db)) {
        fprintf(stderr, "%s: %s\n", EngineName(SuiteEngine),
                SuiteError().empty() ? db.Error().c_str() : SuiteError().c_str());
        return 1;
    }
    return 0;
}

} // namespace

TEngineDatabase& SuiteDatabase()
{
    static std::unique_ptr<TEngineDatabase> db = OpenSuiteDatabase();
    return *db;
}

testing::AssertionResult SuiteDatabaseReady()
{
    SuiteDatabase();
    if (!SuiteError().empty())
        return testing::AssertionFailure() << EngineName(SuiteEngine) << ": " << SuiteError();
    return testing::AssertionSuccess();
}

testing::AssertionResult PrintFor(TEngine engine, const TFamilyStatement& entry,
                                  std::string& printed)
{
    std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(engine, entry);
    try {
        if (entry.Build)
            entry.Build(*parser);
        else
            parser->SetExpression(entry.Text);
    } catch (const std::exception& e) {
        return testing::AssertionFailure() << "the text is refused: " << e.what();
    }
    printed = parser->GetExpression();
    std::unique_ptr<vd::TVdSelectParser> again = CreateParser(engine, entry);
    again->SetScriptFormat(parser->ScriptFormat());
    try {
        again->SetExpression(printed);
    } catch (const std::exception& e) {
        return testing::AssertionFailure() << "the print does not read back: " << e.what() << "\n"
                                           << printed;
    }
    const std::string reprinted = again->GetExpression();
    if (reprinted != printed)
        return testing::AssertionFailure() << "the print reads back as another statement:\n"
                                           << printed << "\n---\n"
                                           << reprinted;
    return testing::AssertionSuccess();
}

testing::AssertionResult Runs(const TFamilyStatement& entry, const std::string& sql, TRows& rows)
{
    TEngineDatabase& db = SuiteDatabase();
    if (!db.Query(sql, QtParams(entry), rows))
        return testing::AssertionFailure() << EngineName(db.Engine()) << " refused\n"
                                           << sql << "\n"
                                           << db.Error();
    return testing::AssertionSuccess();
}

testing::AssertionResult Refuses(const TFamilyStatement& entry, const std::string& sql,
                                 const std::string& messagePart)
{
    TEngineDatabase& db = SuiteDatabase();
    TRows rows;
    if (db.Query(sql, QtParams(entry), rows))
        return testing::AssertionFailure() << EngineName(db.Engine()) << " now accepts\n"
                                           << sql << "\n(" << rows.size() << " rows)";
    if (db.Error().find(messagePart) == std::string::npos)
        return testing::AssertionFailure() << EngineName(db.Engine()) << " refused\n"
                                           << sql << "\nwith another message: " << db.Error();
    return testing::AssertionSuccess();
}

testing::AssertionResult RowCounts(const TFamilyStatement& entry, const std::string& printed,
                                   size_t printedRows, size_t referenceRows)
{
    TRows rows, reference;
    testing::AssertionResult ran = Runs(entry, printed, rows);
    if (!ran)
        return ran;
    ran = Runs(entry, entry.ReferenceSql(), reference);
    if (!ran)
        return ran;
    if (rows.size() != printedRows || reference.size() != referenceRows)
        return testing::AssertionFailure()
               << "the print returns " << rows.size() << " rows (expected " << printedRows
               << "), the reference " << reference.size() << " (expected " << referenceRows << ")\n"
               << printed;
    return testing::AssertionSuccess();
}

// The printed statement runs and returns the rows of the hand-written reference (compared
// as sorted lists: ORDER BY is checked by running, the order of equal keys is the engine's).
TEST_P(EngineStatement, RunsAndMatchesReference)
{
    const TFamilyStatement& entry = GetParam();
    ASSERT_TRUE(SuiteDatabaseReady());
    std::string printed;
    ASSERT_TRUE(PrintFor(SuiteEngine, entry, printed));
    TRows expected;
    ASSERT_TRUE(Runs(entry, entry.ReferenceSql(), expected)) << "(the reference)";
    ASSERT_FALSE(expected.empty()) << "the reference returns no row:\n" << entry.ReferenceSql();
    TRows actual;
    ASSERT_TRUE(Runs(entry, printed, actual));
    std::sort(expected.begin(), expected.end());
    std::sort(actual.begin(), actual.end());
    EXPECT_EQ(actual, expected) << printed;
}

} // namespace vdengine

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc == 2 && std::string(argv[1]) == "--vd-create-schema")
        return vdengine::CreateServerSchema();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
