#include "textviews/escapes/EscapeSequence.h"

#include <algorithm>

namespace textviews
{
namespace
{
// Bytes. What is longer was never meant for a terminal, or has lost its end.
constexpr size_t kLongestControl = 128;
constexpr size_t kLongestText = 4096;

constexpr char kBell = '\a';

using Kind = EscapeSequence::Kind;

bool IsBetween(char c, char first, char last)
{
    return c >= first && c <= last;
}

bool IsPrivate(std::string_view parameters)
{
    return !parameters.empty() && IsBetween(parameters[0], '<', '?');
}

Kind KindOf(char last, std::string_view parameters)
{
    const auto isOneOf = [parameters](std::initializer_list<std::string_view> known)
    { return std::find(known.begin(), known.end(), parameters) != known.end(); };
    switch (last)
    {
    case 'm':
        return IsPrivate(parameters) ? Kind::Other : Kind::Style;
    case 'K':
        return isOneOf({"", "0", "1", "2"}) ? Kind::Erase : Kind::Other;
    case 'G':
        return isOneOf({"", "0", "1"}) ? Kind::ToStart : Kind::Other;
    default:
        return Kind::Other;
    }
}

// "ESC [", parameters, bytes between, a last one.
EscapeSequence ReadControl(std::string_view text)
{
    constexpr size_t kIntroducer = 2;
    text = text.substr(0, kLongestControl);
    size_t at = kIntroducer;
    while (at < text.size() && IsBetween(text[at], '0', '?'))
    {
        ++at;
    }
    const std::string_view parameters = text.substr(kIntroducer, at - kIntroducer);
    const size_t           between = at;
    while (at < text.size() && IsBetween(text[at], ' ', '/'))
    {
        ++at;
    }
    if (at == text.size() || !IsBetween(text[at], '@', '~'))
    {
        return {};
    }
    return {at == between ? KindOf(text[at], parameters) : Kind::Other, at + 1, parameters};
}

// "ESC ]", a text, and BEL or "ESC \" at its end: a title, the address of a link.
EscapeSequence ReadText(std::string_view text)
{
    text = text.substr(0, kLongestText);
    for (size_t at = 2; at < text.size(); ++at)
    {
        if (text[at] == kBell)
        {
            return {Kind::Other, at + 1, {}};
        }
        if (text[at] == k_Escape && at + 1 < text.size() && text[at + 1] == '\\')
        {
            return {Kind::Other, at + 2, {}};
        }
        if (static_cast<unsigned char>(text[at]) < ' ' || text[at] == '\x7f')
        {
            return {};
        }
    }
    return {};
}
} // namespace

EscapeSequence ReadEscapeSequence(std::string_view line, size_t at)
{
    const std::string_view text = line.substr(at);
    if (text.size() < 2)
    {
        return {};
    }
    switch (text[1])
    {
    case '[':
        return ReadControl(text);
    case ']':
        return ReadText(text);
    case '(':
    case ')': // another set of characters, which programs name where they reset the style
        return text.size() > 2 && IsBetween(text[2], '0', '~') ? EscapeSequence{Kind::Other, 3, {}}
                                                               : EscapeSequence();
    case '7':
    case '8': // the cursor is kept and brought back
    case '=':
    case '>': // what the number pad sends
        return {Kind::Other, 2, {}};
    default:
        return {};
    }
}
} // namespace textviews
