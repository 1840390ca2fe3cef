#include "benchmarks/BenchSupport.h"
#include "benchmarks/TextWorkload.h"

#include "appearance/wxTolvanString.h"

#include <wx/stc/stc.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <memory>
#include <random>

/// The workload of the text view on the toolkit's own controls.

namespace
{
constexpr int      kMillion = 1000000;
constexpr int      kHundredThousand = 100000;
constexpr unsigned kSeed = 7;

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
    /// Before the first line that is not less.
    void InsertSorted(const String& line) const
    {
        int first = 0;
        int end = window->GetLineCount() - 1; // the last one is the empty one after all
        while (first < end)
        {
            const int middle = (first + end) / 2;
            if (window->GetLineRaw(middle).data() < line)
            {
                first = middle + 1;
            }
            else
            {
                end = middle;
            }
        }
        window->InsertTextRaw(window->PositionFromLine(first), (line + "\n").c_str());
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

template <class Control> class Stage : public ControlStage<Control>
{
public:
    /// Handles the events, and paints everything.
    void Show() const
    {
        PumpEvents();
        (*this)->Repaint();
        WaitForDisplay();
    }
};

template <class Control> void AppendAndRepaint(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    WorkloadLines();
    for (auto _ : state)
    {
        const Stage<Control> stage;
        stage.Show();
        const size_t     before = ResidentBytes();
        Clock::duration  appending{};
        const FrameWatch watch;
        for (int i = 0; i < count;)
        {
            const auto start = Clock::now();
            for (const int end = std::min(i + kLinesPerRepaint, count); i < end; ++i)
            {
                stage->Append(WorkloadLine(i));
            }
            appending += Clock::now() - start;
            stage.Show();
        }
        Report(state, watch.Shown());
        state.counters["append_ns"] = Seconds(appending) * 1e9 / count;
        state.counters["bytes_per_line"] =
            static_cast<double>(ResidentBytes() - before) / static_cast<double>(count);
    }
}
BENCHMARK_TEMPLATE(AppendAndRepaint, StyledText)->Arg(kMillion)->Apply(Once);
BENCHMARK_TEMPLATE(AppendAndRepaint, PlainText)
    ->Arg(kHundredThousand) // a million would take many minutes
    ->Apply(Once);

template <class Control> void Fill(const Stage<Control>& stage, int count)
{
    for (int i = 0; i < count; ++i)
    {
        stage->Append(WorkloadLine(i));
    }
    PumpEvents();
}

template <class Control> void RepaintAnywhere(benchmark::State& state)
{
    const Stage<Control> stage;
    const int            count = static_cast<int>(state.range(0));
    Fill(stage, count);
    std::mt19937 random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      PumpEvents();
                      WaitForDisplay();
                      const FrameWatch watch;
                      stage->ScrollTo(static_cast<int>(random() % static_cast<unsigned>(count)));
                      stage->Repaint();
                      return watch.Shown();
                  });
}
BENCHMARK_TEMPLATE(RepaintAnywhere, StyledText)->Arg(kMillion)->Apply(FewRepaints);

template <class Control> void SearchToTheLastLine(benchmark::State& state)
{
    const Stage<Control> stage;
    Fill(stage, static_cast<int>(state.range(0)) - 1);
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

template <class Control> void AppendSorted(benchmark::State& state)
{
    const std::vector<String>& lines = UnsortedLines();
    for (auto _ : state)
    {
        const Stage<Control> stage;
        const FrameWatch     watch;
        for (size_t i = 0; i < lines.size(); ++i)
        {
            stage->InsertSorted(lines[i]);
            if ((i + 1) % kLinesPerRepaint == 0)
            {
                stage.Show();
            }
        }
        Report(state, watch.Shown());
    }
}
BENCHMARK_TEMPLATE(AppendSorted, StyledText)->Arg(kSortedLines)->Apply(Once);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
