#include "appearance/wxtStockControls.h"

wxtBitmapButton::wxtBitmapButton(wxWindow* parent, wxWindowID id, const wxBitmapBundle& bitmap,
                                 const wxPoint& position, const wxSize& size, long style,
                                 const wxValidator& validator, const wxString& name)
    : wxBitmapButton(parent, id, bitmap, position, size, style, validator, name),
      wxtColorManaged(this)
{
}

wxtStaticText::wxtStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                             const wxPoint& position, const wxSize& size, long style,
                             const wxString& name)
    : wxStaticText(parent, id, label, position, size, style, name), wxtColorManaged(this)
{
}
