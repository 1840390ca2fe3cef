#include "listviews/cells/TextFit.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

namespace listviews
{
namespace
{
constexpr size_t  kFirstCut = 4; // characters
constexpr size_t  kShortest = 5; // characters of a form that may be shortened further
constexpr wchar_t kEllipsis[] = L"...";
constexpr int     kMarksPerPixel = 8;    // characters that a pixel of any script can hold
constexpr size_t  kLettersPerPixel = 4;  // of those that stand side by side
constexpr size_t  kLongestCharacter = 4; // bytes
constexpr size_t  kMostBytesPerPixel = kMarksPerPixel * kLongestCharacter;
constexpr int     kKerningSlack = 16; // pixels that kerning may make a form wider by

// Characters before the ellipsis.
size_t HeadLength(size_t length, size_t cut)
{
    return (length - cut) / 2 + 1;
}

size_t LastCut(const std::wstring& text)
{
    return text.size() - 1;
}

// Those that take room of their own.
size_t SpacingCount(const std::wstring& text)
{
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](wchar_t c) { return wcwidth(c) > 0; }));
}

// The first cut that leaves no more than so many characters with room of their own: longer forms
// need not be measured to be known as too wide.
size_t FirstPossibleCut(const std::wstring& text, int available)
{
    const size_t most = static_cast<size_t>(std::max(available, 0) + 1) * kMarksPerPixel;
    const size_t spacing = text.size() > most ? SpacingCount(text) : 0;
    return std::clamp(spacing > most ? spacing - most : 0, kFirstCut, LastCut(text));
}
// A byte of a character that has begun before.
bool GoesOn(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}
} // namespace

std::string WithoutHidden(std::string text, int available)
{
    const size_t most = static_cast<size_t>(std::max(available, 0) + 1) * kMostBytesPerPixel;
    if (text.size() / 2 <= most + kLongestCharacter)
    {
        return text;
    }
    size_t head = most;
    size_t tail = text.size() - most;
    for (size_t i = 1; i < kLongestCharacter; ++i)
    {
        head -= GoesOn(text[head]) ? 1 : 0;
        tail += GoesOn(text[tail]) ? 1 : 0;
    }
    return text.erase(head, tail - head);
}

std::wstring WithoutMiddle(const std::wstring& text, size_t cut)
{
    if (cut == 0)
    {
        return text;
    }
    const size_t head = HeadLength(text.size(), cut);
    return text.substr(0, head) + kEllipsis + text.substr(std::min(head + cut, text.size()));
}

Fitted FitMeasured(const std::wstring& text, int available,
                   const std::function<int(const std::wstring&)>& measure)
{
    const auto form = [&](size_t cut)
    {
        Fitted fitted{WithoutMiddle(text, cut), 0};
        fitted.width = measure(fitted.text);
        return fitted;
    };
    const bool canBeCut = text.size() >= kShortest;
    const bool hopeless = canBeCut && FirstPossibleCut(text, available) > kFirstCut;
    Fitted     whole = hopeless ? Fitted() : form(0);
    if (!canBeCut || (!hopeless && whole.width <= available))
    {
        return whole;
    }
    size_t low = FirstPossibleCut(text, available);
    size_t high = LastCut(text);
    Fitted best = form(high);
    if (best.width > available)
    {
        // Unless kerning makes the last form wider than the one before it.
        low = high;
    }
    while (low < high)
    {
        const size_t middle = low + (high - low) / 2;
        Fitted       tried = form(middle);
        if (tried.width <= available)
        {
            best = std::move(tried);
            high = middle;
        }
        else
        {
            low = middle + 1;
        }
    }
    // Each form is the one before it less a character, so widths fall; only where the characters
    // that come to stand beside the ellipsis are kerned differently may one rise a little. Forms
    // before the found one that miss by no more than that are looked at as well.
    for (size_t cut = high; cut > kFirstCut;)
    {
        Fitted tried = form(--cut);
        if (tried.width > available + kKerningSlack)
        {
            break;
        }
        if (tried.width <= available)
        {
            best = std::move(tried);
        }
    }
    return best;
}

std::optional<Fitted> FitRun(const std::wstring& text, const std::vector<double>& ends,
                             int available, const std::function<double(wchar_t, wchar_t)>& step)
{
    const auto pixels = [](double width) { return static_cast<int>(std::lround(width)); };
    const int  whole = pixels(ends.empty() ? 0 : ends.back());
    if (whole <= available || text.size() < kShortest)
    {
        return Fitted{text, whole};
    }
    // However tightly kerned, a pixel holds no more than a few characters.
    const auto   room = static_cast<size_t>(std::max(available, 0)) * kLettersPerPixel;
    const size_t length = text.size();
    size_t       cut = std::max(kFirstCut, length + 3 > room ? length + 3 - room : 0);
    cut = std::min(cut, LastCut(text));
    const double dots = 2 * step(L'.', L'.');
    double       width = 0;
    for (;; ++cut)
    {
        const size_t head = HeadLength(length, cut);
        const size_t tail = head + cut;
        width = ends[head - 1] + step(text[head - 1], L'.') + dots;
        if (tail < length)
        {
            // The tail's first character follows the ellipsis now.
            width += step(L'.', text[tail]) + ends.back() - ends[tail];
        }
        if (std::isnan(width))
        {
            return std::nullopt;
        }
        if (pixels(width) <= available || cut >= LastCut(text))
        {
            return Fitted{WithoutMiddle(text, cut), pixels(width)};
        }
    }
}
} // namespace listviews
