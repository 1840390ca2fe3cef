#pragma once

#include "appearance/wxTolvanColors.h"

class wxDBListCtrl;
class wxtSearchField;

/// A search field above a list: Ctrl+F in the list opens it, Esc in either clears it first and then
/// closes it. A closed one is empty: everything is shown.
class FilterBar : public wxtPanel
{
public:
    /// Hidden at first. The list must outlive the bar, and has the same parent.
    FilterBar(wxWindow* parent, wxDBListCtrl& list, const wxString& hint);

    wxtSearchField& GetField() const { return *m_Field; } ///< For the list to follow.
    void            Open();                               ///< Shows it and goes there.
    void            Close();

private:
    void OnKey(wxKeyEvent& event);
    void OnListKey(wxKeyEvent& event);
    void StepBack();
    void ShowBar(bool show);

    wxDBListCtrl&   m_List;
    wxtSearchField* m_Field;
};
