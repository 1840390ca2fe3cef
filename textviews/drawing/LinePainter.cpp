#include "textviews/drawing/LinePainter.h"

namespace textviews
{
namespace
{
constexpr int kMostMarks = 15; // combining marks drawn on one character

bool IsAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

// How many printable ASCII characters the text starts with. One that something else follows does
// not count: that may be a mark upon it.
size_t PlainRun(std::string_view text)
{
    size_t run = 0;
    while (run < text.size() && text[run] >= ' ' && text[run] < '\x7f')
    {
        ++run;
    }
    return run > 0 && run < text.size() && !IsAscii(text[run]) ? run - 1 : run;
}
} // namespace

LinePainter::LinePainter(wxDC& dc, const wxFont& font, const TextGeometry& geometry,
                         TextPlaces& places)
    : m_Painter(dc, font), m_Geometry(geometry), m_Places(places)
{
}

void LinePainter::SetInks(const TextInks& inks)
{
    m_Inks = inks;
    m_Painter.SetColour(inks.ink);
}

void LinePainter::DrawLine(int line, std::string_view text, const Cells& cells)
{
    const TextPlace start = m_Places.AtCell(line, text, cells.first);
    DrawPart(line, text.substr(static_cast<size_t>(start.byte)), start.cell, cells.end);
    Flush();
}

void LinePainter::DrawPart(int line, std::string_view text, int64_t cell, int64_t end)
{
    size_t    byte = 0;
    const int top = m_Geometry.TopOf(line);
    while (byte < text.size() && cell < end)
    {
        const size_t run = PlainRun(text.substr(byte, static_cast<size_t>(end - cell)));
        if (run > 0)
        {
            m_Painter.DrawAscii(text.data() + byte, run, m_Geometry.XOf(cell), top,
                                m_Geometry.columnWidth);
            byte += run;
            cell += static_cast<int64_t>(run);
        }
        else
        {
            cell += DrawCharacter(text, byte, m_Geometry.XOf(cell), top);
        }
    }
}

// Draws the character at that byte with its combining marks, moves the byte on beyond them, and
// gives the number of cells that it takes.
int LinePainter::DrawCharacter(std::string_view text, size_t& byte, int x, int y)
{
    const TextCell base = CellAt(text, byte);
    wchar_t        shown[1 + kMostMarks] = {static_cast<wchar_t>(base.shown)};
    int            count = 1;
    byte += static_cast<size_t>(base.bytes);
    while (byte < text.size() && !IsAscii(text[byte]))
    {
        const TextCell mark = CellAt(text, byte);
        if (mark.cells > 0)
        {
            break;
        }
        if (count <= kMostMarks)
        {
            shown[count++] = static_cast<wchar_t>(mark.shown);
        }
        byte += static_cast<size_t>(mark.bytes);
    }
    if (base.cells > 0)
    {
        const bool isQuiet = IsStandIn(base);
        m_Painter.SetColour(isQuiet ? m_Inks.quiet : m_Inks.ink);
        m_Painter.DrawCell(shown, count, x, y, base.cells * m_Geometry.columnWidth);
        m_Painter.SetColour(m_Inks.ink);
    }
    return base.cells;
}
} // namespace textviews
