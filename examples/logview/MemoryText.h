#pragma once

#include "textviews/wxTextSource.h"

#include <deque>
#include <mutex>
#include <string_view>
#include <vector>

/// Text that is kept in memory. One thread adds to it; any may read.
class MemoryText : public wxTextSource
{
public:
    /// Adds the line, with a line feed, at the end. Gives its place.
    uint64_t AppendLine(std::string_view line);

    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override;

private:
    void Append(std::string_view bytes);

    mutable std::mutex            m_Mutex;
    std::deque<std::vector<char>> m_Chunks;
    uint64_t                      m_Size = 0;
};
