#include "monitor/PictureDecoder.h"

#include <gtest/gtest.h>
#include <wx/image.h>
#include <wx/mstream.h>

#include <future>

namespace
{
// One pixel half transparent.
String PngBytes()
{
    wxImage image(64, 32);
    image.SetRGB(wxRect(0, 0, 64, 32), 200, 100, 50);
    image.InitAlpha();
    image.SetAlpha(1, 0, 102);
    wxMemoryOutputStream stream;
    EXPECT_TRUE(image.SaveFile(stream, wxBITMAP_TYPE_PNG));
    String bytes(stream.GetSize(), '\0');
    stream.CopyTo(&bytes[0], bytes.size());
    return bytes;
}
} // namespace

// Off the main thread, as the loader does.
TEST(PictureDecoder, TakesWholePicturesAndRefusesAllOthersSilently)
{
    PreparePictures();
    const String png = PngBytes();
    Picture      picture;
    const auto   decode = [&picture](const String& bytes)
    { return std::async(std::launch::async, [&] { return DecodePicture(bytes, picture); }).get(); };
    ASSERT_TRUE(decode(png));
    EXPECT_EQ(64, picture.width);
    EXPECT_EQ(32, picture.height);
    EXPECT_EQ((std::vector<uint8_t>{200, 100, 50, 80, 40, 20}),
              (std::vector<uint8_t>(picture.pixels.begin(), picture.pixels.begin() + 6)));
    for (size_t size = 0; size < png.size(); size += 7)
    {
        EXPECT_FALSE(decode(png.substr(0, size))) << size;
    }
    String damaged = png;
    for (size_t i = 40; i < damaged.size(); ++i)
    {
        damaged[i] = static_cast<char>(damaged[i] ^ 0x55);
    }
    EXPECT_FALSE(decode(damaged));
    EXPECT_FALSE(decode(String("GIF89a\x10\0\x08\0", 10)));
}
