#include "vesta/ThreadPool.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/Log.h"

#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>

#include <algorithm>
#include <deque>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace
{

using Pool = boost::asio::thread_pool;
using Queue = std::deque<ThreadPool::Task>;

struct State
{
    std::mutex                   startStop; ///< Held while the pool is started or stopped.
    std::mutex                   mutex;     ///< Guards what follows.
    std::unique_ptr<Pool>        pool;
    bool                         ready = false;
    std::map<const void*, Queue> ordered; ///< Tasks behind the one that runs, by key.
};

/// Set on the pool's threads while they run a task.
thread_local bool t_IsWorker = false;

State& GetState()
{
    // Never destroyed: a task of a pool that nobody stopped may still run at the program's end.
    static auto* const s_State = new State;
    return *s_State;
}

void Run(const ThreadPool::Task& task)
{
    t_IsWorker = true;
    try
    {
        task();
    }
    catch (Exception* e)
    {
        e->Log();
        delete e;
    }
    catch (const std::exception& e)
    {
        LogError(String("A task of the thread pool failed: ") + e.what());
    }
    catch (...)
    {
        LogError("A task of the thread pool failed with an unknown exception");
    }
    t_IsWorker = false;
}

void RunOrdered(Pool& pool, const void* key, ThreadPool::Task& task);

void PostOrdered(Pool& pool, const void* key, ThreadPool::Task task)
{
    boost::asio::post(pool, [&pool, key, task = std::move(task)]() mutable
                      { RunOrdered(pool, key, task); });
}

/// Runs one task of a key and posts the next, so that one key does not keep a worker for itself.
/// The pool lives: it waits for this task.
void RunOrdered(Pool& pool, const void* key, ThreadPool::Task& task)
{
    Run(task);
    task = nullptr; // What it holds may be large, or count on being gone before the next one runs.

    State&                            state = GetState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    const auto                        found = state.ordered.find(key);
    if (found->second.empty())
    {
        state.ordered.erase(found);
        return;
    }
    ThreadPool::Task next = std::move(found->second.front());
    found->second.pop_front();
    PostOrdered(pool, key, std::move(next));
}

} // namespace

void ThreadPool::Start(int workers)
{
    CALL_ENTRY("ThreadPool::Start");
    State&                            state = GetState();
    const std::lock_guard<std::mutex> single(state.startStop);
    const std::lock_guard<std::mutex> lock(state.mutex);
    if (!state.ready)
    {
        state.pool = std::make_unique<Pool>(static_cast<size_t>(std::max(workers, 1)));
        state.ready = true;
    }
}

void ThreadPool::Stop()
{
    CALL_ENTRY("ThreadPool::Stop");
    if (t_IsWorker)
    {
        LogError("ThreadPool::Stop: a worker cannot wait for its own end");
        return;
    }
    State&                            state = GetState();
    const std::lock_guard<std::mutex> single(state.startStop);
    {
        const std::lock_guard<std::mutex> lock(state.mutex);
        state.ready = false;
    }
    if (state.pool)
    {
        state.pool->join();
        state.pool.reset();
    }
}

bool ThreadPool::IsReady()
{
    State&                            state = GetState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    return state.ready;
}

bool ThreadPool::Post(Task task)
{
    CALL_ENTRY("ThreadPool::Post");
    State&                            state = GetState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    if (!state.ready)
    {
        return false;
    }
    boost::asio::post(*state.pool, [task = std::move(task)] { Run(task); });
    return true;
}

bool ThreadPool::PostInOrder(const void* key, Task task)
{
    CALL_ENTRY("ThreadPool::PostInOrder");
    State&                            state = GetState();
    const std::lock_guard<std::mutex> lock(state.mutex);
    if (!state.ready)
    {
        return false;
    }
    const auto place = state.ordered.emplace(key, Queue());
    if (!place.second)
    {
        place.first->second.push_back(std::move(task));
        return true;
    }
    PostOrdered(*state.pool, key, std::move(task));
    return true;
}
