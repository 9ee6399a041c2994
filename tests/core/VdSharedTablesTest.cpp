// Parsers that build the same operator table or aggregate list share one copy; a parser that
// changes its own never changes another's.
#include "core/VdError.h"
#include "core/VdSelectParser.h"
#include "core/VdSharedTable.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using vd::TVdOperators;
using vd::TVdSelectParser;
using vd::TVdWordList;

namespace {

// A host's parser with one operator more than the default table.
class TContainingParser : public TVdSelectParser
{
public:
    void DefineOperators() override
    {
        TVdSelectParser::DefineOperators();
        Operators().Add("CONTAINING", "CONTAINING", 1);
    }
};

std::string Printed(TVdSelectParser& p, const std::string& sql)
{
    p.SetExpression(sql);
    return p.GetExpression();
}

const std::string Where = "SELECT A FROM T WHERE A CONTAINING 'x'";

} // namespace

TEST(VdSharedTables, ParsersWithTheDefaultTablesShareThem)
{
    TVdSelectParser a;
    TVdSelectParser b;
    EXPECT_EQ(&a.OperatorTable(), &b.OperatorTable());
    EXPECT_EQ(&a.Aggregates(), &b.Aggregates());
    EXPECT_EQ(a.OperatorTable().Count(), 14);
    EXPECT_EQ(a.Aggregates().GetCommaText(), "AVG,COUNT,MAX,MIN,SUM");
}

TEST(VdSharedTables, OperatorsGivesAnOwnCopyOfTheSameEntries)
{
    TVdSelectParser a;
    TVdSelectParser b;
    const TVdOperators& shared = a.OperatorTable();
    TVdOperators& own = a.Operators();
    EXPECT_NE(&own, &shared);
    EXPECT_EQ(&a.OperatorTable(), &own);
    ASSERT_EQ(own.Count(), shared.Count());
    for (int i = 0; i < own.Count(); ++i) {
        EXPECT_EQ(own.Items(i)->Caption, shared.Items(i)->Caption);
        EXPECT_EQ(own.Items(i)->Name, shared.Items(i)->Name);
        EXPECT_EQ(own.Items(i)->Count, shared.Items(i)->Count);
        EXPECT_EQ(own.Items(i)->Relate, shared.Items(i)->Relate);
        EXPECT_EQ(own.Items(i)->Prefix, shared.Items(i)->Prefix);
        EXPECT_EQ(own.Items(i)->Postfix, shared.Items(i)->Postfix);
    }
    EXPECT_EQ(&b.OperatorTable(), &shared);
}

TEST(VdSharedTables, AnOperatorAddedToOneParserReachesNoOther)
{
    TVdSelectParser a;
    TVdSelectParser b;
    a.OperatorTable();
    b.OperatorTable();
    a.Operators().Add("CONTAINING", "CONTAINING", 1);
    EXPECT_EQ(
        Printed(a, Where),
        "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  (\"A\" CONTAINING 'x')\r\n");
    EXPECT_THROW(b.SetExpression(Where), vd::EVdParserError);
    EXPECT_EQ(b.OperatorTable().FindByCaption("CONTAINING"), nullptr);
    TVdSelectParser c;
    EXPECT_EQ(c.OperatorTable().FindByCaption("CONTAINING"), nullptr);
}

TEST(VdSharedTables, AnOverriddenDefineOperatorsIsHonouredAndSharedAmongItsKind)
{
    TContainingParser a;
    TContainingParser b;
    TVdSelectParser plain;
    EXPECT_EQ(
        Printed(a, Where),
        "SELECT \r\n  \"T\".\"A\"\r\nFROM\r\n  \"T\"\r\nWHERE\r\n  (\"A\" CONTAINING 'x')\r\n");
    EXPECT_EQ(&a.OperatorTable(), &b.OperatorTable());
    EXPECT_NE(&a.OperatorTable(), &plain.OperatorTable());
    EXPECT_EQ(plain.OperatorTable().FindByCaption("CONTAINING"), nullptr);
}

TEST(VdSharedTables, SetAggregatesChangesOnlyItsOwnParser)
{
    TVdSelectParser a;
    TVdSelectParser b;
    const TVdWordList& shared = b.Aggregates();
    TVdWordList words;
    words.SetCommaText("median");
    a.SetAggregates(words);
    EXPECT_EQ(a.Aggregates().GetCommaText(), "median");
    EXPECT_EQ(&b.Aggregates(), &shared);
    EXPECT_EQ(b.Aggregates().GetCommaText(), "AVG,COUNT,MAX,MIN,SUM");
    EXPECT_TRUE(b.Aggregates().Contains("count"));
    EXPECT_FALSE(a.Aggregates().Contains("count"));
}

TEST(VdSharedTables, DefineOperatorsAfterSharingGivesAnOwnTable)
{
    TVdSelectParser a;
    const TVdOperators& shared = a.OperatorTable();
    a.DefineOperators();
    EXPECT_NE(&a.OperatorTable(), &shared);
    EXPECT_EQ(a.OperatorTable().Count(), 14);
    EXPECT_EQ(shared.Count(), 14);
}

TEST(VdSharedTables, ShareKeepsAFewTablesAndHandsBackEqualOnes)
{
    auto same = [](const TVdWordList& x, const TVdWordList& y) { return x.Items() == y.Items(); };
    auto make = [](const std::string& text) {
        auto list = std::make_unique<TVdWordList>();
        list->SetCommaText(text);
        return list;
    };
    const auto first = vd::TVdSharedTables<TVdWordList>::Share(make("ONE,TWO,XYZZY"), same);
    const auto again = vd::TVdSharedTables<TVdWordList>::Share(make("ONE,TWO,XYZZY"), same);
    EXPECT_EQ(first.get(), again.get());
    // More different tables than are kept: each still comes back as itself, the kept one
    // stays found.
    for (int i = 0; i < 20; ++i) {
        const std::string text = "W" + std::to_string(i);
        const auto own = vd::TVdSharedTables<TVdWordList>::Share(make(text), same);
        EXPECT_EQ(own->GetCommaText(), text);
    }
    EXPECT_EQ(vd::TVdSharedTables<TVdWordList>::Share(make("ONE,TWO,XYZZY"), same).get(),
              first.get());
}

TEST(VdSharedTables, ParsersOnSeveralThreadsReadTheSharedTables)
{
    std::vector<std::string> printed(4);
    std::vector<std::thread> threads;
    for (size_t i = 0; i < printed.size(); ++i)
        threads.emplace_back([&printed, i] {
            for (int round = 0; round < 50; ++round) {
                TVdSelectParser p;
                printed[i] = Printed(p, "SELECT A, COUNT(B) FROM T WHERE A BETWEEN 1 AND 2");
            }
        });
    for (std::thread& t : threads)
        t.join();
    for (const std::string& sql : printed)
        EXPECT_EQ(sql,
                  "SELECT \r\n  \"T\".\"A\",\r\n  COUNT(\"T\".\"B\") AS FIELD_1\r\nFROM\r\n  "
                  "\"T\"\r\nWHERE\r\n  (\"A\" BETWEEN 1 AND 2)\r\nGROUP BY\r\n  \"T\".\"A\"\r\n");
}
