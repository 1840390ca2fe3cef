#include "appearance/inputs/ItemDrawing.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "internal/drawing/Emphasis.h"
#include "internal/text/OneLine.h"

#include <wx/control.h>
#include <wx/dc.h>
#include <wx/window.h>

#include <algorithm>

namespace appearance
{
namespace
{
// Pixels.
constexpr int kTextMargin = 3; // left and right of an item's text
constexpr int kOverText = 4;   // of an item's height
constexpr int kWidest = 400;   // that a text asks for
} // namespace

ItemLook ItemLook::Of(const wxColour& ground, const wxColour& ink, bool selected)
{
    if (!selected)
    {
        return {ground, ink};
    }
    const auto lifted = [](const String& name, int by)
    { return OffsetColor(wxtGetColor(name), by, by, by); };
    return {lifted(color_Selected, internal::k_DefaultGroundLift),
            lifted(color_3DDark, internal::k_DefaultInkLift)};
}

void FillGround(wxDC& dc, const wxRect& rect, const wxColour& colour)
{
    if (colour.IsOk() && !rect.IsEmpty())
    {
        const wxDCBrushChanger brush(dc, wxBrush(colour));
        const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
        dc.DrawRectangle(rect);
    }
}

// Filled, since a drawn line is blurred on one of the ports.
void DrawFrame(wxDC& dc, const wxRect& rect, const wxColour& colour)
{
    FillGround(dc, wxRect(rect.x, rect.y, rect.width, 1), colour);
    FillGround(dc, wxRect(rect.x, rect.GetBottom(), rect.width, 1), colour);
    FillGround(dc, wxRect(rect.x, rect.y, 1, rect.height), colour);
    FillGround(dc, wxRect(rect.GetRight(), rect.y, 1, rect.height), colour);
}

void DrawItemText(wxDC& dc, const wxRect& rect, const wxString& text, const wxColour& ink)
{
    const int room = rect.width - 2 * kTextMargin;
    if (room <= 0 || !ink.IsOk())
    {
        return;
    }
    // No character is narrower than a pixel.
    const wxString line = internal::OneLine(text.Left(static_cast<size_t>(room)));
    dc.SetTextForeground(ink);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    dc.DrawText(wxControl::Ellipsize(line, dc, wxELLIPSIZE_END, room, wxELLIPSIZE_FLAGS_NONE),
                rect.x + kTextMargin, rect.y + (rect.height - dc.GetCharHeight()) / 2);
}

int ItemHeight(const wxWindow& window)
{
    return window.GetCharHeight() + kOverText;
}

int ItemTextWidth(const wxWindow& window, const wxString& text)
{
    return std::min(window.GetTextExtent(internal::OneLine(text.Left(kWidest))).x, kWidest) +
           2 * kTextMargin;
}

int GuessedTextWidth(int charWidth, size_t characters)
{
    const size_t width = static_cast<size_t>(charWidth) * std::min<size_t>(characters, kWidest);
    return std::min(static_cast<int>(width), kWidest) + 2 * kTextMargin;
}
} // namespace appearance
