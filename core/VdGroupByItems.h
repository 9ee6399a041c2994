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
    // GetScript() appended to out.
    void AppendScript(std::string& out);
    // The same, for the parser's fields in order (TVdTableDefs::FieldsInOrder) already at hand.
    void AppendScript(std::string& out, const std::vector<TVdFieldDef*>& fields);
    // Refills the list: the derived items, then each kept item the derived ones do not name.
    void Rebuild();
    void Rebuild(const std::vector<TVdFieldDef*>& fields);
    // The plain columns beside aggregates, in select-list order (empty without aggregates or
    // without such a column).
    std::vector<const TVdFieldDef*> DerivedFields() const;
    // The same among the parser's fields in order.
    std::vector<const TVdFieldDef*> DerivedFields(const std::vector<TVdFieldDef*>& fields) const;

    // The items kept beyond the derived list, as read (names unprocessed, positions as digits).
    const std::vector<std::string>& KeptItems() const { return FKept; }
    // Adds an item unless it is kept already; returns its index.
    int AddKept(const std::string& item);
    void DeleteKept(int index);
    void ClearKept() { FKept.clear(); }
    void Clear() override;

    // The lines read become the kept items (the parser, after GROUP BY).
    void KeepLines();

    // For each of the derived fields, whether a kept item groups by it: by its name alone or
    // qualified (any letter case, quotes aside, or as the derived line prints), by the
    // field's alias, or as its position in printed (the printed select list).
    std::vector<bool> KeptGroupings(const std::vector<const TVdFieldDef*>& derived,
                                    const std::vector<const TVdFieldDef*>& printed) const;

private:
    // The parser's fields in order (TVdTableDefs::FieldsInOrder); none without a parser.
    std::vector<TVdFieldDef*> ParserFields() const;
    std::string DerivedLine(const TVdFieldDef& field) const;
    void AppendDerivedLine(std::string& line, const TVdFieldDef& field) const;
    std::vector<std::string> DerivedLines(const std::vector<const TVdFieldDef*>& derived) const;
    struct TLineMatch {
        // Per derived line, whether a kept item prints as it.
        std::vector<bool> Covered;
        // Per kept item, whether it prints as a derived line.
        std::vector<bool> KeptNamed;
        // Whether every kept item prints as a derived line.
        bool AllKeptNamed = false;
    };
    TLineMatch MatchKeptLines(const std::vector<std::string>& lines) const;

    std::vector<std::string> FKept;
};

} // namespace vd
