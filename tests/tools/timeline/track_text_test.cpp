#include "tools/timeline/track_text.h"

#include "tools/common/error.h"

#include <bit>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::Error;
using tools::timeline::parseTrackText;
using tools::timeline::printTrackText;
using tools::timeline::RowStyle;

namespace {

std::vector<sync_key> keysOf(std::string_view text)
{
    std::vector<sync_key> keys;
    for (const tools::timeline::TextKey& key : parseTrackText(text, "t.csv")) {
        keys.push_back(key.key);
    }
    return keys;
}

bool sameBits(const sync_key& left, const sync_key& right)
{
    return left.row == right.row && left.type == right.type &&
           std::bit_cast<std::uint32_t>(left.value) == std::bit_cast<std::uint32_t>(right.value);
}

TEST(TrackText, HoldsAKeyALine)
{
    const auto keys = keysOf("0, 1.5, step\n16, -2, linear\n32,0,smooth\n48,1e2,ramp\n");
    ASSERT_EQ(keys.size(), 4U);
    EXPECT_TRUE(sameBits(keys[0], {0, 1.5F, SYNC_STEP}));
    EXPECT_TRUE(sameBits(keys[1], {16, -2.0F, SYNC_LINEAR}));
    EXPECT_TRUE(sameBits(keys[2], {32, 0.0F, SYNC_SMOOTH}));
    EXPECT_TRUE(sameBits(keys[3], {48, 100.0F, SYNC_RAMP}));
}

TEST(TrackText, MayHaveCommentsEmptyLinesAndSpaces)
{
    const auto keys = keysOf("# the room\n\n   \t\n  0 ,\t4 , step  # to the end\r\n1:0:0,5,step#\n\t# end");
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_TRUE(sameBits(keys[0], {0, 4.0F, SYNC_STEP}));
    EXPECT_TRUE(sameBits(keys[1], {64, 5.0F, SYNC_STEP}));
}

TEST(TrackText, RepeatsKeysFromEachStart)
{
    const auto keys =
        keysOf("0, 9, step\nrepeat 0:1:0, 0:3:0, 16\n  0, 1, smooth\n  5, 2, linear\nend\n48, 9, step");
    ASSERT_EQ(keys.size(), 6U);
    EXPECT_TRUE(sameBits(keys[1], {16, 1.0F, SYNC_SMOOTH}));
    EXPECT_TRUE(sameBits(keys[2], {21, 2.0F, SYNC_LINEAR}));
    EXPECT_TRUE(sameBits(keys[3], {32, 1.0F, SYNC_SMOOTH}));
    EXPECT_TRUE(sameBits(keys[4], {37, 2.0F, SYNC_LINEAR}));
    EXPECT_TRUE(sameBits(keys[5], {48, 9.0F, SYNC_STEP}));
}

TEST(TrackText, StartsARepeatAsLongAsThereIsSomethingLeft)
{
    EXPECT_EQ(keysOf("repeat 0, 17, 8\n0, 1, step\nend").size(), 3U);
    EXPECT_EQ(keysOf("repeat 0, 16, 8\n0, 1, step\nend").size(), 2U);
}

TEST(TrackText, TellsTheLineOfEachKey)
{
    const auto keys = parseTrackText("# one\n0, 4, step\n\n8, 5, step", "t.csv");
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_EQ(keys[0].line, 2U);
    EXPECT_EQ(keys[1].line, 4U);
}

struct BadText {
    const char* name;
    const char* text;
    const char* sentence;
};

// clang-format off
constexpr BadText badTexts[] = {
    {"NoBytes",           "",                              "t.csv: holds no key"},
    {"OnlyComments",      "# nothing\n\n",                 "t.csv: holds no key"},
    {"EqualRows",         "0,1,step\n0,2,step\n",          "t.csv:2: row 0 does not come after row 0 of line 1"},
    {"FallingRows",       "8,1,step\n#\n0:0:7,2,step\n",   "t.csv:3: row 7 does not come after row 8 of line 1"},
    {"UnknownType",       "0,1,cubic\n",                   "t.csv:1: unknown type 'cubic', expected step, linear, smooth or ramp"},
    {"TypeInCapitals",    "0,1,Step\n",                    "t.csv:1: unknown type 'Step', expected step, linear, smooth or ramp"},
    {"EmptyType",         "0,1,\n",                        "t.csv:1: unknown type '', expected step, linear, smooth or ramp"},
    {"OneField",          "\n0\n",                         "t.csv:2: expected 3 fields, 'row, value, type', found 1"},
    {"TwoFields",         "0,1 # step\n",                  "t.csv:1: expected 3 fields, 'row, value, type', found 2"},
    {"FourFields",        "0,1,step,\n",                   "t.csv:1: expected 3 fields, 'row, value, type', found 4"},
    {"BadRow",            "x,1,step\n",                    "t.csv:1: row 'x': expected a whole number or bar:beat:row"},
    {"BadBeat",           "0:4:0,1,step\n",                "t.csv:1: row '0:4:0': a beat is 0 to 3"},
    {"RowBeyond32Bits",   "2147483648,1,step\n",           "t.csv:1: row '2147483648': rows go from -2147483648 to 2147483647"},
    {"EmptyValue",        "0,,step\n",                     "t.csv:1: value '' is no number"},
    {"WordAsValue",       "0,one,step\n",                  "t.csv:1: value 'one' is no number"},
    {"ValueWithATail",    "0,1.5.2,step\n",                "t.csv:1: value '1.5.2' is no number"},
    {"Infinity",          "0,inf,step\n",                  "t.csv:1: value 'inf' does not fit into a finite 32-bit float"},
    {"NotANumber",        "0,nan,step\n",                  "t.csv:1: value 'nan' does not fit into a finite 32-bit float"},
    {"TooLarge",          "0,1e39,step\n",                 "t.csv:1: value '1e39' does not fit into a finite 32-bit float"},
    {"RepeatOfTwoFields", "repeat 0, 8\n",                 "t.csv:1: expected 'repeat from, to, every'"},
    {"RepeatOfBadRow",    "repeat 0, x, 8\n",              "t.csv:1: row 'x': expected a whole number or bar:beat:row"},
    {"RepeatEveryNothing", "repeat 0, 8, 0\n",             "t.csv:1: it cannot repeat every 0 rows"},
    {"RepeatBackwards",   "repeat 8, 8, 4\n",              "t.csv:1: row 8 does not come after row 8"},
    {"RepeatInARepeat",   "repeat 0, 8, 4\n0,1,step\nrepeat 0, 8, 4\n", "t.csv:3: a repeat cannot stand in another"},
    {"RepeatWithoutEnd",  "0,1,step\nrepeat 8, 16, 4\n0,1,step\n", "t.csv:2: the repeat has no end"},
    {"RepeatOfNothing",   "repeat 0, 8, 4\nend\n",         "t.csv:2: an end without keys to repeat"},
    {"EndOfNothing",      "0,1,step\nend\n",               "t.csv:2: an end without keys to repeat"},
    {"KeyBeyondTheRepeat", "repeat 0, 8, 4\n4,1,step\nend\n", "t.csv:2: row 4 is not within the 4 rows of the repeat"},
    {"KeyBeforeTheRepeat", "repeat 0, 8, 4\n-1,1,step\nend\n", "t.csv:2: row -1 is not within the 4 rows of the repeat"},
    {"RepeatOverAKey",    "4,1,step\nrepeat 0, 8, 4\n0,1,step\nend\n", "t.csv:4: row 0 does not come after row 4 of line 1"},
    {"TooLargeNegative",  "0,-3.5e38,step\n",              "t.csv:1: value '-3.5e38' does not fit into a finite 32-bit float"},
};
// clang-format on

class BadTrackText : public TestWithParam<BadText> {};

TEST_P(BadTrackText, IsRefusedWithPlaceAndReason)
{
    EXPECT_THAT([] { parseTrackText(GetParam().text, "t.csv"); }, ThrowsMessage<Error>(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(Texts, BadTrackText, ValuesIn(badTexts),
                         [](const auto& info) { return info.param.name; });

TEST(PrintedTrackText, HasAKeyALine)
{
    const std::vector<sync_key> keys = {{-4, 0.1F, SYNC_RAMP}, {296, -2.0F, SYNC_SMOOTH}};
    EXPECT_EQ(printTrackText(keys, RowStyle::Plain), "-4, 0.1, ramp\n296, -2, smooth\n");
    EXPECT_EQ(printTrackText(keys, RowStyle::Bars), "-4, 0.1, ramp\n4:2:8, -2, smooth\n");
}

TEST(PrintedTrackText, ReadsBackToTheBit)
{
    std::mt19937 random(7);
    for (int track = 0; track < 300; ++track) {
        std::vector<sync_key> keys;
        std::int64_t row = static_cast<std::int32_t>(random()) / 2;
        for (int i = 0; i < 40; ++i) {
            // Any bits: denormals, negative zero, the largest values.
            const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
            if (std::isfinite(value)) {
                keys.push_back(
                    {static_cast<std::int32_t>(row), value, static_cast<std::int32_t>(random() % 4)});
                row += 1 + static_cast<std::int64_t>(random() % 1000000);
            }
        }
        keys.push_back({static_cast<std::int32_t>(row), -0.0F, SYNC_STEP});
        for (const RowStyle style : {RowStyle::Plain, RowStyle::Bars}) {
            const std::vector<sync_key> again = keysOf(printTrackText(keys, style));
            ASSERT_EQ(again.size(), keys.size());
            for (std::size_t i = 0; i < keys.size(); ++i) {
                ASSERT_TRUE(sameBits(again[i], keys[i]));
            }
        }
    }
}

} // namespace
