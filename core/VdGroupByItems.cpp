#include "core/VdGroupByItems.h"

#include "core/VdFieldDef.h"
#include "core/VdScriptText.h"
#include "core/VdSelectParser.h"
#include "core/VdTableDef.h"
#include "core/VdText.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace vd {

namespace {

const std::string& TablePrefix(const TVdFieldDef& field)
{
    static const std::string none;
    const TVdTableDef* table = field.Table();
    if (!table)
        return none;
    return table->Alias().empty() ? table->Name() : table->Alias();
}

} // namespace

std::vector<TVdFieldDef*> TVdGroupByItems::ParserFields() const
{
    if (!Parser())
        return {};
    return Parser()->TableDefs().FieldsInOrder();
}

std::vector<const TVdFieldDef*> TVdGroupByItems::DerivedFields() const
{
    return DerivedFields(ParserFields());
}

std::vector<const TVdFieldDef*>
TVdGroupByItems::DerivedFields(const std::vector<TVdFieldDef*>& fields) const
{
    std::vector<const TVdFieldDef*> derived;
    const TVdSelectParser* parser = Parser();
    if (!parser)
        return derived;
    bool aggregates = false;
    bool plain = false;
    // Only output columns count: a procedure's input parameters are its arguments, and T.*
    // is no column to group by (engines refuse it in GROUP BY, quoted or not, and SQLite
    // takes it beside an aggregate without one).
    const auto counts = [](const TVdFieldDef* field) {
        return field && !field->IsInputParam() && field->Name() != "*";
    };
    for (const TVdFieldDef* field : fields) {
        if (!counts(field))
            continue;
        if (field->Kind() == fkFunction && parser->Aggregates().Contains(field->Name()))
            aggregates = true;
        else
            plain = true;
    }
    if (!aggregates || !plain)
        return derived;
    derived.reserve(fields.size());
    for (const TVdFieldDef* field : fields)
        if (counts(field) && field->Kind() == fkIdentifier &&
            !parser->Aggregates().Contains(field->Name()))
            derived.push_back(field);
    return derived;
}

// The column as the select list prints it, qualifier and name each quoted on its own: the
// whole text split anew at its dots would name another column once a qualifier holds a dot
// (A.C.A.I prints "A.C"."A"."I", and "A.C.A"."I" would not read back the same).
std::string TVdGroupByItems::DerivedLine(const TVdFieldDef& field) const
{
    std::string line;
    AppendDerivedLine(line, field);
    return line;
}

void TVdGroupByItems::AppendDerivedLine(std::string& line, const TVdFieldDef& field) const
{
    const TVdSelectParser& parser = *Parser();
    const std::string& prefix = TablePrefix(field);
    if (!prefix.empty()) {
        script::AppendItemName(line, parser, prefix);
        line += '.';
    }
    script::AppendItemName(line, parser, field.Name());
}

std::vector<std::string>
TVdGroupByItems::DerivedLines(const std::vector<const TVdFieldDef*>& derived) const
{
    std::vector<std::string> lines;
    lines.reserve(derived.size());
    for (const TVdFieldDef* field : derived)
        lines.push_back(DerivedLine(*field));
    return lines;
}

namespace {

bool IsQuoteChar(char c) { return c == '"' || c == '`' || c == '\''; }

// Whether text, its quotes taken out, is the parts one after another, theirs taken out too,
// in any letter case, compared without building either: "T".A, T.A and "T"."A" compare alike
// (the model keeps a part in its quotes only where names print as they stand).
bool SameUnquoted(std::string_view text, std::initializer_list<std::string_view> parts)
{
    size_t at = 0;
    auto skipQuotes = [&] {
        while (at < text.size() && IsQuoteChar(text[at]))
            ++at;
    };
    for (const std::string_view part : parts)
        for (const char c : part) {
            if (IsQuoteChar(c))
                continue;
            skipQuotes();
            if (at == text.size() || text::UpperChar(text[at]) != text::UpperChar(c))
                return false;
            ++at;
        }
    skipQuotes();
    return at == text.size();
}

// The length of name with its quotes taken out.
size_t UnquotedSize(std::string_view name)
{
    size_t size = 0;
    for (const char c : name)
        size += IsQuoteChar(c) ? 0 : 1;
    return size;
}

// A hash of characters fed one at a time (FNV-1a, mixed at the end so that its low bits
// spread), for spellings hashed as they are compared, without building them.
class TKeyHash
{
public:
    void Add(char c) { FValue = (FValue ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL; }
    void AddText(std::string_view text)
    {
        for (const char c : text)
            Add(c);
    }
    void AddUpper(std::string_view text)
    {
        for (const char c : text)
            Add(text::UpperChar(c));
    }
    // What stays of text once its quotes are taken out, upper-cased.
    void AddUnquoted(std::string_view text)
    {
        for (const char c : text)
            if (!IsQuoteChar(c))
                Add(text::UpperChar(c));
    }
    size_t Value() const { return Mix(FValue); }

    static size_t Mix(std::uint64_t h)
    {
        h ^= h >> 33;
        h *= 0xff51afd7ed558ccdULL;
        h ^= h >> 33;
        return size_t(h);
    }

private:
    std::uint64_t FValue = 0xcbf29ce484222325ULL;
};

// Codes under hashes in one flat table (open addressing): no node per key. Equal hashes do
// not make equal keys: a visitor compares the spelling itself.
class TKeyTable
{
public:
    void Reserve(size_t count)
    {
        size_t size = 16;
        while (size < 2 * count)
            size <<= 1;
        FSlots.assign(size, TSlot{0, -1});
    }
    void Add(size_t hash, int code)
    {
        const size_t mask = FSlots.size() - 1;
        size_t at = hash & mask;
        while (FSlots[at].Code >= 0)
            at = (at + 1) & mask;
        FSlots[at] = {hash, code};
        ++FCount;
    }
    bool Empty() const { return FCount == 0; }
    template <class Visit> void ForEach(size_t hash, Visit visit) const
    {
        if (FCount == 0)
            return;
        const size_t mask = FSlots.size() - 1;
        for (size_t at = hash & mask; FSlots[at].Code >= 0; at = (at + 1) & mask)
            if (FSlots[at].Hash == hash)
                visit(FSlots[at].Code);
    }

private:
    struct TSlot {
        size_t Hash;
        int Code;
    };
    std::vector<TSlot> FSlots;
    size_t FCount = 0;
};

// At most this many items to look up are compared with each field rather than indexed.
constexpr size_t FewUnnamed = 4;

// The derived fields under every spelling a GROUP BY item may name them by. A statement
// groups by a handful of columns: then the fields are compared with each item in order, no
// key built. Beyond that the spellings are hashed, so that each kept item is looked up once
// rather than compared with every field.
class TDerivedIndex
{
public:
    // few: only a few items will be looked up, each compared with the fields in order.
    TDerivedIndex(const std::vector<const TVdFieldDef*>& derived,
                  const std::vector<std::string>& lines, bool few = false)
        : FDerived(derived), FLines(lines), FHashed(!few && derived.size() > FlatLimit)
    {
        if (!FHashed) {
            FSizes.reserve(derived.size());
            for (const TVdFieldDef* field : derived)
                FSizes.push_back(SizesOf(*field));
            return;
        }
        FByLine.Reserve(derived.size());
        FByName.Reserve(2 * derived.size());
        FByAlias.Reserve(derived.size());
        FPositions.Reserve(derived.size());
        for (int i = 0; i < int(derived.size()); ++i) {
            const TVdFieldDef& field = *derived[size_t(i)];
            TKeyHash line;
            line.AddText(lines[size_t(i)]);
            FByLine.Add(line.Value(), i);
            // A name's code is twice its field's place, a qualified name's one more.
            TKeyHash name;
            name.AddUnquoted(field.Name());
            FByName.Add(name.Value(), 2 * i);
            const std::string& prefix = TablePrefix(field);
            if (UnquotedSize(prefix) > 0) {
                TKeyHash qualified;
                qualified.AddUnquoted(prefix);
                qualified.Add('.');
                qualified.AddUnquoted(field.Name());
                FByName.Add(qualified.Value(), 2 * i + 1);
            }
            if (!field.Alias().empty()) {
                TKeyHash alias;
                alias.AddUpper(field.Alias());
                FByAlias.Add(alias.Value(), i);
            }
            FPositions.Add(PointerHash(&field), i);
        }
    }

    // The fields item names as a derived line does: it prints as that line (script), or it is
    // the name alone or qualified with the table's alias (or name), in any letter case and
    // quotes aside.
    template <class Visit>
    void ForNamed(const std::string& item, const std::string& script, Visit visit) const
    {
        if (!FHashed) {
            const size_t itemSize = UnquotedSize(item);
            for (size_t i = 0; i < FDerived.size(); ++i)
                if (FLines[i] == script || NamesField(item, itemSize, i))
                    visit(int(i));
            return;
        }
        TKeyHash line;
        line.AddText(script);
        FByLine.ForEach(line.Value(), [&](int i) {
            if (FLines[size_t(i)] == script)
                visit(i);
        });
        TKeyHash name;
        name.AddUnquoted(item);
        FByName.ForEach(name.Value(), [&](int code) {
            const TVdFieldDef& field = *FDerived[size_t(code / 2)];
            if (code % 2 == 0 ? SameUnquoted(item, {field.Name()})
                              : SameUnquoted(item, {TablePrefix(field), ".", field.Name()}))
                visit(code / 2);
        });
    }

    // The fields item groups by: those it names, the one whose alias it is, the one at its
    // position in printed (the printed select list).
    template <class Visit>
    void ForGrouped(const std::string& item, const std::string& script,
                    const std::vector<const TVdFieldDef*>& printed, Visit visit) const
    {
        ForNamed(item, script, visit);
        if (!FHashed) {
            for (size_t i = 0; i < FDerived.size(); ++i)
                if (!FDerived[i]->Alias().empty() && text::SameText(item, FDerived[i]->Alias()))
                    visit(int(i));
        } else if (!FByAlias.Empty()) {
            TKeyHash alias;
            alias.AddUpper(item);
            FByAlias.ForEach(alias.Value(), [&](int i) {
                if (text::SameText(item, FDerived[size_t(i)]->Alias()))
                    visit(i);
            });
        }
        if (!TVdStringList::IsPosition(item) || item.size() > 9)
            return;
        const size_t position = std::stoul(item);
        if (position < 1 || position > printed.size())
            return;
        const int at = PositionOf(printed[position - 1]);
        if (at >= 0)
            visit(at);
    }

private:
    static constexpr size_t FlatLimit = 16;

    // The lengths of a field's spellings with their quotes taken out, so that most fields are
    // told apart from an item by its length alone.
    struct TSizes {
        size_t Name;
        // npos where the table's alias (or name) is only quotes: no qualified spelling.
        size_t Qualified;
    };

    static TSizes SizesOf(const TVdFieldDef& field)
    {
        const size_t name = UnquotedSize(field.Name());
        const size_t prefix = UnquotedSize(TablePrefix(field));
        return {name, prefix == 0 ? std::string::npos : prefix + 1 + name};
    }

    // Whether item (itemSize long, quotes aside) names the derived field at i by its name alone
    // or qualified with the table's alias (or name), in any letter case and quotes aside.
    bool NamesField(const std::string& item, size_t itemSize, size_t i) const
    {
        const TVdFieldDef& field = *FDerived[i];
        if (FSizes[i].Name == itemSize && SameUnquoted(item, {field.Name()}))
            return true;
        return FSizes[i].Qualified == itemSize &&
               SameUnquoted(item, {TablePrefix(field), ".", field.Name()});
    }

    static size_t PointerHash(const TVdFieldDef* field)
    {
        return TKeyHash::Mix(std::uint64_t(reinterpret_cast<std::uintptr_t>(field)));
    }

    // The first place of a field among the derived ones, or -1.
    int PositionOf(const TVdFieldDef* field) const
    {
        if (FHashed) {
            int first = -1;
            FPositions.ForEach(PointerHash(field), [&](int i) {
                if (FDerived[size_t(i)] == field && (first < 0 || i < first))
                    first = i;
            });
            return first;
        }
        for (size_t i = 0; i < FDerived.size(); ++i)
            if (FDerived[i] == field)
                return int(i);
        return -1;
    }

    const std::vector<const TVdFieldDef*>& FDerived;
    const std::vector<std::string>& FLines;
    const bool FHashed;
    std::vector<TSizes> FSizes;
    // Visitors only mark fields, so the order among equal keys does not matter.
    TKeyTable FByLine;
    TKeyTable FByName;
    TKeyTable FByAlias;
    TKeyTable FPositions;
};

} // namespace

// The kept items that print as derived lines, matched by their text alone: a statement that
// groups as the builder prints it needs no index of names, aliases and positions.
TVdGroupByItems::TLineMatch
TVdGroupByItems::MatchKeptLines(const std::vector<std::string>& lines) const
{
    TLineMatch match;
    match.Covered.assign(lines.size(), false);
    match.KeptNamed.assign(FKept.size(), false);
    match.AllKeptNamed = true;
    // Few items against few lines are compared directly; more go through a table of the
    // items' texts.
    if (FKept.size() * lines.size() <= 256) {
        std::string script;
        for (size_t i = 0; i < FKept.size(); ++i) {
            script.clear();
            AppendItemScript(script, FKept[i]);
            for (size_t j = 0; j < lines.size(); ++j)
                if (lines[j] == script) {
                    match.Covered[j] = true;
                    match.KeptNamed[i] = true;
                }
            match.AllKeptNamed = match.AllKeptNamed && match.KeptNamed[i];
        }
        return match;
    }
    std::vector<std::string> scripts(FKept.size());
    TKeyTable byScript;
    byScript.Reserve(FKept.size());
    for (size_t i = 0; i < FKept.size(); ++i) {
        AppendItemScript(scripts[i], FKept[i]);
        TKeyHash hash;
        hash.AddText(scripts[i]);
        byScript.Add(hash.Value(), int(i));
    }
    for (size_t j = 0; j < lines.size(); ++j) {
        TKeyHash hash;
        hash.AddText(lines[j]);
        byScript.ForEach(hash.Value(), [&](int i) {
            if (scripts[size_t(i)] == lines[j]) {
                match.Covered[j] = true;
                match.KeptNamed[size_t(i)] = true;
            }
        });
    }
    match.AllKeptNamed =
        std::find(match.KeptNamed.begin(), match.KeptNamed.end(), false) == match.KeptNamed.end();
    return match;
}

void TVdGroupByItems::Rebuild() { Rebuild(ParserFields()); }

void TVdGroupByItems::Rebuild(const std::vector<TVdFieldDef*>& fields)
{
    const std::vector<const TVdFieldDef*> derived = DerivedFields(fields);
    if (FKept.empty()) {
        // The lines are written over the old ones: a statement printed again keeps their
        // buffers.
        FLines.resize(derived.size());
        for (size_t i = 0; i < derived.size(); ++i) {
            FLines[i].clear();
            AppendDerivedLine(FLines[i], *derived[i]);
        }
        return;
    }
    std::vector<std::string> lines = DerivedLines(derived);
    const TLineMatch match = MatchKeptLines(lines);
    if (match.AllKeptNamed) {
        // Each kept item prints as a derived line, so it names that line's field: none is
        // added.
        FLines = std::move(lines);
        return;
    }
    // An item that prints as a derived line names it; the others are looked up. When they are
    // few (a T.* beside the columns it stands for), each is compared with the fields in order
    // rather than through an index of all of them.
    const size_t unnamed =
        size_t(std::count(match.KeptNamed.begin(), match.KeptNamed.end(), false));
    // The items to add are gathered first: the index reads the derived lines in place.
    std::vector<std::string> added;
    {
        const TDerivedIndex index(derived, lines, unnamed <= FewUnnamed);
        std::string script;
        for (size_t i = 0; i < FKept.size(); ++i) {
            if (match.KeptNamed[i])
                continue;
            script.clear();
            AppendItemScript(script, FKept[i]);
            bool named = false;
            index.ForNamed(FKept[i], script, [&named](int) { named = true; });
            if (!named)
                added.push_back(script);
        }
    }
    FLines = std::move(lines);
    for (const std::string& script : added)
        Add(script);
}

std::vector<bool>
TVdGroupByItems::KeptGroupings(const std::vector<const TVdFieldDef*>& derived,
                               const std::vector<const TVdFieldDef*>& printed) const
{
    std::vector<bool> grouped(derived.size(), false);
    if (FKept.empty())
        return grouped;
    const std::vector<std::string> lines = DerivedLines(derived);
    {
        // Every derived line written as a kept item: each field is grouped, whatever else the
        // kept items name.
        const TLineMatch match = MatchKeptLines(lines);
        if (std::find(match.Covered.begin(), match.Covered.end(), false) == match.Covered.end())
            return match.Covered;
    }
    const TDerivedIndex index(derived, lines);
    std::string script;
    for (const std::string& item : FKept) {
        script.clear();
        AppendItemScript(script, item);
        index.ForGrouped(item, script, printed, [&grouped](int i) { grouped[size_t(i)] = true; });
    }
    return grouped;
}

std::string TVdGroupByItems::GetScript()
{
    std::string out;
    AppendScript(out);
    return out;
}

void TVdGroupByItems::AppendScript(std::string& out) { AppendScript(out, ParserFields()); }

void TVdGroupByItems::AppendScript(std::string& out, const std::vector<TVdFieldDef*>& fields)
{
    if (Parser())
        Rebuild(fields);
    AppendClause(out, "GROUP", "BY", FLines);
}

int TVdGroupByItems::AddKept(const std::string& item)
{
    for (size_t i = 0; i < FKept.size(); ++i)
        if (FKept[i] == item)
            return int(i);
    FKept.push_back(item);
    return int(FKept.size()) - 1;
}

void TVdGroupByItems::DeleteKept(int index)
{
    if (index >= 0 && index < int(FKept.size()))
        FKept.erase(FKept.begin() + index);
}

void TVdGroupByItems::KeepLines() { FKept = FLines; }

void TVdGroupByItems::Clear()
{
    TVdStringList::Clear();
    FKept.clear();
}

} // namespace vd
