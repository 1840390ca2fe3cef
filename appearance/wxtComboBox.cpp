#include "appearance/wxtComboBox.h"

#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/controls/FlatStyle.h"
#include "appearance/inputs/ComboList.h"
#include "appearance/inputs/InputColors.h"
#include "appearance/inputs/ItemDrawing.h"
#include "internal/input/PadKey.h"
#include "internal/port/Scrollbars.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/renderer.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <algorithm>

namespace
{
constexpr int          kButtonWidth = 16;    // pixels
constexpr int          kOverText = 6;        // pixels, of the height
constexpr int          kArrowHeight = 22;    // pixels, of what the arrow is drawn into
constexpr unsigned int kMeasuredItems = 200; // more of them are not measured one by one
constexpr long         kPosted = 1;          // marks an event that comes from the queue
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxtComboBox, wxOwnerDrawnComboBox)
    EVT_LISTBOX(wxID_ANY, wxtComboBox::KeepListEvent)
    EVT_LISTBOX_DCLICK(wxID_ANY, wxtComboBox::KeepListEvent)
    EVT_COMBOBOX_CLOSEUP(wxID_ANY, wxtComboBox::PostClosing)
    EVT_LEFT_DOWN(wxtComboBox::Press)
    EVT_LEFT_DCLICK(wxtComboBox::Press)
    EVT_IDLE(wxtComboBox::CloseUnseen)
    EVT_CHAR_HOOK(wxtComboBox::KeyForList)
wxEND_EVENT_TABLE()
// clang-format on

wxtComboBox::wxtComboBox(wxWindow* parent, wxWindowID id, const wxString& value,
                         const wxPoint& position, const wxSize& size, const wxArrayString& choices,
                         long style, const wxValidator& validator, const wxString& name)
{
    CALL_ENTRY("wxtComboBox::wxtComboBox");
    Create(parent, id, wxEmptyString, position, size, appearance::FlatStyle(style), validator,
           name);
    EnsurePopupControl();
    if (!choices.empty())
    {
        Append(choices);
    }
    ChangeValue(value);
    if (m_text)
    {
        m_text->Bind(wxEVT_TEXT_MAXLEN, &wxtComboBox::TellOfLength, this);
    }
    SetFont(GetFont());
    SetButtonPosition(kButtonWidth);
    Manage(this);
    appearance::UseInputColors(*this);
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

// While it is whole.
wxtComboBox::~wxtComboBox()
{
    HidePopup(false);
    if (wxTextCtrl* const text = GetTextCtrl())
    {
        text->AutoComplete(nullptr); // an open list of completions would tell the text of its end
    }
}

void wxtComboBox::DoSetPopupControl(wxComboPopup* popup)
{
    wxOwnerDrawnComboBox::DoSetPopupControl(popup ? popup : new appearance::ComboList);
}

int wxtComboBox::DoInsertItems(const wxArrayStringsAdapter& items, unsigned int position,
                               void** clientData, wxClientDataType type)
{
    CALL_ENTRY("wxtComboBox::DoInsertItems");
    auto& list = *static_cast<appearance::ComboList*>(GetPopupControl());
    int   last = wxNOT_FOUND;
    for (unsigned i = 0; i < items.GetCount(); ++i)
    {
        last = HasFlag(wxCB_SORT) ? list.PlaceOf(items[i]) : static_cast<int>(position + i);
        list.Put(items[i], last);
        AssignNewItemClientData(static_cast<unsigned>(last), clientData, i, type);
    }
    InvalidateBestSize();
    return last;
}

// The toolkit's refuses a text that is no item, the empty one in an empty list, too.
void wxtComboBox::DoClear()
{
    CALL_ENTRY("wxtComboBox::DoClear");
    wxOwnerDrawnComboBox::DoClear();
    if (!m_text)
    {
        Select(wxNOT_FOUND);
    }
}

void wxtComboBox::SetString(unsigned int item, const wxString& text)
{
    CALL_ENTRY("wxtComboBox::SetString");
    const bool isShown = !m_text && GetSelection() == static_cast<int>(item);
    wxOwnerDrawnComboBox::SetString(item, text);
    if (isShown)
    {
        Select(static_cast<int>(item));
    }
}

int wxtComboBox::GetSelection() const
{
    const int  item = wxOwnerDrawnComboBox::GetSelection();
    const bool isShown =
        !m_text || (item >= 0 && GetString(static_cast<unsigned>(item)) == m_text->GetValue());
    return isShown ? item : wxNOT_FOUND;
}

void wxtComboBox::GetSelection(long* from, long* to) const
{
    wxOwnerDrawnComboBox::GetSelection(from, to);
}

void wxtComboBox::SetMaxLength(unsigned long characters)
{
    CALL_ENTRY("wxtComboBox::SetMaxLength");
    if (m_text)
    {
        m_text->SetMaxLength(characters);
    }
}

void wxtComboBox::ForceUpper()
{
    CALL_ENTRY("wxtComboBox::ForceUpper");
    if (m_text)
    {
        m_text->ForceUpper();
    }
}

// The field's event, as the control's own.
void wxtComboBox::TellOfLength(wxCommandEvent& event)
{
    wxCommandEvent own(event);
    own.SetId(GetId());
    own.SetEventObject(this);
    ProcessWindowEvent(own);
}

bool wxtComboBox::Show(bool show)
{
    if (!show)
    {
        HidePopup(true);
    }
    return wxOwnerDrawnComboBox::Show(show);
}

// The toolkit leaves the keyboard to a control's children, and counts the list among them, closed
// or not, once it has been open.
void wxtComboBox::SetCanFocus(bool can)
{
    wxOwnerDrawnComboBox::SetCanFocus(can || HasFlag(wxCB_READONLY));
}

// A page, or a window, that goes or is disabled takes the list with it.
void wxtComboBox::CloseUnseen(wxIdleEvent& event)
{
    event.Skip();
    if (IsPopupShown() && !(IsShownOnScreen() && IsEnabled()))
    {
        HidePopup(true);
    }
}

bool wxtComboBox::IsKeyPopupToggle(const wxKeyEvent& event) const
{
    const int key = internal::OffThePad(event.GetKeyCode());
    return key == WXK_F4 || (key == WXK_ESCAPE && IsPopupShown()) ||
           (event.AltDown() && (key == WXK_DOWN || key == WXK_UP));
}

// The host's handler, which may fill the list, may also take the control away.
void wxtComboBox::Popup()
{
    CALL_ENTRY("wxtComboBox::Popup");
    const wxWeakRef<wxtComboBox> self(this);
    wxCommandEvent               event(wxEVT_COMBOBOX_DROPDOWN, GetId());
    event.SetEventObject(this);
    HandleWindowEvent(event);
    if (self && IsEnabled() && IsShownOnScreen() && !IsPopupShown())
    {
        ShowPopup();
    }
}

// Unlike the toolkit's it leaves the text alone.
void wxtComboBox::HidePopup(bool generateEvent)
{
    CALL_ENTRY("wxtComboBox::HidePopup");
    if (GetPopupWindowState() >= Animating)
    {
        m_popupWinState = Closing;
        m_winPopup->Hide();
        OnPopupDismiss(generateEvent);
    }
}

// The list is still at work when it tells that it closes, and a handler may destroy the control.
void wxtComboBox::PostClosing(wxCommandEvent& event)
{
    if (event.GetExtraLong() == kPosted)
    {
        event.Skip();
        return;
    }
    wxCommandEvent posted(event);
    posted.SetExtraLong(kPosted);
    AddPendingEvent(posted);
}

// In place of the toolkit's, which goes on with the control after the list's handler has run.
void wxtComboBox::Press(wxMouseEvent& event)
{
    CALL_ENTRY("wxtComboBox::Press");
    const bool opens = HasFlag(wxCB_READONLY) || m_btnArea.Contains(event.GetPosition());
    if (!opens)
    {
        event.Skip();
    }
    else if (!PreprocessMouseEvent(event, 0))
    {
        m_btnState |= wxCONTROL_PRESSED;
        Refresh();
        OnButtonClick();
    }
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
    if (!enabled)
    {
        HidePopup(true);
    }
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
        internal::UseSolidScrollbars(*m_popup);
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
        appearance::ColourField(*m_text);
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
        appearance::FillGround(dc, whole, wxtGetColor(color_ButtonFace));
        wxRendererNative::Get().DrawComboBoxDropButton(this, dc, arrow, m_btnState);
    }
    else
    {
        appearance::FillGround(dc, whole, GetBackgroundColour());
    }
}

appearance::ItemLook wxtComboBox::LookOf(int item, int flags) const
{
    const bool inControl = flags & wxODCB_PAINTING_CONTROL;
    const bool selected = !inControl && GetVListBoxComboPopup()->IsCurrent(size_t(item));
    return appearance::ItemLook::Of(GetBackgroundColour(), GetForegroundColour(), selected);
}

void wxtComboBox::OnDrawBackground(wxDC& dc, const wxRect& rect, int item, int flags) const
{
    if (flags & wxODCB_PAINTING_CONTROL)
    {
        PrepareBackground(dc, rect, 0);
    }
    else
    {
        appearance::FillGround(dc, rect, LookOf(item, flags).ground);
    }
}

// Of the control itself, also where nothing is selected.
void wxtComboBox::PrepareBackground(wxDC& dc, const wxRect& rect, int) const
{
    const wxColour ink = GetForegroundColour();
    appearance::FillGround(dc, rect, GetBackgroundColour());
    if (ink.IsOk())
    {
        dc.SetTextForeground(ink);
    }
    if (ShouldDrawFocus())
    {
        wxtDrawFocus(dc, rect, {GetBackgroundColour()});
    }
}

void wxtComboBox::OnDrawItem(wxDC& dc, const wxRect& rect, int item, int flags) const
{
    dc.SetFont(GetFont());
    if (!(flags & wxODCB_PAINTING_CONTROL))
    {
        appearance::DrawItemText(dc, rect, GetString(static_cast<unsigned>(item)),
                                 LookOf(item, flags).ink);
    }
    else if (ShouldUseHintText())
    {
        appearance::DrawItemText(
            dc, rect, m_hintText,
            wxtReadableColor(wxtGetColor(color_TextGrey), GetBackgroundColour()));
    }
    else
    {
        appearance::DrawItemText(dc, rect, GetValue(), LookOf(item, flags).ink);
    }
}

wxSize wxtComboBox::DoGetBestSize() const
{
    return wxSize(wxOwnerDrawnComboBox::DoGetBestSize().x, GetCharHeight() + kOverText);
}

wxCoord wxtComboBox::OnMeasureItem(size_t) const
{
    m_ItemHeight = m_ItemHeight ? m_ItemHeight : appearance::ItemHeight(*this);
    return m_ItemHeight;
}

wxCoord wxtComboBox::OnMeasureItemWidth(size_t item) const
{
    const wxString text = GetString(static_cast<unsigned>(item));
    m_CharWidth = m_CharWidth ? m_CharWidth : GetCharWidth();
    return GetCount() <= kMeasuredItems ? appearance::ItemTextWidth(*this, text)
                                        : appearance::GuessedTextWidth(m_CharWidth, text.length());
}

bool wxtComboBox::SetFont(const wxFont& font)
{
    m_CharWidth = 0;
    m_ItemHeight = 0;
    return wxOwnerDrawnComboBox::SetFont(font);
}
