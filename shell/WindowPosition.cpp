#include "shell/_Geometry.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/window.h>

namespace
{
const char* const kGeometryKey = "Window";

bool IsOnNoDisplay(const wxWindow* window)
{
    return _Displays::Get().indexOf(window) == wxNOT_FOUND;
}

// A window that is not shown yet lies nowhere; where it lies is seen when it is.
void CentreIfShownOnNoDisplay(wxWindow* window)
{
    window->Bind(wxEVT_SHOW,
                 [window, done = false](wxShowEvent& event) mutable
                 {
                     event.Skip();
                     if (event.IsShown() && !done && event.GetEventObject() == window)
                     {
                         done = true;
                         if (IsOnNoDisplay(window))
                         {
                             window->Centre(wxBOTH);
                         }
                     }
                 });
}

bool Place(wxWindow* window, const String& text, int offset)
{
    const std::optional<wxRect> geometry = _ParseGeometry(text);
    if (!geometry)
    {
        return false;
    }
    window->SetSize(geometry->x + offset, geometry->y + offset, geometry->width, geometry->height,
                    wxSIZE_AUTO);
    if (!window->IsShown())
    {
        CentreIfShownOnNoDisplay(window);
        return true;
    }
    return !IsOnNoDisplay(window);
}
} // namespace

void wxSaveWindowPos(wxWindow* window, const String& name)
{
    CALL_ENTRY("wxSaveWindowPos");
    OptionsFile&                      options = Application::the_Application->Options();
    const OptionsFile::PauseAutoWrite pause(options);
    const WriteLock                   lock(options.Lock());
    options.SetValue(name, kGeometryKey,
                     _GeometryToStore(options.GetValue(name, kGeometryKey), window->GetRect(),
                                      _Displays::Get().placesWindows()));
}

void wxSetWindowPos(wxWindow* window, const String& name, int offset)
{
    CALL_ENTRY("wxSetWindowPos");
    const String text = Application::the_Application->Options().GetValue(name, kGeometryKey);
    if (!Place(window, text, offset))
    {
        window->Centre(wxBOTH);
    }
    // A new window comes up on top anyway, and raised before it is shown it would miss how large its
    // frame is: it would be larger by that each time that it comes back.
    if (window->IsShown())
    {
        window->Raise();
    }
}
