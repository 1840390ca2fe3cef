#pragma once

#include "vesta/Export.h"

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/gdicmn.h>

#include <memory>

class wxWindow;

namespace internal
{
class ScreenSurface;
}

/// The off-screen picture of a view. A derived class that draws into a bitmap uses it as the owning
/// pointer to one that it is. The library's own views ask for `NewDC` instead: their picture lies
/// where the display draws, until somebody wants the bitmap; from then on it is one. Main thread.
class TOLVAN_API wxViewBuffer
{
public:
    wxViewBuffer();
    ~wxViewBuffer();
    wxViewBuffer(const wxViewBuffer&) = delete;
    wxViewBuffer& operator=(const wxViewBuffer&) = delete;

    /// Takes a bitmap instead of what there is.
    wxViewBuffer& operator=(std::unique_ptr<wxBitmap> bitmap);
    void          reset(wxBitmap* bitmap = nullptr);
    explicit      operator bool() const; ///< Whether there is a picture.
    /// The bitmap, null when there is no picture. One that was made for the display is turned into
    /// a bitmap with the same content.
    wxBitmap* get() const;
    wxBitmap& operator*() const { return *get(); } ///< There must be a picture.
    wxBitmap* operator->() const { return get(); } ///< There must be a picture.

    /// Lets pictures lie with the display from now on where nobody wants the bitmap.
    void UseScreen() { m_OnScreen = true; }
    /// Whether it has that size (pixels of the window) and the window's scale.
    bool Fits(const wxWindow& window, const wxSize& size) const;
    /// Makes one for the window, of which nothing is drawn; throws when that is not possible.
    void Create(const wxWindow& window, const wxSize& size);
    /// To draw on it, wherever it lies. There must be a picture. What was drawn is there once the
    /// context is gone.
    std::unique_ptr<wxDC> NewDC() const;
    /// Shows it at the window's top left.
    void ShowOn(wxDC& paint) const;

private:
    mutable bool                                     m_OnScreen = false;
    mutable std::unique_ptr<wxBitmap>                m_Bitmap;
    mutable std::unique_ptr<internal::ScreenSurface> m_Surface; ///< At most one of both.
};
