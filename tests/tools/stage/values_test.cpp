#include "tools/stage/values.h"

#include "tools/common/error.h"

#include <gmock/gmock.h>

using testing::ThrowsMessage;
using tools::Error;
using tools::picture::Size;

namespace {

TEST(PictureSize, IsReadAsWidthAndHeight)
{
    EXPECT_EQ(tools::stage::parsePictureSize("--size", "1920x1080"), (Size{1920, 1080}));
    EXPECT_EQ(tools::stage::parsePictureSize("--size", "1x8192"), (Size{1, 8192}));
}

TEST(PictureSize, IsRefusedInAnyOtherForm)
{
    for (const std::string text :
         {"", "x", "1920", "0x5", "5x0", "8193x5", "-4x5", "4x5x6", "4 x5", "4X5", "4x5 ", "1e2x5"})
    {
        EXPECT_THAT([&] { tools::stage::parsePictureSize("--size", text); },
                    ThrowsMessage<Error>("--size " + text + ": expected WIDTHxHEIGHT, each 1 to 8192"));
    }
}

TEST(Point, IsReadAsThreeNumbers)
{
    EXPECT_EQ(tools::stage::parsePoint("--eye", "1,-0.5,2e1"), glm::vec3(1.0F, -0.5F, 20.0F));
}

TEST(Point, IsRefusedInAnyOtherForm)
{
    for (const std::string text : {"", "1", "1,2", "1,2,3,4", "1,2,x", "1,2,inf", "1, 2,3"}) {
        EXPECT_THAT([&] { tools::stage::parsePoint("--eye", text); },
                    ThrowsMessage<Error>("--eye " + text + ": expected three numbers, as 1,0.5,-2"));
    }
}

} // namespace
