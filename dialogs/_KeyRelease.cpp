#include "dialogs/_KeyRelease.h"

namespace
{
bool IsKey(const wxEvent& event, wxEventType type, int keyCode)
{
    return event.GetEventType() == type &&
           static_cast<const wxKeyEvent&>(event).GetKeyCode() == keyCode;
}
} // namespace

_KeyRelease::~_KeyRelease()
{
    Stop();
}

void _KeyRelease::Swallow(int keyCode)
{
    static _KeyRelease s_Filter;
    s_Filter.Expect(keyCode);
}

void _KeyRelease::Expect(int keyCode)
{
    m_KeyCode = keyCode;
    if (!m_Active)
    {
        wxEvtHandler::AddFilter(this);
        m_Active = true;
    }
}

void _KeyRelease::Stop()
{
    if (m_Active)
    {
        wxEvtHandler::RemoveFilter(this);
        m_Active = false;
    }
}

int _KeyRelease::FilterEvent(wxEvent& event)
{
    if (IsKey(event, wxEVT_KEY_UP, m_KeyCode))
    {
        // The toolkit asks no further filter after this answer: this one may go.
        Stop();
        return Event_Processed;
    }
    if (IsKey(event, wxEVT_CHAR_HOOK, m_KeyCode))
    {
        m_KeyCode = WXK_NONE; // pressed anew; the release went to nobody
    }
    return Event_Skip;
}
