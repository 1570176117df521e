#include "tools/showcheck/seen_rows.h"

#include <gtest/gtest.h>

namespace {

TEST(SeenRows, LieBetweenTheBars)
{
    EXPECT_EQ(tools::showcheck::seenRows({1920, 1080}).first, 135U);
    EXPECT_EQ(tools::showcheck::seenRows({1920, 1080}).end, 945U);
    EXPECT_EQ(tools::showcheck::seenRows({192, 108}).first, 13U);
    EXPECT_EQ(tools::showcheck::seenRows({192, 108}).end, 95U);
    EXPECT_EQ(tools::showcheck::seenRows({640, 270}).first, 0U);
    EXPECT_EQ(tools::showcheck::seenRows({640, 200}).end, 200U);
}

} // namespace
