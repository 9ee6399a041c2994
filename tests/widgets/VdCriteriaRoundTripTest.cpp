// Round trip through the criteria editor: generated criteria trees (every filter, every
// operator, groups nested four deep) are loaded, the rows are compared with the tree, then
// edited through menus and the in-place editor. After every edit the model's invariants hold,
// the printed WHERE clause equals the one printed from an expected tree kept by the test, and
// the print reads back to that tree.

#include "VdCriterionTestSupport.h"

#include "../core/ModelCheck.h"

#include "builder/VdRecordingDialogService.h"
#include "core/VdCriteria.h"
#include "core/VdOperators.h"
#include "resources/VdResource.h"

#include <QTest>

#include <random>
#include <set>

using namespace vd;
using namespace vd::test;

namespace {

struct TNode {
    bool Group = false;
    TVdCriterionFilter Filter = cfAll;
    std::vector<TNode> Items;
    std::string Left;
    std::string Op;
    std::vector<std::string> Args;
};

struct TOp {
    const char* Caption;
    int Count;
    const char* Relate;
};

const TOp Ops[] = {{"=", 1, ""},       {"<>", 1, ""},         {"<", 1, ""},
                   {">", 1, ""},       {"<=", 1, ""},         {">=", 1, ""},
                   {"LIKE", 1, ""},    {"NOT LIKE", 1, ""},   {"IN", 1, ""},
                   {"NOT IN", 1, ""},  {"BETWEEN", 2, "AND"}, {"NOT BETWEEN", 2, "AND"},
                   {"IS NULL", 0, ""}, {"IS NOT NULL", 0, ""}};

const TOp& OpOf(const std::string& caption)
{
    for (const TOp& op : Ops)
        if (caption == op.Caption)
            return op;
    throw std::logic_error("unknown operator " + caption);
}

// Arguments that the operator reads back as written.
std::vector<std::string> ArgsFor(const std::string& caption, std::mt19937& rng)
{
    const int a = int(rng() % 90) + 1;
    const std::string op = caption;
    if (op == "LIKE" || op == "NOT LIKE")
        return {"'x" + std::to_string(a) + "%'"};
    if (op == "IN" || op == "NOT IN")
        return {"(" + std::to_string(a) + ", " + std::to_string(a + 3) + ")"};
    if (OpOf(op).Count == 2)
        return {std::to_string(a), std::to_string(a + 10)};
    if (OpOf(op).Count == 0)
        return {};
    return {std::to_string(a)};
}

TNode MakeComparison(std::mt19937& rng, int opIndex)
{
    static const char* const fields[] = {"\"A\"", "\"B\"", "\"PRICE\"", "\"NAME\""};
    TNode node;
    node.Left = fields[rng() % 4];
    node.Op = Ops[opIndex].Caption;
    node.Args = ArgsFor(node.Op, rng);
    return node;
}

// Groups hold two or three items, so the print never loses a group to the smallest tree.
void Fill(TNode& group, int depth, int maxDepth, std::mt19937& rng, int& nextOp)
{
    const int count = 2 + int(rng() % 2);
    for (int i = 0; i < count; ++i) {
        if (depth < maxDepth && (i == 0 || rng() % 3 == 0)) {
            TNode sub;
            sub.Group = true;
            sub.Filter = TVdCriterionFilter(rng() % 4);
            Fill(sub, depth + 1, maxDepth, rng, nextOp);
            group.Items.push_back(std::move(sub));
        } else {
            group.Items.push_back(MakeComparison(rng, nextOp++ % 14));
        }
    }
}

std::string ItemText(const TNode& node);

std::string ListText(const TNode& group)
{
    std::string text;
    const bool andChain = group.Filter == cfAll || group.Filter == cfNone;
    for (size_t i = 0; i < group.Items.size(); ++i) {
        if (i)
            text += "\r\n  ";
        text += "(" + ItemText(group.Items[i]) + ")";
        if (i + 1 < group.Items.size())
            text += andChain ? " AND " : " OR ";
    }
    if (group.Filter == cfNone || group.Filter == cfNotAll)
        text = "NOT (" + text + ")";
    return text;
}

std::string ItemText(const TNode& node)
{
    if (node.Group)
        return ListText(node);
    const TOp& op = OpOf(node.Op);
    if (op.Count == 0)
        return node.Left + " " + node.Op;
    std::string right;
    for (int i = 0; i < op.Count; ++i) {
        right += i < int(node.Args.size()) ? node.Args[size_t(i)] : std::string(" ");
        if (i + 1 < op.Count && i + 1 < int(node.Args.size()))
            right += std::string(" ") + op.Relate + " ";
    }
    return node.Left + " " + node.Op + " " + right;
}

std::string ExpectedWhere(const TNode& root)
{
    return root.Items.empty() ? std::string() : "WHERE\r\n  " + ListText(root) + "\r\n";
}

const char* FilterName(TVdCriterionFilter filter)
{
    static const char* const names[] = {"All", "Any", "None", "NotAll"};
    return names[filter];
}

std::string Shape(const TNode& group)
{
    std::string text = std::string(FilterName(group.Filter)) + "(";
    for (size_t i = 0; i < group.Items.size(); ++i) {
        const TNode& item = group.Items[i];
        text += i ? "; " : "";
        if (item.Group) {
            text += Shape(item);
            continue;
        }
        text += item.Left + " " + item.Op;
        for (const std::string& arg : item.Args)
            text += " [" + arg + "]";
    }
    return text + ")";
}

std::string Shape(const TVdCriterions& list)
{
    std::string text = std::string(FilterName(list.Filter)) + "(";
    for (int i = 0; i < list.Count(); ++i) {
        const TVdCriterion& item = *list.Items(i);
        text += i ? "; " : "";
        if (item.IsGroup()) {
            text += Shape(item.SubItems());
            continue;
        }
        text += item.LeftSide().GetScript() + " " + item.Operator();
        const int count = std::min(OpOf(item.Operator()).Count, item.RightSide().Count());
        for (int r = 0; r < count; ++r)
            text += " [" + item.RightSide().Items(r)->GetScript() + "]";
    }
    return text + ")";
}

// The rows show the tree: numbers, group words, fields, operators and arguments.
void ExpectRowsMirror(const TVdCriterionRow& row, const TNode& node, const std::string& where)
{
    SCOPED_TRACE(where + " row " + row.GetFullIndex().toStdString());
    if (node.Group) {
        ASSERT_TRUE(row.IsGroup());
        EXPECT_EQ(row.GroupOperator(), VdResource::FilterText(node.Filter));
        EXPECT_EQ(row.Controls(vdpAggregate1)->Text(), VdResource::FilterText(node.Filter));
        ASSERT_EQ(row.Rows().Count(), int(node.Items.size()));
        for (size_t i = 0; i < node.Items.size(); ++i) {
            const TVdCriterionRow& child = *row.Rows().Items(int(i));
            const QString number = (row.IsRoot() ? QString() : row.GetFullIndex()) +
                                   QString::number(i + 1) + QLatin1Char('.');
            EXPECT_EQ(child.GetFullIndex(), number);
            ExpectRowsMirror(child, node.Items[i], where);
        }
        return;
    }
    ASSERT_FALSE(row.IsGroup());
    EXPECT_EQ(ToStdString(row.Field()), node.Left);
    EXPECT_EQ(ToStdString(row.Controls(vdpOperator)->Text()), node.Op);
    QStringList args;
    for (const std::string& arg : node.Args)
        args << ToQString(arg);
    EXPECT_EQ(row.Arguments(), args);
    EXPECT_EQ(row.ControlCount(), vdpFirstArgument + int(node.Args.size()));
}

class VdCriteriaRoundTripTest : public ::testing::Test
{
protected:
    TCriteriaEditors E;
    TVdRecordingDialogService Dialogs;
    TNode Expected;
    std::mt19937 Rng;

    void Check(const std::string& step)
    {
        SCOPED_TRACE(step);
        EXPECT_TRUE(vdcheck::CheckModel(E.Parser));
        const std::string where = E.Parser.WhereItems().GetScript();
        EXPECT_EQ(where, ExpectedWhere(Expected));
        TVdSelectParser again;
        again.SetExpression("SELECT * FROM T " + where);
        EXPECT_EQ(Shape(again.WhereItems()), Shape(Expected));
        ExpectRowsMirror(*E.Where->RootRow(), Expected, step);
        EXPECT_TRUE(Dialogs.Messages().isEmpty());
    }

    // The row and expected node at a path of item places.
    TVdCriterionRow* Row(const std::vector<int>& path)
    {
        TVdCriterionRow* row = E.Where->RootRow();
        for (int place : path)
            row = row->Rows().Items(place);
        return row;
    }
    TNode& Node(const std::vector<int>& path)
    {
        TNode* node = &Expected;
        for (int place : path)
            node = &node->Items[size_t(place)];
        return *node;
    }
    void Paths(const TNode& node, std::vector<int>& path, std::vector<std::vector<int>>& groups,
               std::vector<std::vector<int>>& simple)
    {
        (node.Group ? groups : simple).push_back(path);
        for (size_t i = 0; i < node.Items.size(); ++i) {
            path.push_back(int(i));
            Paths(node.Items[i], path, groups, simple);
            path.pop_back();
        }
    }

    void Type(TVdCriterionRow* row, int place, const std::string& text)
    {
        TVdCriterionPanel& w = *E.Where;
        w.TextClick(row->Controls(place), row->GetTopBound());
        ASSERT_TRUE(w.Editor()->isVisibleTo(&w));
        w.Editor()->selectAll();
        QTest::keyClick(w.Editor(), Qt::Key_Delete);
        QTest::keyClicks(w.Editor(), ToQString(text));
        QTest::keyClick(w.Editor(), Qt::Key_Return);
    }

    void ChooseOperator(TVdCriterionRow* row, TNode& node, int opIndex)
    {
        E.Where->SetActiveElement(row->Controls(vdpOperator));
        E.Where->HandlePopupOpersMenu();
        E.Where->OperatorMenu()->actions().at(opIndex)->trigger();
        node.Op = Ops[opIndex].Caption;
        const std::vector<std::string> args = ArgsFor(node.Op, Rng);
        node.Args = args;
        for (size_t i = 0; i < args.size(); ++i)
            Type(row, vdpFirstArgument + int(i), args[i]);
    }

    void AddFilled(const std::vector<int>& groupPath)
    {
        TVdCriterionRow* group = Row(groupPath);
        E.Where->SetActiveElement(group->Controls(vdpAggregate1));
        E.Where->AddConditionAction()->trigger();
        TVdCriterionRow* added = group->Rows().Items(group->Rows().Count() - 1);
        TNode node = MakeComparison(Rng, 0);
        Type(added, vdpField, node.Left);
        for (size_t i = 0; i < node.Args.size(); ++i)
            Type(added, vdpFirstArgument + int(i), node.Args[i]);
        Node(groupPath).Items.push_back(node);
    }

    void EditRandomly(int edits)
    {
        for (int e = 0; e < edits; ++e) {
            std::vector<int> path;
            std::vector<std::vector<int>> groups, simple;
            Paths(Expected, path, groups, simple);
            const int kind = int(Rng() % 6);
            const std::string step = "edit " + std::to_string(e) + " kind " + std::to_string(kind);
            if (kind == 0) { // filter
                const std::vector<int>& at = groups[Rng() % groups.size()];
                const int filter = int(Rng() % 4);
                E.Where->SetActiveElement(Row(at)->Controls(vdpAggregate1));
                E.Where->GroupMenu()->actions().at(filter)->trigger();
                Node(at).Filter = TVdCriterionFilter(filter);
            } else if (kind == 1 && !simple.empty()) { // operator
                const std::vector<int>& at = simple[Rng() % simple.size()];
                ChooseOperator(Row(at), Node(at), int(Rng() % 14));
            } else if (kind == 2 && !simple.empty()) { // argument
                const std::vector<int>& at = simple[Rng() % simple.size()];
                TNode& node = Node(at);
                if (node.Args.empty())
                    continue;
                const std::vector<std::string> fresh = ArgsFor(node.Op, Rng);
                const size_t i = Rng() % node.Args.size();
                node.Args[i] = fresh[i];
                Type(Row(at), vdpFirstArgument + int(i), fresh[i]);
            } else if (kind == 3) { // add
                AddFilled(groups[Rng() % groups.size()]);
            } else if (kind == 4 && !simple.empty()) { // compose, then a second condition
                const std::vector<int>& at = simple[Rng() % simple.size()];
                E.Where->SetActiveElement(Row(at)->Controls(vdpField));
                E.Where->ComposeAction()->trigger();
                TNode old = Node(at);
                TNode group;
                group.Group = true;
                group.Items.push_back(old);
                Node(at) = group;
                AddFilled(at);
            } else if (kind == 5) {
                // Delete where every list keeps two items: a list of one group reads back
                // as that group.
                std::vector<std::vector<int>> candidates;
                for (const auto& list : {groups, simple})
                    for (const std::vector<int>& p : list) {
                        if (p.empty())
                            continue;
                        std::vector<int> parent(p.begin(), p.end() - 1);
                        const size_t siblings = Node(parent).Items.size();
                        if (siblings >= 3)
                            candidates.push_back(p);
                    }
                if (candidates.empty())
                    continue;
                const std::vector<int> at = candidates[Rng() % candidates.size()];
                E.Where->SetActiveElement(Row(at)->Controls(vdpNumber));
                E.Where->DeleteAction()->trigger();
                std::vector<int> parent(at.begin(), at.end() - 1);
                Node(parent).Items.erase(Node(parent).Items.begin() + at.back());
            } else {
                continue;
            }
            Check(step);
            if (HasFailure())
                return;
        }
    }
};

int Depth(const TNode& node)
{
    int deepest = 0;
    for (const TNode& item : node.Items)
        if (item.Group)
            deepest = std::max(deepest, 1 + Depth(item));
    return deepest;
}

void Collect(const TNode& node, std::set<int>& filters, std::set<std::string>& ops)
{
    filters.insert(node.Filter);
    for (const TNode& item : node.Items) {
        if (item.Group)
            Collect(item, filters, ops);
        else
            ops.insert(item.Op);
    }
}

} // namespace

TEST_F(VdCriteriaRoundTripTest, GeneratedTreesLoadMirrorEditAndReadBack)
{
    std::set<int> filters;
    std::set<std::string> ops;
    int deepest = 0;
    int nextOp = 0;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Rng.seed(seed);
        Expected = TNode();
        Expected.Group = true;
        Expected.Filter = TVdCriterionFilter(Rng() % 4);
        Fill(Expected, 0, 1 + int(seed % 4), Rng, nextOp);
        Collect(Expected, filters, ops);
        deepest = std::max(deepest, Depth(Expected));
        E.Load("SELECT * FROM T " + ExpectedWhere(Expected));
        Check("loaded");
        EditRandomly(12);
        if (HasFailure())
            break;
    }
    // The trees covered what they are meant to.
    EXPECT_EQ(filters.size(), 4u);
    EXPECT_EQ(ops.size(), 14u);
    EXPECT_EQ(deepest, 4);
}
