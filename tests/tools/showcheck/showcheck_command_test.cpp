#include "tests/support/in_temporary_folder.h"
#include "tests/support/run_tool.h"
#include "tools/timeline/track_file.h"

#include <gmock/gmock.h>

using testing::AnyOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr float bottle = 6.0F;
constexpr float toilet = 8.0F;

/// A show of two beats: the ring of bottles, then the toilet, each from where it is seen well.
class ShowcheckCommand : public InTemporaryFolder {
protected:
    ShowcheckCommand()
    {
        std::filesystem::create_directory("assets");
        for (const auto& entry : std::filesystem::directory_iterator(SHOW_ASSETS)) {
            const std::filesystem::path name = entry.path().filename();
            if (name.extension() != ".track" && entry.is_regular_file()) {
                std::filesystem::create_symlink(entry.path(), "assets" / name);
            }
        }
        writeTrack("scene", {{0, bottle, SYNC_STEP}, {16, toilet, SYNC_STEP}, {32, -1.0F, SYNC_STEP}});
        writeTrack("camera_pos_y", {{0, 0.5F, SYNC_STEP}, {16, 0.55F, SYNC_STEP}});
        writeTrack("camera_pos_z", {{0, 0.2F, SYNC_STEP}, {16, 1.75F, SYNC_STEP}});
        writeTrack("camera_tgt_y", {{0, 0.0F, SYNC_STEP}, {16, 0.2F, SYNC_STEP}});
        writeTrack("camera_tgt_z", {{0, 2.0F, SYNC_STEP}, {16, 0.0F, SYNC_STEP}});
    }

    static void writeTrack(const std::string& name, const std::vector<sync_key>& keys)
    {
        write("assets/sync_" + name + ".track", tools::timeline::encodeTrack(keys));
    }

    static ToolResult showcheck(const std::string& arguments = "")
    {
        return runTool(std::string(SHOWCHECK) + " --size 96x54 " + arguments);
    }
};

TEST_F(ShowcheckCommand, PassesASoundShow)
{
    const ToolResult result = showcheck();
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_THAT(result.output, ContainsRegex("\nmean luminance +[0-9.]+ +at least +30\\.000 "));
    EXPECT_THAT(result.output, ContainsRegex("\n% before near plane +0\\.000 +at most +0\\.050 "));
    EXPECT_THAT(result.output, HasSubstr(" flashes in the second before 0.50 s, toilet\n"));
    EXPECT_THAT(result.output, Not(AnyOf(HasSubstr("syncdevice"), HasSubstr("mesh info"))));
    EXPECT_THAT(result.error, Not(HasSubstr("OpenGL Debug")));
}

TEST_F(ShowcheckCommand, SeesACameraInTheSubject)
{
    writeTrack("camera_pos_z", {{0, 0.2F, SYNC_STEP}, {16, 0.45F, SYNC_STEP}});
    const ToolResult result = showcheck();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error,
                ContainsRegex("\n0:1:[0-9]+ \\(0\\.50 s\\) to 0:1:1[45], toilet: the near plane cuts "
                              "open [0-9.]+ % of the picture, at most 0\\.050 % may be\n"));
    EXPECT_THAT(result.error, Not(HasSubstr("bottle: the near plane")));
}

TEST_F(ShowcheckCommand, SeesACutBesideTheBeat)
{
    writeTrack("scene", {{0, bottle, SYNC_STEP}, {21, toilet, SYNC_STEP}, {32, -1.0F, SYNC_STEP}});
    const ToolResult result = showcheck();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error, HasSubstr("\n0:1:5 (0.62 s), toilet: a cut falls 5 rows behind the beat\n"));
}

TEST_F(ShowcheckCommand, SeesFramesWithoutAScene)
{
    writeTrack("scene", {{0, bottle, SYNC_STEP}, {16, 0.0F, SYNC_STEP}, {32, -1.0F, SYNC_STEP}});
    const ToolResult result = showcheck();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(
        result.error,
        ContainsRegex("\n0:1:[01] \\(0\\.50 s\\) to 0:1:1[45], no scene: 100\\.0 % of the picture is black"));
    EXPECT_THAT(result.error, HasSubstr("\nshowcheck: 4 problems\n"));
}

TEST_F(ShowcheckCommand, SeesFlashes)
{
    std::vector<sync_key> keys;
    for (std::int32_t row = 0; row < 64; row += 4) {
        keys.push_back({row, row % 8 == 0 ? bottle : 0.0F, SYNC_STEP});
    }
    keys.push_back({64, -1.0F, SYNC_STEP});
    writeTrack("scene", keys);
    const ToolResult result = showcheck();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error,
                ContainsRegex("the second before flashes with a badness of [0-9.]+, at most 3\\.00"));
}

TEST_F(ShowcheckCommand, LooksAtPartsOfAShow)
{
    writeTrack("scene", {{0, 0.0F, SYNC_STEP}, {16, toilet, SYNC_STEP}, {32, -1.0F, SYNC_STEP}});
    EXPECT_EQ(showcheck("--from 0:1").status, 0);
    EXPECT_EQ(showcheck("--to 0:1").status, 1);
}

TEST_F(ShowcheckCommand, KnowsTheCutAtTheEndOfAPart)
{
    // Moves until the last row of the first shot, which is where it ends only by the cut behind.
    writeTrack("camera_pos_x", {{0, 0.0F, SYNC_LINEAR}, {15, 0.1F, SYNC_STEP}, {16, 0.0F, SYNC_STEP}});
    const ToolResult result = showcheck("--to 0:1");
    EXPECT_EQ(result.status, 0) << result.error;
}

TEST_F(ShowcheckCommand, NeedsAnEnd)
{
    writeTrack("scene", {{0, bottle, SYNC_STEP}});
    const ToolResult result = showcheck();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "showcheck: the track scene ends the show nowhere\n");
}

struct BadCommand {
    const char* name;
    const char* arguments;
    const char* sentence;
};

// clang-format off
constexpr BadCommand badCommands[] = {
    {"NoAssets",  "--assets none",       "none: no folder of assets is here; --assets names another\n"},
    {"NoSize",    "--size 0x5",          "--size 0x5: expected WIDTHxHEIGHT, each 1 to 8192\n"},
    {"NoRate",    "--fps 5",             "--fps 5: expected a whole number from 24 to 120\n"},
    {"NoBar",     "--from x",            "--from x: row 'x:0:0': expected a whole number or bar:beat:row\n"},
    {"Over",      "--from 1",            "--from 1: the show is over there\n"},
    {"NoRange",   "--from 0:1 --to 0:1", "--to 0:1: lies not behind --from 0:1\n"},
};
// clang-format on

class BadShowcheckCommand : public ShowcheckCommand, public testing::WithParamInterface<BadCommand> {};

TEST_P(BadShowcheckCommand, IsRefusedInOneSentence)
{
    const ToolResult result = runTool(std::string(SHOWCHECK) + " " + GetParam().arguments);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, GetParam().sentence);
    EXPECT_EQ(result.output, "");
}

INSTANTIATE_TEST_SUITE_P(Commands, BadShowcheckCommand, testing::ValuesIn(badCommands),
                         [](const auto& info) { return info.param.name; });

} // namespace
