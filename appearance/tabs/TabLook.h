#pragma once

#include <wx/colour.h>

class wxBitmapBundle;
class wxDC;
class wxRect;
class wxWindow;

namespace appearance
{
/// What is to be seen of a tab.
struct TabState
{
    bool active = false; ///< Its page is shown.
    bool current =
        false; ///< Its page is the one that is worked with; of several panes only one is.
    bool hovered = false;
    bool disabled = false;
};

/// The colours of a tab.
struct TabLook
{
    wxColour inner;  ///< In the middle of its ground.
    wxColour outer;  ///< At the edges.
    wxColour ink;    ///< Of what is written and drawn on it.
    wxColour accent; ///< Of the bar that tells the active tab; invalid for the others.

    static TabLook Of(const TabState& state);
};

/// A size for scale 1 and text of common height as pixels of the window, larger with its font.
int WithFont(const wxWindow& window, int size);

/// What the slot of a tab shows.
enum class TabSlot
{
    mark, ///< The page has been modified.
    close,
    hoveredClose,
    pressedClose
};

void DrawTabGround(wxDC& dc, const wxRect& rect, const TabLook& look, bool atBottom);
void DrawTabSlot(wxDC& dc, const wxRect& rect, TabSlot slot, const TabLook& look);
/// The picture in the size of the rectangle, as sharp as the window's display is. `greyed`: of a
/// tab that is disabled.
void DrawTabIcon(wxDC& dc, const wxWindow& window, const wxBitmapBundle& icon, const wxRect& rect,
                 bool greyed = false);
/// An arrow: `wxLEFT`, `wxRIGHT` or `wxBOTTOM`.
void DrawTabArrow(wxDC& dc, const wxRect& rect, int direction, const wxColour& colour);
} // namespace appearance
