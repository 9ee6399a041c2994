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
#include <unordered_map>
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

    bool Entered(const TVdTableDef& table) const { return FStepOf.count(&table) > 0; }
    // Whether a join that prints leads to table.
    bool IsJoined(const TVdTableDef& table) const;
    // Enters root and appends the joins reached from it: " \r\n  INNER JOIN ..." each.
    void Append(const TVdTableDef& root, std::string& out);

private:
    struct TStep {
        const TVdJoinDef* Join;
        const TVdTableDef* From;
        const TVdTableDef* Table;
        bool Backwards;
        std::vector<const TVdJoinDef*> More;
    };

    // The table a join leads to, when the join prints.
    static const TVdTableDef* Target(const TVdJoinDef& join);
    void AppendStep(const TStep& step, std::string& out) const;

    bool FBackwards;
    // The joins that lead to each table, for walking backwards.
    std::unordered_map<const TVdTableDef*, std::vector<const TVdJoinDef*>> FLeadingTo;
    // The step that brought a table in; -1 for a root.
    std::unordered_map<const TVdTableDef*, int> FStepOf;
};

} // namespace vd
