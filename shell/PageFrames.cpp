#include "appearance/wxTolvanString.h"
#include "internal/windows/UpperFloors.h"
#include "shell/OpenWindows.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/Application.h"

// Windows for the pages of a notebook: frames of the program that the window menu lists.

namespace
{
wxFrame* MakePageFrame(wxWindow& owner, const wxString& title)
{
    if (!wxTolvanFrame::s_Frame)
    {
        // The first one would become the main frame.
        return new wxFrame(wxGetTopLevelParent(&owner), wxID_ANY, title);
    }
    auto* const frame = new wxTolvanFrame(title);
    wxOpenUserWindow(frame, String());
    return frame;
}

void KeepPlace(wxWindow& window, const String& name)
{
    wxSaveWindowPos(&window, name);
}

// One without a place stays where the window manager puts it.
void BringToPlace(wxWindow& window, const String& name)
{
    if (Application::the_Application->Options().HasValue(name, "Window"))
    {
        wxSetWindowPos(&window, name, 0);
    }
}

const bool kMakesPageFrames = (internal::g_UpperFloors.makePageFrame = &MakePageFrame,
                               internal::g_UpperFloors.keepPlace = &KeepPlace,
                               internal::g_UpperFloors.bringToPlace = &BringToPlace, true);
} // namespace
