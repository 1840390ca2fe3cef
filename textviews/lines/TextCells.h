#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace textviews
{
/// Characters, columns and cells of a line. A column counts characters; a cell is one place of the
/// grid that lines are drawn on. Most characters take one cell; wide ones (Chinese, Japanese,
/// Korean, pictures) take two; combining marks take none and sit on the character before them.
/// Control characters take one, those that are invisible among them, and so does every byte that is
/// no valid text.

struct TextCell
{
    uint32_t shown; ///< The character to draw: a control character's picture for itself.
    uint32_t code;  ///< The character; an invalid byte is `kInvalidByteBase` plus its value.
    int      bytes; ///< How many of the line it takes.
    int      cells; ///< 0, 1 or 2.
};

/// Invalid bytes get codes of their own, so that they never equal a character.
constexpr uint32_t kInvalidByteBase = 0xDC00;

/// A place between two characters of a line.
struct TextPlace
{
    int64_t byte = 0;
    int64_t column = 0;
    int64_t cell = 0;
};

bool     IsAscii(std::string_view text);
TextCell CellAt(std::string_view text, size_t byte);
/// What is drawn is no character of the line, but stands for one that has no look of its own.
bool IsStandIn(const TextCell& cell);
/// Cells of the whole text.
int64_t CellCount(std::string_view text);
/// Moves the place on over every character that ends within all three limits: with a limit of
/// cells to the character that holds that cell, with one of columns to that column's character.
void AdvancePlace(std::string_view text, TextPlace& place, const TextPlace& limit);

/// Finds places in lines of any length without going through a long one each time: it remembers
/// places along long lines. `Forget` whenever the lines' indices or contents change.
class TextPlaces
{
public:
    virtual ~TextPlaces() = default;

    TextPlace         AtCell(int line, std::string_view text, int64_t cell);
    virtual TextPlace AtColumn(int line, std::string_view text, int64_t column);
    virtual void      Forget() { m_Marks.clear(); }

private:
    using Marks = std::vector<TextPlace>;
    using Axis = int64_t TextPlace::*;

    static void ExtendMarks(Marks& marks, std::string_view text, Axis axis, int64_t target);

    TextPlace Find(int line, std::string_view text, Axis axis, int64_t target);
    Marks&    MarksOf(int line);

    std::map<int, Marks> m_Marks; ///< Of long lines, every so many bytes, in order.
};
} // namespace textviews
