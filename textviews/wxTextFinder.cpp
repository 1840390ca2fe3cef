#include "textviews/wxTextFinder.h"

#include "textviews/lines/LineStore.h"
#include "textviews/lines/StoredText.h"
#include "textviews/lines/TextCells.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr size_t kLongestTail = 3; // bytes of a character behind its first

// A byte of a character behind its first.
bool IsTail(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

const char* FindByte(const char* from, const char* end, char byte)
{
    const void* const found = std::memchr(from, byte, static_cast<size_t>(end - from));
    return found ? static_cast<const char*>(found) : end;
}

// Gathers lines that follow one another into stretches.
class _Stretches
{
public:
    _Stretches(std::string_view bytes, uint64_t offset, std::vector<wxTextStretch>& found)
        : m_Bytes(bytes),
          m_Offset(offset),
          m_Found(found),
          m_First(found.size()),
          m_NextTab(FindByte(bytes.data(), bytes.data() + bytes.size(), '\t'))
    {
    }

    // The line's bytes in the source, with the line feed if there is one.
    void Add(std::string_view line, size_t size)
    {
        const size_t tabs = TabsIn(line);
        const size_t bytes = line.size() + tabs * textviews::k_TabGrowth;
        if (m_Found.size() == m_First || m_Found.back().goesOn || !Fits(m_Found.back(), bytes))
        {
            wxTextStretch stretch;
            stretch.offset = m_Offset + static_cast<uint64_t>(line.data() - m_Bytes.data());
            m_Found.push_back(stretch);
        }
        wxTextStretch& stretch = m_Found.back();
        stretch.size += static_cast<uint32_t>(size);
        stretch.bytes += static_cast<uint32_t>(bytes);
        ++stretch.lines;
        // No line has more cells than bytes. Most are not counted.
        if (static_cast<int64_t>(bytes) > m_Widest)
        {
            const int64_t cells =
                textviews::CellCount(line) + static_cast<int64_t>(tabs * textviews::k_TabGrowth);
            m_Widest = std::max(m_Widest, cells);
            stretch.cells = std::max(stretch.cells, cells);
        }
    }

    void CutHere() { m_Found.back().goesOn = true; }

private:
    static bool Fits(const wxTextStretch& stretch, size_t bytes)
    {
        return stretch.bytes + bytes <= textviews::LineStore::k_LeafBytes &&
               static_cast<size_t>(stretch.lines) < textviews::LineStore::k_LeafLines;
    }

    // Most lines, and most texts, have none.
    size_t TabsIn(std::string_view line)
    {
        const char* const end = line.data() + line.size();
        size_t            tabs = 0;
        while (m_NextTab < end)
        {
            ++tabs;
            m_NextTab = FindByte(m_NextTab + 1, m_Bytes.data() + m_Bytes.size(), '\t');
        }
        return tabs;
    }

    const std::string_view      m_Bytes;
    const uint64_t              m_Offset;
    std::vector<wxTextStretch>& m_Found;
    const size_t                m_First; // of those that this call has found
    const char*                 m_NextTab;
    int64_t                     m_Widest = 0;
};
} // namespace

size_t wxFindTextLines(std::string_view bytes, uint64_t offset,
                       std::vector<wxTextStretch>& stretches)
{
    _Stretches        found(bytes, offset, stretches);
    const char* const end = bytes.data() + bytes.size();
    const char*       line = bytes.data();
    while (line != end)
    {
        const auto        left = static_cast<size_t>(end - line);
        const char* const limit = line + std::min(left, k_LongestTextLine + 1);
        const char*       lineEnd = FindByte(line, limit, '\n');
        size_t            feed = 1;
        if (lineEnd == limit)
        {
            if (left <= k_LongestTextLine)
            {
                break;
            }
            feed = 0;
            lineEnd = line + k_LongestTextLine;
            while (lineEnd > line + k_LongestTextLine - kLongestTail && IsTail(*lineEnd))
            {
                --lineEnd;
            }
        }
        const auto size = static_cast<size_t>(lineEnd - line);
        found.Add({line, size}, size + feed);
        if (feed == 0)
        {
            found.CutHere();
        }
        line = lineEnd + feed;
    }
    return static_cast<size_t>(line - bytes.data());
}

void wxAddTextLine(std::string_view bytes, uint64_t offset, std::vector<wxTextStretch>& stretches)
{
    _Stretches(bytes, offset, stretches).Add(bytes, bytes.size());
}
