#pragma once

#include <functional>
#include <sys/types.h>
#include <vector>

struct _XDisplay;

/// What of the display is one program's.
class ScreenView
{
public:
    using Id = unsigned long; // of a window

    struct Found
    {
        Id  id;
        int x, y, width, height; ///< What of it is on the screen, pixels.
    };

    ScreenView(_XDisplay* display, std::function<pid_t()> program);

    std::vector<Found> Windows() const; ///< Those that can be seen, the uppermost last.
    bool               HasFileDialog() const;
    bool Takes(int x, int y) const; ///< A click there: nothing covers it, no frame is under it.
    bool HasKeys() const;           ///< Keys come to the program.
    /// How many pixels of the program's windows, and of what lies over them, are so.
    int  Count(const std::function<bool(unsigned long)>& is) const;
    void Activate(Id window) const;
    void Resize(Id window, int width, int height) const; ///< And brings it back to the screen.
    /// Asks whether the window's program is there; whether it says so in time.
    bool Ask(Id window, int deadlineMs);

private:
    unsigned long   AtomOf(const char* name) const;
    void            Send(Id to, Id window, const char* type, long first, long second) const;
    std::vector<Id> Tree(Id window, Id* parent = nullptr) const;
    bool            IsOfProgram(Id window) const;
    bool            Find(Id window, std::vector<Found>& found) const;

    _XDisplay*             m_Display;
    std::function<pid_t()> m_Program;
    Id                     m_Root;
    long                   m_Question = 0; ///< The number of the latest.
};
