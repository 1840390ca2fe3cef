#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxtListCtrl.h"
#include "tests/support/FrameTest.h"
#include "textviews/wxTextLineCtrl.h"

#include <wx/listbase.h>
#include <wx/panel.h>
#include <wx/uiaction.h>

namespace
{
/// A page with a list and a text view that is done away with while the button is held down in one
/// of them, and a list beside it that has to go on working.
class HeldListTest : public FrameTest
{
protected:
    HeldListTest() : m_Other(MakeList(Frame())) { m_Other->SetSize(300, 0, 300, 180); }
    ~HeldListTest() override { m_Input.MouseUp(); }

    static wxtListCtrl* MakeList(wxWindow* parent)
    {
        auto* const list = new wxtListCtrl(parent, wxID_ANY);
        list->AddColumn(0, "Title", 100);
        list->AddColumn(1, "Other", 100);
        for (int i = 0; i < 5; ++i)
        {
            list->InsertItem(i, "row");
        }
        return list;
    }
    void MakePage()
    {
        m_Page = new wxPanel(Frame(), wxID_ANY, wxPoint(0, 0), wxSize(300, 400));
        m_List = MakeList(m_Page);
        m_List->SetSize(0, 0, 300, 180);
        m_Text = new wxTextLineCtrl(m_Page);
        m_Text->SetSize(0, 200, 300, 180);
        m_Text->Append("a line", false);
        m_List->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(), 0, 3);
        PumpEvents();
    }
    bool IsSelectedByClick(wxtListCtrl* list)
    {
        for (const int row : list->GetSelection())
        {
            list->GetBody()->SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(), 0, row);
        }
        m_Input.MouseMove(list->GetBody()->ClientToScreen(wxPoint(50, 30)));
        m_Input.MouseClick();
        return WaitFor([list] { return !list->GetSelection().empty(); }, 1000);
    }

    wxtListCtrl*           m_Other;
    wxWeakRef<wxPanel>     m_Page;
    wxWeakRef<wxtListCtrl> m_List;
    wxTextLineCtrl*        m_Text = nullptr;
    wxUIActionSimulator    m_Input;
};
} // namespace

TEST_F(HeldListTest, LetsGoOfTheMouseInEveryWayOfDying)
{
    const std::pair<const char*, std::function<wxPoint()>> places[] = {
        {"row", [this] { return m_List->GetBody()->ClientToScreen(wxPoint(50, 10)); }},
        {"title", [this] { return m_List->GetHeader()->ClientToScreen(wxPoint(50, 8)); }},
        {"edge", [this] { return m_List->GetHeader()->ClientToScreen(wxPoint(100, 8)); }},
        {"line", [this] { return m_Text->ClientToScreen(wxPoint(50, 5)); }},
    };
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"destroyed", [this] { m_Page->Destroy(); }},
        {"hidden", [this] { m_Page->Hide(); }},
        {"disabled", [this] { m_Page->Disable(); }},
        {"frame disabled", [this] { Frame()->Disable(); }},
    };
    for (const auto& [place, where] : places)
    {
        for (const auto& [how, end] : ends)
        {
            SCOPED_TRACE(String(place) + " " + how);
            MakePage();
            m_Input.MouseMove(where());
            m_Input.MouseDown();
            EXPECT_TRUE(WaitFor([] { return wxWindow::GetCapture() != nullptr; }));
            end();
            PumpEvents();
            m_Input.MouseUp();
            EXPECT_TRUE(WaitFor([] { return !wxWindow::GetCapture(); }, 1000));
            Frame()->Enable();
            EXPECT_TRUE(IsSelectedByClick(m_Other));
            if (m_Page)
            {
                m_Page->Show();
                m_Page->Enable();
                PumpEvents();
                EXPECT_TRUE(IsSelectedByClick(m_List));
                m_Page->Destroy();
            }
        }
    }
}

// Whichever of its events has it destroyed, and by a real press.
TEST_F(HeldListTest, EveryHandlerMayDestroyIt)
{
    const struct
    {
        const wxEventTypeTag<wxListEvent>& type;
        wxPoint                            press; ///< Negative height: in the header.
        int                                button;
        int                                clicks;
    } cases[] = {
        {wxEVT_LIST_ITEM_SELECTED, {50, 10}, wxMOUSE_BTN_LEFT, 1},
        {wxEVT_LIST_ITEM_SELECTED, {50, 10}, wxMOUSE_BTN_RIGHT, 1},
        {wxEVT_LIST_ITEM_DESELECTED, {50, 10}, wxMOUSE_BTN_LEFT, 1},
        {wxEVT_LIST_ITEM_ACTIVATED, {50, 10}, wxMOUSE_BTN_LEFT, 2},
        {wxEVT_LIST_ITEM_RIGHT_CLICK, {50, 10}, wxMOUSE_BTN_RIGHT, 1},
        {wxEVT_LIST_COL_CLICK, {50, -8}, wxMOUSE_BTN_LEFT, 1},
        {wxEVT_LIST_COL_RIGHT_CLICK, {50, -8}, wxMOUSE_BTN_RIGHT, 1},
        {wxEVT_LIST_COL_BEGIN_DRAG, {100, -8}, wxMOUSE_BTN_LEFT, 1},
        {wxEVT_LIST_COL_END_DRAG, {100, -8}, wxMOUSE_BTN_LEFT, 1},
    };
    for (const auto& c : cases)
    {
        for (const bool whole : {false, true})
        {
            SCOPED_TRACE(testing::Message() << &c - cases << (whole ? " page" : " list"));
            MakePage();
            m_List->Bind(c.type, [this, whole](wxListEvent&)
                         { whole ? m_Page->Destroy() : m_List->Destroy(); });
            m_Input.MouseMove(m_List->GetBody()->ClientToScreen(c.press));
            for (int i = 0; i < c.clicks; ++i)
            {
                m_Input.MouseClick(c.button);
                PumpEvents();
            }
            EXPECT_TRUE(WaitFor([this] { return !m_List; }, 1000));
            EXPECT_FALSE(wxWindow::GetCapture());
            EXPECT_TRUE(IsSelectedByClick(m_Other));
            if (m_Page)
            {
                m_Page->Destroy();
            }
        }
    }
}

// By the press that brings the focus; the host has the event to itself then.
TEST_F(HeldListTest, AFocusHandlerMayDestroyIt)
{
    for (const bool inText : {false, true})
    {
        for (const int button : {wxMOUSE_BTN_LEFT, wxMOUSE_BTN_RIGHT})
        {
            for (const int y : {10, -8})
            {
                SCOPED_TRACE(testing::Message() << inText << " " << button << " " << y);
                MakePage();
                wxWindow* const view = inText ? static_cast<wxWindow*>(m_Text) : m_List->GetBody();
                view->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent&) { m_Page->Destroy(); });
                m_Input.MouseMove(view->ClientToScreen(wxPoint(50, inText ? 10 : y)));
                m_Input.MouseClick(button);
                PumpEvents();
                // The right button on a title leaves the focus alone.
                EXPECT_EQ(button == wxMOUSE_BTN_RIGHT && y < 0 && !inText, bool(m_Page));
                EXPECT_FALSE(wxWindow::GetCapture());
                EXPECT_TRUE(IsSelectedByClick(m_Other));
                if (m_Page)
                {
                    m_Page->Destroy();
                }
            }
        }
    }
}

// The port's own scrollbar is pressed then, and nobody tells it that the button was let go.
TEST_F(HeldListTest, AThumbMayBeHeldWhenItsViewGoes)
{
    MakePage();
    for (int i = 0; i < 100; ++i)
    {
        m_Text->Append("a line", false);
    }
    m_Text->AdjustScrollbars();
    PumpEvents();
    m_Input.MouseMove(m_Text->ClientToScreen(wxPoint(m_Text->GetClientSize().x + 6, 10)));
    m_Input.MouseDown();
    m_Input.MouseMove(m_Text->ClientToScreen(wxPoint(m_Text->GetClientSize().x + 6, 60)));
    EXPECT_TRUE(WaitFor([this] { return m_Text->GetScrollPos(wxVERTICAL) > 0; }));
    m_Page->Destroy();
    m_Input.MouseUp();
    PumpEvents();
    int moved = 0;
    m_Other->GetBody()->Bind(wxEVT_MOTION, [&](wxMouseEvent&) { ++moved; });
    EXPECT_TRUE(IsSelectedByClick(m_Other));
    m_Input.MouseMove(m_Other->GetBody()->ClientToScreen(wxPoint(60, 40)));
    EXPECT_TRUE(WaitFor([&] { return moved > 0; }, 1000));
}
