#include "tests/support/ScreenGrab.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <memory>

namespace
{
struct _Closer
{
    void operator()(Display* display) const { XCloseDisplay(display); }
    void operator()(XImage* image) const { XDestroyImage(image); }
};

// Where a channel of eight bits begins.
int ShiftOf(unsigned long mask)
{
    int shift = 0;
    for (; mask != 0 && (mask >> shift & 1) == 0; ++shift)
    {
    }
    return shift;
}

std::vector<unsigned char> PixelsOf(XImage& image)
{
    const int shifts[] = {ShiftOf(image.red_mask), ShiftOf(image.green_mask),
                          ShiftOf(image.blue_mask)};

    std::vector<unsigned char> pixels;
    pixels.reserve(static_cast<size_t>(image.width) * static_cast<size_t>(image.height) * 3);
    for (int y = 0; y < image.height; ++y)
    {
        for (int x = 0; x < image.width; ++x)
        {
            const unsigned long pixel = XGetPixel(&image, x, y);
            for (const int shift : shifts)
            {
                pixels.push_back(static_cast<unsigned char>(pixel >> shift));
            }
        }
    }
    return pixels;
}
} // namespace

ScreenGrab GrabScreen(int x, int y, int width, int height)
{
    const std::unique_ptr<Display, _Closer> display(XOpenDisplay(nullptr));
    if (!display)
    {
        return {};
    }
    const int all = DefaultScreen(display.get());
    width = width > 0 ? width : DisplayWidth(display.get(), all);
    height = height > 0 ? height : DisplayHeight(display.get(), all);
    if (x < 0 || y < 0 || x + width > DisplayWidth(display.get(), all) ||
        y + height > DisplayHeight(display.get(), all))
    {
        return {};
    }
    const std::unique_ptr<XImage, _Closer> image(
        XGetImage(display.get(), DefaultRootWindow(display.get()), x, y,
                  static_cast<unsigned>(width), static_cast<unsigned>(height), AllPlanes, ZPixmap));
    if (!image)
    {
        return {};
    }
    return {width, height, PixelsOf(*image)};
}
