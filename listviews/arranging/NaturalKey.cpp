#include "listviews/arranging/NaturalKey.h"

#include "internal/text/Folding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace listviews
{
namespace
{
constexpr size_t kMostText = 512; // bytes of a text that count

// What a key of a cell begins with.
constexpr char kNumber = 1;
constexpr char kText = 2;

constexpr size_t kMostDigits = 0xFF; // of a number; what is longer goes on as the next number

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The digits that start there, without the zeros before them: how many there are comes first, so
// that a longer number is a greater one. The length stands behind a digit to sort where digits do.
size_t AppendNumber(std::string& key, std::string_view text, size_t at)
{
    while (at + 1 < text.size() && text[at] == '0' && IsDigit(text[at + 1]))
    {
        ++at;
    }
    const size_t begin = at;
    while (at < text.size() && IsDigit(text[at]) && at - begin < kMostDigits)
    {
        ++at;
    }
    key += '0';
    key += static_cast<char>(at - begin);
    key.append(text.substr(begin, at - begin));
    return at;
}
} // namespace

void AppendNaturalKey(std::string& key, std::string_view text)
{
    for (size_t at = 0; at < text.size();)
    {
        if (IsDigit(text[at]))
        {
            at = AppendNumber(key, text, at);
            continue;
        }
        const size_t end = static_cast<size_t>(
            std::find_if(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), IsDigit) -
            text.begin());
        internal::AppendFolded(key, text.substr(at, end - at));
        at = end;
    }
}

void AppendNumberKey(std::string& key, double number)
{
    uint64_t bits = UINT64_MAX;
    if (!std::isnan(number))
    {
        const double plain = number == 0 ? 0.0 : number; // there is one zero
        std::memcpy(&bits, &plain, sizeof(bits));
        // Negative numbers stand before the others, the farther from zero the earlier.
        bits = bits >> 63 ? ~bits : bits | (uint64_t{1} << 63);
    }
    for (int shift = 56; shift >= 0; shift -= 8)
    {
        key += static_cast<char>(bits >> shift);
    }
}

// A text has an end that is less than any character.
void AppendCellKey(std::string& key, const std::optional<double>& number,
                   const std::function<String()>& text, bool ascending)
{
    const size_t begin = key.size();
    if (number)
    {
        key += kNumber;
        AppendNumberKey(key, *number);
    }
    else
    {
        const String whole = text();
        key += kText;
        AppendNaturalKey(key, std::string_view(whole).substr(0, kMostText));
        key += '\0';
    }
    if (!ascending)
    {
        const auto first = key.begin() + static_cast<std::ptrdiff_t>(begin);
        std::transform(first, key.end(), first, [](char c) { return static_cast<char>(~c); });
    }
}
} // namespace listviews
