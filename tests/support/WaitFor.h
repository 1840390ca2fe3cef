#pragma once

#include <chrono>
#include <functional>
#include <thread>

/// Waits until the condition holds; false when the deadline comes first. For programs without a
/// window: it handles no events.
inline bool WaitFor(const std::function<bool()>& condition,
                    std::chrono::milliseconds    deadline = std::chrono::seconds(10))
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition())
    {
        if (std::chrono::steady_clock::now() > end)
        {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
