#include "textviews/matching/PickedLines.h"

namespace textviews
{
namespace
{
constexpr int kCountedLines = 4096; // whose bytes are counted one by one
} // namespace

// -1, which is no line, for none.
int PickedLines::LineOf(int index) const
{
    return index < 0 || index >= Count() ? -1 : m_Search.Found().LineOf(index);
}

std::string_view PickedLines::Line(int index) const
{
    return m_Whole.Line(LineOf(index));
}

std::string_view PickedLines::LineNow(int index) const
{
    return m_Whole.LineNow(LineOf(index));
}

bool PickedLines::GoesOn(int index) const
{
    return m_Whole.GoesOn(LineOf(index)) && LineOf(index + 1) == LineOf(index) + 1;
}

LineStore::Block PickedLines::BlockOf(int index) const
{
    m_Together.clear();
    m_Starts.clear();
    for (int line = index; line < Count() && HasRoom(); ++line)
    {
        Gather(LineNow(line));
    }
    return Gathered(index);
}

std::optional<LineStore::Block> PickedLines::BlockSoon(int index) const
{
    m_Together.clear();
    m_Starts.clear();
    for (int line = index; line < Count() && HasRoom(); ++line)
    {
        const int  whole = LineOf(line);
        const auto block = m_Whole.BlockSoon(whole);
        if (!block)
        {
            break;
        }
        Gather(block->Line(whole - block->firstLine));
    }
    return m_Starts.empty() ? std::nullopt : std::optional<Block>(Gathered(index));
}

bool PickedLines::HasRoom() const
{
    return m_Together.size() < k_LeafBytes && m_Starts.size() < k_LeafLines;
}

void PickedLines::Gather(std::string_view line) const
{
    m_Starts.push_back(static_cast<uint32_t>(m_Together.size()));
    m_Together += line;
}

LineStore::Block PickedLines::Gathered(int first) const
{
    Block block;
    block.firstLine = first;
    block.lineCount = static_cast<int>(m_Starts.size());
    block.bytes = m_Together;
    block.starts = m_Starts.data();
    return block;
}

// Of very many, as much as lines have on the whole.
uint64_t PickedLines::RoughBytes(int first, int last) const
{
    if (first < 0 || first > last || last >= Count())
    {
        return 0;
    }
    const int count = last - first + 1;
    if (count > kCountedLines)
    {
        const double share = static_cast<double>(count) / m_Whole.Count();
        return static_cast<uint64_t>(share * static_cast<double>(m_Whole.Bytes()));
    }
    uint64_t bytes = 0;
    for (int line = first; line <= last; ++line)
    {
        bytes += LineNow(line).size();
    }
    return bytes;
}
} // namespace textviews
