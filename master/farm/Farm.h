#pragma once

#include "master/farm/Commands.h"
#include "master/jobs/JobRunner.h"
#include "master/jobs/JobTable.h"
#include "master/jobs/NewJob.h"
#include "tolvan/JobFactory.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string_view>

namespace master
{
/// The jobs and their runs: starts waiting jobs while there are slots, carries out commands and
/// tells of every change. Knows nothing of clients. One thread, that of its `io_context`.
class Farm
{
public:
    struct Settings
    {
        int  slots = 1;
        Path runFolder; ///< Holds a folder for every job.
        Path ownFolder; ///< Where job programs are looked for first.
    };
    struct Events
    {
        std::function<void(const JobRecord& job)>                                   changed;
        std::function<void(const JobRecord& job, std::string_view line, Time came)> output;
        std::function<void(const String& id)>                                       removed;
    };

    /// `types` must outlive the farm.
    Farm(boost::asio::io_context& context, JobFactory& types, Settings settings, Events events);

    /// Adds a job and starts it when there is a slot. Returns its identifier. Throws an
    /// `Exception*` (ec_Refused) when it cannot be a job at all; one that cannot be started is
    /// added, as failed.
    String Submit(const NewJob& request);
    /// Throws an `Exception*` (ec_Refused) that says why when the command is impossible.
    void Command(const String& id, const String& command, const String& item);

    void CheckChildren(); ///< To be called whenever some child process has ended.
    /// Asks all running jobs to end (and kills those that don't), or kills them at once. No job
    /// starts any more.
    void StopAll(bool atOnce);

    bool            HasRunners() const { return !m_Runners.empty(); }
    const JobTable& Table() const { return m_Table; }

private:
    boost::shared_ptr<const JobTypeInfo> FindType(const String& idOrName);
    JobRecord&                           Add(const NewJob& request, const JobTypeInfo& type);

    void      Schedule();
    void      Start(JobRecord& job);
    bool      Launch(JobRecord& job);
    void      HoldUp(JobRecord& job, const Path& folder);
    void      TryHeldUpAgain();
    ChildSpec MakeSpec(const JobRecord& job, const JobTypeInfo& type, const Path& folder) const;
    Path      FolderOf(const JobRecord& job) const;

    void Do(JobRecord& job, const Decision& decision);
    void Retry(JobRecord& job);
    void Remove(const String& id);

    void OnOutput(JobRecord& job, std::string_view line);
    void OnTrouble(JobRecord& job, const String& why);
    void OnEnded(JobRecord& job, const ChildExit& exit, size_t lost);
    void End(JobRecord& job, JobState state, const String& error);

    void Announce(const JobRecord& job);
    void AnnounceSoon(const JobRecord& job);
    void AnnounceProgress();

    boost::asio::io_context&                     m_Context;
    JobFactory&                                  m_Types;
    Settings                                     m_Settings;
    Events                                       m_Events;
    JobTable                                     m_Table;
    std::map<String, std::shared_ptr<JobRunner>> m_Runners; ///< By the job's identifier.
    std::set<String>                             m_ToKill;  ///< Jobs that were told to end.
    std::set<String>                             m_Unannounced;
    boost::asio::steady_timer                    m_AnnounceTimer;
    boost::asio::steady_timer                    m_HeldUpTimer;
    bool                                         m_IsAnnouncing = false;
    bool                                         m_HasHeldUp = false;
    bool                                         m_IsStopping = false;
};
} // namespace master
