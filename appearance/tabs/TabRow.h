#pragma once

#include <wx/gdicmn.h>

#include <cstddef>
#include <vector>

namespace appearance
{
/// Sizes of a row of tabs, pixels.
struct TabRowSizes
{
    wxSize room;   ///< For the tabs and their buttons.
    int    least;  ///< Width that a tab keeps, if it wants as much; then the row scrolls.
    int    button; ///< Width of each button of a row that scrolls.
};

/// The buttons of a row whose tabs do not fit.
enum TabRowButton
{
    button_Back,
    button_Forward,
    button_List,
    kTabRowButtons
};

/// Where the tabs of a row are. Tabs that do not fit become narrower, the widest first, down to the
/// least width; where that is not enough either they have the width that they want, and the row
/// scrolls by whole tabs and has buttons at its end. Painting and hit tests ask the same object.
struct TabRow
{
    std::vector<wxRect> tabs;      ///< Empty rectangles for those that are not seen.
    size_t              first = 0; ///< The first that is seen.
    size_t              end = 0;   ///< Behind the last one that is seen as a whole.
    bool                scrolls = false;
    wxRect              buttons[kTabRowButtons]; ///< Empty unless it scrolls.

    /// `first`: the first to be seen, unless more would fit. `shown`: a tab to be seen in any case,
    /// or -1.
    static TabRow Of(const std::vector<int>& wantedWidths, size_t first, int shown,
                     const TabRowSizes& sizes);

    int TabAt(const wxPoint& point) const;    ///< -1: none.
    int ButtonAt(const wxPoint& point) const; ///< -1: none.
    /// The place among the tabs for one that is dropped there.
    size_t PlaceAt(int x) const;
    /// The left edge of that place.
    int EdgeOf(size_t place) const;
    /// Where a tab that is dragged within its row goes: it passes a neighbour once it lies under
    /// the pointer in the neighbour's place too, so that it does not jump back and forth.
    size_t PlaceFor(size_t dragged, int x) const;

    bool CanGoBack() const { return first > 0; }
    bool CanGoForward() const { return end < tabs.size(); }
};

/// The widths of tabs that share the room; none below `least` unless it wants less.
std::vector<int> FitTabs(std::vector<int> wanted, int room, int least);

/// What is in a tab, from left to right.
struct TabParts
{
    wxRect icon; ///< Empty without one.
    wxRect text;
    wxRect slot; ///< Of the close button and the mark; empty without them.
};

/// Sizes of what is in a tab, pixels.
struct TabSizes
{
    int icon;   ///< Either side.
    int slot;   ///< Either side.
    int margin; ///< At both ends.
    int gap;    ///< Between two parts.
    int most;   ///< Width of a tab.
};

int      TabWidth(int textWidth, bool hasIcon, bool hasSlot, const TabSizes& sizes);
TabParts PartsOfTab(const wxRect& tab, bool hasIcon, bool hasSlot, const TabSizes& sizes);
} // namespace appearance
