#include "wire/FrameStream.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "wire/Framing.h"

#include <gtest/gtest.h>

#include <vector>

#include <sys/socket.h>

namespace
{

TEST(FrameStreamTest, EndsOverAStalledFrameButNotOverSilence)
{
    constexpr std::chrono::milliseconds kStall{100};
    int                                 ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    boost::asio::io_context context;
    const auto stream = std::make_shared<wire::FrameStream>(context, Descriptor(ends[0]), kStall);
    TestPeer   peer{Descriptor(ends[1])};
    std::vector<String>       heard;
    wire::FrameStream::Events events;
    events.frame = [&heard](const String& content) { heard.push_back(content); };
    events.closed = [&heard](const String& why) { heard.push_back("end: " + why); };
    stream->Start(std::move(events));
    context.run_for(3 * kStall);
    EXPECT_TRUE(heard.empty()) << "silence between frames";
    peer.Send(wire::Framing::Wrap("whole") + "TLV");
    context.run_for(std::chrono::seconds(20)); // or until nothing is left to do
    EXPECT_EQ(heard,
              (std::vector<String>{"whole", "end: half a frame, and nothing more for 100 ms"}));
    EXPECT_TRUE(peer.SeesEnd());
}

} // namespace
