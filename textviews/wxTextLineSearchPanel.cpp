#include "textviews/wxTextLineSearchPanel.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtTextCtrl.h"
#include "textviews/search/BackgroundSearch.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>

wxTextLineSearchPanel::wxTextLineSearchPanel(wxTextLineCtrl* view, wxWindow* parent)
    : wxtPanel(parent),
      m_View(view),
      m_Search(std::make_unique<textviews::BackgroundSearch>(view->Lines(), [this] { OnLines(); }))
{
    CALL_ENTRY("wxTextLineSearchPanel::wxTextLineSearchPanel");
    Hide();
    MakeControls();
    LayOutControls();
    BindEvents();
}

wxTextLineSearchPanel::~wxTextLineSearchPanel()
{
    if (m_View)
    {
        m_View->Watch(*m_Search, false);
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
    m_MatchCase->Bind(wxEVT_CHECKBOX, &wxTextLineSearchPanel::OnTextChanged, this);
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
        m_Search->Count(String(), false);
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
            StartCounting();
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
    else if (key == WXK_ESCAPE || (key == 'F' && event.ControlDown()))
    {
        Expand();
    }
    else
    {
        event.Skip();
    }
}

void wxTextLineSearchPanel::OnTextChanged(wxCommandEvent&)
{
    CALL_ENTRY("wxTextLineSearchPanel::OnTextChanged");
    StopSearch();
    ShowMessage(wxEmptyString);
    StartCounting();
}

void wxTextLineSearchPanel::Find(bool forward)
{
    CALL_ENTRY("wxTextLineSearchPanel::Find");
    const String text = wxtFromWx(GetText());
    if (!m_View || text.empty())
    {
        return;
    }
    ShowMessage(wxEmptyString);
    m_Search->Find(text, forward, GetMatchCase(), m_View->SearchStart(forward));
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
        KeepWatch();
        ShowSearching(false);
        ShowMessage(wxEmptyString);
    }
}

bool wxTextLineSearchPanel::IsSearching() const
{
    return m_Search->IsSearching();
}

// The count follows the lines in idle time, the label with it. A search may have lost them all.
void wxTextLineSearchPanel::OnLines()
{
    if (!IsSearching() && m_Stop->IsShown())
    {
        ShowSearching(false);
        ShowMessage(wxEmptyString);
    }
    wxWakeUpIdle();
}

// To whoever has asked by a key of the view while the bar is closed.
void wxTextLineSearchPanel::ShowOutcome()
{
    if (!IsShown())
    {
        Show();
        if (GetParent())
        {
            GetParent()->Layout();
        }
    }
}

void wxTextLineSearchPanel::FinishSearch()
{
    ShowSearching(false);
    const textviews::LineSearch& search = m_Search->Outcome();
    if (search.GetState() == textviews::LineSearch::State::NotFound)
    {
        ShowMessage(_("'%s' not found in that direction"), GetText());
        ShowOutcome();
        return;
    }
    m_View->ShowHit(search.Match());
    ShowMessage(!search.HasWrapped() ? wxString()
                : search.IsForward() ? _("Went on from the top")
                                     : _("Went on from the bottom"));
}

void wxTextLineSearchPanel::OnIdle(wxIdleEvent& event)
{
    event.Skip();
    if (!m_View)
    {
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
        event.RequestMore();
    }
    else if (IsCounting())
    {
        m_Search->Work();
        ShowHits();
        event.RequestMore(IsCounting());
    }
}

void wxTextLineSearchPanel::StartCounting()
{
    m_Search->Count(wxtFromWx(GetText()), GetMatchCase());
    KeepWatch();
    if (IsCounting())
    {
        wxWakeUpIdle();
    }
    ShowHits();
}

void wxTextLineSearchPanel::ShowHits()
{
    wxString text;
    if (m_Search->HasCount())
    {
        text = HitsText(GetHits(), !IsCounting());
    }
    if (text != m_HitCount->GetLabel())
    {
        m_HitCount->SetLabel(text);
        Layout();
    }
}

void wxTextLineSearchPanel::ShowSearching(bool searching)
{
    if (searching)
    {
        ShowMessage(_("Searching") + wxString::FromUTF8("\u2026"));
    }
    if (m_Stop->IsShown() != searching)
    {
        if (m_Stop->HasFocus())
        {
            m_Field->SetFocus(); // a button that goes would take the keyboard with it
        }
        m_Stop->Show(searching);
        Layout();
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

bool wxTextLineSearchPanel::GetMatchCase() const
{
    return m_MatchCase->GetValue();
}

void wxTextLineSearchPanel::SetMatchCase(bool matchCase)
{
    CALL_ENTRY("wxTextLineSearchPanel::SetMatchCase");
    if (matchCase != GetMatchCase())
    {
        m_MatchCase->SetValue(matchCase);
        StartCounting();
    }
}

int wxTextLineSearchPanel::GetHits() const
{
    return m_Search->Hits();
}

bool wxTextLineSearchPanel::IsCounting() const
{
    return m_Search->IsCounting();
}
