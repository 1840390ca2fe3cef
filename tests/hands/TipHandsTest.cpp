#include "appearance/wxTolvanString.h"
#include "appearance/wxtCheckBox.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxtListCtrl.h"
#include "tests/hands/HandsTest.h"
#include "tests/support/EventCounter.h"

#include <gtk/gtk.h>

namespace
{
class TipHandsTest : public HandsTest
{
protected:
    /// Where the tip of what lies there in the list comes up, once it has that text.
    void ExpectTip(wxWindow* part, const wxPoint& place, const wxString& text)
    {
        const wxPoint screen = part->ClientToScreen(place);
        MoveTo(screen - wxPoint(2, 0));
        MoveTo(screen); // the toolkit waits for a pointer that has moved within
        EXPECT_TRUE(WaitFor([&] { return part->GetToolTipText() == text; })) << text;
        int left = -1;
        EXPECT_TRUE(WaitFor(
            [&]
            {
                left = m_Hand.TipLeft();
                return left > screen.x - kNear && left < screen.x + kNear;
            }))
            << text << " at " << left << ", the pointer at " << screen.x;
    }

    /// Whether one would be shown where the pointer is.
    static bool HasTip(const wxWindow& window)
    {
        auto* const tip = static_cast<GtkTooltip*>(g_object_new(GTK_TYPE_TOOLTIP, nullptr));
        gboolean    isShown = FALSE;
        g_signal_emit_by_name(window.m_wxwindow, "query-tooltip", 1, 1, FALSE, tip, &isShown);
        g_object_unref(tip);
        return isShown;
    }

    /// A window has all input from now on, as a dialog has, until `LetIn`.
    void ShutOut()
    {
        m_Above = new wxFrame(m_Frame, wxID_ANY, "Above", m_Frame->GetScreenPosition(),
                              wxSize(100, 40), wxFRAME_FLOAT_ON_PARENT);
        gtk_window_set_modal(GTK_WINDOW(m_Above->GetHandle()), TRUE);
        m_Above->Show();
        EXPECT_TRUE(WaitFor([] { return gtk_grab_get_current() != nullptr; }));
        PumpEvents();
    }

    void LetIn()
    {
        m_Above->Destroy();
        EXPECT_TRUE(WaitFor([] { return gtk_grab_get_current() == nullptr; }));
    }

    wxWeakRef<wxFrame> m_Above;

    static constexpr int kNear = 70; // pixels; tips are centred
};
} // namespace

// Whatever the pointer does there.
TEST_F(TipHandsTest, NoTipIsShownBelowAWindowThatHasTheInput)
{
    auto* const list = First<wxtListCtrl>();
    list->SetColumnWidth(0, 150);
    auto* const header = list->GetHeader();
    ExpectTip(header, wxPoint(50, 10), "Name");
    ShutOut();
    EXPECT_TRUE(WaitFor([&] { return m_Hand.TipLeft() == -1; }));
    auto* const above = new wxtCheckBox(m_Above, wxID_ANY, "Above");
    above->SetToolTip("What is there");
    EXPECT_FALSE(HasTip(*header)) << "the pointer is on it";
    EXPECT_TRUE(HasTip(*above));
    LetIn();
    EXPECT_TRUE(HasTip(*header));
}

TEST_F(TipHandsTest, NoTipComesUpWhileSomebodyTypes)
{
    auto* const list = First<wxtListCtrl>();
    list->SetColumnWidth(0, 150);
    auto* const header = list->GetHeader();
    ExpectTip(header, wxPoint(50, 10), "Name");
    Do(Named("Normal"), "focus a");
    EXPECT_FALSE(HasTip(*header));
    ExpectTip(header, wxPoint(60, 10), "Name");
    EXPECT_TRUE(HasTip(*header));
}

TEST_F(TipHandsTest, WhatThePointerLeavesBelowSuchAWindowHearsOfIt)
{
    wxWindow* const    button = Named("Normal");
    const EventCounter left(button, wxEVT_LEAVE_WINDOW);
    for (const bool leaves : {false, true})
    {
        Do(button, "leave enter");
        const int before = left.Count();
        ShutOut();
        if (leaves)
        {
            Do(button, "leave");
        }
        LetIn();
        PumpEvents();
        EXPECT_EQ(leaves ? 1 : 0, left.Count() - before);
    }
}

TEST_F(TipHandsTest, TheTitleBelowOneThatWasDraggedIsUnderThePointer)
{
    auto* const list = First<wxtListCtrl>();
    list->SetColumnWidth(0, 150);
    auto* const header = list->GetHeader();
    const auto  at = [&](int x) { MoveTo(header->ClientToScreen(wxPoint(x, 10))); };
    at(50);
    Button(1, true);
    at(100);
    at(165); // on the second title, where the first one stays at its place
    Button(1, false);
    EXPECT_EQ("Name", list->GetColumn(0).label);
    EXPECT_TRUE(WaitFor([&] { return header->GetToolTipText() == "State"; }))
        << header->GetToolTipText();
}

TEST_F(TipHandsTest, ATipComesUpWhereItsTextLies)
{
    auto* const list = First<wxtListCtrl>();
    list->SetColumnWidth(0, 150);
    constexpr int kRow = 3; // which no tip of a title covers
    const int     ways[] = {0, 1, 0};
    for (const int column : ways)
    {
        ExpectTip(list->GetHeader(), wxPoint(column * 150 + 50, 10),
                  wxtToWx(list->GetColumn(column).label));
    }
    list->ShowColumn(0, false); // under the pointer, which rests
    EXPECT_TRUE(WaitFor(
        [&] { return list->GetHeader()->GetToolTipText() == wxtToWx(list->GetColumn(1).label); }));
    list->ShowColumn(0, true);
    for (const int column : ways)
    {
        const wxRect cell = list->GetBody()->GetCellRect(kRow, column);
        ExpectTip(list->GetBody(), cell.GetPosition() + wxPoint(50, 10),
                  wxtToWx(list->GetDisplayText(kRow, column)));
    }
}
