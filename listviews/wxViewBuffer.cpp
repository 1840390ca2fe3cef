#include "listviews/wxViewBuffer.h"

#include "internal/port/ScreenSurface.h"
#include "vesta/Exception.h"

#include <wx/dcmemory.h>
#include <wx/window.h>

wxViewBuffer::wxViewBuffer() = default;
wxViewBuffer::~wxViewBuffer() = default;

wxViewBuffer& wxViewBuffer::operator=(std::unique_ptr<wxBitmap> bitmap)
{
    m_Surface.reset();
    m_Bitmap = std::move(bitmap);
    return *this;
}

void wxViewBuffer::reset(wxBitmap* bitmap)
{
    *this = std::unique_ptr<wxBitmap>(bitmap);
}

wxViewBuffer::operator bool() const
{
    return m_Bitmap || m_Surface;
}

// Whoever wants the bitmap once draws into it at every paint.
wxBitmap* wxViewBuffer::get() const
{
    m_OnScreen = false;
    if (m_Surface)
    {
        m_Bitmap = std::make_unique<wxBitmap>(m_Surface->Copy());
        m_Surface.reset();
    }
    return m_Bitmap.get();
}

bool wxViewBuffer::Fits(const wxWindow& window, const wxSize& size) const
{
    const double scale = window.GetContentScaleFactor();
    if (m_Surface)
    {
        return m_Surface->Scale() == scale && m_Surface->Size() == size;
    }
    return m_Bitmap && m_Bitmap->GetScaleFactor() == scale && m_Bitmap->GetLogicalSize() == size;
}

void wxViewBuffer::Create(const wxWindow& window, const wxSize& size)
{
    reset();
    if (m_OnScreen)
    {
        m_Surface = internal::ScreenSurface::For(window, size);
    }
    if (m_Surface)
    {
        return;
    }
    // With the scale of the window, or everything drawn through it would be blurred on a
    // high-resolution screen.
    auto bitmap = std::make_unique<wxBitmap>();
    if (!bitmap->CreateScaled(size.x, size.y, wxBITMAP_SCREEN_DEPTH,
                              window.GetContentScaleFactor()))
    {
        Exception::Throw("wxDoubleBufferedWindow", "EnsureBuffer", ec_System,
                         "Can't create the off-screen bitmap");
    }
    m_Bitmap = std::move(bitmap);
}

std::unique_ptr<wxDC> wxViewBuffer::NewDC() const
{
    if (m_Surface)
    {
        return m_Surface->NewDC();
    }
    return std::make_unique<wxMemoryDC>(*m_Bitmap);
}

void wxViewBuffer::ShowOn(wxDC& paint) const
{
    if (m_Surface)
    {
        m_Surface->ShowOn(paint);
    }
    else if (m_Bitmap)
    {
        paint.DrawBitmap(*m_Bitmap, 0, 0, false);
    }
}
