#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/bmpbuttn.h>
#include <wx/stattext.h>

/// The stock bitmap button in the colours of the scheme. Main thread.
class TOLVAN_API wxtBitmapButton : public wxBitmapButton, public wxtColorManaged
{
public:
    wxtBitmapButton(wxWindow* parent, wxWindowID id, const wxBitmapBundle& bitmap,
                    const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                    long style = 0, const wxValidator& validator = wxDefaultValidator,
                    const wxString& name = wxASCII_STR(wxButtonNameStr));
};

/// The stock static text in the colours of the scheme. Main thread.
class TOLVAN_API wxtStaticText : public wxStaticText, public wxtColorManaged
{
public:
    wxtStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                  const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                  long style = 0, const wxString& name = wxASCII_STR(wxStaticTextNameStr));
};
