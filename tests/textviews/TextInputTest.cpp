#include "tests/textviews/TextViewTest.h"

#include <wx/filedlg.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

namespace
{
/// The view with a real keyboard and a real mouse, as far as the display has them.
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
/// Types a file name into the toolkit's file selector and confirms it; closes message boxes.
class SelectorTyping : public wxModalDialogHook
{
public:
    explicit SelectorTyping(const wxString& name) : m_Name(name)
    {
        Register();
        m_Wait.Bind(wxEVT_TIMER, &SelectorTyping::OnWait, this);
    }

    int m_Messages = 0;

protected:
    int Enter(wxDialog* dialog) override
    {
        if (dynamic_cast<wxFileDialog*>(dialog))
        {
            m_Wait.Start(kPauseMs);
            return wxID_NONE;
        }
        ++m_Messages;
        return wxID_OK;
    }

    void Exit(wxDialog*) override { m_Wait.Stop(); }

private:
    // The selector fills itself in the background, and proposes names over what is typed.
    static constexpr int kPauseMs = 700;
    static constexpr int kMostReturns = 8; // then it gives up

    void OnWait(wxTimerEvent&)
    {
        wxUIActionSimulator input;
        if (++m_Turns == 1)
        {
            input.Text(m_Name.utf8_str());
            return;
        }
        input.Char(m_Turns > kMostReturns ? WXK_ESCAPE : WXK_RETURN);
    }

    wxString m_Name;
    wxTimer  m_Wait;
    int      m_Turns = 0;
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
    EXPECT_TRUE(Type('A', wxMOD_CONTROL, [this] { return IsSelected(0, 199); }));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [this] { return IsSelected(-1, -1); }));
    m_View->ScrollToTop();
    m_Input.MouseMove(OnScreen(1));
    m_Input.MouseClick();
    EXPECT_TRUE(WaitFor([this] { return IsSelected(1, 1); }));
    EXPECT_TRUE(
        Type('C', wxMOD_CONTROL, [this] { return PastedElsewhere("UTF8_STRING") == "line 1\n"; }));
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

TEST_F(TextInputTest, SavesThroughTheFileSelector)
{
    const Path           path = TempFile("saved.txt");
    const SelectorTyping typing(path.Text());
    m_Input.Char('S', wxMOD_CONTROL);
    ASSERT_TRUE(WaitFor([&] { return File::Exists(path); }, 15000));
    const String saved = ReadFile(path);
    EXPECT_TRUE(saved.StartsWith("line 0\nline 1\n"));
    EXPECT_EQ(saved.substr(saved.size() - 10), "\nline 199\n");
    EXPECT_EQ(typing.m_Messages, 0);
}

// A key has no caller to hear of a failure: the user does.
TEST_F(TextInputTest, AFailedSaveByKeyIsTold)
{
    const SelectorTyping typing("/proc/nothing");
    m_Input.Char('S', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([&] { return typing.m_Messages > 0; }, 15000));
}
