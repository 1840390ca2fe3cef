#include "listviews/_CellText.h"

#include "appearance/_TextPainter.h"
#include "listviews/_TextFit.h"

_CellText::_CellText(wxMemoryDC& dc) : m_Dc(dc)
{
}

_CellText::~_CellText() = default;

// The rows of a list have the same font nearly always.
_TextPainter& _CellText::Painter()
{
    if (!m_Painter || m_Dc.GetFont() != m_Font)
    {
        m_Font = m_Dc.GetFont();
        m_Painter.reset(); // the earlier one gives the surface back first
        m_Painter = std::make_unique<_TextPainter>(m_Dc, m_Font);
    }
    return *m_Painter;
}

void _CellText::Fill(const wxRect& rect, const wxColour& colour)
{
    Painter().Fill(rect, colour);
}

void _CellText::Draw(const wxString& text, const wxRect& room)
{
    const std::wstring characters = text.ToStdWstring();
    if (!DrawRun(characters, room))
    {
        DrawMeasured(characters, room);
    }
}

bool _CellText::DrawRun(const std::wstring& text, const wxRect& room)
{
    _TextPainter&       painter = Painter();
    std::vector<double> ends = painter.Ends(text);
    if (ends.empty())
    {
        return false;
    }
    const auto step = [&painter](wchar_t a, wchar_t b) { return painter.Step(a, b); };
    const std::optional<_Fitted> fitted = _FitRun(text, ends, room.width, step);
    if (!fitted)
    {
        return false;
    }
    if (fitted->text.size() != text.size() || fitted->text != text)
    {
        ends = painter.Ends(fitted->text);
    }
    const bool tooWide = fitted->width > room.width;
    painter.SetColour(m_Dc.GetTextForeground());
    if (tooWide)
    {
        painter.ClipTo({room});
    }
    painter.DrawRun(fitted->text, ends, room.x, room.y);
    if (tooWide)
    {
        painter.Unclip();
    }
    // What the list draws next with the context itself must come on top.
    painter.Flush();
    return true;
}

void _CellText::DrawMeasured(const std::wstring& text, const wxRect& room)
{
    const _Fitted fitted = _FitMeasured(
        text, room.width, [this](const std::wstring& form) { return m_Dc.GetTextExtent(form).x; });
    // Also because marks and scripts of other fonts may be higher than a row.
    const wxDCClipper clip(m_Dc, room);
    m_Dc.DrawText(fitted.text, room.GetPosition());
}
