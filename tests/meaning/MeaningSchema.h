#pragma once

// The small schema the meaning checks run on: four tables with integer, real and text columns,
// linked by key and non-key columns, and seeded data with NULLs, duplicates and small value
// ranges, so that the generated conditions select some rows and not all.

#include <cstdint>
#include <string>
#include <vector>

namespace vdmeaning {

// The SQL the statements are written in, and the engine each one is checked on.
enum class TDialect { Generic, MySQL, Firebird };

const char* DialectName(TDialect dialect);

enum class TValueType { Integer, Real, Text };

struct TColumn {
    const char* Name;
    TValueType Type;
};

struct TTable {
    const char* Name;
    std::vector<TColumn> Columns; // the first is the unique key ID
    int Rows;
};

// Two columns that a join or a comma join's condition may compare.
struct TLink {
    int LeftTable, LeftColumn, RightTable, RightColumn;
    // Key links join about one row to each row; the others multiply the rows, so a
    // generator uses them only between two tables.
    bool Key;
};

const std::vector<TTable>& Tables();
const std::vector<TLink>& Links();

// The words of the text columns' data (all lower case, no trailing blank: engines whose
// collations ignore case or trailing blanks see the same rows as the others).
const std::vector<std::string>& Words();

// DROP/CREATE and INSERT statements that build the schema with the data of the seed.
std::vector<std::string> SchemaStatements(TDialect dialect, std::uint32_t seed);

} // namespace vdmeaning
