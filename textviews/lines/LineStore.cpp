#include "textviews/lines/LineStore.h"

#include <algorithm>
#include <malloc.h>

namespace textviews
{
namespace
{
constexpr size_t   kMergeBytes = LineStore::k_LeafBytes / 4; // smaller leaves look for a neighbour
constexpr int      kLeavesAhead = 4;                         // that are read before they are wanted
constexpr size_t   kFirstStarts = 256;                       // lines
constexpr uint64_t kTrimBytes = uint64_t{16} * 1024 * 1024;  // bytes freed that are worth a trim

constexpr std::string_view kOnItsWay = "\xe2\x80\xa6"; // an ellipsis
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

int LineStore::Leaf::Count() const
{
    const size_t all = IsStored() ? static_cast<size_t>(stored.lines) : starts.size();
    return static_cast<int>(all - head);
}

std::string_view LineStore::Content::Line(size_t line) const
{
    const size_t end = line + 1 < starts.size() ? starts[line + 1] : bytes.size();
    return {bytes.data() + starts[line], end - starts[line]};
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

LineStore::LineStore(std::function<void()> late, int most) : m_Most(most), m_Stored(std::move(late))
{
}

LineStore::Content LineStore::ContentOf(const Leaf& leaf) const
{
    if (!leaf.IsStored())
    {
        return {leaf.bytes, leaf.starts};
    }
    const StoredText& text = m_Stored.Now(leaf.stored);
    return {text.bytes, text.starts};
}

std::string_view LineStore::LineOf(const Leaf& leaf, int index) const
{
    return ContentOf(leaf).Line(leaf.head + static_cast<size_t>(index));
}

std::string_view LineStore::LineNow(int index) const
{
    if (index < 0 || index >= m_Count)
    {
        return {};
    }
    const size_t leaf = LeafOf(index);
    return LineOf(m_Leaves[leaf], index - FirstLineOf(leaf));
}

std::string_view LineStore::Line(int index) const
{
    if (index < 0 || index >= m_Count)
    {
        return {};
    }
    const size_t leaf = LeafOf(index);
    if (m_Leaves[leaf].IsStored() && !m_Stored.Soon(m_Leaves[leaf].stored))
    {
        return kOnItsWay;
    }
    return LineOf(m_Leaves[leaf], index - FirstLineOf(leaf));
}

uint64_t LineStore::RoughBytes(int first, int last) const
{
    if (first < 0 || first > last || last >= m_Count)
    {
        return 0;
    }
    uint64_t     bytes = 0;
    const size_t end = LeafOf(last);
    for (size_t leaf = LeafOf(first); leaf <= end; ++leaf)
    {
        bytes +=
            m_Leaves[leaf].IsStored() ? m_Leaves[leaf].storedBytes : m_Leaves[leaf].LiveBytes();
    }
    return bytes;
}

LineStore::Block LineStore::BlockOf(int index) const
{
    const size_t leafIndex = LeafOf(index);
    const Leaf&  leaf = m_Leaves[leafIndex];
    Block        block;
    block.firstLine = FirstLineOf(leafIndex);
    block.lineCount = leaf.Count();
    block.finding = leaf.finding;
    const Content content = ContentOf(leaf);
    block.starts = content.starts.data() + leaf.head;
    block.origin = *block.starts;
    block.bytes = {content.bytes.data() + block.origin, content.bytes.size() - block.origin};
    return block;
}

void LineStore::Note(int index, Finding finding) const
{
    m_Leaves[LeafOf(index)].finding = finding;
}

std::optional<LineStore::Block> LineStore::BlockSoon(int index) const
{
    const size_t leaf = LeafOf(index);
    if (!m_Leaves[leaf].IsStored())
    {
        return BlockOf(index);
    }
    const bool isThere = m_Stored.Soon(m_Leaves[leaf].stored) != nullptr;
    ReadAhead(leaf);
    return isThere ? std::optional<Block>(BlockOf(index)) : std::nullopt;
}

// Whoever goes through all lines wants the next ones of them while these are looked at.
void LineStore::ReadAhead(size_t leaf) const
{
    const bool isForward = leaf == m_LastSoon + 1;
    if (isForward || leaf + 1 == m_LastSoon)
    {
        size_t next = leaf;
        for (int i = 0; i < kLeavesAhead; ++i)
        {
            next += isForward ? 1 : ~size_t{0};
            if (next < m_Leaves.size() && m_Leaves[next].IsStored())
            {
                m_Stored.Ahead(m_Leaves[next].stored);
            }
        }
    }
    m_LastSoon = leaf;
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

int LineStore::NextInMemory(int index) const
{
    for (size_t leaf = index < m_Count ? LeafOf(index) : m_Leaves.size(); leaf < m_Leaves.size();
         ++leaf)
    {
        if (!m_Leaves[leaf].IsStored())
        {
            return std::max(index, FirstLineOf(leaf));
        }
    }
    return m_Count;
}

int LineStore::FirstLineOf(size_t leaf) const
{
    return static_cast<int>(m_FirstLines[leaf] - m_Erased);
}

bool LineStore::Fits(const Leaf& leaf, size_t size)
{
    return !leaf.IsStored() && leaf.bytes.size() + size <= k_LeafBytes &&
           leaf.starts.size() < k_LeafLines;
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
    if (IsFull())
    {
        return;
    }
    if (m_Leaves.empty() || !Fits(m_Leaves.back(), line.size()))
    {
        BeginLastLeaf(line.size());
    }
    Leaf& leaf = m_Leaves.back();
    leaf.starts.push_back(static_cast<uint32_t>(leaf.bytes.size()));
    leaf.bytes.insert(leaf.bytes.end(), line.begin(), line.end());
    leaf.finding = Finding::None;
    ++m_Changes;
    ++m_Count;
    m_Bytes += line.size();
}

// Room for a whole leaf at once, and for as many lines as the leaf before has: growing bit by bit
// would leave holes in the heap.
void LineStore::BeginLastLeaf(size_t firstSize)
{
    size_t lines = kFirstStarts;
    if (!m_Leaves.empty() && !m_Leaves.back().IsStored())
    {
        Seal(m_Leaves.back());
        lines = m_Leaves.back().starts.size();
    }
    AddLeaf(m_Leaves.size(), m_Erased + m_Count);
    Leaf&      leaf = m_Leaves.back();
    const bool alone = firstSize > k_LeafBytes;
    leaf.bytes.reserve(alone ? firstSize : k_LeafBytes);
    leaf.starts.reserve(alone ? 1 : lines + lines / 16);
}

// A file that grows tells of a few lines at a time.
bool LineStore::Continues(const Leaf& leaf, const std::shared_ptr<const wxTextSource>& source,
                          const wxTextStretch& stretch)
{
    return leaf.stored.source == source &&
           leaf.stored.offset + leaf.stored.size == stretch.offset &&
           leaf.storedBytes + stretch.bytes <= k_LeafBytes &&
           static_cast<size_t>(leaf.stored.lines) + static_cast<size_t>(stretch.lines) <=
               k_LeafLines;
}

int LineStore::AppendStored(const std::shared_ptr<const wxTextSource>& source,
                            const wxTextStretch&                       stretch)
{
    const int lines = std::min(stretch.lines, m_Most - m_Count);
    if (lines <= 0)
    {
        return 0;
    }
    if (m_Leaves.empty() || !Continues(m_Leaves.back(), source, stretch))
    {
        if (!m_Leaves.empty())
        {
            Seal(m_Leaves.back());
        }
        AddLeaf(m_Leaves.size(), m_Erased + m_Count);
        m_Leaves.back().stored = {source, stretch.offset, 0, 0};
    }
    Leaf& leaf = m_Leaves.back();
    leaf.stored.size += stretch.size;
    leaf.stored.lines += lines;
    leaf.storedBytes += stretch.bytes;
    leaf.finding = Finding::None;
    ++m_Changes;
    m_Count += lines;
    m_Bytes += stretch.bytes;
    if (stretch.goesOn && lines == stretch.lines)
    {
        SetGoesOn(m_Count - 1);
    }
    return lines;
}

void LineStore::SetGoesOn(int index)
{
    if (index >= 0 && index < m_Count)
    {
        m_GoingOn.Set(index, true);
    }
}

// Only there can they be changed.
void LineStore::TakeIntoMemory(Leaf& leaf)
{
    if (leaf.IsStored())
    {
        StoredText text = ReadStored(leaf.stored);
        leaf.bytes = std::move(text.bytes);
        leaf.starts = std::move(text.starts);
        leaf.stored = {};
        leaf.storedBytes = 0;
    }
}

void LineStore::Insert(int index, std::string_view line)
{
    if (IsFull())
    {
        return;
    }
    if (index >= m_Count)
    {
        Append(line);
        return;
    }
    const int    at = std::max(index, 0);
    const size_t leaf = LeafOf(at);
    m_GoingOn.Set(at - 1, false); // it does not go on with that one
    m_GoingOn.LineInserted(at);
    InsertIntoLeaf(leaf, at - FirstLineOf(leaf), line);
    ++m_Changes;
    ++m_Count;
    m_Bytes += line.size();
}

void LineStore::InsertIntoLeaf(size_t leafIndex, int line, std::string_view text)
{
    Leaf& leaf = m_Leaves[leafIndex];
    TakeIntoMemory(leaf);
    leaf.Compact();
    leaf.finding = Finding::None;
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
    return (leaf.bytes.size() > k_LeafBytes && leaf.starts.size() > 1) ||
           leaf.starts.size() > k_LeafLines;
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
        left.starts.size() > k_LeafLines
            ? left.starts.begin() + k_LeafLines / 2
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
    if (!GoesOn(index) && index + 1 < m_Count)
    {
        m_GoingOn.Set(index - 1, false); // its end has gone; the last line may come anew
    }
    m_GoingOn.LineErased(index);
    // Less than that may be left of a file that has lost lines since they were counted.
    m_Bytes -= std::min<uint64_t>(m_Bytes, LineNow(index).size());
    --m_Count;
    ++m_Changes;
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
    TakeIntoMemory(leaf);
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
    if (right.IsStored() || left.LiveBytes() >= kMergeBytes ||
        left.LiveBytes() + right.LiveBytes() > k_LeafBytes / 2)
    {
        return;
    }
    left.Compact();
    right.Compact();
    left.finding = left.finding == right.finding ? left.finding : Finding::None;
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
    m_GoingOn = MarkedLines();
    m_Erased = 0;
    m_Count = 0;
    m_Bytes = 0;
    ++m_Changes;
    m_Stored.Forget();
    if (trim)
    {
        malloc_trim(0); // or the heap keeps the pages for itself
    }
}

int LineStore::LowerBound(std::string_view line) const
{
    const auto leaf = std::partition_point(m_Leaves.begin(), m_Leaves.end(),
                                           [&](const Leaf& l) { return LineOf(l, 0) < line; });
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
        if (LineOf(holder, middle) < line)
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
