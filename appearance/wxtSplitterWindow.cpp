#include "appearance/wxtSplitterWindow.h"

#include "vesta/Application.h"
#include "vesta/CallEntry.h"

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

wxtSplitterWindow::wxtSplitterWindow(wxWindow* parent, const String& name)
    : wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxSP_LIVE_UPDATE | wxSP_NOBORDER),
      m_Name(name)
{
    CALL_ENTRY("wxtSplitterWindow::wxtSplitterWindow");
    Manage(this);
    SetMinimumPaneSize(kSmallestPane);
    Bind(wxEVT_SIZE, &wxtSplitterWindow::OnPanesSize, this);
}

int wxtSplitterWindow::WantedSash() const
{
    const int now = GetSashPosition();
    return now == m_Pushed ? std::max(now, m_Wanted) : now;
}

// The toolkit pushes the sash up where the window gets too small for the upper pane, and leaves it
// there.
void wxtSplitterWindow::OnPanesSize(wxSizeEvent& event)
{
    CALL_ENTRY("wxtSplitterWindow::OnPanesSize");
    const int wanted = WantedSash();
    OnSize(event);
    const int most = GetClientSize().y - kSmallestPane - GetSashSize();
    const int target = std::min(wanted, most);
    if (IsSplit() && target > GetSashPosition())
    {
        SetSashPosition(target);
    }
    m_Wanted = wanted;
    m_Pushed = GetSashPosition();
}

// The sash may be held when the window is closed.
wxtSplitterWindow::~wxtSplitterWindow()
{
    CALL_ENTRY("wxtSplitterWindow::~wxtSplitterWindow");
    if (HasCapture())
    {
        ReleaseMouse();
    }
}

void wxtSplitterWindow::Split(wxWindow* upper, wxWindow* lower, int firstHeight)
{
    CALL_ENTRY("wxtSplitterWindow::Split");
    const int height =
        m_Name.empty()
            ? firstHeight
            : Application::the_Application->Options().GetInt(m_Name, kSashKey, firstHeight);
    SplitHorizontally(upper, lower, std::max(height, kSmallestPane));
}

bool wxtSplitterWindow::IsRemembered() const
{
    return !m_Name.empty() && Application::the_Application->Options().HasValue(m_Name, kSashKey);
}

void wxtSplitterWindow::SaveSash() const
{
    CALL_ENTRY("wxtSplitterWindow::SaveSash");
    if (!m_Name.empty())
    {
        OptionsFile& options = Application::the_Application->Options();
        options.SetValue(m_Name, kSashKey, String::FromInt(WantedSash()));
    }
}

void wxtSplitterWindow::MoveSash(int pixels)
{
    CALL_ENTRY("wxtSplitterWindow::MoveSash");
    const int most = GetClientSize().y - kSmallestPane - GetSashSize();
    SetSashPosition(std::max(kSmallestPane, std::min(GetSashPosition() + pixels, most)));
}

void wxtSplitterWindow::SwitchPane()
{
    CALL_ENTRY("wxtSplitterWindow::SwitchPane");
    wxWindow* const next = ContainsFocus(GetWindow1()) ? GetWindow2() : GetWindow1();
    if (next)
    {
        next->SetFocus();
    }
}

// The toolkit's goes on to lay out a pane that has been destroyed.
void wxtSplitterWindow::RemoveChild(wxWindowBase* child)
{
    wxSplitterWindow::RemoveChild(child);
    if (child != m_windowOne && child != m_windowTwo)
    {
        return;
    }
    m_windowOne = child == m_windowOne ? m_windowTwo : m_windowOne;
    m_windowTwo = nullptr;
    if (!IsBeingDeleted())
    {
        SizeWindows();
    }
}

// The splitter also draws when it is laid out, and before it is on the screen that goes to the
// screen's own background: it is left to the paint event.
void wxtSplitterWindow::DrawSash(wxDC& dc)
{
    CALL_ENTRY("wxtSplitterWindow::DrawSash");
    if (!IsSplit())
    {
        return;
    }
    const wxRect sash(0, GetSashPosition(), GetClientSize().x, GetSashSize());
    if (!dynamic_cast<wxPaintDC*>(&dc))
    {
        RefreshRect(sash, false);
        return;
    }
    const wxDCClipper clip(dc, sash);
    wxSplitterWindow::DrawSash(dc);
}
