#include "scenes/room_scene.h"

#include "engine/default_material.h"
#include "scenes/tv_material.h"
#include "tests/scenes/scene_stage.h"
#include "tests/scenes/track_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

using RoomSceneTest = SceneTest<RoomScene>;

// clang-format off
const ExpectedObject objects[] = {
    // name              model               colour                         normal                         emission               colour               amb   diff  spec   shin
    {"room",             "room",             map2k("room_diff.dds"),        {},                            {},                    {0.3F, 0.7F, 0.3F},  0.0F, 0.3F, 1.0F,  20.0F},
    {"sofa",             "sofa",             map2k("sofa_diff.dds"),        map2k("sofa_norm.dds"),        {},                    {0.5F, 0.5F, 0.5F},  0.1F, 1.5F, 1.0F,  32.0F},
    {"legs",             "sofa_legs",        {},                            {},                            {},                    {0.2F, 0.2F, 0.2F},  0.1F, 1.0F, 0.1F,  10.0F},
    {"ukko",             "person",           {},                            {},                            {},                    {0.83F, 0.67F, 0.53F}, 0.1F, 0.7F, 0.3F, 30.0F},
    {"hat",              "hat",              {},                            {},                            {},                    {0.9F, 0.9F, 0.9F},  0.1F, 1.0F, 0.1F,  30.0F},
    {"glasses",          "glasses",          {},                            {},                            {},                    {0.1F, 0.1F, 0.1F},  0.1F, 1.0F, 0.1F,  30.0F},
    {"table",            "coffeetable",      map2k("coffeetable_diff.dds"), map2k("coffeetable_norm.dds"), {},                    {0.3F, 0.5F, 0.5F},  0.1F, 1.0F, 3.0F,  32.0F},
    {"beer",             "beer",             map2k("pisswasser.dds"),       {},                            {},                    {0.5F, 0.5F, 0.3F},  0.0F, 0.7F, 1.5F,  6.0F},
    {"tv",               "tv",               {},                            {},                            map2k("tv_emit.dds"),  {0.1F, 0.1F, 0.1F},  0.1F, 0.2F, 10.0F, 60.0F},
    {"tvtable",          "tvtable",          map2k("plywood_diff.dds"),     map2k("plywood_norm.dds"),     {},                    {0.5F, 0.3F, 0.3F},  0.1F, 1.0F, 3.0F,  32.0F},
    {"bigplant",         "bigplant",         map2k("bigplant.dds"),         {},                            {},                    {0.3F, 0.7F, 0.2F},  0.1F, 0.7F, 1.0F,  30.0F, true},
    {"pot",              "flowerpot",        {},                            {},                            {},                    {0.32F, 0.1F, 0.0F}, 0.1F, 0.7F, 0.3F,  30.0F},
    {"burgerbox_bottom", "burgerbox_bottom", {},                            {},                            {},                    {1.0F, 0.96F, 0.91F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"burgerbox_top",    "burgerbox_top",    map2k("burgerbox_top.dds"),    {},                            {},                    {0.5F, 0.5F, 0.3F},  0.1F, 1.0F, 1.0F,  30.0F},
};

constexpr glm::quat yMinus157 = xyzw(0.0F, -0.7068252F, 0.0F, 0.7073882F);
constexpr glm::quat y0314 = xyzw(0.0F, 0.1563558F, 0.0F, 0.9877008F);
constexpr glm::quat y1256 = xyzw(0.0F, 0.5875275F, 0.0F, 0.8092042F);
constexpr glm::quat y157 = xyzw(0.0F, 0.7068252F, 0.0F, 0.7073882F);
constexpr glm::quat y1884 = xyzw(0.0F, 0.8087361F, 0.0F, 0.5881717F);
constexpr glm::quat y4082 = xyzw(0.0F, 0.8914761F, 0.0F, -0.4530678F);
constexpr glm::quat lyingBeer = xyzw(0.6298625F, 0.320997F, -0.3207415F, 0.6303642F);

const ExpectedNode nodes[] = {
    // path                object              position                    orientation     scale
    {"room",               "room",             {0.0F, -0.3F, 0.0F},        yMinus157,      0.2F},
    {"sofa",               "sofa",             {0.0F, -0.28F, -0.5F},      zeroQuaternion, 0.1F},
    {"sofa_legs",          "legs",             {0.0F, -0.28F, -0.5F},      zeroQuaternion, 0.1F},
    {"table",              "table",            {0.0F, -0.2F, 0.7F},        zeroQuaternion, 0.1F},
    {"tv",                 "tv",               {0.0F, 0.144F, 1.8F},       y314,           0.1F},
    {"tvtable",            "tvtable",          {0.0F, -0.3F, 1.8F},        y314,           0.1F},
    {"bigplant",           "bigplant",         {0.9F, -0.2F, 1.5F},        y314,           0.3F},
    {"pot",                "pot",              {0.9F, -0.3F, 1.5F},        y314,           0.07F},
    {"beer1",              "beer",             {0.1F, -0.12F, 0.6F},       y0314,          0.02F},
    {"beer2",              "beer",             {-0.2F, -0.12F, 0.54F},     y157,           0.02F},
    {"burgerbox_bottom1",  "burgerbox_bottom", {0.2F, -0.095F, 0.6F},      y1884,          0.015F},
    {"burgerbox_top1",     "burgerbox_top",    {0.2F, -0.095F, 0.6F},      y1884,          0.015F},
    {"burgerbox_bottom2",  "burgerbox_bottom", {-0.0F, -0.095F, 0.5F},     y4082,          0.015F},
    {"burgerbox_top2",     "burgerbox_top",    {-0.0F, -0.095F, 0.5F},     y4082,          0.015F},
    {"beer3",              "beer",             {-0.15F, -0.095F, 0.5F},    lyingBeer,      0.02F},
    {"ukko1",              "ukko",             {-0.25F, -0.3F, -0.5F},     zeroQuaternion, 0.1F},
    {"ukko1_hat",          "hat",              {-0.25F, 0.45F, -0.7F},     zeroQuaternion, 0.1F},
    {"ukko2",              "ukko",             {0.25F, -0.3F, -0.5F},      zeroQuaternion, 0.1F},
    {"ukko2_glasses",      "glasses",          {0.25F, 0.4F, -0.7F},       zeroQuaternion, 0.1F},
    {"sofa2",              "sofa",             {-1.1F, -0.28F, 0.5F},      y157,           0.1F},
    {"sofa_legs2",         "legs",             {-1.1F, -0.28F, 0.5F},      y157,           0.1F},
    {"bigplant2",          "bigplant",         {-1.8F, -0.2F, 1.5F},       y1256,          0.3F},
    {"pot2",               "pot",              {-1.8F, -0.3F, 1.5F},       y314,           0.07F},
};

const ExpectedLight lights[] = {
    {{-1.5F, 0.3F, 0.4F}, {0.1F, 0.1F, 0.1F},    {0.7F, 0.7F, 0.7F}},
    {{0.0F, 0.3F, 1.3F},  {0.1F, 0.1F, 0.1F},    {0.0F, 0.0F, 0.0F}},
    {{1.5F, 0.3F, 0.4F},  {0.3F, 0.3F, 0.3F},    {0.3F, 0.3F, 0.3F}},
    {{0.0F, 0.2F, 0.5F},  {0.3F, 0.3F, 0.3F},    {0.1F, 0.1F, 0.1F}},
    {{0.0F, 0.3F, -3.0F}, {0.03F, 0.03F, 0.03F}, {0.0F, 0.0F, 0.0F}},
};
// clang-format on

class RoomObject : public RoomSceneTest, public testing::WithParamInterface<ExpectedObject> {};

TEST_P(RoomObject, IsDrawnAsItsRowSays)
{
    const bool isTv = std::string(GetParam().name) == "tv";
    expectObject(build(), GetParam(), isTv ? "tv" : "material");
}
INSTANTIATE_TEST_SUITE_P(All, RoomObject, testing::ValuesIn(objects),
                         [](const auto& row) { return testName(row.param.name); });

class RoomNode : public RoomSceneTest, public testing::WithParamInterface<ExpectedNode> {};

TEST_P(RoomNode, StandsAsItsRowSays)
{
    expectNode(build(), GetParam());
}
INSTANTIATE_TEST_SUITE_P(All, RoomNode, testing::ValuesIn(nodes),
                         [](const auto& row) { return testName(row.param.path); });

TEST_F(RoomSceneTest, HangsTheNodesOfTheTableUnderTheRootInItsOrder)
{
    expectTree(build(), {std::begin(nodes), std::end(nodes)});
}

TEST_F(RoomSceneTest, LightsWithFiveOfEightLights)
{
    lumeth::Scene& scene = build();
    expectLights(scene, "sofa", {std::begin(lights), std::end(lights)});
    expectLights(scene, "tv", {std::begin(lights), std::end(lights)});
}

TEST_F(RoomSceneTest, DrawsItsSkyInDarkBlue)
{
    const zund::DrawCommand sky = build().drawSkybox();
    EXPECT_EQ(uniform<glm::vec3>(sky, "background_color"), glm::vec3(0.05F, 0.05F, 0.12F));
    // The frame draws it, too: after the clears of two passes.
    show->scene.draw(renderer, 0.0);
    EXPECT_EQ(renderer.frames.back().at(2).program.get(), sky.program.get());
}

TEST_F(RoomSceneTest, BuildsEverythingInOrder)
{
    build({}, {320, 200});
    std::vector<std::string> expected = passStory("letterbox", 320, 200);
    const std::vector<std::string> gamma = passStory("gamma", 320, 200);
    expected.insert(expected.end(), gamma.begin(), gamma.end());
    const std::vector<std::string> own = {
        "model room",
        "texture room_diff.dds 2048x2048",
        "model sofa",
        "texture sofa_diff.dds 2048x2048",
        "texture sofa_norm.dds 2048x2048",
        "model sofa_legs",
        "model person",
        "model hat",
        "model glasses",
        "model coffeetable",
        "texture coffeetable_diff.dds 2048x2048",
        "texture coffeetable_norm.dds 2048x2048",
        "model beer",
        "texture pisswasser.dds 2048x2048",
        "model tv",
        "texture tv_emit.dds 2048x2048",
        "vertex shader material",
        "fragment shader tv",
        "createProgram",
        "uniform modelToView",
        "uniform worldToView",
        "uniform projection",
        "uniform tex_color",
        "uniform tex_normal",
        "uniform tex_emissivity",
        "uniform mat_shaded",
        "uniform mat_textured",
        "uniform mat_transparent",
        "uniform mat_normalmapped",
        "uniform mat_color",
        "uniform mat_ambient",
        "uniform mat_diffuse",
        "uniform mat_specular",
        "uniform mat_shininess",
        "uniform light_position",
        "uniform light_diffuse",
        "uniform light_specular",
        "uniform time",
        "model tvtable",
        "texture plywood_diff.dds 2048x2048",
        "texture plywood_norm.dds 2048x2048",
        "model bigplant",
        "texture bigplant.dds 2048x2048",
        "model flowerpot",
        "model burgerbox_bottom",
        "model burgerbox_top",
        "texture burgerbox_top.dds 2048x2048",
        "track camera_pos_x",
        "track camera_pos_y",
        "track camera_pos_z",
        "track camera_tgt_x",
        "track camera_tgt_y",
        "track camera_tgt_z",
        "track debug",
    };
    expected.insert(expected.end(), own.begin(), own.end());
    EXPECT_THAT(story(), ElementsAreArray(expected));
}

struct View {
    const char* name;
    glm::vec3 position;
    glm::vec3 target;
};

// clang-format off
const View views[] = {
    {"FromTheDoor",   {2.5F, 0.75F, -3.25F}, {0.1F, -0.2F, 0.6F}},
    {"FromTheTv",     {0.0F, 0.144F, 1.7F},  {0.0F, 0.0F, -0.5F}},
    {"FromFarBelow",  {-7.3F, -9.1F, 0.3F},  {0.25F, 0.4F, -0.7F}},
};
// clang-format on

TrackValues tracksOf(const View& view)
{
    return {{"camera_pos_x", view.position.x}, {"camera_pos_y", view.position.y},
            {"camera_pos_z", view.position.z}, {"camera_tgt_x", view.target.x},
            {"camera_tgt_y", view.target.y},   {"camera_tgt_z", view.target.z}};
}

class RoomCamera : public RoomSceneTest, public testing::WithParamInterface<View> {};

TEST_P(RoomCamera, StandsAndLooksWhereTheTracksSay)
{
    lumeth::Scene& scene = build(tracksOf(GetParam()));
    update(3.75);
    expectCamera(scene, GetParam().position, GetParam().target);
}
INSTANTIATE_TEST_SUITE_P(All, RoomCamera, testing::ValuesIn(views),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RoomSceneTest, MovesNothingButTheCamera)
{
    lumeth::Scene& scene = build(tracksOf(views[0]));
    update(3.75);
    update(17.0);
    for (const ExpectedNode& row : nodes) {
        SCOPED_TRACE(row.path);
        expectNode(scene, row);
        EXPECT_TRUE(itemAt(scene, row.path).visible);
    }
}

TEST_F(RoomSceneTest, SendsTheTvWhatTheStockMaterialSendsAndTheTime)
{
    build();
    TvMaterial tv(renderer, 1.6F);
    lumeth::DefaultMaterial stock(renderer, 1.6F);
    lumeth::DisplayObject object;
    object.modelMatrix = glm::mat4(2.0F);
    object.normalTexture = zund::Texture(7, 0);
    object.color = {0.1F, 0.2F, 0.3F};
    object.ambient = 0.4F;
    object.diffuse = 0.5F;
    object.specular = 0.6F;
    object.shininess = 0.7F;
    object.transparent = true;
    lumeth::DisplayListItem item("tv", {1.0F, 2.0F, 3.0F}, zeroQuaternion, glm::vec3(4.0F));
    item.worldMatrix = item.localMatrix;
    const glm::mat4 view(3.0F);
    const std::vector<lumeth::Light> noLights;

    const auto commands = tv.getUniformCommands(view, object, item, noLights, 187.123456789);
    const auto stockCommands = stock.getUniformCommands(view, object, item, noLights, 187.123456789);
    ASSERT_EQ(stockCommands.size(), 15U);
    ASSERT_EQ(commands.size(), 16U);
    for (std::size_t i = 0; i < stockCommands.size(); ++i) {
        EXPECT_EQ(renderer.nameOf(commands[i].first), renderer.nameOf(stockCommands[i].first)) << i;
        EXPECT_EQ(commands[i].second, stockCommands[i].second) << renderer.nameOf(commands[i].first);
    }
    EXPECT_EQ(renderer.nameOf(commands[15].first), "time");
    EXPECT_EQ(std::get<float>(commands[15].second), 187.123456789F);
}

TEST_F(RoomSceneTest, GivesTheTvTheShapeOfThePicture)
{
    lumeth::Scene& scene = build({}, {1920, 810});
    const auto ofTv = uniform<glm::mat4>(drawn(scene, "tv"), "projection");
    expectSame(ofTv, uniform<glm::mat4>(drawn(scene, "sofa"), "projection"));
    // Height over width of what the lens shows.
    EXPECT_NEAR(ofTv[1][1] / ofTv[0][0], 1920.0 / 810.0, 1e-6);
}

TEST_F(RoomSceneTest, LooksTheDebugTrackUpAndNeverReadsIt)
{
    std::vector<std::string> lookUps;
    trackWatch.onLookUp = [&](const std::string& track) {
        lookUps.push_back(track);
    };
    build({{"debug", 5.0F}});
    EXPECT_THAT(lookUps, ElementsAre("camera_pos_x", "camera_pos_y", "camera_pos_z", "camera_tgt_x",
                                     "camera_tgt_y", "camera_tgt_z", "debug"));
    update(1.0);
    update(2.0);
    EXPECT_THAT(trackWatch.takeReads(), testing::Not(testing::Contains("debug")));
}

TEST_F(RoomSceneTest, CutsHolesIntoThePlantAndNotIntoThePot)
{
    lumeth::Scene& scene = build();
    EXPECT_TRUE(uniform<bool>(drawn(scene, "bigplant"), "mat_transparent"));
    EXPECT_FALSE(uniform<bool>(drawn(scene, "pot"), "mat_transparent"));
}

TEST_F(RoomSceneTest, ServesTwentyThreeNodesWithFourteenObjects)
{
    lumeth::Scene& scene = build();
    EXPECT_EQ(renderer.meshes.size(), 2U + 14U); // and those of passes and sky
    scene.draw(renderer, 0.0);
    // Two clears, sky, the nodes, clear of the screen, two passes.
    EXPECT_EQ(renderer.frames.back().size(), 3U + 23U + 3U);
}

} // namespace
