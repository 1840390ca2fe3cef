#include "monitor/JobMenu.h"

#include "monitor/JobCommands.h"
#include "monitor/JobOffers.h"

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

const char* const kSetPriority = "Set Priority";
const char* const kOther = "Other..."; // a priority that is no item of the command's

boost::shared_ptr<const JobTypeInfo> TypeOf(const String& type)
{
    return JobFactory::s_JobFactory->GetTypeInfo(UID(type), true);
}

wxString CountOf(size_t some, size_t all)
{
    return some == all ? wxString::Format(wxGetTranslation("%zu Jobs"), all)
                       : wxString::Format(wxGetTranslation("%zu of %zu Jobs"), some, all);
}

wxString FinishedLabel(int count)
{
    return count > 0 ? wxString::Format(wxGetTranslation("Remove &Finished Jobs (%d)..."), count)
                     : wxString(wxGetTranslation("Remove &Finished Jobs..."));
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
} kOwnCommands[] = {{"Kill", KillJobs, false},
                    {"Remove", RemoveJobs, false},
                    {"Open Output Folder", OpenOutputFolders, true}};

const OwnCommand* FindOwn(const String& name)
{
    const auto* const found = std::find_if(std::begin(kOwnCommands), std::end(kOwnCommands),
                                           [&](const OwnCommand& own) { return name == own.name; });
    return found == std::end(kOwnCommands) ? nullptr : found;
}

// As declared, with whatever number the user likes.
CommandInfo WithOwnItems(CommandInfo command)
{
    if (command.name.EqualsNoCase(kSetPriority) && !command.items.empty())
    {
        command.items += String(";") + kOther;
    }
    return command;
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

JobMenu::JobMenu(FarmJobs& jobs, wxWindow& window, Own own)
    : m_Jobs(jobs), m_Window(window), m_Own(std::move(own))
{
    m_OpenId = m_Own.open ? AddOwn(OpenLabel({})) : wxID_NONE;
    m_ViewId = AddOwn(wxGetTranslation("&View Whole Output"));
    m_CopyId = m_Own.copy ? AddOwn(wxGetTranslation("&Copy Rows\tCtrl+C")) : wxID_NONE;
    m_ResubmitId = m_Own.resubmit ? AddOwn(wxGetTranslation("Su&bmit Again...")) : wxID_NONE;
    m_RemoveId = m_Own.removesFinished ? AddOwn(FinishedLabel(0)) : wxID_NONE;
    // The frame has to hear of it, too: while a menu is open no list changes its rows.
    const auto onOpen = [this](wxMenuEvent& event, bool isOpen)
    {
        event.Skip();
        OnOpen(isOpen);
    };
    Bind(wxEVT_MENU_OPEN, [onOpen](wxMenuEvent& event) { onOpen(event, true); });
    Bind(wxEVT_MENU_CLOSE, [onOpen](wxMenuEvent& event) { onOpen(event, false); });
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

int JobMenu::AddOwn(const wxString& label)
{
    return Append(wxNewId(), label)->GetId();
}

int JobMenu::FinishedCount() const
{
    return m_Own.removesFinished ? m_Jobs.Summarize().done + m_Jobs.Summarize().failed : 0;
}

void JobMenu::RefreshOwn(const std::vector<const FarmJob*>& jobs)
{
    const auto show = [this](int id, const wxString& label, bool isPossible)
    {
        if (id != wxID_NONE)
        {
            SetLabel(id, label);
            Enable(id, isPossible);
        }
    };
    const int finished = FinishedCount();
    show(m_OpenId, OpenLabel(jobs), !jobs.empty());
    show(m_RemoveId, FinishedLabel(finished), finished > 0);
    Enable(m_ViewId, std::any_of(jobs.begin(), jobs.end(),
                                 [](const FarmJob* job) { return HasOutput(*job->job); }));
    if (m_CopyId != wxID_NONE)
    {
        Enable(m_CopyId, !jobs.empty());
    }
    if (m_ResubmitId != wxID_NONE)
    {
        Enable(m_ResubmitId, jobs.size() == 1 && TypeOf(jobs.front()->type));
    }
}

bool JobMenu::Run(int id)
{
    if (id == wxID_NONE)
    {
        return false;
    }
    const std::vector<const FarmJob*> jobs = KnownJobs();
    if (id == m_OpenId)
    {
        OpenJobs();
    }
    else if (id == m_ViewId)
    {
        ViewWhole(jobs);
    }
    else if (id == m_CopyId)
    {
        m_Own.copy();
    }
    else if (id == m_ResubmitId && jobs.size() == 1)
    {
        m_Own.resubmit(jobs.front()->id);
    }
    else if (id == m_RemoveId)
    {
        RemoveFinished();
    }
    else
    {
        return id == m_ResubmitId || TryCommand(id);
    }
    return true;
}

// Not more than is sensible.
void JobMenu::OpenJobs()
{
    std::vector<String> ids;
    for (const FarmJob* const job : KnownJobs())
    {
        ids.push_back(job->id);
    }
    ids.resize(std::min(ids.size(), k_MostWindowsAtOnce));
    m_Own.open(ids);
}

void JobMenu::ViewWhole(const std::vector<const FarmJob*>& jobs)
{
    JobPointers pointers;
    for (const FarmJob* const job : jobs)
    {
        pointers.push_back(job->job);
    }
    ViewOutputs(pointers, &m_Window);
}

void JobMenu::RemoveFinished()
{
    JobPointers jobs;
    for (const FarmJob* const job : m_Jobs.InOrder())
    {
        if (job->CurrentPhase() == FarmJob::kEnded)
        {
            jobs.push_back(job->job);
        }
    }
    RemoveJobs(jobs, &m_Window);
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
    const int                         finished = FinishedCount();
    const String due = DescriptionOf(jobs) + SFormat("\n%d finished", finished);
    if (m_IsOpen || due == m_Shown)
    {
        return;
    }
    m_Shown = due;
    RefreshOwn(jobs);
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
    const CommandInfo command = WithOwnItems(offer.command);
    if (offer.takers > 0 || command.flags < 0)
    {
        InsertCommand(command);
    }
    else
    {
        // As for a job in no state at all.
        CommandInfo ruledOut = command.ForJob(Job());
        ruledOut.items = command.Itemize(Job());
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
    else if (name.EqualsNoCase(kSetPriority) && (item.empty() || item == kOther))
    {
        AskPriority(jobs, &m_Window);
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
