#include "internal/windows/Geometry.h"
#include "shell/frames/FrameExtents.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/toplevel.h>

namespace
{
const char* const kGeometryKey = "Window";
const char* const kFrameKey = "Frame";

bool IsOnNoDisplay(const wxWindow* window)
{
    return internal::Displays::Get().indexOf(window) == wxNOT_FOUND;
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

bool Place(wxWindow* window, const String& text, const String& frameExtents, int offset)
{
    const std::optional<wxRect> geometry = internal::ParseGeometry(text);
    if (!geometry)
    {
        return false;
    }
    wxRect place = *geometry;
    place.Offset(offset, offset);
    auto* const top = window->IsTopLevel() ? dynamic_cast<wxTopLevelWindow*>(window) : nullptr;
    if (top && !top->IsShown())
    {
        // A new window says that it is in the screen's corner: the toolkit would not take it there.
        top->Move(place.GetPosition() + wxPoint(1, 1));
    }
    if (!top || top->IsShown() || !shell::PlaceWithFrame(*top, place, frameExtents))
    {
        window->SetSize(place, wxSIZE_AUTO);
        window->Raise();
    }
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
                     internal::GeometryToStore(options.GetValue(name, kGeometryKey),
                                               window->GetRect(),
                                               internal::Displays::Get().placesWindows()));
    shell::SaveFrameExtents(*window, name);
}

void shell::SaveFrameExtents(const wxWindow& window, const String& name)
{
    OptionsFile&    options = Application::the_Application->Options();
    const String    extents = shell::FrameExtentsOf(window);
    const WriteLock lock(options.Lock());
    if (!extents.empty())
    {
        options.SetValue(name, kFrameKey, extents);
    }
}

void wxSetWindowPos(wxWindow* window, const String& name, int offset)
{
    CALL_ENTRY("wxSetWindowPos");
    const OptionsFile& options = Application::the_Application->Options();
    if (!Place(window, options.GetValue(name, kGeometryKey), options.GetValue(name, kFrameKey),
               offset))
    {
        window->Centre(wxBOTH);
        // Also for a window that has not been shown: it would come up in a corner otherwise.
        window->Raise();
    }
    else if (window->IsShown())
    {
        window->Raise();
    }
}
