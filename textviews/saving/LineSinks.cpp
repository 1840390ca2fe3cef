#include "textviews/saving/LineSinks.h"

#include "textviews/escapes/ShownLines.h"

#include <utility>

namespace textviews
{
FileSink::FileSink(const Path& path) : m_File(path)
{
}

void FileSink::Take(std::string_view line, bool goesOn)
{
    m_File.Write(line.data(), line.size());
    if (!goesOn)
    {
        m_File.Write(m_EndOfLine);
    }
}

void FileSink::Finish()
{
    m_File.Close();
}

TextSink::TextSink(ShownLines* shown, size_t bytes, Done done)
    : m_Shown(shown), m_Done(std::move(done))
{
    m_Text.reserve(bytes);
}

void TextSink::Take(std::string_view line, bool goesOn)
{
    if (m_Shown)
    {
        m_Text += m_Shown->PlainTextOf(line);
    }
    else
    {
        m_Text += line;
    }
    if (!goesOn)
    {
        m_Text += '\n';
    }
}

void TextSink::Finish()
{
    m_Done(std::move(m_Text));
}
} // namespace textviews
