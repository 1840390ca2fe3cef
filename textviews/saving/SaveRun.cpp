#include "textviews/saving/SaveRun.h"

#include "vesta/Exception.h"

#include <algorithm>

namespace textviews
{
SaveRun::SaveRun(const LineStore& lines, const Path& path)
    : m_Lines(lines), m_File(path), m_End(lines.Count())
{
}

void SaveRun::Work(std::chrono::milliseconds slice)
{
    const auto end = std::chrono::steady_clock::now() + slice;
    m_IsWaiting = false;
    while (!m_IsDone && !m_IsWaiting && std::chrono::steady_clock::now() < end)
    {
        m_End = std::min(m_End, m_Lines.Count()); // nobody tells of picked lines
        if (m_HasLost)
        {
            Exception::Throw("SaveRun", "Work", 0, "Lines have gone before they were saved");
        }
        if (m_Next >= m_End)
        {
            m_File.Close();
            m_IsDone = true;
            break;
        }
        const auto block = m_Lines.BlockSoon(m_Next);
        m_IsWaiting = !block;
        if (block)
        {
            Write(*block);
        }
    }
}

void SaveRun::Write(const LineStore::Block& block)
{
    const String endOfLine = OutputFile::k_EndOfLine;
    const int    end = std::min(block.firstLine + block.lineCount, m_End);
    for (; m_Next < end; ++m_Next)
    {
        const std::string_view text = block.Line(m_Next - block.firstLine);
        m_File.Write(text.data(), text.size());
        m_File.Write(endOfLine);
    }
}

int SaveRun::Percent() const
{
    return m_End == 0 ? 100 : static_cast<int>(int64_t{100} * m_Next / m_End);
}

// What comes at the end came too late, unless it is a line that was there and has grown.
void SaveRun::LineInserted(int line)
{
    if (line < m_Next)
    {
        ++m_Next;
        ++m_End;
    }
    else if (line < m_End)
    {
        ++m_End;
    }
    else if (line == m_End && m_Replaced > 0)
    {
        ++m_End;
        --m_Replaced;
    }
}

void SaveRun::LineErased(int line)
{
    if (line >= m_End)
    {
        return;
    }
    m_Replaced += line == m_End - 1 ? 1 : 0;
    m_HasLost = m_HasLost || (line >= m_Next && line < m_End - 1);
    m_Next -= line < m_Next ? 1 : 0;
    --m_End;
}

void SaveRun::LinesCleared()
{
    m_HasLost = m_Next < m_End;
    m_Next = m_End = 0;
}
} // namespace textviews
