#include "benchmarks/BenchSupport.h"

#include "appearance/wxTolvanColors.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>

namespace
{
constexpr int      kClientWidth = 1600; // pixels
constexpr int      kClientHeight = 900; // pixels
constexpr int      kLeastLine = 40;     // characters
constexpr int      kLongestLine = 160;  // characters
constexpr size_t   kLines = 4001;       // a prime, so that no pattern repeats with the repaints
constexpr unsigned kSeed = 20240607;
constexpr int      kPatienceMs = 10000;
constexpr int      kRepaints = 200; // of which the median is taken
constexpr int      kFewRepaints = 50;

String MakeLine(std::mt19937& random)
{
    static const char* const kWords[] = {"frame",   "rendered", "tile", "sample", "texture",
                                         "warning", "loading",  "done", "shots",  "geometry"};
    const auto               size =
        static_cast<size_t>(std::uniform_int_distribution<int>(kLeastLine, kLongestLine)(random));
    String line = SFormat("%08x ", static_cast<unsigned>(random()));
    while (line.size() < size)
    {
        line += kWords[random() % std::size(kWords)];
        line += ' ';
    }
    line.resize(size);
    return line;
}
} // namespace

const std::vector<String>& WorkloadLines()
{
    static const std::vector<String> s_Lines = []
    {
        std::mt19937        random(kSeed);
        std::vector<String> lines;
        for (size_t i = 0; i < kLines; ++i)
        {
            lines.push_back(MakeLine(random));
        }
        return lines;
    }();
    return s_Lines;
}

wxFrame* OpenFrame(const std::function<wxWindow*(wxFrame*)>& make)
{
    auto* const     frame = new wxFrame(nullptr, wxID_ANY, "Benchmark", wxPoint(0, 0));
    wxWindow* const window = make(frame);
    auto* const     sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(window, 1, wxEXPAND);
    frame->SetSizer(sizer);
    frame->SetClientSize(kClientWidth, kClientHeight);
    frame->Show();
    PumpUntil([&] { return frame->IsShownOnScreen() && frame->IsActive(); });
    PumpUntil([&] { return window->GetSize().x > kClientWidth / 2; });
    return frame;
}

void CloseFrame(wxFrame* frame)
{
    const wxWeakRef<wxFrame> closed(frame);
    frame->Destroy();
    PumpUntil([&] { return !closed; });
}

void PumpEvents()
{
    wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
    while (loop->Pending())
    {
        loop->Dispatch();
    }
    wxTheApp->ProcessPendingEvents();
    wxTheApp->ProcessIdle();
}

void PumpUntil(const std::function<bool()>& condition)
{
    const wxStopWatch watch;
    while (!condition())
    {
        if (watch.Time() > kPatienceMs)
        {
            std::fprintf(stderr, "a window does not get where it should\n");
            std::exit(EXIT_FAILURE);
        }
        PumpEvents();
    }
}

SlicedWork MeasureSlices(const std::function<void()>& ask, const std::function<bool()>& isBusy)
{
    SlicedWork work;
    const auto start = Clock::now();
    ask();
    work.longest = SecondsSince(start);
    while (isBusy())
    {
        const auto begin = Clock::now();
        PumpEvents();
        work.longest = std::max(work.longest, SecondsSince(begin));
    }
    work.took = SecondsSince(start);
    return work;
}

void Report(benchmark::State& state, const SlicedWork& work)
{
    state.SetIterationTime(work.took);
    state.counters["longest_ms"] =
        std::max<double>(state.counters["longest_ms"], work.longest * 1e3);
}

size_t ResidentBytes()
{
    std::ifstream statm("/proc/self/statm");
    size_t        total = 0;
    size_t        resident = 0;
    statm >> total >> resident;
    return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void Repaints(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Iterations(kRepaints)->UseManualTime()->Unit(benchmark::kMillisecond);
}

void FewRepaints(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Iterations(kFewRepaints)->UseManualTime()->Unit(benchmark::kMillisecond);
}

void MeasureMedian(benchmark::State& state, const std::function<double()>& work)
{
    std::vector<double> times;
    for (auto _ : state)
    {
        times.push_back(work());
        state.SetIterationTime(times.back());
    }
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    state.counters["median_ms"] = *middle * 1e3;
}

int RunBenchmarks(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return EXIT_FAILURE;
    }
    wxApp::SetInstance(new wxApp);
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit())
    {
        std::fprintf(stderr, "no display\n");
        return EXIT_FAILURE;
    }
    wxTheApp->SetExitOnFrameDelete(false);
    SetColors(scheme_Dark);
    benchmark::AddCustomContext("toolkit",
                                wxGetLibraryVersionInfo().GetVersionString().ToStdString());
    benchmark::AddCustomContext("port",
                                wxPlatformInfo::Get().GetPortIdShortName().ToStdString() +
                                    SFormat(" %d", wxPlatformInfo::Get().GetToolkitMajorVersion()));
    {
        wxEventLoop                loop;
        const wxEventLoopActivator active(&loop);
        benchmark::RunSpecifiedBenchmarks();
    }
    benchmark::Shutdown();
    wxEntryCleanup();
    return EXIT_SUCCESS;
}
