#include "logview/FileFollower.h"

#include "textviews/wxTextFinder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <utility>

namespace
{
constexpr size_t   kChunk = 256 * 1024;                        // bytes read at once
constexpr size_t   kStoredChunk = 2 * k_LongestTextLine;       // has room for a whole line
constexpr uint64_t kMostInMemory = uint64_t{16} * 1024 * 1024; // bytes of text
constexpr uint64_t kBadBlock = 4096;                           // bytes that are bad together
constexpr uint64_t kMostBad = 1024 * 1024;                     // bytes skipped at once
} // namespace

// The open file. What was cut off it and written anew is another text: nobody may find it in the
// old one's place.
class FileFollower::_File final : public wxTextSource
{
public:
    _File(int number, Source bytes) : m_Number(number), m_Bytes(std::move(bytes)) {}

    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override
    {
        problem = 0;
        return m_IsLost ? 0 : m_Bytes->Read(offset, buffer, count, problem);
    }

    // The same file with another text.
    std::shared_ptr<_File> Anew()
    {
        m_IsLost = true;
        return std::make_shared<_File>(m_Number, m_Bytes);
    }

    bool Stat(struct stat& status) const { return fstat(m_Number, &status) == 0; }

private:
    int               m_Number;
    Source            m_Bytes; // owns the descriptor
    std::atomic<bool> m_IsLost{false};
};

FileFollower::FileFollower(const Path& path, Sink sink)
    : m_Path(path),
      m_Sink(std::move(sink)),
      m_Cutter([this](const String& line) { m_Sink.onLine(line); },
               [this](const String& line) { m_Sink.onPartialLine(line); }),
      m_OpenSource([](Descriptor file) { return std::make_shared<wxTextFile>(std::move(file)); }),
      m_MostInMemory(kMostInMemory)
{
    m_Cutter.TellOfCuts(m_Sink.onCut);
}

FileFollower::~FileFollower() = default;

bool FileFollower::Open()
{
    if (IsInput(m_Path))
    {
        m_Stream = OpenInput(STDIN_FILENO);
        m_IsKnown = true;
        m_State = State::kFollowing;
        return true;
    }
    // Without waiting: a pipe without a writer would block.
    Descriptor file = Descriptor::Open(m_Path.Text(), O_RDONLY | O_NONBLOCK);
    if (!file.IsOpen())
    {
        m_State = errno == ENOENT ? State::kMissing : State::kUnreadable;
        m_Problem = std::strerror(errno);
        return false;
    }
    struct stat status = {};
    if (fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
    {
        m_State = State::kUnreadable;
        m_Problem = "It is no ordinary file";
        return false;
    }
    const int number = file.Get();
    m_File = std::make_shared<_File>(number, m_OpenSource(std::move(file)));
    m_State = State::kFollowing;
    m_Problem.clear();
    BeginAnew();
    return true;
}

void FileFollower::Close()
{
    m_File.reset();
    m_Stream.reset();
}

void FileFollower::BeginAnew()
{
    m_Stream.reset();
    m_Stored.reset();
    m_Spool = SpoolFile();
    m_IsKnown = m_ToldEnd = m_IsSpoolFull = false;
    m_Position = m_StoredFrom = m_Tail = m_BadBytes = 0;
}

uint64_t FileFollower::SizeNow() const
{
    struct stat status = {};
    return m_File && m_File->Stat(status) ? static_cast<uint64_t>(status.st_size) : 0;
}

// Whether the name stands for another file than the one that is open, or the open one is gone for
// good. While the name stands for none, as between the two steps of a rotation, it is kept.
bool FileFollower::WasReplaced()
{
    struct stat named = {};
    struct stat opened = {};
    if (!m_File)
    {
        return false;
    }
    if (stat(m_Path.Text().c_str(), &named) != 0)
    {
        m_State = errno == ENOENT && m_State == State::kFollowing ? State::kGone : m_State;
        return false;
    }
    return !m_File->Stat(opened) || named.st_ino != opened.st_ino || named.st_dev != opened.st_dev;
}

// The one that has begun.
void FileFollower::FinishLine()
{
    m_Cutter.Finish();
    m_Position += std::exchange(m_Tail, 0);
}

void FileFollower::Restart(const String& how)
{
    FinishLine(); // it will not go on
    m_Sink.onRestart(how);
}

void FileFollower::LookForCut()
{
    struct stat    status = {};
    const uint64_t taken = m_Stream ? m_Stream->Taken() : m_Position + m_Tail;
    if (m_File && m_File->Stat(status) && static_cast<uint64_t>(status.st_size) < taken)
    {
        Restart("The file was cut off; it is read from its start again");
        m_File = m_File->Anew();
        BeginAnew();
    }
}

// A file may be empty at first.
void FileFollower::LookForArchive()
{
    char mark[k_ArchiveMark];
    int  problem = 0;
    if (m_IsKnown || m_File->Read(0, mark, sizeof mark, problem) < sizeof mark)
    {
        return;
    }
    m_IsKnown = true;
    if (m_Position == 0)
    {
        m_Stream = OpenArchive({mark, sizeof mark}, m_File);
    }
}

bool FileFollower::Read(size_t limit)
{
    if (!m_File && !m_Stream && !Open())
    {
        return false;
    }
    if (limit == 0)
    {
        return true;
    }
    LookForCut();
    LookForArchive();
    m_State = State::kFollowing;
    m_Problem.clear();
    if (!m_Stored && m_Sink.onStored && (m_Stream ? m_Position : SizeNow()) > m_MostInMemory)
    {
        StoreFromNow();
    }
    return m_Stored ? ReadStored(limit) : ReadIntoMemory(limit);
}

bool FileFollower::ReadIntoMemory(size_t limit)
{
    m_Buffer.resize(std::min(limit, kChunk));
    for (size_t total = 0; total < limit;)
    {
        const size_t count = Next(m_Buffer.data(), m_Buffer.size());
        if (count == 0)
        {
            return AtEnd();
        }
        m_Cutter.Take(m_Buffer.data(), count);
        m_Position += count;
        total += count;
    }
    m_Cutter.ShowPartial();
    return true;
}

// Of what can be read now. The old file is read to its end before a new one is begun.
bool FileFollower::AtEnd()
{
    TellBad();
    if (!m_Stored)
    {
        m_Cutter.ShowPartial();
    }
    std::vector<char>().swap(m_Buffer);
    if (m_Stream && !m_ToldEnd && (!m_Stream->Problem().empty() || m_Stream->IsCutOff()))
    {
        m_ToldEnd = true;
        Note(m_Stream->IsCutOff() ? String("The archive ends too early; this is what it held")
                                  : m_Stream->Problem());
    }
    if (!WasReplaced())
    {
        return false;
    }
    Close();
    Restart("The file was replaced; the new one follows");
    return true;
}

void FileFollower::Note(const String& what)
{
    FinishLine();
    if (m_Sink.onNote)
    {
        m_Sink.onNote(what);
    }
}

size_t FileFollower::Next(char* buffer, size_t count)
{
    return m_Stream ? m_Stream->Read(buffer, count) : NextOfFile(buffer, count);
}

size_t FileFollower::NextOfFile(char* buffer, size_t count)
{
    for (;;)
    {
        int          problem = 0;
        const size_t read = m_File->Read(m_Position, buffer, count, problem);
        if (read > 0)
        {
            TellBad();
            return read;
        }
        if (problem == 0 || !SkipBad(problem))
        {
            return 0;
        }
    }
}

// A disk has bad places, with more text behind them. The more is bad, the longer are the steps:
// they leave out no more good bytes than there were bad ones, and looking at a bad byte may take
// seconds.
bool FileFollower::SkipBad(int problem)
{
    FinishLine();
    const uint64_t size = SizeNow();
    if (problem != EIO || m_Stream || m_Position >= size)
    {
        m_State = State::kUnreadable;
        m_Problem = std::strerror(problem);
        return false;
    }
    const uint64_t step = std::clamp(m_BadBytes, kBadBlock, kMostBad);
    const uint64_t end = std::min((m_Position + step) / kBadBlock * kBadBlock, size);
    m_BadBytes += end - m_Position;
    m_Position = end;
    m_BadReason = problem;
    return true;
}

void FileFollower::TellBad()
{
    if (m_BadBytes > 0)
    {
        const auto count = static_cast<unsigned long long>(std::exchange(m_BadBytes, 0));
        Note(SFormat("%llu bytes cannot be read here: %s", count, std::strerror(m_BadReason)));
    }
}

// What has been read in memory stays there.
void FileFollower::StoreFromNow()
{
    const String partial = m_Cutter.Drop();
    m_Position -= partial.size();
    if (!m_Stream)
    {
        m_Stored = m_File;
        return;
    }
    String problem;
    if (m_Spool.Append(partial.data(), partial.size(), problem))
    {
        m_StoredFrom = m_Position;
        m_Stored = m_Spool.Source();
        return;
    }
    m_Cutter.Take(partial.data(), partial.size());
    m_Position += partial.size();
    m_MostInMemory = UINT64_MAX; // there is no other place for it
}

bool FileFollower::ReadStored(size_t limit)
{
    for (uint64_t total = 0; total < limit;)
    {
        const size_t   spooled = m_Stream ? SpoolNext() : 0;
        const uint64_t before = m_Position;
        const bool     hasMore = FindLines();
        total += std::max<uint64_t>(m_Position - before, spooled);
        if (!hasMore && spooled == 0)
        {
            return AtEnd();
        }
    }
    return true;
}

// Gives the number of bytes.
size_t FileFollower::SpoolNext()
{
    m_Buffer.resize(kStoredChunk);
    const size_t count = m_IsSpoolFull ? 0 : m_Stream->Read(m_Buffer.data(), kChunk);
    String       problem;
    if (count > 0 && !m_Spool.Append(m_Buffer.data(), count, problem))
    {
        m_IsSpoolFull = true;
        Note("There is no room on the disk for the rest of the text: " + problem);
    }
    return m_IsSpoolFull ? 0 : count;
}

// False when all that there is has been found.
bool FileFollower::FindLines()
{
    m_Buffer.resize(kStoredChunk);
    const uint64_t offset = m_Position - m_StoredFrom;
    int            problem = 0;
    const size_t   count = m_Stored->Read(offset, m_Buffer.data(), m_Buffer.size(), problem);
    const std::string_view bytes(m_Buffer.data(), count);
    Stretches              found;
    size_t                 used = wxFindTextLines(bytes, offset, found);
    if (problem != 0 && used < count)
    {
        wxAddTextLine(bytes.substr(used), offset + used, found); // what follows is not to be had
        used = count;
    }
    if (count > 0)
    {
        TellBad();
    }
    if (!found.empty())
    {
        m_Cutter.Drop();
        m_Tail = 0;
        m_Sink.onStored(m_Stored, found);
        m_Position += used;
        return true;
    }
    if (count == 0 && problem != 0)
    {
        return SkipBad(problem);
    }
    if (m_Tail != count)
    {
        m_Tail = count;
        m_Cutter.Show(String(std::string(bytes)));
    }
    return false;
}
