#include "logview/ByteStream.h"

#include <poll.h>
#include <unistd.h>
#include <zlib.h>
#include <zstd.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace
{
constexpr size_t kInputBytes = 128 * 1024; // of an archive, read at once

// A file as one byte after the other.
class _Input
{
public:
    explicit _Input(std::shared_ptr<const wxTextSource> file)
        : m_File(std::move(file)), m_Bytes(kInputBytes)
    {
    }

    // Reads on when everything has been used; false when there is nothing more (now).
    bool Fill(String& problem)
    {
        if (m_At < m_End)
        {
            return true;
        }
        int error = 0;
        m_At = 0;
        m_End = m_File->Read(m_Offset, m_Bytes.data(), m_Bytes.size(), error);
        m_Offset += m_End;
        if (m_End == 0 && error != 0)
        {
            problem = String("It cannot be read any further: ") + std::strerror(error);
        }
        return m_End > 0;
    }

    char*    Bytes() { return m_Bytes.data() + m_At; }
    size_t   Left() const { return m_End - m_At; }
    void     Use(size_t count) { m_At += count; }
    uint64_t Offset() const { return m_Offset; }

private:
    std::shared_ptr<const wxTextSource> m_File;
    std::vector<char>                   m_Bytes;
    size_t                              m_At = 0;
    size_t                              m_End = 0;
    uint64_t                            m_Offset = 0;
};

// What archives have in common: one behind the other is one text.
class _Archive : public ByteStream
{
public:
    explicit _Archive(std::shared_ptr<const wxTextSource> file) : m_Input(std::move(file)) {}

    size_t Read(char* buffer, size_t count) override
    {
        size_t done = 0;
        while (done < count && m_Problem.empty())
        {
            // What has been taken in may have more to give than there was room for.
            if (!m_HasMore && !m_Input.Fill(m_Problem))
            {
                break;
            }
            done += Decode(buffer + done, count - done);
        }
        return done;
    }
    bool     IsCutOff() const override { return !m_IsComplete && m_Problem.empty(); }
    uint64_t Taken() const override { return m_Input.Offset(); }

protected:
    // Some bytes of the input into the buffer; how many those are there.
    virtual size_t Decode(char* buffer, size_t count) = 0;

    void Break(const char* why)
    {
        m_Problem = String("The archive is damaged from here on (") + why + ")";
    }

    _Input m_Input;
    bool   m_HasMore = false;
    bool   m_IsComplete = false; ///< The last archive has come to its end.
};

class _Gzip final : public _Archive
{
public:
    explicit _Gzip(std::shared_ptr<const wxTextSource> file) : _Archive(std::move(file))
    {
        constexpr int kGzipWindow = 16 + MAX_WBITS;
        if (inflateInit2(&m_State, kGzipWindow) != Z_OK)
        {
            m_Problem = "There is no memory for it";
        }
    }
    ~_Gzip() override { inflateEnd(&m_State); }

protected:
    size_t Decode(char* buffer, size_t count) override
    {
        if (m_IsComplete && !BeginNext())
        {
            return 0;
        }
        m_State.next_in = reinterpret_cast<Bytef*>(m_Input.Bytes());
        m_State.avail_in = static_cast<uInt>(m_Input.Left());
        m_State.next_out = reinterpret_cast<Bytef*>(buffer);
        m_State.avail_out = static_cast<uInt>(count);
        const int result = inflate(&m_State, Z_NO_FLUSH);
        m_Input.Use(m_Input.Left() - m_State.avail_in);
        m_IsComplete = result == Z_STREAM_END;
        m_HasMore = result == Z_OK && m_State.avail_out == 0;
        if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR)
        {
            Break(m_State.msg ? m_State.msg : "it makes no sense");
        }
        return count - m_State.avail_out;
    }

private:
    // Zeros may fill up a tape behind the last archive, and belong to nothing.
    bool BeginNext()
    {
        if (*m_Input.Bytes() == '\0')
        {
            m_Input.Use(1);
            return false;
        }
        m_IsComplete = false;
        return inflateReset(&m_State) == Z_OK;
    }

    z_stream m_State = {};
};

class _Zstd final : public _Archive
{
public:
    explicit _Zstd(std::shared_ptr<const wxTextSource> file)
        : _Archive(std::move(file)), m_State(ZSTD_createDStream())
    {
        if (!m_State)
        {
            m_Problem = "There is no memory for it";
        }
    }
    ~_Zstd() override { ZSTD_freeDStream(m_State); }

protected:
    size_t Decode(char* buffer, size_t count) override
    {
        ZSTD_inBuffer  in{m_Input.Bytes(), m_Input.Left(), 0};
        ZSTD_outBuffer out{buffer, count, 0};
        const size_t   result = ZSTD_decompressStream(m_State, &out, &in);
        m_Input.Use(in.pos);
        m_IsComplete = result == 0;
        m_HasMore = result != 0 && out.pos == count;
        if (ZSTD_isError(result))
        {
            Break(ZSTD_getErrorName(result));
        }
        return out.pos;
    }

private:
    ZSTD_DStream* m_State;
};

class _Pipe final : public ByteStream
{
public:
    explicit _Pipe(int descriptor) : m_Descriptor(descriptor) {}

    size_t Read(char* buffer, size_t count) override
    {
        while (m_Problem.empty() && !m_HasEnded)
        {
            pollfd    input{m_Descriptor, POLLIN, 0};
            const int ready = poll(&input, 1, m_LastRead >= kMuch ? kPatienceMs : 0);
            if (ready == 0)
            {
                m_LastRead = 0;
                return 0;
            }
            const ssize_t read = ready > 0 ? ::read(m_Descriptor, buffer, count) : -1;
            if (read >= 0)
            {
                m_HasEnded = read == 0 && (input.revents & POLLHUP) != 0;
                m_LastRead = static_cast<size_t>(read);
                return m_LastRead;
            }
            if (errno == EAGAIN)
            {
                return 0;
            }
            if (errno != EINTR)
            {
                m_Problem = String("It cannot be read any further: ") + std::strerror(errno);
            }
        }
        return 0;
    }

private:
    // A pipe holds little. Whoever has written that much at once is about to go on, and would be
    // read at a pipe a look if nobody waited for it.
    static constexpr size_t kMuch = 4096; // bytes
    static constexpr int    kPatienceMs = 10;

    int    m_Descriptor;
    size_t m_LastRead = 0;
    bool   m_HasEnded = false;
};

bool BeginsWith(std::string_view bytes, std::string_view mark)
{
    return bytes.substr(0, mark.size()) == mark;
}
} // namespace

std::unique_ptr<ByteStream> OpenArchive(std::string_view                    firstBytes,
                                        std::shared_ptr<const wxTextSource> file)
{
    using namespace std::string_view_literals;
    if (BeginsWith(firstBytes, "\x1f\x8b\x08"sv))
    {
        return std::make_unique<_Gzip>(std::move(file));
    }
    if (BeginsWith(firstBytes, "\x28\xb5\x2f\xfd"sv))
    {
        return std::make_unique<_Zstd>(std::move(file));
    }
    return nullptr;
}

std::unique_ptr<ByteStream> OpenInput(int descriptor)
{
    return std::make_unique<_Pipe>(descriptor);
}
