#include "tests/tools/capture/capture_runs.h"
#include "tests/tools/video/decoded.h"
#include "tools/video/probe.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using tools::picture::RgbImage;

namespace {

constexpr tools::picture::Size size = {64, 36};
constexpr tools::video::VideoFormat format = {size, 24};

// Mean levels of 255 that the encoder may take off a picture as small as this, whose every pixel is an edge,
// and whose colours stand in samples of 2x2 pixels. Another scene is 20 off and more.
constexpr double codec = 8.0; // 6.5 is the most that was seen

/// A bar of the short timeline has 45 frames at 24 a second; bar 7, frame 315, is the end.
class CaptureVideo : public CaptureRuns {
protected:
    CaptureVideo() { writeClicks("assets/house99.ogg", 4.0, {55125}); } // 1.25 s: frame 30

    static ToolResult video(const std::string& arguments)
    {
        return capture("video --size 64x36 --fps 24 " + arguments);
    }

    static std::vector<RgbImage> framesOf(const std::string& file) { return decodeFrames(file, size, 24); }

    /// The still of that frame.
    static RgbImage still(int frame)
    {
        EXPECT_EQ(capture(fmt::format("still --size 64x36 --time {:.17g} s.rgb", frame / 24.0)).status, 0);
        const std::string bytes = read("s.rgb");
        return {size, {bytes.begin(), bytes.end()}};
    }
};

TEST_F(CaptureVideo, HoldsFrameAfterFrameAsStillsHaveThem)
{
    const ToolResult result = video("--from 0:2 --to 1:2 out.mp4"); // from frame 22.5 to frame 67.5
    ASSERT_EQ(result.status, 0) << result.error;
    const std::vector<RgbImage> frames = framesOf("out.mp4");
    ASSERT_EQ(frames.size(), 45U);
    for (const int frame : {23, 44, 45, 67}) { // 45: the bottle follows the room
        EXPECT_LT(meanDifference(frames[static_cast<std::size_t>(frame - 23)], still(frame)), codec) << frame;
    }
    EXPECT_GT(meanDifference(frames[44 - 23], frames[45 - 23]), 3 * codec);
    EXPECT_THAT(namesIn("."), ElementsAre("assets", "out.mp4", "s.rgb"));
}

TEST_F(CaptureVideo, CutsTheMusicToItsFirstFrame)
{
    ASSERT_EQ(video("--from 0:2 --to 1 out.mp4").status, 0);
    tools::video::checkVideo(tools::video::probe("out.mp4"), "out.mp4", format, 22, true);
    // The click at frame 30 of the show, in a video that starts with frame 23.
    EXPECT_NEAR(static_cast<double>(loudestSample(decodeSound("out.mp4"))), 7 * 44100 / 24.0, 2.0);
}

TEST_F(CaptureVideo, LastsUntilTheShowEnds)
{
    const ToolResult result = video("--from 6:2 out.mp4"); // frames 293 to 314
    ASSERT_EQ(result.status, 0) << result.error;
    EXPECT_EQ(framesOf("out.mp4").size(), 22U);
    EXPECT_THAT(result.error,
                EndsWith("out.mp4: 22 frames of 64x36, 24 a second, 0.917 seconds; the music starts "
                         "with the first\n"));
}

TEST_F(CaptureVideo, TellsHowFarItIsAndWhatTheEncoderCosts)
{
    const ToolResult result = video("--from 0 --to 0:1 out.mp4");
    ASSERT_EQ(result.status, 0);
    EXPECT_THAT(result.error, HasSubstr("\nframe 12 of 12, "));
    EXPECT_THAT(result.error, HasSubstr(" frames/s, 0 s left\n12 frames drawn and encoded at "));
    EXPECT_THAT(result.error, HasSubstr(" % of the bare speed\n"));
    EXPECT_EQ(result.output, "");
}

TEST_F(CaptureVideo, IsJoinedFromRangesToTheVeryFramesOfTheWhole)
{
    ASSERT_EQ(video("--from 0:2 --to 2 whole.mp4").status, 0); // frames 23 to 89: 24 a group
    for (const char* const range : {"1", "2"}) {
        ASSERT_EQ(video(fmt::format("--from 0:2 --to 2 --range {0}/2 part{0}.mp4", range)).status, 0);
    }
    const ToolResult result = capture("join part2.mp4 part1.mp4 joined.mp4");
    ASSERT_EQ(result.status, 0) << result.error;
    const std::vector<RgbImage> whole = framesOf("whole.mp4");
    const std::vector<RgbImage> joined = framesOf("joined.mp4");
    ASSERT_EQ(whole.size(), 67U);
    ASSERT_EQ(joined.size(), 67U);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        EXPECT_EQ(whole[i].pixels == joined[i].pixels, true) << i;
    }
    EXPECT_EQ(decodeSound("whole.mp4"), decodeSound("joined.mp4"));
    EXPECT_THAT(capture("join part1.mp4 other.mp4").error,
                HasSubstr("part1.mp4: frames 47 to 89 are missing behind it\n"));
    EXPECT_EQ(capture("join part1.mp4 part2.mp4 joined.mp4").error,
              "joined.mp4: is there already; --overwrite replaces it\n");
    write("assets/house99.ogg", "other music");
    EXPECT_THAT(capture("join part1.mp4 part2.mp4 other.mp4").error,
                HasSubstr("part1.mp4: was drawn from other assets than those in assets\n"));
}

TEST_F(CaptureVideo, GoesOnFromWhereItWasCancelled)
{
    // 240 frames make the first piece, 75 the second.
    const std::string command = std::string(CAPTURE) + " video --size 64x36 --fps 24 out.mp4";
    const ToolResult cancelled =
        runTool("sh -c '" + command +
                " & while ! ls out.mp4.parts/0*.mp4 >/dev/null 2>&1; do sleep 0.02; done;"
                " kill -TERM $!; wait $!'");
    EXPECT_EQ(cancelled.status, 1);
    EXPECT_THAT(cancelled.error,
                EndsWith("out.mp4: cancelled; what is finished lies in out.mp4.parts, and the same "
                         "command goes on from there\n"));
    EXPECT_THAT(namesIn("."), ElementsAre("assets", "out.mp4.parts"));
    EXPECT_THAT(namesIn("out.mp4.parts"), ElementsAre("000000-000239.mp4"));

    const ToolResult again = video("out.mp4");
    EXPECT_EQ(again.status, 0) << again.error;
    EXPECT_THAT(again.error, HasSubstr("240 of 315 frames are there from an earlier run\n"));
    EXPECT_THAT(again.error, HasSubstr("\n75 frames drawn and encoded at "));
    EXPECT_THAT(namesIn("."), ElementsAre("assets", "out.mp4"));
    const std::vector<RgbImage> frames = framesOf("out.mp4");
    ASSERT_EQ(frames.size(), 315U);
    for (const int frame : {0, 179, 180, 239, 240, 314}) {
        EXPECT_LT(meanDifference(frames[static_cast<std::size_t>(frame)], still(frame)), codec) << frame;
    }
}

TEST_F(CaptureVideo, DrawsPiecesAgainThatAreNotWhatTheyShouldBe)
{
    std::filesystem::create_directory("out.mp4.parts");
    write("out.mp4.parts/000000-000010.mp4", "text");
    write("out.mp4.parts/.new-1-1.mp4", "left behind");
    const ToolResult result = video("--to 0:1 out.mp4");
    ASSERT_EQ(result.status, 0) << result.error;
    EXPECT_THAT(result.error, Not(HasSubstr("from an earlier run")));
    EXPECT_EQ(framesOf("out.mp4").size(), 12U);
    EXPECT_THAT(namesIn("."), ElementsAre("assets", "out.mp4"));
}

TEST_F(CaptureVideo, IsRefusedWithoutFfmpegByName)
{
    const ToolResult result = runTool(std::string("PATH=/nowhere ") + CAPTURE + " video out.mp4");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "ffmpeg: is not installed; on Debian 'apt install ffmpeg' does that\n");
    EXPECT_THAT(namesIn("."), ElementsAre("assets"));
}

struct BadCommand {
    const char* name;
    const char* arguments;
    const char* sentence; ///< the last line
};

// clang-format off
constexpr BadCommand badCommands[] = {
    {"NoOutput",       "video",                               "capture: OUT is required; see capture --help"},
    {"NoVideo",        "video a.avi",                         "a.avi: expected a name that ends in .mp4"},
    {"NoFolder",       "video none/a.mp4",                    "none/a.mp4: cannot write: there is no such folder"},
    {"AFolder",        "video --overwrite folder.mp4",        "folder.mp4: cannot write: Is a directory"},
    {"There",          "video there.mp4",                     "there.mp4: is there already; --overwrite replaces it"},
    {"OddSize",        "video --size 65x36 a.mp4",            "--size 65x36: a video has even sides, as a sample of its colour covers 2x2 pixels"},
    {"NoSize",         "video --size 64 a.mp4",               "--size 64: expected WIDTHxHEIGHT, each 1 to 8192"},
    {"TooSlow",        "video --fps 23 a.mp4",                "--fps 23: expected a whole number from 24 to 120"},
    {"TooFast",        "video --fps 121 a.mp4",               "--fps 121: expected a whole number from 24 to 120"},
    {"NoRange",        "video --range 3/2 a.mp4",             "--range 3/2: expected N/M, as 2/8, with N from 1 to M"},
    {"ManyRanges",     "video --to 0:1 --range 1/50 a.mp4",   "--range 1/50: there are only 29 frames"},
    {"NoBeat",         "video --from 1:4 a.mp4",              "--from 1:4: row '1:4:0': a beat is 0 to 3"},
    {"Backwards",      "video --from 2 --to 1 a.mp4",         "--to 1:0:0: no frame lies between --from 2:0:0 and there"},
    {"BehindTheEnd",   "video --from 8 a.mp4",                "--from 8:0:0: the show is over there"},
    {"UpToBehindEnd",  "video --to 8 a.mp4",                  "--to 8:0:0: the show is over before"},
    {"NoAssets",       "video --assets none a.mp4",           "none: no folder of assets is here; --assets names another"},
    {"NothingToJoin",  "join a.mp4",                          "capture join: name the parts, and behind them the file to write"},
    {"NoPart",         "join none.mp4 a.mp4",                 "none.mp4: there is no such file"},
    {"JoinedToNoMp4",  "join there.mp4 a.png",                "a.png: expected a name that ends in .mp4"},
    {"JoinedNowhere",  "join there.mp4 none/a.mp4",           "none/a.mp4: cannot write: there is no such folder"},
};
// clang-format on

class BadVideoCommand : public CaptureRuns, public testing::WithParamInterface<BadCommand> {
protected:
    BadVideoCommand()
    {
        write("assets/house99.ogg", "music");
        write("there.mp4", "a video");
        std::filesystem::create_directory("folder.mp4");
    }
};

TEST_P(BadVideoCommand, IsRefusedInOneSentence)
{
    const ToolResult result = capture(GetParam().arguments);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, std::string(GetParam().sentence) + "\n");
    EXPECT_THAT(namesIn("."), ElementsAre("assets", "folder.mp4", "there.mp4"));
    EXPECT_EQ(read("there.mp4"), "a video");
}

INSTANTIATE_TEST_SUITE_P(Commands, BadVideoCommand, testing::ValuesIn(badCommands),
                         [](const auto& info) { return info.param.name; });

TEST_F(CaptureVideo, NeedsTheMusicUnlessItIsARange)
{
    std::filesystem::remove("assets/house99.ogg");
    EXPECT_EQ(video("--to 0:1 out.mp4").error, "assets/house99.ogg: there is no such file\n");
    EXPECT_EQ(video("--to 0:1 --range 1/2 out.mp4").status, 0);
}

TEST_F(CaptureVideo, NeedsAnEndOfTheShowOrOfItsOwn)
{
    writeTrack("scene", 4.0F);
    EXPECT_EQ(video("out.mp4").error,
              "capture video: the track scene ends the show nowhere; --to says where the video ends\n");
    EXPECT_EQ(video("--to 0:1 out.mp4").status, 0);
}

} // namespace
