#include "listviews/slices/Slices.h"

#include "vesta/CallEntry.h"

namespace listviews
{
namespace
{
using Clock = std::chrono::steady_clock;

constexpr auto kSlice = std::chrono::milliseconds(10);
constexpr int  kPause = 1;  // milliseconds
constexpr int  kRetry = 50; // milliseconds
} // namespace

Slices::Slices(std::function<void()> work) : m_Work(std::move(work)), m_Timer(this)
{
    Bind(wxEVT_TIMER, &Slices::OnTimer, this);
}

Slices::~Slices()
{
    m_Timer.Stop();
}

void Slices::GoOn()
{
    m_Timer.StartOnce(kPause);
}

void Slices::LookAgain()
{
    m_Timer.StartOnce(kRetry);
}

void Slices::Stop()
{
    m_Timer.Stop();
}

void Slices::OnTimer(wxTimerEvent&)
{
    CALL_ENTRY("Slices::OnTimer");
    const std::function<void()> work = m_Work;
    work();
}

Clock::time_point EndOfSlice()
{
    return Clock::now() + kSlice;
}

bool RunSlice(const std::function<bool()>& step)
{
    const auto end = EndOfSlice();
    while (step())
    {
        if (Clock::now() >= end)
        {
            return true;
        }
    }
    return false;
}
} // namespace listviews
