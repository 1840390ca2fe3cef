#include "tolvan/Message.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <random>

namespace
{

int DecodeCode(const String& bytes)
{
    return CodeThrown([&] { Message::Decode(bytes); });
}

Message Sample()
{
    String bytes;
    for (int i = 0; i < 256; ++i)
    {
        bytes.push_back(static_cast<char>(i));
    }
    return Message("Output").Set("ID", "7").Set("Line", bytes).Set("Empty", String());
}

TEST(Message, RefusesWhatIsNoMessage)
{
    const String valid = Sample().Encode();
    ASSERT_EQ(DecodeCode(valid), 0);
    for (size_t length = 0; length < valid.size(); ++length)
    {
        ASSERT_EQ(DecodeCode(valid.substr(0, length)), ec_BadData) << "cut after " << length;
    }
    // No letter of theirs may be taken for a digit of the escape before it: "fields" has an octal
    // one, and the types are no hexadecimal digits.
    const String inner = "\x82\xa4type\xa1T\246fields";
    ASSERT_EQ(DecodeCode(inner + "\x80"), 0) << "texts instead of bytes are understood";
    const std::pair<const char*, String> cases[] = {
        {"one byte too many", valid + "x"},
        {"a text", "\xa5hello"},
        {"no fields", "\x81\xa4type\xa1T"},
        {"no type", "\x81\246fields\x80"},
        {"an empty type", "\x82\xa4type\xa0\246fields\x80"},
        {"two types", "\x83\xa4type\xa1T\xa4type\xa1U\246fields\x80"},
        {"a third member", "\x83\xa4type\xa1T\246fields\x80\xa1x\xa1y"},
        {"fields as a list", inner + "\x90"},
        {"a number as a field", inner + "\x81\xa1x\x05"},
        {"one field twice", inner + "\x82\xa1x\xa1y\xa1x\xa1z"},
        {"a map that promises 4294967295 fields", inner + "\xdf\xff\xff\xff\xff\xa1x"},
        {"a text that promises 4294967295 bytes", inner + "\x81\xa1x\xdb\xff\xff\xff\xffx"},
        {"a number as a name", inner + "\x81\x05\xa1x"}};
    for (const auto& [what, bytes] : cases)
    {
        EXPECT_EQ(DecodeCode(bytes), ec_BadData) << what;
    }
}

TEST(Message, SurvivesDamagedBytes)
{
    std::mt19937                       random(4711);
    std::uniform_int_distribution<int> byte(0, 255);
    const String                       valid = Sample().Encode();
    int                                refused = 0;
    for (int round = 0; round < 20000; ++round)
    {
        String bytes = round % 4 == 0 ? String(static_cast<size_t>(byte(random)), '\0') : valid;
        for (int i = 0; i < 1 + round % 8 && !bytes.empty(); ++i)
        {
            bytes[random() % bytes.size()] = static_cast<char>(byte(random));
        }
        const int code = CodeThrown(
            [&]
            {
                const auto message = Message::Decode(bytes);
                EXPECT_EQ(Message::Decode(message->Encode())->Fields(), message->Fields());
            });
        EXPECT_TRUE(code == 0 || code == ec_BadData);
        refused += code != 0;
    }
    EXPECT_GT(refused, 5000) << "the bytes were hardly damaged";
}

} // namespace
