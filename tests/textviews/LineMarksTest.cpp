#include "textviews/gutter/ArrivalTimes.h"
#include "textviews/jumps/LineTarget.h"
#include "textviews/lines/MarkedLines.h"
#include "textviews/lines/TextSelection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace textviews;

namespace
{
constexpr int64_t kNoon = 1'774'958'400; // seconds, in March 2026

/// Lines as they really are: what is known of them goes with them.
struct PlainLine
{
    bool    isMarked = false;
    int64_t second = 0;
};

std::vector<int> MarkedOf(const std::vector<PlainLine>& lines)
{
    std::vector<int> marked;
    for (size_t i = 0; i < lines.size(); ++i)
    {
        if (lines[i].isMarked)
        {
            marked.push_back(static_cast<int>(i));
        }
    }
    return marked;
}
} // namespace

TEST(LineMarksTest, MarksAndTimesStayWithTheirLines)
{
    std::mt19937 random(99);
    const auto   any = [&random](size_t below) { return below == 0 ? 0 : random() % below; };
    int64_t      now = kNoon;
    MarkedLines  marks;
    ArrivalTimes times(3, [&now] { return Time::Seconds(now); });
    std::vector<PlainLine> lines(3);
    for (int step = 0; step < 20000; ++step)
    {
        now += any(3) == 0 ? static_cast<int64_t>(any(4)) : 0;
        const size_t count = lines.size();
        const size_t action = any(12);
        const size_t at = action < 4 ? count : any(count + 1);
        if (action < 6)
        {
            lines.insert(lines.begin() + static_cast<ptrdiff_t>(at), {false, now});
            marks.LineInserted(static_cast<int>(at));
            times.LineInserted(static_cast<int>(at));
        }
        else if (action < 11 && count > 0)
        {
            const size_t gone = action < 9 ? 0 : any(count);
            marks.LineErased(static_cast<int>(gone));
            times.LineErased(static_cast<int>(gone));
            lines.erase(lines.begin() + static_cast<ptrdiff_t>(gone));
        }
        else if (count > 0)
        {
            PlainLine& line = lines[any(count)];
            line.isMarked = !line.isMarked;
            marks.Set(static_cast<int>(&line - lines.data()), line.isMarked);
        }
        if (any(3000) == 0)
        {
            lines.clear();
            marks.LinesCleared();
            times.LinesCleared();
        }
        ASSERT_EQ(marks.All(), MarkedOf(lines)) << step;
        ASSERT_LE(times.Entries(), lines.size());
        for (size_t i = 0; i < lines.size(); ++i)
        {
            const auto time = times.Of(static_cast<int>(i));
            ASSERT_EQ(time ? time->ToSeconds() : 0, lines[i].second) << step << " line " << i;
        }
        ASSERT_FALSE(times.Of(static_cast<int>(lines.size())));
    }
}

TEST(LineMarksTest, TheNextMarkIsFoundRoundTheEnds)
{
    MarkedLines marks;
    EXPECT_FALSE(marks.Next(3, true));
    for (const int line : {4, 9, 20})
    {
        marks.Set(line, true);
    }
    const struct
    {
        int  from;
        bool forward;
        int  found;
    } cases[] = {{-1, true, 4},   {4, true, 9},  {10, true, 20}, {20, true, 4},
                 {99, false, 20}, {9, false, 4}, {4, false, 20}, {0, false, 20}};
    for (const auto& c : cases)
    {
        EXPECT_EQ(marks.Next(c.from, c.forward), c.found) << c.from << " " << c.forward;
    }
}

TEST(LineMarksTest, ABatchOfOneSecondTakesOneEntryAndTheDayIsToldWhereItChanges)
{
    int64_t      now = kNoon;
    ArrivalTimes times(2, [&now] { return Time::Seconds(now); });
    for (int line = 2; line < 100'002; ++line)
    {
        times.LineInserted(line);
    }
    EXPECT_EQ(times.Entries(), 2u);
    EXPECT_EQ(times.TextOf(1), "");
    EXPECT_EQ(times.TextOf(2), std::string(Time::Seconds(now).FormatClock()));
    EXPECT_EQ(times.Cells(), 8);
    now += 24 * 3600;
    times.LineInserted(100'002);
    times.LineInserted(100'003);
    EXPECT_EQ(times.Cells(), 14);
    const std::string date = Time::Seconds(now).FormatDate();
    EXPECT_EQ(times.TextOf(100'002), date.substr(5));
    EXPECT_EQ(times.TextOf(100'003), date.substr(11));
    EXPECT_EQ(times.TextOf(2), std::string(Time::Seconds(kNoon).FormatDate()).substr(5));
    for (int i = 0; i < 100'002; ++i)
    {
        times.LineErased(0);
    }
    EXPECT_EQ(times.Entries(), 1u);
    EXPECT_EQ(times.Cells(), 8) << "one day is left";
    EXPECT_EQ(times.TextOf(0), date.substr(11));
    {
        const ArrivalTimes::AllCame then(&times, Time::Seconds(now - 5));
        times.LineInserted(2);
    }
    {
        const ArrivalTimes::AllCame nobodyKnows(&times, Time());
        times.LineInserted(3);
    }
    times.LineInserted(4);
    EXPECT_EQ(times.Of(2), Time::Seconds(now - 5)) << "told by somebody else";
    EXPECT_FALSE(times.Of(3));
    EXPECT_EQ(times.Of(4), Time::Seconds(now));
}

TEST(LineMarksTest, ALineIsAskedForByNumberDistanceAndShare)
{
    const NumberedLines lines{65'537, 65'736, 65'600};
    const struct
    {
        const char* text;
        int64_t     line; ///< 0: none.
    } cases[] = {{"65537", 65'537},
                 {" 65736 ", 65'736},
                 {"65536", 0},
                 {"65737", 0},
                 {"1", 0},
                 {"+100", 65'700},
                 {"+ 1", 65'601},
                 {"+9223372036854775807", 65'736},
                 {"-5", 65'595},
                 {"-100000", 65'537},
                 {"0%", 65'537},
                 {"50 %", 65'636},
                 {"100%", 65'736},
                 {"101%", 0},
                 {"-5%", 0},
                 {"--5", 0},
                 {"+-5", 0},
                 {"", 0},
                 {" ", 0},
                 {"%", 0},
                 {"+", 0},
                 {"12x", 0},
                 {"99999999999999999999999", 0},
                 {"0x10", 0}};
    for (const auto& c : cases)
    {
        EXPECT_EQ(LineAskedFor(c.text, lines).value_or(0), c.line) << c.text;
    }
    EXPECT_FALSE(LineAskedFor("1", {}));
    EXPECT_FALSE(LineAskedFor("50%", {}));
}

TEST(LineSpanTest, GoesByCharactersAndByWords)
{
    const struct
    {
        const char* text;
        size_t      from;
        size_t      to;
        const char* words;
        const char* characters;
    } cases[] = {
        {"frame_12 of 240", 2, 2, "frame_12", ""},
        {"frame_12 of 240", 9, 3, "frame_12 of", "me_12 "},
        {"frame_12 of 240", 3, 99, "frame_12 of 240", "me_12 of 240"},
        {"a   b", 2, 2, "   ", ""},
        {"a->b", 1, 3, "->b", "->"},
        {"\xc3\xa4r\xc3\xa4 \xff", 4, 4, "\xc3\xa4r\xc3\xa4", ""}, // within a character
        {"x\xff\xfe y", 2, 1, "\xff\xfe", "\xff"},
        {"", 3, 5, "", ""},
    };
    for (const auto& c : cases)
    {
        const std::string text = c.text;
        for (const auto by : {SpanUnit::Words, SpanUnit::Characters})
        {
            TextSelection selection;
            selection.Click(3, 9);
            const auto at = [&](size_t byte)
            {
                const size_t place = std::min(byte, text.size());
                return by == SpanUnit::Words ? WordAt(text, place) : ByteSpan{place, place};
            };
            selection.BeginSpan(7, at(c.from), by);
            selection.DragSpan(at(c.to));
            EXPECT_TRUE(selection.IsEmpty()) << "no lines beside it";
            const ByteSpan bytes = selection.Span().Bytes();
            EXPECT_EQ(text.substr(bytes.begin, bytes.end - bytes.begin),
                      by == SpanUnit::Words ? c.words : c.characters);
            selection.LineInserted(2);
            selection.LineErased(0);
            selection.LineErased(0);
            EXPECT_EQ(selection.Span().Line(), 6);
            selection.LineErased(6);
            EXPECT_TRUE(selection.Span().IsEmpty());
            selection.BeginSpan(1, at(c.from), by);
            selection.Drag(1, 2);
            EXPECT_TRUE(selection.Span().IsEmpty()) << "nor it beside lines";
        }
    }
    const std::string endless(100'000, 'x');
    EXPECT_LT(WordAt(endless, 50'000).end, 80'000u);
}
