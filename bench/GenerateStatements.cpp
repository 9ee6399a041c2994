// Writes generated statements, one per line, for `vdsql bench`:
//   vd_gen_statements typical|large COUNT [SEED]
#include "tests/core/StatementGenerator.h"

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "usage: vd_gen_statements typical|large COUNT [SEED]\n";
        return 2;
    }
    const std::string kind = argv[1];
    if (kind != "typical" && kind != "large") {
        std::cerr << "vd_gen_statements: unknown kind '" << kind << "'\n";
        return 2;
    }
    vdtest::GeneratorOptions options =
        kind == "typical" ? vdtest::GeneratorOptions::Typical() : vdtest::GeneratorOptions::Large();
    // vdsql bench reads one statement per line.
    options.LineBreaks = false;
    const int count = std::atoi(argv[2]);
    std::mt19937 rng(argc > 3 ? unsigned(std::strtoul(argv[3], nullptr, 10)) : 1u);
    for (int i = 0; i < count; ++i)
        std::cout << vdtest::GenerateStatement(rng, options) << '\n';
    return 0;
}
