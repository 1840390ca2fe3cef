#pragma once

#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/Program.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Job.h"
#include "tolvan/Message.h"
#include "vesta/Time.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <vector>

/// A client of the real master: keeps what it has been told.
class MasterClient
{
public:
    /// Connects and introduces itself; waits for the master to answer.
    bool Connect();
    /// Reads what comes until the condition holds; false after a deadline or at the end.
    bool ReadUntil(const std::function<bool()>& condition,
                   std::chrono::milliseconds    deadline = std::chrono::seconds(20));
    bool WaitForState(const String& job, const String& state);

    /// Sends a request and waits for its answer: msg_Done, msg_Failed or null.
    boost::shared_ptr<Message> Ask(Message message);
    /// A job that runs a script; its identifier.
    String Submit(const String& script, const String& name = "Test", int priority = 50);
    /// What a command is refused for; empty when it is done.
    String Does(const String& job, const String& command, const String& item = String());
    /// The same of an answer.
    static String Outcome(const boost::shared_ptr<Message>& answer);

    String Param(const String& job, const String& name) const;
    String Text(const String& job); ///< Its lines, each with "\n".
    /// The number that the job's first line holds; waits for it.
    long long FirstNumber(const String& job);

    TestPeer                                   peer;
    std::map<String, std::map<String, String>> jobs;
    std::map<String, std::vector<String>>      lines;
    std::map<String, long long>                skipped;
    std::map<String, Time>                     lastLine; ///< When it came.
    std::vector<boost::shared_ptr<Message>>    others;   ///< Of all other types.

private:
    void Take(const boost::shared_ptr<Message>& message);
};

/// Runs the real master on folders of the test's own, with the job type "Script", which runs its
/// parameter in a shell.
class MasterTest : public UserFolderTest
{
protected:
    MasterTest();
    ~MasterTest() override;

    /// Starts a master that stays unless told otherwise, and connects the client.
    void Start(const std::vector<String>& options = {"--stay"});
    /// Starts it without waiting for anything.
    void Launch(const std::vector<String>& options);
    /// Waits for the master's end; its exit code, or -1 when a signal ended it or it goes on.
    int WaitForEnd();
    /// What the master has written to its console.
    String Console() const { return ReadFile(TempFile("console")); }
    String LogText() const { return ReadFile(TempFile("log-dir/TolvanMaster.log")); }

    MasterClient             client;
    std::unique_ptr<Program> master; ///< Null while none runs.
};

extern const char* const kScriptType;

/// The state letter of a process in the system's table ('T' is stopped); 0 when it is gone.
char ProcessState(pid_t id);
