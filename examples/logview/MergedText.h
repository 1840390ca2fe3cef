#pragma once

#include "textviews/wxTextSource.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

/// Text that is put together from parts of others, which stay where they are: twelve bytes for
/// neighbouring lines of the same one, and for a line where they alternate. One thread adds to it;
/// any may read.
class MergedText : public wxTextSource
{
public:
    using Source = std::shared_ptr<const wxTextSource>;

    static constexpr size_t   k_MostSources = 65535;
    static constexpr uint64_t k_MostOffset = (uint64_t{1} << 48) - 1; ///< In a source.
    static constexpr uint32_t k_MostPart = (1u << 21) - 1;            ///< Bytes of one part.

    /// Lines of a source that lie one behind the other.
    struct Part
    {
        size_t   source = 0; ///< Its number.
        uint64_t offset = 0;
        uint32_t size = 0;
        int      lines = 0;
        bool     lacksFeed = false; ///< Behind its last line stands none: one is added.
    };

    /// The number of a source whose parts come next.
    size_t AddSource(Source source);
    bool   HasRoomForSource() const { return m_Sources.size() < k_MostSources; }
    /// Adds parts at the end, of no more than those bytes each: lines that are read together.
    void     Append(const std::vector<Part>& parts);
    uint64_t Size() const { return m_Size; } ///< For the thread that adds.
    size_t   Memory() const;                 ///< Bytes that it takes, without its sources'.

    /// Lines of a part that can no longer be read are there all the same, and say so.
    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override;

private:
    /// A part as it is kept.
    struct Kept
    {
        uint32_t offsetLow;
        uint16_t offsetHigh;
        uint16_t source;
        uint32_t sizeAndLines; ///< 21 bits, 10 bits, and whether it lacks its line feed.

        Part ToPart() const;
    };
    static_assert(sizeof(Kept) == 12);
    struct Chunk
    {
        uint64_t          begin = 0; ///< In this text.
        std::vector<Kept> parts;
    };
    /// A part, with its place in this text.
    struct Piece
    {
        Part     part;
        uint64_t begin = 0;
        Source   source; ///< Null once it was read.
    };
    /// Bytes of this text that are wanted.
    struct Wish
    {
        uint64_t begin = 0;
        uint64_t end = 0;
        char*    buffer = nullptr;
    };

    static Kept        ToKept(const Part& part);
    static uint64_t    SizeOf(const Part& part) { return part.size + (part.lacksFeed ? 1 : 0); }
    bool               Joins(const Part& part);
    std::vector<Piece> PiecesIn(uint64_t offset, uint64_t end) const;
    static void        ReadStretch(std::vector<Piece>& pieces, size_t first, const Wish& wish);
    static void        Copy(const Piece& piece, std::string_view bytes, const Wish& wish);

    mutable std::mutex  m_Mutex;
    std::vector<Source> m_Sources;
    std::deque<Chunk>   m_Chunks; ///< None is empty.
    uint64_t            m_Size = 0;
};
