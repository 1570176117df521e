#include "tools/packer/dxt1_block.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using tools::packer::Dxt1Block;
using tools::packer::paletteOf;
using tools::packer::Rounding;

namespace {

TEST(Dxt1Block, HasTwoMixesBetweenEndpointsInFallingOrder)
{
    const auto palette = paletteOf({0xFFFF, 0x0000, 0});
    EXPECT_THAT(palette[0], ElementsAre(255, 255, 255));
    EXPECT_THAT(palette[1], ElementsAre(0, 0, 0));
    EXPECT_THAT(palette[2], ElementsAre(170, 170, 170));
    EXPECT_THAT(palette[3], ElementsAre(85, 85, 85));
}

TEST(Dxt1Block, HasOneMixAndBlackBesideEndpointsInRisingOrder)
{
    const auto palette = paletteOf({0x0821, 0xF800, 0});
    EXPECT_THAT(palette[0], ElementsAre(8, 4, 8));
    EXPECT_THAT(palette[1], ElementsAre(255, 0, 0));
    EXPECT_THAT(palette[2], ElementsAre(131, 2, 4));
    EXPECT_THAT(palette[3], ElementsAre(0, 0, 0));
}

TEST(Dxt1Block, HasOneMixAndBlackBesideEqualEndpoints)
{
    const auto palette = paletteOf({0x0020, 0x0020, 0});
    EXPECT_THAT(palette[2], ElementsAre(0, 4, 0));
    EXPECT_THAT(palette[3], ElementsAre(0, 0, 0));
}

TEST(Dxt1Block, MixesRoundAsAsked)
{
    // Thirds of 255, 0 and 8: 2 * 255 + 8 leaves 2, 255 + 2 * 8 leaves 1.
    const Dxt1Block block = {0xF800, 0x0800, 0};
    EXPECT_EQ(paletteOf(block, Rounding::Down)[2][0], 172);
    EXPECT_EQ(paletteOf(block, Rounding::Nearest)[2][0], 173);
    EXPECT_EQ(paletteOf(block, Rounding::Down)[3][0], 90);
    EXPECT_EQ(paletteOf(block, Rounding::Nearest)[3][0], 90);
}

TEST(Dxt1Block, HasTheFirstTexelInItsLowestCode)
{
    const auto texels = tools::packer::decode({0xFFFF, 0x0000, 0x40000001});
    EXPECT_THAT(texels[0], ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(texels[1], ElementsAre(255, 255, 255, 255));
    EXPECT_THAT(texels[15], ElementsAre(0, 0, 0, 0));
}

TEST(Dxt1Block, LiesInMemoryAsInTheFile)
{
    const Dxt1Block block = {0x0201, 0x0403, 0x08070605};
    unsigned char bytes[8];
    std::memcpy(bytes, &block, sizeof bytes);
    EXPECT_THAT(bytes, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST(Dxt1Block, ErrorIsTheSumOfSquares)
{
    tools::packer::Texels texels{};
    texels[3] = {3, 0, 4, 255};
    texels[9] = {0, 2, 0, 255};
    EXPECT_EQ(tools::packer::squaredError({0, 0, 0}, texels), 29U);
}

} // namespace
