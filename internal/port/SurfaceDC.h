#pragma once

#include <wx/dc.h>

#include <functional>
#include <memory>

class wxGraphicsContext;

namespace internal
{
/// Draws on a surface of the display, and tells before it does: whoever else draws there and
/// gathers it may have to come first. Main thread.
class SurfaceDC : public wxDC
{
public:
    /// Takes the graphics context. `size`: pixels; `scale`: pixels of the display in one of them.
    SurfaceDC(std::unique_ptr<wxGraphicsContext> context, const wxSize& size, double scale);

    /// Empty: nobody is told.
    void SetBefore(std::function<void()> before);
};
} // namespace internal
