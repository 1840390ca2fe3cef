#pragma once

#include "textviews/escapes/LineFolder.h"
#include "textviews/lines/TextCells.h"
#include "textviews/search/HitFinder.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace textviews
{
/// A stretch of text in a colour of its own.
struct ColouredSpan
{
    ByteSpan   bytes;
    TextColour ink;
};

constexpr size_t kMostFolded = 1024 * 1024; ///< Bytes of a line; a longer one has no rules.

/// What rules are looked for in where lines are shown without their escape sequences: what is shown
/// of the line. None of one that is too long.
std::optional<std::string> RuledText(std::string_view stored, const ShownPieces& pieces);

/// The pieces of a line that is shown as it is stored, from that place to that cell. The spans are
/// in order.
ShownPieces PiecesOfText(std::string_view text, TextPlace first, int64_t endCell,
                         const std::vector<ColouredSpan>& spans);

/// The pieces that are shown in those cells, cut where a span begins or ends. The spans count the
/// bytes of what is shown, as `RuledText` gives it.
ShownPieces RecolouredPieces(std::string_view stored, const ShownPieces& pieces,
                             const ShownCells& seen, const std::vector<ColouredSpan>& spans);
} // namespace textviews
