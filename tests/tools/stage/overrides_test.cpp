#include "tools/stage/overrides.h"

#include "tools/common/error.h"

#include <cmath>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Pair;
using testing::ThrowsMessage;
using tools::Error;
using tools::stage::findScene;
using tools::stage::Overrides;

namespace {

TEST(Overrides, TakeTheLaterValueOfATrack)
{
    Overrides overrides;
    for (const char* const text : {"box_open=-0.5", "burger_text=1", "box_open=-0.25"}) {
        tools::stage::setTrack(overrides, findScene("burger"), text);
    }
    EXPECT_THAT(overrides, ElementsAre(Pair("box_open", -0.25F), Pair("burger_text", 1.0F)));
}

TEST(Overrides, PlaceTheCameraInWorldSpace)
{
    Overrides overrides;
    tools::stage::setEye(overrides, findScene("room"), {1.0F, 2.0F, 3.0F}, "--eye");
    tools::stage::setTarget(overrides, findScene("room"), {4.0F, 5.0F, 6.0F}, "--target");
    EXPECT_THAT(overrides, ElementsAre(Pair("camera_pos_x", 1.0F), Pair("camera_pos_y", 2.0F),
                                       Pair("camera_pos_z", 3.0F), Pair("camera_tgt_x", 4.0F),
                                       Pair("camera_tgt_y", 5.0F), Pair("camera_tgt_z", 6.0F)));
}

TEST(Overrides, GiveThePeoplesCameraAsAngleHeightAndRadius)
{
    const glm::vec3 points[] = {
        {0.8F, 0.6F, 3.2F}, {-1.0F, 0.5F, -3.0F}, {2.0F, 0.0F, 0.0F}, {-2.0F, 1.0F, 0.01F}};
    for (const glm::vec3& eye : points) {
        Overrides overrides;
        tools::stage::setEye(overrides, findScene("people"), eye, "--eye");
        const float angle = overrides["camera_pos_x"] * 3.14F; // as the scene takes it
        const float radius = overrides["camera_pos_z"];
        EXPECT_NEAR(std::cos(angle) * radius, eye.x, 1e-5F);
        EXPECT_EQ(overrides["camera_pos_y"], eye.y);
        EXPECT_NEAR(std::sin(angle) * radius, eye.z, 1e-5F);
    }
}

struct BadOverride {
    const char* name;
    const char* scene;
    const char* text;
    const char* sentence;
};

// clang-format off
constexpr BadOverride badOverrides[] = {
    {"NoValue",      "burger",  "box_open",      "--set box_open: expected TRACK=VALUE"},
    {"NoNumber",     "burger",  "box_open=half", "--set box_open=half: expected a number"},
    {"NotANumber",   "burger",  "box_open=nan",  "--set box_open=nan: expected a number"},
    {"MoreBehind",   "burger",  "box_open=1;2",  "--set box_open=1;2: expected a number"},
    {"UnknownTrack", "people",  "nonsense=1",    "--set nonsense=1: the people scene reads no track 'nonsense'; it reads camera_pos_x, camera_pos_y, camera_pos_z, camera_tgt_x, camera_tgt_y, camera_tgt_z, hat_r"},
    {"OthersTrack",  "bottle",  "burger_text=1", "--set burger_text=1: the bottle scene reads no track 'burger_text'; it reads camera_pos_x, camera_pos_y, camera_pos_z, camera_tgt_x, camera_tgt_y, camera_tgt_z"},
    {"NoTracks",     "credits", "debug=1",       "--set debug=1: the credits scene reads no tracks"},
};
// clang-format on

class BadOverrides : public testing::TestWithParam<BadOverride> {};

TEST_P(BadOverrides, AreRefusedWithTheReason)
{
    Overrides overrides;
    EXPECT_THAT([&] { tools::stage::setTrack(overrides, findScene(GetParam().scene), GetParam().text); },
                ThrowsMessage<Error>(GetParam().sentence));
    EXPECT_TRUE(overrides.empty());
}

INSTANTIATE_TEST_SUITE_P(Texts, BadOverrides, testing::ValuesIn(badOverrides),
                         [](const auto& info) { return info.param.name; });

TEST(SceneTracks, AreRefusedForAnUnknownScene)
{
    EXPECT_THAT([] { findScene("end"); },
                ThrowsMessage<Error>(
                    "--scene end: no such scene; there are room, credits, bottle, burger, toilet, people"));
}

} // namespace
