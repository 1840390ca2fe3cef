#include "dialogs/progress/TimeLeft.h"

#include <wx/intl.h>

#include <algorithm>

namespace dialogs
{
namespace
{
constexpr long   kEarliestMs = 2000;
constexpr double kEarliestShare = 0.02;

constexpr long kSecond = 1000; // milliseconds
constexpr long kMinute = 60 * kSecond;
constexpr long kHour = 60 * kMinute;
constexpr long kSecondStep = 5; // seconds: less would only flicker

long Rounded(long ms, long unit)
{
    return (ms + unit / 2) / unit;
}
} // namespace

long TimeLeft(long elapsedMs, int done, int total)
{
    const double share = total > 0 ? std::min(1.0, double(done) / total) : 0;
    if (elapsedMs < kEarliestMs || share < kEarliestShare)
    {
        return -1;
    }
    return static_cast<long>(static_cast<double>(elapsedMs) * (1 - share) / share);
}

wxString TimeLeftText(long ms)
{
    if (ms < 0)
    {
        return wxString();
    }
    if (ms < kMinute)
    {
        const long seconds = kSecondStep * std::max(1L, Rounded(ms, kSecondStep * kSecond));
        return wxString::Format(wxGetTranslation("About %ld seconds left"), seconds);
    }
    const bool inHours = ms >= 2 * kHour;
    const long count = Rounded(ms, inHours ? kHour : kMinute);
    return wxString::Format(inHours      ? wxGetTranslation("About %ld hours left")
                            : count == 1 ? wxGetTranslation("About a minute left")
                                         : wxGetTranslation("About %ld minutes left"),
                            count);
}
} // namespace dialogs
