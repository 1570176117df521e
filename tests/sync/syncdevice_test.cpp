#include "sync/syncdevice.h"

#include "sync/exception.h"
#include "sync/tools.h"
#include "tests/support/message_of.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/working_folder.h"
#include "tests/support/write_file.h"
#include "tests/sync/c_library.h"
#include "tests/sync/track_files.h"

#include <cstdint>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::StrEq;
using tolv::SyncDevice;
using tolv::SyncTrack;

class SyncDeviceTest : public testing::Test {
private:
    TemporaryFolder folder; // paths of tracks are relative to the working directory
    WorkingFolder working{folder.path()};
};

TEST_F(SyncDeviceTest, SaysWhenItComesAndWhenItGoes)
{
    testing::internal::CaptureStdout();
    {
        const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
        EXPECT_THAT(testing::internal::GetCapturedStdout(),
                    StrEq("syncdevice: Rocket sync device created\n"));
        testing::internal::CaptureStdout();
    }
    EXPECT_THAT(testing::internal::GetCapturedStdout(), StrEq("syncdevice: Rocket sync device destroyed\n"));
}

TEST_F(SyncDeviceTest, SaysNothingWhileItIsUsed)
{
    writeFile("sync_scene.track", trackFile({{0, 1.0F, SYNC_STEP}}));
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(device.getValue(device.getTrack("scene"), 3.0), 1.0F);
    EXPECT_EQ(device.getValue(device.getTrack("missing"), 3.0), 0.0F);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), StrEq(""));
    EXPECT_THAT(testing::internal::GetCapturedStdout(), StrEq(""));
}

TEST_F(SyncDeviceTest, RefusesAnAbsolutePathAndSaysNothing)
{
    const WatchedCLibrary watched;
    testing::internal::CaptureStdout();
    EXPECT_THAT(messageOf<tolv::Exception>(
                    [] { const SyncDevice device("/tmp/x", tempo::beatsPerMinute, tempo::rowsPerBeat); }),
                StrEq("Failed to initialize rocket sync device"));
    EXPECT_THAT(testing::internal::GetCapturedStdout(), StrEq(""));
    for (void* record : cLibrary.mallocResults) {
        std::free(record); // the device's, which it leaves behind: a leak to the sanitizer
    }
}

TEST_F(SyncDeviceTest, FailsWithoutMemoryForTheDevice)
{
    const WatchedCLibrary watched;
    cLibrary.mallocsBeforeFailure = 0;
    EXPECT_THAT(messageOf<tolv::Exception>(
                    [] { const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat); }),
                StrEq("Failed to initialize rocket sync device"));
}

TEST_F(SyncDeviceTest, FailsWithoutMemoryForATrack)
{
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const WatchedCLibrary watched;
    cLibrary.mallocsBeforeFailure = 0;
    EXPECT_THAT(messageOf<tolv::Exception>([&] { device.getTrack("camera:pos x"); }),
                StrEq("Rocket could not get track: camera:pos x"));
}

TEST_F(SyncDeviceTest, FailsWithoutMemoryForTheListOfTracks)
{
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const WatchedCLibrary watched;
    cLibrary.reallocsBeforeFailure = 0;
    EXPECT_THAT(messageOf<tolv::Exception>([&] { device.getTrack("scene"); }),
                StrEq("Rocket could not get track: scene"));
    ASSERT_EQ(cLibrary.strdupResults.size(), 1U);
    std::free(cLibrary.strdupResults[0]); // the name, which the device leaves behind: a leak to the sanitizer
}

TEST_F(SyncDeviceTest, GivesOneUnderlyingTrackForOneName)
{
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const SyncTrack first = device.getTrack("scene");
    const SyncTrack other = device.getTrack("camera");
    const SyncTrack again = device.getTrack("scene");
    EXPECT_NE(first.get(), nullptr);
    EXPECT_EQ(first.get(), again.get());
    EXPECT_NE(first.get(), other.get());
    EXPECT_THAT(first.get()->name, StrEq("scene"));
}

TEST_F(SyncDeviceTest, ReadsAMissingTrackAsZero)
{
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    EXPECT_EQ(device.getValue(device.getTrack("nowhere"), 12.5), 0.0F);
}

TEST_F(SyncDeviceTest, NarrowsValuesToTheNearestFloat)
{
    writeFile("sync_third.track", trackFile({{0, 0.0F, SYNC_LINEAR}, {3, 1.0F, SYNC_STEP}}));
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const SyncTrack third = device.getTrack("third");
    EXPECT_EQ(sync_get_val(third.get(), 1.0), 1.0 / 3.0);
    EXPECT_EQ(device.getValue(third, 1.0), 0x1.555556p-2F);
}

TEST_F(SyncDeviceTest, KeepsTheValuesOfStepsBitForBit)
{
    writeFile("sync_scene.track", trackFile({{0, -0.1F, SYNC_STEP}, {8, 16777217.0F, SYNC_STEP}}));
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const SyncTrack scene = device.getTrack("scene");
    EXPECT_EQ(device.getValue(scene, 7.99), -0.1F);
    EXPECT_EQ(device.getValue(scene, 8.0), 16777216.0F);
}

TEST_F(SyncDeviceTest, TakesRowsWithTheirFractions)
{
    writeFile("sync_scene.track", trackFile({{0, 0.0F, SYNC_LINEAR}, {1, 1.0F, SYNC_STEP}}));
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    EXPECT_EQ(device.getValue(device.getTrack("scene"), 0.25), 0.25F);
}

TEST_F(SyncDeviceTest, ReadsTheSameWhateverRateItIsGiven)
{
    writeFile("sync_scene.track", trackFile({{0, 0.0F, SYNC_SMOOTH}, {100, 1.0F, SYNC_STEP}}));
    const SyncDevice device("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const SyncDevice slower("sync", 0.0, -3);
    for (const double row : {-1.0, 0.0, 12.5, 99.0, 100.0, 1000.0}) {
        EXPECT_EQ(device.getValue(device.getTrack("scene"), row),
                  slower.getValue(slower.getTrack("scene"), row))
            << row;
    }
    EXPECT_EQ(slower.getValue(slower.getTrack("scene"), 50.0), 0.5F);
}

TEST_F(SyncDeviceTest, HasRoomForTheCallsOfAnEditorAndForThreeValuesThatNothingReads)
{
    const SyncDevice::Callbacks callbacks;
    EXPECT_FALSE(callbacks.pause);
    EXPECT_FALSE(callbacks.setRow);
    EXPECT_FALSE(callbacks.isPlaying);
    constexpr std::size_t rate = sizeof(double) + sizeof(double); // the second is an int, padded
    constexpr std::size_t unread = 3 * sizeof(std::uint64_t);
    EXPECT_EQ(sizeof(SyncDevice), rate + sizeof(void*) + sizeof(callbacks) + unread);
}

TEST(SyncTrackTest, StartsWithoutATrack)
{
    EXPECT_EQ(SyncTrack().get(), nullptr);
}

TEST(SyncTrackTest, CopiesReferToTheSameTrack)
{
    const sync_track track = {nullptr, nullptr, 0};
    const SyncTrack original(&track);
    SyncTrack copy;
    copy = original;
    EXPECT_EQ(original.get(), &track);
    EXPECT_EQ(copy.get(), &track);
}

} // namespace
