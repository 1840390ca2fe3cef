#pragma once

#include <cstddef>

namespace textviews
{
/// Bytes of a line, [begin, end).
struct ByteSpan
{
    size_t begin = 0;
    size_t end = 0;

    bool IsEmpty() const { return begin == end; }
    bool operator==(const ByteSpan& other) const
    {
        return begin == other.begin && end == other.end;
    }
};
} // namespace textviews
