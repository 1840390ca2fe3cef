#pragma once

class wxWindow;
class wxtColorManaged;

namespace appearance
{
/// What the input controls have in common.

/// Gives a managed control the colours of a field, whatever its parent's are, and shows them.
void UseInputColors(wxtColorManaged& control);
/// Shows the colours of the scheme where a text field has more than those of its text and ground:
/// its hint, what is selected, the frame of the focus, the list of completions. `framed`: not by
/// what it lies in.
void ColourField(wxWindow& field, bool framed = true);
/// Does so now, whenever the scheme changes, and when the field is enabled or disabled.
void KeepFieldColoured(wxWindow& field, bool framed = true);
} // namespace appearance
