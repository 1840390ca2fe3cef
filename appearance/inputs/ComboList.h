#pragma once

#include <wx/odcombo.h>

namespace appearance
{
/// The list that a combo box opens. It keeps to what the control shows: an item that comes or goes
/// leaves the selection with the item that has it, and a text that is none of the items selects
/// none. Enter and a click choose the marked item, Tab chooses it and goes on to the next control.
class ComboList : public wxVListBoxComboPopup
{
public:
    void Put(const wxString& text, int place);
    /// Where a text goes in a sorted list: after those that are equal to it.
    int PlaceOf(const wxString& text) const;

    void SetStringValue(const wxString& value) override;
    void OnComboCharEvent(wxKeyEvent& event) override;
    void OnPopup() override;

protected:
    void UpdateScrollbar() override;

private:
    void Key(wxKeyEvent& event);
    void Release(wxMouseEvent& event);
    void Choose();
    void ChooseAndLeave(bool forward);

    wxDECLARE_EVENT_TABLE();
};
} // namespace appearance
