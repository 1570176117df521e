#include "tests/scenes/scene_stage.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::UnorderedElementsAre;

namespace {

using namespace catalogue;

using PeopleSceneTest = SceneTest<scenes::people>;

TEST_F(PeopleSceneTest, SendsItsTextTheTimeAlone)
{
    lumeth::Scene& scene = build();
    const zund::DrawCommand text = drawn(scene, "scroller", 170.123456789);
    EXPECT_THAT(uniformNames(text), ElementsAre("time"));
    EXPECT_EQ(uniform<float>(text, "time"), 170.123456789F);
}

TEST_F(PeopleSceneTest, StandsBeforeAWarmGradientAndLeavesTheSkyBlack)
{
    lumeth::Scene& scene = build();
    const std::vector<zund::DrawCommand> backgrounds = drawsWith(scene, "warm_teal_background.frag", 9.25);
    ASSERT_EQ(backgrounds.size(), 1U);
    EXPECT_EQ(uniform<glm::vec2>(backgrounds[0], "resolution"), glm::vec2(320.0F, 200.0F));
    EXPECT_EQ(uniform<glm::vec3>(scene.drawSkybox(), "background_color"), glm::vec3(0.0F));
}

TEST_F(PeopleSceneTest, BuildsEverythingInOrder)
{
    build({}, {320, 200});
    const Story own = {
        loading(models::sofa),
        loading(textures::sofa_diff),
        loading(textures::sofa_norm),
        loading(models::person),
        loading(models::hat),
        loading(models::glasses),
        "full-frame triangle at z 0",
        loading(textures::pants),
        "shader scroller.vert",
        "shader pscroller.frag",
        "createProgram",
        "uniform time",
        loading(models::sofa_legs),
    };
    EXPECT_THAT(story(), ElementsAreArray(joined({addingPass("post_letterbox.frag", 320, 200),
                                                  addingPass("post_gamma_encode.frag", 320, 200),
                                                  settingBackground("warm_teal_background.frag"),
                                                  own,
                                                  lookingUpTheCamera(),
                                                  {lookingUp(tracks::hat_r)}})));
}

struct Moment {
    const char* name;
    float orbit;  ///< camera_pos_x
    float height; ///< camera_pos_y
    float radius; ///< camera_pos_z
    glm::vec3 target;
    float hat; ///< hat_r
};

// clang-format off
const Moment moments[] = {
    // name                   orbit    height  radius   target                    hat
    {"InFront",               0.0F,    0.5F,   3.0F,    {0.0F, 0.0F, 0.0F},       0.0F},
    {"AQuarterRound",         0.5F,    0.25F,  2.75F,   {0.1F, -0.2F, 0.3F},      0.25F},
    {"HalfWayRound",          1.0F,    -0.5F,  4.0F,    {0.0F, 0.1F, 0.0F},       0.5F},
    {"TheOtherWay",           -0.373F, 1.3F,   1.7F,    {-0.5F, 0.75F, -0.36F},   0.596F},
    {"ManyTimesRound",        7.3F,    2.0F,   6.1F,    {0.5F, 0.67F, -0.35F},    1.0F},
    {"WithANegativeRadius",   0.2F,    0.1F,   -2.0F,   {0.0F, 0.0F, 0.5F},       -0.3F},
    {"AtAnOddTilt",           0.11F,   0.7F,   2.3F,    {0.0F, 0.2F, 0.1F},       0.123F},
    {"AtAnotherOddTilt",      0.775F,  0.7F,   2.3F,    {0.0F, 0.2F, 0.1F},       3.217F},
    {"AtAThirdOddTilt",       0.933F,  0.7F,   2.3F,    {0.0F, 0.2F, 0.1F},       0.873F},
};
// clang-format on

TrackValues tracksOf(const Moment& moment)
{
    TrackValues values = cameraAt({moment.orbit, moment.height, moment.radius}, moment.target);
    values.emplace_back(tracks::hat_r, moment.hat);
    return values;
}

/// What hat and glasses tip by, before their shares.
float swingOf(float hat)
{
    return std::fabs(std::cos(hat * 3.14F - 0.3F)) * 3.14F;
}

/// A share of the swing, taken in double precision.
float shareOf(float swing, double share)
{
    return static_cast<float>(static_cast<double>(swing) * share);
}

glm::quat aboutX(float angle)
{
    const float half = angle * 0.5F;
    return xyzw(std::sin(half), 0.0F, 0.0F, std::cos(half));
}

class PeopleMoment : public PeopleSceneTest, public testing::WithParamInterface<Moment> {};

TEST_P(PeopleMoment, CirclesTheVerticalAxisWithTheCamera)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    const float angle = moment.orbit * 3.14F;
    const glm::vec3 position(std::cos(angle) * moment.radius, moment.height, moment.radius * std::sin(angle));
    expectCamera(scene, position, moment.target);
}

TEST_P(PeopleMoment, TipsTheHatByATwentiethOfTheSwing)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    lumeth::DisplayListItem expected("", {-0.5F, 0.75F, -0.36F}, zeroQuaternion, glm::vec3(0.2F));
    expected.setOrientation(aboutX(shareOf(swingOf(moment.hat), 0.05)));
    expectSame(itemAt(scene, "ukko1_hat").localMatrix, expected.localMatrix);

    const double swing = std::fabs(std::cos(static_cast<double>(moment.hat) * 3.14 - 0.3)) * 3.14;
    expectTurned(itemAt(scene, "ukko1_hat"), {-0.5F, 0.75F, -0.36F}, swing * 0.05, {1.0, 0.0, 0.0}, 0.2);
}

TEST_P(PeopleMoment, TipsTheGlassesByATenthOfTheSwing)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    lumeth::DisplayListItem expected("glasses", {0.5F, 0.67F, -0.35F}, zeroQuaternion, glm::vec3(0.2F));
    expected.setOrientation(aboutX(shareOf(swingOf(moment.hat), 0.1)));
    expectSame(itemAt(scene, "ukko2_glasses").localMatrix, expected.localMatrix);

    const double swing = std::fabs(std::cos(static_cast<double>(moment.hat) * 3.14 - 0.3)) * 3.14;
    expectTurned(itemAt(scene, "ukko2_glasses"), {0.5F, 0.67F, -0.35F}, swing * 0.1, {1.0, 0.0, 0.0}, 0.2);
}

TEST_P(PeopleMoment, MovesNothingButCameraHatAndGlasses)
{
    lumeth::Scene& scene = build(tracksOf(GetParam()));
    EXPECT_THAT(changedBy([&] { update(3.75); }, scene),
                UnorderedElementsAre(&scene.getGraph().value, &itemAt(scene, "ukko1_hat"),
                                     &itemAt(scene, "ukko2_glasses")));
}
INSTANTIATE_TEST_SUITE_P(All, PeopleMoment, testing::ValuesIn(moments),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PeopleMoments, TellDoublesFromFloats)
{
    int hats = 0;
    int glasses = 0;
    for (const Moment& moment : moments) {
        const float swing = swingOf(moment.hat);
        hats += shareOf(swing, 0.05) != swing * 0.05F ? 1 : 0;
        glasses += shareOf(swing, 0.1) != swing * 0.1F ? 1 : 0;
    }
    EXPECT_GT(hats, 0);
    EXPECT_GT(glasses, 0);
}

TEST_F(PeopleSceneTest, IsNotUprightWhereTheHatTrackIsZero)
{
    lumeth::Scene& scene = build({{tracks::hat_r, 0.0F}, {tracks::camera_pos_z, 1.0F}});
    update(0.0);
    // |cos(-0.3)| * 3.14 is 2.99976.
    EXPECT_NEAR(swingOf(0.0F), 2.99976F, 1e-4F);
    expectTurned(itemAt(scene, "ukko1_hat"), {-0.5F, 0.75F, -0.36F}, 0.1499875, {1.0, 0.0, 0.0}, 0.2);
    expectTurned(itemAt(scene, "ukko2_glasses"), {0.5F, 0.67F, -0.35F}, 0.299975, {1.0, 0.0, 0.0}, 0.2);
}

TEST_F(PeopleSceneTest, IsAllButUprightWhereTheCosineCrossesZero)
{
    lumeth::Scene& scene = build({{tracks::hat_r, 0.596F}, {tracks::camera_pos_z, 1.0F}});
    update(0.0);
    // Of 0.596 * 3.14 - 0.3 = 1.57144 the cosine is -0.00064.
    EXPECT_NEAR(itemAt(scene, "ukko1_hat").localMatrix[1][2], 0.2F * 0.05F * 0.00064F * 3.14F, 2e-6F);
    EXPECT_NEAR(itemAt(scene, "ukko2_glasses").localMatrix[1][2], 0.2F * 0.1F * 0.00064F * 3.14F, 4e-6F);
}

TEST_F(PeopleSceneTest, StandsOnTheAxisWithoutARadiusWhateverTheAngle)
{
    lumeth::Scene& scene =
        build({{tracks::camera_pos_x, 0.7F}, {tracks::camera_pos_y, 2.0F}, {tracks::camera_tgt_z, -1.0F}});
    update(0.0);
    expectCamera(scene, {0.0F, 2.0F, 0.0F}, {0.0F, 0.0F, -1.0F});
}

TEST_F(PeopleSceneTest, EndsAHalfOrbitALittleShort)
{
    lumeth::Scene& scene = build({{tracks::camera_pos_x, 1.0F}, {tracks::camera_pos_z, 2.0F}});
    update(0.0);
    // cos 3.14 = -0.99999873, sin 3.14 = 0.00159265: the eye is at twice that, and the view looks down on it.
    const glm::mat4 world = glm::inverse(scene.getGraph().value.localMatrix);
    EXPECT_NEAR(world[3].x, -1.99999746F, 1e-6F);
    EXPECT_NEAR(world[3].z, 0.0031853F, 1e-6F);
}

TEST_F(PeopleSceneTest, MovesNeitherTextNorItsDepthWithTheCamera)
{
    lumeth::Scene& scene = build(tracksOf(moments[1]));
    update(3.75);
    const std::vector<zund::DrawCommand> texts = drawsWith(scene, "pscroller.frag", 3.75);
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_THAT(uniformNames(texts[0]), ElementsAre("time"));
    EXPECT_TRUE(texts[0].depthWrite);
}

} // namespace
