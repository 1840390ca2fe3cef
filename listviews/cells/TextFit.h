#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace listviews
{
/// Shortening of texts that are wider than the room for them: an ellipsis stands for characters in
/// the middle, as few as will do, so that start and end stay visible. The first shortened form goes
/// without four characters, each further one without one more, down to four characters in all.

struct Fitted
{
    std::wstring text;
    int          width = 0; ///< Pixels; more than there was room for when even the last form is.
};

/// The text without the bytes in its middle that never show where there are so many pixels: what
/// is fitted instead of a very long UTF-8 text.
std::string WithoutHidden(std::string text, int available);

/// The text without `cut` characters of its middle; 0 gives the text itself.
std::wstring WithoutMiddle(const std::wstring& text, size_t cut);

/// Fits a text whose width only `measure` can tell. It is asked a few times, about as often as the
/// length of the text has binary digits.
Fitted FitMeasured(const std::wstring& text, int available,
                   const std::function<int(const std::wstring&)>& measure);

/// Fits a text whose characters stand side by side: `ends` says where each of them ends (pixels),
/// `step` what one adds behind another. None when `step` gives NaN for a pair that is needed.
std::optional<Fitted> FitRun(const std::wstring& text, const std::vector<double>& ends,
                             int available, const std::function<double(wchar_t, wchar_t)>& step);
} // namespace listviews
