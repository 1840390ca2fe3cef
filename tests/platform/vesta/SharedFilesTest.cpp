#include "tests/support/LogCapture.h"
#include "tests/support/Threads.h"
#include "tests/support/UserFolderTest.h"
#include "vesta/IniFile.h"
#include "vesta/OptionsFile.h"

namespace
{

class SharedFilesTest : public UserFolderTest
{
protected:
    const Path m_File = UserFile("shared.ini");
};

/// Each thread has its own object, as two programs would have.
TEST_F(SharedFilesTest, ProgramsLoseNobodysKey)
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
                    const String name = SFormat("%d.%d", thread, key);
                    file.SetValue(SFormat("Section %d", key % 3), name, "x");
                    file.SetValue("Common", "key", name);
                    file.WriteOut();
                }
            });
    EXPECT_EQ(0, log.Count("", log_Warning)) << log.All();
    IniFile file(m_File);
    ASSERT_TRUE(file.Load(true, true));
    for (int i = 0; i < 4 * kKeys; ++i)
    {
        const int key = i % kKeys;
        EXPECT_TRUE(
            file.HasValue(SFormat("Section %d", key % 3), SFormat("%d.%d", i / kKeys, key)));
    }
    EXPECT_EQ(1u, file.Keys("Common").size());
}

} // namespace
