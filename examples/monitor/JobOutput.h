#pragma once

#include "monitor/TimedLine.h"

#include <deque>

/// The end of a job's output. Lines are numbered from the first that this program was told of, so
/// that a view can ask for those that it does not show yet.
class JobOutput
{
public:
    static constexpr size_t k_MostBytes = 4u << 20; ///< Long lines leave room for fewer.

    /// Keeps at most that many lines from now on.
    void SetLimit(size_t lines)
    {
        m_Limit = lines;
        Shorten();
    }
    void Add(const TimedLine& line)
    {
        m_Lines.push_back(line);
        m_Bytes += line.text.size();
        ++m_End;
        Shorten();
    }
    /// That many lines are missing before the next one.
    void Skip(long long lines)
    {
        if (lines > 0)
        {
            Clear();
            m_End += lines;
        }
    }
    /// Drops the lines; their numbers are not given again.
    void Clear()
    {
        m_Lines.clear();
        m_Bytes = 0;
    }

    const std::deque<TimedLine>& Lines() const { return m_Lines; }
    long long End() const { return m_End; } ///< The number of the line that comes next.
    /// The number of the first line that is still here.
    long long Begin() const { return m_End - static_cast<long long>(m_Lines.size()); }

private:
    void Shorten()
    {
        while (m_Lines.size() > m_Limit || (m_Bytes > k_MostBytes && m_Lines.size() > 1))
        {
            m_Bytes -= m_Lines.front().text.size();
            m_Lines.pop_front();
        }
    }

    std::deque<TimedLine> m_Lines;
    size_t                m_Bytes = 0;
    size_t                m_Limit = 100;
    long long             m_End = 0;
};
