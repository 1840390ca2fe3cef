#include "textviews/saving/LineRun.h"

#include "vesta/Exception.h"

#include <algorithm>

namespace textviews
{
LineRun::LineRun(const LineStore& lines, int first, int end, std::unique_ptr<LineSink> sink)
    : m_Lines(lines), m_Sink(std::move(sink)), m_First(first), m_Next(first), m_End(end)
{
}

void LineRun::Work(std::chrono::milliseconds slice)
{
    const auto end = std::chrono::steady_clock::now() + slice;
    m_IsWaiting = false;
    while (!m_IsDone && !m_IsWaiting && std::chrono::steady_clock::now() < end)
    {
        m_End = std::min(m_End, m_Lines.Count()); // nobody tells of picked lines
        if (m_HasLost)
        {
            Exception::Throw("LineRun", "Work", 0, "Lines have gone before they were written");
        }
        if (m_Next >= m_End)
        {
            m_Sink->Finish();
            m_IsDone = true;
            break;
        }
        const auto block = m_Lines.BlockSoon(m_Next);
        m_IsWaiting = !block;
        if (block)
        {
            Take(*block);
        }
    }
}

void LineRun::Take(const LineStore::Block& block)
{
    const int end = std::min(block.firstLine + block.lineCount, m_End);
    for (; m_Next < end; ++m_Next)
    {
        m_Sink->Take(block.Line(m_Next - block.firstLine),
                     m_Next + 1 < m_End && m_Lines.GoesOn(m_Next));
    }
}

int LineRun::Percent() const
{
    const int count = m_End - m_First;
    return count <= 0 ? 100 : static_cast<int>(int64_t{100} * (m_Next - m_First) / count);
}

// What comes at the end came too late, unless it is a line that was there and has grown.
void LineRun::LineInserted(int line)
{
    if (line < m_Next)
    {
        m_First += line <= m_First ? 1 : 0;
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

void LineRun::LineErased(int line)
{
    if (line >= m_End)
    {
        return;
    }
    m_Replaced += line == m_End - 1 ? 1 : 0;
    m_HasLost = m_HasLost || (line >= m_Next && line < m_End - 1);
    m_First -= line < m_First ? 1 : 0;
    m_Next -= line < m_Next ? 1 : 0;
    --m_End;
}

void LineRun::LinesCleared()
{
    m_HasLost = m_Next < m_End;
    m_First = m_Next = m_End = 0;
}
} // namespace textviews
