#include "tests/tools/in_temporary_folder.h"
#include "tests/tools/run_tool.h"
#include "tools/standins/stand_ins.h"

#include <algorithm>
#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string standin = STANDIN;

class StandinCommand : public InTemporaryFolder {};

TEST_F(StandinCommand, WritesAModel)
{
    const ToolResult result = runTool(standin + " model hat hat.glb");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output + result.error, "");
    EXPECT_EQ(read("hat.glb"), tools::modelFile("hat"));
}

TEST_F(StandinCommand, WritesATexture)
{
    EXPECT_EQ(runTool(standin + " texture unlimited u.dds").status, 0);
    EXPECT_EQ(read("u.dds"), tools::textureFile("unlimited"));
}

TEST_F(StandinCommand, ListsModelsAndTextures)
{
    const ToolResult result = runTool(standin + " list");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 38);
    EXPECT_THAT(result.output, HasSubstr("model   burger_cheese\n"));
    EXPECT_THAT(result.output, HasSubstr("texture queue_border 3840x2160\n"));
}

struct BadCommand {
    const char* name;
    const char* arguments;
    const char* sentence;
};

// clang-format off
constexpr BadCommand badCommands[] = {
    {"NoSubcommand",   "",                     "standin: A subcommand is required; see standin --help\n"},
    {"UnknownModel",   "model chair c.glb",    "chair: the show has no such model; `standin list` tells all\n"},
    {"UnknownTexture", "texture carpet c.dds", "carpet: the show has no such texture; `standin list` tells all\n"},
    {"NoFolder",       "model hat none/h.glb", "none/h.glb: cannot write: No such file or directory\n"},
};
// clang-format on

class BadStandinCommand : public InTemporaryFolder, public testing::WithParamInterface<BadCommand> {};

TEST_P(BadStandinCommand, IsRefusedInOneSentence)
{
    const ToolResult result = runTool(standin + " " + GetParam().arguments);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, GetParam().sentence);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(namesIn("."), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Commands, BadStandinCommand, testing::ValuesIn(badCommands),
                         [](const auto& info) { return info.param.name; });

} // namespace
