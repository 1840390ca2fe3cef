#include "textviews/_LinePainter.h"

namespace
{
constexpr int      kMostMarks = 15; // combining marks drawn on one character
constexpr uint32_t kSpace = ' ';
} // namespace

_LinePainter::_LinePainter(wxMemoryDC& dc, const wxFont& font, const _TextGeometry& geometry,
                           _TextPlaces& places)
    : m_Painter(dc, font), m_Geometry(geometry), m_Places(places)
{
}

void _LinePainter::DrawLine(int line, std::string_view text, const Cells& cells)
{
    const _TextPlace start = m_Places.AtCell(line, text, cells.first);
    auto             byte = static_cast<size_t>(start.byte);
    int64_t          cell = start.cell;
    const int        top = m_Geometry.TopOf(line);
    while (byte < text.size() && cell < cells.end)
    {
        const _TextCell base = _CellAt(text, byte);
        wchar_t         shown[1 + kMostMarks] = {static_cast<wchar_t>(base.shown)};
        int             count = 1;
        byte += static_cast<size_t>(base.bytes);
        while (byte < text.size() && static_cast<unsigned char>(text[byte]) >= 0x80)
        {
            const _TextCell mark = _CellAt(text, byte);
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
        if (base.cells > 0 && (base.shown != kSpace || count > 1))
        {
            m_Painter.DrawCell(shown, count, m_Geometry.XOf(cell), top,
                               base.cells * m_Geometry.columnWidth);
        }
        cell += base.cells;
    }
    m_Painter.Flush();
}

void _LinePainter::DrawLineWithin(const std::vector<wxRect>& rects, int line, std::string_view text,
                                  const Cells& cells)
{
    m_Painter.ClipTo(rects);
    DrawLine(line, text, cells);
    m_Painter.Unclip();
}
