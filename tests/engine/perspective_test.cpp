#include "engine/perspective.h"

#include "tests/engine/matrices.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using lumeth::matPerspective;

TEST(Perspective, FollowsItsFormula)
{
    expectNear(matPerspective(0.7853982F, 16.0F / 9.0F, 0.5F, 20.0F),
               projectionOf(0.7853982, 16.0 / 9.0, 0.5, 20.0), 2e-6F);
    expectNear(matPerspective(2.0943952F, 2.5F, 1.0F, 20.0F), projectionOf(2.0943952, 2.5, 1.0, 20.0), 2e-6F);
}

TEST(Perspective, HasFiveEntriesAndZerosElsewhere)
{
    const glm::mat4 matrix = matPerspective(1.0F, 2.0F, 1.0F, 3.0F);
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            const bool set =
                (column == row && column < 3) || (column == 2 && row == 3) || (column == 3 && row == 2);
            EXPECT_EQ(matrix[column][row] != 0.0F, set) << "[" << column << "][" << row << "]";
        }
    }
    EXPECT_EQ(matrix[2][2], -2.0F); // -(3 + 1) / (3 - 1)
    EXPECT_EQ(matrix[2][3], -1.0F);
    EXPECT_EQ(matrix[3][2], -3.0F); // 3 * -2 * 1 / (3 - 1)
}

TEST(Perspective, KeepsTheWidthAndShowsLessHeightOnAWiderScreen)
{
    const glm::mat4 narrow = matPerspective(1.0F, 1.0F, 1.0F, 3.0F);
    const glm::mat4 wide = matPerspective(1.0F, 2.0F, 1.0F, 3.0F);
    EXPECT_EQ(wide[0][0], narrow[0][0]);
    EXPECT_EQ(wide[1][1], narrow[1][1] * 2.0F);
    EXPECT_EQ(narrow[1][1], narrow[0][0]);
}

TEST(Perspective, TakesNearAndFarToTheEndsOfTheDepthRange)
{
    const glm::mat4 matrix = matPerspective(1.0F, 1.0F, 0.5F, 20.0F);
    const glm::vec4 near = matrix * glm::vec4(0.0F, 0.0F, -0.5F, 1.0F);
    const glm::vec4 far = matrix * glm::vec4(0.0F, 0.0F, -20.0F, 1.0F);
    EXPECT_NEAR(near.z / near.w, -1.0F, 1e-5F);
    EXPECT_NEAR(far.z / far.w, 1.0F, 1e-5F);
}

TEST(Perspective, TakesTheEdgeOfTheFieldOfViewToTheEdgeOfTheScreen)
{
    const glm::mat4 matrix = matPerspective(1.2F, 1.7F, 0.5F, 20.0F);
    const glm::vec4 edge = matrix * glm::vec4(5.0F * std::tan(0.6F), 0.0F, -5.0F, 1.0F);
    EXPECT_NEAR(edge.x / edge.w, 1.0F, 1e-6F);
}

} // namespace
