#include "tests/hands/Hand.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include <algorithm>

namespace
{
const struct
{
    const char* name;
    KeySym      key;
} kModifiers[] = {{"ctrl", XStringToKeysym("Control_L")},
                  {"shift", XStringToKeysym("Shift_L")},
                  {"alt", XStringToKeysym("Alt_L")}};

constexpr int kWheelUp = 4; // X11 numbers the wheel among the buttons
constexpr int kWheelDown = 5;
constexpr int kLeastPopUp = 10; // pixels of either side

bool IsTip(Display* display, Window window)
{
    Atom           type = None;
    int            format = 0;
    unsigned long  count = 0;
    unsigned long  left = 0;
    unsigned char* value = nullptr;
    XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), 0, 1,
                       False, XA_ATOM, &type, &format, &count, &left, &value);
    const bool isTip = count == 1 && *reinterpret_cast<Atom*>(value) ==
                                         XInternAtom(display, "_NET_WM_WINDOW_TYPE_TOOLTIP", False);
    XFree(value);
    return isTip;
}

// Any window may go while it is looked at: the display says so by an error, which nobody needs.
int IgnoreError(Display*, XErrorEvent*)
{
    return 0;
}

// What comes past the window manager, and is larger than what nobody is to see.
bool IsAbove(const XWindowAttributes& attributes)
{
    return attributes.override_redirect && attributes.map_state == IsViewable &&
           attributes.width >= kLeastPopUp && attributes.height >= kLeastPopUp;
}

// Those that come past the window manager and are tips, or are none.
std::vector<XWindowAttributes> WindowsAbove(Display* display, bool tips)
{
    Window       root = 0;
    Window       parent = 0;
    Window*      windows = nullptr;
    unsigned int count = 0;
    XQueryTree(display, DefaultRootWindow(display), &root, &parent, &windows, &count);
    auto* const                    before = XSetErrorHandler(IgnoreError);
    std::vector<XWindowAttributes> above;
    for (const Window* window = windows; window != windows + count; ++window)
    {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display, *window, &attributes) && IsAbove(attributes) &&
            IsTip(display, *window) == tips)
        {
            above.push_back(attributes);
        }
    }
    XSetErrorHandler(before);
    XFree(windows);
    return above;
}
} // namespace

Hand::Hand() : m_Display(XOpenDisplay(nullptr))
{
    int ignored = 0;
    if (m_Display && !XTestQueryExtension(m_Display, &ignored, &ignored, &ignored, &ignored))
    {
        XCloseDisplay(m_Display);
        m_Display = nullptr;
    }
}

Hand::~Hand()
{
    while (!m_Held.empty())
    {
        Button(m_Held.back(), false);
    }
    if (m_Display)
    {
        XCloseDisplay(m_Display);
    }
}

void Hand::Move(int x, int y)
{
    XTestFakeMotionEvent(m_Display, -1, x, y, CurrentTime);
    XSync(m_Display, False);
}

void Hand::Button(int button, bool press)
{
    m_Held.erase(std::remove(m_Held.begin(), m_Held.end(), button), m_Held.end());
    if (press)
    {
        m_Held.push_back(button);
    }
    XTestFakeButtonEvent(m_Display, static_cast<unsigned>(button), press, CurrentTime);
    XSync(m_Display, False);
}

void Hand::Clicks(int button, int count)
{
    for (int i = 0; i < 2 * count; ++i)
    {
        XTestFakeButtonEvent(m_Display, static_cast<unsigned>(button), i % 2 == 0, CurrentTime);
    }
    XSync(m_Display, False);
}

void Hand::Notch(bool down)
{
    Clicks(down ? kWheelDown : kWheelUp, 1);
}

int Hand::Key(const std::string& name)
{
    std::vector<unsigned> codes;
    size_t                start = 0;
    for (size_t plus = name.find('+'); plus != std::string::npos; plus = name.find('+', start))
    {
        for (const auto& modifier : kModifiers)
        {
            if (name.compare(start, plus - start, modifier.name) == 0)
            {
                codes.push_back(XKeysymToKeycode(m_Display, modifier.key));
            }
        }
        start = plus + 1;
    }
    const KeySym  symbol = XStringToKeysym(name.c_str() + start);
    const KeyCode code = XKeysymToKeycode(m_Display, symbol);
    if (symbol == NoSymbol || code == 0)
    {
        return 0;
    }
    if (XkbKeycodeToKeysym(m_Display, code, 0, 0) != symbol)
    {
        codes.push_back(XKeysymToKeycode(m_Display, XStringToKeysym("Shift_L")));
    }
    codes.push_back(code);
    // Press and release go out together: the server repeats a key that is held.
    for (const unsigned each : codes)
    {
        XTestFakeKeyEvent(m_Display, each, True, CurrentTime);
    }
    for (auto each = codes.rbegin(); each != codes.rend(); ++each)
    {
        XTestFakeKeyEvent(m_Display, *each, False, CurrentTime);
    }
    XSync(m_Display, False);
    return static_cast<int>(codes.size());
}

bool Hand::SeesPopUp() const
{
    return !WindowsAbove(m_Display, false).empty();
}

int Hand::TipLeft() const
{
    const std::vector<XWindowAttributes> tips = WindowsAbove(m_Display, true);
    return tips.empty() ? -1 : tips.front().x;
}
