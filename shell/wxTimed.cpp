#include "shell/wxTimed.h"

#include "vesta/CallEntry.h"
#include "vesta/Mutex.h"

#include <wx/app.h>
#include <wx/thread.h>

Signal0<>      wxTimed::s_Timer0100;
Signal0<>      wxTimed::s_Timer0250;
wxMasterTimer* g_MasterTimer = nullptr;

namespace
{
constexpr int kTickMs = 50;
constexpr int kTicksOf100Ms = 2;
constexpr int kTicksOf250Ms = 5;

Mutex& TimerLock()
{
    static Mutex s_Lock;
    return s_Lock;
}
} // namespace

wxTimed::wxTimed()
{
    CALL_ENTRY("wxTimed::wxTimed");
    const MutexLock lock(TimerLock());
    if (!g_MasterTimer)
    {
        g_MasterTimer = new wxMasterTimer;
    }
    g_MasterTimer->Insert(this);
}

wxTimed::~wxTimed()
{
    const MutexLock lock(TimerLock());
    if (g_MasterTimer)
    {
        g_MasterTimer->Erase(this);
    }
}

wxMasterTimer::wxMasterTimer() : LibStatic("wxMasterTimer")
{
}

wxMasterTimer::~wxMasterTimer() = default;

void wxMasterTimer::Insert(wxTimed* timed)
{
    CALL_ENTRY("wxMasterTimer::Insert");
    const MutexLock lock(TimerLock());
    insert(timed);
    StartOrStop();
}

// The toolkit's timers are started and stopped on the main thread only.
void wxMasterTimer::StartOrStop()
{
    if (!wxIsMainThread())
    {
        wxTheApp->CallAfter(
            []
            {
                const MutexLock lock(TimerLock());
                if (g_MasterTimer)
                {
                    g_MasterTimer->StartOrStop();
                }
            });
        return;
    }
    if (empty())
    {
        Stop();
    }
    else if (!wxTimer::IsRunning())
    {
        Start(kTickMs, wxTIMER_CONTINUOUS);
    }
}

void wxMasterTimer::Erase(wxTimed* timed)
{
    CALL_ENTRY("wxMasterTimer::Erase");
    const MutexLock lock(TimerLock());
    erase(timed);
    m_Due.erase(timed);
    if (empty())
    {
        StartOrStop();
    }
}

// The toolkit calls this from C code that an exception must not pass through.
void wxMasterTimer::Notify()
{
    try
    {
        Tick();
    }
    catch (...)
    {
        wxEvtHandler::WXConsumeException();
    }
}

void wxMasterTimer::Tick()
{
    CALL_ENTRY("wxMasterTimer::Notify");
    const int tick = m_Ticks;
    // Counted first, so that a tick that throws is over too.
    ++m_Ticks;
    if (tick % kTicksOf100Ms == 0)
    {
        wxTimed::s_Timer0100.Emit();
    }
    if (tick % kTicksOf250Ms == 0)
    {
        wxTimed::s_Timer0250.Emit();
        TickObjects();
    }
}

void wxMasterTimer::TickObjects()
{
    const MutexLock lock(TimerLock());
    // An object may destroy any other, itself, or make new ones. Those begin with the next tick,
    // also where one stands in the place of an object that has gone.
    m_Due = *this;
    while (!m_Due.empty())
    {
        wxTimed* const object = *m_Due.begin();
        m_Due.erase(m_Due.begin());
        object->OnTick();
    }
}

void wxMasterTimer::OnLibCleanup()
{
    CALL_ENTRY("wxMasterTimer::OnLibCleanup");
    wxTimed::s_Timer0100.DisconnectAll();
    wxTimed::s_Timer0250.DisconnectAll();
    const MutexLock lock(TimerLock());
    g_MasterTimer = nullptr;
    delete this;
}
