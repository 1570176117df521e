#include "tools/packer/black_guard.h"

#include "tests/tools/packer/random_blocks.h"
#include "tools/packer/endpoint_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using tools::packer::Dxt1Block;
using tools::packer::Rounding;
using tools::packer::Texels;
using tools::packer::withExactBlack;

namespace {

/// Texels of which black became a colour, or a colour black, by what the block stands for and not by its
/// codes.
int wrongTexels(Dxt1Block block, const Texels& texels)
{
    int wrong = 0;
    for (const Rounding rounding : {Rounding::Down, Rounding::Nearest}) {
        const Texels decoded = tools::packer::decode(block, rounding);
        for (std::size_t i = 0; i < texels.size(); ++i) {
            const bool wasBlack = texels[i][0] == 0 && texels[i][1] == 0 && texels[i][2] == 0;
            const bool isBlack = decoded[i][0] == 0 && decoded[i][1] == 0 && decoded[i][2] == 0;
            wrong += wasBlack != isBlack ? 1 : 0;
        }
    }
    return wrong;
}

Dxt1Block anyBlock(std::mt19937& random)
{
    // Endpoints of 0 and near 0 more often than chance gives them.
    const auto endpoint = [&random] {
        const auto bits = static_cast<std::uint16_t>(random());
        const std::uint16_t choices[] = {bits, bits, 0, static_cast<std::uint16_t>(bits & 0x0821)};
        return choices[random() % 4];
    };
    const std::uint16_t first = endpoint();
    return {first, endpoint(), static_cast<std::uint32_t>(random())};
}

TEST(BlackGuard, KeepsBlackExactInAnyBlock)
{
    std::mt19937 random(11);
    int repaired = 0;
    for (std::size_t i = 0; i < 120000; ++i) {
        const Texels texels = randomBlock(i % blockKinds, random);
        const Dxt1Block block = anyBlock(random);
        const Dxt1Block guarded = withExactBlack(block, texels);
        ASSERT_EQ(wrongTexels(guarded, texels), 0)
            << block.color0 << ' ' << block.color1 << ' ' << block.codes;
        repaired += guarded == block ? 0 : 1;
    }
    EXPECT_GT(repaired, 60000); // the blocks put it to the test
}

TEST(BlackGuard, LeavesABlockAloneThatKeepsBlackExact)
{
    std::mt19937 random(12);
    int kept = 0;
    for (std::size_t i = 0; i < 20000; ++i) {
        const Dxt1Block block = anyBlock(random);
        const Texels texels = tools::packer::decode(block);
        ASSERT_EQ(withExactBlack(block, texels), block);
        kept += tools::packer::keepsBlackExact(block, texels) ? 1 : 0;
    }
    EXPECT_EQ(kept, 20000);
}

TEST(BlackGuard, MakesAnAllBlackBlockOfBlackCodes)
{
    EXPECT_EQ(withExactBlack({0xFFFF, 0x1234, 0}, Texels{}), (Dxt1Block{0, 0, 0xFFFFFFFF}));
}

TEST(BlackGuard, RaisesABlackEndpointThatAColorWouldTake)
{
    Texels texels{};
    texels.fill({1, 1, 1, 255});
    const Dxt1Block guarded = withExactBlack({0, 0, 0}, texels);
    EXPECT_EQ(wrongTexels(guarded, texels), 0);
    EXPECT_EQ(tools::packer::decode(guarded)[0], (std::array<std::uint8_t, 4>{8, 4, 8, 255}));
}

TEST(BlackGuard, UsesABlackEndpointWhereThatIsNearer)
{
    // A grey ramp with black: four colours of which one is black are better than three and black.
    Texels texels{};
    for (std::size_t i = 1; i < texels.size(); ++i) {
        const auto grey = static_cast<std::uint8_t>(i % 3 == 0 ? 255 : i % 3 == 1 ? 170 : 85);
        texels[i] = {grey, grey, grey, 255};
    }
    const Dxt1Block guarded = withExactBlack({0xFFFF, 0, 0}, texels);
    EXPECT_TRUE(guarded.hasFourColors());
    EXPECT_EQ(tools::packer::squaredError(guarded, texels), 0U);
}

TEST(EndpointSearch, KeepsBlackExactAndNeverRaisesTheError)
{
    std::mt19937 random(13);
    std::uint64_t before = 0;
    std::uint64_t after = 0;
    for (std::size_t i = 0; i < 10000; ++i) {
        const Texels texels = randomBlock(i % blockKinds, random);
        const Dxt1Block block = withExactBlack(anyBlock(random), texels);
        const Dxt1Block found = tools::packer::searchEndpoints(block, texels);
        ASSERT_EQ(wrongTexels(found, texels), 0);
        ASSERT_LE(tools::packer::squaredError(found, texels), tools::packer::squaredError(block, texels));
        before += tools::packer::squaredError(block, texels);
        after += tools::packer::squaredError(found, texels);
    }
    EXPECT_LT(after, before * 3 / 5);
}

} // namespace
