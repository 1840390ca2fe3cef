#include "benchmarks/BenchSupport.h"
#include "benchmarks/TextLineStage.h"
#include "benchmarks/TextWorkload.h"
#include "textviews/wxTextLinePanes.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "textviews/wxTextRules.h"

namespace
{
// From the top to an error in the last line, without a strip that would know the way.
void FindTheLastError(benchmark::State& state)
{
    const TextLineStage stage;
    stage.Fill(static_cast<int>(state.range(0)) - 1);
    stage->SetRules(wxStandardTextRules());
    stage->Append("an error in the last line", false);
    for (auto _ : state)
    {
        stage->SelectNone();
        stage->ScrollToTop();
        stage->FindError(true);
        PumpUntil([&] { return !stage->IsFindingError(); });
        if (stage->GetSelectionEnd() != stage->GetLineCount() - 1)
        {
            state.SkipWithError("not found");
        }
    }
}
BENCHMARK(FindTheLastError)->Arg(kMillion)->UseRealTime()->Unit(benchmark::kMillisecond);

// From the top to a hit in the last line.
void SearchToTheLastLine(benchmark::State& state)
{
    const TextLineStage stage;
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

// Looks for the text of the bar, which only the last line has, once an iteration.
void MeasureFinding(benchmark::State& state, TextLineView& view)
{
    wxTextLineSearchPanel* const bar = view.GetSearchPanel();
    for (auto _ : state)
    {
        bar->Find(true);
        PumpUntil([&] { return !bar->IsSearching(); });
        if (bar->GetHits() != 1 || view.GetMarkedLine() != view.GetLineCount() - 1)
        {
            state.SkipWithError("not found");
        }
    }
}

// The same by the search bar, in slices: plain texts, and regular expressions of several kinds.
void FindToTheLastLine(benchmark::State& state)
{
    const struct
    {
        bool        expression;
        const char* text;
    } searches[] = {
        {false, "Needle in"},       {true, "Needle i[nm]"},
        {true, "[A-Z]eedle i"},     {true, "(lost|found|Needle) (in|under)"},
        {true, "[A-Z]\\w+ \\w+ t"}, // needs no certain text
    };
    const auto&         search = searches[state.range(1)];
    const TextLineStage stage;
    stage.Fill(static_cast<int>(state.range(0)) - 1);
    stage->Append("the Needle in the last line", false);
    wxTextLineSearchPanel* const bar = stage->GetSearchPanel();
    bar->SetMatchCase(true);
    bar->SetExpression(search.expression);
    bar->SetText(search.text);
    state.SetLabel(search.text);
    PumpUntil([&] { return !bar->IsCounting(); });
    MeasureFinding(state, *stage);
}
BENCHMARK(FindToTheLastLine)
    ->ArgsProduct({{kMillion}, {0, 1, 2, 3, 4}})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// The same where escape sequences are followed, in lines without any and in coloured ones. The
// count, which comes before, is the first to read them so.
void FindWhatIsShown(benchmark::State& state)
{
    const TextLineStage stage;
    const ToLine        line = Prepare(*stage, state.range(1));
    for (int i = 1; i < state.range(0); ++i)
    {
        stage->Append(line(i), false);
    }
    stage->Append("the Nee\x1b[1mdle in the last line", false);
    wxTextLineSearchPanel* const bar = stage->GetSearchPanel();
    bar->SetMatchCase(true);
    const auto start = Clock::now();
    bar->SetText("Needle in");
    PumpUntil([&] { return !bar->IsCounting(); });
    state.counters["count_ms"] = Seconds(Clock::now() - start) * 1e3;
    MeasureFinding(state, *stage);
}
BENCHMARK(FindWhatIsShown)
    ->Args({kMillion, kNotFound})
    ->Args({kMillion, kWithColours})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// Only the lines that match, in the pane below, until all are there: one in ten thousand, and all.
void ShowOnlyMatching(benchmark::State& state)
{
    wxTextLinePanes* panes = nullptr;
    TextLineView*    view = nullptr;
    wxFrame* const   frame = OpenFrame(
        [&](wxFrame* parent)
        {
            panes = new wxTextLinePanes(parent);
            view = new TextLineView(panes->GetViewParent());
            panes->ShowView(view);
            return panes;
        });
    for (int i = 0; i < state.range(0); ++i)
    {
        view->Append(i % 10000 == 0 ? "a Needle" : WorkloadLine(i), false);
    }
    panes->SetOnlyMatching(true);
    panes->SetLinesAround(static_cast<int>(state.range(2)), static_cast<int>(state.range(2)));
    wxTextLineSearchPanel* const bar = view->GetSearchPanel();
    bar->SetExpression(state.range(1) != 0);
    for (auto _ : state)
    {
        bar->SetText("");
        PumpEvents();
        const size_t     before = ResidentBytes();
        const SlicedWork work =
            MeasureSlices([&] { bar->SetText(state.range(1) != 0 ? "^." : "Needle"); },
                          [&] { return !panes->IsMatchingComplete(); });
        Report(state, work);
        const int rows = panes->GetMatches()->GetLineCount();
        state.counters["rows"] = rows;
        state.counters["bytes_per_line"] =
            (static_cast<double>(ResidentBytes()) - static_cast<double>(before)) /
            static_cast<double>(state.range(0));
        if (rows < state.range(0) / 10000)
        {
            state.SkipWithError("lines are missing");
        }
    }
    CloseFrame(frame);
}
BENCHMARK(ShowOnlyMatching)
    ->Args({10 * kMillion, 0, 0})
    ->Args({10 * kMillion, 0, 5})
    ->Args({10 * kMillion, 1, 0})
    ->Apply(Once);
} // namespace
