#include "tools/timeline/track_file.h"

#include "tools/common/error.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::Error;
using tools::timeline::decodeTrack;
using tools::timeline::encodeTrack;

namespace {

using namespace std::string_view_literals;

// Row 16 of value 1.5 and type linear; row 32 of value -2 and type ramp.
constexpr std::string_view twoKeys = "\2\0\0\0"
                                     "\x10\0\0\0\0\0\xC0\x3F\1"
                                     "\x20\0\0\0\0\0\0\xC0\3"sv;

TEST(TrackFile, IsTheCountAndNineBytesAKey)
{
    EXPECT_EQ(encodeTrack({{16, 1.5F, SYNC_LINEAR}, {32, -2.0F, SYNC_RAMP}}), twoKeys);
}

TEST(TrackFile, ReadsBack)
{
    const auto keys = decodeTrack(twoKeys, "t.track");
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_EQ(keys[0].row, 16);
    EXPECT_EQ(keys[0].value, 1.5F);
    EXPECT_EQ(keys[0].type, SYNC_LINEAR);
    EXPECT_EQ(keys[1].row, 32);
    EXPECT_EQ(keys[1].value, -2.0F);
    EXPECT_EQ(keys[1].type, SYNC_RAMP);
}

TEST(TrackFile, MayHoldNoKey)
{
    EXPECT_TRUE(decodeTrack("\0\0\0\0"sv, "t.track").empty());
}

TEST(TrackFile, IsRefusedCutOffAtAnyByte)
{
    for (std::size_t length = 0; length < twoKeys.size(); ++length) {
        const std::string cut(twoKeys.substr(0, length));
        const std::string sentence =
            length < 4 ? fmt::format("t.track: {} bytes are too few for a key count", length)
                       : fmt::format("t.track: {} bytes, but 2 keys take 22", length);
        EXPECT_THAT([&] { decodeTrack(cut, "t.track"); }, ThrowsMessage<Error>(sentence));
    }
}

struct BadFile {
    const char* name;
    std::string_view bytes;
    const char* sentence;
};

// clang-format off
constexpr BadFile badFiles[] = {
    {"NegativeCount",   "\xFF\xFF\xFF\xFF"sv,                       "t.track: the key count is -1"},
    {"ByteTooMany",     "\0\0\0\0\0"sv,                             "t.track: 5 bytes, but 0 keys take 4"},
    {"HugeCount",       "\xFF\xFF\xFF\x7F"sv,                       "t.track: 4 bytes, but 2147483647 keys take 19327352827"},
    {"UnknownType",     "\1\0\0\0\0\0\0\0\0\0\0\0\4"sv,             "t.track: key 1: unknown type 4"},
    {"NegativeType",    "\1\0\0\0\0\0\0\0\0\0\0\0\xFF"sv,           "t.track: key 1: unknown type -1"},
    {"NotANumber",      "\1\0\0\0\0\0\0\0\0\0\xC0\x7F\0"sv,         "t.track: key 1: the value is not finite"},
    {"Infinity",        "\1\0\0\0\0\0\0\0\0\0\x80\xFF\0"sv,         "t.track: key 1: the value is not finite"},
    {"EqualRows",       "\2\0\0\0\5\0\0\0\0\0\0\0\0\5\0\0\0\0\0\0\0\0"sv, "t.track: key 2: row 5 does not come after row 5"},
    {"FallingRows",     "\2\0\0\0\5\0\0\0\0\0\0\0\0\4\0\0\0\0\0\0\0\0"sv, "t.track: key 2: row 4 does not come after row 5"},
};
// clang-format on

class BadTrackFile : public TestWithParam<BadFile> {};

TEST_P(BadTrackFile, IsRefusedWithTheReason)
{
    EXPECT_THAT([] { decodeTrack(GetParam().bytes, "t.track"); }, ThrowsMessage<Error>(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(Files, BadTrackFile, ValuesIn(badFiles),
                         [](const auto& info) { return info.param.name; });

} // namespace
