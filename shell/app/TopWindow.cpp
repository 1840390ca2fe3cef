#include "shell/app/TopWindow.h"

#include <wx/app.h>
#include <wx/thread.h>
#include <wx/window.h>

#include <atomic>
#include <utility>

namespace shell
{
namespace
{
std::atomic<bool> s_HasTopWindow{false};
bool              s_IsWatched = false;

wxWindow* TopWindow()
{
    return wxTheApp ? wxTheApp->GetTopWindow() : nullptr;
}
} // namespace

bool HasTopWindow()
{
    return wxIsMainThread() ? TopWindow() != nullptr : s_HasTopWindow.load();
}

void AskForTopWindow(std::function<void(wxWindow* top)> answer)
{
    if (wxIsMainThread())
    {
        answer(TopWindow());
    }
    else if (wxTheApp)
    {
        wxTheApp->CallAfter([answer = std::move(answer)] { answer(TopWindow()); });
    }
}

void PostToTopWindow(EventMaker make)
{
    AskForTopWindow(
        [make = std::move(make)](wxWindow* top)
        {
            if (top)
            {
                top->GetEventHandler()->AddPendingEvent(*make(*top));
            }
        });
}

TopWindowWatch::TopWindowWatch()
{
    wxEvtHandler::AddFilter(this);
    s_IsWatched = true;
}

TopWindowWatch::~TopWindowWatch()
{
    wxEvtHandler::RemoveFilter(this);
    s_IsWatched = false;
    s_HasTopWindow = false;
}

void TopWindowWatch::Look()
{
    s_HasTopWindow = s_IsWatched && TopWindow();
}

int TopWindowWatch::FilterEvent(wxEvent& event)
{
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_CREATE || type == wxEVT_SHOW || type == wxEVT_IDLE)
    {
        Look();
    }
    else if (type == wxEVT_DESTROY)
    {
        // The window that goes is still in the toolkit's list.
        const wxWindow* const top = TopWindow();
        s_HasTopWindow = top && top != event.GetEventObject();
    }
    return Event_Skip;
}
} // namespace shell
