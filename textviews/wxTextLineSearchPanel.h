#pragma once

#include "appearance/wxTolvanColors.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/weakref.h>

#include <memory>

namespace textviews
{
class BackgroundSearch;
}
class wxBoxSizer;
class wxTextLineCtrl;
class wxtTextCtrl;

/// The search bar of a text view: a field, previous and next, "Match Case", the number of lines
/// with a hit, notices, and a button that closes it. Enter looks for the next hit, Shift+Enter for
/// the previous one, Esc closes. A search through many lines runs in slices while the window stays
/// alive, and its button stops it. Where all that does not fit into one row there are two, and the
/// bar is higher. Main thread only.
class TOLVAN_API wxTextLineSearchPanel : public wxtPanel
{
public:
    /// Hidden at first. View and bar may be destroyed in either order.
    wxTextLineSearchPanel(wxTextLineCtrl* view, wxWindow* parent);
    ~wxTextLineSearchPanel() override;

    /// Shows the bar and puts the keyboard into its field; or hides it, stops a search and gives
    /// the keyboard back to the view. Lays the parent out.
    void Expand();

    /// Begins to look for the field's text; the result comes later.
    void Find(bool forward);
    /// Ends a search that runs; what was hit before stays.
    void StopSearch();
    bool IsSearching() const;

    wxString GetText() const;
    void     SetText(const wxString& text);
    bool     GetMatchCase() const;
    void     SetMatchCase(bool matchCase);
    int      GetHits() const;    ///< Lines with a hit, as far as they are counted.
    bool     IsCounting() const; ///< Lines are left to be counted.
    wxString GetMessage() const; ///< The notice that is shown; empty for none.

    /// Rows for the width that the parent's sizer is about to give.
    bool InformFirstDirection(int direction, int size, int availableOtherDir) override;

private:
    void MakeControls();
    void LayOutControls();
    int  WidthOfOneRow() const;
    bool ArrangeRows(int width);
    void BindEvents();
    void OnKey(wxKeyEvent& event);
    void OnSize(wxSizeEvent& event);
    void OnIdle(wxIdleEvent& event);
    void OnTextChanged(wxCommandEvent& event);

    void            OnLines();
    void            KeepWatch();
    void            FinishSearch();
    void            ShowOutcome();
    void            StartCounting();
    void            ShowHits();
    static wxString HitsText(int hits, bool counted);
    void            ShowMessage(const wxString& notice, const wxString& text = wxEmptyString);
    void            FitMessage();
    void            ShowSearching(bool searching);

    wxWeakRef<wxTextLineCtrl>                    m_View;
    std::unique_ptr<textviews::BackgroundSearch> m_Search;
    wxtTextCtrl*                                 m_Field = nullptr;
    wxtButton*                                   m_Previous = nullptr;
    wxtButton*                                   m_Next = nullptr;
    wxtButton*                                   m_Stop = nullptr;
    wxtCheckBox*                                 m_MatchCase = nullptr;
    wxtStaticText*                               m_HitCount = nullptr;
    wxtStaticText*                               m_Message = nullptr;
    wxtBitmapButton*                             m_Close = nullptr;
    wxString    m_Notice;         ///< What the message says; "%s" stands for the text.
    wxString    m_NoticeText;     ///< The text that it is about; empty for none.
    wxBoxSizer* m_Rows = nullptr; ///< What is looked for, and what came of it.
};
