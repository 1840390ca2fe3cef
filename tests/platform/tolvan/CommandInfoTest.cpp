#include "tolvan/CommandInfo.h"
#include "tolvan/Job.h"
#include "vesta/Exception.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

CommandInfo Command(const String& name, const String& items, const String& states)
{
    CommandInfo command;
    command.name = name;
    command.flags = cmd_Job;
    command.items = items;
    command.states = states;
    return command;
}

TEST(CommandInfo, DisablesItemsByTheJobsState)
{
    Job job;
    job.SetParam(p_State, state_Running);
    const struct
    {
        const char* items;
        const char* states;
        const char* expected;
    } cases[] = {
        {"Low;High", "", "Low;High"},
        {"Low;High", "Waiting; running ", "Low;High"},
        {"Low;High", "Waiting", "DISABLED:Low;DISABLED:High"},
        {"DISABLED:Low;High", "Waiting", "DISABLED:Low;DISABLED:High"},
        {"\"a;b\";c\\\\d", "Running", "\"a;b\";c\\\\d"},
        {"", "Waiting", ""},
    };
    for (const auto& one : cases)
    {
        EXPECT_EQ(Command("C", one.items, one.states).Itemize(job), one.expected);
    }
    // What is disabled must still come apart into the same items.
    const String disabled = Command("C", "\"a;b\";c\\\\d;e\\\"f", "Done").Itemize(job);
    EXPECT_EQ(StringTokenizer::Split(disabled, ";"),
              (std::vector<String>{"DISABLED:a;b", "DISABLED:c\\d", "DISABLED:e\"f"}));
}

TEST(CommandInfo, DisablesACommandWithoutItemsByItsName)
{
    Job job;
    EXPECT_EQ(Command("Kill", "", "Running").ForJob(job).name, "DISABLED:Kill") << "no state";
    job.SetParam(p_State, state_Done);
    EXPECT_EQ(Command("Kill", "", "Running").ForJob(job).name, "DISABLED:Kill");
    EXPECT_EQ(Command("Kill", "a;b", "Running").ForJob(job).name, "Kill");
    EXPECT_EQ(Command("Kill", "", "").ForJob(job).name, "Kill");
    job.SetParam(p_State, state_Running);
    EXPECT_EQ(Command("Kill", "", "Running").ForJob(job).name, "Kill");
    EXPECT_EQ(Command("DISABLED:Kill", "", "Done").ForJob(job).name, "DISABLED:Kill");
}

TEST(Job, TakesItsParametersFromMessages)
{
    Job job;
    job.SetParam(p_Host, "here");
    job.Update(Message(msg_Output).Set(p_Name, "no job"));
    job.Update(Message(msg_Job).Set(p_Id, "7").Set(p_Name, "frames"));
    EXPECT_EQ(job.GetParam(p_Id), "7");
    EXPECT_EQ(job.GetParam(p_Name), "frames");
    EXPECT_EQ(job.GetParam(p_Host), "here") << "what is not mentioned stays";
    EXPECT_EQ(job.GetParam("nothing"), "");
    EXPECT_EQ(job.Params().size(), 3u);
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
    job.SetParam(p_Name, "frames");
    job.DoCommand("Priority", "High");
    job.DoCommand("Kill", "");
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0].Type(), msg_Command);
    EXPECT_EQ(sent[0].Get("ID"), "7");
    EXPECT_EQ(sent[0].Get("Command"), "Priority");
    EXPECT_EQ(sent[0].Get("Item"), "High");
    EXPECT_FALSE(sent[0].Get("Request").empty());
    EXPECT_NE(sent[0].Get("Request"), sent[1].Get("Request"));

    isReachable = false;
    Job unconnected;
    for (Job* const one : {&job, &unconnected})
    {
        try
        {
            one->DoCommand("Kill", "");
            ADD_FAILURE() << "it was not sent";
        }
        catch (Exception* exception)
        {
            EXPECT_EQ(exception->Code(), ec_Refused);
            EXPECT_NE(exception->Text2().find("Kill"), String::npos) << exception->Text2();
            delete exception;
        }
    }
}

} // namespace
