#pragma once

#include "textviews/escapes/TextStyle.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace textviews
{
/// Bytes of a stored line that are shown side by side in one style.
struct ShownPiece
{
    size_t    stored = 0; ///< The first of them in the stored line.
    size_t    bytes = 0;
    int64_t   cell = 0; ///< Where it is shown.
    int64_t   cells = 0;
    TextStyle style;

    int64_t          End() const { return cell + cells; } ///< The cell behind it.
    std::string_view In(std::string_view line) const { return line.substr(stored, bytes); }
};

/// What of a stored line is shown, from left to right. Cells between two pieces are empty.
using ShownPieces = std::vector<ShownPiece>;

/// Finds what a terminal would show of a line. Sequences of bytes that direct it are left out, and
/// set the style; a carriage return goes back to the line's start, and what follows stands in the
/// place of what was there. A sequence that is wrong, or that the line's end has cut off, is text
/// as any other, so that nothing is swallowed. A carriage return at the very end belongs to the end
/// of the line, and is shown behind it.
///
/// Every line begins with the view's own style, whatever the one before it has left: each can be
/// drawn for itself, and what a program forgot to take back does not reach through a whole log.
class LineFolder
{
public:
    /// False, and quickly so: the line is shown as it is stored.
    static bool Folds(std::string_view line);

    /// No fewer cells than the line takes, found several times as fast as by folding it.
    static int64_t MostCells(std::string_view line);

    /// In order of their cells; without `coloured` all in the view's own style. Of long stretches
    /// each piece has some thousand bytes at most. Valid until the next call.
    const ShownPieces& Fold(std::string_view line, bool coloured);

    /// Appends the text that is shown, with spaces in cells between two pieces, and with a carriage
    /// return at the end of the line. Several times as fast as by its pieces where the sequences
    /// move nothing.
    void AppendText(std::string_view line, std::string& text);

private:
    static bool AppendInOrder(std::string_view line, std::string& text);

    void Take(std::string_view line);
    void AddText(size_t from, size_t end);
    void Return();
    void Erase(std::string_view how);
    void Uncover(int64_t cell);

    std::string_view m_Line;
    bool             m_Coloured = false;
    TextStyle        m_Style;
    ShownPieces      m_Pieces;     ///< Since the last carriage return.
    int64_t          m_Cursor = 0; ///< The cell behind them.
    ShownPieces      m_Older;      ///< What stood there before, from right to left.
};

/// The cell behind the last one.
int64_t EndOf(const ShownPieces& pieces);
/// The cell of a byte of the stored line; of one that is not shown, that of the next one in the
/// line that is.
int64_t CellOf(std::string_view line, const ShownPieces& pieces, size_t byte);

/// Cells [first, end).
struct ShownCells
{
    int64_t first = 0;
    int64_t end = 0;
};
/// Where the bytes [from, end) of the stored line are shown, as far as they are, from left to
/// right.
std::vector<ShownCells> CellsOf(std::string_view line, const ShownPieces& pieces, size_t from,
                                size_t end);

/// @name Places in the text that is shown
/// As `LineFolder::AppendText` appends it.
/// @{
std::string ShownText(std::string_view line, const ShownPieces& pieces);
/// Where the bytes [from, end) of it are shown, from left to right.
std::vector<ShownCells> CellsOfText(std::string_view line, const ShownPieces& pieces, size_t from,
                                    size_t end);
/// Its bytes [from, end) that all that is shown in those cells lies within.
std::pair<size_t, size_t> TextIn(const ShownPieces& pieces, const ShownCells& cells);
/// Its byte for one of the stored line; for one that is not shown, that of the next one that is.
size_t TextByteOf(const ShownPieces& pieces, size_t stored);
/// The stored byte for one of it; for a space that stands for nothing, that of the next one.
size_t StoredByteOf(const ShownPieces& pieces, size_t byte);
/// @}

/// What is shown as plain text, without a carriage return at the end of the line.
std::string PlainText(std::string_view line, const ShownPieces& pieces);
} // namespace textviews
