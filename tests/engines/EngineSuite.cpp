#include "tests/engines/EngineSuite.h"

#include "core/VdSelectParser.h"
#include "tests/engines/BusinessSchema.h"

#include <QCoreApplication>

#include <algorithm>
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

std::unique_ptr<TEngineDatabase> OpenSuiteDatabase()
{
    auto db = std::make_unique<TEngineDatabase>(SuiteEngine);
    if (!db->Open()) {
        SuiteError() = db->Error();
        return db;
    }
    for (const std::string& statement : SchemaStatements(SuiteEngine))
        if (!db->Exec(statement)) {
            SuiteError() = "creating the schema failed at\n  " + statement + "\n" + db->Error();
            break;
        }
    return db;
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
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
