#include "vesta/CallEntry.h"

#include "vesta/trace/CallTrace.h"

#include <algorithm>
#include <atomic>
#include <vector>

namespace
{

constexpr size_t kMaxLines = 64;    // entries written out
constexpr int    kMaxInFlight = 31; // exceptions in flight told apart: bits of `printed`

std::atomic<void (*)(const String& trace)> s_Print{nullptr};

/// Constant-initialized and without a destructor, so that a thread's first entry costs no set-up
/// and entries work during a thread's end. The access model spares a function call at each entry;
/// so few bytes find room in every program, also when the library is loaded late.
__attribute__((tls_model("initial-exec"))) thread_local _ThreadTrace t_Trace;

/// Keeps the bits of the first `count` exceptions in flight.
unsigned UpTo(int count)
{
    return count >= kMaxInFlight ? ~0u : (2u << count) - 1;
}

void PrintTrace() noexcept
{
    try
    {
        if (const auto print = s_Print.load())
        {
            print(_CallEntry::Trace());
        }
    }
    catch (...)
    {
        // Most likely there is no memory for the text. The exception itself matters more.
    }
}

} // namespace

void vesta::ForgetPrintedTraces() noexcept
{
    t_Trace.printed &= UpTo(std::uncaught_exceptions());
}

void vesta::SetTracePrinter(void (*print)(const String& trace)) noexcept
{
    s_Print = print;
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
    : m_Trace(t_Trace),
      m_Outer(t_Trace.innermost),
      m_Site(site),
      m_Exceptions(std::uncaught_exceptions())
{
    if (m_Trace.printed != 0)
    {
        m_Trace.printed &= UpTo(m_Exceptions);
    }
    m_Trace.innermost = this;
}

void _CallEntry::Look() const noexcept
{
    const int      inFlight = std::uncaught_exceptions();
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
