#include "textviews/gutter/ArrivalTimes.h"

#include <algorithm>
#include <utility>

namespace textviews
{
namespace
{
constexpr int kClockCells = 8; // "17:05:09"
constexpr int kDayCells = 6;   // "03-31 "
constexpr int kYearChars = 5;  // "2026-"
constexpr int kDateChars = 10; // "2026-03-31"

String DayOf(Time time)
{
    return time.FormatDate().substr(0, kDateChars);
}

Time TimeOf(uint32_t second)
{
    return Time::Seconds(second);
}
} // namespace

ArrivalTimes::ArrivalTimes(int known, Clock clock) : m_Clock(std::move(clock)), m_Count(known)
{
    if (known > 0)
    {
        m_Runs.push_back({0, 0});
    }
}

ArrivalTimes::AllCame::AllCame(ArrivalTimes* times, Time came) : m_Times(times)
{
    if (m_Times)
    {
        m_Times->m_Came = came;
    }
}

ArrivalTimes::AllCame::~AllCame()
{
    if (m_Times)
    {
        m_Times->m_Came.reset();
    }
}

// 0 stands for nobody's knowledge; so does what does not fit.
uint32_t ArrivalTimes::SecondNow() const
{
    const int64_t second = (m_Came ? *m_Came : m_Clock()).ToSeconds();
    return second < 0 || second > UINT32_MAX ? 0 : static_cast<uint32_t>(second);
}

size_t ArrivalTimes::RunOf(int line) const
{
    const auto after =
        std::upper_bound(m_Runs.begin(), m_Runs.end(), static_cast<uint32_t>(line),
                         [this](uint32_t index, const Run& run) { return index < Offset(run); });
    return static_cast<size_t>(after - m_Runs.begin()) - 1;
}

std::optional<Time> ArrivalTimes::Of(int line) const
{
    if (line < 0 || line >= m_Count)
    {
        return {};
    }
    const uint32_t second = m_Runs[RunOf(line)].second;
    return second == 0 ? std::nullopt : std::optional<Time>(TimeOf(second));
}

std::string ArrivalTimes::TextOf(int line) const
{
    const std::optional<Time> time = Of(line);
    if (!time)
    {
        return {};
    }
    const std::string text = time->FormatDate();
    if (m_SpansDays)
    {
        const std::optional<Time> before = Of(line - 1);
        if (!before || DayOf(*before) != DayOf(*time))
        {
            return text.substr(kYearChars);
        }
    }
    return text.substr(kYearChars + kDayCells);
}

int ArrivalTimes::Cells() const
{
    return m_SpansDays ? kDayCells + kClockCells : kClockCells;
}

void ArrivalTimes::LineInserted(int line)
{
    const uint32_t second = SecondNow();
    const int      count = m_Count++;
    if (line < count)
    {
        InsertAt(line, second);
    }
    else if (m_Runs.empty() || m_Runs.back().second != second)
    {
        m_Runs.push_back({m_Erased + static_cast<uint32_t>(line), second});
        CompareDays();
    }
}

// Among lines of its own second it lengthens their run; else it comes between two, one of which may
// have to be made.
void ArrivalTimes::InsertAt(int line, uint32_t second)
{
    size_t run = RunOf(line);
    if (m_Runs[run].second == second)
    {
        Shift(run + 1, 1);
        return;
    }
    const auto first = m_Erased + static_cast<uint32_t>(line);
    if (m_Runs[run].first == first)
    {
        Shift(run, 1);
        if (run > 0 && m_Runs[run - 1].second == second)
        {
            return;
        }
    }
    else
    {
        Shift(run + 1, 1);
        const Run rest{first + 1, m_Runs[run].second};
        ++run;
        m_Runs.insert(m_Runs.begin() + static_cast<ptrdiff_t>(run), rest);
    }
    m_Runs.insert(m_Runs.begin() + static_cast<ptrdiff_t>(run), Run{first, second});
    CompareDays();
}

// What leaves brings no further day.
void ArrivalTimes::LineErased(int line)
{
    const size_t run = RunOf(line);
    const auto   end =
        run + 1 < m_Runs.size() ? Offset(m_Runs[run + 1]) : static_cast<uint32_t>(m_Count);
    const bool isAlone = end - Offset(m_Runs[run]) == 1;
    --m_Count;
    if (line == 0) // very many go there
    {
        ++m_Erased;
        if (!isAlone)
        {
            m_Runs.front().first = m_Erased;
            return;
        }
        m_Runs.pop_front();
    }
    else
    {
        Shift(run + 1, -1);
        if (!isAlone)
        {
            return;
        }
        m_Runs.erase(m_Runs.begin() + static_cast<ptrdiff_t>(run));
    }
    if (m_SpansDays)
    {
        CompareDays();
    }
}

void ArrivalTimes::LinesCleared()
{
    m_Runs.clear();
    m_Count = 0;
    m_SpansDays = false;
}

void ArrivalTimes::Shift(size_t run, int by)
{
    for (; run < m_Runs.size(); ++run)
    {
        m_Runs[run].first += static_cast<uint32_t>(by);
    }
}

void ArrivalTimes::CompareDays()
{
    const auto isKnown = [](const Run& run) { return run.second != 0; };
    const auto first = std::find_if(m_Runs.begin(), m_Runs.end(), isKnown);
    const auto last = std::find_if(m_Runs.rbegin(), m_Runs.rend(), isKnown);
    m_SpansDays =
        first != m_Runs.end() && DayOf(TimeOf(first->second)) != DayOf(TimeOf(last->second));
}
} // namespace textviews
