#include "core/VdTableDef.h"

#include "core/VdJoinWalk.h"

#include "core/VdFieldDef.h"
#include "core/VdJoinDef.h"
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <optional>
#include <queue>
#include <string_view>
#include <unordered_set>

namespace vd {

// ---- TVdTableDef ----

TVdTableDef::TVdTableDef() = default;

TVdTableDef::~TVdTableDef()
{
    // Fields leave before the joins; neither reports back to the collection any more.
    FFieldDefs.reset();
    FJoinDefs.reset();
}

TVdTableDefs* TVdTableDef::Tables() const
{
    return Collection() ? Collection()->AsTableDefs() : nullptr;
}

void TVdTableDef::SetParser(TVdSelectParser* parser)
{
    TVdCollectionItem::SetParser(parser);
    if (FFieldDefs)
        FFieldDefs->SetParser(parser);
    if (FJoinDefs)
        FJoinDefs->SetParser(parser);
}

void TVdTableDef::Assign(const TVdCollectionItem& source)
{
    const auto* src = dynamic_cast<const TVdTableDef*>(&source);
    if (!src || src == this)
        return;
    // The name and alias are taken as they are: through SetName and SetAlias a new table would
    // pass through its name as alias, and the joins of other tables that name that alias
    // would follow it (U A1, A1 H: a join to A1 would end up at H).
    SetKeys(src->FName, src->FAlias);
    FTableType = src->FTableType;
    FieldDefs().Assign(src->FieldDefs());
    JoinDefs().Assign(src->JoinDefs());
}

std::unique_ptr<TVdFieldDefs> TVdTableDef::CreateFieldDefs()
{
    return std::make_unique<TVdFieldDefs>(this);
}

std::unique_ptr<TVdJoinDefs> TVdTableDef::CreateJoinDefs()
{
    return std::make_unique<TVdJoinDefs>(this);
}

TVdFieldDefs& TVdTableDef::FieldDefs()
{
    if (!FFieldDefs) {
        FFieldDefs = CreateFieldDefs();
        FFieldDefs->SetOwnerTable(this);
        FFieldDefs->SetParser(Parser());
    }
    return *FFieldDefs;
}

const TVdFieldDefs& TVdTableDef::FieldDefs() const
{
    return const_cast<TVdTableDef*>(this)->FieldDefs();
}

TVdJoinDefs& TVdTableDef::JoinDefs()
{
    if (!FJoinDefs) {
        FJoinDefs = CreateJoinDefs();
        FJoinDefs->SetParser(Parser());
    }
    return *FJoinDefs;
}

const TVdJoinDefs& TVdTableDef::JoinDefs() const
{
    return const_cast<TVdTableDef*>(this)->JoinDefs();
}

void TVdTableDef::SetAlias(const std::string& alias)
{
    if (alias == FAlias)
        return;
    if (TVdTableDefs* tables = Tables()) {
        tables->UpdateTableAlias(FAlias, alias);
        tables->TableKeyChanged(*this, true, FAlias, alias);
    }
    FAlias = alias;
}

void TVdTableDef::SetName(const std::string& name)
{
    if (name == FName)
        return;
    if (FAlias == FName)
        SetAlias(name);
    if (TVdTableDefs* tables = Tables())
        tables->TableKeyChanged(*this, false, FName, name);
    FName = name;
}

void TVdTableDef::SetKeys(const std::string& name, const std::string& alias)
{
    if (TVdTableDefs* tables = Tables()) {
        tables->TableKeyChanged(*this, false, FName, name);
        tables->TableKeyChanged(*this, true, FAlias, alias);
    }
    FName = name;
    FAlias = alias;
}

std::string TVdTableDef::ProcessAlias(const std::string& alias) const
{
    if (Parser() && Parser()->Scanner().GetProcessAliases())
        return ProcessName(alias);
    return alias;
}

std::string TVdTableDef::GetParamsText() const
{
    std::string result;
    if (!FFieldDefs)
        return result;
    for (int i = 0; i < FFieldDefs->Count(); ++i) {
        const TVdFieldDef* field = FFieldDefs->Items(i);
        if (!field->IsInputParam())
            continue;
        if (!result.empty())
            result += ", ";
        result += ':';
        result += field->Name();
    }
    return result;
}

void script::AppendSourceText(std::string& out, const TVdTableDef& table)
{
    script::AppendName(out, table.Parser(), table.Name());
    if (table.TableType() == qttStoredProc) {
        const std::string params = table.GetParamsText();
        if (!params.empty()) {
            out += '(';
            out += params;
            out += ')';
        }
    }
    if (!table.Alias().empty() && table.Alias() != table.Name()) {
        out += ' ';
        script::AppendAlias(out, table.Parser(), table.Alias());
    }
}

std::string TVdTableDef::GetSourceText() const
{
    std::string result;
    script::AppendSourceText(result, *this);
    return result;
}

std::string TVdTableDef::GetScript() const
{
    if (const TVdTableDefs* tables = Tables())
        return tables->GetTableScript(*this);
    std::string out = "  ";
    script::AppendSourceText(out, *this);
    return out;
}

void TVdTableDef::Added()
{
    if (TVdTableDefs* tables = Tables()) {
        tables->TableAdded(*this);
        if (FJoinDefs)
            tables->JoinsChanged(FJoinDefs->Count());
    }
}

void TVdTableDef::Removing()
{
    if (TVdTableDefs* tables = Tables()) {
        tables->FieldsRemoved(*this);
        tables->TableRemoving(*this);
        if (FJoinDefs)
            tables->JoinsChanged(-FJoinDefs->Count());
    }
}

// ---- TVdTableDefs ----

TVdTableDefs::TVdTableDefs()
    : TVdCollectionOf<TVdTableDef>([] { return std::make_unique<TVdTableDef>(); })
{
}

TVdTableDefs::~TVdTableDefs() { Clear(); }

// The positions of the tables in a set stay in the same order while they change: a table is
// added or taken out of a set while every position is up to date.
bool TVdTableDefs::TByPosition::operator()(const TVdTableDef* a, const TVdTableDef* b) const
{
    return a->Index() < b->Index();
}

void TVdTableDefs::LookupInsert(TLookup& lookup, const std::string& key, TVdTableDef* table)
{
    lookup[key].insert(table);
}

void TVdTableDefs::LookupErase(TLookup& lookup, const std::string& key, TVdTableDef* table)
{
    auto it = lookup.find(key);
    if (it == lookup.end())
        return;
    auto at = it->second.find(table);
    if (at != it->second.end() && *at == table)
        it->second.erase(at);
    if (it->second.empty())
        lookup.erase(it);
}

TVdTableDef* TVdTableDefs::LookupFind(const TLookup& lookup, const std::string& key)
{
    auto it = lookup.find(key);
    return it == lookup.end() ? nullptr : *it->second.begin();
}

void TVdTableDefs::EnsureLookup() const
{
    if (FLookupValid)
        return;
    if (FLookups) {
        FLookups->ByAlias.clear();
        FLookups->ByName.clear();
    } else {
        FLookups = std::make_unique<TLookups>();
    }
    for (int i = 0; i < Count(); ++i) {
        TVdTableDef* table = Items(i);
        FLookups->ByAlias[table->Alias()].insert(table);
        FLookups->ByName[table->Name()].insert(table);
    }
    FLookupValid = true;
}

void TVdTableDefs::TableAdded(TVdTableDef& table)
{
    // A look over the fields walks every table: a long FROM list has its aliases counted.
    if (!FCounting && Count() > AliasScanLimit)
        StartCounting();
    if (!FLookupValid)
        return;
    LookupInsert(FLookups->ByAlias, table.Alias(), &table);
    LookupInsert(FLookups->ByName, table.Name(), &table);
}

void TVdTableDefs::TableRemoving(TVdTableDef& table)
{
    if (!FLookupValid)
        return;
    LookupErase(FLookups->ByAlias, table.Alias(), &table);
    LookupErase(FLookups->ByName, table.Name(), &table);
}

void TVdTableDefs::TableKeyChanged(TVdTableDef& table, bool alias, const std::string& oldKey,
                                   const std::string& newKey)
{
    if (!FLookupValid)
        return;
    TLookup& lookup = alias ? FLookups->ByAlias : FLookups->ByName;
    LookupErase(lookup, oldKey, &table);
    LookupInsert(lookup, newKey, &table);
}

TVdTableDef* TVdTableDefs::ScanFor(bool alias, const std::string& key) const
{
    for (int i = 0; i < Count(); ++i) {
        TVdTableDef* table = Items(i);
        if ((alias ? table->Alias() : table->Name()) == key)
            return table;
    }
    return nullptr;
}

TVdTableDef* TVdTableDefs::FindByName(const std::string& name) const
{
    if (!FLookupValid && Count() <= LinearLookupLimit)
        return ScanFor(false, name);
    EnsureLookup();
    return LookupFind(FLookups->ByName, name);
}

TVdTableDef* TVdTableDefs::FindByAlias(const std::string& alias) const
{
    if (!FLookupValid && Count() <= LinearLookupLimit)
        return ScanFor(true, alias);
    EnsureLookup();
    return LookupFind(FLookups->ByAlias, alias);
}

TVdTableDef* TVdTableDefs::FindByAliasOrName(const std::string& text) const
{
    TVdTableDef* table = FindByAlias(text);
    return table ? table : FindByName(text);
}

namespace {

// The first field of the tables, table after table, for which found holds; null for none.
// A table whose field list was never made has no fields and is passed over without making it.
template <class Found> TVdFieldDef* FindField(const TVdTableDefs& tables, Found found)
{
    for (int t = 0; t < tables.Count(); ++t) {
        const TVdFieldDefs* fields = tables.Items(t)->FieldList();
        for (int f = 0, n = fields ? fields->Count() : 0; f < n; ++f)
            if (found(fields->Items(f)))
                return fields->Items(f);
    }
    return nullptr;
}

// Every field of the tables, table after table.
template <class Visit> void ForEachField(const TVdTableDefs& tables, Visit visit)
{
    FindField(tables, [&visit](TVdFieldDef* field) {
        visit(field);
        return false;
    });
}

} // namespace

std::vector<TVdFieldDef*> TVdTableDefs::FieldsInOrder() const
{
    std::vector<TVdFieldDef*> ordered(size_t(FFieldCount), nullptr);
    ForEachField(*this, [&](TVdFieldDef* field) {
        const int index = field->FieldIndex();
        if (index >= 0 && index < FFieldCount && !ordered[size_t(index)])
            ordered[size_t(index)] = field;
    });
    return ordered;
}

TVdFieldDef* TVdTableDefs::GetFieldDefs(int index) const
{
    return FindField(*this,
                     [index](const TVdFieldDef* field) { return field->FieldIndex() == index; });
}

bool TVdTableDefs::IsTableJoined(const TVdTableDef& table) const
{
    for (int t = 0; t < Count(); ++t) {
        const TVdJoinDefs* joins = Items(t)->JoinList();
        for (int j = 0, n = joins ? joins->Count() : 0; j < n; ++j)
            if (joins->Items(j)->JoinTable == table.Alias())
                return true;
    }
    return false;
}

namespace {

// A set kept in place while it is small, as it is for almost every statement (a few tables,
// a few joins); past that a hash set keeps printing linear.
template <class T> class TSmallSet
{
public:
    bool Contains(const T& value) const
    {
        if (FSpill)
            return FSpill->count(value) > 0;
        const auto end = FInline.begin() + FCount;
        return std::find(FInline.begin(), end, value) != end;
    }
    // False when the value was there already.
    bool Insert(const T& value)
    {
        if (Contains(value))
            return false;
        if (!FSpill && FCount < FInline.size()) {
            FInline[FCount++] = value;
            return true;
        }
        if (!FSpill)
            FSpill.emplace(FInline.begin(), FInline.end());
        FSpill->insert(value);
        return true;
    }

private:
    std::array<T, 16> FInline{};
    size_t FCount = 0;
    std::optional<std::unordered_set<T>> FSpill;
};

// A stack that holds its first sixteen values without the heap.
template <class T> class TSmallStack
{
public:
    bool Empty() const { return FCount == 0 && FSpill.empty(); }
    void Push(const T& value)
    {
        if (FSpill.empty() && FCount < FInline.size())
            FInline[FCount++] = value;
        else
            FSpill.push_back(value);
    }
    T Pop()
    {
        if (!FSpill.empty()) {
            T value = FSpill.back();
            FSpill.pop_back();
            return value;
        }
        return FInline[--FCount];
    }

private:
    std::array<T, 16> FInline{};
    size_t FCount = 0;
    std::vector<T> FSpill;
};

} // namespace

bool TVdTableDefs::JoinsReach(const TVdTableDef& from, const TVdTableDef& to) const
{
    TSmallSet<const TVdTableDef*> seen;
    seen.Insert(&from);
    TSmallStack<const TVdTableDef*> pending;
    pending.Push(&from);
    while (!pending.Empty()) {
        const TVdTableDef* table = pending.Pop();
        if (table == &to)
            return true;
        const TVdJoinDefs* joins = table->JoinList();
        for (int j = 0, n = joins ? joins->Count() : 0; j < n; ++j) {
            const TVdTableDef* joined = FindByAlias(joins->Items(j)->JoinTable);
            if (joined && seen.Insert(joined))
                pending.Push(joined);
        }
    }
    return false;
}

void TVdTableDefs::AppendJoins(const TVdTableDef& root, std::string& out) const
{
    if (!root.JoinList() || root.JoinList()->Count() == 0)
        return;
    TVdJoinWalk(*this, false).Append(root, out);
}

std::string TVdTableDefs::GetTableScript(const TVdTableDef& table) const
{
    std::string out = "  ";
    script::AppendSourceText(out, table);
    AppendJoins(table, out);
    return out;
}

void TVdTableDefs::AppendScript(std::string& out, size_t& listSize) const
{
    AppendScript(out, listSize, FieldsInOrder());
}

void TVdTableDefs::AppendScript(std::string& out, size_t& listSize,
                                const std::vector<TVdFieldDef*>& fields) const
{
    const size_t listStart = out.size();
    for (const TVdFieldDef* field : fields) {
        if (!field || field->IsInputParam())
            continue;
        // A field that prints nothing takes no line.
        const size_t mark = out.size();
        out += mark == listStart ? "\r\n  " : ",\r\n  ";
        const size_t start = out.size();
        script::AppendFieldScript(out, *field);
        if (out.size() == start)
            out.resize(mark);
    }
    if (out.size() == listStart && Count() > 0)
        out += '*';
    listSize = out.size() - listStart;
    out += "\r\n";
    script::AppendKeyword(out, Parser(), "FROM");
    out += "\r\n";
    const size_t head = out.size();
    auto appendEntry = [&](const TVdTableDef& table, TVdJoinWalk* walk) {
        if (out.size() > head)
            out += ",\r\n";
        out += "  ";
        script::AppendSourceText(out, table);
        if (walk)
            walk->Append(table, out);
    };
    if (FJoinCount == 0) {
        for (int t = 0; t < Count(); ++t)
            // A table that no text has named yet (SELECT A without FROM) has no FROM line.
            if (!Items(t)->Name().empty())
                appendEntry(*Items(t), nullptr);
    } else {
        // A table that a join leads to prints after that join, not on a FROM line of its own;
        // tables that only a ring of joins reaches start an entry of their own at the end.
        TVdJoinWalk walk(*this, true);
        for (const bool rings : {false, true})
            for (int t = 0; t < Count(); ++t) {
                const TVdTableDef& table = *Items(t);
                if (!table.Name().empty() && !walk.Entered(table) &&
                    (rings || !walk.IsJoined(table)))
                    appendEntry(table, &walk);
            }
    }
    if (out.size() == head) {
        out.resize(listStart + listSize);
        return;
    }
    out += "\r\n";
}

std::string TVdTableDefs::GetScript(std::string& selectList) const
{
    std::string out;
    size_t listSize = 0;
    AppendScript(out, listSize);
    selectList.assign(out, 0, listSize);
    return out;
}

std::string TVdTableDefs::GetScript() const
{
    std::string selectList;
    return GetScript(selectList);
}

bool TVdTableDefs::AliasUsed(const std::string& alias) const
{
    if (!FCounting)
        return FindField(*this, [&alias](const TVdFieldDef* field) {
                   return field->Alias() == alias;
               }) != nullptr;
    if (alias.empty())
        return FEmptyAliases > 0;
    const int* count = FAliasCount.Find(alias);
    return count && *count > 0;
}

void TVdTableDefs::CountAlias(const std::string& alias, int delta)
{
    if (!FCounting) {
        // Whether another field still holds the alias is not known: the hints it may have
        // bounded are lowered (they only shorten a search, so the aliases found stay the same).
        if (delta < 0)
            LowerCounterHints(alias);
        return;
    }
    if (alias.empty()) {
        FEmptyAliases += delta;
        return;
    }
    if (delta > 0) {
        FAliasCount[alias] += delta;
        return;
    }
    int* count = FAliasCount.Find(alias);
    if (!count)
        return;
    *count += delta;
    if (*count > 0)
        return;
    FAliasCount.Erase(alias);
    LowerCounterHints(alias);
}

void TVdTableDefs::LowerCounterHints(const std::string& alias)
{
    if (FCounterHint.Empty())
        return;
    // A freed name<k> (name1, name2, ...) may be the lowest free counter of name again: the
    // hint of name (every counter up to it is taken) drops below k. Dropping it only, not
    // forgetting it, keeps the next search short when generated names come and go.
    long long counter = 0;
    long long scale = 1;
    for (size_t i = alias.size(); i > 0 && std::isdigit(static_cast<unsigned char>(alias[i - 1]));
         --i) {
        const std::string_view name = std::string_view(alias).substr(0, i - 1);
        int* hint = FCounterHint.Find(name);
        if (scale > 100000000) {
            if (hint)
                FCounterHint.Erase(name);
            continue;
        }
        counter += (alias[i - 1] - '0') * scale;
        scale *= 10;
        if (hint && *hint >= counter)
            *hint = int(std::max(counter - 1, 0LL));
    }
}

void TVdTableDefs::StartCounting()
{
    FCounting = true;
    FAliasCount.Clear();
    FEmptyAliases = 0;
    ForEachField(*this, [this](const TVdFieldDef* field) { CountAlias(field->Alias(), +1); });
}

std::string TVdTableDefs::GetUniqueAlias(const std::string& name, bool force)
{
    if (!force && !AliasUsed(name))
        return name;
    // Every counter below the hint is known to be taken: start the search behind it.
    int* hint = FCounterHint.Find(name);
    int counter = hint ? *hint : 0;
    // Each candidate is written over the last one: no string is made per counter tried.
    std::string result;
    result.reserve(name.size() + 11);
    do {
        ++counter;
        char digits[12];
        const char* end = std::to_chars(digits, digits + sizeof digits, counter).ptr;
        result.assign(name).append(digits, size_t(end - digits));
    } while (AliasUsed(result));
    // The search changed no hint: the one found above is still where it was.
    if (hint)
        *hint = counter - 1;
    else
        FCounterHint[name] = counter - 1;
    return result;
}

void TVdTableDefs::AliasChanged(const std::string& oldAlias, const std::string& newAlias)
{
    CountAlias(oldAlias, -1);
    CountAlias(newAlias, +1);
}

void TVdTableDefs::FieldAdded(TVdFieldDef& field)
{
    ++FFieldCount;
    field.SetFieldIndex(FFieldCount - 1);
    // The field stands in its list already: counting from scratch counts it too.
    if (!FCounting && FFieldCount > AliasScanLimit)
        StartCounting();
    else
        CountAlias(field.Alias(), +1);
}

void TVdTableDefs::FieldRemoved(TVdFieldDef& field)
{
    --FFieldCount;
    CountAlias(field.Alias(), -1);
    DecrementIndexes({field.FieldIndex()}, nullptr);
}

void TVdTableDefs::FieldsRemoved(TVdTableDef& table)
{
    if (!table.FieldList() || table.FieldList()->Count() == 0)
        return;
    const TVdFieldDefs& fields = *table.FieldList();
    std::vector<int> removed;
    removed.reserve(size_t(fields.Count()));
    for (int f = 0; f < fields.Count(); ++f) {
        const TVdFieldDef* field = fields.Items(f);
        removed.push_back(field->FieldIndex());
        CountAlias(field->Alias(), -1);
    }
    FFieldCount -= fields.Count();
    DecrementIndexes(std::move(removed), &table);
}

void TVdTableDefs::DecrementIndexes(std::vector<int> removed, const TVdTableDef* skip)
{
    std::sort(removed.begin(), removed.end());
    for (int t = 0; t < Count(); ++t) {
        TVdTableDef* table = Items(t);
        if (table == skip || !table->FieldList())
            continue;
        const TVdFieldDefs& fields = *table->FieldList();
        for (int f = 0; f < fields.Count(); ++f) {
            TVdFieldDef* field = fields.Items(f);
            const int index = field->FieldIndex();
            const auto below =
                std::lower_bound(removed.begin(), removed.end(), index) - removed.begin();
            if (below > 0)
                field->SetFieldIndex(index - int(below));
        }
    }
}

void TVdTableDefs::Clearing()
{
    FFieldCount = 0;
    FJoinCount = 0;
    FAliasCount.Clear();
    FEmptyAliases = 0;
    FCounting = false;
    FCounterHint.Clear();
    if (FLookups) {
        FLookups->ByAlias.clear();
        FLookups->ByName.clear();
    }
    // Built again when a statement holds more tables than a scan serves well.
    FLookupValid = false;
}

void TVdTableDefs::UpdateJoins()
{
    for (int t = 0; t < Count(); ++t) {
        if (!Items(t)->JoinList())
            continue;
        TVdJoinDefs& joins = Items(t)->JoinDefs();
        for (int j = joins.Count() - 1; j >= 0; --j) {
            const TVdJoinDef* join = joins.Items(j);
            const TVdTableDef* joined = FindByAliasOrName(join->JoinTable);
            const TVdFieldDefs* fields = joined ? joined->FieldList() : nullptr;
            if (!fields ||
                (!fields->FindByAlias(join->JoinField) && !fields->FindByName(join->JoinField)))
                joins.Delete(j);
        }
    }
}

void TVdTableDefs::UpdateFieldAliases()
{
    for (int t = 0; t < Count(); ++t) {
        if (!Items(t)->FieldList())
            continue;
        const TVdFieldDefs& fields = *Items(t)->FieldList();
        std::unordered_map<std::string, int> aliases;
        for (int f = 0; f < fields.Count(); ++f)
            ++aliases[fields.Items(f)->Alias()];
        for (int f = 0; f < fields.Count(); ++f) {
            TVdFieldDef* field = fields.Items(f);
            // A field printed under an alias of its own ("NAME AS N2") clashes with nobody
            // whose alias is its name: renewing it would rename a column the user named.
            if (!field->Alias().empty() && field->Alias() != field->Name())
                continue;
            auto it = aliases.find(field->Name());
            const int others =
                (it == aliases.end() ? 0 : it->second) - (field->Alias() == field->Name() ? 1 : 0);
            if (others <= 0)
                continue;
            const std::string alias =
                GetUniqueAlias(field->Kind() == fkIdentifier ? field->Name() : "FIELD_", true);
            --aliases[field->Alias()];
            ++aliases[alias];
            field->SetAlias(alias);
        }
    }
}

void TVdTableDefs::UpdateTableAlias(const std::string& oldAlias, const std::string& newAlias)
{
    if (FJoinCount == 0)
        return;
    for (int t = 0; t < Count(); ++t) {
        if (!Items(t)->JoinList())
            continue;
        const TVdJoinDefs& joins = *Items(t)->JoinList();
        for (int j = 0; j < joins.Count(); ++j)
            if (joins.Items(j)->JoinTable == oldAlias)
                joins.Items(j)->JoinTable = newAlias;
    }
}

void TVdTableDefs::EndUpdate()
{
    TVdCollection::EndUpdate();
    if (UpdateCount() == 0)
        UpdateFieldAliases();
}

} // namespace vd
