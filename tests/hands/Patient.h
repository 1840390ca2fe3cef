#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <sys/types.h>
#include <thread>
#include <vector>

using Clock = std::chrono::steady_clock;

/// Looks again and again until the condition holds; false when the deadline passes first.
bool WaitUntil(int deadlineMs, const std::function<bool()>& condition);

/// A program in a scratch folder: its working folder, home, settings, sockets and logs are there,
/// and so are those of the master that it talks to. All of it goes, with whatever it started.
class Patient
{
public:
    /// `command`: program and arguments. `master`: the program of the master, or empty.
    Patient(std::vector<std::string> command, const std::string& master);
    ~Patient();
    Patient(const Patient&) = delete;
    Patient& operator=(const Patient&) = delete;

    void  Start();
    pid_t Id() const { return m_Id; }
    bool  HasEnded();
    /// Asks it to end; whether it does in time.
    bool End(int deadlineMs);

    std::string Said() const;  ///< All that it and its master wrote to the console.
    std::string Fault() const; ///< What no program says, or how none ends; empty when all is well.

private:
    pid_t Launch(const std::vector<std::string>& command) const;
    void  MakeFolder();

    std::string              m_Folder;
    std::vector<std::string> m_Command;
    pid_t                    m_Id = 0;
    int                      m_Status = 0;
    bool                     m_Ended = true;
};
