#pragma once

#include <csignal>

#include <sys/resource.h>

/// Lets no file grow beyond that many bytes while it lives: writing on fails as it does on a full
/// disk, at first with a part written.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes) : m_OldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_Old);
        const rlimit small = {bytes, m_Old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_Old);
        std::signal(SIGXFSZ, m_OldHandler);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_Old = {};
    void (*m_OldHandler)(int);
};
