#include "logview/MergedText.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace
{
constexpr size_t   kChunkParts = 256;
constexpr uint32_t kSizeBits = 21;
constexpr uint32_t kLineBits = 10;
constexpr int      kMostLines = (1 << kLineBits) - 1;

constexpr std::string_view kLost = "--- no longer in the file ---";

// As many lines in as many bytes.
std::string Stand(size_t size, int lines)
{
    const auto        feeds = std::min(size, static_cast<size_t>(lines));
    const std::string rest(size - feeds, ' ');
    std::string       text(kLost.substr(0, rest.size()));
    text += rest.substr(text.size());
    return text + std::string(feeds, '\n');
}
} // namespace

MergedText::Kept MergedText::ToKept(const Part& part)
{
    return {static_cast<uint32_t>(part.offset), static_cast<uint16_t>(part.offset >> 32),
            static_cast<uint16_t>(part.source),
            part.size | static_cast<uint32_t>(part.lines) << kSizeBits |
                (part.lacksFeed ? 1u : 0u) << (kSizeBits + kLineBits)};
}

MergedText::Part MergedText::Kept::ToPart() const
{
    return {source, offsetLow | static_cast<uint64_t>(offsetHigh) << 32, sizeAndLines & k_MostPart,
            static_cast<int>(sizeAndLines >> kSizeBits & static_cast<uint32_t>(kMostLines)),
            sizeAndLines >> (kSizeBits + kLineBits) != 0};
}

size_t MergedText::AddSource(Source source)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Sources.push_back(std::move(source));
    return m_Sources.size() - 1;
}

// Goes on where the last one ends.
bool MergedText::Joins(const Part& part)
{
    Kept&      kept = m_Chunks.back().parts.back();
    const Part last = kept.ToPart();
    if (last.lacksFeed || last.source != part.source || last.offset + last.size != part.offset ||
        last.size + part.size > k_MostPart || last.lines + part.lines > kMostLines)
    {
        return false;
    }
    kept = ToKept(
        {last.source, last.offset, last.size + part.size, last.lines + part.lines, part.lacksFeed});
    return true;
}

void MergedText::Append(const std::vector<Part>& parts)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    for (const Part& part : parts)
    {
        // What stands for lines that are lost has as many, but not at the same places.
        if (&part == &parts.front() || !Joins(part))
        {
            if (m_Chunks.empty() || m_Chunks.back().parts.size() == kChunkParts)
            {
                m_Chunks.emplace_back();
                m_Chunks.back().begin = m_Size;
                m_Chunks.back().parts.reserve(kChunkParts);
            }
            m_Chunks.back().parts.push_back(ToKept(part));
        }
        m_Size += SizeOf(part);
    }
}

size_t MergedText::Memory() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Chunks.size() * (sizeof(Chunk) + kChunkParts * sizeof(Kept));
}

// Those that have bytes there, in their order.
std::vector<MergedText::Piece> MergedText::PiecesIn(uint64_t offset, uint64_t end) const
{
    std::vector<Piece> pieces;
    auto               chunk =
        std::upper_bound(m_Chunks.begin(), m_Chunks.end(), offset,
                         [](uint64_t place, const Chunk& each) { return place < each.begin; });
    for (chunk -= chunk == m_Chunks.begin() ? 0 : 1; chunk != m_Chunks.end(); ++chunk)
    {
        uint64_t at = chunk->begin;
        for (const Kept& kept : chunk->parts)
        {
            const Part     part = kept.ToPart();
            const uint64_t next = at + SizeOf(part);
            if (at >= end)
            {
                return pieces;
            }
            if (next > offset)
            {
                pieces.push_back({part, at, m_Sources[part.source]});
            }
            at = next;
        }
    }
    return pieces;
}

size_t MergedText::Read(uint64_t offset, char* buffer, size_t count, int& problem) const
{
    problem = 0;
    std::vector<Piece> pieces;
    Wish               wish{offset, offset, buffer};
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        wish.end = std::min(offset + count, m_Size);
        pieces = PiecesIn(offset, wish.end);
    }
    for (size_t i = 0; i < pieces.size(); ++i)
    {
        if (pieces[i].source)
        {
            ReadStretch(pieces, i, wish);
        }
    }
    return wish.end - std::min(offset, wish.end);
}

// The parts of one source mostly lie one behind the other there, and are read at once.
void MergedText::ReadStretch(std::vector<Piece>& pieces, size_t first, const Wish& wish)
{
    const Source        source = pieces[first].source;
    const uint64_t      begin = pieces[first].part.offset;
    uint64_t            end = begin;
    std::vector<size_t> together;
    for (size_t i = first; i < pieces.size(); ++i)
    {
        const Part& part = pieces[i].part;
        if (pieces[i].source == source && part.offset == end)
        {
            together.push_back(i);
            end += part.size;
        }
    }
    int         problem = 0;
    std::string bytes(end - begin, '\0');
    bytes.resize(source->Read(begin, bytes.data(), bytes.size(), problem));
    for (const size_t i : together)
    {
        const Part&  part = pieces[i].part;
        const size_t at = part.offset - begin;
        const bool   isThere = at + part.size <= bytes.size();
        Copy(pieces[i], isThere ? std::string_view(bytes).substr(at, part.size) : "", wish);
        pieces[i].source = nullptr;
    }
}

// Without its bytes, which are lost then, in their stead.
void MergedText::Copy(const Piece& piece, std::string_view bytes, const Wish& wish)
{
    const Part& part = piece.part;
    std::string text = bytes.empty() ? Stand(part.size, part.lines - (part.lacksFeed ? 1 : 0))
                                     : std::string(bytes);
    text += part.lacksFeed ? "\n" : "";
    const uint64_t from = std::max(wish.begin, piece.begin);
    const uint64_t to = std::min(wish.end, piece.begin + text.size());
    std::memcpy(wish.buffer + (from - wish.begin), text.data() + (from - piece.begin), to - from);
}
