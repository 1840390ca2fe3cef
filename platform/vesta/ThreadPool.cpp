#include "vesta/ThreadPool.h"

#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"

#include <boost/asio/post.hpp>
#include <boost/asio/strand.hpp>
#include <boost/asio/thread_pool.hpp>

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace
{

using Pool = boost::asio::thread_pool;
using Strand = boost::asio::strand<Pool::executor_type>;

struct State
{
    std::mutex                    startStop; ///< Held while the pool is started or stopped.
    std::mutex                    mutex;     ///< Guards what follows.
    std::unique_ptr<Pool>         pool;
    std::map<const void*, Strand> strands; ///< Of the pool, by key.
    bool                          ready = false;
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
    Guarded("A task of the thread pool", task);
    t_IsWorker = false;
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
        state.strands.clear();
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
    const auto found = state.strands.try_emplace(key, state.pool->get_executor()).first;
    boost::asio::post(found->second, [task = std::move(task)] { Run(task); });
    return true;
}
