#include "master/jobs/JobRunner.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/UserFolderTest.h"

#include <boost/asio/signal_set.hpp>

#include <csignal>
#include <optional>

namespace
{

/// Runs one job's run without a farm.
class JobRunner : public UserFolderTest
{
protected:
    JobRunner()
    {
        const master::JobRunner::Events events = {
            [this](std::string_view line) { text += std::string(line) + "\n"; },
            [this](const String& why) { troubles.push_back(why); },
            [this](const master::ChildExit& how, size_t bytes)
            {
                exit = how;
                lost = bytes;
                context.stop();
            }};
        runner = std::make_shared<master::JobRunner>(context, events);
        WaitForChildren();
    }
    void WaitForChildren()
    {
        signals.async_wait(
            [this](const boost::system::error_code& error, int)
            {
                if (!error)
                {
                    WaitForChildren();
                    runner->CheckExit();
                }
            });
    }
    String Start(const String& script, const Path& logFile)
    {
        return runner->Start({"/bin/sh", {"-c", script}, TempFile("")}, logFile);
    }
    /// Runs to the end, 20 seconds at most.
    void Run()
    {
        context.run_for(std::chrono::seconds(20));
        EXPECT_TRUE(exit.has_value()) << "no end";
    }

    boost::asio::io_context            context;
    boost::asio::signal_set            signals{context, SIGCHLD};
    std::shared_ptr<master::JobRunner> runner;
    String                             text;
    std::vector<String>                troubles;
    std::optional<master::ChildExit>   exit;
    size_t                             lost = 0;
};

TEST_F(JobRunner, FullDiskHoldsTheJobAndIsReported)
{
    ASSERT_EQ(Start("echo line; sleep 1000", "/dev/full"), "");
    boost::asio::steady_timer timer(context, std::chrono::milliseconds(800));
    timer.async_wait([this](const boost::system::error_code&) { runner->Stop(); });
    context.run_for(std::chrono::seconds(2));
    EXPECT_EQ(troubles, std::vector<String>{"No space left on device"});
    EXPECT_EQ(text, "");
    Run();
    EXPECT_EQ(lost, 5u);
    EXPECT_EQ(exit->code, SIGTERM);
}

TEST_F(JobRunner, GoesOnWhereItStoodWhenThereIsRoomAgain)
{
    std::optional<SmallDisk> disk(7);
    ASSERT_EQ(Start("printf 'line\\nmore\\nlast'", TempFile("log")), "");
    boost::asio::steady_timer timer(context, std::chrono::milliseconds(800));
    timer.async_wait([&disk](const boost::system::error_code&) { disk.reset(); });
    Run();
    EXPECT_EQ(troubles, (std::vector<String>{"File too large", ""}));
    EXPECT_EQ(text, "line\nmore\nlast\n");
    EXPECT_EQ(lost, 0u);
    EXPECT_EQ(ReadFile(TempFile("log")), "line\nmore\nlast");
}

} // namespace
