#include "core/VdJoinDef.h"

#include "core/VdSelectParser.h"
#include "core/VdTableDef.h"
#include "core/VdText.h"

namespace vd {

const char* JoinKindWords(TVdJoinKind kind)
{
    switch (kind) {
    case vdjLOuterJoin:
        return "LEFT OUTER";
    case vdjROuterJoin:
        return "RIGHT OUTER";
    case vdjFOuterJoin:
        return "FULL OUTER";
    default:
        return "INNER";
    }
}

void TVdJoinDef::Assign(const TVdCollectionItem& source)
{
    const auto* src = dynamic_cast<const TVdJoinDef*>(&source);
    if (!src || src == this)
        return;
    Operation = src->Operation;
    JoinKind = src->JoinKind;
    JoinField = src->JoinField;
    JoinTable = src->JoinTable;
    FieldName = src->FieldName;
}

TVdTableDef* TVdJoinDef::GetTableDef() const
{
    const auto* list = dynamic_cast<const TVdJoinDefs*>(Collection());
    return list ? list->Owner() : nullptr;
}

std::string TVdJoinDef::GetScript() const
{
    const TVdTableDef* owner = GetTableDef();
    if (!owner || FieldName.empty() || text::Trim(JoinField).empty() || JoinTable.empty())
        return std::string();
    const auto* tables = dynamic_cast<const TVdTableDefs*>(owner->Collection());
    const TVdTableDef* joined = tables ? tables->FindByAliasOrName(JoinTable) : nullptr;
    if (!joined)
        return std::string();
    const std::string& ownerAlias = owner->Alias().empty() ? owner->Name() : owner->Alias();
    const std::string& joinedAlias = joined->Alias().empty() ? joined->Name() : joined->Alias();
    return ProcessKeyword(JoinKindWords(JoinKind)) + " " + ProcessKeyword("JOIN") + " " + joined->GetSourceText() + " "
           + ProcessKeyword("ON") + " (" + ProcessName(ownerAlias) + "." + ProcessName(FieldName)
           + " " + Operation + " " + ProcessName(joinedAlias) + "." + ProcessName(JoinField)
           + ")";
}

TVdJoinDefs::TVdJoinDefs(TVdTableDef* owner)
    : TVdCollectionOf<TVdJoinDef>([] { return std::make_unique<TVdJoinDef>(); })
    , FOwner(owner)
{
}

TVdJoinDef* TVdJoinDefs::Find(const std::string& fieldName, const std::string& joinTable,
                              const std::string& joinField) const
{
    for (int i = 0; i < Count(); ++i) {
        TVdJoinDef* join = Items(i);
        if (join->FieldName == fieldName && join->JoinTable == joinTable
            && join->JoinField == joinField)
            return join;
    }
    return nullptr;
}

std::string TVdJoinDefs::GetScript() const
{
    std::string result;
    for (int i = 0; i < Count(); ++i) {
        result += "\r\n  ";
        result += Items(i)->GetScript();
    }
    return result;
}

} // namespace vd
