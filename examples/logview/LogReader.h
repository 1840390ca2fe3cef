#pragma once

#include "logview/MergedFollower.h"

#include <deque>
#include <functional>
#include <memory>

/// Follows a file, or several as one text, on a thread of its own, so that no disk, however slow,
/// holds up a window. Its functions are for one thread.
///
/// A disk that does not answer holds up that thread only: at the end it is left behind with what it
/// uses, and does nothing more.
class LogReader
{
public:
    enum class Kind
    {
        kLine,
        kPartialLine, ///< In place of the one before; empty: without one.
        kCut,         ///< Behind a line: the next one is the rest of it.
        kNote,        ///< Between two lines.
        kStored
    };
    /// A piece of the text, in its order.
    struct Piece
    {
        Kind                    kind;
        String                  text;
        FileFollower::Source    source;
        FileFollower::Stretches stretches;
        MergedFollower::Origins origins = {}; ///< Of the lines, where there are several files.
    };
    struct Status
    {
        FileFollower::State state = FileFollower::State::kMissing;
        String              problem;
        long long           position = 0; ///< Bytes of text read so far.
    };

    /// Opens the file. `wake` is called on the thread when there are pieces where there were none;
    /// those of a large file have to be taken now and then without that.
    /// @{
    LogReader(const Path& file, std::function<void()> wake);
    LogReader(const std::vector<Path>& files, std::function<void()> wake);
    /// @}
    ~LogReader();
    LogReader(const LogReader&) = delete;
    LogReader& operator=(const LogReader&) = delete;

    const Path& FileName() const { return m_Files.front(); } ///< The first one's.
    /// More than one: what is read is one text of them all.
    const std::vector<Path>& FileNames() const { return m_Files; }
    /// Has it look for what has come since. True while it is still at that.
    bool   Look();
    void   Stop();         ///< It reads no further, whatever comes.
    bool   IsIdle() const; ///< Everything has been read and taken.
    Status StatusNow() const;
    /// Takes the pieces that have come; some wait behind the scenes for these to be taken.
    std::deque<Piece> Take();

private:
    class _Work;

    std::vector<Path>      m_Files;
    std::shared_ptr<_Work> m_Work; ///< The thread's too.
    bool                   m_HasThread = false;
};
