#pragma once

#include "tests/support/Program.h"

#include <chrono>
#include <functional>
#include <memory>

using Clock = std::chrono::steady_clock;

/// Looks again and again until the condition holds; false when the deadline passes first.
bool WaitUntil(int deadlineMs, const std::function<bool()>& condition);

/// A program in a scratch folder: its working folder, home, settings, sockets and logs are there,
/// and so are those of the master that it talks to. All of it goes, with whatever it started. One
/// in a process.
class Patient
{
public:
    /// `command`: program and arguments. `master`: the program of the master, or empty.
    Patient(std::vector<String> command, const String& master);
    ~Patient();
    Patient(const Patient&) = delete;
    Patient& operator=(const Patient&) = delete;

    void  Start();
    pid_t Id() const { return m_Program->id; }
    bool  HasEnded() { return m_Program->HasEnded(); }
    /// Asks it to end; whether it does in time.
    bool End(int deadlineMs);

    /// All that it, since its start, and its master wrote to the console.
    std::string Said() const;
    std::string Fault(); ///< What no program says, or how none ends; empty when all is well.

private:
    String                   m_Folder;
    std::vector<String>      m_Command;
    std::unique_ptr<Program> m_Master;
    std::unique_ptr<Program> m_Program;
};
