#pragma once

#include "textviews/wxTextSource.h"
#include "vesta/String.h"

#include <cstdint>
#include <memory>
#include <string_view>

/// Bytes that can only be read one after the other.
class ByteStream
{
public:
    virtual ~ByteStream() = default;

    /// The next bytes, at most so many. 0: there are none now. What may take long is not waited
    /// for, but for a disk, and for moments for a pipe that is written to without a break.
    virtual size_t Read(char* buffer, size_t count) = 0;
    /// Why nothing more will come, for the user; empty while all is well.
    const String& Problem() const { return m_Problem; }
    /// All bytes that there are have been read, and they are not all that there should be.
    virtual bool IsCutOff() const { return false; }
    /// Bytes taken so far of the file that they come from.
    virtual uint64_t Taken() const { return 0; }

protected:
    String m_Problem;
};

/// What the file holds in compressed form, by its first bytes (gzip or zstd); null when they are
/// those of no archive. What is read of an archive needs some memory, but never much.
std::unique_ptr<ByteStream> OpenArchive(std::string_view                    firstBytes,
                                        std::shared_ptr<const wxTextSource> file);
/// Bytes of a file that `OpenArchive` has to see.
constexpr size_t k_ArchiveMark = 4;

/// What comes in through the descriptor, a pipe mostly, which stays its owner's.
std::unique_ptr<ByteStream> OpenInput(int descriptor);
