#pragma once

#include "vesta/Export.h"

#include <wx/dcmemory.h>
#include <wx/font.h>

#include <memory>

class _TextPainter;

/// Draws the texts of a list's cells into a bitmap, each in the room that it has: fast where the
/// painter can, with the toolkit where it can't, and with the same picture. Everything that has
/// been drawn is there when a call returns. Main thread.
class TOLVAN_API _CellText
{
public:
    explicit _CellText(wxMemoryDC& dc);
    ~_CellText();
    _CellText(const _CellText&) = delete;
    _CellText& operator=(const _CellText&) = delete;

    bool DrawsOn(const wxDC& dc) const { return &dc == &m_Dc; }
    /// In the context's font and text colour, from the room's top left; shortened to its width.
    void Draw(const wxString& text, const wxRect& room);
    void Fill(const wxRect& rect, const wxColour& colour);

private:
    _TextPainter& Painter();
    bool          DrawRun(const std::wstring& text, const wxRect& room);
    void          DrawMeasured(const std::wstring& text, const wxRect& room);

    wxMemoryDC&                   m_Dc;
    wxFont                        m_Font; ///< Of the painter.
    std::unique_ptr<_TextPainter> m_Painter;
};
