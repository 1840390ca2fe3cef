#include "shell/app/PointerWatch.h"

#include "internal/port/PopUps.h"
#include "internal/port/ToolTips.h"

#include <utility>

namespace shell
{
namespace
{
void TellOfLeaving(wxWindow& window)
{
    wxMouseEvent  leave(wxEVT_LEAVE_WINDOW);
    const wxPoint place = window.ScreenToClient(wxGetMousePosition());
    leave.SetX(place.x);
    leave.SetY(place.y);
    leave.SetEventObject(&window);
    leave.SetId(window.GetId());
    window.HandleWindowEvent(leave);
}
} // namespace

PointerWatch::PointerWatch()
{
    wxEvtHandler::AddFilter(this);
}

PointerWatch::~PointerWatch()
{
    wxEvtHandler::RemoveFilter(this);
}

int PointerWatch::FilterEvent(wxEvent& event)
{
    const wxEventType type = event.GetEventType();
    NoteTyping(event);
    if (type == wxEVT_ENTER_WINDOW || type == wxEVT_MOTION)
    {
        auto* const window = dynamic_cast<wxWindow*>(event.GetEventObject());
        if (window != m_Under)
        {
            NoteShutOut(); // all of the pointer's moves are told to what shuts it out
            m_Under = window;
        }
    }
    else if (type == wxEVT_LEAVE_WINDOW && event.GetEventObject() == m_Under)
    {
        m_Under = nullptr;
    }
    else if (type == wxEVT_IDLE)
    {
        NoteShutOut();
        TellThoseLetIn();
    }
    return Event_Skip;
}

// The port looks for a tooltip again when a window opens or a tooltip is set anywhere, and tells of
// the pointer then, too.
void PointerWatch::NoteTyping(const wxEvent& event)
{
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_CHAR_HOOK || type == wxEVT_KEY_DOWN)
    {
        m_TypedAt = wxGetMousePosition();
        internal::RefuseToolTips(true);
    }
    else if (m_TypedAt && type == wxEVT_MOTION && wxGetMousePosition() != *m_TypedAt)
    {
        m_TypedAt.reset();
        internal::RefuseToolTips(false);
    }
}

void PointerWatch::NoteShutOut()
{
    if (m_Under && !m_Under->IsBeingDeleted() && internal::IsShutOut(*m_Under))
    {
        internal::LookAtToolTip(*m_Under);
        m_ShutOut.push_back(std::exchange(m_Under, nullptr));
    }
}

void PointerWatch::TellThoseLetIn()
{
    std::vector<wxWeakRef<wxWindow>> letIn;
    for (const auto& window : std::exchange(m_ShutOut, {}))
    {
        if (window && !window->IsBeingDeleted())
        {
            (internal::IsShutOut(*window) ? m_ShutOut : letIn).push_back(window);
        }
    }
    for (const auto& window : letIn)
    {
        const bool isUnder = window && wxFindWindowAtPoint(wxGetMousePosition()) == window;
        if (isUnder)
        {
            m_Under = window.get();
        }
        else if (window)
        {
            TellOfLeaving(*window);
        }
    }
}
} // namespace shell
