#include "benchmarks/BenchSupport.h"
#include "benchmarks/TextWorkload.h"
#include "benchmarks/WatchedViews.h"
#include "tests/hands/Hand.h"
#include "textviews/wxBarHistoryCtrl.h"

#include <wx/panel.h>

#include <array>
#include <chrono>
#include <thread>
#include <vector>

/// How often our views paint for one change of each kind. Not the times are of interest here but
/// the counters: paint events, those of them that drew the picture anew, and rows drawn.

namespace
{
constexpr int      kRows = 1000000;
constexpr int      kLines = 10000;
constexpr int      kTimes = 3;    // each change, for the mean
constexpr double   kQuiet = 0.25; // seconds without a paint: the change has been shown
constexpr int      kDragPixels = 20;
constexpr unsigned kChartTop = 1000;

/// Counters of a view under their names.
using Counts = std::vector<std::pair<const char*, int>>;

/// What is done to a view, and what that makes it do.
class Watch
{
public:
    explicit Watch(std::function<Counts()> counts) : m_Counts(std::move(counts)) {}

    /// Until nothing is painted any more.
    void Settle() const
    {
        Counts last = m_Counts();
        for (auto changed = Clock::now(); SecondsSince(changed) < kQuiet;)
        {
            PumpEvents();
            Counts now = m_Counts();
            if (now != last)
            {
                changed = Clock::now();
                last = std::move(now);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    /// Counters: what one change adds, in the mean of several. What comes before each is not
    /// counted.
    void Measure(benchmark::State& state, const std::function<void(int)>& before,
                 const std::function<void(int)>& change) const
    {
        for (auto _ : state)
        {
            double all = 0;
            for (int i = 0; i < kTimes; ++i)
            {
                before(i);
                Settle();
                const Counts start = m_Counts();
                change(i);
                Settle();
                const Counts end = m_Counts();
                for (size_t each = 0; each < end.size(); ++each)
                {
                    const double added = end[each].second - start[each].second;
                    state.counters[end[each].first] += added / kTimes;
                    all += added;
                }
            }
            if (all == 0)
            {
                state.SkipWithError("nothing was painted");
            }
        }
    }

private:
    std::function<Counts()> m_Counts;
};

/// What a benchmark has to do it with.
template <class View> struct Changed
{
    wxFrame*  frame;
    View*     view;
    wxWindow* place; ///< What is drawn in.
    Hand&     hand;

    /// The pointer goes to a place in the view, in pixels.
    void Point(int x, int y) const
    {
        const wxPoint at = place->ClientToScreen(wxPoint(x, y));
        hand.Move(at.x, at.y);
    }
    /// The thumb a bit further down, by the hand that holds it.
    void Drag(int time) const
    {
        const wxPoint thumb = OnTopThumb(place);
        hand.Move(thumb.x, thumb.y + (time + 1) * kDragPixels);
    }
    void TakeThumb() const
    {
        const wxPoint thumb = OnTopThumb(place);
        hand.Move(thumb.x, thumb.y);
        hand.Button(1, true);
    }
};

template <class View> using Step = void (*)(const Changed<View>&, int time);

/// A kind of change, several times.
template <class View> struct Change
{
    const char* name;
    Step<View>  once;   ///< Before all.
    Step<View>  before; ///< Before each.
    Step<View>  change;
};

template <class View> void Nothing(const Changed<View>&, int)
{
}
template <class View> void TakeThumb(const Changed<View>& changed, int)
{
    changed.TakeThumb();
}
template <class View> void DragThumb(const Changed<View>& changed, int time)
{
    changed.Drag(time);
}
template <class View> void Notch(const Changed<View>& changed, int)
{
    changed.hand.Notch(true);
}
template <class View> void Hover(const Changed<View>& changed, int time)
{
    changed.Point(100, (10 + 2 * time) * kCellRowHeight);
}
template <class View> void Click(const Changed<View>& changed, int)
{
    changed.hand.Clicks(1, 1);
}
template <class View> void Resize(const Changed<View>& changed, int time)
{
    changed.frame->SetClientSize(1500 - 10 * time, 800);
}
void FollowEnd(const Changed<WatchedText>& changed, int)
{
    changed.view->SetFollowEnd(true);
    changed.view->ScrollToBottom();
}
void Append(const Changed<WatchedText>& changed, int time)
{
    changed.view->Append(WorkloadLine(time), false);
}
void AppendMany(const Changed<WatchedText>& changed, int)
{
    for (int i = 0; i < kLinesPerRepaint; ++i)
    {
        changed.view->Append(WorkloadLine(i), false);
    }
}

constexpr std::array<Change<WatchedList>, 5> kListChanges = {
    {{"PaintsOf<list: wheel, a notch>", Nothing, Nothing, Notch},
     {"PaintsOf<list: thumb, a step>", TakeThumb, Nothing, DragThumb},
     {"PaintsOf<list: a row selected>", Nothing, Hover, Click},
     {"PaintsOf<list: pointer on another row>", Nothing, Nothing, Hover},
     {"PaintsOf<list: resized>", Nothing, Nothing, Resize}}};

constexpr std::array<Change<WatchedText>, 7> kTextChanges = {
    {{"PaintsOf<log: a line appended>", FollowEnd, Nothing, Append},
     {"PaintsOf<log: 1000 lines appended>", FollowEnd, Nothing, AppendMany},
     {"PaintsOf<log: wheel, a notch>", Nothing, Nothing, Notch},
     {"PaintsOf<log: thumb, a step>", TakeThumb, Nothing, DragThumb},
     {"PaintsOf<log: a line selected>", Nothing, Hover, Click},
     {"PaintsOf<log: pointer on another line>", Nothing, Nothing, Hover},
     {"PaintsOf<log: resized>", Nothing, Nothing, Resize}}};

template <class View>
void Measure(benchmark::State& state, const Change<View>& change,
             const std::function<View*(wxFrame*)>&  make, Counts (*counts)(const View&),
             const std::function<wxWindow*(View&)>& placeOf)
{
    View*          view = nullptr;
    wxFrame* const frame = OpenFrame([&](wxFrame* parent) { return view = make(parent); });
    const Watch    watch([&] { return counts(*view); });
    watch.Settle();
    {
        Hand                hand;
        const Changed<View> changed{frame, view, placeOf(*view), hand};
        changed.Point(100, kCellRowHeight);
        change.once(changed, 0);
        watch.Measure(
            state, [&](int time) { change.before(changed, time); },
            [&](int time) { change.change(changed, time); });
    }
    CloseFrame(frame);
}

Counts ListCounts(const WatchedList& list)
{
    return {{"paints", list.body.paints},
            {"draws", list.body.draws},
            {"rows", list.rowsDrawn},
            {"title_paints", list.header.paints}};
}

void MeasureList(benchmark::State& state, const Change<WatchedList>& change)
{
    Measure<WatchedList>(
        state, change, [](wxFrame* parent) { return new WatchedList(parent, kRows); }, ListCounts,
        [](WatchedList& list) { return list.GetBody(); });
}

Counts TextCounts(const WatchedText& text)
{
    return {{"paints", text.counts.paints}, {"draws", text.counts.draws}};
}

WatchedText* MakeText(wxFrame* parent)
{
    auto* const text = new WatchedText(parent);
    for (int i = 0; i < kLines; ++i)
    {
        text->Append(WorkloadLine(i), false);
    }
    return text;
}

void MeasureText(benchmark::State& state, const Change<WatchedText>& change)
{
    Measure<WatchedText>(state, change, MakeText, TextCounts,
                         [](WatchedText& text) { return &text; });
}

// The chart keeps to itself how often it draws its picture.
void MeasureChart(benchmark::State& state)
{
    wxBarHistoryCtrl* chart = nullptr;
    PaintCounts       counts;
    wxFrame* const    frame = OpenFrame(
        [&](wxFrame* parent)
        {
            auto* const panel = new wxPanel(parent);
            chart = new wxBarHistoryCtrl(panel, wxID_ANY, wxDefaultPosition, wxSize(600, 80));
            CountPaints(chart, counts);
            return panel;
        });
    chart->SetBounds(0, kChartTop, false);
    Watch(
        [&] {
            return Counts{{"paints", counts.paints}};
        })
        .Measure(
            state, [](int) {}, [&](int time) { chart->PushValue(static_cast<uint32_t>(time)); });
    CloseFrame(frame);
}

void Register(const char* name, const std::function<void(benchmark::State&)>& measure)
{
    benchmark::RegisterBenchmark(name, measure)->Iterations(1)->Unit(benchmark::kMillisecond);
}

void RegisterAll()
{
    for (const Change<WatchedList>& change : kListChanges)
    {
        Register(change.name, [&](benchmark::State& state) { MeasureList(state, change); });
    }
    for (const Change<WatchedText>& change : kTextChanges)
    {
        Register(change.name, [&](benchmark::State& state) { MeasureText(state, change); });
    }
    Register("PaintsOf<chart: a value pushed>", MeasureChart);
}
} // namespace

int main(int argc, char** argv)
{
    RegisterAll();
    return RunBenchmarks(argc, argv);
}
