#include "vesta/OutputFile.h"

#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "vesta/Exception.h"

namespace
{

class OutputFileTest : public UserFolderTest
{
protected:
    OutputFileTest() { File::MakeFolder(UserFile("").Branch()); }
};

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
    int        failures = 0;
    const auto fails = [&failures](const auto& action)
    {
        try
        {
            action();
        }
        catch (Exception* e)
        {
            EXPECT_EQ(ec_System, e->Code());
            EXPECT_FALSE(e->Text2().empty());
            delete e;
            ++failures;
        }
    };
    fails([this] { OutputFile(UserFile("none/out")); });
    EXPECT_EQ(1, failures);

    OutputFile full("/dev/full");
    full.Write("buffered");
    fails([&full] { full.Close(); });
    EXPECT_EQ(2, failures);
    fails([&full] { full.Write(String(100000, 'x')); });
    EXPECT_EQ(3, failures);
    full.Close(); // It is closed already.

    const LogCapture log;
    {
        OutputFile file("/dev/full");
        file.Write("x");
    }
    EXPECT_EQ(1, log.Count("/dev/full", log_Error)) << log.All();
}

} // namespace
