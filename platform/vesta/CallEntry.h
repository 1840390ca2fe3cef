#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

/// Where a traced function stands. One static object a function, made by `CALL_ENTRY`.
struct CallSite
{
    const char* name; ///< Qualified name of the function.
    const char* file;
    int         line;
};

/// One level of the call trace, alive while its function runs. Opening one stores a pointer in a
/// thread-local array and allocates nothing. When an exception passes, the innermost entry writes
/// the whole trace of its thread to the log, once for that exception.
class TOLVAN_API _CallEntry
{
public:
    explicit _CallEntry(const CallSite& site) noexcept;
    ~_CallEntry();
    _CallEntry(const _CallEntry&) = delete;
    _CallEntry& operator=(const _CallEntry&) = delete;

    /// The calling thread's open entries, outermost first, a line "name (file:line)" each.
    static String Trace();
    static int    Depth() noexcept; ///< Number of open entries of the calling thread.

private:
    int m_Exceptions; ///< Exceptions in flight when the entry was opened.
};

/// Opens the trace entry of the function that it stands in, as its first statement.
#define CALL_ENTRY(functionName)                                                                  \
    static constexpr CallSite s_CallSite{functionName, __FILE__, __LINE__};                       \
    const _CallEntry callEntry(s_CallSite)
