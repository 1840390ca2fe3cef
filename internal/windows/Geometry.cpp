#include "internal/windows/Geometry.h"

#include <wx/display.h>
#include <wx/utils.h>
#include <wx/window.h>

#include <algorithm>
#include <cstdlib>

namespace internal
{
namespace
{
constexpr long kFarthest = 32767; // pixels; window systems count with 16 bits

bool CanBeWindow(long x, long y, long width, long height)
{
    const auto isPlace = [](long value) { return value >= -kFarthest && value <= kFarthest; };
    const auto isExtent = [](long value) { return value > 0 && value <= kFarthest; };
    return isPlace(x) && isPlace(y) && isExtent(width) && isExtent(height);
}

// The toolkit names the nearest display for a window that lies on none.
int DisplayOf(const wxWindow* window)
{
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i)
    {
        if (wxDisplay(i).GetGeometry().Intersects(window->GetScreenRect()))
        {
            return wxDisplay::GetFromWindow(window);
        }
    }
    return wxNOT_FOUND;
}

bool ProgramsPlaceWindows()
{
#if wxCHECK_VERSION(3, 1, 6)
    return wxGetDisplayInfo().type == wxDisplayX11;
#else
    return !wxGetEnv("WAYLAND_DISPLAY", nullptr);
#endif
}
} // namespace

String FormatGeometry(const wxRect& geometry)
{
    return SFormat("%d, %d, %d, %d", geometry.x, geometry.y, geometry.width, geometry.height);
}

std::optional<wxRect> ParseGeometry(const String& text)
{
    constexpr int   kNumbers = 4;
    StringTokenizer pieces(text, ",");
    long            numbers[kNumbers] = {};
    for (long& number : numbers)
    {
        if (!pieces.HasMore())
        {
            return std::nullopt;
        }
        number = std::strtol(pieces.Next().c_str(), nullptr, 10);
    }
    if (!CanBeWindow(numbers[0], numbers[1], numbers[2], numbers[3]))
    {
        return std::nullopt;
    }
    return wxRect(static_cast<int>(numbers[0]), static_cast<int>(numbers[1]),
                  static_cast<int>(numbers[2]), static_cast<int>(numbers[3]));
}

String GeometryToStore(const String& stored, const wxRect& current, bool positionKnown)
{
    wxRect                      geometry = current;
    const std::optional<wxRect> old = ParseGeometry(stored);
    if (!positionKnown && old)
    {
        geometry.SetPosition(old->GetPosition());
    }
    return FormatGeometry(geometry);
}

wxRect CentredOn(const wxRect& area, const wxSize& reference, const wxSize& size)
{
    const wxSize larger(std::max(size.x, reference.x / 2), std::max(size.y, reference.y / 2));
    return wxRect(area.x + (area.width - larger.x) / 2, area.y + (area.height - larger.y) / 2,
                  larger.x, larger.y);
}

wxRect MovedInto(const wxRect& area, const wxRect& place)
{
    const wxSize  size(std::min(place.width, area.width), std::min(place.height, area.height));
    const wxPoint last(area.x + area.width - size.x, area.y + area.height - size.y);
    return {wxPoint(std::clamp(place.x, area.x, last.x), std::clamp(place.y, area.y, last.y)),
            size};
}

Displays Displays::Real()
{
    return {DisplayOf,
            [](int index) { return wxDisplay(static_cast<unsigned>(index)).GetClientArea(); },
            ProgramsPlaceWindows};
}

Displays& Displays::Get()
{
    static Displays s_Displays = Real();
    return s_Displays;
}

wxRect DisplayAreaOf(const wxWindow* window)
{
    const Displays& displays = Displays::Get();
    const int       index = displays.indexOf(window);
    return displays.clientArea(index == wxNOT_FOUND ? 0 : index);
}
} // namespace internal
