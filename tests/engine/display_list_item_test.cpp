#include "engine/display_list_item.h"

#include "tests/engine/matrices.h"

#include <cmath>
#include <gtest/gtest.h>
#include <type_traits>

namespace {

using lumeth::DisplayListItem;

const glm::quat identity(1.0F, 0.0F, 0.0F, 0.0F);
const glm::vec3 origin(0.0F);
const glm::vec3 one(1.0F);

glm::quat turn(float angle, const glm::vec3& axis)
{
    const float s = std::sin(angle / 2.0F);
    return {std::cos(angle / 2.0F), axis.x * s, axis.y * s, axis.z * s};
}

/// Turns of no special angle about an axis that is no coordinate's.
const glm::quat tilted = turn(1.1F, glm::vec3(0.6F, 0.0F, 0.8F));
const glm::quat other = turn(-0.7F, glm::vec3(0.0F, 0.6F, -0.8F));

TEST(DisplayListItem, IsAPlainType)
{
    EXPECT_FALSE(std::is_polymorphic_v<DisplayListItem>);
}

TEST(DisplayListItem, StartsVisibleWithItsNameAndAnEmptyWorldMatrix)
{
    const DisplayListItem item("name", origin, identity, one);
    EXPECT_EQ(item.objectName, "name");
    EXPECT_TRUE(item.visible);
    EXPECT_EQ(item.worldMatrix, glm::mat4(0.0F));
}

TEST(DisplayListItem, HasTheIdentityAtTheOriginUnturnedAndUnscaled)
{
    EXPECT_EQ(DisplayListItem("", origin, identity, one).localMatrix, glm::mat4(1.0F));
}

TEST(DisplayListItem, TakesTheZeroQuaternionForNoTurn)
{
    EXPECT_EQ(DisplayListItem("", origin, glm::quat(0.0F, 0.0F, 0.0F, 0.0F), one).localMatrix,
              glm::mat4(1.0F));
}

TEST(DisplayListItem, TurnsThenScalesAlongTheParentsAxesThenMoves)
{
    const glm::vec3 position(1.5F, -2.0F, 3.25F);
    const glm::vec3 scale(2.0F, 3.0F, 0.5F);
    expectNear(DisplayListItem("", position, tilted, scale).localMatrix, placed(position, tilted, scale),
               1e-6F);
}

TEST(DisplayListItem, PutsAPointWhereAQuarterTurnThenAScaleTakeIt)
{
    // A quarter turn about z takes x to y, which is scaled by 3.
    const DisplayListItem item("", glm::vec3(10.0F, 20.0F, 30.0F),
                               turn(std::acos(0.0F), glm::vec3(0.0F, 0.0F, 1.0F)),
                               glm::vec3(2.0F, 3.0F, 4.0F));
    const glm::vec4 point = item.localMatrix * glm::vec4(1.0F, 0.0F, 0.0F, 1.0F);
    EXPECT_NEAR(point.x, 10.0F, 1e-5F);
    EXPECT_NEAR(point.y, 23.0F, 1e-5F);
    EXPECT_NEAR(point.z, 30.0F, 1e-5F);
    EXPECT_EQ(point.w, 1.0F);
}

TEST(DisplayListItem, DoesNotNormaliseTheQuaternion)
{
    const glm::quat doubled(2.0F, 0.0F, 2.0F, 0.0F);
    expectNear(DisplayListItem("", origin, doubled, one).localMatrix, rotationOf(doubled), 1e-5F);
    EXPECT_NEAR(rotationOf(doubled)[0][0], -7.0F, 1e-6F); // far from a rotation
}

TEST(DisplayListItem, KeepsTurnAndScaleWhenItIsMoved)
{
    const glm::vec3 scale(2.0F);
    DisplayListItem item("", glm::vec3(1.0F, 2.0F, 3.0F), tilted, scale);
    item.setPosition(glm::vec3(-4.0F, 5.5F, 0.25F));
    expectNear(item.localMatrix, placed(glm::vec3(-4.0F, 5.5F, 0.25F), tilted, scale), 1e-5F);
}

TEST(DisplayListItem, KeepsPlaceAndScaleWhenItIsTurned)
{
    const glm::vec3 position(1.0F, 2.0F, 3.0F);
    const glm::vec3 scale(2.0F);
    DisplayListItem item("", position, tilted, scale);
    item.setOrientation(other);
    expectNear(item.localMatrix, placed(position, other, scale), 1e-5F);
}

TEST(DisplayListItem, KeepsAScaleThatDiffersByAxisWhileItIsNotTurned)
{
    const glm::vec3 scale(2.0F, 0.5F, 3.0F);
    DisplayListItem item("", origin, identity, scale);
    item.setPosition(glm::vec3(1.0F, 2.0F, 3.0F));
    expectNear(item.localMatrix, placed(glm::vec3(1.0F, 2.0F, 3.0F), identity, scale), 1e-5F);
    item.setOrientation(tilted);
    expectNear(item.localMatrix, placed(glm::vec3(1.0F, 2.0F, 3.0F), tilted, scale), 1e-5F);
}

TEST(DisplayListItem, TakesManySettingsInARow)
{
    DisplayListItem item("", origin, identity, glm::vec3(1.5F));
    for (int i = 0; i < 1000; ++i) {
        item.setPosition(glm::vec3(static_cast<float>(i), 1.0F, 0.0F));
        item.setOrientation(turn(static_cast<float>(i) * 0.01F, glm::vec3(0.0F, 1.0F, 0.0F)));
    }
    expectNear(
        item.localMatrix,
        placed(glm::vec3(999.0F, 1.0F, 0.0F), turn(9.99F, glm::vec3(0.0F, 1.0F, 0.0F)), glm::vec3(1.5F)),
        1e-3F);
}

TEST(DisplayListItem, CarriesTheRoundingOfItsSettingsOn)
{
    const glm::vec3 position(1.0F, 2.0F, 3.0F);
    const glm::vec3 scale(1.5F);
    const DisplayListItem fresh("", position, tilted, scale);
    DisplayListItem worn = fresh;
    for (int i = 0; i < 100; ++i) {
        worn.setOrientation(other);
        worn.setOrientation(tilted);
    }
    EXPECT_NE(worn.localMatrix, fresh.localMatrix);
    expectNear(worn.localMatrix, fresh.localMatrix, 1e-4F);
}

TEST(DisplayListItem, ExchangesUnevenScalesWhenItIsMovedAQuarterTurned)
{
    const glm::quat quarter = turn(std::acos(0.0F), glm::vec3(0.0F, 0.0F, 1.0F));
    const glm::vec3 position(1.0F, 2.0F, 3.0F);
    DisplayListItem item("", origin, quarter, glm::vec3(2.0F, 3.0F, 4.0F));
    item.setPosition(position);
    // As if it had been scaled before it was turned: what was 3 along y is 3 along x.
    expectNear(item.localMatrix, placed(position, quarter, glm::vec3(3.0F, 2.0F, 4.0F)), 1e-5F);
}

TEST(DisplayListItem, SetsNothingElseWhenItIsMovedOrTurned)
{
    DisplayListItem item("name", origin, identity, one);
    item.worldMatrix = glm::mat4(5.0F);
    item.setVisible(false);
    item.setPosition(one);
    item.setOrientation(tilted);
    EXPECT_EQ(item.objectName, "name");
    EXPECT_EQ(item.worldMatrix, glm::mat4(5.0F));
    EXPECT_FALSE(item.visible);
}

TEST(DisplayListItem, ShowsAndHides)
{
    DisplayListItem item("name", origin, identity, one);
    item.setVisible(false);
    EXPECT_FALSE(item.visible);
    item.setVisible(true);
    EXPECT_TRUE(item.visible);
}

TEST(DisplayListItem, DoesNotFailWhereItsScaleCanNotBeTakenApart)
{
    for (const glm::vec3& scale : {glm::vec3(0.0F), glm::vec3(0.0F, 1.0F, 1.0F), glm::vec3(1.0F, 1.0F, 0.0F)})
    {
        DisplayListItem item("", glm::vec3(1.0F, 2.0F, 3.0F), tilted, scale);
        EXPECT_NO_THROW(item.setPosition(glm::vec3(4.0F, 5.0F, 6.0F)));
        EXPECT_EQ(item.localMatrix[3], glm::vec4(4.0F, 5.0F, 6.0F, 1.0F));
        EXPECT_NO_THROW(item.setOrientation(other));
        for (int column = 0; column < 4; ++column) {
            for (int row = 0; row < 4; ++row) {
                EXPECT_TRUE(std::isfinite(item.localMatrix[column][row]));
            }
        }
    }
}

} // namespace
