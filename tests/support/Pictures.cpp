#include "tests/support/Pictures.h"

#include "tests/support/FrameTest.h"
#include "tests/support/ScreenGrab.h"

#include <wx/dcmemory.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/window.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

wxImage Drawn(const wxSize& size, const wxColour& background,
              const std::function<void(wxMemoryDC&)>& draw)
{
    wxBitmap bitmap(size);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(background));
        dc.Clear();
        draw(dc);
    }
    return bitmap.ConvertToImage();
}

namespace
{
constexpr int kSettleMs = 60; // what the program has just done is mostly on the screen by then
constexpr int kMostSettleMs = 2000; // what moves all the time never stands still

wxImage ImageOf(const ScreenGrab& grab)
{
    wxImage image;
    if (grab.width > 0)
    {
        image.Create(grab.width, grab.height, false);
        std::copy(grab.pixels.begin(), grab.pixels.end(), image.GetData());
    }
    return image;
}

// A busy machine may need longer to draw: until it shows the same twice.
ScreenGrab Settled(const wxRect& area)
{
    WaitFor([] { return false; }, kSettleMs);
    ScreenGrab grab;
    const auto stands = [&]
    {
        ScreenGrab now = GrabScreen(area.x, area.y, area.width, area.height);
        std::swap(now, grab);
        return now.width > 0 && now.pixels == grab.pixels;
    };
    WaitFor(stands, kMostSettleMs);
    return grab;
}
} // namespace

wxImage PictureOfScreen()
{
    return ImageOf(Settled({}));
}

wxImage PictureOf(wxWindow* window)
{
    return ImageOf(Settled(wxRect(window->ClientToScreen(wxPoint(0, 0)), window->GetClientSize())));
}

wxColour PixelAt(const wxImage& image, int x, int y)
{
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
}

bool Near(const wxColour& a, const wxColour& b, int tolerance)
{
    return std::abs(a.Red() - b.Red()) <= tolerance &&
           std::abs(a.Green() - b.Green()) <= tolerance &&
           std::abs(a.Blue() - b.Blue()) <= tolerance;
}

bool SamePixels(const wxImage& a, const wxImage& b)
{
    return a.GetSize() == b.GetSize() &&
           std::memcmp(a.GetData(), b.GetData(),
                       static_cast<size_t>(a.GetWidth() * a.GetHeight() * 3)) == 0;
}

int CountPixels(const wxImage& image, const std::function<bool(const wxColour&)>& isLike)
{
    int count = 0;
    for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i)
    {
        count += isLike(PixelAt(image, i % image.GetWidth(), i / image.GetWidth()));
    }
    return count;
}

wxString Kept(const wxImage& image, const wxString& name)
{
    const wxString folder = TOLVAN_PICTURE_FOLDER;
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    const wxString file = folder + "/" + name + ".png";
    return image.SaveFile(file, wxBITMAP_TYPE_PNG) ? "picture kept in " + file
                                                   : "picture could not be kept in " + file;
}
