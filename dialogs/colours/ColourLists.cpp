#include "dialogs/colours/ColourLists.h"

#include "appearance/wxTolvanString.h"
#include "dialogs/colours/ColourPairs.h"
#include "dialogs/colours/ColourText.h"
#include "internal/drawing/ColorMix.h"
#include "internal/drawing/Emphasis.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>
#include <wx/intl.h>
#include <wx/listbase.h>

#include <algorithm>
#include <cmath>

namespace dialogs
{
namespace
{
// Dialog units.
constexpr int kValueWidth = 36;
constexpr int kRatioWidth = 35; // without the mark
// Pixels.
constexpr int kUnfitted = 100;
constexpr int kSampleWidth = 40;
const wxSize  kSampleSize(40, 22);
constexpr int kSampleEdge = 2;
constexpr int kMarkWidth = 14;
constexpr int kMarkHeight = 11;

const char* const kSampleText = "Abc";

enum
{
    column_Sample,
    column_Name,
    column_Value,
    column_Key,
    column_Ratio,
    column_Pair,
    column_Place
};

// In the text's colour: it has to be seen on any ground.
void DrawWarning(wxDC& dc, const wxRect& room)
{
    const wxRect           place = wxRect(0, 0, kMarkWidth, kMarkHeight).CentreIn(room);
    const wxPoint          corners[] = {{place.x, place.GetBottom()},
                                        {place.x + place.width / 2, place.y},
                                        {place.GetRight(), place.GetBottom()}};
    const wxDCPenChanger   pen(dc, wxPen(dc.GetTextForeground()));
    const wxDCBrushChanger brush(dc, *wxTRANSPARENT_BRUSH);
    dc.DrawPolygon(3, corners);
    const int middle = place.x + place.width / 2;
    dc.DrawLine(middle, place.y + 4, middle, place.GetBottom() - 3);
    dc.DrawPoint(middle, place.GetBottom() - 2);
}

const ColourPair& PairOf(int row)
{
    return ColourPairs()[static_cast<size_t>(row)];
}

// Cut, not rounded: one that is too little must not read as if it was enough.
String RatioText(double contrast)
{
    constexpr double kParts = 100;
    return SFormat("%.2f : 1", std::floor(contrast * kParts) / kParts);
}

int PixelsOf(const wxWindow& list, int dialogUnits)
{
    return list.ConvertDialogToPixels(wxSize(dialogUnits, -1)).x;
}

// Of a column of numbers, which have to be whole in any font.
int WidthFor(const wxWindow& list, const char* widest, int usual)
{
    constexpr int kMargins = 10;
    return std::max(PixelsOf(list, usual), list.GetTextExtent(widest).x + kMargins);
}

wxString LabelOf(const String& key)
{
    return wxGetTranslation(k_ColourNames[IndexOf(key)].label);
}

void DrawSample(wxDC& dc, const wxRect& rect, const wxColour& colour)
{
    const wxColour         line = wxtGetColor(color_Text);
    const wxDCPenChanger   pen(dc, line.IsOk() ? wxPen(line) : *wxBLACK_PEN);
    const wxDCBrushChanger brush(dc, colour.IsOk() ? wxBrush(colour) : *wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(rect);
    if (!colour.IsOk())
    {
        dc.DrawLine(rect.GetTopLeft(), rect.GetBottomRight());
        dc.DrawLine(rect.GetBottomLeft(), rect.GetTopRight());
    }
}
} // namespace

// A plain panel would take the focus, as nothing in it can.
ColourSample::ColourSample(wxWindow* parent)
    : wxtPanel(parent, wxID_ANY, wxDefaultPosition, kSampleSize, wxBORDER_NONE)
{
    CALL_ENTRY("ColourSample::ColourSample");
    m_container.DisableSelfFocus();
    SetMinSize(kSampleSize);
    Bind(wxEVT_PAINT,
         [this](wxPaintEvent&)
         {
             wxPaintDC dc(this);
             DrawSample(dc, wxRect(GetClientSize()), m_Colour);
         });
}

void ColourSample::SetColour(const wxColour& colour)
{
    m_Colour = colour;
    Refresh();
}

OneOfList::OneOfList(wxWindow* parent) : wxDBListCtrl(parent, wxID_ANY, true)
{
    // There is always one: deselected it is only when another one is selected.
    Bind(wxEVT_LIST_ITEM_SELECTED,
         [this](wxListEvent& event)
         {
             m_Selected = static_cast<int>(event.GetIndex());
             Redraw();
             m_OnSelected();
         });
}

std::vector<int> OneOfList::GetSelection()
{
    return m_Selected < 0 ? std::vector<int>() : std::vector<int>{m_Selected};
}

wxColour OneOfList::GetRowColor(int row)
{
    const wxColour plain = wxtGetColor(color_WindowBGDarker);
    const wxColour ground =
        IsRowSelected(row)
            ? internal::MixColours(plain, wxtGetColor(color_Selected), internal::k_SelectedRowShare)
            : plain;
    const wxColour ink = wxtGetColor(color_Text);
    return ground.IsOk() ? internal::ReadableOn(ground, {ink}) : ink;
}

void OneOfList::Select(int row)
{
    m_Selected = row;
    SetLastSelect(row);
    EnsureVisible(row);
    Redraw();
}

// Columns of names are as wide as their longest one, in any font and language.
void OneOfList::FitNames(const std::vector<int>& types)
{
    for (const int type : types)
    {
        FitColumn(FindColumnByType(type));
    }
}

int OneOfList::WidthOfColumns() const
{
    int width = 0;
    for (int column = 0; column < GetColumnCount(); ++column)
    {
        width += GetColumn(column).width;
    }
    return width;
}

ColourList::ColourList(wxWindow* parent, const SchemeColours& colours)
    : OneOfList(parent), m_Colours(colours)
{
    CALL_ENTRY("ColourList::ColourList");
    AddColumn(column_Sample, String(), kSampleWidth);
    AddColumn(column_Name, wxtFromWx(wxGetTranslation("Colour")), kUnfitted);
    AddColumn(column_Value, wxtFromWx(wxGetTranslation("Value")),
              WidthFor(*this, "#DDDDDD", kValueWidth));
    AddColumn(column_Key, wxtFromWx(wxGetTranslation("Key")), kUnfitted);
    SetItemCount(static_cast<int>(k_ColourCount));
    FitNames({column_Name, column_Key});
    Select(0);
}

String ColourList::GetDisplayText(int row, int column)
{
    const auto index = static_cast<size_t>(row);
    switch (GetColumn(column).type)
    {
    case column_Name:
        return wxtFromWx(wxGetTranslation(k_ColourNames[index].label));
    case column_Value:
        return m_Colours[index].IsOk() ? ColourText(m_Colours[index])
                                       : wxtFromWx(wxGetTranslation("none"));
    case column_Key:
        return *k_ColourNames[index].key;
    default:
        return String();
    }
}

void ColourList::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    if (GetColumn(column).type == column_Sample)
    {
        DrawSample(dc, rect.Deflate(kSampleEdge), m_Colours[static_cast<size_t>(row)]);
        return;
    }
    wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
}

PairList::PairList(wxWindow* parent, const SchemeColours& colours)
    : OneOfList(parent), m_Colours(colours)
{
    CALL_ENTRY("PairList::PairList");
    AddColumn(column_Sample, String(), WidthFor(*this, kSampleText, 0) + 2 * kSampleEdge);
    AddColumn(column_Ratio, wxtFromWx(wxGetTranslation("Contrast")),
              WidthFor(*this, "00.00 : 1", kRatioWidth) + kMarkWidth);
    AddColumn(column_Place, wxtFromWx(wxGetTranslation("Where")), kUnfitted);
    AddColumn(column_Pair, wxtFromWx(wxGetTranslation("Text on ground")), kUnfitted);
    SetItemCount(static_cast<int>(ColourPairs().size()));
    FitNames({column_Place, column_Pair});
}

String PairList::GetDisplayText(int row, int column)
{
    const ColourPair& pair = PairOf(row);
    switch (GetColumn(column).type)
    {
    case column_Ratio:
        return RatioText(pair.ContrastIn(m_Colours));
    case column_Place:
        return wxtFromWx(wxGetTranslation(pair.place));
    case column_Pair:
        return wxtFromWx(wxString::Format(pair.kind == ColourPair::kSelectedRow
                                              ? wxGetTranslation("%s on %s, selected")
                                              : wxGetTranslation("%s on %s"),
                                          LabelOf(*pair.ink), LabelOf(*pair.ground)));
    default:
        return String();
    }
}

void PairList::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    const ColourPair& pair = PairOf(row);
    const int         type = GetColumn(column).type;
    if (type == column_Sample)
    {
        const wxRect   sample = rect.Deflate(kSampleEdge);
        const wxColour ink = pair.InkOf(m_Colours);
        DrawSample(dc, sample, pair.GroundOf(m_Colours));
        if (ink.IsOk())
        {
            const wxColour former = dc.GetTextForeground();
            dc.SetTextForeground(ink);
            dc.DrawLabel(kSampleText, sample, wxALIGN_CENTRE);
            dc.SetTextForeground(former);
        }
        return;
    }
    if (type == column_Ratio)
    {
        const int mark = kMarkWidth + 2 * kSampleEdge;
        if (pair.ContrastIn(m_Colours) < k_LeastContrast)
        {
            DrawWarning(dc, wxRect(rect.x + kSampleEdge, rect.y, mark, rect.height));
        }
        rect.x += mark;
        rect.width -= mark;
    }
    wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
}
} // namespace dialogs
