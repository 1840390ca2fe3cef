#pragma once

#include "tests/support/WaitFor.h"
#include "tolvan/Message.h"
#include "vesta/Descriptor.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <boost/shared_ptr.hpp>

#include <optional>

/// A socket that listens there; nobody accepts unless the test does.
Descriptor ListenAt(const Path& path, int backlog = 8);

/// One end of a local connection that says exactly what a test wants it to say. Blocks, but for no
/// longer than ten seconds at a time.
class TestPeer
{
public:
    explicit TestPeer(Descriptor socket = Descriptor());

    static TestPeer ConnectTo(const Path& path);

    bool IsConnected() const { return m_Socket.IsOpen(); }
    bool Send(const String& bytes);
    bool Send(const Message& message);
    /// Nothing when the other side has closed, or is silent for too long.
    boost::shared_ptr<Message> Receive();
    /// Whether the other side closes the connection (what it says before is dropped).
    bool SeesEnd();
    void Close() { m_Socket.Close(); }

private:
    std::optional<String> Read(size_t count);

    Descriptor m_Socket;
};

/// Plays the master: takes connections at the master's socket.
class TestMaster
{
public:
    TestMaster();
    ~TestMaster();

    TestPeer Accept(); ///< Waits for the next connection.

private:
    const Path m_Path;
    Descriptor m_Socket;
};
