#include "internal/text/OneLine.h"

#include <algorithm>

namespace internal
{
namespace
{
constexpr wxUint32 kDelete = 0x7F;
constexpr wxUint32 kLastControl = 0x9F; // of those above ASCII
constexpr wxUint32 kLineSeparator = 0x2028;
constexpr wxUint32 kParagraphSeparator = 0x2029;
constexpr wxUint32 kEllipsis = 0x2026;

bool IsControl(const wxUniChar& character)
{
    const wxUint32 code = character.GetValue();
    return code < ' ' || (code >= kDelete && code <= kLastControl) || code == kLineSeparator ||
           code == kParagraphSeparator;
}
} // namespace

wxString OneLine(wxString text)
{
    std::replace_if(text.begin(), text.end(), IsControl, wxUniChar(' '));
    return text;
}

wxString Shortened(wxString text, size_t most)
{
    if (text.length() > most)
    {
        text.Truncate(most) += wxUniChar(kEllipsis);
    }
    return text;
}
} // namespace internal
