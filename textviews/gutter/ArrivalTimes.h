#pragma once

#include "textviews/search/LineWatcher.h"
#include "vesta/Time.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace textviews
{
/// When each line came, to the second: eight bytes for lines that came one after the other within
/// a second. To be told of lines that come and go. Main thread.
class ArrivalTimes final : public LineWatcher
{
public:
    using Clock = std::function<Time()>;

    /// `known`: lines that are there already, of which nobody knows.
    explicit ArrivalTimes(int known, Clock clock = &Time::CurrentTime);

    /// While it lives, lines have come at that time (`Time()`: nobody knows), whatever the clock
    /// says. `times` may be null.
    class AllCame
    {
    public:
        AllCame(ArrivalTimes* times, Time came);
        ~AllCame();
        AllCame(const AllCame&) = delete;
        AllCame& operator=(const AllCame&) = delete;

    private:
        ArrivalTimes* m_Times;
    };

    /// None of a line that was there before, and of no line.
    std::optional<Time> Of(int line) const;
    /// The first and the last known one are of different days: a day has to be told.
    bool SpansDays() const { return m_SpansDays; }
    /// "17:05:09", in local time; before it, where the lines are of more than one day and the line
    /// before is of another one, the day: "03-31 17:05:09". Empty where nobody knows.
    std::string TextOf(int line) const;
    /// The longest of those texts.
    int Cells() const;

    size_t Entries() const { return m_Runs.size(); } ///< Of eight bytes.

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override;

private:
    /// Lines from that one on to the next run's.
    struct Run
    {
        uint32_t first;  ///< Plus `m_Erased`, modulo 2^32: there are fewer lines than that.
        uint32_t second; ///< Since 1970; 0: nobody knows.
    };
    using Runs = std::deque<Run>;

    uint32_t Offset(const Run& run) const { return run.first - m_Erased; }
    size_t   RunOf(int line) const;
    void     InsertAt(int line, uint32_t second);
    void     Shift(size_t run, int by);
    void     CompareDays();

    uint32_t SecondNow() const;

    Clock               m_Clock;
    std::optional<Time> m_Came; ///< In the clock's place.
    Runs                m_Runs; ///< None has no lines.
    uint32_t            m_Erased = 0;
    int                 m_Count = 0;
    bool                m_SpansDays = false;
};
} // namespace textviews
