#include "master/Master.h"

#include "tolvan/Job.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"
#include "vesta/Platform.h"
#include "wire/Framing.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include <unistd.h>

namespace asio = boost::asio;

namespace
{

constexpr size_t               kMostClients = 256;
constexpr std::chrono::seconds kAcceptAgain{1}; // after there were no descriptors left

master::Frame MakeFrame(const Message& message)
{
    return std::make_shared<const String>(wire::Framing::Wrap(message.Encode()));
}

master::Frame OutputFrame(const String& job, std::string_view line, Time came)
{
    return MakeFrame(Message(msg_Output)
                         .Set(p_Id, job)
                         .Set("Line", std::string(line))
                         .Set("Time", static_cast<long long>(came.ToMicroseconds())));
}

/// The master's description of a job; "Priority" and the others as the job model names them.
master::Frame JobFrame(const master::JobRecord& job)
{
    Message message(msg_Job);
    for (const auto& [name, value] : job.Params())
    {
        message.Set(name, value);
    }
    return MakeFrame(message);
}

Message FailureMessage(const String& request, const Exception& exception)
{
    return Message(msg_Failed)
        .Set("Request", request)
        .Set("Text", exception.Text())
        .Set("Text2", exception.Text2());
}

} // namespace

Master::Master(const master::Options& options)
    : m_Options(options),
      m_Types(options.modulesFolder),
      m_Farm(m_Context, m_Types, {options.slots, options.runFolder, options.ownFolder},
             {[this](const master::JobRecord& job) { OnJobChanged(job); },
              [this](const master::JobRecord& job, std::string_view line, Time came)
              { OnOutput(job, line, came); },
              [this](const String& id) { OnJobRemoved(id); }}),
      m_Listener(m_Context),
      m_Signals(m_Context, SIGCHLD, SIGTERM, SIGINT),
      m_AcceptTimer(m_Context),
      m_EndTimer(m_Context)
{
    m_Signals.add(SIGUSR1);
}

Master::~Master() = default;

void Master::Run()
{
    Listen();
    WaitForSignals();
    LoadJobs();
    EndWhenUnneeded();
    while (!m_Context.stopped())
    {
        // What one handler could not do must not end the other jobs.
        Guarded("A handler of the master", [this] { m_Context.run(); });
    }
}

void Master::Listen()
{
    m_Listener.assign(wire::LocalSocket::Listen(SocketFolder::ForMaster()).Release());
    LogInfo("Clients are expected on " + SocketFolder::ForMaster().Text());
    WaitForClients();
}

void Master::WaitForClients()
{
    m_Listener.async_wait(asio::posix::stream_descriptor::wait_read,
                          [this](const boost::system::error_code& error)
                          {
                              if (!error && !m_IsEnding)
                              {
                                  AcceptClients();
                              }
                          });
}

void Master::AcceptClients()
{
    for (;;)
    {
        Descriptor socket = wire::LocalSocket::Accept(m_Listener.native_handle());
        if (socket.IsOpen())
        {
            AddClient(std::move(socket));
        }
        else if (errno != EINTR && errno != ECONNABORTED)
        {
            break;
        }
    }
    if (errno == EAGAIN || errno == EWOULDBLOCK)
    {
        WaitForClients();
        return;
    }
    // Too many open files, most likely: waiting on the socket would only spin.
    LogWarning(String("A client cannot be let in: ") + std::strerror(errno));
    m_AcceptTimer.expires_after(kAcceptAgain);
    m_AcceptTimer.async_wait(
        [this](const boost::system::error_code& error)
        {
            if (!error && !m_IsEnding)
            {
                WaitForClients();
            }
        });
}

void Master::AddClient(Descriptor socket)
{
    const wire::LocalSocket::Peer peer = wire::LocalSocket::PeerOf(socket.Get());
    if (!peer.isOurs)
    {
        LogWarning(SFormat("A connection of user %d was refused", peer.userId));
        return;
    }
    if (m_Sessions.size() >= kMostClients)
    {
        if (!std::exchange(m_IsFull, true)) // One line for a flood.
        {
            LogWarning("A connection was refused: there are too many");
        }
        return;
    }
    const auto session = std::make_shared<master::ClientSession>(
        m_Context, std::move(socket), static_cast<master::ClientSession::Host&>(*this),
        MakeQueue());
    m_Sessions.insert(session);
    session->Start();
}

master::SendQueue Master::MakeQueue()
{
    const auto makeJob = [this](const String& id)
    {
        const master::JobRecord* const job = m_Farm.Table().Find(id);
        return job ? JobFrame(*job) : nullptr;
    };
    const auto makeSkipped = [this](const String& id, uint64_t count)
    {
        const master::JobRecord* const job = m_Farm.Table().Find(id);
        return MakeFrame(Message(msg_Skipped)
                             .Set(p_Id, id)
                             .Set("Count", static_cast<long long>(count))
                             .Set("File", job ? job->Get(p_LogFile) : String()));
    };
    return master::SendQueue(makeJob, makeSkipped);
}

void Master::OnHello(master::ClientSession& session)
{
    m_HadClient = true;
    EndWhenUnneeded();
    SendEverything(session);
}

void Master::SendEverything(master::ClientSession& session)
{
    const auto& jobs = m_Farm.Table().Jobs();
    session.Send(MakeFrame(Message(msg_Welcome)
                               .Set("version", TOLVAN_VERSION)
                               .Set("jobs", static_cast<long long>(jobs.size()))));
    for (const auto& job : jobs)
    {
        session.SendJob(job->Id());
    }
    SendTails(session);
}

/// The last lines of all jobs in the order in which they came.
void Master::SendTails(master::ClientSession& session)
{
    std::vector<std::pair<const master::OutputTail::Line*, const master::JobRecord*>> lines;
    for (const auto& job : m_Farm.Table().Jobs())
    {
        for (const master::OutputTail::Line& line : job->Tail().Lines())
        {
            lines.emplace_back(&line, job.get());
        }
    }
    std::sort(lines.begin(), lines.end(),
              [](const auto& a, const auto& b) { return a.first->came < b.first->came; });
    for (const auto& [line, job] : lines)
    {
        session.SendOutput(job->Id(), [line = line, job = job]
                           { return OutputFrame(job->Id(), line->text, line->came); });
    }
}

void Master::OnMessage(master::ClientSession& session, const Message& message)
{
    try
    {
        if (message.Type() == msg_Submit)
        {
            Submit(session, message);
        }
        else if (message.Type() == msg_Command)
        {
            Command(session, message);
        }
        else
        {
            Exception::Throw("Master", "OnMessage", ec_Refused,
                             "The master does not take messages of the type '" + message.Type() +
                                 "'");
        }
    }
    catch (Exception* exception)
    {
        exception->Log(log_Notice);
        session.Send(MakeFrame(FailureMessage(message.Get("Request"), *exception)));
        delete exception;
    }
}

void Master::Submit(master::ClientSession& session, const Message& message)
{
    const String id = m_Farm.Submit(master::NewJob::FromMessage(message));
    session.Send(MakeFrame(Message(msg_Done).Set("Request", message.Get("Request")).Set(p_Id, id)));
}

void Master::Command(master::ClientSession& session, const Message& message)
{
    const String id = message.Get(p_Id);
    m_Farm.Command(id, message.Get("Command"), message.Get("Item"));
    session.Send(MakeFrame(Message(msg_Done).Set("Request", message.Get("Request")).Set(p_Id, id)));
}

void Master::OnGone(master::ClientSession& session)
{
    m_Sessions.erase(session.shared_from_this());
    m_IsFull = false;
    EndWhenUnneeded();
}

void Master::OnJobChanged(const master::JobRecord& job)
{
    for (const auto& session : m_Sessions)
    {
        if (session->HasIntroduced())
        {
            session->SendJob(job.Id());
        }
    }
    if (IsEnded(job.State()))
    {
        EndWhenUnneeded();
        StopWhenOver();
    }
}

void Master::OnJobRemoved(const String& id)
{
    const master::Frame frame = MakeFrame(Message(msg_JobGone).Set(p_Id, id));
    const auto          sessions = m_Sessions; // one that does not read is ended
    for (const auto& session : sessions)
    {
        if (session->HasIntroduced())
        {
            session->Send(frame);
        }
    }
}

void Master::OnOutput(const master::JobRecord& job, std::string_view line, Time came)
{
    master::Frame frame; // made once, and only if somebody takes it
    const auto    make = [&]
    {
        if (!frame)
        {
            frame = OutputFrame(job.Id(), line, came);
        }
        return frame;
    };
    for (const auto& session : m_Sessions)
    {
        if (session->HasIntroduced())
        {
            session->SendOutput(job.Id(), make);
        }
    }
}

void Master::LoadJobs()
{
    const std::vector<Path> files = master::FindJobFiles(m_Options.jobsFolder);
    LogInfo(SFormat("%zu jobs in %s", files.size(), m_Options.jobsFolder.Text().c_str()));
    for (const Path& file : files)
    {
        Guarded("Taking the job " + file.Text(),
                [&] { m_Farm.Submit(master::NewJob::FromFile(file)); });
    }
}

void Master::WaitForSignals()
{
    m_Signals.async_wait(
        [this](const boost::system::error_code& error, int signal)
        {
            if (!error)
            {
                WaitForSignals();
                OnSignal(signal);
            }
        });
}

void Master::OnSignal(int signal)
{
    switch (signal)
    {
    case SIGCHLD:
        m_Farm.CheckChildren();
        break;
    case SIGUSR1:
        ShutDownClients();
        break;
    default:
        End(SFormat("signal %d", signal));
        break;
    }
}

void Master::ShutDownClients()
{
    LogSystem("All clients are asked to close");
    const master::Frame frame =
        MakeFrame(Message(msg_Shutdown).Set("Reason", "The farm's operator closes all clients"));
    const auto sessions = m_Sessions;
    for (const auto& session : sessions)
    {
        if (session->HasIntroduced())
        {
            session->Send(frame);
        }
    }
}

bool Master::IsNeeded() const
{
    const bool hasClient =
        std::any_of(m_Sessions.begin(), m_Sessions.end(),
                    [](const auto& session) { return session->HasIntroduced(); });
    return m_Options.stays || hasClient || m_Farm.Table().HasUnended();
}

void Master::EndWhenUnneeded()
{
    const bool wasUnneeded = std::exchange(m_IsUnneeded, !IsNeeded());
    // Whoever only asks whether a master runs, and goes, does not make the time begin anew.
    if (m_IsEnding || !m_IsUnneeded || wasUnneeded)
    {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    const auto graceEnd = now + m_Options.grace;
    m_EndTimer.expires_at(m_HadClient ? graceEnd
                                      : std::max(graceEnd, m_Begin + m_Options.firstClient));
    m_EndTimer.async_wait(
        [this](const boost::system::error_code& error)
        {
            // Somebody may have come just when the time was over.
            if (!error && !IsNeeded())
            {
                End("nobody needs it any more");
            }
        });
}

void Master::End(const String& why)
{
    if (m_IsEnding)
    {
        m_Farm.StopAll(true); // asked again: the jobs have had their chance
        return;
    }
    LogSystem("The master ends: " + why);
    m_IsEnding = true;
    // From here on the next master may not yet start, but nobody finds this one any more.
    unlink(SocketFolder::ForMaster().Text().c_str());
    m_Listener.close();
    m_EndTimer.cancel();
    m_AcceptTimer.cancel();
    for (const auto& session : m_Sessions)
    {
        session->Close();
    }
    m_Sessions.clear();
    m_Farm.StopAll(false);
    StopWhenOver();
}

void Master::StopWhenOver()
{
    if (m_IsEnding && !m_Farm.HasRunners())
    {
        m_Context.stop();
    }
}
