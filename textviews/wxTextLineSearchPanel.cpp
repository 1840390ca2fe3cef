#include "textviews/wxTextLineSearchPanel.h"

#include "appearance/wxTolvanString.h"
#include "internal/input/PadKey.h"
#include "textviews/search/BackgroundSearch.h"
#include "textviews/search/SearchCompanion.h"
#include "textviews/search/SearchField.h"
#include "textviews/search/SearchHistory.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>

namespace
{
constexpr int kTypingDelay = 150; // milliseconds without a key after which it is looked for
} // namespace

wxTextLineSearchPanel::wxTextLineSearchPanel(wxTextLineCtrl* view, wxWindow* parent)
    : wxtPanel(parent),
      m_View(view),
      m_Search(std::make_unique<textviews::BackgroundSearch>(view->Lines(), [this] { OnLines(); })),
      m_History(std::make_unique<textviews::SearchHistory>())
{
    CALL_ENTRY("wxTextLineSearchPanel::wxTextLineSearchPanel");
    Hide();
    MakeControls();
    LayOutControls();
    BindEvents();
    Recall();
}

wxTextLineSearchPanel::~wxTextLineSearchPanel()
{
    if (m_View)
    {
        m_View->Watch(*m_Search, false);
        m_View->MarkHits(nullptr);
        m_View->ShowHitsInOverview(nullptr, false);
    }
}

// Lines that come cost the view nothing as long as nothing is looked for in them.
void wxTextLineSearchPanel::KeepWatch()
{
    if (m_View)
    {
        m_View->Watch(*m_Search, m_Search->IsActive());
    }
}

void wxTextLineSearchPanel::BindEvents()
{
    const auto find = [this](bool forward) { return [this, forward](auto&) { Find(forward); }; };
    m_Previous->Bind(wxEVT_BUTTON, find(false));
    m_Next->Bind(wxEVT_BUTTON, find(true));
    m_Stop->Bind(wxEVT_BUTTON,
                 [this](wxCommandEvent&)
                 {
                     StopSearch();
                     m_Field->SetFocus(); // disabled while it is clicked, the button has lost it
                 });
    m_Close->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Expand(); });
    m_Field->Bind(wxEVT_TEXT, &wxTextLineSearchPanel::OnTextChanged, this);
    for (wxtCheckBox* const choice : {m_MatchCase, m_WholeWords, m_Expression})
    {
        choice->Bind(wxEVT_CHECKBOX, &wxTextLineSearchPanel::OnTextChanged, this);
    }
    m_MarkAll->Bind(wxEVT_CHECKBOX,
                    [this](wxCommandEvent&)
                    {
                        Remember();
                        MarkHits();
                    });
    m_AsYouType->Bind(wxEVT_CHECKBOX,
                      [this](wxCommandEvent& event)
                      {
                          Remember();
                          OnTextChanged(event);
                      });
    m_OnlyMatching->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { OnOnlyMatching(); });
    m_TypingTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { FindTyped(); });
    Bind(wxEVT_CHAR_HOOK, &wxTextLineSearchPanel::OnKey, this);
    Bind(wxEVT_SIZE, &wxTextLineSearchPanel::OnSize, this);
    m_Message->Bind(wxEVT_SIZE,
                    [this](wxSizeEvent& event)
                    {
                        event.Skip();
                        FitMessage();
                    });
    Bind(wxEVT_IDLE, &wxTextLineSearchPanel::OnIdle, this);
}

void wxTextLineSearchPanel::Expand()
{
    CALL_ENTRY("wxTextLineSearchPanel::Expand");
    const bool                             show = !IsShown();
    const wxWeakRef<wxTextLineSearchPanel> self(this);
    if (!show)
    {
        StopSearch();
        m_TypingTimer.Stop();
        m_FirstScroll = -1;
        m_Search->Count(false);
        KeepWatch();
        if (m_View)
        {
            m_View->SetFocus(); // before what has the keyboard is hidden
        }
        if (!self)
        {
            return; // whoever has heard of the focus has closed the page
        }
    }
    Show(show);
    MarkHits();
    if (GetParent())
    {
        GetParent()->Layout();
    }
    if (show)
    {
        m_Field->SetFocus();
        if (self)
        {
            m_Field->SelectAll();
            Recall();
            LookAnew();
        }
    }
}

void wxTextLineSearchPanel::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxTextLineSearchPanel::OnKey");
    const int  key = event.GetKeyCode();
    const bool enter = (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && m_Field->HasFocus();
    if (enter || key == WXK_F3)
    {
        Find(!event.ShiftDown());
    }
    else if (key == WXK_ESCAPE && IsSearching())
    {
        StopSearch();
    }
    else if (key == 'F' && event.ControlDown() && event.ShiftDown() && OffersOnlyMatching())
    {
        ToggleOnlyMatching();
    }
    else if (key == WXK_ESCAPE || (key == 'F' && event.ControlDown()))
    {
        Expand();
    }
    else if (!RunReadingCommand(event) &&
             (event.HasAnyModifiers() || !WalkHistory(internal::OffThePad(key))))
    {
        event.Skip();
    }
}

// As in the view: whoever looks for something goes on to the next error, too.
bool wxTextLineSearchPanel::RunReadingCommand(const wxKeyEvent& event)
{
    const int id = wxTextLineCtrl::ReadingCommandOf(event);
    if (id == wxID_NONE || !m_View || !m_View->OffersReadingCommands())
    {
        return false;
    }
    wxCommandEvent command(wxEVT_MENU, id);
    m_View->OnMenu(command);
    return true;
}

void wxTextLineSearchPanel::OnTextChanged(wxCommandEvent&)
{
    CALL_ENTRY("wxTextLineSearchPanel::OnTextChanged");
    LookAnew();
    if (GetAsYouType() && IsShown())
    {
        m_TypingTimer.StartOnce(kTypingDelay);
    }
}

textviews::SearchQuery wxTextLineSearchPanel::Query() const
{
    return {wxtFromWx(GetText()), GetMatchCase(), GetWholeWords(), GetExpression()};
}

// What is looked for has become another: what was found of it, too.
void wxTextLineSearchPanel::LookAnew()
{
    StopSearch();
    m_TypingTimer.Stop();
    ShowMessage(wxEmptyString);
    StartCounting();
    ShowProblem();
    MarkHits();
    TellCompanion();
}

// The next hit from the one that is shown.
void wxTextLineSearchPanel::Find(bool forward)
{
    CALL_ENTRY("wxTextLineSearchPanel::Find");
    if (m_View)
    {
        Find(forward, m_View->SearchStart(forward, m_Search->LooksAtShown()));
    }
}

void wxTextLineSearchPanel::FindFrom(int line)
{
    CALL_ENTRY("wxTextLineSearchPanel::FindFrom");
    Find(true, {line, 0});
}

void wxTextLineSearchPanel::Find(bool forward, const textviews::SearchPlace& start)
{
    m_TypingTimer.Stop();
    if (!m_View || GetText().empty())
    {
        return;
    }
    m_FirstScroll = -1; // from now on the place is that of the hit
    m_FindsTyped = false;
    RememberText();
    Begin(forward, start);
}

// What is typed shows its first hit from where the view stood before it was typed. Whoever scrolls
// meanwhile begins there.
void wxTextLineSearchPanel::FindTyped()
{
    if (!m_View)
    {
        return;
    }
    if (m_FirstScroll < 0 || m_View->GetScrollPos(wxVERTICAL) != m_TypedScroll)
    {
        m_FirstScroll = m_TypedScroll = m_View->GetScrollPos(wxVERTICAL);
        m_FirstLine = m_View->VisibleStart(true).line;
    }
    m_FindsTyped = true;
    if (GetText().empty() || m_Search->Problem().text)
    {
        FinishTyped(false);
        return;
    }
    Begin(true, {m_FirstLine, 0});
}

// What is not found leaves the view where it was before.
void wxTextLineSearchPanel::FinishTyped(bool found)
{
    if (!m_FindsTyped || !m_View)
    {
        return;
    }
    m_FindsTyped = false;
    if (!found)
    {
        m_View->SetScrollPos(wxVERTICAL, m_FirstScroll);
    }
    m_TypedScroll = m_View->GetScrollPos(wxVERTICAL);
}

void wxTextLineSearchPanel::Begin(bool forward, const textviews::SearchPlace& start)
{
    m_Search->SetQuery(Query());
    if (ShowProblem())
    {
        ShowOutcome();
        return;
    }
    ShowMessage(wxEmptyString);
    m_Search->Find(forward, start);
    // Most searches end within the first slice: no need to show that one runs.
    m_Search->Work();
    KeepWatch();
    if (!IsSearching())
    {
        FinishSearch();
        return;
    }
    ShowSearching(true);
    wxWakeUpIdle();
}

void wxTextLineSearchPanel::StopSearch()
{
    CALL_ENTRY("wxTextLineSearchPanel::StopSearch");
    if (IsSearching())
    {
        m_Search->StopSearch();
        m_FindsTyped = false;
        KeepWatch();
        ShowSearching(false);
        ShowMessage(wxEmptyString);
    }
}

bool wxTextLineSearchPanel::IsSearching() const
{
    return m_Search->IsSearching();
}

void wxTextLineSearchPanel::OnIdle(wxIdleEvent& event)
{
    event.Skip();
    if (!m_View)
    {
        return;
    }
    // One slice at a time, the one's or the other's.
    m_IsCompanionsTurn =
        m_Companion && m_Companion->HasWork() && !(m_IsCompanionsTurn && HasOwnWork());
    if (m_IsCompanionsTurn)
    {
        m_Companion->Work();
        event.RequestMore(CanGoOn());
        return;
    }
    if (IsSearching())
    {
        m_Search->Work();
        if (!IsSearching())
        {
            KeepWatch();
            FinishSearch();
        }
        event.RequestMore(CanGoOn());
    }
    else if (m_Search->HasCount())
    {
        m_Search->SetCurrent(m_View->ShownHit(m_Search->LooksAtShown()));
        if (m_Search->HasWork())
        {
            m_Search->Work();
            ShowHits();
            event.RequestMore(CanGoOn());
        }
    }
}

// What waits for a disk is woken by the view's store.
bool wxTextLineSearchPanel::CanGoOn() const
{
    return (HasOwnWork() && !m_Search->IsWaiting()) ||
           (m_Companion && m_Companion->HasWork() && !m_Companion->IsWaiting());
}

bool wxTextLineSearchPanel::HasOwnWork() const
{
    return m_Search->HasWork();
}

void wxTextLineSearchPanel::StartCounting()
{
    m_Search->SetQuery(Query());
    m_Search->Count(true);
    KeepWatch();
    if (IsCounting())
    {
        wxWakeUpIdle();
    }
    ShowHits();
}

void wxTextLineSearchPanel::LookAtShown(bool shown)
{
    CALL_ENTRY("wxTextLineSearchPanel::LookAtShown");
    if (shown == m_Search->LooksAtShown())
    {
        return;
    }
    StopSearch();
    m_Search->LookAtShown(shown);
    MarkHits();
    KeepWatch();
    ShowHits();
    TellCompanion();
    wxWakeUpIdle();
}

// Only while the bar shows what they are of.
void wxTextLineSearchPanel::MarkHits()
{
    if (m_View)
    {
        m_View->MarkHits(IsShown() && GetMarkAll() ? m_Search->Finder() : nullptr);
        m_View->ShowHitsInOverview(IsShown() ? m_Search->Finder() : nullptr,
                                   m_Search->LooksAtShown());
    }
}

wxString wxTextLineSearchPanel::GetText() const
{
    return m_Field->GetValue();
}

void wxTextLineSearchPanel::SetText(const wxString& text)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetText");
    m_Field->SetValue(text);
}

// As if the user had done so, but for what is remembered.
void wxTextLineSearchPanel::Choose(wxtCheckBox* choice, bool on)
{
    if (on != choice->GetValue())
    {
        choice->SetValue(on);
        LookAnew();
    }
}

bool wxTextLineSearchPanel::GetMatchCase() const
{
    return m_MatchCase->GetValue();
}

void wxTextLineSearchPanel::SetMatchCase(bool matchCase)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetMatchCase");
    Choose(m_MatchCase, matchCase);
}

bool wxTextLineSearchPanel::GetWholeWords() const
{
    return m_WholeWords->GetValue();
}

void wxTextLineSearchPanel::SetWholeWords(bool wholeWords)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetWholeWords");
    Choose(m_WholeWords, wholeWords);
}

bool wxTextLineSearchPanel::GetExpression() const
{
    return m_Expression->GetValue();
}

void wxTextLineSearchPanel::SetExpression(bool expression)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetExpression");
    Choose(m_Expression, expression);
}

bool wxTextLineSearchPanel::GetMarkAll() const
{
    return m_MarkAll->GetValue();
}

void wxTextLineSearchPanel::SetMarkAll(bool markAll)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetMarkAll");
    Choose(m_MarkAll, markAll);
}

bool wxTextLineSearchPanel::GetAsYouType() const
{
    return m_AsYouType->GetValue();
}

void wxTextLineSearchPanel::SetAsYouType(bool asYouType)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetAsYouType");
    Choose(m_AsYouType, asYouType);
}
