#pragma once

// A generated statement as a small tree, rendered as text the way people write it. The tree
// is kept beside its text so that a failing statement can be shrunk (MeaningReduce.h) and
// sorted by shape, and so that the runner knows how far its ORDER BY fixes the row order.

#include "tests/meaning/MeaningSchema.h"

#include <string>
#include <vector>

namespace vdmeaning {

struct TExpr {
    enum TKind {
        eColumn,
        eInteger,
        eReal,
        eString,
        eArith,
        eFunc,
        eAggregate,
        eStar
    } Kind = eInteger;
    int Entry = -1;   // Column: the FROM entry
    int Column = -1;  // Column: the column of the entry's table
    std::string Text; // literal, operator (+ - *) or function name
    std::vector<TExpr> Args;

    bool operator==(const TExpr&) const = default;
};

struct TCond {
    enum TKind { Compare, And, Or, Not } Kind = Compare;
    std::vector<TCond> Kids;
    TExpr Left;
    std::string Op; // a caption of the default operator table
    std::vector<TExpr> Right;
    int ExtraParens = 0; // parentheses the precedence does not need
};

struct TItem {
    TExpr Expr;
    std::string Alias;
};

struct TEntry {
    int Table = 0;
    std::string Alias; // empty: the table is named by its name
};

struct TJoin {
    enum TKind { Comma, Inner, Left, Right, Full } Kind = Inner;
    bool OuterWord = true; // LEFT OUTER JOIN rather than LEFT JOIN; INNER JOIN rather than JOIN
    bool Parens = true;    // ON (x = y) rather than ON x = y
    // The compared columns: one side is the entry this join brings, the other an earlier one.
    int LeftEntry = 0, LeftColumn = 0, RightEntry = 0, RightColumn = 0;
    // A second comparison of the same two columns ("" for none): ON (x = y AND y <= x).
    std::string ExtraOp;
    bool ExtraSwapped = false;
};

struct TOrder {
    enum TKind { oExpr, oPosition, oAlias } Kind = oExpr;
    TExpr Value;
    int Position = 0;
    std::string Alias;
    enum TDir { None, Asc, Desc } Dir = None;
};

struct TStatement {
    TDialect Dialect = TDialect::Generic;
    bool Distinct = false;
    bool Star = false;
    std::vector<TItem> Items;
    std::vector<TEntry> From;
    std::vector<TJoin> Joins; // Joins[i] brings From[i + 1]
    bool HasWhere = false;
    TCond Where;
    std::vector<TExpr> GroupBy;
    bool HasHaving = false;
    TCond Having;
    std::vector<TOrder> OrderBy;
    // Style of the text.
    bool LowerKeywords = false;
    bool QuoteNames = false;
    bool Qualify = true; // with one table: columns written as T.A rather than A
};

// How far the statement's ORDER BY fixes the order of the rows it returns.
struct TOrderCheck {
    enum TKind {
        None, // no ORDER BY, or one whose keys are not all columns of the result
        Keys, // the result's columns KeyColumns are the sort keys: their sequence is fixed
        Full  // every row has its place: the whole sequence is fixed
    } Kind = None;
    std::vector<int> KeyColumns;
};

std::string Render(const TStatement& statement);
// The expression an ORDER BY item sorts by (a position or alias names an item), or null.
const TExpr* SortedExpr(const TStatement& statement, const TOrder& order);
// True when an item of the ORDER BY sorts by the expression.
bool Sorts(const TStatement& statement, const TExpr& expr);
TOrderCheck OrderCheckOf(const TStatement& statement);
TValueType TypeOf(const TStatement& statement, const TExpr& expr);
bool IsAggregateQuery(const TStatement& statement);

} // namespace vdmeaning
