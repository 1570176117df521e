#include "tools/modelcheck/ray_caster.h"

#include "tests/tools/modelcheck/imported_boxes.h"

#include <glm/common.hpp>
#include <gmock/gmock.h>
#include <vector>

using standins::Box;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using tools::modelcheck::middleOf;
using tools::modelcheck::RayCaster;

namespace {

const glm::vec3 right(1.0F, 0.0F, 0.0F);
const glm::vec3 aslant(0.36F, 0.48F, 0.80F);

TEST(RayCaster, MeetsABoxFromOutsideAndInside)
{
    const Box box = {{1.0F, -1.0F, -1.0F}, {3.0F, 1.0F, 1.0F}};
    const RayCaster caster(importedBoxes({&box, 1}));
    EXPECT_TRUE(caster.hits({0.0F, 0.1F, 0.2F}, right));
    EXPECT_TRUE(caster.hits({2.0F, 0.1F, 0.2F}, right));
    EXPECT_TRUE(caster.hits({2.0F, 0.1F, 0.2F}, -right));
    EXPECT_TRUE(caster.hits({2.0F, 0.1F, 0.2F}, aslant));
}

TEST(RayCaster, MeetsNothingBehindOrBesideTheRay)
{
    const Box box = {{1.0F, -1.0F, -1.0F}, {3.0F, 1.0F, 1.0F}};
    const RayCaster caster(importedBoxes({&box, 1}));
    EXPECT_FALSE(caster.hits({4.0F, 0.1F, 0.2F}, right));
    EXPECT_FALSE(caster.hits({0.0F, 0.1F, 0.2F}, -right));
    EXPECT_FALSE(caster.hits({0.0F, 1.1F, 0.2F}, right));
    EXPECT_FALSE(caster.hits({0.0F, 0.1F, 0.2F}, aslant));
}

TEST(RayCaster, DoesNotCountTheTriangleThatARayStartsOn)
{
    const Box box = {{1.0F, -1.0F, -1.0F}, {3.0F, 1.0F, 1.0F}};
    const RayCaster caster(importedBoxes({&box, 1}));
    EXPECT_FALSE(caster.hits({3.0F, 0.1F, 0.2F}, right));
    EXPECT_TRUE(caster.hits({1.0F, 0.1F, 0.2F}, right)); // its other side
}

TEST(RayCaster, LetsNoRayThroughWhereTrianglesJoin)
{
    const Box box = {{-1.3F, -0.7F, -0.9F}, {1.1F, 0.8F, 1.7F}};
    const tools::modelcheck::ImportedMesh mesh = importedBoxes({&box, 1});
    const RayCaster caster(mesh);
    const glm::vec3 inside(0.1F, 0.2F, 0.3F);
    constexpr int steps = 100;
    for (const auto& triangle : mesh.triangles) {
        const auto corners = cornersOf(mesh, triangle);
        for (std::size_t edge = 0; edge < 3; ++edge) {
            for (int i = 0; i <= steps; ++i) {
                const float along = static_cast<float>(i) / steps;
                const glm::vec3 aim = glm::mix(corners[edge], corners[(edge + 1) % 3], along);
                EXPECT_TRUE(caster.hits(inside, aim - inside)) << aim.x << ' ' << aim.y << ' ' << aim.z;
            }
        }
    }
}

TEST(RayCaster, LooksAheadAlongTheRayOnly)
{
    // Two triangles that face along x, at x = 0 and, higher up, at x = 2.
    tools::modelcheck::ImportedMesh mesh;
    mesh.positions = {{0.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 1.0F},
                      {2.0F, 5.0F, 0.0F}, {2.0F, 6.0F, 0.0F}, {2.0F, 5.0F, 1.0F}};
    mesh.triangles = {{0, 1, 2}, {3, 4, 5}};
    const RayCaster caster(mesh);
    EXPECT_TRUE(caster.hits({1.0F, 0.2F, 0.2F}, -right));
    EXPECT_FALSE(caster.hits({1.0F, 0.2F, 0.2F}, right));
    EXPECT_TRUE(caster.hits({1.0F, 5.2F, 0.2F}, right));
    EXPECT_FALSE(caster.hits({1.0F, 5.2F, 0.2F}, -right));
}

TEST(RayCaster, FindsEachOfManyBoxes)
{
    std::vector<Box> boxes;
    for (int x = 0; x < 10; ++x) {
        for (int z = 0; z < 10; ++z) {
            const glm::vec3 low(2 * x, 0, 2 * z);
            boxes.push_back({low, low + 1.0F});
        }
    }
    const RayCaster caster(importedBoxes(boxes));
    for (int x = 0; x < 20; ++x) {
        for (int z = 0; z < 20; ++z) {
            const glm::vec3 above(static_cast<float>(x) + 0.3F, 5.0F, static_cast<float>(z) + 0.6F);
            EXPECT_EQ(caster.hits(above, {0.0F, -1.0F, 0.0F}), x % 2 == 0 && z % 2 == 0) << x << ' ' << z;
        }
    }
}

std::vector<unsigned int> trianglesBetween(const RayCaster& caster, const glm::vec3& from,
                                           const glm::vec3& to)
{
    std::vector<unsigned int> triangles;
    caster.forEachBetween(from, to, [&](unsigned int triangle) { triangles.push_back(triangle); });
    return triangles;
}

TEST(RayCaster, VisitsAllTrianglesBetweenTwoPoints)
{
    const Box boxes[] = {{{1.0F, -1.0F, -1.0F}, {3.0F, 1.0F, 1.0F}},
                         {{2.0F, -1.0F, -1.0F}, {5.0F, 1.0F, 1.0F}}};
    const tools::modelcheck::ImportedMesh mesh = importedBoxes(boxes);
    const RayCaster caster(mesh);
    const auto sidesMet = [&](float from, float to) {
        std::vector<float> sides;
        for (const unsigned int met : trianglesBetween(caster, {from, 0.1F, 0.2F}, {to, 0.1F, 0.2F})) {
            sides.push_back(middleOf(cornersOf(mesh, mesh.triangles[met])).x);
        }
        return sides;
    };
    EXPECT_THAT(sidesMet(0.0F, 6.0F), UnorderedElementsAre(1.0F, 2.0F, 3.0F, 5.0F));
    EXPECT_THAT(sidesMet(6.0F, 2.5F), UnorderedElementsAre(5.0F, 3.0F));
    EXPECT_THAT(sidesMet(3.5F, 4.5F), IsEmpty());
    EXPECT_THAT(sidesMet(-1.0F, 0.5F), IsEmpty());
}

TEST(RayCaster, StopsAtNothingAfterItVisitedTriangles)
{
    const Box box = {{1.0F, -1.0F, -1.0F}, {3.0F, 1.0F, 1.0F}};
    const RayCaster caster(importedBoxes({&box, 1}));
    EXPECT_EQ(trianglesBetween(caster, {0.0F, 0.1F, 0.2F}, {9.0F, 0.1F, 0.2F}).size(), 2U);
    EXPECT_TRUE(caster.hits({0.0F, 0.1F, 0.2F}, right)); // no filter stays behind
}

} // namespace
