#include "monitor/FarmText.h"
#include "monitor/FarmFeed.h"

#include "tolvan/Job.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<String>;

const Time kNow = Time::Seconds(1000000);

Message JobMessage(const String& state, int progress)
{
    Message message(msg_Job);
    message.Set(p_Id, "1").Set(p_Name, "Sky").Set(p_State, state).Set(p_Progress, progress);
    message.Set(p_Host, "node7").Set(p_Started, 5000000LL).Set(p_Ended, 17000000LL);
    return message;
}

// Without the time of day.
Lines TextsFor(FarmText& text, const Message& message)
{
    Lines lines = text.LinesFor(message, kNow);
    for (String& line : lines)
    {
        line = line.substr(kNow.FormatClock().size() + 2);
    }
    return lines;
}
} // namespace

TEST(FarmText, TellsStartMilestonesOutputAndEnd)
{
    FarmText text;
    EXPECT_EQ(Lines{"Job 'Sky' waits for a free slot"},
              TextsFor(text, JobMessage(state_Waiting, 0)));
    EXPECT_EQ(Lines{"Job 'Sky' runs on node7"}, TextsFor(text, JobMessage(state_Running, 0)));
    EXPECT_EQ(Lines{}, TextsFor(text, JobMessage(state_Running, 9)));
    EXPECT_EQ(Lines{"Job 'Sky' has done 31 %"}, TextsFor(text, JobMessage(state_Running, 31)));
    EXPECT_EQ(Lines{}, TextsFor(text, JobMessage(state_Running, 39)));
    const String bytes("a\0\xff z", 5);
    EXPECT_EQ(Lines{"[Sky] " + bytes},
              TextsFor(text, Message(msg_Output).Set(p_Id, "1").Set("Line", bytes)));
    const String progress = text.LinesFor(
        Message(msg_Output).Set(p_Id, "1").Set("Line", "1 %\r2 %\r\x1b[Kdone\r"), kNow)[0];
    const String head = kNow.FormatClock() + "  [Sky] ";
    EXPECT_EQ(progress, head + "1 %\r" + head + "2 %\r" + head + "\x1b[Kdone\r")
        << "what is written over the line's start leaves its head";
    EXPECT_EQ(Lines{"Job 'Sky' is done after 12s"}, TextsFor(text, JobMessage(state_Done, 100)));
    EXPECT_EQ(Lines{"Job 'Sky' was killed before it ran"},
              TextsFor(text, JobMessage(state_Killed, 0).Set(p_Started, 0LL)));
    EXPECT_EQ(Lines{"Job 'Sky' failed: No such program"},
              TextsFor(text, JobMessage(state_Failed, 0).Set(p_Error, "No such program")));
}

TEST(FarmText, WhatIsToldLateCarriesItsOwnTimeAndIsToldOnce)
{
    FarmText   text;
    Message    job = JobMessage(state_Done, 100);
    const Time day = Time::Seconds(24 * 3600);
    job.Set(p_Changed, (kNow - Time::Seconds(60)).ToMicroseconds());
    EXPECT_EQ(Lines{(kNow - Time::Seconds(60)).FormatClock() + "  Job 'Sky' is done after 12s"},
              text.LinesFor(job, kNow));
    for (int connection = 0; connection < 2; ++connection)
    {
        for (const Time came : {kNow - day - day, kNow - Time::Seconds(5)})
        {
            Message line(msg_Output);
            line.Set(p_Id, "1").Set("Line", "x").Set("Time", came.ToMicroseconds());
            EXPECT_EQ(connection > 0, text.IsRepeated(line));
            const String stamp = kNow - came < day ? came.FormatClock() : came.FormatDate();
            EXPECT_EQ(Lines{stamp + "  [Sky] x"}, text.LinesFor(line, kNow));
        }
    }
}

TEST(FarmFeed, WakesOnceForAllThatWaits)
{
    int      wakes = 0;
    FarmFeed feed([&wakes] { ++wakes; });
    for (int i = 0; i < 5; ++i)
    {
        feed.OnConnection(i % 2 == 0);
    }
    EXPECT_EQ(1, wakes);
    FarmFeed::Batch batch = feed.Take(3);
    EXPECT_EQ(3u, batch.lines.size());
    EXPECT_TRUE(batch.more);
    feed.OnConnection(true);
    EXPECT_EQ(1, wakes); // whoever was told of more comes back by itself
    batch = feed.Take(10);
    EXPECT_EQ(3u, batch.lines.size());
    EXPECT_FALSE(batch.more);
    feed.OnMessage(JobMessage(state_Waiting, 0));
    EXPECT_EQ(2, wakes);
    EXPECT_EQ(1u, feed.Take(10).changes.jobs.size());
    Message line(msg_Output);
    line.Set(p_Id, "1").Set("Line", "x").Set("Time", Time::Seconds(5).ToMicroseconds());
    feed.OnMessage(line);
    batch = feed.Take(10);
    EXPECT_EQ(Time::Seconds(5), batch.lines.back().came) << "not the time of its coming here";
    EXPECT_EQ(Time::Seconds(5), batch.changes.output["1"].lines.back().came);
}
