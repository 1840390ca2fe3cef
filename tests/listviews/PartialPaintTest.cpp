#include "internal/drawing/Damage.h"
#include "listviews/cells/ListGeometry.h"
#include "listviews/cells/RowBands.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxtListCtrl.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"

#include <wx/listbase.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>

#include <random>
#include <utility>

namespace
{
constexpr int kRows = 60;
constexpr int kColumns = 3;
constexpr int kSteps = 150;

/// A list under changes of any kind, a few of them at once.
class PartialPaintTest : public FrameTest
{
protected:
    PartialPaintTest() : m_List(new wxtListCtrl(Frame(), 17))
    {
        for (int column = 0; column < kColumns; ++column)
        {
            m_List->AddColumn(column, SFormat("Column %d", column), 90);
        }
        for (int row = 0; row < kRows; ++row)
        {
            m_List->InsertItem(row, SFormat("row %d", row));
        }
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(m_List, 1, wxEXPAND);
        Frame()->SetSizer(sizer);
        Frame()->Layout();
        EXPECT_TRUE(WaitFor([this] { return Body().GetClientSize().y > 100; }));
        m_List->SetFocus();
        // A tooltip under the pointer would come into the pictures.
        wxUIActionSimulator().MouseMove(Frame()->GetScreenRect().GetBottomRight() +
                                        wxPoint(40, 40));
        PumpEvents();
    }

    wxDBListBody& Body() const { return *m_List->GetBody(); }
    int Any(int below) { return static_cast<int>(m_Random() % static_cast<unsigned>(below)); }

    /// The delay of the redraw is over now.
    void PaintNow() const
    {
        for (wxDoubleBufferedWindow* const view :
             {static_cast<wxDoubleBufferedWindow*>(m_List->GetHeader()),
              static_cast<wxDoubleBufferedWindow*>(&Body())})
        {
            wxTimer      timer;
            wxTimerEvent due(timer);
            view->Timeout(due);
        }
        m_List->Update();
    }

    void Tell(wxEventType type, int row) { Body().SendListEvent(type, wxPoint(), 0, row); }
    void Point(int y)
    {
        wxMouseEvent event(wxEVT_MOTION);
        event.SetEventObject(&Body());
        event.SetPosition(wxPoint(20, y));
        Body().ProcessWindowEvent(event);
    }
    String Change()
    {
        const int row = Any(std::max(m_List->GetItemCount(), 1));
        switch (Any(14))
        {
        case 0:
            Tell(wxEVT_LIST_ITEM_SELECTED, row);
            return SFormat("select %d", row);
        case 1:
            Tell(wxEVT_LIST_ITEM_DESELECTED, row);
            return SFormat("deselect %d", row);
        case 2:
            Body().DeselectAll(true);
            return "deselect all";
        case 3:
            m_List->SetFocusRow(row);
            return SFormat("focus %d", row);
        case 4:
            m_List->SetLastSelect(row);
            return SFormat("anchor %d", row);
        case 5:
            Point(Any(200));
            return "point";
        case 6:
            m_List->SetItem(row, Any(kColumns), SFormat("text %d", row));
            return "text";
        case 7:
            m_List->SetItemTextColour(row, *wxRED);
            return "colour";
        case 8:
            m_List->InsertItem(row, "new");
            return SFormat("insert %d", row);
        case 9:
            m_List->DeleteItem(row);
            return SFormat("delete %d", row);
        case 10:
            m_List->SetScrollPos(wxVERTICAL, Any(1000));
            return "scroll";
        case 11:
            m_List->SetColumnWidth(Any(kColumns), 60 + Any(90));
            return "width";
        case 12:
            m_List->SetScrollPos(wxHORIZONTAL, Any(100));
            return "scroll sideways";
        default:
            // Something else of the screen uncovers a part of it before the delay is over.
            const wxRect part(0, Any(200), 200, 50);
            Body().Refresh(false, &part);
            Body().Update();
            return "uncover";
        }
    }

    wxtListCtrl* m_List;
    std::mt19937 m_Random{4711};
};
} // namespace

TEST_F(PartialPaintTest, PartsMakeTheSamePictureAsTheWhole)
{
    for (int step = 0; step < kSteps; ++step)
    {
        String changes;
        for (int i = Any(3); i >= 0; --i)
        {
            changes += Change() + ", ";
        }
        PaintNow();
        PaintNow(); // what was found out while painting
        const wxImage parts = PictureOf(m_List);
        m_List->Redraw();
        PaintNow();
        const wxImage whole = PictureOf(m_List);
        ASSERT_TRUE(SamePixels(parts, whole))
            << "step " << step << ": " << changes << Kept(parts, "parts") << Kept(whole, "whole");
    }
}

// Its frame was as large as the view.
TEST_F(PartialPaintTest, AListWithTheKeysComesToRestWhenItGetsSmaller)
{
    m_List->SetFocusRow(-1);
    m_List->SetLastSelect(-1);
    PaintNow();
    PaintNow();
    int paints = 0;
    Body().Bind(wxEVT_PAINT,
                [&paints](wxPaintEvent& event)
                {
                    ++paints;
                    event.Skip();
                });
    Frame()->SetClientSize(500, 250);
    int        before = -1;
    const auto rests = [&]
    {
        const bool        isNew = std::exchange(before, paints) != paints;
        const wxStopWatch quiet;
        WaitFor([&] { return quiet.Time() > 250; });
        return !isNew && before == paints;
    };
    EXPECT_TRUE(WaitFor(rests)) << paints << " paints";
    EXPECT_GT(paints, 0);
}

TEST(RowBandsTest, AreasTouchEachRowOnce)
{
    listviews::ListGeometry geometry;
    geometry.rowHeight = 20;
    geometry.scroll = {0, 30};
    geometry.client = {200, 100};
    const auto bands = listviews::BandsWithin(
        {{0, 70, 10, 10}, {0, 0, 5, 1}, {0, 9, 200, 2}, {0, 65, 5, 5}, {0, 0, 0, 9}}, geometry);
    ASSERT_EQ(2u, bands.size());
    EXPECT_EQ(1, bands[0].first);
    EXPECT_EQ(3, bands[0].end);
    EXPECT_EQ(4, bands[1].first);
    EXPECT_EQ(6, bands[1].end);
    EXPECT_TRUE(listviews::Hold(bands, {0, 0, 9, 30}, geometry));
    EXPECT_FALSE(listviews::Hold(bands, {0, 0, 9, 31}, geometry));
    EXPECT_TRUE(listviews::Hold(bands, {}, geometry));
}

TEST(DamageTest, CoversWhatWasAdded)
{
    internal::Damage damage;
    EXPECT_FALSE(damage.IsAsked());
    damage.Add(wxRect());
    EXPECT_TRUE(damage.IsAsked());
    EXPECT_TRUE(damage.Within({100, 100}).empty());
    std::mt19937        random(1);
    std::vector<wxRect> added;
    for (int i = 0; i < 100; ++i)
    {
        const auto any = [&random] { return static_cast<int>(random() % 100); };
        added.emplace_back(any(), any(), any() / 10 + 1, any() / 10 + 1);
        damage.Add(added.back());
        const std::vector<wxRect> rects = damage.Within({100, 100});
        EXPECT_LE(rects.size(), 16u);
        for (const wxRect& rect : added)
        {
            const wxRect seen = wxRect(rect).Intersect(wxRect(0, 0, 100, 100));
            EXPECT_TRUE(std::any_of(rects.begin(), rects.end(),
                                    [&](const wxRect& own) { return own.Contains(seen); }));
        }
    }
    internal::Damage more;
    more.Add(damage);
    more.AddAll();
    EXPECT_EQ(std::vector<wxRect>{wxRect(0, 0, 30, 40)}, more.Within({30, 40}));
    more.Clear();
    EXPECT_FALSE(more.IsAsked());
}
