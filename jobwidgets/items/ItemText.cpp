#include "jobwidgets/items/ItemText.h"

#include "appearance/wxTolvanString.h"

#include <wx/control.h>

#include <algorithm>

namespace jobwidgets
{
namespace
{
constexpr size_t   kMostLabel = 100; // characters: a menu must not be wider than the screen
constexpr size_t   kMostBytes = 4;   // of a character
constexpr wxUint32 kDelete = 0x7F;
constexpr wxUint32 kLastControl = 0x9F; // of those above ASCII
constexpr wxUint32 kLineSeparator = 0x2028;
constexpr wxUint32 kParagraphSeparator = 0x2029;
constexpr wxUint32 kEllipsis = 0x2026;

// Line ends among them.
bool IsControl(const wxUniChar& character)
{
    const wxUint32 code = character.GetValue();
    return code < ' ' || (code >= kDelete && code <= kLastControl) || code == kLineSeparator ||
           code == kParagraphSeparator;
}
} // namespace

wxString Shortened(const String& text, size_t most)
{
    // What is cut away anyway is not even converted.
    wxString shortened = wxtToWx(text.data(), std::min(text.size(), (most + 1) * kMostBytes));
    if (shortened.length() > most)
    {
        shortened.Truncate(most) += wxUniChar(kEllipsis);
    }
    std::replace(shortened.begin(), shortened.end(), wxUniChar(0), wxUniChar(' '));
    return shortened;
}

wxString OneLine(const String& text, size_t most)
{
    wxString line = Shortened(text, most);
    std::replace_if(line.begin(), line.end(), IsControl, wxUniChar(' '));
    return line;
}

wxString MenuLabel(const String& text)
{
    const wxString label = wxControl::EscapeMnemonics(OneLine(text, kMostLabel));
    return label.empty() ? wxString(" ") : label; // the toolkit takes no empty label
}
} // namespace jobwidgets
