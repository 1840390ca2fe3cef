#include "monitor/JobCommands.h"

#include "monitor/FarmJob.h"
#include "monitor/JobForm.h"

#include "appearance/wxTolvanString.h"
#include "dialogs/wxQuestion.h"
#include "dialogs/wxTextFromUserDlg.h"
#include "master/StartMaster.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Platform.h"

#include <wx/intl.h>
#include <wx/textctrl.h>
#include <wx/utils.h>
#include <wx/validate.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace
{
constexpr size_t  kMostName = 100; // characters
const char* const kKill = "Kill";  // the command of the job types
const char* const kRemove = "Remove";
const char* const kSetPriority = "Set Priority";
const char* const kQuestion = "KillJob";
const char* const kRemoveQuestion = "RemoveJobs";

wxQuestion KillQuestion(const JobPointers& jobs)
{
    const wxString name = wxtToWx(OneLine(jobs.front()->GetParam(p_Name), kMostName));
    const wxString text =
        jobs.size() == 1
            ? wxString::Format(
                  wxGetTranslation("Kill the job \"%s\"?\nWhat it has done so far stays."), name)
            : wxString::Format(
                  wxGetTranslation("Kill %zu jobs?\nWhat they have done so far stays."),
                  jobs.size());
    return {kQuestion,
            wxGetTranslation("Kill Job", "Kill Jobs", static_cast<unsigned>(jobs.size())),
            text,
            wxGetTranslation("Kill"),
            wxGetTranslation("Keep"),
            true};
}

bool HasEnded(const Job& job)
{
    const String state = job.GetParam(p_State);
    return state == state_Done || state == state_Failed || state == state_Killed;
}

// "9 done, 2 failed, 1 killed".
wxString CountsOf(const JobPointers& jobs)
{
    wxString text;
    for (const String& state : {state_Done, state_Failed, state_Killed})
    {
        const auto count =
            std::count_if(jobs.begin(), jobs.end(),
                          [&state](const auto& job) { return job->GetParam(p_State) == state; });
        if (count > 0)
        {
            text += (text.empty() ? "" : ", ") + wxString::Format("%d ", static_cast<int>(count)) +
                    wxGetTranslation(wxtToWx(state)).Lower();
        }
    }
    return text;
}

wxQuestion RemoveQuestion(const JobPointers& jobs)
{
    const wxString name = wxtToWx(OneLine(jobs.front()->GetParam(p_Name), kMostName));
    const wxString text =
        jobs.size() == 1
            ? wxString::Format(wxGetTranslation("Remove the job \"%s\" from the farm?"), name)
            : wxString::Format(wxGetTranslation("Remove %zu finished jobs from the farm?"),
                               jobs.size());
    return {kRemoveQuestion,
            wxGetTranslation("Remove Job", "Remove Jobs", static_cast<unsigned>(jobs.size())),
            text + (jobs.size() > 1 ? "\n" + CountsOf(jobs) + "." : wxString()) + "\n" +
                wxGetTranslation("The files that they have written stay."),
            wxGetTranslation("Remove"),
            wxGetTranslation("Keep"),
            true};
}

JobPointers EndedOf(const JobPointers& jobs)
{
    JobPointers ended;
    std::copy_if(jobs.begin(), jobs.end(), std::back_inserter(ended),
                 [](const auto& job) { return HasEnded(*job); });
    return ended;
}

// Says what is wrong with a text that is to be a priority, and leaves the dialog open.
class _PriorityValidator : public wxValidator
{
public:
    wxObject* Clone() const override { return new _PriorityValidator(*this); }
    bool      Validate(wxWindow* parent) override
    {
        const auto* const field = dynamic_cast<const wxTextEntry*>(GetWindow());
        const String      problem =
            field ? JobForm::PriorityProblem(wxtFromWx(field->GetValue())) : String();
        if (!problem.empty())
        {
            TellFailure(problem, parent);
        }
        return problem.empty();
    }
    bool TransferToWindow() override { return true; }
    bool TransferFromWindow() override { return true; }
};

// Empty when the folder can be shown.
String FolderProblem(const String& folder)
{
    if (folder.empty())
    {
        return "The job has no output folder.";
    }
    if (!File::IsFolder(folder))
    {
        return "The job's output folder is not there:\n" + folder;
    }
    return String();
}
} // namespace

void SendCommand(const JobPointers& jobs, const String& command, const String& item,
                 wxWindow* parent)
{
    try
    {
        for (const auto& job : jobs)
        {
            job->DoCommand(command, item);
        }
    }
    catch (Exception* exception)
    {
        exception->Log();
        TellFailure(exception->Text() + "\n" + exception->Text2(), parent);
        delete exception;
    }
}

void KillJobs(const JobPointers& jobs, wxWindow* parent)
{
    if (jobs.empty() || !wxAsk(parent, KillQuestion(jobs)))
    {
        return;
    }
    JobPointers left;
    std::copy_if(jobs.begin(), jobs.end(), std::back_inserter(left),
                 [](const auto& job) { return !HasEnded(*job); });
    SendCommand(left, kKill, String(), parent);
}

void RemoveJobs(const JobPointers& jobs, wxWindow* parent)
{
    const JobPointers ended = EndedOf(jobs);
    if (!ended.empty() && wxAsk(parent, RemoveQuestion(ended)))
    {
        SendCommand(EndedOf(ended), kRemove, String(), parent); // one may run again
    }
}

void AskPriority(const JobPointers& jobs, wxWindow* parent)
{
    const wxString message =
        jobs.size() == 1
            ? wxString(
                  wxGetTranslation("Priority from 0 to 100. Jobs of a higher one start first."))
            : wxString::Format(wxGetTranslation("Priority of %zu jobs, from 0 to 100.\nJobs of a "
                                                "higher one start first."),
                               jobs.size());
    wxString text = wxtToWx(jobs.front()->GetParam(p_Priority));
    if (wxTolvanTextFromUser(parent, message, wxGetTranslation("Set Priority"), text, "SetPriority",
                             _PriorityValidator()))
    {
        SendCommand(jobs, kSetPriority, wxtFromWx(text).Trim(), parent);
    }
}

void OpenOutputFolders(const JobPointers& jobs, wxWindow* parent)
{
    std::set<String> folders;
    for (const auto& job : jobs)
    {
        const String folder = job->GetParam(p_Folder);
        String       problem = FolderProblem(folder);
        if (problem.empty() && folders.insert(folder).second && !OpenOnDesktop(folder))
        {
            problem = "The desktop has no program to show a folder:\n" + folder;
        }
        if (!problem.empty())
        {
            TellFailure(problem, parent);
            return;
        }
    }
}

bool HasOutput(const Job& job)
{
    return !job.GetParam(p_LogFile).empty();
}

void ViewOutputs(const JobPointers& jobs, wxWindow* parent)
{
    std::vector<String> files;
    for (const auto& job : jobs)
    {
        if (HasOutput(*job) && files.size() < k_MostWindowsAtOnce)
        {
            files.push_back(job->GetParam(p_LogFile));
        }
    }
    if (files.empty())
    {
        return;
    }
    const auto isGone = [](const String& file) { return !File::Exists(file); };
    if (std::all_of(files.begin(), files.end(), isGone))
    {
        TellFailure("The output is not there any more:\n" + files.front(), parent);
        return;
    }
    const String problem =
        StartInBackground(Path(Platform::GetProgramFolder()) / "tolvan-logview", files);
    if (!problem.empty())
    {
        TellFailure(problem, parent);
    }
}

bool OpenOnDesktop(const Path& path)
{
    return wxLaunchDefaultApplication(wxtToWx(path.Text()));
}

void TellFailure(const String& reason, wxWindow* parent)
{
    wxTellProblem(wxtToWx(reason), parent);
}
