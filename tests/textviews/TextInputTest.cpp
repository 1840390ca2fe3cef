#include "tests/support/Thrown.h"
#include "tests/textviews/SlowText.h"
#include "tests/textviews/TextViewTest.h"

#include <wx/filedlg.h>
#include <wx/modalhook.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <climits>

namespace
{
/// The view with a real keyboard and a real mouse, as far as the display has them.
class TextInputTest : public TextViewTest
{
protected:
    TextInputTest()
    {
        AppendNumbered(200);
        Focus(m_View);
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

/// Answers the toolkit's file selector with that name, and closes message boxes.
class SelectorAnswer : public wxModalDialogHook
{
public:
    explicit SelectorAnswer(const Path& path) : m_Path(path.Text()) { Register(); }

    int m_Messages = 0;

protected:
    int Enter(wxDialog* dialog) override
    {
        if (auto* const selector = dynamic_cast<wxFileDialog*>(dialog))
        {
            selector->SetPath(m_Path);
            EXPECT_TRUE(WaitFor([&] { return selector->GetPath() == m_Path; }));
            EXPECT_TRUE(selector->HasFlag(wxFD_OVERWRITE_PROMPT));
        }
        else
        {
            ++m_Messages;
        }
        return wxID_OK;
    }

private:
    wxString m_Path;
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
    // Beyond the edges it scrolls, a line a motion.
    const auto scrolled = [this] { return m_View->GetScrollPos(wxVERTICAL); };
    const auto moveBeyond = [this](int y)
    {
        for (int i = 0; i < 5; ++i)
        {
            m_Input.MouseMove(m_View->ClientToScreen(wxPoint(30 + i, y)));
            PumpEvents();
        }
    };
    const int beyond = m_View->GetClientSize().y + 20;
    moveBeyond(beyond);
    EXPECT_TRUE(WaitFor([&] { return scrolled() > 0; }));
    EXPECT_EQ(scrolled() % m_View->LineHeight(), 0);
    EXPECT_GT(m_View->GetSelectionEnd(), m_View->GetClientSize().y / m_View->LineHeight());
    const int most = scrolled();
    moveBeyond(-10);
    EXPECT_TRUE(WaitFor([&] { return scrolled() < most; }));
    EXPECT_EQ(m_View->GetSelectionAnchor(), 3);
    // It may scroll on by a motion that comes late: the line has to be aimed at again then.
    const auto selectsTo6 = [this]
    {
        m_Input.MouseMove(OnScreen(6));
        return m_View->GetSelectionEnd() == 6;
    };
    EXPECT_TRUE(WaitFor(selectsTo6));
    m_Input.MouseUp();
    EXPECT_TRUE(WaitFor([this] { return !m_View->IsSelecting(); }));
    m_Input.MouseMove(OnScreen(7));
    EXPECT_TRUE(WaitFor([this] { return m_View->GetHighlightLine() == 7; }));
    moveBeyond(beyond);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetHighlightLine() == -1; }));
    EXPECT_TRUE(IsSelected(3, 6)) << "the button is up";
}

// By double clicks and drags, where the host wants it; what is shown is what counts.
TEST_F(TextInputTest, PartsOfALineAreSelectedCopiedAndLookedFor)
{
    m_View->Clear();
    Append({"one two three", "plain", "e\x1b[31mrr\x1b[0mor \xc3\xa4 end"});
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Coloured);
    const auto at = [this](int line, int cell)
    {
        return m_View->ClientToScreen(
            wxPoint(m_View->ColumnWidth() * cell + m_View->ColumnWidth(), m_View->MiddleOf(line)));
    };
    const auto selects = [this](const String& part)
    { return WaitFor([&] { return m_View->GetSelectedPart() == part; }); };
    m_Input.MouseMove(at(0, 5));
    m_Input.MouseDblClick();
    PumpEvents();
    EXPECT_TRUE(selects("")) << "not unless it is wanted";
    EXPECT_TRUE(IsSelected(0, 0));
    m_View->SelectWithinLines(true);
    const auto noThirdClick = [] { WaitFor([] { return false; }, 1200); };
    noThirdClick();
    m_Input.MouseDblClick();
    EXPECT_TRUE(selects("two"));
    EXPECT_TRUE(IsSelected(-1, -1));
    noThirdClick();
    m_Input.MouseMove(at(2, 1));
    m_Input.MouseClick();
    EXPECT_TRUE(WaitFor([this] { return IsSelected(2, 2); })) << "a click selects lines";
    m_Input.MouseDown();
    EXPECT_TRUE(selects("e\x1b[31mrr\x1b[0mor")) << "what looks like a word";
    m_Input.MouseMove(at(0, 6));
    EXPECT_TRUE(selects("e\x1b[31mrr\x1b[0mor \xc3\xa4"));
    m_Input.MouseUp();
    EXPECT_TRUE(WaitFor([this] { return !m_View->IsSelecting(); }));
    EXPECT_TRUE(Type('C', wxMOD_CONTROL,
                     [this]
                     { return PastedElsewhere("UTF8_STRING") == m_View->GetSelectedPart(); }));
    m_View->CopyPlainTextToClipboard();
    EXPECT_EQ("error \xc3\xa4", PastedElsewhere("UTF8_STRING"));

    wxMouseEvent press(wxEVT_LEFT_DOWN);
    press.SetAltDown(true);
    const wxPoint half(m_View->ColumnWidth() / 2, 0);
    press.SetPosition(m_View->ScreenToClient(at(0, 1) - half));
    m_View->ProcessWindowEvent(press);
    m_Input.MouseMove(at(1, 9) - half);
    EXPECT_TRUE(selects("ne two t")) << "by characters, in its own line";
    m_View->StopSelecting();
    const wxImage part = m_View->Picture();
    const auto    colour = [&](const wxImage& picture, int cell)
    {
        const wxPoint place = m_View->ScreenToClient(at(0, cell));
        return PixelAt(picture, place.x, place.y);
    };
    EXPECT_NE(colour(part, 3), colour(part, 20)) << "of blanks";
    EXPECT_EQ(colour(part, 3), colour(part, 7));
    EXPECT_TRUE(Type('F', wxMOD_CONTROL, [this] { return Panel().GetText() == "ne two t"; }));
    m_View->SelectAll();
    EXPECT_TRUE(selects(""));
}

TEST_F(TextInputTest, KeysGoOnFromTheLineThatAPartOfIsSelected)
{
    m_View->SelectWithinLines(true);
    m_View->OfferReadingCommands(true);
    const auto selectPart = [this](int line)
    {
        wxMouseEvent press(wxEVT_LEFT_DCLICK);
        press.SetPosition({2 * m_View->ColumnWidth(), m_View->MiddleOf(line)});
        m_View->ProcessWindowEvent(press);
        m_View->StopSelecting();
        return m_View->GetSelectedPart() == "line";
    };
    ASSERT_TRUE(selectPart(5));
    EXPECT_TRUE(Type(WXK_F2, wxMOD_CONTROL, [this] { return m_View->HasBookmark(5); }));
    EXPECT_TRUE(Type(WXK_DOWN, wxMOD_SHIFT, [this] { return IsSelected(5, 6); }));
    ASSERT_TRUE(selectPart(7));
    wxMouseEvent press(wxEVT_LEFT_DOWN);
    press.SetShiftDown(true);
    press.SetPosition({2 * m_View->ColumnWidth(), m_View->MiddleOf(4)});
    m_View->ProcessWindowEvent(press);
    m_View->StopSelecting();
    EXPECT_TRUE(IsSelected(7, 4));
    ASSERT_TRUE(selectPart(3));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [this] { return m_View->GetSelectedPart().empty(); }));
    EXPECT_TRUE(IsSelected(-1, -1));
}

TEST_F(TextInputTest, DraggingInAnEmptyViewSelectsNothing)
{
    m_View->Clear();
    const wxPoint inside = m_View->ClientToScreen(wxPoint(30, 30));
    m_Input.MouseMove(inside);
    m_Input.MouseDown();
    EXPECT_TRUE(WaitFor([this] { return m_View->IsSelecting(); }));
    m_Input.MouseMove(inside - wxPoint(0, 40));
    m_Input.MouseUp();
    EXPECT_TRUE(WaitFor([this] { return !m_View->IsSelecting(); }));
    m_View->Append("came later", false);
    EXPECT_TRUE(IsSelected(-1, -1));
    EXPECT_EQ(m_View->GetHighlightLine(), -1);
}

TEST_F(TextInputTest, KeysReachTheView)
{
    EXPECT_TRUE(Type('A', wxMOD_CONTROL, [this] { return IsSelected(0, 199); }));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [this] { return IsSelected(-1, -1); }));
    m_Input.MouseMove(OnScreen(1));
    m_Input.MouseClick();
    EXPECT_TRUE(WaitFor([this] { return IsSelected(1, 1); }));
    EXPECT_TRUE(
        Type('C', wxMOD_CONTROL, [this] { return PastedElsewhere("UTF8_STRING") == "line 1\n"; }));
}

TEST_F(TextInputTest, ShiftSelectsAsFarAsAnotherLine)
{
    const int page = m_View->GetClientSize().y / m_View->LineHeight();
    const struct
    {
        int key;
        int modifiers;
        int anchor;
        int end;
    } keys[] = {
        {WXK_DOWN, wxMOD_SHIFT, 0, 0}, // what is seen first
        {WXK_DOWN, wxMOD_SHIFT, 0, 1},
        {WXK_PAGEDOWN, wxMOD_SHIFT, 0, page},
        {WXK_UP, wxMOD_SHIFT, 0, page - 1},
        {WXK_PAGEDOWN, wxMOD_SHIFT | wxMOD_CONTROL, 0, 199},
        {WXK_DOWN, wxMOD_SHIFT, 0, 199},
        {WXK_PAGEUP, wxMOD_SHIFT, 0, 200 - page},
        {WXK_HOME, wxMOD_SHIFT | wxMOD_CONTROL, 0, 0},
    };
    for (const auto& each : keys)
    {
        EXPECT_TRUE(
            Type(each.key, each.modifiers, [&] { return IsSelected(each.anchor, each.end); }))
            << each.key << " " << m_View->GetSelectionAnchor() << " " << m_View->GetSelectionEnd();
        const int top = each.end * m_View->LineHeight() - m_View->GetScrollPos(wxVERTICAL);
        EXPECT_GE(top, 0) << each.key;
        EXPECT_LE(top + m_View->LineHeight(), m_View->GetClientSize().y) << each.key;
    }
    m_Input.MouseMove(OnScreen(3));
    m_Input.MouseClick();
    EXPECT_TRUE(WaitFor([this] { return IsSelected(3, 3); }));
    m_Input.MouseMove(OnScreen(1));
    m_Input.KeyDown(WXK_SHIFT);
    m_Input.MouseClick();
    m_Input.KeyUp(WXK_SHIFT);
    EXPECT_TRUE(WaitFor([this] { return IsSelected(3, 1); }));
}

TEST_F(TextInputTest, TypingInTheSearchBar)
{
    const auto searched = [this](int line)
    { return [this, line] { return m_View->GetMarkedLine() == line; }; };
    const int height = m_View->GetSize().y;
    EXPECT_TRUE(Type('F', wxMOD_CONTROL, [this] { return Panel().IsShown(); }));
    EXPECT_LT(m_View->GetSize().y, height);
    EXPECT_TRUE(WaitFor([this] { return !m_View->HasFocus() && wxWindow::FindFocus(); }));
    m_Input.Text("ine 15");
    EXPECT_TRUE(WaitFor([this] { return Panel().GetText() == "ine 15"; }));
    EXPECT_TRUE(Type(WXK_RETURN, wxMOD_NONE, searched(15)));
    EXPECT_TRUE(Type(WXK_RETURN, wxMOD_NONE, searched(150)));
    EXPECT_TRUE(Type(WXK_RETURN, wxMOD_SHIFT, searched(15)));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [this] { return !Panel().IsShown(); }));
    EXPECT_TRUE(WaitFor([this] { return m_View->HasFocus(); }));
    EXPECT_EQ(m_View->GetSize().y, height);
}

// A key has no caller to hear of a failure: the user does.
TEST_F(TextInputTest, TheSearchGoesOnByAKeyOfTheView)
{
    wxTextLineSearchPanel* const bar = m_View->GetSearchPanel();
    EXPECT_TRUE(Type(WXK_F3, wxMOD_NONE, [bar] { return bar->IsShown(); }))
        << "nothing to look for";
    bar->SetText("line 1");
    bar->Expand();
    EXPECT_TRUE(WaitFor([this] { return m_View->HasFocus(); }));
    const auto marks = [this](int line) { return [=] { return m_View->GetMarkedLine() == line; }; };
    EXPECT_TRUE(Type(WXK_F3, wxMOD_NONE, marks(1)));
    EXPECT_TRUE(Type(WXK_F3, wxMOD_NONE, marks(10)));
    EXPECT_TRUE(Type(WXK_F3, wxMOD_SHIFT, marks(1)));
    EXPECT_FALSE(bar->IsShown());
    bar->SetText("nowhere");
    EXPECT_TRUE(Type(WXK_F3, wxMOD_NONE, [bar] { return bar->IsShown(); })) << "and tells of it";
    EXPECT_TRUE(m_View->HasFocus());
}

TEST_F(TextInputTest, AKeySavesByteForByteAndTellsOfAFailure)
{
    const String odd("a\0b\xff\n", 5);
    m_View->Clear();
    Append({"first", odd, "", "last"});
    const Path path = TempFile("saved.txt");
    {
        const SelectorAnswer answer(path);
        EXPECT_TRUE(Type('S', wxMOD_CONTROL, [&] { return File::Exists(path); }));
        EXPECT_EQ(answer.m_Messages, 0);
    }
    EXPECT_EQ(ReadFile(path), "first\n" + odd + "\n\nlast\n");
    m_View->SetGoesOn(0);
    m_View->SetGoesOn(3);
    m_View->SaveTo(path);
    EXPECT_EQ(ReadFile(path), "first" + odd + "\n\nlast\n");
    m_View->Clear();
    Append({"ab", "cd", "ef"});
    m_View->SetGoesOn(0);
    m_View->SetGoesOn(2);
    m_View->SelectAll();
    m_View->CopySelectionToClipboard();
    EXPECT_EQ(PastedElsewhere("UTF8_STRING"), "abcd\nef\n");
    const SelectorAnswer answer("/proc/nothing");
    EXPECT_TRUE(Type('S', wxMOD_CONTROL, [&] { return answer.m_Messages > 0; }));
    EXPECT_NE(TextThrown([this] { m_View->SaveTo("/proc/nothing"); }), "");
}

// The window lives on, and the file is as it was until all is written.
TEST_F(TextInputTest, SavingFromASlowDiskHoldsNobodyUp)
{
    const Path path = TempFile("saved.txt");
    WriteFile(path, "before");
    m_View->Clear();
    AppendSlowly(*m_View, 4000);
    m_View->Append("partial", false);
    const auto save = [this, &path]
    {
        const SelectorAnswer answer(path);
        EXPECT_TRUE(Type('S', wxMOD_CONTROL, [this] { return m_View->IsSaving(); }));
        EXPECT_EQ(answer.m_Messages, 0);
    };
    save();
    EXPECT_TRUE(m_View->GetNote().StartsWith("Saving: "));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [this] { return !m_View->IsSaving(); }));
    EXPECT_EQ(m_View->GetNote(), "Saving was stopped");
    EXPECT_EQ(ReadFile(path), "before");
    save();
    m_View->Erase(4000); // the last line has grown
    m_View->Append("partial line", false);
    m_View->Append("too late", false);
    Answers answers;
    EXPECT_TRUE(WaitFor(
        [&]
        {
            const wxStopWatch time;
            PumpEvents();
            answers.Add(time.Time());
            return !m_View->IsSaving();
        }));
    EXPECT_TRUE(answers.AreQuick());
    EXPECT_EQ(m_View->GetNote(), "Saved");
    const String text = ReadFile(path);
    EXPECT_EQ(text.size(), 4000u * 41 + 13);
    EXPECT_EQ(text.substr(text.size() - 13), "partial line\n");
    AppendSlowly(*m_View, 2000); // the others are known by now
    save();
    m_View->Clear();
    const SelectorAnswer answer(path);
    EXPECT_TRUE(WaitFor([&] { return answer.m_Messages > 0; })) << "what is lost is told";
    EXPECT_TRUE(ReadFile(path) == text);
}

// It would keep the pointer for itself, and send its commands nowhere.
TEST_F(TextInputTest, TheMenuGoesWithItsView)
{
    const wxWindowRef view(m_View);
    m_View->Bind(wxEVT_MENU_OPEN,
                 [this](wxMenuEvent&) { Frame()->CallAfter([this] { m_View->Destroy(); }); });
    m_Input.MouseMove(m_View->ClientToScreen(wxPoint(50, 20)));
    m_Input.MouseClick(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(WaitFor([&] { return !view; }));
}

TEST_F(TextInputTest, FollowingIsOneStateWhoeverSwitchesIt)
{
    String told;
    m_View->Bind(wxtEVT_TEXT_FOLLOW,
                 [&](wxCommandEvent& event) { told += event.GetInt() ? "on " : "off "; });
    const auto heard = [&](const char* expected)
    {
        EXPECT_TRUE(WaitFor([&] { return told == expected; })) << told << "instead of " << expected;
        told = "";
    };
    const auto grows = [&]
    {
        const int position = m_View->GetScrollPos(wxVERTICAL);
        m_View->Append("more", false);
        return m_View->GetScrollPos(wxVERTICAL) > position;
    };
    m_View->ShowFollowButton(true);
    m_View->SetFollowing(true);
    heard("on ");
    EXPECT_TRUE(grows());
    EXPECT_TRUE(Type(WXK_UP, wxMOD_NONE, [this] { return !m_View->IsFollowing(); }));
    heard("off ");
    EXPECT_FALSE(grows());
    EXPECT_TRUE(Type(WXK_PAGEDOWN, wxMOD_CONTROL, [this] { return m_View->IsFollowing(); }));
    heard("on ");
    EXPECT_TRUE(grows());
    const wxWindow* const button = m_View->GetChildren().front();
    const auto            click = [&]
    {
        const wxRect place = button->GetScreenRect();
        m_Input.MouseMove(place.GetPosition() + place.GetSize() / 2);
        PumpEvents();
        m_Input.MouseClick();
    };
    click();
    heard("off ");
    EXPECT_FALSE(grows()) << "although it stands at the end";
    click();
    heard("on ");
    EXPECT_TRUE(grows());
    EXPECT_TRUE(m_View->HasFocus());
    EXPECT_TRUE(m_View->Search("more", false, true));
    heard("off ");
    EXPECT_FALSE(grows()) << "the hit would be pushed out of sight";
    m_View->SetFollowEnd(false);
    m_View->ScrollToBottom();
    PumpEvents();
    EXPECT_EQ("", told);
    EXPECT_FALSE(grows());
}

TEST_F(TextInputTest, TheTextGrowsAndShrinksByKeysAndWheel)
{
    String told;
    m_View->Bind(wxtEVT_TEXT_SIZE,
                 [&](wxCommandEvent& event) { told += String::FromInt(event.GetInt()) + " "; });
    const auto is = [this](int points) { return [=] { return m_View->GetTextSize() == points; }; };
    const int  height = m_View->LineHeight();
    m_View->SetScrollPos(wxVERTICAL, 50 * height);
    EXPECT_TRUE(Type('=', wxMOD_CONTROL, is(10)));
    EXPECT_TRUE(Type('=', wxMOD_CONTROL, is(11)));
    EXPECT_GT(m_View->LineHeight(), height);
    EXPECT_EQ(50 * m_View->LineHeight(), m_View->GetScrollPos(wxVERTICAL));
    EXPECT_EQ(200 * m_View->LineHeight(), m_View->GetScrollRange(wxVERTICAL));
    EXPECT_TRUE(Type('-', wxMOD_CONTROL, is(10)));
    EXPECT_TRUE(Type('0', wxMOD_CONTROL, is(9)));
    EXPECT_EQ(50 * height, m_View->GetScrollPos(wxVERTICAL));
    wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
    wheel.SetControlDown(true);
    wheel.m_wheelRotation = wheel.m_wheelDelta = 120;
    m_View->ProcessWindowEvent(wheel);
    EXPECT_EQ(10, m_View->GetTextSize());
    EXPECT_TRUE(WaitFor([&] { return told == "10 11 10 9 10 "; })) << told;
    m_View->SetTextSize(30);
    m_View->SetScrollPos(wxVERTICAL, 0);
    const int client = m_View->GetClientSize().y;
    EXPECT_TRUE(
        Type(WXK_PAGEDOWN, wxMOD_NONE, [this] { return m_View->GetScrollPos(wxVERTICAL) > 0; }));
    EXPECT_LE(m_View->GetScrollPos(wxVERTICAL), client) << "no line is passed over";
    EXPECT_GT(m_View->GetScrollPos(wxVERTICAL), client / 2);
    m_View->SetFollowing(true);
    for (const int size : {INT_MAX, INT_MIN})
    {
        m_View->SetTextSize(size);
        EXPECT_EQ(size > 0 ? 40 : 5, m_View->GetTextSize());
        EXPECT_TRUE(m_View->IsFollowing()) << size;
    }
}

TEST_F(TextInputTest, CopyingFromASlowDiskHoldsNobodyUp)
{
    m_View->Clear();
    m_View->Append("before", false);
    EXPECT_TRUE(Type('A', wxMOD_CONTROL, [this] { return IsSelected(0, 0); }));
    const auto copies = [this] { return m_View->IsCopying(); };
    const auto isPlaced = [this](const String& text)
    { return WaitFor([&] { return PastedElsewhere("UTF8_STRING") == text; }); };
    EXPECT_TRUE(Type('C', wxMOD_CONTROL, [&] { return isPlaced("before\n"); }));
    EXPECT_FALSE(copies()) << "little is there at once";
    AppendSlowly(*m_View, 4000);
    m_View->SelectAll();
    EXPECT_TRUE(Type('C', wxMOD_CONTROL, copies));
    EXPECT_TRUE(m_View->GetNote().StartsWith("Copying: "));
    EXPECT_TRUE(Type(WXK_ESCAPE, wxMOD_NONE, [&] { return !copies(); }));
    EXPECT_EQ(m_View->GetNote(), "Copying was stopped");
    EXPECT_TRUE(isPlaced("before\n"));
    m_View->SelectAll();
    EXPECT_TRUE(Type('C', wxMOD_CONTROL, copies));
    m_View->SelectNone(); // what was selected then is meant
    m_View->Append("too late", false);
    EXPECT_TRUE(WaitFor([&] { return !copies(); }));
    EXPECT_EQ(m_View->GetNote(), "Copied");
    const String text = PastedElsewhere("UTF8_STRING");
    EXPECT_EQ(7u + 4000u * 41, text.size());
    EXPECT_EQ("before\nline 0000 ", text.substr(0, 17));
    EXPECT_EQ("line 3999 ", text.substr(text.size() - 41, 10));
}
