#include "tools/modelcheck/weld.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using tools::modelcheck::weld;

namespace {

TEST(Weld, LetsOneStandForAllAtAPoint)
{
    const std::vector<glm::vec3> positions = {
        {1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F}, {1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F}, {1.0F, 2.0F, 3.0F}};
    const std::vector<unsigned int> representative = weld(positions, 0.0F);
    EXPECT_EQ(representative[0], representative[2]);
    EXPECT_EQ(representative[0], representative[4]);
    EXPECT_EQ(representative[1], representative[3]);
    EXPECT_NE(representative[0], representative[1]);
}

TEST(Weld, TakesPointsUpToADistanceForOne)
{
    const std::vector<glm::vec3> positions = {{0.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 0.09F}, {0.0F, -0.11F, 0.0F}};
    const std::vector<unsigned int> representative = weld(positions, 0.1F);
    EXPECT_EQ(representative[0], representative[1]);
    EXPECT_EQ(representative[2], 2U);
}

TEST(Weld, KeepsApartWhatLiesSideBySideAlongItsSweep)
{
    const std::vector<glm::vec3> positions = {
        {0.60F, -0.48F, 0.0F}, {-0.60F, 0.48F, 0.0F}, {0.0F, 0.0F, 0.0F}};
    EXPECT_THAT(weld(positions, 0.1F), ElementsAre(0U, 1U, 2U));
}

TEST(Weld, TakesNothingForNothing)
{
    EXPECT_THAT(weld({}, 0.1F), IsEmpty());
}

} // namespace
