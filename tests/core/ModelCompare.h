#pragma once

// A canonical text dump of a whole parser model. Two models are equal when their dumps are
// equal; a failing comparison shows the first differing line, which reads better than a
// tree walk that stops with "not equal".

#include "core/VdSelectParser.h"

#include <string>

namespace vdtest {

inline const char* FunctionKindName(vd::TVdFunctionKind kind)
{
    switch (kind) {
    case vd::fkUnknown:
        return "fkUnknown";
    case vd::fkFunction:
        return "fkFunction";
    case vd::fkIdentifier:
        return "fkIdentifier";
    case vd::fkInteger:
        return "fkInteger";
    case vd::fkFloat:
        return "fkFloat";
    case vd::fkString:
        return "fkString";
    case vd::fkExpression:
        return "fkExpression";
    }
    return "fk?";
}

inline const char* ParamTypeName(vd::TParamType type)
{
    switch (type) {
    case vd::ptUnknown:
        return "ptUnknown";
    case vd::ptInput:
        return "ptInput";
    case vd::ptOutput:
        return "ptOutput";
    case vd::ptInputOutput:
        return "ptInputOutput";
    case vd::ptResult:
        return "ptResult";
    }
    return "pt?";
}

inline const char* TableTypeName(vd::TVdTableDefType type)
{
    return type == vd::qttStoredProc ? "qttStoredProc" : "qttTable";
}

inline const char* JoinKindName(vd::TVdJoinKind kind)
{
    switch (kind) {
    case vd::vdjInnerJoin:
        return "vdjInnerJoin";
    case vd::vdjLOuterJoin:
        return "vdjLOuterJoin";
    case vd::vdjROuterJoin:
        return "vdjROuterJoin";
    case vd::vdjFOuterJoin:
        return "vdjFOuterJoin";
    }
    return "vdj?";
}

inline const char* FilterName(vd::TVdCriterionFilter filter)
{
    switch (filter) {
    case vd::cfAll:
        return "cfAll";
    case vd::cfAny:
        return "cfAny";
    case vd::cfNone:
        return "cfNone";
    case vd::cfNotAll:
        return "cfNotAll";
    }
    return "cf?";
}

inline const char* OrderKindName(vd::TVdOrderKind kind)
{
    return kind == vd::okDesc ? "okDesc" : "okAsc";
}

// Names are written between brackets so that blanks and quotes inside them stay visible.
inline std::string Q(const std::string& s) { return "[" + s + "]"; }

inline void DumpNode(const vd::TVdFunctionDef& node, const std::string& indent, std::string& out)
{
    out += indent + Q(node.Name()) + " " + FunctionKindName(node.Kind()) + "\n";
    for (int i = 0; i < node.ArgumentCount(); ++i)
        DumpNode(*node.Argument(i), indent + "  ", out);
}

inline void DumpCriterions(const vd::TVdCriterions& list, const std::string& indent,
                           std::string& out)
{
    out += indent + "filter " + FilterName(list.Filter) + " count " + std::to_string(list.Count()) +
           "\n";
    for (int i = 0; i < list.Count(); ++i) {
        const vd::TVdCriterion& item = *list.Items(i);
        const std::string inner = indent + "    ";
        out += indent + (item.IsGroup() ? "  group " : "  criterion ") + Q(item.Operator()) + "\n";
        if (item.IsGroup()) {
            DumpCriterions(item.SubItems(), inner, out);
            // A group prints only its sub-items; anything else it holds is shown when present.
            if (item.LeftSide().Name().empty() && item.RightSide().Count() == 0)
                continue;
        }
        out += inner + "left\n";
        DumpNode(item.LeftSide(), inner + "  ", out);
        out += inner + "right " + std::to_string(item.RightSide().Count()) + "\n";
        for (int r = 0; r < item.RightSide().Count(); ++r)
            DumpNode(*item.RightSide().Items(r), inner + "  ", out);
    }
}

inline std::string DescribeModel(const vd::TVdSelectParser& parser)
{
    std::string out;
    out += std::string("distinct ") + (parser.Distinct() ? "true" : "false") + "\n";
    const vd::TVdTableDefs& tables = parser.TableDefs();
    out += "tables " + std::to_string(tables.Count()) + "\n";
    for (int t = 0; t < tables.Count(); ++t) {
        const vd::TVdTableDef& table = *tables.Items(t);
        out += "  table " + Q(table.Name()) + " alias " + Q(table.Alias()) + " " +
               TableTypeName(table.TableType()) + "\n";
        const vd::TVdFieldDefs& fields = table.FieldDefs();
        for (int f = 0; f < fields.Count(); ++f) {
            const vd::TVdFieldDef& field = *fields.Items(f);
            out += "    field " + Q(field.Name()) + " " + FunctionKindName(field.Kind()) +
                   " alias " + Q(field.Alias()) + " index " + std::to_string(field.FieldIndex()) +
                   " " + ParamTypeName(field.ParamType()) + "\n";
            for (int a = 0; a < field.ArgumentCount(); ++a)
                DumpNode(*field.Argument(a), "      ", out);
        }
        const vd::TVdJoinDefs& joins = table.JoinDefs();
        for (int j = 0; j < joins.Count(); ++j) {
            const vd::TVdJoinDef& join = *joins.Items(j);
            out += std::string("    join ") + JoinKindName(join.JoinKind) + " " +
                   Q(join.FieldName) + " " + Q(join.Operation) + " " + Q(join.JoinTable) + "." +
                   Q(join.JoinField) + "\n";
        }
    }
    out += "where\n";
    DumpCriterions(parser.WhereItems(), "  ", out);
    const vd::TVdGroupByItems& groupBy = parser.GroupByItems();
    out += "group by " + std::to_string(groupBy.Count()) + "\n";
    for (int i = 0; i < groupBy.Count(); ++i)
        out += "  " + Q(groupBy[i]) + "\n";
    out += "having\n";
    DumpCriterions(parser.HavingItems(), "  ", out);
    const vd::TVdOrderByItems& orderBy = parser.OrderByItems();
    out += "order by " + std::to_string(orderBy.Count()) + "\n";
    for (int i = 0; i < orderBy.Count(); ++i)
        out += "  " + Q(orderBy[i]) + " " + OrderKindName(orderBy.Orders(i)) + "\n";
    return out;
}

} // namespace vdtest
