#pragma once

#include <wx/dc.h>
#include <wx/font.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace internal
{
class TextPainter;
}

namespace listviews
{
/// Draws the texts of a list's cells, each in the room that it has: fast where the painter can,
/// with the toolkit where it can't, and with the same picture. What has been drawn is there before
/// the context draws anything else. Main thread.
class CellText
{
public:
    explicit CellText(wxDC& dc);
    ~CellText();
    CellText(const CellText&) = delete;
    CellText& operator=(const CellText&) = delete;

    bool DrawsOn(const wxDC& dc) const { return &dc == &m_Dc; }
    /// In the context's font and text colour, from the room's top left; shortened to its width.
    void Draw(const wxString& text, const wxRect& room);
    /// The same for a text as a host has it. False, and nothing is drawn, for what is not printable
    /// ASCII throughout, or where the painter can't draw it.
    bool DrawAscii(std::string_view text, const wxRect& room);
    int  Width(const wxString& text); ///< Pixels of the whole text in the context's font.
    void Fill(const wxRect& rect, const wxColour& colour);

private:
    internal::TextPainter& Painter();
    bool                   DrawRun(const std::wstring& text, const wxRect& room);
    void DrawEnds(const std::wstring& text, const std::vector<double>& ends, const wxRect& room);
    void DrawMeasured(const std::wstring& text, const wxRect& room);

    wxDC&                                  m_Dc;
    wxFont                                 m_Font; ///< Of the painter.
    std::unique_ptr<internal::TextPainter> m_Painter;
    bool                                   m_IsTold;     ///< The context tells before it draws.
    std::wstring                           m_Characters; ///< Of a text, and where they end: kept,
    std::vector<double>                    m_Ends;       ///< as there are hundreds in a picture.
};
} // namespace listviews
