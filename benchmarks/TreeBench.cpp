#include "benchmarks/BenchSupport.h"
#include "benchmarks/ListWorkload.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxDBTreeListCtrl.h"

#include <malloc.h>
#include <random>

namespace
{
constexpr int      kParents = 100000;
constexpr int      kChildren = 9; // with their parents a million nodes
constexpr int      kNodes = kParents * (1 + kChildren);
constexpr unsigned kSeed = 7;
constexpr double   kQuiet = 0.1; // seconds in which the old tree is freed

/// Parents with children without any data of its own: a node is the number of its row when all are
/// open, counted from 1.
class Model : public wxDBTreeModel
{
public:
    long long _ChildCount(wxDBTreeNode node) override
    {
        return node == k_Root ? kParents : IsParent(node) ? kChildren : 0;
    }
    wxDBTreeNode _Child(wxDBTreeNode node, long long index) override
    {
        return node == k_Root ? index * (kChildren + 1) + 1 : node + 1 + index;
    }
    bool   _MayHaveChildren(wxDBTreeNode node) override { return IsParent(node); }
    String _Text(wxDBTreeNode node, int column) override
    {
        return WorkloadCell(static_cast<int>(node), column);
    }

private:
    static bool IsParent(wxDBTreeNode node) { return node % (kChildren + 1) == 1; }
};

/// A tree that counts the rows that it has drawn.
class Measured : public wxDBTreeListCtrl
{
public:
    using wxDBTreeListCtrl::wxDBTreeListCtrl;

    void PrepareToDraw(int row) override
    {
        wxDBTreeListCtrl::PrepareToDraw(row);
        ++drawn;
    }

    int drawn = 0;
};

/// A tree with the workload's columns in a frame of its own.
class Stage
{
public:
    Stage()
    {
        m_Frame =
            OpenFrame([this](wxFrame* frame) { return m_Tree = new Measured(frame, 1, false); });
        for (int column = 0; column < kCellColumns; ++column)
        {
            m_Tree->AddColumn(column, SFormat("Column %d", column), kCellColumnWidth);
        }
        m_Tree->SetModel(&m_Model);
        Repaint();
    }
    ~Stage() { CloseFrame(m_Frame); }

    Measured* operator->() const { return m_Tree; }

    /// Paints titles and rows now, without the pause in which a list gathers its changes.
    void Repaint() const
    {
        const int before = m_Tree->drawn;
        m_Tree->Redraw();
        for (wxDoubleBufferedWindow* const view :
             {static_cast<wxDoubleBufferedWindow*>(m_Tree->GetHeader()),
              static_cast<wxDoubleBufferedWindow*>(m_Tree->GetBody())})
        {
            wxTimer      timer;
            wxTimerEvent due(timer);
            view->Timeout(due);
        }
        m_Tree->Update();
        PumpUntil([&] { return m_Tree->drawn > before; });
    }
    /// Until the rows are what was asked for. The longest time counts until the old ones are freed.
    SlicedWork Arrange(const std::function<void()>& ask) const
    {
        SlicedWork       work = MeasureSlices(ask, [this] { return m_Tree->IsArranging(); });
        const auto       done = Clock::now();
        const SlicedWork freeing =
            MeasureSlices([] {}, [&] { return SecondsSince(done) < kQuiet; });
        work.longest = std::max(work.longest, freeing.longest);
        return work;
    }

private:
    Model     m_Model;
    wxFrame*  m_Frame;
    Measured* m_Tree = nullptr;
};

size_t UsedBytes()
{
    return mallinfo2().uordblks;
}

void Require(benchmark::State& state, const Stage& stage, int rows)
{
    if (stage->GetItemCount() != rows)
    {
        state.SkipWithError("the tree has other rows");
    }
}

// From closed to open, every node.
void TreeOpenAll(benchmark::State& state)
{
    const Stage  stage;
    const size_t before = UsedBytes();
    for (auto _ : state)
    {
        stage->CloseAll();
        const auto start = Clock::now();
        stage->OpenAll();
        state.SetIterationTime(SecondsSince(start));
        Require(state, stage, kNodes);
    }
    const auto added = static_cast<double>(UsedBytes() - before);
    state.counters["bytes_per_open_node"] = added / kParents;
    state.counters["bytes_per_closed_node"] = added / (kNodes - kParents);
}
BENCHMARK(TreeOpenAll)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

// A full repaint at random rows of a million.
void TreeRepaint(benchmark::State& state)
{
    const Stage stage;
    stage->OpenAll();
    stage.Repaint();
    std::mt19937 random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      PumpEvents();
                      WaitForDisplay();
                      const auto range = static_cast<unsigned>(stage->GetScrollRange(wxVERTICAL));
                      const FrameWatch watch;
                      stage->SetScrollPos(wxVERTICAL, static_cast<int>(random() % range));
                      stage.Repaint();
                      return watch.Shown();
                  });
}
BENCHMARK(TreeRepaint)->Apply(Repaints);

// A node in the middle opens and closes again, among a hundred thousand open ones.
void TreeToggle(benchmark::State& state)
{
    const Stage stage;
    stage->OpenAll();
    const int row = kNodes / 2;
    for (auto _ : state)
    {
        stage->Close(row);
        stage->Open(row);
    }
    Require(state, stage, kNodes);
}
BENCHMARK(TreeToggle)->Unit(benchmark::kMicrosecond);

/// A node with that many children, whose texts take a host that many microseconds.
class WideModel : public wxDBTreeModel
{
public:
    WideModel(int children, std::chrono::microseconds each) : m_Children(children), m_Each(each) {}

    long long _ChildCount(wxDBTreeNode node) override
    {
        return node == k_Root ? 1 : node == 1 ? m_Children : 0;
    }
    wxDBTreeNode _Child(wxDBTreeNode node, long long index) override { return node + 1 + index; }
    bool         _MayHaveChildren(wxDBTreeNode node) override { return node == 1; }
    String       _Text(wxDBTreeNode node, int column) override
    {
        const auto end = Clock::now() + m_Each;
        String     text = WorkloadCell(static_cast<int>(node * 7919 % m_Children), column);
        while (Clock::now() < end)
        {
        }
        return text;
    }

private:
    int                       m_Children;
    std::chrono::microseconds m_Each;
};

// The block when a sorted node opens.
void TreeOpenSorted(benchmark::State& state)
{
    WideModel   model(static_cast<int>(state.range(0)), std::chrono::microseconds(state.range(1)));
    const Stage stage;
    stage->SetModel(&model);
    stage->SortChildren({{0, false}, {1, false}});
    const auto isBusy = [&] { return stage->IsArranging(); };
    for (auto _ : state)
    {
        stage->ModelChanged();
        stage->CloseAll();
        MeasureSlices([] {}, isBusy);
        Report(state, MeasureSlices([&] { stage->Open(0); }, isBusy));
    }
}
BENCHMARK(TreeOpenSorted)
    ->Args({1000, 0})
    ->Args({1000, 20})
    ->Args({100000, 0})
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void Select(benchmark::State& state)
{
    const Stage stage;
    stage->OpenAll();
    for (auto _ : state)
    {
        const auto start = Clock::now();
        for (int row = 0; row < kParents; ++row)
        {
            stage->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
        }
        state.SetIterationTime(SecondsSince(start));
        const auto ask = Clock::now();
        state.counters["selection_ms"] =
            stage->GetSelection().size() == kParents ? SecondsSince(ask) * 1e3 : -1;
        stage->GetBody()->DeselectAll(true);
    }
}
BENCHMARK(Select)
    ->Name("TreeSelect")
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// The whole open tree, with the time that the window was not heard.
void Arrange(benchmark::State& state, const std::function<void(const Stage&)>& ask)
{
    const Stage stage;
    stage->OpenAll();
    for (auto _ : state)
    {
        Report(state, stage.Arrange([&] { ask(stage); }));
    }
}

void TreeSort(benchmark::State& state)
{
    Arrange(state, [](const Stage& stage) { stage->SortChildren({{0, true}}); });
}
BENCHMARK(TreeSort)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

void TreeFilter(benchmark::State& state)
{
    Arrange(state, [](const Stage& stage)
            { stage->SetFilter([](wxDBTreeNode node) { return node % 7 == 0; }); });
}
BENCHMARK(TreeFilter)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

void TreeRefresh(benchmark::State& state)
{
    Arrange(state, [](const Stage& stage) { stage->ModelChanged(); });
}
BENCHMARK(TreeRefresh)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
