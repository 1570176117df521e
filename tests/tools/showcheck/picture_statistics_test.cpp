#include "tools/showcheck/picture_statistics.h"

#include "scenes/catalogue.h"

#include <functional>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using tools::picture::Size;
using tools::showcheck::Findings;

namespace {

constexpr Size size = {192, 108}; // with bars of 13.5 rows
constexpr tools::showcheck::Place place = {0, 0.0, catalogue::scenes::room.number};

/// A picture with black bars and otherwise a grey for each place.
std::vector<std::uint8_t> picture(const std::function<int(std::uint32_t x, std::uint32_t y)>& grey)
{
    std::vector<std::uint8_t> pixels;
    for (std::uint32_t y = 0; y < size.height; ++y) {
        for (std::uint32_t x = 0; x < size.width; ++x) {
            const int value = y < 13 || y >= 95 ? 0 : grey(x, y);
            pixels.insert(pixels.end(), 3, static_cast<std::uint8_t>(value));
        }
    }
    return pixels;
}

tools::showcheck::PictureStatistics measure(const std::function<int(std::uint32_t x, std::uint32_t y)>& grey)
{
    return tools::showcheck::measurePicture(size, picture(grey));
}

std::vector<std::string> problemsOf(const tools::showcheck::PictureStatistics& statistics)
{
    Findings findings;
    tools::showcheck::judgePicture(statistics, place, findings);
    return findings.problems();
}

TEST(PictureStatistics, LeaveTheBarsOut)
{
    const tools::showcheck::PictureStatistics found = measure([](auto, auto) { return 200; });
    EXPECT_DOUBLE_EQ(found.mean, 200.0);
    EXPECT_EQ(found.black, 0.0);
    EXPECT_NEAR(found.deviation, 0.0, 1e-6);
    EXPECT_DOUBLE_EQ(found.commonestTone, 1.0);
}

TEST(PictureStatistics, MeasureHalves)
{
    const tools::showcheck::PictureStatistics found = measure([](auto x, auto) { return x < 96 ? 0 : 100; });
    EXPECT_DOUBLE_EQ(found.mean, 50.0);
    EXPECT_DOUBLE_EQ(found.black, 0.5);
    EXPECT_DOUBLE_EQ(found.deviation, 50.0);
    EXPECT_DOUBLE_EQ(found.commonestTone, 0.5);
}

TEST(PictureStatistics, WeighColoursAsEyesDo)
{
    std::vector<std::uint8_t> pixels;
    for (std::uint32_t i = 0; i < size.width * size.height; ++i) {
        pixels.insert(pixels.end(), {0, 255, 0});
    }
    EXPECT_DOUBLE_EQ(tools::showcheck::measurePicture(size, pixels).mean, 182.0); // 255 * 183 / 256
}

TEST(PictureStatistics, TakeNeighbouringLuminancesForOneTone)
{
    EXPECT_DOUBLE_EQ(measure([](auto x, auto) { return 100 + static_cast<int>(x % 12); }).commonestTone, 1.0);
    EXPECT_DOUBLE_EQ(measure([](auto x, auto) { return 100 + static_cast<int>(x % 24); }).commonestTone, 0.5);
    EXPECT_DOUBLE_EQ(measure([](auto, auto) { return 255; }).commonestTone, 1.0);
}

TEST(Picture, PassesIfItShowsSomething)
{
    EXPECT_THAT(problemsOf(measure([](auto x, auto y) { return static_cast<int>(x / 2 + y); })), IsEmpty());
    EXPECT_THAT(problemsOf({.mean = 30.0, .black = 0.3, .deviation = 12.0, .commonestTone = 0.6}), IsEmpty());
}

TEST(Picture, FailsIfItIsDark)
{
    EXPECT_THAT(problemsOf({.mean = 29.0, .black = 0.3, .deviation = 12.0, .commonestTone = 0.6}),
                ElementsAre(HasSubstr("room: the picture's mean luminance is 29.0 of 255, at least 30.0")));
}

TEST(Picture, FailsIfMuchOfItIsBlack)
{
    EXPECT_THAT(problemsOf({.mean = 30.0, .black = 0.31, .deviation = 12.0, .commonestTone = 0.6}),
                ElementsAre(HasSubstr("room: 31.0 % of the picture is black, at most 30.0 % may be")));
}

TEST(Picture, FailsWithoutContrast)
{
    EXPECT_THAT(problemsOf({.mean = 30.0, .black = 0.3, .deviation = 11.0, .commonestTone = 0.6}),
                ElementsAre(HasSubstr("luminance deviates by 11.0 of 255 from its mean, at least 12.0")));
}

TEST(Picture, FailsIfMuchOfItIsOfOneTone)
{
    EXPECT_THAT(problemsOf({.mean = 30.0, .black = 0.3, .deviation = 12.0, .commonestTone = 0.61}),
                ElementsAre(HasSubstr("61.0 % of the picture is of nearly one luminance, at most 60.0 %")));
}

TEST(Picture, FailsAsTheClearedFrameOfNoScene)
{
    EXPECT_THAT(problemsOf(measure([](auto, auto) { return 3; })), testing::SizeIs(4));
}

} // namespace
