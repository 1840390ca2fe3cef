#pragma once

#include "vesta/Export.h"
#include "vesta/IniFile.h"

#include <atomic>

/// The options file of a program. Every change is written out at once, unless automatic writing is
/// paused; then one write follows at the end of the pause. A failed write is logged and tried again
/// with the next change.
class TOLVAN_API OptionsFile : public IniFile
{
public:
    explicit OptionsFile(const Path& path);
    ~OptionsFile() override; ///< Writes what is not written yet.

    /// Pauses automatic writing while it lives. Pauses may be nested and may come from any thread;
    /// the last one to end writes the file if anything has changed.
    class TOLVAN_API PauseAutoWrite
    {
    public:
        explicit PauseAutoWrite(OptionsFile& file);
        ~PauseAutoWrite();
        PauseAutoWrite(const PauseAutoWrite&) = delete;
        PauseAutoWrite& operator=(const PauseAutoWrite&) = delete;

    private:
        OptionsFile& m_File;
    };

    /// Writes the file now if anything has changed. Never throws; false when it failed.
    bool WriteOut() noexcept;
    int  WriteCount() const { return m_WriteCount; } ///< Writes so far.

protected:
    void Changed() override;

private:
    bool Write();

    std::atomic<int> m_Pauses{0};
    std::atomic<int> m_WriteCount{0};
    bool             m_FailureLogged = false; ///< Under the write lock.
};
