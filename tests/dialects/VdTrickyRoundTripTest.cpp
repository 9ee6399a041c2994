// Statements of awkward names (quoted in every quote, empty, dotted, keywords, tables named
// twice, calls over several tables) in every dialect and server setting, with names quoted and
// unquoted and each keyword case: whatever is accepted prints a text that reads back without
// error and prints the same. VD_TRICKY_COUNT (statements per case) and VD_TRICKY_SEED (added
// to each case's seed) let a long local run look further than the suite does.
#include "tests/core/ParserSettings.h"
#include "tests/core/TrickyStatements.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <ostream>
#include <random>
#include <string>

using namespace vd;

namespace {

using vdtest::CreateParser;
using vdtest::TSetting;

struct TTrickyCase {
    TSetting Setting;
    bool QuoteIdentifiers;
    TVdFormatMode Format;
};

void PrintTo(const TTrickyCase& c, std::ostream* os)
{
    *os << vdtest::SettingName(c.Setting) << (c.QuoteIdentifiers ? "" : " unquoted") << " case "
        << int(c.Format);
}

unsigned EnvNumber(const char* name, unsigned fallback)
{
    const char* value = std::getenv(name);
    return value && *value ? unsigned(std::strtoul(value, nullptr, 10)) : fallback;
}

std::unique_ptr<TVdSelectParser> Parser(const TTrickyCase& c)
{
    std::unique_ptr<TVdSelectParser> parser = CreateParser(c.Setting);
    parser->Scanner().SetQuoteIdentifiers(c.QuoteIdentifiers);
    parser->ScriptFormat().KeywordsFormat = c.Format;
    parser->ScriptFormat().FunctionsFormat = c.Format;
    return parser;
}

class TrickyRoundTrip : public ::testing::TestWithParam<TTrickyCase>
{
};

} // namespace

TEST_P(TrickyRoundTrip, AcceptedStatementsPrintAFixedPoint)
{
    const TTrickyCase c = GetParam();
    const unsigned count = EnvNumber("VD_TRICKY_COUNT", 1500);
    std::mt19937 rng(EnvNumber("VD_TRICKY_SEED", 0) + unsigned(c.Setting) * 8 +
                     (c.QuoteIdentifiers ? 0 : 4) + unsigned(c.Format));
    const std::unique_ptr<TVdSelectParser> first = Parser(c);
    const std::unique_ptr<TVdSelectParser> second = Parser(c);
    unsigned accepted = 0;
    int failures = 0;
    for (unsigned i = 0; i < count && failures < 5; ++i) {
        const std::string text = vdtest::TrickyStatement(rng);
        try {
            first->SetExpression(text);
        } catch (const EVdError&) {
            continue; // refused, with the parser's error: allowed
        }
        ++accepted;
        const std::string printed = first->GetExpression();
        std::string reprinted;
        try {
            second->SetExpression(printed);
            reprinted = second->GetExpression();
        } catch (const EVdError& e) {
            reprinted = std::string("refused: ") + e.what();
        }
        if (reprinted != printed) {
            ++failures;
            ADD_FAILURE() << "statement " << i << ": " << text << "\nprinted:\n"
                          << printed << "\nread back and printed:\n"
                          << reprinted;
        }
    }
    // Enough of them are accepted for the check to mean something in every case.
    EXPECT_GE(accepted * 50, count) << accepted << " of " << count << " accepted";
}

namespace {

std::vector<TTrickyCase> TrickyCases()
{
    std::vector<TTrickyCase> cases;
    for (int setting = 0; setting < vdtest::SettingCount; ++setting)
        for (const bool quote : {true, false})
            for (const TVdFormatMode format : {qfmAsIs, qfmFirstUpper})
                cases.push_back({TSetting(setting), quote, format});
    return cases;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(AllSettings, TrickyRoundTrip, ::testing::ValuesIn(TrickyCases()),
                         [](const ::testing::TestParamInfo<TTrickyCase>& info) {
                             return std::string(vdtest::SettingName(info.param.Setting)) +
                                    (info.param.QuoteIdentifiers ? "_quoted" : "_unquoted") +
                                    (info.param.Format == qfmAsIs ? "" : "_firstupper");
                         });
