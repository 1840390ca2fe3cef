#include "vesta/OptionsFile.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"

#include <exception>

OptionsFile::OptionsFile(const Path& path) : IniFile(path)
{
}

OptionsFile::~OptionsFile()
{
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
        m_File.WriteOut();
    }
}

bool OptionsFile::WriteOut() noexcept
{
    try
    {
        CALL_ENTRY("OptionsFile::WriteOut");
        // Held over the whole of it: m_FailureLogged belongs to it, and two threads would
        // otherwise both see the same changes and count two writes.
        const WriteLock lock(Lock());
        if (!IsChanged())
        {
            return true;
        }
        if (FileName().IsEmpty())
        {
            return false; // Kept in memory only; whoever gave no name has told the user.
        }
        return Write();
    }
    catch (Exception* e)
    {
        e->Log();
        delete e;
    }
    catch (const std::exception& e)
    {
        LogError(String("Writing the options failed: ") + e.what());
    }
    return false;
}

bool OptionsFile::Write()
{
    const _QuietTraces again(m_FailureLogged);
    try
    {
        Save();
        ++m_WriteCount;
        m_FailureLogged = false;
        return true;
    }
    catch (Exception* e)
    {
        // One line for a disk that stays full, not one a change.
        if (!m_FailureLogged)
        {
            e->Log();
            LogError("The options could not be written; they are kept until the next change");
        }
        m_FailureLogged = true;
        delete e;
    }
    return false;
}

void OptionsFile::Changed()
{
    if (m_Pauses == 0)
    {
        WriteOut();
    }
}
