#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/menu.h>

#include <boost/shared_ptr.hpp>

#include <map>
#include <optional>

class Job;
class CommandInfo;

/// A menu, in a menu bar or popped up, of the commands that a job's type offers. The program puts
/// its own items in first, fills the menu with a job, and passes the id of each menu event to
/// `TryCommand`; filling it with another job replaces only what was filled in before. Main thread.
///
/// The commands are check items. The toolkit ticks one that is chosen; the next fill makes it anew.
/// A menu of a menu bar is best filled before it is opened: GTK 3 cuts off what comes later.
class TOLVAN_API JobCommandMenu : public wxMenu
{
public:
    /// What an id stands for.
    struct CommandData
    {
        String name;
        String item; ///< Empty for a command with a single item.
    };

    JobCommandMenu();
    ~JobCommandMenu() override;

    /// Shows the commands of the job, as its state allows them, whose kinds (`CommandKind`) share a
    /// bit with `mask`. An empty `job`, or one of an unknown type, has none. The menu shares the
    /// job until it is filled with another.
    void Fill(const boost::shared_ptr<Job>& job, int mask);
    /// Runs the command behind the id on the job that the menu was last filled with, also when the
    /// menu has not shown it since: ids keep their meaning as long as the menu lives. It stays that
    /// job until the command is over, even if the menu is filled with another meanwhile. Whether it
    /// is the id of a command, run or not.
    bool TryCommand(long id);

    /// Adds a command at the end: a separator, an item, or a submenu of its items for the job.
    void InsertCommand(const CommandInfo& command);
    /// Adds an item to `menu`, showing `label` or, if that is empty, `name`; behind "DISABLED:" it
    /// is disabled. The item's id, which is always the same for the same command; `wxID_NONE`
    /// without a menu.
    long DoInsertCommand(wxMenu* menu, const String& name, const String& label, const String& help);

    /// Called before a command is run; false leaves it at that. `item` is empty for a command with
    /// a single item.
    virtual bool PreProcessCommand(const String& name, const String& item);
    /// Runs the command on the job. A failure, as an `Exception*`, is told to the user.
    virtual void DoProcessCommand(const String& name, const String& item);
    /// Called after a command was run, or has failed.
    virtual void PostProcessCommand(const String& name, const String& item);

protected:
    /// While a command is run, the job that it is for; else the one that was filled in. Null
    /// without one.
    const boost::shared_ptr<Job>& GetJob() const { return m_RunJob ? *m_RunJob : m_Job; }

private:
    class Run;

    void RemoveCommands();
    long IdOf(const String& key);
    void InsertSubMenu(const CommandInfo& command, const String& items);

    boost::shared_ptr<Job> m_Job;
    /// Of the command that is being run, if one is.
    std::optional<boost::shared_ptr<Job>> m_RunJob;

    int                         m_FirstItem = -1; ///< Position of what `Fill` adds; -1: not filled.
    std::map<String, long>      m_Ids;            ///< By the command's key; they only become more.
    std::map<long, CommandData> m_Commands;       ///< By id; they only become more.
};
