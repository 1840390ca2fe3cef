#pragma once

#include "vesta/String.h"
#include "vesta/Time.h"

#include <algorithm>
#include <deque>
#include <string_view>

namespace master
{
/// The last lines of a job's output, for clients that come later.
class OutputTail
{
public:
    static constexpr size_t k_MaxLines = 200;
    static constexpr size_t k_MaxBytes = 256u << 10; ///< Very long lines leave room for fewer.

    struct Line
    {
        Time   came; ///< Of a job's lines no two have the same.
        String text;
    };

    /// The time that the line is said to have come at.
    Time Add(std::string_view line)
    {
        m_Last = std::max(Time::CurrentTime(), m_Last + Time(1));
        m_Lines.push_back({m_Last, std::string(line)});
        m_Bytes += line.size();
        while (m_Lines.size() > k_MaxLines || (m_Bytes > k_MaxBytes && m_Lines.size() > 1))
        {
            m_Bytes -= m_Lines.front().text.size();
            m_Lines.pop_front();
        }
        return m_Last;
    }
    void Clear()
    {
        m_Lines.clear();
        m_Bytes = 0;
    }
    const std::deque<Line>& Lines() const { return m_Lines; }

private:
    std::deque<Line> m_Lines;
    size_t           m_Bytes = 0;
    Time             m_Last; ///< Of the latest line of any run.
};
} // namespace master
