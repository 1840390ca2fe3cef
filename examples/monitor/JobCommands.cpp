#include "monitor/JobCommands.h"

#include "monitor/FarmJob.h"

#include "appearance/wxTolvanString.h"
#include "common/Question.h"
#include "dialogs/wxConfirmDlg.h"
#include "vesta/Exception.h"
#include "vesta/File.h"

#include <wx/intl.h>
#include <wx/utils.h>

namespace
{
constexpr size_t  kMostName = 100; // characters
const char* const kKill = "Kill";  // the command of the job types
const char* const kQuestion = "StopJob";
const char* const kFailure = "CommandFailed";

Question StopQuestion(const Job& job)
{
    const wxString name = wxtToWx(OneLine(job.GetParam(p_Name), kMostName));
    return {kQuestion, wxGetTranslation("Stop Job"),
            wxString::Format(
                wxGetTranslation("Stop the job \"%s\"?\nWhat it has done so far stays."), name),
            wxGetTranslation("Stop"), wxGetTranslation("Keep Running")};
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

void StopJob(const boost::shared_ptr<Job>& job, wxWindow* parent)
{
    if (!Ask(parent, StopQuestion(*job)))
    {
        return;
    }
    try
    {
        job->DoCommand(kKill, String());
    }
    catch (Exception* exception)
    {
        exception->Log();
        wxTolvanMessageBox(wxtToWx(exception->Text() + "\n" + exception->Text2()), kFailure,
                           parent);
        delete exception;
    }
}

void OpenOutputFolder(const boost::shared_ptr<Job>& job, wxWindow* parent)
{
    const String folder = job->GetParam(p_Folder);
    String       problem = FolderProblem(folder);
    if (problem.empty() && !wxLaunchDefaultApplication(wxtToWx(folder)))
    {
        problem = "The desktop has no program to show a folder:\n" + folder;
    }
    if (!problem.empty())
    {
        wxTolvanMessageBox(wxtToWx(problem), kFailure, parent);
    }
}
