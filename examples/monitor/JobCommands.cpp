#include "monitor/JobCommands.h"

#include "monitor/FarmJob.h"

#include "appearance/wxTolvanString.h"
#include "common/Question.h"
#include "dialogs/wxConfirmDlg.h"
#include "vesta/Exception.h"

#include <wx/intl.h>

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
