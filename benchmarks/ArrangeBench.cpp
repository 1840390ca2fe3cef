#include "benchmarks/BenchSupport.h"
#include "benchmarks/ListWorkload.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxListArranger.h"

namespace
{
constexpr int kMillion = 1000000;
constexpr int kColumns = 5;
constexpr int kNumbers = 5; // the type of a column of numbers

int NumberOf(int item)
{
    return static_cast<int>(item * 7919LL % kMillion);
}

String TextOf(int item, int type)
{
    switch (type)
    {
    case 0:
        return "shot " + String::FromInt(NumberOf(item) / 100) + " frame " +
               String::FromInt(item % 1000);
    case kNumbers:
        return String::FromInt(NumberOf(item));
    default:
        return WorkloadCell(item, type);
    }
}

class List : public wxDBListCtrl
{
public:
    explicit List(wxWindow* parent) : wxDBListCtrl(parent, wxID_ANY, false)
    {
        for (int column = 0; column <= kColumns; ++column)
        {
            wxDBListColumn header;
            header.label = SFormat("Column %d", column);
            header.width = kCellColumnWidth;
            header.type = column;
            header.visible = column < kColumns;
            AddColumn(header);
        }
        m_Arranger = std::make_unique<wxListArranger>(
            *this, wxListArranger::Items{[] { return kMillion; }, &TextOf,
                                         [](int item, int type) {
                                             return type == kNumbers
                                                        ? std::optional<double>(NumberOf(item))
                                                        : std::nullopt;
                                         }});
    }

    bool             IsRowSelected(int) override { return false; }
    std::vector<int> GetSelection() override { return {}; }
    String           GetDisplayText(int row, int column) override
    {
        const int item = m_Arranger ? m_Arranger->ItemAt(row) : -1;
        return item < 0 ? String() : TextOf(item, GetColumn(column).type);
    }
    wxListArranger& Arranger() { return *m_Arranger; }

private:
    std::unique_ptr<wxListArranger> m_Arranger;
};

// From the request until the rows stand so. "longest_ms": the longest time without a look at the
// events.
void Measure(benchmark::State& state, const std::function<void(wxListArranger&)>& prepare,
             const std::function<void(wxListArranger&)>& ask)
{
    List*          list = nullptr;
    wxFrame* const frame = OpenFrame([&](wxFrame* parent) { return list = new List(parent); });
    PumpEvents();
    wxListArranger& arranger = list->Arranger();
    const auto      isBusy = [&] { return arranger.IsArranging(); };
    for (auto _ : state)
    {
        arranger.StopSorting();
        arranger.SetFilter(String());
        MeasureSlices([&] { prepare(arranger); }, isBusy);
        PumpEvents();
        Report(state, MeasureSlices([&] { ask(arranger); }, isBusy));
        state.counters["rows"] = arranger.GetShownCount();
    }
    CloseFrame(frame);
}

void Nothing(wxListArranger&)
{
}

void ArrangeSort(benchmark::State& state)
{
    Measure(state, Nothing,
            [type = static_cast<int>(state.range(0))](wxListArranger& arranger)
            { arranger.SortBy(type, true); });
}
BENCHMARK(ArrangeSort)
    ->Arg(0)
    ->Arg(1)
    ->Arg(kNumbers)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void ArrangeFilter(benchmark::State& state)
{
    Measure(state, Nothing, [](wxListArranger& arranger) { arranger.SetFilter("9"); });
}
BENCHMARK(ArrangeFilter)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

// The next letter, in a list that is filtered and sorted.
void ArrangeNarrow(benchmark::State& state)
{
    Measure(
        state,
        [](wxListArranger& arranger)
        {
            arranger.SortBy(0, true);
            arranger.SetFilter("9");
        },
        [](wxListArranger& arranger) { arranger.SetFilter("99"); });
}
BENCHMARK(ArrangeNarrow)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
