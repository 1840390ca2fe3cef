#pragma once

#include "vesta/String.h"

#include <csignal>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

/// A program that is ended with the test.
class Program
{
public:
    /// `console`: a file for what it prints; without one it prints where the test does.
    explicit Program(std::vector<String> words, const String& console = String())
    {
        id = fork();
        if (id == 0)
        {
            const int file =
                console.empty() ? -1 : open(console.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600);
            if (file >= 0)
            {
                dup2(file, STDOUT_FILENO);
                dup2(file, STDERR_FILENO);
            }
            std::vector<char*> arguments;
            for (String& word : words)
            {
                arguments.push_back(&word[0]);
            }
            arguments.push_back(nullptr);
            execv(arguments[0], arguments.data());
            _exit(127);
        }
    }
    ~Program()
    {
        if (!HasEnded())
        {
            Signal(SIGKILL);
            waitpid(id, nullptr, 0);
        }
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    bool HasEnded()
    {
        m_Ended = m_Ended || waitpid(id, &m_Status, WNOHANG) == id;
        return m_Ended;
    }
    void Signal(int signal) const { kill(id, signal); }
    /// -1: it goes on, or a signal has ended it.
    int ExitCode() const { return m_Ended && WIFEXITED(m_Status) ? WEXITSTATUS(m_Status) : -1; }

    pid_t id = -1;

private:
    bool m_Ended = false;
    int  m_Status = 0;
};
