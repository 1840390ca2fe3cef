#include "logview/MemoryText.h"

#include <algorithm>

namespace
{
constexpr size_t kChunk = 16 * 1024; // bytes
} // namespace

uint64_t MemoryText::AppendLine(std::string_view line)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    const uint64_t                    place = m_Size;
    Append(line);
    Append("\n");
    return place;
}

void MemoryText::Append(std::string_view bytes)
{
    while (!bytes.empty())
    {
        if (m_Size % kChunk == 0)
        {
            m_Chunks.emplace_back();
            m_Chunks.back().reserve(kChunk);
        }
        std::vector<char>& chunk = m_Chunks.back();
        const auto         some = bytes.substr(0, kChunk - chunk.size());
        chunk.insert(chunk.end(), some.begin(), some.end());
        m_Size += some.size();
        bytes.remove_prefix(some.size());
    }
}

size_t MemoryText::Read(uint64_t offset, char* buffer, size_t count, int& problem) const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    const uint64_t                    end = std::min(offset + count, m_Size);
    uint64_t                          at = offset;
    problem = 0;
    while (at < end)
    {
        const std::vector<char>& chunk = m_Chunks[at / kChunk];
        const size_t             from = at % kChunk;
        const size_t             size = std::min<uint64_t>(chunk.size() - from, end - at);
        buffer = std::copy_n(chunk.begin() + static_cast<std::ptrdiff_t>(from), size, buffer);
        at += size;
    }
    return at - std::min(offset, at);
}
