#include "tools/stage/progress.h"

#include <gtest/gtest.h>

namespace {

TEST(Progress, IsToldInWordsThatFit)
{
    EXPECT_EQ(tools::stage::progressText(1200, 10913, 5.2148),
              "frame 1200 of 10913, 5.21 frames/s, 32 min left");
    EXPECT_EQ(tools::stage::progressText(1, 10913, 0.5), "frame 1 of 10913, 0.5 frames/s, 6 h 4 min left");
    EXPECT_EQ(tools::stage::progressText(10, 100, 2.0), "frame 10 of 100, 2 frames/s, 45 s left");
    EXPECT_EQ(tools::stage::progressText(100, 100, 123.4), "frame 100 of 100, 123 frames/s, 0 s left");
}

} // namespace
