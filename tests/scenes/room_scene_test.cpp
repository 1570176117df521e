#include "engine/default_material.h"
#include "scenes/tv_material.h"
#include "tests/scenes/scene_stage.h"
#include "tests/scenes/track_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Not;

namespace {

using namespace catalogue;

using RoomSceneTest = SceneTest<scenes::room>;

TEST_F(RoomSceneTest, BuildsEverythingInOrder)
{
    build({}, {320, 200});
    const Story own = {
        loading(models::room),
        loading(textures::room_diff),
        loading(models::sofa),
        loading(textures::sofa_diff),
        loading(textures::sofa_norm),
        loading(models::sofa_legs),
        loading(models::person),
        loading(models::hat),
        loading(models::glasses),
        loading(models::coffeetable),
        loading(textures::coffeetable_diff),
        loading(textures::coffeetable_norm),
        loading(models::beer),
        loading(textures::pisswasser),
        loading(models::tv),
        loading(textures::tv_emit),
        "shader material.vert",
        "shader tv.frag",
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
        loading(models::tvtable),
        loading(textures::plywood_diff),
        loading(textures::plywood_norm),
        loading(models::bigplant),
        loading(textures::bigplant),
        loading(models::flowerpot),
        loading(models::burgerbox_bottom),
        loading(models::burgerbox_top),
        loading(textures::burgerbox_top),
    };
    EXPECT_THAT(story(), ElementsAreArray(joined({addingPass("post_letterbox.frag", 320, 200),
                                                  addingPass("post_gamma_encode.frag", 320, 200),
                                                  own,
                                                  lookingUpTheCamera(),
                                                  {lookingUp(tracks::debug)}})));
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

class RoomCamera : public RoomSceneTest, public testing::WithParamInterface<View> {};

TEST_P(RoomCamera, StandsAndLooksWhereTheTracksSay)
{
    lumeth::Scene& scene = build(cameraAt(GetParam().position, GetParam().target));
    update(3.75);
    expectCamera(scene, GetParam().position, GetParam().target);
}
INSTANTIATE_TEST_SUITE_P(All, RoomCamera, testing::ValuesIn(views),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RoomSceneTest, MovesNothingButTheCamera)
{
    lumeth::Scene& scene = build(cameraAt(views[0].position, views[0].target));
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

TEST_F(RoomSceneTest, NeverReadsTheDebugTrack)
{
    build({{tracks::debug, 5.0F}});
    update(1.0);
    update(2.0);
    EXPECT_THAT(trackWatch.takeReads(), Not(Contains(tracks::debug.name)));
}

} // namespace
