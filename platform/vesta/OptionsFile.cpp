#include "vesta/OptionsFile.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/Guarded.h"
#include "vesta/tasks/DelayedTask.h"

#include <exception>

namespace
{

// For the changes that come one after another: as short as it is, whoever drags something makes
// many of them.
constexpr std::chrono::milliseconds kGather{250};
constexpr std::chrono::milliseconds kAtOnce{0};

} // namespace

OptionsFile::OptionsFile(const Path& path)
    : IniFile(path),
      m_Writer(std::make_unique<vesta::DelayedTask>(
          [this]
          {
              if (m_Pauses == 0) // Else the end of the pause asks again.
              {
                  WriteOut();
              }
          }))
{
}

OptionsFile::~OptionsFile()
{
    m_Writer.reset();
    WriteOut();
}

OptionsFile::PauseAutoWrite::PauseAutoWrite(OptionsFile& file) : m_File(file)
{
    ++m_File.m_Pauses;
}

OptionsFile::PauseAutoWrite::~PauseAutoWrite()
{
    if (--m_File.m_Pauses == 0)
    {
        m_File.WriteSoon(kAtOnce);
    }
}

bool OptionsFile::WriteOut() noexcept
{
    bool isWritten = false;
    Guarded("Writing the options", [&] { isWritten = TryToWrite(); });
    return isWritten;
}

bool OptionsFile::TryToWrite()
{
    CALL_ENTRY("OptionsFile::WriteOut");
    if (!IsChanged())
    {
        return true;
    }
    // Without a name they are kept in memory only; whoever gave none has told the user.
    return !FileName().IsEmpty() && Write();
}

bool OptionsFile::Write()
{
    const _QuietTraces again(m_FailureLogged);
    try
    {
        if (!TrySave())
        {
            WriteSoon(kAtOnce);
            return false;
        }
        m_FailureLogged = false;
        return true;
    }
    catch (Exception* e)
    {
        // One line for a disk that stays full, not one a change.
        if (!m_FailureLogged.exchange(true))
        {
            e->Log();
            LogError("The options could not be written; they are kept until the next change");
        }
        delete e;
    }
    return false;
}

/// Has the writer do it; without a thread it is done here.
void OptionsFile::WriteSoon(std::chrono::milliseconds time) noexcept
{
    try
    {
        if (IsChanged() && !FileName().IsEmpty())
        {
            m_Writer->RunWithin(time);
        }
        return;
    }
    catch (const std::exception& e)
    {
        LogWarning(String("The options are written at once: ") + e.what());
    }
    WriteOut();
}

void OptionsFile::Changed()
{
    if (m_Pauses == 0)
    {
        WriteSoon(kGather);
    }
}
