#include "benchmarks/ListWorkload.h"
#include "benchmarks/peers/QtSupport.h"
#include "benchmarks/peers/QtViews.h"

#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>

#include <random>

/// The workload of the lists on Qt's table.

namespace
{
constexpr int      kMillion = 1000000;
constexpr int      kHundredThousand = 100000;
constexpr unsigned kSeed = 7;
constexpr int      kCellsSeen = 300; // fewer than the view shows

struct Table
{
    static CellOf s_CellOf;

    std::unique_ptr<TableModel> model = std::make_unique<TableModel>(s_CellOf);
    QTableView*                 widget = MakeTable(model.get());
};
CellOf Table::s_CellOf = &WorkloadCell;

class Stage : public ControlStage<Table>
{
public:
    /// A change and painting everything.
    template <class Change> FrameTime RepaintAfter(Change change)
    {
        PumpEvents();
        WaitForDisplay();
        const FrameWatch watch;
        const int        before = (*this)->model->Asked();
        change();
        Repaint();
        PumpUntil([&] { return (*this)->model->Asked() >= before + kCellsSeen; });
        return watch.Shown();
    }
};

void MeasureRepaints(benchmark::State& state, CellOf cellOf)
{
    Table::s_CellOf = cellOf;
    Stage     stage;
    const int rows = static_cast<int>(state.range(0));
    stage.RepaintAfter([&] { stage->model->SetRows(rows); });
    QScrollBar* const bar = stage->widget->verticalScrollBar();
    std::mt19937      random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      const auto range = static_cast<unsigned>(bar->maximum());
                      const int  row = static_cast<int>(random() % range);
                      return stage.RepaintAfter([&] { bar->setValue(row); });
                  });
}

void ListRepaint(benchmark::State& state)
{
    MeasureRepaints(state, &WorkloadCell);
}
BENCHMARK(ListRepaint)->Name("ListRepaint<QTableView>")->Arg(kMillion)->Apply(Repaints);

void ListRepaintWorld(benchmark::State& state)
{
    MeasureRepaints(state, &WorldCell);
}
BENCHMARK(ListRepaintWorld)->Name("ListRepaintWorld<QTableView>")->Arg(kMillion)->Apply(Repaints);

void ListFirstPaint(benchmark::State& state)
{
    Table::s_CellOf = &WorkloadCell;
    for (auto _ : state)
    {
        Stage     stage;
        const int rows = static_cast<int>(state.range(0));
        Report(state, stage.RepaintAfter([&] { stage->model->SetRows(rows); }));
    }
}
BENCHMARK(ListFirstPaint)
    ->Name("ListFirstPaint<QTableView>")
    ->Arg(kMillion)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

struct KeptTable
{
    std::unique_ptr<QStandardItemModel> model =
        std::make_unique<QStandardItemModel>(0, kCellColumns);
    QTableView* widget = MakeTable(model.get());
};

// Rows that the model keeps, appended one by one.
void ListFill(benchmark::State& state)
{
    const CellTexts texts(&WorkloadCell);
    const int       rows = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        ControlStage<KeptTable> stage;
        const size_t            before = ResidentBytes();
        const auto              start = Clock::now();
        for (int row = 0; row < rows; ++row)
        {
            QList<QStandardItem*> items;
            items.reserve(kCellColumns);
            for (int column = 0; column < kCellColumns; ++column)
            {
                items.append(new QStandardItem(texts.At(row, column)));
            }
            stage->model->appendRow(items);
        }
        const double seconds = SecondsSince(start);
        state.SetIterationTime(seconds);
        state.counters["ns_per_cell"] = seconds * 1e9 / rows / kCellColumns;
        state.counters["bytes_per_row"] = static_cast<double>(ResidentBytes() - before) / rows;
    }
}
BENCHMARK(ListFill)
    ->Name("ListFill<QStandardItemModel>")
    ->Arg(kHundredThousand)
    ->Arg(kHundredThousand / 10)
    ->Apply(Once);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
