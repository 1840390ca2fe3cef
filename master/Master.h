#pragma once

#include "master/Options.h"
#include "master/farm/Farm.h"
#include "master/protocol/ClientSession.h"
#include "tolvan/JobFactory.h"
#include "wire/LocalSocket.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>

#include <memory>
#include <set>

/// The master of a farm of one machine: joins the farm's jobs to the clients that are connected to
/// its socket, and ends when nobody needs it any more. One thread.
class Master : private master::ClientSession::Host
{
public:
    explicit Master(const master::Options& options);
    ~Master() override;

    /// Opens the socket, loads the jobs and runs until the end. Throws an `Exception*` when the
    /// socket cannot be had. Whoever calls this holds the lock of the one master.
    void Run();

private:
    void OnHello(master::ClientSession& session) override;
    void OnMessage(master::ClientSession& session, const Message& message) override;
    void OnGone(master::ClientSession& session) override;

    void OnJobChanged(const master::JobRecord& job);
    void OnJobRemoved(const String& id);
    void OnOutput(const master::JobRecord& job, std::string_view line, Time came);

    void              Listen();
    void              WaitForClients();
    void              AcceptClients();
    void              AddClient(Descriptor socket);
    master::SendQueue MakeQueue();
    void              SendEverything(master::ClientSession& session);
    void              SendTails(master::ClientSession& session);
    void              Submit(master::ClientSession& session, const Message& message);
    void              Command(master::ClientSession& session, const Message& message);

    void LoadJobs();
    void WaitForSignals();
    void OnSignal(int signal);
    void ShutDownClients();

    bool IsNeeded() const;
    void EndWhenUnneeded();
    void End(const String& why);
    void StopWhenOver();

    master::Options                                  m_Options;
    boost::asio::io_context                          m_Context;
    JobFactory                                       m_Types;
    master::Farm                                     m_Farm;
    boost::asio::posix::stream_descriptor            m_Listener;
    boost::asio::signal_set                          m_Signals;
    boost::asio::steady_timer                        m_AcceptTimer;
    boost::asio::steady_timer                        m_EndTimer;
    std::set<std::shared_ptr<master::ClientSession>> m_Sessions;
    std::chrono::steady_clock::time_point            m_Begin = std::chrono::steady_clock::now();
    bool                                             m_HadClient = false;
    bool                                             m_IsUnneeded = false; ///< As looked at last.
    bool m_IsFull = false; ///< Refuses clients just now.
    bool m_IsEnding = false;
};
