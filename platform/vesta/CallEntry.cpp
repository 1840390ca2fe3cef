#include "vesta/CallEntry.h"

#include "vesta/Exception.h"
#include "vesta/Log.h"
#include "vesta/_CallTrace.h"

#include <cstdint>
#include <exception>

namespace
{

constexpr int kMaxDepth = 256;   // entries; deeper ones are only counted
constexpr int kMaxInFlight = 31; // exceptions in flight that are told apart: bits of `printed`

/// Constant-initialized and without a destructor, so that a thread's first entry costs no set-up
/// and entries work during a thread's end.
struct ThreadTrace
{
    int depth;
    /// Bit n: the trace of the n-th exception in flight has been printed. The bits above the number
    /// in flight belong to exceptions that were caught meanwhile.
    uint32_t        printed;
    const CallSite* sites[kMaxDepth];
};

thread_local ThreadTrace t_Trace;

/// Keeps the bits of the first `count` exceptions in flight.
uint32_t UpTo(int count)
{
    return count >= kMaxInFlight ? ~uint32_t{0} : (uint32_t{2} << count) - 1;
}

void PrintTrace() noexcept
{
    try
    {
        GlobalLog(log_Warning, "Call trace of an exception:\n" + _CallEntry::Trace());
    }
    catch (...)
    {
        // Most likely there is no memory for the text. The exception itself matters more.
    }
}

/// Out of line: an exception passes the innermost entry and each outer one.
void ExceptionPasses(ThreadTrace& trace, int inFlight) noexcept
{
    const uint32_t bit = uint32_t{1} << (inFlight < kMaxInFlight ? inFlight : kMaxInFlight);
    trace.printed &= UpTo(inFlight);
    if ((trace.printed & bit) == 0)
    {
        trace.printed |= bit;
        PrintTrace();
    }
}

} // namespace

void _ForgetPrintedTraces() noexcept
{
    t_Trace.printed &= UpTo(std::uncaught_exceptions());
}

_CallEntry::_CallEntry(const CallSite& site) noexcept : m_Exceptions(std::uncaught_exceptions())
{
    ThreadTrace& trace = t_Trace;
    if (trace.depth < kMaxDepth)
    {
        trace.sites[trace.depth] = &site;
    }
    ++trace.depth;
    if (trace.printed != 0)
    {
        trace.printed &= UpTo(m_Exceptions);
    }
}

_CallEntry::~_CallEntry()
{
    ThreadTrace& trace = t_Trace;
    const int    inFlight = std::uncaught_exceptions();
    if (inFlight > m_Exceptions)
    {
        ExceptionPasses(trace, inFlight);
    }
    else if (trace.printed != 0)
    {
        trace.printed &= UpTo(inFlight);
    }
    --trace.depth;
}

String _CallEntry::Trace()
{
    const ThreadTrace& trace = t_Trace;
    String             text;
    for (int i = 0; i < trace.depth && i < kMaxDepth; ++i)
    {
        const CallSite& site = *trace.sites[i];
        text += SFormat("%s%s (%s:%d)", i == 0 ? "" : "\n", site.name, site.file, site.line);
    }
    if (trace.depth > kMaxDepth)
    {
        text += SFormat("\n... and %d deeper", trace.depth - kMaxDepth);
    }
    return text;
}

int _CallEntry::Depth() noexcept
{
    return t_Trace.depth;
}
