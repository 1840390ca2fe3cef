#include "tolvan/CommandInfo.h"
#include "tests/support/Thrown.h"
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

TEST(Job, TakesItsParametersFromMessages)
{
    Job job;
    job.SetParam(p_Host, "here");
    job.Update(Message(msg_Output).Set(p_Name, "no job"));
    job.Update(Message(msg_Job).Set(p_Id, "7"));
    EXPECT_EQ(job.GetParam(p_Id), "7");
    EXPECT_EQ(job.GetParam(p_Host), "here") << "what is not mentioned stays";
    EXPECT_EQ(job.Params().size(), 2u);
}

TEST(Job, SendsItsCommands)
{
    std::vector<Message> sent;
    bool                 isReachable = true;
    Job                  job(
        [&](const Message& message)
        {
            sent.push_back(message);
            return isReachable;
        });
    job.SetParam(p_Id, "7");
    job.DoCommand("Priority", "High");
    job.DoCommand("Kill", "");
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0].Type(), msg_Command);
    EXPECT_EQ(sent[0].Get("ID"), "7");
    EXPECT_EQ(sent[0].Get("Command"), "Priority");
    EXPECT_EQ(sent[0].Get("Item"), "High");
    EXPECT_NE(sent[0].Get("Request"), sent[1].Get("Request"));

    isReachable = false;
    Job unconnected;
    for (Job* const one : {&job, &unconnected})
    {
        const auto exception = Thrown([one] { one->DoCommand("Kill", ""); });
        ASSERT_TRUE(exception);
        EXPECT_EQ(exception->Code(), ec_Refused);
        EXPECT_NE(exception->Text2().find("Kill"), String::npos) << exception->Text2();
    }
}

} // namespace
