#include "dialogs/keys/KeyRelease.h"

namespace dialogs
{
namespace
{
int KeyCodeOf(const wxEvent& event)
{
    return static_cast<const wxKeyEvent&>(event).GetKeyCode();
}
} // namespace

KeyRelease::~KeyRelease()
{
    Stop();
}

void KeyRelease::Swallow(int keyCode)
{
    static KeyRelease s_Filter;
    s_Filter.Expect(keyCode);
}

// Whether one of them is down now does not matter: its release may be waiting already.
void KeyRelease::SwallowClicks()
{
    for (const int key : {WXK_RETURN, WXK_NUMPAD_ENTER, WXK_SPACE})
    {
        Swallow(key);
    }
}

void KeyRelease::Expect(int keyCode)
{
    m_KeyCodes.insert(keyCode);
    if (!m_Active)
    {
        wxEvtHandler::AddFilter(this);
        m_Active = true;
    }
}

void KeyRelease::Stop()
{
    if (m_Active)
    {
        wxEvtHandler::RemoveFilter(this);
        m_Active = false;
    }
}

int KeyRelease::FilterEvent(wxEvent& event)
{
    if (event.GetEventType() == wxEVT_CHAR_HOOK)
    {
        m_KeyCodes.erase(KeyCodeOf(event)); // pressed anew; the release went to nobody
        return Event_Skip;
    }
    if (event.GetEventType() != wxEVT_KEY_UP || m_KeyCodes.erase(KeyCodeOf(event)) == 0)
    {
        return Event_Skip;
    }
    if (m_KeyCodes.empty())
    {
        // The toolkit asks no further filter after this answer: this one may go.
        Stop();
    }
    return Event_Processed;
}
} // namespace dialogs
