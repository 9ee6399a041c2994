#include "tests/meaning/MeaningReport.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

namespace vdmeaning {

namespace {

std::string Lines(std::string text)
{
    std::string out;
    for (char c : text)
        if (c != '\r')
            out += c;
    return out;
}

std::string Indented(const std::string& text)
{
    std::string out = "    ";
    for (char c : Lines(text)) {
        out += c;
        if (c == '\n')
            out += "    ";
    }
    return out;
}

} // namespace

std::string FormatCounts(const TSummary& summary, const TRunOptions& options, int topRefusals)
{
    char percent[32];
    std::snprintf(percent, sizeof percent, "%.2f", summary.AcceptedPercent());
    std::string text = std::string("dialect ") + DialectName(options.Dialect) + ", seed " +
                       std::to_string(options.Seed) + "\n";
    text += "  tried            " + std::to_string(summary.Tried) + "\n";
    text += "  accepted         " + std::to_string(summary.Accepted()) + " (" + percent +
            " %; same rows " + std::to_string(summary.Same) + ")\n";
    text += "  refused          " + std::to_string(summary.Refused) + "\n";
    text += "  changed          " + std::to_string(summary.Changed) + "\n";
    text += "  internal errors  " + std::to_string(summary.Internal) + "\n";
    text += "  generator faults " + std::to_string(summary.OriginalFails) + "\n";
    std::vector<std::pair<int, std::string>> refusals;
    for (const auto& [message, count] : summary.Refusals)
        refusals.push_back({count, message});
    std::sort(refusals.begin(), refusals.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first > b.first : a.second < b.second;
    });
    if (!refusals.empty())
        text += "top refusals:\n";
    for (int i = 0; i < topRefusals && size_t(i) < refusals.size(); ++i)
        text += "  " + std::to_string(refusals[size_t(i)].first) + "  " +
                refusals[size_t(i)].second + "\n";
    return text;
}

std::string FormatFailure(const TFailure& failure, bool small)
{
    const TCheck& check = small ? failure.SmallCheck : failure.Check;
    std::string text = std::string(OutcomeName(check.Outcome)) + ": " + check.Detail + "\n";
    text += "  as written:\n" + Indented(check.Text) + "\n";
    if (!check.Printed.empty())
        text += "  printed:\n" + Indented(check.Printed) + "\n";
    return text;
}

std::string FormatChanged(const TSummary& summary)
{
    std::string text;
    int number = 0;
    for (const TFailure& failure : summary.Failures) {
        text += "\n#" + std::to_string(++number) + " [" + failure.Shape + "] " +
                FormatFailure(failure, false);
        if (failure.Reduced && failure.SmallCheck.Text != failure.Check.Text)
            text += "  smallest form that fails the same way: " + FormatFailure(failure, true);
    }
    return text;
}

std::string FormatFailures(const TSummary& summary, const TRunOptions& options)
{
    std::map<std::string, std::vector<const TFailure*>> shapes;
    for (const TFailure& failure : summary.Failures)
        shapes[failure.Shape].push_back(&failure);
    std::vector<std::pair<std::string, std::vector<const TFailure*>>> groups(shapes.begin(),
                                                                             shapes.end());
    std::stable_sort(groups.begin(), groups.end(), [](const auto& a, const auto& b) {
        return a.second.size() > b.second.size();
    });
    std::string text = "Statements whose print changes their meaning, or that break the parser\n";
    text += FormatCounts(summary, options, 10) + "\n";
    text += "Shapes are named after the smallest statement that still fails (only the first " +
            std::to_string(options.ReduceLimit) +
            " failures are shrunk; the others are listed as not shrunk).\n\n";
    for (const auto& [shape, failures] : groups) {
        text += "=== " + shape + ": " + std::to_string(failures.size()) + " statements\n\n";
        std::vector<const TFailure*> small;
        for (const TFailure* f : failures)
            if (f->Reduced)
                small.push_back(f);
        std::sort(small.begin(), small.end(), [](const TFailure* a, const TFailure* b) {
            return a->SmallCheck.Text.size() < b->SmallCheck.Text.size();
        });
        std::set<std::string> shown;
        for (const TFailure* f : small) {
            if (shown.size() == 3 || !shown.insert(f->SmallCheck.Text).second)
                continue;
            text += "-- smallest example " + std::to_string(shown.size()) + "\n" +
                    FormatFailure(*f, true) + "\n";
        }
        if (shown.empty())
            text += "-- example\n" + FormatFailure(*failures.front(), false) + "\n";
    }
    text += "=== Refused statements, the first of each message\n\n";
    for (const auto& [message, texts] : summary.RefusedTexts) {
        text += std::to_string(summary.Refusals.at(message)) + "  " + message + "\n";
        for (const std::string& refused : texts)
            text += "  " + refused + "\n";
        text += "\n";
    }
    text += "=== Every failure as generated\n\n";
    for (const TFailure& failure : summary.Failures)
        text += "[" + failure.Shape + "] " + FormatFailure(failure, false) + "\n";
    return text;
}

} // namespace vdmeaning
