#include "sync/tools.h"

#include <gtest/gtest.h>

namespace {

TEST(TimeToRow, TakesASecondToTheDoubleNearestTo2048Over60)
{
    EXPECT_EQ(timeToRow(1.0), 0x1.1111111111111p+5);
    EXPECT_EQ(timeToRow(1.0), 34.13333333333333);
}

TEST(TimeToRow, TakesAMinuteTo2048)
{
    EXPECT_DOUBLE_EQ(timeToRow(60.0), 2048.0);
}

TEST(TimeToRow, IsOneProductOfTwoDoubles)
{
    EXPECT_EQ(timeToRow(0.1), 0x1.b4e81b4e81b4fp+1);
    EXPECT_EQ(timeToRow(0.9), 0x1.eb851eb851eb8p+4); // a bit less than by way of minutes
    EXPECT_EQ(timeToRow(-2.0), -0x1.1111111111111p+6);
    EXPECT_EQ(timeToRow(0.0), 0.0);
}

} // namespace
