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

    std::string Operation = "=";
    TVdJoinKind JoinKind = vdjInnerJoin;
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

// The SQL words of a join kind: "INNER", "LEFT OUTER", "RIGHT OUTER", "FULL OUTER".
const char* JoinKindWords(TVdJoinKind kind);

} // namespace vd
