#include "appearance/wxTolvanString.h"
#include "internal/windows/UpperFloors.h"
#include "textviews/lines/LineStore.h"
#include "textviews/saving/SaveRun.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/OutputFile.h"

#include <wx/app.h>
#include <wx/filedlg.h>

namespace
{
constexpr int kFirstMs = 50; // most logs are saved by then
constexpr int kSliceMs = 8;
} // namespace

void wxTextLineCtrl::SaveAs()
{
    CALL_ENTRY("wxTextLineCtrl::SaveAs");
    const wxWeakRef<wxWindow> self(this);
    const wxString            name = wxFileSelector(
                   wxASCII_STR(wxFileSelectorPromptStr), wxEmptyString, wxEmptyString, wxEmptyString,
                   wxASCII_STR(wxFileSelectorDefaultWildcardStr), wxFD_SAVE | wxFD_OVERWRITE_PROMPT, this);
    if (!name.empty() && self)
    {
        BeginSaving(Path(String(name.fn_str())));
    }
}

void wxTextLineCtrl::SaveTo(const Path& path) const
{
    CALL_ENTRY("wxTextLineCtrl::SaveTo");
    const String endOfLine = OutputFile::k_EndOfLine;
    OutputFile   file(path);
    const int    count = m_Lines->Count();
    for (int line = 0; line < count;)
    {
        const textviews::LineStore::Block block = m_Lines->BlockOf(line);
        for (int i = 0; i < block.lineCount; ++i)
        {
            const std::string_view text = block.Line(i);
            file.Write(text.data(), text.size());
            file.Write(endOfLine);
        }
        line = block.firstLine + block.lineCount;
    }
    file.Close();
}

void wxTextLineCtrl::BeginSaving(const Path& path)
{
    CALL_ENTRY("wxTextLineCtrl::BeginSaving");
    EndSaving();
    m_Saving = std::make_unique<textviews::SaveRun>(*m_Lines, path);
    Watch(*m_Saving, true);
    SaveOn(kFirstMs);
    if (m_Saving)
    {
        wxWakeUpIdle();
    }
}

void wxTextLineCtrl::SaveOn(int ms)
{
    try
    {
        m_Saving->Work(std::chrono::milliseconds(ms));
    }
    catch (Exception*)
    {
        EndSaving();
        ShowNote({});
        throw;
    }
    if (m_Saving->IsDone())
    {
        EndSaving();
        return;
    }
    ShowNote(wxString::Format(wxGetTranslation("Saving: %d %% (Esc stops)"), m_Saving->Percent()),
             true);
}

void wxTextLineCtrl::EndSaving()
{
    if (m_Saving)
    {
        Watch(*m_Saving, false);
        m_Saving = nullptr;
    }
}

void wxTextLineCtrl::StopSaving()
{
    CALL_ENTRY("wxTextLineCtrl::StopSaving");
    if (IsSaving())
    {
        EndSaving();
        ShowNote(wxGetTranslation("Saving was stopped"));
    }
}

// A disk that is waited for wakes it up.
void wxTextLineCtrl::OnSaveIdle(wxIdleEvent& event)
{
    event.Skip();
    if (!m_Saving)
    {
        return;
    }
    try
    {
        SaveOn(kSliceMs);
    }
    catch (Exception* exception)
    {
        const std::shared_ptr<Exception> owner(exception);
        CallAfter([this, owner] { TellSaveProblem(*owner); }); // it waits for the user
        return;
    }
    if (!m_Saving)
    {
        ShowNote(wxGetTranslation("Saved"));
        return;
    }
    event.RequestMore(!m_Saving->IsWaiting());
}

// A key or a menu has no caller that could handle the failure: the user has to hear of it.
void wxTextLineCtrl::SaveOrTell()
{
    try
    {
        SaveAs();
    }
    catch (Exception* exception)
    {
        const std::unique_ptr<Exception> owner(exception);
        TellSaveProblem(*exception);
    }
}

void wxTextLineCtrl::TellSaveProblem(const Exception& exception)
{
    exception.Log();
    TellSaveProblem(wxtToWx(exception.Text() + "\n" + exception.Text2()));
}

void wxTextLineCtrl::TellSaveProblem(const wxString& reason)
{
    internal::g_UpperFloors.tellProblem(reason, wxGetTopLevelParent(this));
}
