#include "listviews/cells/CellText.h"

#include "internal/port/SurfaceDC.h"
#include "internal/text/TextPainter.h"
#include "listviews/cells/TextFit.h"

#include <algorithm>
#include <cmath>

namespace listviews
{
CellText::CellText(wxDC& dc) : m_Dc(dc)
{
    auto* const telling = dynamic_cast<internal::SurfaceDC*>(&dc);
    m_IsTold = telling != nullptr;
    if (telling)
    {
        telling->SetBefore(
            [this]
            {
                if (m_Painter)
                {
                    m_Painter->Flush();
                }
            });
    }
}

CellText::~CellText()
{
    m_Painter.reset();
    if (m_IsTold)
    {
        static_cast<internal::SurfaceDC&>(m_Dc).SetBefore({});
    }
}

// The rows of a list have the same font nearly always.
internal::TextPainter& CellText::Painter()
{
    if (!m_Painter || m_Dc.GetFont() != m_Font)
    {
        m_Font = m_Dc.GetFont();
        m_Painter.reset(); // the earlier one gives the surface back first
        m_Painter = std::make_unique<internal::TextPainter>(m_Dc, m_Font);
    }
    return *m_Painter;
}

void CellText::Fill(const wxRect& rect, const wxColour& colour)
{
    Painter().Fill(rect, colour);
}

void CellText::Draw(const wxString& text, const wxRect& room)
{
    const std::wstring& characters = text.ToStdWstring();
    if (!DrawRun(characters, room))
    {
        DrawMeasured(characters, room);
    }
}

int CellText::Width(const wxString& text)
{
    const std::vector<double> ends = Painter().Ends(text.ToStdWstring());
    return ends.empty() ? m_Dc.GetTextExtent(text).x : static_cast<int>(std::lround(ends.back()));
}

bool CellText::DrawAscii(std::string_view text, const wxRect& room)
{
    const auto isPrintable = [](char c) { return c >= ' ' && c <= '~'; };
    if (!std::all_of(text.begin(), text.end(), isPrintable))
    {
        return false;
    }
    m_Characters.assign(text.begin(), text.end());
    return m_Characters.empty() || DrawRun(m_Characters, room);
}

bool CellText::DrawRun(const std::wstring& text, const wxRect& room)
{
    internal::TextPainter& painter = Painter();
    painter.Ends(text, m_Ends);
    if (m_Ends.empty())
    {
        return false;
    }
    if (std::lround(m_Ends.back()) <= room.width)
    {
        DrawEnds(text, m_Ends, room); // as most texts are: whole
        return true;
    }
    const auto step = [&painter](wchar_t a, wchar_t b) { return painter.Step(a, b); };
    const std::optional<Fitted> fitted = FitRun(text, m_Ends, room.width, step);
    if (!fitted)
    {
        return false;
    }
    painter.Ends(fitted->text, m_Ends);
    const bool tooWide = fitted->width > room.width;
    if (tooWide)
    {
        painter.ClipTo({room});
    }
    DrawEnds(fitted->text, m_Ends, room);
    if (tooWide)
    {
        painter.Unclip();
    }
    return true;
}

void CellText::DrawEnds(const std::wstring& text, const std::vector<double>& ends,
                        const wxRect& room)
{
    internal::TextPainter& painter = Painter();
    painter.SetColour(m_Dc.GetTextForeground());
    painter.DrawRun(text, ends, room.x, room.y);
    if (!m_IsTold)
    {
        painter.Flush(); // what the list draws next with the context itself must come on top
    }
}

void CellText::DrawMeasured(const std::wstring& text, const wxRect& room)
{
    const Fitted fitted = FitMeasured(
        text, room.width, [this](const std::wstring& form) { return m_Dc.GetTextExtent(form).x; });
    // Also because marks and scripts of other fonts may be higher than a row.
    const wxDCClipper clip(m_Dc, room);
    m_Dc.DrawText(fitted.text, room.GetPosition());
}
} // namespace listviews
