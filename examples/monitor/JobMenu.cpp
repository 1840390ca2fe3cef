#include "monitor/JobMenu.h"

#include "monitor/JobCommands.h"
#include "monitor/MonitorMenus.h"

#include "appearance/wxTolvanString.h"
#include "tolvan/CommandInfo.h"

#include <wx/control.h>
#include <wx/intl.h>
#include <wx/window.h>

namespace
{
constexpr size_t kMostName = 40; // characters
constexpr int    kMask = cmd_Job | cmd_Output | cmd_Admin;

// Several jobs may be selected: it says which one is meant.
wxString OpenLabel(const FarmJob* job)
{
    const wxString name = job ? wxtToWx(OneLine(job->name, kMostName)) : wxString();
    return job ? wxString::Format(wxGetTranslation("&Open \"%s\""),
                                  wxControl::EscapeMnemonics(name))
               : wxString(wxGetTranslation("&Open"));
}

// Commands that are carried out in another way than by sending them to the master at once.
const struct
{
    const char* name;
    void (*run)(const boost::shared_ptr<Job>& job, wxWindow* parent);
} kOwnCommands[] = {{"Kill", StopJob}, {"Open Output Folder", OpenOutputFolder}};
} // namespace

JobMenu::JobMenu(FarmJobs& jobs, wxWindow& window) : m_Jobs(jobs), m_Window(window)
{
    Append(id_OpenJob, OpenLabel(nullptr))->Enable(false);
    Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent&) { OnOpen(true); });
    Bind(wxEVT_MENU_CLOSE, [this](wxMenuEvent&) { OnOpen(false); });
    m_Jobs.Changed.Connect(this,
                           [this](const FarmJobs::News& news)
                           {
                               if (news.isListChanged)
                               {
                                   Refresh();
                               }
                           });
}

JobMenu::~JobMenu()
{
    DisconnectAll();
    DeletePendingEvents();
}

void JobMenu::ShowJob(const String& id)
{
    m_Id = id;
    Refresh();
}

void JobMenu::OnOpen(bool isOpen)
{
    m_IsOpen = isOpen;
    if (!isOpen)
    {
        // What was chosen comes after the menu has closed.
        CallAfter(&JobMenu::Refresh);
    }
}

void JobMenu::Refresh()
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    const String         due = job ? job->id + "\n" + job->state + "\n" + job->name : String();
    if (m_IsOpen || due == m_Shown)
    {
        return;
    }
    m_Shown = due;
    SetLabel(id_OpenJob, OpenLabel(job));
    Enable(id_OpenJob, job != nullptr);
    Fill(job ? job->job : nullptr, kMask);
}

void JobMenu::DoProcessCommand(const String& name, const String& item)
{
    // While a question is open the job may go, and the menu is filled anew.
    const boost::shared_ptr<Job> job = GetJob();
    for (const auto& own : kOwnCommands)
    {
        if (job && name == own.name)
        {
            own.run(job, &m_Window);
            return;
        }
    }
    JobCommandMenu::DoProcessCommand(name, item);
}

// The toolkit has ticked the command.
void JobMenu::PostProcessCommand(const String&, const String&)
{
    m_Shown.clear();
    CallAfter(&JobMenu::Refresh);
}
