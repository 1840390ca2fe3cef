#include "benchmarks/BenchSupport.h"
#include "benchmarks/TextLineStage.h"
#include "benchmarks/TextWorkload.h"
#include "textviews/wxTextFinder.h"
#include "textviews/wxTextRules.h"

#include <algorithm>
#include <random>

namespace
{
constexpr unsigned kSeed = 7;

// Lines appended one by one, events handled and a repaint forced every so many.
void AppendAndRepaint(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    WorkloadLines();
    for (auto _ : state)
    {
        const TextLineStage stage;
        stage->SetFollowEnd(true);
        stage.Show();
        const int        drawn = stage->Drawn();
        const size_t     before = ResidentBytes();
        Clock::duration  appending{};
        const FrameWatch watch;
        for (int i = 0; i < count;)
        {
            const auto start = Clock::now();
            for (const int end = std::min(i + kLinesPerRepaint, count); i < end; ++i)
            {
                stage->Append(WorkloadLine(i), false);
            }
            appending += Clock::now() - start;
            stage.Show();
        }
        Report(state, watch.Shown());
        state.counters["append_ns"] = Seconds(appending) * 1e9 / count;
        state.counters["bytes_per_line"] =
            static_cast<double>(ResidentBytes() - before) / static_cast<double>(count);
        state.counters["repaints"] = stage->Drawn() - drawn;
    }
}
BENCHMARK(AppendAndRepaint)->Arg(kMillion / 10)->Arg(kMillion)->Arg(10 * kMillion)->Apply(Once);

/// A file that is in the system's memory.
class Text final : public wxTextSource
{
public:
    explicit Text(int lines)
    {
        for (int i = 0; i < lines; ++i)
        {
            m_Bytes += WorkloadLine(i);
            m_Bytes += '\n';
        }
    }
    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override
    {
        problem = 0;
        return offset < m_Bytes.size() ? m_Bytes.copy(buffer, count, offset) : 0;
    }
    std::string_view Bytes() const { return m_Bytes; }

private:
    std::string m_Bytes;
};

// Lines that stay in a file: found, told to the view, and its end shown.
void ShowStored(benchmark::State& state)
{
    constexpr size_t kPiece = 2u << 20; // bytes
    const int        count = static_cast<int>(state.range(0));
    const auto       text = std::make_shared<Text>(count);
    for (auto _ : state)
    {
        const TextLineStage stage;
        stage->SetFollowEnd(true);
        stage.Show();
        const size_t     before = ResidentBytes();
        Clock::duration  finding{};
        const FrameWatch watch;
        for (size_t at = 0; at < text->Bytes().size();)
        {
            std::vector<wxTextStretch> found;
            const auto                 start = Clock::now();
            at += wxFindTextLines(text->Bytes().substr(at, kPiece), at, found);
            finding += Clock::now() - start;
            stage->AppendStored(text, found);
        }
        stage.Show();
        Report(state, watch.Shown());
        state.counters["gb_per_s"] =
            static_cast<double>(text->Bytes().size()) / 1e9 / Seconds(finding);
        state.counters["bytes_per_line"] =
            static_cast<double>(ResidentBytes() - before) / static_cast<double>(count);
    }
}
BENCHMARK(ShowStored)->Arg(kMillion)->Arg(10 * kMillion)->Apply(Once);

// Full repaints at random places; the median.
void MeasureRepaints(benchmark::State& state, const TextLineStage& stage)
{
    std::mt19937 random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      const auto range = static_cast<unsigned>(stage->GetScrollRange(wxVERTICAL));
                      PumpEvents();
                      WaitForDisplay();
                      const FrameWatch watch;
                      stage->SetScrollPos(wxVERTICAL, static_cast<int>(random() % range));
                      stage->Repaint();
                      return watch.Shown();
                  });
}

void RepaintAnywhere(benchmark::State& state)
{
    const TextLineStage stage;
    stage.Fill(static_cast<int>(state.range(0)));
    MeasureRepaints(state, stage);
}
BENCHMARK(RepaintAnywhere)->Arg(1000)->Arg(kMillion)->Apply(Repaints);

// The same lines, half of them so long that they take three rows: as they are, and wrapped.
void RepaintWrapped(benchmark::State& state)
{
    const TextLineStage stage;
    stage->SetWrap(state.range(1) != 0);
    for (int i = 0; i < state.range(0); ++i)
    {
        const String& line = WorkloadLine(i);
        stage->Append(i % 2 == 0 ? line : String(line + line + line + line), false);
    }
    PumpEvents();
    MeasureRepaints(state, stage);
}
BENCHMARK(RepaintWrapped)->ArgsProduct({{kMillion / 10}, {0, 1}})->Apply(Repaints);

// The same lines, and by the second argument how they come and are shown.
void RepaintColours(benchmark::State& state)
{
    const TextLineStage stage;
    const ToLine        line = Prepare(*stage, state.range(1));
    for (int i = 0; i < state.range(0); ++i)
    {
        stage->Append(line(i), false);
    }
    PumpEvents();
    MeasureRepaints(state, stage);
}
BENCHMARK(RepaintColours)
    ->Args({kMillion / 10, kWithout})
    ->Args({kMillion / 10, kNotFound})
    ->Args({kMillion / 10, kNotShown})
    ->Args({kMillion / 10, kWithColours})
    ->Apply(Repaints);

void AppendColours(benchmark::State& state)
{
    for (auto _ : state)
    {
        const TextLineStage stage;
        const ToLine        line = Prepare(*stage, state.range(1));
        line(0); // the first one makes all
        const auto start = Clock::now();
        for (int i = 0; i < state.range(0); ++i)
        {
            stage->Append(line(i), false);
        }
        const double took = Seconds(Clock::now() - start);
        state.SetIterationTime(took);
        state.counters["append_ns"] = took * 1e9 / static_cast<double>(state.range(0));
    }
}
BENCHMARK(AppendColours)
    ->Args({kMillion, kWithout})
    ->Args({kMillion, kNotFound})
    ->Args({kMillion, kNotShown})
    ->Args({kMillion, kWithColours})
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// The same with rules that colour lines and words, and by the second argument what else there is.
enum Ruling
{
    kNoRules,
    kRules,            // that are found in some lines
    kRulesAndStrip,    // with the strip beside the text
    kRulesAndSequences // all, and lines with escape sequences
};

const String& RuledLine(int line)
{
    static const std::vector<String> s_Lines = []
    {
        std::vector<String> lines;
        for (int i = 0; i < 1000; ++i)
        {
            const char* const word = i % 50 == 7    ? " error: no file"
                                     : i % 50 == 31 ? " warning"
                                                    : "";
            lines.push_back(WorkloadLine(i) + word);
        }
        return lines;
    }();
    return s_Lines[static_cast<size_t>(line) % s_Lines.size()];
}

ToLine PrepareRules(wxTextLineCtrl& view, long long ruling)
{
    view.SetRules(ruling == kNoRules ? std::vector<wxTextRule>() : wxStandardTextRules());
    view.ShowOverview(ruling >= kRulesAndStrip);
    const bool hasSequences = ruling == kRulesAndSequences;
    view.SetEscapes(hasSequences ? wxTextLineCtrl::Escapes::Coloured
                                 : wxTextLineCtrl::Escapes::Raw);
    return hasSequences ? ColouredLine : RuledLine;
}

void RepaintRules(benchmark::State& state)
{
    const TextLineStage stage;
    const ToLine        line = PrepareRules(*stage, state.range(1));
    for (int i = 0; i < state.range(0); ++i)
    {
        stage->Append(line(i), false);
    }
    PumpEvents();
    MeasureRepaints(state, stage);
}
BENCHMARK(RepaintRules)
    ->ArgsProduct({{kMillion / 10}, {kNoRules, kRules, kRulesAndStrip, kRulesAndSequences}})
    ->Apply(Repaints);

// Appending, and then how long it takes in idle time until the strip knows all lines.
void AppendRules(benchmark::State& state)
{
    for (auto _ : state)
    {
        const TextLineStage stage;
        const ToLine        line = PrepareRules(*stage, state.range(1));
        line(0); // the first one makes all
        const auto start = Clock::now();
        for (int i = 0; i < state.range(0); ++i)
        {
            stage->Append(line(i), false);
        }
        const auto appended = Clock::now();
        state.SetIterationTime(Seconds(appended - start));
        state.counters["append_ns"] =
            Seconds(appended - start) * 1e9 / static_cast<double>(state.range(0));
        PumpUntil([&] { return !stage->IsOverviewUnderWay(); });
        state.counters["strip_ms"] = Seconds(Clock::now() - appended) * 1e3;
    }
}
BENCHMARK(AppendRules)
    ->ArgsProduct({{kMillion}, {kNoRules, kRules, kRulesAndStrip, kRulesAndSequences}})
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Lines that come in no order, with a repaint every so many.
void AppendSorted(benchmark::State& state)
{
    const std::vector<String>& lines = UnsortedLines();
    for (auto _ : state)
    {
        const TextLineStage stage;
        const FrameWatch    watch;
        for (size_t i = 0; i < lines.size(); ++i)
        {
            stage->Append(lines[i], true);
            if ((i + 1) % kLinesPerRepaint == 0)
            {
                stage.Show();
            }
        }
        Report(state, watch.Shown());
    }
}
BENCHMARK(AppendSorted)
    ->Arg(kSortedLines)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// A window on a stream: every line that comes pushes the first one out.
void StreamThroughWindow(benchmark::State& state)
{
    const TextLineStage stage;
    const int           window = static_cast<int>(state.range(0));
    stage.Fill(window);
    int next = 0;
    for (auto _ : state)
    {
        stage->Append(WorkloadLine(next++), false);
        stage->Erase(0);
    }
}
BENCHMARK(StreamThroughWindow)->Arg(100000)->Iterations(kMillion);

// A stream without end, with a frame sixty times in what would be a second of 100,000 lines: the
// longest time that its lines kept the program, and what memory grows by once the view is full.
void StreamIntoLimit(benchmark::State& state)
{
    constexpr int kPerFrame = 100000 / 60;
    const int     limit = static_cast<int>(state.range(0));
    const int     count = static_cast<int>(state.range(1));
    WorkloadLines();
    for (auto _ : state)
    {
        const TextLineStage stage;
        stage->SetFollowEnd(true);
        stage->SetLineLimit(limit);
        stage.Fill(limit + limit / 16); // with what is dropped at once
        stage.Show();
        const size_t     before = ResidentBytes();
        Clock::duration  longest{};
        const FrameWatch watch;
        for (int i = 0; i < count;)
        {
            const auto start = Clock::now();
            for (const int end = std::min(i + kPerFrame, count); i < end; ++i)
            {
                stage->Append(WorkloadLine(i), false);
            }
            longest = std::max(longest, Clock::now() - start);
            stage.Show();
        }
        Report(state, watch.Shown());
        state.counters["longest_ms"] = Seconds(longest) * 1e3;
        state.counters["bytes_per_line"] = static_cast<double>(before) / limit;
        state.counters["grown_mb"] =
            (static_cast<double>(ResidentBytes()) - static_cast<double>(before)) / 1e6;
        if (stage->GetLineCount() > limit)
        {
            state.SkipWithError("the limit does not hold");
        }
    }
}
BENCHMARK(StreamIntoLimit)->Args({kMillion, 6 * kMillion})->Apply(Once);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
