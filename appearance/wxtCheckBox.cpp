#include "appearance/wxtCheckBox.h"

#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/controls/ForeignKey.h"
#include "appearance/controls/Mnemonic.h"
#include "appearance/controls/MnemonicKeys.h"
#include "internal/input/ForeignPress.h"
#include "internal/port/Enabling.h"
#include "vesta/CallEntry.h"

#include <wx/dcbuffer.h>
#include <wx/renderer.h>

namespace
{
// Pixels.
constexpr int kHeightOverText = 4; // of the control, over a line of text
constexpr int kBoxMargin = 1;
constexpr int kLabelGap = 2;
constexpr int kBestWidthOver = 8; // over box and label
constexpr int kFocusGap = 2;      // the focus rectangle is that much larger than the label
constexpr int kFocusShort = 6;    // and its label ends so much before the control's own end
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxtCheckBox, wxCheckBoxBase)
    EVT_PAINT(wxtCheckBox::Paint)
    EVT_LEFT_UP(wxtCheckBox::Click)
    EVT_ENTER_WINDOW(wxtCheckBox::Hover)
    EVT_LEAVE_WINDOW(wxtCheckBox::Hover)
    EVT_SET_FOCUS(wxtCheckBox::Focus)
    EVT_KILL_FOCUS(wxtCheckBox::Focus)
    EVT_CHAR_HOOK(wxtCheckBox::KeyDown)
    EVT_KEY_DOWN(wxtCheckBox::KeyDown)
    EVT_KEY_UP(wxtCheckBox::Press)
    wx__DECLARE_EVT0(appearance::EVT_MNEMONIC, wxKeyEventHandler(wxtCheckBox::Mnemonic))
    EVT_SIZE(wxtCheckBox::Size)
wxEND_EVENT_TABLE()
// clang-format on

wxtCheckBox::wxtCheckBox(wxWindow* parent, wxWindowID id, const wxString& label,
                         const wxPoint& position, const wxSize& size, long style,
                         const wxValidator& validator, const wxString& name)
    : m_Label(label), m_ForeignKey(std::make_unique<appearance::ForeignKey>())
{
    CALL_ENTRY("wxtCheckBox::wxtCheckBox");
    // The toolkit asks for the best size while the control is made.
    Create(parent, id, position, size, style, validator, name);
    Manage(this);
    Bind(internal::EVT_ENABLED, &wxtCheckBox::OnEnabled, this);
    internal::RefuseForeignRelease(*this);
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    wxCheckBoxBase::SetLabel(label);
    LimitHeight();
    InvalidateBestSize();
    SetInitialSize(size);
    appearance::WatchMnemonics(*this);
}

wxtCheckBox::~wxtCheckBox() = default;

void wxtCheckBox::LimitHeight()
{
    SetMaxSize(wxSize(wxDefaultCoord, GetCharHeight() + kHeightOverText));
}

wxSize wxtCheckBox::DoGetBestClientSize() const
{
    const int height = GetCharHeight() + kHeightOverText;
    const int width = GetTextExtent(appearance::MnemonicLabel(m_Label).text).x;
    return wxSize(width + height + kBestWidthOver, height);
}

void wxtCheckBox::SetLabel(const wxString& label)
{
    CALL_ENTRY("wxtCheckBox::SetLabel");
    m_Label = label;
    wxCheckBoxBase::SetLabel(label);
    InvalidateBestSize();
    Refresh();
}

bool wxtCheckBox::SetFont(const wxFont& font)
{
    if (!wxCheckBoxBase::SetFont(font))
    {
        return false;
    }
    LimitHeight();
    return true;
}

void wxtCheckBox::SetValue(bool value)
{
    CALL_ENTRY("wxtCheckBox::SetValue");
    if (value != m_Value)
    {
        m_Value = value;
        Refresh(true);
    }
}

bool wxtCheckBox::Enable(bool enable)
{
    CALL_ENTRY("wxtCheckBox::Enable");
    return wxCheckBoxBase::Enable(enable);
}

void wxtCheckBox::OnEnabled(internal::EnabledEvent& event)
{
    event.Skip();
    // No event tells of the mouse leaving a disabled window.
    m_Hover = m_Hover && event.IsEnabled();
    Refresh();
}

wxEventType wxtCheckBox::ClickEventType() const
{
    return wxEVT_CHECKBOX;
}

void wxtCheckBox::HandleClick()
{
    SetValue(!GetValue());
}

void wxtCheckBox::DoClick()
{
    const wxWeakRef<wxtCheckBox> self(this);
    HandleClick();
    if (!self)
    {
        return;
    }
    wxCommandEvent event(ClickEventType(), GetId());
    event.SetEventObject(this);
    event.SetInt(GetValue());
    GetEventHandler()->ProcessEvent(event);
}

void wxtCheckBox::Click(wxMouseEvent& event)
{
    CALL_ENTRY("wxtCheckBox::Click");
    // A press that is let go elsewhere has been thought better of.
    if (IsEnabled() && IsShown() && GetClientRect().Contains(event.GetPosition()))
    {
        DoClick();
    }
}

void wxtCheckBox::Hover(wxMouseEvent& event)
{
    event.Skip();
    m_Hover = event.Entering();
    Refresh();
}

void wxtCheckBox::Focus(wxFocusEvent& event)
{
    event.Skip();
    if (event.GetEventType() == wxEVT_SET_FOCUS)
    {
        m_ForeignKey->OnFocus();
    }
    Refresh();
}

void wxtCheckBox::KeyDown(wxKeyEvent& event)
{
    m_ForeignKey->OnPress(event);
}

void wxtCheckBox::Press(wxKeyEvent& event)
{
    CALL_ENTRY("wxtCheckBox::Press");
    if (m_ForeignKey->EndsWith(event) || event.GetKeyCode() != WXK_SPACE)
    {
        event.Skip();
        return;
    }
    wxMouseEvent click(wxEVT_LEFT_UP);
    click.SetEventObject(this);
    Click(click);
}

void wxtCheckBox::Mnemonic(wxKeyEvent&)
{
    const wxWeakRef<wxtCheckBox> self(this);
    SetFocus();
    if (self)
    {
        DoClick();
    }
}

void wxtCheckBox::Size(wxSizeEvent& event)
{
    event.Skip();
    Refresh();
}

int wxtCheckBox::StateFlags() const
{
    const auto flag = [](bool set, int which) { return set ? which : 0; };
    return flag(m_Value, wxCONTROL_CHECKED) | flag(!IsEnabled(), wxCONTROL_DISABLED) |
           flag(HasFocus(), wxCONTROL_FOCUSED) | flag(m_Hover, wxCONTROL_CURRENT);
}

void wxtCheckBox::DrawButton(wxDC& dc, const wxRect& rect, int flags)
{
    wxRendererNative::Get().DrawCheckBox(this, dc, rect, flags);
}

void wxtCheckBox::Paint(wxPaintEvent&)
{
    CALL_ENTRY("wxtCheckBox::Paint");
    wxAutoBufferedPaintDC dc(this);
    const wxSize          client = GetClientSize();
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(GetBackgroundColour()));
    dc.DrawRectangle(wxPoint(0, 0), client);
    const wxRect box = wxRect(0, 0, client.y, client.y).Deflate(kBoxMargin);
    DrawButton(dc, box, StateFlags());
    DrawLabel(dc, box);
    if (HasFocus())
    {
        DrawFocus(dc, box);
    }
}

void wxtCheckBox::DrawLabel(wxDC& dc, const wxRect& box)
{
    const wxSize   client = GetClientSize();
    const int      left = box.x + client.y + kLabelGap;
    const wxColour colour = wxtGetColor(m_Hover ? color_TextOrange : color_Text);
    dc.SetFont(GetFont());
    dc.SetTextForeground(colour.IsOk() ? colour : GetForegroundColour());
    dc.SetTextBackground(GetBackgroundColour());
    appearance::MnemonicLabel(m_Label).Draw(dc, wxPoint(left, box.y), client.x - left);
}

// Round the box, which no label need follow, and round the label as far as the control reaches: one
// of one line fills its height.
void wxtCheckBox::DrawFocus(wxDC& dc, const wxRect& box)
{
    wxtDrawFocus(dc, wxRect(box).Inflate(kBoxMargin), {GetBackgroundColour()});
    const wxColour colour = wxtGetColor(color_3DLight);
    if (!colour.IsOk())
    {
        return;
    }
    const wxSize client = GetClientSize();
    wxRect       area(box.x + client.y + kLabelGap, box.y, client.x - client.y - kFocusShort,
                      client.y - 2);
    area.Inflate(kFocusGap);
    area.Intersect(wxRect(client));
    if (area.IsEmpty())
    {
        return;
    }
    wxPen pen(colour, 1, wxPENSTYLE_DOT);
    pen.SetJoin(wxJOIN_MITER);
    pen.SetCap(wxCAP_BUTT);
    dc.SetPen(pen);
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(area);
}
