#include "tolvan/CommandInfo.h"
#include "tolvan/Job.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

CommandInfo Command(const String& items, const String& states)
{
    CommandInfo command;
    command.name = "Kill";
    command.flags = cmd_Job;
    command.items = items;
    command.states = states;
    return command;
}

TEST(CommandInfo, DisablesItemsOrNameByTheJobsState)
{
    const struct
    {
        const char* items;
        const char* states;
        const char* itemized; ///< For a job that runs.
        const char* name;
    } cases[] = {
        {"Low;High", "", "Low;High", "Kill"},
        {"Low;High", "Waiting; running ", "Low;High", "Kill"},
        {"Low;High", "Waiting", "DISABLED:Low;DISABLED:High", "Kill"},
        {"DISABLED:Low;High", "Waiting", "DISABLED:Low;DISABLED:High", "Kill"},
        {"\"a;b\";c\\\\d", "Running", "\"a;b\";c\\\\d", "Kill"},
        {"", "Running", "", "Kill"},
        {"", "", "", "Kill"},
        {"", "Waiting", "", "DISABLED:Kill"},
    };
    Job job;
    EXPECT_EQ(Command("", "Running").ForJob(job).name, "DISABLED:Kill") << "no state";
    job.SetParam(p_State, state_Running);
    for (const auto& one : cases)
    {
        EXPECT_EQ(Command(one.items, one.states).Itemize(job), one.itemized);
        EXPECT_EQ(Command(one.items, one.states).ForJob(job).name, one.name);
    }
    // What is disabled must still come apart into the same items.
    const String disabled = Command("\"a;b\";c\\\\d;e\\\"f", "Done").Itemize(job);
    EXPECT_EQ(StringTokenizer::Split(disabled, ";"),
              (std::vector<String>{"DISABLED:a;b", "DISABLED:c\\d", "DISABLED:e\"f"}));
}

} // namespace
