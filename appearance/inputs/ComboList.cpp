#include "appearance/inputs/ComboList.h"

#include "appearance/inputs/ListKeys.h"
#include "vesta/CallEntry.h"

#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <algorithm>

namespace appearance
{
// clang-format off
wxBEGIN_EVENT_TABLE(ComboList, wxVListBoxComboPopup)
    EVT_KEY_DOWN(ComboList::Key)
    EVT_LEFT_UP(ComboList::Release)
wxEND_EVENT_TABLE()
// clang-format on

int ComboList::PlaceOf(const wxString& text) const
{
    size_t first = 0;
    for (size_t end = m_strings.size(); first < end;)
    {
        const size_t middle = (first + end) / 2;
        const bool   isBefore = text.CmpNoCase(m_strings[middle]) < 0;
        end = isBefore ? middle : end;
        first = isBefore ? first : middle + 1;
    }
    return static_cast<int>(first);
}

void ComboList::Put(const wxString& text, int place)
{
    const int value = m_value;
    const int marked = wxVListBox::GetSelection();
    Insert(text, place);
    // The toolkit gives the selection to the newest item of that text.
    m_value = value + (value >= place);
    if (marked >= place)
    {
        wxVListBox::SetSelection(marked + 1);
    }
}

// The toolkit looks among the rows of the window only, of which there are none before it was first
// opened, and keeps the former selection where it finds none.
void ComboList::SetStringValue(const wxString& value)
{
    wxVListBoxComboPopup::SetStringValue(value);
    const bool isShown = m_value >= 0 && m_value < static_cast<int>(m_strings.size()) &&
                         m_strings[static_cast<size_t>(m_value)] == value;
    m_value = isShown ? m_value : m_strings.Index(value);
}

void ComboList::OnPopup()
{
    CALL_ENTRY("ComboList::OnPopup");
    wxVListBoxComboPopup::UpdateScrollbar();
    wxVListBoxComboPopup::OnPopup();
}

// Not for each of the items that come while it is closed.
void ComboList::UpdateScrollbar()
{
    if (!IsCreated() || m_combo->IsPopupShown())
    {
        wxVListBoxComboPopup::UpdateScrollbar();
    }
}

void ComboList::Key(wxKeyEvent& event)
{
    CALL_ENTRY("ComboList::Key");
    const int  key = event.GetKeyCode();
    const int  page = GetClientSize().y / std::max(1, OnGetRowHeight(0));
    const auto row = RowForKey(key, wxVListBox::GetSelection(), int(m_strings.size()), page);
    if (m_combo->IsKeyPopupToggle(event))
    {
        event.Skip();
    }
    else if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)
    {
        Choose();
    }
    else if (key == WXK_TAB)
    {
        ChooseAndLeave(!event.ShiftDown());
    }
    else if (row && !event.AltDown())
    {
        ShowRow(*this, *row, page);
        wxVListBox::SetSelection(*row);
    }
    else
    {
        event.Skip();
    }
}

// With Alt or Ctrl a letter is the menu's, not the beginning of an item.
void ComboList::OnComboCharEvent(wxKeyEvent& event)
{
    CALL_ENTRY("ComboList::OnComboCharEvent");
    if (event.HasModifiers())
    {
        event.Skip();
    }
    else
    {
        wxVListBoxComboPopup::OnComboCharEvent(event);
    }
}

void ComboList::Release(wxMouseEvent& event)
{
    CALL_ENTRY("ComboList::Release");
    if (VirtualHitTest(event.GetY()) == wxNOT_FOUND)
    {
        Dismiss();
    }
    else
    {
        Choose();
    }
}

// Whatever a handler does, the control is not touched after it has run.
void ComboList::Choose()
{
    StopPartialCompletion();
    const int item = wxVListBox::GetSelection();
    if (item == wxNOT_FOUND)
    {
        Dismiss();
        return;
    }
    const wxString      text = m_strings[static_cast<size_t>(item)];
    const bool          isNew = text != m_combo->GetValue();
    wxWeakRef<wxWindow> combo(m_combo);
    wxTextCtrl* const   field = m_combo->GetTextCtrl();
    wxVListBoxComboPopup::SetSelection(item);
    m_combo->ChangeValue(text);
    Dismiss();
    if (combo)
    {
        SendComboBoxEvent(item);
        if (field && isNew)
        {
            field->SetValue(text); // tells of the change
        }
    }
}

void ComboList::ChooseAndLeave(bool forward)
{
    const wxWeakRef<wxWindow> combo(m_combo);
    if (wxVListBox::GetSelection() == m_value)
    {
        Dismiss();
    }
    else
    {
        Choose();
    }
    if (combo)
    {
        combo->Navigate(forward ? wxNavigationKeyEvent::IsForward
                                : wxNavigationKeyEvent::IsBackward);
    }
}
} // namespace appearance
