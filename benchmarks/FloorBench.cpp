#include "benchmarks/BenchSupport.h"
#include "benchmarks/ListWorkload.h"
#include "benchmarks/TextWorkload.h"

#include <wx/dcclient.h>
#include <wx/fontutil.h>
#include <wx/graphics.h>
#include <wx/panel.h>

#include <gdk/gdk.h>
#include <pango/pangocairo.h>

#include <array>
#include <optional>
#include <vector>

/// What a repaint costs at the least in a window of this toolkit: the pictures of the list, the log
/// and the chart, prepared as far as they can be, painted in each of the ways that there are. Of a
/// view that keeps its picture the better buffered one is the floor.

namespace
{
constexpr int kRows = 41;        // as many as the list shows
constexpr int kLogPoints = 9;    // of a log's text
constexpr int kLogHeight = 900;  // pixels that a log has for its lines
constexpr int kAllOfIt = 100000; // pixels, more than any line has
constexpr int kPages = 7;        // texts of their own, which take turns
constexpr int kMargin = 4;
constexpr int kChartTop = 1000;

enum class Way
{
    Straight, ///< On what the toolkit gives a window to paint on.
    Server,   ///< On a surface of the display server's, which is then copied.
    Shared,   ///< On an image in memory that the server shares, which is then copied.
    Client    ///< On an image in the program's own memory, which is then sent.
};

struct SurfaceEnd
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceEnd>;

// The window's surface is what cairo makes a similar one of.
Surface MakeBuffer(Way way, cairo_t* window, const wxSize& size)
{
    cairo_surface_t* const target = cairo_get_target(window);
    switch (way)
    {
    case Way::Server:
        return Surface(cairo_surface_create_similar(target, CAIRO_CONTENT_COLOR, size.x, size.y));
    case Way::Shared:
        return Surface(
            cairo_surface_create_similar_image(target, CAIRO_FORMAT_RGB24, size.x, size.y));
    default:
        return Surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.x, size.y));
    }
}

/// A window that something is drawn in.
class Canvas : public wxWindow
{
public:
    using Draw = std::function<void(cairo_t*)>;

    Canvas(wxWindow* parent, const wxSize& size, Way way, bool keep)
        : wxWindow(parent, wxID_ANY, wxDefaultPosition, size), m_Way(way), m_Keep(keep)
    {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, &Canvas::OnPaint, this);
    }

    FrameTime Repaint(const Draw& draw)
    {
        PumpEvents();
        WaitForDisplay();
        const FrameWatch watch;
        const int        before = m_Painted;
        m_Draw = &draw;
        Refresh(false);
        Update();
        PumpUntil([&] { return m_Painted > before; });
        const FrameTime time = watch.Shown();
        m_Draw = nullptr;
        return time;
    }

private:
    void OnPaint(wxPaintEvent&)
    {
        wxPaintDC                                dc(this);
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        auto* const window = static_cast<cairo_t*>(context->GetNativeContext());
        if (m_Way == Way::Straight)
        {
            DrawOn(window);
        }
        else
        {
            Copy(window);
        }
    }
    void DrawOn(cairo_t* cairo)
    {
        if (m_Draw)
        {
            (*m_Draw)(cairo);
            ++m_Painted;
        }
    }
    void Copy(cairo_t* window)
    {
        const wxSize size = GetClientSize();
        const bool   isNew = !m_Buffer || size != m_Size;
        if (isNew)
        {
            m_Buffer = MakeBuffer(m_Way, window, size);
            m_Size = size;
        }
        if (isNew || !m_Keep)
        {
            cairo_t* const cairo = cairo_create(m_Buffer.get());
            DrawOn(cairo);
            cairo_destroy(cairo);
        }
        else
        {
            ++m_Painted;
        }
        cairo_set_source_surface(window, m_Buffer.get(), 0, 0);
        cairo_paint(window);
    }

    Way         m_Way;
    bool        m_Keep; ///< The picture stays as it is.
    const Draw* m_Draw = nullptr;
    Surface     m_Buffer;
    wxSize      m_Size;
    int         m_Painted = 0;
};

/// The glyphs of all texts of a page, at their places.
using Page = std::vector<cairo_glyph_t>;

/// Makes glyphs of texts.
class Font
{
public:
    explicit Font(const wxFont& font)
        : m_Context(gdk_pango_context_get()),
          m_Font(pango_context_load_font(m_Context, font.GetNativeFontInfo()->description))
    {
    }
    ~Font()
    {
        g_object_unref(m_Font);
        g_object_unref(m_Context);
    }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    cairo_scaled_font_t* Scaled() const
    {
        return pango_cairo_font_get_scaled_font(reinterpret_cast<PangoCairoFont*>(m_Font));
    }
    /// What of the text begins within a width.
    void Add(Page& page, const String& text, double x, double y, double width) const
    {
        cairo_glyph_t* glyphs = nullptr;
        int            count = 0;
        cairo_scaled_font_text_to_glyphs(Scaled(), x, y, text.data(), static_cast<int>(text.size()),
                                         &glyphs, &count, nullptr, nullptr, nullptr);
        const double end = x + width;
        for (int i = 0; i < count && glyphs[i].x < end; ++i)
        {
            page.push_back(glyphs[i]);
        }
        cairo_glyph_free(glyphs);
    }

private:
    PangoContext* m_Context;
    PangoFont*    m_Font;
};

Page MakeListPage(const Font& font, int turn)
{
    const int first = turn * kRows;
    Page      page;
    for (int row = 0; row < kRows; ++row)
    {
        for (int column = 0; column < kCellColumns; ++column)
        {
            font.Add(page, WorkloadCell(first + row, column), column * kCellColumnWidth + kMargin,
                     (row + 1) * kCellRowHeight - 2 * kMargin, kCellColumnWidth - 4 * kMargin);
        }
    }
    return page;
}

Page MakeLogPage(const Font& font, int turn)
{
    cairo_font_extents_t extents;
    cairo_scaled_font_extents(font.Scaled(), &extents);
    const int lines = static_cast<int>(kLogHeight / extents.height);
    Page      page;
    for (int line = 0; line < lines; ++line)
    {
        font.Add(page, WorkloadLine(turn * lines + line), kMargin,
                 line * extents.height + extents.ascent, kAllOfIt);
    }
    return page;
}

Page MakeEmptyPage(const Font&, int)
{
    return {};
}

void Clear(cairo_t* cairo)
{
    cairo_set_source_rgb(cairo, 0.2, 0.2, 0.2);
    cairo_paint(cairo);
}

void DrawPage(cairo_t* cairo, const Font& font, const Page& page)
{
    Clear(cairo);
    cairo_set_source_rgb(cairo, 0.8, 0.8, 0.8);
    cairo_set_scaled_font(cairo, font.Scaled());
    cairo_show_glyphs(cairo, page.data(), static_cast<int>(page.size()));
}

using MakePage = Page (*)(const Font&, int turn);

void MeasurePages(benchmark::State& state, Way way, const wxFont& ofText, MakePage make)
{
    Canvas*        canvas = nullptr;
    wxFrame* const frame = OpenFrame(
        [&](wxFrame* parent) { return canvas = new Canvas(parent, wxDefaultSize, way, false); });
    {
        const Font        font(ofText);
        std::vector<Page> pages;
        pages.reserve(kPages);
        for (int i = 0; i < kPages; ++i)
        {
            pages.push_back(make(font, i));
        }
        size_t turn = 0;
        MeasureMedian(state,
                      [&]
                      {
                          const Page& page = pages[++turn % pages.size()];
                          return canvas->Repaint([&](cairo_t* cairo)
                                                 { DrawPage(cairo, font, page); });
                      });
    }
    CloseFrame(frame);
}

void MeasureList(benchmark::State& state, Way way)
{
    MeasurePages(state, way, *wxNORMAL_FONT, MakeListPage);
}
void MeasureLog(benchmark::State& state, Way way)
{
    const wxFont font(kLogPoints, wxFONTFAMILY_MODERN, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL);
    MeasurePages(state, way, font, MakeLogPage);
}
void MeasureClearing(benchmark::State& state)
{
    MeasurePages(state, Way::Straight, *wxNORMAL_FONT, MakeEmptyPage);
}

// Bars of any heights.
void DrawChart(cairo_t* cairo, const wxSize& size)
{
    Clear(cairo);
    cairo_set_source_rgb(cairo, 0.3, 0.5, 0.8);
    for (int x = 0; x < size.x; ++x)
    {
        const int high = x * 7919 % kChartTop * size.y / kChartTop;
        cairo_rectangle(cairo, x, size.y - high, 1, high);
    }
    cairo_fill(cairo);
}

// A picture that stays as it is, so that it is copied only.
void MeasureChart(benchmark::State& state, Way way)
{
    const wxSize   size(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Canvas*        canvas = nullptr;
    wxFrame* const frame = OpenFrame(
        [&](wxFrame* parent)
        {
            auto* const panel = new wxPanel(parent);
            canvas = new Canvas(panel, size, way, true);
            return panel;
        });
    const Canvas::Draw draw = [&](cairo_t* cairo) { DrawChart(cairo, size); };
    MeasureMedian(state, [&] { return canvas->Repaint(draw); });
    CloseFrame(frame);
}

struct NamedWay
{
    const char* name;
    Way         way;
};
constexpr std::array<NamedWay, 4> kWays = {{{"floor: straight", Way::Straight},
                                            {"floor: on the server", Way::Server},
                                            {"floor: shared image", Way::Shared},
                                            {"floor: own image", Way::Client}}};

void Register()
{
    for (const NamedWay& each : kWays)
    {
        const auto name = [&](const char* workload)
        { return std::string(workload) + "<" + each.name + ">"; };
        const Way way = each.way;
        benchmark::RegisterBenchmark(name("ListRepaint").c_str(),
                                     [way](benchmark::State& state) { MeasureList(state, way); })
            ->Arg(1000000)
            ->Apply(Repaints);
        benchmark::RegisterBenchmark(name("RepaintAnywhere").c_str(),
                                     [way](benchmark::State& state) { MeasureLog(state, way); })
            ->Arg(1000000)
            ->Apply(Repaints);
        if (way != Way::Straight)
        {
            benchmark::RegisterBenchmark(name("ChartPush").c_str(), [way](benchmark::State& state)
                                         { MeasureChart(state, way); })
                ->Args({600, 80})
                ->Apply(Repaints);
        }
    }
    benchmark::RegisterBenchmark("ListRepaint<floor: clearing only>", MeasureClearing)
        ->Arg(1000000)
        ->Apply(Repaints);
}
} // namespace

int main(int argc, char** argv)
{
    Register();
    return RunBenchmarks(argc, argv);
}
