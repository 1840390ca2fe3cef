#include "tests/hands/HandsTest.h"
#include "tests/support/EventCounter.h"
#include "tests/support/Pictures.h"

#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtScrolledPane.h"
#include "appearance/wxtTextCtrl.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxtListCtrl.h"
#include "textviews/wxTextLineCtrl.h"

#include <wx/platinfo.h>

#include <algorithm>
#include <map>

namespace
{
constexpr int kTimes = 3; // a view's content is so many times as large as the view
constexpr int kNotchLines = 3;
constexpr int kDragSteps = 8;

// Where the words lead from the top left corner: for each axis "0", "line", "page", "notch", "end"
// or "end-line".
struct Way
{
    const char* words;
    const char* horizontal;
    const char* vertical;
};

const Way kWheel[] = {
    {"notch+", "0", "notch"},
    {"notch+ notch-", "0", "0"},
};

// Where lines wrap; of those at the top each has one row.
const Way kRowKeys[] = {
    {"KP_Down Down KP_Up", "0", "line"},
    {"Next", "0", "page"},
    {"KP_Next Next KP_Prior Prior", "0", "0"},
    {"ctrl+Next", "0", "end"},
    {"ctrl+Next Prior Prior Next Next", "0", "end"},
    {"ctrl+Next Up Up Down Down", "0", "end"},
    {"ctrl+Next notch- notch+", "0", "end"},
    {"ctrl+KP_Next ctrl+Prior", "0", "0"},
    {"Right End", "0", "0"},
};

const Way kKeys[] = {
    {"KP_Down Down KP_Up", "0", "line"},
    {"Next", "0", "page"},
    {"KP_Next KP_Prior", "0", "0"},
    {"ctrl+Next Up", "0", "end-line"},
    {"ctrl+KP_Next ctrl+Prior", "0", "0"},
    {"ctrl+Next ctrl+KP_Prior", "0", "0"},
    {"Right KP_Right Left", "line", "0"},
    {"KP_End KP_Home", "0", "0"},
    {"ctrl+Next End", "end", "end"},
    {"ctrl+KP_Next KP_End KP_Home", "0", "end"},
    {"ctrl+Next End ctrl+KP_Home", "0", "end"},
    {"Right ctrl+End ctrl+Home", "0", "0"},
    {"notch+ End", "end", "notch"},
};

class ScrollHandsTest : public HandsTest
{
protected:
    void FillList()
    {
        auto* const list = First<wxtListCtrl>();
        m_View = list->GetBody();
        const wxSize client = m_View->GetClientSize();
        m_Line = list->GetRowHeight();
        for (int row = list->GetItemCount(); row * m_Line < kTimes * client.y; ++row)
        {
            list->InsertItem(row, String("Row ") + std::to_string(row));
        }
        list->SetColumnWidth(1, kTimes * client.x - 300);
        Settle();
    }
    void FillText()
    {
        auto* const text = First<wxTextLineCtrl>();
        m_View = text;
        text->ToggleSearch(); // below its bar it is hardly higher than a thumb
        PumpEvents();
        const wxSize client = m_View->GetClientSize();
        while (text->GetScrollRange(wxVERTICAL) < kTimes * client.y)
        {
            text->Append(std::to_string(text->GetLineCount()), false);
        }
        m_Line = text->GetScrollRange(wxVERTICAL) / text->GetLineCount();
        String wide;
        for (int i = 0; text->GetScrollRange(wxHORIZONTAL) < kTimes * client.x; ++i)
        {
            wide += std::to_string(i);
            if (i % 40 == 39) // the thumb is drawn no smaller than that of a few more lines
            {
                text->Append(wide, false);
            }
        }
        Settle();
    }
    // Until the native scrollbars have followed.
    void Settle()
    {
        const auto follows = [this](int axis)
        {
            const int range = std::max(m_View->GetScrollRange(axis), 1); // the native one has that
            return Native(axis) == At(axis) && m_View->wxWindow::GetScrollRange(axis) == range;
        };
        EXPECT_TRUE(WaitFor([&] { return follows(wxVERTICAL) && follows(wxHORIZONTAL); }));
        PumpEvents();
    }

    int Native(int axis) const { return m_View->wxWindow::GetScrollPos(axis); }
    int At(int axis) const { return m_View->GetScrollPos(axis); }
    int End(int axis) const { return m_View->GetScrollRange(axis) - m_View->GetScrollThumb(axis); }

    wxString Where() const
    {
        return wxString::Format("at %d, %d, the thumbs at %d, %d; the ends are %d, %d",
                                At(wxHORIZONTAL), At(wxVERTICAL), Native(wxHORIZONTAL),
                                Native(wxVERTICAL), End(wxHORIZONTAL), End(wxVERTICAL));
    }

    // A place on the scrollbar, from 0 to 1 of its length; beyond that outside of it.
    wxPoint OnBar(int axis, double place) const
    {
        const wxRect all = m_View->GetScreenRect();
        const wxRect client(m_View->ClientToScreen(wxPoint(0, 0)), m_View->GetClientSize());
        const bool   steppers = wxPlatformInfo::Get().GetToolkitMajorVersion() < 3;
        const auto   along = [&](int start, int length, int thickness)
        {
            const int stepper = steppers ? thickness : 0;
            return start + stepper + static_cast<int>(place * (length - 2 * stepper));
        };
        const int right = all.GetRight() - client.GetRight();
        const int bottom = all.GetBottom() - client.GetBottom();
        return axis == wxVERTICAL ? wxPoint(client.GetRight() + (right + 1) / 2,
                                            along(client.y, client.height, right))
                                  : wxPoint(along(client.x, client.width, bottom),
                                            client.GetBottom() + (bottom + 1) / 2);
    }
    wxPoint OnThumb(int axis) const
    {
        const int range = m_View->GetScrollRange(axis);
        return OnBar(axis, (Native(axis) + m_View->GetScrollThumb(axis) / 2.0) / range);
    }

    // What a person sees: the view stands where its thumb does, and shows another part.
    void ExpectAt(int axis, int least, int most)
    {
        EXPECT_TRUE(WaitFor(
            [&] { return At(axis) >= least && At(axis) <= most && Native(axis) == At(axis); }))
            << "not from " << least << " to " << most << ", " << Where();
        EXPECT_TRUE(WaitFor([&] { return ShowsAnother(); })) << Where();
        See();
    }
    bool ShowsAnother() const
    {
        const wxImage now = PictureOf(m_View);
        const size_t  bytes = 3 * static_cast<size_t>(now.GetWidth() * now.GetHeight());
        return !std::equal(now.GetData(), now.GetData() + bytes, m_Seen.GetData());
    }
    // Not before it has been drawn where it stands: the screen may show where it came by.
    void See()
    {
        const EventCounter painted(m_View, wxEVT_PAINT);
        m_View->Refresh();
        EXPECT_TRUE(WaitFor([&] { return painted.Count() > 0; }));
        m_Seen = PictureOf(m_View);
    }

    void DragTo(int axis, double place)
    {
        const wxPoint from = m_Pointer;
        const wxPoint way = OnBar(axis, place) - from;
        for (int step = 1; step <= kDragSteps; ++step)
        {
            m_Pointer = from + way * step / kDragSteps;
            MoveTo(m_Pointer);
        }
    }
    void Take(int axis)
    {
        m_Pointer = OnThumb(axis);
        MoveTo(m_Pointer);
        Button(1, true);
    }
    void ClickBar(int axis, double place)
    {
        MoveTo(OnBar(axis, place));
        Button(1, true);
        Button(1, false);
    }
    void DragThumb(int axis)
    {
        const int slack = End(axis) / 6; // the thumb of a low view is larger than its share
        Take(axis);
        DragTo(axis, 0.5);
        ExpectAt(axis, End(axis) / 2 - slack, End(axis) / 2 + slack);
        DragTo(axis, 1.5);
        ExpectAt(axis, End(axis), End(axis));
        Button(1, false);
        Do(Frame(), "leave");
        EXPECT_EQ(End(axis), At(axis)) << Where();
        Take(axis);
        DragTo(axis, -0.5);
        ExpectAt(axis, 0, 0);
        Button(1, false);
    }
    // `widest`: where the wide rows can be seen.
    void UseBars(int widest)
    {
        for (const int axis : {wxVERTICAL, wxHORIZONTAL})
        {
            UseBar(axis, axis == wxVERTICAL ? 0 : widest);
        }
    }
    void UseBar(int axis, int top)
    {
        SCOPED_TRACE(axis == wxVERTICAL ? "vertical" : "horizontal");
        m_View->SetScrollPos(wxVERTICAL, top);
        m_View->SetScrollPos(wxHORIZONTAL, 0);
        Settle();
        See();
        DragThumb(axis);
        ClickBar(axis, 0.9);
        ExpectAt(axis, m_Line, End(axis));
        const int before = At(axis);
        ClickBar(axis, 0.05);
        ExpectAt(axis, 0, before - m_Line);
    }

    template <class Ways> void GoAll(const Ways& ways)
    {
        for (const Way& way : ways)
        {
            SCOPED_TRACE(way.words);
            Go(way);
        }
    }
    void Go(const Way& way)
    {
        m_View->SetScrollPos(wxVERTICAL, 0);
        m_View->SetScrollPos(wxHORIZONTAL, 0);
        Do(m_View, std::string("focus enter ") + way.words);
        for (const auto& [axis, expected] :
             {std::pair(wxHORIZONTAL, way.horizontal), {wxVERTICAL, way.vertical}})
        {
            const std::map<std::string, int> places = {
                {"0", 0},
                {"line", m_Line},
                {"page", m_View->GetClientSize().y / m_Line * m_Line},
                {"notch", kNotchLines * m_Line},
                {"end", End(axis)},
                {"end-line", End(axis) - m_Line}};
            EXPECT_EQ(places.at(expected), At(axis)) << Where();
            EXPECT_TRUE(WaitFor([&, on = axis] { return Native(on) == At(on); })) << Where();
        }
        EXPECT_TRUE(HasTheKeys(m_View));
    }

    wxWindow* m_View = nullptr;
    int       m_Line = 0; // pixels
    wxImage   m_Seen;
    wxPoint   m_Pointer;
};
} // namespace

TEST_F(ScrollHandsTest, ListGoesWhereThumbTroughAndWheelLead)
{
    FillList();
    GoAll(kWheel);
    Go({"Left Right KP_Right KP_Left Down Up", "line", "0"});
    UseBars(0);
}

TEST_F(ScrollHandsTest, TextGoesWhereThumbTroughWheelAndKeysLead)
{
    FillText();
    GoAll(kWheel);
    GoAll(kKeys);
    UseBars(End(wxVERTICAL));
}

TEST_F(ScrollHandsTest, WrappedTextGoesWhereThumbTroughWheelAndKeysLead)
{
    FillText();
    auto* const text = First<wxTextLineCtrl>();
    text->SetWrap(true);
    for (int i = 0; i < 20; ++i) // as long as the thumb is without wrapping
    {
        text->Append("near the end", false);
    }
    Settle();
    ASSERT_EQ(text->GetScrollRange(wxHORIZONTAL), 0);
    ASSERT_GT(End(wxVERTICAL), 10 * m_Line);
    GoAll(kWheel);
    GoAll(kRowKeys);
    UseBar(wxVERTICAL, 0);
}

class SqueezedTest : public FrameTest
{
};

// The toolkit complains of scrollbars without room.
TEST_F(SqueezedTest, WhatScrollsFitsAnyWindow)
{
    const wxArrayString items(100, std::vector<wxString>(100, "An item").data());
    auto* const field = new wxtTextCtrl(Frame(), wxID_ANY, wxJoin(items, '\n'), wxDefaultPosition,
                                        wxDefaultSize, wxTE_MULTILINE | wxTE_DONTWRAP);
    auto* const pane = new wxtScrolledPane(Frame());
    pane->SetVirtualSize(900, 900);
    auto* const checks =
        new wxtCheckListBox(Frame(), wxID_ANY, wxDefaultPosition, wxDefaultSize, items);
    wxWindow* const windows[] = {field, pane, checks, new wxtListCtrl(Frame(), wxID_ANY),
                                 new wxTextLineCtrl(Frame())};
    for (const int width : {1, 20, 45, 55, 65, 300})
    {
        for (const int height : {300, 1, 20, 45, 55, 65, 300})
        {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            const EventCounter painted(Frame(), wxEVT_PAINT);
            for (wxWindow* const window : windows)
            {
                window->SetSize(width, height);
            }
            Frame()->Refresh();
            EXPECT_TRUE(WaitFor([&] { return painted.Count() > 0; }));
        }
    }
    EXPECT_TRUE(WaitFor([&] { return checks->GetClientSize().x < checks->GetSize().x; }));
}

class ScrolledPaneTest : public FrameTest
{
};

// Also what is wider than the pane. Hidden ones move with the rest, and the toolkit does not
// complain.
TEST_F(ScrolledPaneTest, WhatTakesTheKeysComesIntoView)
{
    constexpr int kFields = 12;
    auto* const   pane = new wxtScrolledPane(Frame());
    pane->SetSizer(new wxBoxSizer(wxVERTICAL));
    std::vector<wxWindow*> fields;
    for (int i = 0; i < kFields; ++i)
    {
        auto* const field = new wxtTextCtrl(pane, wxID_ANY);
        field->SetMinSize(wxSize(900, 60));
        pane->GetSizer()->Add(field);
        field->Show(i != 3);
        if (field->IsShown())
        {
            fields.push_back(field);
        }
    }
    Frame()->SendSizeEvent(); // an only child fills the frame
    Focus(fields[0]);
    for (size_t i = 1; i <= fields.size(); ++i)
    {
        Press(WXK_TAB);
        wxWindow* const next = fields[i % fields.size()];
        EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == next; })) << i;
        const wxRect place = next->GetRect();
        EXPECT_GE(place.y, 0) << i;
        EXPECT_LE(place.GetBottom(), pane->GetClientSize().y) << i;
    }
}

// Else a double click would come to two controls.
TEST_F(ScrolledPaneTest, WhatIsPressedStaysUnderThePointer)
{
    auto* const pane = new wxtScrolledPane(Frame());
    pane->SetSizer(new wxBoxSizer(wxVERTICAL));
    std::vector<wxWindow*> fields;
    for (int i = 0; i < 12; ++i)
    {
        fields.push_back(new wxtTextCtrl(pane, wxID_ANY));
        fields.back()->SetMinSize(wxSize(300, 60));
        pane->GetSizer()->Add(fields.back());
    }
    Frame()->SendSizeEvent(); // an only child fills the frame
    Focus(fields[0]);
    const int  height = pane->GetClientSize().y;
    const auto cut = std::find_if(fields.begin(), fields.end(),
                                  [height](const wxWindow* field)
                                  { return field->GetRect().GetBottom() >= height; });
    ASSERT_NE(fields.end(), cut);
    const int top = (*cut)->GetPosition().y;
    ASSERT_LT(top + 4, height) << "part of it is seen";
    Hand          hand;
    const wxPoint at = (*cut)->ClientToScreen(wxPoint(20, 2));
    hand.Move(at.x, at.y);
    hand.Button(1, true);
    EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == *cut; }));
    EXPECT_EQ(top, (*cut)->GetPosition().y);
    hand.Button(1, false);
    PumpEvents();
    EXPECT_EQ(top, (*cut)->GetPosition().y);
}
