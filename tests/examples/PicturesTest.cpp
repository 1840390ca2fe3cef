#include "monitor/PictureLoader.h"

#include "tests/support/UserFolderTest.h"
#include "tests/support/WaitFor.h"

#include <atomic>
#include <future>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
String Bytes(const char* text, size_t size)
{
    return String(text, size);
}

const String kPng = Bytes("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\x01\0\0\0\0\x40", 24);

class PicturesTest : public UserFolderTest
{
protected:
    // Asks and waits for the answer; its problem, or what was loaded.
    String Load(const String& name, const FileStamp& known = {})
    {
        m_Woken = false;
        m_Loader.Ask(TempFile(name), known, 2);
        if (!WaitFor([this] { return m_Woken.load(); }))
        {
            return "nothing";
        }
        m_Result = *m_Loader.Take();
        return m_Result.problem.empty()
                   ? SFormat("%dx%d of %dx%d", m_Result.picture.width, m_Result.picture.height,
                             m_Result.size.width, m_Result.size.height)
                   : m_Result.problem;
    }

    std::atomic<bool>     m_Woken{false};
    PictureLoader::Result m_Result;
    PictureLoader         m_Loader{[](const String& bytes, Picture& picture)
                           {
                               picture = {1, 1, {1, 2, 3}};
                               return bytes.size() > kPng.size();
                           },
                           [this] { m_Woken = true; }};
};
} // namespace

TEST(PictureHeader, SaysHowLargeAPictureIs)
{
    const struct
    {
        String bytes;
        int    width, height;
    } cases[] = {
        {kPng, 256, 64},
        {kPng.substr(0, 20), 0, 0},
        {Bytes("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\xff\xff\xff\xff\0\0\0\x40", 24), 0, 0},
        {Bytes("GIF89a\x10\0\x08\0", 10), 16, 8},
        {Bytes("BM\0\0\0\0\0\0\0\0\0\0\0\0\x28\0\0\0\x10\0\0\0\xf8\xff\xff\xff", 26), 16, 8},
        {Bytes("\xff\xd8\xff\xe0\0\x04xx\xff\xff\xc0\0\x11\x08\0\x08\0\x10\x03", 19), 16, 8},
        {Bytes("\xff\xd8\xff\xe0\0\0", 6), 0, 0},
        {"P6 # c 9\n16\n 8 255\n", 16, 8},
        {"P5 16 -8 255\n", 0, 0},
        {"P6 99999999999 8 255\n", 0, 0},
        {"P6 # no end", 0, 0},
        {"P3 1 1 255 1 1 1", 0, 0},
        {"", 0, 0}};
    for (const auto& one : cases)
    {
        const PictureSize size = SizeOfPicture(one.bytes);
        EXPECT_EQ(one.width, size.width) << one.bytes;
        EXPECT_EQ(one.height, size.height) << one.bytes;
    }
}

TEST(Picture, IsDecodedAsFarAsItIsThereAndShrunkToMeans)
{
    const struct
    {
        String               bytes;
        bool                 isWhole;
        std::vector<uint8_t> pixels;
    } cases[] = {{"P6 2 1 255\nabcdef", true, {'a', 'b', 'c', 'd', 'e', 'f'}},
                 {"P6 2 1 255\nabcd", false, {'a', 'b', 'c', 'd', 0, 0}},
                 {"P5 2 1 100\n\x32\xff", true, {127, 127, 127, 255, 255, 255}},
                 {Bytes("P5 2 1 65535\n\x80\0\x01", 16), false, {127, 127, 127, 0, 0, 0}}};
    for (const auto& one : cases)
    {
        Picture picture;
        bool    isWhole = !one.isWhole;
        ASSERT_TRUE(DecodePnm(one.bytes, picture, isWhole)) << one.bytes;
        EXPECT_EQ(one.isWhole, isWhole) << one.bytes;
        EXPECT_EQ(one.pixels, picture.pixels) << one.bytes;
    }
    Picture none;
    bool    isWhole = true;
    EXPECT_FALSE(DecodePnm("P6 100000 100000 255\n", none, isWhole)) << "too large";
    EXPECT_FALSE(DecodePnm("P6 1 1 0\nabc", none, isWhole));
    const Picture wide{4, 1, {0, 0, 0, 10, 20, 30, 1, 1, 1, 3, 3, 3}};
    EXPECT_EQ((std::vector<uint8_t>{5, 10, 15, 2, 2, 2}), Shrunk(wide, 2).pixels);
    EXPECT_EQ(1, Shrunk(wide, 2).height);
    EXPECT_EQ(wide.pixels, Shrunk(wide, 4).pixels);
}

TEST_F(PicturesTest, WhateverTheFileIsItIsLoadedOrToldWhyNot)
{
    WriteFile(TempFile("good.ppm"), "P6 4 1 255\nabcabcabcabc");
    WriteFile(TempFile("half.ppm"), "P6 4 1 255\nabc");
    WriteFile(TempFile("good.png"), kPng + "more");
    WriteFile(TempFile("bad.png"), kPng);
    WriteFile(TempFile("empty"), "");
    WriteFile(TempFile("text"), "no picture");
    WriteFile(TempFile("huge"), "P5 30000 30000 255\n");
    WriteFile(TempFile("large"), "P6");
    ASSERT_EQ(0, truncate(TempFile("large").Text().c_str(), k_MostPictureBytes + 1));
    ASSERT_EQ(0, mkfifo(TempFile("pipe").Text().c_str(), 0600));
    File::MakeFolder(TempFile("folder"));
    const struct
    {
        const char* name;
        const char* said;
        bool        isWhole = true;
    } cases[] = {{"good.ppm", "2x1 of 4x1"},
                 {"half.ppm", "2x1 of 4x1", false},
                 {"good.png", "1x1 of 256x64"},
                 {"bad.png", "damaged"},
                 {"empty", "empty"},
                 {"text", "kind"},
                 {"huge", "too large to be shown here (30000 x 30000)"},
                 {"large", "too large to be shown here (128 MB)"},
                 {"pipe", "no file"},
                 {"folder", "no file"},
                 {"missing", "cannot be read"}};
    for (const auto& one : cases)
    {
        const String said = Load(one.name);
        EXPECT_NE(String::npos, said.find(one.said)) << one.name << said;
        EXPECT_EQ(one.isWhole, m_Result.isWhole) << one.name;
    }
}

TEST_F(PicturesTest, AFileIsLoadedOnceUntilItIsWrittenAnewAndTheLastWishCounts)
{
    WriteFile(TempFile("a.ppm"), "P6 1 1 255\nabc");
    WriteFile(TempFile("b.ppm"), "P6 1 1 255\nxyz");
    EXPECT_EQ("1x1 of 1x1", Load("a.ppm"));
    const FileStamp known = m_Result.stamp;
    m_Woken = false;
    m_Loader.Ask(TempFile("a.ppm"), known, 2);
    EXPECT_EQ("1x1 of 1x1", Load("b.ppm"));
    EXPECT_EQ(TempFile("b.ppm").Text(), m_Result.file.Text()) << "the other one is as it was";
    WriteFile(TempFile("a.ppm"), "P6 2 1 255\nabcdef");
    EXPECT_EQ("2x1 of 2x1", Load("a.ppm", known));
}

TEST_F(PicturesTest, ADiskThatDoesNotAnswerHoldsUpNobody)
{
    WriteFile(TempFile("a.png"), kPng);
    std::promise<void> answer;
    auto               used = std::make_shared<std::shared_future<void>>(answer.get_future());
    const std::weak_ptr<void> left = used;
    std::atomic<bool>         isAsked{false};
    std::atomic<int>          calls{0};
    {
        PictureLoader loader(
            [&calls](const String&, Picture&) { return ++calls > 0; }, [&calls] { ++calls; },
            [&isAsked, disk = std::move(used)](const Path&, String& bytes, FileStamp&, const auto&)
            {
                isAsked = true;
                disk->wait();
                bytes = kPng;
                return String();
            });
        loader.Ask(TempFile("a.png"), {}, 2);
        ASSERT_TRUE(WaitFor([&isAsked] { return isAsked.load(); }));
    }
    answer.set_value();
    EXPECT_TRUE(WaitFor([&left] { return left.expired(); }));
    EXPECT_EQ(0, calls);
}
