#include "monitor/PictureHeader.h"

#include <algorithm>
#include <string_view>

namespace
{
uint32_t ByteAt(std::string_view bytes, size_t at)
{
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

uint32_t Big(std::string_view bytes, size_t at, size_t count)
{
    uint32_t value = 0;
    for (size_t i = 0; i < count; ++i)
    {
        value = value << 8 | ByteAt(bytes, at + i);
    }
    return value;
}

uint32_t Little(std::string_view bytes, size_t at, size_t count)
{
    uint32_t value = 0;
    for (size_t i = count; i > 0; --i)
    {
        value = value << 8 | ByteAt(bytes, at + i - 1);
    }
    return value;
}

PictureSize Size(int64_t width, int64_t height)
{
    constexpr int64_t kMost = 1 << 30;
    const bool        makesSense = width > 0 && height > 0 && width < kMost && height < kMost;
    return makesSense ? PictureSize{static_cast<int>(width), static_cast<int>(height)}
                      : PictureSize();
}

bool IsBlank(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

// The next number behind blanks and comments; -1 when there is none.
int64_t TakeNumber(std::string_view bytes, size_t& at)
{
    constexpr int64_t kMost = 1 << 30;
    while (at < bytes.size() && (IsBlank(bytes[at]) || bytes[at] == '#'))
    {
        if (bytes[at] == '#')
        {
            at = std::min(bytes.find('\n', at), bytes.size() - 1);
        }
        ++at;
    }
    const size_t begin = at;
    int64_t      number = 0;
    while (at < bytes.size() && bytes[at] >= '0' && bytes[at] <= '9' && number < kMost)
    {
        number = number * 10 + (bytes[at++] - '0');
    }
    return at == begin ? -1 : number;
}

PictureSize SizeOfJpeg(std::string_view bytes)
{
    size_t at = 2;
    while (at + 9 < bytes.size() && ByteAt(bytes, at) == 0xFF)
    {
        const uint32_t marker = ByteAt(bytes, at + 1);
        const bool     isSize =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isSize)
        {
            return Size(Big(bytes, at + 7, 2), Big(bytes, at + 5, 2));
        }
        const bool isAlone = marker == 0xFF || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
        at += marker == 0xFF ? 1 : isAlone ? 2 : 2 + std::max(Big(bytes, at + 2, 2), 2U);
    }
    return {};
}
} // namespace

PnmHeader ReadPnmHeader(const String& text)
{
    const std::string_view bytes(text);
    PnmHeader              header;
    const bool             isGrey = bytes.substr(0, 2) == "P5";
    if (!isGrey && bytes.substr(0, 2) != "P6")
    {
        return header;
    }
    size_t        at = 2;
    const int64_t width = TakeNumber(bytes, at);
    const int64_t height = TakeNumber(bytes, at);
    const int64_t most = TakeNumber(bytes, at);
    header.size = Size(width, height);
    if (header.size.width > 0 && most > 0 && most < 65536 && at < bytes.size() &&
        IsBlank(bytes[at]))
    {
        header.channels = isGrey ? 1 : 3;
        header.most = static_cast<uint32_t>(most);
        header.begin = at + 1;
    }
    return header;
}

PictureSize SizeOfPicture(const String& bytes)
{
    const std::string_view view(bytes);
    if (view.substr(0, 8) == "\x89PNG\r\n\x1a\n")
    {
        return Size(Big(view, 16, 4), Big(view, 20, 4));
    }
    if (view.substr(0, 3) == "\xFF\xD8\xFF")
    {
        return SizeOfJpeg(view);
    }
    if (view.substr(0, 4) == "GIF8")
    {
        return Size(Little(view, 6, 2), Little(view, 8, 2));
    }
    if (view.substr(0, 2) == "BM")
    {
        const auto height = static_cast<int32_t>(Little(view, 22, 4)); // negative: from the top
        return Size(static_cast<int32_t>(Little(view, 18, 4)),
                    height < 0 ? -static_cast<int64_t>(height) : height);
    }
    return ReadPnmHeader(bytes).size;
}
