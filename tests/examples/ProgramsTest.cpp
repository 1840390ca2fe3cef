#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"
#include "tests/support/Program.h"

#include "tolvan/Components.h"
#include "vesta/IniFile.h"

#include <wx/image.h>

#include <cstdlib>
#include <filesystem>

namespace
{
constexpr int kProgramDeadlineMs = 20000; // programs under a sanitizer are slow to start

class ProgramsTest : public UserFolderTest
{
protected:
    ProgramsTest()
    {
        setenv("TOLVAN_USER_DIR", UserFile("").Text().c_str(), 1);
        setenv("XDG_STATE_HOME", TempFile("state").Text().c_str(), 1);
    }

    String LogOf(const String& component) const
    {
        const Path file = UserFile("logs/" + component + ".log");
        return File::Exists(file) ? ReadFile(file) : String();
    }
    bool WaitForLog(const String& component, const String& text) const
    {
        return WaitFor([&] { return LogOf(component).find(text) != String::npos; },
                       kProgramDeadlineMs);
    }
    // Whoever has started it.
    void EndMaster() const
    {
        const String log = LogOf(component_Master);
        const size_t process = log.rfind("started: process ");
        ASSERT_NE(String::npos, process);
        kill(static_cast<pid_t>(String(log.substr(process + 17)).ToInt()), SIGTERM);
    }
    // The log has the monitors before it, too.
    bool LatestMonitorShowsJobs() const
    {
        const String log = LogOf(component_Monitor);
        return log.find("The first output of a job is shown", log.rfind("started: process")) !=
               String::npos;
    }
};

// Brings the window to the front once it is there, and then types: a key that is sent to a found
// window is no key press to it.
bool PressKeys(const String& window, const String& keys)
{
    const String find = "xdotool search --onlyvisible --name '^" + window +
                        "$' windowactivate --sync >/dev/null 2>&1";
    return WaitFor([&] { return std::system(find.c_str()) == 0; }, kProgramDeadlineMs) &&
           std::system(("xdotool " + keys).c_str()) == 0;
}

// Opens the menu of the list's first job, or of all, and waits until it is there.
bool OpenJobMenu(bool ofAll = false)
{
    const char* const find = "xdotool search --onlyvisible --name '^tolvan-monitor$' >/dev/null";
    return PressKeys("Tolvan Monitor", ofAll ? "key Home key ctrl+a" : "key Home") &&
           PressKeys("Tolvan Monitor", "key shift+F10") &&
           WaitFor([&] { return std::system(find) == 0; }, kProgramDeadlineMs);
}

// Waits for its end; -1 when it goes on, or a signal has ended it.
int ExitCodeOf(Program& program)
{
    WaitFor([&] { return program.HasEnded(); }, kProgramDeadlineMs);
    return program.ExitCode();
}

// Has the master close its clients; whether the program then ends well.
bool EndsOnRequest(const Program& master, Program& client)
{
    master.Signal(SIGUSR1);
    return ExitCodeOf(client) == 0;
}

// Pixels of that colour on the whole screen.
int CountPixels(const wxColour& colour)
{
    return CountPixels(PictureOfScreen(), [&](const wxColour& pixel) { return pixel == colour; });
}
} // namespace

TEST_F(ProgramsTest, MonitorStartsAMasterAndShowsItsJobs)
{
    {
        Program monitor({MONITOR_PROGRAM});
        EXPECT_TRUE(WaitForLog(component_Monitor, "The first output of a job is shown"))
            << LogOf(component_Monitor) << LogOf(component_Master);
    }
    EndMaster();
    EXPECT_TRUE(
        WaitFor([] { return !Components::DidStart(component_Master); }, kProgramDeadlineMs));
}

TEST_F(ProgramsTest, ASchemeChangeReachesAnotherProgramWithinASecond)
{
    WriteFile(TempFile("some.log"), "a line\nanother line\n");
    WriteFile(UserFile("Colors.ini"), "scheme = 0\n");
    Program        viewer({LOGVIEW_PROGRAM, TempFile("some.log").Text()});
    const wxColour darkText(92, 92, 92);
    const wxColour lighterText(255, 255, 255);
    // Most of the viewer's window is the background of its text.
    constexpr int kMost = 100000;
    ASSERT_TRUE(WaitFor([&] { return CountPixels(darkText) > kMost; }, kProgramDeadlineMs));
    ASSERT_TRUE(WaitForLog(component_LogView, "2 lines"));
    Program monitor({MONITOR_PROGRAM, "--no-start"});
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key alt+v key c key i")); // View, Colours, Lighter
    ASSERT_TRUE(WaitForLog(component_Monitor, "Notifying color changed to: " + component_LogView));
    EXPECT_TRUE(WaitFor([&] { return CountPixels(darkText) < kMost / 10; }, 1500));
    EXPECT_GT(CountPixels(lighterText), kMost);
}

TEST_F(ProgramsTest, SomeEndByThemselves)
{
    const String display = std::getenv("DISPLAY");
    Program      measured({MONITOR_PROGRAM, "--no-start", "--time-start"});
    EXPECT_EQ(0, ExitCodeOf(measured));
    unsetenv("DISPLAY"); // Help and version need none.
    for (const char* const program : {MONITOR_PROGRAM, LOGVIEW_PROGRAM, MASTER_PROGRAM})
    {
        for (const char* const option : {"--help", "--version"})
        {
            Program one({program, option});
            EXPECT_EQ(0, ExitCodeOf(one)) << program << option;
        }
    }
    setenv("DISPLAY", display.c_str(), 1);
}

// Hundreds may be open. What a rotation takes away before that is read all the same.
TEST_F(ProgramsTest, ViewerReadsAFileOnceItIsShown)
{
    std::vector<String> command = {LOGVIEW_PROGRAM};
    for (const char* const name : {"1.log", "2.log", "3.log", "4.log"})
    {
        WriteFile(TempFile(name), "a line\nanother line\n");
        command.push_back(TempFile(name).Text());
    }
    Program viewer(command);
    ASSERT_TRUE(WaitForLog(component_LogView, "4.log: 2 lines"));
    std::filesystem::rename(TempFile("3.log").Text().c_str(), TempFile("3.old").Text().c_str());
    WriteFile(TempFile("3.log"), "of the new file\n");
    ASSERT_TRUE(PressKeys("4.log - Tolvan Log Viewer", "key ctrl+Prior"));
    EXPECT_TRUE(WaitForLog(component_LogView, "3.log: The file was replaced"));
    EXPECT_EQ(String::npos, LogOf(component_LogView).find("2.log"));
}

// Without a name on the command line; a name is what is wanted instead.
TEST_F(ProgramsTest, ViewerComesBackWithWhatWasOpen)
{
    for (const char* const name : {"1.log", "2.log", "3.log"})
    {
        WriteFile(TempFile(name), "a line\n");
    }
    {
        Program viewer({LOGVIEW_PROGRAM, TempFile("1.log").Text(), TempFile("2.log").Text()});
        ASSERT_TRUE(PressKeys("2.log - Tolvan Log Viewer", "key ctrl+Prior"));
        ASSERT_TRUE(WaitForLog(component_LogView, "1.log: 1 line"));
        ASSERT_TRUE(PressKeys("1.log - Tolvan Log Viewer", "key ctrl+F2 ctrl+f"));
        ASSERT_TRUE(PressKeys("1.log - Tolvan Log Viewer", "type 'a line'"));
        ASSERT_TRUE(PressKeys("1.log - Tolvan Log Viewer", "key ctrl+q"));
        EXPECT_EQ(0, ExitCodeOf(viewer));
    }
    {
        Program viewer({LOGVIEW_PROGRAM});
        ASSERT_TRUE(PressKeys("1.log - Tolvan Log Viewer", "key ctrl+Next"));
        ASSERT_TRUE(PressKeys("2.log - Tolvan Log Viewer", "key ctrl+w"));
        ASSERT_TRUE(PressKeys("1.log - Tolvan Log Viewer", "key alt+f key t key 1"));
        ASSERT_TRUE(PressKeys("2.log - Tolvan Log Viewer", "key ctrl+q"));
        EXPECT_EQ(0, ExitCodeOf(viewer));
    }
    IniFile options(UserFile("TolvanLogView.ini"));
    EXPECT_TRUE(options.Load(false, false));
    EXPECT_EQ("a line", options.GetValue("OpenedPages", "1.Search"));
    EXPECT_EQ("Bar", options.GetValue("OpenedPages", "1.SearchChoices"));
    EXPECT_EQ("0", options.GetValue("OpenedPages", "1.Bookmarks"));
    EXPECT_FALSE(options.HasValue("OpenedPages", "2.Search"));
    Program viewer({LOGVIEW_PROGRAM, TempFile("3.log").Text()});
    ASSERT_TRUE(PressKeys("3.log - Tolvan Log Viewer", "key ctrl+Next"));
    ASSERT_TRUE(PressKeys("3.log - Tolvan Log Viewer", "key ctrl+q"));
    EXPECT_EQ(0, ExitCodeOf(viewer));
}

// From the command line and from the menu, and again at the next start.
TEST_F(ProgramsTest, ViewerMergesFiles)
{
    WriteFile(TempFile("1.log"), "2026-11-23 10:00:01 a\n2026-11-23 10:00:03 c\n");
    WriteFile(TempFile("2.log"), "2026-11-23 10:00:02 b\n");
    const String one = TempFile("1.log").Text();
    const String two = TempFile("2.log").Text();
    {
        Program viewer({LOGVIEW_PROGRAM, "--merge", one, two});
        ASSERT_TRUE(WaitForLog(component_LogView, "2 files by time: 3 lines"));
        ASSERT_TRUE(PressKeys("1.log \\+ 2.log - Tolvan Log Viewer", "key ctrl+Home ctrl+F2"));
        ASSERT_TRUE(PressKeys("1.log \\+ 2.log - Tolvan Log Viewer", "key ctrl+q"));
        EXPECT_EQ(0, ExitCodeOf(viewer));
    }
    {
        Program viewer({LOGVIEW_PROGRAM});
        ASSERT_TRUE(PressKeys("1.log \\+ 2.log - Tolvan Log Viewer", "key ctrl+q"));
        EXPECT_EQ(0, ExitCodeOf(viewer));
    }
    IniFile options(UserFile("TolvanLogView.ini"));
    EXPECT_TRUE(options.Load(false, false));
    EXPECT_EQ(two, options.GetValue("OpenedPages", "1.Merged2"));
    Program viewer({LOGVIEW_PROGRAM, two, one});
    ASSERT_TRUE(PressKeys("1.log - Tolvan Log Viewer", "key ctrl+m"));
    ASSERT_TRUE(PressKeys("Merge Files by Time", "key Return"));
    ASSERT_TRUE(PressKeys("2.log \\+ 1.log - Tolvan Log Viewer", "key ctrl+q"));
    EXPECT_EQ(0, ExitCodeOf(viewer));
}

// The size of the window manager's frame must not be added with every start.
TEST_F(ProgramsTest, TheWindowComesBackAsLargeAsItWas)
{
    String before;
    for (int start = 0; start < 3; ++start)
    {
        Program monitor({MONITOR_PROGRAM, "--no-start"});
        EXPECT_TRUE(PressKeys("Tolvan Monitor", "key ctrl+q"));
        EXPECT_EQ(0, ExitCodeOf(monitor));
        IniFile options(UserFile("TolvanMonitor.ini"));
        EXPECT_TRUE(options.Load(false, false));
        const String geometry = options.GetValue("Window", "Window");
        EXPECT_FALSE(geometry.empty());
        EXPECT_TRUE(before.empty() || geometry == before) << before << " became " << geometry;
        before = geometry;
    }
}

// Whatever is open over the window.
TEST_F(ProgramsTest, ASignalEndsAProgramInOrder)
{
    const struct
    {
        int    signal;
        String program, component, window, keys, dialog;
    } rows[] = {
        {SIGTERM, MONITOR_PROGRAM, component_Monitor, "Tolvan Monitor", "ctrl+n", "Submit Job"},
        {SIGINT, LOGVIEW_PROGRAM, component_LogView, "Tolvan Log Viewer", "ctrl+o", "Open"}};
    for (const auto& row : rows)
    {
        Program program({row.program, "--no-master"});
        EXPECT_TRUE(PressKeys(row.window, "key " + row.keys));
        EXPECT_TRUE(PressKeys(row.dialog, "key a")); // files are searched for what begins with it
        program.Signal(row.signal);
        EXPECT_EQ(0, ExitCodeOf(program));
        IniFile options(UserFile(row.component + ".ini"));
        EXPECT_TRUE(options.Load(false, false));
        EXPECT_NE("", options.GetValue("Window", "Window")) << row.component;
    }
}

TEST_F(ProgramsTest, AnUnusableLogFolderIsExplained)
{
    WriteFile(UserFile("logs"), "a file where the folder should be");
    Program monitor({MONITOR_PROGRAM, "--no-start"});
    // The dialog waits for the user; closing it ends the program with a failure.
    EXPECT_TRUE(PressKeys("Startup Error", "key Return"));
    EXPECT_LT(0, ExitCodeOf(monitor));
}

// A job type whose parameter is long and has several lines leaves the dialog usable; the job gets
// every byte of it, and its menu acts on it, and on all that are selected. Quitting asks, because a
// job runs; the farm's request to end waits neither for the answer nor for the menu.
TEST_F(ProgramsTest, MonitorSubmitsAJobAndAsksBeforeItQuits)
{
    const String longLine(10240, 'x');
    File::MakeFolder(TempFile("modules"));
    File::MakeFolder(TempFile("jobs"));
    WriteFile(TempFile("job.sh"), "printf %s \"$1\" > ../given; echo started; exec sleep 1000\n");
    WriteFile(TempFile("modules/test.module"),
              "[Type]\nId = 11111111-2222-3333-4444-555555555555\nName = Test\n"
              "Execute = /bin/sh " +
                  TempFile("job.sh").Text() + " %Text%\n[Parameter Text]\nDescription = " +
                  longLine + "\nDefault = \"one\\n" + longLine + "\"\n" +
                  "[Command Kill]\nStates = Done\n[Command Suspend]\nStates = Running\n");
    WriteFile(TempFile("jobs/other.job"), "[Job]\nType = Test\nName = Other\n");
    setenv("TOLVAN_MODULES", TempFile("modules").Text().c_str(), 1);
    Program master({MASTER_PROGRAM, "--jobs", TempFile("jobs").Text(), "--run-folder",
                    TempFile("runs").Text(), "--slots", "2", "--stay"});
    Program monitor({MONITOR_PROGRAM, "--no-start"});
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key ctrl+n"));

    // Two fields on stands the priority: what is wrong there keeps the dialog open.
    ASSERT_TRUE(PressKeys("Submit Job", "key Tab type Sky"));
    ASSERT_TRUE(PressKeys("Submit Job", "key Tab type 500"));
    ASSERT_TRUE(PressKeys("Submit Job", "key Return"));
    ASSERT_TRUE(PressKeys("Submit Job", "key ctrl+a type 70"));
    ASSERT_TRUE(PressKeys("Submit Job", "key Return"));
    EXPECT_TRUE(WaitForLog(component_Master, "Started job Sky"));
    EXPECT_TRUE(WaitFor([&] { return ReadFile(TempFile("runs/given")) == "one\n" + longLine; },
                        kProgramDeadlineMs));

    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key ctrl+q"));
    ASSERT_TRUE(PressKeys("Quit", "key Escape"));
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key F5 F6")); // the list, too, knows of the job
    ASSERT_TRUE(OpenJobMenu());
    ASSERT_EQ(0, std::system("xdotool key Down Down Down Down Down Return")); // Kill is disabled
    EXPECT_TRUE(WaitForLog(component_Master, "Command 'Suspend' for the job Sky"));
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key ctrl+q"));
    ASSERT_TRUE(PressKeys("Quit", "key Tab"));
    EXPECT_TRUE(EndsOnRequest(master, monitor));

    Program other({MONITOR_PROGRAM, "--no-start"});
    unsetenv("TOLVAN_MODULES");
    ASSERT_TRUE(WaitFor([&] { return LatestMonitorShowsJobs(); }, kProgramDeadlineMs));
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key F6"));
    ASSERT_TRUE(OpenJobMenu(true));
    ASSERT_EQ(0, std::system("xdotool key Down Down Down Down Return")); // so is "Submit Again"
    EXPECT_TRUE(WaitForLog(component_Master, "Command 'Suspend' for the job Other"));
    EXPECT_EQ(String::npos, LogOf(component_Master).find("is not possible"));
    ASSERT_TRUE(OpenJobMenu());
    EXPECT_TRUE(EndsOnRequest(master, other));
    master.Signal(SIGTERM);
    EXPECT_EQ(0, ExitCodeOf(master));
}

// What the keys of the list and its filter lead to, as the master hears of it.
TEST_F(ProgramsTest, MonitorActsOnWhatIsShownAndRemembersHow)
{
    File::MakeFolder(TempFile("modules"));
    File::MakeFolder(TempFile("jobs"));
    WriteFile(TempFile("modules/test.module"),
              "[Type]\nId = 11111111-2222-3333-4444-555555555555\nName = Test\n"
              "Execute = /bin/sh -c %Text%\n[Parameter Text]\nDefault = echo; exec sleep 1000\n"
              "[Command Suspend]\nStates = Running\n[Command Set Priority]\nItems = 10\n");
    WriteFile(TempFile("jobs/1.job"), "[Job]\nType = Test\nName = Sky\n");
    WriteFile(TempFile("jobs/2.job"), "[Job]\nType = Test\nName = Sea\n");
    WriteFile(TempFile("jobs/3.job"),
              "[Job]\nType = Test\nName = Over\n[Parameters]\nText = true\n");
    setenv("TOLVAN_MODULES", TempFile("modules").Text().c_str(), 1);
    Program master({MASTER_PROGRAM, "--jobs", TempFile("jobs").Text(), "--run-folder",
                    TempFile("runs").Text(), "--slots", "3", "--stay"});
    ASSERT_TRUE(WaitForLog(component_Master, "Job Over: Done"));
    Program monitor({MONITOR_PROGRAM, "--no-start"});
    unsetenv("TOLVAN_MODULES");
    ASSERT_TRUE(WaitFor([&] { return LatestMonitorShowsJobs(); }, kProgramDeadlineMs));

    // View, Group by, State; Job, Remove Finished Jobs.
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key alt+v g s F6 alt+j f"));
    ASSERT_TRUE(PressKeys("Remove Job", "key Tab Return"));
    EXPECT_TRUE(WaitForLog(component_Master, "Command 'Remove' for the job Over"));
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key ctrl+f type 'state:run sky'"));
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key Down Home"));
    ASSERT_TRUE(OpenJobMenu()); // of the group, which stands for what it shows
    ASSERT_EQ(0, std::system("xdotool key Up Right Up Return"));
    ASSERT_TRUE(PressKeys("Set Priority", "type 77"));
    ASSERT_TRUE(PressKeys("Set Priority", "key Return"));
    EXPECT_TRUE(WaitForLog(component_Master, "Command 'Set Priority' for the job Sky"));
    EXPECT_EQ(String::npos, LogOf(component_Master).find("for the job Sea"));
    ASSERT_TRUE(PressKeys("Tolvan Monitor", "key Escape F5"));
    EXPECT_TRUE(EndsOnRequest(master, monitor));
    IniFile options(UserFile("TolvanMonitor.ini"));
    EXPECT_TRUE(options.Load(false, false));
    EXPECT_EQ("State", options.GetValue("JobList", "Grouping"));
    master.Signal(SIGTERM);
    EXPECT_EQ(0, ExitCodeOf(master));
}
