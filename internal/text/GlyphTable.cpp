#include "internal/text/GlyphTable.h"

#include "internal/port/TextContext.h"

#include <wx/fontutil.h>
#include <wx/string.h>

#include <cmath>
#include <cwchar>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

namespace internal
{
namespace
{
constexpr double kOverhang = 0.5;     // pixels above or below its line that no one sees
constexpr float  kUnknown = -1;       // a step that has not been laid out
constexpr size_t kMostOthers = 20000; // characters kept beyond the quick ones, then begun anew

size_t CodeOf(wchar_t character)
{
    return static_cast<std::make_unsigned_t<wchar_t>>(character);
}

double Pixels(int pangoUnits)
{
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

GObjectPtr<PangoLayout> MakeLayout(PangoContext* context, const PangoFontDescription* description,
                                   const wchar_t* characters, int count)
{
    GObjectPtr<PangoLayout> layout(pango_layout_new(context));
    pango_layout_set_font_description(layout.get(), description);
    const wxString           text(characters, static_cast<size_t>(count));
    const wxScopedCharBuffer utf8 = text.utf8_str(); // kept by the text
    pango_layout_set_text(layout.get(), utf8.data(), static_cast<int>(utf8.length()));
    return layout;
}

// The only glyph of a layout, or null when it has several or one that the font does not have.
const PangoGlyphInfo* SingleGlyph(PangoLayoutLine* line, PangoFont*& font)
{
    if (!line || !line->runs || line->runs->next)
    {
        return nullptr;
    }
    const auto* run = static_cast<const PangoLayoutRun*>(line->runs->data);
    if (run->glyphs->num_glyphs != 1 || run->glyphs->glyphs[0].glyph & PANGO_GLYPH_UNKNOWN_FLAG)
    {
        return nullptr;
    }
    font = run->item->analysis.font;
    return run->glyphs->glyphs;
}

// Scripts that are written one character beside the other. Whatever joins, stacks or turns round is
// left to the toolkit.
bool StandsAlone(wchar_t character)
{
    struct
    {
        wchar_t first;
        wchar_t last;
    } constexpr kBlocks[] = {{0x20, 0x7e},   {0xa1, 0xac},     {0xae, 0x2ff},   {0x370, 0x482},
                             {0x48a, 0x52f}, {0x2010, 0x2027}, {0x20a0, 0x20bf}};
    for (const auto& block : kBlocks)
    {
        if (character >= block.first && character <= block.last)
        {
            return true;
        }
    }
    return false;
}

// The two glyphs of a layout of two characters, drawn with one font; false when it has others.
bool GlyphPair(PangoLayoutLine* line, const PangoGlyphInfo*& first, const PangoGlyphInfo*& second)
{
    const PangoGlyphInfo* found[2] = {};
    int                   count = 0;
    PangoFont*            font = nullptr;
    for (GSList* run = line ? line->runs : nullptr; run; run = run->next)
    {
        const auto* const part = static_cast<const PangoLayoutRun*>(run->data);
        for (int i = 0; i < part->glyphs->num_glyphs; ++i)
        {
            if (count == 2 || (font && font != part->item->analysis.font))
            {
                return false;
            }
            font = part->item->analysis.font;
            found[count++] = &part->glyphs->glyphs[i];
        }
    }
    first = found[0];
    second = found[1];
    return count == 2;
}

// What the toolkit may lay its texts out with: the surface's context, or the screen's.
std::vector<GObjectPtr<PangoContext>> Contexts(cairo_t* cairo)
{
    std::vector<GObjectPtr<PangoContext>> contexts;
    contexts.emplace_back(pango_cairo_create_context(cairo));
    if (PangoContext* const screen = ScreenTextContext())
    {
        contexts.emplace_back(screen);
        pango_cairo_update_context(cairo, screen);
    }
    return contexts;
}

unsigned long SurfaceKind(cairo_t* cairo)
{
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_surface_get_font_options(cairo_get_target(cairo), options);
    const unsigned long kind = cairo_font_options_hash(options);
    cairo_font_options_destroy(options);
    return kind;
}
} // namespace

GlyphTable* GlyphTable::For(cairo_t* cairo, wxDC& dc, const wxFont& font)
{
    using Tables = std::map<std::pair<wxString, unsigned long>, std::unique_ptr<GlyphTable>>;
    // Never freed: the text libraries may be gone when static objects are destroyed.
    static auto* const s_Tables = new Tables;

    const auto [place, isNew] =
        s_Tables->try_emplace({font.GetNativeFontInfoDesc(), SurfaceKind(cairo)});
    if (isNew)
    {
        dc.SetFont(font);
        for (GObjectPtr<PangoContext>& context : Contexts(cairo))
        {
            auto table = std::make_unique<GlyphTable>(std::move(context), font);
            if (table->AgreesWith(dc))
            {
                place->second = std::move(table);
                break;
            }
        }
    }
    if (place->second && place->second->m_Others.size() >= kMostOthers)
    {
        place->second->m_Others.clear();
    }
    return place->second.get();
}

GlyphTable::GlyphTable(GObjectPtr<PangoContext> context, const wxFont& font)
    : m_Context(std::move(context)),
      m_Description(pango_font_description_copy(font.GetNativeFontInfo()->description))
{
    const auto     layout = MakeLayout(m_Context.get(), m_Description, L"M", 1);
    PangoRectangle logical;
    pango_layout_get_extents(layout.get(), nullptr, &logical);
    m_Baseline = Pixels(pango_layout_get_baseline(layout.get()));
    m_LineHeight = Pixels(logical.height);
}

// The same text has the same size: another resolution or another hinting shows in some of these.
bool GlyphTable::AgreesWith(wxDC& dc) const
{
    for (const wchar_t* const text : {L"MMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMM",
                                      L"Quick (brown) fox_7", L"0123456789", L"gjpqy|/\\"})
    {
        const auto layout =
            MakeLayout(m_Context.get(), m_Description, text, static_cast<int>(std::wcslen(text)));
        int width = 0;
        int height = 0;
        pango_layout_get_pixel_size(layout.get(), &width, &height);
        if (dc.GetTextExtent(text) != wxSize(width, height))
        {
            return false;
        }
    }
    return true;
}

double GlyphTable::Step(wchar_t first, wchar_t second)
{
    const size_t a = CodeOf(first);
    const size_t b = CodeOf(second);
    if (a < kQuickSteps && b < kQuickSteps)
    {
        if (m_QuickSteps.empty())
        {
            m_QuickSteps.assign(kQuickSteps * kQuickSteps, kUnknown);
        }
        float& step = m_QuickSteps[a * kQuickSteps + b];
        if (step == kUnknown)
        {
            step = static_cast<float>(LayOutStep(first, second));
        }
        return step;
    }
    const auto [place, isNew] =
        m_OtherSteps.try_emplace((static_cast<unsigned long long>(a) << 32) | b, kUnknown);
    if (isNew)
    {
        place->second = static_cast<float>(LayOutStep(first, second));
    }
    return place->second;
}

double GlyphTable::LayOutStep(wchar_t first, wchar_t second)
{
    constexpr double kNot = std::numeric_limits<double>::quiet_NaN();
    if (!StandsAlone(first) || !StandsAlone(second))
    {
        return kNot;
    }
    const Glyph&          before = Of(&first, 1);
    const Glyph&          after = Of(&second, 1);
    const wchar_t         pair[] = {first, second};
    const auto            layout = MakeLayout(m_Context.get(), m_Description, pair, 2);
    const PangoGlyphInfo* left = nullptr;
    const PangoGlyphInfo* right = nullptr;
    if (!before.font || !after.font ||
        !GlyphPair(pango_layout_get_line_readonly(layout.get(), 0), left, right))
    {
        return kNot;
    }
    const double step = Pixels(left->geometry.width + right->geometry.width) - before.advance;
    const bool   asAlone = left->glyph == before.index && right->glyph == after.index &&
                         Pixels(left->geometry.x_offset) == before.dx &&
                         Pixels(right->geometry.x_offset) == after.dx &&
                         Pixels(right->geometry.width) == after.advance && step >= 0;
    return asAlone ? step : kNot;
}

const Glyph& GlyphTable::Of(const wchar_t* characters, int count)
{
    const size_t code = CodeOf(characters[0]);
    if (count == 1 && code < kQuickCodes)
    {
        std::unique_ptr<Glyph>& quick = m_Quick[code];
        if (!quick)
        {
            quick = std::make_unique<Glyph>(LayOut(characters, count));
        }
        return *quick;
    }
    std::wstring key(characters, static_cast<size_t>(count));
    const auto   known = m_Others.find(key);
    if (known != m_Others.end())
    {
        return known->second;
    }
    return m_Others.emplace(std::move(key), LayOut(characters, count)).first->second;
}

Glyph GlyphTable::LayOut(const wchar_t* characters, int count)
{
    Glyph          glyph;
    auto           layout = MakeLayout(m_Context.get(), m_Description, characters, count);
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_get_extents(layout.get(), &ink, &logical);
    glyph.advance = Pixels(logical.width);
    glyph.blank = ink.width <= 0 || ink.height <= 0;
    const double top = m_Baseline + Pixels(ink.y - pango_layout_get_baseline(layout.get()));
    glyph.tall = top < -kOverhang || top + Pixels(ink.height) > m_LineHeight + kOverhang;
    PangoFont*  font = nullptr;
    const auto* single = SingleGlyph(pango_layout_get_line_readonly(layout.get(), 0), font);
    if (single && PANGO_IS_CAIRO_FONT(font))
    {
        glyph.font = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
        glyph.index = single->glyph;
        glyph.dx = Pixels(single->geometry.x_offset);
        glyph.dy = Pixels(single->geometry.y_offset);
        if (!m_Fonts.count(font))
        {
            m_Fonts.emplace(font, static_cast<PangoFont*>(g_object_ref(font)));
        }
    }
    if (!glyph.font)
    {
        glyph.layout = std::move(layout);
    }
    return glyph;
}
} // namespace internal
