#include "common/PaneSplitter.h"

#include "vesta/Application.h"

#include <wx/dc.h>

#include <wx/dcclient.h>

#include <algorithm>

namespace
{
constexpr int     kSmallestPane = 90; // pixels
const char* const kSashKey = "Sash";

bool ContainsFocus(const wxWindow* window)
{
    const wxWindow* focus = wxWindow::FindFocus();
    while (focus && focus != window)
    {
        focus = focus->GetParent();
    }
    return focus != nullptr;
}
} // namespace

PaneSplitter::PaneSplitter(wxWindow* parent, const String& name)
    : wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxSP_LIVE_UPDATE | wxSP_NOBORDER),
      m_Name(name)
{
    Manage(this);
    SetMinimumPaneSize(kSmallestPane);
}

// The sash may be held when the window is closed.
PaneSplitter::~PaneSplitter()
{
    if (HasCapture())
    {
        ReleaseMouse();
    }
}

void PaneSplitter::Split(wxWindow* upper, wxWindow* lower, int firstHeight)
{
    const int height =
        Application::the_Application->Options().GetInt(m_Name, kSashKey, firstHeight);
    SplitHorizontally(upper, lower, std::max(height, kSmallestPane));
}

void PaneSplitter::SaveSash() const
{
    OptionsFile& options = Application::the_Application->Options();
    options.SetValue(m_Name, kSashKey, String::FromInt(GetSashPosition()));
}

void PaneSplitter::MoveSash(int pixels)
{
    const int most = GetClientSize().y - kSmallestPane - GetSashSize();
    SetSashPosition(std::max(kSmallestPane, std::min(GetSashPosition() + pixels, most)));
}

void PaneSplitter::SwitchPane()
{
    wxWindow* const next = ContainsFocus(GetWindow1()) ? GetWindow2() : GetWindow1();
    next->SetFocus();
}

// The splitter also draws when it is laid out, and before it is on the screen that goes to the
// screen's own background: it is left to the paint event.
void PaneSplitter::DrawSash(wxDC& dc)
{
    const wxRect sash(0, GetSashPosition(), GetClientSize().x, GetSashSize());
    if (!dynamic_cast<wxPaintDC*>(&dc))
    {
        RefreshRect(sash, false);
        return;
    }
    const wxDCClipper clip(dc, sash);
    wxSplitterWindow::DrawSash(dc);
}
