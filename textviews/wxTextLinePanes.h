#pragma once

#include "appearance/wxtSplitterWindow.h"
#include "vesta/Export.h"

#include <wx/weakref.h>

class wxTextLineCtrl;
class wxTextLineSearchPanel;
class wxtPanel;
namespace textviews
{
class MatchesView;
}

/// A text view with its search bar, and below, while the user wants that, only those of its lines
/// that match what the bar looks for ("Only Matching Lines", Ctrl+Shift+F), with some lines around
/// them. A click or Enter on one goes there in the view. The lines below follow the view as lines
/// come and go; what is copied and saved there is they, byte for byte. The sash between the two
/// moves; how high the lower one is, how many lines are around matches, and whether it is wanted at
/// all is remembered in the program's options, section "TextSearch". Main thread only.
class TOLVAN_API wxTextLinePanes : public wxtSplitterWindow
{
public:
    /// Most lines before, and after, each match.
    static constexpr int k_MostAround = 1000;

    explicit wxTextLinePanes(wxWindow* parent);
    ~wxTextLinePanes() override;

    /// Where the host makes the view.
    wxWindow* GetViewParent() const;
    /// Lays out the view, which was made there, and its bar. For one view; it may go before.
    void ShowView(wxTextLineCtrl* view);

    /// Shows the lines that match, or no longer, as the user may; it is not remembered.
    void SetOnlyMatching(bool on);
    bool GetOnlyMatching() const;
    /// The view of those lines; null while it is not there. Nobody may add lines to it.
    wxTextLineCtrl* GetMatches() const;
    bool            IsMatchingComplete() const; ///< No lines are left to be looked at.

    /// Lines to be shown before and after each that matches; not remembered.
    void SetLinesAround(int before, int after);
    int  GetLinesBefore() const { return m_Before; }
    int  GetLinesAfter() const { return m_After; }

    /// Of the lower pane, pixels; not remembered.
    void SetMatchesHeight(int height);
    int  GetMatchesHeight() const { return m_Height; }

private:
    void                    Recall();
    void                    ShowMatches(bool show);
    int                     LeastUpper() const;
    void                    PlaceSash();
    void                    OnPaneSize(wxSizeEvent& event);
    void                    OnSashMoved(wxSplitterEvent& event);
    void                    OnPaneKey(wxKeyEvent& event);
    textviews::MatchesView* Matches() const;

    wxtPanel*           m_Upper;
    wxWeakRef<wxWindow> m_View;
    wxWeakRef<wxWindow> m_Matches;
    int                 m_Height;
    bool                m_IsDragged = false; ///< The sash, by the user.
    int                 m_Before = 0;
    int                 m_After = 0;
};
