#include "appearance/_ForeignKey.h"

#include <wx/utils.h>

namespace
{
// The keys that click.
constexpr wxKeyCode kKeys[] = {WXK_SPACE, WXK_RETURN, WXK_NUMPAD_ENTER};
} // namespace

void _ForeignKey::OnFocus()
{
    m_Key = WXK_NONE;
    for (const wxKeyCode key : kKeys)
    {
        if (wxGetKeyState(key))
        {
            m_Key = key;
        }
    }
}

void _ForeignKey::OnPress(wxKeyEvent& event)
{
    event.Skip();
    m_Key = event.GetEventType() == wxEVT_CHAR_HOOK ? event.GetKeyCode() : int{WXK_NONE};
}

bool _ForeignKey::EndsWith(const wxKeyEvent& event)
{
    const bool foreign = event.GetKeyCode() == m_Key;
    m_Key = WXK_NONE;
    return foreign;
}
