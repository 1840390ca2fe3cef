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

const struct
{
    const char*           name;
    int                   traces; ///< One for each exception that it throws.
    std::function<void()> action;
} kCases[] = {
    {"of the platform", 1, [] { Inner(true); }},
    {"of the standard library", 1, [] { Inner(false); }},
    {"one after the other", 2,
     []
     {
         Dropping([] { Inner(false); });
         Inner(false);
     }},
    {"the second passes the entry of the function that caught the first", 2,
     []
     {
         Dropping([] { Inner(false); });
         Harmless();
         Exception::Throw("Test", "Translates", 6, "second");
     }},
    {"one inside the other", 2,
     []
     {
         const ThrowsInDestructor local;
         Inner(false);
     }},
    {"the nested one before any entry has seen the outer one", 2,
     []
     {
         const ThrowsInDestructor local;
         throw std::runtime_error("outer");
     }},
};

TEST(CallEntry, PrintsTheWholeTraceOfEachExceptionOnce)
{
    for (const auto& one : kCases)
    {
        SCOPED_TRACE(one.name);
        const LogCapture log;
        Dropping(
            [&one]
            {
                CALL_ENTRY("Outer");
                one.action();
            });
        EXPECT_EQ(one.traces, log.Count(kHeading, log_Warning)) << log.All();
        for (const char* const part : {"\nInner (", "\nOuter (", "/vesta/CallEntryTest.cpp:"})
        {
            EXPECT_TRUE(log.Has(part)) << log.All();
        }
        EXPECT_EQ("", _CallEntry::Trace());
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
