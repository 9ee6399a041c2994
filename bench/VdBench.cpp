// Scanner, parser and printer throughput on typical and large generated statements, and how the
// cost per byte grows with the size of a statement.
#include "core/VdObjectPool.h"
#include "core/VdSelectParser.h"
#include "tests/core/StatementGenerator.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <exception>
#include <new>
#include <random>
#include <string>
#include <vector>

namespace {

// Live heap bytes, to measure what the model of a statement takes.
std::atomic<long long> LiveBytes{0};

struct TBatch {
    std::vector<std::string> Statements;
    long long Bytes = 0;
};

TBatch MakeBatch(const vdtest::GeneratorOptions& options, int count, unsigned seed)
{
    std::mt19937 rng(seed);
    TBatch batch;
    for (int i = 0; i < count; ++i) {
        batch.Statements.push_back(vdtest::GenerateStatement(rng, options));
        batch.Bytes += static_cast<long long>(batch.Statements.back().size());
    }
    return batch;
}

const TBatch& Typical()
{
    static const TBatch batch = MakeBatch(vdtest::GeneratorOptions::Typical(), 1000, 1);
    return batch;
}

const TBatch& Large()
{
    static const TBatch batch = MakeBatch(vdtest::GeneratorOptions::Large(), 4, 2);
    return batch;
}

// A statement scaled by factor: tables, columns and conditions multiplied.
const TBatch& Scaled(int factor)
{
    static std::vector<std::pair<int, TBatch>> cache;
    for (const auto& entry : cache)
        if (entry.first == factor)
            return entry.second;
    vdtest::GeneratorOptions options = vdtest::GeneratorOptions::Typical();
    options.MinTables = options.MaxTables = 2 * factor;
    options.MinColumns = options.MaxColumns = 8 * factor;
    options.MinConditions = options.MaxConditions = 4 * factor;
    cache.emplace_back(factor, MakeBatch(options, factor >= 100 ? 1 : 100 / factor, 3));
    return cache.back().second;
}

void Finish(benchmark::State& state, const TBatch& batch)
{
    state.SetBytesProcessed(state.iterations() * batch.Bytes);
    state.SetItemsProcessed(state.iterations() * static_cast<long long>(batch.Statements.size()));
}

void Scan(benchmark::State& state, const TBatch& batch)
{
    vd::TVdSQLScanner scanner;
    for (auto _ : state) {
        for (const std::string& text : batch.Statements) {
            scanner.SetExpression(text);
            while (scanner.TokenKind() != vd::tkEnd)
                scanner.GetNextToken();
        }
        benchmark::DoNotOptimize(scanner.Token());
    }
    Finish(state, batch);
}

void Parse(benchmark::State& state, const TBatch& batch)
{
    vd::TVdSelectParser parser;
    for (auto _ : state) {
        for (const std::string& text : batch.Statements)
            parser.SetExpression(text);
        benchmark::DoNotOptimize(parser.IsValid());
    }
    Finish(state, batch);
}

void Print(benchmark::State& state, const TBatch& batch)
{
    std::vector<std::unique_ptr<vd::TVdSelectParser>> parsers;
    for (const std::string& text : batch.Statements) {
        parsers.push_back(std::make_unique<vd::TVdSelectParser>());
        parsers.back()->SetExpression(text);
    }
    for (auto _ : state)
        for (auto& parser : parsers)
            benchmark::DoNotOptimize(parser->GetExpression());
    Finish(state, batch);
}

void ParsePrint(benchmark::State& state, const TBatch& batch)
{
    vd::TVdSelectParser parser;
    for (auto _ : state) {
        for (const std::string& text : batch.Statements) {
            parser.SetExpression(text);
            benchmark::DoNotOptimize(parser.GetExpression());
        }
    }
    Finish(state, batch);
}

// Heap bytes held by objects: blocks the object pool keeps for later objects are held from the
// heap but belong to no model.
long long HeldBytes() { return LiveBytes.load() - static_cast<long long>(vd::pool::KeptBytes()); }

// Heap bytes the model holds per byte of statement text (reported as a counter).
void ModelBytes(benchmark::State& state, const TBatch& batch)
{
    double ratio = 0;
    for (auto _ : state) {
        long long model = 0;
        for (const std::string& text : batch.Statements) {
            auto parser = std::make_unique<vd::TVdSelectParser>();
            // The scanner builds its own tables (classes, word lookups) on first use and keeps a
            // copy of the text: scanner state, not model, so they come before the count.
            vd::TVdSQLScanner& scanner = parser->Scanner();
            try {
                scanner.SetExpression(text);
            } catch (const std::exception&) {
            }
            scanner.IsKeyword("SELECT");
            scanner.IsFunction("SUM");
            scanner.IsOperation("+");
            const long long before = HeldBytes();
            parser->SetExpression(text);
            model += HeldBytes() - before;
        }
        ratio = double(model) / double(batch.Bytes);
    }
    state.counters["model_bytes_per_sql_byte"] = ratio;
}

void BM_ScanTypical(benchmark::State& s) { Scan(s, Typical()); }
void BM_ParseTypical(benchmark::State& s) { Parse(s, Typical()); }
void BM_PrintTypical(benchmark::State& s) { Print(s, Typical()); }
void BM_ParsePrintTypical(benchmark::State& s) { ParsePrint(s, Typical()); }
void BM_ModelBytesTypical(benchmark::State& s) { ModelBytes(s, Typical()); }
void BM_ScanLarge(benchmark::State& s) { Scan(s, Large()); }
void BM_ParseLarge(benchmark::State& s) { Parse(s, Large()); }
void BM_PrintLarge(benchmark::State& s) { Print(s, Large()); }
void BM_ParsePrintLarge(benchmark::State& s) { ParsePrint(s, Large()); }
void BM_ModelBytesLarge(benchmark::State& s) { ModelBytes(s, Large()); }
void BM_ParsePrintScaled(benchmark::State& s) { ParsePrint(s, Scaled(int(s.range(0)))); }

} // namespace

BENCHMARK(BM_ScanTypical);
BENCHMARK(BM_ParseTypical);
BENCHMARK(BM_PrintTypical);
BENCHMARK(BM_ParsePrintTypical);
BENCHMARK(BM_ModelBytesTypical)->Iterations(1);
BENCHMARK(BM_ScanLarge);
BENCHMARK(BM_ParseLarge);
BENCHMARK(BM_PrintLarge);
BENCHMARK(BM_ParsePrintLarge);
BENCHMARK(BM_ModelBytesLarge)->Iterations(1);
BENCHMARK(BM_ParsePrintScaled)->Arg(1)->Arg(10)->Arg(100);

// Counting allocator for the model size counter.
void* operator new(std::size_t size)
{
    void* p = std::malloc(size + 16);
    if (!p)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(p) = size;
    LiveBytes += static_cast<long long>(size);
    return static_cast<char*>(p) + 16;
}

void operator delete(void* p) noexcept
{
    if (!p)
        return;
    char* base = static_cast<char*>(p) - 16;
    LiveBytes -= static_cast<long long>(*reinterpret_cast<std::size_t*>(base));
    std::free(base);
}

void operator delete(void* p, std::size_t) noexcept { operator delete(p); }

BENCHMARK_MAIN();
