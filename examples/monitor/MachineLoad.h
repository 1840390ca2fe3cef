#pragma once

#include "vesta/String.h"

#include <cstdint>

/// How busy this machine is, as its kernel counts it. Without a window.
class MachineLoad
{
public:
    /// Reads the counters; false when this machine does not tell.
    bool Read();
    /// The same from the texts of "/proc/stat" and "/proc/meminfo".
    bool Read(const String& stat, const String& memory);

    int     ProcessorPercent() const { return m_Percent; }       ///< Between the last two readings.
    int64_t MemoryUsed() const { return m_Total - m_Available; } ///< MiB.
    int64_t MemoryTotal() const { return m_Total; }              ///< MiB.

private:
    bool ReadProcessor(const String& stat);
    bool ReadMemory(const String& memory);

    uint64_t m_Busy = 0; ///< Ticks of all processors together.
    uint64_t m_All = 0;
    int      m_Percent = 0;
    int64_t  m_Total = 0;
    int64_t  m_Available = 0;
};
