#include "tests/scenes/scene_stage.h"
#include "tests/scenes/track_watch.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Not;

namespace {

using namespace catalogue;

using BurgerSceneTest = SceneTest<scenes::burger>;

// clang-format off
/// How one layer of the burger moves.
struct Layer {
    const char* node;
    const char* object;
    double rise;   ///< times "burger_open"
    double rest;   ///< height without it
    float tumble;  ///< times "burger_random" half turns
    glm::vec3 axis;
};

constexpr float s = 0.7071068F;
const Layer layers[] = {
    // node            object           rise   rest           tumble  axis
    {"burger_top",     "burger_top",    1.0,   0.0,           -0.7F,  {s, 0.0F, -s}},
    {"burger_cheese2", "burger_cheese", 0.9,   0.00999999978, 0.3F,   {s, 0.0F, s}},
    {"burger_steak2",  "burger_steak",  0.8,   0.00999999978, -0.4F,  {1.0F, 0.0F, 0.0F}},
    {"burger_middle",  "burger_middle", 0.6,   0.0,           0.3F,   {1.0F, 0.0F, 0.0F}},
    {"burger_cheese1", "burger_cheese", 0.45,  0.0,           -0.4F,  {0.0F, 0.0F, 1.0F}},
    {"burger_steak1",  "burger_steak",  0.3,   0.0,           0.3F,   {1.0F, 0.0F, 0.0F}},
    {"burger_bottom",  "burger_bottom", 0.2,   0.0,           0.0F,   {0.0F, 0.0F, 0.0F}},
};

struct Moment {
    const char* name;
    float rotate;
    float pitch;
    float lid;
    float open;
    float random;
};

const Moment moments[] = {
    // name                    rotate    pitch    lid      open     random
    {"Closed",                 0.0F,     0.0F,    0.0F,    0.0F,    0.0F},
    {"TurnedOnce",             1.0F,     0.0F,    0.0F,    0.0F,    0.0F},
    {"PitchedOver",            0.0F,     1.0F,    0.0F,    0.0F,    0.0F},
    {"TurnedAndPitched",       0.3F,     0.206F,   0.0F,    0.0F,    0.0F},
    {"TheOtherWay",            -0.77F,   -0.407F, -0.206F,  0.0F,    0.0F},
    {"WithAnOpenLid",          0.0F,     0.0F,    0.63F,   0.0F,    0.0F},
    {"WithTheLidAllAround",    0.123F,   0.0F,    1.0F,    0.0F,    0.0F},
    {"RisenByOne",             0.0F,     0.0F,    0.0F,    1.0F,    0.0F},
    {"RisenALittle",           0.0F,     0.0F,    0.7F,    0.123F,  0.0F},
    {"Tumbled",                0.0F,     0.0F,    0.7F,    0.0F,    1.0F},
    {"TumbledBackwards",       0.871F,   0.373F,  0.873F,  -0.057F, -0.023F},
    {"AllAtOnce",              2.217F,   0.873F,  0.571F,  0.371F,  0.199F},
};
// clang-format on

TrackValues tracksOf(const Moment& moment)
{
    return {{tracks::burger_rotate, moment.rotate}, {tracks::burger_pitch, moment.pitch},
            {tracks::box_open, moment.lid},         {tracks::burger_open, moment.open},
            {tracks::burger_random, moment.random}, {tracks::camera_pos_z, 2.0F}};
}

glm::quat about(const glm::vec3& axis, float angle)
{
    const float half = angle * 0.5F;
    return xyzw(axis.x * std::sin(half), axis.y * std::sin(half), axis.z * std::sin(half), std::cos(half));
}

TEST_F(BurgerSceneTest, StartsWithAllVisibleButTheText)
{
    lumeth::Scene& scene = build();
    const lumeth::DisplayListItem* const text = &itemAt(scene, "scroller");
    for (const lumeth::DisplayListItem* const item : itemsOf(scene)) {
        EXPECT_EQ(item->visible, item != text) << item->objectName;
    }
}

TEST_F(BurgerSceneTest, SendsItsTextTheTimeAlone)
{
    lumeth::Scene& scene = build();
    const zund::DrawCommand text = drawn(scene, "scroller", 170.123456789);
    EXPECT_THAT(uniformNames(text), ElementsAre("time"));
    EXPECT_EQ(uniform<float>(text, "time"), 170.123456789F);
}

TEST_F(BurgerSceneTest, HidesItsSkyBehindTheGradient)
{
    lumeth::Scene& scene = build();
    ASSERT_EQ(drawsWith(scene, "grey_blue_background.frag", 9.25).size(), 1U);
    const zund::DrawCommand sky = scene.drawSkybox();
    EXPECT_EQ(uniform<glm::vec3>(sky, "background_color"), glm::vec3(0.3F, 0.3F, 0.4F));
    for (const zund::DrawCommand& command : renderer.frames.back()) {
        EXPECT_NE(command.program.get(), sky.program.get());
    }
}

TEST_F(BurgerSceneTest, BuildsEverythingInOrderAndTheTextAfterTheTracks)
{
    build({}, {320, 200});
    const Story own = {
        loading(models::burgerbox_bottom), loading(models::burgerbox_top), loading(textures::burgerbox_top),
        loading(models::burger_top),       loading(models::burger_bottom), loading(models::burger_middle),
        loading(models::burger_steak),     loading(models::burger_cheese),
    };
    EXPECT_THAT(
        story(),
        ElementsAreArray(joined(
            {addingPass("post_letterbox.frag", 320, 200),
             addingPass("post_gamma_encode.frag", 320, 200),
             settingBackground("grey_blue_background.frag"),
             own,
             lookingUpTheCamera(),
             {lookingUp(tracks::burger_rotate), lookingUp(tracks::burger_pitch), lookingUp(tracks::box_open),
              lookingUp(tracks::burger_open), lookingUp(tracks::burger_random),
              lookingUp(tracks::burger_text), "full-frame triangle at z -1", loading(textures::burgertext),
              "shader scroller.vert", "shader burger.frag", "createProgram", "uniform time"}})));
}

TEST_F(BurgerSceneTest, PlacesTheCameraAsTheTracksSay)
{
    lumeth::Scene& scene = build(cameraAt({0.3F, 0.4F, -1.7F}, {-0.05F, 0.1F, 1.0F}));
    update(3.75);
    expectCamera(scene, {0.3F, 0.4F, -1.7F}, {-0.05F, 0.1F, 1.0F});
}

class BurgerMoment : public BurgerSceneTest, public testing::WithParamInterface<Moment> {};

TEST_P(BurgerMoment, PitchesTheBoxBeforeItTurnsIt)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    const float pitch = moment.pitch * -3.14F;
    const float turn = inDouble(moment.rotate, -6.28);
    const glm::quat x = about({1.0F, 0.0F, 0.0F}, pitch);
    const glm::quat y = about({0.0F, 1.0F, 0.0F}, turn);
    // Hamilton's product of y and x, of whose components half are zero.
    const glm::quat both = xyzw(y.w * x.x, y.y * x.w, -(y.y * x.x), y.w * x.w);
    lumeth::DisplayListItem expected("", {0.0F, 0.0F, 1.0F}, y314, glm::vec3(1.0F));
    expected.setOrientation(both);
    const glm::mat4& matrix = itemAt(scene, "box").localMatrix;
    expectSame(matrix, expected.localMatrix);

    // In full precision: what points along y is first pitched, then turned.
    const double a1 = static_cast<double>(moment.pitch) * -3.14;
    const double a2 = static_cast<double>(moment.rotate) * -6.28;
    EXPECT_NEAR(matrix[1][0], std::sin(a2) * std::sin(a1), 2e-6);
    EXPECT_NEAR(matrix[1][1], std::cos(a1), 2e-6);
    EXPECT_NEAR(matrix[1][2], std::cos(a2) * std::sin(a1), 2e-6);
    EXPECT_NEAR(matrix[0][0], std::cos(a2), 2e-6);
    EXPECT_NEAR(matrix[0][1], 0.0, 2e-6);
    EXPECT_NEAR(matrix[0][2], -std::sin(a2), 2e-6);
}

TEST_P(BurgerMoment, OpensTheLid)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    lumeth::DisplayListItem expected("boxt", {0.0F, 0.0F, -0.05F}, zeroQuaternion, glm::vec3(0.02F));
    expected.setOrientation(about({1.0F, 0.0F, 0.0F}, inDouble(moment.lid, 3.14)));
    expectSame(itemAt(scene, "box/boxt").localMatrix, expected.localMatrix);
    expectTurned(itemAt(scene, "box/boxt"), {0.0F, 0.0F, -0.05F}, static_cast<double>(moment.lid) * 3.14,
                 {1.0, 0.0, 0.0}, 0.02);
}

TEST_P(BurgerMoment, RaisesAndTumblesEachLayer)
{
    const Moment& moment = GetParam();
    lumeth::Scene& scene = build(tracksOf(moment));
    update(3.75);
    const float random = inDouble(moment.random, 3.14);
    for (const Layer& layer : layers) {
        SCOPED_TRACE(layer.node);
        const auto height = static_cast<float>(layer.rise * static_cast<double>(moment.open) + layer.rest);
        const bool tumbles = layer.tumble != 0.0F;
        lumeth::DisplayListItem expected(layer.object, {0.0F, static_cast<float>(layer.rest), 0.0F},
                                         zeroQuaternion, glm::vec3(0.02F));
        expected.setPosition({0.0F, height, 0.0F});
        if (tumbles) {
            expected.setOrientation(about(layer.axis, random * layer.tumble));
        }
        const lumeth::DisplayListItem& item = itemAt(scene, std::string("box/") + layer.node);
        expectSame(item.localMatrix, expected.localMatrix);
        // An axis of the table is of length 1 up to the rounding of its literal.
        expectTurned(item, {0.0F, height, 0.0F},
                     static_cast<double>(moment.random) * 3.14 * static_cast<double>(layer.tumble),
                     layer.axis, 0.02);
    }
}

TEST_P(BurgerMoment, MovesNeitherTrayNorText)
{
    lumeth::Scene& scene = build(tracksOf(GetParam()));
    const auto changed = changedBy([&] { update(3.75); }, scene);
    EXPECT_THAT(changed, Contains(&itemAt(scene, "box")));
    EXPECT_THAT(changed, Not(Contains(&itemAt(scene, "box/boxb"))));
    EXPECT_THAT(changed, Not(Contains(&itemAt(scene, "scroller"))));
}
INSTANTIATE_TEST_SUITE_P(All, BurgerMoment, testing::ValuesIn(moments),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(BurgerMoments, TellDoublesFromFloats)
{
    int turns = 0;
    int lids = 0;
    int randoms = 0;
    int rises = 0;
    int pitches = 0;
    int tumbles7 = 0;
    int tumbles4 = 0;
    int tumbles3 = 0;
    for (const Moment& moment : moments) {
        turns += inDouble(moment.rotate, -6.28) != moment.rotate * -6.28F ? 1 : 0;
        lids += inDouble(moment.lid, 3.14) != moment.lid * 3.14F ? 1 : 0;
        randoms += inDouble(moment.random, 3.14) != moment.random * 3.14F ? 1 : 0;
        const auto high = static_cast<float>(0.9 * static_cast<double>(moment.open) + 0.00999999978);
        pitches += inDouble(moment.pitch, -3.14) != moment.pitch * -3.14F ? 1 : 0;
        const float random = inDouble(moment.random, 3.14);
        tumbles7 += inDouble(random, 0.7) != random * 0.7F ? 1 : 0;
        tumbles4 += inDouble(random, 0.4) != random * 0.4F ? 1 : 0;
        tumbles3 += inDouble(random, 0.3) != random * 0.3F ? 1 : 0;
        rises += high != 0.9F * moment.open + 0.01F ? 1 : 0;
    }
    EXPECT_GT(turns, 0);
    EXPECT_GT(lids, 0);
    EXPECT_GT(randoms, 0);
    EXPECT_GT(rises, 0);
    EXPECT_GT(pitches, 0);
    EXPECT_GT(tumbles7, 0);
    EXPECT_GT(tumbles4, 0);
    EXPECT_GT(tumbles3, 0);
}

TEST_F(BurgerSceneTest, StandsAssembledAndClosedWithAllTracksAtZero)
{
    lumeth::Scene& scene = build({{tracks::camera_pos_z, 2.0F}});
    update(0.0);
    expectTurned(itemAt(scene, "box/boxt"), {0.0F, 0.0F, -0.05F}, 0.0, {1.0, 0.0, 0.0}, 0.02);
    for (const Layer& layer : layers) {
        SCOPED_TRACE(layer.node);
        expectTurned(itemAt(scene, std::string("box/") + layer.node),
                     {0.0F, static_cast<float>(layer.rest), 0.0F}, 0.0, {1.0, 0.0, 0.0}, 0.02);
    }
    expectTurned(itemAt(scene, "box"), {0.0F, 0.0F, 1.0F}, 0.0, {1.0, 0.0, 0.0}, 1.0);
    EXPECT_FALSE(itemAt(scene, "scroller").visible);
}

TEST_F(BurgerSceneTest, SpreadsTheLayersOverOneUnit)
{
    lumeth::Scene& scene = build({{tracks::camera_pos_z, 2.0F}, {tracks::burger_open, 1.0F}});
    update(0.0);
    const std::pair<const char*, float> heights[] = {
        {"burger_top", 1.0F},
        {"burger_cheese2", 0.91F},
        {"burger_steak2", 0.81F},
        {"burger_middle", 0.6F},
        {"burger_cheese1", 0.45F},
        {"burger_steak1", 0.3F},
        {"burger_bottom", 0.2F},
        {"boxb", 0.0F},
        {"boxt", 0.0F},
    };
    for (const auto& [node, height] : heights) {
        EXPECT_FLOAT_EQ(itemAt(scene, std::string("box/") + node).localMatrix[3].y, height) << node;
    }
}

struct TextSwitch {
    const char* name;
    float value; ///< of "burger_text"
    bool visible;
};

const TextSwitch textSwitches[] = {
    {"OffBelowZero", -1.0F, false},    {"OffAtZero", 0.0F, false}, {"OffAtNegativeZero", -0.0F, false},
    {"OnJustAboveZero", 1e-30F, true}, {"OnAtAHalf", 0.5F, true},  {"OnAtOne", 1.0F, true},
};

class BurgerText : public BurgerSceneTest, public testing::WithParamInterface<TextSwitch> {};

TEST_P(BurgerText, IsDrawnOnlyAboveZero)
{
    lumeth::Scene& scene = build({{tracks::camera_pos_z, 2.0F}, {tracks::burger_text, GetParam().value}});
    update(0.0);
    EXPECT_EQ(itemAt(scene, "scroller").visible, GetParam().visible);
    EXPECT_EQ(drawsWith(scene, "burger.frag", 0.0).size(), GetParam().visible ? 1U : 0U);
}
INSTANTIATE_TEST_SUITE_P(All, BurgerText, testing::ValuesIn(textSwitches),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(BurgerSceneTest, GoesOnWithoutTheTextWhenItIsSwitchedOff)
{
    folder.writeTrack(tracks::burger_text.name, {{0, 1.0F, 0}, {100, 0.0F, 0}});
    lumeth::Scene& scene = build({{tracks::camera_pos_z, 2.0F}});
    update(0.0);
    EXPECT_TRUE(itemAt(scene, "scroller").visible);
    update(100.5 / 34.13333333333333);
    EXPECT_FALSE(itemAt(scene, "scroller").visible);
}

TEST_F(BurgerSceneTest, ReadsTheTextTrackLastAfterAllTransforms)
{
    lumeth::Scene& scene = build({{tracks::camera_pos_z, 2.0F}, {tracks::burger_random, 0.5F}});
    bool tumbled = false;
    trackWatch.onRead = [&](const std::string& track) {
        if (track == tracks::burger_text.name) {
            tumbled = itemAt(scene, "box/burger_steak1").localMatrix[1][2] != 0.0F;
        }
    };
    update(0.0);
    EXPECT_TRUE(tumbled);
    const std::vector<std::string> reads = trackWatch.takeReads();
    ASSERT_EQ(reads.size(), 12U);
    EXPECT_EQ(reads.back(), tracks::burger_text.name);
}

} // namespace
