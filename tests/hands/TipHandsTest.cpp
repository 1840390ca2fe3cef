#include "appearance/wxTolvanString.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxtListCtrl.h"
#include "tests/hands/HandsTest.h"

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

    static constexpr int kNear = 70; // pixels; tips are centred
};
} // namespace

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
