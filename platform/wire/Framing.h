#pragma once

#include "vesta/String.h"

#include <cstdint>

namespace wire
{
/// Frames on a local socket: four bytes of magic and version, four bytes of content length (big
/// endian), the content.
class Framing
{
public:
    static constexpr uint32_t k_Magic = 0x544c5631; ///< "TLV1"
    static constexpr size_t   k_HeaderSize = 8;     ///< Bytes.
    static constexpr size_t   k_Limit = 1u << 20;   ///< Bytes of content.

    /// Throws an `Exception*` (ec_TooLarge) for a content over the limit.
    static String Wrap(const String& content);
    /// The content length that a header announces. Throws an `Exception*` (ec_BadData,
    /// ec_TooLarge).
    static size_t ContentLength(const char* header);
};
} // namespace wire
