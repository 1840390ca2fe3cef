#include "appearance/wxtStockControls.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "vesta/CallEntry.h"

wxtBitmapButton::wxtBitmapButton(wxWindow* parent, wxWindowID id, const wxBitmapBundle& bitmap,
                                 const wxPoint& position, const wxSize& size, long style,
                                 const wxValidator& validator, const wxString& name)
    : wxBitmapButton(parent, id, bitmap, position, size, style, validator, name),
      wxtColorManaged(this)
{
    Bind(wxEVT_SET_FOCUS, &wxtBitmapButton::OnFocus, this);
    Bind(wxEVT_KILL_FOCUS, &wxtBitmapButton::OnFocus, this);
    Bind(wxEVT_SYS_COLOUR_CHANGED, &wxtBitmapButton::OnScheme, this);
}

// The port draws the button, and without a border hardly shows that it has the focus.
void wxtBitmapButton::OnFocus(wxFocusEvent& event)
{
    CALL_ENTRY("wxtBitmapButton::OnFocus");
    event.Skip();
    const bool hasFocus = event.GetEventType() == wxEVT_SET_FOCUS;
    if (IsBeingDeleted() || hasFocus == m_ShowsFocus)
    {
        return;
    }
    m_ShowsFocus = hasFocus;
    if (hasFocus)
    {
        m_OwnName = m_BackgroundName;
        m_OwnOffset = m_BackgroundOffset;
        ShowFocus();
    }
    else
    {
        m_BackgroundName = m_OwnName;
        m_BackgroundOffset = m_OwnOffset;
    }
    RefreshColors();
}

void wxtBitmapButton::ShowFocus()
{
    m_BackgroundName = wxtFocusColorName(
        OffsetColor(wxtGetColor(m_OwnName), m_OwnOffset, m_OwnOffset, m_OwnOffset));
    m_BackgroundOffset = 0;
}

// Before the colours are read again: what is seen in one scheme need not be in another.
void wxtBitmapButton::OnScheme(wxSysColourChangedEvent& event)
{
    event.Skip();
    if (m_ShowsFocus)
    {
        ShowFocus();
    }
}

wxtStaticText::wxtStaticText(wxWindow* parent, wxWindowID id, const wxString& label,
                             const wxPoint& position, const wxSize& size, long style,
                             const wxString& name)
    : wxStaticText(parent, id, label, position, size, style, name)
{
    // Not in the list above: colouring asks `m_KeepsReadable`, which is made after the bases.
    Manage(this);
}

void wxtStaticText::KeepReadable()
{
    CALL_ENTRY("wxtStaticText::KeepReadable");
    m_KeepsReadable = true;
    RefreshColors();
}

bool wxtStaticText::SetForegroundColour(const wxColour& colour)
{
    // The window has its former background still.
    const wxColour ground = OffsetColor(wxtGetColor(m_BackgroundName), m_BackgroundOffset,
                                        m_BackgroundOffset, m_BackgroundOffset);
    return wxStaticText::SetForegroundColour(
        m_KeepsReadable && IsEnabled() ? wxtReadableColor(colour, ground) : colour);
}
