#include "textviews/lines/TextCells.h"

#include "internal/text/Utf8.h"

#include <glib.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace textviews
{
namespace
{
constexpr int64_t kMarkBytes = 8192;  // distance of remembered places
constexpr size_t  kLongLine = 16384;  // bytes from which a line is worth remembering places of
constexpr size_t  kMarkedLines = 256; // more than a screen shows

constexpr int64_t   kNoLimit = std::numeric_limits<int64_t>::max();
constexpr TextPlace kNowhere{kNoLimit, kNoLimit, kNoLimit};

constexpr uint32_t kControlPictures = 0x2400; // a row of pictures of the controls from NUL on
constexpr uint32_t kDeletePicture = 0x2421;
constexpr uint32_t kNewlinePicture = 0x2424;
constexpr uint32_t kReplacement = 0xFFFD;

constexpr uint64_t kHighBits = 0x8080808080808080u; // of a word that is not ASCII
constexpr int64_t  kWordBytes = sizeof kHighBits;

constexpr uint32_t kLastInvalid = kInvalidByteBase + 0xFF;

// Those that order and part text without a look of their own, and could make a line look like
// another one. Joiners are not among them: they are what some letters and pictures are made with.
// Nor is the byte order mark, which files begin with.
bool IsInvisible(uint32_t code)
{
    return code == 0x200B || code == 0x200E || code == 0x200F || // of no width, directions
           (code >= 0x202A && code <= 0x202E) ||                 // embeddings and overrides
           (code >= 0x2060 && code <= 0x2064) ||                 // word joiner, invisible signs
           (code >= 0x2066 && code <= 0x2069);                   // isolates
}

uint32_t ShownFor(uint32_t code)
{
    if (code < 0x20)
    {
        return kControlPictures + code;
    }
    if (code == 0x7F)
    {
        return kDeletePicture;
    }
    if ((code >= 0x80 && code < 0xA0) || IsInvisible(code))
    {
        return kReplacement;
    }
    return code == 0x2028 || code == 0x2029 ? kNewlinePicture : code;
}

int CellsFor(uint32_t code)
{
    if (code < 0x300)
    {
        return 1;
    }
    if (!IsInvisible(code) && g_unichar_iszerowidth(code))
    {
        return 0;
    }
    return g_unichar_iswide(code) ? 2 : 1;
}

uint64_t WordAt(const char* bytes)
{
    uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}
} // namespace

bool IsAscii(std::string_view text)
{
    constexpr size_t  kStride = 4 * sizeof(uint64_t);
    const char*       at = text.data();
    const char* const end = at + text.size();
    for (; static_cast<size_t>(end - at) >= kStride; at += kStride)
    {
        if ((WordAt(at) | WordAt(at + 8) | WordAt(at + 16) | WordAt(at + 24)) & kHighBits)
        {
            return false;
        }
    }
    return std::none_of(at, end, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

TextCell CellAt(std::string_view text, size_t byte)
{
    const internal::Utf8Char character =
        internal::DecodeUtf8(text.data() + byte, text.data() + text.size());
    if (!character.valid)
    {
        return {ShownFor(character.code), kInvalidByteBase + character.code, 1, 1};
    }
    return {ShownFor(character.code), character.code, character.length, CellsFor(character.code)};
}

bool IsStandIn(const TextCell& cell)
{
    const bool isInvalid = cell.code >= kInvalidByteBase && cell.code <= kLastInvalid;
    return cell.shown != (isInvalid ? cell.code - kInvalidByteBase : cell.code);
}

int64_t CellCount(std::string_view text)
{
    if (IsAscii(text))
    {
        return static_cast<int64_t>(text.size());
    }
    TextPlace place;
    AdvancePlace(text, place, kNowhere);
    return place.cell;
}

void AdvancePlace(std::string_view text, TextPlace& place, const TextPlace& limit)
{
    const auto size = static_cast<int64_t>(text.size());
    while (place.byte < size && place.column < limit.column)
    {
        const int64_t room = std::min({size - place.byte, limit.byte - place.byte,
                                       limit.column - place.column, limit.cell - place.cell});
        if (room >= kWordBytes && (WordAt(text.data() + place.byte) & kHighBits) == 0)
        {
            place.byte += kWordBytes;
            place.column += kWordBytes;
            place.cell += kWordBytes;
            continue;
        }
        const TextCell next = CellAt(text, static_cast<size_t>(place.byte));
        if (place.cell + next.cells > limit.cell || place.byte + next.bytes > limit.byte)
        {
            return;
        }
        place.byte += next.bytes;
        place.column += 1;
        place.cell += next.cells;
    }
}

TextPlace TextPlaces::AtCell(int line, std::string_view text, int64_t cell)
{
    return Find(line, text, &TextPlace::cell, cell);
}

TextPlace TextPlaces::AtColumn(int line, std::string_view text, int64_t column)
{
    return Find(line, text, &TextPlace::column, column);
}

TextPlaces::Marks& TextPlaces::MarksOf(int line)
{
    if (m_Marks.size() > kMarkedLines)
    {
        m_Marks.clear();
    }
    Marks& marks = m_Marks[line];
    if (marks.empty())
    {
        marks.emplace_back();
    }
    return marks;
}

// Goes on remembering places from where it last stopped until one lies beyond the target.
void TextPlaces::ExtendMarks(Marks& marks, std::string_view text, Axis axis, int64_t target)
{
    const auto size = static_cast<int64_t>(text.size());
    while (marks.back().*axis < target && marks.back().byte + kMarkBytes < size)
    {
        TextPlace next = marks.back();
        if (IsAscii(text.substr(static_cast<size_t>(next.byte), kMarkBytes)))
        {
            next = {next.byte + kMarkBytes, next.column + kMarkBytes, next.cell + kMarkBytes};
        }
        else
        {
            AdvancePlace(text, next, {next.byte + kMarkBytes, kNoLimit, kNoLimit});
        }
        marks.push_back(next);
    }
}

TextPlace TextPlaces::Find(int line, std::string_view text, Axis axis, int64_t target)
{
    TextPlace place;
    if (target <= 0)
    {
        return place;
    }
    if (text.size() >= kLongLine)
    {
        Marks& marks = MarksOf(line);
        ExtendMarks(marks, text, axis, target);
        const auto beyond = std::upper_bound(marks.begin() + 1, marks.end(), target,
                                             [axis](int64_t value, const TextPlace& mark)
                                             { return value < mark.*axis; });
        place = *(beyond - 1);
        // Where all characters have one byte each, one is found without going through them.
        if (beyond != marks.end() && beyond->column - place.column == beyond->byte - place.byte)
        {
            const int64_t on = target - place.*axis;
            return {place.byte + on, place.column + on, place.cell + on};
        }
    }
    else if (IsAscii(text))
    {
        const auto at = std::min(target, static_cast<int64_t>(text.size()));
        return {at, at, at};
    }
    TextPlace limit = kNowhere;
    limit.*axis = target;
    AdvancePlace(text, place, limit);
    return place;
}
} // namespace textviews
