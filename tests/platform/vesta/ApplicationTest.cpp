#include "vesta/Application.h"

#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "vesta/Exception.h"
#include "vesta/Executable.h"
#include "vesta/LibStatic.h"
#include "vesta/Platform.h"

#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace
{

class TestApplication : public Application
{
public:
    explicit TestApplication(const String& file) : m_File(file) {}
    String OptionsFilename() const override { return m_File; }
    using Application::CloseOptions;

private:
    String m_File;
};

class ApplicationTest : public UserFolderTest
{
};

TEST_F(ApplicationTest, KeepsItsOptions)
{
    TestApplication application(UserFile("test.ini").Text());
    EXPECT_EQ(&application, Application::the_Application);
    application.Options().SetValue("Window", "Window", "1, 2, 3, 4");
    EXPECT_EQ(&application.Options(), &application.Options());
    application.CloseOptions();
    EXPECT_EQ("1, 2, 3, 4", application.Options().GetValue("Window", "Window"));
}

TEST_F(ApplicationTest, LivesWithoutAUserFolder)
{
    const LogCapture log;
    TestApplication  application("");
    application.Options().SetValue("A", "b", "c");
    EXPECT_EQ("c", application.Options().GetValue("A", "b"));
    EXPECT_EQ(1, log.Count("No User Folder available")) << log.All();
}

TEST_F(ApplicationTest, AnswersRequests)
{
    TestApplication application("");
    int             count = 0;
    EXPECT_FALSE(application.HandleRequest("COLORS"));
    application.RegisterRequestHandler("COLORS",
                                       [&count]
                                       {
                                           ++count;
                                           return true;
                                       });
    EXPECT_TRUE(application.HandleRequest("COLORS"));
    // A handler may take itself out.
    application.RegisterRequestHandler(
        "COLORS",
        [&application] { return application.RegisterRequestHandler("COLORS", {}), true; });
    EXPECT_TRUE(application.HandleRequest("COLORS"));
    EXPECT_FALSE(application.HandleRequest("COLORS"));
    EXPECT_EQ(1, count);

    const LogCapture log;
    application.RegisterRequestHandler("BAD", []() -> bool { throw std::runtime_error("why"); });
    EXPECT_FALSE(application.HandleRequest("BAD"));
    EXPECT_TRUE(log.Has("why", log_Error)) << log.All();
    application.RegisterRequestHandler(
        "BAD", []() -> bool { Exception::Throw("Test", "Bad", 1, "because"); });
    EXPECT_FALSE(application.HandleRequest("BAD"));
    EXPECT_TRUE(log.Has("because", log_Error)) << log.All();
}

TEST_F(ApplicationTest, ExecutableLogsSignals)
{
    TestApplication  application("");
    const LogCapture log;
    {
        Executable executable(&application);
        EXPECT_EQ(&executable, Executable::the_Executable);
        EXPECT_EQ(&application, executable.GetApplication());
        EXPECT_EQ(0, Executable::the_Executable->Signal(15));
        EXPECT_TRUE(log.Has("15", log_System)) << log.All();
    }
    EXPECT_EQ(nullptr, Executable::the_Executable);
}

class TestStatic : public LibStatic
{
public:
    TestStatic(const String& name, String& order) : LibStatic(name), m_Order(order) {}
    void OnLibCleanup() override
    {
        String& order = m_Order;
        order += StaticName();
        if (StaticName() == "creates")
        {
            new TestStatic("late", order);
        }
        if (StaticName() == "throws")
        {
            delete this;
            Exception::Throw("Test", "OnLibCleanup", 1, "text");
        }
        delete this;
    }

private:
    String& m_Order;
};

TEST(LibStatic, CleansUpInReverseOrder)
{
    const LogCapture log;
    String           order;
    new TestStatic("first", order);
    new TestStatic("throws", order);
    {
        const TestStatic gone("gone", order);
    }
    new TestStatic("creates", order);
    LibStatic::CleanupAll();
    EXPECT_EQ("createslatethrowsfirst", order);
    EXPECT_TRUE(log.Has("\"throws\"", log_Error)) << log.All();
    LibStatic::CleanupAll();
    EXPECT_EQ("createslatethrowsfirst", order);
}

TEST(Platform, KnowsTheProcess)
{
    setenv("TOLVAN_TEST_VARIABLE", "a=b", 1);
    EXPECT_EQ("a=b", Platform::GetLiveEnv()["TOLVAN_TEST_VARIABLE"]);
    unsetenv("TOLVAN_TEST_VARIABLE");
    EXPECT_EQ(0u, Platform::GetLiveEnv().count("TOLVAN_TEST_VARIABLE"));
    EXPECT_TRUE(File::IsFolder(Platform::GetProgramFolder()));
    EXPECT_TRUE(File::Exists(Path(Platform::GetProgramFolder()) / "vesta_tests"));
    EXPECT_FALSE(Platform::GetCurrentUserName().empty());
    EXPECT_FALSE(Platform::GetHostName().empty());
}

} // namespace
