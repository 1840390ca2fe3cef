#include "textviews/wxBarHistoryCtrl.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "internal/drawing/Raster.h"
#include "internal/port/Pixels.h"
#include "textviews/chart/BarChart.h"
#include "textviews/chart/BarHistory.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>
#include <wx/numformatter.h>
#include <wx/tooltip.h>

#include <algorithm>
#include <cmath>

namespace
{
const wxSize  kLeastSize(50, 10); // pixels
constexpr int kDarker = -32;      // per channel: the ground behind the bars

String Grouped(uint64_t number)
{
    return wxtFromWx(wxNumberFormatter::ToString(static_cast<wxLongLong_t>(number),
                                                 wxNumberFormatter::Style_WithThousandsSep));
}

textviews::BarColours SchemeColours()
{
    return {OffsetColor(wxtGetColor(color_WindowBGDarker), kDarker, kDarker, kDarker),
            wxtGetColor(color_WindowBGLighter), wxtGetColor(color_WindowBG),
            wxtGetColor(color_3DDark), wxtGetColor(color_3DLight)};
}
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxBarHistoryCtrl, wxControl)
    EVT_PAINT(wxBarHistoryCtrl::OnPaint)
    EVT_ERASE_BACKGROUND(wxBarHistoryCtrl::OnEraseBackground)
    EVT_SIZE(wxBarHistoryCtrl::OnSize)
    EVT_SYS_COLOUR_CHANGED(wxBarHistoryCtrl::OnColoursChanged)
    EVT_ENTER_WINDOW(wxBarHistoryCtrl::OnEnter)
    EVT_LEAVE_WINDOW(wxBarHistoryCtrl::OnLeave)
wxEND_EVENT_TABLE()
// clang-format on

wxBarHistoryCtrl::wxBarHistoryCtrl()
    : m_History(std::make_unique<textviews::BarHistory>()),
      m_Bounds(std::make_unique<textviews::BarBounds>()),
      m_Raster(std::make_unique<internal::Raster>())
{
}

wxBarHistoryCtrl::wxBarHistoryCtrl(wxWindow* parent, int id, const wxPoint& position,
                                   const wxSize& size, unsigned style)
    : wxBarHistoryCtrl()
{
    Create(parent, id, position, size, style);
}

wxBarHistoryCtrl::~wxBarHistoryCtrl() = default;

bool wxBarHistoryCtrl::Create(wxWindow* parent, int id, const wxPoint& position, const wxSize& size,
                              unsigned style)
{
    CALL_ENTRY("wxBarHistoryCtrl::Create");
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    if (!wxControl::Create(parent, id, position, size, static_cast<long>(style) | wxBORDER_NONE,
                           wxDefaultValidator, wxASCII_STR(wxControlNameStr)))
    {
        return false;
    }
    m_Attributes = wxControl::GetDefaultAttributes();
    // Not by SetInitialSize, which would make the size that it has the minimum.
    wxSize initial = size;
    initial.SetDefaults(kLeastSize);
    SetSize(initial);
    _Init();
    return true;
}

void wxBarHistoryCtrl::_Init()
{
    m_PeakTime = Time::CurrentTime();
    SetMinSize(kLeastSize);
    LimitHistory(static_cast<uint32_t>(std::max(GetSize().x, 0)), false);
    RebuildTooltip();
}

void wxBarHistoryCtrl::Changed(bool refresh)
{
    m_Dirty = true;
    if (refresh)
    {
        Refresh(false);
    }
}

void wxBarHistoryCtrl::SetBounds(uint32_t lower, uint32_t upper, bool refresh)
{
    CALL_ENTRY("wxBarHistoryCtrl::SetBounds");
    m_Bounds->lower = lower;
    m_Bounds->upper = upper;
    Changed(refresh);
}

void wxBarHistoryCtrl::SetMidBound(uint32_t mid, bool refresh)
{
    CALL_ENTRY("wxBarHistoryCtrl::SetMidBound");
    m_Bounds->mid = mid;
    Changed(refresh);
}

void wxBarHistoryCtrl::LimitHistory(uint32_t limit, bool refresh)
{
    CALL_ENTRY("wxBarHistoryCtrl::LimitHistory");
    m_History->Limit(limit);
    Changed(refresh);
}

void wxBarHistoryCtrl::PushValue(uint32_t value)
{
    CALL_ENTRY("wxBarHistoryCtrl::PushValue");
    if (m_History->Push(value))
    {
        m_PeakTime = Time::CurrentTime();
    }
    m_Empty = false;
    Changed(true);
    RebuildTooltip();
}

void wxBarHistoryCtrl::Clear(bool refresh)
{
    CALL_ENTRY("wxBarHistoryCtrl::Clear");
    m_History->Clear();
    m_Empty = true;
    Changed(refresh);
}

void wxBarHistoryCtrl::SetTooltipText(const String& prefix, const String& suffix)
{
    CALL_ENTRY("wxBarHistoryCtrl::SetTooltipText");
    m_TooltipPrefix = prefix;
    m_TooltipSuffix = suffix;
    RebuildTooltip();
}

int wxBarHistoryCtrl::Scale(uint32_t value, uint32_t lower, uint32_t upper, int extent)
{
    return textviews::BarScale(value, lower, upper, extent);
}

String wxBarHistoryCtrl::TooltipText() const
{
    const Time sincePeak = Time::CurrentTime() - m_PeakTime;
    String     text = m_TooltipPrefix.empty() ? String() : m_TooltipPrefix + "\n";
    text += "Current:\t" + Grouped(m_History->Newest()) + "\n";
    text += "Range:\t" + Grouped(m_Bounds->lower) + " / " + Grouped(m_Bounds->mid) + " / " +
            Grouped(m_Bounds->upper) + "\n";
    text += "Peak:\t" + Grouped(m_History->Peak()) + ", " + sincePeak.FormatDuration() + " ago";
    if (!m_History->Values().empty())
    {
        text += "\nAverage:\t" + Grouped(m_History->Average());
    }
    return m_TooltipSuffix.empty() ? text : text + "\n" + m_TooltipSuffix;
}

void wxBarHistoryCtrl::RebuildTooltip()
{
    SetToolTip(wxtToWx(TooltipText()));
}

// The toolkit asks the display where the pointer is for every new tooltip, which takes as long as
// drawing the chart: it hears of them while the pointer is here.
void wxBarHistoryCtrl::DoSetToolTip(wxToolTip* tip)
{
    if (tip && !m_Entered)
    {
        wxWindowBase::DoSetToolTip(tip);
    }
    else
    {
        wxControl::DoSetToolTip(tip);
    }
}

void wxBarHistoryCtrl::ShowTooltips(bool entered)
{
    m_Entered = entered;
    const wxString text = GetToolTipText();
    if (!text.empty())
    {
        wxControl::SetToolTip(new wxToolTip(text));
    }
}

void wxBarHistoryCtrl::OnEnter(wxMouseEvent& event)
{
    event.Skip();
    ShowTooltips(true);
}

void wxBarHistoryCtrl::OnLeave(wxMouseEvent& event)
{
    event.Skip();
    ShowTooltips(false);
}

void wxBarHistoryCtrl::OnPaint(wxPaintEvent&)
{
    CALL_ENTRY("wxBarHistoryCtrl::OnPaint");
    wxPaintDC dc(this);
    if (m_Dirty || m_Bitmap.GetScaleFactor() != GetContentScaleFactor())
    {
        Render();
    }
    if (m_Bitmap.IsOk())
    {
        dc.DrawBitmap(m_Bitmap, 0, 0, false);
    }
}

// Pixels of the chart, not of the screen: on a high-resolution screen each is a square of them.
void wxBarHistoryCtrl::Render()
{
    const wxSize size = GetClientSize();
    if (size.x < 1 || size.y < 1)
    {
        return;
    }
    textviews::DrawBarChart(*m_Raster, size, m_History->Values(), m_Empty, *m_Bounds,
                            SchemeColours());
    const int  scale = std::max(1, static_cast<int>(std::lround(GetContentScaleFactor())));
    const bool fits = m_Bitmap.IsOk() && m_Bitmap.GetScaleFactor() == scale;
    if (!fits || !internal::ReplacePixels(m_Bitmap, *m_Raster, scale))
    {
        m_Bitmap = wxBitmap(internal::ImageOf(*m_Raster, scale), wxBITMAP_SCREEN_DEPTH, scale);
    }
    m_Dirty = false;
}

// The bitmap covers everything.
void wxBarHistoryCtrl::OnEraseBackground(wxEraseEvent&)
{
}

void wxBarHistoryCtrl::OnSize(wxSizeEvent& event)
{
    CALL_ENTRY("wxBarHistoryCtrl::OnSize");
    event.Skip();
    const auto width = static_cast<uint32_t>(std::max(event.GetSize().x, 0));
    LimitHistory(std::max(width, m_History->GetLimit()), false);
}

void wxBarHistoryCtrl::OnColoursChanged(wxSysColourChangedEvent& event)
{
    event.Skip();
    Changed(true);
}
