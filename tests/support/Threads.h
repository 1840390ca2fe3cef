#pragma once

#include <functional>
#include <thread>
#include <vector>

/// Threads that all run the same; they are waited for at the end of its life.
class Threads
{
public:
    /// The body gets the number of its thread, from 0.
    Threads(int count, const std::function<void(int)>& body)
    {
        for (int i = 0; i < count; ++i)
        {
            m_Threads.emplace_back(body, i);
        }
    }
    ~Threads() { Join(); }
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;

    void Join()
    {
        for (std::thread& thread : m_Threads)
        {
            thread.join();
        }
        m_Threads.clear();
    }

private:
    std::vector<std::thread> m_Threads;
};
