#pragma once

#include "vesta/Export.h"

#include <functional>

/// The process's pool of worker threads. All functions may be called on any thread.
class TOLVAN_API ThreadPool
{
public:
    using Task = std::function<void()>;

    /// Starts the workers (at least one). Does nothing when they run already.
    static void Start(int workers);
    /// Lets the workers finish what is posted, then ends them. Not from a worker.
    static void Stop();
    static bool IsReady(); ///< Between `Start` and `Stop`.

    /// Runs the task on a worker; false (and the task is dropped) when the pool is not ready. An
    /// exception that leaves the task is logged and ends only the task.
    static bool Post(Task task);
    /// The same, but tasks posted with one key run one after another in the order of posting. A
    /// key is remembered until the end of the pool.
    static bool PostInOrder(const void* key, Task task);
};
