#pragma once

#include "textviews/lines/LineStore.h"
#include "textviews/search/LineWatcher.h"

#include <chrono>
#include <memory>
#include <string_view>

namespace textviews
{
/// Where lines go that leave a view, one after the other.
class LineSink
{
public:
    virtual ~LineSink() = default;
    /// `goesOn`: the next one is the rest of this line.
    virtual void Take(std::string_view line, bool goesOn) = 0;
    virtual void Finish() = 0; ///< All have come.
};

/// Takes lines of a view to a sink, in slices that are short enough for a window to live meanwhile:
/// those that are there when it begins. Has to be told of the lines. Main thread.
class LineRun final : public LineWatcher
{
public:
    /// From `first` on, before `end`.
    LineRun(const LineStore& lines, int first, int end, std::unique_ptr<LineSink> sink);

    /// Goes on for a slice of time. Throws what the sink throws, and an `Exception*` where lines
    /// have gone before they were taken.
    void Work(std::chrono::milliseconds slice);
    bool IsDone() const { return m_IsDone; }
    /// It cannot go on before lines have come from a disk, which the store tells of.
    bool IsWaiting() const { return m_IsWaiting; }
    int  Percent() const; ///< Of the lines are taken.

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override;

private:
    void Take(const LineStore::Block& block);

    const LineStore&          m_Lines;
    std::unique_ptr<LineSink> m_Sink;
    int                       m_First;
    int                       m_Next;
    int                       m_End;
    int                       m_Replaced = 0; ///< Lines at the end that went to come anew.
    bool                      m_HasLost = false;
    bool                      m_IsWaiting = false;
    bool                      m_IsDone = false;
};
} // namespace textviews
