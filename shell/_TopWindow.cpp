#include "shell/_TopWindow.h"

#include <wx/app.h>
#include <wx/thread.h>
#include <wx/window.h>

#include <atomic>
#include <utility>

namespace
{
std::atomic<bool> s_HasTopWindow{false};

wxWindow* TopWindow()
{
    return wxTheApp ? wxTheApp->GetTopWindow() : nullptr;
}
} // namespace

bool _HasTopWindow()
{
    return wxIsMainThread() ? TopWindow() != nullptr : s_HasTopWindow.load();
}

void _PostToTopWindow(_EventMaker make)
{
    if (wxIsMainThread())
    {
        if (wxWindow* const top = TopWindow())
        {
            top->GetEventHandler()->AddPendingEvent(*make(*top));
        }
    }
    else if (s_HasTopWindow && wxTheApp)
    {
        wxTheApp->CallAfter(
            [make = std::move(make)]
            {
                if (wxWindow* const top = TopWindow())
                {
                    top->GetEventHandler()->ProcessEvent(*make(*top));
                }
            });
    }
}

_TopWindowWatch::_TopWindowWatch()
{
    wxEvtHandler::AddFilter(this);
}

_TopWindowWatch::~_TopWindowWatch()
{
    wxEvtHandler::RemoveFilter(this);
    s_HasTopWindow = false;
}

int _TopWindowWatch::FilterEvent(wxEvent& event)
{
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_CREATE || type == wxEVT_SHOW || type == wxEVT_IDLE)
    {
        s_HasTopWindow = TopWindow() != nullptr;
    }
    else if (type == wxEVT_DESTROY)
    {
        // The window that goes is still in the toolkit's list.
        const wxWindow* const top = TopWindow();
        s_HasTopWindow = top && top != event.GetEventObject();
    }
    return Event_Skip;
}
