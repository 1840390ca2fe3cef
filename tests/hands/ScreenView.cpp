#include "tests/hands/ScreenView.h"

#include "tests/hands/Patient.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cstring>

namespace
{
constexpr int  kCorner = 30; // pixels, where a window is put that may have been dragged away
constexpr long kPager = 2;   // whom window managers obey

// Windows go at any time, also between two questions about them.
int IgnoreError(Display*, XErrorEvent*)
{
    return 0;
}
} // namespace

ScreenView::ScreenView(_XDisplay* display, std::function<pid_t()> program)
    : m_Display(display), m_Program(std::move(program)), m_Root(DefaultRootWindow(display))
{
    XSetErrorHandler(IgnoreError);
    XSelectInput(m_Display, m_Root, SubstructureNotifyMask); // answers are sent to the root window
}

unsigned long ScreenView::AtomOf(const char* name) const
{
    return XInternAtom(m_Display, name, False);
}

std::vector<ScreenView::Id> ScreenView::Tree(Id window, Id* parent) const
{
    Window   ignored = None;
    Window   above = None;
    Window*  children = nullptr;
    unsigned count = 0;
    XQueryTree(m_Display, window, &ignored, &above, &children, &count);
    const std::vector<Id> all(children, children + count);
    if (parent)
    {
        *parent = above;
    }
    XFree(children);
    return all;
}

bool ScreenView::IsOfProgram(Id window) const
{
    unsigned long  type = None;
    int            format = 0;
    unsigned long  count = 0;
    unsigned long  rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(m_Display, window, AtomOf("_NET_WM_PID"), 0, 1, False, XA_CARDINAL, &type,
                       &format, &count, &rest, &data);
    long process = 0;
    if (data)
    {
        std::memcpy(&process, data, count * sizeof process);
    }
    XFree(data);
    return process == m_Program();
}

// The program's window at or under that one.
bool ScreenView::Find(Id window, std::vector<Found>& found) const
{
    XWindowAttributes state;
    if (!XGetWindowAttributes(m_Display, window, &state) || state.map_state != IsViewable)
    {
        return false;
    }
    if (!IsOfProgram(window))
    {
        const auto children = Tree(window);
        return std::any_of(children.begin(), children.end(),
                           [&](Id child) { return Find(child, found); });
    }
    int    x = 0;
    int    y = 0;
    Window ignored = None;
    XTranslateCoordinates(m_Display, window, m_Root, 0, 0, &x, &y, &ignored);
    const int right = std::min(x + state.width, DisplayWidth(m_Display, 0));
    const int bottom = std::min(y + state.height, DisplayHeight(m_Display, 0));
    x = std::max(x, 0);
    y = std::max(y, 0);
    if (x < right && y < bottom)
    {
        found.push_back({window, x, y, right - x, bottom - y});
    }
    return true;
}

std::vector<ScreenView::Found> ScreenView::Windows() const
{
    std::vector<Found> found;
    for (const Id child : Tree(m_Root))
    {
        Find(child, found);
    }
    return found;
}

bool ScreenView::HasFileDialog() const
{
    const auto windows = Windows();
    return std::any_of(windows.begin(), windows.end(),
                       [this](const Found& window)
                       {
                           XTextProperty role = {};
                           XGetTextProperty(m_Display, window.id, &role, AtomOf("WM_WINDOW_ROLE"));
                           const bool is =
                               role.value && std::strcmp(reinterpret_cast<char*>(role.value),
                                                         "GtkFileChooserDialog") == 0;
                           XFree(role.value);
                           return is;
                       });
}

bool ScreenView::Takes(int x, int y) const
{
    Window at = m_Root;
    while (at != None && !IsOfProgram(at))
    {
        int    ignored = 0;
        Window child = None;
        XTranslateCoordinates(m_Display, m_Root, at, x, y, &ignored, &ignored, &child);
        at = child;
    }
    return at != None;
}

bool ScreenView::HasKeys() const
{
    Id  at = None;
    int ignored = 0;
    XGetInputFocus(m_Display, &at, &ignored);
    while (at > PointerRoot && at != m_Root && !IsOfProgram(at))
    {
        Tree(at, &at);
    }
    return at > PointerRoot && at != m_Root;
}

int ScreenView::Count(const std::function<bool(unsigned long)>& is) const
{
    int count = 0;
    for (const Found& each : Windows())
    {
        XImage* const image =
            XGetImage(m_Display, m_Root, each.x, each.y, static_cast<unsigned>(each.width),
                      static_cast<unsigned>(each.height), AllPlanes, ZPixmap);
        for (int i = 0; image && i < each.width * each.height; ++i)
        {
            count += is(XGetPixel(image, i % each.width, i / each.width));
        }
        if (image)
        {
            XDestroyImage(image);
        }
    }
    return count;
}

void ScreenView::Send(Id to, Id window, const char* type, long first, long second) const
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = AtomOf(type);
    event.xclient.format = 32;
    event.xclient.data.l[0] = first;
    event.xclient.data.l[1] = second;
    event.xclient.data.l[2] = static_cast<long>(window);
    const long mask = SubstructureRedirectMask | SubstructureNotifyMask;
    XSendEvent(m_Display, to, False, to == m_Root ? mask : NoEventMask, &event);
    XSync(m_Display, False);
}

void ScreenView::Activate(Id window) const
{
    Send(m_Root, window, "_NET_ACTIVE_WINDOW", kPager, CurrentTime);
}

void ScreenView::Resize(Id window, int width, int height) const
{
    XMoveResizeWindow(m_Display, window, kCorner, kCorner, static_cast<unsigned>(width),
                      static_cast<unsigned>(height));
    XSync(m_Display, False);
}

bool ScreenView::Ask(Id window, int deadlineMs)
{
    Send(window, window, "WM_PROTOCOLS", static_cast<long>(AtomOf("_NET_WM_PING")), ++m_Question);
    const auto isAnswered = [this]
    {
        bool   answered = false;
        XEvent event;
        while (XPending(m_Display) > 0)
        {
            XNextEvent(m_Display, &event);
            answered = answered || (event.type == ClientMessage && event.xclient.window == m_Root &&
                                    event.xclient.data.l[1] == m_Question);
        }
        return answered;
    };
    return WaitUntil(deadlineMs, isAnswered);
}
