#include "appearance/controls/ForeignKey.h"

#include <wx/utils.h>

namespace appearance
{
namespace
{
// The keys that click.
constexpr wxKeyCode kKeys[] = {WXK_SPACE, WXK_RETURN, WXK_NUMPAD_ENTER};
} // namespace

void ForeignKey::OnFocus()
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

void ForeignKey::OnPress(wxKeyEvent& event)
{
    event.Skip();
    m_Key = event.GetEventType() == wxEVT_CHAR_HOOK ? event.GetKeyCode() : int{WXK_NONE};
}

bool ForeignKey::EndsWith(const wxKeyEvent& event)
{
    const bool foreign = event.GetKeyCode() == m_Key;
    m_Key = WXK_NONE;
    return foreign;
}
} // namespace appearance
