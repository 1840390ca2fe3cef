#include "jobwidgets/items/ItemText.h"

#include "appearance/wxTolvanString.h"
#include "internal/text/OneLine.h"

#include <wx/control.h>

#include <algorithm>

namespace jobwidgets
{
namespace
{
constexpr size_t kMostLabel = 100; // characters: a menu must not be wider than the screen
constexpr size_t kMostBytes = 4;   // of a character
} // namespace

wxString Shortened(const String& text, size_t most)
{
    // What is cut away anyway is not even converted.
    const size_t bytes = std::min(text.size(), (most + 1) * kMostBytes);
    wxString     shortened = internal::Shortened(wxtToWx(text.data(), bytes), most);
    std::replace(shortened.begin(), shortened.end(), wxUniChar(0), wxUniChar(' '));
    return shortened;
}

wxString OneLine(const String& text, size_t most)
{
    return internal::OneLine(Shortened(text, most));
}

wxString MenuLabel(const String& text)
{
    const wxString label = wxControl::EscapeMnemonics(OneLine(text, kMostLabel));
    return label.empty() ? wxString(" ") : label; // the toolkit takes no empty label
}
} // namespace jobwidgets
