#include "monitor/JobCommands.h"

#include "monitor/FarmJob.h"

#include "appearance/wxTolvanString.h"
#include "dialogs/wxQuestion.h"
#include "vesta/Exception.h"
#include "vesta/File.h"

#include <wx/intl.h>
#include <wx/utils.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace
{
constexpr size_t  kMostName = 100; // characters
const char* const kKill = "Kill";  // the command of the job types
const char* const kQuestion = "KillJob";

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

bool OpenOnDesktop(const Path& path)
{
    return wxLaunchDefaultApplication(wxtToWx(path.Text()));
}

void TellFailure(const String& reason, wxWindow* parent)
{
    wxTellProblem(wxtToWx(reason), parent);
}
