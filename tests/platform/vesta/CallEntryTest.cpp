#include "vesta/CallEntry.h"

#include "tests/support/LogCapture.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <stdexcept>

namespace
{

const char* const kHeading = "Call trace of an exception:\n";

void Inner(bool platform)
{
    CALL_ENTRY("Inner");
    if (platform)
    {
        Exception::Throw("Test", "Inner", 5, "text");
    }
    throw std::runtime_error("text");
}

void Harmless()
{
    CALL_ENTRY("Harmless");
}

/// Runs the action and drops what it throws.
void Dropping(const std::function<void()>& action)
{
    try
    {
        Thrown(action);
    }
    catch (const std::exception&)
    {
    }
}

/// Throws and catches an exception of its own while another one passes.
struct ThrowsInDestructor
{
    ~ThrowsInDestructor()
    {
        Harmless();
        Dropping([] { Inner(true); });
    }
};

TEST(CallEntry, PrintsTheWholeTraceOnce)
{
    for (const bool platform : {true, false})
    {
        const LogCapture log;
        Dropping(
            [platform]
            {
                CALL_ENTRY("Outer");
                Inner(platform);
            });
        EXPECT_EQ(1, log.Count(kHeading, log_Warning)) << log.All();
        EXPECT_TRUE(log.Has("\nInner (")) << log.All();
        EXPECT_TRUE(log.Has("\nOuter (")) << log.All();
        EXPECT_TRUE(log.Has("/vesta/CallEntryTest.cpp:")) << log.All();
        EXPECT_EQ("", _CallEntry::Trace());
    }
}

/// Each of them throws two exceptions.
const struct
{
    const char*           name;
    std::function<void()> action;
} kPairs[] = {
    {"one after the other",
     []
     {
         Dropping([] { Inner(false); });
         Inner(false);
     }},
    {"the second passes the entry of the function that caught the first",
     []
     {
         CALL_ENTRY("Translates");
         Dropping([] { Inner(false); });
         Harmless();
         Exception::Throw("Test", "Translates", 6, "second");
     }},
    {"one inside the other",
     []
     {
         CALL_ENTRY("Outer");
         const ThrowsInDestructor local;
         Inner(false);
     }},
    {"the nested one before any entry has seen the outer one",
     []
     {
         CALL_ENTRY("Outer");
         const ThrowsInDestructor local;
         throw std::runtime_error("outer");
     }},
};

TEST(CallEntry, TellsExceptionsApart)
{
    for (const auto& pair : kPairs)
    {
        const LogCapture log;
        Dropping(pair.action);
        EXPECT_EQ(2, log.Count(kHeading)) << pair.name << "\n" << log.All();
    }
}

TEST(Exception, LogsOneLine)
{
    const LogCapture log;
    Exception("Class", "Method", ec_BadData, "text", "more").Log();
    EXPECT_TRUE(log.Has("Class::Method: text (more) [0x20000002]", log_Error)) << log.All();
    errno = EACCES;
    const auto exception = Thrown([] { Exception::ThrowErrno("Class", "Method", "text"); });
    ASSERT_TRUE(exception);
    EXPECT_EQ("Permission denied", exception->Text2());
}

} // namespace
