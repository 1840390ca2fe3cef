#include "tests/master/MasterFixture.h"

#include "tolvan/SocketFolder.h"
#include "vesta/UID.h"

#include <cstdlib>
#include <fstream>

const char* const kScriptType = "Script";

namespace
{

const char* const kScriptModule =
    "[Type]\nId = 11111111-2222-3333-4444-555555555555\nName = Script\n"
    "Execute = /bin/sh -c %Script%\n[Parameter Script]\n";

} // namespace

char ProcessState(pid_t id)
{
    std::ifstream     file("/proc/" + std::to_string(id) + "/stat");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const size_t      end = text.rfind(')'); // of the program's name, which may hold anything
    const bool        isThere = end != std::string::npos && end + 2 < text.size();
    return isThere && text[end + 2] != 'Z' ? text[end + 2] : '\0';
}

bool MasterClient::Connect()
{
    const auto connects = [this]
    {
        peer = TestPeer::ConnectTo(SocketFolder::ForMaster());
        return peer.IsConnected();
    };
    return WaitFor(connects) &&
           peer.Send(Message(msg_Hello).Set("component", "TolvanTest").Set("user", "tester")) &&
           ReadUntil([this] { return !others.empty() && others[0]->Type() == msg_Welcome; });
}

bool MasterClient::ReadUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds    deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition())
    {
        const auto message = peer.Receive();
        if (!message || std::chrono::steady_clock::now() > end)
        {
            return false;
        }
        Take(message);
    }
    return true;
}

void MasterClient::Take(const boost::shared_ptr<Message>& message)
{
    const String id = message->Get(p_Id);
    if (message->Type() == msg_Job)
    {
        jobs[id] = message->Fields();
    }
    else if (message->Type() == msg_Output)
    {
        lines[id].push_back(message->Get("Line"));
        Time& last = lastLine[id];
        EXPECT_LT(last, Time(message->GetInt("Time")));
        last = Time(message->GetInt("Time"));
    }
    else if (message->Type() == msg_Skipped)
    {
        skipped[id] += message->GetInt("Count");
        EXPECT_EQ(message->Get("File"), Param(id, p_LogFile));
    }
    else
    {
        others.push_back(message);
    }
}

bool MasterClient::WaitForState(const String& job, const String& state)
{
    return ReadUntil([&] { return Param(job, p_State) == state; });
}

boost::shared_ptr<Message> MasterClient::Ask(Message message)
{
    const String request = UID::Create().ToString();
    message.Set("Request", request);
    peer.Send(message);
    const auto isAnswered = [&]
    { return !others.empty() && others.back()->Get("Request") == request; };
    return ReadUntil(isAnswered) ? others.back() : nullptr;
}

String MasterClient::Submit(const String& script, const String& name, int priority)
{
    const auto answer = Ask(Message(msg_Submit)
                                .Set(p_Type, kScriptType)
                                .Set(p_Name, name)
                                .Set(p_Priority, priority)
                                .Set("Script", script));
    EXPECT_EQ(Outcome(answer), "");
    return answer ? answer->Get(p_Id) : String();
}

String MasterClient::Param(const String& job, const String& name) const
{
    const auto found = jobs.find(job);
    const bool isThere = found != jobs.end() && found->second.count(name) > 0;
    return isThere ? found->second.at(name) : String();
}

String MasterClient::Text(const String& job)
{
    String text;
    for (const String& line : lines[job])
    {
        text += line + "\n";
    }
    return text;
}

long long MasterClient::FirstNumber(const String& job)
{
    EXPECT_TRUE(ReadUntil([&] { return !lines[job].empty(); }));
    return lines[job].empty() ? 0 : lines[job][0].ToInt();
}

String MasterClient::Does(const String& job, const String& command, const String& item)
{
    return Outcome(
        Ask(Message(msg_Command).Set(p_Id, job).Set("Command", command).Set("Item", item)));
}

String MasterClient::Outcome(const boost::shared_ptr<Message>& answer)
{
    if (!answer)
    {
        return "silence";
    }
    return answer->Type() == msg_Done ? String()
                                      : answer->Get("Text") + " / " + answer->Get("Text2");
}

MasterTest::MasterTest()
{
    File::MakeFolder(TempFile("modules"));
    File::MakeFolder(TempFile("jobs"));
    WriteFile(TempFile("modules/script.module"), kScriptModule);
    setenv("TOLVAN_USER_DIR", File::s_UserDir.c_str(), 1);
}

MasterTest::~MasterTest()
{
    if (master)
    {
        master->Signal(SIGTERM);
        EXPECT_EQ(WaitForEnd(), 0); // a sanitizer's complaints count too
    }
    if (HasFailure())
    {
        std::fputs(LogText().c_str(), stderr);
    }
}

void MasterTest::Launch(const std::vector<String>& options)
{
    std::vector<String> words = {MASTER_PROGRAM};
    for (const char* const folder : {"modules", "jobs", "run-folder", "log-dir"})
    {
        words.insert(words.end(), {String("--") + folder, TempFile(folder).Text()});
    }
    words.insert(words.end(), options.begin(), options.end());
    master = std::make_unique<Program>(words, TempFile("console").Text());
}

void MasterTest::Start(const std::vector<String>& options)
{
    Launch(options);
    ASSERT_TRUE(client.Connect());
}

int MasterTest::WaitForEnd()
{
    EXPECT_TRUE(WaitFor([&] { return master->HasEnded(); }, std::chrono::seconds(20)));
    const std::unique_ptr<Program> ended = std::move(master);
    return ended->ExitCode();
}
