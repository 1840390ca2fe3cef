#include "benchmarks/BenchSupport.h"

#include "appearance/wxTolvanString.h"

#include <wx/stc/stc.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <random>

/// The workload of the text view on the toolkit's own controls.

namespace
{
constexpr int      kLinesPerRepaint = 1000;
constexpr int      kMillion = 1000000;
constexpr int      kHundredThousand = 100000;
constexpr unsigned kSeed = 7;

double Seconds(Clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

struct StyledText
{
    static constexpr const char* kNeedle = "Needle in";

    explicit StyledText(wxFrame* frame) : window(new wxStyledTextCtrl(frame))
    {
        window->SetReadOnly(false);
        window->SetUndoCollection(false);
    }

    void Append(const String& line) const { window->AppendText(wxtToWx(line + "\n")); }
    void Repaint() const
    {
        window->Refresh();
        window->Update();
    }
    void ScrollTo(int line) const { window->SetFirstVisibleLine(line); }
    bool Find() const
    {
        return window->FindText(0, window->GetLength(), kNeedle, 0) != wxSTC_INVALID_POSITION;
    }

    wxStyledTextCtrl* window;
};

struct PlainText
{
    explicit PlainText(wxFrame* frame)
        : window(new wxTextCtrl(frame, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                                wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP))
    {
    }

    void Append(const String& line) const { window->AppendText(wxtToWx(line + "\n")); }
    void Repaint() const
    {
        window->Refresh();
        window->Update();
    }

    wxTextCtrl* window;
};

template <class Control> using Stage = ControlStage<Control>;

template <class Control> void AppendAndRepaint(benchmark::State& state)
{
    const int                  count = static_cast<int>(state.range(0));
    const std::vector<String>& lines = WorkloadLines();
    for (auto _ : state)
    {
        state.PauseTiming();
        const Stage<Control> stage;
        const size_t         before = ResidentBytes();
        Clock::duration      appending{};
        state.ResumeTiming();
        for (int i = 0; i < count;)
        {
            const auto start = Clock::now();
            for (const int end = std::min(i + kLinesPerRepaint, count); i < end; ++i)
            {
                stage->Append(lines[static_cast<size_t>(i) % lines.size()]);
            }
            appending += Clock::now() - start;
            PumpEvents();
            stage->Repaint();
        }
        state.PauseTiming();
        state.counters["append_ns"] = Seconds(appending) * 1e9 / count;
        state.counters["bytes_per_line"] =
            static_cast<double>(ResidentBytes() - before) / static_cast<double>(count);
        state.ResumeTiming();
    }
}
BENCHMARK_TEMPLATE(AppendAndRepaint, StyledText)
    ->Arg(kMillion)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(AppendAndRepaint, PlainText)
    ->Arg(kHundredThousand) // a million would take many minutes
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

template <class Control> void RepaintAnywhere(benchmark::State& state)
{
    const Stage<Control>       stage;
    const int                  count = static_cast<int>(state.range(0));
    const std::vector<String>& lines = WorkloadLines();
    for (int i = 0; i < count; ++i)
    {
        stage->Append(lines[static_cast<size_t>(i) % lines.size()]);
    }
    PumpEvents();
    std::mt19937 random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      stage->ScrollTo(static_cast<int>(random() % static_cast<unsigned>(count)));
                      const auto start = Clock::now();
                      stage->Repaint();
                      return SecondsSince(start);
                  });
}
BENCHMARK_TEMPLATE(RepaintAnywhere, StyledText)->Arg(kMillion)->Apply(FewRepaints);

template <class Control> void SearchToTheLastLine(benchmark::State& state)
{
    const Stage<Control>       stage;
    const int                  count = static_cast<int>(state.range(0));
    const std::vector<String>& lines = WorkloadLines();
    for (int i = 0; i < count - 1; ++i)
    {
        stage->Append(lines[static_cast<size_t>(i) % lines.size()]);
    }
    stage->Append("the Needle in the last line");
    for (auto _ : state)
    {
        if (!stage->Find())
        {
            state.SkipWithError("not found");
        }
    }
}
BENCHMARK_TEMPLATE(SearchToTheLastLine, StyledText)
    ->Args({kMillion, 0})
    ->Iterations(3)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
