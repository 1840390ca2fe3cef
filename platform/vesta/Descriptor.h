#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <utility>

#include <sys/types.h>

/// An open file, pipe or socket of the operating system, closed with its holder; -1 is none.
class TOLVAN_API Descriptor
{
public:
    explicit Descriptor(int number = -1) : m_Number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : m_Number(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        Close();
        m_Number = other.Release();
        return *this;
    }

    /// open(2) with close-on-exec, tried again when a signal interrupts it. Not open, with errno,
    /// when that fails.
    static Descriptor Open(const String& fileName, int flags, mode_t mode = 0);
    /// The two ends of a pipe that no child process gets; false with errno.
    static bool MakePipe(Descriptor& reading, Descriptor& writing);

    int  Get() const { return m_Number; }
    bool IsOpen() const { return m_Number >= 0; }
    int  Release() { return std::exchange(m_Number, -1); } ///< Leaves the file open.
    /// False, with errno, when the system reports a late failure of writing. Otherwise keeps errno.
    bool Close();

    /// Writes all the bytes, however often the system interrupts or shortens the call. Returns how
    /// many it could, fewer with errno.
    size_t Write(const char* bytes, size_t count) const;
    bool   WriteAll(const char* bytes, size_t count) const { return Write(bytes, count) == count; }

    /// @name Lock
    /// The lock of the whole file, which all copies of the descriptor share; given back when the
    /// last of them is closed.
    /// @{
    bool TryLock() const; ///< False with errno; EWOULDBLOCK: somebody else has it.
    bool Lock() const;    ///< Waits for it; false with errno.
    /// The same as `TryLock`, but a file system that knows no locks is no reason to refuse.
    bool LockUnlessTaken() const;
    /// @}

private:
    int m_Number;
};
