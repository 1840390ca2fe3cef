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

constexpr size_t kMostGrowth = 3; // of a text in its key: a digit, or two bytes of a letter's six

constexpr size_t kMostDigits = 0xFF; // of a number; what is longer goes on as the next number

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

void Turn(std::string& key, size_t begin, bool ascending)
{
    if (!ascending)
    {
        const auto first = key.begin() + static_cast<std::ptrdiff_t>(begin);
        std::transform(first, key.end(), first, [](char c) { return static_cast<char>(~c); });
    }
}

// The digits that start there, without the zeros before them: how many there are comes first, so
// that a longer number is a greater one. The length stands behind a digit to sort where digits do.
char* PutNumber(char* to, std::string_view text, size_t& at)
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
    *to++ = '0';
    *to++ = static_cast<char>(at - begin);
    return std::copy_n(text.data() + begin, at - begin, to);
}

// Up to the next digit.
char* PutFolded(char* to, std::string_view text, size_t& at)
{
    const size_t begin = at;
    while (at < text.size() && !IsDigit(text[at]))
    {
        ++at;
    }
    std::string folded;
    internal::AppendFolded(folded, text.substr(begin, at - begin));
    return std::copy(folded.begin(), folded.end(), to);
}
} // namespace

void AppendNaturalKey(std::string& key, std::string_view text)
{
    const size_t begin = key.size();
    key.resize(begin + text.size() * kMostGrowth);
    char* to = key.data() + begin;
    for (size_t at = 0; at < text.size();)
    {
        if (IsDigit(text[at]))
        {
            to = PutNumber(to, text, at);
        }
        else if (internal::IsAscii(text[at]))
        {
            *to++ = internal::LowerAscii(text[at++]);
        }
        else
        {
            to = PutFolded(to, text, at);
        }
    }
    key.resize(static_cast<size_t>(to - key.data()));
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

void AppendCellKey(std::string& key, double number, bool ascending)
{
    const size_t begin = key.size();
    key += kNumber;
    AppendNumberKey(key, number);
    Turn(key, begin, ascending);
}

// A text has an end that is less than any character.
void AppendCellKey(std::string& key, std::string_view text, bool ascending)
{
    const size_t begin = key.size();
    key += kText;
    AppendNaturalKey(key, text.substr(0, kMostText));
    key += '\0';
    Turn(key, begin, ascending);
}
} // namespace listviews
