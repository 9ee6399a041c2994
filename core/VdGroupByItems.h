#pragma once

#include "core/VdStringList.h"

#include <string>
#include <vector>

namespace vd {

class TVdFieldDef;

// The GROUP BY list. Printing rebuilds it from the output fields when a parser is present:
// the plain columns that stand beside aggregates. Items the statement groups by beyond that
// (a column that is no output, a grouping without aggregates, a position) are kept apart and
// follow the derived ones, so a statement read from text keeps what it groups by.
class TVdGroupByItems : public TVdStringList
{
public:
    std::string GetScript();
    // Refills the list: the derived items, then each kept item the derived ones do not name.
    void Rebuild();
    // The plain columns beside aggregates, in select-list order (empty without aggregates or
    // without such a column).
    std::vector<const TVdFieldDef*> DerivedFields() const;

    // The items kept beyond the derived list, as read (names unprocessed, positions as digits).
    const std::vector<std::string>& KeptItems() const { return FKept; }
    // Adds an item unless it is kept already; returns its index.
    int AddKept(const std::string& item);
    void DeleteKept(int index);
    void ClearKept() { FKept.clear(); }
    void Clear() override;

    // Whether item names the field as its derived line does: it prints as that line, or it is
    // the name alone or qualified with the table's alias (or name) in any letter case, as
    // unquoted names are compared.
    bool NamesField(const std::string& item, const TVdFieldDef& field) const;
    // Whether item groups by the field: by name, by the field's alias, or as the position
    // of the field in printed (the printed select list).
    bool GroupsField(const std::string& item, const TVdFieldDef& field,
                     const std::vector<const TVdFieldDef*>& printed) const;

private:
    std::string DerivedLine(const TVdFieldDef& field) const;

    std::vector<std::string> FKept;
};

} // namespace vd
