#include "listviews/wxDBListBody.h"
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
    const int bar = m_Text->GetClientSize().x + 6;
    m_Input.MouseMove(m_Text->ClientToScreen(wxPoint(bar, 22))); // past the arrow of one port
    m_Input.MouseDown();
    m_Input.MouseMove(m_Text->ClientToScreen(wxPoint(bar, 72)));
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
