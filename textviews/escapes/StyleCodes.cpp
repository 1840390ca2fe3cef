#include "textviews/escapes/StyleCodes.h"

#include <algorithm>
#include <array>

namespace textviews
{
namespace
{
constexpr int kNothing = -1;
constexpr int kWrong = -2;
constexpr int kMostNumber = 9999;
constexpr int kMostParts = 8; // of one code, between colons

// The number at the start of the text, which is cut off there; `kNothing` where there is none.
int TakeNumber(std::string_view& text)
{
    int    number = kNothing;
    size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits)
    {
        number = std::min(std::max(number, 0) * 10 + (text[digits] - '0'), kMostNumber);
    }
    text.remove_prefix(digits);
    return number;
}

/// A code with what follows it behind colons.
struct Code
{
    std::array<int, kMostParts> parts{};
    int                         count = 0; ///< 0: it is wrong.

    int Part(int index) const { return index < count ? parts[static_cast<size_t>(index)] : kWrong; }
};

/// The codes of a sequence, one after the other.
class _Codes
{
public:
    explicit _Codes(std::string_view text) : m_Text(text) {}

    bool IsAtEnd() const { return m_IsAtEnd; }
    /// Valid until the next call.
    const Code& Next()
    {
        m_Code.count = 0;
        bool goesOn = true;
        while (goesOn)
        {
            if (m_Code.count == kMostParts)
            {
                return Wrong();
            }
            m_Code.parts[static_cast<size_t>(m_Code.count++)] = TakeNumber(m_Text);
            goesOn = TakeOne(':');
        }
        m_IsAtEnd = m_Text.empty();
        return m_IsAtEnd || TakeOne(';') ? m_Code : Wrong();
    }
    /// Of a code that stands for itself.
    int NextNumber()
    {
        const Code& code = m_IsAtEnd ? Wrong() : Next();
        return code.count == 1 ? std::max(code.parts[0], 0) : kWrong;
    }

private:
    const Code& Wrong()
    {
        m_Code.count = 0;
        return m_Code;
    }
    bool TakeOne(char wanted)
    {
        const bool isThere = !m_Text.empty() && m_Text[0] == wanted;
        m_Text.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    std::string_view m_Text;
    Code             m_Code;
    bool             m_IsAtEnd = false;
};

bool IsChannel(int number)
{
    return number >= 0 && number <= 255;
}

bool MakeTable(int index, TextColour& colour)
{
    if (!IsChannel(index))
    {
        return false;
    }
    colour = {TextColour::Kind::Table, static_cast<uint8_t>(index), 0, 0};
    return true;
}

bool MakeDirect(int red, int green, int blue, TextColour& colour)
{
    if (!IsChannel(red) || !IsChannel(green) || !IsChannel(blue))
    {
        return false;
    }
    colour = {TextColour::Kind::Direct, static_cast<uint8_t>(red), static_cast<uint8_t>(green),
              static_cast<uint8_t>(blue)};
    return true;
}

// "38:5:n", "38:2:r:g:b", and with the number of a colour space, which is mostly left empty,
// "38:2:s:r:g:b".
bool ColourWithin(const Code& code, TextColour& colour)
{
    constexpr int kWithoutSpace = 5; // parts
    const int     first = code.count > kWithoutSpace ? 3 : 2;
    switch (code.Part(1))
    {
    case 5:
        return MakeTable(code.Part(2), colour);
    case 2:
        return MakeDirect(code.Part(first), code.Part(first + 1), code.Part(first + 2), colour);
    default:
        return false;
    }
}

// "38;5;n", "38;2;r;g;b".
bool ColourBehind(_Codes& codes, TextColour& colour)
{
    switch (codes.NextNumber())
    {
    case 5:
        return MakeTable(codes.NextNumber(), colour);
    case 2:
    {
        const int red = codes.NextNumber();
        const int green = codes.NextNumber();
        return MakeDirect(red, green, codes.NextNumber(), colour);
    }
    default:
        return false;
    }
}

bool TakeColour(const Code& code, _Codes& codes, TextColour& colour)
{
    return code.count > 1 ? ColourWithin(code, colour) : ColourBehind(codes, colour);
}

TextColour Table(int index)
{
    TextColour colour;
    MakeTable(index, colour);
    return colour;
}

// One of eight; the table has eight brighter ones behind those.
bool ApplyNamedColour(int code, TextStyle& style)
{
    struct
    {
        int        first;
        int        index;
        TextColour TextStyle::*colour;
    } constexpr kRows[] = {{30, 0, &TextStyle::ink},
                           {40, 0, &TextStyle::ground},
                           {90, 8, &TextStyle::ink},
                           {100, 8, &TextStyle::ground}};
    for (const auto& row : kRows)
    {
        if (code >= row.first && code < row.first + 8)
        {
            style.*row.colour = Table(row.index + code - row.first);
            return true;
        }
    }
    return false;
}

void ApplySwitch(const Code& code, TextStyle& style)
{
    switch (code.parts[0])
    {
    case kNothing:
    case 0:
        style = TextStyle();
        break;
    case 1:
        style.bold = true;
        break;
    case 4:
        style.underlined = code.Part(1) != 0; // the kinds of lines are one
        break;
    case 21: // two lines
        style.underlined = true;
        break;
    case 7:
        style.inverse = true;
        break;
    case 22:
        style.bold = false;
        break;
    case 24:
        style.underlined = false;
        break;
    case 27:
        style.inverse = false;
        break;
    case 39:
        style.ink = TextColour();
        break;
    case 49:
        style.ground = TextColour();
        break;
    default:
        break;
    }
}

bool Apply(const Code& code, _Codes& codes, TextStyle& style)
{
    TextColour ignored;
    switch (code.Part(0))
    {
    case kWrong:
        return false;
    case 38:
        return TakeColour(code, codes, style.ink);
    case 48:
        return TakeColour(code, codes, style.ground);
    case 58: // of the line below
        return TakeColour(code, codes, ignored);
    default:
        if (!ApplyNamedColour(code.parts[0], style))
        {
            ApplySwitch(code, style);
        }
        return true;
    }
}
} // namespace

bool ApplyStyleCodes(std::string_view numbers, TextStyle& style)
{
    if (numbers.empty() || numbers == "0") // half of all
    {
        style = TextStyle();
        return true;
    }
    TextStyle changed = style;
    _Codes    codes(numbers);
    while (!codes.IsAtEnd())
    {
        if (!Apply(codes.Next(), codes, changed))
        {
            return false;
        }
    }
    style = changed;
    return true;
}
} // namespace textviews
