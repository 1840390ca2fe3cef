#include "appearance/wxtScrolledPane.h"

#include "internal/port/Scrollbars.h"
#include "vesta/CallEntry.h"

#include <wx/utils.h>

#include <algorithm>

namespace
{
constexpr int kStep = 16;        // pixels a step of the scrollbar
const wxSize  kSmallest(80, 60); // pixels, with room for its scrollbar
} // namespace

wxtScrolledPane::wxtScrolledPane(wxWindow* parent)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, kSmallest,
                       wxVSCROLL | wxTAB_TRAVERSAL | wxBORDER_NONE)
{
    CALL_ENTRY("wxtScrolledPane::wxtScrolledPane");
    Manage(this);
    SetMinSize(kSmallest);
    SetScrollRate(0, kStep);
    internal::UseSolidScrollbars(*this);
}

// A sizer without room gives less than the smallest size.
void wxtScrolledPane::DoMoveWindow(int x, int y, int width, int height)
{
    internal::FitScrollbars(*this, {width, height});
    wxScrolledWindow::DoMoveWindow(x, y, width, height);
}

void wxtScrolledPane::ShowChild(const wxWindow& child)
{
    CALL_ENTRY("wxtScrolledPane::ShowChild");
    const wxRect place(ScreenToClient(child.GetScreenPosition()), child.GetSize());
    const int    height = GetClientSize().y;
    int          down = 0;
    if (place.GetBottom() >= height)
    {
        // A whole step more than too little.
        down = std::min(place.y, place.GetBottom() + kStep - height);
    }
    if (place.y - down < 0)
    {
        down = place.y;
    }
    Scroll(wxDefaultCoord, GetViewStart().y + down / kStep);
}

void wxtScrolledPane::ScrollWindow(int dx, int dy, const wxRect* rect)
{
    internal::MoveContent(*this, [&] { wxScrolledWindow::ScrollWindow(dx, dy, rect); });
}

// The toolkit's own way leaves those out of sight that are wider than the pane. What is pressed is
// seen there; moved away under the pointer, a double click would come to something else.
bool wxtScrolledPane::ShouldScrollToChildOnFocus(wxWindow* child)
{
    const wxMouseState mouse = wxGetMouseState();
    if (mouse.LeftIsDown() || mouse.MiddleIsDown() || mouse.RightIsDown())
    {
        return false;
    }
    const wxRect place(ScreenToClient(child->GetScreenPosition()), child->GetSize());
    const wxRect view(GetClientSize());
    if (place.height <= view.height || !view.Intersects(place))
    {
        ShowChild(*child);
    }
    return false;
}
