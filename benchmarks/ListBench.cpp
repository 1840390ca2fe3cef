#include "benchmarks/BenchSupport.h"
#include "benchmarks/ListWorkload.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxListRefresh.h"
#include "listviews/wxtListCtrl.h"
#include "textviews/wxBarHistoryCtrl.h"

#include <wx/listbase.h>
#include <wx/panel.h>

#include <random>
#include <vector>

namespace
{
constexpr int      kMillion = 1000000;
constexpr int      kHundredThousand = 100000;
constexpr unsigned kSeed = 7;
constexpr uint32_t kChartTop = 1000; // the value of a full bar

/// A list that counts the rows that it has drawn.
template <class List> class Counting : public List
{
public:
    using List::List;

    void PrepareToDraw(int row) override
    {
        List::PrepareToDraw(row);
        ++m_Drawn;
    }
    int Drawn() const { return m_Drawn; }

private:
    int m_Drawn = 0;
};

/// A list without any data of its own.
class VirtualList : public wxDBListCtrl
{
public:
    VirtualList(wxWindow* parent, int id) : wxDBListCtrl(parent, id, false) {}

    bool             IsRowSelected(int) override { return false; }
    std::vector<int> GetSelection() override { return {}; }
    String GetDisplayText(int row, int column) override { return WorkloadCell(row, column); }
};

class WorldList : public VirtualList
{
public:
    using VirtualList::VirtualList;
    String GetDisplayText(int row, int column) override { return WorldCell(row, column); }
};

/// A list with the workload's columns in a frame of its own.
template <class List> class Stage
{
public:
    Stage()
    {
        m_Frame =
            OpenFrame([this](wxFrame* frame) { return m_List = new Counting<List>(frame, 1); });
        for (int column = 0; column < kCellColumns; ++column)
        {
            m_List->AddColumn(column, SFormat("Column %d", column), kCellColumnWidth);
        }
        Settle();
    }
    ~Stage() { CloseFrame(m_Frame); }

    Counting<List>* operator->() const { return m_List; }
    wxDBListBody*   Body() const { return m_List->GetBody(); }

    /// Everything that was to be painted has been.
    void Settle() const
    {
        PaintNow();
        PumpEvents();
    }
    /// Paints titles and rows now, without the pause in which a list gathers its changes.
    void PaintNow() const
    {
        m_List->Redraw();
        for (wxDoubleBufferedWindow* const view :
             {static_cast<wxDoubleBufferedWindow*>(m_List->GetHeader()),
              static_cast<wxDoubleBufferedWindow*>(m_List->GetBody())})
        {
            wxTimer      timer;
            wxTimerEvent due(timer);
            view->Timeout(due);
        }
        m_List->Update();
    }
    void Repaint() const
    {
        const int before = m_List->Drawn();
        PaintNow();
        PumpUntil([&] { return m_List->Drawn() > before; });
    }
    /// Scrolling somewhere and painting everything.
    FrameTime RepaintAt(unsigned random) const
    {
        PumpEvents();
        WaitForDisplay();
        const int        range = m_List->GetScrollRange(wxVERTICAL);
        const FrameWatch watch;
        m_List->SetScrollPos(wxVERTICAL, static_cast<int>(random % static_cast<unsigned>(range)));
        Repaint();
        return watch.Shown();
    }

private:
    wxFrame*        m_Frame;
    Counting<List>* m_List = nullptr;
};

template <class List> void Fill(const Stage<List>& stage, int rows)
{
    for (int row = 0; row < rows; ++row)
    {
        stage->InsertItem(row, WorkloadCell(row, 0));
        for (int column = 1; column < kCellColumns; ++column)
        {
            stage->SetItem(row, column, WorkloadCell(row, column));
        }
    }
}

template <class List> void MeasureRepaints(benchmark::State& state)
{
    const Stage<List> stage;
    stage->Insert(0, static_cast<unsigned long>(state.range(0)), true);
    stage.Settle();
    std::mt19937 random(kSeed);
    MeasureMedian(state, [&] { return stage.RepaintAt(static_cast<unsigned>(random())); });
    state.counters["row_pixels"] = stage->GetRowHeight();
}

// A full repaint at random rows.
void ListRepaint(benchmark::State& state)
{
    MeasureRepaints<VirtualList>(state);
}
BENCHMARK(ListRepaint)->Arg(kMillion)->Apply(Repaints);

// The same with names in many scripts.
void ListRepaintWorld(benchmark::State& state)
{
    MeasureRepaints<WorldList>(state);
}
BENCHMARK(ListRepaintWorld)->Arg(kMillion)->Apply(Repaints);

// From setting the number of rows to the end of the first paint.
void ListFirstPaint(benchmark::State& state)
{
    for (auto _ : state)
    {
        const Stage<VirtualList> stage;
        const FrameWatch         watch;
        stage->Insert(0, static_cast<unsigned long>(state.range(0)), true);
        stage.Repaint();
        Report(state, watch.Shown());
    }
}
BENCHMARK(ListFirstPaint)
    ->Arg(kMillion)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void ListInsertRows(benchmark::State& state)
{
    const Stage<VirtualList> stage;
    for (auto _ : state)
    {
        const auto start = Clock::now();
        stage->Insert(0, static_cast<unsigned long>(state.range(0)), true);
        state.SetIterationTime(SecondsSince(start));
        stage->Clear();
    }
}
BENCHMARK(ListInsertRows)
    ->Arg(kMillion)
    ->Iterations(1000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Rows that the list keeps, inserted one by one and then painted.
void ListFill(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        const Stage<wxtListCtrl> stage;
        const size_t             before = ResidentBytes();
        const auto               start = Clock::now();
        Fill(stage, rows);
        const double seconds = SecondsSince(start);
        state.SetIterationTime(seconds);
        state.counters["ns_per_cell"] = seconds * 1e9 / rows / kCellColumns;
        state.counters["bytes_per_row"] = static_cast<double>(ResidentBytes() - before) / rows;
        stage.Settle();
    }
}
BENCHMARK(ListFill)->Arg(kHundredThousand / 10)->Arg(kHundredThousand)->Apply(Once);

/// A filled list of which a click with Shift selects every row. It has a host that hears of each.
class SelectingStage : public Stage<wxtListCtrl>
{
public:
    explicit SelectingStage(int rows) : m_Rows(rows)
    {
        Fill(*this, rows);
        Settle();
        for (const wxEventTypeTag<wxListEvent>& type :
             {wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED})
        {
            (*this)->GetParent()->Bind(type, [this](wxListEvent&) { ++m_Heard; });
        }
    }

    double SelectAll()
    {
        wxMouseEvent click(wxEVT_LEFT_DOWN);
        click.SetY((m_Rows - 1) * (*this)->GetRowHeight() - (*this)->GetScrollPos(wxVERTICAL));
        click.SetShiftDown(true);
        (*this)->SetLastSelect(0);
        return Heard([&] { Body()->OnLDown(click); });
    }
    double DeselectAll()
    {
        return Heard([&] { Body()->DeselectAll(true); });
    }

private:
    template <class Work> double Heard(Work work)
    {
        m_Heard = 0;
        const auto start = Clock::now();
        work();
        const double seconds = SecondsSince(start);
        wxMouseEvent release(wxEVT_LEFT_UP);
        Body()->OnLUp(release);
        return m_Heard == m_Rows ? seconds : -1;
    }

    int m_Rows;
    int m_Heard = 0;
};

void Select(benchmark::State& state, bool select)
{
    SelectingStage stage(static_cast<int>(state.range(0)));
    for (auto _ : state)
    {
        const double selecting = stage.SelectAll();
        const double deselecting = stage.DeselectAll();
        if (selecting < 0 || deselecting < 0)
        {
            state.SkipWithError("not every row was heard of");
        }
        state.SetIterationTime(select ? selecting : deselecting);
        stage.Settle();
    }
}

void ListSelect(benchmark::State& state)
{
    Select(state, true);
}
BENCHMARK(ListSelect)
    ->Arg(kHundredThousand)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void ListDeselect(benchmark::State& state)
{
    Select(state, false);
}
BENCHMARK(ListDeselect)
    ->Arg(kHundredThousand)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// A repaint with no row selected (0) or all of them (1).
void ListRepaintSelected(benchmark::State& state)
{
    SelectingStage stage(kHundredThousand);
    if (state.range(0) != 0)
    {
        stage.SelectAll();
    }
    std::mt19937 random(kSeed);
    MeasureMedian(state, [&] { return stage.RepaintAt(static_cast<unsigned>(random())); });
}
BENCHMARK(ListRepaintSelected)->Arg(0)->Arg(1)->Apply(Repaints);

/// A list of any number of rows that can be selected.
class SelectableList : public VirtualList
{
public:
    SelectableList(wxWindow* parent, int id) : VirtualList(parent, id)
    {
        Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { Select(event, true); });
        Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent& event) { Select(event, false); });
    }

    bool IsRowSelected(int row) override { return m_Selected[static_cast<size_t>(row)]; }
    std::vector<int> GetSelection() override
    {
        std::vector<int> rows;
        for (int row = 0; row < static_cast<int>(m_Selected.size()); ++row)
        {
            if (IsRowSelected(row))
            {
                rows.push_back(row);
            }
        }
        return rows;
    }
    void Grow(int rows)
    {
        m_Selected.resize(static_cast<size_t>(rows));
        Insert(0, static_cast<unsigned long>(rows), true);
    }
    void Press(int key, bool control, bool shift)
    {
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = key;
        event.SetControlDown(control);
        event.SetShiftDown(shift);
        GetBody()->HandleWindowEvent(event);
    }

private:
    void Select(const wxListEvent& event, bool selected)
    {
        m_Selected[static_cast<size_t>(event.GetIndex())] = selected;
    }

    std::vector<bool> m_Selected;
};

// Shift+End in the first row (0), Home with all rows selected (1).
void ListKeysSelect(benchmark::State& state)
{
    const Stage<SelectableList> stage;
    stage->Grow(kMillion);
    for (auto _ : state)
    {
        stage->Press(WXK_HOME, false, false);
        const auto       isBusy = [&] { return stage->IsSelecting(); };
        const SlicedWork select =
            MeasureSlices([&] { stage->Press(WXK_END, false, true); }, isBusy);
        const SlicedWork deselect =
            MeasureSlices([&] { stage->Press(WXK_HOME, false, false); }, isBusy);
        Report(state, state.range(0) == 0 ? select : deselect);
    }
}
BENCHMARK(ListKeysSelect)
    ->Arg(0)
    ->Arg(1)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void ListFitColumn(benchmark::State& state)
{
    const Stage<SelectableList> stage;
    stage->Grow(static_cast<int>(state.range(0)));
    for (auto _ : state)
    {
        const auto start = Clock::now();
        stage->FitColumn(1);
        state.SetIterationTime(SecondsSince(start));
    }
}
BENCHMARK(ListFitColumn)
    ->Arg(10000)
    ->Arg(kMillion)
    ->Iterations(20)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// All rows to the clipboard, which nobody asks for them meanwhile.
void ListCopy(benchmark::State& state)
{
    const Stage<SelectableList> stage;
    stage->Grow(static_cast<int>(state.range(0)));
    stage->Press('A', true, false);
    for (auto _ : state)
    {
        const size_t before = ResidentBytes();
        const auto   start = Clock::now();
        stage->CopySelection();
        state.SetIterationTime(SecondsSince(start));
        state.counters["MB"] = static_cast<double>(ResidentBytes() - before) / 1e6;
    }
}
BENCHMARK(ListCopy)->Arg(kMillion)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

// A list of that many keyed rows that is filled anew with 1000 of them selected.
class KeyedList : public SelectableList
{
public:
    using SelectableList::SelectableList;
    String GetRowKey(int row) override { return "job-" + String::FromInt(row); }
};

void ListRefresh(benchmark::State& state)
{
    const Stage<KeyedList> stage;
    stage->Grow(static_cast<int>(state.range(0)));
    for (auto _ : state)
    {
        stage->Press(WXK_END, false, false);
        for (int page = 0; page < 20; ++page)
        {
            stage->Press(WXK_PAGEUP, false, true);
        }
        const auto start = Clock::now();
        {
            const wxListRefresh keep(*stage.operator->());
            stage->Clear();
            stage->Grow(static_cast<int>(state.range(0)));
        }
        state.SetIterationTime(SecondsSince(start));
    }
}
BENCHMARK(ListRefresh)
    ->Arg(kMillion)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// A value that comes, and the whole chart again.
void ChartPush(benchmark::State& state)
{
    const wxSize      size(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    wxBarHistoryCtrl* chart = nullptr;
    int               painted = 0;
    wxFrame* const    frame = OpenFrame(
        [&](wxFrame* parent)
        {
            auto* const panel = new wxPanel(parent);
            chart = new wxBarHistoryCtrl(panel, wxID_ANY, wxDefaultPosition, size);
            return panel;
        });
    chart->SetBounds(0, kChartTop, false);
    chart->Bind(wxEVT_PAINT,
                [&](wxPaintEvent& event)
                {
                    ++painted;
                    event.Skip();
                });
    std::mt19937 random(kSeed);
    const auto   push = [&]
    {
        PumpEvents();
        WaitForDisplay();
        const int        before = painted;
        const auto       value = static_cast<uint32_t>(random() % kChartTop);
        const FrameWatch watch;
        chart->PushValue(value);
        chart->Update();
        PumpUntil([&] { return painted > before; });
        return watch.Shown();
    };
    for (int i = 0; i < size.x; ++i)
    {
        push();
    }
    MeasureMedian(state, push);
    CloseFrame(frame);
}
BENCHMARK(ChartPush)->Args({600, 80})->Apply(Repaints);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
