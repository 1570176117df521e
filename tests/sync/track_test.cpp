#include "sync/track.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t lowestRow = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highestRow = std::numeric_limits<std::int32_t>::max();

MATCHER_P(HasTheBitsOf, expected, "")
{
    return std::bit_cast<std::uint64_t>(arg) == std::bit_cast<std::uint64_t>(expected);
}

double valueAt(std::vector<sync_key> keys, double row)
{
    const sync_track track = {nullptr, keys.data(), static_cast<std::int32_t>(keys.size())};
    return sync_get_val(&track, row);
}

// Each formula, bit for bit.

struct Read {
    const char* name;
    std::int32_t type;
    sync_key from; ///< its type is the one above
    sync_key to;
    double row;
    double value;
};

// clang-format off
const Read reads[] = {
    // name                            type         from                to                   row      value
    {"StepHoldsTheValue",              SYNC_STEP,   {10, 0.25F, 0},     {20, 1.0F, 0},       10.5,    0.25},
    {"StepHoldsUpToTheLastMoment",     SYNC_STEP,   {10, -0.1F, 0},     {20, 1.0F, 0},       0x1.3ffffffffffffp+4, -0x1.99999ap-4},
    {"LinearAtTheKey",                 SYNC_LINEAR, {10, 0.0F, 0},      {20, 1.0F, 0},       10.0,    0.0},
    {"SmoothAtTheKey",                 SYNC_SMOOTH, {10, 0.7F, 0},      {20, 1.0F, 0},       10.0,    0x1.666666p-1},
    {"RampAtTheKey",                   SYNC_RAMP,   {10, 0.7F, 0},      {20, 1.0F, 0},       10.0,    0x1.666666p-1},
    {"LinearHalfWay",                  SYNC_LINEAR, {10, 0.0F, 0},      {20, 1.0F, 0},       15.0,    0.5},
    {"SmoothHalfWay",                  SYNC_SMOOTH, {10, 0.0F, 0},      {20, 1.0F, 0},       15.0,    0.5},
    {"RampHalfWay",                    SYNC_RAMP,   {10, 0.0F, 0},      {20, 1.0F, 0},       15.0,    0.25},
    {"LinearOneFifth",                 SYNC_LINEAR, {10, 0.0F, 0},      {20, 1.0F, 0},       12.0,    0x1.999999999999ap-3},
    {"SmoothOneFifth",                 SYNC_SMOOTH, {10, 0.0F, 0},      {20, 1.0F, 0},       12.0,    0x1.a9fbe76c8b43bp-4},
    {"RampOneFifth",                   SYNC_RAMP,   {10, 0.0F, 0},      {20, 1.0F, 0},       12.0,    0x1.47ae147ae147cp-5},
    {"LinearBetweenTwoRows",           SYNC_LINEAR, {7, -3.7F, 0},      {19, 12.6F, 0},      10.25,   0x1.6ddde6aaaaaa8p-1},
    {"SmoothBetweenTwoRows",           SYNC_SMOOTH, {7, -3.7F, 0},      {19, 12.6F, 0},      10.25,   -0x1.85847b9fb4264p-1},
    {"RampBetweenTwoRows",             SYNC_RAMP,   {7, -3.7F, 0},      {19, 12.6F, 0},      10.25,   -0x1.408fa4ac71c72p+1},
    {"LinearOverNegativeRows",         SYNC_LINEAR, {-20, 8.0F, 0},     {-10, 18.0F, 0},     -12.5,   15.5},
    {"LinearAcrossRowZero",            SYNC_LINEAR, {-4, 1.0F, 0},      {4, 9.0F, 0},        -0.5,    4.5},
    {"StepAtANegativeFraction",        SYNC_STEP,   {-4, 1.0F, 0},      {-3, 9.0F, 0},       -3.25,   1.0},
    // 1 - 100000000 is -99999999, which no float holds: the nearest is -100000000.
    {"LinearTakesTheDifferenceInFloat", SYNC_LINEAR, {0, 100000000.0F, 0}, {4, 1.0F, 0},     3.0,     25000000.0},
    {"SmoothTakesTheDifferenceInFloat", SYNC_SMOOTH, {0, 100000000.0F, 0}, {4, 1.0F, 0},     1.0,     84375000.0},
    {"RampTakesTheDifferenceInFloat",   SYNC_RAMP,   {0, 100000000.0F, 0}, {4, 1.0F, 0},     2.0,     75000000.0},
    {"FloatDifferenceOfSmallValues",    SYNC_LINEAR, {0, 0.1F, 0},         {4, 0.7F, 0},     2.0,     0x1.9999988p-2},
    // 4000000000 rows apart, which as a 32-bit integer is -294967296.
    {"RowDifferenceWrapsIn32Bits",     SYNC_LINEAR, {-2000000000, 0.0F, 0}, {2000000000, 1.0F, 0}, 0.0, -0x1.b1f2481c657ep+2},
    {"TypeFourIsUnknown",              4,           {10, 5.0F, 0},      {20, 6.0F, 0},       15.0,    0.0},
    {"TypeSevenIsUnknown",             7,           {10, 5.0F, 0},      {20, 6.0F, 0},       10.0,    0.0},
    {"TypeMinusOneIsUnknown",          -1,          {10, 5.0F, 0},      {20, 6.0F, 0},       19.5,    0.0},
    {"TypeIsNotCutToItsLowestByte",    256,         {10, 5.0F, 0},      {20, 6.0F, 0},       15.0,    0.0},
};
// clang-format on

class TrackStretch : public testing::TestWithParam<Read> {};

TEST_P(TrackStretch, ReadsTheValueBitForBit)
{
    const Read& read = GetParam();
    const sync_key from = {read.from.row, read.from.value, read.type};
    EXPECT_THAT(valueAt({from, read.to}, read.row), HasTheBitsOf(read.value));
}

TEST_P(TrackStretch, ReadsTheSameAmongOtherKeys)
{
    const Read& read = GetParam();
    const sync_key from = {read.from.row, read.from.value, read.type};
    const sync_key before = {from.row - 1, 77.0F, SYNC_LINEAR};
    const sync_key after = {read.to.row + 1, 88.0F, SYNC_RAMP};
    EXPECT_THAT(valueAt({before, from, read.to, after}, read.row), HasTheBitsOf(read.value));
}

INSTANTIATE_TEST_SUITE_P(, TrackStretch, testing::ValuesIn(reads),
                         [](const auto& info) { return std::string(info.param.name); });

// Which key a row belongs to.

struct Row {
    const char* name;
    double row;
    double value;
};

// clang-format off
const Row rowsOfFourSteps[] = { // keys at 0, 10, 11, 40: values 1, 2, 3, 4
    {"LongBeforeTheFirstKey",    -5.0,                    1.0},
    {"AFractionBeforeTheFirst",  -0.25,                   1.0},
    {"AtMinusZero",              -0.0,                    1.0},
    {"AtTheFirstKey",            0.0,                     1.0},
    {"BehindTheFirstKey",        0.5,                     1.0},
    {"JustBeforeAKey",           0x1.3ffffffffffffp+3,    1.0},
    {"AtAKey",                   10.0,                    2.0},
    {"JustBehindAKey",           0x1.4000000000001p+3,    2.0},
    {"BetweenNeighbouringRows",  10.999,                  2.0},
    {"AtTheKeyOfTheNextRow",     11.0,                    3.0},
    {"JustBeforeTheLastKey",     0x1.3ffffffffffffp+5,    3.0},
    {"AtTheLastKey",             40.0,                    4.0},
    {"BehindTheLastKey",         40.5,                    4.0},
    {"AtTheHighestRow",          2147483647.0,            4.0},
    {"AboveTheHighestRow",       2147483648.0,            4.0},
    {"AtTheLowestRow",           -2147483648.0,           1.0},
    {"BelowTheLowestRow",        -2147483649.0,           1.0},
    {"WhereDoublesHaveNoFraction", 0x1p+52,               4.0},
    {"BeyondAllIntegers",        1e300,                   4.0},
    {"BelowAllIntegers",         -1e300,                  1.0},
    {"AtInfinity",               infinity,                4.0},
    {"AtMinusInfinity",          -infinity,               1.0},
    {"AtNotANumber",             notANumber,              1.0},
};
// clang-format on

class TrackRow : public testing::TestWithParam<Row> {};

TEST_P(TrackRow, BelongsToTheLastKeyAtOrBeforeIt)
{
    const std::vector<sync_key> keys = {
        {0, 1.0F, SYNC_STEP}, {10, 2.0F, SYNC_STEP}, {11, 3.0F, SYNC_STEP}, {40, 4.0F, SYNC_STEP}};
    EXPECT_EQ(valueAt(keys, GetParam().row), GetParam().value);
}

TEST_P(TrackRow, ReadsZeroWithoutKeys)
{
    EXPECT_THAT(valueAt({}, GetParam().row), HasTheBitsOf(0.0));
}

TEST_P(TrackRow, ReadsTheOnlyKeyWhateverItsType)
{
    for (const std::int32_t type : {0, 1, 2, 3, 7, -1}) {
        EXPECT_THAT(valueAt({{10, -0.1F, type}}, GetParam().row), HasTheBitsOf(-0x1.99999ap-4)) << type;
    }
}

INSTANTIATE_TEST_SUITE_P(, TrackRow, testing::ValuesIn(rowsOfFourSteps),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Track, ReadsTheFirstValueBeforeAFirstKeyOfAnyType)
{
    for (const std::int32_t type : {0, 1, 2, 3, 7}) {
        const std::vector<sync_key> keys = {{0, 0.75F, type}, {8, 4.0F, type}};
        EXPECT_EQ(valueAt(keys, -0.5), 0.75) << type;
        EXPECT_EQ(valueAt(keys, -8.0), 0.75) << type;
    }
}

TEST(Track, ReadsTheLastValueFromALastKeyOfAnyTypeOn)
{
    for (const std::int32_t type : {0, 1, 2, 3, 7}) {
        const std::vector<sync_key> keys = {{0, 0.75F, SYNC_LINEAR}, {8, 4.0F, type}};
        EXPECT_EQ(valueAt(keys, 8.0), 4.0) << type;
        EXPECT_EQ(valueAt(keys, 8.5), 4.0) << type;
    }
}

TEST(Track, TakesKeysAtTheEndsOfTheRows)
{
    const std::vector<sync_key> keys = {
        {lowestRow, 1.0F, SYNC_STEP}, {0, 2.0F, SYNC_STEP}, {highestRow, 3.0F, SYNC_STEP}};
    EXPECT_EQ(valueAt(keys, -2147483648.0), 1.0);
    EXPECT_EQ(valueAt(keys, -2147483647.5), 1.0);
    EXPECT_EQ(valueAt(keys, -0.5), 1.0);
    EXPECT_EQ(valueAt(keys, 2147483646.5), 2.0);
    EXPECT_EQ(valueAt(keys, 2147483647.0), 3.0);
}

TEST(Track, AnswersTheSameInAnyOrderOfReads)
{
    std::vector<sync_key> keys = {{0, 1.0F, SYNC_LINEAR}, {10, 2.0F, SYNC_SMOOTH}, {30, 5.0F, SYNC_RAMP}};
    const sync_track track = {nullptr, keys.data(), 3};
    const double late = sync_get_val(&track, 25.0);
    const double early = sync_get_val(&track, 2.5);
    EXPECT_THAT(sync_get_val(&track, 25.0), HasTheBitsOf(late));
    EXPECT_THAT(sync_get_val(&track, 2.5), HasTheBitsOf(early));
    EXPECT_EQ(early, 1.25);
    EXPECT_EQ(late, 2.0 + 3.0 * (0.75 * 0.75 * 1.5));
}

// Two keys at one row are a mistake of the file: nothing guards the division by zero.

struct Division {
    const char* name;
    std::int32_t type;
    float next; ///< value of the second key; the first has 1
    double row;
    double value;
};

// clang-format off
const Division divisions[] = {
    {"StepDividesNothing",           SYNC_STEP,   2.0F, 10.5, 1.0},
    {"LinearRisesToInfinity",        SYNC_LINEAR, 2.0F, 10.5, infinity},
    {"LinearFallsToMinusInfinity",   SYNC_LINEAR, 0.0F, 10.5, -infinity},
    {"SmoothFallsToMinusInfinity",   SYNC_SMOOTH, 2.0F, 10.5, -infinity},
    {"RampRisesToInfinity",          SYNC_RAMP,   2.0F, 10.5, infinity},
    {"LinearOfNoRiseIsNotANumber",   SYNC_LINEAR, 1.0F, 10.5, notANumber},
    {"LinearAtTheRowIsNotANumber",   SYNC_LINEAR, 2.0F, 10.0, notANumber},
    {"SmoothAtTheRowIsNotANumber",   SYNC_SMOOTH, 2.0F, 10.0, notANumber},
    {"RampAtTheRowIsNotANumber",     SYNC_RAMP,   2.0F, 10.0, notANumber},
    {"UnknownTypeDividesNothing",    7,           2.0F, 10.0, 0.0},
};
// clang-format on

class TrackWithTwoKeysAtOneRow : public testing::TestWithParam<Division> {};

TEST_P(TrackWithTwoKeysAtOneRow, ReadsWhatTheDivisionGives)
{
    const Division& division = GetParam();
    // The key before them makes the search end at the first of the two.
    const std::vector<sync_key> keys = {
        {0, 9.0F, SYNC_STEP}, {10, 1.0F, division.type}, {10, division.next, SYNC_STEP}};
    const double value = valueAt(keys, division.row);
    if (std::isnan(division.value)) {
        EXPECT_TRUE(std::isnan(value)) << value;
    } else {
        EXPECT_EQ(value, division.value);
    }
}

INSTANTIATE_TEST_SUITE_P(, TrackWithTwoKeysAtOneRow, testing::ValuesIn(divisions),
                         [](const auto& info) { return std::string(info.param.name); });

// Any track at all, against the plainest way to read one.

/// Looks at all keys from the last to the first, and takes all parts of the formulas literally.
double plainRead(const std::vector<sync_key>& keys, double row)
{
    if (keys.empty()) {
        return 0.0;
    }
    std::optional<std::size_t> at;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (static_cast<double>(keys[i].row) <= std::floor(row)) {
            at = i;
        }
    }
    if (!at) {
        return static_cast<double>(keys.front().value);
    }
    if (*at + 1 == keys.size()) {
        return static_cast<double>(keys.back().value);
    }
    const sync_key& from = keys[*at];
    const sync_key& to = keys[*at + 1];
    const double t = (row - static_cast<double>(from.row)) / static_cast<double>(to.row - from.row);
    const float rise = to.value - from.value;
    double part = 0.0;
    if (from.type == 0) {
        return static_cast<double>(from.value);
    }
    if (from.type == 1) {
        part = t;
    } else if (from.type == 2) {
        part = t * t * (3.0 - 2.0 * t);
    } else if (from.type == 3) {
        part = t * t;
    } else {
        return 0.0;
    }
    return static_cast<double>(from.value) + static_cast<double>(rise) * part;
}

TEST(Track, AgreesWithALinearSearchOnRandomTracks)
{
    std::mt19937 random(20480128); // any fixed seed
    std::uniform_int_distribution<int> keyCount(1, 40);
    std::uniform_int_distribution<std::int32_t> firstRow(-300, 300);
    std::uniform_int_distribution<std::int32_t> gap(1, 60);
    std::uniform_int_distribution<std::int32_t> anyType(-1, 4);
    std::uniform_real_distribution<float> anyValue(-1000.0F, 1000.0F);
    int compared = 0;
    for (int round = 0; round < 200; ++round) {
        std::vector<sync_key> keys(static_cast<std::size_t>(keyCount(random)));
        std::int32_t row = firstRow(random);
        for (sync_key& key : keys) {
            key = {row, anyValue(random), anyType(random)};
            row += gap(random);
        }
        std::vector<double> rows;
        for (const sync_key& key : keys) {
            const double exact = key.row;
            rows.insert(rows.end(), {exact, std::nextafter(exact, -infinity), std::nextafter(exact, infinity),
                                     exact + 0.5});
        }
        std::uniform_real_distribution<double> anyRow(keys.front().row - 20.0, keys.back().row + 20.0);
        std::generate_n(std::back_inserter(rows), 100, [&] { return anyRow(random); });
        for (const double at : rows) {
            ASSERT_THAT(valueAt(keys, at), HasTheBitsOf(plainRead(keys, at)))
                << "round " << round << ", row " << at;
            ++compared;
        }
    }
    EXPECT_GT(compared, 200 * 100);
}

} // namespace
