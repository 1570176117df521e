#include "tests/engine/matrices.h"
#include "tests/scenes/scene_stage.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::UnorderedElementsAreArray;

namespace {

using namespace catalogue;

using BottleSceneTest = SceneTest<scenes::bottle>;

const TrackValues camera = cameraAt({0.25F, 0.5F, -0.75F}, {0.1F, 0.2F, 2.0F});

TEST_F(BottleSceneTest, ScrollsItsTextByTheTimeAlone)
{
    lumeth::Scene& scene = build(camera);
    update(1.0);
    const std::vector<zund::DrawCommand> before = drawsWith(scene, "scroller.frag", 1.0);
    const std::vector<zund::DrawCommand> after = drawsWith(scene, "scroller.frag", 170.123456789);
    ASSERT_EQ(before.size(), 1U);
    ASSERT_EQ(after.size(), 1U);
    EXPECT_THAT(uniformNames(before[0]), ElementsAre("time"));
    EXPECT_EQ(uniform<float>(before[0], "time"), 1.0F);
    EXPECT_EQ(uniform<float>(after[0], "time"), 170.123456789F);
}

TEST_F(BottleSceneTest, StandsBeforeAYellowGradientAndLeavesTheSkyBlack)
{
    lumeth::Scene& scene = build();
    ASSERT_EQ(drawsWith(scene, "background.frag", 9.25).size(), 1U);
    EXPECT_EQ(uniform<glm::vec3>(scene.drawSkybox(), "background_color"), glm::vec3(0.0F));
}

TEST_F(BottleSceneTest, BuildsEverythingInOrder)
{
    build({}, {320, 200});
    const Story own = {
        loading(models::beer),
        loading(textures::pisswasser),
        "full-frame triangle at z -1",
        loading(textures::unlimited),
        "shader scroller.vert",
        "shader scroller.frag",
        "createProgram",
        "uniform time",
    };
    EXPECT_THAT(story(),
                ElementsAreArray(joined({addingPass("post_letterbox.frag", 320, 200),
                                         addingPass("post_gamma_encode.frag", 320, 200),
                                         settingBackground("background.frag"), own, lookingUpTheCamera()})));
}

struct Moment {
    const char* name;
    double time;
};

const Moment moments[] = {
    {"AtTheStart", 0.0},   {"AfterASecond", 1.0},       {"AtAnOddTime", 12.3456789},
    {"Halfway", 93.71828}, {"NearTheEnd", 187.1234567}, {"BeforeTheStart", -0.5},
};

class BottleMoment : public BottleSceneTest, public testing::WithParamInterface<Moment> {};

TEST_P(BottleMoment, CirclesAndSpinsEachBottle)
{
    const double time = GetParam().time;
    lumeth::Scene& scene = build(camera);
    update(time);
    for (int n = 0; n < 10; ++n) {
        SCOPED_TRACE(n);
        const double phase = n * 0.628;
        const double place = 0.5 * time + phase;
        const glm::vec3 position(static_cast<float>(0.5 * std::cos(place)), 0.0F,
                                 2.0F + static_cast<float>(0.5 * std::sin(place)));
        const float half = 0.5F * static_cast<float>(phase + time);

        lumeth::DisplayListItem expected("", {static_cast<float>(0.1 * n), 0.0F, 1.0F}, zeroQuaternion,
                                         glm::vec3(0.04F));
        expected.setPosition(position);
        expected.setOrientation(xyzw(0.0F, 0.0F, std::sin(half), std::cos(half)));
        const lumeth::DisplayListItem& item = itemAt(scene, "beer" + std::to_string(n));
        expectSame(item.localMatrix, expected.localMatrix);
        // The spin is a float: at 190 radians it is off by up to 8 millionths.
        const auto spin = static_cast<double>(static_cast<float>(phase + time));
        EXPECT_NEAR(spin, n * 0.628 + time, 8e-6);
        expectTurned(item, position, spin, {0.0, 0.0, 1.0}, 0.04);
    }
}

TEST_P(BottleMoment, MovesNothingButCameraAndRing)
{
    lumeth::Scene& scene = build(camera);
    std::vector<const lumeth::DisplayListItem*> moving = {&scene.getGraph().value};
    for (int n = 0; n < 10; ++n) {
        moving.push_back(&itemAt(scene, "beer" + std::to_string(n)));
    }
    EXPECT_THAT(changedBy([&] { update(GetParam().time); }, scene), UnorderedElementsAreArray(moving));
}

TEST_P(BottleMoment, PlacesTheCameraAsTheTracksSay)
{
    lumeth::Scene& scene = build(camera);
    update(GetParam().time);
    expectCamera(scene, {0.25F, 0.5F, -0.75F}, {0.1F, 0.2F, 2.0F});
}
INSTANTIATE_TEST_SUITE_P(All, BottleMoment, testing::ValuesIn(moments),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(BottleSceneTest, IsBuiltAsARowThatNoFrameShows)
{
    lumeth::Scene& scene = build(camera);
    for (int n = 0; n < 10; ++n) {
        const glm::vec4& place = itemAt(scene, "beer" + std::to_string(n)).localMatrix[3];
        EXPECT_EQ(place, glm::vec4(static_cast<float>(0.1 * n), 0.0F, 1.0F, 1.0F));
    }
    update(0.0);
    for (int n = 0; n < 10; ++n) {
        EXPECT_GT(itemAt(scene, "beer" + std::to_string(n)).localMatrix[3].z, 1.25F);
    }
}

TEST_F(BottleSceneTest, StartsTheFirstBottleUnturnedOnTheRightOfTheRing)
{
    lumeth::Scene& scene = build(camera);
    update(0.0);
    const glm::mat4& matrix = itemAt(scene, "beer0").localMatrix;
    EXPECT_EQ(matrix[3], glm::vec4(0.5F, 0.0F, 2.0F, 1.0F));
    expectTurned(itemAt(scene, "beer0"), {0.5F, 0.0F, 2.0F}, 0.0, {0.0, 0.0, 1.0}, 0.04);
}

TEST_F(BottleSceneTest, LeavesAGapInTheRing)
{
    lumeth::Scene& scene = build(camera);
    update(0.0);
    // 9 * 0.628 is 5.652, and 0.631185 short of a full circle where the others are 0.628 apart.
    const glm::vec4 last = itemAt(scene, "beer9").localMatrix[3];
    EXPECT_NEAR(std::atan2(last.z - 2.0F, last.x), -0.631185F, 2e-6F);
}

} // namespace
