#include "shell/frames/FrameColors.h"
#include "internal/port/DesktopScheme.h"
#include "internal/windows/UpperFloors.h"
#include "shell/wxTolvanFrame.h"
#include "tolvan/Components.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/app.h>

namespace
{
const char* const kColorRequest = "COLORS";

void ReloadColors()
{
    LoadColorScheme();
    wxTolvanFrame::ProcessColorChange();
}

// Called on a thread of the platform; the windows change on the main thread.
bool _RemoteChangeHandler()
{
    CALL_ENTRY("_RemoteChangeHandler");
    if (!wxTheApp)
    {
        return false;
    }
    wxTheApp->CallAfter([] { ReloadColors(); });
    return true;
}

void TellWindow(wxWindow* window)
{
    wxSysColourChangedEvent event;
    event.SetEventObject(window);
    window->GetEventHandler()->ProcessEvent(event);
}

void TellOtherPrograms()
{
    for (int i = 0; i < Components::k_Count; ++i)
    {
        if (Components::DidStart(i))
        {
            const String& name = Components::GetName(i);
            LogInfo("Notifying color changed to: " + name);
            Application::the_Application->SendRequest(name, kColorRequest);
        }
    }
}
} // namespace

void shell::AnswerColorRequests()
{
    Application::the_Application->RegisterRequestHandler(kColorRequest, _RemoteChangeHandler);
    internal::OnDesktopChange(
        []
        {
            if (g_Scheme == scheme_Desktop)
            {
                SetColors(g_Scheme);
                wxTolvanFrame::ProcessColorChange();
            }
        });
}

int wxTolvanFrame::SetColorScheme(int scheme)
{
    CALL_ENTRY("wxTolvanFrame::SetColorScheme");
    if (scheme < 0)
    {
        return g_Scheme;
    }
    g_Scheme = scheme;
    SetColors(scheme);
    SaveColorScheme();
    ProcessColorChange();
    TellOtherPrograms();
    return g_Scheme;
}

void wxTolvanFrame::ProcessColorChange()
{
    CALL_ENTRY("wxTolvanFrame::ProcessColorChange");
    if (s_Frame)
    {
        TellWindow(s_Frame);
    }
    // A handler may open or close frames.
    const std::set<wxTolvanFrame*> frames = g_ChildFrames;
    for (wxTolvanFrame* const frame : frames)
    {
        if (g_ChildFrames.count(frame))
        {
            TellWindow(frame);
        }
    }
    internal::g_UpperFloors.refreshDialogs();
}
