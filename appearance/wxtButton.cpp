#include "appearance/wxtButton.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/controls/ButtonState.h"
#include "appearance/controls/FlatStyle.h"
#include "appearance/controls/ForeignKey.h"
#include "appearance/controls/Mnemonic.h"
#include "appearance/controls/MnemonicKeys.h"
#include "internal/drawing/Emphasis.h"
#include "internal/input/ForeignPress.h"
#include "internal/port/Enabling.h"
#include "internal/port/LostFocus.h"
#include "vesta/CallEntry.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/toplevel.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <limits>

namespace
{
constexpr int kSmallerByPoints = 1;
constexpr int kHilightOffset = 25; // per channel

// Shared by all buttons: made by the first one, from its own font.
wxFont s_NormalFont;
wxFont s_DefaultFont;

void MakeFonts(const wxFont& own)
{
    if (!s_NormalFont.IsOk())
    {
        s_NormalFont = own;
        s_NormalFont.SetPointSize(own.GetPointSize() - kSmallerByPoints);
    }
    if (!s_DefaultFont.IsOk())
    {
        s_DefaultFont = s_NormalFont;
        s_DefaultFont.SetWeight(wxFONTWEIGHT_BOLD);
    }
}

int Moved(int offset, int by)
{
    constexpr int kMost = std::numeric_limits<int>::max() - kHilightOffset;
    return std::clamp(offset, -kMost, kMost) + by;
}
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxtButton, wxControl)
    EVT_SET_FOCUS(wxtButton::Focus)
    EVT_KILL_FOCUS(wxtButton::Focus)
    EVT_ENTER_WINDOW(wxtButton::Mouse)
    EVT_LEAVE_WINDOW(wxtButton::Mouse)
    EVT_LEFT_DOWN(wxtButton::Click)
    EVT_LEFT_DCLICK(wxtButton::Click)
    EVT_LEFT_UP(wxtButton::Click)
    EVT_PAINT(wxtButton::Paint)
    EVT_CHAR_HOOK(wxtButton::KeyDown)
    EVT_KEY_DOWN(wxtButton::KeyDown)
    EVT_KEY_UP(wxtButton::Key)
    wx__DECLARE_EVT0(appearance::EVT_MNEMONIC, wxKeyEventHandler(wxtButton::Mnemonic))
    EVT_MOVE(wxtButton::Move)
    EVT_SIZE(wxtButton::Size)
wxEND_EVENT_TABLE()
// clang-format on

wxtButton::wxtButton(wxWindow* parent, wxWindowID id, const wxString& label,
                     const wxPoint& position, const wxSize& size, long style,
                     const wxValidator& validator, const wxString& name)
    : wxControl(parent, id, position, size, appearance::FlatStyle(style), validator, name),
      m_State(std::make_unique<appearance::ButtonState>()),
      m_ForeignKey(std::make_unique<appearance::ForeignKey>())
{
    CALL_ENTRY("wxtButton::wxtButton");
    Manage(this);
    Bind(internal::EVT_ENABLED, &wxtButton::OnEnabled, this);
    Bind(internal::EVT_FOCUS_LOST, &wxtButton::OnFocusLost, this);
    internal::RefuseForeignRelease(*this);
    m_DisabledForegroundName = color_TextGrey;
    m_DisabledForegroundOffset = 0;
    m_DisabledBackgroundName = color_WindowBGDarker;
    m_DisabledBackgroundOffset = 0;
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    MakeFonts(GetFont());
    wxControl::SetLabel(label);
    SetNormal();
    SetMinimum();
    // Not by SetInitialSize, which would forget the minimum, of which the best size is made.
    wxSize initial = size;
    initial.SetDefaults(GetMinSize());
    SetSize(initial);
    appearance::WatchMnemonics(*this);
}

wxtButton::~wxtButton()
{
    // No event tells it that it loses the focus.
    const wxTopLevelWindow* const top = TopLevel();
    if (m_State->OfFocus() == appearance::ButtonState::Focus::Role && top && !top->IsBeingDeleted())
    {
        GiveRoleBack();
    }
}

// Measured as it looks when it is widest, so that it need not grow when it becomes the default.
void wxtButton::SetMinimum()
{
    wxBitmap   unused(1, 1);
    wxMemoryDC dc(unused);
    dc.SetFont(s_DefaultFont);
    wxSize size = dc.GetMultiLineTextExtent(GetLabelText());
    if (HasFlag(wxBU_EXACTFIT))
    {
        size.x = std::max(GetCharWidth() * 3 / 2, size.x);
    }
    else
    {
        const wxSize stock = wxButton::GetDefaultSize();
        size = wxSize(std::max(stock.x, size.x), stock.y);
    }
    SetMinSize(size + wxSize(GetCharWidth(), GetCharHeight() / 8));
}

wxSize wxtButton::DoGetBestSize() const
{
    return GetMinSize();
}

void wxtButton::SetLabel(const wxString& label)
{
    CALL_ENTRY("wxtButton::SetLabel");
    wxControl::SetLabel(label);
    SetMinimum();
    InvalidateBestSize();
    Refresh();
}

void wxtButton::SetNormal()
{
    CALL_ENTRY("wxtButton::SetNormal");
    const wxWindowUpdateLocker frozen(this);
    m_ForegroundName = color_ButtonText;
    m_ForegroundOffset = 0;
    m_BackgroundName = color_ButtonFace;
    m_BackgroundOffset = 0;
    SetFont(s_NormalFont);
    HilightAgain();
    RefreshColors();
}

void wxtButton::TakeDefaultLook()
{
    m_ForegroundName = color_3DDark;
    m_ForegroundOffset = internal::k_DefaultInkLift;
    m_BackgroundName = color_Selected;
    m_BackgroundOffset = internal::k_DefaultGroundLift;
    SetFont(s_DefaultFont);
    HilightAgain();
    RefreshColors();
}

void wxtButton::Hilight(bool on)
{
    CALL_ENTRY("wxtButton::Hilight");
    if (!m_State->Light(on))
    {
        return;
    }
    const int offset = on ? kHilightOffset : -kHilightOffset;
    m_ForegroundOffset = Moved(m_ForegroundOffset, offset);
    m_BackgroundOffset = Moved(m_BackgroundOffset, offset);
    RefreshColors();
}

// The look has been set anew, without the light that was on it.
void wxtButton::HilightAgain()
{
    if (m_State->TakeLight())
    {
        Hilight(true);
    }
}

void wxtButton::Mouse(wxMouseEvent& event)
{
    CALL_ENTRY("wxtButton::Mouse");
    event.Skip();
    Hilight(event.Entering());
}

bool wxtButton::Enable(bool enable)
{
    CALL_ENTRY("wxtButton::Enable");
    if (m_State->KeepEnabling(enable))
    {
        return false; // a handler's own wish counts when the click is over
    }
    const wxWindowUpdateLocker frozen(this);
    if (!wxControl::Enable(enable))
    {
        return false;
    }
    if (!enable && m_State->IsLit() && IsDefault())
    {
        SetNormal();
    }
    else if (enable && IsDefault())
    {
        SetDefault();
    }
    return true;
}

void wxtButton::OnEnabled(internal::EnabledEvent& event)
{
    event.Skip();
    if (event.IsEnabled() && m_State->IsLit() &&
        m_State->OfFocus() != appearance::ButtonState::Focus::Lit)
    {
        // No event tells of the mouse leaving a disabled window.
        Hilight(GetScreenRect().Contains(wxGetMousePosition()));
    }
}

void wxtButton::Move(wxMoveEvent& event)
{
    event.Skip();
    Refresh(false);
}

void wxtButton::Size(wxSizeEvent& event)
{
    event.Skip();
    Refresh(false);
}

// No border and no frame of the focus: colours and font tell the state. The label is underlined
// with the focus, since the button that has it looks as the default one does without it.
void wxtButton::Paint(wxPaintEvent&)
{
    CALL_ENTRY("wxtButton::Paint");
    wxAutoBufferedPaintDC dc(this);
    const wxSize          client = GetClientSize();
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(GetBackgroundColour()));
    dc.DrawRectangle(wxPoint(0, 0), client);
    dc.SetFont(HasFocus() ? GetFont().Underlined() : GetFont());
    dc.SetTextForeground(GetForegroundColour());
    const appearance::MnemonicLabel label(GetLabel());
    const wxSize                    text = dc.GetMultiLineTextExtent(label.text);
    label.Draw(dc, wxPoint(std::max((client.x - text.x) / 2, 0), (client.y - text.y) / 2),
               client.x);
}
