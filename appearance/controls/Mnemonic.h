#pragma once

#include <wx/event.h>
#include <wx/string.h>

class wxDC;
class wxWindow;

namespace appearance
{
/// A label as it is drawn: without the "&" that marks its mnemonic.
struct MnemonicLabel
{
    explicit MnemonicLabel(const wxString& label);

    wxString  text;
    int       index = -1; ///< Character of `text` that is the mnemonic, or -1.
    wxUniChar key = 0;    ///< That character in upper case, or 0.

    /// Draws the text with its top left there, the mnemonic underlined, in the DC's font and text
    /// colour. Cut short with an ellipsis beyond `maxWidth` pixels.
    void Draw(wxDC& dc, const wxPoint& position, int maxWidth) const;
};

/// Whether the key press is Alt with the mnemonic of the window's label, and the window could take
/// it: shown, enabled and in the active window.
bool IsMnemonicOf(const wxWindow& window, const wxKeyEvent& event);
} // namespace appearance
