#include "appearance/wxExpandablePanel.h"
#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"

#include <wx/scrolwin.h>

namespace
{
constexpr int kContentHeight = 80; // pixels

class Panel : public wxExpandablePanel
{
public:
    Panel(wxWindow* parent, const String& key, bool expandable = true)
        : wxExpandablePanel(parent, wxVERTICAL)
    {
        m_Section = "Panels";
        m_Key = key;
        m_CollapsedCaption = "Show";
        m_ExpandedCaption = "Hide";
        CreateInfrastructure("tip", expandable);
    }
    void Add(wxWindow* window)
    {
        window->SetMinSize(wxSize(100, kContentHeight));
        m_ContentSizer->Add(window, 0, wxEXPAND);
    }
};

class ExpandablePanelTest : public FrameTest
{
protected:
    // A panel in a panel in a scrolled window, with something behind them.
    ExpandablePanelTest() : m_Scrolled(new wxScrolledWindow(Frame()))
    {
        m_Scrolled->SetSize(Frame()->GetClientSize());
        m_Scrolled->SetScrollRate(1, 1);
        m_Outer = new Panel(m_Scrolled, "outer");
        m_Inner = new Panel(m_Outer, "inner");
        m_Outer->Add(m_Inner);
        m_Inner->SetMinSize(wxDefaultSize);
        m_Content = new wxWindow(m_Inner, wxID_ANY);
        m_Inner->Add(m_Content);
        m_Last = new wxWindow(m_Scrolled, wxID_ANY, wxDefaultPosition, wxSize(10, 10));
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(m_Outer, 0, wxEXPAND);
        sizer->Add(m_Last);
        m_Scrolled->SetSizer(sizer);
        m_Scrolled->FitInside();
        m_Scrolled->Layout();
    }

    wxScrolledWindow* m_Scrolled;
    Panel*            m_Outer;
    Panel*            m_Inner;
    wxWindow*         m_Content;
    wxWindow*         m_Last;
};
} // namespace

TEST_F(ExpandablePanelTest, OpeningMovesWhateverLiesAround)
{
    EXPECT_FALSE(m_Content->IsShownOnScreen());
    const int closed = m_Last->GetPosition().y;
    EXPECT_LT(closed, kContentHeight) << "closed content takes no room";

    wxCommandEvent click(wxEVT_BUTTON, wxExpandablePanel::id_Expand);
    m_Outer->OnExpand(click);
    EXPECT_TRUE(m_Inner->IsShownOnScreen());
    EXPECT_FALSE(m_Content->IsShownOnScreen()) << "the inner panel is still closed";
    EXPECT_TRUE(WaitFor([&] { return m_Last->GetPosition().y > closed; }));
    const int half = m_Last->GetPosition().y;

    wxWindow* const caption = m_Inner->FindWindow(wxExpandablePanel::id_Caption);
    EXPECT_EQ("Show", caption->GetLabel());
    m_Inner->OnExpand(click);
    EXPECT_EQ("Hide", caption->GetLabel());
    EXPECT_TRUE(m_Content->IsShownOnScreen());
    EXPECT_TRUE(WaitFor([&] { return m_Last->GetPosition().y >= half + kContentHeight; }));
    EXPECT_GT(m_Scrolled->GetVirtualSize().y, kContentHeight);

    // The keyboard does not vanish with what has it.
    Focus(m_Content);
    m_Inner->OnExpand(click);
    wxWindow* const button = m_Inner->FindWindow(wxExpandablePanel::id_Expand);
    EXPECT_TRUE(WaitFor([&] { return button->HasFocus(); }));
}

TEST_F(ExpandablePanelTest, ItsStateIsStoredAndReadAgain)
{
    wxCommandEvent click(wxEVT_BUTTON, wxExpandablePanel::id_Expand);
    m_Outer->OnExpand(click);
    EXPECT_EQ("1", TestApp::Get().Options().GetValue("Panels", "outer"));
    EXPECT_TRUE(Panel(m_Scrolled, "outer").IsExpanded());
    m_Outer->OnExpand(click);
    EXPECT_EQ("0", TestApp::Get().Options().GetValue("Panels", "outer"));
    EXPECT_FALSE(Panel(m_Scrolled, "outer").IsExpanded());

    Panel fixed(m_Scrolled, "outer", false);
    EXPECT_TRUE(fixed.IsExpanded()) << "whatever is stored: nobody could open it";
    auto* const content = new wxWindow(&fixed, wxID_ANY);
    fixed.Add(content);
    fixed.Fit();
    EXPECT_TRUE(content->IsShownOnScreen());
    EXPECT_GT(fixed.GetSize().y, kContentHeight);
    EXPECT_EQ(nullptr, fixed.FindWindow(wxExpandablePanel::id_Expand));
    EXPECT_FALSE(fixed.FindWindow(wxExpandablePanel::id_Caption)->IsEnabled());
}
