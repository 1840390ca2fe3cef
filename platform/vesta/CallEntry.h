#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <exception>

/// Where a traced function stands. One static object a function, made by `CALL_ENTRY`.
struct CallSite
{
    const char* name; ///< Qualified name of the function.
    const char* file;
    int         line;
};

class _CallEntry;

/// What the call trace knows of one thread. For `_CallEntry` only.
struct _ThreadTrace
{
    const _CallEntry* innermost; ///< Null when no entry is open.
    /// Bit n: the trace of the n-th exception in flight has been printed. The bits above the number
    /// in flight belong to exceptions that were caught meanwhile.
    unsigned printed;
    bool     quiet; ///< Nothing is to be printed for now.
};

/// One level of the call trace, alive while its function runs. Opening one links it to the level
/// outside it, allocates nothing and takes some ten nanoseconds. When an exception passes, the
/// innermost entry writes the whole trace of its thread to the log, once for that exception: again
/// only when it is thrown anew behind a call to another traced function. (Of two exceptions that
/// pass one after the other without any traced call between them, the second is told from the
/// first only when it is one of the platform's.)
class TOLVAN_API _CallEntry
{
public:
    explicit _CallEntry(const CallSite& site) noexcept;
    ~_CallEntry()
    {
        // Inline, because it runs everywhere: it leaves at once or, rarely, looks closer.
        if (std::uncaught_exceptions() != m_Exceptions || m_Trace.printed != 0)
        {
            Look();
        }
        m_Trace.innermost = m_Outer;
    }
    _CallEntry(const _CallEntry&) = delete;
    _CallEntry& operator=(const _CallEntry&) = delete;

    /// The calling thread's open entries, outermost first, a line "name (file:line)" each. Of very
    /// many only the innermost 64, behind a line that says how many there are outside them.
    static String Trace();
    static int    Depth() noexcept; ///< Number of open entries of the calling thread.

private:
    void Look() const noexcept;

    _ThreadTrace&     m_Trace; ///< Of the thread that runs.
    const _CallEntry* m_Outer; ///< Null in the outermost.
    const CallSite&   m_Site;
    int               m_Exceptions; ///< Exceptions in flight when the entry was opened.
};

/// While it lives, exceptions that pass on the calling thread leave no trace in the log: for a
/// failure that has been reported and is being tried again.
class TOLVAN_API _QuietTraces
{
public:
    /// @param quiet False changes nothing.
    explicit _QuietTraces(bool quiet);
    ~_QuietTraces();
    _QuietTraces(const _QuietTraces&) = delete;
    _QuietTraces& operator=(const _QuietTraces&) = delete;

private:
    const bool m_Before;
};

/// Opens the trace entry of the function that it stands in, as its first statement.
#define CALL_ENTRY(functionName)                                                                   \
    static constexpr CallSite s_CallSite{functionName, __FILE__, __LINE__};                        \
    const _CallEntry          callEntry(s_CallSite)
