#include "appearance/wxtButton.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/controls/ForeignKey.h"
#include "appearance/controls/ForeignPress.h"
#include "appearance/controls/Mnemonic.h"
#include "internal/port/Enabling.h"
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
constexpr int kDefaultBackgroundOffset = 20;
constexpr int kDefaultForegroundOffset = -20;

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

long WithBorder(long style)
{
    return style & wxBORDER_MASK ? style : style | wxBORDER_NONE;
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
    EVT_MOVE(wxtButton::Move)
    EVT_SIZE(wxtButton::Size)
wxEND_EVENT_TABLE()
// clang-format on

wxtButton::wxtButton(wxWindow* parent, wxWindowID id, const wxString& label,
                     const wxPoint& position, const wxSize& size, long style,
                     const wxValidator& validator, const wxString& name)
    : wxControl(parent, id, position, size, WithBorder(style), validator, name),
      m_ForeignKey(std::make_unique<appearance::ForeignKey>())
{
    CALL_ENTRY("wxtButton::wxtButton");
    Manage(this);
    Bind(internal::EVT_ENABLED, &wxtButton::OnEnabled, this);
    appearance::RefuseForeignRelease(*this);
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
    if (wxWindow* const top = wxGetTopLevelParent(this))
    {
        top->Bind(wxEVT_CHAR_HOOK, &wxtButton::Mnemonic, this);
    }
}

wxtButton::~wxtButton()
{
    // No event tells it that it loses the focus.
    const wxTopLevelWindow* const top = TopLevel();
    if (m_TookRole && top && !top->IsBeingDeleted())
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

wxTopLevelWindow* wxtButton::TopLevel() const
{
    return wxDynamicCast(wxGetTopLevelParent(const_cast<wxtButton*>(this)), wxTopLevelWindow);
}

bool wxtButton::IsDefault() const
{
    const wxTopLevelWindow* const top = TopLevel();
    // The temporary one, where there is one.
    return top && top->GetDefaultItem() == this;
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
    m_ForegroundOffset = kDefaultForegroundOffset;
    m_BackgroundName = color_Selected;
    m_BackgroundOffset = kDefaultBackgroundOffset;
    SetFont(s_DefaultFont);
    HilightAgain();
    RefreshColors();
}

wxWindow* wxtButton::SetDefault()
{
    CALL_ENTRY("wxtButton::SetDefault");
    const wxWindowUpdateLocker frozen(this);
    wxTopLevelWindow* const    top = TopLevel();
    if (!top)
    {
        return nullptr;
    }
    wxWindow* const previous = top->GetDefaultItem();
    top->SetDefaultItem(this);
    TakeDefaultLook();
    if (auto* const button = dynamic_cast<wxtButton*>(previous); button && button != this)
    {
        button->SetNormal();
    }
    return previous;
}

void wxtButton::Hilight(bool on)
{
    CALL_ENTRY("wxtButton::Hilight");
    if (on == m_Hilighted)
    {
        return;
    }
    m_Hilighted = on;
    const int offset = on ? kHilightOffset : -kHilightOffset;
    m_ForegroundOffset = Moved(m_ForegroundOffset, offset);
    m_BackgroundOffset = Moved(m_BackgroundOffset, offset);
    RefreshColors();
}

// The look has been set anew, without the light that was on it.
void wxtButton::HilightAgain()
{
    if (m_Hilighted)
    {
        m_Hilighted = false;
        Hilight(true);
    }
}

void wxtButton::Mouse(wxMouseEvent& event)
{
    CALL_ENTRY("wxtButton::Mouse");
    event.Skip();
    Hilight(event.Entering());
}

void wxtButton::Focus(wxFocusEvent& event)
{
    CALL_ENTRY("wxtButton::Focus");
    event.Skip();
    if (IsBeingDeleted())
    {
        return;
    }
    if (event.GetEventType() == wxEVT_SET_FOCUS)
    {
        m_ForeignKey->OnFocus();
        GainFocus();
    }
    else
    {
        LoseFocus();
    }
}

void wxtButton::GainFocus()
{
    const wxTopLevelWindow* const top = TopLevel();
    wxWindow* const               previous = top && top->GetDefaultItem() ? SetDefault() : this;
    m_PreviousDefault = previous;
    m_TookRole = previous != this;
    if (previous == this)
    {
        Hilight(true);
    }
}

void wxtButton::LoseFocus()
{
    if (m_TookRole)
    {
        SetNormal();
        GiveRoleBack();
    }
    else if (m_PreviousDefault == this)
    {
        Hilight(false);
    }
    m_TookRole = false;
    m_PreviousDefault = nullptr;
}

void wxtButton::GiveRoleBack()
{
    if (auto* const button = dynamic_cast<wxtButton*>(m_PreviousDefault.get()))
    {
        button->SetDefault();
    }
    // A stock control, or none when the previous one has gone in the meantime.
    else if (wxTopLevelWindow* const top = IsDefault() ? TopLevel() : nullptr)
    {
        top->SetDefaultItem(m_PreviousDefault);
    }
}

void wxtButton::KeyDown(wxKeyEvent& event)
{
    m_ForeignKey->OnPress(event);
}

void wxtButton::Key(wxKeyEvent& event)
{
    CALL_ENTRY("wxtButton::Key");
    const int key = event.GetKeyCode();
    if (m_ForeignKey->EndsWith(event) ||
        (key != WXK_SPACE && key != WXK_RETURN && key != WXK_NUMPAD_ENTER))
    {
        event.Skip();
        return;
    }
    EmulateClick();
}

void wxtButton::Mnemonic(wxKeyEvent& event)
{
    if (!appearance::IsMnemonicOf(*this, event))
    {
        event.Skip();
        return;
    }
    const wxWeakRef<wxtButton> self(this);
    SetFocus();
    if (self)
    {
        EmulateClick();
    }
}

// The toolkit counts no clicks on these ports: the second press of a double click tells.
void wxtButton::Click(wxMouseEvent& event)
{
    CALL_ENTRY("wxtButton::Click");
    if (!event.LeftUp())
    {
        m_DoubleClick = event.LeftDClick();
        event.Skip();
        return;
    }
    const bool endsDoubleClick = m_DoubleClick || event.GetClickCount() > 1;
    m_DoubleClick = false;
    if (!endsDoubleClick && IsShown() && GetClientRect().Contains(event.GetPosition()))
    {
        EmulateClick();
    }
}

// A button is disabled while its handlers run, and comes back however they end.
class wxtButton::_Click
{
public:
    explicit _Click(wxtButton& button) : m_Button(&button), m_HadFocus(button.HasFocus())
    {
        button.Enable(false);
        button.m_Clicking = true;
        button.m_EnableAfterClick = true;
    }
    ~_Click()
    {
        if (m_Button)
        {
            m_Button->EndClick(m_HadFocus);
        }
    }
    _Click(const _Click&) = delete;
    _Click& operator=(const _Click&) = delete;

private:
    wxWeakRef<wxtButton> m_Button; // null: a handler has destroyed it
    bool                 m_HadFocus;
};

void wxtButton::EmulateClick()
{
    CALL_ENTRY("wxtButton::EmulateClick");
    if (m_Clicking || !IsEnabled())
    {
        return;
    }
    const _Click   click(*this);
    wxCommandEvent event(wxEVT_BUTTON, GetId());
    event.SetEventObject(this);
    GetEventHandler()->ProcessEvent(event);
}

void wxtButton::EndClick(bool hadFocus)
{
    m_Clicking = false;
    Enable(m_EnableAfterClick);
    RefreshColors();
    if (hadFocus && !IsBeingDeleted())
    {
        TakeFocusBack();
    }
}

// The toolkit takes the focus off a window that is disabled. Unless a handler has put it elsewhere,
// it is where the user left it again.
void wxtButton::TakeFocusBack()
{
    wxWindow* const focused = FindFocus();
    const bool elsewhere = focused && wxGetTopLevelParent(focused) == wxGetTopLevelParent(this);
    if (!elsewhere && IsEnabled() && IsShownOnScreen())
    {
        SetFocus();
    }
}

bool wxtButton::Enable(bool enable)
{
    CALL_ENTRY("wxtButton::Enable");
    if (m_Clicking)
    {
        // A handler's own wish counts when the click is over.
        m_EnableAfterClick = enable;
        return false;
    }
    const wxWindowUpdateLocker frozen(this);
    if (!wxControl::Enable(enable))
    {
        return false;
    }
    if (!enable && m_Hilighted && IsDefault())
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
    if (event.IsEnabled() && m_Hilighted && m_PreviousDefault != this)
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

// No border and no mark of the focus: colours and font tell the state.
void wxtButton::Paint(wxPaintEvent&)
{
    CALL_ENTRY("wxtButton::Paint");
    wxAutoBufferedPaintDC dc(this);
    const wxSize          client = GetClientSize();
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(GetBackgroundColour()));
    dc.DrawRectangle(wxPoint(0, 0), client);
    dc.SetFont(GetFont());
    dc.SetTextForeground(GetForegroundColour());
    const appearance::MnemonicLabel label(GetLabel());
    const wxSize                    text = dc.GetMultiLineTextExtent(label.text);
    label.Draw(dc, wxPoint(std::max((client.x - text.x) / 2, 0), (client.y - text.y) / 2),
               client.x);
}
