#pragma once

#include <string>
#include <vector>

// Xlib's own type; its header would bring its macros along.
struct _XDisplay;

/// A real pointer and real keys: what the X server itself takes for a user's. Everything is on its
/// way to the windows when an operation returns.
class Hand
{
public:
    Hand();
    ~Hand(); ///< Lets go of what is still held.
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    bool IsThere() const { return m_Display != nullptr; } ///< There is a display that takes it.
    _XDisplay* Display() const { return m_Display; }

    void Move(int x, int y);             ///< Pixels of the screen.
    void Button(int button, bool press); ///< 1: left, 2: middle, 3: right.
    void Clicks(int button, int count);  ///< So fast that the toolkit sees them as one.
    void Notch(bool down);               ///< Of the wheel.
    /// One key with its modifiers, as in "ctrl+Home" or "KP_Next". How many keys went down and up
    /// again; 0 when none has that name.
    int Key(const std::string& name);
    /// A list or a menu is on the screen: a window that comes past the window manager and is larger
    /// than what nobody is to see. Tips do not count.
    bool SeesPopUp() const;
    /// Where the tip that is shown begins: pixels of the screen from its left; -1 when none is.
    int TipLeft() const;

private:
    _XDisplay*       m_Display;
    std::vector<int> m_Held; ///< Buttons.
};
