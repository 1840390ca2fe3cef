#include "benchmarks/ListWorkload.h"
#include "benchmarks/Playing.h"
#include "benchmarks/TextWorkload.h"
#include "benchmarks/peers/QtSupport.h"
#include "benchmarks/peers/QtViews.h"
#include "tests/hands/Hand.h"

#include <QEventLoop>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTableView>
#include <QTimer>

/// How smooth Qt's views are under the same pointer.

namespace
{
constexpr int kMillion = 1000000;
constexpr int kDragPixels = 600;

/// Tells of every time that the widget paints.
class FrameFilter : public QObject
{
public:
    FrameFilter(QWidget* widget, Play& play) : m_Play(play) { widget->installEventFilter(this); }

private:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
        {
            m_Play.FrameShown();
        }
        return false;
    }

    Play& m_Play;
};

/// A scrollbar that tells where its thumb is.
class ThumbBar : public QScrollBar
{
public:
    QPoint OnThumb() const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return mapToGlobal(
            style()
                ->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this)
                .center());
    }
};

void RunPlay(Play& play, const std::function<void(Hand&, int)>& act)
{
    QEventLoop loop;
    play.Run({[&] { loop.exec(); },
              [&] { QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection); }},
             act);
}

void PlayThumb(benchmark::State& state)
{
    TableModel        model(&WorkloadCell);
    QTableView* const table = MakeTable(&model);
    auto* const       bar = new ThumbBar;
    table->setVerticalScrollBar(bar);
    const std::unique_ptr<QWidget> window = OpenWindow(table);
    for (auto _ : state)
    {
        model.SetRows(static_cast<int>(state.range(0)));
        PumpUntil([&] { return bar->maximum() > 0 && bar->isVisible(); });
        PumpEvents();
        Play              play;
        const FrameFilter frames(table->viewport(), play);
        const QPoint      thumb = bar->OnThumb();
        int               farthest = 0;
        QObject::connect(bar, &QScrollBar::valueChanged,
                         [&](int value) { farthest = std::max(farthest, value); });
        Hand hand;
        hand.Move(thumb.x(), thumb.y());
        hand.Button(1, true);
        RunPlay(
            play, [&](Hand& mover, int step)
            { mover.Move(thumb.x(), thumb.y() + static_cast<int>(kDragPixels * ToAndFro(step))); });
        hand.Button(1, false);
        bar->disconnect();
        play.Report(state);
        if (farthest < bar->maximum() / 3)
        {
            state.SkipWithError("the thumb did not come along");
        }
    }
}
BENCHMARK(PlayThumb)
    ->Name("PlayThumb<QTableView>")
    ->Arg(kMillion)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void PlayLog(benchmark::State& state)
{
    auto* const                    text = MakeLog();
    const std::unique_ptr<QWidget> window = OpenWindow(text);
    for (auto _ : state)
    {
        Play              play;
        const FrameFilter frames(text->viewport(), play);
        LineFeed          feed(static_cast<int>(state.range(0)));
        QTimer            timer;
        QObject::connect(&timer, &QTimer::timeout,
                         [&]
                         {
                             QString lines;
                             feed.Pass([&](int line) { lines += ToQt(WorkloadLine(line)) + '\n'; });
                             lines.chop(1);
                             text->appendPlainText(lines);
                         });
        timer.start(kFeedMs);
        const QPoint middle = text->mapToGlobal(text->rect().center());
        Hand         hand;
        hand.Move(middle.x(), middle.y());
        RunPlay(play, [](Hand& wheel, int step) { TurnWheel(wheel, step); });
        play.Report(state);
        state.counters["lines"] = text->blockCount();
    }
}
BENCHMARK(PlayLog)
    ->Name("PlayLog<QPlainTextEdit>")
    ->Arg(kLinesPerSecond)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
