#include "listviews/tree/TreeCell.h"

#include "internal/drawing/ColorMix.h"

#include <wx/dc.h>

#include <algorithm>
#include <cmath>

namespace listviews
{
namespace
{
constexpr double kLineShare = 0.3; // of the text's colour; the rest is the ground's
constexpr double kArrowShare = 0.8;
constexpr double kHaloShare = 0.3;
// Pixels.
constexpr int kLeastSide = 11;
constexpr int kOverSide = 5; // of a level over the expander's side

/// Fills what of a rectangle lies in the cell.
class _Brush
{
public:
    _Brush(const FillRect& fill, const wxRect& cell) : m_Fill(fill), m_Cell(cell) {}

    void Fill(const wxRect& rect, const wxColour& colour) const
    {
        const wxRect seen = wxRect(rect).Intersect(m_Cell);
        if (colour.IsOk() && !seen.IsEmpty())
        {
            m_Fill(seen, colour);
        }
    }

private:
    const FillRect& m_Fill;
    const wxRect    m_Cell;
};

// The lines that lead to the node and past it, as far as they are seen. They leave room for the
// expander.
void DrawLines(const _Brush& brush, const TreeCellGeometry& geometry, const TreeCellState& state,
               const wxColour& colour)
{
    const wxRect& cell = geometry.cell;
    const int     levels = std::min(geometry.level + 1, static_cast<int>(state.hasSibling.size()));
    for (int up = 1; up < levels; ++up)
    {
        if (state.hasSibling[static_cast<size_t>(up)])
        {
            brush.Fill(wxRect(geometry.MiddleOf(geometry.level - up), cell.y, 1, cell.height),
                       colour);
        }
    }
    const wxRect box = geometry.Expander();
    const int    x = geometry.MiddleOf(geometry.level);
    const int    middle = box.y + box.height / 2;
    const int    above = state.hasExpander ? box.y : middle + 1;
    if (!state.isFirst)
    {
        brush.Fill(wxRect(x, cell.y, 1, above - cell.y), colour);
    }
    if (!state.hasSibling.empty() && state.hasSibling[0])
    {
        const int below = state.hasExpander ? box.GetBottom() + 1 : middle;
        brush.Fill(wxRect(x, below, 1, cell.GetBottom() + 1 - below), colour);
    }
    if (!state.hasExpander)
    {
        brush.Fill(wxRect(x, middle, geometry.Text().x - x, 1), colour);
    }
}

// Line by line: the edges of a polygon would be smoothed on one port and not on the other. `pixels`
// of the drawing are one of the box.
void DrawArrow(const FillRect& fill, const wxRect& box, bool down, const wxColour& colour,
               int pixels)
{
    const int length = box.height / 2 * pixels; // from its base to its point
    const int x = (box.x + box.width / 2) * pixels + pixels / 2;
    const int y = (box.y + box.height / 2) * pixels + pixels / 2;
    for (int i = 0; i < length; ++i)
    {
        const int half = length - 1 - i;
        const int at = i - length / 2;
        fill(down ? wxRect(x - half, y + at, 2 * half + 1, 1)
                  : wxRect(x + at, y - half, 1, 2 * half + 1),
             colour);
    }
}

void DrawFineArrow(wxDC& dc, const wxRect& cell, const wxRect& box, bool down,
                   const wxColour& colour, int pixels)
{
    const wxDCClipper      clip(dc, cell);
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    const wxDCBrushChanger brush(dc, wxBrush(colour));
    double                 before[2];
    dc.GetUserScale(&before[0], &before[1]);
    dc.SetUserScale(before[0] / pixels, before[1] / pixels);
    DrawArrow([&dc](const wxRect& rect, const wxColour&) { dc.DrawRectangle(rect); }, box, down,
              colour, pixels);
    dc.SetUserScale(before[0], before[1]);
}
} // namespace

TreeCellGeometry::TreeCellGeometry(const wxRect& cellRect, int ofLevel)
    : cell(cellRect), side(std::max(kLeastSide, cell.height / 2 | 1)), indent(side + kOverSide)
{
    const int most = (cell.width - k_LeastText) / indent - 1;
    level = std::clamp(ofLevel, 0, std::max(most, 0));
}

int TreeCellGeometry::MiddleOf(int ofLevel) const
{
    return cell.x + ofLevel * indent + indent / 2 + 1;
}

wxRect TreeCellGeometry::Expander() const
{
    return wxRect(MiddleOf(level) - side / 2, cell.y + (cell.height - side) / 2, side, side);
}

wxRect TreeCellGeometry::Press() const
{
    return wxRect(cell.x + level * indent, cell.y, indent + 1, cell.height).Intersect(cell);
}

wxRect TreeCellGeometry::Text() const
{
    const int before = std::min((level + 1) * indent, cell.width);
    return wxRect(cell.x + before, cell.y, cell.width - before, cell.height);
}

TreeCellLook LookOf(const TreeCellState& state, const wxColour& text, const wxColour& ground)
{
    TreeCellLook look;
    look.line = internal::MixColours(text, ground, kLineShare);
    look.arrow = state.isHovered ? text : internal::MixColours(text, ground, kArrowShare);
    if (state.isHovered)
    {
        look.halo = internal::MixColours(text, ground, kHaloShare);
    }
    return look;
}

void DrawTreeCell(wxDC& dc, const FillRect& fill, const TreeCellGeometry& geometry,
                  const TreeCellState& state, const TreeCellLook& look, double scale)
{
    const _Brush brush(fill, geometry.cell);
    DrawLines(brush, geometry, state, look.line);
    if (!state.hasExpander)
    {
        return;
    }
    const wxRect box = geometry.Expander();
    brush.Fill(box, look.halo);
    const int pixels = std::max(1, static_cast<int>(std::lround(scale)));
    if (pixels > 1 && look.arrow.IsOk())
    {
        DrawFineArrow(dc, geometry.cell, box, state.isOpen, look.arrow, pixels);
        return;
    }
    DrawArrow([&brush](const wxRect& rect, const wxColour& colour) { brush.Fill(rect, colour); },
              box, state.isOpen, look.arrow, 1);
}
} // namespace listviews
