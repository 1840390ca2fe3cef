#include "textviews/lines/MarkedLines.h"

#include <iterator>

namespace textviews
{
void MarkedLines::Set(int line, bool on)
{
    if (on)
    {
        m_Lines.insert(m_Erased + line);
    }
    else
    {
        m_Lines.erase(m_Erased + line);
    }
}

std::vector<int> MarkedLines::All() const
{
    std::vector<int> lines;
    lines.reserve(m_Lines.size());
    for (const int64_t line : m_Lines)
    {
        lines.push_back(static_cast<int>(line - m_Erased));
    }
    return lines;
}

std::optional<int> MarkedLines::Next(int line, bool forward) const
{
    if (m_Lines.empty())
    {
        return {};
    }
    const int64_t here = m_Erased + line;
    int64_t       next = 0;
    if (forward)
    {
        const auto below = m_Lines.upper_bound(here);
        next = below == m_Lines.end() ? *m_Lines.begin() : *below;
    }
    else
    {
        const auto from = m_Lines.lower_bound(here);
        next = from == m_Lines.begin() ? *m_Lines.rbegin() : *std::prev(from);
    }
    return static_cast<int>(next - m_Erased);
}

// Of a stream every line comes behind them.
void MarkedLines::LineInserted(int line)
{
    if (!m_Lines.empty() && *m_Lines.rbegin() >= m_Erased + line)
    {
        ShiftFrom(line, 1);
    }
}

void MarkedLines::LineErased(int line)
{
    m_Lines.erase(m_Erased + line);
    if (line == 0)
    {
        ++m_Erased;
    }
    else
    {
        ShiftFrom(line, -1);
    }
}

void MarkedLines::ShiftFrom(int line, int by)
{
    const auto           first = m_Lines.lower_bound(m_Erased + line);
    std::vector<int64_t> moved(first, m_Lines.end());
    m_Lines.erase(first, m_Lines.end());
    for (const int64_t each : moved)
    {
        m_Lines.insert(m_Lines.end(), each + by);
    }
}
} // namespace textviews
