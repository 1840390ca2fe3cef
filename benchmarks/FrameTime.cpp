#include "benchmarks/FrameTime.h"

#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>

namespace
{
constexpr int    kRepaints = 200; // of which the median is taken
constexpr int    kFewRepaints = 50;
constexpr double kNano = 1e-9;

double Median(std::vector<double>& values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void Manual(benchmark::internal::Benchmark* benchmark, int iterations)
{
    benchmark->Iterations(iterations)->UseManualTime()->Unit(benchmark::kMillisecond);
}
} // namespace

double Seconds(Clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

double SecondsSince(Clock::time_point start)
{
    return Seconds(Clock::now() - start);
}

double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * kNano;
}

size_t ResidentBytes()
{
    std::ifstream statm("/proc/self/statm");
    size_t        total = 0;
    size_t        resident = 0;
    statm >> total >> resident;
    return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

FrameTime FrameWatch::Shown() const
{
    WaitForDisplay();
    return {SecondsSince(m_Start), ProcessorSeconds() - m_Processor};
}

void Repaints(benchmark::internal::Benchmark* benchmark)
{
    Manual(benchmark, kRepaints);
}

void FewRepaints(benchmark::internal::Benchmark* benchmark)
{
    Manual(benchmark, kFewRepaints);
}

void Once(benchmark::internal::Benchmark* benchmark)
{
    Manual(benchmark, 1);
}

void Report(benchmark::State& state, const FrameTime& time)
{
    state.SetIterationTime(time.whole);
    benchmark::Counter& client = state.counters["client_ms"];
    client.flags = benchmark::Counter::kAvgIterations;
    client.value += time.client * 1e3;
}

void MeasureMedian(benchmark::State& state, const std::function<FrameTime()>& work)
{
    std::vector<double> whole;
    std::vector<double> client;
    for (auto _ : state)
    {
        const FrameTime time = work();
        state.SetIterationTime(time.whole);
        whole.push_back(time.whole);
        client.push_back(time.client);
    }
    if (!whole.empty())
    {
        state.counters["median_ms"] = Median(whole) * 1e3;
        state.counters["client_ms"] = Median(client) * 1e3;
    }
}
