#pragma once

#include "appearance/wxTolvanColors.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/timer.h>
#include <wx/weakref.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace textviews
{
class BackgroundSearch;
class FollowButton;
class SearchCompanion;
class SearchField;
class SearchHistory;
struct SearchPlace;
struct SearchQuery;
} // namespace textviews
class wxBoxSizer;
class wxTextLineCtrl;

/// What a search bar looks for, and how: what a host keeps to bring it back. A plain value.
struct TOLVAN_API wxTextSearchState
{
    wxString text;
    bool     matchCase = false;
    bool     wholeWords = false;
    bool     expression = false;
    bool     isOpen = false;       ///< The bar is shown.
    bool     onlyMatching = false; ///< So is the pane with matching lines, where there is one.
};

/// The search bar of a text view: a field, previous and next, what a hit is ("Match Case", "Whole
/// Words", "Regular Expression"), whether all hits are marked and whether one looks while typing,
/// the number of the hit that is shown and of all, notices, a button that closes it, and in the bar
/// of a view with a button to follow its end another one for that. Enter
/// looks for the next hit, Shift+Enter for the previous one, Up and Down bring back what was looked
/// for, Esc stops a search and closes. A search through many lines runs in slices while the window
/// stays alive, and its button stops it. Where all that does not fit into one row there are more,
/// and the bar is higher. It keeps in the program's options what was looked for, and whether all
/// are marked and one looks while typing. Main thread only.
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
    /// The same, for the first hit in this line or a later one.
    void FindFrom(int line);
    /// Ends a search that runs; what was hit before stays.
    void StopSearch();
    bool IsSearching() const;

    wxString GetText() const;
    void     SetText(const wxString& text);

    /// @name What a hit is
    /// All off at first.
    /// @{
    bool GetMatchCase() const;
    void SetMatchCase(bool matchCase);
    bool GetWholeWords() const;
    /// No letter, digit or underscore stands right before or after a hit.
    void SetWholeWords(bool wholeWords);
    bool GetExpression() const;
    /// The text is a regular expression. One that is none finds nothing, and the bar says why.
    void SetExpression(bool expression);
    /// @}

    /// @name To bring it back
    /// @{
    wxTextSearchState GetState() const;
    /// Nothing is gone to, the keyboard stays where it is, and nothing of it is remembered as what
    /// the user has chosen.
    void SetState(const wxTextSearchState& state);
    /// @}

    /// @name Ways to look
    /// Off until the user wants them, or a host; what the user wants is remembered.
    /// @{
    bool GetMarkAll() const;
    void SetMarkAll(bool markAll); ///< All hits that are seen are marked while the bar is open.
    bool GetAsYouType() const;
    /// Typing shows the first hit from the first line on that was seen then; nothing else moves the
    /// place, before Enter.
    void SetAsYouType(bool asYouType);
    /// @}

    /// @name Only matching lines
    /// For a host that has a place for them, as `wxTextLinePanes`: the bar offers the choice, and
    /// whoever shows the lines goes along with it; both null for none.
    /// @{
    void OfferOnlyMatching(std::function<void(bool)> onChoice);
    bool OffersOnlyMatching() const { return m_OnOnlyMatching != nullptr; }
    bool GetOnlyMatching() const;
    void SetOnlyMatching(bool on);
    void ToggleOnlyMatching(); ///< As if the user had: it is remembered.
    void Accompany(textviews::SearchCompanion* companion);
    /// @}

    /// @name Called by the view
    /// @{
    void ShowFollowButton(bool show); ///< Whether the bar has one.
    void ShowFollowing(bool following);
    /// Whether hits are those in what is shown of the lines, or in their bytes.
    void LookAtShown(bool shown);
    /// @}

    int      GetHits() const;    ///< All, as far as they are counted.
    int      GetCurrent() const; ///< The number of the one that is shown; 0 when it is not known.
    bool     IsCounting() const; ///< Lines are left to be counted.
    wxString GetMessage() const; ///< The notice that is shown; empty for none.

    /// Rows for the width that the parent's sizer is about to give.
    bool InformFirstDirection(int direction, int size, int availableOtherDir) override;

private:
    void                      MakeControls();
    void                      LayOutControls();
    void                      FitParts();
    std::vector<wxtCheckBox*> Choices() const;
    std::vector<int>          WidthsOfParts() const;
    bool                      ArrangeRows(int width);
    void                      PutIntoRows(const std::vector<int>& rows);
    void                      BindEvents();
    void                      OnKey(wxKeyEvent& event);
    void                      OnSize(wxSizeEvent& event);
    void                      OnIdle(wxIdleEvent& event);
    void                      OnTextChanged(wxCommandEvent& event);

    textviews::SearchQuery Query() const;
    void                   Choose(wxtCheckBox* choice, bool on);
    void                   LookAnew();
    void                   OnLines();
    void                   KeepWatch();
    void                   Find(bool forward, const textviews::SearchPlace& start);
    void                   Begin(bool forward, const textviews::SearchPlace& start);
    void                   FindTyped();
    void                   FinishSearch();
    void                   FinishTyped(bool found);
    bool                   ShowProblem();
    void                   ShowOutcome();
    void                   StartCounting();
    void                   MarkHits();

    bool HasOwnWork() const;
    bool CanGoOn() const;
    void TellCompanion();
    void OnOnlyMatching();

    void     Recall();
    void     Remember();
    void     RememberText();
    bool     WalkHistory(int key);
    bool     RunReadingCommand(const wxKeyEvent& event);
    wxString TextFor(int64_t hits, int64_t current, bool counted) const;
    void     ShowHits();
    void     ShowNoHit();
    void     ShowMessage(const wxString& notice, const wxString& text = wxEmptyString);
    void     FitMessage();
    void     ShowSearching(bool searching);

    wxWeakRef<wxTextLineCtrl>                    m_View;
    std::unique_ptr<textviews::BackgroundSearch> m_Search;
    std::unique_ptr<textviews::SearchHistory>    m_History;
    textviews::SearchField*                      m_Field = nullptr;
    wxtButton*                                   m_Previous = nullptr;
    wxtButton*                                   m_Next = nullptr;
    textviews::FollowButton*                     m_Follow = nullptr;
    wxtButton*                                   m_Stop = nullptr;
    wxtCheckBox*                                 m_MatchCase = nullptr;
    wxtCheckBox*                                 m_WholeWords = nullptr;
    wxtCheckBox*                                 m_Expression = nullptr;
    wxtCheckBox*                                 m_MarkAll = nullptr;
    wxtCheckBox*                                 m_AsYouType = nullptr;
    wxtCheckBox*                                 m_OnlyMatching = nullptr;
    std::function<void(bool)>                    m_OnOnlyMatching; ///< None: it is not offered.
    textviews::SearchCompanion*                  m_Companion = nullptr;
    bool                                         m_IsCompanionsTurn = false;
    wxtStaticText*                               m_HitCount = nullptr;
    wxtStaticText*                               m_Message = nullptr;
    wxtBitmapButton*                             m_Close = nullptr;
    wxString         m_Notice;     ///< What the message says; "%s" stands for the text.
    wxString         m_NoticeText; ///< The text that it is about; empty for none.
    wxBoxSizer*      m_Rows = nullptr;
    wxBoxSizer*      m_FieldPart = nullptr;   ///< What is looked for,
    wxBoxSizer*      m_OutcomePart = nullptr; ///< and what came of it.
    std::vector<int> m_RowOfPart;             ///< Of these two and of what stands between them.

    /// @name Looking while typing
    /// @{
    wxTimer m_TypingTimer;
    bool    m_FindsTyped = false; ///< The search that runs is one of those.
    int     m_FirstScroll = -1;   ///< Where the view stood before the first, pixels; -1: none yet.
    int     m_FirstLine = 0;      ///< The first line that was seen there.
    int     m_TypedScroll = 0;    ///< Where the latest one has left the view.
    /// @}
};
