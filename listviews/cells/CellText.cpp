#include "listviews/cells/CellText.h"

#include "internal/port/SurfaceDC.h"
#include "internal/text/TextPainter.h"
#include "listviews/cells/TextFit.h"

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

bool CellText::DrawRun(const std::wstring& text, const wxRect& room)
{
    internal::TextPainter& painter = Painter();
    std::vector<double>    ends = painter.Ends(text);
    if (ends.empty())
    {
        return false;
    }
    const auto step = [&painter](wchar_t a, wchar_t b) { return painter.Step(a, b); };
    const std::optional<Fitted> fitted = FitRun(text, ends, room.width, step);
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
    if (!m_IsTold)
    {
        painter.Flush(); // what the list draws next with the context itself must come on top
    }
    return true;
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
