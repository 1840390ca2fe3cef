#include "tolvan/JobFactory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"

#include <chrono>
#include <cstdlib>

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

    static String NameOf(JobFactory& factory, const UID& id)
    {
        const auto info = factory.GetTypeInfo(id, false);
        return info ? info->Name() : String("none");
    }
};

TEST_F(JobFactoryTest, ListsTypesInTheOrderOfTheirFiles)
{
    const UID  second = Install("b.module", "Alpha");
    const UID  first = Install("a.module", "Beta");
    JobFactory factory(TempFile("modules"));
    for (const char* const other : {"c.ini", ".module", ".#a.module", "a.module~"})
    {
        WriteFile(Module(other), "[Type]\n");
    }

    EXPECT_FALSE(factory.GetTypeInfo(first, false)) << "nothing has been read yet";
    EXPECT_EQ(factory.ListTypes(), (std::vector<UID>{first, second}));
    EXPECT_EQ(NameOf(factory, first), "Beta");
    EXPECT_FALSE(factory.GetTypeInfo(UID::Create(), true));
    EXPECT_FALSE(factory.GetTypeInfo(UID::Null, true));
}

TEST_F(JobFactoryTest, FollowsTheFiles)
{
    const UID  id = Install("a.module", "Before");
    JobFactory factory(TempFile("modules"));
    ASSERT_EQ(factory.ListTypes().size(), 1u);
    const auto inUse = factory.GetTypeInfo(id, false);

    Install("a.module", "Later!", id); // of the same length
    const UID added = Install("b.module", "Added");
    EXPECT_EQ(factory.GetTypeInfo(added, true)->Name(), "Added") << "looks for an unknown type";
    EXPECT_EQ(NameOf(factory, id), "Later!");
    EXPECT_EQ(inUse->Name(), "Before") << "a description never changes";

    File::Remove(Module("a.module"));
    EXPECT_EQ(factory.ListTypes(), std::vector<UID>{added});
    EXPECT_EQ(NameOf(factory, id), "none");

    File::MakeFolder(TempFile("elsewhere"));
    factory.SetFolder(TempFile("elsewhere"));
    EXPECT_TRUE(factory.ListTypes().empty());
}

TEST_F(JobFactoryTest, ReportsAFaultOnceAChange)
{
    LogCapture log;
    const UID  good = Install("b.module", "Good");
    WriteFile(Module("a.module"), "[Type]\nName = Broken\n");
    Install("c.module", "Copy", good);
    ASSERT_EQ(symlink("/no/such/file", Module("d.module").Text().c_str()), 0);
    JobFactory factory(TempFile("modules"));
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(factory.ListTypes(), std::vector<UID>{good});
    }
    EXPECT_EQ(log.Count("skipped: " + Module("a.module").Text() + ":2:", log_Error), 1)
        << log.All();
    EXPECT_EQ(log.Count("c.module has the identifier of", log_Warning), 1) << log.All();
    EXPECT_EQ(log.Count("d.module", log_Error), 1) << log.All();
    EXPECT_EQ(NameOf(factory, good), "Good") << "the first file counts";

    WriteFile(Module("a.module"), "[Type]\n\nName = Broken\n");
    factory.ListTypes();
    EXPECT_EQ(log.Count("a.module:3:", log_Error), 1) << log.All();
    EXPECT_EQ(log.Count("c.module has the identifier of"), 1) << "that one has not changed";
}

TEST_F(JobFactoryTest, ChoosesItsFolder)
{
    LogCapture log;
    JobFactory factory;
    EXPECT_NE(factory.Folder().Text().find("/share/tolvan/modules"), String::npos);
    File::MakeFolder(UserFile("modules"));
    EXPECT_EQ(factory.Folder().Text(), UserFile("modules").Text());
    setenv("TOLVAN_MODULES", "/no/such/folder", 1);
    EXPECT_EQ(factory.Folder().Text(), "/no/such/folder");
    EXPECT_TRUE(factory.ListTypes().empty());
    EXPECT_TRUE(factory.ListTypes().empty());
    EXPECT_EQ(log.Count("no folder of job modules: /no/such/folder"), 1) << log.All();
    unsetenv("TOLVAN_MODULES");
}

TEST_F(JobFactoryTest, DoesNotReadTenThousandFilesAgain)
{
    constexpr int kCount = 10000;
    for (int i = 0; i < kCount; ++i)
    {
        Install(SFormat("type%05d.module", i), SFormat("Type %d", i));
    }
    using Clock = std::chrono::steady_clock;
    JobFactory factory(TempFile("modules"));
    const auto start = Clock::now();
    const auto types = factory.ListTypes();
    const auto loaded = Clock::now();
    ASSERT_EQ(types.size(), static_cast<size_t>(kCount));
    const auto first = factory.GetTypeInfo(types.front(), false);
    const auto again = Clock::now();
    EXPECT_EQ(factory.ListTypes(), types);
    const auto end = Clock::now();
    EXPECT_EQ(factory.GetTypeInfo(types.front(), false), first) << "it was read again";

    const std::chrono::duration<double, std::milli> loading = loaded - start;
    const std::chrono::duration<double, std::milli> listing = end - again;
    RecordProperty("LoadingMs", std::to_string(loading.count()));
    RecordProperty("ListingMs", std::to_string(listing.count()));
    EXPECT_LT(listing.count() * 2, loading.count()) << "listing unchanged files reads them";
}

} // namespace
