#include "tests/support/in_temporary_folder.h"
#include "tests/support/run_tool.h"
#include "tools/timeline/track_file.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const std::string trackc = TRACKC;

class TrackcCommand : public InTemporaryFolder {};

TEST_F(TrackcCommand, CompilesAndTellsKeysAndSeconds)
{
    write("scene.csv", "0,4,step\n97:0:0,-1,step\n");
    write("still.csv", "0,4,step\n");
    const ToolResult result = runTool(trackc + " scene.csv still.csv --output out");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "scene: 2 keys, 181.9 s\nstill: 1 key, 0.0 s\n");
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(namesIn("out"), ElementsAre("sync_scene.track", "sync_still.track"));
}

TEST_F(TrackcCommand, SaysInOneSentenceWhatIsWrong)
{
    write("scene.csv", "0,4,step\n8,5.5,step\n");
    const ToolResult result = runTool(trackc + " scene.csv --output out");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "scene.csv:2: value 5.5 selects no scene; 4 is the room, 5 the credits, 6 the "
                            "bottle, 7 the burger, 8 "
                            "the toilet, 9 the people, -1 the end\n");
    EXPECT_THAT(namesIn("."), ElementsAre("scene.csv"));
}

TEST_F(TrackcCommand, DumpsTheTextForm)
{
    write("t.track", tools::timeline::encodeTrack({{0, 0.1F, SYNC_LINEAR}, {296, 2.0F, SYNC_STEP}}));
    const ToolResult plain = runTool(trackc + " --dump t.track");
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(plain.output, "0, 0.1, linear\n296, 2, step\n");
    const ToolResult bars = runTool(trackc + " --dump --bars t.track");
    EXPECT_EQ(bars.status, 0);
    EXPECT_EQ(bars.output, "0:0:0, 0.1, linear\n4:2:8, 2, step\n");
}

TEST_F(TrackcCommand, CompilesADumpToTheSameBytes)
{
    std::mt19937 random(3);
    constexpr int count = 200;
    std::vector<sync_key> keys;
    keys.reserve(count);
    for (int i = 0; i < count; ++i) {
        keys.push_back(
            {i * 37 - 500, std::ldexp(static_cast<float>(random()), -20), static_cast<int>(random() % 4)});
    }
    const std::string bytes = tools::timeline::encodeTrack(keys);
    write("t.track", bytes);
    for (const char* style : {"", "--bars "}) {
        const ToolResult dump = runTool(trackc + " --dump " + style + "t.track");
        ASSERT_EQ(dump.status, 0);
        write("t.csv", dump.output);
        ASSERT_EQ(runTool(trackc + " t.csv --output out").status, 0);
        EXPECT_EQ(read("out/sync_t.track"), bytes);
    }
}

TEST_F(TrackcCommand, RefusesToDumpAFileCutOffAnywhere)
{
    const std::string bytes = tools::timeline::encodeTrack({{0, 1.0F, SYNC_STEP}});
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        write("t.track", bytes.substr(0, length));
        const ToolResult result = runTool(trackc + " --dump t.track");
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error,
                  length < 4 ? "t.track: " + std::to_string(length) + " bytes are too few for a key count\n"
                             : "t.track: " + std::to_string(length) + " bytes, but 1 keys take 13\n");
    }
}

struct BadCommand {
    const char* name;
    const char* arguments;
    const char* sentence;
};

// clang-format off
constexpr BadCommand badCommands[] = {
    {"NoFile",           "--output out",         "trackc: FILE is required; see trackc --help\n"},
    {"NoOutput",         "t.csv",                "trackc: give either --output FOLDER or --dump\n"},
    {"OutputAndDump",    "t.csv -o out --dump",  "trackc: give either --output FOLDER or --dump\n"},
    {"TwoDumps",         "--dump a b",           "trackc: --dump takes one track file\n"},
    {"BarsAlone",        "t.csv -o out --bars",  "trackc: --bars goes with --dump\n"},
    {"UnknownOption",    "t.csv --speed",        "trackc: The following argument was not expected: --speed; see trackc --help\n"},
    {"MissingFile",      "none.csv -o out",      "none.csv: cannot read: No such file or directory\n"},
};
// clang-format on

class BadTrackcCommand : public InTemporaryFolder, public testing::WithParamInterface<BadCommand> {};

TEST_P(BadTrackcCommand, IsRefusedInOneSentence)
{
    const ToolResult result = runTool(trackc + " " + GetParam().arguments);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, GetParam().sentence);
    EXPECT_EQ(result.output, "");
}

INSTANTIATE_TEST_SUITE_P(Commands, BadTrackcCommand, testing::ValuesIn(badCommands),
                         [](const auto& info) { return info.param.name; });

TEST_F(TrackcCommand, HelpsWithExamples)
{
    const ToolResult result = runTool(trackc + " --help");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(result.output,
                HasSubstr("trackc art/timeline/*.csv art/timeline/shots.txt --output build/assets"));
    EXPECT_THAT(result.output, HasSubstr("trackc --dump --bars"));
}

} // namespace
