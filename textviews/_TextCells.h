#pragma once

#include "vesta/Export.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

/// Characters, columns and cells of a line. A column counts characters; a cell is one place of the
/// grid that lines are drawn on. Most characters take one cell; wide ones (Chinese, Japanese,
/// Korean, pictures) take two; combining marks take none and sit on the character before them.
/// Control characters take one, and so does every byte that is no valid text.

struct _TextCell
{
    uint32_t shown; ///< The character to draw: a control character's picture for itself.
    uint32_t code;  ///< The character; an invalid byte is `kInvalidByteBase` plus its value.
    int      bytes; ///< How many of the line it takes.
    int      cells; ///< 0, 1 or 2.
};

/// Invalid bytes get codes of their own, so that they never equal a character.
constexpr uint32_t kInvalidByteBase = 0xDC00;

/// A place between two characters of a line.
struct _TextPlace
{
    int64_t byte = 0;
    int64_t column = 0;
    int64_t cell = 0;
};

TOLVAN_API bool      _IsAscii(std::string_view text);
TOLVAN_API _TextCell _CellAt(std::string_view text, size_t byte);
/// Cells of the whole text.
TOLVAN_API int64_t _CellCount(std::string_view text);
/// Moves the place on over every character that ends within all three limits: with a limit of
/// cells to the character that holds that cell, with one of columns to that column's character.
TOLVAN_API void _AdvancePlace(std::string_view text, _TextPlace& place, const _TextPlace& limit);

/// Finds places in lines of any length without going through a long one each time: it remembers
/// places along long lines. `Forget` whenever the lines' indices or contents change.
class TOLVAN_API _TextPlaces
{
public:
    _TextPlace AtCell(int line, std::string_view text, int64_t cell);
    _TextPlace AtColumn(int line, std::string_view text, int64_t column);
    void       Forget() { m_Marks.clear(); }

private:
    using Marks = std::vector<_TextPlace>;
    using Axis = int64_t _TextPlace::*;

    static void ExtendMarks(Marks& marks, std::string_view text, Axis axis, int64_t target);

    _TextPlace Find(int line, std::string_view text, Axis axis, int64_t target);
    Marks&     MarksOf(int line);

    std::map<int, Marks> m_Marks; ///< Of long lines, every so many bytes, in order.
};
