#include "appearance/controls/ButtonState.h"
#include "appearance/controls/ForeignKey.h"
#include "appearance/wxtButton.h"
#include "internal/port/LostFocus.h"
#include "vesta/CallEntry.h"

#include <wx/toplevel.h>

// Keys and mouse, and the click that they end in.

void wxtButton::KeyDown(wxKeyEvent& event)
{
    m_ForeignKey->OnPress(event);
}

void wxtButton::Key(wxKeyEvent& event)
{
    CALL_ENTRY("wxtButton::Key");
    const int key = event.GetKeyCode();
    if (m_ForeignKey->EndsWith(event) ||
        (key != WXK_SPACE && key != WXK_RETURN && key != WXK_NUMPAD_ENTER))
    {
        event.Skip();
        return;
    }
    EmulateClick();
}

void wxtButton::Mnemonic(wxKeyEvent&)
{
    const wxWeakRef<wxtButton> self(this);
    SetFocus();
    if (self)
    {
        EmulateClick();
    }
}

// The toolkit counts no clicks on these ports: the second press of a double click tells.
void wxtButton::Click(wxMouseEvent& event)
{
    CALL_ENTRY("wxtButton::Click");
    if (!event.LeftUp())
    {
        m_State->Press(event.LeftDClick());
        event.Skip();
        return;
    }
    const bool mayClick = m_State->Release() && event.GetClickCount() <= 1;
    if (mayClick && IsShown() && GetClientRect().Contains(event.GetPosition()))
    {
        EmulateClick();
    }
}

// A button is disabled while its handlers run, and comes back however they end.
class wxtButton::_Click
{
public:
    explicit _Click(wxtButton& button) : m_Button(&button), m_HadFocus(button.HasFocus())
    {
        button.Enable(false);
        button.m_State->BeginClick();
    }
    ~_Click()
    {
        if (m_Button)
        {
            m_Button->EndClick(m_HadFocus);
        }
    }
    _Click(const _Click&) = delete;
    _Click& operator=(const _Click&) = delete;

private:
    wxWeakRef<wxtButton> m_Button; // null: a handler has destroyed it
    bool                 m_HadFocus;
};

void wxtButton::EmulateClick()
{
    CALL_ENTRY("wxtButton::EmulateClick");
    if (m_State->IsClicking() || !IsEnabled())
    {
        return;
    }
    const _Click   click(*this);
    wxCommandEvent event(wxEVT_BUTTON, GetId());
    event.SetEventObject(this);
    GetEventHandler()->ProcessEvent(event);
}

void wxtButton::EndClick(bool hadFocus)
{
    Enable(m_State->EndClick());
    RefreshColors();
    if (hadFocus && !IsBeingDeleted())
    {
        TakeFocusBack();
    }
}

// The toolkit takes the focus off a window that is disabled. Unless a handler has put it elsewhere,
// it is where the user left it again, or goes on.
void wxtButton::TakeFocusBack()
{
    wxWindow* const focused = FindFocus();
    const bool elsewhere = focused && wxGetTopLevelParent(focused) == wxGetTopLevelParent(this);
    if (!elsewhere && IsEnabled() && IsShownOnScreen())
    {
        SetFocus();
    }
    else if (!elsewhere)
    {
        internal::PassFocusOn(*this);
    }
}

// During a click it is not known yet whether the button will be able to have it.
void wxtButton::OnFocusLost(internal::FocusLostEvent& event)
{
    event.Skip(!m_State->IsClicking());
}
