#pragma once

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/string.h>

#include <functional>

class wxMemoryDC;
class wxWindow;

/// What a function draws on a bitmap filled with `background`.
wxImage Drawn(const wxSize& size, const wxColour& background,
              const std::function<void(wxMemoryDC&)>& draw);
/// What the whole screen shows; an invalid image when it cannot be taken.
wxImage PictureOfScreen();
/// What a shown window looks like on the screen, its client area.
wxImage PictureOf(wxWindow* window);

wxColour PixelAt(const wxImage& image, int x, int y);
/// Whether every channel differs by at most `tolerance`.
bool Near(const wxColour& a, const wxColour& b, int tolerance);

bool SamePixels(const wxImage& a, const wxImage& b);

/// How many pixels are like that.
int CountPixels(const wxImage& image, const std::function<bool(const wxColour&)>& isLike);

/// Keeps a picture of a failed test; the text says where, to be streamed into the message.
wxString Kept(const wxImage& image, const wxString& name);
