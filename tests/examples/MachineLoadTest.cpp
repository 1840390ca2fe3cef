#include "monitor/MachineLoad.h"
#include "vesta/String.h"

#include <gtest/gtest.h>

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
