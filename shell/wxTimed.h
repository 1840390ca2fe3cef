#pragma once

#include "vesta/Export.h"
#include "vesta/LibStatic.h"
#include "vesta/Mutex.h"
#include "vesta/Signal.h"

#include <wx/timer.h>

#include <set>

/// Base of objects that want a nudge every 250 ms, from construction to destruction, and owner of
/// the signals for those that rather connect a slot. All are driven by one timer, which only runs
/// while there is a `wxTimed`; the signals alone do not keep it running.
///
/// `OnTick` and the signals come on the main thread. There objects may be made and destroyed at any
/// time, in a tick too, their own included; those made before there is an application object tick
/// once there is one. On any other thread they may only be made and destroyed under a `Hold`: the
/// base registers before the derived class is complete and leaves after it has gone, so that a tick
/// would meet half an object.
class TOLVAN_API wxTimed
{
public:
    /// No object ticks while it lives: `const wxTimed::Hold hold; object.reset();`. Taking it waits
    /// for the tick that is running, so nothing that an `OnTick` needs may be held meanwhile.
    class TOLVAN_API Hold
    {
    public:
        Hold();
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        MutexLock m_Lock;
    };

    wxTimed();
    virtual ~wxTimed();
    wxTimed(const wxTimed&) = delete;
    wxTimed& operator=(const wxTimed&) = delete;

    virtual void OnTick() = 0; ///< Every 250 ms.

    static Signal0<> s_Timer0100; ///< Every 100 ms.
    static Signal0<> s_Timer0250; ///< Every 250 ms, before the objects' `OnTick`.
};

/// The one timer. Its first tick, 50 ms after it starts, fires everything.
///
/// One recursive lock, of the process and not of the timer, guards the set and `g_MasterTimer`: a
/// tick that makes or destroys objects takes it again, and whoever does so on another thread waits
/// until the tick is over.
class TOLVAN_API wxMasterTimer : private wxTimer, private std::set<wxTimed*>, private LibStatic
{
public:
    wxMasterTimer();
    ~wxMasterTimer() override;

    void Insert(wxTimed* timed);
    void Erase(wxTimed* timed);

    bool IsRunning() const { return wxTimer::IsRunning(); }
    int  GetInterval() const { return wxTimer::GetInterval(); } ///< Milliseconds.

    void Notify() override;
    /// Ends everything and deletes the timer; in a tick, when that is over.
    void OnLibCleanup() override;

private:
    struct Ticking;

    void Tick();
    void TickObjects();
    void StartOrStop();

    int                m_Ticks = 0;      ///< Never reset while the timer exists.
    int                m_Running = 0;    ///< Ticks on the stack.
    bool               m_IsOver = false; ///< Cleaned up in a tick.
    std::set<wxTimed*> m_Due;            ///< Whose turn is still to come in the present tick.
};

/// Null before the first `wxTimed` is made (or the application object, if that comes later) and
/// after the library's clean-up.
extern TOLVAN_API wxMasterTimer* g_MasterTimer;
