#include "dialogs/progress/ProgressWindow.h"
#include "dialogs/progress/TimeLeft.h"
#include "dialogs/wxtProgressDlg.h"
#include "tests/dialogs/DialogTest.h"

#include <wx/stopwatch.h>
#include <wx/utils.h>

namespace
{
constexpr int  kTotal = 1000;
constexpr long kLongestMs = 10000;
constexpr long kAnswerMs = 1000;

dialogs::ProgressWindow* Shown()
{
    for (wxTolvanDlg* const dialog : wxTolvanDlg::s_Dialogs)
    {
        if (auto* const window = dynamic_cast<dialogs::ProgressWindow*>(dialog))
        {
            return window;
        }
    }
    return nullptr;
}

// Work that goes on until somebody stops it; `act` is called once, when the window has the keys.
bool WasStopped(wxtProgressDlg& progress, const std::function<void()>& act)
{
    const wxStopWatch watch;
    long              lastMs = kLongestMs;
    for (int done = 0; watch.Time() < lastMs; ++done)
    {
        if (!progress.Update(done % kTotal))
        {
            return true;
        }
        if (lastMs == kLongestMs && Shown() && Shown()->IsActive())
        {
            lastMs = watch.Time() + kAnswerMs;
            act();
        }
        wxMilliSleep(5);
    }
    return false;
}
} // namespace

TEST(ProgressTimeTest, IsToldAsFarAsItIsKnown)
{
    const struct
    {
        long        elapsed;
        int         done, total;
        const char* text;
    } kCases[] = {{1000, 500, 1000, ""},
                  {5000, 1, 1000, ""},
                  {5000, 5, 0, ""},
                  {2000, 500, 1000, "About 5 seconds left"},
                  {2000, 1000, 1000, "About 5 seconds left"},
                  {12000, 500, 1000, "About 10 seconds left"},
                  {30000, 250, 1000, "About 2 minutes left"},
                  {65000, 500, 1000, "About a minute left"},
                  {3600000, 100, 1000, "About 9 hours left"},
                  {2000000000, 20, 1000, "About 27222 hours left"}};
    for (const auto& c : kCases)
    {
        EXPECT_EQ(c.text, dialogs::TimeLeftText(dialogs::TimeLeft(c.elapsed, c.done, c.total)))
            << c.elapsed << " ms, " << c.done << " of " << c.total;
    }
}

TEST_F(DialogTest, ProgressIsShownUntilTheUserStopsIt)
{
    {
        wxtProgressDlg quick(Frame(), "Quick", "Nothing to see", kTotal);
        EXPECT_TRUE(quick.Update(kTotal / 2));
        EXPECT_FALSE(Shown());
    }
    wxSize frame;
    for (const int total : {kTotal, 0})
    {
        wxtProgressDlg progress(Frame(), "Slow", wxString('m', total ? 5000 : 5), total);
        EXPECT_TRUE(WasStopped(progress, [] { wxUIActionSimulator().Char(WXK_ESCAPE); }));
        EXPECT_TRUE(progress.WasCancelled());
        EXPECT_FALSE(progress.Update(1));
        ASSERT_TRUE(Shown()) << "while the work comes to its end";
        EXPECT_LT(Shown()->GetSize().x, 700) << "of a message that is cut";
        frame = Shown()->GetSize() - Shown()->GetClientSize();
    }
    EXPECT_TRUE(WaitFor([] { return !Shown(); }));
    EXPECT_TRUE(WaitFor([this] { return Frame()->IsActive(); }));
    const wxTolvanDlg next(Frame(), "Next", String(), true);
    EXPECT_EQ(frame, next.GetSize() - next.GetClientSize()) << "not that of a hidden window";
    wxtProgressDlg whole(Frame(), "Whole", "Not to be stopped", kTotal, false);
    EXPECT_FALSE(WasStopped(whole, [] { Shown()->Close(); }));
}

TEST_F(DialogTest, ProgressOutlivesItsWindowAndItsParent)
{
    wxtProgressDlg progress(Frame(), "Slow", "Working", kTotal);
    EXPECT_TRUE(WasStopped(progress, [] { wxTolvanDlg::CloseAll(); }));
    auto* const    other = new wxFrame(nullptr, wxID_ANY, "Other");
    wxtProgressDlg orphan(other, "Slow", "Working", kTotal);
    EXPECT_TRUE(WasStopped(orphan, [=] { other->Destroy(); }));
    EXPECT_FALSE(orphan.Update(1));
}
