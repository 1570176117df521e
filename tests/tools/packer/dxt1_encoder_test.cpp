#include "tools/packer/dxt1_encoder.h"

#include "tests/support/pictures.h"
#include "tests/tools/packer/random_blocks.h"

#include <cmath>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using testing::TestWithParam;
using testing::Values;
using tools::packer::Effort;
using tools::packer::encodeDxt1;
using tools::picture::RgbImage;
using tools::picture::Size;

namespace {

/// Decodes a picture straight from the words of the format, without the encoder's own functions. `bias` 0
/// rounds mixes down, 1 to the nearest.
std::vector<std::uint8_t> decodeIndependently(const std::string& blocks, Size size, unsigned bias)
{
    const auto byte = [&](std::size_t at) {
        return static_cast<unsigned>(static_cast<unsigned char>(blocks.at(at)));
    };
    std::vector<std::uint8_t> pixels(std::size_t{size.width} * size.height * 3);
    for (std::size_t y = 0; y < size.height; ++y) {
        for (std::size_t x = 0; x < size.width; ++x) {
            const std::size_t at = (y / 4 * (size.width / 4) + x / 4) * 8;
            const unsigned ends[2] = {byte(at) + 256 * byte(at + 1), byte(at + 2) + 256 * byte(at + 3)};
            const unsigned code = byte(at + 4 + y % 4) >> (2 * (x % 4)) & 3;
            for (std::size_t channel = 0; channel < 3; ++channel) {
                unsigned value[2];
                for (std::size_t end = 0; end < 2; ++end) {
                    const unsigned five = (channel == 0 ? ends[end] / 2048 : ends[end]) % 32;
                    const unsigned six = ends[end] / 32 % 64;
                    value[end] = channel == 1 ? six * 4 + six / 16 : five * 8 + five / 4;
                }
                unsigned result = 0;
                if (code < 2) {
                    result = value[code];
                } else if (ends[0] > ends[1]) {
                    result = (value[code - 2] * 2 + value[3 - code] + bias) / 3;
                } else if (code == 2) {
                    result = (value[0] + value[1] + bias) / 2;
                }
                pixels[(y * size.width + x) * 3 + channel] = static_cast<std::uint8_t>(result);
            }
        }
    }
    return pixels;
}

int wrongBlacks(const std::vector<std::uint8_t>& left, const std::vector<std::uint8_t>& right)
{
    int wrong = 0;
    for (std::size_t i = 0; i < left.size(); i += 3) {
        const bool leftBlack = left[i] == 0 && left[i + 1] == 0 && left[i + 2] == 0;
        const bool rightBlack = right[i] == 0 && right[i + 1] == 0 && right[i + 2] == 0;
        wrong += leftBlack != rightBlack ? 1 : 0;
    }
    return wrong;
}

/// A picture of random blocks of all kinds.
RgbImage stressPicture(Size size)
{
    RgbImage image{size, std::vector<std::uint8_t>(std::size_t{size.width} * size.height * 3)};
    std::mt19937 random(5);
    for (std::size_t block = 0; block < image.pixels.size() / 48; ++block) {
        const tools::packer::Texels texels = randomBlock(block % blockKinds, random);
        const std::size_t left = block % (size.width / 4) * 4;
        const std::size_t top = block / (size.width / 4) * 4;
        for (std::size_t i = 0; i < texels.size(); ++i) {
            std::memcpy(&image.pixels[((top + i / 4) * size.width + left + i % 4) * 3], texels[i].data(), 3);
        }
    }
    return image;
}

RgbImage flatPicture(Size size, std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    RgbImage image{size, {}};
    for (std::size_t i = 0; i < std::size_t{size.width} * size.height; ++i) {
        image.pixels.insert(image.pixels.end(), {red, green, blue});
    }
    return image;
}

class Dxt1Encoder : public TestWithParam<Effort> {};

TEST_P(Dxt1Encoder, KeepsBlackExactInRandomBlocks)
{
    const RgbImage image = stressPicture({1280, 1280}); // 102,400 blocks
    const std::string blocks = encodeDxt1(image, GetParam(), 2).blocks;
    ASSERT_EQ(blocks.size(), 1280U * 1280U / 2);
    for (const unsigned bias : {0U, 1U}) {
        EXPECT_EQ(wrongBlacks(image.pixels, decodeIndependently(blocks, image.size, bias)), 0);
    }
}

TEST_P(Dxt1Encoder, KeepsBlackExactInPictures)
{
    const RgbImage image = makePicture({256, 256}, 3);
    const std::string blocks = encodeDxt1(image, GetParam(), 2).blocks;
    for (const unsigned bias : {0U, 1U}) {
        EXPECT_EQ(wrongBlacks(image.pixels, decodeIndependently(blocks, image.size, bias)), 0);
    }
}

TEST_P(Dxt1Encoder, GivesTheSameBytesOnAnyNumberOfThreads)
{
    const RgbImage image = makePicture({320, 180}, 4);
    const std::string one = encodeDxt1(image, GetParam(), 1).blocks;
    for (const unsigned threads : {2U, 3U, 16U}) {
        EXPECT_EQ(encodeDxt1(image, GetParam(), threads).blocks, one);
    }
}

TEST_P(Dxt1Encoder, TellsTheErrorThatADecoderFinds)
{
    const RgbImage image = makePicture({256, 128}, 5);
    const tools::packer::Dxt1Image encoded = encodeDxt1(image, GetParam(), 2);
    const auto decoded = decodeIndependently(encoded.blocks, image.size, 0);
    std::uint64_t error = 0;
    for (std::size_t i = 0; i < decoded.size(); ++i) {
        const int difference = decoded[i] - image.pixels[i];
        error += static_cast<std::uint64_t>(difference * difference);
    }
    EXPECT_EQ(encoded.squaredError, error);
}

TEST_P(Dxt1Encoder, KeepsColorsOf565Unchanged)
{
    for (const auto& [red, green, blue] :
         {std::array<std::uint8_t, 3>{255, 255, 255}, {8, 4, 8}, {0, 0, 0}, {255, 0, 0}})
    {
        EXPECT_EQ(encodeDxt1(flatPicture({8, 8}, red, green, blue), GetParam(), 1).squaredError, 0U);
    }
}

TEST_P(Dxt1Encoder, KeepsAnyFlatColorWithinTwoLevels)
{
    std::mt19937 random(6);
    for (int i = 0; i < 300; ++i) {
        const RgbImage image = flatPicture({4, 4}, static_cast<std::uint8_t>(20 + random() % 236),
                                           static_cast<std::uint8_t>(20 + random() % 236),
                                           static_cast<std::uint8_t>(20 + random() % 236));
        const auto decoded = decodeIndependently(encodeDxt1(image, GetParam(), 1).blocks, image.size, 0);
        for (std::size_t at = 0; at < decoded.size(); ++at) {
            ASSERT_NEAR(decoded[at], image.pixels[at], 2);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Efforts, Dxt1Encoder, Values(Effort::Quick, Effort::Best),
                         [](const auto& info) { return info.param == Effort::Quick ? "Quick" : "Best"; });

TEST(Dxt1Efforts, AreWorthTheirTime)
{
    const RgbImage image = makePicture({512, 512}, 8);
    const auto decibels = [&](Effort effort) {
        return tools::packer::peakSignalToNoise(encodeDxt1(image, effort, 2).squaredError, image.size);
    };
    const double quick = decibels(Effort::Quick);
    EXPECT_GT(quick, 38.0);
    EXPECT_GT(decibels(Effort::Best), quick + 0.4);
}

TEST(PeakSignalToNoise, IsInDecibels)
{
    // Each of 3 * 4 * 4 values is off by 255: no signal. By a tenth of that: 20 dB.
    EXPECT_DOUBLE_EQ(tools::packer::peakSignalToNoise(48ULL * 255 * 255, {4, 4}), 0.0);
    EXPECT_DOUBLE_EQ(tools::packer::peakSignalToNoise(65025ULL * 48, {40, 40}), 20.0);
    EXPECT_EQ(tools::packer::peakSignalToNoise(0, {4, 4}), std::numeric_limits<double>::infinity());
}

} // namespace
