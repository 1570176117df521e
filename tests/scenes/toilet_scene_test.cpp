#include "tests/scenes/scene_stage.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsSubsetOf;

namespace {

using namespace catalogue;

using ToiletSceneTest = SceneTest<scenes::toilet>;

// clang-format off
struct Moment {
    const char* name;
    float rotate; ///< burger_rotate
    float lid;    ///< lid_rotate
};

const Moment moments[] = {
    {"Unturned",         0.0F,    0.0F},
    {"TurnedOnce",       1.0F,    0.0F},
    {"WithTheLidUp",     0.0F,    1.0F},
    {"TurnedALittle",    0.123F,  0.216F},
    {"TheOtherWay",      -0.371F, -0.5F},
    {"ManyTimesRound",   7.771F,  0.873F},
};
// clang-format on

TrackValues tracksOf(const Moment& moment)
{
    return {{tracks::burger_rotate, moment.rotate},
            {tracks::lid_rotate, moment.lid},
            {tracks::camera_pos_z, 2.0F}};
}

TEST_F(ToiletSceneTest, SendsItsTextTwoSamplersAndTheTime)
{
    lumeth::Scene& scene = build();
    const zund::DrawCommand text = drawn(scene, "scroller", 170.123456789);
    EXPECT_THAT(uniformNames(text), ElementsAre("tex_color", "tex_normal", "time"));
    EXPECT_EQ(uniform<int>(text, "tex_color"), 0);
    EXPECT_EQ(uniform<int>(text, "tex_normal"), 1);
    EXPECT_EQ(uniform<float>(text, "time"), 170.123456789F);
}

TEST_F(ToiletSceneTest, HidesItsSkyBehindTheGradient)
{
    lumeth::Scene& scene = build();
    ASSERT_EQ(drawsWith(scene, "grey_blue_background.frag", 9.25).size(), 1U);
    const zund::DrawCommand sky = scene.drawSkybox();
    EXPECT_EQ(uniform<glm::vec3>(sky, "background_color"), glm::vec3(0.3F, 0.3F, 0.4F));
    for (const zund::DrawCommand& command : renderer.frames.back()) {
        EXPECT_NE(command.program.get(), sky.program.get());
    }
}

TEST_F(ToiletSceneTest, BuildsEverythingInOrderAndTheTextAfterTheTracks)
{
    build({}, {320, 200});
    const Story own = {
        loading(models::toilet),
        loading(models::toilet_lid),
    };
    EXPECT_THAT(story(),
                ElementsAreArray(
                    joined({addingPass("post_letterbox.frag", 320, 200),
                            addingPass("post_gamma_encode.frag", 320, 200),
                            settingBackground("grey_blue_background.frag"),
                            own,
                            lookingUpTheCamera(),
                            {lookingUp(tracks::burger_rotate), lookingUp(tracks::lid_rotate),
                             "full-frame triangle at z -1", loading(textures::queue_main),
                             loading(textures::queue_border), "shader scroller.vert", "shader toilet.frag",
                             "createProgram", "uniform tex_color", "uniform tex_normal", "uniform time"}})));
}

class ToiletMoment : public ToiletSceneTest, public testing::WithParamInterface<Moment> {};

TEST_P(ToiletMoment, SpinsBackwardsAboutTheVerticalAxis)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    const float half = inDouble(moment.rotate, -6.28) * 0.5F;
    lumeth::DisplayListItem expected("", {0.0F, 0.0F, 0.0F}, y314, glm::vec3(1.0F));
    expected.setOrientation(xyzw(0.0F, std::sin(half), 0.0F, std::cos(half)));
    expectSame(itemAt(scene, "toilet").localMatrix, expected.localMatrix);
    // The angle is a float: at 49 radians it is off by up to 2 millionths.
    const auto angle = static_cast<double>(inDouble(moment.rotate, -6.28));
    EXPECT_NEAR(angle, static_cast<double>(moment.rotate) * -6.28, 2e-6);
    expectTurned(itemAt(scene, "toilet"), {0.0F, 0.0F, 0.0F}, angle, {0.0, 1.0, 0.0}, 1.0);
}

TEST_P(ToiletMoment, SwingsTheLidForwardsByHalfTurns)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    const float half = inDouble(moment.lid, 3.14) * 0.5F;
    lumeth::DisplayListItem expected("toilet_lid", {0.0F, 0.1F, -1.7F}, zeroQuaternion, glm::vec3(1.0F));
    expected.setOrientation(xyzw(std::sin(half), 0.0F, 0.0F, std::cos(half)));
    expectSame(itemAt(scene, "toilet/bowl/lid").localMatrix, expected.localMatrix);
    expectTurned(itemAt(scene, "toilet/bowl/lid"), {0.0F, 0.1F, -1.7F},
                 static_cast<double>(moment.lid) * 3.14, {1.0, 0.0, 0.0}, 1.0);
}

TEST_P(ToiletMoment, MovesNothingButCameraToiletAndLid)
{
    lumeth::Scene& scene = build(tracksOf(GetParam()));
    EXPECT_THAT(
        changedBy([&] { update(3.75); }, scene),
        IsSubsetOf({&scene.getGraph().value, &itemAt(scene, "toilet"), &itemAt(scene, "toilet/bowl/lid")}));
}
INSTANTIATE_TEST_SUITE_P(All, ToiletMoment, testing::ValuesIn(moments),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ToiletMoments, TellDoublesFromFloats)
{
    int turns = 0;
    int lids = 0;
    for (const Moment& moment : moments) {
        turns += inDouble(moment.rotate, -6.28) != moment.rotate * -6.28F ? 1 : 0;
        lids += inDouble(moment.lid, 3.14) != moment.lid * 3.14F ? 1 : 0;
    }
    EXPECT_GT(turns, 0);
    EXPECT_GT(lids, 0);
}

TEST_F(ToiletSceneTest, StandsUnturnedWithItsTracksAtZero)
{
    lumeth::Scene& scene = build({{tracks::camera_pos_z, 2.0F}});
    update(0.0);
    expectTurned(itemAt(scene, "toilet"), {0.0F, 0.0F, 0.0F}, 0.0, {0.0, 1.0, 0.0}, 1.0);
    expectTurned(itemAt(scene, "toilet/bowl/lid"), {0.0F, 0.1F, -1.7F}, 0.0, {1.0, 0.0, 0.0}, 1.0);
}

TEST_F(ToiletSceneTest, EndsAFullTurnALittleShort)
{
    lumeth::Scene& scene = build({{tracks::camera_pos_z, 2.0F}, {tracks::burger_rotate, 1.0F}});
    update(0.0);
    // 2 pi - 6.28 is 0.0031853: that much is missing of a turn in the negative sense.
    EXPECT_NEAR(itemAt(scene, "toilet").localMatrix[0][2], -0.0031853F, 1e-6F);
}

TEST_F(ToiletSceneTest, PlacesTheCameraAsTheTracksSay)
{
    lumeth::Scene& scene = build(cameraAt({0.3F, 0.4F, -1.7F}, {-0.05F, 0.1F, 1.0F}));
    update(3.75);
    expectCamera(scene, {0.3F, 0.4F, -1.7F}, {-0.05F, 0.1F, 1.0F});
}

} // namespace
