#include "textviews/rules/RuledPieces.h"

#include <algorithm>
#include <limits>

namespace textviews
{
namespace
{
constexpr int64_t kFar = std::numeric_limits<int64_t>::max();

// Moves on to that byte, or to the end cell.
void GoTo(std::string_view text, TextPlace& place, size_t byte, int64_t endCell)
{
    AdvancePlace(text, place, {static_cast<int64_t>(byte), kFar, endCell});
}

// So many bytes of the piece from that one on.
ShownPiece PartOf(std::string_view stored, const ShownPiece& piece, size_t from, size_t end)
{
    ShownPiece             part = piece;
    const std::string_view text = piece.In(stored);
    TextPlace              place;
    GoTo(text, place, from, kFar);
    part.stored = piece.stored + from;
    part.cell = piece.cell + place.cell;
    const int64_t before = place.cell;
    GoTo(text, place, end, kFar);
    part.bytes = end - from;
    part.cells = place.cell - before;
    return part;
}

// Adds the piece, which shows the text from that byte on, cut where spans begin and end.
void AddCut(std::string_view stored, const ShownPiece& piece, size_t textByte,
            const std::vector<ColouredSpan>& spans, ShownPieces& all)
{
    size_t     from = 0;
    const auto add = [&](size_t end, const TextColour* ink)
    {
        if (end > from)
        {
            ShownPiece part =
                from == 0 && end == piece.bytes ? piece : PartOf(stored, piece, from, end);
            part.style.ink = ink ? *ink : part.style.ink;
            all.push_back(part);
            from = end;
        }
    };
    auto span = std::partition_point(spans.begin(), spans.end(),
                                     [textByte](const ColouredSpan& each)
                                     { return each.bytes.end <= textByte; });
    for (; span != spans.end() && span->bytes.begin < textByte + piece.bytes; ++span)
    {
        add(span->bytes.begin > textByte ? span->bytes.begin - textByte : 0, nullptr);
        add(std::min(span->bytes.end - textByte, piece.bytes), &span->ink);
    }
    add(piece.bytes, nullptr);
}
} // namespace

std::optional<std::string> RuledText(std::string_view stored, const ShownPieces& pieces)
{
    if (stored.size() > kMostFolded)
    {
        return {};
    }
    return PlainText(stored, pieces);
}

ShownPieces PiecesOfText(std::string_view text, TextPlace first, int64_t endCell,
                         const std::vector<ColouredSpan>& spans)
{
    ShownPieces pieces;
    TextPlace   place = first;
    const auto  add = [&](size_t end, const TextColour* ink)
    {
        const TextPlace from = place;
        GoTo(text, place, end, endCell);
        if (place.byte > from.byte)
        {
            ShownPiece piece{static_cast<size_t>(from.byte),
                             static_cast<size_t>(place.byte - from.byte),
                             from.cell,
                             place.cell - from.cell,
                             {}};
            piece.style.ink = ink ? *ink : piece.style.ink;
            pieces.push_back(piece);
        }
    };
    for (const ColouredSpan& span : spans)
    {
        if (static_cast<int64_t>(span.bytes.end) > place.byte)
        {
            add(span.bytes.begin, nullptr);
            add(span.bytes.end, &span.ink);
        }
    }
    add(text.size(), nullptr);
    return pieces;
}

ShownPieces RecolouredPieces(std::string_view stored, const ShownPieces& pieces,
                             const ShownCells& seen, const std::vector<ColouredSpan>& spans)
{
    ShownPieces all;
    int64_t     cell = 0;
    size_t      textByte = 0; // of what is shown
    for (const ShownPiece& piece : pieces)
    {
        if (piece.cell >= seen.end)
        {
            break;
        }
        textByte += static_cast<size_t>(piece.cell - cell);
        if (piece.End() > seen.first)
        {
            AddCut(stored, piece, textByte, spans, all);
        }
        textByte += piece.bytes;
        cell = piece.End();
    }
    return all;
}
} // namespace textviews
