#include "jobwidgets/JobCommandMenu.h"

#include "jobwidgets/items/ItemText.h"

#include "tolvan/Job.h"
#include "tolvan/JobFactory.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/Log.h"

#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <memory>

namespace
{
constexpr size_t  kMostHelp = 300;   // characters, in a status bar
constexpr size_t  kMostName = 100;   // characters, in a message
constexpr size_t  kMostReason = 600; // characters: the box must fit on the screen
const char* const kItemSeparator = ";";

boost::shared_ptr<const JobTypeInfo> TypeOf(const Job& job)
{
    return JobFactory::s_JobFactory->GetTypeInfo(UID(job.GetParam(p_Type)), true);
}

// Each line of the reasons, but no more than fits.
wxString FailureText(const String& command, const Exception& exception)
{
    wxString text = wxGetTranslation("Unable to execute Job command: '") +
                    jobwidgets::OneLine(command, kMostName) + "'\n" +
                    jobwidgets::Shortened(exception.Text(), kMostReason);
    if (!exception.Text2().empty())
    {
        text += "\n" + jobwidgets::Shortened(exception.Text2(), kMostReason);
    }
    return text;
}
} // namespace

// A command is for the job that it was chosen for: a question to the user may let the menu be
// filled anew meanwhile, have another command run, or take the menu away.
class JobCommandMenu::Run
{
public:
    explicit Run(JobCommandMenu& menu) : m_Menu(&menu), m_Outer(menu.m_RunJob)
    {
        menu.m_RunJob = menu.m_Job;
    }
    ~Run()
    {
        if (m_Menu)
        {
            m_Menu->m_RunJob = m_Outer;
        }
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    bool HasMenu() const { return m_Menu; }

private:
    const wxWeakRef<JobCommandMenu>             m_Menu;
    const std::optional<boost::shared_ptr<Job>> m_Outer;
};

JobCommandMenu::JobCommandMenu() = default;

JobCommandMenu::~JobCommandMenu() = default;

void JobCommandMenu::Fill(const boost::shared_ptr<Job>& job, int mask)
{
    CALL_ENTRY("JobCommandMenu::Fill");
    LogDebug(job ? "JobCommandMenu being filled from: " + job->GetParam(p_Name)
                 : String("JobCommandMenu being set to empty job"));
    RemoveCommands();
    m_Job = job;
    if (!m_Job)
    {
        return;
    }
    if (m_FirstItem != 0)
    {
        AppendSeparator();
    }
    const auto type = TypeOf(*m_Job);
    if (!type)
    {
        return;
    }
    for (const CommandInfo& command : type->Commands())
    {
        if (command.flags & mask)
        {
            InsertCommand(command.ForJob(*m_Job));
        }
    }
}

// The first time there are none: whatever is there then is the program's.
void JobCommandMenu::RemoveCommands()
{
    if (m_FirstItem < 0)
    {
        m_FirstItem = static_cast<int>(GetMenuItemCount());
    }
    const auto first = static_cast<size_t>(m_FirstItem);
    while (first < GetMenuItemCount())
    {
        Destroy(FindItemByPosition(first));
    }
}

void JobCommandMenu::InsertCommand(const CommandInfo& command)
{
    CALL_ENTRY("JobCommandMenu::InsertCommand");
    if (command.flags < 0)
    {
        AppendSeparator();
        return;
    }
    const String items = m_Job ? command.Itemize(*m_Job) : command.items;
    if (items.empty())
    {
        const long id = DoInsertCommand(this, command.name, String(), command.description);
        m_Commands[id] = {command.name, String()};
    }
    else
    {
        InsertSubMenu(command, items);
    }
}

void JobCommandMenu::InsertSubMenu(const CommandInfo& command, const String& items)
{
    auto* const     menu = new wxMenu;
    StringTokenizer tokens(items, kItemSeparator, '"', '\\');
    while (tokens.HasMore())
    {
        const String item = tokens.Next();
        const long   id = DoInsertCommand(menu, command.name, item, command.description);
        m_Commands[id] = {command.name, item};
    }
    Append(wxID_ANY, jobwidgets::MenuLabel(command.name), menu,
           jobwidgets::OneLine(command.description, kMostHelp));
}

long JobCommandMenu::DoInsertCommand(wxMenu* menu, const String& name, const String& label,
                                     const String& help)
{
    CALL_ENTRY("JobCommandMenu::DoInsertCommand");
    if (!menu)
    {
        LogWarning("No menu to insert a job command into");
        return wxID_NONE;
    }
    const String& text = label.empty() ? name : label;
    const bool    isDisabled = text.StartsWith(CommandInfo::k_Disabled);
    const String  shown = isDisabled ? String(text.substr(CommandInfo::k_Disabled.size())) : text;
    const long    id = IdOf(label.empty() ? shown : String(name + "-" + shown));
    menu->Append(static_cast<int>(id), jobwidgets::MenuLabel(shown),
                 jobwidgets::OneLine(help, kMostHelp), wxITEM_CHECK)
        ->Enable(!isDisabled);
    return id;
}

long JobCommandMenu::IdOf(const String& key)
{
    const auto [found, isNew] = m_Ids.try_emplace(key, wxID_NONE);
    if (isNew)
    {
        found->second = wxNewId();
    }
    return found->second;
}

bool JobCommandMenu::TryCommand(long id)
{
    CALL_ENTRY("JobCommandMenu::TryCommand");
    const auto found = m_Commands.find(id);
    if (found == m_Commands.end())
    {
        return false;
    }
    const CommandData data = found->second;
    const Run         run(*this);
    if (PreProcessCommand(data.name, data.item) && run.HasMenu())
    {
        DoProcessCommand(data.name, data.item);
        if (run.HasMenu())
        {
            PostProcessCommand(data.name, data.item);
        }
    }
    return true; // even if nothing was run: no other menu knows the id
}

bool JobCommandMenu::PreProcessCommand(const String&, const String&)
{
    return true;
}

void JobCommandMenu::DoProcessCommand(const String& name, const String& item)
{
    CALL_ENTRY("JobCommandMenu::DoProcessCommand");
    const boost::shared_ptr<Job> job = GetJob();
    if (!job)
    {
        LogWarning("No job to run a command on");
        return;
    }
    try
    {
        job->DoCommand(name, item);
    }
    catch (Exception* caught)
    {
        const std::unique_ptr<Exception> exception(caught);
        exception->Log();
        wxMessageBox(FailureText(name, *exception), wxGetTranslation("TolvanGui Error"),
                     wxOK | wxCENTRE);
    }
}

void JobCommandMenu::PostProcessCommand(const String&, const String&)
{
}
