#pragma once

#include <cstdint>
#include <memory>
#include <string>

/// Sums up the bytes of one file.
class Checksum
{
public:
    virtual ~Checksum() = default;
    virtual void        Add(const char* bytes, std::size_t count) = 0;
    virtual std::string Text() = 0; ///< The sum in hexadecimal; nothing may be added afterwards.

    /// "sha1" or "crc32"; null for any other name.
    static std::unique_ptr<Checksum> Make(const std::string& name);
};

/// Sums up a file. False when it cannot be read, with the reason in `why`; `size` gets its bytes.
bool SumFile(const std::string& fileName, Checksum& sum, uint64_t& size, std::string& why);
