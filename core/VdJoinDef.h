#pragma once

#include "core/VdCollection.h"

#include <cstdint>
#include <string>

namespace vd {

class TVdTableDef;

enum TVdJoinKind : std::uint8_t { vdjInnerJoin, vdjLOuterJoin, vdjROuterJoin, vdjFOuterJoin };

// One join from the owning table to another table.
class TVdJoinDef : public TVdCollectionItem
{
public:
    void Assign(const TVdCollectionItem& source) override;
    // "INNER JOIN T ON (A.X = T.Y)"; empty while the join is incomplete or its table is missing.
    virtual std::string GetScript() const;
    TVdTableDef* GetTableDef() const;
    // The table the join leads to; null while the join is incomplete or its table is missing
    // (then it prints nothing).
    const TVdTableDef* JoinedTable() const;
    // "INNER JOIN T" of the given kind, table being the one the join brings in.
    void AppendHead(std::string& out, TVdJoinKind kind, const TVdTableDef& table) const;
    // "A.X = T.Y"; joinedFirst gives "T.Y = A.X" with the comparison mirrored (a comparison
    // that has no mirror keeps the owning side first).
    void AppendCondition(std::string& out, bool joinedFirst) const;
    // The same for an owner and a joined table already looked up (GetTableDef and
    // JoinedTable).
    void AppendCondition(std::string& out, bool joinedFirst, const TVdTableDef& owner,
                         const TVdTableDef& joined) const;
    void AppendKeyword(std::string& out, const char* keyword) const;

    // First, so it sits in the base's tail padding.
    TVdJoinKind JoinKind = vdjInnerJoin;
    std::string Operation = "=";
    std::string JoinField;
    std::string JoinTable;
    std::string FieldName;
    // When the join was made, among all joins: FROM prints joins in this order, as they were
    // read, whichever table owns them (a copy keeps it).
    std::uint64_t Sequence = NextSequence();

private:
    static std::uint64_t NextSequence();

protected:
    // Keep the table collection's count of joins.
    void Added() override;
    void Removing() override;
};

class TVdJoinDefs : public TVdCollectionOf<TVdJoinDef>
{
public:
    explicit TVdJoinDefs(TVdTableDef* owner);

    TVdJoinDef* Find(const std::string& fieldName, const std::string& joinTable,
                     const std::string& joinField) const;
    virtual std::string GetScript() const;
    TVdTableDef* Owner() const { return FOwner; }

protected:
    void Clearing() override;

private:
    TVdTableDef* FOwner;
};

// The comparison with its sides exchanged (< for >); false for one that has none.
bool MirrorComparison(std::string& operation);

// The SQL words of a join kind: "INNER", "LEFT OUTER", "RIGHT OUTER", "FULL OUTER".
const char* JoinKindWords(TVdJoinKind kind);

} // namespace vd
