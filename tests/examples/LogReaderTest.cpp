#include "logview/LogReader.h"
#include "tests/support/UserFolderTest.h"
#include "tests/support/WaitFor.h"

#include <atomic>
#include <fstream>

namespace
{
class LogReaderTest : public UserFolderTest
{
protected:
    // Lines that were told of, and those that stay on the disk.
    int Count(LogReader& reader)
    {
        for (const LogReader::Piece& piece : reader.Take())
        {
            m_Lines += piece.kind == LogReader::Kind::kLine ? 1 : 0;
            for (const wxTextStretch& stretch : piece.stretches)
            {
                m_Lines += stretch.lines;
            }
        }
        return m_Lines;
    }
    void Append(const Path& file, int lines) const
    {
        std::ofstream stream(file.Text(), std::ios::app);
        for (int i = 0; i < lines; ++i)
        {
            stream << "a line of the file\n";
        }
    }

    int m_Lines = 0;
};
} // namespace

// More than anybody may leave lying, and more than is kept in memory.
TEST_F(LogReaderTest, TellsOfAllLinesAndOfThoseThatCome)
{
    const Path       file = TempFile("some.log");
    std::atomic<int> woken{0};
    LogReader        reader(file, [&woken] { ++woken; });
    EXPECT_TRUE(reader.Look());
    EXPECT_TRUE(WaitFor([&] { return reader.IsIdle(); }));
    EXPECT_EQ(FileFollower::State::kMissing, reader.StatusNow().state);
    EXPECT_EQ(0, woken);
    Append(file, 700000);
    for (const int more : {0, 1000000})
    {
        Append(file, more);
        reader.Look();
        EXPECT_TRUE(WaitFor([&] { return Count(reader) == 700000 + more && reader.IsIdle(); }));
        EXPECT_EQ(FileFollower::State::kFollowing, reader.StatusNow().state);
    }
    EXPECT_EQ(19 * 1700000, reader.StatusNow().position);
    EXPECT_LT(0, woken);
}

TEST_F(LogReaderTest, GoesWhileItWaitsOrReads)
{
    const Path file = TempFile("some.log");
    Append(file, 1000000);
    for (int i = 0; i < 20; ++i)
    {
        LogReader reader(file, [] {});
        reader.Look();
        if (i % 4 == 1)
        {
            Count(reader);
        }
        if (i % 4 == 2)
        {
            EXPECT_TRUE(WaitFor([&] { return reader.StatusNow().position > 0; }));
            reader.Stop();
            EXPECT_TRUE(WaitFor([&] { return (Count(reader), reader.IsIdle()); }));
            EXPECT_FALSE(reader.Look());
        }
    }
}
