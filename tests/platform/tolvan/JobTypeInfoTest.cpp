#include "tolvan/JobTypeInfo.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"

#include <limits>

namespace
{

class JobTypeInfoTest : public UserFolderTest
{
protected:
    Path File() const { return TempFile("render.module"); }

    boost::shared_ptr<const JobTypeInfo> Load(const String& text) const
    {
        WriteFile(File(), text);
        return JobTypeInfo::Load(File());
    }
};

const char* const kHead = "[Type]\n"
                          "Id = 5c1f5f2e-6f0e-4c55-9d0a-0b3b8f5f7a01\n"
                          "Name = Frames\n";

TEST_F(JobTypeInfoTest, ReadsEverythingInOrder)
{
    LogCapture log;
    const auto info = Load("; renders\n"
                           "[type]\n"
                           "ID = {5C1F5F2E-6F0E-4C55-9D0A-0B3B8F5F7A01}\n"
                           "Name = Frames\n"
                           "Execute = render \"--out=%Output%\"\n"
                           "[Parameter Scene]\n"
                           "Description = What to render\n"
                           "Default = spheres\n"
                           "Choices = spheres; cubes ;;waves\n"
                           "[Parameter  Note to self]\n"
                           "[Command Suspend]\n"
                           "States = Waiting;Running\n"
                           "[Command ---]\n"
                           "Separator = yes\n"
                           "[Command --- admin]\n"
                           "Separator = yes\n"
                           "Flags = admin\n"
                           "[Command Open]\n"
                           "Flags = output; Admin\n"
                           "Items = Folder;\"a;b\"\n"
                           "Description = Shows it\n"
                           "[Entries]\n"
                           "Farm = Local farm\n"
                           "[Outputs]\n"
                           "Frames = *.png\n");

    EXPECT_EQ(info->Id().ToString(), "5c1f5f2e-6f0e-4c55-9d0a-0b3b8f5f7a01");
    EXPECT_EQ(info->Name(), "Frames");
    EXPECT_EQ(info->ExecuteLine(), "render \"--out=%Output%\"");
    ASSERT_EQ(info->ParamCount(), 2);
    EXPECT_EQ(info->GetParam(0).value, "spheres");
    EXPECT_EQ(info->GetParam(0).choices, (std::vector<String>{"spheres", "cubes", "waves"}));
    EXPECT_EQ(info->GetParam(1).name, "Note to self");
    for (const int index : {-1, 2})
    {
        EXPECT_EQ(CodeThrown([&] { info->GetParam(index); }), ec_BadData) << index;
    }

    const auto& commands = info->Commands();
    ASSERT_EQ(commands.size(), 4u);
    EXPECT_EQ(commands[0].flags, cmd_Job) << "by default";
    EXPECT_EQ(commands[0].states, "Waiting;Running");
    EXPECT_LT(commands[1].flags, 0);
    EXPECT_NE(commands[1].flags & cmd_Output, 0) << "a separator fits every mask";
    EXPECT_EQ(commands[2].flags, std::numeric_limits<int32_t>::min() | cmd_Admin);
    EXPECT_EQ(commands[3].flags, cmd_Output | cmd_Admin);
    EXPECT_EQ(commands[3].items, "Folder;\"a;b\"");
    EXPECT_EQ(info->Entries().at("Farm"), "Local farm");
    EXPECT_EQ(info->Outputs().at("Frames"), "*.png");
    EXPECT_FALSE(log.Has("", log_Warning)) << log.All();
}

TEST_F(JobTypeInfoTest, NamesFileLineAndFault)
{
    const String parameter = String(kHead) + "[Parameter P]\n";
    const String command = String(kHead) + "[Command C]\n";
    const struct
    {
        String      text;
        const char* complaint;
    } cases[] = {{"", ": there is no section [Type]"},
                 {"[Type]\nName = A\n", ":2: [Type] needs a value for \"Id\""},
                 {"[Type]\nName = A\nId = 12\n", ":3: \"12\" is no identifier"},
                 {"[Type]\nId = 5c1f5f2e-6f0e-4c55-9d0a-0b3b8f5f7a01\nName =\n",
                  ":3: [Type] needs a value for \"Name\""},
                 {String(kHead) + "\nwhat is this\n", ":5: neither a section"},
                 {String(kHead) + "[Parameter]\nDefault = a\n", ": [Parameter] needs a name"},
                 {parameter + "Choices = a;b\nDefault = c\n",
                  ":6: the default \"c\" is not among the choices"},
                 {parameter + "Type = real\n", ":5: there is no type \"real\""},
                 {parameter + "Type = integer\nMinimum = one\n",
                  ":6: \"one\" is neither a number nor %Parameter%"},
                 {parameter + "Maximum = 1\n", ":5: only an integer or a number has a range"},
                 {parameter + "Type = integer\nMaximum = 5\nDefault = 6\n",
                  ":7: the default \"6\" is not a whole number of at most 5"},
                 {command + "\nFlags = job;jbo\n", ":6: there is no flag \"jbo\""},
                 {command + "Separator = perhaps\n", ":5: \"perhaps\" is neither yes nor no"}};
    for (const auto& one : cases)
    {
        const String complaint = TextThrown([&] { Load(one.text); });
        EXPECT_TRUE(complaint.StartsWith(File().Text() + one.complaint))
            << one.complaint << " is not " << complaint;
    }
    EXPECT_TRUE(Load(kHead)) << "Id and Name are enough";
}

TEST_F(JobTypeInfoTest, ParametersSayWhatTheyAccept)
{
    const auto info = Load(String(kHead) + "[Parameter First]\nType = integer\nMinimum = 1\n"
                                           "Maximum = 9999\nDefault = 1\n"
                                           "[Parameter Last]\nType = Integer\n"
                                           "Minimum = %First%\nDefault = 60\n"
                                           "[Parameter Scale]\nType = number\nMaximum = 2.5\n"
                                           "[Parameter Source]\nType = folder\n");
    const struct
    {
        int         param;
        const char* first; // the value of the parameter First
        const char* value;
        bool        isAccepted;
    } cases[] = {
        {0, "", "1", true},        {0, "", " 9999 ", true}, {0, "", "0", false},
        {0, "", "10000", false},   {0, "", "abc", false},   {0, "", "1.5", false},
        {0, "", "", false},        {0, "", "1x", false},    {0, "", "99999999999999999999", false},
        {1, "10", "10", true},     {1, "10", "9", false},   {1, "abc", "-5", true},
        {2, "", "", true},         {2, "", "-1e3", true},   {2, "", "2.51", false},
        {2, "", "inf", false},     {2, "", "nan", false},   {2, "", "0x1", false},
        {3, "", "/no/such", true},
    };
    for (const auto& one : cases)
    {
        const auto lookup = [&](const String& name) { return name == "First" ? one.first : ""; };
        EXPECT_EQ(one.isAccepted, info->GetParam(one.param).Accepts(one.value, lookup))
            << one.param << " " << one.value;
    }
    const auto ten = [](const String&) { return "10"; };
    EXPECT_EQ("a whole number from 1 to 9999", info->GetParam(0).Requirement(ten));
    EXPECT_EQ("a whole number of at least 10", info->GetParam(1).Requirement(ten));
    EXPECT_EQ("", info->GetParam(3).Requirement(ten));
    EXPECT_EQ(JobParamInfo::Kind::kFolder, info->GetParam(3).kind);
}

} // namespace
