#include "appearance/wxTolvanString.h"
#include "textviews/search/BackgroundSearch.h"
#include "textviews/search/SearchField.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"

#include <wx/app.h>
#include <wx/dcclient.h>

#include <algorithm>
#include <climits>

namespace
{
constexpr size_t kShownText = 200; // characters of the text that a notice is about

wxString WithText(wxString notice, const wxString& text)
{
    notice.Replace("%s", text, false);
    return notice;
}

int Saturated(int64_t count)
{
    return static_cast<int>(std::min<int64_t>(count, INT_MAX));
}
} // namespace

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
        LookAnew();
    }
}

// Whether there is one: then nothing can be found.
bool wxTextLineSearchPanel::ShowProblem()
{
    const textviews::QueryProblem& problem = m_Search->Problem();
    if (problem.text)
    {
        ShowMessage(wxGetTranslation(problem.text), wxtToWx(problem.part));
    }
    return problem.text != nullptr;
}

void wxTextLineSearchPanel::FinishSearch()
{
    ShowSearching(false);
    const textviews::LineSearch& search = m_Search->Outcome();
    const bool                   found = search.GetState() == textviews::LineSearch::State::Found;
    if (found)
    {
        m_View->ShowHit(search.Match(), m_Search->LooksAtShown());
        ShowMessage(!search.HasWrapped() ? wxString()
                    : search.IsForward() ? _("Went on from the top")
                                         : _("Went on from the bottom"));
    }
    else
    {
        ShowOutcome();
        ShowMessage(_("'%s' not found in that direction"), GetText());
    }
    FinishTyped(found);
    ShowNoHit();
    wxWakeUpIdle();
}

wxString wxTextLineSearchPanel::TextFor(int64_t hits, int64_t current, bool counted) const
{
    if (hits == 0 && !counted)
    {
        return _("Counting") + wxString::FromUTF8("\u2026"); // one may be shown already
    }
    const int      all = Saturated(hits);
    const wxString text =
        current > 0
            ? wxString::Format(_("%d of %d"), Saturated(current), all)
            : wxString::Format(wxPLURAL("%d hit", "%d hits", static_cast<unsigned>(all)), all);
    return text + (counted ? wxString() : wxString::FromUTF8("\u2026"));
}

void wxTextLineSearchPanel::ShowHits()
{
    wxString text;
    if (m_Search->HasCount())
    {
        text = TextFor(m_Search->Hits(), m_Search->Current(), !IsCounting());
    }
    if (text != m_HitCount->GetLabel())
    {
        m_HitCount->SetLabel(text);
        Layout();
    }
    ShowNoHit();
}

// By the field's colour, where one looks at that: while typing, and at an expression that is none.
void wxTextLineSearchPanel::ShowNoHit()
{
    const bool hasNone = m_Search->HasCount() && !IsCounting() && m_Search->Hits() == 0;
    m_Field->ShowNoHit(m_Search->Problem().text || (hasNone && GetAsYouType()));
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

void wxTextLineSearchPanel::ShowMessage(const wxString& notice, const wxString& text)
{
    m_Notice = notice;
    m_NoticeText = text;
    m_Message->SetToolTip(WithText(notice, text.Left(kShownText))); // the row may be too short
    FitMessage();
}

// Where the room is short it is the text that is shortened: what came of it has to stay readable.
void wxTextLineSearchPanel::FitMessage()
{
    const wxClientDC dc(m_Message);
    const int        room = m_Message->GetSize().x - dc.GetTextExtent(WithText(m_Notice, "")).x;
    const wxString   text = wxControl::Ellipsize(m_NoticeText.Left(kShownText), dc, wxELLIPSIZE_END,
                                                 std::max(room, 0), wxELLIPSIZE_FLAGS_NONE);
    const wxString   message = WithText(m_Notice, text);
    if (message != m_Message->GetLabelText())
    {
        m_Message->SetLabelText(message);
    }
}

wxString wxTextLineSearchPanel::GetMessage() const
{
    return WithText(m_Notice, m_NoticeText);
}

int wxTextLineSearchPanel::GetHits() const
{
    return Saturated(m_Search->Hits());
}

int wxTextLineSearchPanel::GetCurrent() const
{
    return Saturated(m_Search->Current());
}

bool wxTextLineSearchPanel::IsCounting() const
{
    return m_Search->IsCounting();
}
