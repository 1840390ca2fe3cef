#include "appearance/wxtButton.h"
#include "dialogs/keys/KeyRelease.h"
#include "dialogs/wxTolvanDlg.h"
#include "vesta/CallEntry.h"

namespace
{
bool IsVisibleIn(const wxWindow& dialog, const wxWindow* window)
{
    while (window && window != &dialog && window->IsShown() && !window->IsTopLevel())
    {
        window = window->GetParent();
    }
    return window == &dialog;
}

// The window, if it is a themed button that the user could click.
wxtButton* ButtonToClick(const wxWindow& dialog, wxWindow* window)
{
    auto* const button = dynamic_cast<wxtButton*>(window);
    return button && button->IsEnabled() && IsVisibleIn(dialog, button) ? button : nullptr;
}

bool Click(wxtButton* button)
{
    if (!button)
    {
        return false;
    }
    wxCommandEvent click(wxEVT_BUTTON, button->GetId());
    click.SetEventObject(button);
    button->GetEventHandler()->ProcessEvent(click);
    return true;
}
} // namespace

void wxTolvanDlg::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxTolvanDlg::OnKey");
    switch (event.GetKeyCode())
    {
    case WXK_ESCAPE:
        EmulateCancelButton();
        break;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        dialogs::KeyRelease::Swallow(event.GetKeyCode());
        EmulateDefaultButton();
        break;
    default:
        // The commands of a dialog's controls are for its parent too, what is typed is not.
        event.StopPropagation();
        event.Skip();
        break;
    }
}

bool wxTolvanDlg::EmulateWxtButtonClickIfPresent(int id)
{
    CALL_ENTRY("wxTolvanDlg::EmulateWxtButtonClickIfPresent");
    return Click(ButtonToClick(*this, FindWindow(id)));
}

bool wxTolvanDlg::EmulateCancelButton()
{
    CALL_ENTRY("wxTolvanDlg::EmulateCancelButton");
    const int id = GetEscapeId();
    if (id == wxID_NONE)
    {
        return false;
    }
    if (id == wxID_ANY)
    {
        return EmulateWxtButtonClickIfPresent(wxID_CANCEL) ||
               EmulateWxtButtonClickIfPresent(GetAffirmativeId());
    }
    return EmulateWxtButtonClickIfPresent(id);
}

bool wxTolvanDlg::EmulateDefaultButton()
{
    CALL_ENTRY("wxTolvanDlg::EmulateDefaultButton");
    // The temporary one, where there is one.
    return Click(ButtonToClick(*this, GetDefaultItem()));
}
