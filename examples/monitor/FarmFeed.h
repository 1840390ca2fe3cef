#pragma once

#include "monitor/FarmChanges.h"
#include "monitor/FarmText.h"
#include "monitor/TimedLine.h"

#include <deque>
#include <functional>
#include <mutex>

/// Carries the farm's news from the platform's threads to the main thread: the lines of its log and
/// the changes of its jobs wait here until the window takes them, and one wake-up serves all that
/// wait.
class FarmFeed
{
public:
    /// What waited.
    struct Batch
    {
        std::deque<TimedLine> lines; ///< Of the farm's log.
        FarmChanges           changes;
        bool                  more = false; ///< Further lines wait.
    };

    /// `wake` is called, on any thread, when something begins to wait.
    explicit FarmFeed(std::function<void()> wake);

    /// Any thread; messages are taken one at a time in the order of the calls.
    void OnMessage(const Message& message);
    void OnConnection(bool connected);

    /// Moves all waiting changes and at most `limit` waiting lines out.
    Batch Take(size_t limit);

private:
    void Add(std::vector<String> lines, Time came);

    std::function<void()> m_Wake;
    std::mutex            m_Mutex;
    FarmText              m_Text;
    std::deque<TimedLine> m_Lines;
    FarmChanges           m_Changes;
    bool                  m_Awake = false; ///< The window knows that something waits.
};
