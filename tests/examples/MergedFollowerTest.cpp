#include "logview/MergedFollower.h"
#include "tests/support/UserFolderTest.h"
#include "tests/support/WaitFor.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace
{
using Lines = std::vector<std::string>;

/// What a view would have of some files: each line with the number of its file before it.
class MergedFollowerTest : public UserFolderTest
{
protected:
    // A file that nobody is about to go on with.
    Path Write(const char* name, const std::string& text) const
    {
        const Path file = TempFile(name);
        std::ofstream(file.Text()) << text;
        Age(file);
        return file;
    }
    static void Append(const Path& file, const std::string& text)
    {
        std::ofstream(file.Text(), std::ios::app) << text;
    }
    static void Age(const Path& file)
    {
        namespace fs = std::filesystem;
        fs::last_write_time(file.Text().c_str(),
                            fs::last_write_time(file.Text().c_str()) - std::chrono::hours(1));
    }
    void Follow(const std::vector<Path>& files)
    {
        m_Follower = std::make_unique<MergedFollower>(
            files, [this](const auto& text, const auto& stretches, const auto& origins)
            { Store(text, stretches, origins); });
        m_Follower->Read(0);
    }
    void ReadOn(size_t limit = 1 << 20)
    {
        while (m_Follower->Read(limit))
        {
        }
    }
    Lines Shown() const
    {
        Lines lines;
        for (size_t i = 0; i < m_Stretches.size(); ++i)
        {
            const wxTextStretch& stretch = m_Stretches[i];
            int                  problem = 0;
            std::string          bytes(stretch.size, '\0');
            EXPECT_EQ(stretch.size,
                      m_Texts[i]->Read(stretch.offset, bytes.data(), bytes.size(), problem));
            std::istringstream stream(bytes);
            for (std::string line; std::getline(stream, line);)
            {
                lines.push_back(std::to_string(m_Origins[lines.size()]) + " " + line);
            }
        }
        EXPECT_EQ(lines.size(), m_Origins.size());
        return lines;
    }
    Lines Merged(const std::vector<Path>& files)
    {
        Follow(files);
        ReadOn();
        return Shown();
    }

    std::unique_ptr<MergedFollower> m_Follower;
    MergedFollower::Origins         m_Origins;

private:
    void Store(const FileFollower::Source& text, const FileFollower::Stretches& stretches,
               const MergedFollower::Origins& origins)
    {
        for (const wxTextStretch& stretch : stretches)
        {
            m_Texts.push_back(text);
            m_Stretches.push_back(stretch);
        }
        m_Origins.insert(m_Origins.end(), origins.begin(), origins.end());
    }

    std::vector<FileFollower::Source> m_Texts; ///< Of the stretches.
    FileFollower::Stretches           m_Stretches;
};

// "2026-11-23 10:00:SS" as a line of that text.
std::string At(int second, const std::string& text)
{
    return SFormat("2026-11-23 %02d:%02d:%02d ", 10 + second / 3600, second / 60 % 60,
                   second % 60) +
           text + "\n";
}
} // namespace

// Different forms; equal times in the order of the files; what has no time stays behind its line,
// and an earlier one does not go before it.
TEST_F(MergedFollowerTest, LinesComeInTheOrderOfTheirTimes)
{
    const Path first = Write("a.log", At(1, "a") + "  at x\n  at y\n" + At(5, "b") + At(3, "late") +
                                          At(9, "unfinished").substr(0, 30));
    const Path second =
        Write("b.log", "a title\n\nNov 23 10:00:01 host s\nNov 23 10:00:04 host t\n");
    const Path third = Write("c.log", "");
    EXPECT_EQ(
        (Lines{"0 2026-11-23 10:00:01 a", "0   at x", "0   at y", "1 a title", "1 ",
               "1 Nov 23 10:00:01 host s", "1 Nov 23 10:00:04 host t", "0 2026-11-23 10:00:05 b",
               "0 2026-11-23 10:00:03 late", "0 2026-11-23 10:00:09 unfinished"}),
        Merged({first, second, third}));
    EXPECT_EQ(TextFollower::State::kFollowing, m_Follower->CurrentState());
}

TEST_F(MergedFollowerTest, FilesWithoutTimesOrWithoutAnythingAreTold)
{
    const Path plain = Write("notes.txt", "one\ntwo\n");
    const Path timed = Write("a.log", At(1, "a"));
    EXPECT_EQ((Lines{"1 --- gone.log does not exist yet ---",
                     "2 --- notes.txt begins without times: its lines stand before those of other "
                     "files ---",
                     "2 one", "2 two", "0 2026-11-23 10:00:01 a"}),
              Merged({timed, TempFile("gone.log"), plain}));
    Append(TempFile("gone.log"), At(0, "here"));
    Append(plain, "three\n");
    ReadOn();
    EXPECT_EQ("1 2026-11-23 10:00:00 here", Shown().back());
    EXPECT_EQ("2 three", Shown()[5]);
}

// In order among themselves, at the end of what is there.
TEST_F(MergedFollowerTest, FollowsItsFiles)
{
    const Path first = Write("a.log", At(1, "a"));
    const Path second = Write("b.log", At(50, "b"));
    Merged({first, second});
    Append(first, At(30, "c") + At(60, "d") + "half");
    Append(second, At(55, "e"));
    ReadOn();
    EXPECT_EQ(
        (Lines{"0 2026-11-23 10:00:01 a", "1 2026-11-23 10:00:50 b", "0 2026-11-23 10:00:30 c",
               "1 2026-11-23 10:00:55 e", "0 2026-11-23 10:01:00 d"}),
        Shown())
        << "a line that is being written waits for its end";
    Append(first, " a line\n");
    ReadOn();
    EXPECT_EQ("0 half a line", Shown().back());
    Write("a.log", At(70, "n")); // shorter, and older than the lines before
    ReadOn();
    const Lines after = Shown();
    EXPECT_EQ((Lines{"0 --- The file was cut off; it is read from its start again ---",
                     "0 2026-11-23 10:01:10 n"}),
              Lines(after.end() - 2, after.end()));
    EXPECT_EQ("0 2026-11-23 10:00:01 a", after[0]) << "what was read before stays";
}

// What lies on the disk agrees with what is in memory, however the files lie in pieces.
TEST_F(MergedFollowerTest, LargeFilesStayWhereTheyAre)
{
    std::mt19937             random(1);
    std::vector<std::string> texts(3);
    Lines                    expected;
    for (int i = 0; expected.size() < 180000; ++i)
    {
        const size_t file = random() % texts.size();
        for (auto more = random() % 3 + 1; more > 0; --more)
        {
            const std::string line =
                At(i / 10, std::string(random() % 200, 'x') + (i % 7 == 0 ? "\t" : ""));
            texts[file] += line;
            expected.push_back(std::to_string(file) + " " + line.substr(0, line.size() - 1));
        }
    }
    texts[1] += At(40000, std::string(1'200'000, 'y')) + "unfinished";
    Follow({Write("0.log", texts[0]), Write("1.log", texts[1]), Write("2.log", texts[2])});
    ReadOn(100'000);
    std::stable_sort(expected.begin(), expected.end(),
                     [](const auto& a, const auto& b) {
                         return std::pair(a.substr(2, 19), a[0]) < std::pair(b.substr(2, 19), b[0]);
                     });
    ASSERT_EQ(expected.size() + 3, m_Origins.size());
    const Lines shown = Shown();
    EXPECT_TRUE(shown.back() == "1 unfinished");
    EXPECT_EQ(size_t{1} << 20, shown[expected.size()].size() - 2) << "cut as in a file";
    for (size_t i = 0; i < expected.size(); ++i)
    {
        ASSERT_EQ(expected[i], shown[i].substr(0, 300)) << i;
    }
    EXPECT_LT(m_Follower->Memory(), 13 * expected.size());
    // Lines of a file that has lost them say so, the others' stay.
    std::filesystem::resize_file(TempFile("0.log").Text().c_str(), 100);
    const Lines after = Shown();
    for (size_t i = 0; i < expected.size(); ++i)
    {
        ASSERT_TRUE(after[i] == shown[i] || after[i][0] == '0') << i << after[i];
    }
    EXPECT_TRUE(std::any_of(after.begin(), after.end(),
                            [](const auto& line)
                            { return line.rfind("0 --- no longer in the file", 0) == 0; }));
}
