#pragma once

#include <pango/pangocairo.h>

#include <wx/dc.h>
#include <wx/font.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace internal
{
/// Frees what the text libraries count references of.
struct GObjectDeleter
{
    void operator()(void* object) const { g_object_unref(object); }
};
template <class T> using GObjectPtr = std::unique_ptr<T, GObjectDeleter>;

/// How one character (with its combining marks) looks in a font.
struct Glyph
{
    cairo_scaled_font_t*    font = nullptr; ///< Kept by the table; null: draw the layout.
    unsigned long           index = 0;
    double                  advance = 0; ///< Pixels.
    double                  dx = 0;      ///< Pixels from where the character starts.
    double                  dy = 0;
    bool                    blank = false; ///< Nothing to draw.
    bool                    tall = false;  ///< It does not keep within a line of the font.
    GObjectPtr<PangoLayout> layout;        ///< What is not a single glyph.
};

/// The glyphs of one font on one kind of surface, laid out when first asked for. Tables are shared
/// by all views and kept for the life of the program.
class GlyphTable
{
public:
    /// The table for drawing with that font as the device context does, on the surface that the
    /// cairo context draws on. Null when glyphs laid out here would not come out like its own.
    /// Glyphs that it gave out before are good no longer: a table that has grown too large is begun
    /// anew here and nowhere else.
    static GlyphTable* For(cairo_t* cairo, wxDC& dc, const wxFont& font);

    GlyphTable(GObjectPtr<PangoContext> context, const wxFont& font);

    const Glyph& Of(const wchar_t* characters, int count);
    /// The same for a single ASCII character.
    const Glyph& OfAscii(char character)
    {
        const Glyph* const known = m_Quick[static_cast<unsigned char>(character)].get();
        const auto         wide = static_cast<wchar_t>(character);
        return known ? *known : Of(&wide, 1);
    }
    /// Pixels that a text grows by when `second` follows `first` at its end; NaN when the toolkit
    /// does not simply put the two side by side (a ligature, another font, marks, another script).
    double Step(wchar_t first, wchar_t second);
    double Baseline() const { return m_Baseline; }     ///< Pixels below the top of a line.
    double LineHeight() const { return m_LineHeight; } ///< Pixels.

private:
    static constexpr size_t kQuickCodes = 256;
    static constexpr size_t kQuickSteps = 128; ///< Codes whose pairs have a table of their own.

    bool   AgreesWith(wxDC& dc) const;
    double LayOutStep(wchar_t first, wchar_t second);

    Glyph LayOut(const wchar_t* characters, int count);

    GObjectPtr<PangoContext>                        m_Context;
    PangoFontDescription*                           m_Description; ///< Kept as long as the table.
    double                                          m_Baseline = 0;
    double                                          m_LineHeight = 0;
    std::array<std::unique_ptr<Glyph>, kQuickCodes> m_Quick; ///< By code.
    std::unordered_map<std::wstring, Glyph>         m_Others;
    std::vector<float>                              m_QuickSteps; ///< Negative: not known yet.
    std::unordered_map<unsigned long long, float>   m_OtherSteps;
    std::map<PangoFont*, GObjectPtr<PangoFont>>     m_Fonts; ///< All that glyphs came from.
};
} // namespace internal
