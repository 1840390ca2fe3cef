#include "tests/hands/HandsTest.h"

#include "listviews/wxDBListBody.h"
#include "listviews/wxtListCtrl.h"
#include "textviews/wxTextLineCtrl.h"

#include <map>

namespace
{
constexpr int kTimes = 3; // a view's content is so many times as large as the view
constexpr int kNotchLines = 3;

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
        const wxSize client = m_View->GetClientSize();
        while (text->GetScrollRange(wxVERTICAL) < kTimes * client.y)
        {
            const int line = text->Append(std::to_string(text->GetLineCount()), false);
            m_Line = text->GetScrollRange(wxVERTICAL) / (line + 1);
        }
        const int letter = text->GetScrollRange(wxHORIZONTAL) /
                           static_cast<int>(text->GetLine(11).size() + 1); // the widest line
        text->Append(String(static_cast<size_t>(kTimes * client.x / letter), 'x'), false);
        Settle();
    }
    // Until the native scrollbars have followed.
    void Settle()
    {
        EXPECT_TRUE(WaitFor(
            [this]
            {
                return Native(wxVERTICAL) == m_View->GetScrollPos(wxVERTICAL) &&
                       m_View->wxWindow::GetScrollRange(wxVERTICAL) ==
                           m_View->GetScrollRange(wxVERTICAL) &&
                       m_View->wxWindow::GetScrollRange(wxHORIZONTAL) ==
                           m_View->GetScrollRange(wxHORIZONTAL);
            }));
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

    // Where the words lead from the top left corner: for each axis "0", "line", "page", "notch",
    // "end" or "end-line".
    struct Way
    {
        std::string words;
        const char* horizontal;
        const char* vertical;
    };
    void Go(const Way& way)
    {
        SCOPED_TRACE(way.words);
        for (const int axis : {wxVERTICAL, wxHORIZONTAL})
        {
            m_View->SetScrollPos(axis, 0);
        }
        Do(m_View, "enter " + way.words);
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
    }

    wxWindow* m_View = nullptr;
    int       m_Line = 0; // pixels
};

const struct
{
    const char* words;
    const char* horizontal;
    const char* vertical;
} kWheel[] = {
    {"notch+", "0", "notch"},
    {"notch+ notch-", "0", "0"},
    {"notch-", "0", "0"},
};

} // namespace

TEST_F(ScrollHandsTest, WheelMovesByLines)
{
    FillList();
    for (const auto& row : kWheel)
    {
        Go({row.words, row.horizontal, row.vertical});
    }
    FillText();
    for (const auto& row : kWheel)
    {
        Go({row.words, row.horizontal, row.vertical});
    }
}
