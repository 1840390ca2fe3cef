#pragma once

#include "vesta/Path.h"
#include "vesta/String.h"

#include <functional>

/// Reads a growing text file line by line, from its start, and notices when it is cut off or
/// replaced. Without a window or a thread: whoever owns it calls `Read` now and then.
class FileFollower
{
public:
    enum class State
    {
        kMissing,    ///< There is no such file (yet).
        kUnreadable, ///< It is there but cannot be read (any further); `Problem` says why.
        kFollowing
    };

    /// Bytes after which a line that does not end is cut, between two characters, into several:
    /// nobody can read such a line, but a file may hold nothing else.
    static constexpr size_t k_LongestLine = 1u << 20;

    /// What the owner does with what is read. A line comes without its line feed; every other
    /// byte, a carriage return too, belongs to it.
    struct Sink
    {
        std::function<void(const String& line)> onLine;
        /// The unfinished last line as it stands now; it replaces the one told before. Empty: the
        /// line that it was has been finished, and comes with `onLine` next, or is gone.
        std::function<void(const String& line)> onPartialLine;
        /// The file was cut off or replaced; what follows is read from its new start. `how` is a
        /// text for the user.
        std::function<void(const String& how)> onRestart;
    };

    FileFollower(const Path& path, Sink sink);
    ~FileFollower();
    FileFollower(const FileFollower&) = delete;
    FileFollower& operator=(const FileFollower&) = delete;

    /// Reads what has come since, at most about `limit` bytes. True when there may be more to read
    /// at once. With 0 the file is only opened: it can be read even if another one takes its name.
    bool Read(size_t limit);

    const Path&   FileName() const { return m_Path; }
    State         CurrentState() const { return m_State; }
    const String& Problem() const { return m_Problem; }
    /// Bytes read so far of the file as it is now.
    long long Position() const { return m_Position; }

private:
    bool Open();
    void Close();
    bool WasReplaced() const;
    void Restart(const String& how);
    bool AtEnd();
    void TakeBytes(const char* bytes, size_t count);
    void TakePart(const char* bytes, size_t count);
    void FinishLine();
    void ShowPartialLine();

    Path      m_Path;
    Sink      m_Sink;
    State     m_State = State::kMissing;
    String    m_Problem;
    int       m_Descriptor = -1;
    long long m_Position = 0;
    String    m_Partial;          ///< Of the last line, whose end has not come yet.
    size_t    m_PartialShown = 0; ///< Bytes of it that the sink has seen.
};
