#include "cli/Commands.h"
#include "cli/ErrorMessage.h"
#include "cli/Input.h"
#include "cli/ParserFactory.h"

#include "core/VdSelectParser.h"

#include <chrono>
#include <cstdio>
#include <iostream>

namespace vdsql {

namespace {

struct TBenchResult {
    unsigned long long Statements = 0;
    unsigned long long Bytes = 0;
    unsigned long long Errors = 0;
    std::string FirstError;
    double Seconds = 0;
};

std::vector<std::string> ReadStatements(const std::string& file)
{
    std::vector<std::string> statements;
    for (std::string& line : SplitLines(ReadInput(file)))
        if (!line.empty())
            statements.push_back(std::move(line));
    return statements;
}

// One parser for every statement, as a host that edits many statements uses it.
void ParseAndPrint(vd::TVdSelectParser& parser, const std::string& statement, TBenchResult& result)
{
    try {
        parser.SetExpression(statement);
        parser.GetExpression();
    } catch (const std::exception& e) {
        if (result.Errors++ == 0)
            result.FirstError = ErrorMessage(e);
    }
}

// Every token of the statement, as the parser would read them, without building a model.
void Scan(vd::TVdSQLScanner& scanner, const std::string& statement, TBenchResult& result)
{
    try {
        scanner.SetExpression(statement);
        while (scanner.TokenKind() != vd::tkEnd)
            scanner.GetNextToken();
    } catch (const std::exception& e) {
        if (result.Errors++ == 0)
            result.FirstError = ErrorMessage(e);
    }
}

TBenchResult RunRounds(vd::TVdSelectParser& parser, const std::vector<std::string>& statements,
                       int rounds, bool scanOnly)
{
    TBenchResult result;
    vd::TVdSQLScanner& scanner = parser.Scanner();
    const auto start = std::chrono::steady_clock::now();
    for (int round = 0; round < rounds; ++round)
        for (const std::string& statement : statements) {
            if (scanOnly)
                Scan(scanner, statement, result);
            else
                ParseAndPrint(parser, statement, result);
        }
    const auto stop = std::chrono::steady_clock::now();
    result.Seconds = std::chrono::duration<double>(stop - start).count();
    for (const std::string& statement : statements)
        result.Bytes += statement.size();
    result.Bytes *= static_cast<unsigned long long>(rounds);
    result.Statements = statements.size() * static_cast<unsigned long long>(rounds);
    return result;
}

std::string ReportLine(const char* label, const TBenchResult& r)
{
    const double megabytesPerSecond = r.Seconds > 0 ? double(r.Bytes) / 1e6 / r.Seconds : 0;
    const double statementsPerSecond = r.Seconds > 0 ? double(r.Statements) / r.Seconds : 0;
    char line[160];
    std::snprintf(line, sizeof line, "%s %llu %llu %.6f %.2f %.2f\n", label, r.Statements, r.Bytes,
                  r.Seconds, megabytesPerSecond, statementsPerSecond);
    return line;
}

} // namespace

int RunBench(const TOptions& options)
{
    const std::vector<std::string> statements = ReadStatements(options.File);
    const std::unique_ptr<vd::TVdSelectParser> parser = CreateParser(options);
    const TBenchResult result = RunRounds(*parser, statements, options.Repeat, options.ScanOnly);
    const char* label = options.ScanOnly ? "scan" : "vdsql";
    std::cout << ReportLine(label, result);
    if (result.Errors > 0)
        std::cerr << "ERRORS " << label << ' ' << result.Errors << " first: " << result.FirstError
                  << '\n';
    return exOk;
}

} // namespace vdsql
