#include "textviews/escapes/LineFolder.h"

#include "textviews/escapes/EscapeSequence.h"
#include "textviews/escapes/StyleCodes.h"
#include "textviews/lines/TextCells.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace textviews
{
namespace
{
constexpr char   kReturn = '\r';
constexpr size_t kPieceBytes = 8192; // a longer stretch is cut, so that its middle is found quickly

constexpr int64_t kNoLimit = std::numeric_limits<int64_t>::max();

const char* Find(std::string_view text, char wanted)
{
    return text.empty() ? nullptr
                        : static_cast<const char*>(std::memchr(text.data(), wanted, text.size()));
}

bool EndsWithReturn(std::string_view line)
{
    return !line.empty() && line.back() == kReturn;
}

// The numbers of a style that are none of those which others belong to: 38, 48 and 58.
bool IsSurelyRight(std::string_view numbers)
{
    return std::all_of(numbers.begin(), numbers.end(),
                       [](char c) { return c == ';' || (c >= '0' && c <= '9' && c != '8'); });
}

// How much of the text fits into a piece, with the marks on its last character, and the cells of
// that.
TextPlace PieceOf(std::string_view text)
{
    const auto size = static_cast<int64_t>(std::min(text.size(), kPieceBytes));
    TextPlace  place;
    if (IsAscii(text.substr(0, kPieceBytes)))
    {
        place = {size, size, size};
    }
    else
    {
        AdvancePlace(text, place, {size, kNoLimit, kNoLimit});
    }
    AdvancePlace(text, place, {kNoLimit, kNoLimit, place.cell});
    return place;
}

// Takes what stands left of that cell off the piece, a wide character that it cuts as a whole.
void CutFront(std::string_view line, ShownPiece& piece, int64_t cell)
{
    const std::string_view text = piece.In(line);
    TextPlace              place;
    AdvancePlace(text, place, {kNoLimit, kNoLimit, cell - piece.cell});
    if (piece.cell + place.cell < cell)
    {
        AdvancePlace(text, place, {kNoLimit, place.column + 1, kNoLimit});
    }
    piece.stored += static_cast<size_t>(place.byte);
    piece.bytes -= static_cast<size_t>(place.byte);
    piece.cell += place.cell;
    piece.cells -= place.cell;
}

// Those that begin before that byte of the stored line.
void AppendPieces(std::string_view line, const ShownPieces& pieces, size_t end, std::string& text)
{
    int64_t cell = 0;
    for (const ShownPiece& piece : pieces)
    {
        if (piece.stored < end)
        {
            text.append(static_cast<size_t>(piece.cell - cell), ' ');
            text += piece.In(line);
            cell = piece.End();
        }
    }
}

// Calls it for each piece with its first byte in the text, and with the empty cells before it.
template <class Call> void ForPieces(const ShownPieces& pieces, const Call& call)
{
    size_t  byte = 0;
    int64_t cell = 0;
    for (const ShownPiece& piece : pieces)
    {
        const auto gap = static_cast<size_t>(piece.cell - cell);
        call(piece, byte + gap, gap);
        byte += gap + piece.bytes;
        cell = piece.End();
    }
}

void AddCells(std::vector<ShownCells>& found, const ShownCells& cells)
{
    if (!found.empty() && found.back().end == cells.first)
    {
        found.back().end = cells.end;
    }
    else
    {
        found.push_back(cells);
    }
}

int64_t CellWithin(std::string_view line, const ShownPiece& piece, size_t byte)
{
    TextPlace place;
    AdvancePlace(piece.In(line), place,
                 {static_cast<int64_t>(byte - piece.stored), kNoLimit, kNoLimit});
    return piece.cell + place.cell;
}
} // namespace

bool LineFolder::Folds(std::string_view line)
{
    return Find(line, k_Escape) ||
           Find(line.substr(0, line.size() - (EndsWithReturn(line) ? 1 : 0)), kReturn);
}

int64_t LineFolder::MostCells(std::string_view line)
{
    size_t      hidden = 0;
    const char* escape = Find(line, k_Escape);
    while (escape)
    {
        const auto           at = static_cast<size_t>(escape - line.data());
        const EscapeSequence sequence = ReadEscapeSequence(line, at);
        TextStyle            ignored;
        const bool           isHidden =
            sequence.kind != EscapeSequence::Kind::None &&
            (sequence.kind != EscapeSequence::Kind::Style || IsSurelyRight(sequence.parameters) ||
             ApplyStyleCodes(sequence.parameters, ignored));
        const size_t bytes = isHidden ? sequence.bytes : 0;
        hidden += bytes;
        escape = Find(line.substr(at + std::max<size_t>(bytes, 1)), k_Escape);
    }
    return static_cast<int64_t>(line.size() - hidden);
}

void LineFolder::AppendText(std::string_view line, std::string& text)
{
    const size_t before = text.size();
    if (!AppendInOrder(line, text))
    {
        text.resize(before);
        AppendPieces(line, Fold(line, false), line.size(), text);
    }
}

// What stands between sequences, as long as none moves or erases what is there. Otherwise false.
bool LineFolder::AppendInOrder(std::string_view line, std::string& text)
{
    using Kind = EscapeSequence::Kind;
    if (Find(line.substr(0, line.size() - (EndsWithReturn(line) ? 1 : 0)), kReturn))
    {
        return false;
    }
    size_t      done = 0; // what stands before it has been taken
    const char* escape = Find(line, k_Escape);
    while (escape)
    {
        const auto           at = static_cast<size_t>(escape - line.data());
        const EscapeSequence sequence = ReadEscapeSequence(line, at);
        const bool           toEnd = sequence.parameters.empty() || sequence.parameters == "0";
        if (sequence.kind == Kind::ToStart || (sequence.kind == Kind::Erase && !toEnd))
        {
            return false;
        }
        TextStyle  ignored;
        const bool isWrong = sequence.kind == Kind::None ||
                             (sequence.kind == Kind::Style && !IsSurelyRight(sequence.parameters) &&
                              !ApplyStyleCodes(sequence.parameters, ignored));
        if (!isWrong)
        {
            text += line.substr(done, at - done);
            done = at + sequence.bytes;
        }
        const size_t next = isWrong ? at + 1 : done;
        escape = Find(line.substr(next), k_Escape);
    }
    text += line.substr(done);
    return true;
}

const ShownPieces& LineFolder::Fold(std::string_view line, bool coloured)
{
    m_Line = line;
    m_Coloured = coloured;
    m_Style = TextStyle();
    m_Pieces.clear();
    m_Older.clear();
    m_Cursor = 0;
    const bool hasEnd = EndsWithReturn(line);
    Take(line.substr(0, line.size() - (hasEnd ? 1 : 0)));
    if (!m_Older.empty())
    {
        Return();
        m_Pieces.assign(m_Older.rbegin(), m_Older.rend());
    }
    if (hasEnd)
    {
        m_Pieces.push_back({line.size() - 1, 1, EndOf(m_Pieces), 1, TextStyle()});
    }
    return m_Pieces;
}

void LineFolder::Take(std::string_view line)
{
    using Kind = EscapeSequence::Kind;
    const char* const end = line.data() + line.size();
    const auto        find = [&](size_t from, char wanted)
    {
        const char* const found = Find(line.substr(from), wanted);
        return static_cast<size_t>((found ? found : end) - line.data());
    };
    size_t done = 0; // what stands before it has been taken
    size_t escape = find(0, k_Escape);
    size_t back = find(0, kReturn);
    while (std::min(escape, back) < line.size())
    {
        if (back < escape)
        {
            AddText(done, back);
            Return();
            done = back + 1;
            back = find(done, kReturn);
            continue;
        }
        const EscapeSequence sequence = ReadEscapeSequence(line, escape);
        TextStyle            style = m_Style;
        const bool           isWrong =
            sequence.kind == Kind::None ||
            (sequence.kind == Kind::Style && !ApplyStyleCodes(sequence.parameters, style));
        if (!isWrong)
        {
            AddText(done, escape);
            done = escape + sequence.bytes;
            m_Style = m_Coloured ? style : m_Style;
        }
        if (sequence.kind == Kind::Erase)
        {
            Erase(sequence.parameters);
        }
        else if (sequence.kind == Kind::ToStart)
        {
            Return();
        }
        escape = find(isWrong ? escape + 1 : done, k_Escape);
    }
    AddText(done, line.size());
}

void LineFolder::AddText(size_t from, size_t end)
{
    while (from < end)
    {
        const TextPlace size = PieceOf(m_Line.substr(from, end - from));
        m_Pieces.push_back({from, static_cast<size_t>(size.byte), m_Cursor, size.cell, m_Style});
        m_Cursor += size.cell;
        from += static_cast<size_t>(size.byte);
    }
}

// What was written since the last time stands in the place of what was there, of which more may be
// left on the right.
void LineFolder::Return()
{
    Uncover(m_Cursor);
    m_Older.insert(m_Older.end(), m_Pieces.rbegin(), m_Pieces.rend());
    m_Pieces.clear();
    m_Cursor = 0;
}

// Of what stood there before, only what begins with that cell remains.
void LineFolder::Uncover(int64_t cell)
{
    while (!m_Older.empty() && m_Older.back().End() <= cell)
    {
        m_Older.pop_back();
    }
    if (!m_Older.empty() && m_Older.back().cell < cell)
    {
        CutFront(m_Line, m_Older.back(), cell);
    }
}

// From the cursor to the end, from the start to the cursor, or all. The cursor stays where it is.
void LineFolder::Erase(std::string_view how)
{
    if (how == "1" || how == "2")
    {
        m_Pieces.clear();
    }
    if (how == "1")
    {
        Uncover(m_Cursor + 1);
    }
    else
    {
        m_Older.clear();
    }
}

int64_t EndOf(const ShownPieces& pieces)
{
    return pieces.empty() ? 0 : pieces.back().End();
}

int64_t CellOf(std::string_view line, const ShownPieces& pieces, size_t byte)
{
    const ShownPiece* next = nullptr;
    for (const ShownPiece& piece : pieces)
    {
        if (byte >= piece.stored && byte < piece.stored + piece.bytes)
        {
            return CellWithin(line, piece, byte);
        }
        if (piece.stored > byte && (!next || piece.stored < next->stored))
        {
            next = &piece;
        }
    }
    return next ? next->cell : EndOf(pieces);
}

std::vector<ShownCells> CellsOf(std::string_view line, const ShownPieces& pieces, size_t from,
                                size_t end)
{
    std::vector<ShownCells> found;
    for (const ShownPiece& piece : pieces)
    {
        const size_t first = std::max(from, piece.stored);
        const size_t last = std::min(end, piece.stored + piece.bytes);
        if (first >= last)
        {
            continue;
        }
        AddCells(found, {CellWithin(line, piece, first), CellWithin(line, piece, last)});
    }
    return found;
}

std::string ShownText(std::string_view line, const ShownPieces& pieces)
{
    std::string text;
    AppendPieces(line, pieces, line.size(), text);
    return text;
}

std::vector<ShownCells> CellsOfText(std::string_view line, const ShownPieces& pieces, size_t from,
                                    size_t end)
{
    std::vector<ShownCells> found;
    ForPieces(pieces,
              [&](const ShownPiece& piece, size_t begin, size_t gap)
              {
                  const size_t gapFirst = std::max(from, begin - gap);
                  const size_t gapEnd = std::min(end, begin);
                  if (gapFirst < gapEnd)
                  {
                      const auto back = [&](size_t byte)
                      { return piece.cell - static_cast<int64_t>(begin - byte); };
                      AddCells(found, {back(gapFirst), back(gapEnd)});
                  }
                  const size_t first = std::max(from, begin);
                  const size_t last = std::min(end, begin + piece.bytes);
                  if (first < last)
                  {
                      AddCells(found, {CellWithin(line, piece, piece.stored + first - begin),
                                       CellWithin(line, piece, piece.stored + last - begin)});
                  }
              });
    return found;
}

std::pair<size_t, size_t> TextIn(const ShownPieces& pieces, const ShownCells& cells)
{
    size_t from = std::numeric_limits<size_t>::max();
    size_t end = 0;
    ForPieces(pieces,
              [&](const ShownPiece& piece, size_t begin, size_t gap)
              {
                  if (piece.End() > cells.first &&
                      piece.cell - static_cast<int64_t>(gap) < cells.end)
                  {
                      from = std::min(from, begin - gap);
                      end = std::max(end, begin + piece.bytes);
                  }
              });
    return {std::min(from, end), end};
}

size_t TextByteOf(const ShownPieces& pieces, size_t stored)
{
    size_t nearest = std::numeric_limits<size_t>::max(); // of the stored bytes
    size_t found = 0;
    size_t all = 0;
    ForPieces(pieces,
              [&](const ShownPiece& piece, size_t begin, size_t)
              {
                  const size_t byte = std::max(stored, piece.stored);
                  if (byte < piece.stored + piece.bytes && byte < nearest)
                  {
                      nearest = byte;
                      found = begin + byte - piece.stored;
                  }
                  all = begin + piece.bytes;
              });
    return nearest == std::numeric_limits<size_t>::max() ? all : found;
}

size_t StoredByteOf(const ShownPieces& pieces, size_t byte)
{
    size_t found = 0;
    bool   isFound = false;
    ForPieces(pieces,
              [&](const ShownPiece& piece, size_t begin, size_t)
              {
                  if (!isFound)
                  {
                      isFound = piece.bytes > 0 && byte < begin + piece.bytes;
                      found = isFound ? piece.stored + std::max(byte, begin) - begin
                                      : piece.stored + piece.bytes;
                  }
              });
    return found;
}

std::string PlainText(std::string_view line, const ShownPieces& pieces)
{
    std::string text;
    AppendPieces(line, pieces, line.size() - (EndsWithReturn(line) ? 1 : 0), text);
    return text;
}
} // namespace textviews
