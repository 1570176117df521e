#include "tools/timeline/scene_values.h"

#include "tools/common/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::Error;
using tools::timeline::checkSceneValues;
using tools::timeline::parseTrackText;

namespace {

void check(const char* text)
{
    checkSceneValues(parseTrackText(text, "scene.csv"), "scene.csv");
}

TEST(SceneValues, SelectEachSceneAndTheEnd)
{
    EXPECT_NO_THROW(check("0,4,step\n1,5,step\n2,6,step\n3,7,step\n4,8,step\n5,9,step\n6,-1,step\n"));
}

TEST(SceneValues, MayHaveAnyTypeWhereNothingChanges)
{
    EXPECT_NO_THROW(check("0,4,linear\n1,4,smooth\n2,4,step\n3,5,ramp\n"));
}

struct BadScene {
    const char* name;
    const char* text;
    const char* sentence;
};

// clang-format off
constexpr BadScene badScenes[] = {
    {"HalfWay",    "0,4,step\n# then\n8,5.5,step\n",
     "scene.csv:3: value 5.5 selects no scene; 4 is the room, 5 the credits, 6 the bottle, 7 the burger, 8 the toilet, 9 the people, -1 the end"},
    {"Zero",       "0,0,step\n",
     "scene.csv:1: value 0 selects no scene; 4 is the room, 5 the credits, 6 the bottle, 7 the burger, 8 the toilet, 9 the people, -1 the end"},
    {"TooHigh",    "0,10,step\n",
     "scene.csv:1: value 10 selects no scene; 4 is the room, 5 the credits, 6 the bottle, 7 the burger, 8 the toilet, 9 the people, -1 the end"},
    {"LastOfALine", "0,4,linear\n8,3,step\n",
     "scene.csv:2: value 3 selects no scene; 4 is the room, 5 the credits, 6 the bottle, 7 the burger, 8 the toilet, 9 the people, -1 the end"},
    {"Linear",     "0,4,step\n8,5,linear\n16,6,step\n",
     "scene.csv:2: linear from 5 to 6 passes through values that select no scene; use step"},
    {"Smooth",     "0,4,smooth\n8,-1,step\n",
     "scene.csv:1: smooth from 4 to -1 passes through values that select no scene; use step"},
    {"Ramp",       "0,9,ramp\n8,8,step\n",
     "scene.csv:1: ramp from 9 to 8 passes through values that select no scene; use step"},
};
// clang-format on

class BadSceneValues : public TestWithParam<BadScene> {};

TEST_P(BadSceneValues, AreRefusedWithAHint)
{
    EXPECT_THAT([] { check(GetParam().text); }, ThrowsMessage<Error>(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(Scenes, BadSceneValues, ValuesIn(badScenes),
                         [](const auto& info) { return info.param.name; });

} // namespace
