#include "vesta/OutputFile.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/_Descriptor.h"

#include <fcntl.h>

const char* const OutputFile::k_EndOfLine = "\n";

namespace
{

constexpr size_t kBuffer = 64 * 1024; // bytes
constexpr mode_t kMode = 0666;        // what the user's mask leaves of it

} // namespace

OutputFile::OutputFile(const Path& path)
    : m_Path(path),
      m_File(new _Descriptor(_Descriptor::Open(path.Text(), O_WRONLY | O_CREAT | O_TRUNC, kMode)))
{
    CALL_ENTRY("OutputFile::OutputFile");
    if (!m_File->IsOpen())
    {
        Exception::ThrowErrno("OutputFile", "OutputFile", "Cannot create \"" + path.Text() + "\"");
    }
    m_Buffer.reserve(kBuffer);
}

OutputFile::~OutputFile()
{
    try
    {
        Close();
    }
    catch (Exception* e)
    {
        e->Log();
        delete e;
    }
}

void OutputFile::Write(const char* bytes, size_t count)
{
    if (m_Buffer.size() + count > kBuffer)
    {
        Flush();
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
    if (!m_File->IsOpen())
    {
        return;
    }
    try
    {
        Flush();
    }
    catch (Exception*)
    {
        m_File->Close();
        throw;
    }
    if (!m_File->Close())
    {
        Exception::ThrowErrno("OutputFile", "Close", "Cannot write \"" + m_Path.Text() + "\"");
    }
}

void OutputFile::Flush()
{
    WriteOut(m_Buffer.data(), m_Buffer.size());
    m_Buffer.clear();
}

void OutputFile::WriteOut(const char* bytes, size_t count)
{
    if (!m_File->WriteAll(bytes, count))
    {
        Exception::ThrowErrno("OutputFile", "Write", "Cannot write \"" + m_Path.Text() + "\"");
    }
}
