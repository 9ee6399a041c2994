#include "tests/engines/EngineMeaning.h"

#include "tests/engines/EngineSuite.h"
#include "tests/meaning/MeaningCheck.h"
#include "tests/meaning/MeaningOptions.h"

namespace vdengine {

namespace {

// The meaning runner's view of the suite's connection.
class TSuiteMeaningEngine : public vdmeaning::TEngine
{
public:
    explicit TSuiteMeaningEngine(TEngineDatabase& db) : FDb(db) {}

    bool Exec(const std::string& sql, std::string& error) override
    {
        const bool ran = FDb.Exec(sql);
        if (!ran)
            error = FDb.Error();
        return ran;
    }

    bool Query(const std::string& sql, vdmeaning::TRows& rows, std::string& error) override
    {
        const bool ran = FDb.QueryValues(sql, rows);
        if (!ran)
            error = FDb.Error();
        return ran;
    }

private:
    TEngineDatabase& FDb;
};

} // namespace

testing::AssertionResult SuiteKeepsMeaning(vdmeaning::TDialect dialect, int defaultCount)
{
    testing::AssertionResult ready = SuiteDatabaseReady();
    if (!ready)
        return ready;
    // Shrinking costs hundreds of round trips to the server per failure: a few by default.
    vdmeaning::TRunOptions defaults;
    defaults.ReduceLimit = 2;
    const vdmeaning::TRunOptions options = vdmeaning::OptionsFromEnvironment(
        dialect, defaultCount, "VD_MEANING_ENGINE_COUNT", defaults);
    TSuiteMeaningEngine engine(SuiteDatabase());
    std::string error;
    if (!vdmeaning::CreateSchema(engine, dialect, options.Seed, error))
        return testing::AssertionFailure() << error;
    return vdmeaning::MeaningKept(engine, options);
}

} // namespace vdengine
