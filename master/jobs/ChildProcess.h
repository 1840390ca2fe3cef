#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <utility>
#include <vector>

#include <sys/types.h>

namespace master
{
/// What to start, and where.
struct ChildSpec
{
    Path                program;
    std::vector<String> words;     ///< Arguments, without the program's own name.
    Path                folder;    ///< Working folder.
    int                 kept = -1; ///< An open file that the program gets too; -1: none.
};

/// How a process has ended.
struct ChildExit
{
    bool isSignal = false;
    int  code = 0; ///< Exit code, or the signal's number.

    bool   IsSuccess() const { return !isSignal && code == 0; }
    String Describe() const; ///< As a sentence.
};

/// A child process that leads a process group of its own. Standard output and error go into one
/// pipe, in the order of writing; the standard input is empty; of this program's other files only
/// the one that it is to keep stays open in it. When this program ends, in whatever way, the system
/// kills the whole group.
class ChildProcess
{
public:
    ChildProcess() = default;
    ~ChildProcess(); ///< Kills what still runs.
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Starts it. Returns an empty text, or why it cannot be started.
    String Start(const ChildSpec& childSpec);
    /// Hands over the reading end of its output, which does not block.
    Descriptor TakeOutput() { return std::move(m_Output); }
    pid_t      Id() const { return m_Id; }
    bool       IsAlive() const { return m_Id > 0; }

    /// Sends a signal to the whole group; nothing when it has ended.
    void SignalGroup(int signal) const;
    /// Whether the process has ended. Then what is left of its group is killed (nobody else would
    /// ever end it, and it would keep the pipe open) and `exit` tells how it ended.
    bool Collect(ChildExit& exit);

private:
    pid_t      m_Id = 0;
    Descriptor m_Output;
    Descriptor m_Life; ///< The writing end of a pipe that nobody writes to: see `PrepareChild`.
};
} // namespace master
