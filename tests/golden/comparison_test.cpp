#include "tests/golden/comparison.h"

#include "tools/common/error.h"

#include <gmock/gmock.h>

using testing::ThrowsMessage;

namespace {

constexpr tools::picture::Size size = {100, 50};

tools::picture::RgbImage grey(std::uint8_t level)
{
    return {size, std::vector<std::uint8_t>(std::size_t{3} * size.width * size.height, level)};
}

void setPixel(tools::picture::RgbImage& picture, std::size_t x, std::size_t y, std::uint8_t level)
{
    for (std::size_t i = 0; i < 3; ++i) {
        picture.pixels[3 * (y * size.width + x) + i] = level;
    }
}

TEST(Comparison, TakesTwoStepsOfEachChannelForRounding)
{
    EXPECT_TRUE(compare(grey(100), grey(100)).isSame());
    EXPECT_TRUE(compare(grey(98), grey(100)).isSame());
    EXPECT_TRUE(compare(grey(102), grey(100)).isSame());
    EXPECT_FALSE(compare(grey(97), grey(100)).isSame());
    EXPECT_FALSE(compare(grey(103), grey(100)).isSame());
}

TEST(Comparison, LooksAtEachChannel)
{
    for (std::size_t channel = 0; channel < 3; ++channel) {
        tools::picture::RgbImage picture = grey(100);
        for (std::size_t i = channel; i < picture.pixels.size(); i += 3) {
            picture.pixels[i] = 104;
        }
        EXPECT_FALSE(compare(picture, grey(100)).isSame()) << channel;
    }
}

TEST(Comparison, ForgivesOneInAThousandPixelsATenth)
{
    tools::picture::RgbImage picture = grey(100); // of 5000 pixels
    for (std::size_t x = 0; x < 5; ++x) {
        setPixel(picture, x, 10, 125);
    }
    EXPECT_EQ(compare(picture, grey(100)).beyond, 5U);
    EXPECT_TRUE(compare(picture, grey(100)).isSame());
    setPixel(picture, 5, 10, 103);
    EXPECT_EQ(compare(picture, grey(100)).beyond, 6U);
    EXPECT_FALSE(compare(picture, grey(100)).isSame());
}

TEST(Comparison, ForgivesNoPixelMoreThanATenth)
{
    for (const std::uint8_t level : {std::uint8_t{126}, std::uint8_t{74}}) {
        tools::picture::RgbImage picture = grey(100);
        setPixel(picture, 99, 49, level);
        const Comparison found = compare(picture, grey(100));
        EXPECT_FALSE(found.isSame());
        EXPECT_EQ(found.text(), "1 of 5000 pixels differ by more than 2/255, the worst by 26/255 at 99,49");
    }
}

TEST(Comparison, ForgivesAnEdgeThatMovesOverOnePixel)
{
    tools::picture::RgbImage golden = grey(0);
    for (std::size_t y = 0; y < size.height; ++y) {
        for (std::size_t x = 50; x < size.width; ++x) {
            setPixel(golden, x, y, 255);
        }
    }
    tools::picture::RgbImage picture = golden;
    setPixel(picture, 50, 20, 0);
    setPixel(picture, 49, 30, 255);
    EXPECT_EQ(compare(picture, golden).beyond, 2U);
    EXPECT_EQ(compare(picture, golden).worst, 0);
    EXPECT_TRUE(compare(picture, golden).isSame());
    setPixel(picture, 51, 20, 0); // two pixels away from it
    EXPECT_EQ(compare(picture, golden).worst, 255);
    EXPECT_FALSE(compare(picture, golden).isSame());
}

TEST(Comparison, RefusesAnotherSize)
{
    const tools::picture::RgbImage other = {{50, 100}, grey(0).pixels};
    EXPECT_THAT([&] { compare(other, grey(0)); },
                ThrowsMessage<tools::Error>("the picture: is 50x100, expected 100x50"));
}

TEST(DifferencePicture, ShowsEachDifferenceEightfold)
{
    tools::picture::RgbImage picture = grey(100);
    setPixel(picture, 3, 4, 97);
    setPixel(picture, 5, 6, 200);
    const tools::picture::RgbImage difference = differencePicture(picture, grey(100));
    const auto at = [&](std::size_t x, std::size_t y) {
        return difference.pixels[3 * (y * size.width + x)];
    };
    EXPECT_EQ(at(3, 4), 24);
    EXPECT_EQ(at(5, 6), 255);
    EXPECT_EQ(at(7, 8), 0);
}

} // namespace
