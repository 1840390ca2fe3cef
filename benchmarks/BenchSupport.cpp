#include "benchmarks/BenchSupport.h"

#include "appearance/wxTolvanColors.h"
#include "shell/wxTolvanFrame.h"
#include "tolvan/TolvanClientApp.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>

#include <gdk/gdk.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace
{
constexpr int kClientWidth = 1600; // pixels
constexpr int kClientHeight = 900; // pixels
constexpr int kPatienceMs = 10000;

/// What frames are made for.
class _Client : public TolvanClientApp
{
public:
    _Client() : TolvanClientApp(log_Warning, log_Warning) {}
    String GetClientName() const override { return "Benchmark"; }
};
} // namespace

void WaitForDisplay()
{
    gdk_display_sync(gdk_display_get_default());
}

wxFrame* OpenFrame(const std::function<wxWindow*(wxFrame*)>& make)
{
    auto* const     frame = new wxTolvanFrame("Benchmark", wxPoint(0, 0)); // as clients have it
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

void PumpFor(double seconds)
{
    for (const auto start = Clock::now(); SecondsSince(start) < seconds;)
    {
        PumpEvents();
    }
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

int RunBenchmarks(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return EXIT_FAILURE;
    }
    const _Client client;
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
                                wxPlatformInfo::Get().GetPortIdShortName().ToStdString() + " " +
                                    std::to_string(wxPlatformInfo::Get().GetToolkitMajorVersion()));
    {
        wxEventLoop                loop;
        const wxEventLoopActivator active(&loop);
        benchmark::RunSpecifiedBenchmarks();
    }
    benchmark::Shutdown();
    wxEntryCleanup();
    return EXIT_SUCCESS;
}
