#include "vesta/OutputFile.h"

#include "tests/support/LogCapture.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"

namespace
{

using OutputFileTest = UserFolderTest;

TEST_F(OutputFileTest, WritesEveryByte)
{
    const Path path = UserFile("out");
    WriteFile(path, "what was there before");
    String expected;
    {
        OutputFile file(path);
        for (const size_t size : {0u, 1u, 65535u, 65536u, 65537u, 3u, 500000u})
        {
            const String line(size, static_cast<char>(size));
            file.WriteLine(line);
            expected += line + "\n";
        }
        file.Close();
        EXPECT_EQ(expected, ReadFile(path));
    }
    {
        OutputFile file(path);
        file.Write("left to the destructor");
    }
    EXPECT_EQ("left to the destructor", ReadFile(path));
}

TEST_F(OutputFileTest, EveryFailureIsAnException)
{
    EXPECT_EQ(ec_System, CodeThrown([this] { OutputFile(UserFile("none/out")); }));
    OutputFile full("/dev/full");
    full.Write("buffered");
    EXPECT_EQ(ec_System, CodeThrown([&full] { full.Close(); }));
    EXPECT_EQ(ec_System, CodeThrown([&full] { full.Write(String(100000, 'x')); }));
    full.Close(); // It is closed already.

    const LogCapture log;
    {
        OutputFile file("/dev/full");
        file.Write("x");
    }
    EXPECT_EQ(1, log.Count("/dev/full", log_Error)) << log.All();
}

} // namespace
