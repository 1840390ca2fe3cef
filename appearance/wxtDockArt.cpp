#include "appearance/wxtDockArt.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/inputs/ItemDrawing.h"
#include "appearance/tabs/DropHint.h"
#include "appearance/tabs/TabLook.h"
#include "internal/text/OneLine.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/window.h>

#include <algorithm>

namespace
{
// Pixels at scale 1.
constexpr int kSash = 5;
constexpr int kOverText = 6; // of a caption's height
constexpr int kMargin = 5;
constexpr int kDot = 2;
constexpr int kDotStep = 5;
constexpr int kDots = 5; // of a sash; a gripper has as many as find room
constexpr int kIcon = 16;

constexpr float    kExponent = 1.5f; // bends the grades of a caption
constexpr unsigned kFlags =
    wxAUI_MGR_ALLOW_FLOATING | wxAUI_MGR_ALLOW_ACTIVE_PANE | wxAUI_MGR_LIVE_RESIZE;

bool IsActive(const wxAuiPaneInfo& pane)
{
    return pane.state & wxAuiPaneInfo::optionActive;
}

// Inks that can be read on the grounds: that of the selection is as light in every scheme.
wxColour CaptionInk(bool active)
{
    return active ? wxtReadableColor(wxtGetColor(color_3DDark), wxtGetColor(color_Selected))
                  : wxtGetColor(color_Text);
}

int CaptionHeight(const wxFont& font, const wxWindow* window)
{
    return (font.IsOk() ? font.GetPixelSize().y : 0) + wxWindow::FromDIP(2 * kOverText, window);
}

// Dots in a row along the longer side of the rectangle.
void DrawDots(wxDC& dc, const wxRect& rect, int most)
{
    const bool isUpright = rect.height > rect.width;
    const int  length = isUpright ? rect.height : rect.width;
    const int  count = std::min(most, length / kDotStep - 1);
    wxPoint    at(rect.x + (rect.width - kDot) / 2, rect.y + (rect.height - kDot) / 2);
    int&       way = isUpright ? at.y : at.x;
    way -= (count - 1) * kDotStep / 2;
    for (int i = 0; i < count; ++i, way += kDotStep)
    {
        appearance::FillGround(dc, wxRect(at, wxSize(kDot, kDot)), wxtGetColor(color_TextGrey));
    }
}
} // namespace

wxtDockArt::wxtDockArt()
{
    m_sashSize = wxWindow::FromDIP(kSash, nullptr);
    m_captionFont = *wxNORMAL_FONT;
    m_captionSize = CaptionHeight(m_captionFont, nullptr);
}

wxAuiDockArt* wxtDockArt::Clone()
{
    return new wxtDockArt(*this);
}

// The toolkit asks for pictures of its buttons in these colours; nobody draws them.
void wxtDockArt::UpdateColoursFromSystem()
{
}

wxColour wxtDockArt::GetColour(int id)
{
    switch (id)
    {
    case wxAUI_DOCKART_BACKGROUND_COLOUR:
    case wxAUI_DOCKART_SASH_COLOUR:
    case wxAUI_DOCKART_GRIPPER_COLOUR:
        return wxtGetColor(color_WindowBG);
    case wxAUI_DOCKART_BORDER_COLOUR:
        return wxtGetColor(color_WindowBGDarker);
    case wxAUI_DOCKART_ACTIVE_CAPTION_COLOUR:
    case wxAUI_DOCKART_ACTIVE_CAPTION_GRADIENT_COLOUR:
        return wxtGetColor(color_Selected);
    case wxAUI_DOCKART_INACTIVE_CAPTION_COLOUR:
        return wxtGetColor(color_WindowBGLighter);
    case wxAUI_DOCKART_INACTIVE_CAPTION_GRADIENT_COLOUR:
        return wxtGetColor(color_WindowBG);
    case wxAUI_DOCKART_ACTIVE_CAPTION_TEXT_COLOUR:
        return CaptionInk(true);
    case wxAUI_DOCKART_INACTIVE_CAPTION_TEXT_COLOUR:
        return CaptionInk(false);
    default:
        return wxAuiDefaultDockArt::GetColour(id);
    }
}

void wxtDockArt::DrawSash(wxDC& dc, wxWindow*, int, const wxRect& rect)
{
    CALL_ENTRY("wxtDockArt::DrawSash");
    appearance::FillGround(dc, rect, GetColour(wxAUI_DOCKART_SASH_COLOUR));
    DrawDots(dc, rect, kDots);
}

void wxtDockArt::DrawBackground(wxDC& dc, wxWindow*, int, const wxRect& rect)
{
    appearance::FillGround(dc, rect, GetColour(wxAUI_DOCKART_BACKGROUND_COLOUR));
}

void wxtDockArt::DrawCaption(wxDC& dc, wxWindow* window, const wxString& text, const wxRect& rect,
                             wxAuiPaneInfo& pane)
{
    CALL_ENTRY("wxtDockArt::DrawCaption");
    const bool isActive = IsActive(pane);
    DrawGradedRectangle(dc, rect,
                        GetColour(isActive ? wxAUI_DOCKART_ACTIVE_CAPTION_COLOUR
                                           : wxAUI_DOCKART_INACTIVE_CAPTION_COLOUR),
                        GetColour(isActive ? wxAUI_DOCKART_ACTIVE_CAPTION_GRADIENT_COLOUR
                                           : wxAUI_DOCKART_INACTIVE_CAPTION_GRADIENT_COLOUR),
                        kExponent, true, true);
    const int margin = window->FromDIP(kMargin);
    const int buttons = pane.HasCloseButton() + pane.HasPinButton() + pane.HasMaximizeButton();
    wxRect    room(rect.x + margin, rect.y, rect.width - 2 * margin - buttons * m_buttonSize,
                   rect.height);
    if (pane.icon.IsOk())
    {
        const int side = std::min(window->FromDIP(kIcon), rect.height);
        appearance::DrawTabIcon(dc, *window, pane.icon,
                                wxRect(room.x, rect.y + (rect.height - side) / 2, side, side));
        room.x += side + margin;
        room.width -= side + margin;
    }
    const wxColour ink = CaptionInk(isActive);
    if (room.width > 0 && ink.IsOk())
    {
        dc.SetFont(m_captionFont);
        dc.SetTextForeground(ink);
        dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
        const wxString shown = wxControl::Ellipsize(internal::OneLine(text), dc, wxELLIPSIZE_MIDDLE,
                                                    room.width, wxELLIPSIZE_FLAGS_NONE);
        dc.DrawText(shown, room.x, room.y + (room.height - dc.GetCharHeight()) / 2);
    }
}

void wxtDockArt::DrawGripper(wxDC& dc, wxWindow*, const wxRect& rect, wxAuiPaneInfo&)
{
    CALL_ENTRY("wxtDockArt::DrawGripper");
    appearance::FillGround(dc, rect, GetColour(wxAUI_DOCKART_GRIPPER_COLOUR));
    DrawDots(dc, rect, rect.height + rect.width);
}

void wxtDockArt::DrawBorder(wxDC& dc, wxWindow*, const wxRect& rect, wxAuiPaneInfo&)
{
    CALL_ENTRY("wxtDockArt::DrawBorder");
    wxRect frame = rect;
    for (int i = 0; i < m_borderSize; ++i, frame.Deflate(1))
    {
        appearance::DrawFrame(dc, frame, GetColour(wxAUI_DOCKART_BORDER_COLOUR));
    }
}

void wxtDockArt::DrawPaneButton(wxDC& dc, wxWindow* window, int button, int buttonState,
                                const wxRect& rect, wxAuiPaneInfo& pane)
{
    CALL_ENTRY("wxtDockArt::DrawPaneButton");
    const int    side = std::min({rect.width, rect.height, window->FromDIP(kIcon)});
    const wxRect square = wxRect(0, 0, side, side).CentreIn(rect);
    const bool   isHovered = buttonState == wxAUI_BUTTON_STATE_HOVER;
    const bool   isPressed = buttonState == wxAUI_BUTTON_STATE_PRESSED;
    if (isHovered || isPressed)
    {
        appearance::FillGround(dc, square, wxtGetColor(color_ButtonFace));
    }
    const wxColour ink =
        isHovered || isPressed ? wxtGetColor(color_ButtonText) : CaptionInk(IsActive(pane));
    const wxRect shape = wxRect(square).Deflate(side / 4);
    if (button == wxAUI_BUTTON_MAXIMIZE_RESTORE)
    {
        appearance::DrawFrame(dc, shape, ink);
        appearance::FillGround(
            dc, wxRect(shape.x, shape.y, shape.width, pane.IsMaximized() ? shape.height / 2 : 2),
            ink);
    }
    else if (button == wxAUI_BUTTON_PIN)
    {
        appearance::DrawTabArrow(dc, square, wxBOTTOM, ink);
    }
    else
    {
        appearance::TabLook look;
        look.ink = ink;
        appearance::DrawTabSlot(dc, square, appearance::TabSlot::close, look);
    }
}

wxtDockManager::wxtDockManager(wxWindow* managed) : wxAuiManager(managed, kFlags)
{
    SetArtProvider(new wxtDockArt);
}

wxtDockManager::~wxtDockManager() = default;

void wxtDockManager::ShowHint(const wxRect& rect)
{
    CALL_ENTRY("wxtDockManager::ShowHint");
    if (!m_Hint)
    {
        m_Hint = std::make_unique<appearance::DropHint>(*GetManagedWindow());
    }
    m_Hint->Show(rect);
}

void wxtDockManager::HideHint()
{
    m_Hint.reset();
}
