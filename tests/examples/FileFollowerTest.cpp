#include "logview/FileFollower.h"
#include "logview/LogFiles.h"
#include "tests/support/UserFolderTest.h"
#include "textviews/wxTextFinder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace
{
class FileFollowerTest : public UserFolderTest
{
protected:
    FileFollowerTest()
        : m_File(TempFile("log")),
          m_Follower(m_File, {[this](const String& line) { m_Lines.push_back(line); },
                              [this](const String& line) { m_Partial = line; },
                              [this](const String& how) { m_Restarts.push_back(how); },
                              {},
                              {},
                              [this] { m_CutAfter.push_back(m_Lines.size()); }})
    {
    }

    void Append(const String& text) const
    {
        std::ofstream(m_File.Text(), std::ios::binary | std::ios::app)
            .write(text.data(), static_cast<std::streamsize>(text.size()));
    }
    void ReadAll()
    {
        while (m_Follower.Read(7)) // small, so that every boundary is met
        {
        }
    }
    using Lines = std::vector<String>;

    Path                m_File;
    Lines               m_Lines;
    String              m_Partial;
    Lines               m_Restarts;
    std::vector<size_t> m_CutAfter; // so many lines
    FileFollower        m_Follower;
};
} // namespace

TEST_F(FileFollowerTest, FollowsAFileThatComesLaterAndGrows)
{
    ReadAll();
    EXPECT_EQ(FileFollower::State::kMissing, m_Follower.CurrentState());
    Append("first\nsecond is longer\nthi");
    ReadAll();
    EXPECT_EQ(FileFollower::State::kFollowing, m_Follower.CurrentState());
    EXPECT_EQ((Lines{"first", "second is longer"}), m_Lines);
    EXPECT_EQ("thi", m_Partial);
    const String odd("a\0b\xff\xc3\x28\r", 7);
    Append("rd\n\n" + odd + "\n");
    ReadAll();
    EXPECT_EQ((Lines{"first", "second is longer", "third", "", odd}), m_Lines);
    EXPECT_EQ("", m_Partial);
    EXPECT_EQ(38, m_Follower.Position());
}

TEST_F(FileFollowerTest, SurvivesTruncationAndReadsARotatedFileToItsEnd)
{
    Append("one\ntwo\nthree\nunfinished");
    ReadAll();
    ASSERT_EQ(0, truncate(m_File.Text().c_str(), 0));
    Append("new\n");
    ReadAll();
    EXPECT_EQ((Lines{"one", "two", "three", "unfinished", "new"}), m_Lines);
    EXPECT_EQ(1u, m_Restarts.size());
    EXPECT_EQ("", m_Partial);

    m_Lines.clear();
    const String old = m_File.Text() + ".1";
    ASSERT_EQ(0, rename(m_File.Text().c_str(), old.c_str()));
    ReadAll(); // between the two steps of a rotation: no file of that name
    EXPECT_EQ(FileFollower::State::kGone, m_Follower.CurrentState());
    std::ofstream(old, std::ios::app) << "late\n";
    ReadAll();
    Append("fresh\n");
    ReadAll();
    EXPECT_EQ((Lines{"late", "fresh"}), m_Lines);
    EXPECT_EQ(FileFollower::State::kFollowing, m_Follower.CurrentState());
    EXPECT_EQ(2u, m_Restarts.size());
}

TEST_F(FileFollowerTest, RefusesWhatIsNoFile)
{
    ASSERT_EQ(0, mkfifo(m_File.Text().c_str(), 0600));
    ReadAll(); // would wait for a writer for ever
    EXPECT_EQ(FileFollower::State::kUnreadable, m_Follower.CurrentState());
    EXPECT_FALSE(m_Follower.Problem().empty());
    ASSERT_EQ(0, unlink(m_File.Text().c_str()));
    Append("now\n");
    ReadAll();
    EXPECT_EQ((Lines{"now"}), m_Lines);

    FileFollower memory("/proc/self/mem", {[](const String&) {}, [](const String&) {},
                                           [](const String&) {}}); // nothing stands at 0
    EXPECT_FALSE(memory.Read(100));
    EXPECT_EQ(FileFollower::State::kUnreadable, memory.CurrentState()) << "an error is no end";
    EXPECT_FALSE(memory.Problem().empty());
}

// A file may hold nothing but one line.
TEST_F(FileFollowerTest, CutsALineThatDoesNotEnd)
{
    const String piece(k_LongestTextLine - 1, 'x');
    const String sign("\xe2\x82\xac"); // not to be torn apart
    Append(piece + sign + piece + sign);
    while (m_Follower.Read(1 << 18))
    {
    }
    ASSERT_EQ(2u, m_Lines.size());
    EXPECT_EQ(piece, m_Lines[0]);
    EXPECT_EQ(sign + piece.substr(2), m_Lines[1]);
    EXPECT_EQ("xx" + sign, m_Partial);
    Append("\n");
    ReadAll();
    EXPECT_EQ("xx" + sign, m_Lines.back());
    EXPECT_EQ("", m_Partial);
    EXPECT_EQ((std::vector<size_t>{1, 2}), m_CutAfter);
}

using LogFilesTest = UserFolderTest;

TEST_F(LogFilesTest, FilesOfOneNameAreToldApartByTheirFolders)
{
    const auto names = [](const std::vector<Path>& files)
    {
        String all;
        for (const String& name : NamesApart(files))
        {
            all += name + " ";
        }
        return all;
    };
    EXPECT_EQ("a.log b.log ", names({"/x/a.log", "/x/b.log"}));
    EXPECT_EQ("x/a.log y/a.log b.log ", names({"/x/a.log", "/y/a.log", "/y/b.log"}));
    EXPECT_EQ("p/x/a.log q/x/a.log y/a.log ", names({"/p/x/a.log", "/q/x/a.log", "/q/y/a.log"}));
    EXPECT_EQ("a.log a.log ", names({"/x/a.log", "/x/a.log"}));
    EXPECT_EQ("/a.log x/a.log ", names({"/a.log", "/x/a.log"}));
    EXPECT_EQ("a.log /a.log ", names({"a.log", "/a.log"}));
}

TEST_F(LogFilesTest, AFolderStandsForItsLogs)
{
    for (const char* const name : {"b.log", "a.log.12", "a.log", "notes.txt", "picture.png", ".log",
                                   "a.log.3.gz", "b.zst", "log"})
    {
        WriteFile(TempFile(name), "a line\n");
    }
    std::filesystem::create_directory(TempFile("folder.log").Text().c_str());
    String names;
    for (const Path& file : LogFilesOf(TempFile("notes.txt").Branch()))
    {
        names += file.Leaf() + " ";
    }
    EXPECT_EQ("a.log a.log.12 a.log.3.gz b.log notes.txt ", names);
    EXPECT_EQ(0u, LogFilesOf(TempFile("folder.log")).size());
    EXPECT_EQ(1u, LogFilesOf(TempFile("picture.png")).size());
    EXPECT_EQ(1u, LogFilesOf(TempFile("not there")).size()) << "may come yet";
}
