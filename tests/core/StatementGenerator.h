#pragma once

// A seeded generator of random but valid SELECT statements, for round-trip tests,
// benchmarks and fuzzers. The same seed and options always give the same text.
//
// The statements stay inside what the parser reads back to the same model after printing:
// fields of a query with several tables are always qualified, tables named in the select
// list come first in FROM and in the order the list names them, joins are written in the
// order they print, and a condition group that stands third or later in its list never
// changes its connector (that would regroup the list, which raises by design).

#include <random>
#include <string>

namespace vdtest {

// How aggregate function names are written in the generated text.
enum class TFunctionCase { Upper, Lower, FirstUpper };

// The server the statements are written for. A dialect brings its own identifier quotes,
// string literals and names that must be quoted, and its own clauses: FIRST / SKIP after
// SELECT (Firebird), ROWS at the end (InterBase), select options, the DISTINCT / DISTINCTROW /
// ALL filter and LIMIT (MySQL).
enum class TGeneratorDialect { Generic, InterBase, Firebird, MySQL };

struct GeneratorOptions {
    int MinTables = 2;
    int MaxTables = 4;
    int MinColumns = 3;
    int MaxColumns = 10;
    int MinConditions = 1; // comparisons in WHERE
    int MaxConditions = 4;
    int MaxDepth = 2; // nesting of condition groups below the top-level list

    int JoinPercent = 60;      // share of tables after the first that are joined
    int ProcedurePercent = 10; // share of tables that are stored procedure calls
    int AliasPercent = 85;     // share of tables that get an alias
    int DistinctPercent = 20;
    int GroupByPercent = 40; // only where the select list has aggregates and plain fields
    int HavingPercent = 50;  // of the statements that have GROUP BY
    int OrderByPercent = 60;

    bool ExoticNames = true;      // quoted names with blanks, keyword names, lower case
    bool MixedKeywordCase = true; // select, From, WHERE, ...
    bool LineBreaks = true;       // CR LF between some clauses
    TFunctionCase FunctionCase = TFunctionCase::Upper;

    TGeneratorDialect Dialect = TGeneratorDialect::Generic;
    // InterBase and Firebird: 3 quotes names in "...", 1 has no quoted names ("..." is a
    // string and a table name with blanks is folded to upper case with underscores).
    int SqlDialect = 3;
    int DialectClausePercent = 70; // share of statements with each clause of the dialect

    // 2-4 tables, 3-10 columns, 1-4 conditions: a statement of a few hundred bytes.
    static GeneratorOptions Typical();
    // 50 tables, 500 columns, 200 conditions.
    static GeneratorOptions Large();
};

std::string GenerateStatement(std::mt19937& rng, const GeneratorOptions& options);

} // namespace vdtest
