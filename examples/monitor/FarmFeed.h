#pragma once

#include "monitor/FarmText.h"

#include <deque>
#include <functional>
#include <mutex>

/// Carries the farm's log from the platform's threads to the main thread: the lines wait here until
/// the window takes them, and one wake-up serves all that wait.
class FarmFeed
{
public:
    /// `wake` is called, on any thread, when lines begin to wait.
    explicit FarmFeed(std::function<void()> wake);

    /// Any thread; messages are taken one at a time in the order of the calls.
    void OnMessage(const Message& message);
    void OnConnection(bool connected);

    /// Moves at most `limit` waiting lines out; `more` says whether some are left.
    std::deque<String> Take(size_t limit, bool& more);
    FarmText::Summary  Summarize() const;

private:
    void Add(std::vector<String> lines);

    std::function<void()> m_Wake;
    mutable std::mutex    m_Mutex;
    FarmText              m_Text;
    std::deque<String>    m_Lines;
    bool                  m_Awake = false; ///< The window knows of waiting lines.
};
