#pragma once

#include "textviews/lines/ByteSpan.h"
#include "textviews/lines/LineStore.h"

#include <string_view>
#include <vector>

namespace textviews
{
/// A stretch of a line that is looked through at a time. Which hits a line has does not depend on
/// where one begins to look: each piece is looked through for itself.
struct LinePiece
{
    size_t begin = 0; ///< Hits that begin from here on
    size_t end = 0;   ///< and before this byte belong to it.
    size_t seen = 0;  ///< A hit may reach so far, and no farther.
};

constexpr size_t kPieceBytes = 64 * 1024; ///< Shorter lines have one piece.

/// The piece that holds the byte, for hits that are `reach` bytes long at most.
LinePiece PieceAt(std::string_view line, size_t byte, size_t reach);
/// Where the first character begins that does not begin before that byte.
size_t CharacterFrom(std::string_view line, size_t byte);
/// Where the character begins that ends there; 0 at the line's start.
size_t CharacterBefore(std::string_view line, size_t byte);

/// Finds hits in lines of any bytes. Main thread.
class HitFinder
{
public:
    virtual ~HitFinder() = default;

    /// How many bytes a hit in a long line may have.
    virtual size_t Reach() const = 0;

    /// Adds the piece's hits that begin at `from` or later, none into another. It goes on until
    /// about `budget` bytes have been looked at, which it takes off; `from` is then where to go on,
    /// the piece's end when all is done.
    virtual void HitsIn(std::string_view line, const LinePiece& piece, size_t& from, size_t& budget,
                        std::vector<ByteSpan>& hits) = 0;

    /// The lines of [from, end) of the block (counted within it) that may have hits, in order; all
    /// others have none. With `onlyFirst` it may end after the first one. For blocks of short
    /// lines. Valid until the next call.
    virtual const std::vector<int>& LinesIn(const LineStore::Block& block, int from, int end,
                                            bool onlyFirst) = 0;
    /// Whether the lines above have hits for certain.
    virtual bool IsSureOfLines() const = 0;
};
} // namespace textviews
