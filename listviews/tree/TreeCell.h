#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include <functional>
#include <vector>

class wxDC;

namespace listviews
{
/// Where the parts of a cell in the tree's column are. Pixels of the body; painting and clicks ask
/// the same.
struct TreeCellGeometry
{
    static constexpr int k_LeastText = 40; ///< Pixels that are left for the text where there are.

    wxRect cell;
    int    side;   ///< Of the expander: about half of a cell; odd, so that it has a middle.
    int    indent; ///< Of a level.
    int    level;  ///< As it is drawn: in a narrow column deep levels stand in line.

    TreeCellGeometry(const wxRect& cellRect, int ofLevel);
    int    MiddleOf(int ofLevel) const; ///< Of the expanders and lines of a level.
    wxRect Expander() const;
    wxRect Press() const; ///< Where a click means the expander.
    wxRect Text() const;
};

/// What is to be seen of a node beside its text.
struct TreeCellState
{
    bool              hasExpander = false;
    bool              isOpen = false;
    bool              isHovered = false; ///< The expander.
    bool              isFirst = false;   ///< Of all rows.
    std::vector<bool> hasSibling;        ///< Behind it; from the node's own level up.
};

struct TreeCellLook
{
    wxColour line;
    wxColour arrow;
    wxColour halo; ///< Under the arrow; invalid: none.
};

/// `text`: the scheme's; `ground`: what it is drawn on.
TreeCellLook LookOf(const TreeCellState& state, const wxColour& text, const wxColour& ground);

/// Fills a rectangle of the context.
using FillRect = std::function<void(const wxRect&, const wxColour&)>;

/// Draws lines and expander by `fill`, but for what is finer than a pixel of the context. `scale`:
/// pixels of the device in one of those.
void DrawTreeCell(wxDC& dc, const FillRect& fill, const TreeCellGeometry& geometry,
                  const TreeCellState& state, const TreeCellLook& look, double scale);
} // namespace listviews
