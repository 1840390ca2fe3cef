#include "logview/FileFollower.h"
#include "tests/support/UserFolderTest.h"
#include "tests/support/WaitFor.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace
{
/// Some of the file's bytes are bad.
class BadFile final : public wxTextFile
{
public:
    BadFile(Descriptor file, uint64_t from, uint64_t to)
        : wxTextFile(std::move(file)), m_From(from), m_To(to)
    {
    }
    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override
    {
        if (offset >= m_To || offset + count <= m_From)
        {
            return wxTextFile::Read(offset, buffer, count, problem);
        }
        const size_t good = offset < m_From ? m_From - offset : 0;
        const size_t read = wxTextFile::Read(offset, buffer, good, problem);
        problem = EIO;
        return read;
    }

private:
    uint64_t m_From;
    uint64_t m_To;
};

/// Keeps all that it is told in one list, notes in brackets. What is stored it reads at once, in
/// leaves as the view does.
/// The standard input is a pipe for as long as it lives.
class PipedInput
{
public:
    PipedInput() : m_Kept(dup(STDIN_FILENO))
    {
        EXPECT_TRUE(Descriptor::MakePipe(m_Reading, writing));
        EXPECT_EQ(STDIN_FILENO, dup2(m_Reading.Get(), STDIN_FILENO));
    }
    ~PipedInput() { dup2(m_Kept.Get(), STDIN_FILENO); }
    PipedInput(const PipedInput&) = delete;
    PipedInput& operator=(const PipedInput&) = delete;

    Descriptor writing;

private:
    Descriptor m_Kept;
    Descriptor m_Reading;
};

class LargeFileTest : public UserFolderTest
{
protected:
    std::unique_ptr<FileFollower> Follow(const Path& file)
    {
        const auto note = [this](const String& text) { m_Lines.push_back("[" + text + "]"); };
        auto       follower = std::make_unique<FileFollower>(
            file, FileFollower::Sink{[this](const String& line) { m_Lines.push_back(line); },
                                     [this](const String& line) { m_Partial = line; }, note, note,
                                     [this](const auto& source, const auto& stretches)
                                     { Store(source, stretches); }});
        follower->KeepInMemory(1000);
        return follower;
    }
    void Store(const FileFollower::Source& source, const FileFollower::Stretches& stretches)
    {
        EXPECT_EQ("", m_Partial) << "it comes with these lines";
        for (const wxTextStretch& stretch : stretches)
        {
            m_Sources.push_back(source);
            m_Stretches.push_back(stretch);
            String bytes(stretch.size, '\0');
            int    problem = 0;
            EXPECT_EQ(stretch.size,
                      source->Read(stretch.offset, bytes.data(), bytes.size(), problem));
            const size_t before = m_Lines.size();
            LineCutter   cutter([this](const String& line) { m_Lines.push_back(line); },
                              [](const String&) {});
            cutter.Take(bytes.data(), bytes.size());
            cutter.Finish();
            EXPECT_EQ(stretch.lines, static_cast<int>(m_Lines.size() - before));
            m_StoredLines += stretch.lines;
        }
    }
    void Write(const Path& file, const String& text, bool append = false) const
    {
        std::ofstream(file.Text(), append ? std::ios::app : std::ios::trunc) << text;
    }
    static void ReadAll(FileFollower& follower)
    {
        while (follower.Read(50000))
        {
        }
    }
    // Numbered lines, of which some are long.
    static std::vector<String> ManyLines(int count)
    {
        std::vector<String> lines;
        for (int i = 0; i < count; ++i)
        {
            lines.push_back(String::FromInt(i) + String(i % 500 == 7 ? 40000 : i % 90, '.'));
        }
        return lines;
    }
    static String TextOf(const std::vector<String>& lines)
    {
        String text;
        for (const String& line : lines)
        {
            text += line + "\n";
        }
        return text;
    }

    std::vector<String>               m_Lines;
    String                            m_Partial;
    std::vector<FileFollower::Source> m_Sources;
    FileFollower::Stretches           m_Stretches;
    int                               m_StoredLines = 0;
};
} // namespace

// However it grows: from nothing, by parts of lines, or all at once.
TEST_F(LargeFileTest, StaysOnTheDisk)
{
    const std::vector<String> lines = ManyLines(3000);
    const String              text = TextOf(lines);
    const Path                file = TempFile("grows.log");
    auto                      follower = Follow(file);
    for (size_t at = 0; at < text.size(); at += 3333)
    {
        Write(file, text.substr(at, 3333), at > 0);
        ReadAll(*follower);
    }
    EXPECT_EQ(lines, m_Lines);
    EXPECT_GT(m_StoredLines, 2900);
    EXPECT_EQ(static_cast<long long>(text.size()), follower->Position());

    m_Lines.clear();
    m_StoredLines = 0;
    Write(file, "tail", true);
    follower = Follow(file);
    ReadAll(*follower);
    EXPECT_EQ(lines, m_Lines);
    EXPECT_EQ("tail", m_Partial);
    EXPECT_EQ(3000, m_StoredLines);
    EXPECT_EQ(static_cast<long long>(text.size()) + 4, follower->Position());
}

// What was on the disk is gone with it, and must not be taken from what stands there now.
TEST_F(LargeFileTest, IsCutOffRotatedAndCutOffAgain)
{
    const std::vector<String> lines = ManyLines(600);
    const Path                file = TempFile("some.log");
    Write(file, TextOf(lines) + "tail");
    const auto follower = Follow(file);
    ReadAll(*follower);
    EXPECT_EQ("tail", m_Partial);
    Write(file, "new\n");
    ReadAll(*follower);
    ASSERT_EQ(lines.size() + 3, m_Lines.size());
    EXPECT_EQ("tail", m_Lines[lines.size()]);
    EXPECT_EQ("[The file was cut off; it is read from its start again]", m_Lines[lines.size() + 1]);
    EXPECT_EQ("new", m_Lines.back());
    char bytes[4];
    int  problem = 1;
    EXPECT_EQ(0u, m_Sources.front()->Read(0, bytes, sizeof bytes, problem));
    EXPECT_EQ(0, problem);

    Write(file, TextOf(lines), true);
    ReadAll(*follower);
    std::filesystem::rename(file.Text().c_str(), TempFile("some.log.1").Text().c_str());
    m_Lines.clear();
    Write(file, "fresh\n");
    ReadAll(*follower);
    EXPECT_EQ((std::vector<String>{"[The file was replaced; the new one follows]", "fresh"}),
              m_Lines);
    EXPECT_EQ(4u, m_Sources.back()->Read(0, bytes, sizeof bytes, problem)) << "it is still open";
}

// The lines before and behind a bad place are shown, in memory and on the disk.
TEST_F(LargeFileTest, LeavesOutWhatCannotBeRead)
{
    const String line(99, 'x');
    String       text;
    for (int i = 0; i < 1000; ++i)
    {
        text += line + "\n";
    }
    const Path file = TempFile("bad.log");
    Write(file, text);
    for (const uint64_t inMemory : {uint64_t{1000}, uint64_t{1} << 30})
    {
        m_Lines.clear();
        const auto follower = Follow(file);
        follower->KeepInMemory(inMemory);
        follower->ReadThrough(
            [](Descriptor opened)
            { return std::make_shared<BadFile>(std::move(opened), 40960, 49152); });
        ReadAll(*follower);
        EXPECT_EQ(FileFollower::State::kFollowing, follower->CurrentState());
        ASSERT_EQ(409u + 1 + 1 + 1 + 508, m_Lines.size());
        EXPECT_EQ(String(60, 'x'), m_Lines[409]);
        EXPECT_EQ("[8192 bytes cannot be read here: Input/output error]", m_Lines[410]);
        EXPECT_EQ(String(47, 'x'), m_Lines[411]);
        EXPECT_EQ(line, m_Lines.back());
    }
}

namespace
{
void Pack(const String& command, const Path& from, const Path& to)
{
    ASSERT_EQ(0, std::system((command + " < " + from.Text() + " > " + to.Text()).c_str()));
}
} // namespace

TEST_F(LargeFileTest, AnArchiveIsReadAsItsText)
{
    const std::vector<String> lines = ManyLines(2000);
    const Path                plain = TempFile("plain.log");
    Write(plain, TextOf(lines));
    for (const String command : {"gzip", "zstd"})
    {
        const Path packed = TempFile("app.log"); // its name does not matter
        Pack(command, plain, packed);
        for (const uint64_t inMemory : {uint64_t{1000}, uint64_t{1} << 30})
        {
            m_Lines.clear();
            const auto follower = Follow(packed);
            follower->KeepInMemory(inMemory);
            ReadAll(*follower);
            EXPECT_EQ(lines, m_Lines) << command;
        }
        // One behind the other are one text.
        const String bytes = ReadFile(packed);
        Write(packed, bytes + bytes);
        m_Lines.clear();
        const auto twice = Follow(packed);
        ReadAll(*twice);
        EXPECT_EQ(2 * lines.size(), m_Lines.size()) << command;
        EXPECT_EQ(lines.back(), m_Lines.back());
    }
}

TEST_F(LargeFileTest, ABrokenArchiveShowsWhatCanBeRead)
{
    const std::vector<String> lines = ManyLines(20000);
    const Path                plain = TempFile("plain.log");
    Write(plain, TextOf(lines));
    for (const String command : {"gzip", "zstd"})
    {
        const Path packed = TempFile("app.log.packed");
        Pack(command, plain, packed);
        const String bytes = ReadFile(packed);
        Write(packed, bytes.substr(0, bytes.size() / 2));
        m_Lines.clear();
        auto follower = Follow(packed);
        ReadAll(*follower);
        ASSERT_LT(100u, m_Lines.size()) << command;
        EXPECT_EQ("[The archive ends too early; this is what it held]", m_Lines.back());
        EXPECT_EQ(lines[50], m_Lines[50]);
        // It was still being written.
        Write(packed, bytes.substr(bytes.size() / 2), true);
        ReadAll(*follower);
        EXPECT_EQ(lines.back(), m_Lines.back());

        String damaged = bytes;
        for (size_t at = bytes.size() / 2; at < bytes.size() / 2 + 500; ++at)
        {
            damaged[at] = static_cast<char>(at * 7);
        }
        Write(packed, damaged);
        m_Lines.clear();
        follower = Follow(packed);
        ReadAll(*follower);
        EXPECT_EQ(0u, m_Lines.back().find("[The archive is damaged")) << m_Lines.back();
        EXPECT_EQ(lines[50], m_Lines[50]);
    }
}

TEST_F(LargeFileTest, FollowsTheStandardInput)
{
    PipedInput input;
    const auto follower = Follow("-");
    ReadAll(*follower); // nothing yet: it does not wait
    const std::vector<String> lines(1000, String(29, 'x'));
    EXPECT_TRUE(input.writing.WriteAll("one\ntw", 6));
    ReadAll(*follower);
    EXPECT_EQ("tw", m_Partial);
    EXPECT_TRUE(input.writing.WriteAll("o\n", 2));
    const String text = TextOf(lines);
    for (const size_t from : {0, 15000}) // the second half is beyond what is kept in memory
    {
        EXPECT_TRUE(input.writing.WriteAll(text.data() + from, 15000));
        ReadAll(*follower);
    }
    input.writing.Close();
    ReadAll(*follower);
    ASSERT_EQ(2 + lines.size(), m_Lines.size()) << "no note";
    EXPECT_EQ("two", m_Lines[1]);
    EXPECT_EQ(lines.back(), m_Lines.back());
    EXPECT_GT(m_StoredLines, 0);
    EXPECT_EQ(FileFollower::State::kFollowing, follower->CurrentState());
}

// A pipe holds 64 KiB.
TEST_F(LargeFileTest, WhoeverWritesWithoutABreakIsReadWithoutOne)
{
    PipedInput   input;
    const auto   follower = Follow("-");
    const String text = TextOf(std::vector<String>(40'000, String(99, 'x')));
    std::thread  writer(
        [&]
        {
            EXPECT_TRUE(input.writing.WriteAll(text.data(), text.size()));
            input.writing.Close();
        });
    int looks = 0;
    EXPECT_TRUE(WaitFor(
        [&]
        {
            ++looks;
            ReadAll(*follower);
            return follower->Position() == static_cast<long long>(text.size());
        }));
    writer.join();
    EXPECT_LT(looks, 30) << "of a pipe each they would be 61";
}
