#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/overview/ViewNote.h"
#include "textviews/rules/Ruling.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>
#include <wx/intl.h>

namespace
{
constexpr int kWaitMs = 100; // before a disk that did not answer is asked again

wxString NoteFor(const textviews::ErrorSearch& outcome)
{
    if (outcome.GetState() != textviews::ErrorSearch::State::Found)
    {
        return wxGetTranslation("There are no errors and no warnings");
    }
    const bool isError = (outcome.Marks() & textviews::k_ErrorMark) != 0;
    wxString   text = isError ? wxString() : wxGetTranslation("There are no errors: a warning");
    if (outcome.HasWrapped())
    {
        text += text.empty() ? "" : "; ";
        text += outcome.IsForward() ? wxGetTranslation("Went on from the top")
                                    : wxGetTranslation("Went on from the bottom");
    }
    return text;
}
} // namespace

void wxTextLineCtrl::FindError(bool forward)
{
    CALL_ENTRY("wxTextLineCtrl::FindError");
    textviews::RuleIndex& index = m_Ruling->index;
    if (!index.CanFind() || m_Lines->Count() == 0)
    {
        return;
    }
    // From no selection on, the first line that is seen may be the next one.
    const int from = CurrentLine();
    index.Find(forward ? from + (IsPlaceChosen() ? 1 : 0) : from - 1, forward);
    index.Work();
    Watch(index, index.IsActive());
    if (index.IsFinding())
    {
        m_Ruling->finding = true;
        ShowNote(wxGetTranslation("Looking for errors") + wxString::FromUTF8("\u2026"), true);
        wxWakeUpIdle();
    }
    else
    {
        m_Ruling->finding = false;
        FinishFinding();
    }
}

bool wxTextLineCtrl::IsFindingError() const
{
    return m_Ruling->index.IsFinding();
}

void wxTextLineCtrl::StopFindingError()
{
    CALL_ENTRY("wxTextLineCtrl::StopFindingError");
    if (m_Ruling->index.IsFinding())
    {
        m_Ruling->index.StopFinding();
        m_Ruling->finding = false;
        Watch(m_Ruling->index, m_Ruling->index.IsActive());
    }
    ShowNote({});
}

void wxTextLineCtrl::FinishFinding()
{
    const textviews::ErrorSearch& outcome = m_Ruling->index.Outcome();
    Watch(m_Ruling->index, m_Ruling->index.IsActive());
    if (outcome.GetState() == textviews::ErrorSearch::State::Found)
    {
        GoToLine(outcome.Line());
    }
    ShowNote(outcome.GetState() == textviews::ErrorSearch::State::Idle ? wxString()
                                                                       : NoteFor(outcome));
}

void wxTextLineCtrl::ShowNote(const wxString& text, bool stays)
{
    auto* note = static_cast<textviews::ViewNote*>(m_Ruling->note.get());
    if (!note && !text.empty())
    {
        note = new textviews::ViewNote(this);
        m_Ruling->note = note;
    }
    if (note)
    {
        note->ShowText(text, stays);
    }
}

wxString wxTextLineCtrl::GetNote() const
{
    const auto* const note = static_cast<textviews::ViewNote*>(m_Ruling->note.get());
    return note ? note->Text() : wxString();
}

void wxTextLineCtrl::OnRulesIdle(wxIdleEvent& event)
{
    event.Skip();
    textviews::RuleIndex& index = m_Ruling->index;
    // Of a hundred pages only those that are seen take the time of all.
    if (!m_Ruling->finding && (!index.HasWork() || !IsShownOnScreen()))
    {
        return;
    }
    index.Work();
    if (m_Ruling->finding && !index.IsFinding())
    {
        m_Ruling->finding = false;
        FinishFinding();
    }
    ShowOverviewSoon();
    if (index.IsWaiting())
    {
        m_Ruling->waiting.StartOnce(kWaitMs);
    }
    else if (index.HasWork())
    {
        event.RequestMore();
    }
}
