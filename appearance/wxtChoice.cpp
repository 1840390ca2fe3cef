#include "appearance/wxtChoice.h"

#include "vesta/CallEntry.h"

#include <wx/weakref.h>

// clang-format off
wxBEGIN_EVENT_TABLE(wxtChoice, wxtComboBox)
    EVT_COMBOBOX(wxID_ANY, wxtChoice::TellAsChoice)
wxEND_EVENT_TABLE()
// clang-format on

wxtChoice::wxtChoice(wxWindow* parent, wxWindowID id, const wxPoint& position, const wxSize& size,
                     const wxArrayString& choices, long style, const wxValidator& validator,
                     const wxString& name)
    : wxtComboBox(parent, id, wxEmptyString, position, size, choices, style | wxCB_READONLY,
                  validator, name)
{
}

wxtChoice::wxtChoice(wxWindow* parent, wxWindowID id, const wxPoint& position, const wxSize& size,
                     int count, const wxString choices[], long style, const wxValidator& validator,
                     const wxString& name)
    : wxtComboBox(parent, id, wxEmptyString, position, size, count, choices, style | wxCB_READONLY,
                  validator, name)
{
}

void wxtChoice::TellAsChoice(wxCommandEvent& event)
{
    CALL_ENTRY("wxtChoice::TellAsChoice");
    const wxWeakRef<wxtChoice> self(this);
    wxCommandEvent             choice(event);
    choice.SetEventType(wxEVT_CHOICE);
    ProcessWindowEvent(choice);
    event.Skip(self); // unless the handler has taken the control away
}
