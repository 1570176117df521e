#include "tools/trackc/compile.h"

#include "sync/syncdevice.h"
#include "sync/tools.h"
#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"
#include "tools/timeline/track_file.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::ThrowsMessage;
using tools::Error;
using tools::trackc::compileTracks;

namespace {

class Compile : public InTemporaryFolder {};

TEST_F(Compile, WritesWhatTheShowReads)
{
    write("camera_pos_x.csv", "0:0:10, 0, linear\n20, 1, smooth\n30, 0, ramp\n40, 1, step\n");
    write("scene.csv", "0, 4, step\n64, -1, step\n");
    compileTracks({"camera_pos_x.csv", "scene.csv"}, "out/assets");
    const tolv::SyncDevice device("out/assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const tolv::SyncTrack camera = device.getTrack("camera_pos_x");
    EXPECT_EQ(device.getValue(camera, 0.0), 0.0F);
    EXPECT_EQ(device.getValue(camera, 15.0), 0.5F);
    EXPECT_EQ(device.getValue(camera, 22.0), 0.896F);
    EXPECT_EQ(device.getValue(camera, 35.0), 0.25F);
    EXPECT_EQ(device.getValue(camera, 1000.0), 1.0F);
    const tolv::SyncTrack scene = device.getTrack("scene");
    EXPECT_EQ(device.getValue(scene, 63.9), 4.0F);
    EXPECT_EQ(device.getValue(scene, 64.0), -1.0F);
}

TEST_F(Compile, EncodesTheNameAsTheShowDoes)
{
    write("group:lid-angle.csv", "0, 4, step\n");
    compileTracks({"group:lid-angle.csv"}, "out");
    EXPECT_THAT(namesIn("out"), ElementsAre("sync_group-3Alid-2Dangle.track"));
    const tolv::SyncDevice device("out/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    EXPECT_EQ(device.getValue(device.getTrack("group:lid-angle"), 0.0), 4.0F);
}

TEST_F(Compile, MakesSevenTracksOfAShotList)
{
    write("shots.txt", "0, room, 1 2 3, 4 5 6\n8, 2 2 3, 4 5 6\n64, end\n");
    write("lid_rotate.csv", "0, 1, step\n");
    const auto tracks = compileTracks({"lid_rotate.csv", "shots.txt"}, "out");
    ASSERT_EQ(tracks.size(), 8U);
    EXPECT_EQ(tracks[1].name, "scene");
    EXPECT_EQ(tracks[1].lastRow, 64);
    const tolv::SyncDevice device("out/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    EXPECT_EQ(device.getValue(device.getTrack("camera_pos_x"), 4.0), 1.5F);
    EXPECT_EQ(device.getValue(device.getTrack("camera_tgt_z"), 30.0), 6.0F);
}

TEST_F(Compile, RefusesATrackThatTheShotListGivesAlready)
{
    write("shots.txt", "0, credits\n64, end\n");
    write("scene.csv", "0, 5, step\n");
    EXPECT_THAT(
        [] {
            compileTracks({"shots.txt", "scene.csv"}, "out");
        },
        ThrowsMessage<Error>("scene.csv: the track 'scene' comes from shots.txt already"));
}

TEST_F(Compile, TellsKeysAndLastRowOfEachTrack)
{
    write("a.csv", "0, 1, step\n296, 2, step\n");
    write("b.csv", "-5, 1, step\n");
    const auto tracks = compileTracks({"a.csv", "b.csv"}, "out");
    ASSERT_EQ(tracks.size(), 2U);
    EXPECT_EQ(tracks[0].name, "a");
    EXPECT_EQ(tracks[0].keys, 2U);
    EXPECT_EQ(tracks[0].lastRow, 296);
    EXPECT_EQ(tracks[1].name, "b");
    EXPECT_EQ(tracks[1].keys, 1U);
    EXPECT_EQ(tracks[1].lastRow, -5);
}

TEST_F(Compile, ChecksSceneValuesInTheSceneTrackOnly)
{
    write("other.csv", "0, 5.5, step\n");
    EXPECT_NO_THROW(compileTracks({"other.csv"}, "out"));
}

TEST_F(Compile, WritesNothingIfAnyTextIsBad)
{
    write("good.csv", "0, 1, step\n");
    write("bad.csv", "0, 1, step\n0, 1, step\n");
    EXPECT_THAT(
        [] {
            compileTracks({"good.csv", "bad.csv"}, "out");
        },
        ThrowsMessage<Error>("bad.csv:2: row 0 does not come after row 0 of line 1"));
    EXPECT_FALSE(std::filesystem::exists("out"));
}

TEST_F(Compile, LeavesOldFilesAloneIfAnyTextIsBad)
{
    write("good.csv", "0, 1, step\n");
    write("scene.csv", "0, 3, step\n");
    std::filesystem::create_directory("out");
    write("out/sync_good.track", "old");
    EXPECT_THROW(compileTracks({"good.csv", "scene.csv"}, "out"), Error);
    EXPECT_EQ(read("out/sync_good.track"), "old");
    EXPECT_THAT(namesIn("out"), ElementsAre("sync_good.track"));
}

TEST_F(Compile, LeavesNoTemporaryFileIfAFileCannotBeWritten)
{
    write("good.csv", "0, 1, step\n");
    const std::string longName(252, 'n'); // with "sync_" and ".track" longer than a file name can be
    write(longName.substr(0, 250) + ".csv", "0, 1, step\n");
    const std::string path = "out/sync_" + longName.substr(0, 250) + ".track";
    EXPECT_THAT(
        [&] {
            compileTracks({"good.csv", longName.substr(0, 250) + ".csv"}, "out");
        },
        ThrowsMessage<Error>(path + ": cannot write: File name too long"));
    EXPECT_THAT(namesIn("out"), testing::Not(testing::Contains(testing::StartsWith("."))));
}

TEST_F(Compile, RefusesATrackThatComesTwice)
{
    std::filesystem::create_directory("a");
    write("a/t.csv", "0, 1, step\n");
    write("t.csv", "0, 1, step\n");
    EXPECT_THAT(
        [] {
            compileTracks({"a/t.csv", "t.csv"}, "out");
        },
        ThrowsMessage<Error>("t.csv: the track 't' comes from a/t.csv already"));
    EXPECT_FALSE(std::filesystem::exists("out"));
}

TEST_F(Compile, RefusesATextThatIsNotThere)
{
    EXPECT_THAT([] { compileTracks({"none.csv"}, "out"); },
                ThrowsMessage<Error>("none.csv: cannot read: No such file or directory"));
}

} // namespace
