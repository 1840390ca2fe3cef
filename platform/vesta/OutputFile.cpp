#include "vesta/OutputFile.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/files/OutputTarget.h"

#include <cerrno>

const char* const OutputFile::k_EndOfLine = "\n";

namespace
{

constexpr size_t kBuffer = 64 * 1024; // bytes

} // namespace

OutputFile::OutputFile(const Path& path) : m_Path(path), m_Target(new vesta::OutputTarget(path))
{
    CALL_ENTRY("OutputFile::OutputFile");
    if (!m_Target->IsOpen())
    {
        Exception::ThrowErrno("OutputFile", "OutputFile", "Cannot create \"" + path.Text() + "\"");
    }
    m_Buffer.reserve(kBuffer);
}

OutputFile::~OutputFile()
{
    if (m_Target->IsOpen())
    {
        LogWarning("\"" + m_Path.Text() + "\" was not written: its writer gave up");
    }
}

void OutputFile::Write(const char* bytes, size_t count)
{
    if (!m_Target->IsOpen())
    {
        errno = EBADF;
        Fail("Write");
    }
    if (m_Buffer.size() + count > kBuffer)
    {
        WriteOut(m_Buffer.data(), m_Buffer.size());
        m_Buffer.clear();
    }
    if (count > kBuffer)
    {
        WriteOut(bytes, count);
        return;
    }
    m_Buffer.append(bytes, count);
}

void OutputFile::WriteLine(const String& text)
{
    Write(text);
    Write(k_EndOfLine);
}

void OutputFile::Close()
{
    CALL_ENTRY("OutputFile::Close");
    if (m_IsIncomplete)
    {
        m_IsIncomplete = false;
        Exception::Throw("OutputFile", "Close", ec_System, "Cannot write \"" + m_Path.Text() + "\"",
                         "A part of it could not be written");
    }
    if (m_Target->IsOpen() &&
        (!m_Target->Write(m_Buffer.data(), m_Buffer.size()) || !m_Target->Commit()))
    {
        Fail("Close");
    }
}

void OutputFile::WriteOut(const char* bytes, size_t count)
{
    if (!m_Target->Write(bytes, count))
    {
        m_IsIncomplete = true;
        Fail("Write");
    }
}

/// Gives up what has been written, for the reason in errno.
void OutputFile::Fail(const char* method)
{
    m_Target->Abandon();
    Exception::ThrowErrno("OutputFile", method, "Cannot write \"" + m_Path.Text() + "\"");
}
