#pragma once

#include "appearance/wxtStockControls.h"

namespace appearance
{
/// The caption of an expandable panel: a click on it sends the command of the panel's button.
class _ClickStatic : public wxtStaticText
{
public:
    _ClickStatic(wxWindow* parent, wxWindowID id, const wxString& label);

private:
    void OnClick(wxMouseEvent& event);
};
} // namespace appearance
