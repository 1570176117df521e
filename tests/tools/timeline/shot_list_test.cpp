#include "tools/timeline/shot_list.h"

#include "scenes/catalogue.h"
#include "tools/common/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::Error;
using tools::timeline::parseShots;
using tools::timeline::Shot;
using tools::timeline::ShotTrack;
using tools::timeline::tracksOf;

namespace {

constexpr const char* threeShots = R"(# row, scene, place, target, type
0:0:0,  room,    1 2 3,  4 5 6, linear
0:2:0,           1.5 2 3, 4 5 6
last,            2 2 3,  4 5 7, ramp
1:0:0,  bottle,  0 0.5 4, 0 0 2
2:0:0,  credits
3:0:0,  end
)";

std::vector<sync_key> keysOf(const char* text, std::string_view track)
{
    for (const ShotTrack& made : tracksOf(parseShots(text, "shots.txt"))) {
        if (made.name == track) {
            return made.keys;
        }
    }
    ADD_FAILURE() << "there is no track " << track;
    return {};
}

void expectKeys(const std::vector<sync_key>& keys, const std::vector<sync_key>& expected)
{
    ASSERT_EQ(keys.size(), expected.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].row, expected[i].row) << i;
        EXPECT_EQ(keys[i].value, expected[i].value) << i;
        EXPECT_EQ(keys[i].type, expected[i].type) << i;
    }
}

TEST(ShotList, CutsBetweenScenesWithSteps)
{
    expectKeys(keysOf(threeShots, "scene"), {{0, catalogue::scenes::room.number, SYNC_STEP},
                                             {64, catalogue::scenes::bottle.number, SYNC_STEP},
                                             {128, catalogue::scenes::credits.number, SYNC_STEP},
                                             {192, catalogue::endOfShow, SYNC_STEP}});
}

TEST(ShotList, LeadsTheCameraThroughAShotAndHoldsItUntilTheCut)
{
    expectKeys(
        keysOf(threeShots, "camera_pos_x"),
        {{0, 1.0F, SYNC_LINEAR}, {32, 1.5F, SYNC_SMOOTH}, {63, 2.0F, SYNC_STEP}, {64, 0.0F, SYNC_STEP}});
    expectKeys(
        keysOf(threeShots, "camera_tgt_z"),
        {{0, 6.0F, SYNC_LINEAR}, {32, 6.0F, SYNC_SMOOTH}, {63, 7.0F, SYNC_STEP}, {64, 2.0F, SYNC_STEP}});
}

TEST(ShotList, GivesEachOfTheSevenTracksItsOwnNumber)
{
    const std::vector<ShotTrack> tracks = tracksOf(parseShots("0, room, 1 2 3, 4 5 6\n", "shots.txt"));
    ASSERT_EQ(tracks.size(), 7U);
    EXPECT_EQ(tracks[0].name, "scene");
    for (std::size_t axis = 0; axis < 6; ++axis) {
        EXPECT_EQ(tracks[axis + 1].name, catalogue::tracks::camera[axis]->name);
        expectKeys(tracks[axis + 1].keys, {{0, static_cast<float>(axis + 1), SYNC_STEP}});
    }
}

TEST(ShotList, GivesNoTracksOfACameraThatNoSceneHas)
{
    EXPECT_EQ(tracksOf(parseShots("0, credits\n64, end\n", "shots.txt")).size(), 1U);
}

TEST(ShotList, TellsTheLineOfEachCut)
{
    const std::vector<Shot> shots = parseShots(threeShots, "shots.txt");
    ASSERT_EQ(shots.size(), 4U);
    EXPECT_EQ(shots[0].line, 2U);
    EXPECT_EQ(shots[1].line, 5U);
}

struct BadList {
    const char* name;
    const char* text;
    const char* sentence;
};

// clang-format off
constexpr BadList badLists[] = {
    {"Nothing",          "# no shot\n",                                     "shots.txt: holds no shot"},
    {"NoScene",          "0, 1 2 3, 4 5 6\n",                               "shots.txt:1: the first line must name a scene"},
    {"UnknownScene",     "0, kitchen, 1 2 3, 4 5 6\n",                      "shots.txt:1: there is no scene 'kitchen'"},
    {"BadRow",           "0:9:0, room, 1 2 3, 4 5 6\n",                     "shots.txt:1: row '0:9:0': a beat is 0 to 3"},
    {"SameRow",          "0, room, 1 2 3, 4 5 6\n0, 1 2 3, 4 5 6\n",        "shots.txt:2: row 0 does not come after row 0"},
    {"CutInAShot",       "0, room, 1 2 3, 4 5 6\n9, 1 2 3, 4 5 6\n8, end",  "shots.txt:3: row 8 does not come after row 9"},
    {"TwoCutsInARow",    "0, credits\n0, end\n",                            "shots.txt:2: row 0 does not come after row 0"},
    {"TwoNumbers",       "0, room, 1 2, 4 5 6\n",                           "shots.txt:1: expected 3 numbers, 'x y z', found '1 2'"},
    {"FourNumbers",      "0, room, 1 2 3 4, 4 5 6\n",                       "shots.txt:1: expected 3 numbers, 'x y z', found '1 2 3 4'"},
    {"NoNumber",         "0, room, 1 2 x, 4 5 6\n",                         "shots.txt:1: value 'x' is no number"},
    {"NoTarget",         "0, room, 1 2 3\n",                                "shots.txt:1: expected 'x y z, x y z, type' for the camera; the type may be left out"},
    {"NoCamera",         "0, room\n",                                       "shots.txt:1: expected 'x y z, x y z, type' for the camera; the type may be left out"},
    {"TooMuch",          "0, room, 1 2 3, 4 5 6, step, 7\n",                "shots.txt:1: expected 'x y z, x y z, type' for the camera; the type may be left out"},
    {"UnknownType",      "0, room, 1 2 3, 4 5 6, fast\n",                   "shots.txt:1: unknown type 'fast', expected step, linear, smooth or ramp"},
    {"CameraOfCredits",  "0, credits, 1 2 3, 4 5 6\n",                      "shots.txt:1: 'credits' has no camera"},
    {"LedWithoutCamera", "0, credits\n8, 1 2 3, 4 5 6\n",                   "shots.txt:2: the scene of this shot has no camera"},
    {"LastOfAll",        "0, room, 1 2 3, 4 5 6\nlast, 1 2 3, 4 5 6\n",     "shots.txt:2: no cut follows, so the shot has no last row"},
    {"LastAtOnce",       "0, room, 1 2 3, 4 5 6\nlast, 1 2 3, 4 5 6\n1, end", "shots.txt:2: row 0 does not come after row 0"},
    {"LastCut",          "last, room, 1 2 3, 4 5 6\n",                      "shots.txt:1: a cut needs a row"},
};
// clang-format on

class BadShotList : public TestWithParam<BadList> {};

TEST_P(BadShotList, IsRefusedWithPlaceAndReason)
{
    EXPECT_THAT([] { parseShots(GetParam().text, "shots.txt"); }, ThrowsMessage<Error>(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(All, BadShotList, ValuesIn(badLists),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
