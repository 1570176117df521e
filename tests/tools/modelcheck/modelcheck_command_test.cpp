#include "tests/standins/box_mesh.h"
#include "tests/standins/glb_file.h"
#include "tests/standins/model_boxes.h"
#include "tests/standins/stand_ins.h"
#include "tests/support/in_temporary_folder.h"
#include "tests/support/run_tool.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <limits>
#include <string>

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string modelcheck = MODELCHECK;

const std::string head =
    "model              vertices triangles        x               y               z         \n";
const std::string lidLine =
    "toilet_lid               24        12    -1.30..1.30     -0.05..0.15      0.00..3.40   \n";

/// The lid's file, with some of its text replaced by as much other text.
std::string lidWith(const std::string& text, const std::string& other)
{
    std::string file = standins::modelFile("toilet_lid");
    file.replace(file.find(text), other.size(), other);
    return file;
}

class ModelcheckCommand : public InTemporaryFolder {};

TEST_F(ModelcheckCommand, PassesASoundModelInOneLine)
{
    write("toilet_lid.glb", standins::modelFile("toilet_lid"));
    const ToolResult result = runTool(modelcheck + " toilet_lid.glb");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, head + lidLine);
    EXPECT_EQ(result.error, "");
}

TEST_F(ModelcheckCommand, TellsAllMeasurementsIfAsked)
{
    write("toilet_lid.glb", standins::modelFile("toilet_lid"));
    const ToolResult result = runTool(modelcheck + " --verbose toilet_lid.glb");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr("\n  its root node leaves it where it is\n"));
    EXPECT_THAT(result.output, HasSubstr("\n  0 triangles are wound against their normals\n"));
}

TEST_F(ModelcheckCommand, DumpsMeshesInPlaceOfCheckingThem)
{
    write("some.glb", standins::modelFile("toilet_lid")); // a model that the show does not have
    const ToolResult result = runTool(modelcheck + " --dump some.glb");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(result.output, StartsWith("some.glb\nroot 0x1p+0 "));
    EXPECT_EQ(std::ranges::count(result.output, '\n'), 2 + 24 + 12);
    EXPECT_EQ(runTool(modelcheck + " --dump some.glb missing.glb").status, 1);
}

TEST_F(ModelcheckCommand, AddsUpWhatModelsCost)
{
    write("toilet_lid.glb", standins::modelFile("toilet_lid"));
    write("hat.glb", standins::modelFile("hat")); // which two scenes load
    const ToolResult result = runTool(modelcheck + " --budget toilet_lid.glb hat.glb");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output,
                ContainsRegex("2 models: 72 vertices, 0\\.00 MB, [0-9]\\.[0-9][0-9] s for 3 imports\n$"));
}

TEST_F(ModelcheckCommand, LooksAtAllFilesAndNamesEachProblem)
{
    write("toilet_lid.glb", "This is text, and it is longer than a header.");
    write("hat.glb", standins::modelFile("toilet_lid"));
    const ToolResult result = runTool(modelcheck + " toilet_lid.glb hat.glb none.glb");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("\nhat "));
    EXPECT_EQ(result.error,
              "toilet_lid.glb: failed to import model\n"
              "hat.glb: its highest y is 0.150, expected 0.3 to 1.9: it turns about the head's top, "
              "its origin\n"
              "none.glb: failed to import model\n"
              "modelcheck: 3 problems, in 3 of 3 files\n");
}

TEST_F(ModelcheckCommand, AsksForARowOfItsOwn)
{
    write("chair.glb", standins::modelFile("toilet_lid"));
    const ToolResult result = runTool(modelcheck + " chair.glb");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "chair.glb: no row says where it has to fit\n"
                            "modelcheck: 1 problem, in 1 of 1 file\n");
    EXPECT_EQ(runTool(modelcheck + " --any-name chair.glb").status, 0);
}

TEST_F(ModelcheckCommand, ChecksAllElseOfModelsOfAnyName)
{
    standins::Mesh mesh = standins::meshOf(standins::findModel("toilet_lid")->boxes);
    mesh.indices.resize(mesh.indices.size() - 3);
    write("chair.glb", standins::encodeGlb("chair", mesh));
    const ToolResult result = runTool(modelcheck + " --any-name chair.glb");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "chair.glb: 3 boundary edges can be seen, the first near (1.30, 0.05, 0.00)\n"
                            "modelcheck: 1 problem, in 1 of 1 file\n");
}

TEST_F(ModelcheckCommand, RefusesARootThatMoves)
{
    const standins::Mesh mesh = standins::meshOf(standins::findModel("toilet_lid")->boxes);
    write("toilet_lid.glb", standins::encodeGlb(R"(lid","translation":[0,0,1],"note":")", mesh));
    const ToolResult result = runTool(modelcheck + " toilet_lid.glb");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error, HasSubstr("toilet_lid.glb: its root node moves, turns or scales it"));
}

TEST_F(ModelcheckCommand, SeesTheNansOfAFile)
{
    standins::Mesh mesh = standins::meshOf(standins::findModel("toilet_lid")->boxes);
    mesh.normals[0].y = std::numeric_limits<float>::quiet_NaN();
    write("toilet_lid.glb", standins::encodeGlb("lid", mesh));
    const ToolResult result = runTool(modelcheck + " toilet_lid.glb");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error,
                ContainsRegex("toilet_lid\\.glb: [0-9]+ vert[a-z]+ holds? a NaN or an infinity"));
}

/// What the show's loader refuses.
struct BadFile {
    const char* name;
    std::string file;
    const char* sentence;
};

class Refusal : public InTemporaryFolder, public testing::WithParamInterface<BadFile> {};

TEST_P(Refusal, HasTheTextOfTheLoader)
{
    write("toilet_lid.glb", GetParam().file);
    const ToolResult result = runTool(modelcheck + " toilet_lid.glb");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, std::string("toilet_lid.glb: ") + GetParam().sentence +
                                "\nmodelcheck: 1 problem, in 1 of 1 file\n");
    EXPECT_EQ(result.output, head);
}

const BadFile badFiles[] = {
    {"EmptyFile", "", "failed to import model"},
    {"CutOffFile", standins::modelFile("toilet_lid").substr(0, 500), "failed to import model"},
    {"NoPositions", lidWith("POSITION", "_OSITION"), "failed to import model"},
    {"NoNormals", lidWith("NORMAL", "_ORMAL"), "no normals?!"},
    {"NoTextureCoordinates", lidWith("TEXCOORD_0", "_EXCOORD_0"), "no tangents?!"},
    {"NoMesh", lidWith("\"mesh\":0", "\"nesh\":0"), "no meshes found!"},
};
INSTANTIATE_TEST_SUITE_P(All, Refusal, testing::ValuesIn(badFiles),
                         [](const auto& info) { return info.param.name; });

TEST_F(ModelcheckCommand, NeedsAFile)
{
    const ToolResult result = runTool(modelcheck);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "modelcheck: FILE is required; see modelcheck --help\n");
}

TEST_F(ModelcheckCommand, HelpsWithExamples)
{
    const ToolResult result = runTool(modelcheck + " --help");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(result.output, HasSubstr("modelcheck --budget assets/*.glb"));
}

} // namespace
