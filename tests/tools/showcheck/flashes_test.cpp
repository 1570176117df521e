#include "tools/showcheck/flashes.h"

#include "tools/common/error.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// The badness of frames that are grey all over, of so many a second.
std::vector<double> badnessOf(int frames, const std::function<int(int frame)>& grey, int fps = 24)
{
    const tools::video::VideoFormat format{{96, 54}, fps};
    tools::showcheck::FlashMeter meter(format);
    for (int frame = 0; frame < frames; ++frame) {
        meter.add(
            std::vector<std::uint8_t>(std::size_t{96} * 54 * 3, static_cast<std::uint8_t>(grey(frame))));
    }
    return meter.finish();
}

double worstOf(const std::vector<double>& figures)
{
    return *std::max_element(figures.begin(), figures.end());
}

TEST(Flashes, AreNoneInAStill)
{
    EXPECT_THAT(badnessOf(30, [](int) { return 200; }), testing::AllOf(SizeIs(30), Each(0.0)));
}

TEST(Flashes, AreNoneWithoutFrames)
{
    EXPECT_THAT(badnessOf(0, [](int) { return 0; }), IsEmpty());
}

TEST(Flashes, FadeWithinASecond)
{
    const std::vector<double> figures = badnessOf(60, [](int frame) { return frame < 12 ? 100 : 155; });
    EXPECT_EQ(figures[11], 0.0);
    EXPECT_GT(figures[12], 0.5);
    EXPECT_LT(figures[23], figures[12]);
    EXPECT_EQ(figures[36], 0.0);
}

TEST(Flashes, MayBeACutBetweenAnyGreys)
{
    EXPECT_LT(worstOf(badnessOf(48, [](int frame) { return frame < 12 ? 40 : 220; })),
              tools::showcheck::mostBadness);
}

TEST(Flashes, MayNotBeThreeASecond)
{
    const auto threeASecond = [](int frame) {
        return frame / 4 % 2 == 0 ? 100 : 155;
    };
    EXPECT_GT(worstOf(badnessOf(72, threeASecond)), tools::showcheck::mostBadness);
}

TEST(Flashes, MayNotBeOneOfBlackAndWhite)
{
    EXPECT_GT(worstOf(badnessOf(72, [](int frame) { return frame < 24 || frame >= 36 ? 0 : 255; })),
              tools::showcheck::mostBadness);
}

TEST(Flashes, AreAsBadAtAnyRateOfFrames)
{
    const auto flashing = [](int framesAFlash) {
        return [framesAFlash](int frame) {
            return frame * 2 / framesAFlash % 2 == 0 ? 100 : 155;
        };
    };
    const double slow = worstOf(badnessOf(72, flashing(8), 24));
    EXPECT_NEAR(worstOf(badnessOf(180, flashing(20), 60)), slow, 0.1 * slow);
}

TEST(Badness, IsReadForEachFrame)
{
    EXPECT_THAT(tools::showcheck::readBadness("frame:0    pts:0       pts_time:0\n"
                                              "lavfi.photosensitivity.badness=1.974121\n"
                                              "lavfi.photosensitivity.fixed-badness=8.0\n"
                                              "lavfi.photosensitivity.frame-badness=9.0\n"
                                              "frame:1    pts:1       pts_time:0.0416667\n"
                                              "lavfi.photosensitivity.badness=0.5\n"),
                ElementsAre(1.974121, 0.5));
}

TEST(FlashMeter, NamesFfmpegIfThatObjects)
{
    tools::showcheck::FlashMeter meter({{0, 0}, 24});
    EXPECT_THROW(meter.finish(), tools::Error);
}

} // namespace
