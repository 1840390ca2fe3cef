#include "appearance/controls/Mnemonic.h"

#include <wx/control.h>
#include <wx/dc.h>
#include <wx/dcmemory.h>

namespace appearance
{
namespace
{
constexpr int kUnderline = 1; // pixels
} // namespace

MnemonicLabel::MnemonicLabel(const wxString& label) : index(wxControl::FindAccelIndex(label, &text))
{
    if (index >= 0)
    {
        key = wxToupper(text[static_cast<size_t>(index)]);
    }
}

void MnemonicLabel::Draw(wxDC& dc, const wxPoint& position, int maxWidth) const
{
    const bool     fits = dc.GetMultiLineTextExtent(text).x <= maxWidth;
    const wxString shown =
        fits ? text : wxControl::Ellipsize(text, dc, wxELLIPSIZE_END, std::max(maxWidth, 0));
    dc.DrawText(shown, position);
    const auto end = static_cast<size_t>(index + 1);
    if (index < 0 || shown.length() < end || shown[end - 1] != text[end - 1])
    {
        return;
    }
    const int    before = dc.GetTextExtent(shown.Left(end - 1)).x;
    const wxSize through = dc.GetTextExtent(shown.Left(end));
    // A filled rectangle: a line would come out blurred.
    const wxDCBrushChanger brush(dc, wxBrush(dc.GetTextForeground()));
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    dc.DrawRectangle(position.x + before, position.y + through.y - kUnderline, through.x - before,
                     kUnderline);
}

bool IsMnemonicOf(const wxWindow& window, const wxKeyEvent& event)
{
    if (event.GetModifiers() != wxMOD_ALT || !window.IsShownOnScreen() || !window.IsEnabled())
    {
        return false;
    }
    const wxUniChar key = MnemonicLabel(window.GetLabel()).key;
    return key != 0 && wxToupper(wxUniChar(event.GetUnicodeKey())) == key;
}
} // namespace appearance
