#pragma once

#include "vesta/Export.h"
#include "vesta/IniFile.h"

#include <atomic>
#include <chrono>
#include <memory>

namespace vesta
{
class DelayedTask;
}

/// The options file of a program. Changes are written by themselves, on a thread of the file's own:
/// what is changed within a quarter of a second together, unless automatic writing is paused; then
/// one write begins at once at the end of the pause. Neither costs the changing thread more than
/// memory. Whoever needs the file to be written calls `WriteOut`. A failed write is logged and
/// tried again with the next change.
class TOLVAN_API OptionsFile : public IniFile
{
public:
    explicit OptionsFile(const Path& path);
    ~OptionsFile() override; ///< Writes what is not written yet.

    /// Pauses automatic writing while it lives. Pauses may be nested and may come from any thread;
    /// the last one to end has the file written if anything has changed.
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

    /// Writes the file if anything has changed, and returns when that is done: also when another
    /// thread is at it. Another program that holds the lock file is waited for a second at most.
    /// Never throws; false when it failed, or when the calling thread holds `Lock()` while another
    /// one writes: the rest is then written when it has given that back. Any thread.
    bool WriteOut() noexcept;
    int  WriteCount() const { return SaveCount(); } ///< Writes so far.

protected:
    void Changed() override;

private:
    void WriteSoon(std::chrono::milliseconds time) noexcept;
    bool TryToWrite();
    bool Write();

    std::atomic<int>                    m_Pauses{0};
    std::atomic<bool>                   m_FailureLogged{false};
    std::unique_ptr<vesta::DelayedTask> m_Writer; ///< Never null but at the end.
};
