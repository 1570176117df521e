#include "scenes/orientations.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Turn {
    const char* name;
    glm::quat quaternion;
    double angle; ///< about Y, in radians
};

class Orientations : public testing::TestWithParam<Turn> {};

TEST_P(Orientations, AreTheTurnTheyAreNamedAfter)
{
    const auto& [name, quaternion, angle] = GetParam();
    EXPECT_EQ(quaternion.x, 0.0F);
    EXPECT_EQ(quaternion.z, 0.0F);
    EXPECT_NEAR(quaternion.y, std::sin(angle / 2), 1e-7);
    EXPECT_NEAR(quaternion.w, std::cos(angle / 2), 1e-7);
}

// clang-format off
const Turn turns[] = {
    {"Y01",      orientations::y01,       0.1 * 3.14},
    {"Y04",      orientations::y04,       0.4 * 3.14},
    {"Y05",      orientations::y05,       0.5 * 3.14},
    {"YMinus05", orientations::yMinus05, -0.5 * 3.14},
    {"Y06",      orientations::y06,       0.6 * 3.14},
    {"Y10",      orientations::y10,       3.14},
    {"Y13",      orientations::y13,       1.3 * 3.14},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(All, Orientations, testing::ValuesIn(turns),
                         [](const auto& row) { return row.param.name; });

} // namespace

TEST(Orientation, OfNothingIsAllZero)
{
    EXPECT_EQ(orientations::none.x, 0.0F);
    EXPECT_EQ(orientations::none.y, 0.0F);
    EXPECT_EQ(orientations::none.z, 0.0F);
    EXPECT_EQ(orientations::none.w, 0.0F);
}

TEST(Orientation, AboutAnAxisTakesHalfTheAngleAsAFloat)
{
    const glm::quat turn = orientations::angleAxis(0.3F, glm::vec3(1.0F, 0.0F, 0.0F));
    EXPECT_EQ(turn.x, std::sin(0.15F));
    EXPECT_EQ(turn.y, 0.0F);
    EXPECT_EQ(turn.z, 0.0F);
    EXPECT_EQ(turn.w, std::cos(0.15F));
}
