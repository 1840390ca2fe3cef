#include "appearance/tabs/DropPlace.h"

#include <wx/aui/framemanager.h>

#include <algorithm>

namespace appearance
{
namespace
{
constexpr double kEdgeShare = 0.3; // of a pane, on either side

int DockOf(DropSide side)
{
    switch (side)
    {
    case DropSide::left:
        return wxAUI_DOCK_LEFT;
    case DropSide::right:
        return wxAUI_DOCK_RIGHT;
    case DropSide::top:
        return wxAUI_DOCK_TOP;
    default:
        return wxAUI_DOCK_BOTTOM;
    }
}

// Whether the panes of such a dock lie one above the other.
bool IsColumn(int dock)
{
    return dock == wxAUI_DOCK_LEFT || dock == wxAUI_DOCK_RIGHT;
}

// Right beside the centre: docks across would come between them, and go one layer out.
PanePlace BesideCentre(std::vector<PanePlace>& panes, int dock, const wxSize& size)
{
    int  row = 0;
    bool crosses = false;
    for (const PanePlace& pane : panes)
    {
        const bool isInner = pane.direction != wxAUI_DOCK_CENTER && pane.layer == 0;
        crosses = crosses || (isInner && IsColumn(pane.direction) != IsColumn(dock));
        row = isInner && pane.direction == dock ? std::max(row, pane.row + 1) : row;
    }
    if (crosses)
    {
        row = 0;
        for (PanePlace& pane : panes)
        {
            pane.layer += pane.direction != wxAUI_DOCK_CENTER;
        }
    }
    return {dock, 0, row, 0, size};
}
} // namespace

DropSide SideOf(const wxRect& pane, const wxPoint& point)
{
    if (pane.IsEmpty())
    {
        return DropSide::middle;
    }
    const double                      across = double(point.x - pane.x) / pane.width;
    const double                      down = double(point.y - pane.y) / pane.height;
    const std::pair<double, DropSide> distances[] = {{across, DropSide::left},
                                                     {1 - across, DropSide::right},
                                                     {down, DropSide::top},
                                                     {1 - down, DropSide::bottom}};
    const auto nearest = std::min_element(std::begin(distances), std::end(distances));
    return nearest->first < kEdgeShare ? nearest->second : DropSide::middle;
}

wxRect HalfOf(const wxRect& pane, DropSide side)
{
    wxRect half = pane;
    if (side == DropSide::left || side == DropSide::right)
    {
        half.width /= 2;
        half.x += side == DropSide::right ? pane.width - half.width : 0;
    }
    else if (side == DropSide::top || side == DropSide::bottom)
    {
        half.height /= 2;
        half.y += side == DropSide::bottom ? pane.height - half.height : 0;
    }
    return half;
}

PanePlace MakeRoom(std::vector<PanePlace>& panes, size_t target, DropSide side)
{
    const int  dock = DockOf(side);
    PanePlace& beside = panes[target];
    beside.size = HalfOf(wxRect(beside.size), side).GetSize();
    if (beside.direction == wxAUI_DOCK_CENTER)
    {
        return BesideCentre(panes, dock, beside.size);
    }
    PanePlace  place = beside;
    const bool isBefore = side == DropSide::left || side == DropSide::top;
    const bool isSameRow = IsColumn(beside.direction) != IsColumn(dock);
    const bool isOutside = beside.direction == dock;
    int&       number = isSameRow ? place.position : place.row;
    number += isSameRow ? !isBefore : !isOutside;
    place.position = isSameRow ? place.position : 0;
    for (PanePlace& pane : panes)
    {
        const bool isDock = pane.direction == place.direction && pane.layer == place.layer;
        if (isSameRow)
        {
            pane.position += isDock && pane.row == place.row && pane.position >= place.position;
        }
        else
        {
            pane.row += isDock && pane.row >= place.row;
        }
    }
    return place;
}
} // namespace appearance
