#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/event.h>
#include <wx/panel.h>
#include <wx/weakref.h>

namespace internal
{
class EnabledEvent;
}

/// Mixed into a window class beside its window base: holds the names and offsets of the window's
/// colours and sets them again whenever the scheme changes, and when the window is enabled or
/// disabled, by itself or with one that it lies in. A window made inside a managed one starts with
/// that one's settings. A managed window that is disabled, hidden or destroyed while it has the
/// focus passes it on as the Tab key would.
class TOLVAN_API wxtColorManaged
{
public:
    /// Manages nothing until `Manage` is called.
    wxtColorManaged();
    explicit wxtColorManaged(wxWindow* window);
    ~wxtColorManaged();
    wxtColorManaged(const wxtColorManaged&) = delete;
    wxtColorManaged& operator=(const wxtColorManaged&) = delete;

    /// Attaches to the window (and leaves an earlier one) and colours it. The window is not owned;
    /// either may go first.
    void Manage(wxWindow* window);
    /// Sets the window's colours from the table. Called after any change of the settings below.
    void RefreshColors() const;
    void wxtHandleSysColorChanged(wxSysColourChangedEvent& event);

    String m_ForegroundName;
    String m_BackgroundName;
    String m_DisabledForegroundName;
    String m_DisabledBackgroundName;
    /// @name Offsets
    /// Added to each of red, green and blue.
    /// @{
    int m_ForegroundOffset = 0;
    int m_BackgroundOffset = 0;
    int m_DisabledForegroundOffset = 0;
    int m_DisabledBackgroundOffset = 0;
    /// @}

private:
    void OnEnabled(internal::EnabledEvent& event);
    void Detach();
    void InheritFrom(const wxtColorManaged& parent);
    void UseDefaults();

    wxWeakRef<wxWindow> m_Window;
};

/// A panel in the colours of the scheme; base of the composite views.
class TOLVAN_API wxtPanel : public wxPanel, public wxtColorManaged
{
public:
    explicit wxtPanel(wxWindow* parent, wxWindowID id = wxID_ANY,
                      const wxPoint& position = wxDefaultPosition,
                      const wxSize& size = wxDefaultSize, long style = wxTAB_TRAVERSAL,
                      const wxString& name = wxASCII_STR(wxPanelNameStr));
};
