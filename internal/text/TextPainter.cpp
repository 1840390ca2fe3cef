#include "internal/text/TextPainter.h"

#include "internal/port/ScreenSurface.h"
#include "internal/text/GlyphTable.h"

#include <wx/graphics.h>
#include <wx/region.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace internal
{
namespace
{
constexpr double kTightFit = 0.75; // pixels that a character may be wider than its cell
constexpr double kFullChannel = 255.0;
constexpr size_t kMostGlyphs = 2048; // drawn at once
constexpr int    kOverhang = 1;      // pixels that a glyph may be seen above and below its line
} // namespace

/// The bitmap's cairo surface, with the glyphs that wait to be drawn on it.
class TextPainter::Canvas
{
public:
    Canvas(std::unique_ptr<wxGraphicsContext> context, GlyphTable& glyphs);
    ~Canvas();

    void SetColour(const wxColour& colour);
    void SetBold(bool bold, wxDC& dc, const wxFont& font);
    void DrawCell(const wchar_t* characters, int count, int x, int y, int width);
    void DrawAscii(const char* characters, size_t count, int x, int y, int width);
    void DrawRun(const std::wstring& text, const std::vector<double>& ends, int x, int y);
    void Fill(const wxRect& rect, const wxColour& colour);
    void ClipTo(const std::vector<wxRect>& rects);
    void Unclip();
    void Flush();

    GlyphTable& Glyphs() { return *m_Glyphs; }

private:
    void Add(const Glyph& glyph, double x, int y);
    bool MayCover(const wxRect& rect) const;
    void SetSource(const wxColour& colour);
    void Draw(const Glyph& glyph, int x, int y, int width);
    void DrawAlone(const Glyph& glyph, int x, int y, int width);

    std::unique_ptr<wxGraphicsContext> m_Context;
    cairo_t*                           m_Cairo;
    GlyphTable&                        m_Regular;
    GlyphTable*                        m_Bold = nullptr; ///< Null until it is used.
    GlyphTable*                        m_Glyphs;         ///< One of the two.
    cairo_scaled_font_t*               m_BatchFont = nullptr;
    std::vector<cairo_glyph_t>         m_Batch;        ///< All of that font.
    int                                m_BatchTop = 0; ///< Where its lines are, pixels.
    int                                m_BatchBottom = 0;
    wxColour                           m_Colour; ///< Invalid: draws nothing.
    bool                               m_Clipped = false;
};

TextPainter::Canvas::Canvas(std::unique_ptr<wxGraphicsContext> context, GlyphTable& glyphs)
    : m_Context(std::move(context)),
      m_Cairo(static_cast<cairo_t*>(m_Context->GetNativeContext())),
      m_Regular(glyphs),
      m_Glyphs(&glyphs)
{
    // The device context draws on the same surface; it finds its own state again afterwards.
    cairo_save(m_Cairo);
}

TextPainter::Canvas::~Canvas()
{
    Flush();
    Unclip();
    cairo_restore(m_Cairo);
}

void TextPainter::Canvas::SetSource(const wxColour& colour)
{
    cairo_set_source_rgba(m_Cairo, colour.Red() / kFullChannel, colour.Green() / kFullChannel,
                          colour.Blue() / kFullChannel, colour.Alpha() / kFullChannel);
}

void TextPainter::Canvas::SetColour(const wxColour& colour)
{
    if (colour != m_Colour)
    {
        Flush();
        m_Colour = colour;
    }
}

// Where bold glyphs can't be had the common ones have to do.
void TextPainter::Canvas::SetBold(bool bold, wxDC& dc, const wxFont& font)
{
    if (bold && !m_Bold)
    {
        GlyphTable* const glyphs = GlyphTable::For(m_Cairo, dc, font.Bold());
        m_Bold = glyphs ? glyphs : &m_Regular;
        dc.SetFont(font);
    }
    m_Glyphs = bold ? m_Bold : &m_Regular;
}

void TextPainter::Canvas::DrawCell(const wchar_t* characters, int count, int x, int y, int width)
{
    Draw(m_Glyphs->Of(characters, count), x, y, width);
}

void TextPainter::Canvas::DrawAscii(const char* characters, size_t count, int x, int y, int width)
{
    for (size_t i = 0; i < count; ++i)
    {
        Draw(m_Glyphs->OfAscii(characters[i]), x, y, width);
        x += width;
    }
}

void TextPainter::Canvas::Draw(const Glyph& glyph, int x, int y, int width)
{
    if (glyph.blank || !m_Colour.IsOk())
    {
        return;
    }
    if (!glyph.font || glyph.tall || glyph.advance > width + kTightFit)
    {
        DrawAlone(glyph, x, y, width);
        return;
    }
    Add(glyph, x, y);
}

void TextPainter::Canvas::Add(const Glyph& glyph, double x, int y)
{
    if (glyph.font != m_BatchFont || m_Batch.size() == kMostGlyphs)
    {
        Flush();
        m_BatchFont = glyph.font;
        m_Batch.reserve(kMostGlyphs);
    }
    const bool isFirst = m_Batch.empty();
    const int  top = glyph.tall ? std::numeric_limits<int>::min() : y - kOverhang;
    const int  bottom = glyph.tall
                            ? std::numeric_limits<int>::max()
                            : y + static_cast<int>(std::ceil(m_Regular.LineHeight())) + kOverhang;
    m_BatchTop = isFirst ? top : std::min(m_BatchTop, top);
    m_BatchBottom = isFirst ? bottom : std::max(m_BatchBottom, bottom);
    m_Batch.push_back({glyph.index, x + glyph.dx, y + m_Regular.Baseline() + glyph.dy});
}

void TextPainter::Canvas::DrawRun(const std::wstring& text, const std::vector<double>& ends, int x,
                                  int y)
{
    for (size_t i = 0; m_Colour.IsOk() && i < text.size(); ++i)
    {
        const Glyph& glyph = m_Glyphs->Of(&text[i], 1);
        if (!glyph.blank)
        {
            // Kerning is part of the way to a character, not of the character.
            Add(glyph, x + ends[i] - glyph.advance, y);
        }
    }
}

// The rows of a list: their texts are drawn together, though each row is filled before its text.
bool TextPainter::Canvas::MayCover(const wxRect& rect) const
{
    return !m_Batch.empty() && rect.y < m_BatchBottom && rect.GetBottom() >= m_BatchTop;
}

void TextPainter::Canvas::Fill(const wxRect& rect, const wxColour& colour)
{
    if (MayCover(rect))
    {
        Flush();
    }
    SetSource(colour);
    cairo_rectangle(m_Cairo, rect.x, rect.y, rect.width, rect.height);
    cairo_fill(m_Cairo);
}

// A character of several glyphs, or one that has to be squeezed into its cell or cut off there.
void TextPainter::Canvas::DrawAlone(const Glyph& glyph, int x, int y, int width)
{
    Flush();
    cairo_save(m_Cairo);
    SetSource(m_Colour);
    if (glyph.tall)
    {
        cairo_rectangle(m_Cairo, x, y, width, m_Regular.LineHeight());
        cairo_clip(m_Cairo);
    }
    if (!glyph.layout)
    {
        // First: the font that was used last would be taken as it is, whatever the scale.
        cairo_set_scaled_font(m_Cairo, glyph.font);
    }
    cairo_translate(m_Cairo, x, y + m_Regular.Baseline());
    if (glyph.advance > width + kTightFit)
    {
        cairo_scale(m_Cairo, width / glyph.advance, 1.0);
    }
    if (glyph.layout)
    {
        cairo_move_to(m_Cairo, 0, 0);
        pango_cairo_show_layout_line(m_Cairo,
                                     pango_layout_get_line_readonly(glyph.layout.get(), 0));
    }
    else
    {
        const cairo_glyph_t single{glyph.index, glyph.dx, glyph.dy};
        cairo_show_glyphs(m_Cairo, &single, 1);
    }
    cairo_restore(m_Cairo);
}

void TextPainter::Canvas::ClipTo(const std::vector<wxRect>& rects)
{
    Flush();
    Unclip();
    cairo_save(m_Cairo);
    cairo_new_path(m_Cairo);
    for (const wxRect& rect : rects)
    {
        cairo_rectangle(m_Cairo, rect.x, rect.y, rect.width, rect.height);
    }
    cairo_clip(m_Cairo);
    m_Clipped = true;
}

void TextPainter::Canvas::Unclip()
{
    if (m_Clipped)
    {
        Flush();
        cairo_restore(m_Cairo);
        m_Clipped = false;
    }
}

void TextPainter::Canvas::Flush()
{
    if (!m_Batch.empty())
    {
        SetSource(m_Colour);
        cairo_set_scaled_font(m_Cairo, m_BatchFont);
        cairo_show_glyphs(m_Cairo, m_Batch.data(), static_cast<int>(m_Batch.size()));
        m_Batch.clear();
    }
}

TextPainter::TextPainter(wxDC& dc, const wxFont& font) : m_Dc(dc), m_Font(font)
{
    dc.SetFont(font);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    std::unique_ptr<wxGraphicsContext> context = NewContextOn(dc);
    auto* const cairo = context ? static_cast<cairo_t*>(context->GetNativeContext()) : nullptr;
    if (GlyphTable* const glyphs = cairo ? GlyphTable::For(cairo, dc, font) : nullptr)
    {
        m_Canvas = std::make_unique<Canvas>(std::move(context), *glyphs);
    }
}

TextPainter::~TextPainter() = default;

void TextPainter::SetColour(const wxColour& colour)
{
    m_Colour = colour;
    if (m_Canvas)
    {
        m_Canvas->SetColour(colour);
    }
    else if (colour.IsOk())
    {
        m_Dc.SetTextForeground(colour);
    }
}

void TextPainter::SetBold(bool bold)
{
    if (bold == m_Bold)
    {
        return;
    }
    m_Bold = bold;
    if (m_Canvas)
    {
        m_Canvas->SetBold(bold, m_Dc, m_Font);
    }
    else
    {
        m_Dc.SetFont(bold ? m_Font.Bold() : m_Font);
    }
}

void TextPainter::DrawCell(const wchar_t* characters, int count, int x, int y, int width)
{
    if (count < 1 || !m_Colour.IsOk())
    {
        return;
    }
    if (m_Canvas)
    {
        m_Canvas->DrawCell(characters, count, x, y, width);
    }
    else
    {
        m_Dc.DrawText(wxString(characters, static_cast<size_t>(count)), x, y);
    }
}

void TextPainter::DrawAscii(const char* characters, size_t count, int x, int y, int width)
{
    if (m_Canvas)
    {
        m_Canvas->DrawAscii(characters, count, x, y, width);
        return;
    }
    for (size_t i = 0; i < count; ++i)
    {
        const auto character = static_cast<wchar_t>(characters[i]);
        DrawCell(&character, 1, x + static_cast<int>(i) * width, y, width);
    }
}

bool TextPainter::Has(wchar_t character)
{
    return !m_Canvas || m_Canvas->Glyphs().Of(&character, 1).font;
}

double TextPainter::Step(wchar_t a, wchar_t b)
{
    return m_Canvas ? m_Canvas->Glyphs().Step(a, b) : std::numeric_limits<double>::quiet_NaN();
}

std::vector<double> TextPainter::Ends(const std::wstring& text)
{
    std::vector<double> ends;
    Ends(text, ends);
    return ends;
}

void TextPainter::Ends(const std::wstring& text, std::vector<double>& ends)
{
    ends.clear();
    if (!m_Canvas || text.empty())
    {
        return;
    }
    ends.reserve(text.size());
    // A blank stands alone and for itself: the first character's own step.
    double end = Step(L' ', text[0]);
    end = std::isnan(end) ? end : m_Canvas->Glyphs().Of(text.data(), 1).advance;
    ends.push_back(end);
    for (size_t i = 1; i < text.size() && !std::isnan(end); ++i)
    {
        end += m_Canvas->Glyphs().Step(text[i - 1], text[i]);
        ends.push_back(end);
    }
    if (std::isnan(end))
    {
        ends.clear();
    }
}

void TextPainter::DrawRun(const std::wstring& text, const std::vector<double>& ends, int x, int y)
{
    if (m_Canvas && ends.size() == text.size())
    {
        m_Canvas->DrawRun(text, ends, x, y);
    }
}

void TextPainter::Fill(const wxRect& rect, const wxColour& colour)
{
    if (!colour.IsOk())
    {
        return;
    }
    if (m_Canvas)
    {
        m_Canvas->Fill(rect, colour);
        return;
    }
    m_Dc.SetPen(*wxTRANSPARENT_PEN);
    m_Dc.SetBrush(wxBrush(colour));
    m_Dc.DrawRectangle(rect);
}

void TextPainter::ClipTo(const std::vector<wxRect>& rects)
{
    if (m_Canvas)
    {
        m_Canvas->ClipTo(rects);
        return;
    }
    wxRegion region;
    for (const wxRect& rect : rects)
    {
        region.Union(rect);
    }
    m_Dc.SetDeviceClippingRegion(region);
}

void TextPainter::Unclip()
{
    if (m_Canvas)
    {
        m_Canvas->Unclip();
        return;
    }
    m_Dc.DestroyClippingRegion();
}

void TextPainter::Flush()
{
    if (m_Canvas)
    {
        m_Canvas->Flush();
    }
}
} // namespace internal
