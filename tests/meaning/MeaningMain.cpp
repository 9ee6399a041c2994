// vd_meaning: runs generated statements on SQLite as written and as the generic parser prints
// them, prints the counts, the top refusals and every failing statement (--quiet: counts
// only), and writes the failures, grouped by shape, to a file.
//   vd_meaning [--count N] [--seed S] [--reduce N] [--top N] [--quiet] [FAILURES_FILE]
// --reduce N shrinks the first N failures to their smallest failing form (100).

#include "tests/meaning/MeaningReport.h"
#include "tests/meaning/SQLiteEngine.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

using namespace vdmeaning;

namespace {

int Usage()
{
    std::fprintf(stderr, "usage: vd_meaning [--count N] [--seed S] [--reduce N] [--top N] "
                         "[--quiet] [FAILURES_FILE]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    TRunOptions options;
    options.ReduceLimit = 100;
    int top = 15;
    bool quiet = false;
    std::string failuresPath;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--count" && hasValue)
            options.Count = std::atoi(argv[++i]);
        else if (arg == "--seed" && hasValue)
            options.Seed = std::uint32_t(std::strtoul(argv[++i], nullptr, 10));
        else if (arg == "--reduce" && hasValue)
            options.ReduceLimit = std::atoi(argv[++i]);
        else if (arg == "--top" && hasValue)
            top = std::atoi(argv[++i]);
        else if (arg == "--quiet")
            quiet = true;
        else if (arg.empty() || arg[0] == '-' || !failuresPath.empty())
            return Usage();
        else
            failuresPath = arg;
    }
    if (options.Count < 1 || options.ReduceLimit < 0)
        return Usage();
    TSQLiteEngine engine;
    std::string error;
    if (!CreateSchema(engine, options.Dialect, options.Seed, error)) {
        std::fprintf(stderr, "vd_meaning: %s\n", error.c_str());
        return 1;
    }
    const TSummary summary = RunMeaning(engine, options);
    std::printf("%s", FormatCounts(summary, options, top).c_str());
    if (!quiet)
        std::printf("%s", FormatChanged(summary).c_str());
    if (!failuresPath.empty()) {
        std::ofstream out(failuresPath, std::ios::binary);
        out << FormatFailures(summary, options);
        if (!out) {
            std::fprintf(stderr, "vd_meaning: cannot write %s\n", failuresPath.c_str());
            return 1;
        }
        std::printf("failures written to %s\n", failuresPath.c_str());
    }
    return summary.Changed || summary.Internal || summary.OriginalFails ? 1 : 0;
}
