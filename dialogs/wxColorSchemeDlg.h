#pragma once

#include "dialogs/wxTolvanDlg.h"
#include "vesta/Export.h"

#include <wx/timer.h>

#include <memory>

class wxtButton;
class wxtTextCtrl;

namespace dialogs
{
class ColourList;
class ColourSample;
class PairList;
struct SchemeEdit;
} // namespace dialogs

/// Edits the colours of the custom scheme: each by its value or from a picker, all of them from a
/// preset or a file, with undo, and with the contrast of each text that the library shows. While it
/// is open the custom scheme is on in all programs, and they show every change. Confirmed it leaves
/// that and "Colors.ini" so; else scheme and colours are what they were. One program at a time has
/// it. A modal dialog; main thread.
class TOLVAN_API wxColorSchemeDlg : public wxTolvanDlg
{
public:
    explicit wxColorSchemeDlg(wxWindow* parent);
    ~wxColorSchemeDlg() override;

    /// `wxID_OK`, or something else when scheme and colours are what they were. A file that cannot
    /// be read or written, or that another program edits, is told of, and nothing is edited.
    int  ShowModal() override;
    bool Show(bool show = true) override;
    /// Whether the field holds a colour; the dialog calls it on OK.
    bool Validate() override;
    /// Writes the colours. The dialog calls it on OK.
    bool TransferDataFromWindow() override;

private:
    /// @name Building
    /// @{
    wxSizer*       NewActions();
    wxSizer*       NewColours();
    wxSizer*       NewPairs();
    wxSizer*       NewValueRow();
    wxtButton*     NewButton(const wxString& label, void (wxColorSchemeDlg::*act)());
    wxtStaticText* NewOneLine(const String& colourName);
    /// @}

    bool   Begin();
    void   TakeBack(int scheme);
    size_t Row() const; ///< The colour that is edited.

    /// @name Showing
    /// @{
    void ShowColours();
    void ShowValue();
    void ShowPresent(); ///< What undo, redo or a new step has come to.
    void ApplySoon();
    bool Apply(); ///< False: it could not be written, and the user reads why.
    /// @}

    /// @name What the user does
    /// @{
    void Change(const wxColour& colour, int deed);
    void StartFromMenu();
    void Import();
    void Export();
    void Undo();
    void Redo();
    void Pick();
    void OnValue(wxCommandEvent& event);
    void OnShortcut(wxKeyEvent& event);
    /// @}

    std::unique_ptr<dialogs::SchemeEdit> m_Edit;
    wxTimer                              m_Timer; ///< Runs while there is something to apply.

    dialogs::ColourList*   m_Colours = nullptr;
    dialogs::PairList*     m_Pairs = nullptr;
    wxtStaticText*         m_Name = nullptr;
    dialogs::ColourSample* m_Sample = nullptr;
    wxtTextCtrl*           m_Value = nullptr;
    wxtStaticText*         m_Note = nullptr;    ///< What is wrong with the value.
    wxtStaticText*         m_Summary = nullptr; ///< How many texts are hard to read.
    wxtButton*             m_Start = nullptr;
    wxtButton*             m_Undo = nullptr;
    wxtButton*             m_Redo = nullptr;
};
