#pragma once

// The joins of a FROM entry, in the order they were made, each table brought in once.
//
// A join brings in the table it leads to, after the join that brought its own table in (a
// chain of joins means what its order says). When the collection's whole FROM clause is
// printed, a join is followed backwards too: a table that two tables join (ORDERS from
// CUSTOMERS and from EMPLOYEES) is brought in once, and the second of them comes in through
// it. A join between two tables already there (a second pair of fields, a ring of joins)
// adds its condition to the ON of the later of the two: SQL names a table once in FROM.

#include <string>
#include <utility>
#include <vector>

namespace vd {

class TVdJoinDef;
class TVdTableDef;
class TVdTableDefs;

class TVdJoinWalk
{
public:
    // backwards: follow joins from the table they lead to back to the owning table as well.
    TVdJoinWalk(const TVdTableDefs& tables, bool backwards);

    bool Entered(const TVdTableDef& table) const { return StepOf(table) != NotEntered; }
    // Whether a join that prints leads to table.
    bool IsJoined(const TVdTableDef& table) const;
    // Enters root and appends the joins reached from it: " \r\n  INNER JOIN ..." each.
    void Append(const TVdTableDef& root, std::string& out);

private:
    // A join with its two tables, looked up once per walk.
    struct TJoin {
        const TVdJoinDef* Join;
        const TVdTableDef* Owner;
        // The table it leads to when it prints, else null.
        const TVdTableDef* Target;
    };
    struct TStep {
        const TJoin* Join;
        const TVdTableDef* From;
        const TVdTableDef* Table;
        bool Backwards;
        std::vector<const TJoin*> More;
    };
    static constexpr int NotEntered = -2;

    static TJoin Describe(const TVdJoinDef& join);
    // The position of table among the walk's tables, or -1 for a table of another collection.
    int Slot(const TVdTableDef& table) const;
    int StepOf(const TVdTableDef& table) const;
    void SetStepOf(const TVdTableDef& table, int step);
    // The table's own joins, described.
    std::pair<const TJoin*, const TJoin*> JoinsOf(const TVdTableDef& table);
    void AppendStep(const TStep& step, std::string& out) const;

    // What the walk knows of the table at a position; one more entry closes the ranges.
    struct TSlot {
        // Where its joins start in FJoins, and the joins leading to it in FLeading.
        int JoinStart;
        int LeadingStart;
        // The step that brought it in; -1 for a root.
        int Step;
    };

    const TVdTableDefs& FTables;
    bool FBackwards;
    std::vector<TSlot> FSlots;
    // Every join of the tables, table after table.
    std::vector<TJoin> FJoins;
    // The printing joins that lead to each table, for walking backwards.
    std::vector<const TJoin*> FLeading;
    // The steps of tables of another collection (a root handed in from elsewhere), and their
    // joins (a vector keeps its elements in place when it moves).
    std::vector<std::pair<const TVdTableDef*, int>> FOtherSteps;
    std::vector<std::vector<TJoin>> FOtherJoins;
};

} // namespace vd
