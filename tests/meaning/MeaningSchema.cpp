#include "tests/meaning/MeaningSchema.h"

#include "core/VdText.h"

#include <cstdio>
#include <random>
#include <set>
#include <utility>

namespace vdmeaning {

const char* DialectName(TDialect dialect)
{
    switch (dialect) {
    case TDialect::Generic:
        return "generic";
    case TDialect::MySQL:
        return "mysql";
    case TDialect::Firebird:
        return "firebird";
    }
    return "?";
}

const std::vector<TTable>& Tables()
{
    using enum TValueType;
    static const std::vector<TTable> tables = {
        {"T", {{"ID", Integer}, {"A", Integer}, {"B", Integer}, {"C", Real}, {"S", Text}}, 300},
        {"U", {{"ID", Integer}, {"T_ID", Integer}, {"A", Integer}, {"D", Real}, {"S", Text}}, 300},
        {"V", {{"ID", Integer}, {"U_ID", Integer}, {"K", Integer}, {"E", Text}}, 300},
        {"W", {{"ID", Integer}, {"K", Integer}, {"F", Real}}, 200},
    };
    return tables;
}

const std::vector<TLink>& Links()
{
    static const std::vector<TLink> links = {
        {0, 0, 1, 1, true},  // T.ID = U.T_ID
        {1, 0, 2, 1, true},  // U.ID = V.U_ID
        {2, 2, 3, 1, true},  // V.K = W.K
        {0, 2, 3, 1, false}, // T.B = W.K: about 250 pairs per value of B
        {0, 1, 1, 2, false}, // T.A = U.A
        {1, 2, 2, 2, false}, // U.A = V.K
    };
    return links;
}

const std::vector<std::string>& Words()
{
    static const std::vector<std::string> words = {"ab",  "abc", "b", "ba",   "bca",
                                                   "cat", "dog", "x", "it's", ""};
    return words;
}

namespace {

std::string TypeName(TDialect dialect, TValueType type)
{
    switch (type) {
    case TValueType::Integer:
        return "INTEGER";
    case TValueType::Real:
        return dialect == TDialect::Generic    ? "REAL"
               : dialect == TDialect::Firebird ? "DOUBLE PRECISION"
                                               : "DOUBLE";
    case TValueType::Text:
        return dialect == TDialect::Generic ? "TEXT" : "VARCHAR(20)";
    }
    return "";
}

// The value of one cell as SQL. Reals are quarters, so that sums over any join order are
// exact and the original and the print agree to the last digit.
std::string Value(std::mt19937& rng, const TTable& table, int column, int row)
{
    const TColumn& col = table.Columns[size_t(column)];
    if (column == 0)
        return std::to_string(row + 1);
    auto pick = [&rng](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    const std::string name = col.Name;
    const bool foreign = name == "T_ID" || name == "U_ID";
    if (pick(0, 99) < (foreign ? 5 : 10))
        return "NULL";
    if (foreign)
        return std::to_string(pick(1, table.Rows + 30)); // some point at no row
    switch (col.Type) {
    case TValueType::Integer:
        if (name == "K")
            return std::to_string(pick(0, table.Name == std::string("W") ? 40 : 30));
        return std::to_string(pick(0, name == "B" ? 5 : 9));
    case TValueType::Real: {
        char text[32];
        std::snprintf(text, sizeof text, "%.2f", pick(0, 40) / 4.0);
        return text;
    }
    case TValueType::Text:
        return vd::text::QuotedStr(Words()[size_t(pick(0, int(Words().size()) - 1))], '\'');
    }
    return "NULL";
}

std::string CreateTable(TDialect dialect, const TTable& table)
{
    std::string sql = dialect == TDialect::Firebird ? "RECREATE TABLE " : "CREATE TABLE ";
    sql += table.Name;
    sql += " (";
    for (size_t i = 0; i < table.Columns.size(); ++i) {
        if (i)
            sql += ", ";
        sql += table.Columns[i].Name;
        sql += ' ';
        sql += TypeName(dialect, table.Columns[i].Type);
        if (i == 0)
            sql += " NOT NULL PRIMARY KEY";
    }
    sql += ')';
    if (dialect == TDialect::MySQL)
        sql += " ENGINE=InnoDB";
    return sql;
}

std::string IndexStatement(const TTable& table, int column)
{
    const std::string name = std::string(table.Name) + "_" + table.Columns[size_t(column)].Name;
    return "CREATE INDEX IX_" + name + " ON " + table.Name + " (" +
           table.Columns[size_t(column)].Name + ")";
}

} // namespace

std::vector<std::string> SchemaStatements(TDialect dialect, std::uint32_t seed)
{
    std::mt19937 rng(seed);
    std::vector<std::string> statements;
    for (const TTable& table : Tables()) {
        if (dialect == TDialect::MySQL)
            statements.push_back(std::string("DROP TABLE IF EXISTS ") + table.Name);
        statements.push_back(CreateTable(dialect, table));
        // MariaDB and SQLite take many rows per INSERT; Firebird one.
        const int perInsert = dialect == TDialect::Firebird ? 1 : 100;
        std::string insert;
        for (int row = 0; row < table.Rows; ++row) {
            std::string values = "(";
            for (size_t c = 0; c < table.Columns.size(); ++c)
                values += (c ? ", " : "") + Value(rng, table, int(c), row);
            values += ')';
            insert += insert.empty()
                          ? std::string("INSERT INTO ") + table.Name + " VALUES " + values
                          : ", " + values;
            if ((row + 1) % perInsert == 0 || row + 1 == table.Rows) {
                statements.push_back(insert);
                insert.clear();
            }
        }
    }
    // Indexes on the joined columns: outer joins of four tables stay quick on every engine.
    std::set<std::pair<int, int>> indexed;
    for (const TLink& link : Links())
        for (const auto& [t, c] : {std::pair{link.LeftTable, link.LeftColumn},
                                   std::pair{link.RightTable, link.RightColumn}})
            if (c != 0 && indexed.insert({t, c}).second)
                statements.push_back(IndexStatement(Tables()[size_t(t)], c));
    return statements;
}

} // namespace vdmeaning
