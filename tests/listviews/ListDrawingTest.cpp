#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxtListCtrl.h"
#include "tests/listviews/ToldTest.h"
#include "tests/support/Pictures.h"

#include <wx/listbase.h>

namespace
{
class ListDrawingTest : public ToldTest
{
protected:
    ListDrawingTest() : m_List(new wxtListCtrl(Frame(), 17))
    {
        m_List->AddColumn(0, "", 100);
        m_List->AddColumn(1, "", 100);
        for (int i = 0; i < 8; ++i)
        {
            m_List->InsertItem(i, "");
        }
        Fill(m_List);
        wxUIActionSimulator().MouseMove(wxPoint(1200, 1000));
    }

    static wxColour Darker(const wxColour& colour, int by)
    {
        return OffsetColor(colour, -by, -by, -by);
    }
    wxColour Ground(int row, int x) const
    {
        return PixelAt(PictureOf(m_List->GetBody()), x, row * m_List->GetRowHeight() + 10);
    }
    void ExpectGround(const wxColour& colour, int row, int x = 150)
    {
        EXPECT_TRUE(WaitFor([&] { return Ground(row, x) == colour; }))
            << "row " << row << Kept(PictureOf(m_List->GetBody()), "list");
    }
    wxImage Part(const wxRect& area) const
    {
        return PictureOf(m_List->GetBody()).GetSubImage(area);
    }
    int Ink(const wxRect& area) const
    {
        const wxImage  image = Part(area);
        const wxColour ground = PixelAt(image, 0, 0);
        return CountPixels(image, [&](const wxColour& pixel) { return !Near(pixel, ground, 30); });
    }
    void Select(int row)
    {
        m_List->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(), row);
    }

    wxtListCtrl* m_List;
};
} // namespace

TEST_F(ListDrawingTest, StripesSelectionHighlightAndHover)
{
    const wxColour ground = wxtGetColor(color_WindowBGDarker);
    ExpectGround(ground, 0);
    ExpectGround(Darker(ground, 4), 1);
    ExpectGround(Darker(ground, 4), 9); // below the last row, too

    Select(2);
    Select(3);
    const wxColour selection = wxtGetColor(color_Selected);
    const auto mix = [](int a, int b) { return static_cast<unsigned char>(0.67 * a + 0.33 * b); };
    const wxColour selected(mix(ground.Red(), selection.Red()),
                            mix(ground.Green(), selection.Green()),
                            mix(ground.Blue(), selection.Blue()));
    ExpectGround(selected, 2);
    ExpectGround(Darker(selected, 2), 3);

    m_List->SetHighlightColumn(1);
    ExpectGround(OffsetColor(ground, 9, 9, 10), 0);
    ExpectGround(ground, 0, 50);

    wxUIActionSimulator().MouseMove(
        m_List->GetBody()->ClientToScreen(wxPoint(300, 4 * m_List->GetRowHeight() + 10)));
    ExpectGround(OffsetColor(ground, 6, 5, 4), 4, 250);
    wxUIActionSimulator().MouseMove(wxPoint(1200, 1000));
    ExpectGround(ground, 4, 250);
}

// A text that cannot be shortened any more does not run into its neighbour, nor a broken line into
// the next row.
TEST_F(ListDrawingTest, TextsKeepWithinTheirCells)
{
    const int height = m_List->GetRowHeight();
    m_List->SetColumnWidth(0, 30);
    m_List->SetItem(0, 0, "WWWWWWWWWWWWWWWWWW");
    m_List->SetItem(2, 1, "first\nsecond\tthird");
    m_List->SetItem(4, 1, String("\xff\xfe bytes ") + String(1 << 20, 'x'));
    m_List->SetItemTextColour(6, *wxRED);
    m_List->SetItem(6, 1, "red");
    EXPECT_TRUE(WaitFor([&] { return Ink(wxRect(3, 3, 24, height - 6)) > 20; }));
    EXPECT_EQ(0, Ink(wxRect(30, 1, 95, height - 2)));
    EXPECT_GT(Ink(wxRect(33, 2 * height + 1, 94, height - 2)), 20);
    EXPECT_EQ(0, Ink(wxRect(33, 3 * height + 1, 94, height - 2)));
    EXPECT_GT(Ink(wxRect(33, 4 * height + 1, 94, height - 2)), 20);
    EXPECT_LT(0, CountPixels(Part(wxRect(31, 6 * height, 60, height)), [](const wxColour& pixel)
                             { return pixel.Red() > 180 && pixel.Green() < 60; }));
}

TEST_F(ListDrawingTest, HeldAndSortedTitlesShow)
{
    const auto     face = [this](int x) { return PixelAt(PictureOf(m_List->GetHeader()), x, 12); };
    const wxColour plain = wxtGetColor(color_ButtonFace);
    EXPECT_TRUE(WaitFor([&] { return face(250) == plain && face(50) == plain; }));
    m_List->SetHighlightColumn(0);
    m_List->SetColumnImage(0, wxDBListCtrl::image_Descending);
    const auto     isArrow = [&] { return Near(face(92), wxtGetColor(color_ButtonText), 10); };
    const wxColour lit =
        wxtReadableColor(OffsetColor(plain, 20, 18, 15), wxtGetColor(color_ButtonText));
    EXPECT_TRUE(WaitFor([&] { return face(50) == lit && isArrow(); }))
        << Kept(PictureOf(m_List->GetHeader()), "header");
    wxUIActionSimulator input;
    input.MouseMove(m_List->GetHeader()->ClientToScreen(wxPoint(150, 10)));
    input.MouseDown();
    EXPECT_TRUE(WaitFor([&] { return face(150) == OffsetColor(plain, -20, -18, -15); }));
    input.MouseUp();
    EXPECT_TRUE(WaitFor([&] { return face(150) == lit; })) << "hovered";
}
