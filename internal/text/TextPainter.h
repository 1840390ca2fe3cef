#pragma once

#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/gdicmn.h>

#include <memory>
#include <string>
#include <vector>

class wxGraphicsContext;

namespace internal
{
class GlyphTable;

/// Draws text into a bitmap several times faster than the toolkit does: the glyphs of a font are
/// laid out once each, kept in a table, and drawn in runs of thousands. Nothing is sure to be seen
/// before `Flush`, and text may come after what is filled beside it. It must be destroyed before
/// its device context. Main thread only.
class TextPainter
{
public:
    /// @param dc Of a bitmap or of a surface of the screen.
    TextPainter(wxDC& dc, const wxFont& font);
    ~TextPainter(); ///< Flushes.
    TextPainter(const TextPainter&) = delete;
    TextPainter& operator=(const TextPainter&) = delete;

    /// The colour of what is drawn from now on; an invalid one draws nothing.
    void SetColour(const wxColour& colour);
    /// Whether what is drawn from now on is in the font's bold, on the same baseline.
    void SetBold(bool bold);
    /// Draws one character with its combining marks so that it starts at `x` and fits `width`
    /// pixels: what is wider by nature is squeezed, what is taller than a line is cut off. `y` is
    /// the top of the line.
    void DrawCell(const wchar_t* characters, int count, int x, int y, int width);
    /// Whether a font has the character; where the toolkit draws, that is not known, and true.
    bool Has(wchar_t character);
    /// Draws a run of printable ASCII characters, each as `DrawCell` does, `width` pixels apart.
    void DrawAscii(const char* characters, size_t count, int x, int y, int width);
    /// Where each character of a text ends when the toolkit draws it: pixels from its start. Empty
    /// where only the toolkit can tell: it lays such a text out in some way of its own.
    std::vector<double> Ends(const std::wstring& text);
    void                Ends(const std::wstring& text, std::vector<double>& ends); ///< The same.
    /// Draws a text as the toolkit does, with its top left there; `ends` as `Ends` gave them
    /// (nothing is drawn without them).
    void DrawRun(const std::wstring& text, const std::vector<double>& ends, int x, int y);
    /// What `b` adds to a text that ends with `a`; NaN when only the toolkit can tell.
    double Step(wchar_t a, wchar_t b);
    /// Fills a rectangle. An invalid colour draws nothing.
    void Fill(const wxRect& rect, const wxColour& colour);
    /// Keeps what is drawn from now on within these rectangles, until `Unclip`.
    void ClipTo(const std::vector<wxRect>& rects);
    void Unclip();
    void Flush();
    /// False where the toolkit has to draw character by character, because its surface can't be had
    /// or glyphs drawn here would not look like its own.
    bool IsFast() const { return m_Canvas != nullptr; }

private:
    class Canvas;

    wxDC&                   m_Dc;
    wxFont                  m_Font;
    bool                    m_Bold = false;
    wxColour                m_Colour;
    std::unique_ptr<Canvas> m_Canvas; ///< Null: the toolkit has to draw.
};
} // namespace internal
