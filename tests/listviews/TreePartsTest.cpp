#include "listviews/tree/ArrangeJob.h"
#include "listviews/tree/OpenKeys.h"
#include "listviews/tree/TreeCarry.h"
#include "tests/listviews/TreeSample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

using listviews::ArrangeJob;
using listviews::OpenNode;
using listviews::OpenTree;
using listviews::TreeMark;
using listviews::TreePlace;

namespace
{
// What the rows of a tree show, found the plain way.
class Reference
{
public:
    explicit Reference(TreeSample& model) : m_Model(model) {}

    std::vector<wxDBTreeNode> Rows() const
    {
        std::vector<wxDBTreeNode> rows;
        Append(wxDBTreeModel::k_Root, rows);
        return rows;
    }
    std::set<wxDBTreeNode> open;
    std::set<wxDBTreeNode> selected;

private:
    void Append(wxDBTreeNode node, std::vector<wxDBTreeNode>& rows) const
    {
        for (const wxDBTreeNode child : m_Model.children[node])
        {
            rows.push_back(child);
            if (open.count(child) > 0)
            {
                Append(child, rows);
            }
        }
    }
    TreeSample& m_Model;
};

std::vector<wxDBTreeNode> RowsOf(TreeSample& model, const OpenTree& tree)
{
    std::vector<wxDBTreeNode> rows;
    for (int64_t row = 0; row < tree.RowCount(); ++row)
    {
        rows.push_back(listviews::ChildAt(model, tree.At(row)));
        EXPECT_EQ(row, tree.RowOf(tree.At(row)));
    }
    return rows;
}

std::set<wxDBTreeNode> SelectedIn(TreeSample& model, const OpenTree& tree)
{
    std::set<wxDBTreeNode> nodes;
    int64_t                before = -1;
    for (const int64_t row : tree.SelectedRows())
    {
        EXPECT_LT(std::exchange(before, row), row);
        EXPECT_TRUE(tree.IsSelected(tree.At(row)));
        nodes.insert(listviews::ChildAt(model, tree.At(row)));
    }
    EXPECT_EQ(nodes.size(), tree.SelectedCount());
    return nodes;
}

std::unique_ptr<OpenTree> Made(TreeSample& model, const listviews::TreeWish& wish,
                               const OpenTree& from)
{
    ArrangeJob job(model, wish, from);
    while (job.Step())
    {
    }
    return job.Take();
}

std::unique_ptr<OpenTree> NewTree(TreeSample& model)
{
    return Made(model, {}, OpenTree());
}
} // namespace

// Against the plain way: nodes are opened, closed and selected, the model changes, and with it the
// tree.
TEST(OpenTree, ShowsWhatIsOpenWhateverHappens)
{
    std::mt19937 random{11};
    TreeSample   model;
    model.Grow(random, 300);
    Reference                 expected(model);
    std::unique_ptr<OpenTree> tree = NewTree(model);
    for (int step = 0; step < 3000; ++step)
    {
        const auto         row = static_cast<int64_t>(random() % tree->RowCount());
        const TreePlace    place = tree->At(row);
        const wxDBTreeNode node = listviews::ChildAt(model, place);
        bool               isUnsorted = false;
        switch (random() % 8)
        {
        case 0:
            if (place.IsOpen())
            {
                for (const int64_t inside : tree->SelectedRowsIn(*place.Opened()))
                {
                    expected.selected.erase(listviews::ChildAt(model, tree->At(inside)));
                }
                tree->SetOpen(*place.Opened(), false);
                tree->DeselectIn(*place.Opened());
                expected.open.erase(node);
            }
            break;
        case 1:
            tree->Deselect(place);
            expected.selected.erase(node);
            break;
        case 2:
        case 3:
            tree->Select(place, listviews::IdentityOf(model, node));
            expected.selected.insert(node);
            break;
        default:
            if (listviews::OpenChild(*tree, place, model, {}, isUnsorted))
            {
                expected.open.insert(node);
            }
        }
        if (step % 100 == 50)
        {
            for (const wxDBTreeNode gone : model.Change(random))
            {
                expected.open.erase(gone);
                expected.selected.erase(gone);
            }
            std::unique_ptr<OpenTree> next = Made(model, {}, *tree);
            std::vector<TreeMark>     marks;
            CarrySelection(
                *tree, *next, model, [](const TreePlace&) { return nullptr; }, marks);
            tree = std::move(next);
        }
        if (step % 10 == 0)
        {
            ASSERT_EQ(expected.Rows(), RowsOf(model, *tree)) << step;
            ASSERT_EQ(expected.selected, SelectedIn(model, *tree)) << step;
        }
    }
}

TEST(OpenTree, ClosedNodesAndHugeOnesCostNothing)
{
    TreeSample model;
    for (int i = 1; i <= 3; ++i)
    {
        model.Add(wxDBTreeModel::k_Root, i);
        model.claimed[i] = 1LL << (30 + i);
    }
    std::unique_ptr<OpenTree> tree = NewTree(model);
    bool                      isUnsorted = false;
    for (const int64_t row : {2, 1, 0})
    {
        ASSERT_TRUE(listviews::OpenChild(*tree, tree->At(row), model, {}, isUnsorted));
    }
    const int64_t each = INT32_MAX;
    EXPECT_EQ(3 + 3 * each, tree->RowCount());
    EXPECT_EQ(1, tree->At(each + 1).place);
    EXPECT_EQ(each - 1, tree->At(tree->RowCount() - 1).place);
    EXPECT_FALSE(tree->At(tree->RowCount()));
    tree->Select(tree->At(2 * each), 1);
    EXPECT_EQ(std::vector<int64_t>{2 * each}, tree->SelectedRows());
    tree->Forget(tree->At(each + 1));
    EXPECT_EQ(3 + 2 * each, tree->RowCount());
    EXPECT_EQ(0U, tree->SelectedCount());
}

TEST(ArrangeJob, SortsEachLevelAndKeepsWhatIsOpen)
{
    TreeSample model;
    for (const auto& [parent, node, text] : {std::tuple(0, 1, "shot 10"),
                                             {0, 2, "Shot 9"},
                                             {0, 3, "asset"},
                                             {2, 4, "b"},
                                             {2, 5, "a"},
                                             {2, 6, "c"}})
    {
        model.Add(parent, node);
        model.texts[node] = text;
    }
    std::unique_ptr<OpenTree> tree = NewTree(model);
    bool                      isUnsorted = false;
    listviews::OpenChild(*tree, tree->At(1), model, {}, isUnsorted);
    tree->Select(tree->At(3), listviews::IdentityOf(model, 5));
    const auto rows = [&](const listviews::TreeWish& wish)
    {
        std::unique_ptr<OpenTree> next = Made(model, wish, *tree);
        std::vector<TreeMark>     marks{{tree->At(0), std::nullopt, false}};
        CarrySelection(
            *tree, *next, model, [](const TreePlace&) { return nullptr; }, marks);
        EXPECT_EQ(listviews::ChildAt(model, tree->At(0)), listviews::ChildAt(model, marks[0].place))
            << "a mark goes with its node";
        EXPECT_EQ(std::set<wxDBTreeNode>{5}, SelectedIn(model, *next));
        tree = std::move(next);
        return RowsOf(model, *tree);
    };
    using Nodes = std::vector<wxDBTreeNode>;
    EXPECT_EQ((Nodes{3, 2, 5, 4, 6, 1}), rows({{}, {{0, false}}}));
    EXPECT_EQ((Nodes{1, 2, 6, 4, 5, 3}), rows({{}, {{0, true}}}));
    model.numbers = {{1, 5}, {2, -1}, {3, 5}};
    EXPECT_EQ((Nodes{1, 3, 2, 6, 4, 5}), rows({{}, {{1, true}, {0, true}}}));
    model.first = 2;
    EXPECT_EQ((Nodes{2, 6, 4, 5, 1, 3}), rows({{}, {{1, true}, {0, true}}}));
    EXPECT_EQ((Nodes{1, 2, 4, 5, 6, 3}), rows({{}, {}}));
}

// Against the plain way: a node is shown when it matches, lies in one that does, or has one in it.
TEST(ArrangeJob, ShowsMatchesWithWhatTheyAreIn)
{
    std::mt19937 random{3};
    for (int round = 0; round < 30; ++round)
    {
        TreeSample model;
        model.Grow(random, 200);
        const unsigned share = 1 + static_cast<unsigned>(random() % 40);
        const auto     matches = [share](wxDBTreeNode node)
        { return static_cast<unsigned>(node * 2654435761) % share == 0; };
        Reference  expected(model);
        const auto holds = [&](wxDBTreeNode node, const auto& again) -> bool
        {
            const auto& inside = model.children[node];
            return std::count_if(inside.begin(), inside.end(),
                                 [&](wxDBTreeNode child)
                                 {
                                     const bool is = again(child, again);
                                     if (is)
                                     {
                                         expected.open.insert(child);
                                     }
                                     return is || matches(child);
                                 }) > 0;
        };
        holds(wxDBTreeModel::k_Root, holds);
        std::vector<wxDBTreeNode> shown;
        const auto append = [&](wxDBTreeNode node, bool whole, const auto& again) -> void
        {
            for (const wxDBTreeNode child : model.children[node])
            {
                if (whole || matches(child) || expected.open.count(child) > 0)
                {
                    shown.push_back(child);
                    if (expected.open.count(child) > 0)
                    {
                        again(child, whole || matches(child), again);
                    }
                }
            }
        };
        append(wxDBTreeModel::k_Root, false, append);
        std::unique_ptr<OpenTree> tree = Made(model, {{matches, {}}, {}}, OpenTree());
        ASSERT_EQ(shown, RowsOf(model, *tree)) << round;
    }
}

// Two headings with jobs, one of which has frames. A "+" stands behind what is open.
TEST(ArrangeJob, WordsCountForAllThatIsInANode)
{
    TreeSample model;
    for (const auto& [parent, node, text] : {std::tuple(0, 1, "anna"),
                                             {1, 2, "orbit done"},
                                             {1, 3, "bounce"},
                                             {2, 4, "frame 1"},
                                             {2, 5, "frame 2 failed"},
                                             {0, 6, "bert"},
                                             {6, 7, "orbit"}})
    {
        model.Add(parent, node);
        model.texts[node] = text;
    }
    model.headings = {1, 6};
    const struct
    {
        const char* words;
        const char* rows;
        int         count; // of matches
    } cases[] = {{"anna", "1+ 2 3 ", 2},      {"orbit", "1+ 2 6+ 7 ", 2},
                 {"anna orbit", "1+ 2 ", 1},  {"orbit frame", "1+ 2+ 4 5 ", 2},
                 {"-orbit", "1+ 3 ", 1},      {"-failed", "1+ 2 3 6+ 7 ", 3},
                 {"failed", "1+ 2+ 5 ", 1},   {"orbit 2", "1+ 2+ 5 ", 1},
                 {"name:bounce", "1+ 3 ", 1}, {"bert -orbit", "", 0}};
    for (const auto& c : cases)
    {
        listviews::TreeFilter filter;
        filter.query = {c.words, {{0, "Name", "", true}}};
        ArrangeJob job(model, {filter, {}}, OpenTree());
        while (job.Step())
        {
        }
        const std::unique_ptr<OpenTree> tree = job.Take();
        String                          rows;
        for (int64_t row = 0; row < tree->RowCount(); ++row)
        {
            rows += String::FromInt(listviews::ChildAt(model, tree->At(row))) +
                    (tree->At(row).IsOpen() ? "+ " : " ");
        }
        EXPECT_EQ(c.rows, rows) << c.words;
        EXPECT_EQ(c.count, job.Matches()) << c.words;
        EXPECT_EQ(5, job.Total());
    }
}

TEST(OpenKeys, RememberTheWayToEveryOpenNode)
{
    TreeSample model;
    model.Add(0, 1);
    model.Add(0, 2);
    model.Add(1, 3);
    model.Add(3, 4);
    model.Add(2, 5);
    model.keys = {{1, "a,(b"}, {2, "ü %"}, {3, "\"x\""}, {5, "5"}};
    const auto opened = [&](const String& text)
    {
        std::unique_ptr<OpenTree> tree = NewTree(model);
        listviews::OpenByText(model, *tree, text);
        return std::pair(tree->RowCount(), listviews::OpenNodesText(model, *tree));
    };
    const String all = "a%2C%28b(%22x%22),ü%20%25";
    EXPECT_EQ(std::pair(int64_t{5}, all), opened(all));
    const struct
    {
        const char* text;
        int64_t     rows;
    } cases[] = {{"", 2},
                 {"))((", 2},
                 {"a%2C%28b((((", 3},
                 {"x(%22x%22),%", 2},
                 {"%22x%22", 2},
                 {"ü%20%25)a%2C%28b(%22x%22", 5},
                 {"a%2C%28b,a%2C%28b(%22x%22)", 4}};
    for (const auto& c : cases)
    {
        EXPECT_EQ(c.rows, opened(c.text).first) << c.text;
    }
    EXPECT_EQ(2, opened(String(100000, '(')).first);
    for (int i = 100; i < 10000; ++i)
    {
        model.Add(0, i);
        model.Add(i, 100000 + i);
        model.keys[i] = SFormat("node %d", i);
    }
    std::unique_ptr<OpenTree> tree = NewTree(model);
    bool                      isUnsorted = false;
    for (int64_t row = tree->RowCount(); row-- > 0;)
    {
        listviews::OpenChild(*tree, tree->At(row), model, {}, isUnsorted);
    }
    EXPECT_LT(listviews::OpenNodesText(model, *tree).size(), 33000U);
}
