#include "tests/master/MasterFixture.h"
#include "tolvan/SocketFolder.h"
#include "wire/Framing.h"

#include <algorithm>

namespace
{

class MasterClients : public MasterTest
{
protected:
    TestPeer NewPeer() const { return TestPeer::ConnectTo(SocketFolder::ForMaster()); }

    /// Resident memory of the master in kilobytes, at its highest.
    long long PeakMemory() const
    {
        const String status = ReadFile("/proc/" + String::FromInt(master->id) + "/status");
        return String(status.substr(status.find("VmHWM:") + 6)).ToInt(-1);
    }
};

TEST_F(MasterClients, LateClientIsToldOfAllJobsAndTheirLastLines)
{
    Start();
    const String job = client.Submit("seq 1 1000");
    const String other = client.Submit("sleep 1000");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    EXPECT_EQ(client.lines[job].size(), 1000u);

    MasterClient late;
    ASSERT_TRUE(late.Connect());
    EXPECT_EQ(late.others[0]->Get("jobs"), "2");
    ASSERT_TRUE(late.ReadUntil([&] { return late.lines[job].size() == 200; }));
    EXPECT_EQ(late.lastLine[job], client.lastLine[job]) << "as it came, not as it is told";
    EXPECT_EQ(late.Param(job, p_State), state_Done);
    EXPECT_EQ(late.Param(other, p_State), state_Running);
    EXPECT_EQ(late.lines[job].front(), "801");
    EXPECT_EQ(late.lines[job].back(), "1000");
}

TEST_F(MasterClients, FloodNeitherBlocksNorGrowsTheMasterAndNoLineIsUnaccountedFor)
{
    constexpr int kRounds = 10;
#ifdef FREED_MEMORY_IS_KEPT
    constexpr long long kMostGrowth = 1 << 20; // KB
#else
    constexpr long long kMostGrowth = 64 << 10; // KB
#endif
    Start();
    MasterClient stuck; // reads nothing until the end
    ASSERT_TRUE(stuck.Connect());
    const long long memoryBefore = PeakMemory();

    // At least 100 MB of messages to each client, and as long as the questions last.
    const String job = client.Submit("yes | head -n 1000000; while ! test -e ../stop; do "
                                     "yes | head -n 100000; done");
    const String other = client.Submit("echo other");
    for (int round = 0; round < kRounds; ++round)
    {
        const auto begin = std::chrono::steady_clock::now();
        ASSERT_EQ(client.Does(other, "Set Priority", String::FromInt(round)), "");
        // Some seconds under a sanitizer on a busy machine; a master that is blocked never answers.
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
    }
    WriteFile(TempFile("run-folder/stop"), "");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    EXPECT_LT(PeakMemory() - memoryBefore, kMostGrowth) << "kilobytes more";
    const auto lines = static_cast<long long>(ReadFile(client.Param(job, p_LogFile)).size() / 2);
    EXPECT_GE(lines, 1000000);

    ASSERT_TRUE(stuck.WaitForState(job, state_Done));
    EXPECT_GT(stuck.skipped[job], 0);
    const auto sum = [&](MasterClient& one)
    { return static_cast<long long>(one.lines[job].size()) + one.skipped[job]; };
    EXPECT_EQ(sum(stuck), lines);
    EXPECT_EQ(sum(client), lines);
    EXPECT_TRUE(std::all_of(stuck.lines[job].begin(), stuck.lines[job].end(),
                            [](const String& line) { return line == "y"; }));
}

TEST_F(MasterClients, BadPeersAreClosedAndLoggedAndDisturbNobody)
{
    Start();
    const TestPeer silent = NewPeer();
    const String hello = wire::Framing::Wrap(Message(msg_Hello).Set("component", "Half").Encode());
    const size_t cuts[] = {1, wire::Framing::k_HeaderSize - 1, wire::Framing::k_HeaderSize,
                           hello.size() / 2};
    std::vector<TestPeer> halves;
    for (const size_t cut : cuts)
    {
        halves.push_back(NewPeer());
        halves.back().Send(hello.substr(0, cut));
    }
    const Message submit = Message(msg_Submit).Set(p_Type, kScriptType);
    for (const String& bytes : {String(64, 'g'), wire::Framing::Wrap(submit.Encode())})
    {
        TestPeer peer = NewPeer();
        peer.Send(bytes);
        EXPECT_TRUE(peer.SeesEnd());
    }
    for (const char* const reason : {"67676767", "who it is"})
    {
        EXPECT_TRUE(WaitFor([&] { return LogText().find(reason) != String::npos; })) << reason;
    }
    const String job = client.Submit("echo fine");
    EXPECT_TRUE(client.WaitForState(job, state_Done));
    EXPECT_EQ(client.jobs.size(), 1u);
    // Half a frame is still a beginning, wherever it was cut: its rest makes a client.
    for (size_t i = 0; i < halves.size(); ++i)
    {
        halves[i].Send(hello.substr(cuts[i]));
        const auto welcome = halves[i].Receive();
        ASSERT_TRUE(welcome) << cuts[i];
        EXPECT_EQ(welcome->Type(), msg_Welcome);
    }
}

TEST_F(MasterClients, ClientThatAsksAndNeverReadsIsClosed)
{
    Start();
    MasterClient rude;
    ASSERT_TRUE(rude.Connect());
    const String  large(64 << 10, 'x');
    const Message question = Message(msg_Command).Set(p_Id, large).Set("Request", large);
    int           sent = 0;
    while (sent < 2000 && rude.peer.Send(question))
    {
        ++sent;
    }
    EXPECT_LT(sent, 2000);
    EXPECT_NE(client.Submit("true"), "");
    EXPECT_NE(LogText().find("does not read"), String::npos);
}

} // namespace
