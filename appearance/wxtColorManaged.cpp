#include "appearance/wxtColorManaged.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/scheme/ToolkitLook.h"
#include "internal/port/Enabling.h"
#include "internal/port/LostFocus.h"
#include "vesta/CallEntry.h"

#include <wx/wupdlock.h>

namespace
{
// A disabled window's background stands out from its surroundings by this much per channel.
constexpr int kDisabledBackgroundLift = 50;

wxColour NamedColour(const String& name, int offset)
{
    return OffsetColor(wxtGetColor(name), offset, offset, offset);
}
} // namespace

wxtColorManaged::wxtColorManaged() = default;

wxtColorManaged::wxtColorManaged(wxWindow* window)
{
    Manage(window);
}

wxtColorManaged::~wxtColorManaged()
{
    Detach();
}

void wxtColorManaged::Detach()
{
    if (m_Window)
    {
        m_Window->Unbind(wxEVT_SYS_COLOUR_CHANGED, &wxtColorManaged::wxtHandleSysColorChanged,
                         this);
        m_Window->Unbind(internal::EVT_ENABLED, &wxtColorManaged::OnEnabled, this);
    }
}

void wxtColorManaged::Manage(wxWindow* window)
{
    CALL_ENTRY("wxtColorManaged::Manage");
    Detach();
    m_Window = window;
    if (!window)
    {
        return;
    }
    window->Bind(wxEVT_SYS_COLOUR_CHANGED, &wxtColorManaged::wxtHandleSysColorChanged, this);
    window->Bind(internal::EVT_ENABLED, &wxtColorManaged::OnEnabled, this);
    // Two-step creation: there may be an object without a window yet, here and below.
    if (window->GetHandle())
    {
        internal::WatchEnabling(*window);
        internal::WatchFocus(*window);
    }
    if (const auto* parent = dynamic_cast<wxtColorManaged*>(window->GetParent()))
    {
        InheritFrom(*parent);
    }
    else
    {
        UseDefaults();
    }
    RefreshColors();
}

void wxtColorManaged::InheritFrom(const wxtColorManaged& parent)
{
    m_ForegroundName = parent.m_ForegroundName;
    m_BackgroundName = parent.m_BackgroundName;
    m_DisabledForegroundName = parent.m_DisabledForegroundName;
    m_DisabledBackgroundName = parent.m_DisabledBackgroundName;
    m_ForegroundOffset = parent.m_ForegroundOffset;
    m_BackgroundOffset = parent.m_BackgroundOffset;
    m_DisabledForegroundOffset = parent.m_DisabledForegroundOffset;
    m_DisabledBackgroundOffset = parent.m_DisabledBackgroundOffset;
}

void wxtColorManaged::UseDefaults()
{
    m_ForegroundName = color_Text;
    m_BackgroundName = color_WindowBG;
    m_DisabledForegroundName = color_TextGrey;
    m_DisabledBackgroundName = color_WindowBGLighter;
    m_ForegroundOffset = 0;
    m_BackgroundOffset = 0;
    m_DisabledForegroundOffset = 0;
    m_DisabledBackgroundOffset = kDisabledBackgroundLift;
}

void wxtColorManaged::RefreshColors() const
{
    CALL_ENTRY("wxtColorManaged::RefreshColors");
    if (!m_Window || !m_Window->GetHandle())
    {
        return;
    }
    appearance::FollowScheme(*m_Window);
    // Both colours in one repaint.
    const wxWindowUpdateLocker frozen(m_Window);
    const bool                 enabled = m_Window->IsEnabled();
    m_Window->SetForegroundColour(
        enabled ? NamedColour(m_ForegroundName, m_ForegroundOffset)
                : NamedColour(m_DisabledForegroundName, m_DisabledForegroundOffset));
    m_Window->SetBackgroundColour(
        enabled ? NamedColour(m_BackgroundName, m_BackgroundOffset)
                : NamedColour(m_DisabledBackgroundName, m_DisabledBackgroundOffset));
}

void wxtColorManaged::wxtHandleSysColorChanged(wxSysColourChangedEvent& event)
{
    CALL_ENTRY("wxtColorManaged::wxtHandleSysColorChanged");
    // Skipped so that the toolkit passes the event on to the window's children: that is how one
    // event sent to a frame reaches every control inside it.
    event.Skip();
    RefreshColors();
}

void wxtColorManaged::OnEnabled(internal::EnabledEvent& event)
{
    event.Skip();
    RefreshColors();
}

wxtPanel::wxtPanel(wxWindow* parent, wxWindowID id, const wxPoint& position, const wxSize& size,
                   long style, const wxString& name)
    : wxPanel(parent, id, position, size, style, name), wxtColorManaged(this)
{
}
