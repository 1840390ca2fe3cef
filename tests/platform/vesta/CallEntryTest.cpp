#include "vesta/CallEntry.h"

#include "tests/support/LogCapture.h"
#include "vesta/Exception.h"

#include <gtest/gtest.h>

#include <cerrno>
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

void Middle(bool platform)
{
    CALL_ENTRY("Middle");
    Inner(platform);
}

void Harmless()
{
    CALL_ENTRY("Harmless");
}

/// Runs the action and drops what it throws.
template <class Action> void Dropping(const Action& action)
{
    try
    {
        action();
    }
    catch (Exception* e)
    {
        delete e;
    }
    catch (const std::exception&)
    {
    }
}

TEST(CallEntry, KnowsTheOpenEntries)
{
    EXPECT_EQ(0, _CallEntry::Depth());
    EXPECT_EQ("", _CallEntry::Trace());
    CALL_ENTRY("Outer");
    EXPECT_EQ(1, _CallEntry::Depth());
    const String line = SFormat("Outer (tests/platform/vesta/CallEntryTest.cpp:%d)", __LINE__ - 2);
    EXPECT_EQ(line, _CallEntry::Trace());
    Harmless();
    EXPECT_EQ(1, _CallEntry::Depth());
}

TEST(CallEntry, PrintsTheWholeTraceOnce)
{
    for (const bool platform : {true, false})
    {
        const LogCapture log;
        Dropping(
            [platform]
            {
                CALL_ENTRY("Outer");
                Middle(platform);
            });
        EXPECT_EQ(1, log.Count(kHeading, log_Warning)) << log.All();
        EXPECT_TRUE(log.Has("\nInner (")) << log.All();
        EXPECT_TRUE(log.Has("\nOuter (") || log.Has(String(kHeading) + "Outer (")) << log.All();
        EXPECT_EQ(0, _CallEntry::Depth());
    }
}

TEST(CallEntry, PrintsForEveryException)
{
    const LogCapture log;
    for (int i = 0; i < 3; ++i)
    {
        Dropping([] { Middle(false); });
    }
    EXPECT_EQ(3, log.Count(kHeading)) << log.All();
    // The second passes the entry of the function that caught the first.
    Dropping(
        []
        {
            CALL_ENTRY("Translates");
            try
            {
                Middle(false);
            }
            catch (const std::exception& e)
            {
                Exception::Throw("Test", "Translates", 6, e.what());
            }
        });
    EXPECT_EQ(5, log.Count(kHeading)) << log.All();
    Dropping(
        []
        {
            CALL_ENTRY("Retries");
            Dropping([] { Middle(false); });
            Harmless();
            throw std::runtime_error("second");
        });
    EXPECT_EQ(7, log.Count(kHeading)) << log.All();
}

/// Throws and catches an exception of its own while another one passes.
struct ThrowsInDestructor
{
    ~ThrowsInDestructor()
    {
        Harmless();
        Dropping([] { Middle(true); });
    }
};

TEST(CallEntry, TellsNestedExceptionsApart)
{
    const LogCapture log;
    Dropping(
        []
        {
            CALL_ENTRY("Outer");
            const ThrowsInDestructor local;
            Middle(false);
        });
    EXPECT_EQ(2, log.Count(kHeading)) << log.All();
    // Here the nested one comes before any entry has seen the outer one.
    Dropping(
        []
        {
            CALL_ENTRY("Outer");
            const ThrowsInDestructor local;
            throw std::runtime_error("outer");
        });
    EXPECT_EQ(4, log.Count(kHeading)) << log.All();
}

void Recurse(int depth)
{
    CALL_ENTRY("Recurse");
    if (depth > 1)
    {
        Recurse(depth - 1);
        return;
    }
    throw std::runtime_error(_CallEntry::Trace());
}

TEST(CallEntry, ShortensAVeryDeepTrace)
{
    const LogCapture log;
    try
    {
        Recurse(1000);
    }
    catch (const std::exception& e)
    {
        const String trace = e.what();
        EXPECT_TRUE(trace.StartsWith("... 936 more outside\nRecurse (")) << trace;
    }
    EXPECT_EQ(1, log.Count(kHeading)) << log.All();
}

TEST(Exception, LogsOneLine)
{
    const LogCapture log;
    Exception("Class", "Method", ec_BadData, "text", "more").Log();
    EXPECT_TRUE(log.Has("Class::Method: text (more) [0x20000002]", log_Error)) << log.All();
    try
    {
        errno = EACCES;
        Exception::ThrowErrno("Class", "Method", "text");
    }
    catch (Exception* e)
    {
        EXPECT_EQ(ec_System, e->Code());
        EXPECT_EQ("Permission denied", e->Text2());
        delete e;
    }
}

} // namespace
