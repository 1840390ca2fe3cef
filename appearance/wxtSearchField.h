#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/weakref.h>

#include <vector>

class wxStaticText;
class wxTextCtrl;

/// A field for what is looked for, in the colours of the scheme: with a hint while it is empty, a
/// button that clears it while it is not, and a note of how much was found. It sends `wxEVT_TEXT`
/// with every change of its text. Esc clears it; in an empty one Esc is the host's. Main thread.
class TOLVAN_API wxtSearchField : public wxtPanel
{
public:
    explicit wxtSearchField(wxWindow* parent, wxWindowID id = wxID_ANY,
                            const wxString& hint = wxEmptyString,
                            const wxPoint&  position = wxDefaultPosition,
                            const wxSize&   size = wxDefaultSize);

    wxString GetValue() const;
    void     SetValue(const wxString& text);    ///< Sends `wxEVT_TEXT`.
    void     ChangeValue(const wxString& text); ///< Sends nothing.
    /// The note "12 of 1,034 shown", or as much of it as there is room for; a negative total: none.
    void     SetShown(int shown, int total);
    wxString GetNote() const; ///< What there is room for.
    /// The Down key gives the keyboard to that window; null: it does not.
    void SetNext(wxWindow* next) { m_Next = next; }

    wxTextCtrl* GetField() const; ///< What is typed into.

protected:
    wxSize DoGetBestSize() const override;

private:
    class _Field;
    class _ClearButton;

    void OnText(wxCommandEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnPaint(wxPaintEvent& event);
    void Clear();
    void LayOut();
    int  FitNote(int room);

    _Field*               m_Field = nullptr;
    _ClearButton*         m_Clear = nullptr;
    wxStaticText*         m_Note = nullptr;
    std::vector<wxString> m_Notes; ///< The note, and its shorter forms.
    wxWeakRef<wxWindow>   m_Next;
};
