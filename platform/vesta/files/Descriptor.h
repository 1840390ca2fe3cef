#pragma once

#include "vesta/String.h"

#include <sys/types.h>

namespace vesta
{
/// An open file of the operating system, closed with its holder. Not exported.
class Descriptor
{
public:
    explicit Descriptor(int descriptor = -1) : m_Descriptor(descriptor) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    /// open(2) with close-on-exec, tried again when a signal interrupts it.
    static int Open(const String& fileName, int flags, mode_t mode = 0);

    int  Get() const { return m_Descriptor; }
    void Release() { m_Descriptor = -1; } ///< Leaves the file open.
    void Reset(int descriptor)            ///< Closes the file it has and takes over another.
    {
        Close();
        m_Descriptor = descriptor;
    }
    bool IsOpen() const { return m_Descriptor >= 0; }
    /// False, with errno set, when the system reports a late failure of writing.
    bool Close();
    /// All the bytes, however often the system interrupts or shortens the call; false with errno.
    bool WriteAll(const char* bytes, size_t count) const;

private:
    int m_Descriptor;
};
} // namespace vesta
