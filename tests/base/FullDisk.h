#pragma once

#include <csignal>
#include <sys/resource.h>

/// While it lives no file of this process can grow above some bytes, as if the disk were full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_usual);
        const rlimit full{bytes, m_usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_usual);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_usual;
    void (*m_handler)(int);
};
