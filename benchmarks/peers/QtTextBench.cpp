#include "benchmarks/TextWorkload.h"
#include "benchmarks/peers/QtSupport.h"
#include "benchmarks/peers/QtViews.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <random>
#include <vector>

/// The workload of the text view on Qt's editor of plain text.

namespace
{
constexpr int      kMillion = 1000000;
constexpr unsigned kSeed = 7;

std::vector<QString> ToQt(const std::vector<String>& lines)
{
    std::vector<QString> texts;
    std::transform(lines.begin(), lines.end(), std::back_inserter(texts),
                   [](const String& line) { return ToQt(line); });
    return texts;
}

/// The lines as the toolkit wants them, so that it does not pay for converting them.
const QString& Line(int number)
{
    static const std::vector<QString> s_Lines = ToQt(WorkloadLines());
    return s_Lines[static_cast<size_t>(number) % s_Lines.size()];
}

/// So many lines from that one on, without a line end after the last.
QString Lines(int first, int count)
{
    QString text;
    for (int i = first; i < first + count; ++i)
    {
        text += Line(i);
        text += i + 1 < first + count ? QLatin1String("\n") : QLatin1String();
    }
    return text;
}

struct PlainText
{
    /// Before the first line that is not less.
    void InsertSorted(const QString& line) const
    {
        const QTextDocument* const document = widget->document();
        int                        first = 0;
        int end = document->blockCount() - 1; // the last one is the empty one after all
        while (first < end)
        {
            const int middle = (first + end) / 2;
            if (document->findBlockByNumber(middle).text() < line)
            {
                first = middle + 1;
            }
            else
            {
                end = middle;
            }
        }
        QTextCursor(document->findBlockByNumber(first)).insertText(line + QLatin1Char('\n'));
    }

    QPlainTextEdit* widget = MakeLog();
};

using Stage = ControlStage<PlainText>;

// Lines appended, events handled and a repaint forced every so many.
void AppendInBatches(benchmark::State& state, int batch)
{
    const int count = static_cast<int>(state.range(0));
    Line(0);
    for (auto _ : state)
    {
        Stage stage;
        stage.Show();
        const size_t     before = ResidentBytes();
        Clock::duration  appending{};
        const FrameWatch watch;
        for (int i = 0; i < count;)
        {
            const auto start = Clock::now();
            for (const int end = i + kLinesPerRepaint; i < end; i += batch)
            {
                stage->widget->appendPlainText(batch == 1 ? Line(i) : Lines(i, batch));
            }
            appending += Clock::now() - start;
            stage.Show();
        }
        Report(state, watch.Shown());
        state.counters["append_ns"] = Seconds(appending) * 1e9 / count;
        state.counters["bytes_per_line"] = static_cast<double>(ResidentBytes() - before) / count;
        if (stage->widget->blockCount() != count)
        {
            state.SkipWithError("there are other lines");
        }
    }
}

void AppendBatches(benchmark::State& state)
{
    AppendInBatches(state, kLinesPerRepaint);
}
BENCHMARK(AppendBatches)
    ->Name("AppendAndRepaint<QPlainTextEdit, 1000 at once>")
    ->Arg(kMillion)
    ->Apply(Once);

void AppendAndRepaint(benchmark::State& state)
{
    AppendInBatches(state, 1);
}
BENCHMARK(AppendAndRepaint)
    ->Name("AppendAndRepaint<QPlainTextEdit>")
    ->Arg(kMillion / 10) // a million would take minutes
    ->Apply(Once);

void RepaintAnywhere(benchmark::State& state)
{
    Stage stage;
    stage->widget->setPlainText(Lines(0, static_cast<int>(state.range(0))));
    stage.Show();
    QScrollBar* const bar = stage->widget->verticalScrollBar();
    std::mt19937      random(kSeed);
    MeasureMedian(state,
                  [&]
                  {
                      PumpEvents();
                      WaitForDisplay();
                      const auto       range = static_cast<unsigned>(bar->maximum());
                      const FrameWatch watch;
                      bar->setValue(static_cast<int>(random() % range));
                      stage.Repaint();
                      return watch.Shown();
                  });
}
BENCHMARK(RepaintAnywhere)->Name("RepaintAnywhere<QPlainTextEdit>")->Arg(kMillion)->Apply(Repaints);

void SearchToTheLastLine(benchmark::State& state)
{
    Stage stage;
    stage->widget->setPlainText(Lines(0, static_cast<int>(state.range(0)) - 1) +
                                QLatin1String("\nthe Needle in the last line"));
    stage.Show();
    const QTextDocument::FindFlags flags =
        state.range(1) != 0 ? QTextDocument::FindCaseSensitively : QTextDocument::FindFlags();
    for (auto _ : state)
    {
        stage->widget->moveCursor(QTextCursor::Start);
        if (!stage->widget->find(QStringLiteral("Needle in"), flags))
        {
            state.SkipWithError("not found");
        }
    }
}
BENCHMARK(SearchToTheLastLine)
    ->Name("SearchToTheLastLine<QPlainTextEdit>")
    ->Args({kMillion, 1})
    ->Args({kMillion, 0})
    ->Iterations(3)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void AppendSorted(benchmark::State& state)
{
    const std::vector<QString> lines = ToQt(UnsortedLines());
    for (auto _ : state)
    {
        Stage            stage;
        const FrameWatch watch;
        for (size_t i = 0; i < lines.size(); ++i)
        {
            stage->InsertSorted(lines[i]);
            if ((i + 1) % kLinesPerRepaint == 0)
            {
                stage.Show();
            }
        }
        Report(state, watch.Shown());
    }
}
BENCHMARK(AppendSorted)->Name("AppendSorted<QPlainTextEdit>")->Arg(kSortedLines)->Apply(Once);
} // namespace

int main(int argc, char** argv)
{
    return RunBenchmarks(argc, argv);
}
