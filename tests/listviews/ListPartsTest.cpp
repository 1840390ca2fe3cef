#include "listviews/cells/ListGeometry.h"
#include "listviews/model/ListModel.h"
#include "listviews/model/ListSelection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>

TEST(ListGeometry, EdgesAndPlacesFollowTheScrollPosition)
{
    listviews::ListGeometry list;
    list.rowHeight = 20;
    list.scroll = wxPoint(50, 30);
    list.client = wxSize(200, 100);
    list.widths = {100, 0, 60, 100};

    struct
    {
        int x, column, edge;
    } const places[] = {{0, 0, -1},  {46, 0, -1},  {47, 0, 1},    {50, 2, 1},
                        {53, 2, 1},  {54, 2, -1},  {109, 2, 2},   {110, 3, 2},
                        {209, 3, 3}, {210, -1, 3}, {214, -1, -1}, {-60, -1, -1}};
    for (const auto& place : places)
    {
        SCOPED_TRACE(place.x);
        EXPECT_EQ(place.column, list.ColumnAt(place.x));
        EXPECT_EQ(place.edge, list.EdgeAt(place.x));
    }
    EXPECT_EQ(1, list.RowAt(0));
    EXPECT_EQ(2, list.RowAt(10));
    EXPECT_EQ(wxRect(50, 10, 60, 20), list.CellRect(2, 2));
    EXPECT_EQ(wxRect(110, 0, 100, 100), list.ColumnRect(3));
    EXPECT_EQ(std::make_pair(0, 4), list.VisibleColumns());
    list.scroll.x = 120;
    EXPECT_EQ(std::make_pair(2, 4), list.VisibleColumns());
    list.widths.clear();
    EXPECT_EQ(-1, list.EdgeAt(0));
    EXPECT_EQ(std::make_pair(0, 0), list.VisibleColumns());
}

TEST(ListGeometry, HugeListsDoNotWrap)
{
    listviews::ListGeometry list;
    list.rowHeight = 19;
    list.scroll.y = INT_MAX - 19;
    list.client = wxSize(200, 100);
    const int last = listviews::MostRows(19) - 1;
    EXPECT_GE(list.RowRect(last).y, -19);
    EXPECT_LT(list.RowRect(0).y, -1000000);
    EXPECT_GT(list.RowRect(INT_MAX).y, 1000000);
    EXPECT_EQ(INT_MAX, listviews::ContentWidth(std::vector<int>(100000, 100000)));
}

TEST(ListModel, AColumnThatMovesTakesTheHighlightAlong)
{
    constexpr struct
    {
        int index, delta, highlight, target, highlightAfter;
    } moves[] = {{0, 10, 2, 2, 1},   {0, 1, 0, 1, 1}, {2, -2, 0, 0, 1}, {2, -1, 0, 1, 0},
                 {1, -9, -1, 0, -1}, {0, 1, 2, 1, 2}, {2, 5, 2, 2, 2}};
    for (const auto& move : moves)
    {
        SCOPED_TRACE(::testing::Message() << move.index << ' ' << move.delta);
        listviews::ListModel model;
        for (const int width : {-1, 20, 1 << 30})
        {
            wxDBListColumn column;
            column.width = width;
            column.type = model.ColumnCount();
            model.InsertColumn(model.ColumnCount(), column);
        }
        EXPECT_EQ("100, 20, 16777216", listviews::WidthsText(model));
        model.highlightColumn = move.highlight;
        EXPECT_EQ(move.target, model.MoveColumn(move.index, move.delta));
        EXPECT_EQ(move.target, model.FindType(move.index));
        EXPECT_EQ(move.highlightAfter, model.highlightColumn);
    }
}

// Against the plain way, with rows that come and go meanwhile.
TEST(ListSelection, KeepsTheOrderOfSelection)
{
    std::mt19937             random{5};
    listviews::ListSelection selection;
    std::vector<int>         expected;
    int                      rows = 100;
    for (int step = 0; step < 20000; ++step)
    {
        const int  row = static_cast<int>(random() % static_cast<unsigned>(rows + 1));
        const auto found = std::find(expected.begin(), expected.end(), row);
        switch (random() % 5)
        {
        case 0:
        case 1:
            ASSERT_EQ(found == expected.end(), selection.Add(row));
            if (found == expected.end())
            {
                expected.push_back(row);
            }
            break;
        case 2:
            ASSERT_EQ(found != expected.end(), selection.Remove(row));
            if (found != expected.end())
            {
                expected.erase(found);
            }
            break;
        case 3:
            ++rows;
            selection.RowInserted(row);
            for (int& other : expected)
            {
                other += other >= row;
            }
            break;
        default:
            rows = std::max(rows - 1, 50);
            selection.RowErased(row);
            expected.erase(std::remove(expected.begin(), expected.end(), row), expected.end());
            for (int& other : expected)
            {
                other -= other > row;
            }
        }
        ASSERT_EQ(expected, selection.Rows()) << step;
        ASSERT_EQ(std::count(expected.begin(), expected.end(), row), selection.Has(row));
        const auto next = std::find_if(expected.begin(), expected.end(),
                                       [row](int other) { return other > row; });
        ASSERT_EQ(next == expected.end() ? -1 : *next, selection.NextAfter(row));
    }
}
