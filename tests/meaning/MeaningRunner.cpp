#include "tests/meaning/MeaningRunner.h"

#include "core/VdError.h"
#include "tests/core/ParserSettings.h"
#include "tests/meaning/MeaningGenerator.h"
#include "tests/meaning/MeaningReduce.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <random>

namespace vdmeaning {

const char* OutcomeName(TOutcome outcome)
{
    switch (outcome) {
    case TOutcome::Same:
        return "same";
    case TOutcome::Refused:
        return "refused";
    case TOutcome::Changed:
        return "changed";
    case TOutcome::Internal:
        return "internal error";
    case TOutcome::OriginalFails:
        return "original fails";
    }
    return "?";
}

bool CreateSchema(TEngine& engine, TDialect dialect, std::uint32_t seed, std::string& error)
{
    for (const std::string& sql : SchemaStatements(dialect, seed))
        if (!engine.Exec(sql, error)) {
            error = "creating the schema failed at\n  " + sql.substr(0, 200) + "\n" + error;
            return false;
        }
    return true;
}

namespace {

std::unique_ptr<vd::TVdSelectParser> ParserFor(TDialect dialect)
{
    switch (dialect) {
    case TDialect::MySQL:
        return vdtest::CreateParser(vdtest::TSetting::MySQL);
    case TDialect::Firebird:
        return vdtest::CreateParser(vdtest::TSetting::Firebird3);
    case TDialect::Generic:
        break;
    }
    return vdtest::CreateParser(vdtest::TSetting::Generic);
}

std::string RowText(const TRow& row)
{
    std::string text;
    for (size_t i = 0; i < row.size(); ++i)
        text += (i ? " | " : "") + row[i];
    return text;
}

// A row of one list that the other lacks (as multisets), for the report.
std::string FirstMissing(TRows a, TRows b, const char* name)
{
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    TRows missing;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(missing));
    if (missing.empty())
        return "";
    return std::string("; ") + name + " lacks [" + RowText(missing[0]) + "]" +
           (missing.size() > 1 ? " and " + std::to_string(missing.size() - 1) + " more" : "");
}

TRows Project(const TRows& rows, const std::vector<int>& columns)
{
    TRows projected;
    for (const TRow& row : rows) {
        TRow keys;
        for (int c : columns)
            keys.push_back(size_t(c) < row.size() ? row[size_t(c)] : "?");
        projected.push_back(keys);
    }
    return projected;
}

std::string FirstOrderDifference(const TRows& a, const TRows& b)
{
    for (size_t i = 0; i < a.size() && i < b.size(); ++i)
        if (a[i] != b[i])
            return "row " + std::to_string(i + 1) + " is [" + RowText(a[i]) + "] as written, [" +
                   RowText(b[i]) + "] printed";
    return "";
}

} // namespace

std::string CompareRows(const TRows& original, const TRows& printed, const TOrderCheck& order)
{
    TRows a = original, b = printed;
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    if (a != b) {
        const size_t columnsA = original.empty() ? 0 : original[0].size();
        const size_t columnsB = printed.empty() ? 0 : printed[0].size();
        std::string text = "other rows: " + std::to_string(original.size()) + " rows as written, " +
                           std::to_string(printed.size()) + " printed";
        if (columnsA && columnsB && columnsA != columnsB)
            return text + "; " + std::to_string(columnsA) + " columns as written, " +
                   std::to_string(columnsB) + " printed";
        return text + FirstMissing(original, printed, "the print") +
               FirstMissing(printed, original, "the text");
    }
    if (order.Kind == TOrderCheck::Full && original != printed)
        return "another order: " + FirstOrderDifference(original, printed);
    if (order.Kind == TOrderCheck::Keys) {
        const TRows keysA = Project(original, order.KeyColumns);
        const TRows keysB = Project(printed, order.KeyColumns);
        if (keysA != keysB)
            return "another order of the sort keys: " + FirstOrderDifference(keysA, keysB);
    }
    return "";
}

TCheck CheckStatement(TEngine& engine, const TStatement& statement)
{
    TCheck check;
    check.Text = Render(statement);
    TRows original;
    std::string error;
    if (!engine.Query(check.Text, original, error)) {
        check.Outcome = TOutcome::OriginalFails;
        check.Detail = error;
        return check;
    }
    try {
        std::unique_ptr<vd::TVdSelectParser> parser = ParserFor(statement.Dialect);
        parser->SetExpression(check.Text);
        check.Printed = parser->GetExpression();
    } catch (const vd::EVdParserError& e) {
        check.Outcome = TOutcome::Refused;
        check.Detail = e.what();
        return check;
    } catch (const std::exception& e) {
        check.Outcome = TOutcome::Internal;
        check.Detail = e.what();
        return check;
    } catch (...) {
        check.Outcome = TOutcome::Internal;
        check.Detail = "an exception of no standard type";
        return check;
    }
    TRows printed;
    if (!engine.Query(check.Printed, printed, error)) {
        check.Outcome = TOutcome::Changed;
        check.Detail = "the print fails: " + error;
        return check;
    }
    check.Detail = CompareRows(original, printed, OrderCheckOf(statement));
    check.Outcome = check.Detail.empty() ? TOutcome::Same : TOutcome::Changed;
    return check;
}

double TSummary::AcceptedPercent() const
{
    const int valid = Tried - OriginalFails;
    return valid ? 100.0 * Accepted() / valid : 0.0;
}

namespace {

// Refusals are counted by message with the positions blanked out.
std::string RefusalKey(const std::string& message)
{
    std::string key;
    bool inToken = false;
    for (size_t i = 0; i < message.size(); ++i) {
        const char c = message[i];
        if (c == '\'')
            inToken = !inToken;
        if (!inToken && std::isdigit(static_cast<unsigned char>(c))) {
            if (key.empty() || key.back() != '#')
                key += '#';
            continue;
        }
        key += c;
    }
    return key;
}

// The clause a refusal points into, from the position in its message (the generated texts
// are one line; their strings hold no keyword).
std::string ClauseOf(const TCheck& check)
{
    const std::string marker = "at position ";
    const size_t at = check.Detail.find(marker);
    if (at == std::string::npos)
        return "";
    const size_t position = size_t(std::atoi(check.Detail.c_str() + at + marker.size()));
    std::string upper = check.Text.substr(0, position);
    for (char& c : upper)
        c = char(std::toupper(static_cast<unsigned char>(c)));
    size_t best = 0;
    std::string clause = "the select list";
    for (const char* word : {" FROM ", " WHERE ", " GROUP BY ", " HAVING ", " ORDER BY "}) {
        const size_t found = upper.rfind(word);
        if (found != std::string::npos && found >= best) {
            best = found;
            clause = std::string(word).substr(1, std::strlen(word) - 2);
        }
    }
    return " (in " + clause + ")";
}

} // namespace

TSummary RunMeaning(TEngine& engine, const TRunOptions& options)
{
    TSummary summary;
    std::mt19937 rng(options.Seed);
    int reduced = 0;
    for (int i = 0; i < options.Count; ++i) {
        const TStatement statement = GenerateStatement(rng, options.Dialect);
        const TCheck check = CheckStatement(engine, statement);
        ++summary.Tried;
        switch (check.Outcome) {
        case TOutcome::Same:
            ++summary.Same;
            continue;
        case TOutcome::Refused:
            ++summary.Refused;
            {
                const std::string key = RefusalKey(check.Detail) + ClauseOf(check);
                if (++summary.Refusals[key] <= 3)
                    summary.RefusedTexts[key].push_back(check.Detail + "\n    " + check.Text);
                continue;
            }
        case TOutcome::Changed:
            ++summary.Changed;
            break;
        case TOutcome::Internal:
            ++summary.Internal;
            break;
        case TOutcome::OriginalFails:
            ++summary.OriginalFails;
            break;
        }
        TFailure failure{statement, check, false, statement, check, ""};
        if (check.Outcome != TOutcome::OriginalFails && reduced < options.ReduceLimit) {
            ++reduced;
            failure.Reduced = true;
            failure.Small = Reduce(engine, statement, check, failure.SmallCheck);
        }
        // A shape read off a whole statement names its first feature, not its fault.
        failure.Shape = failure.Reduced || check.Outcome == TOutcome::OriginalFails
                            ? ShapeOf(failure.Small, failure.SmallCheck)
                            : "not shrunk";
        summary.Failures.push_back(std::move(failure));
    }
    return summary;
}

} // namespace vdmeaning
