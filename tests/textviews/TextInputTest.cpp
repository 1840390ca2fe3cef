#include "tests/textviews/TextViewTest.h"

#include <wx/menu.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

/// The same with a real keyboard and a real mouse, as far as the display has them.

namespace
{
class TextInputTest : public TextViewTest
{
protected:
    TextInputTest()
    {
        AppendNumbered(200);
        Frame()->Raise();
        m_View->SetFocus();
        EXPECT_TRUE(WaitFor([this] { return m_View->HasFocus(); }));
        EXPECT_TRUE(WaitFor([this] { return !m_View->RedrawPending(); }));
    }

    wxPoint OnScreen(int line) const
    {
        return m_View->ClientToScreen(wxPoint(30, m_View->MiddleOf(line)));
    }

    /// Types until it has had its effect: a key may get lost while the focus moves.
    bool Type(int key, int modifiers, const std::function<bool()>& effect)
    {
        m_Input.Char(key, modifiers);
        return WaitFor(effect);
    }

    wxUIActionSimulator m_Input;
};
} // namespace

TEST_F(TextInputTest, TheMouseSelectsAndScrollsByDragging)
{
    m_Input.MouseMove(OnScreen(3));
    EXPECT_TRUE(WaitFor([this] { return m_View->GetHighlightLine() == 3; }));
    m_Input.MouseDown();
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionAnchor() == 3; }));
    m_Input.MouseMove(OnScreen(6));
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 6; }));
    const wxPoint below = m_View->ClientToScreen(wxPoint(30, m_View->GetClientSize().y + 20));
    for (int i = 0; i < 5; ++i)
    {
        m_Input.MouseMove(below + wxPoint(i, 0));
        PumpEvents();
    }
    EXPECT_TRUE(WaitFor([this] { return m_View->GetScrollPos(wxVERTICAL) > 0; }));
    m_Input.MouseUp();
    EXPECT_TRUE(WaitFor([this] { return !m_View->IsSelecting(); }));
    EXPECT_EQ(m_View->GetSelectionAnchor(), 3);
    EXPECT_GT(m_View->GetSelectionEnd(), 6);
}

TEST_F(TextInputTest, KeysReachTheView)
{
    EXPECT_TRUE(
        Type(WXK_PAGEDOWN, wxMOD_NONE, [this] { return m_View->GetScrollPos(wxVERTICAL) > 0; }));
    EXPECT_TRUE(Type('A', wxMOD_CONTROL, [this] { return m_View->GetSelectionEnd() == 199; }));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [this] { return m_View->GetSelectionEnd() == -1; }));
    EXPECT_TRUE(
        Type(WXK_PAGEUP, wxMOD_CONTROL, [this] { return m_View->GetScrollPos(wxVERTICAL) == 0; }));
    m_Input.MouseMove(OnScreen(1));
    m_Input.MouseClick();
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 1; }));
    m_Input.Char('C', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([] { return PastedElsewhere("UTF8_STRING") == "line 1\n"; }));
}

TEST_F(TextInputTest, TheMenuOfTheRightButton)
{
    bool    opened = false;
    wxTimer answer;
    answer.Bind(wxEVT_TIMER,
                [this](wxTimerEvent&)
                {
                    // The fifth entry that can be chosen is "Copy", the third "Select All".
                    for (int i = 0; i < 3; ++i)
                    {
                        m_Input.Char(WXK_DOWN);
                    }
                    m_Input.Char(WXK_RETURN);
                });
    m_View->Bind(wxEVT_MENU_OPEN,
                 [&](wxMenuEvent&)
                 {
                     opened = true;
                     answer.StartOnce(300);
                 });
    m_Input.MouseMove(OnScreen(2));
    m_Input.MouseClick(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 199; }));
    EXPECT_TRUE(opened);
}

TEST_F(TextInputTest, TypingInTheSearchBar)
{
    const auto searched = [this](int line)
    { return [this, line] { return m_View->GetMarkedLine() == line; }; };
    EXPECT_TRUE(Type('F', wxMOD_CONTROL, [this] { return Panel().IsShown(); }));
    EXPECT_TRUE(WaitFor([this] { return !m_View->HasFocus() && wxWindow::FindFocus(); }));
    m_Input.Text("ine 15");
    EXPECT_TRUE(WaitFor([this] { return Panel().GetText() == "ine 15"; }));
    EXPECT_TRUE(Type(WXK_RETURN, wxMOD_NONE, searched(15)));
    EXPECT_TRUE(Type(WXK_RETURN, wxMOD_NONE, searched(150)));
    EXPECT_TRUE(Type(WXK_RETURN, wxMOD_SHIFT, searched(15)));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [this] { return !Panel().IsShown(); }));
    EXPECT_TRUE(WaitFor([this] { return m_View->HasFocus(); }));
}
