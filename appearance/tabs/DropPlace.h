#pragma once

#include <wx/gdicmn.h>

#include <vector>

namespace appearance
{
/// Where a pane lies among the others, in the terms of the toolkit's docks: in rows that are
/// counted from the outside, rows in layers that are counted from the middle.
struct PanePlace
{
    int    direction; ///< `wxAUI_DOCK_LEFT` and so on; one pane is the centre.
    int    layer;
    int    row;
    int    position; ///< In its row, from the left or the top.
    wxSize size;     ///< Pixels.
};

/// Where on a pane something is dropped.
enum class DropSide
{
    middle, ///< The pane itself.
    left,
    right,
    top,
    bottom
};

DropSide SideOf(const wxRect& pane, const wxPoint& point);
/// The part of the pane that a drop there takes.
wxRect HalfOf(const wxRect& pane, DropSide side);

/// The place of a new pane at that side of one of the panes, which gives half of its room. Others
/// step aside. `side` is not the middle.
PanePlace MakeRoom(std::vector<PanePlace>& panes, size_t target, DropSide side);
} // namespace appearance
