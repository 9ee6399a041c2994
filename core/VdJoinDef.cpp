#include "core/VdJoinDef.h"

#include <atomic>

#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"
#include "core/VdTableDef.h"

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
    Sequence = src->Sequence;
}

std::uint64_t TVdJoinDef::NextSequence()
{
    static std::atomic<std::uint64_t> next{0};
    return next++;
}

TVdTableDef* TVdJoinDef::GetTableDef() const
{
    const auto* list = dynamic_cast<const TVdJoinDefs*>(Collection());
    return list ? list->Owner() : nullptr;
}

namespace {

// The table collection that holds the table owning these joins, if any.
TVdTableDefs* OwnerTables(const TVdTableDef* table)
{
    return table && table->Collection() ? table->Collection()->AsTableDefs() : nullptr;
}

} // namespace

void TVdJoinDef::Added()
{
    if (TVdTableDefs* tables = OwnerTables(GetTableDef()))
        tables->JoinsChanged(+1);
}

void TVdJoinDef::Removing()
{
    if (TVdTableDefs* tables = OwnerTables(GetTableDef()))
        tables->JoinsChanged(-1);
}

namespace {

// "alias"."field" of one side of the ON condition.
void AppendSide(std::string& out, const TVdSelectParser* parser, const TVdTableDef& table,
                const std::string& field)
{
    script::AppendName(out, parser, table.Alias().empty() ? table.Name() : table.Alias());
    out += '.';
    script::AppendName(out, parser, field);
}

} // namespace

const TVdTableDef* TVdJoinDef::JoinedTable() const
{
    const TVdTableDef* owner = GetTableDef();
    if (!owner || FieldName.empty() || !text::HasText(JoinField) || JoinTable.empty())
        return nullptr;
    const TVdTableDefs* tables = owner->Collection() ? owner->Collection()->AsTableDefs() : nullptr;
    return tables ? tables->FindByAliasOrName(JoinTable) : nullptr;
}

void TVdJoinDef::AppendKeyword(std::string& out, const char* keyword) const
{
    script::AppendKeyword(out, Parser(), keyword);
}

void TVdJoinDef::AppendHead(std::string& out, TVdJoinKind kind, const TVdTableDef& table) const
{
    AppendKeyword(out, JoinKindWords(kind));
    out += ' ';
    AppendKeyword(out, "JOIN");
    out += ' ';
    script::AppendSourceText(out, table);
    out += ' ';
    AppendKeyword(out, "ON");
}

void TVdJoinDef::AppendCondition(std::string& out, bool joinedFirst) const
{
    const TVdTableDef* owner = GetTableDef();
    const TVdTableDef* joined = JoinedTable();
    if (owner && joined)
        AppendCondition(out, joinedFirst, *owner, *joined);
}

void TVdJoinDef::AppendCondition(std::string& out, bool joinedFirst, const TVdTableDef& owner,
                                 const TVdTableDef& joined) const
{
    const TVdSelectParser* parser = Parser();
    std::string mirrored;
    bool swapped = false;
    if (joinedFirst) {
        mirrored = Operation;
        swapped = MirrorComparison(mirrored);
    }
    AppendSide(out, parser, swapped ? joined : owner, swapped ? JoinField : FieldName);
    out += ' ';
    out += swapped ? mirrored : Operation;
    out += ' ';
    AppendSide(out, parser, swapped ? owner : joined, swapped ? FieldName : JoinField);
}

std::string TVdJoinDef::GetScript() const
{
    const TVdTableDef* joined = JoinedTable();
    if (!joined)
        return std::string();
    std::string out;
    AppendHead(out, JoinKind, *joined);
    out += " (";
    AppendCondition(out, false);
    out += ')';
    return out;
}

bool MirrorComparison(std::string& operation)
{
    static const std::pair<const char*, const char*> mirrors[] = {
        {"=", "="}, {"<>", "<>"}, {"!=", "!="}, {"<", ">"}, {">", "<"}, {"<=", ">="}, {">=", "<="}};
    for (const auto& [from, to] : mirrors)
        if (operation == from) {
            operation = to;
            return true;
        }
    return false;
}

TVdJoinDefs::TVdJoinDefs(TVdTableDef* owner)
    : TVdCollectionOf<TVdJoinDef>([] { return std::make_unique<TVdJoinDef>(); }), FOwner(owner)
{
}

TVdJoinDef* TVdJoinDefs::Find(const std::string& fieldName, const std::string& joinTable,
                              const std::string& joinField) const
{
    for (int i = 0; i < Count(); ++i) {
        TVdJoinDef* join = Items(i);
        if (join->FieldName == fieldName && join->JoinTable == joinTable &&
            join->JoinField == joinField)
            return join;
    }
    return nullptr;
}

void TVdJoinDefs::Clearing()
{
    if (TVdTableDefs* tables = OwnerTables(FOwner))
        tables->JoinsChanged(-Count());
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
