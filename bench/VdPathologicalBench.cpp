// Growth of parse-and-print time with the size of hostile statements: each family at 1x, 10x
// and 100x its base size (the argument). Time per byte should stay flat; a family whose time
// per byte grows tenfold per step costs the square of its size.
//   build/bin/vd_pathological_bench --benchmark_counters_tabular=true
#include "core/VdSelectParser.h"
#include "dialects/VdIBParser.h"
#include "dialects/VdMyParser.h"
#include "tests/core/HostileText.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>

namespace {

using vdtest::Join;
using vdtest::N;
using vdtest::Repeat;

std::string RandomBytes(std::uint32_t seed, size_t size, bool highBit)
{
    std::mt19937 generator(seed);
    std::string result;
    result.reserve(size);
    while (result.size() < size) {
        const std::uint32_t value = generator();
        for (int i = 0; i < 4 && result.size() < size; ++i)
            result += char(((value >> (8 * i)) & 0xFF) | (highBit ? 0x80 : 0));
    }
    return result;
}

// One statement per family and size, made once.
using TMaker = std::function<std::string(int64_t)>;

const std::string& Statement(const char* family, int64_t size, const TMaker& make)
{
    static std::map<std::pair<std::string, int64_t>, std::string> cache;
    auto key = std::make_pair(std::string(family), size);
    auto it = cache.find(key);
    if (it == cache.end())
        it = cache.emplace(key, make(size)).first;
    return it->second;
}

void Report(benchmark::State& state, const std::string& text)
{
    state.SetBytesProcessed(state.iterations() * int64_t(text.size()));
    state.counters["bytes"] = double(text.size());
    // Seconds per byte of text: printed with an SI prefix, "12.3n" is 12.3 ns.
    state.counters["time_per_byte"] =
        benchmark::Counter(double(text.size()), benchmark::Counter::kIsIterationInvariantRate |
                                                    benchmark::Counter::kInvert);
}

// Parses and prints; a refused statement counts the time to its error.
void ParsePrint(benchmark::State& state, vd::TVdSelectParser& parser, const std::string& text)
{
    for (auto _ : state) {
        try {
            parser.SetExpression(text);
            benchmark::DoNotOptimize(parser.GetExpression());
        } catch (const vd::EVdError& e) {
            benchmark::DoNotOptimize(e.what());
        }
    }
    Report(state, text);
}

void Generic(benchmark::State& state, const char* family, const TMaker& make)
{
    vd::TVdSelectParser parser;
    ParsePrint(state, parser, Statement(family, state.range(0), make));
}

// ---- families ----

// WHERE (((...A = 1...))): accepted up to 256 levels, refused at the 257th "(".
void BM_WhereParentheses(benchmark::State& s)
{
    Generic(s, "where-parens", [](int64_t n) {
        return "SELECT A FROM T WHERE " + Repeat("(", size_t(n)) + "A = 1" + Repeat(")", size_t(n));
    });
}

// SELECT COUNT(COUNT(...A...)): accepted up to 256 calls, refused at the 257th.
void BM_NestedCalls(benchmark::State& s)
{
    Generic(s, "calls", [](int64_t n) {
        return "SELECT " + Repeat("COUNT(", size_t(n)) + "A" + Repeat(")", size_t(n)) + " FROM T";
    });
}

// A IN ((((1)))): no limit, kept as written.
void BM_InListParentheses(benchmark::State& s)
{
    Generic(s, "in-parens", [](int64_t n) {
        return "SELECT A FROM T WHERE A IN " + Repeat("(", size_t(n)) + "1" +
               Repeat(")", size_t(n));
    });
}

// 20,000 columns of 530 bytes make the 10 MB statement.
void BM_Columns(benchmark::State& s)
{
    Generic(s, "columns", [](int64_t n) {
        const std::string padding(520, 'X');
        return "SELECT " + Join(n, ", ", [&](int64_t i) { return "C" + N(i) + "_" + padding; }) +
               " FROM T";
    });
}

std::string DoubledQuotes(int64_t n)
{
    return "SELECT A FROM T WHERE A = '" + Repeat("x''", size_t(n) / 3) + "'";
}

// In the generic dialect '...' is a quoted name.
void BM_StringLiteral(benchmark::State& s) { Generic(s, "string", DoubledQuotes); }

void BM_IBStringLiteral(benchmark::State& s)
{
    vd::TVdIBSelectParser parser;
    ParsePrint(s, parser, Statement("ib-string", s.range(0), DoubledQuotes));
}

void BM_MySQLStringLiteral(benchmark::State& s)
{
    vd::TVdMySelectParser parser;
    ParsePrint(s, parser, Statement("mysql-string", s.range(0), [](int64_t n) {
                   return "SELECT A FROM T WHERE A = '" + Repeat("x\\'", size_t(n) / 3) + "'";
               }));
}

void BM_Identifier(benchmark::State& s)
{
    Generic(s, "identifier", [](int64_t n) {
        return "SELECT " + std::string(size_t(n), 'N') + " FROM " + std::string(size_t(n), 'M');
    });
}

void BM_QuotedIdentifier(benchmark::State& s)
{
    Generic(s, "quoted-identifier",
            [](int64_t n) { return "SELECT \"" + Repeat("a \"\"b", size_t(n) / 6) + "\" FROM T"; });
}

// SELECT P0.P1. ... .F FROM P0.P1. ...: one table name of n parts.
void BM_DottedName(benchmark::State& s)
{
    Generic(s, "dotted", [](int64_t n) {
        const std::string name = Join(n, ".", [](int64_t i) { return "P" + N(i); });
        return "SELECT " + name + ".F FROM " + name;
    });
}

// A join condition that names a table of n parts, among more tables than a hash lookup skips.
void BM_JoinOnDottedName(benchmark::State& s)
{
    Generic(s, "join-dotted", [](int64_t n) {
        const std::string name = Join(n, ".", [](int64_t i) { return "S" + N(i); });
        return "SELECT T2.A FROM " + Join(30, ", ", [](int64_t i) { return "T" + N(i + 2); }) +
               ", " + name + " INNER JOIN T1 ON (" + name + ".X = T1.B)";
    });
}

void BM_JoinChain(benchmark::State& s)
{
    Generic(s, "join-chain", [](int64_t n) {
        std::string text = "SELECT T0.A FROM T0";
        for (int64_t i = 1; i < n; ++i)
            text += " INNER JOIN T" + N(i) + " ON (T" + N(i - 1) + ".A = T" + N(i) + ".B)";
        return text;
    });
}

void BM_CommaTables(benchmark::State& s)
{
    Generic(s, "comma-tables", [](int64_t n) {
        return "SELECT A FROM " + Join(n, ", ", [](int64_t i) { return "T" + N(i); });
    });
}

// SELECT T0.A, T1.A, ... FROM T0, T1, ...: the select list makes the tables, FROM names them.
void BM_QualifiedColumns(benchmark::State& s)
{
    Generic(s, "qualified-columns", [](int64_t n) {
        return "SELECT " + Join(n, ", ", [](int64_t i) { return "T" + N(i) + ".A"; }) + " FROM " +
               Join(n, ", ", [](int64_t i) { return "T" + N(i); });
    });
}

// SELECT T0.A, S0.B, MAX(T0.C, S0.D), ... FROM T0 S0, ...: each entry's name and alias made
// a table each, which FROM merges into one; the calls over both are read again as calls.
void BM_NameAndAliasTables(benchmark::State& s)
{
    Generic(s, "name-and-alias", [](int64_t n) {
        return "SELECT " +
               Join(n, ", ",
                    [](int64_t i) {
                        return "T" + N(i) + ".A, S" + N(i) + ".B, MAX(T" + N(i) + ".C, S" + N(i) +
                               ".D)";
                    }) +
               " FROM " + Join(n, ", ", [](int64_t i) { return "T" + N(i) + " S" + N(i); });
    });
}

void BM_AndConditions(benchmark::State& s)
{
    Generic(s, "and", [](int64_t n) {
        return "SELECT A FROM T WHERE " +
               Join(n, " AND ", [](int64_t i) { return "A" + N(i) + " = " + N(i); });
    });
}

void BM_MixedConditions(benchmark::State& s)
{
    Generic(s, "mixed", [](int64_t n) {
        std::string text = "SELECT A FROM T WHERE ((A0 = 0)";
        for (int64_t i = 1; i < n; ++i)
            text += std::string(i % 2 ? " OR " : " AND ") + "(A" + N(i) + " = " + N(i) + ")";
        return text + ")";
    });
}

// n conditions, then a group whose connector changes: regrouped, ending in the list error.
void BM_RegroupedConditions(benchmark::State& s)
{
    Generic(s, "regroup", [](int64_t n) {
        return "SELECT A FROM T WHERE " +
               Join(n, " AND ", [](int64_t i) { return "(A" + N(i) + " = " + N(i) + ")"; }) +
               " AND ((B = 1) AND (C = 2) OR (D = 3))";
    });
}

void BM_GroupBy(benchmark::State& s)
{
    Generic(s, "group-by", [](int64_t n) {
        return "SELECT A FROM T GROUP BY " + Join(n, ", ", [](int64_t i) { return "C" + N(i); });
    });
}

// The scanner over the whole of a random text (the parser stops at its first token).
void BM_ScanRandomBytes(benchmark::State& s)
{
    const std::string& text =
        Statement("random", s.range(0), [](int64_t n) { return RandomBytes(4, size_t(n), false); });
    vd::TVdSQLScanner scanner;
    for (auto _ : s) {
        try {
            scanner.SetExpression(text);
            while (scanner.TokenKind() != vd::tkEnd)
                scanner.GetNextToken();
        } catch (const vd::EVdParserError& e) {
            benchmark::DoNotOptimize(e.Code);
        }
    }
    Report(s, text);
}

// Bytes 0x80 to 0xFF: one token as long as the text, refused.
void BM_HighBitBytes(benchmark::State& s)
{
    Generic(s, "high-bit", [](int64_t n) { return RandomBytes(2, size_t(n), true); });
}

} // namespace

BENCHMARK(BM_WhereParentheses)->Arg(25)->Arg(250)->Arg(2500);
BENCHMARK(BM_NestedCalls)->Arg(25)->Arg(250)->Arg(2500);
BENCHMARK(BM_InListParentheses)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(BM_Columns)->Arg(200)->Arg(2000)->Arg(20000);
BENCHMARK(BM_StringLiteral)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(BM_IBStringLiteral)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(BM_MySQLStringLiteral)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(BM_Identifier)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(BM_QuotedIdentifier)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(BM_DottedName)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(BM_JoinOnDottedName)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(BM_JoinChain)->Arg(50)->Arg(500)->Arg(5000);
BENCHMARK(BM_CommaTables)->Arg(50)->Arg(500)->Arg(5000);
BENCHMARK(BM_QualifiedColumns)->Arg(50)->Arg(500)->Arg(5000);
BENCHMARK(BM_NameAndAliasTables)->Arg(50)->Arg(500)->Arg(5000);
BENCHMARK(BM_AndConditions)->Arg(500)->Arg(5000)->Arg(50000);
BENCHMARK(BM_MixedConditions)->Arg(500)->Arg(5000)->Arg(50000);
BENCHMARK(BM_RegroupedConditions)->Arg(500)->Arg(5000)->Arg(50000);
BENCHMARK(BM_GroupBy)->Arg(400)->Arg(4000)->Arg(40000);
BENCHMARK(BM_ScanRandomBytes)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(BM_HighBitBytes)->Arg(10000)->Arg(100000)->Arg(1000000);

BENCHMARK_MAIN();
