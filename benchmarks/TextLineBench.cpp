#include "benchmarks/BenchSupport.h"
#include "listviews/wxDoubleBufferedWindow.h"
#include "textviews/wxTextLineCtrl.h"

#include <algorithm>
#include <chrono>
#include <random>

namespace
{
constexpr int      kLinesPerRepaint = 1000;
constexpr int      kSortedLines = 50000;
constexpr int      kMillion = 1000000;
constexpr unsigned kSeed = 7;

double Seconds(Clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

/// The view with a count of its paintings, and a way to force one.
class View : public wxTextLineCtrl
{
public:
    using wxTextLineCtrl::wxTextLineCtrl;

    void Repaint()
    {
        const int before = m_Drawn;
        m_Stale = true;
        Refresh(false);
        Update();
        PumpUntil([&] { return m_Drawn > before; });
    }

    int Drawn() const { return m_Drawn; }

protected:
    void DrawBitmap() override
    {
        wxTextLineCtrl::DrawBitmap();
        ++m_Drawn;
    }

private:
    int m_Drawn = 0;
};

/// A view in a frame of its own.
class Stage
{
public:
    Stage()
    {
        m_Frame = OpenFrame([this](wxFrame* frame) { return m_View = new View(frame); });
        m_View->Repaint();
    }
    ~Stage() { CloseFrame(m_Frame); }

    View* operator->() const { return m_View; }

    void Fill(int count) const
    {
        const std::vector<String>& lines = WorkloadLines();
        for (int i = 0; i < count; ++i)
        {
            m_View->Append(lines[static_cast<size_t>(i) % lines.size()], false);
        }
        PumpEvents();
    }

private:
    wxFrame* m_Frame;
    View*    m_View = nullptr;
};

// Lines appended one by one, events handled and a repaint forced every so many.
void AppendAndRepaint(benchmark::State& state)
{
    const int                  count = static_cast<int>(state.range(0));
    const std::vector<String>& lines = WorkloadLines();
    for (auto _ : state)
    {
        state.PauseTiming();
        const Stage stage;
        stage->SetFollowEnd(true);
        const int       drawn = stage->Drawn();
        const size_t    before = ResidentBytes();
        Clock::duration appending{};
        state.ResumeTiming();
        for (int i = 0; i < count;)
        {
            const auto start = Clock::now();
            for (const int end = std::min(i + kLinesPerRepaint, count); i < end; ++i)
            {
                stage->Append(lines[static_cast<size_t>(i) % lines.size()], false);
            }
            appending += Clock::now() - start;
            PumpEvents();
            stage->Repaint();
        }
        state.PauseTiming();
        state.counters["append_ns"] = Seconds(appending) * 1e9 / count;
        state.counters["bytes_per_line"] =
            static_cast<double>(ResidentBytes() - before) / static_cast<double>(count);
        state.counters["repaints"] = stage->Drawn() - drawn;
        state.ResumeTiming();
    }
}
BENCHMARK(AppendAndRepaint)
    ->Arg(kMillion / 10)
    ->Arg(kMillion)
    ->Arg(10 * kMillion)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// A full repaint at random places; the median.
void RepaintAnywhere(benchmark::State& state)
{
    const Stage stage;
    stage.Fill(static_cast<int>(state.range(0)));
    std::mt19937 random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      const auto range = static_cast<unsigned>(stage->GetScrollRange(wxVERTICAL));
                      stage->SetScrollPos(wxVERTICAL, static_cast<int>(random() % range));
                      const auto start = Clock::now();
                      stage->Repaint();
                      return SecondsSince(start);
                  });
}
BENCHMARK(RepaintAnywhere)->Arg(1000)->Arg(kMillion)->Apply(Repaints);

// From the top to a hit in the last line.
void SearchToTheLastLine(benchmark::State& state)
{
    const Stage stage;
    stage.Fill(static_cast<int>(state.range(0)) - 1);
    stage->Append("the Needle in the last line", false);
    const bool matchCase = state.range(1) != 0;
    for (auto _ : state)
    {
        // The line after the hit is the first one.
        if (!stage->Search("Needle in", true, matchCase) ||
            stage->GetMarkedLine() != stage->GetLineCount() - 1)
        {
            state.SkipWithError("not found");
        }
    }
}
BENCHMARK(SearchToTheLastLine)
    ->Args({kMillion, 1})
    ->Args({kMillion, 0})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void AppendSorted(benchmark::State& state)
{
    const std::vector<String>& lines = WorkloadLines();
    std::mt19937               random(kSeed);
    std::vector<String>        shuffled;
    for (int i = 0; i < kSortedLines; ++i)
    {
        shuffled.push_back(SFormat("%08x ", static_cast<unsigned>(random())) +
                           lines[static_cast<size_t>(i) % lines.size()]);
    }
    for (auto _ : state)
    {
        state.PauseTiming();
        const Stage stage;
        state.ResumeTiming();
        for (const String& line : shuffled)
        {
            stage->Append(line, true);
        }
        PumpEvents();
    }
}
BENCHMARK(AppendSorted)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

// A window on a stream: every line that comes pushes the first one out.
void StreamThroughWindow(benchmark::State& state)
{
    const Stage stage;
    const int   window = static_cast<int>(state.range(0));
    stage.Fill(window);
    const std::vector<String>& lines = WorkloadLines();
    size_t                     next = 0;
    for (auto _ : state)
    {
        stage->Append(lines[next++ % lines.size()], false);
        stage->Erase(0);
    }
}
BENCHMARK(StreamThroughWindow)->Arg(100000)->Iterations(kMillion);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
