#include "monitor/JobTable.h"
#include "monitor/FarmJobs.h"
#include "monitor/MachineLoad.h"

#include <gtest/gtest.h>

namespace
{
// Three jobs, told in the order a, b, c.
class JobTableTest : public testing::Test
{
protected:
    JobTableTest() : m_Jobs(nullptr, [](const String& type) { return type; })
    {
        Tell("a", "zebra", state_Done, 100);
        Tell("b", "Apple", state_Running, 40);
        Tell("c", "apple", state_Failed, 40);
    }
    void Tell(const String& id, const String& name, const String& state, int progress)
    {
        FarmChanges changes;
        changes.Add(Message(msg_Job)
                        .Set(p_Id, id)
                        .Set(p_Name, name)
                        .Set(p_State, state)
                        .Set(p_Progress, progress));
        m_Jobs.Apply(changes);
    }
    String Order()
    {
        m_Table.SetJobs(m_Jobs.InOrder(), Time());
        String order;
        for (int row = 0; row < m_Table.RowCount(); ++row)
        {
            EXPECT_EQ(row, m_Table.RowOf(m_Table.IdAt(row)));
            order += m_Table.IdAt(row);
        }
        return order;
    }

    FarmJobs m_Jobs;
    JobTable m_Table;
};
} // namespace

TEST_F(JobTableTest, SortsAndTurnsRound)
{
    EXPECT_EQ("cba", Order()) << "the latest first";
    m_Table.SortBy(column_Name);
    EXPECT_EQ("cba", Order()) << "without regard to case, the latest first among equals";
    m_Table.SortBy(column_Name);
    EXPECT_EQ("acb", Order());
    m_Table.SortBy(column_State);
    EXPECT_EQ("cba", Order()) << "what needs the user first";
    m_Table.SortBy(column_Progress);
    EXPECT_EQ("cba", Order());
    Tell("b", "Apple", state_Running, 41);
    EXPECT_EQ("cba", Order());
    m_Table.SortBy(99, true);
    EXPECT_EQ(-1, m_Table.SortColumn()) << "a column that there is not, from the options file";
    EXPECT_EQ(-1, m_Table.RowOf("x"));
}

TEST(MachineLoad, CountsBetweenTwoReadings)
{
    const String memory = "MemTotal:   2097152 kB\nMemFree: 1 kB\nMemAvailable:  524288 kB\n";
    MachineLoad  load;
    EXPECT_TRUE(load.Read("cpu  100 0 100 700 100 0 0 0 50 0\ncpu0 1\n", memory));
    EXPECT_EQ(0, load.ProcessorPercent()) << "nothing to compare with";
    EXPECT_EQ(1536, load.MemoryUsed());
    EXPECT_TRUE(load.Read("cpu  150 0 125 800 125 0 0 0 50 0\n", memory));
    EXPECT_FALSE(load.Read("cpu  150 0 125 800 125 0 0 0\n", "nonsense"));
    EXPECT_EQ(37, load.ProcessorPercent());
}
