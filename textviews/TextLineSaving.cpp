#include "appearance/wxTolvanString.h"
#include "internal/windows/UpperFloors.h"
#include "textviews/lines/LineStore.h"
#include "textviews/saving/LineSinks.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/OutputFile.h"

#include <wx/app.h>
#include <wx/filedlg.h>

namespace
{
constexpr int kFirstMs = 50; // most logs are saved by then, most texts copied
constexpr int kSliceMs = 8;
} // namespace

void wxTextLineCtrl::SaveAs()
{
    CALL_ENTRY("wxTextLineCtrl::SaveAs");
    if (IsSaving())
    {
        return; // the note says so, and what is under way is not lost
    }
    const wxWeakRef<wxWindow> self(this);
    const wxString            name = wxFileSelector(
                   wxGetTranslation("Save As"), wxEmptyString, wxEmptyString, wxEmptyString,
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
            if (!m_Lines->GoesOn(line + i))
            {
                file.Write(endOfLine);
            }
        }
        line = block.firstLine + block.lineCount;
    }
    file.Close();
}

void wxTextLineCtrl::BeginSaving(const Path& path)
{
    CALL_ENTRY("wxTextLineCtrl::BeginSaving");
    EndRun(m_Saving);
    m_Saving = std::make_unique<textviews::LineRun>(*m_Lines, 0, m_Lines->Count(),
                                                    std::make_unique<textviews::FileSink>(path));
    Begin(m_Saving);
}

void wxTextLineCtrl::Begin(Run& run)
{
    Watch(*run, true);
    RunOn(run, kFirstMs);
    if (run)
    {
        wxWakeUpIdle();
    }
}

void wxTextLineCtrl::RunOn(Run& run, int ms)
{
    try
    {
        run->Work(std::chrono::milliseconds(ms));
    }
    catch (Exception*)
    {
        EndRun(run);
        ShowNote({});
        throw;
    }
    if (run->IsDone())
    {
        EndRun(run);
        return;
    }
    const wxString format = &run == &m_Saving ? wxGetTranslation("Saving: %d %% (Esc stops)")
                                              : wxGetTranslation("Copying: %d %% (Esc stops)");
    ShowNote(wxString::Format(format, run->Percent()), true);
}

void wxTextLineCtrl::EndRun(Run& run)
{
    if (run)
    {
        Watch(*run, false);
        run = nullptr;
    }
}

void wxTextLineCtrl::StopRun(Run& run, const wxString& note)
{
    if (run)
    {
        EndRun(run);
        ShowNote(note);
    }
}

void wxTextLineCtrl::StopSaving()
{
    CALL_ENTRY("wxTextLineCtrl::StopSaving");
    StopRun(m_Saving, wxGetTranslation("Saving was stopped"));
}

// A disk that is waited for wakes it up.
void wxTextLineCtrl::OnRunIdle(wxIdleEvent& event)
{
    event.Skip();
    for (Run* const run : {&m_Saving, &m_Copying})
    {
        if (!*run)
        {
            continue;
        }
        try
        {
            RunOn(*run, kSliceMs);
        }
        catch (Exception* exception)
        {
            const std::shared_ptr<Exception> owner(exception);
            CallAfter([this, owner] { TellSaveProblem(*owner); }); // it waits for the user
            continue;
        }
        if (!*run)
        {
            ShowNote(run == &m_Saving ? wxGetTranslation("Saved") : wxGetTranslation("Copied"));
        }
        if (*run && !(*run)->IsWaiting())
        {
            event.RequestMore();
        }
    }
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
