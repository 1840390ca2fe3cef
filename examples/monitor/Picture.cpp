#include "monitor/Picture.h"

#include "monitor/PictureHeader.h"

#include <algorithm>

bool DecodePnm(const String& bytes, Picture& picture, bool& isWhole)
{
    const PnmHeader header = ReadPnmHeader(bytes);
    const int64_t   count = static_cast<int64_t>(header.size.width) * header.size.height;
    if (header.channels == 0 || count > k_MostPicturePixels)
    {
        return false;
    }
    const auto   channels = static_cast<size_t>(header.channels);
    const size_t step = header.most > 255 ? 2 : 1;
    const size_t wanted = static_cast<size_t>(count) * channels;
    const size_t there = std::min(wanted, (bytes.size() - header.begin) / step);
    isWhole = there == wanted;
    picture = {header.size.width, header.size.height, {}};
    picture.pixels.resize(static_cast<size_t>(count) * 3);
    for (size_t i = 0; i < there; ++i)
    {
        const auto     byteAt = [&](size_t at) { return static_cast<unsigned char>(bytes[at]); };
        const size_t   at = header.begin + i * step;
        const uint32_t whole = step == 1 ? byteAt(at) : byteAt(at) * 256U + byteAt(at + 1);
        const uint32_t value = std::min(whole, header.most);
        const auto     shown = static_cast<uint8_t>(value * 255 / header.most);
        for (size_t k = 0; k < 3 / channels; ++k)
        {
            picture.pixels[i * 3 / channels + k] = shown;
        }
    }
    return true;
}

Picture Shrunk(const Picture& picture, int most)
{
    const int longest = std::max(picture.width, picture.height);
    if (longest <= most || most < 1)
    {
        return picture;
    }
    const auto scaled = [&](int length)
    { return std::max(1, static_cast<int>(static_cast<int64_t>(length) * most / longest)); };
    Picture small{scaled(picture.width), scaled(picture.height), {}};
    small.pixels.resize(static_cast<size_t>(small.width) * static_cast<size_t>(small.height) * 3);
    const auto edge = [](int index, int from, int to)
    { return static_cast<int>(static_cast<int64_t>(index) * from / to); };
    size_t out = 0;
    for (int y = 0; y < small.height; ++y)
    {
        const int top = edge(y, picture.height, small.height);
        const int bottom = std::max(edge(y + 1, picture.height, small.height), top + 1);
        for (int x = 0; x < small.width; ++x)
        {
            const int left = edge(x, picture.width, small.width);
            const int right = std::max(edge(x + 1, picture.width, small.width), left + 1);
            uint64_t  sums[3] = {};
            for (int row = top; row < bottom; ++row)
            {
                const uint8_t* pixel =
                    &picture.pixels[(static_cast<size_t>(row) * static_cast<size_t>(picture.width) +
                                     static_cast<size_t>(left)) *
                                    3];
                for (int i = 0; i < (right - left) * 3; ++i)
                {
                    sums[i % 3] += pixel[i];
                }
            }
            const auto area =
                static_cast<uint64_t>(right - left) * static_cast<uint64_t>(bottom - top);
            for (const uint64_t sum : sums)
            {
                small.pixels[out++] = static_cast<uint8_t>(sum / area);
            }
        }
    }
    return small;
}
