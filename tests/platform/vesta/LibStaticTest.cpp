#include "vesta/LibStatic.h"

#include "tests/support/LogCapture.h"
#include "vesta/Exception.h"

#include <gtest/gtest.h>

namespace
{

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
