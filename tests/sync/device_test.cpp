#include "sync/device.h"

#include "tests/support/temporary_folder.h"
#include "tests/support/working_folder.h"
#include "tests/support/write_file.h"
#include "tests/sync/c_library.h"
#include "tests/sync/track_files.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

constexpr std::size_t longestPath = 4095;

// path_encode.

struct Encoding {
    const char* name;
    std::string_view text;
    std::string_view encoded;
};

// clang-format off
constexpr Encoding encodings[] = {
    {"Nothing",              "",                       ""},
    {"LettersAndDigits",     "azAZ09",                 "azAZ09"},
    {"DotSlashAndUnderscore", "./_",                   "./_"},
    {"ABasePath",            "assets/sync",            "assets/sync"},
    {"AnUnderscoredName",    "camera_pos_x",           "camera_pos_x"},
    {"AGroupedName",         "camera:pos",             "camera-3Apos"},
    {"AHyphen",              "-",                      "-2D"},
    {"ASpace",               "a b",                    "a-20b"},
    {"ANewline",             "\n",                     "-0A"},
    {"NeighboursOfTheKept",  "-/:@[^`{",               "-2D/-3A-40-5B-5E-60-7B"},
    {"Delete",               "\x7f",                   "-7F"},
    {"BytesAbove127",        "\x80\xc3\xa9\xff",       "-80-C3-A9-FF"},
    {"AnEncodedName",        "-3A",                    "-2D3A"},
};
// clang-format on

class PathEncode : public testing::TestWithParam<Encoding> {};

TEST_P(PathEncode, KeepsFewBytesAndWritesTheOthersInHexadecimal)
{
    EXPECT_EQ(path_encode(std::string(GetParam().text).c_str()), GetParam().encoded);
}

INSTANTIATE_TEST_SUITE_P(, PathEncode, testing::ValuesIn(encodings),
                         [](const auto& info) { return std::string(info.param.name); });

struct Cut {
    const char* name;
    std::size_t kept; ///< letters in front
    const char* rest;
    const char* encodedRest;
};

// clang-format off
constexpr Cut cuts[] = {
    {"FitsWith4095Letters",            4095, "",    ""},
    {"DropsThe4096thLetter",           4095, "b",   ""},
    {"TakesTheLastLetterBehind4094",   4094, "bc",  "b"},
    {"FitsThreeCharactersBehind4092",  4092, ":",   "-3A"},
    {"FillsUpBehindThreeCharacters",   4092, ":b",  "-3A"},
    {"DropsThreeCharactersBehind4093", 4093, ":",   ""},
    {"DropsThreeCharactersBehind4094", 4094, ":",   ""},
    {"DropsThreeCharactersBehind4095", 4095, ":",   ""},
    {"StopsAtTheFirstThatDoesNotFit",  4093, ":bc", ""},
};
// clang-format on

class PathEncodeOfALongText : public testing::TestWithParam<Cut> {};

TEST_P(PathEncodeOfALongText, CutsWhatDoesNotFit)
{
    const Cut& cut = GetParam();
    const std::string letters(cut.kept, 'a');
    EXPECT_EQ(path_encode((letters + cut.rest).c_str()), letters + cut.encodedRest);
}

INSTANTIATE_TEST_SUITE_P(, PathEncodeOfALongText, testing::ValuesIn(cuts),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(PathEncodeTest, StartsAfreshAtEachCall)
{
    const char* first = path_encode("a longer text");
    const char* second = path_encode("b");
    EXPECT_EQ(first, second);
    EXPECT_THAT(second, StrEq("b"));
}

// sync_track_path.

struct Path {
    const char* name;
    std::string_view base;
    std::string_view track;
    std::string_view path;
};

// clang-format off
constexpr Path paths[] = {
    {"OfTheSceneTrack",     "assets/sync", "scene",        "assets/sync_scene.track"},
    {"OfAnUnderscoredName", "assets/sync", "camera_pos_x", "assets/sync_camera_pos_x.track"},
    {"OfAGroupedName",      "assets/sync", "camera:pos",   "assets/sync_camera-3Apos.track"},
    {"OfAnEmptyName",       "assets/sync", "",             "assets/sync_.track"},
    {"OfAnEmptyBase",       "",            "scene",        "_scene.track"},
    {"OfAnEncodedBase",     "a-20b",       "c d",          "a-20b_c-20d.track"},
};
// clang-format on

class SyncTrackPath : public testing::TestWithParam<Path> {};

TEST_P(SyncTrackPath, JoinsTheBaseAndTheEncodedName)
{
    EXPECT_EQ(sync_track_path(std::string(GetParam().base).c_str(), std::string(GetParam().track).c_str()),
              GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(, SyncTrackPath, testing::ValuesIn(paths),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(SyncTrackPathTest, IsCutTo4095CharactersWhereverTheyEnd)
{
    const std::string ending = "_scene.track";
    const std::string longBase(5000, 'b');
    for (std::size_t length = longestPath - ending.size() - 2; length <= longestPath + 2; ++length) {
        const std::string base = longBase.substr(0, length);
        EXPECT_EQ(sync_track_path(base.c_str(), "scene"), (base + ending).substr(0, longestPath)) << length;
    }
}

TEST(SyncTrackPathTest, IsCutBehindALongName)
{
    const std::string name(longestPath, 'n');
    EXPECT_EQ(sync_track_path("base", name.c_str()), ("base_" + name).substr(0, longestPath));
}

TEST(SyncTrackPathTest, LeavesThePathOfTheLastCallToPathEncodeAlone)
{
    const char* path = sync_track_path("base", "scene");
    path_encode("something else");
    EXPECT_THAT(path, StrEq("base_scene.track"));
}

// Devices.

using Device = std::unique_ptr<sync_device, decltype(&sync_destroy_device)>;

Device makeDevice(const char* base)
{
    return {sync_create_device(base), sync_destroy_device};
}

TEST(SyncCreateDevice, StartsWithoutTracksOrConnection)
{
    const Device device = makeDevice("assets/my sync");
    ASSERT_NE(device, nullptr);
    EXPECT_THAT(device->base, StrEq("assets/my-20sync"));
    EXPECT_EQ(device->tracks, nullptr);
    EXPECT_EQ(device->num_tracks, 0U);
    EXPECT_EQ(device->row, -1);
    EXPECT_EQ(device->sock, -1);
}

TEST(SyncCreateDevice, BindsTheStreamFunctions)
{
    const Device device = makeDevice("sync");
    EXPECT_EQ(device->open, &std::fopen);
    EXPECT_EQ(device->read, &std::fread);
    EXPECT_EQ(device->close, &std::fclose);
}

TEST(SyncCreateDevice, CutsALongBase)
{
    const Device device = makeDevice(std::string(5000, 'b').c_str());
    EXPECT_EQ(device->base, std::string(longestPath, 'b'));
}

TEST(SyncCreateDevice, RefusesNoPath)
{
    const WatchedCLibrary watched;
    EXPECT_EQ(sync_create_device(nullptr), nullptr);
    ASSERT_EQ(cLibrary.mallocResults.size(), 1U);
    std::free(
        cLibrary.mallocResults[0]); // the record, which the device leaves behind: a leak to the sanitizer
}

TEST(SyncCreateDevice, RefusesAnAbsolutePath)
{
    const WatchedCLibrary watched;
    EXPECT_EQ(sync_create_device("/tmp/x"), nullptr);
    ASSERT_EQ(cLibrary.mallocResults.size(), 1U);
    std::free(
        cLibrary.mallocResults[0]); // the record, which the device leaves behind: a leak to the sanitizer
}

TEST(SyncCreateDevice, TakesAnEmptyPathAndOneWithALaterSlash)
{
    EXPECT_NE(makeDevice(""), nullptr);
    EXPECT_NE(makeDevice("./x/y"), nullptr);
}

TEST(SyncCreateDevice, GivesNullWithoutMemoryForTheRecord)
{
    const WatchedCLibrary watched;
    cLibrary.mallocsBeforeFailure = 0;
    EXPECT_EQ(sync_create_device("sync"), nullptr);
}

TEST(SyncCreateDevice, GivesNullWithoutMemoryForTheBase)
{
    const WatchedCLibrary watched;
    cLibrary.strdupsBeforeFailure = 0;
    EXPECT_EQ(sync_create_device("sync"), nullptr); // and frees the record, says the leak check
}

// Track files.

/// Stream functions of a device that work as ever and write down what they were told.
struct Streams {
    std::vector<std::string> opened;                        ///< path and mode
    std::vector<std::pair<std::size_t, std::size_t>> reads; ///< element size and count
    std::FILE* stream = nullptr;                            ///< the last one opened, null after it was closed
    int closed = 0;
};

Streams streams;

std::FILE* recordedOpen(const char* path, const char* mode)
{
    streams.opened.push_back(std::string(path) + " " + mode);
    streams.stream = std::fopen(path, mode);
    return streams.stream;
}

std::size_t recordedRead(void* buffer, std::size_t size, std::size_t count, std::FILE* stream)
{
    streams.reads.emplace_back(size, count);
    return std::fread(buffer, size, count, stream);
}

int recordedClose(std::FILE* stream)
{
    EXPECT_EQ(stream, streams.stream);
    streams.stream = nullptr;
    ++streams.closed;
    return std::fclose(stream);
}

/// A device over an empty folder, whose streams are recorded.
class SyncGetTrack : public testing::Test {
protected:
    SyncGetTrack() : device(makeDevice("sync"))
    {
        streams = {};
        device->open = recordedOpen;
        device->read = recordedRead;
        device->close = recordedClose;
    }

    const sync_track* trackFrom(const std::string& file)
    {
        writeFile("sync_scene.track", file);
        return sync_get_track(device.get(), "scene");
    }

    TemporaryFolder folder; // paths of tracks are relative to the working directory
    WorkingFolder working{folder.path()};
    Device device;
};

TEST_F(SyncGetTrack, ReadsAllKeysOfTheFile)
{
    // Written out, so that the format stands here once byte by byte.
    const std::string file("\x02\x00\x00\x00"
                           "\x0a\x00\x00\x00"
                           "\x00\x00\x80\x3f"
                           "\x02"
                           "\xff\xff\xff\x7f"
                           "\x00\x00\x20\xc0"
                           "\x03",
                           22);
    const sync_track* track = trackFrom(file);
    ASSERT_NE(track, nullptr);
    EXPECT_THAT(track->name, StrEq("scene"));
    ASSERT_EQ(track->num_keys, 2);
    EXPECT_EQ(track->keys[0].row, 10);
    EXPECT_EQ(track->keys[0].value, 1.0F);
    EXPECT_EQ(track->keys[0].type, SYNC_SMOOTH);
    EXPECT_EQ(track->keys[1].row, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(track->keys[1].value, -2.5F);
    EXPECT_EQ(track->keys[1].type, SYNC_RAMP);
    EXPECT_EQ(file, trackFile({{10, 1.0F, SYNC_SMOOTH}, {2147483647, -2.5F, SYNC_RAMP}}));
}

TEST_F(SyncGetTrack, GoesThroughTheFunctionsOfTheDeviceFieldByField)
{
    trackFrom(trackFile({{0, 1.0F, 0}, {1, 2.0F, 0}}));
    EXPECT_THAT(streams.opened, ElementsAre("sync_scene.track rb"));
    EXPECT_THAT(streams.reads, ElementsAre(std::pair(4, 1), std::pair(4, 1), std::pair(4, 1), std::pair(1, 1),
                                           std::pair(4, 1), std::pair(4, 1), std::pair(1, 1)));
    EXPECT_EQ(streams.closed, 1);
}

TEST_F(SyncGetTrack, ReadsAFileOnceOnly)
{
    const sync_track* first = trackFrom(trackFile({{0, 1.0F, 0}}));
    writeFile("sync_scene.track", trackFile({{0, 2.0F, 0}}));
    const sync_track* second = sync_get_track(device.get(), "scene");
    EXPECT_EQ(first, second);
    EXPECT_EQ(second->keys[0].value, 1.0F);
    EXPECT_EQ(streams.opened.size(), 1U);
    EXPECT_EQ(device->num_tracks, 1U);
}

TEST_F(SyncGetTrack, OpensAFileUnderItsEncodedName)
{
    writeFile("sync_camera-3Apos-20x-2D.track", trackFile({{0, 4.0F, 0}}));
    const sync_track* track = sync_get_track(device.get(), "camera:pos x-");
    EXPECT_THAT(streams.opened, ElementsAre("sync_camera-3Apos-20x-2D.track rb"));
    EXPECT_THAT(track->name, StrEq("camera:pos x-"));
    EXPECT_EQ(track->num_keys, 1);
}

TEST_F(SyncGetTrack, OpensAFileForAnEmptyName)
{
    writeFile("sync_.track", trackFile({{0, 4.0F, 0}}));
    EXPECT_EQ(sync_get_track(device.get(), "")->num_keys, 1);
    EXPECT_THAT(streams.opened, ElementsAre("sync_.track rb"));
}

TEST_F(SyncGetTrack, TakesAMissingFileForATrackWithoutKeys)
{
    const sync_track* track = sync_get_track(device.get(), "nowhere");
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->num_keys, 0);
    EXPECT_EQ(track->keys, nullptr);
    EXPECT_EQ(sync_get_val(track, 5.0), 0.0);
    EXPECT_EQ(streams.closed, 0);
}

TEST_F(SyncGetTrack, LooksForAMissingFileOnce)
{
    const sync_track* track = sync_get_track(device.get(), "nowhere");
    EXPECT_EQ(sync_get_track(device.get(), "nowhere"), track);
    EXPECT_EQ(streams.opened.size(), 1U);
}

TEST_F(SyncGetTrack, TakesAPathThatIsTooLongForAMissingFile)
{
    const std::string name(5000, 'n');
    const sync_track* track = sync_get_track(device.get(), name.c_str());
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->num_keys, 0);
    EXPECT_EQ(track->name, name);
    EXPECT_THAT(streams.opened, ElementsAre(("sync_" + name).substr(0, longestPath) + " rb"));
}

TEST_F(SyncGetTrack, KeepsTracksInTheOrderOfTheirFirstRequests)
{
    for (const char* name : {"zebra", "apple", "zebra", "", "mango", "apple"}) {
        sync_get_track(device.get(), name);
    }
    std::vector<std::string> names;
    for (std::size_t i = 0; i < device->num_tracks; ++i) {
        names.emplace_back(device->tracks[i]->name);
    }
    EXPECT_THAT(names, ElementsAre("zebra", "apple", "", "mango"));
}

TEST_F(SyncGetTrack, TellsNamesApartByTheirWholeText)
{
    const sync_track* shorter = sync_get_track(device.get(), "scene");
    EXPECT_NE(sync_get_track(device.get(), "scene_"), shorter);
    EXPECT_NE(sync_get_track(device.get(), "Scene"), shorter);
    EXPECT_NE(sync_get_track(device.get(), "scen"), shorter);
}

TEST_F(SyncGetTrack, ReadsACountOfZeroAsATrackWithoutKeys)
{
    const sync_track* track = trackFrom(trackFile({}));
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->num_keys, 0);
    EXPECT_EQ(sync_get_val(track, 0.0), 0.0);
    EXPECT_EQ(streams.reads.size(), 1U);
    EXPECT_EQ(streams.closed, 1);
}

TEST_F(SyncGetTrack, LeavesTheStreamOpenAtANegativeCount)
{
    for (const std::int32_t count : {-1, -715827883, std::numeric_limits<std::int32_t>::min()}) {
        const std::string name = "minus" + std::to_string(-static_cast<long>(count));
        writeFile("sync_" + name + ".track", bytesOf(count) + std::string(90, '\1'));
        const sync_track* track = sync_get_track(device.get(), name.c_str());
        ASSERT_NE(track, nullptr);
        EXPECT_EQ(track->num_keys, count);
        EXPECT_EQ(track->keys, nullptr);
        ASSERT_NE(streams.stream, nullptr);
        std::fclose(std::exchange(streams.stream, nullptr));
    }
    EXPECT_EQ(streams.closed, 0);
}

TEST_F(SyncGetTrack, KeepsTheCountWithoutMemoryForTheKeys)
{
    writeFile("sync_scene.track", trackFile({{0, 1.0F, 0}, {1, 2.0F, 0}}));
    {
        const WatchedCLibrary watched;
        cLibrary.mallocsBeforeFailure = 1;
        EXPECT_NE(sync_get_track(device.get(), "scene"), nullptr);
    }
    const sync_track* track = sync_get_track(device.get(), "scene");
    EXPECT_EQ(track->num_keys, 2);
    EXPECT_EQ(track->keys, nullptr);
    EXPECT_EQ(streams.closed, 0);
    ASSERT_NE(streams.stream, nullptr);
    std::fclose(streams.stream);
}

TEST_F(SyncGetTrack, GivesNullWithoutMemoryForTheRecord)
{
    const WatchedCLibrary watched;
    cLibrary.mallocsBeforeFailure = 0;
    EXPECT_EQ(sync_get_track(device.get(), "scene"), nullptr);
    EXPECT_EQ(device->num_tracks, 0U);
    EXPECT_THAT(streams.opened, IsEmpty());
}

TEST_F(SyncGetTrack, GivesNullWithoutMemoryForTheListAndKeepsTheListAsItWas)
{
    const sync_track* kept = sync_get_track(device.get(), "kept");
    const WatchedCLibrary watched;
    cLibrary.reallocsBeforeFailure = 0;
    EXPECT_EQ(sync_get_track(device.get(), "scene"), nullptr);
    EXPECT_EQ(device->num_tracks, 1U);
    EXPECT_EQ(sync_get_track(device.get(), "kept"), kept);
    ASSERT_EQ(cLibrary.strdupResults.size(), 1U);
    std::free(cLibrary.strdupResults[0]); // the name, which the device leaves behind: a leak to the sanitizer
}

TEST_F(SyncGetTrack, IgnoresWhatFollowsTheLastKey)
{
    const sync_track* track = trackFrom(trackFile({{0, 1.0F, 0}}) + std::string(100, 'x'));
    EXPECT_EQ(track->num_keys, 1);
    EXPECT_EQ(sync_get_val(track, 50.0), 1.0);
    EXPECT_EQ(streams.reads.size(), 4U);
    EXPECT_EQ(streams.closed, 1);
}

TEST_F(SyncGetTrack, WidensTheTypeWithItsSign)
{
    const sync_track* track =
        trackFrom(trackFile({{0, 1.0F, 0xFF}, {1, 1.0F, 0x80}, {2, 1.0F, 0x7F}, {3, 1.0F, 1}}));
    EXPECT_EQ(track->keys[0].type, -1);
    EXPECT_EQ(track->keys[1].type, -128);
    EXPECT_EQ(track->keys[2].type, 127);
    EXPECT_EQ(track->keys[3].type, 1);
}

TEST_F(SyncGetTrack, TakesKeysOutOfOrderAsTheyStand)
{
    const sync_track* track = trackFrom(trackFile({{20, 1.0F, 0}, {10, 2.0F, 0}}));
    EXPECT_EQ(track->keys[0].row, 20);
    EXPECT_EQ(track->keys[1].row, 10);
}

TEST_F(SyncGetTrack, KeepsWhatItReadOfAFileCutOffAtAnyByte)
{
    const std::vector<sync_key> keys = {
        {100, 1.5F, SYNC_RAMP}, {0x7A7B7C7D, -2.0F, SYNC_LINEAR}, {-3, 0.1F, 9}};
    const std::string whole = trackFile(keys);
    ASSERT_EQ(whole.size(), 4 + 9 * keys.size());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string name = "cut" + std::to_string(length);
        writeFile("sync_" + name + ".track", whole.substr(0, length));
        const sync_track* track = sync_get_track(device.get(), name.c_str());
        ASSERT_NE(track, nullptr) << length;
        EXPECT_EQ(streams.stream, nullptr) << length;
        if (length < 4) {
            // The C library says nothing of the bytes of a cut element: the lowest one may have come through.
            EXPECT_TRUE(track->num_keys == 0 || (length > 0 && track->num_keys == 3)) << length;
        } else {
            EXPECT_EQ(track->num_keys, 3) << length;
        }
        std::int32_t lastType = 0;
        for (std::size_t i = 0; length >= 4 && i < keys.size(); ++i) {
            const std::size_t start = 4 + 9 * i;
            if (start + 4 <= length) {
                EXPECT_EQ(track->keys[i].row, keys[i].row) << length;
            }
            if (start + 8 <= length) {
                EXPECT_EQ(track->keys[i].value, keys[i].value) << length;
            }
            if (start + 9 <= length) {
                lastType = keys[i].type;
            }
            // The byte that isn't there repeats the last one.
            EXPECT_EQ(track->keys[i].type, lastType) << length;
        }
        sync_get_val(track, 100.5); // of keys that were never filled: any value will do, but not a crash
    }
}

// A live connection.

/// A device that is connected to a socket of the test.
class FetchTrackData : public SyncGetTrack {
protected:
    FetchTrackData()
    {
        std::array<int, 2> ends = {-1, -1};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
        device->sock = ends[0];
        tracker = ends[1];
    }
    ~FetchTrackData() override { close(tracker); }

    /// All that has been sent so far.
    std::string received() const
    {
        std::string bytes(65536, '\0');
        const ssize_t count = recv(tracker, bytes.data(), bytes.size(), MSG_DONTWAIT);
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return bytes;
    }

    /// Whether this end has been closed, as seen from the other.
    bool trackerSeesTheEnd() const
    {
        char byte = 0;
        return recv(tracker, &byte, 1, MSG_DONTWAIT) == 0;
    }

    int tracker = -1;
};

/// A track under a name of the test, not known to any device.
struct NamedTrack {
    explicit NamedTrack(std::string text) : text(std::move(text)), track{this->text.data(), nullptr, 0} {}

    std::string text;
    sync_track track;
};

TEST_F(FetchTrackData, SendsACommandTheLengthAndTheName)
{
    NamedTrack named("scene");
    EXPECT_EQ(fetch_track_data(device.get(), &named.track), 0);
    EXPECT_EQ(received(), std::string("\x02\x00\x00\x00\x05scene", 10));
    EXPECT_FALSE(trackerSeesTheEnd());
}

TEST_F(FetchTrackData, SendsTheLengthWithItsHighestByteFirst)
{
    NamedTrack named(std::string(0x0102, 'n'));
    EXPECT_EQ(fetch_track_data(device.get(), &named.track), 0);
    EXPECT_EQ(received(), std::string("\x02\x00\x00\x01\x02", 5) + named.text);
}

TEST_F(FetchTrackData, SendsTheNameAsItIs)
{
    NamedTrack named("a:b -\xff");
    EXPECT_EQ(fetch_track_data(device.get(), &named.track), 0);
    EXPECT_EQ(received(), std::string("\x02\x00\x00\x00\x06"
                                      "a:b -\xff",
                                      11));
}

TEST_F(FetchTrackData, SendsAnEmptyName)
{
    NamedTrack named("");
    EXPECT_EQ(fetch_track_data(device.get(), &named.track), 0);
    EXPECT_EQ(received(), std::string("\x02\x00\x00\x00\x00", 5));
}

TEST_F(FetchTrackData, SendsEachPartOnceWithoutFlags)
{
    const WatchedCLibrary watched;
    NamedTrack named("scene");
    fetch_track_data(device.get(), &named.track);
    EXPECT_THAT(cLibrary.sends,
                ElementsAre(CLibrary::Send{1, 0}, CLibrary::Send{4, 0}, CLibrary::Send{5, 0}));
}

struct FailingSend {
    const char* name;
    int before; ///< sends that work
    long result;
};

constexpr FailingSend failingSends[] = {
    {"OfTheCommandWithAnError", 0, -1}, {"OfTheCommandWithNothing", 0, 0}, {"OfTheLengthWithAnError", 1, -1},
    {"OfTheLengthThatFellShort", 1, 3}, {"OfTheNameWithAnError", 2, -1},   {"OfTheNameThatFellShort", 2, 4},
};

class FailedSend : public FetchTrackData, public testing::WithParamInterface<FailingSend> {
protected:
    WatchedCLibrary watched;
};

TEST_P(FailedSend, ClosesTheConnectionAndSendsNoMore)
{
    cLibrary.sendsBeforeFailure = GetParam().before;
    cLibrary.failedSendResult = GetParam().result;
    NamedTrack named("scene");
    EXPECT_EQ(fetch_track_data(device.get(), &named.track), -1);
    EXPECT_EQ(device->sock, -1);
    EXPECT_EQ(cLibrary.sends.size(), static_cast<std::size_t>(GetParam().before) + 1);
    received();
    EXPECT_TRUE(trackerSeesTheEnd());
}

TEST_P(FailedSend, IsNoFailureOfTheTrack)
{
    cLibrary.sendsBeforeFailure = GetParam().before;
    cLibrary.failedSendResult = GetParam().result;
    const sync_track* track = sync_get_track(device.get(), "scene");
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->num_keys, 0);
    EXPECT_THAT(streams.opened, IsEmpty());
    sync_get_track(device.get(), "camera");
    EXPECT_THAT(streams.opened, ElementsAre("sync_camera.track rb"));
}

INSTANTIATE_TEST_SUITE_P(, FailedSend, testing::ValuesIn(failingSends),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(FetchTrackData, TakesThePlaceOfTheFileOfAConnectedDevice)
{
    const sync_track* track = trackFrom(trackFile({{0, 1.0F, 0}}));
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->num_keys, 0);
    EXPECT_EQ(track->keys, nullptr);
    EXPECT_THAT(streams.opened, IsEmpty());
    EXPECT_EQ(received(), std::string("\x02\x00\x00\x00\x05scene", 10));
    EXPECT_EQ(device->num_tracks, 1U);
}

TEST_F(FetchTrackData, AsksForATrackOnce)
{
    sync_get_track(device.get(), "scene");
    received();
    sync_get_track(device.get(), "scene");
    EXPECT_EQ(received(), "");
}

TEST_F(FetchTrackData, IsCutOffWhenTheDeviceIsDestroyed)
{
    EXPECT_FALSE(trackerSeesTheEnd());
    device.reset();
    EXPECT_TRUE(trackerSeesTheEnd());
}

} // namespace
