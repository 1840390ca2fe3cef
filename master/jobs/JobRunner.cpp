#include "master/jobs/JobRunner.h"

#include <boost/asio/buffer.hpp>

#include <csignal>

namespace master
{
namespace
{

constexpr std::chrono::milliseconds kRetryWriting{500};
// After the program's end: for what is still in the pipe, and for a process that left the group
// and holds it open.
constexpr std::chrono::milliseconds kDrain{2000};
constexpr std::chrono::milliseconds kDrainInTrouble{5000};

} // namespace

JobRunner::JobRunner(boost::asio::io_context& context, Events events)
    : m_Events(std::move(events)),
      m_Output(context),
      m_KillTimer(context),
      m_DrainTimer(context),
      m_RetryTimer(context)
{
}

String JobRunner::Start(const ChildSpec& childSpec, const Path& logFile)
{
    String failure = m_Log.Open(logFile);
    if (failure.empty())
    {
        failure = m_Child.Start(childSpec);
    }
    if (!failure.empty())
    {
        return failure;
    }
    Descriptor output = m_Child.TakeOutput();
    Error      error;
    m_Output.assign(output.Get(), error);
    if (error)
    {
        return "Its output cannot be read: " + error.message();
    }
    output.Release();
    Read();
    return String();
}

void JobRunner::Suspend()
{
    m_Child.SignalGroup(SIGSTOP);
}

void JobRunner::Resume()
{
    m_Child.SignalGroup(SIGCONT);
}

void JobRunner::Stop()
{
    if (!m_Child.IsAlive() || m_IsStopping)
    {
        return;
    }
    m_IsStopping = true;
    m_Child.SignalGroup(SIGTERM);
    m_Child.SignalGroup(SIGCONT); // a stopped process would not notice
    m_KillTimer.expires_after(k_KillAfter);
    m_KillTimer.async_wait(
        [self = shared_from_this()](const Error& error)
        {
            if (!error)
            {
                self->Kill();
            }
        });
}

void JobRunner::Kill()
{
    m_Child.SignalGroup(SIGKILL);
}

void JobRunner::CheckExit()
{
    if (!m_HasExited && m_Child.Collect(m_Exit))
    {
        m_HasExited = true;
        m_KillTimer.cancel();
        EndWithin(m_InTrouble ? kDrainInTrouble : kDrain);
        TryToFinish();
    }
}

void JobRunner::Read()
{
    m_Output.async_read_some(boost::asio::buffer(m_Chunk),
                             [self = shared_from_this()](const Error& error, size_t count)
                             { self->OnRead(error, count); });
}

void JobRunner::OnRead(const Error& error, size_t count)
{
    if (m_IsFinished)
    {
        return;
    }
    if (error)
    {
        Error ignored;
        m_Output.close(ignored);
        TryToFinish();
        return;
    }
    m_Unwritten = std::string_view(m_Chunk.data(), count);
    TakeOutput();
}

/// First to the log, then to the clients: what they have seen is never lost.
void JobRunner::TakeOutput()
{
    if (WriteLog())
    {
        Read();
    }
    else
    {
        RetryLater();
    }
}

bool JobRunner::WriteLog()
{
    String       why;
    const size_t count = m_Log.Write(m_Unwritten, why);
    m_Lines.Add(m_Unwritten.substr(0, count), m_Events.output);
    m_Unwritten.remove_prefix(count);
    if (m_Unwritten.empty() == m_InTrouble)
    {
        m_InTrouble = !m_InTrouble;
        m_Events.trouble(why);
    }
    return m_Unwritten.empty();
}

void JobRunner::RetryLater()
{
    m_RetryTimer.expires_after(kRetryWriting);
    m_RetryTimer.async_wait(
        [self = shared_from_this()](const Error& error)
        {
            if (!error && !self->m_IsFinished)
            {
                self->TakeOutput();
            }
        });
}

void JobRunner::EndWithin(std::chrono::milliseconds time)
{
    m_DrainTimer.expires_after(time);
    m_DrainTimer.async_wait(
        [self = shared_from_this()](const Error& error)
        {
            if (!error)
            {
                self->Finish();
            }
        });
}

void JobRunner::TryToFinish()
{
    if (m_HasExited && !m_Output.is_open())
    {
        Finish();
    }
}

void JobRunner::Finish()
{
    if (m_IsFinished)
    {
        return;
    }
    m_IsFinished = true;
    Error ignored;
    m_Output.close(ignored);
    m_DrainTimer.cancel();
    m_RetryTimer.cancel();
    m_Log.Close();
    m_Lines.Finish(m_Events.output);
    const Events events = std::move(m_Events); // they may hold whoever holds this
    events.ended(m_Exit, m_Unwritten.size());
}
} // namespace master
