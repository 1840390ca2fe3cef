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

// The byte of a pixel that holds a channel of eight bits.
int ByteOf(const XImage& image, unsigned long mask)
{
    int byte = 0;
    for (; byte < 3 && (mask >> 8 * byte & 0xff) == 0; ++byte)
    {
    }
    return image.byte_order == LSBFirst ? byte : 3 - byte;
}

// By hand, and not pixel by pixel through the library: what tests the library is not optimised, and
// takes pictures all the time.
std::vector<unsigned char> PixelsOf(const XImage& image)
{
    const int red = ByteOf(image, image.red_mask);
    const int green = ByteOf(image, image.green_mask);
    const int blue = ByteOf(image, image.blue_mask);

    std::vector<unsigned char> pixels(static_cast<size_t>(image.width) *
                                      static_cast<size_t>(image.height) * 3);
    unsigned char*             to = pixels.data();
    for (int y = 0; y < image.height; ++y)
    {
        const char*       from = image.data + static_cast<ptrdiff_t>(y) * image.bytes_per_line;
        const char* const end = from + static_cast<ptrdiff_t>(image.width) * 4;
        for (; from != end; from += 4)
        {
            *to++ = static_cast<unsigned char>(from[red]);
            *to++ = static_cast<unsigned char>(from[green]);
            *to++ = static_cast<unsigned char>(from[blue]);
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
    if (!image || image->bits_per_pixel != 32)
    {
        return {};
    }
    return {width, height, PixelsOf(*image)};
}
