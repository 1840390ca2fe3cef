#include "textviews/search/SearchField.h"

#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"

namespace textviews
{
namespace
{
constexpr double kGroundShare = 0.6; // of the field's colour; the rest is red
} // namespace

SearchField::SearchField(wxWindow* parent, int width)
    : wxtTextCtrl(parent, wxID_ANY, wxEmptyString, wxDefaultPosition, wxSize(width, -1),
                  wxTE_PROCESS_ENTER)
{
    AutoComplete(nullptr); // it is lines of text that are looked for
}

void SearchField::ShowNoHit(bool noHit)
{
    if (noHit != m_NoHit)
    {
        m_NoHit = noHit;
        RefreshColors();
    }
}

wxColour SearchField::GroundFor(const wxColour& ground) const
{
    return internal::MixColours(ground, wxtGetColor(color_TextRed), kGroundShare);
}

// The field has its former background still.
bool SearchField::SetForegroundColour(const wxColour& colour)
{
    return wxtTextCtrl::SetForegroundColour(
        m_NoHit ? wxtReadableColor(colour, GroundFor(wxtGetColor(m_BackgroundName))) : colour);
}

bool SearchField::SetBackgroundColour(const wxColour& colour)
{
    return wxtTextCtrl::SetBackgroundColour(m_NoHit ? GroundFor(colour) : colour);
}
} // namespace textviews
