#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/bmpbuttn.h>
#include <wx/stattext.h>

/// The stock bitmap button in the colours of the scheme. While it has the focus, its background is
/// the colour of that. Main thread.
class TOLVAN_API wxtBitmapButton : public wxBitmapButton, public wxtColorManaged
{
public:
    wxtBitmapButton(wxWindow* parent, wxWindowID id, const wxBitmapBundle& bitmap,
                    const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                    long style = 0, const wxValidator& validator = wxDefaultValidator,
                    const wxString& name = wxASCII_STR(wxButtonNameStr));

private:
    void OnFocus(wxFocusEvent& event);
    void OnScheme(wxSysColourChangedEvent& event);
    void ShowFocus();

    bool   m_ShowsFocus = false;
    String m_OwnName; ///< Of the background without the focus.
    int    m_OwnOffset = 0;
};

/// The stock static text in the colours of the scheme. Main thread.
class TOLVAN_API wxtStaticText : public wxStaticText, public wxtColorManaged
{
public:
    wxtStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                  const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                  long style = 0, const wxString& name = wxASCII_STR(wxStaticTextNameStr));

    /// From now on the colour of the enabled text is made lighter or darker where it could not be
    /// read on its background (4.5 to 1). For a text in a colour of its own.
    void KeepReadable();
    bool SetForegroundColour(const wxColour& colour) override;

private:
    bool m_KeepsReadable = false;
};
