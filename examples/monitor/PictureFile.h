#pragma once

#include "vesta/Path.h"

#include <cstdint>
#include <functional>

/// Files of pictures, which may be anything, and may be written just now. Without a window; any
/// thread.

/// By what it is told whether a file is still the same.
struct FileStamp
{
    long long changed = 0; ///< Nanoseconds.
    long long size = -2;   ///< Bytes; -1: there is no plain file, -2: it was not looked at.
    uint64_t  number = 0;  ///< Of the file in its file system.

    bool operator==(const FileStamp& other) const
    {
        return changed == other.changed && size == other.size && number == other.number;
    }
};

constexpr long long k_MostPictureBytes = 128LL << 20;

FileStamp StampOf(const Path& file);
/// The content of a plain file. `isOver` is asked now and then whether to give up. What went wrong,
/// for the user; empty when nothing did.
String ReadPicture(const Path& file, String& bytes, FileStamp& stamp,
                   const std::function<bool()>& isOver);
