#include "vesta/OptionsFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Threads.h"
#include "tests/support/UserFolderTest.h"
#include "tests/support/WaitFor.h"
#include "vesta/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace
{

class OptionsFileTest : public UserFolderTest
{
protected:
    static size_t Tasks() { return File::List("/proc/self/task").size(); }
    static size_t Descriptors() { return File::List("/proc/self/fd").size(); }

    const Path m_File = UserFile("options.ini");
};

TEST_F(OptionsFileTest, WritesByItself)
{
    OptionsFile file(m_File);
    for (int i = 0; i <= 1000; ++i)
    {
        file.SetValue("S", "a", String::FromInt(i));
    }
    EXPECT_TRUE(WaitFor([&] { return !file.IsChanged(); }));
    EXPECT_EQ("[S]\na = 1000\n", ReadFile(m_File));
    EXPECT_LT(file.WriteCount(), 100);

    const int before = file.WriteCount();
    {
        const OptionsFile::PauseAutoWrite outer(file);
        {
            const OptionsFile::PauseAutoWrite inner(file);
            file.RemoveValue("S", "a");
        }
        EXPECT_TRUE(file.IsChanged());
    }
    EXPECT_TRUE(WaitFor([&] { return !file.IsChanged(); }));
    EXPECT_EQ("[S]\n", ReadFile(m_File));
    file.RemoveValue("S", "a");
    {
        const OptionsFile::PauseAutoWrite nothing(file);
    }
    EXPECT_TRUE(file.WriteOut());
    EXPECT_EQ(before + 1, file.WriteCount());
}

/// A program that is stopped while it saves costs nobody anything but the first write a second, one
/// thread and one file.
TEST_F(OptionsFileTest, AStoppedHolderOfTheLockHoldsNobodyUp)
{
    using Clock = std::chrono::steady_clock;
    OptionsFile file(m_File);
    file.SetValue("S", "a", "old");
    ASSERT_TRUE(file.WriteOut());
    const LogCapture log;
    const int        holder = open((m_File.Text() + ".lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(0, flock(holder, LOCK_EX)); // As another program would: by a file of its own.
    const size_t tasks = Tasks();
    const size_t files = Descriptors();
    for (int i = 0; i < 5; ++i)
    {
        const auto begin = Clock::now();
        file.SetValue("S", "a", String::FromInt(i));
        EXPECT_LT(Clock::now() - begin, std::chrono::milliseconds(500));
        EXPECT_TRUE(file.WriteOut());
        EXPECT_EQ("[S]\na = " + String::FromInt(i) + "\n", ReadFile(m_File));
        EXPECT_LE(Tasks(), tasks + 2); // The writer and the one that waits.
        EXPECT_LE(Descriptors(), files + 1);
    }
    EXPECT_EQ(1, log.Count("another program holds it", log_Warning)) << log.All();
    close(holder);
    EXPECT_TRUE(WaitFor([&] { return Tasks() <= tasks + 1 && Descriptors() == files - 1; }));
    const FileLock lock(m_File);
    EXPECT_TRUE(lock.IsHeld());
}

/// Whoever holds the lock while another thread saves neither waits for it for ever nor loses what
/// is changed.
TEST_F(OptionsFileTest, WritesForAThreadThatHoldsTheLock)
{
    OptionsFile file(m_File);
    for (int i = 0; i < 20; ++i)
    {
        const OptionsFile::PauseAutoWrite pause(file);
        file.SetValue("S", "a", String::FromInt(i));
        Threads writer(1, [&file](int) { file.WriteOut(); });
        {
            const WriteLock lock(file.Lock());
            file.SetValue("S", "b", String::FromInt(i));
            file.WriteOut();
        }
        writer.Join();
        EXPECT_TRUE(file.WriteOut());
        EXPECT_EQ(SFormat("[S]\na = %d\nb = %d\n", i, i), ReadFile(m_File));
    }
}

/// Each thread has its own object, as two programs would have.
TEST_F(OptionsFileTest, ProgramsLoseNobodysKey)
{
    constexpr int    kKeys = 20; // a thread
    const LogCapture log;
    Threads(4,
            [this](int thread)
            {
                OptionsFile file(m_File);
                file.Load(false, false);
                for (int key = 0; key < kKeys; ++key)
                {
                    file.SetValue("S", SFormat("%d.%d", thread, key), "x");
                    file.SetValue("Common", "key", String::FromInt(thread));
                    file.WriteOut();
                }
            });
    EXPECT_EQ(0, log.Count("", log_Warning)) << log.All();
    IniFile file(m_File);
    ASSERT_TRUE(file.Load(true, true));
    for (int i = 0; i < 4 * kKeys; ++i)
    {
        EXPECT_TRUE(file.HasValue("S", SFormat("%d.%d", i / kKeys, i % kKeys)));
    }
    EXPECT_EQ(1u, file.Keys("Common").size());
}

TEST_F(OptionsFileTest, LogsAFailingDiskOnceAndTriesAgain)
{
    WriteFile(m_File, "a=1\n");
    chmod(m_File.Text().c_str(), 0400);
    const LogCapture log;
    {
        OptionsFile file(m_File);
        for (int i = 0; i < 10; ++i)
        {
            file.SetValue("S", "a", String::FromInt(i));
            file.SetValue("S", SFormat("b%d", i), "1");
            EXPECT_FALSE(file.WriteOut());
            file.ClearSection("S"); // Also of what comes back from a failed write.
        }
        file.SetValue("S", "c", "1");
        EXPECT_EQ(1, log.Count("write-protected", log_Error)) << log.All();
        EXPECT_EQ(1, log.Count("Call trace", log_Warning)) << log.All();
        EXPECT_EQ("a=1\n", ReadFile(m_File));
        EXPECT_EQ(std::vector<String>{"options.ini"}, File::List(m_File.Branch())) << "no lock";
        chmod(m_File.Text().c_str(), 0600);
    }
    EXPECT_EQ("a=1\n\n[S]\nc = 1\n", ReadFile(m_File)); // Written at the end of its life.
}

} // namespace
