#include "textviews/jumps/LineTarget.h"

#include <algorithm>
#include <charconv>

namespace textviews
{
namespace
{
constexpr int64_t kWhole = 100; // per cent

std::string_view Trimmed(std::string_view text)
{
    const size_t first = text.find_first_not_of(" \t");
    const size_t last = text.find_last_not_of(" \t");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, last - first + 1);
}

// Digits and nothing else.
std::optional<int64_t> Number(std::string_view text)
{
    int64_t           number = 0;
    const char* const end = text.data() + text.size();
    const auto        parsed = std::from_chars(text.data(), end, number);
    if (text.empty() || text.front() == '-' || parsed.ptr != end || parsed.ec != std::errc())
    {
        return {};
    }
    return number;
}

// As far down (up) as there are lines, whatever was asked for.
int64_t Moved(int64_t by, bool isDown, const NumberedLines& lines)
{
    return isDown ? lines.current + std::min(by, lines.last - lines.current)
                  : lines.current - std::min(by, lines.current - lines.first);
}

std::optional<int64_t> Within(int64_t number, int64_t least, int64_t most)
{
    return number >= least && number <= most ? std::optional<int64_t>(number) : std::nullopt;
}
} // namespace

std::optional<int64_t> LineAskedFor(std::string_view text, const NumberedLines& lines)
{
    text = Trimmed(text);
    if (text.empty() || lines.last < lines.first)
    {
        return {};
    }
    const bool isMove = text.front() == '+' || text.front() == '-';
    const bool isShare = !isMove && text.back() == '%';
    const auto number =
        Number(isMove ? Trimmed(text.substr(1))
                      : (isShare ? Trimmed(text.substr(0, text.size() - 1)) : text));
    if (!number)
    {
        return {};
    }
    if (isMove)
    {
        return Moved(*number, text.front() == '+', lines);
    }
    if (isShare)
    {
        return Within(*number, 0, kWhole)
                   ? std::optional<int64_t>(lines.first +
                                            (lines.last - lines.first) * *number / kWhole)
                   : std::nullopt;
    }
    return Within(*number, lines.first, lines.last);
}
} // namespace textviews
