#include "monitor/JobMenu.h"

#include "monitor/JobCommands.h"
#include "monitor/JobOffers.h"
#include "monitor/MonitorCommand.h"

#include "appearance/wxTolvanString.h"
#include "tolvan/JobFactory.h"
#include "vesta/UID.h"

#include <wx/control.h>
#include <wx/intl.h>
#include <wx/window.h>

#include <algorithm>
#include <map>

namespace
{
constexpr size_t kMostName = 40; // characters
constexpr int    kMask = cmd_Job | cmd_Output | cmd_Admin;

boost::shared_ptr<const JobTypeInfo> TypeOf(const String& type)
{
    return JobFactory::s_JobFactory->GetTypeInfo(UID(type), true);
}

wxString CountOf(size_t some, size_t all)
{
    return some == all ? wxString::Format(wxGetTranslation("%zu Jobs"), all)
                       : wxString::Format(wxGetTranslation("%zu of %zu Jobs"), some, all);
}

wxString OpenLabel(const std::vector<const FarmJob*>& jobs)
{
    if (jobs.empty())
    {
        return wxGetTranslation("&Open");
    }
    if (jobs.size() > 1)
    {
        return wxGetTranslation("&Open ") +
               CountOf(std::min(jobs.size(), k_MostWindowsAtOnce), jobs.size());
    }
    const wxString name = wxtToWx(OneLine(jobs.front()->name, kMostName));
    return wxString::Format(wxGetTranslation("&Open \"%s\""), wxControl::EscapeMnemonics(name));
}

// Commands that are carried out in another way than by sending them to the master at once.
const struct OwnCommand
{
    const char* name;
    void (*run)(const JobPointers& jobs, wxWindow* parent);
    bool opensWindows;
} kOwnCommands[] = {{"Kill", KillJobs, false}, {"Open Output Folder", OpenOutputFolders, true}};

const OwnCommand* FindOwn(const String& name)
{
    const auto* const found = std::find_if(std::begin(kOwnCommands), std::end(kOwnCommands),
                                           [&](const OwnCommand& own) { return name == own.name; });
    return found == std::end(kOwnCommands) ? nullptr : found;
}

// Everything that the menu shows of the jobs; short, however many they are.
String DescriptionOf(const std::vector<const FarmJob*>& jobs)
{
    std::map<String, size_t> kinds;
    for (const FarmJob* const job : jobs)
    {
        ++kinds[job->type + "\n" + job->state];
    }
    String text = jobs.size() == 1 ? jobs.front()->id + "\n" + jobs.front()->name : String();
    for (const auto& [kind, count] : kinds)
    {
        text += "\n" + kind + SFormat("\n%zu", count);
    }
    return text;
}
} // namespace

JobMenu::JobMenu(FarmJobs& jobs, wxWindow& window) : m_Jobs(jobs), m_Window(window)
{
    Append(id_OpenJob, OpenLabel({}))->Enable(false);
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

void JobMenu::ShowJobs(const std::vector<String>& ids)
{
    m_Ids = ids;
    Refresh();
}

std::vector<const FarmJob*> JobMenu::KnownJobs() const
{
    std::vector<const FarmJob*> jobs;
    for (const String& id : m_Ids)
    {
        if (const FarmJob* const job = m_Jobs.Find(id))
        {
            jobs.push_back(job);
        }
    }
    return jobs;
}

std::vector<String> JobMenu::JobsToOpen() const
{
    std::vector<String> ids;
    for (const FarmJob* const job : KnownJobs())
    {
        ids.push_back(job->id);
    }
    ids.resize(std::min(ids.size(), k_MostWindowsAtOnce));
    return ids;
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
    const std::vector<const FarmJob*> jobs = KnownJobs();
    const String                      due = DescriptionOf(jobs);
    if (m_IsOpen || due == m_Shown)
    {
        return;
    }
    m_Shown = due;
    SetLabel(id_OpenJob, OpenLabel(jobs));
    Enable(id_OpenJob, !jobs.empty());
    // The commands are put in here, for all jobs together.
    Fill(nullptr, kMask);
    if (jobs.empty())
    {
        return;
    }
    AppendSeparator();
    for (const JobOffer& offer : OfferCommands(jobs, kMask, TypeOf))
    {
        AddOffer(offer, jobs);
    }
}

void JobMenu::AddOffer(const JobOffer& offer, const std::vector<const FarmJob*>& jobs)
{
    if (offer.takers > 0 || offer.command.flags < 0)
    {
        InsertCommand(offer.command);
    }
    else
    {
        // As for a job in no state at all.
        CommandInfo ruledOut = offer.command.ForJob(Job());
        ruledOut.items = offer.command.Itemize(Job());
        InsertCommand(ruledOut);
    }
    if (jobs.size() > 1 && offer.takers > 0 && offer.command.flags >= 0)
    {
        const OwnCommand* const own = FindOwn(offer.command.name);
        const bool              isLimited = own && own->opensWindows;
        const size_t            most = isLimited ? k_MostWindowsAtOnce : offer.takers;
        wxMenuItem* const       item = FindItemByPosition(GetMenuItemCount() - 1);
        item->SetItemLabel(item->GetItemLabel() + " (" +
                           CountOf(std::min(offer.takers, most), jobs.size()) + ")");
    }
}

void JobMenu::DoProcessCommand(const String& name, const String& item)
{
    // While a question is open jobs may go, and the menu is filled anew.
    JobPointers jobs;
    for (const FarmJob* const job : TakersOf(KnownJobs(), name, TypeOf))
    {
        jobs.push_back(job->job);
    }
    // First those that wait: one of them would start as soon as another gives up its slot.
    std::stable_partition(jobs.begin(), jobs.end(),
                          [](const auto& job) { return job->GetParam(p_State) == state_Waiting; });
    const OwnCommand* const own = FindOwn(name);
    if (jobs.empty())
    {
        TellFailure("\"" + name + "\" is not possible any more: the job has gone on meanwhile.",
                    &m_Window);
    }
    else if (own)
    {
        jobs.resize(own->opensWindows ? std::min(jobs.size(), k_MostWindowsAtOnce) : jobs.size());
        own->run(jobs, &m_Window);
    }
    else
    {
        SendCommand(jobs, name, item, &m_Window);
    }
}

// The toolkit has ticked the command.
void JobMenu::PostProcessCommand(const String&, const String&)
{
    m_Shown.clear();
    CallAfter(&JobMenu::Refresh);
}
