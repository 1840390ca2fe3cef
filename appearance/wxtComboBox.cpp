#include "appearance/wxtComboBox.h"

#include "appearance/_InputColors.h"
#include "appearance/_ItemDrawing.h"
#include "appearance/_Port.h"
#include "appearance/wxTolvanColors.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/renderer.h>
#include <wx/textctrl.h>

#include <algorithm>

namespace
{
constexpr int          kButtonWidth = 16;    // pixels
constexpr int          kOverText = 6;        // pixels, of the height
constexpr int          kArrowHeight = 22;    // pixels, of what the arrow is drawn into
constexpr unsigned int kMeasuredItems = 200; // more of them are not measured one by one
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxtComboBox, wxOwnerDrawnComboBox)
    EVT_LISTBOX(wxID_ANY, wxtComboBox::KeepListEvent)
    EVT_CHAR_HOOK(wxtComboBox::KeyForList)
wxEND_EVENT_TABLE()
// clang-format on

wxtComboBox::wxtComboBox(wxWindow* parent, wxWindowID id, const wxString& value,
                         const wxPoint& position, const wxSize& size, const wxArrayString& choices,
                         long style, const wxValidator& validator, const wxString& name)
{
    CALL_ENTRY("wxtComboBox::wxtComboBox");
    // As in the stock control, a text that is none of the items is not shown where one can only
    // choose.
    Create(parent, id, value, position, size, choices, _FlatStyle(style), validator, name);
    SetFont(GetFont());
    SetButtonPosition(kButtonWidth);
    Manage(this);
    _UseInputColors(*this);
    ColourParts();
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    InvalidateBestSize();
    SetInitialSize(size);
}

wxtComboBox::wxtComboBox(wxWindow* parent, wxWindowID id, const wxString& value,
                         const wxPoint& position, const wxSize& size, int count,
                         const wxString choices[], long style, const wxValidator& validator,
                         const wxString& name)
    : wxtComboBox(parent, id, value, position, size,
                  wxArrayString(static_cast<size_t>(std::max(count, 0)), choices), style, validator,
                  name)
{
}

// The list's own: it tells nobody but the control where it moves.
void wxtComboBox::KeepListEvent(wxCommandEvent&)
{
}

// Enter and Esc are for the open list before a dialog hears of them.
void wxtComboBox::KeyForList(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    if (IsPopupShown() && (key == WXK_ESCAPE || key == WXK_RETURN || key == WXK_NUMPAD_ENTER))
    {
        event.StopPropagation();
    }
    event.Skip();
}

// In place of the system's colours, also when the scheme has changed.
void wxtComboBox::OnThemeChange()
{
    CALL_ENTRY("wxtComboBox::OnThemeChange");
    RefreshColors();
    ColourParts();
    Refresh();
}

void wxtComboBox::DoEnable(bool enabled)
{
    wxOwnerDrawnComboBox::DoEnable(enabled);
    RefreshColors();
    ColourParts();
    Refresh();
}

void wxtComboBox::DoShowPopup(const wxRect& rect, int flags)
{
    CALL_ENTRY("wxtComboBox::DoShowPopup");
    if (m_popup)
    {
        m_popup->SetFont(GetFont());
        _UseSolidScrollbars(*m_popup);
    }
    ColourParts();
    wxOwnerDrawnComboBox::DoShowPopup(rect, flags);
}

// The parts that are windows of their own.
void wxtComboBox::ColourParts()
{
    for (wxWindow* const part : {static_cast<wxWindow*>(m_text), m_popup})
    {
        if (part)
        {
            part->SetForegroundColour(GetForegroundColour());
            part->SetBackgroundColour(GetBackgroundColour());
            part->Refresh();
        }
    }
    if (m_text)
    {
        _ColourField(*m_text);
    }
}

// As high as the control, whatever its height: no ground of another colour is left around it.
void wxtComboBox::PositionTextCtrl(int, int)
{
    if (m_text)
    {
        m_text->SetSize(m_tcArea.x, m_tcArea.y, std::max(1, m_tcArea.width),
                        std::max(1, m_tcArea.height));
    }
}

void wxtComboBox::DrawButton(wxDC& dc, const wxRect& rect, int)
{
    CALL_ENTRY("wxtComboBox::DrawButton");
    const wxRect whole(rect.x, 0, GetClientSize().x - rect.x, GetClientSize().y);
    const wxRect arrow =
        wxRect(0, 0, whole.width, std::min(whole.height, kArrowHeight)).CentreIn(whole);
    if (IsEnabled())
    {
        _FillGround(dc, whole, wxtGetColor(color_ButtonFace));
        wxRendererNative::Get().DrawComboBoxDropButton(this, dc, arrow, m_btnState);
    }
    else
    {
        _FillGround(dc, whole, GetBackgroundColour());
    }
}

_ItemLook wxtComboBox::LookOf(int item, int flags) const
{
    const bool inControl = flags & wxODCB_PAINTING_CONTROL;
    const bool selected = !inControl && GetVListBoxComboPopup()->IsCurrent(size_t(item));
    return _ItemLook::Of(GetBackgroundColour(), GetForegroundColour(), selected);
}

void wxtComboBox::OnDrawBackground(wxDC& dc, const wxRect& rect, int item, int flags) const
{
    if (flags & wxODCB_PAINTING_CONTROL)
    {
        PrepareBackground(dc, rect, 0);
    }
    else
    {
        _FillGround(dc, rect, LookOf(item, flags).ground);
    }
}

// Of the control itself, also where nothing is selected.
void wxtComboBox::PrepareBackground(wxDC& dc, const wxRect& rect, int) const
{
    const wxColour ink = GetForegroundColour();
    _FillGround(dc, rect, GetBackgroundColour());
    if (ink.IsOk())
    {
        dc.SetTextForeground(ink);
    }
    if (ShouldDrawFocus())
    {
        _DrawFrame(dc, rect, wxtGetColor(color_Selected));
    }
}

void wxtComboBox::OnDrawItem(wxDC& dc, const wxRect& rect, int item, int flags) const
{
    dc.SetFont(GetFont());
    if (!(flags & wxODCB_PAINTING_CONTROL))
    {
        _DrawItemText(dc, rect, GetString(static_cast<unsigned>(item)), LookOf(item, flags).ink);
    }
    else if (ShouldUseHintText())
    {
        _DrawItemText(dc, rect, m_hintText, wxtGetColor(color_TextGrey));
    }
    else
    {
        _DrawItemText(dc, rect, GetValue(), LookOf(item, flags).ink);
    }
}

wxSize wxtComboBox::DoGetBestSize() const
{
    return wxSize(wxOwnerDrawnComboBox::DoGetBestSize().x, GetCharHeight() + kOverText);
}

wxCoord wxtComboBox::OnMeasureItem(size_t) const
{
    m_ItemHeight = m_ItemHeight ? m_ItemHeight : _ItemHeight(*this);
    return m_ItemHeight;
}

wxCoord wxtComboBox::OnMeasureItemWidth(size_t item) const
{
    const wxString text = GetString(static_cast<unsigned>(item));
    m_CharWidth = m_CharWidth ? m_CharWidth : GetCharWidth();
    return GetCount() <= kMeasuredItems ? _ItemTextWidth(*this, text)
                                        : _GuessedTextWidth(m_CharWidth, text.length());
}

bool wxtComboBox::SetFont(const wxFont& font)
{
    m_CharWidth = 0;
    m_ItemHeight = 0;
    return wxOwnerDrawnComboBox::SetFont(font);
}
