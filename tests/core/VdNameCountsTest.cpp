// The counts per name behind the alias checks of large statements: a short list first, a
// table with open addressing beyond it; both must answer alike.

#include "core/VdNameCounts.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

using vd::TVdNameCounts;

namespace {

std::string Name(int i) { return "NAME" + std::to_string(i); }

// Every name of reference is found with its count, and no other of the names tried.
void ExpectSame(const TVdNameCounts& counts, const std::map<std::string, int>& reference, int names)
{
    EXPECT_EQ(counts.Size(), reference.size());
    EXPECT_EQ(counts.Empty(), reference.empty());
    for (int i = 0; i < names; ++i) {
        const auto it = reference.find(Name(i));
        const int* found = counts.Find(Name(i));
        if (it == reference.end()) {
            EXPECT_EQ(found, nullptr) << Name(i);
        } else {
            ASSERT_NE(found, nullptr) << Name(i);
            EXPECT_EQ(*found, it->second) << Name(i);
        }
    }
}

} // namespace

TEST(VdNameCounts, NewNameCountsZero)
{
    TVdNameCounts counts;
    EXPECT_TRUE(counts.Empty());
    EXPECT_EQ(counts.Find("A"), nullptr);
    EXPECT_EQ(counts["A"], 0);
    EXPECT_FALSE(counts.Empty());
    ASSERT_NE(counts.Find("A"), nullptr);
    EXPECT_EQ(*counts.Find("A"), 0);
}

TEST(VdNameCounts, NamesAreCaseSensitive)
{
    TVdNameCounts counts;
    counts["Total"] = 2;
    EXPECT_EQ(counts.Find("TOTAL"), nullptr);
    EXPECT_EQ(*counts.Find("Total"), 2);
}

TEST(VdNameCounts, ErasingAnAbsentNameChangesNothing)
{
    TVdNameCounts counts;
    counts["A"] = 1;
    counts.Erase("B");
    EXPECT_EQ(counts.Size(), 1u);
    EXPECT_EQ(*counts.Find("A"), 1);
}

// Past the list's 32 names the table takes over with every count the list held.
TEST(VdNameCounts, TableTakesOverTheListsCounts)
{
    TVdNameCounts counts;
    std::map<std::string, int> reference;
    for (int i = 0; i < 200; ++i) {
        counts[Name(i)] = i + 1;
        reference[Name(i)] = i + 1;
        if (i == 31 || i == 32 || i == 63 || i == 64 || i == 199)
            ExpectSame(counts, reference, 210);
    }
}

// Erasing from the table moves the names behind the freed slot back: every other name stays
// found, however the probes run.
TEST(VdNameCounts, ErasingFromTheTableKeepsTheOthersFound)
{
    TVdNameCounts counts;
    std::map<std::string, int> reference;
    for (int i = 0; i < 100; ++i) {
        counts[Name(i)] = i;
        reference[Name(i)] = i;
    }
    for (int i = 0; i < 100; i += 3) {
        counts.Erase(Name(i));
        reference.erase(Name(i));
        ExpectSame(counts, reference, 100);
    }
}

// Random additions, changes and erasures against a map, across the list and the table.
TEST(VdNameCounts, AnswersAsAMapUnderRandomChanges)
{
    std::mt19937 rng(7);
    TVdNameCounts counts;
    std::map<std::string, int> reference;
    for (int step = 0; step < 20000; ++step) {
        const int i = int(rng() % 150);
        switch (rng() % 3) {
        case 0:
            counts[Name(i)] += 1;
            reference[Name(i)] += 1;
            break;
        case 1:
            if (int* count = counts.Find(Name(i)))
                *count += 5;
            if (const auto it = reference.find(Name(i)); it != reference.end())
                it->second += 5;
            break;
        default:
            counts.Erase(Name(i));
            reference.erase(Name(i));
            break;
        }
        if (step % 997 == 0)
            ExpectSame(counts, reference, 150);
    }
    ExpectSame(counts, reference, 150);
}

TEST(VdNameCounts, ClearStartsOverWithTheList)
{
    TVdNameCounts counts;
    for (int i = 0; i < 100; ++i)
        counts[Name(i)] = 1;
    counts.Clear();
    EXPECT_TRUE(counts.Empty());
    EXPECT_EQ(counts.Find(Name(5)), nullptr);
    counts[Name(5)] = 3;
    EXPECT_EQ(*counts.Find(Name(5)), 3);
    EXPECT_EQ(counts.Size(), 1u);
}
