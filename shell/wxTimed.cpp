#include "shell/wxTimed.h"

#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/app.h>
#include <wx/module.h>
#include <wx/thread.h>

#include <atomic>
#include <typeinfo>
#include <utility>

Signal0<>      wxTimed::s_Timer0100;
Signal0<>      wxTimed::s_Timer0250;
wxMasterTimer* g_MasterTimer = nullptr;

namespace
{
constexpr int kTickMs = 50;
constexpr int kTicksOf100Ms = 2;
constexpr int kTicksOf250Ms = 5;

thread_local int t_Holds = 0;

Mutex& TimerLock()
{
    static Mutex s_Lock;
    return s_Lock;
}

// Those made before there is an application object: the toolkit has no timers yet.
std::set<wxTimed*>& EarlyObjects()
{
    static std::set<wxTimed*> s_Objects;
    return s_Objects;
}

void Register(wxTimed* timed)
{
    if (!wxTheApp)
    {
        EarlyObjects().insert(timed);
        return;
    }
    if (!g_MasterTimer)
    {
        g_MasterTimer = new wxMasterTimer;
    }
    g_MasterTimer->Insert(timed);
}

class EarlyObjectsModule : public wxModule
{
public:
    bool OnInit() override
    {
        const MutexLock          lock(TimerLock());
        const std::set<wxTimed*> objects = std::exchange(EarlyObjects(), {});
        for (wxTimed* const timed : objects)
        {
            Register(timed);
        }
        return true;
    }
    void OnExit() override {}

    wxDECLARE_DYNAMIC_CLASS(EarlyObjectsModule);
};
wxIMPLEMENT_DYNAMIC_CLASS(EarlyObjectsModule, wxModule);

void WarnWithoutHold()
{
    static std::atomic<bool> s_IsWarned{false};
    if (!wxIsMainThread() && t_Holds == 0 && !s_IsWarned.exchange(true))
    {
        LogWarning("A wxTimed is made or destroyed on another thread without a wxTimed::Hold");
    }
}

// Best effort for those that another thread makes or destroys without a Hold.
bool IsWhole(const wxTimed& timed)
{
    return typeid(timed) != typeid(wxTimed);
}
} // namespace

wxTimed::Hold::Hold() : m_Lock(TimerLock())
{
    ++t_Holds;
}

wxTimed::Hold::~Hold()
{
    --t_Holds;
}

wxTimed::wxTimed()
{
    CALL_ENTRY("wxTimed::wxTimed");
    WarnWithoutHold();
    const MutexLock lock(TimerLock());
    Register(this);
}

wxTimed::~wxTimed()
{
    WarnWithoutHold();
    const MutexLock lock(TimerLock());
    EarlyObjects().erase(this);
    if (g_MasterTimer)
    {
        g_MasterTimer->Erase(this);
    }
}

// Marks a tick while it lives. What ends with it may be the timer itself.
struct wxMasterTimer::Ticking
{
    explicit Ticking(wxMasterTimer& timer) : m_Timer(timer) { ++m_Timer.m_Running; }
    ~Ticking()
    {
        if (--m_Timer.m_Running == 0 && m_Timer.m_IsOver)
        {
            delete &m_Timer;
        }
    }
    Ticking(const Ticking&) = delete;
    Ticking& operator=(const Ticking&) = delete;

    wxMasterTimer& m_Timer;
};

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
    const Ticking ticking(*this);
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
    if (t_Holds > 0)
    {
        return; // this thread's own, further up the stack
    }
    // An object may destroy any other, itself, or make new ones. Those begin with the next tick,
    // also where one stands in the place of an object that has gone.
    m_Due = *this;
    while (!m_Due.empty())
    {
        wxTimed* const object = *m_Due.begin();
        m_Due.erase(m_Due.begin());
        if (IsWhole(*object))
        {
            object->OnTick();
        }
    }
}

void wxMasterTimer::OnLibCleanup()
{
    CALL_ENTRY("wxMasterTimer::OnLibCleanup");
    wxTimed::s_Timer0100.DisconnectAll();
    wxTimed::s_Timer0250.DisconnectAll();
    const MutexLock lock(TimerLock());
    g_MasterTimer = nullptr;
    if (m_Running == 0)
    {
        delete this;
        return;
    }
    // Called from a slot or an object that it is just telling.
    clear();
    m_Due.clear();
    Stop();
    m_IsOver = true;
}
