#include "tests/tools/capture/capture_runs.h"
#include "tools/picture/png_image.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class CaptureCommand : public CaptureRuns {
protected:
    static tools::picture::Size sizeOf(const std::string& file)
    {
        return tools::picture::readPngSize(read(file), file);
    }
};

TEST_F(CaptureCommand, WritesAStillOf1080LinesIfNothingElseIsAsked)
{
    ASSERT_EQ(capture("still --bar 5 still.png").status, 0);
    EXPECT_EQ(sizeOf("still.png"), (tools::picture::Size{1920, 1080}));
}

TEST_F(CaptureCommand, WritesSizesThatNoScreenHas)
{
    for (const char* const size : {"3840x2160", "1x1", "1001x33"}) {
        ASSERT_EQ(capture(std::string("still --bar 5 still.png --size ") + size).status, 0);
        const tools::picture::Size found = sizeOf("still.png");
        EXPECT_EQ(std::to_string(found.width) + "x" + std::to_string(found.height), size);
    }
}

TEST_F(CaptureCommand, WritesNothingButPixelsToStandardOutput)
{
    const ToolResult raw = capture("still --bar 0 --size 160x90 -");
    EXPECT_EQ(raw.status, 0);
    EXPECT_EQ(raw.output.size(), 160U * 90 * 3);
    ASSERT_EQ(capture("still --bar 0 --size 160x90 out.rgb").status, 0);
    EXPECT_EQ(raw.output, read("out.rgb"));
}

TEST_F(CaptureCommand, SaysNothingAboutAStillThatItWrites)
{
    for (const char* const command : {"still --bar 0", "scene --scene people"}) {
        const ToolResult result = capture(std::string(command) + " --size 160x90 still.png");
        EXPECT_EQ(result.status, 0) << command;
        EXPECT_EQ(result.output, "") << command;
        EXPECT_EQ(result.error, "") << command;
    }
}

TEST_F(CaptureCommand, TellsHowFarASheetIs)
{
    const ToolResult result =
        capture("sheet --every 0.5 --from 5 --to 6 --columns 2 --size 160x90 sheet.png");
    ASSERT_EQ(result.status, 0) << result.error;
    EXPECT_EQ(sizeOf("sheet.png"), (tools::picture::Size{4 + 2 * 164, 4 + 2 * 105}));
    EXPECT_EQ(result.error, "1 of 3: bar 5:0:0 row 320 credits\n"
                            "2 of 3: bar 5:2:0 row 352 credits\n"
                            "3 of 3: bar 6:0:0 row 384 no scene\n");
}

TEST_F(CaptureCommand, FindsAssetsElsewhere)
{
    std::filesystem::rename("assets", "other");
    ASSERT_EQ(capture("still --bar 5 --size 160x90 --assets other still.png").status, 0);
    EXPECT_THAT(namesIn("."), ElementsAre("other", "still.png"));
}

TEST_F(CaptureCommand, NamesWhatIsAmissAmongTheAssets)
{
    std::filesystem::remove("assets/hat.glb");
    ToolResult result = capture("still --bar 0 a.png");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "the room scene: cannot be made: failed to import model; these are missing: "
                            "assets/hat.glb\n");
    std::filesystem::remove("assets/sync_scene.track");
    result = capture("still --bar 0 a.png");
    EXPECT_EQ(result.error, "assets/sync_scene.track: there is no such file\n");
    std::filesystem::remove("assets/assets.pack");
    result = capture("scene --scene credits a.png");
    EXPECT_EQ(result.error, "assets/assets.pack: there is no such file\n");
    write("assets/assets.pack", "text");
    result = capture("scene --scene credits a.png");
    EXPECT_EQ(result.error, "assets/assets.pack: invalid packfile\n");
    EXPECT_FALSE(std::filesystem::exists("a.png"));
}

struct BadCommand {
    const char* name;
    const char* arguments;
    const char* sentence;
};

// clang-format off
constexpr BadCommand badCommands[] = {
    {"NoSubcommand", "",                                        "capture: A subcommand is required; see capture --help\n"},
    {"NoOutput",     "still --bar 0",                           "capture: OUT is required; see capture --help\n"},
    {"NoPosition",   "still a.png",                             "capture still: give one of --row ROW, --time SECONDS and --bar BAR\n"},
    {"TwoPositions", "still --row 1 --bar 2 a.png",             "capture: Requires at most 1 options be given from [--row,--time,--bar]; see capture --help\n"},
    {"NegativeRow",  "still --row -1 a.png",                    "--row -1: the rows of the show count from 0\n"},
    {"NegativeTime", "still --time -1 a.png",                   "--time -1: the show starts at 0\n"},
    {"NoTime",       "still --time now a.png",                  "--time now: expected a number\n"},
    {"NoSuchBeat",   "still --bar 1:4 a.png",                   "--bar 1:4: row '1:4:0': a beat is 0 to 3\n"},
    {"NoWidth",      "still --bar 0 --size 0x90 a.png",         "--size 0x90: expected WIDTHxHEIGHT, each 1 to 8192\n"},
    {"NoHeight",     "sheet --size 160 a.png",                  "--size 160: expected WIDTHxHEIGHT, each 1 to 8192\n"},
    {"TooLarge",     "scene --scene room --size 9000x9 a.png",  "--size 9000x9: expected WIDTHxHEIGHT, each 1 to 8192\n"},
    {"NoPicture",    "still --bar 0 a.jpg",                     "a.jpg: expected a name that ends in .png or .rgb, or -\n"},
    {"NoFolder",     "still --bar 0 none/a.png",                "none/a.png: cannot write: there is no such folder\n"},
    {"NoAssets",     "still --bar 0 --assets none a.png",       "none: no folder of assets is here; --assets names another\n"},
    {"NoScene",      "scene --scene cellar a.png",              "--scene cellar: no such scene; there are room, credits, bottle, burger, toilet, people\n"},
    {"UnknownTrack", "scene --scene toilet --set nonsense=1 a.png", "--set nonsense=1: the toilet scene reads no track 'nonsense'; it reads camera_pos_x, camera_pos_y, camera_pos_z, camera_tgt_x, camera_tgt_y, camera_tgt_z, burger_rotate, lid_rotate\n"},
    {"NoPoint",      "scene --scene room --eye 1,2 a.png",      "--eye 1,2: expected three numbers, as 1,0.5,-2\n"},
    {"SamePoint",    "scene --scene room --eye 1,2,3 --target 1,2,3 a.png", "--target 1,2,3: the camera stands there\n"},
    {"NoCamera",     "scene --scene credits --eye 1,2,3 a.png", "--eye 1,2,3: the credits scene reads no tracks\n"},
    {"NoStep",       "sheet --every 0 a.png",                   "--every 0: expected at least a row, which is 1/64 of a bar\n"},
    {"NoRange",      "sheet --from 5 --to 4 a.png",             "--to 4: lies before --from 5\n"},
    {"NoColumns",    "sheet --columns 0 a.png",                 "capture: --columns: Value 0 not in range 1 to 1000; see capture --help\n"},
};
// clang-format on

class BadCaptureCommand : public CaptureRuns, public testing::WithParamInterface<BadCommand> {};

TEST_P(BadCaptureCommand, IsRefusedInOneSentence)
{
    const ToolResult result = capture(GetParam().arguments);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, GetParam().sentence);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(namesIn("."), ElementsAre("assets"));
}

INSTANTIATE_TEST_SUITE_P(Commands, BadCaptureCommand, testing::ValuesIn(badCommands),
                         [](const auto& info) { return info.param.name; });

TEST_F(CaptureCommand, HelpsWithExamples)
{
    const ToolResult result = capture("--help");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr("  capture still --bar 34:2 still.png\n"));
}

} // namespace
