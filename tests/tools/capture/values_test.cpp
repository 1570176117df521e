#include "tools/capture/values.h"

#include "sync/tools.h"
#include "tools/common/error.h"

#include <cmath>
#include <gmock/gmock.h>

using testing::ThrowsMessage;
using tools::Error;
using tools::Size;

namespace {

TEST(PictureSize, IsReadAsWidthAndHeight)
{
    EXPECT_EQ(tools::parsePictureSize("--size", "1920x1080"), (Size{1920, 1080}));
    EXPECT_EQ(tools::parsePictureSize("--size", "1x8192"), (Size{1, 8192}));
}

TEST(PictureSize, IsRefusedInAnyOtherForm)
{
    for (const std::string text :
         {"", "x", "1920", "0x5", "5x0", "8193x5", "-4x5", "4x5x6", "4 x5", "4X5", "4x5 ", "1e2x5"})
    {
        EXPECT_THAT([&] { tools::parsePictureSize("--size", text); },
                    ThrowsMessage<Error>("--size " + text + ": expected WIDTHxHEIGHT, each 1 to 8192"));
    }
}

TEST(Point, IsReadAsThreeNumbers)
{
    EXPECT_EQ(tools::parsePoint("--eye", "1,-0.5,2e1"), glm::vec3(1.0F, -0.5F, 20.0F));
}

TEST(Point, IsRefusedInAnyOtherForm)
{
    for (const std::string text : {"", "1", "1,2", "1,2,3,4", "1,2,x", "1,2,inf", "1, 2,3"}) {
        EXPECT_THAT([&] { tools::parsePoint("--eye", text); },
                    ThrowsMessage<Error>("--eye " + text + ": expected three numbers, as 1,0.5,-2"));
    }
}

TEST(Position, IsReadAsARowOrABar)
{
    EXPECT_EQ(tools::parseShowRow("296"), 296);
    EXPECT_EQ(tools::parseShowRow("4:2:8"), 296);
    EXPECT_EQ(tools::parseBar("4"), 256);
    EXPECT_EQ(tools::parseBar("4:2"), 288);
    EXPECT_EQ(tools::parseBar("4:2:8"), 296);
}

TEST(Position, IsRefusedWithTheReason)
{
    EXPECT_THAT([] { tools::parseShowRow("-1"); },
                ThrowsMessage<Error>("--row -1: the rows of the show count from 0"));
    EXPECT_THAT([] { tools::parseBar("4:4"); },
                ThrowsMessage<Error>("--bar 4:4: row '4:4:0': a beat is 0 to 3"));
    EXPECT_THAT([] { tools::parseBar("-4"); },
                ThrowsMessage<Error>("--bar -4: row '-4:0:0': bars count from 0"));
}

TEST(TimeOfRow, StandsOnItsRowAndNotBefore)
{
    for (int row = 0; row < 7000; ++row) {
        const double found = timeToRow(tools::timeOfRow(row));
        ASSERT_GE(found, row);
        ASSERT_NEAR(found, row, 1e-9);
    }
    EXPECT_EQ(tools::timeOfRow(0), 0.0);
}

} // namespace
