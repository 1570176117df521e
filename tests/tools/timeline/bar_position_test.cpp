#include "tools/timeline/bar_position.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::timeline::barPosition;
using tools::timeline::parseRow;

namespace {

struct Row {
    const char* name;
    const char* text;
    std::int32_t row;
};

// clang-format off
constexpr Row rows[] = {
    {"Zero",             "0",              0},
    {"WholeNumber",      "6208",           6208},
    {"Negative",         "-3",             -3},
    {"FirstRowOfAll",    "-2147483648",    std::numeric_limits<std::int32_t>::min()},
    {"LastRowOfAll",     "2147483647",     std::numeric_limits<std::int32_t>::max()},
    {"StartOfTheMusic",  "0:0:0",          0},
    {"LastRowOfABeat",   "0:0:15",         15},
    {"SecondBeat",       "0:1:0",          16},
    {"LastRowOfABar",    "0:3:15",         63},
    {"SecondBar",        "1:0:0",          64},
    {"AllThree",         "4:2:8",          296},
    {"LastRowInBars",    "33554431:3:15",  std::numeric_limits<std::int32_t>::max()},
};

struct BadRow {
    const char* name;
    const char* text;
    const char* reason;
};

constexpr BadRow badRows[] = {
    {"Nothing",          "",               "row '': expected a whole number or bar:beat:row"},
    {"AWord",            "four",           "row 'four': expected a whole number or bar:beat:row"},
    {"AFraction",        "1.5",            "row '1.5': expected a whole number or bar:beat:row"},
    {"ATail",            "12x",            "row '12x': expected a whole number or bar:beat:row"},
    {"TwoParts",         "1:2",            "row '1:2': expected a whole number or bar:beat:row"},
    {"FourParts",        "1:2:3:0",        "row '1:2:3:0': expected a whole number or bar:beat:row"},
    {"AnEmptyPart",      "1::3",           "row '1::3': expected a whole number or bar:beat:row"},
    {"ASpaceInside",     "1: 2:3",         "row '1: 2:3': expected a whole number or bar:beat:row"},
    {"ANegativeBar",     "-1:0:0",         "row '-1:0:0': bars count from 0"},
    {"AFifthBeat",       "4:4:0",          "row '4:4:0': a beat is 0 to 3"},
    {"ANegativeBeat",    "4:-1:0",         "row '4:-1:0': a beat is 0 to 3"},
    {"ASeventeenthRow",  "4:0:16",         "row '4:0:16': a row of a beat is 0 to 15"},
    {"ANegativeRow",     "4:0:-1",         "row '4:0:-1': a row of a beat is 0 to 15"},
    {"OneTooHigh",       "2147483648",     "row '2147483648': rows go from -2147483648 to 2147483647"},
    {"OneTooLow",        "-2147483649",    "row '-2147483649': rows go from -2147483648 to 2147483647"},
    {"FarTooHigh",       "99999999999999999999", "row '99999999999999999999': rows go from -2147483648 to 2147483647"},
    {"OneBarTooHigh",    "33554432:0:0",   "row '33554432:0:0': rows go from -2147483648 to 2147483647"},
    {"ManyBarsTooHigh",  "9223372036854775807:0:0", "row '9223372036854775807:0:0': rows go from -2147483648 to 2147483647"},
};
// clang-format on

class BarPosition : public TestWithParam<Row> {};
class BadBarPosition : public TestWithParam<BadRow> {};

TEST_P(BarPosition, IsReadAsItsRow)
{
    EXPECT_EQ(parseRow(GetParam().text), GetParam().row);
}

TEST_P(BadBarPosition, IsRefusedWithTheReason)
{
    EXPECT_THAT([] { parseRow(GetParam().text); }, ThrowsMessage<std::invalid_argument>(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(Rows, BarPosition, ValuesIn(rows), [](const auto& info) { return info.param.name; });
INSTANTIATE_TEST_SUITE_P(Rows, BadBarPosition, ValuesIn(badRows),
                         [](const auto& info) { return info.param.name; });

TEST(PrintedBarPosition, CountsBarsBeatsAndRowsFromZero)
{
    EXPECT_EQ(barPosition(0), "0:0:0");
    EXPECT_EQ(barPosition(296), "4:2:8");
    EXPECT_EQ(barPosition(std::numeric_limits<std::int32_t>::max()), "33554431:3:15");
}

TEST(PrintedBarPosition, StaysAWholeNumberBelowZero)
{
    EXPECT_EQ(barPosition(-65), "-65");
}

TEST(PrintedBarPosition, ReadsBackAsTheSameRow)
{
    std::mt19937 random(1);
    for (int i = 0; i < 10000; ++i) {
        const auto row = static_cast<std::int32_t>(random());
        ASSERT_EQ(parseRow(barPosition(row)), row);
    }
}

} // namespace
