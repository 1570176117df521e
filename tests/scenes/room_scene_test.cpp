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
    EXPECT_THAT(changedBy([&] { update(3.75); }, scene), ElementsAre(&scene.getGraph().value));
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

} // namespace
