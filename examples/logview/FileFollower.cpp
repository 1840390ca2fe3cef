#include "logview/FileFollower.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <utility>

namespace
{
constexpr size_t kChunk = 256 * 1024; // bytes read at once

constexpr size_t kLongestTail = 3; // bytes of a character behind its first

// A byte of a character behind its first.
bool IsTail(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

String ErrnoText()
{
    return std::strerror(errno);
}
} // namespace

FileFollower::FileFollower(const Path& path, Sink sink) : m_Path(path), m_Sink(std::move(sink))
{
}

FileFollower::~FileFollower()
{
    Close();
}

bool FileFollower::Open()
{
    // Without waiting: a pipe without a writer would block.
    m_Descriptor = open(m_Path.Text().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_Descriptor < 0)
    {
        m_State = errno == ENOENT ? State::kMissing : State::kUnreadable;
        m_Problem = ErrnoText();
        return false;
    }
    struct stat status = {};
    if (fstat(m_Descriptor, &status) != 0 || !S_ISREG(status.st_mode))
    {
        Close();
        m_State = State::kUnreadable;
        m_Problem = "It is no ordinary file";
        return false;
    }
    m_State = State::kFollowing;
    m_Problem.clear();
    m_Position = 0;
    return true;
}

void FileFollower::Close()
{
    if (m_Descriptor >= 0)
    {
        close(m_Descriptor);
        m_Descriptor = -1;
    }
}

// Whether the name stands for another file than the one that is open, or the open one is gone for
// good. While the name stands for none, as between the two steps of a rotation, it is kept.
bool FileFollower::WasReplaced() const
{
    struct stat named = {};
    struct stat opened = {};
    return stat(m_Path.Text().c_str(), &named) == 0 &&
           (fstat(m_Descriptor, &opened) != 0 || named.st_ino != opened.st_ino ||
            named.st_dev != opened.st_dev);
}

void FileFollower::Restart(const String& how)
{
    if (!m_Partial.empty())
    {
        FinishLine(); // it will not go on
    }
    m_PartialShown = 0;
    m_Sink.onRestart(how);
}

bool FileFollower::Read(size_t limit)
{
    if (m_Descriptor < 0 && !Open())
    {
        return false;
    }
    struct stat status = {};
    if (fstat(m_Descriptor, &status) == 0 && status.st_size < m_Position)
    {
        Restart("The file was cut off; it is read from its start again");
        lseek(m_Descriptor, 0, SEEK_SET);
        m_Position = 0;
    }
    const size_t                  chunk = std::min(limit, kChunk);
    const std::unique_ptr<char[]> buffer(new char[chunk]); // mostly it is not even touched
    for (size_t total = 0; total < limit;)
    {
        const ssize_t count = read(m_Descriptor, buffer.get(), chunk);
        if (count > 0)
        {
            TakeBytes(buffer.get(), static_cast<size_t>(count));
            total += static_cast<size_t>(count);
            continue;
        }
        if (count < 0 && errno == EINTR)
        {
            continue;
        }
        m_State = count < 0 ? State::kUnreadable : State::kFollowing;
        m_Problem = count < 0 ? ErrnoText() : String();
        return AtEnd();
    }
    ShowPartialLine();
    return true;
}

// Of what can be read now. The old file is read to its end before a new one is begun.
bool FileFollower::AtEnd()
{
    ShowPartialLine();
    if (!WasReplaced())
    {
        return false;
    }
    Close();
    Restart("The file was replaced; the new one follows");
    return true;
}

void FileFollower::TakeBytes(const char* bytes, size_t count)
{
    m_Position += static_cast<long long>(count);
    const char* const end = bytes + count;
    while (bytes != end)
    {
        const auto* const lineEnd =
            static_cast<const char*>(std::memchr(bytes, '\n', static_cast<size_t>(end - bytes)));
        const char* const partEnd = lineEnd ? lineEnd : end;
        TakePart(bytes, static_cast<size_t>(partEnd - bytes));
        if (!lineEnd)
        {
            return;
        }
        FinishLine();
        bytes = lineEnd + 1;
    }
}

// Of one line.
void FileFollower::TakePart(const char* bytes, size_t count)
{
    m_Partial.append(bytes, count);
    while (m_Partial.size() > k_LongestLine)
    {
        size_t cut = k_LongestLine;
        while (cut > k_LongestLine - kLongestTail && IsTail(m_Partial[cut]))
        {
            --cut;
        }
        const String rest = m_Partial.substr(cut);
        m_Partial.resize(cut);
        FinishLine();
        m_Partial = rest;
    }
}

void FileFollower::FinishLine()
{
    if (m_PartialShown > 0)
    {
        m_Sink.onPartialLine(String());
        m_PartialShown = 0;
    }
    m_Sink.onLine(m_Partial);
    m_Partial.clear();
}

void FileFollower::ShowPartialLine()
{
    if (m_Partial.size() != m_PartialShown)
    {
        m_Sink.onPartialLine(m_Partial);
        m_PartialShown = m_Partial.size();
    }
}
