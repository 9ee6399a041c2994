#include "tests/meaning/MeaningCheck.h"

#include "tests/meaning/MeaningReport.h"

#include <cstdlib>
#include <fstream>

namespace vdmeaning {

testing::AssertionResult MeaningKept(TEngine& engine, const TRunOptions& options)
{
    const TSummary summary = RunMeaning(engine, options);
    const std::string counts = FormatCounts(summary, options, 8);
    std::printf("%s", counts.c_str());
    if (const char* path = std::getenv("VD_MEANING_FAILURES"))
        std::ofstream(path, std::ios::binary) << FormatFailures(summary, options);
    // Refusals are the parser's right (counted and listed, never failures).
    const bool kept = summary.Changed == 0 && summary.Internal == 0 && summary.OriginalFails == 0;
    if (kept)
        return testing::AssertionSuccess();
    testing::AssertionResult result = testing::AssertionFailure();
    result << counts << "required: changed 0, internal errors 0, generator faults 0\n";
    int listed = 0;
    for (const TFailure& failure : summary.Failures) {
        if (++listed > 20)
            break;
        result << "\n#" << listed << " [" << failure.Shape << "] " << FormatFailure(failure, false);
        if (failure.Reduced && failure.SmallCheck.Text != failure.Check.Text)
            result << "  smallest form that fails the same way: " << FormatFailure(failure, true);
    }
    return result;
}

} // namespace vdmeaning
