#include "textviews/search/HitFinder.h"

#include "textviews/lines/TextCells.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr size_t kLongestCharacter = 4; // bytes
} // namespace

LinePiece PieceAt(std::string_view line, size_t byte, size_t reach)
{
    const size_t begin = byte / kPieceBytes * kPieceBytes;
    const size_t end = std::min(begin + kPieceBytes, line.size());
    return {begin, end, end + std::min(reach, line.size() - end)};
}

size_t CharacterFrom(std::string_view line, size_t byte)
{
    for (size_t back = 1; back < kLongestCharacter && back <= byte && byte < line.size(); ++back)
    {
        const size_t start = byte - back;
        const auto   size = static_cast<size_t>(CellAt(line, start).bytes);
        if (size > back)
        {
            return start + size;
        }
    }
    return byte;
}

size_t CharacterBefore(std::string_view line, size_t byte)
{
    for (size_t back = 2; back <= kLongestCharacter && back <= byte; ++back)
    {
        if (static_cast<size_t>(CellAt(line, byte - back).bytes) == back)
        {
            return byte - back;
        }
    }
    return byte - std::min<size_t>(byte, 1);
}
} // namespace textviews
