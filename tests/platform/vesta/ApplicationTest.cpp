#include "vesta/Application.h"

#include "tests/support/LogCapture.h"
#include "vesta/Exception.h"
#include "vesta/LibStatic.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

struct TestApplication : Application
{
    String OptionsFilename() const override { return String(); }
};

TEST(Application, AnswersRequests)
{
    const LogCapture log;
    TestApplication  application;
    EXPECT_FALSE(application.HandleRequest("COLORS"));
    // A handler may take itself out.
    application.RegisterRequestHandler(
        "COLORS",
        [&application] { return application.RegisterRequestHandler("COLORS", {}), true; });
    EXPECT_TRUE(application.HandleRequest("COLORS"));
    EXPECT_FALSE(application.HandleRequest("COLORS"));

    application.RegisterRequestHandler("BAD", []() -> bool { throw std::runtime_error("why"); });
    EXPECT_FALSE(application.HandleRequest("BAD"));
    EXPECT_TRUE(log.Has("why", log_Error)) << log.All();
    application.RegisterRequestHandler(
        "BAD", []() -> bool { Exception::Throw("Test", "Bad", 1, "because"); });
    EXPECT_FALSE(application.HandleRequest("BAD"));
    EXPECT_TRUE(log.Has("because", log_Error)) << log.All();
}

class TestStatic : public LibStatic
{
public:
    TestStatic(const String& name, String& order) : LibStatic(name), m_Order(order) {}
    void OnLibCleanup() override
    {
        const String name = StaticName();
        m_Order += name;
        if (name == "creates")
        {
            new TestStatic("late", m_Order);
        }
        delete this;
        if (name == "throws")
        {
            Exception::Throw("Test", "OnLibCleanup", 1, "text");
        }
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
    LibStatic::CleanupAll();
    EXPECT_EQ("createslatethrowsfirst", order);
    EXPECT_TRUE(log.Has("\"throws\"", log_Error)) << log.All();
}

} // namespace
