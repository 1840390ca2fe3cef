#include "benchmarks/BenchSupport.h"
#include "benchmarks/ListWorkload.h"

#include "appearance/wxTolvanString.h"

#include <wx/dataview.h>
#include <wx/dcbuffer.h>
#include <wx/grid.h>
#include <wx/listctrl.h>
#include <wx/panel.h>

#include <deque>
#include <memory>
#include <random>

/// The workload of the lists and the chart on the toolkit's own controls.

namespace
{
constexpr int      kMillion = 1000000;
constexpr int      kHundredThousand = 100000;
constexpr int      kTenThousand = 10000;
constexpr unsigned kSeed = 7;
constexpr unsigned kChartTop = 1000; // the value of a full bar

/// The texts as the toolkit wants them, so that no control pays for converting them.
const wxString& Cell(int row, int column)
{
    static const std::vector<wxString> s_Texts = []
    {
        std::vector<wxString> texts;
        texts.reserve(static_cast<size_t>(kCellRows) * kCellColumns);
        for (int i = 0; i < kCellRows * kCellColumns; ++i)
        {
            texts.push_back(wxtToWx(WorkloadCell(i / kCellColumns, i % kCellColumns)));
        }
        return texts;
    }();
    return s_Texts[static_cast<size_t>(row % kCellRows * kCellColumns + column)];
}

constexpr int kCellsSeen = 300; // fewer than the smallest of the views shows

int g_Asked = 0; // how often a control has asked for a cell: it has painted when for so many

const wxString& AskedCell(int row, int column)
{
    ++g_Asked;
    return Cell(row, column);
}

class VirtualListView : public wxListCtrl
{
public:
    explicit VirtualListView(wxWindow* parent)
        : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL)
    {
    }

private:
    wxString OnGetItemText(long row, long column) const override
    {
        return AskedCell(static_cast<int>(row), static_cast<int>(column));
    }
};

template <class Control> void AddColumns(Control* control)
{
    for (int column = 0; column < kCellColumns; ++column)
    {
        control->AppendColumn(wxString::Format("Column %d", column), wxLIST_FORMAT_LEFT,
                              kCellColumnWidth);
    }
}

struct ListCtrl
{
    explicit ListCtrl(wxFrame* frame) : window(new VirtualListView(frame)) { AddColumns(window); }

    void SetRows(int count) const { window->SetItemCount(count); }
    void ShowRow(int row) const { window->EnsureVisible(row); }

    VirtualListView* window;
};

class GridTable : public wxGridTableBase
{
public:
    int      GetNumberRows() override { return m_Rows; }
    int      GetNumberCols() override { return kCellColumns; }
    wxString GetValue(int row, int column) override { return AskedCell(row, column); }
    void     SetValue(int, int, const wxString&) override {}
    bool     AppendRows(size_t count) override
    {
        m_Rows += static_cast<int>(count);
        wxGridTableMessage message(this, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, static_cast<int>(count));
        return GetView()->ProcessTableMessage(message);
    }

private:
    int m_Rows = 0;
};

struct Grid
{
    explicit Grid(wxFrame* frame) : window(new wxGrid(frame, wxID_ANY))
    {
        window->AssignTable(new GridTable);
        window->SetDefaultColSize(kCellColumnWidth, true);
        window->HideRowLabels();
        window->EnableEditing(false);
    }

    void SetRows(int count) const { window->AppendRows(count); }
    void ShowRow(int row) const { window->MakeCellVisible(row, 0); }

    wxGrid* window;
};

class ListModel : public wxDataViewVirtualListModel
{
public:
    unsigned GetColumnCount() const override { return kCellColumns; }
    wxString GetColumnType(unsigned) const override { return "string"; }
    void     GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override
    {
        value = AskedCell(static_cast<int>(row), static_cast<int>(column));
    }
    bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }
};

struct DataView
{
    explicit DataView(wxFrame* frame) : window(new wxDataViewCtrl(frame, wxID_ANY))
    {
        window->AssociateModel(model.get());
        for (unsigned column = 0; column < kCellColumns; ++column)
        {
            window->AppendTextColumn(wxString::Format("Column %u", column), column,
                                     wxDATAVIEW_CELL_INERT, kCellColumnWidth);
        }
    }

    void SetRows(int count) const { model->Reset(static_cast<unsigned>(count)); }
    void ShowRow(int row) const
    {
        window->EnsureVisible(model->GetItem(static_cast<unsigned>(row)));
    }

    wxObjectDataPtr<ListModel> model{new ListModel};
    wxDataViewCtrl*            window;
};

template <class Control> class Stage : public ControlStage<Control>
{
public:
    /// A change and painting everything.
    template <class Change> FrameTime RepaintAfter(Change change) const
    {
        WaitForDisplay();
        const FrameWatch watch;
        g_Asked = 0;
        change();
        (*this)->window->Refresh();
        (*this)->window->Update();
        PumpUntil([] { return g_Asked >= kCellsSeen; });
        return watch.Shown();
    }
};

template <class Control> void ListRepaint(benchmark::State& state)
{
    const Stage<Control> stage;
    const int            rows = static_cast<int>(state.range(0));
    stage.RepaintAfter([&] { stage->SetRows(rows); });
    std::mt19937 random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      PumpEvents();
                      const auto row = static_cast<int>(random() % static_cast<unsigned>(rows));
                      return stage.RepaintAfter([&] { stage->ShowRow(row); });
                  });
}
BENCHMARK_TEMPLATE(ListRepaint, ListCtrl)->Arg(kMillion)->Apply(FewRepaints);
BENCHMARK_TEMPLATE(ListRepaint, Grid)->Arg(kMillion)->Apply(FewRepaints);
BENCHMARK_TEMPLATE(ListRepaint, DataView)->Arg(kMillion)->Apply(FewRepaints);

template <class Control> void ListFirstPaint(benchmark::State& state)
{
    for (auto _ : state)
    {
        const Stage<Control> stage;
        const int            rows = static_cast<int>(state.range(0));
        Report(state, stage.RepaintAfter([&] { stage->SetRows(rows); }));
    }
}
void FirstPaints(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(kMillion)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK_TEMPLATE(ListFirstPaint, ListCtrl)->Apply(FirstPaints);
BENCHMARK_TEMPLATE(ListFirstPaint, Grid)->Apply(FirstPaints);
BENCHMARK_TEMPLATE(ListFirstPaint, DataView)->Apply(FirstPaints);

/// A list that keeps its rows.
struct ReportList
{
    explicit ReportList(wxFrame* frame)
        : window(new wxListCtrl(frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT))
    {
        AddColumns(window);
    }

    void Fill(int rows) const
    {
        for (int row = 0; row < rows; ++row)
        {
            window->InsertItem(row, Cell(row, 0));
            for (int column = 1; column < kCellColumns; ++column)
            {
                window->SetItem(row, column, Cell(row, column));
            }
        }
    }

    wxListCtrl* window;
};

template <class Control> void ListFill(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        const Stage<Control> stage;
        const size_t         before = ResidentBytes();
        const auto           start = Clock::now();
        stage->Fill(rows);
        const double seconds = SecondsSince(start);
        state.SetIterationTime(seconds);
        state.counters["ns_per_cell"] = seconds * 1e9 / rows / kCellColumns;
        state.counters["bytes_per_row"] = static_cast<double>(ResidentBytes() - before) / rows;
    }
}
BENCHMARK_TEMPLATE(ListFill, ReportList)
    ->Arg(kTenThousand) // ten times as many would take most of a minute
    ->Apply(Once);

// Every row selected or deselected by the program, since there is no other way to have each told.
void Select(benchmark::State& state, bool select)
{
    const Stage<ReportList> stage;
    const int               rows = static_cast<int>(state.range(0));
    for (int row = 0; row < rows; ++row)
    {
        stage->window->InsertItem(row, Cell(row, 0));
    }
    int heard = 0;
    for (const wxEventTypeTag<wxListEvent>& type :
         {wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED})
    {
        stage->window->Bind(type, [&heard](wxListEvent&) { ++heard; });
    }
    const auto setAll = [&](long selected)
    {
        const auto start = Clock::now();
        for (int row = 0; row < rows; ++row)
        {
            stage->window->SetItemState(row, selected, wxLIST_STATE_SELECTED);
        }
        return SecondsSince(start);
    };
    for (auto _ : state)
    {
        const double selecting = setAll(wxLIST_STATE_SELECTED);
        const double deselecting = setAll(0);
        if (heard != 2 * rows)
        {
            state.SkipWithError("not every row was heard of");
        }
        state.SetIterationTime(select ? selecting : deselecting);
    }
}

template <class Control> void ListSelect(benchmark::State& state)
{
    Select(state, true);
}
BENCHMARK_TEMPLATE(ListSelect, ReportList)->Arg(kHundredThousand)->Apply(Once);

template <class Control> void ListDeselect(benchmark::State& state)
{
    Select(state, false);
}
BENCHMARK_TEMPLATE(ListDeselect, ReportList)->Arg(kHundredThousand)->Apply(Once);

/// A panel that draws a bar for each of its values.
class Panel : public wxPanel
{
public:
    Panel(wxWindow* parent, const wxSize& size) : wxPanel(parent, wxID_ANY, wxDefaultPosition, size)
    {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, &Panel::OnPaint, this);
    }

    void Push(unsigned value)
    {
        m_Values.push_front(value);
        if (m_Values.size() > static_cast<size_t>(GetSize().x))
        {
            m_Values.pop_back();
        }
        Refresh(false);
    }
    int Painted() const { return m_Painted; }

private:
    void OnPaint(wxPaintEvent&)
    {
        wxAutoBufferedPaintDC dc(this);
        const wxSize          size = GetClientSize();
        dc.SetBackground(*wxBLACK_BRUSH);
        dc.Clear();
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(*wxBLUE_BRUSH);
        int x = size.x - 1;
        for (auto value = m_Values.begin(); value != m_Values.end() && x >= 0; ++value, --x)
        {
            const int height = static_cast<int>(*value) * size.y / static_cast<int>(kChartTop);
            dc.DrawRectangle(x, size.y - height, 1, height);
        }
        ++m_Painted;
    }

    std::deque<unsigned> m_Values;
    int                  m_Painted = 0;
};

template <class Control> void ChartPush(benchmark::State& state)
{
    const wxSize   size(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Control*       chart = nullptr;
    wxFrame* const frame = OpenFrame(
        [&](wxFrame* parent)
        {
            auto* const panel = new wxPanel(parent);
            chart = new Control(panel, size);
            return panel;
        });
    std::mt19937 random(kSeed);
    const auto   push = [&]
    {
        const int        before = chart->Painted();
        const auto       value = static_cast<unsigned>(random() % kChartTop);
        const FrameWatch watch;
        chart->Push(value);
        chart->Update();
        PumpUntil([&] { return chart->Painted() > before; });
        return watch.Shown();
    };
    for (int i = 0; i < size.x; ++i)
    {
        push();
        PumpEvents();
    }
    MeasureMedian(state, push);
    CloseFrame(frame);
}
BENCHMARK_TEMPLATE(ChartPush, Panel)->Args({600, 80})->Apply(Repaints);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
