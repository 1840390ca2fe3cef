#pragma once

#include "appearance/wxtComboBox.h"
#include "vesta/Export.h"

#include <wx/choice.h>

/// A drop-down list to choose one item from, in the colours of the scheme: a stand-in for the
/// stock `wxChoice`. Its items may carry client data, plain or as objects, which it owns. When the
/// user picks an item, with the mouse, the wheel, the arrow keys or by typing how the item begins,
/// it sends `wxEVT_COMBOBOX` and `wxEVT_CHOICE`: both carry the item's index, text and client
/// data. Main thread.
class TOLVAN_API wxtChoice : public wxtComboBox
{
public:
    /// @name Construction
    /// The arguments of a stock choice. Nothing is selected at first.
    /// @{
    explicit wxtChoice(wxWindow* parent, wxWindowID id = wxID_ANY,
                       const wxPoint&       position = wxDefaultPosition,
                       const wxSize&        size = wxDefaultSize,
                       const wxArrayString& choices = wxArrayString(), long style = 0,
                       const wxValidator& validator = wxDefaultValidator,
                       const wxString&    name = wxASCII_STR(wxChoiceNameStr));
    wxtChoice(wxWindow* parent, wxWindowID id, const wxPoint& position, const wxSize& size,
              int count, const wxString choices[], long style = 0,
              const wxValidator& validator = wxDefaultValidator,
              const wxString&    name = wxASCII_STR(wxChoiceNameStr));
    /// @}

    /// Whether there are no items.
    bool IsEmpty() const { return IsListEmpty(); }

private:
    void TellAsChoice(wxCommandEvent& event);

    wxDECLARE_EVENT_TABLE();
};
