#include "benchmarks/BenchSupport.h"
#include "benchmarks/Playing.h"
#include "benchmarks/TextWorkload.h"
#include "benchmarks/WatchedViews.h"
#include "tests/hands/Hand.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/timer.h>

/// How smooth our views are under a real pointer.

namespace
{
constexpr int    kMillion = 1000000;
constexpr int    kDragPixels = 600;
constexpr double kLayoutSeconds = 0.5; // until the scrollbars have their places

void RunPlay(Play& play, const std::function<void(Hand&, int)>& act)
{
    wxEventLoop loop;
    play.Run({[&] { loop.Run(); }, [&] { wxTheApp->CallAfter([&] { loop.Exit(); }); }}, act);
}

// The thumb goes down and up again, a place each sixtieth of a second.
void PlayThumb(benchmark::State& state)
{
    WatchedList*   list = nullptr;
    wxFrame* const frame =
        OpenFrame([&](wxFrame* parent) { return list = new WatchedList(parent, kMillion); });
    for (auto _ : state)
    {
        Play play;
        int  farthest = 0;
        list->onFrame = [&]
        {
            play.FrameShown();
            farthest = std::max(farthest, list->GetScrollPos(wxVERTICAL));
        };
        PumpFor(kLayoutSeconds);
        Hand          hand;
        const wxPoint thumb = OnTopThumb(list->GetBody());
        hand.Move(thumb.x, thumb.y);
        hand.Button(1, true);
        RunPlay(play, [&](Hand& mover, int step)
                { mover.Move(thumb.x, thumb.y + static_cast<int>(kDragPixels * ToAndFro(step))); });
        hand.Button(1, false);
        list->onFrame = [] {};
        play.Report(state);
        if (farthest < list->GetScrollRange(wxVERTICAL) / 3)
        {
            state.SkipWithError("the thumb did not come along");
        }
    }
    CloseFrame(frame);
}
BENCHMARK(PlayThumb)->Arg(kMillion)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

// Twenty notches a second, up and down in turn, while lines come.
void PlayLog(benchmark::State& state)
{
    WatchedText*   text = nullptr;
    wxFrame* const frame =
        OpenFrame([&](wxFrame* parent) { return text = new WatchedText(parent); });
    for (auto _ : state)
    {
        Play play;
        text->onFrame = [&] { play.FrameShown(); };
        text->SetFollowEnd(true);
        LineFeed feed(static_cast<int>(state.range(0)));
        wxTimer  timer;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&)
                   { feed.Pass([&](int line) { text->Append(WorkloadLine(line), false); }); });
        timer.Start(kFeedMs);
        const wxRect on = text->GetScreenRect();
        Hand         hand;
        hand.Move(on.x + on.width / 2, on.y + on.height / 2);
        RunPlay(play, [&](Hand& wheel, int step) { TurnWheel(wheel, step); });
        text->onFrame = [] {};
        play.Report(state);
        state.counters["lines"] = text->GetLineCount();
    }
    CloseFrame(frame);
}
BENCHMARK(PlayLog)
    ->Arg(kLinesPerSecond)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
