#pragma once

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/gdicmn.h>

#include <memory>

class wxGraphicsContext;
class wxWindow;

typedef struct _cairo_surface cairo_surface_t;

namespace internal
{
/// What a view is drawn on before it is shown, kept where the display draws: texts and fills are
/// told to the display instead of being painted by the program, and showing moves no pixels out of
/// the program's memory. Main thread.
class ScreenSurface
{
public:
    /// For a window of that client size in pixels; its content is undefined. Null where the port's
    /// bitmaps lie with the display already, and for a window that the display does not know yet.
    static std::unique_ptr<ScreenSurface> For(const wxWindow& window, const wxSize& size);

    ~ScreenSurface();
    ScreenSurface(const ScreenSurface&) = delete;
    ScreenSurface& operator=(const ScreenSurface&) = delete;

    wxSize Size() const { return m_Size; }   ///< Pixels of the window.
    double Scale() const { return m_Scale; } ///< Pixels of the display in one of the window.
    /// To draw on it. What was drawn is there once the context is gone.
    std::unique_ptr<wxDC> NewDC() const;
    /// Shows it at the window's top left, as far as the paint event's context reaches.
    void ShowOn(wxDC& paint) const;
    /// A copy in a bitmap of the toolkit.
    wxBitmap Copy() const;

private:
    ScreenSurface(cairo_surface_t* surface, const wxSize& size, double scale);

    cairo_surface_t* m_Surface;
    wxSize           m_Size;
    double           m_Scale;
};

/// A context of its own that draws where the device context does; null when there is none.
std::unique_ptr<wxGraphicsContext> NewContextOn(wxDC& dc);
} // namespace internal
