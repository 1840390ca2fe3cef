#include "master/farm/Farm.h"

#include "master/farm/Scheduler.h"
#include "master/jobs/ProgressParser.h"
#include "tolvan/Job.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Log.h"
#include "vesta/Platform.h"
#include "vesta/Time.h"
#include "vesta/UID.h"

#include <algorithm>
#include <vector>

namespace master
{
namespace
{

constexpr size_t kMostParameters = 256 << 10; // bytes of names and values: they go into one frame
constexpr std::chrono::milliseconds kProgressEvery{100};

[[noreturn]] void Refuse(const char* method, const String& text, const String& text2 = String())
{
    Exception::Throw("Master", method, ec_Refused, text, text2);
}

String Now()
{
    return String::FromInt(Time::CurrentTime().ToMicroseconds());
}

/// As the type spells it; whoever writes a job may do it otherwise.
String ParamName(const JobTypeInfo& type, const String& name)
{
    for (int i = 0; i < type.ParamCount(); ++i)
    {
        if (type.GetParam(i).name.EqualsNoCase(name))
        {
            return type.GetParam(i).name;
        }
    }
    return name;
}

/// The type's defaults with the job's own values over them.
std::map<String, String> MergedParams(const NewJob& request, const JobTypeInfo& type)
{
    std::map<String, String> params;
    for (int i = 0; i < type.ParamCount(); ++i)
    {
        params[type.GetParam(i).name] = type.GetParam(i).value;
    }
    for (const auto& [name, value] : request.params)
    {
        params[ParamName(type, name)] = value;
    }
    return params;
}

void CheckValues(const std::map<String, String>& params, const JobTypeInfo& type)
{
    const auto lookup = [&](const String& name)
    {
        const auto found = params.find(ParamName(type, name));
        return found == params.end() ? String() : found->second;
    };
    for (int i = 0; i < type.ParamCount(); ++i)
    {
        const JobParamInfo& info = type.GetParam(i);
        if (!info.Accepts(lookup(info.name), lookup))
        {
            Refuse("Submit",
                   "The job's parameter " + info.name + " must be " + info.Requirement(lookup));
        }
    }
}

void CheckSize(const String& name, const std::map<String, String>& params)
{
    size_t bytes = name.size();
    for (const auto& [key, value] : params)
    {
        bytes += key.size() + value.size();
    }
    if (bytes > kMostParameters)
    {
        Refuse("Submit",
               SFormat("The job's parameters are larger than %zu bytes", kMostParameters));
    }
}

int ReadPriority(const String& text)
{
    if (text.empty())
    {
        return JobRecord::k_DefaultPriority;
    }
    const Decision decision = Decide(JobRecord("", 0), command_SetPriority, text);
    if (decision.action == Action::kRefuse)
    {
        Refuse("Submit", decision.reason);
    }
    return decision.priority;
}

void SetProgress(JobRecord& job, const Progress& progress)
{
    job.Set(p_Progress, String::FromInt(progress.percent));
    if (progress.frameCount > 0)
    {
        job.Set(p_FramesDone, String::FromInt(progress.framesDone));
        job.Set(p_FrameCount, String::FromInt(progress.frameCount));
    }
}

/// Forgets what an earlier run has left behind.
void ResetRun(JobRecord& job)
{
    for (const String& name : {p_FramesDone, p_FrameCount, p_Started, p_Ended, p_ExitCode, p_Error})
    {
        job.Set(name, String());
    }
    job.Set(p_Progress, "0");
    job.Tail().Clear();
}

} // namespace

Farm::Farm(boost::asio::io_context& context, JobFactory& types, Settings settings, Events events)
    : m_Context(context),
      m_Types(types),
      m_Settings(std::move(settings)),
      m_Events(std::move(events)),
      m_AnnounceTimer(context),
      m_HeldUpTimer(context)
{
}

boost::shared_ptr<const JobTypeInfo> Farm::FindType(const String& idOrName)
{
    if (const UID id(idOrName); !id.IsNull())
    {
        return m_Types.GetTypeInfo(id, true);
    }
    for (const UID& id : m_Types.ListTypes())
    {
        auto type = m_Types.GetTypeInfo(id, false);
        if (type && type->Name().EqualsNoCase(idOrName))
        {
            return type;
        }
    }
    return nullptr;
}

String Farm::Submit(const NewJob& request)
{
    const auto type = FindType(request.type);
    if (!type)
    {
        Refuse("Submit", "There is no job type '" + request.type + "'",
               "The types are read from " + m_Types.Folder().Text());
    }
    if (m_IsStopping || m_Table.IsFull())
    {
        Refuse("Submit", m_IsStopping ? "The master is about to end" : "There are too many jobs");
    }
    String id = Add(request, *type).Id();
    Schedule();
    return id;
}

JobRecord& Farm::Add(const NewJob& request, const JobTypeInfo& type)
{
    // Whatever is wrong is refused before the job is there.
    const int                      priority = ReadPriority(request.priority);
    const std::map<String, String> params = MergedParams(request, type);
    CheckSize(request.name, params);
    CheckValues(params, type);

    const bool isNew = request.id.empty() || m_Table.Find(request.id);
    JobRecord& job = m_Table.Add(isNew ? UID::Create().ToString() : request.id);
    for (const auto& [name, value] : params)
    {
        job.Set(name, value);
    }
    job.Set(p_Name, request.name.empty() ? type.Name() : request.name);
    job.Set(p_Type, type.Id().ToString());
    job.Set(p_User, Platform::GetCurrentUserName());
    job.Set(p_Host, Platform::GetHostName());
    job.Set(p_Folder, FolderOf(job).Text());
    job.SetPriority(priority);
    ResetRun(job);
    Announce(job);
    return job;
}

void Farm::Schedule()
{
    while (!m_IsStopping)
    {
        JobRecord* const job = NextToStart(m_Table, m_Settings.slots);
        if (!job)
        {
            return;
        }
        Start(*job);
    }
}

void Farm::Command(const String& id, const String& command, const String& item)
{
    JobRecord* const job = m_Table.Find(id);
    if (!job)
    {
        Refuse("Command", "There is no job " + id);
    }
    const Decision decision = Decide(*job, command, item);
    if (decision.action == Action::kRefuse)
    {
        Refuse("Command",
               "'" + command + "' is not possible for the job " + job->Get(p_Name) + " (" +
                   NameOf(job->State()) + ")",
               decision.reason);
    }
    LogInfo("Command '" + command + "' for the job " + job->Get(p_Name));
    Do(*job, decision);
    Schedule();
}

void Farm::Do(JobRecord& job, const Decision& decision)
{
    const auto found = m_Runners.find(job.Id());
    const auto runner = found == m_Runners.end() ? nullptr : found->second;
    switch (decision.action)
    {
    case Action::kRefuse:
        return;
    case Action::kStop:
        runner->Suspend();
        [[fallthrough]];
    case Action::kHold:
        job.SetState(JobState::kSuspended);
        break;
    case Action::kContinue:
        runner->Resume();
        job.SetState(JobState::kRunning);
        break;
    case Action::kRelease:
        job.SetState(JobState::kWaiting);
        break;
    case Action::kCancel:
        End(job, JobState::kKilled, String());
        return;
    case Action::kKill:
        m_ToKill.insert(job.Id());
        runner->Stop();
        return; // the state changes when it has ended
    case Action::kRetry:
        Retry(job);
        break;
    case Action::kSetPriority:
        job.SetPriority(decision.priority);
        break;
    case Action::kRemove:
        Remove(String(job.Id()));
        return;
    }
    Announce(job);
}

void Farm::Retry(JobRecord& job)
{
    ResetRun(job);
    job.SetState(JobState::kWaiting);
}

// What it has written stays.
void Farm::Remove(const String& id)
{
    m_Unannounced.erase(id);
    m_Table.Remove(id);
    m_Events.removed(id);
}

void Farm::OnOutput(JobRecord& job, std::string_view line)
{
    const Time came = job.Tail().Add(line);
    Progress   progress;
    if (ReadProgress(line, progress))
    {
        SetProgress(job, progress);
        AnnounceSoon(job);
    }
    m_Events.output(job, line, came);
}

void Farm::OnTrouble(JobRecord& job, const String& why)
{
    const String text = why.empty() ? String() : "Waits until its output can be written: " + why;
    LogWarning("Job " + job.Get(p_Name) + ": " +
               (why.empty() ? String("its output can be written again") : text));
    job.Set(p_Error, text);
    Announce(job);
}

void Farm::OnEnded(JobRecord& job, const ChildExit& exit, size_t lost)
{
    m_Runners.erase(job.Id());
    const bool wasTold = m_ToKill.erase(job.Id()) != 0;
    job.SetHasProcess(false);
    job.Set(p_ExitCode, exit.isSignal ? String() : String::FromInt(exit.code));
    if (lost > 0)
    {
        End(job, wasTold ? JobState::kKilled : JobState::kFailed,
            SFormat("The last output (%zu bytes or more) could not be written to ", lost) +
                job.Get(p_LogFile));
    }
    else if (wasTold)
    {
        End(job, JobState::kKilled, String());
    }
    else
    {
        End(job, exit.IsSuccess() ? JobState::kDone : JobState::kFailed,
            exit.IsSuccess() ? String() : exit.Describe());
    }
    Schedule();
}

void Farm::End(JobRecord& job, JobState state, const String& error)
{
    job.SetState(state);
    job.Set(p_Ended, Now());
    job.Set(p_Error, error);
    if (state == JobState::kDone)
    {
        job.Set(p_Progress, "100");
    }
    LogInfo("Job " + job.Get(p_Name) + ": " + NameOf(state) +
            (error.empty() ? String() : ". " + error));
    Announce(job);
}

void Farm::CheckChildren()
{
    const auto runners = m_Runners; // one that has ended leaves the map
    for (const auto& [id, runner] : runners)
    {
        runner->CheckExit();
    }
}

void Farm::StopAll(bool atOnce)
{
    m_IsStopping = true;
    for (const auto& [id, runner] : m_Runners)
    {
        m_ToKill.insert(id);
        atOnce ? runner->Kill() : runner->Stop();
    }
}

void Farm::Announce(const JobRecord& job)
{
    m_Unannounced.erase(job.Id());
    m_Events.changed(job);
}

/// Progress may change thousands of times a second; clients hear of it ten times at most.
void Farm::AnnounceSoon(const JobRecord& job)
{
    m_Unannounced.insert(job.Id());
    if (m_IsAnnouncing)
    {
        return;
    }
    m_IsAnnouncing = true;
    m_AnnounceTimer.expires_after(kProgressEvery);
    m_AnnounceTimer.async_wait(
        [this](const boost::system::error_code& error)
        {
            if (!error)
            {
                AnnounceProgress();
            }
        });
}

void Farm::AnnounceProgress()
{
    m_IsAnnouncing = false;
    const std::set<String> ids = std::move(m_Unannounced);
    m_Unannounced.clear();
    for (const String& id : ids)
    {
        m_Events.changed(*m_Table.Find(id));
    }
}
} // namespace master
