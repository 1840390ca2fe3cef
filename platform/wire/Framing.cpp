#include "wire/Framing.h"

#include "vesta/Exception.h"

namespace wire
{
namespace
{

void PutBigEndian(String& bytes, uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
    {
        bytes.push_back(static_cast<char>((value >> shift) & 0xff));
    }
}

uint32_t TakeBigEndian(const char* bytes)
{
    uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
    {
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return value;
}

} // namespace

String Framing::Wrap(const String& content)
{
    if (content.size() > k_Limit)
    {
        Exception::Throw(
            "Framing", "Wrap", ec_TooLarge,
            SFormat("A message of %zu bytes is over the limit of %zu", content.size(), k_Limit));
    }
    String frame;
    frame.reserve(k_HeaderSize + content.size());
    PutBigEndian(frame, k_Magic);
    PutBigEndian(frame, static_cast<uint32_t>(content.size()));
    frame += content;
    return frame;
}

size_t Framing::ContentLength(const char* header)
{
    const uint32_t magic = TakeBigEndian(header);
    if (magic != k_Magic)
    {
        Exception::Throw("Framing", "ContentLength", ec_BadData,
                         SFormat("A frame begins with %08x instead of %08x", magic, k_Magic));
    }
    const size_t length = TakeBigEndian(header + 4);
    if (length > k_Limit)
    {
        Exception::Throw("Framing", "ContentLength", ec_TooLarge,
                         SFormat("A frame of %zu bytes is over the limit of %zu", length, k_Limit));
    }
    return length;
}
} // namespace wire
