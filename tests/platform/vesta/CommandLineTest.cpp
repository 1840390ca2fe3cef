#include "vesta/CommandLine.h"

#include <gtest/gtest.h>

namespace
{

using Words = std::vector<String>;

TEST(CommandLine, TellsOptionsFromArguments)
{
    const CommandLine line(Words{"/bin/monitor", "--verbose", "file", "--dir=a=b", "-x", "-", "-5",
                                 "-.5", "--empty=", "--", "--not", "-this"});
    EXPECT_EQ("/bin/monitor", line.Program());
    EXPECT_EQ((Words{"file", "-", "-5", "-.5", "--not", "-this"}), line.Arguments());
    EXPECT_TRUE(line.Has("verbose") && line.Has("x"));
    EXPECT_FALSE(line.Has("not"));
    EXPECT_EQ("a=b", line.Value("dir"));
    EXPECT_EQ("", line.Value("empty", "otherwise"));
    EXPECT_EQ("otherwise", line.Value("absent", "otherwise"));
    EXPECT_TRUE(CommandLine(Words{}).Arguments().empty());
    EXPECT_EQ("", CommandLine(0, nullptr).Program());
}

TEST(CommandLine, TakesTheNextWordAsAValue)
{
    const Words words{"p",       "--log-dir", "--odd", "file", "--log-dir=last",
                      "--count", "-3",        "--end"};
    CommandLine line(words, {"log-dir", "end"});
    EXPECT_EQ("last", line.Value("log-dir"));
    EXPECT_FALSE(line.Has("odd"));
    EXPECT_EQ((Words{"file", "-3"}), line.Arguments());
    EXPECT_TRUE(line.Has("end"));
    line.TakesValue("count");
    EXPECT_EQ("-3", line.Value("count"));
    EXPECT_EQ(Words{"file"}, line.Arguments());
}

} // namespace
