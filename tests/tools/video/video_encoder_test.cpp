#include "tools/video/video_encoder.h"

#include "tests/support/in_temporary_folder.h"
#include "tests/tools/video/decoded.h"
#include "tools/common/error.h"
#include "tools/video/cancel_signals.h"
#include "tools/video/probe.h"

#include <csignal>
#include <gmock/gmock.h>

using testing::ThrowsMessage;
using tools::Error;
using tools::picture::RgbImage;
using tools::picture::Size;
using tools::video::VideoEncoder;
using tools::video::VideoFormat;

namespace {

struct Colour {
    int red;
    int green;
    int blue;
};

// The corners of the cube, its middle, and what lies between.
// clang-format off
constexpr Colour colours[] = {
    {0,   0,   0},   {255, 255, 255}, {255, 0,   0},   {0,   255, 0},
    {0,   0,   255}, {255, 255, 0},   {255, 0,   255}, {0,   255, 255},
    {128, 128, 128}, {191, 0,   0},   {0,   191, 0},   {0,   0,   191},
    {64,  128, 192}, {3,   3,   3},   {250, 200, 20},  {20,  90,  60},
};
// clang-format on
constexpr std::uint32_t barWidth = 16;
constexpr Size barsSize = {barWidth * std::size(colours), 64};

class VideoEncoders : public InTemporaryFolder {
protected:
    static void fill(std::vector<std::uint8_t>& pixels, Size size, auto colourAt)
    {
        for (std::uint32_t y = 0; y < size.height; ++y) {
            for (std::uint32_t x = 0; x < size.width; ++x) {
                const Colour colour = colourAt(x, y);
                std::uint8_t* const pixel = &pixels[3 * (std::size_t{y} * size.width + x)];
                pixel[0] = static_cast<std::uint8_t>(colour.red);
                pixel[1] = static_cast<std::uint8_t>(colour.green);
                pixel[2] = static_cast<std::uint8_t>(colour.blue);
            }
        }
    }

    /// Writes a video; `colourAt` is asked for frame, column, and row from the bottom.
    static void encode(const VideoFormat& format, int count, auto colourAt)
    {
        VideoEncoder encoder(format, "v.mp4", "a comment");
        for (int i = 0; i < count; ++i) {
            fill(encoder.frame(), format.size,
                 [&](std::uint32_t x, std::uint32_t y) { return colourAt(i, x, y); });
            encoder.send();
        }
        encoder.finish();
    }

    /// The largest difference of a channel from that of its bar, but for the pixels beside another bar.
    static int largestError(const RgbImage& frame)
    {
        int largest = 0;
        for (std::uint32_t y = 0; y < frame.size.height; ++y) {
            for (std::uint32_t x = 0; x < frame.size.width; ++x) {
                const Colour& wanted = colours[x / barWidth];
                const std::uint8_t* const pixel = &frame.pixels[3 * (std::size_t{y} * frame.size.width + x)];
                if (x % barWidth >= 4 && x % barWidth < barWidth - 4) {
                    largest = std::max({largest, std::abs(pixel[0] - wanted.red),
                                        std::abs(pixel[1] - wanted.green), std::abs(pixel[2] - wanted.blue)});
                }
            }
        }
        return largest;
    }
};

TEST_F(VideoEncoders, BringColoursBackWithinTwoLevels)
{
    encode({barsSize, 24}, 12, [](int, std::uint32_t x, std::uint32_t) { return colours[x / barWidth]; });
    // As any program decodes it that knows no more than what the file says; and as well as it can.
    for (const char* const options : {"", "-vf scale=flags=accurate_rnd+full_chroma_int+full_chroma_inp"}) {
        const std::vector<RgbImage> frames = decodeFrames("v.mp4", barsSize, 24, options);
        ASSERT_EQ(frames.size(), 12U);
        for (const RgbImage& frame : frames) {
            EXPECT_LE(largestError(frame), 2) << options;
        }
    }
}

TEST_F(VideoEncoders, SayWhatTheColoursAre)
{
    encode({barsSize, 24}, 1, [](int, std::uint32_t x, std::uint32_t) { return colours[x / barWidth]; });
    EXPECT_EQ(tools::video::probe("v.mp4").picture.colours, "tv bt709 bt709 bt709");
}

TEST_F(VideoEncoders, PutEachFrameAtItsTime)
{
    for (const int fps : {24, 59, 119}) {
        const auto brightness = [](int i) {
            return i * 37 % 200 + 20;
        };
        const VideoFormat format{{32, 18}, fps};
        encode(format, 30, [&](int i, std::uint32_t, std::uint32_t) {
            return Colour{brightness(i), brightness(i), brightness(i)};
        });
        const tools::video::Probe found = tools::video::probe("v.mp4");
        EXPECT_NO_THROW(tools::video::checkVideo(found, "v.mp4", format, 30, false));
        const std::vector<RgbImage> frames = decodeFrames("v.mp4", format.size, fps);
        ASSERT_EQ(frames.size(), 30U) << fps;
        for (int i = 0; i < 30; ++i) {
            EXPECT_NEAR(frames[static_cast<std::size_t>(i)].pixels[300], brightness(i), 4)
                << i << " at " << fps;
        }
    }
}

TEST_F(VideoEncoders, TakeRowsFromTheBottom)
{
    encode({{32, 32}, 24}, 1, [](int, std::uint32_t, std::uint32_t y) {
        return y < 16 ? Colour{255, 0, 0} : Colour{0, 0, 255};
    });
    const std::vector<RgbImage> frames = decodeFrames("v.mp4", {32, 32}, 24);
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_GT(frames[0].pixels[2], 250);                        // blue above
    EXPECT_GT(frames[0].pixels[std::size_t{3} * 31 * 32], 250); // red below
}

TEST_F(VideoEncoders, KeepTheComment)
{
    encode({{32, 18}, 24}, 1, [](int, std::uint32_t, std::uint32_t) { return Colour{9, 9, 9}; });
    EXPECT_EQ(tools::video::probe("v.mp4").comment, "a comment");
}

TEST_F(VideoEncoders, PassOnWhatFfmpegObjectsTo)
{
    EXPECT_THAT(
        [] {
            VideoEncoder encoder({{32, 18}, 24}, "none/v.mp4", "");
            for (int i = 0; i < 2000; ++i) { // more than pipe and buffers hold
                encoder.frame();
                encoder.send();
            }
            encoder.finish();
        },
        ThrowsMessage<Error>("ffmpeg: none/v.mp4: No such file or directory"));
}

TEST_F(VideoEncoders, EndWithoutAFileThatCouldBeTakenForWhole)
{
    {
        VideoEncoder encoder({{32, 18}, 24}, "v.mp4", "");
        encoder.frame();
        encoder.send();
    }
    EXPECT_THROW(tools::video::probe("v.mp4"), Error);
}

struct BadVideo {
    const char* name;
    std::int64_t frames;
    VideoFormat format;
    bool sound;
    const char* sentence;
};

// clang-format off
constexpr BadVideo badVideos[] = {
    {"TooFew",    4, {{32, 18}, 24}, false, "v.mp4: holds 3 frames, expected 4"},
    {"TooMany",   2, {{32, 18}, 24}, false, "v.mp4: holds 3 frames, expected 2"},
    {"WrongSize", 3, {{36, 18}, 24}, false, "v.mp4: holds pictures of 32x18, expected 36x18"},
    {"WrongRate", 3, {{32, 18}, 25}, false, "v.mp4: frame 1 does not stand at 1/25 seconds"},
    {"NoSound",   3, {{32, 18}, 24}, true,  "v.mp4: holds no sound"},
};
// clang-format on

TEST_F(VideoEncoders, AreCheckedForEachFault)
{
    encode({{32, 18}, 24}, 3, [](int, std::uint32_t, std::uint32_t) { return Colour{9, 9, 9}; });
    const tools::video::Probe found = tools::video::probe("v.mp4");
    EXPECT_NO_THROW(tools::video::checkVideo(found, "v.mp4", {{32, 18}, 24}, 3, false));
    for (const BadVideo& bad : badVideos) {
        EXPECT_THAT([&] { tools::video::checkVideo(found, "v.mp4", bad.format, bad.frames, bad.sound); },
                    ThrowsMessage<Error>(bad.sentence))
            << bad.name;
    }
    tools::video::Probe late = found;
    late.sound = tools::video::Probe::Sound{0.023, 0.125};
    EXPECT_THAT(
        [&] {
            tools::video::checkVideo(late, "v.mp4", {{32, 18}, 24}, 3, true);
        },
        ThrowsMessage<Error>("v.mp4: its sound starts at 0.023 seconds, its picture at 0"));
    late.sound = tools::video::Probe::Sound{0.0, 0.148};
    EXPECT_THAT(
        [&] {
            tools::video::checkVideo(late, "v.mp4", {{32, 18}, 24}, 3, true);
        },
        ThrowsMessage<Error>("v.mp4: its sound takes 0.148 seconds, its picture 0.125"));
    late.picture.colours = "pc bt709 bt709 bt709";
    EXPECT_THAT(
        [&] {
            tools::video::checkVideo(late, "v.mp4", {{32, 18}, 24}, 3, true);
        },
        ThrowsMessage<Error>("v.mp4: its colours are tagged 'pc bt709 bt709 bt709', expected BT.709"));
}

TEST(Ffmpeg, IsAskedForByNameWhereItIsMissing)
{
    const char* const path = std::getenv("PATH");
    const std::string before = path == nullptr ? "" : path;
    setenv("PATH", "/nowhere", 1);
    EXPECT_THAT([] { tools::video::checkFfmpeg(); },
                ThrowsMessage<Error>("ffmpeg: is not installed; on Debian 'apt install ffmpeg' does that"));
    setenv("PATH", before.c_str(), 1);
    EXPECT_NO_THROW(tools::video::checkFfmpeg());
}

} // namespace
