#include "tolvan/JobFactory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"

#include <unistd.h>

namespace
{

class JobFactoryTest : public UserFolderTest
{
protected:
    JobFactoryTest() { File::MakeFolder(TempFile("modules")); }

    Path Module(const String& name) const { return TempFile("modules") / name; }

    UID Install(const String& file, const String& typeName, const UID& id = UID::Create()) const
    {
        WriteFile(Module(file), "[Type]\nId = " + id.ToString() + "\nName = " + typeName + "\n");
        return id;
    }
    String NameOf(const UID& id)
    {
        const auto info = m_Factory.GetTypeInfo(id, false);
        return info ? info->Name() : String("none");
    }

    LogCapture m_Log;
    JobFactory m_Factory{TempFile("modules")};
};

TEST_F(JobFactoryTest, FollowsTheFiles)
{
    const UID id = Install("a.module", "Before");
    ASSERT_EQ(m_Factory.ListTypes().size(), 1u);
    const auto inUse = m_Factory.GetTypeInfo(id, false);
    m_Factory.ListTypes();
    EXPECT_EQ(m_Factory.GetTypeInfo(id, false), inUse) << "it was read again";

    Install("a.module", "Later!", id); // of the same length
    const UID added = Install("b.module", "Added");
    EXPECT_EQ(m_Factory.GetTypeInfo(added, true)->Name(), "Added") << "looks for an unknown type";
    EXPECT_EQ(NameOf(id), "Later!");
    EXPECT_EQ(inUse->Name(), "Before") << "a description never changes";

    File::Remove(Module("a.module"));
    EXPECT_EQ(m_Factory.ListTypes(), std::vector<UID>{added});
    EXPECT_EQ(NameOf(id), "none");
    m_Factory.SetFolder(TempFile("user"));
    EXPECT_TRUE(m_Factory.ListTypes().empty());
}

TEST_F(JobFactoryTest, ReportsAFaultOnceAChange)
{
    const UID good = Install("b.module", "Good");
    WriteFile(Module("a.module"), "[Type]\nName = Broken\n");
    Install("c.module", "Copy", good);
    ASSERT_EQ(symlink("/no/such/file", Module("d.module").Text().c_str()), 0);
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(m_Factory.ListTypes(), std::vector<UID>{good});
    }
    const String broken = "skipped: " + Module("a.module").Text();
    EXPECT_EQ(m_Log.Count(broken + ":2:", log_Error), 1) << m_Log.All();
    EXPECT_EQ(m_Log.Count("d.module", log_Error), 1) << m_Log.All();
    EXPECT_EQ(NameOf(good), "Good") << "the first file counts";

    WriteFile(Module("a.module"), "[Type]\n\nName = Broken\n");
    m_Factory.ListTypes();
    EXPECT_EQ(m_Log.Count(broken + ":3:", log_Error), 1) << m_Log.All();
    EXPECT_EQ(m_Log.Count("c.module has the identifier of", log_Warning), 1) << m_Log.All();
}

} // namespace
