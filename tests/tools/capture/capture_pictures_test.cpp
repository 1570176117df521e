#include "tests/tools/capture/capture_runs.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>

using Pixels = std::vector<std::uint8_t>;

namespace {

constexpr std::size_t width = 160;
constexpr std::size_t height = 90;
constexpr std::size_t bar = 11; // (90 - 160 * 27 / 64) / 2 = 11.25, measured at the pixels' middles

/// Share of the channels in which two pictures differ by more than what rounding can do.
double difference(const Pixels& left, const Pixels& right)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        count += std::abs(left[i] - right[i]) > 3 ? 1 : 0;
    }
    return static_cast<double>(count) / static_cast<double>(left.size());
}

/// True if all of the rows are black, counted from the top. The bar's own edge may be 1 of 255: filtering
/// lets in a trace of the row beside it, which the gamma lifts.
bool isBlack(const Pixels& pixels, std::size_t first, std::size_t end)
{
    const auto at = [&](std::size_t row) {
        return pixels.begin() + static_cast<std::ptrdiff_t>(3 * width * row);
    };
    return std::all_of(at(first), at(end), [](std::uint8_t level) { return level <= 1; });
}

double shareAbove(const Pixels& pixels, int level)
{
    const auto count = std::count_if(pixels.begin(), pixels.end(), [&](std::uint8_t l) { return l > level; });
    return static_cast<double>(count) / static_cast<double>(pixels.size());
}

class CapturePictures : public CaptureRuns {};

TEST_F(CapturePictures, ShowEachSceneUnlikeTheOthers)
{
    std::map<std::string, Pixels> pictures;
    for (const char* const scene : {"room", "credits", "bottle", "burger", "toilet", "people"}) {
        pictures[scene] = pixelsOfScene(scene);
        EXPECT_GT(shareAbove(pictures[scene], 30), 0.15) << scene;
    }
    for (const auto& [name, pixels] : pictures) {
        for (const auto& [otherName, other] : pictures) {
            EXPECT_TRUE(name == otherName || difference(pixels, other) > 0.2) << name << " and " << otherName;
        }
    }
}

TEST_F(CapturePictures, AreTheSameEachTime)
{
    for (const char* const scene : {"room", "people"}) {
        EXPECT_EQ(pixelsOfScene(scene), pixelsOfScene(scene)) << scene;
    }
    ASSERT_EQ(capture("still --bar 2:1 --size 160x90 a.png").status, 0);
    ASSERT_EQ(capture("still --bar 2:1 --size 160x90 b.png").status, 0);
    EXPECT_EQ(read("a.png"), read("b.png"));
}

TEST_F(CapturePictures, HaveBarsInTheScenesOfSpace)
{
    for (const char* const scene : {"room", "bottle", "burger", "toilet", "people"}) {
        const Pixels pixels = pixelsOfScene(scene);
        EXPECT_TRUE(isBlack(pixels, 0, bar)) << scene;
        EXPECT_FALSE(isBlack(pixels, bar, bar + 1)) << scene;
        EXPECT_FALSE(isBlack(pixels, height - bar - 1, height - bar)) << scene;
        EXPECT_TRUE(isBlack(pixels, height - bar, height)) << scene;
    }
}

TEST_F(CapturePictures, HaveTheTitleUprightAndWithoutBars)
{
    // 60ths of the picture: a bar of mustard from 20 to 34, one of teal from 48 to 50.
    const Pixels pixels = pixelsOfScene("credits");
    const auto at = [&](std::size_t row) {
        return &pixels[3 * (row * width + width / 2)];
    };
    EXPECT_GT(at(40)[0], at(40)[2] + 50);
    EXPECT_LT(at(73)[0], at(73)[2] - 20);
    EXPECT_TRUE(isBlack(pixels, 0, 29)); // the title itself is so
    const ToolResult result = capture("scene --scene credits --size 160x90 c.png");
    EXPECT_EQ(result.status, 0);
}

TEST_F(CapturePictures, FollowAnOverriddenTrack)
{
    const Pixels without = pixelsOfScene("burger");
    const Pixels with = pixelsOfScene("burger", " --set burger_text=1");
    EXPECT_GT(difference(without, with), 0.05);
    EXPECT_EQ(with, pixelsOfScene("burger", " --set burger_text=2")); // only its sign counts
    EXPECT_GT(difference(pixelsOfScene("toilet"), pixelsOfScene("toilet", " --set lid_rotate=-0.5")), 0.001);
    EXPECT_GT(difference(pixelsOfScene("people"), pixelsOfScene("people", " --time 1")),
              0.05); // the text waves
}

TEST_F(CapturePictures, PlaceThePeoplesCameraAsItsTracksDo)
{
    const Pixels eye = pixelsOf("scene --scene people --eye 0,0.5,3 --target 0,0.2,0");
    const Pixels tracks = pixelsOf("scene --scene people --target 0,0.2,0 --set camera_pos_x=0.50025363"
                                   " --set camera_pos_y=0.5 --set camera_pos_z=3");
    EXPECT_LT(difference(eye, tracks), 0.001);
}

TEST_F(CapturePictures, ShowTheSceneThatTheTimelineSelects)
{
    const std::string sameCamera = " --eye 0,0.5,3 --target 0,0,0";
    EXPECT_EQ(pixelsOf("still --bar 0"), pixelsOf("scene --scene room" + sameCamera));
    EXPECT_EQ(pixelsOf("still --bar 2"), pixelsOf("scene --scene burger --bar 2" + sameCamera));
    EXPECT_EQ(pixelsOf("still --row 128"), pixelsOf("still --bar 2"));
    EXPECT_EQ(pixelsOf("still --time 3.76"), pixelsOf("scene --scene burger --time 3.76" + sameCamera));
    EXPECT_EQ(pixelsOf("still --row 127"), pixelsOf("scene --scene bottle --row 127" + sameCamera));
}

TEST_F(CapturePictures, AreTheClearedFrameWhereNoSceneIsSelected)
{
    const Pixels cleared(3 * width * height, 3); // 0.01 of 255
    EXPECT_EQ(pixelsOf("still --bar 6"), cleared);
    EXPECT_EQ(pixelsOf("still --bar 7"), cleared); // the end
}

TEST_F(CapturePictures, AreNotChangedByTheFramesBefore)
{
    const ToolResult result = capture("sheet --every 1 --to 7 --columns 8 --size 160x90 sheet.rgb");
    ASSERT_EQ(result.status, 0) << result.error;
    const std::string sheet = read("sheet.rgb");
    const std::size_t sheetWidth = 4 + 8 * 164;
    ASSERT_EQ(sheet.size(), 3 * sheetWidth * (4 + 90 + 11 + 4));
    for (std::size_t i = 0; i < 8; ++i) {
        Pixels inSheet;
        for (std::size_t y = 0; y < height; ++y) {
            const char* const row = sheet.data() + 3 * ((4 + y) * sheetWidth + 4 + i * 164);
            inSheet.insert(inSheet.end(), row, row + 3 * width);
        }
        EXPECT_EQ(inSheet, pixelsOf("still --bar " + std::to_string(i))) << "bar " << i;
    }
}

} // namespace
