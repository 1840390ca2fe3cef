#include "benchmarks/peers/QtSupport.h"

#include <QPainter>

#include <deque>
#include <random>

/// The workload of the chart: a plain widget that draws a bar for each of its values.

namespace
{
constexpr unsigned kSeed = 7;
constexpr unsigned kChartTop = 1000; // the value of a full bar

class Chart : public QWidget
{
public:
    explicit Chart(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

    void Push(unsigned value)
    {
        m_Values.push_front(value);
        if (m_Values.size() > static_cast<size_t>(width()))
        {
            m_Values.pop_back();
        }
        update();
    }
    int Painted() const { return m_Painted; }

private:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::black);
        int x = width() - 1;
        for (auto value = m_Values.begin(); value != m_Values.end() && x >= 0; ++value, --x)
        {
            const int high = static_cast<int>(*value) * height() / static_cast<int>(kChartTop);
            painter.fillRect(x, height() - high, 1, high, Qt::blue);
        }
        ++m_Painted;
    }

    std::deque<unsigned> m_Values;
    int                  m_Painted = 0;
};

void ChartPush(benchmark::State& state)
{
    auto* const panel = new QWidget;
    auto* const chart = new Chart(panel);
    chart->setGeometry(0, 0, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const std::unique_ptr<QWidget> window = OpenWindow(panel);
    std::mt19937                   random(kSeed);
    const auto                     push = [&]
    {
        const int        before = chart->Painted();
        const auto       value = static_cast<unsigned>(random() % kChartTop);
        const FrameWatch watch;
        chart->Push(value);
        chart->repaint();
        PumpUntil([&] { return chart->Painted() > before; });
        return watch.Shown();
    };
    for (int i = 0; i < chart->width(); ++i)
    {
        push();
        PumpEvents();
    }
    MeasureMedian(state, push);
}
BENCHMARK(ChartPush)->Name("ChartPush<QWidget>")->Args({600, 80})->Apply(Repaints);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
