#include "master/jobs/JobCommand.h"
#include "master/jobs/ProgressParser.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

namespace
{

TEST(ProgressParser, ReadsBothFormsAndNothingElse)
{
    constexpr int kNone = -1;
    const struct
    {
        const char* line;
        int         percent;
        long long   done, count;
    } cases[] = {{"PROGRESS 37.9% of it", 37, 0, 0},
                 {"PROGRESS 100\r", 100, 0, 0},
                 {"FRAME 3/40 took 0.1 s", 7, 3, 40},
                 {"FRAME 40/40", 100, 40, 40},
                 {"FRAME 0/1", 0, 0, 1},
                 {"PROGRESS 101", kNone, 0, 0},
                 {"PROGRESS -1", kNone, 0, 0},
                 {"PROGRESS 5x", kNone, 0, 0},
                 {"PROGRESS", kNone, 0, 0},
                 {" PROGRESS 5", kNone, 0, 0},
                 {"FRAME 5/4", kNone, 0, 0},
                 {"FRAME 0/0", kNone, 0, 0},
                 {"FRAME 3/", kNone, 0, 0},
                 {"FRAME 1/9223372036854775807", kNone, 0, 0}};
    for (const auto& one : cases)
    {
        master::Progress progress;
        EXPECT_EQ(ReadProgress(one.line, progress), one.percent != kNone) << one.line;
        EXPECT_EQ(progress.percent, std::max(one.percent, 0)) << one.line;
        EXPECT_EQ(progress.framesDone, one.done) << one.line;
        EXPECT_EQ(progress.frameCount, one.count) << one.line;
    }
}

TEST(JobCommand, ValuesStayOneWordWhateverTheyHold)
{
    const auto lookup = [](const String& name, String& value)
    {
        value = name == "Name" ? String("a \"b\" %Name% \\c;") : String(name == "Nul", '\0');
        return name != "Unknown";
    };
    EXPECT_EQ(master::CommandWords("run  --x=%Name%\t\"two words\" %Empty% 100%%", lookup),
              (std::vector<String>{"run", "--x=a \"b\" %Name% \\c;", "two words", "", "100%"}));
    for (const char* const wrong : {"   ", "%Empty% x", "run %Unknown%", "run 50%", "run %Nul%"})
    {
        EXPECT_NE(TextThrown([&] { master::CommandWords(wrong, lookup); }), "") << wrong;
    }
}

} // namespace
