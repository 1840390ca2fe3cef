#include "textviews/drawing/LinePainter.h"

#include <iterator>

namespace textviews
{
namespace
{
constexpr int kMostMarks = 15; // combining marks drawn on one character

bool IsAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

// What a control character is called, in two letters that one cell has room for.
constexpr wchar_t kNames[][3] = {L"NU", L"SH", L"SX", L"EX", L"ET", L"EQ", L"AK", L"BL",
                                 L"BS", L"HT", L"LF", L"VT", L"FF", L"CR", L"SO", L"SI",
                                 L"DL", L"D1", L"D2", L"D3", L"D4", L"NK", L"SY", L"EB",
                                 L"CN", L"EM", L"SB", L"EC", L"FS", L"GS", L"RS", L"US"};
constexpr wchar_t kDeleteName[] = L"DT";
constexpr size_t  kControls = std::size(kNames);

const wchar_t* NameOf(uint32_t code)
{
    return code < kControls ? kNames[code] : code == 0x7f ? kDeleteName : nullptr;
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

// Few fonts have pictures of the controls, and the box for what a font does not have is the same
// for all of them at this size.
void LinePainter::DrawStandIn(const TextCell& cell, int x, int y)
{
    const auto           picture = static_cast<wchar_t>(cell.shown);
    const wchar_t* const name = NameOf(cell.code);
    m_Painter.SetColour(m_Inks.quiet);
    if (name && !m_Painter.Has(picture))
    {
        const int half = m_Geometry.columnWidth / 2;
        m_Painter.DrawCell(name, 1, x, y, half);
        m_Painter.DrawCell(name + 1, 1, x + half, y, m_Geometry.columnWidth - half);
    }
    else
    {
        m_Painter.DrawCell(&picture, 1, x, y, m_Geometry.columnWidth);
    }
    m_Painter.SetColour(m_Inks.ink);
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
        const int width = base.cells * m_Geometry.columnWidth;
        if (IsStandIn(base))
        {
            DrawStandIn(base, x, y);
        }
        else
        {
            m_Painter.DrawCell(shown, count, x, y, width);
        }
    }
    return base.cells;
}

void LinePainter::DrawPlain(std::string_view ascii, int x, int y)
{
    m_Painter.DrawAscii(ascii.data(), ascii.size(), x, y, m_Geometry.columnWidth);
    m_Painter.Flush();
}

void LinePainter::DrawAt(std::string_view text, int x, int y)
{
    for (size_t byte = 0; byte < text.size();)
    {
        x += DrawCharacter(text, byte, x, y) * m_Geometry.columnWidth;
    }
    m_Painter.Flush();
}
} // namespace textviews
