#pragma once

#include "vesta/String.h"

#include <deque>
#include <string_view>

/// The last lines of a job's output, for clients that come later.
class _OutputTail
{
public:
    static constexpr size_t k_MaxLines = 200;
    static constexpr size_t k_MaxBytes = 256u << 10; ///< Very long lines leave room for fewer.

    void Add(std::string_view line)
    {
        m_Lines.emplace_back(std::string(line));
        m_Bytes += line.size();
        while (m_Lines.size() > k_MaxLines || (m_Bytes > k_MaxBytes && m_Lines.size() > 1))
        {
            m_Bytes -= m_Lines.front().size();
            m_Lines.pop_front();
        }
    }
    void Clear()
    {
        m_Lines.clear();
        m_Bytes = 0;
    }
    const std::deque<String>& Lines() const { return m_Lines; }

private:
    std::deque<String> m_Lines;
    size_t             m_Bytes = 0;
};
