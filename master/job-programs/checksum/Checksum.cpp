#include "master/job-programs/checksum/Checksum.h"

#include <boost/crc.hpp>
#include <boost/uuid/detail/sha1.hpp>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr std::size_t kChunk = 1 << 16; // bytes read at once

std::string Hexadecimal(uint32_t word)
{
    char text[9];
    std::snprintf(text, sizeof text, "%08x", word);
    return text;
}

class Crc32 : public Checksum
{
public:
    void Add(const char* bytes, std::size_t count) override { m_Sum.process_bytes(bytes, count); }
    std::string Text() override { return Hexadecimal(m_Sum.checksum()); }

private:
    boost::crc_32_type m_Sum;
};

class Sha1 : public Checksum
{
public:
    void Add(const char* bytes, std::size_t count) override { m_Sum.process_bytes(bytes, count); }
    std::string Text() override
    {
        boost::uuids::detail::sha1::digest_type digest;
        m_Sum.get_digest(digest);
        std::string text;
        for (const uint32_t word : digest)
        {
            text += Hexadecimal(word);
        }
        return text;
    }

private:
    boost::uuids::detail::sha1 m_Sum;
};

/// Closes a file when it goes.
struct Opened
{
    explicit Opened(const std::string& fileName)
        : descriptor(open(fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~Opened()
    {
        if (descriptor >= 0)
        {
            close(descriptor);
        }
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    const int descriptor;
};

} // namespace

std::unique_ptr<Checksum> Checksum::Make(const std::string& name)
{
    if (name == "sha1")
    {
        return std::make_unique<Sha1>();
    }
    if (name == "crc32")
    {
        return std::make_unique<Crc32>();
    }
    return nullptr;
}

bool SumFile(const std::string& fileName, Checksum& sum, uint64_t& size, std::string& why)
{
    size = 0;
    const Opened file(fileName);
    static char  chunk[kChunk];
    ssize_t      count = file.descriptor;
    while (count >= 0 && (count = read(file.descriptor, chunk, kChunk)) > 0)
    {
        sum.Add(chunk, static_cast<std::size_t>(count));
        size += static_cast<uint64_t>(count);
    }
    if (count < 0)
    {
        why = std::strerror(errno);
        return false;
    }
    return true;
}
