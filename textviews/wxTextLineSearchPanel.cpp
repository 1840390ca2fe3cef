#include "textviews/wxTextLineSearchPanel.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtTextCtrl.h"
#include "textviews/lines/LineStore.h"
#include "textviews/search/LineSearch.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>

#include <chrono>

namespace
{
constexpr auto   kSlice = std::chrono::milliseconds(5);
constexpr size_t kStepBytes = 128 * 1024; // looked at between two looks at the clock

// Repeats the step until it says that it is done (true) or the slice of time is over (false).
template <class Step> bool WorkForASlice(Step step)
{
    const auto end = std::chrono::steady_clock::now() + kSlice;
    do
    {
        if (step())
        {
            return true;
        }
    } while (std::chrono::steady_clock::now() < end);
    return false;
}
} // namespace

/// What goes on in idle time.
struct wxTextLineSearchPanel::Work
{
    textviews::LineSearch search;
    textviews::HitCounter counter;
    bool                  counted = true; ///< Nothing is left to count.
};

wxTextLineSearchPanel::wxTextLineSearchPanel(wxTextLineCtrl* view, wxWindow* parent)
    : wxtPanel(parent), m_View(view), m_Work(std::make_unique<Work>())
{
    CALL_ENTRY("wxTextLineSearchPanel::wxTextLineSearchPanel");
    Hide();
    MakeControls();
    LayOutControls();
    BindEvents();
}

wxTextLineSearchPanel::~wxTextLineSearchPanel() = default;

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
        m_Work->counter.Stop();
        m_Work->counted = true;
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
    m_Work->search.Begin(text, forward, GetMatchCase(), m_View->SearchStart(forward));
    // Most searches end within the first slice: no need to show that one runs.
    if (WorkOnSearch())
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
        m_Work->search.Stop();
        ShowSearching(false);
        ShowMessage(wxEmptyString);
    }
}

bool wxTextLineSearchPanel::IsSearching() const
{
    return m_Work->search.GetState() == textviews::LineSearch::State::Running;
}

// True when it has come to an end.
bool wxTextLineSearchPanel::WorkOnSearch()
{
    const auto step = [this]
    {
        return m_Work->search.Step(*m_View->m_Lines, kStepBytes) !=
               textviews::LineSearch::State::Running;
    };
    return WorkForASlice(step);
}

void wxTextLineSearchPanel::FinishSearch()
{
    ShowSearching(false);
    const textviews::LineSearch& search = m_Work->search;
    if (search.GetState() == textviews::LineSearch::State::NotFound)
    {
        ShowMessage(_("'%s' not found in that direction"), GetText());
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
        if (WorkOnSearch())
        {
            FinishSearch();
        }
        event.RequestMore();
    }
    else if (!m_Work->counted)
    {
        m_Work->counted =
            WorkForASlice([this] { return m_Work->counter.Step(*m_View->m_Lines, kStepBytes); });
        ShowHits();
        event.RequestMore(!m_Work->counted);
    }
}

void wxTextLineSearchPanel::StartCounting()
{
    const String text = wxtFromWx(GetText());
    if (text.empty())
    {
        m_Work->counter.Stop();
        m_Work->counted = true;
    }
    else
    {
        m_Work->counter.Begin(text, GetMatchCase());
        m_Work->counted = false;
        wxWakeUpIdle();
    }
    ShowHits();
}

void wxTextLineSearchPanel::ShowHits()
{
    wxString text;
    if (m_Work->counter.IsActive())
    {
        text = HitsText(GetHits(), m_Work->counted);
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
    return m_Work->counter.Hits();
}

bool wxTextLineSearchPanel::IsCounting() const
{
    return !m_Work->counted;
}

void wxTextLineSearchPanel::LineInserted(int line)
{
    if (!m_View)
    {
        return;
    }
    m_Work->search.LineInserted(line);
    if (m_Work->counter.IsActive())
    {
        m_Work->counter.LineInserted(*m_View->m_Lines, line);
        CountOn();
    }
}

void wxTextLineSearchPanel::LineErased(int line)
{
    if (!m_View)
    {
        return;
    }
    m_Work->search.LineErased(line);
    if (m_Work->counter.IsActive())
    {
        m_Work->counter.LineErased(*m_View->m_Lines, line);
        CountOn();
    }
}

void wxTextLineSearchPanel::LinesCleared()
{
    StopSearch();
    m_Work->counter.LinesCleared();
    CountOn();
}

// The count follows the lines in idle time, the label with it.
void wxTextLineSearchPanel::CountOn()
{
    if (m_Work->counted && m_Work->counter.IsActive())
    {
        m_Work->counted = false;
        wxWakeUpIdle();
    }
}
