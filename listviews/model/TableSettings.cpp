#include "listviews/model/TableSettings.h"

#include "appearance/wxTolvanColors.h"
#include "vesta/CallEntry.h"

#include <wx/dcmemory.h>
#include <wx/settings.h>

#include <algorithm>

namespace listviews
{
namespace
{
constexpr int kMeasureSide = 100; // pixels of the bitmap that text is measured on
constexpr int kSmallerByPoints = 1;
constexpr int kRowContrast = -2;
constexpr int kCellMargin = 3; // pixels
} // namespace

// Never freed: the toolkit is gone by the time that statics are destroyed.
_TableSettings& _TableSettings::Get()
{
    static auto* const s_Settings = new _TableSettings;
    return *s_Settings;
}

void _TableSettings::Init()
{
    CALL_ENTRY("_TableSettings::Init");
    _TableSettings& settings = Get();
    if (settings.useCount++ > 0)
    {
        return;
    }
    settings.font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
    settings.font.SetPointSize(settings.font.GetPointSize() - kSmallerByPoints);
    wxBitmap   bitmap(kMeasureSide, kMeasureSide, 1);
    wxMemoryDC dc(bitmap);
    dc.SetFont(settings.font);
    const wxSize size = dc.GetTextExtent("M");
    settings.charWidth = std::max(size.x, 1);
    settings.charHeight = std::max(size.y, 1);
    settings.resizeCursor = wxCursor(wxCURSOR_SIZEWE);
    settings.headerShade = wxColour(20, 18, 15);
    settings.hoverShade = wxColour(6, 5, 4);
    settings.hoverTextShade = wxColour(10, 9, 8);
    settings.highlightShade = wxColour(9, 9, 10);
    settings.rowContrast = kRowContrast;
    settings.cellMargin = kCellMargin;
}

wxColour Shaded(const wxColour& colour, const wxColour& shade)
{
    return OffsetColor(colour, shade.Red(), shade.Green(), shade.Blue());
}

wxColour StripeColour(int row)
{
    const int offset = row % 2 ? _TableSettings::Get().rowContrast : 0;
    return OffsetColor(wxtGetColor(color_WindowBGDarker), offset, offset, offset);
}
} // namespace listviews
