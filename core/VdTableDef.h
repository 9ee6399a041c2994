#pragma once

#include "core/VdCollection.h"
#include "core/VdNameCounts.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace vd {

class TVdFieldDef;
class TVdFieldDefs;
class TVdJoinDefs;
class TVdTableDefs;

enum TVdTableDefType : std::uint8_t { qttTable, qttStoredProc };

// One table or stored procedure of the FROM clause, with its fields and its joins.
class TVdTableDef : public TVdCollectionItem
{
public:
    TVdTableDef();
    ~TVdTableDef() override;

    void SetParser(TVdSelectParser* parser) override;
    void Assign(const TVdCollectionItem& source) override;
    virtual std::unique_ptr<TVdFieldDefs> CreateFieldDefs();
    virtual std::unique_ptr<TVdJoinDefs> CreateJoinDefs();
    // The table's line of the FROM clause, its joins following.
    virtual std::string GetScript() const;

    const std::string& Alias() const { return FAlias; }
    // Renames the alias, and every join that names the old alias with it.
    void SetAlias(const std::string& alias);
    const std::string& Name() const { return FName; }
    // A new name carries the alias along while the alias followed the name.
    void SetName(const std::string& name);
    TVdTableDefType TableType() const { return FTableType; }
    void SetTableType(TVdTableDefType type) { FTableType = type; }

    TVdFieldDefs& FieldDefs();
    const TVdFieldDefs& FieldDefs() const;
    TVdJoinDefs& JoinDefs();
    const TVdJoinDefs& JoinDefs() const;
    // The lists if they have been made, else null (then empty): for readers, which need not
    // make them.
    const TVdFieldDefs* FieldList() const { return FFieldDefs.get(); }
    const TVdJoinDefs* JoinList() const { return FJoinDefs.get(); }

    // The processed name, a procedure's argument list and the processed alias: the text that
    // stands for the table in FROM and after JOIN.
    std::string GetSourceText() const;
    // ":A, :B" for the input parameters of a stored procedure.
    std::string GetParamsText() const;
    std::string ProcessAlias(const std::string& alias) const;

protected:
    void Added() override;
    void Removing() override;

private:
    friend class TVdSelectParser;

    TVdTableDefs* Tables() const;
    // Name and alias at once, as they are: no join follows the alias (as SetAlias makes them)
    // and the alias does not follow the name. For a copy, and for a table a parse has just
    // added: a parse names the table of a join by its alias, never empty, so no join can name
    // a table that had no alias yet (and looking would make a long FROM cost its square).
    void SetKeys(const std::string& name, const std::string& alias);

    // First, so it sits in the base's tail padding.
    TVdTableDefType FTableType = qttTable;
    std::string FAlias;
    mutable std::unique_ptr<TVdFieldDefs> FFieldDefs;
    mutable std::unique_ptr<TVdJoinDefs> FJoinDefs;
    std::string FName;
};

// The tables of a statement. Keeps the statement-wide field order and the set of field
// aliases up to date as fields come and go, so that printing and alias generation stay
// linear in the size of the statement.
class TVdTableDefs : public TVdCollectionOf<TVdTableDef>
{
public:
    TVdTableDefs();
    ~TVdTableDefs() override;
    TVdTableDefs* AsTableDefs() override { return this; }

    TVdTableDef* FindByName(const std::string& name) const;
    TVdTableDef* FindByAlias(const std::string& alias) const;
    // By alias first, then by name.
    TVdTableDef* FindByAliasOrName(const std::string& text) const;
    // The select list (out) and the whole text: select list, FROM and the tables.
    virtual std::string GetScript(std::string& selectList) const;
    std::string GetScript() const;
    // What GetScript(selectList) of this class returns, appended to out; listSize is the
    // length of the select list in it. Nothing is appended where GetScript gives "".
    void AppendScript(std::string& out, size_t& listSize) const;
    // The same for the fields in order (FieldsInOrder) already at hand.
    void AppendScript(std::string& out, size_t& listSize,
                      const std::vector<TVdFieldDef*>& fields) const;
    // name, or name1, name2, ... when forced or while another field has that alias.
    std::string GetUniqueAlias(const std::string& name, bool force);
    // Whether a field of these tables has the alias.
    bool IsAliasUsed(const std::string& alias) const { return AliasUsed(alias); }
    bool IsTableJoined(const TVdTableDef& table) const;
    // Whether from, or a table its joins join, directly or further on, is to.
    bool JoinsReach(const TVdTableDef& from, const TVdTableDef& to) const;
    int GetFieldCount() const { return FFieldCount; }
    TVdFieldDef* GetFieldDefs(int index) const;
    // Deletes every join whose table or field is missing.
    void UpdateJoins();
    void UpdateFieldAliases();
    void UpdateTableAlias(const std::string& oldAlias, const std::string& newAlias);
    void EndUpdate() override;

    // Bookkeeping hooks of the fields and tables.
    void FieldAdded(TVdFieldDef& field);
    void FieldRemoved(TVdFieldDef& field);
    void FieldsRemoved(TVdTableDef& table);
    void AliasChanged(const std::string& oldAlias, const std::string& newAlias);
    void TableAdded(TVdTableDef& table);
    void TableRemoving(TVdTableDef& table);
    void TableKeyChanged(TVdTableDef& table, bool alias, const std::string& oldKey,
                         const std::string& newKey);
    // Joins that came to or left the tables of this collection.
    void JoinsChanged(int delta) { FJoinCount += delta; }
    int JoinCount() const { return FJoinCount; }

    // All fields ordered by their field index (first found wins; gaps stay null).
    std::vector<TVdFieldDef*> FieldsInOrder() const;
    // The table's line of the FROM clause with its joins and, recursively, their joins.
    std::string GetTableScript(const TVdTableDef& table) const;

protected:
    void Clearing() override;

private:
    void DecrementIndexes(std::vector<int> removed, const TVdTableDef* skip);
    bool AliasUsed(const std::string& alias) const;
    void AppendJoins(const TVdTableDef& table, std::string& out) const;
    void EnsureLookup() const;

    // Tables by alias and by name, each set in collection order, so the first match of a
    // scan is the front of its set; kept up to date as tables come, go and are renamed. Sets,
    // as many tables can share a key (all named "" while a select list makes them) and each
    // leaves it by itself.
    struct TByPosition {
        bool operator()(const TVdTableDef* a, const TVdTableDef* b) const;
    };
    using TLookup = std::unordered_map<std::string, std::set<TVdTableDef*, TByPosition>>;
    static void LookupInsert(TLookup& lookup, const std::string& key, TVdTableDef* table);
    static void LookupErase(TLookup& lookup, const std::string& key, TVdTableDef* table);
    static TVdTableDef* LookupFind(const TLookup& lookup, const std::string& key);
    // Up to this many tables a scan finds a table sooner than the lookup is kept up to date:
    // the lookup is built only once a statement has more.
    static constexpr int LinearLookupLimit = 16;
    TVdTableDef* ScanFor(bool alias, const std::string& key) const;
    // Made only for a statement with that many tables: most statements never need them.
    struct TLookups {
        TLookup ByAlias;
        TLookup ByName;
    };
    mutable std::unique_ptr<TLookups> FLookups;
    // Only while FLookups is made.
    mutable bool FLookupValid = false;

    int FFieldCount = 0;
    // How many joins the tables hold: renaming a table looks for the joins naming it only
    // when there are any, so a long FROM list without joins is read in linear time.
    int FJoinCount = 0;
    // How many fields hold each alias; the empty alias of every new field is counted apart.
    // Up to this many fields and tables a look over the fields answers whether an alias is
    // taken as soon as counts would, and costs no copy of every alias: the counts are kept
    // only beyond.
    static constexpr int AliasScanLimit = 32;
    bool FCounting = false;
    TVdNameCounts FAliasCount;
    int FEmptyAliases = 0;
    void CountAlias(const std::string& alias, int delta);
    // A freed alias name<k>: the counter hint of every name it may come from drops below k.
    void LowerCounterHints(const std::string& alias);
    // Counts the aliases of every field, from now on kept up to date.
    void StartCounting();
    TVdNameCounts FCounterHint;
};

} // namespace vd
