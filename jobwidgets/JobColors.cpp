#include "jobwidgets/JobColors.h"

#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"
#include "tolvan/Job.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>

#include <algorithm>

namespace
{
constexpr double kBarShare = 0.5; // of the bar's colour; the rest is its frame's
} // namespace

const String& wxtJobStateColor(const String& state)
{
    if (state == state_Running)
    {
        return color_TextGreen;
    }
    if (state == state_Failed)
    {
        return color_TextRed;
    }
    return state == state_Killed || state == state_Suspended ? color_TextOrange : color_Text;
}

const String& wxtJobBarColor(const String& state)
{
    if (state == state_Failed || state == state_Killed)
    {
        return color_TextDarkRed;
    }
    if (state == state_Suspended)
    {
        return color_TextDarkOrange;
    }
    return state == state_Done ? color_TextDarkBlue : color_TextDarkGreen;
}

void wxtDrawJobProgress(wxDC& dc, const wxRect& rect, const String& state, int percent)
{
    CALL_ENTRY("wxtDrawJobProgress");
    const wxColour frame = wxtGetColor(color_WindowBGLighter);
    const wxColour full = internal::MadeReadable(
        internal::MixColours(wxtGetColor(wxtJobBarColor(state)), frame, kBarShare),
        wxtGetColor(color_Text));
    if (!full.IsOk() || rect.width < 1 || rect.height < 1)
    {
        return;
    }
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    const wxDCBrushChanger brush(dc, wxBrush(frame));
    dc.DrawRectangle(rect);
    dc.SetBrush(wxBrush(full));
    dc.DrawRectangle(rect.x, rect.y, rect.width * std::clamp(percent, 0, 100) / 100, rect.height);
}
