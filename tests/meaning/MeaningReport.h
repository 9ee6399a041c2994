#pragma once

// Texts of a meaning run: the counts, and the failing statements grouped by shape with their
// smallest examples.

#include "tests/meaning/MeaningRunner.h"

#include <string>

namespace vdmeaning {

std::string FormatCounts(const TSummary& summary, const TRunOptions& options, int topRefusals);

// One failure: outcome, text as written, the print, what differs.
std::string FormatFailure(const TFailure& failure, bool small);

// Every failure in the order found, each with its smallest form when it was shrunk.
std::string FormatChanged(const TSummary& summary);

// Every failure, grouped by shape, each group led by its smallest examples.
std::string FormatFailures(const TSummary& summary, const TRunOptions& options);

} // namespace vdmeaning
