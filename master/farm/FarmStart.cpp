#include "master/farm/Farm.h"
#include "master/jobs/FolderLock.h"
#include "master/jobs/JobCommand.h"
#include "tolvan/Job.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Log.h"
#include "vesta/Time.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <utility>

namespace master
{
// How a waiting job becomes a running one.

namespace
{

constexpr size_t                    kMostFolderName = 60; // bytes
constexpr std::chrono::milliseconds kTryAgain{500};       // jobs whose earlier run has not ended

[[noreturn]] void Refuse(const String& text)
{
    Exception::Throw("Master", "Start", ec_Refused, text);
}

/// A folder's name that says which job it belongs to, without anything that could lead elsewhere.
String FolderName(const String& name, const String& id)
{
    String plain = name.substr(0, kMostFolderName);
    for (char& c : plain)
    {
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-' && c != '_')
        {
            c = '_';
        }
    }
    return plain + "-" + id.substr(0, 8);
}

} // namespace

void Farm::Start(JobRecord& job)
{
    try
    {
        if (!Launch(job))
        {
            return;
        }
        job.SetHasProcess(true);
        job.SetState(JobState::kRunning);
        job.Set(p_Error, String()); // Until now perhaps what it waited for.
        job.Set(p_Started, String::FromInt(Time::CurrentTime().ToMicroseconds()));
        LogInfo("Started job " + job.Get(p_Name) + ", output in " + job.Get(p_LogFile));
        Announce(job);
    }
    catch (Exception* exception)
    {
        const String text2 = exception->Text2().empty() ? String() : ": " + exception->Text2();
        End(job, JobState::kFailed, exception->Text() + text2);
        delete exception;
    }
}

/// False when the job has to wait for an earlier run of it, of a master that was killed perhaps.
bool Farm::Launch(JobRecord& job)
{
    const auto type = m_Types.GetTypeInfo(UID(job.Get(p_Type)), true);
    if (!type)
    {
        Refuse("The job's type is no longer there");
    }
    const Path folder = FolderOf(job);
    File::MakeFolder(folder);
    const Descriptor lock = LockFolder(folder); // Given back here; the run's processes keep it.
    if (!lock.IsOpen())
    {
        HoldUp(job, folder);
        return false;
    }
    ChildSpec childSpec = MakeSpec(job, *type, folder);
    childSpec.kept = lock.Get();
    const Path logFile = JobLog::MakeRoom(folder);
    const auto runner = std::make_shared<JobRunner>(
        m_Context, JobRunner::Events{[this, &job](std::string_view line) { OnOutput(job, line); },
                                     [this, &job](const String& why) { OnTrouble(job, why); },
                                     [this, &job](const ChildExit& exit, size_t lost)
                                     { OnEnded(job, exit, lost); }});
    const String failure = runner->Start(childSpec, logFile);
    if (!failure.empty())
    {
        Refuse(failure);
    }
    m_Runners[job.Id()] = runner;
    job.Set(p_LogFile, logFile.Text());
    return true;
}

void Farm::HoldUp(JobRecord& job, const Path& folder)
{
    job.SetHeldUp(true);
    if (job.Get(p_Error).empty()) // The first time: it is not looked for and told again.
    {
        String processes;
        for (const int id : HoldersOf(folder))
        {
            processes += (processes.empty() ? "" : ", ") + String::FromInt(id);
        }
        const String text = "Waits until its earlier run has ended" +
                            (processes.empty() ? String() : " (process " + processes + ")");
        LogWarning("Job " + job.Get(p_Name) + ": " + text);
        job.Set(p_Error, text);
        Announce(job);
    }
    if (!std::exchange(m_HasHeldUp, true))
    {
        m_HeldUpTimer.expires_after(kTryAgain);
        m_HeldUpTimer.async_wait(
            [this](const boost::system::error_code& error)
            {
                if (!error)
                {
                    TryHeldUpAgain();
                }
            });
    }
}

void Farm::TryHeldUpAgain()
{
    m_HasHeldUp = false;
    for (const auto& job : m_Table.Jobs())
    {
        job->SetHeldUp(false);
    }
    Schedule();
}

ChildSpec Farm::MakeSpec(const JobRecord& job, const JobTypeInfo& type, const Path& folder) const
{
    const auto lookup = [&job](const String& name, String& value)
    {
        const auto& params = job.Params();
        const auto  found =
            std::find_if(params.begin(), params.end(),
                         [&](const auto& param) { return param.first.EqualsNoCase(name); });
        if (found != params.end())
        {
            value = found->second;
        }
        return found != params.end();
    };
    const char* const   searchPath = std::getenv("PATH");
    std::vector<String> words = CommandWords(type.ExecuteLine(), lookup);
    const String        workFolder = ExpandReferences(type.Folder(), lookup);
    ChildSpec           childSpec;
    childSpec.program = FindProgram(words[0], type.FileName().Branch(), m_Settings.ownFolder,
                                    searchPath ? searchPath : "/usr/bin:/bin");
    childSpec.words.assign(words.begin() + 1, words.end());
    childSpec.folder = workFolder.empty() ? folder : Path(workFolder);
    if (childSpec.folder.Text()[0] != '/')
    {
        childSpec.folder = folder / workFolder;
    }
    if (!File::IsFolder(childSpec.folder))
    {
        Refuse("There is no folder " + childSpec.folder.Text() + " to run in");
    }
    return childSpec;
}

Path Farm::FolderOf(const JobRecord& job) const
{
    return m_Settings.runFolder / FolderName(job.Get(p_Name), job.Id());
}
} // namespace master
