#include "textviews/wxTextSource.h"

#include <unistd.h>

#include <cerrno>

wxTextSource::~wxTextSource() = default;

// Never mapped into memory: reading what a file has lost since would end the program.
size_t wxTextFile::Read(uint64_t offset, char* buffer, size_t count, int& problem) const
{
    size_t done = 0;
    problem = 0;
    while (done < count)
    {
        const ssize_t read =
            pread(m_File.Get(), buffer + done, count - done, static_cast<off_t>(offset + done));
        if (read > 0)
        {
            done += static_cast<size_t>(read);
        }
        else if (read == 0 || errno != EINTR)
        {
            problem = read == 0 ? 0 : errno;
            break;
        }
    }
    return done;
}
