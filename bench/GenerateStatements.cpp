// Writes generated statements, one per line, for `vdsql bench`:
//   vd_gen_statements typical|large COUNT [SEED [DIALECT [SQL-DIALECT]]]
// DIALECT is generic (default), interbase, firebird or mysql, as vdsql's --dialect.
#include "tests/core/StatementGenerator.h"

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

namespace {

bool ReadDialect(const std::string& name, vdtest::TGeneratorDialect& dialect)
{
    using vdtest::TGeneratorDialect;
    if (name == "generic")
        dialect = TGeneratorDialect::Generic;
    else if (name == "interbase")
        dialect = TGeneratorDialect::InterBase;
    else if (name == "firebird")
        dialect = TGeneratorDialect::Firebird;
    else if (name == "mysql")
        dialect = TGeneratorDialect::MySQL;
    else
        return false;
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "usage: vd_gen_statements typical|large COUNT [SEED [DIALECT [1|3]]]\n";
        return 2;
    }
    const std::string kind = argv[1];
    if (kind != "typical" && kind != "large") {
        std::cerr << "vd_gen_statements: unknown kind '" << kind << "'\n";
        return 2;
    }
    vdtest::GeneratorOptions options =
        kind == "typical" ? vdtest::GeneratorOptions::Typical() : vdtest::GeneratorOptions::Large();
    if (argc > 4 && !ReadDialect(argv[4], options.Dialect)) {
        std::cerr << "vd_gen_statements: unknown dialect '" << argv[4] << "'\n";
        return 2;
    }
    if (argc > 5)
        options.SqlDialect = std::atoi(argv[5]) == 1 ? 1 : 3;
    // vdsql bench reads one statement per line.
    options.LineBreaks = false;
    const int count = std::atoi(argv[2]);
    std::mt19937 rng(argc > 3 ? unsigned(std::strtoul(argv[3], nullptr, 10)) : 1u);
    for (int i = 0; i < count; ++i)
        std::cout << vdtest::GenerateStatement(rng, options) << '\n';
    return 0;
}
