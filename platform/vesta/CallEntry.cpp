#include "vesta/CallEntry.h"

#include "vesta/Log.h"
#include "vesta/trace/CallTrace.h"

#include <algorithm>
#include <cxxabi.h>
#include <exception>
#include <vector>

namespace
{

constexpr size_t   kMaxLines = 64;    // entries written out
constexpr unsigned kMaxInFlight = 31; // exceptions in flight told apart: bits of `printed`

/// Constant-initialized and without a destructor, so that a thread's first entry costs no set-up
/// and entries work during a thread's end. The access model spares a function call at each entry;
/// so few bytes find room in every program, also when the library is loaded late.
__attribute__((tls_model("initial-exec"))) thread_local _ThreadTrace t_Trace;

/// Where the C++ runtime counts the calling thread's exceptions in flight: what
/// std::uncaught_exceptions reads, without its calls at every entry. The layout (a pointer, then
/// the count) is laid down by the C++ ABI.
const unsigned* InFlightCount()
{
    const void* const globals = abi::__cxa_get_globals();
    return reinterpret_cast<const unsigned*>(static_cast<const char*>(globals) + sizeof(void*));
}

/// Keeps the bits of the first `count` exceptions in flight.
unsigned UpTo(unsigned count)
{
    return count >= kMaxInFlight ? ~0u : (2u << count) - 1;
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

} // namespace

void vesta::ForgetPrintedTraces() noexcept
{
    t_Trace.printed &= UpTo(static_cast<unsigned>(std::uncaught_exceptions()));
}

_QuietTraces::_QuietTraces(bool quiet) : m_Before(t_Trace.quiet)
{
    t_Trace.quiet = quiet || m_Before;
}

_QuietTraces::~_QuietTraces()
{
    t_Trace.quiet = m_Before;
}

_CallEntry::_CallEntry(const CallSite& site) noexcept
    : m_Trace(t_Trace), m_Outer(t_Trace.innermost), m_Site(site)
{
    if (!m_Trace.inFlight)
    {
        m_Trace.inFlight = InFlightCount();
    }
    m_Exceptions = *m_Trace.inFlight;
    if (m_Trace.printed != 0)
    {
        m_Trace.printed &= UpTo(m_Exceptions);
    }
    m_Trace.innermost = this;
}

void _CallEntry::Look() const noexcept
{
    const unsigned inFlight = *m_Trace.inFlight;
    const unsigned bit = 1u << std::min(inFlight, kMaxInFlight);
    m_Trace.printed &= UpTo(inFlight);
    if (inFlight > m_Exceptions && (m_Trace.printed & bit) == 0)
    {
        m_Trace.printed |= bit;
        if (!m_Trace.quiet)
        {
            PrintTrace();
        }
    }
}

String _CallEntry::Trace()
{
    const int                      depth = Depth();
    std::vector<const _CallEntry*> entries;
    for (const _CallEntry* entry = t_Trace.innermost; entry && entries.size() < kMaxLines;
         entry = entry->m_Outer)
    {
        entries.push_back(entry);
    }
    std::reverse(entries.begin(), entries.end());

    String    text;
    const int left = depth - static_cast<int>(entries.size());
    if (left > 0)
    {
        text = SFormat("... %d more outside", left);
    }
    for (const _CallEntry* entry : entries)
    {
        const CallSite& site = entry->m_Site;
        text += SFormat("%s%s (%s:%d)", text.empty() ? "" : "\n", site.name, site.file, site.line);
    }
    return text;
}

int _CallEntry::Depth() noexcept
{
    int depth = 0;
    for (const _CallEntry* entry = t_Trace.innermost; entry; entry = entry->m_Outer)
    {
        ++depth;
    }
    return depth;
}
