#include "textviews/wrap/Wrapping.h"

#include "textviews/lines/LineStore.h"

#include <algorithm>
#include <climits>

namespace textviews
{
std::atomic<unsigned> Wrapping::s_Came;

void Wrapping::Switch(bool on)
{
    m_IsOn = on;
    m_Top = {};
    m_Cell = 0;
    m_IsAtEnd = false;
    m_Position = -1;
    Forget();
}

void Wrapping::Fit(const WrapRoom& room)
{
    if (!(room == m_Room))
    {
        m_Room = room;
        m_Rows.SetWidths(room.widths);
        Forget();
    }
}

int Wrapping::PageRows() const
{
    return std::max(m_Room.height / m_Room.lineHeight, 1);
}

ViewTop Wrapping::End() const
{
    const uint64_t changes = m_Store.Changes();
    const int      lines = m_Store.Count();
    const unsigned came = s_Came;
    if (!m_End || m_End->changes != changes || m_End->lines != lines || m_End->came != came)
    {
        const RowsEnd end = EndOfRows(m_Rows, m_Room.height, m_Room.lineHeight);
        m_End = KnownEnd{{end.top, end.below}, changes, lines, came};
    }
    return m_End->top;
}

int Wrapping::PixelsOf(const ViewTop& top) const
{
    const int64_t rows = m_Store.Count() == 0 ? 1 : m_Rows.RowsOf(top.place.line);
    const int64_t pixels = static_cast<int64_t>(top.place.line) * m_Room.lineHeight +
                           PixelsOfRow(top.place.row, rows, m_Room.lineHeight);
    return static_cast<int>(std::min<int64_t>(pixels, INT_MAX - 1));
}

int Wrapping::PixelsBelow(const RowPlace& place) const
{
    return PixelsOf({{place.line, place.row + 1}, 0});
}

ViewTop Wrapping::Inside(ViewTop top) const
{
    const int last = m_Store.Count() - 1;
    if (last < 0)
    {
        return {};
    }
    if (top.place.line > last)
    {
        return End();
    }
    const int64_t rows = m_Rows.RowsOf(top.place.line);
    top.place.row = std::clamp<int64_t>(top.place.row, 0, rows - 1);
    return std::min(top, End());
}

RowPlace Wrapping::PlaceAt(int64_t pixel) const
{
    const int64_t line = std::max<int64_t>(pixel, 0) / m_Room.lineHeight;
    const int     found = static_cast<int>(std::min<int64_t>(line, m_Store.Count() - 1));
    if (found < 0 || found < line)
    {
        return {std::max(found, 0), 0};
    }
    return {found, RowOfPixel(static_cast<int>(pixel % m_Room.lineHeight), m_Rows.RowsOf(found),
                              m_Room.lineHeight)};
}

ViewTop Wrapping::AtPixel(int position) const
{
    const bool isEnd = m_Store.Count() == 0 || position >= PixelsOf(End());
    return isEnd ? End() : Inside({PlaceAt(position), 0});
}

ViewTop Wrapping::Top(int position, bool follows) const
{
    if (position != m_Position)
    {
        return AtPixel(position);
    }
    if (m_IsAtEnd && follows)
    {
        return End();
    }
    return m_Room.widths == m_Widths ? Inside(m_Top) : TopOf({m_Top.place.line, m_Cell});
}

TextAnchor Wrapping::AnchorOf(const ViewTop& top) const
{
    if (m_Store.Count() == 0)
    {
        return {};
    }
    // What was at the top before rows were so wide goes on to be there.
    if (top == Top(m_Position, false))
    {
        return {top.place.line, m_Cell};
    }
    return {top.place.line, m_Rows.StartOf(m_Rows.Break(top.place.line), top.place.row)};
}

ViewTop Wrapping::TopOf(const TextAnchor& anchor) const
{
    if (anchor.line >= m_Store.Count())
    {
        return End();
    }
    return Inside({{anchor.line, m_Rows.RowOf(m_Rows.Break(anchor.line), anchor.cell)}, 0});
}

// A row that is seen in part comes whole first.
ViewTop Wrapping::Moved(const ViewTop& from, int64_t rows) const
{
    if (m_Store.Count() == 0)
    {
        return {};
    }
    const int64_t whole = rows < 0 && from.below > 0 ? rows + 1 : rows;
    return Inside({RowsOn(m_Rows, from.place, whole), 0});
}

bool Wrapping::Shows(const ViewTop& top, const RowPlace& first, const RowPlace& last) const
{
    const int64_t whole = PageRows() - 1 + (top.below > 0 ? 1 : 0);
    return !(ViewTop{first, 0} < top) && !(RowsOn(m_Rows, top.place, whole) < last);
}

ViewTop Wrapping::Around(const RowPlace& place, int64_t rows) const
{
    return Moved({place, 0}, -(std::max<int64_t>(PageRows() - rows, 0) / 2));
}

ViewTop Wrapping::Showing(const ViewTop& top, int line) const
{
    const ViewTop first{{line, 0}, 0};
    const ViewTop last =
        std::min(first, Moved({{line, m_Rows.RowsOf(line) - 1}, 0}, 1 - PageRows()));
    return first < top ? first : std::max(top, last);
}

int Wrapping::LineAfterRows(int line, int rows) const
{
    const int found = RowsOn(m_Rows, {line, 0}, rows).line;
    const int next = std::clamp(line + (rows > 0 ? 1 : -1), 0, m_Store.Count() - 1);
    return found == line ? next : found;
}

int Wrapping::MoveTo(const ViewTop& top)
{
    const TextAnchor anchor = AnchorOf(Inside(top));
    m_Top = Inside(top);
    m_Cell = anchor.cell;
    m_Widths = m_Room.widths;
    m_IsAtEnd = m_Top == End();
    m_Position = PixelsOf(m_Top);
    return m_Position;
}

// The scrollbar stays where it is put, between two rows, too: the toolkit moves its thumb on by and
// by, and another place would stop it.
int Wrapping::MoveToPixel(int position)
{
    if (position != m_Position)
    {
        MoveTo(AtPixel(position));
        m_Position = std::clamp(position, 0, PixelsOf(End()));
    }
    return m_Position;
}

int Wrapping::MoveBy(wxEventType type, const ViewTop& top, int position)
{
    const struct
    {
        wxEventType type;
        int         rows;
    } steps[] = {{wxEVT_SCROLLWIN_LINEUP, -1},
                 {wxEVT_SCROLLWIN_LINEDOWN, 1},
                 {wxEVT_SCROLLWIN_PAGEUP, -PageRows()},
                 {wxEVT_SCROLLWIN_PAGEDOWN, PageRows()}};
    for (const auto& step : steps)
    {
        if (step.type == type)
        {
            return MoveTo(Moved(top, step.rows));
        }
    }
    if (type == wxEVT_SCROLLWIN_TOP || type == wxEVT_SCROLLWIN_BOTTOM)
    {
        return MoveTo(type == wxEVT_SCROLLWIN_TOP ? ViewTop() : End());
    }
    return MoveToPixel(position);
}

std::vector<TextRow> Wrapping::RowsFrom(const ViewTop& top) const
{
    std::vector<TextRow> rows;
    RowPlace             place = top.place;
    int                  y = -top.below;
    for (; place.line < m_Store.Count() && (y < m_Room.height || rows.empty()); ++place.line)
    {
        const LineWrap::Broken line = m_Rows.Break(place.line);
        for (; place.row < line.count && (y < m_Room.height || rows.empty()); ++place.row)
        {
            const ShownCells cells = m_Rows.CellsOf(line, place.row);
            rows.push_back({place.line, place.row, cells.first, cells.end,
                            place.row == 0 ? 0 : RowWidths::k_Indent, place.row + 1 == line.count,
                            y});
            y += m_Room.lineHeight;
        }
        place.row = 0;
    }
    return rows;
}

// At the very top, what comes before it is seen.
void Wrapping::LineInserted(int line)
{
    const bool isStart = m_Top == ViewTop() && line == 0;
    if (line <= m_Top.place.line && !isStart)
    {
        ++m_Top.place.line;
    }
}

void Wrapping::LineErased(int line)
{
    if (line < m_Top.place.line)
    {
        --m_Top.place.line;
    }
    else if (line == m_Top.place.line)
    {
        m_Top = {{line, 0}, 0};
        m_Cell = 0;
    }
}
} // namespace textviews
