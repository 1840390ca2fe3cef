#include "appearance/tabs/DropHint.h"

#include "appearance/ColorScheme.h"

#include <wx/region.h>

#include <algorithm>

namespace appearance
{
namespace
{
constexpr int kWidth = 4; // pixels, of the frame; what is narrower is filled
} // namespace

void DropHint::Show(const wxRect& screen)
{
    if (screen == m_Shown || !m_Owner)
    {
        return;
    }
    Hide();
    if (screen.IsEmpty())
    {
        return;
    }
    m_Shown = screen;
    const wxSize size = screen.GetSize();
    m_Window = new wxPopupWindow(m_Owner, wxFRAME_SHAPED | wxBORDER_NONE);
    m_Window->SetBackgroundColour(wxtGetColor(color_Selected));
    m_Window->SetSize(wxRect(screen.GetPosition(), size));
    wxRegion frame(wxRect{size});
    if (std::min(size.x, size.y) > 2 * kWidth)
    {
        frame.Subtract(wxRect(size).Deflate(kWidth));
    }
    m_Window->SetShape(frame);
    m_Window->Show();
}

void DropHint::Hide()
{
    m_Shown = wxRect();
    if (m_Window)
    {
        m_Window->Destroy();
    }
}
} // namespace appearance
