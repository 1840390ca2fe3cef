#include "listviews/wxDBListBody.h"
#include "listviews/wxListKeys.h"
#include "listviews/wxtListCtrl.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"

#include <wx/listbase.h>

#include <set>

TEST_F(FrameTest, ListKeysGoToRowsAndSelect)
{
    const struct
    {
        int from, key, modifier; // row of the anchor, -1 for none
        int first, last;         // of the selection
        int anchor;              // afterwards
    } rows[] = {
        {50, WXK_HOME, 0, 0, 0, 0},          {50, WXK_END, 0, 99, 99, 99},
        {50, WXK_HOME, WXK_SHIFT, 0, 50, 0}, {50, WXK_NUMPAD_END, WXK_SHIFT, 50, 99, 99},
        {99, WXK_PAGEDOWN, 0, 99, 99, 99},   {3, WXK_PAGEUP, WXK_SHIFT, 0, 3, 0},
        {-1, WXK_DOWN, 0, 0, 0, 0},          {50, 'A', WXK_CONTROL, 0, 99, 50},
        {50, WXK_RETURN, 0, 50, 50, 50},
    };
    auto* const list = new wxtListCtrl(Frame(), wxID_ANY);
    list->AddColumn(0, "Title", 200);
    for (int row = 0; row < 100; ++row)
    {
        list->InsertItem(row, String::FromInt(row));
    }
    wxAddListKeys(*list);
    Frame()->SendSizeEvent();
    const EventCounter activations(list, wxEVT_LIST_ITEM_ACTIVATED);
    for (const auto& row : rows)
    {
        list->GetBody()->DeselectAll(true);
        list->SetLastSelect(row.from);
        list->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row.from);
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = row.key;
        event.SetShiftDown(row.modifier == WXK_SHIFT);
        event.SetControlDown(row.modifier == WXK_CONTROL);
        list->GetBody()->HandleWindowEvent(event);
        const std::vector<int> order = list->GetSelection();
        const std::set<int>    selected(order.begin(), order.end());
        ASSERT_FALSE(selected.empty()) << row.key;
        EXPECT_EQ(row.first, *selected.begin()) << row.key;
        EXPECT_EQ(row.last, *selected.rbegin()) << row.key;
        EXPECT_EQ(row.last - row.first + 1, static_cast<int>(selected.size())) << row.key;
        EXPECT_EQ(row.anchor, list->GetLastSelect()) << row.key;
    }
    EXPECT_EQ(1, activations.Count());
}
