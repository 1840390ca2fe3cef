#include "appearance/wxtTabArt.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/inputs/ItemDrawing.h"
#include "appearance/tabs/PageWindow.h"
#include "appearance/tabs/TabLook.h"
#include "appearance/tabs/TabRow.h"
#include "appearance/wxtNotebook.h"
#include "internal/text/OneLine.h"
#include "vesta/CallEntry.h"

#include <wx/aui/auibook.h>
#include <wx/dc.h>
#include <wx/menu.h>

#include <algorithm>
#include <unordered_map>

namespace
{
// Pixels at scale 1.
constexpr appearance::TabSizes kSizes = {16, 14, 8, 6, 240};
constexpr int                  kOverText = 12; // of a tab's height
constexpr int                  kShelf = 2;     // under the tabs, in the colour of the active one
constexpr int                  kBorder = 1;
constexpr int                  kFocusInset = 4;
constexpr int                  kButton = 20;

constexpr size_t kReadable = 24;        // characters that a tab has room for, however large
constexpr size_t kMostCharacters = 400; // that are looked at
constexpr size_t kMostWidths = 10000;   // that are kept

wxString Caption(const wxString& text)
{
    if (text.length() <= kMostCharacters)
    {
        return internal::OneLine(text);
    }
    return internal::OneLine(text.Left(kMostCharacters / 2) + wxUniChar(0x2026) +
                             text.Right(kMostCharacters / 2));
}

// The notebook that the tab belongs to; null for a plain one.
const wxtNotebook* BookOf(const wxWindow* tabs)
{
    const auto* const bar = dynamic_cast<const appearance::PageBar*>(tabs);
    return bar ? bar->Book() : tabs ? dynamic_cast<const wxtNotebook*>(tabs->GetParent()) : nullptr;
}

bool IsModified(const wxWindow* tabs, const wxAuiNotebookPage& page)
{
    const wxtNotebook* const book = BookOf(tabs);
    return book && book->IsPageModified(page.window);
}

bool IsCurrent(const wxWindow* tabs, const wxAuiNotebookPage& page)
{
    const auto* const book = dynamic_cast<const wxAuiNotebook*>(tabs->GetParent());
    return !book || book->GetSelection() == book->FindPage(page.window);
}

appearance::TabSlot SlotOf(bool modified, int closeButtonState)
{
    switch (closeButtonState)
    {
    case wxAUI_BUTTON_STATE_HOVER:
        return appearance::TabSlot::hoveredClose;
    case wxAUI_BUTTON_STATE_PRESSED:
        return appearance::TabSlot::pressedClose;
    default:
        return modified ? appearance::TabSlot::mark : appearance::TabSlot::close;
    }
}
} // namespace

/// The font of tabs, and the widths of texts in it: measuring a text takes the toolkit long.
struct appearance::TabFonts
{
    const wxFont& For(const wxWindow& window)
    {
        const double scale = window.GetContentScaleFactor();
        // The same font; to compare two takes the toolkit longer than to measure a text.
        if (!measured.IsSameAs(font) || measuredScale != scale || widths.size() > kMostWidths)
        {
            widths.clear();
            measured = font;
            measuredScale = scale;
        }
        return font;
    }
    int WidthOf(const wxString& caption, const wxWindow& window)
    {
        const wxFont& used = For(window);
        const auto [at, isNew] = widths.try_emplace(caption, 0);
        if (isNew)
        {
            window.GetTextExtent(Caption(caption), &at->second, nullptr, nullptr, nullptr, &used);
        }
        return at->second;
    }
    int TabWidth(const wxWindow& window, const wxString& caption, bool hasIcon, bool hasSlot,
                 TabSizes sizes)
    {
        static const wxString s_Readable('n', kReadable);
        const int             readable = WidthOf(s_Readable, window);
        sizes.most =
            std::max(sizes.most, appearance::TabWidth(0, false, hasSlot, sizes) + readable);
        return appearance::TabWidth(WidthOf(caption, window), hasIcon, hasSlot, sizes);
    }

    wxFont                            font = *wxNORMAL_FONT;
    wxFont                            measured;
    double                            measuredScale = 0;
    std::unordered_map<wxString, int> widths;
};

wxtTabArt::wxtTabArt() : m_Fonts(std::make_shared<appearance::TabFonts>())
{
}

wxtTabArt::~wxtTabArt() = default;

wxAuiTabArt* wxtTabArt::Clone()
{
    return new wxtTabArt(*this);
}

void wxtTabArt::SetFlags(unsigned int flags)
{
    m_Flags = flags;
}

void wxtTabArt::SetSizingInfo(const wxSize&, size_t, wxWindow*)
{
}

void wxtTabArt::SetNormalFont(const wxFont& font)
{
    m_Fonts->font = font.IsOk() ? font : *wxNORMAL_FONT;
}

void wxtTabArt::SetSelectedFont(const wxFont&)
{
}

void wxtTabArt::SetMeasuringFont(const wxFont&)
{
}

void wxtTabArt::SetColour(const wxColour&)
{
}

void wxtTabArt::SetActiveColour(const wxColour&)
{
}

void wxtTabArt::DrawBorder(wxDC& dc, wxWindow*, const wxRect& rect)
{
    CALL_ENTRY("wxtTabArt::DrawBorder");
    appearance::DrawFrame(dc, rect, wxtGetColor(color_WindowBGDarker));
}

void wxtTabArt::DrawBackground(wxDC& dc, wxWindow*, const wxRect& rect)
{
    CALL_ENTRY("wxtTabArt::DrawBackground");
    appearance::FillGround(dc, rect, wxtGetColor(color_WindowBGDarker));
    wxRect shelf(rect.x, rect.y, rect.width, kShelf);
    shelf.y += m_Flags & wxAUI_NB_BOTTOM ? 0 : rect.height - kShelf;
    appearance::FillGround(dc, shelf, wxtGetColor(color_WindowBGLighter));
}

void wxtTabArt::DrawTab(wxDC& dc, wxWindow* wnd, const wxAuiNotebookPage& pane,
                        const wxRect& inRect, int closeButtonState, wxRect* outTabRect,
                        wxRect* outButtonRect, int* xExtent)
{
    CALL_ENTRY("wxtTabArt::DrawTab");
    const bool isModified = IsModified(wnd, pane);
    const bool isClosable = closeButtonState != wxAUI_BUTTON_STATE_HIDDEN;
    const bool isAtBottom = m_Flags & wxAUI_NB_BOTTOM;
    wxRect     tab = GroundIn(inRect);
    tab.width = std::min(inRect.width, WidthOf(*wnd, pane, isClosable));
    *xExtent = tab.width;
    *outTabRect = tab;

    const bool                isDisabled = !wnd->IsEnabled();
    const appearance::TabLook look =
        appearance::TabLook::Of({pane.active, IsCurrent(wnd, pane), pane.hover, isDisabled});
    const appearance::TabParts parts =
        appearance::PartsOfTab(tab, pane.bitmap.IsOk(), isClosable || isModified, SizesFor(*wnd));
    const wxDCClipper clip(dc, tab);
    appearance::DrawTabGround(dc, tab, look, isAtBottom);
    if (!parts.icon.IsEmpty())
    {
        appearance::DrawTabIcon(dc, *wnd, pane.bitmap, parts.icon, isDisabled);
    }
    dc.SetFont(m_Fonts->For(*wnd));
    if (look.ink.IsOk() && parts.text.width > 0)
    {
        dc.SetTextForeground(look.ink);
        dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
        const wxString text = wxControl::Ellipsize(Caption(pane.caption), dc, wxELLIPSIZE_MIDDLE,
                                                   parts.text.width, wxELLIPSIZE_FLAGS_NONE);
        dc.DrawText(text, parts.text.x,
                    parts.text.y + (parts.text.height - dc.GetCharHeight()) / 2);
    }
    *outButtonRect = isClosable ? parts.slot : wxRect();
    if (!parts.slot.IsEmpty())
    {
        appearance::DrawTabSlot(dc, parts.slot, SlotOf(isModified, closeButtonState), look);
    }
    if (pane.active && wnd->HasFocus())
    {
        wxtDrawFocus(dc, wxRect(tab).Deflate(kFocusInset), {look.inner, look.outer});
    }
}

void wxtTabArt::DrawButton(wxDC& dc, wxWindow* wnd, const wxRect& inRect, int bitmapId,
                           int buttonState, int orientation, wxRect* outRect)
{
    CALL_ENTRY("wxtTabArt::DrawButton");
    const int width = ButtonWidth(*wnd);
    wxRect    rect(inRect.x, inRect.y, width, inRect.height - kShelf);
    rect.x += orientation == wxRIGHT ? inRect.width - width : 0;
    *outRect = rect;
    const bool     isDisabled = buttonState & wxAUI_BUTTON_STATE_DISABLED || !wnd->IsEnabled();
    const bool     isPressed = buttonState & wxAUI_BUTTON_STATE_PRESSED;
    const bool     isHovered = buttonState & wxAUI_BUTTON_STATE_HOVER;
    const wxColour ink = wxtGetColor(isDisabled  ? color_WindowBGLighter
                                     : isPressed ? color_3DDark
                                     : isHovered ? color_ButtonText
                                                 : color_Text);
    if (!isDisabled && (isPressed || isHovered))
    {
        appearance::FillGround(dc, rect,
                               wxtGetColor(isPressed ? color_Selected : color_ButtonFace));
    }
    if (bitmapId == wxAUI_BUTTON_CLOSE)
    {
        const int           side = SizesFor(*wnd).slot;
        appearance::TabLook look;
        look.ink = ink;
        appearance::DrawTabSlot(dc, wxRect(0, 0, side, side).CentreIn(rect),
                                appearance::TabSlot::close, look);
        return;
    }
    appearance::DrawTabArrow(dc, rect,
                             bitmapId == wxAUI_BUTTON_LEFT    ? wxLEFT
                             : bitmapId == wxAUI_BUTTON_RIGHT ? wxRIGHT
                                                              : wxBOTTOM,
                             ink);
}

wxSize wxtTabArt::GetTabSize(wxDC&, wxWindow* wnd, const wxString& caption,
                             const wxBitmapBundle& bitmap, bool, int closeButtonState, int* xExtent)
{
    const bool hasSlot = closeButtonState != wxAUI_BUTTON_STATE_HIDDEN;
    const int  width = m_Fonts->TabWidth(*wnd, caption, bitmap.IsOk(), hasSlot, SizesFor(*wnd));
    *xExtent = width;
    return wxSize(width, wnd->GetClientSize().y);
}

wxRect wxtTabArt::GroundIn(const wxRect& tab) const
{
    const int top = m_Flags & wxAUI_NB_BOTTOM ? kShelf : 0;
    return wxRect(tab.x, tab.y + top, tab.width, tab.height - kShelf);
}

appearance::TabSizes wxtTabArt::SizesFor(const wxWindow& wnd)
{
    const auto pixels = [&wnd](int size) { return appearance::WithFont(wnd, size); };
    return {pixels(kSizes.icon), pixels(kSizes.slot), pixels(kSizes.margin), pixels(kSizes.gap),
            pixels(kSizes.most)};
}

int wxtTabArt::WidthOf(const wxWindow& wnd, const wxAuiNotebookPage& page, bool closable) const
{
    return WidthOf(wnd, page, closable, SizesFor(wnd));
}

int wxtTabArt::WidthOf(const wxWindow& wnd, const wxAuiNotebookPage& page, bool closable,
                       const appearance::TabSizes& sizes) const
{
    return m_Fonts->TabWidth(wnd, page.caption, page.bitmap.IsOk(),
                             closable || IsModified(&wnd, page), sizes);
}

wxRect wxtTabArt::SlotIn(const wxWindow& wnd, const wxAuiNotebookPage& page,
                         const wxRect& tab) const
{
    return appearance::PartsOfTab(GroundIn(tab), page.bitmap.IsOk(), true, SizesFor(wnd)).slot;
}

bool wxtTabArt::IsShortened(const wxWindow& wnd, const wxAuiNotebookPage& page, int width,
                            bool closable) const
{
    const appearance::TabParts parts =
        appearance::PartsOfTab(wxRect(0, 0, width, 1), page.bitmap.IsOk(),
                               closable || IsModified(&wnd, page), SizesFor(wnd));
    return m_Fonts->WidthOf(page.caption, wnd) > parts.text.width ||
           page.caption.length() > kMostCharacters;
}

int wxtTabArt::ShowDropDown(wxWindow* wnd, const wxAuiNotebookPageArray& items, int activeIdx)
{
    CALL_ENTRY("wxtTabArt::ShowDropDown");
    wxMenu menu;
    for (size_t i = 0; i < items.GetCount(); ++i)
    {
        const wxString label = wxControl::EscapeMnemonics(Caption(items.Item(i).caption));
        menu.AppendCheckItem(static_cast<int>(i) + 1, label.empty() ? wxString(" ") : label);
    }
    if (activeIdx >= 0)
    {
        menu.Check(activeIdx + 1, true);
    }
    const int picked = wnd->GetPopupMenuSelectionFromUser(menu);
    return picked == wxID_NONE ? -1 : picked - 1;
}

int wxtTabArt::GetIndentSize()
{
    return 0;
}

int wxtTabArt::GetBorderWidth(wxWindow*)
{
    return kBorder;
}

int wxtTabArt::GetAdditionalBorderSpace(wxWindow*)
{
    return 0;
}

int wxtTabArt::GetBestTabCtrlSize(wxWindow*     wnd, const wxAuiNotebookPageArray&,
                                  const wxSize& requiredBmpSize)
{
    int height = 0;
    wnd->GetTextExtent("Xg", nullptr, &height, nullptr, nullptr, &m_Fonts->For(*wnd));
    const int least = std::max(SizesFor(*wnd).icon, requiredBmpSize.y);
    return std::max(height, least) + wnd->FromDIP(kOverText) + kShelf;
}

int wxtTabArt::ButtonWidth(const wxWindow& wnd)
{
    return appearance::WithFont(wnd, kButton);
}
