#include "wire/FrameStream.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "wire/Framing.h"

#include <gtest/gtest.h>

#include <vector>

#include <fcntl.h>
#include <sys/socket.h>

namespace
{

constexpr std::chrono::milliseconds kStall{100};

class FrameStreamTest : public testing::Test
{
protected:
    FrameStreamTest()
    {
        int ends[2];
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
        m_Stream = std::make_shared<wire::FrameStream>(m_Context, Descriptor(ends[0]), kStall);
        m_Peer = TestPeer(Descriptor(ends[1]));
        wire::FrameStream::Events events;
        events.frame = [this](const String& content) { m_Frames.push_back(content); };
        events.closed = [this](const String& why) { m_Ends.push_back(why); };
        m_Stream->Start(std::move(events));
    }

    /// Works until the condition holds.
    bool RunUntil(const std::function<bool()>& condition)
    {
        return WaitFor(
            [&]
            {
                m_Context.poll();
                return condition();
            });
    }
    bool HasEnded() const { return !m_Ends.empty(); }

    boost::asio::io_context            m_Context;
    std::shared_ptr<wire::FrameStream> m_Stream;
    TestPeer                           m_Peer;
    std::vector<String>                m_Frames;
    std::vector<String>                m_Ends;
};

TEST_F(FrameStreamTest, PutsFramesTogether)
{
    const std::vector<String> frames = {"one", "", String(wire::Framing::k_Limit / 8, 'b')};
    String                    bytes;
    for (const String& frame : frames)
    {
        bytes += wire::Framing::Wrap(frame);
    }
    for (const size_t piece : {1, 7, 8, 11, 30})
    {
        m_Frames.clear();
        m_Peer.Send(bytes.substr(0, piece));
        m_Context.poll();
        m_Peer.Send(bytes.substr(piece));
        EXPECT_TRUE(RunUntil([&] { return m_Frames.size() == 3; })) << "cut after " << piece;
        EXPECT_TRUE(m_Frames == frames) << "cut after " << piece;
    }
    m_Peer.Close();
    ASSERT_TRUE(RunUntil([&] { return HasEnded(); }));
    EXPECT_EQ(m_Ends, std::vector<String>{""}) << "an end between two frames is no fault";
}

TEST_F(FrameStreamTest, EndsOverAStalledFrameButNotOverSilence)
{
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(RunUntil([&] { return std::chrono::steady_clock::now() > begin + 3 * kStall; }));
    EXPECT_FALSE(HasEnded()) << "silence between frames";
    m_Peer.Send(wire::Framing::Wrap("whole") + "TLV");
    ASSERT_TRUE(RunUntil([&] { return HasEnded(); }));
    EXPECT_NE(m_Ends[0].find("half a frame"), String::npos) << m_Ends[0];
    EXPECT_TRUE(m_Peer.SeesEnd());
}

} // namespace
