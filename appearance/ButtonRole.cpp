#include "appearance/controls/ButtonState.h"
#include "appearance/controls/ForeignKey.h"
#include "appearance/wxtButton.h"
#include "vesta/CallEntry.h"

#include <wx/toplevel.h>
#include <wx/wupdlock.h>

// The role of the default item, which goes with the focus and comes back.

wxTopLevelWindow* wxtButton::TopLevel() const
{
    return dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(const_cast<wxtButton*>(this)));
}

bool wxtButton::IsDefault() const
{
    const wxTopLevelWindow* const top = TopLevel();
    // The temporary one, where there is one.
    return top && top->GetDefaultItem() == this;
}

wxWindow* wxtButton::SetDefault()
{
    CALL_ENTRY("wxtButton::SetDefault");
    const wxWindowUpdateLocker frozen(this);
    wxTopLevelWindow* const    top = TopLevel();
    if (!top)
    {
        return nullptr;
    }
    wxWindow* const previous = top->GetDefaultItem();
    top->SetDefaultItem(this);
    TakeDefaultLook();
    if (auto* const button = dynamic_cast<wxtButton*>(previous); button && button != this)
    {
        button->SetNormal();
    }
    return previous;
}

void wxtButton::Focus(wxFocusEvent& event)
{
    CALL_ENTRY("wxtButton::Focus");
    event.Skip();
    if (IsBeingDeleted())
    {
        return;
    }
    if (event.GetEventType() == wxEVT_SET_FOCUS)
    {
        m_ForeignKey->OnFocus();
        GainFocus();
    }
    else
    {
        LoseFocus();
    }
    Refresh(); // its bar, also where the colours stay
}

void wxtButton::GainFocus()
{
    const wxTopLevelWindow* const top = TopLevel();
    wxWindow* const               previous = top && top->GetDefaultItem() ? SetDefault() : this;
    m_PreviousDefault = previous;
    m_State->GainFocus(previous != this);
    if (previous == this)
    {
        Hilight(true);
    }
}

void wxtButton::LoseFocus()
{
    switch (m_State->LoseFocus())
    {
    case appearance::ButtonState::Focus::Role:
        SetNormal();
        GiveRoleBack();
        break;
    case appearance::ButtonState::Focus::Lit:
        Hilight(false);
        break;
    case appearance::ButtonState::Focus::None:
        break;
    }
    m_PreviousDefault = nullptr;
}

void wxtButton::GiveRoleBack()
{
    if (auto* const button = dynamic_cast<wxtButton*>(m_PreviousDefault.get()))
    {
        button->SetDefault();
    }
    // A stock control, or none when the previous one has gone in the meantime.
    else if (wxTopLevelWindow* const top = IsDefault() ? TopLevel() : nullptr)
    {
        top->SetDefaultItem(m_PreviousDefault);
    }
}
