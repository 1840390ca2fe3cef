#include "textviews/lines/LineStore.h"

#include <algorithm>
#include <malloc.h>

namespace textviews
{
namespace
{
constexpr size_t   kLeafBytes = 32 * 1024;       // bytes of lines in a leaf; a longer line is alone
constexpr size_t   kLeafLines = 4096;            // lines in a leaf, where they are short or empty
constexpr size_t   kMergeBytes = kLeafBytes / 4; // smaller leaves look for a neighbour
constexpr size_t   kFirstStarts = 256;           // lines
constexpr uint64_t kTrimBytes = uint64_t{16} * 1024 * 1024; // bytes freed that are worth a trim
} // namespace

std::string_view LineStore::Block::Line(int index) const
{
    const size_t start = StartOf(index);
    const size_t end = index + 1 < lineCount ? StartOf(index + 1) : bytes.size();
    return bytes.substr(start, end - start);
}

int LineStore::Block::LineAt(size_t byte) const
{
    const uint32_t* const end = starts + lineCount;
    const auto            target = static_cast<uint32_t>(byte + origin);
    return static_cast<int>(std::upper_bound(starts, end, target) - starts) - 1;
}

size_t LineStore::Leaf::EndOf(size_t line) const
{
    return line + 1 < starts.size() ? starts[line + 1] : bytes.size();
}

std::string_view LineStore::Leaf::Line(int index) const
{
    const size_t line = head + static_cast<size_t>(index);
    return {bytes.data() + starts[line], EndOf(line) - starts[line]};
}

// Takes the erased lines out of the front.
void LineStore::Leaf::Compact()
{
    if (head == 0)
    {
        return;
    }
    const uint32_t gone = starts[head];
    bytes.erase(bytes.begin(), bytes.begin() + gone);
    starts.erase(starts.begin(), starts.begin() + head);
    for (uint32_t& start : starts)
    {
        start -= gone;
    }
    head = 0;
}

std::string_view LineStore::Line(int index) const
{
    if (index < 0 || index >= m_Count)
    {
        return {};
    }
    const size_t leaf = LeafOf(index);
    return m_Leaves[leaf].Line(index - FirstLineOf(leaf));
}

LineStore::Block LineStore::BlockOf(int index) const
{
    const size_t leafIndex = LeafOf(index);
    const Leaf&  leaf = m_Leaves[leafIndex];
    Block        block;
    block.firstLine = FirstLineOf(leafIndex);
    block.lineCount = leaf.Count();
    block.starts = leaf.starts.data() + leaf.head;
    block.origin = leaf.starts[leaf.head];
    block.bytes = {leaf.bytes.data() + block.origin, leaf.LiveBytes()};
    return block;
}

size_t LineStore::LeafOf(int index) const
{
    // A window on a stream erases its first line again and again.
    if (m_FirstLines.size() < 2 || index + m_Erased < m_FirstLines[1])
    {
        return 0;
    }
    const auto after = std::upper_bound(m_FirstLines.begin(), m_FirstLines.end(), index + m_Erased);
    return static_cast<size_t>(after - m_FirstLines.begin()) - 1;
}

int LineStore::FirstLineOf(size_t leaf) const
{
    return static_cast<int>(m_FirstLines[leaf] - m_Erased);
}

bool LineStore::Fits(const Leaf& leaf, size_t size)
{
    return leaf.bytes.size() + size <= kLeafBytes && leaf.starts.size() < kLeafLines;
}

void LineStore::AddLeaf(size_t at, int64_t firstLine)
{
    m_Leaves.emplace(m_Leaves.begin() + static_cast<ptrdiff_t>(at));
    m_FirstLines.insert(m_FirstLines.begin() + static_cast<ptrdiff_t>(at), firstLine);
}

// A leaf that takes no more lines at its end keeps little room for them.
void LineStore::Seal(Leaf& leaf)
{
    const auto shrink = [](auto& vector)
    {
        if (vector.size() < vector.capacity() - vector.capacity() / 8)
        {
            vector.shrink_to_fit();
        }
    };
    shrink(leaf.starts);
    shrink(leaf.bytes);
}

void LineStore::Append(std::string_view line)
{
    if (m_Leaves.empty() || !Fits(m_Leaves.back(), line.size()))
    {
        BeginLastLeaf(line.size());
    }
    Leaf& leaf = m_Leaves.back();
    leaf.starts.push_back(static_cast<uint32_t>(leaf.bytes.size()));
    leaf.bytes.insert(leaf.bytes.end(), line.begin(), line.end());
    ++m_Count;
    m_Bytes += line.size();
}

// Room for a whole leaf at once, and for as many lines as the leaf before has: growing bit by bit
// would leave holes in the heap.
void LineStore::BeginLastLeaf(size_t firstSize)
{
    size_t lines = kFirstStarts;
    if (!m_Leaves.empty())
    {
        Seal(m_Leaves.back());
        lines = m_Leaves.back().starts.size();
    }
    AddLeaf(m_Leaves.size(), m_Erased + m_Count);
    Leaf&      leaf = m_Leaves.back();
    const bool alone = firstSize > kLeafBytes;
    leaf.bytes.reserve(alone ? firstSize : kLeafBytes);
    leaf.starts.reserve(alone ? 1 : lines + lines / 16);
}

void LineStore::Insert(int index, std::string_view line)
{
    if (index >= m_Count)
    {
        Append(line);
        return;
    }
    const int    at = std::max(index, 0);
    const size_t leaf = LeafOf(at);
    InsertIntoLeaf(leaf, at - FirstLineOf(leaf), line);
    ++m_Count;
    m_Bytes += line.size();
}

void LineStore::InsertIntoLeaf(size_t leafIndex, int line, std::string_view text)
{
    Leaf& leaf = m_Leaves[leafIndex];
    leaf.Compact();
    const auto at = leaf.starts.begin() + line;
    const auto start = *at;
    const auto size = static_cast<uint32_t>(text.size());
    leaf.bytes.insert(leaf.bytes.begin() + start, text.begin(), text.end());
    const auto moved = leaf.starts.insert(at, start);
    std::for_each(moved + 1, leaf.starts.end(), [size](uint32_t& later) { later += size; });
    ShiftFirstLines(leafIndex + 1, 1);
    // Twice where a line longer than a leaf has come to lie between others.
    while (TooLarge(m_Leaves[leafIndex]))
    {
        Split(leafIndex);
    }
}

bool LineStore::TooLarge(const Leaf& leaf)
{
    return (leaf.bytes.size() > kLeafBytes && leaf.starts.size() > 1) ||
           leaf.starts.size() > kLeafLines;
}

// Cuts a leaf in two at the line that starts nearest to the middle of its bytes (at the middle line
// where it has too many). The right part never needs another cut.
void LineStore::Split(size_t leafIndex)
{
    AddLeaf(leafIndex + 1, 0);
    Leaf&      left = m_Leaves[leafIndex];
    Leaf&      right = m_Leaves[leafIndex + 1];
    const auto middle = static_cast<uint32_t>(left.bytes.size() / 2);
    const auto after =
        left.starts.size() > kLeafLines
            ? left.starts.begin() + kLeafLines / 2
            : std::lower_bound(left.starts.begin() + 1, left.starts.end() - 1, middle);
    const auto cut = *after;
    const auto keptLines = after - left.starts.begin();
    right.bytes.assign(left.bytes.begin() + cut, left.bytes.end());
    right.starts.assign(after, left.starts.end());
    std::for_each(right.starts.begin(), right.starts.end(), [cut](uint32_t& s) { s -= cut; });
    left.bytes.resize(cut);
    left.starts.resize(static_cast<size_t>(keptLines));
    Seal(left);
    m_FirstLines[leafIndex + 1] = m_FirstLines[leafIndex] + keptLines;
}

void LineStore::ShiftFirstLines(size_t from, int64_t by)
{
    std::for_each(m_FirstLines.begin() + static_cast<ptrdiff_t>(from), m_FirstLines.end(),
                  [by](int64_t& first) { first += by; });
}

void LineStore::Erase(int index)
{
    if (index < 0 || index >= m_Count)
    {
        return;
    }
    const size_t leaf = LeafOf(index);
    m_Bytes -= m_Leaves[leaf].Line(index - FirstLineOf(leaf)).size();
    --m_Count;
    EraseFromLeaf(leaf, index - FirstLineOf(leaf));
}

void LineStore::EraseFromLeaf(size_t leafIndex, int line)
{
    Leaf& leaf = m_Leaves[leafIndex];
    if (leafIndex == 0 && line == 0)
    {
        // Counting what has gone instead of renumbering every leaf makes this constant in time.
        ++m_Erased;
        ++m_FirstLines[0];
    }
    else
    {
        ShiftFirstLines(leafIndex + 1, -1);
    }
    if (leaf.Count() == 1)
    {
        DropLeaf(leafIndex);
        return;
    }
    if (line == 0)
    {
        ++leaf.head;
        return;
    }
    leaf.Compact();
    const auto   at = leaf.starts.begin() + line;
    const size_t start = *at;
    const size_t end = leaf.EndOf(static_cast<size_t>(line));
    const auto   size = static_cast<uint32_t>(end - start);
    leaf.bytes.erase(leaf.bytes.begin() + static_cast<ptrdiff_t>(start),
                     leaf.bytes.begin() + static_cast<ptrdiff_t>(end));
    const auto moved = leaf.starts.erase(at);
    std::for_each(moved, leaf.starts.end(), [size](uint32_t& later) { later -= size; });
    MergeSmall(leafIndex);
}

void LineStore::DropLeaf(size_t leaf)
{
    m_Leaves.erase(m_Leaves.begin() + static_cast<ptrdiff_t>(leaf));
    m_FirstLines.erase(m_FirstLines.begin() + static_cast<ptrdiff_t>(leaf));
}

// Erasing here and there must not leave a leaf a line.
void LineStore::MergeSmall(size_t leafIndex)
{
    if (leafIndex + 1 >= m_Leaves.size())
    {
        return;
    }
    Leaf& left = m_Leaves[leafIndex];
    Leaf& right = m_Leaves[leafIndex + 1];
    if (left.LiveBytes() >= kMergeBytes || left.LiveBytes() + right.LiveBytes() > kLeafBytes / 2)
    {
        return;
    }
    left.Compact();
    right.Compact();
    const auto before = static_cast<uint32_t>(left.bytes.size());
    left.bytes.insert(left.bytes.end(), right.bytes.begin(), right.bytes.end());
    for (const uint32_t start : right.starts)
    {
        left.starts.push_back(start + before);
    }
    DropLeaf(leafIndex + 1);
}

void LineStore::Clear()
{
    const bool trim = m_Bytes >= kTrimBytes;
    std::deque<Leaf>().swap(m_Leaves);
    std::vector<int64_t>().swap(m_FirstLines);
    m_Erased = 0;
    m_Count = 0;
    m_Bytes = 0;
    if (trim)
    {
        malloc_trim(0); // or the heap keeps the pages for itself
    }
}

int LineStore::LowerBound(std::string_view line) const
{
    const auto leaf = std::partition_point(m_Leaves.begin(), m_Leaves.end(),
                                           [line](const Leaf& l) { return l.Line(0) < line; });
    if (leaf == m_Leaves.begin())
    {
        return 0;
    }
    // The last leaf that starts below the line; what it does not hold starts the next one.
    const Leaf& holder = *(leaf - 1);
    int         low = 1;
    int         high = holder.Count();
    while (low < high)
    {
        const int middle = low + (high - low) / 2;
        if (holder.Line(middle) < line)
        {
            low = middle + 1;
        }
        else
        {
            high = middle;
        }
    }
    return FirstLineOf(static_cast<size_t>(leaf - m_Leaves.begin()) - 1) + low;
}
} // namespace textviews
