#include "tools/modelcheck/ray_caster.h"

#include "tests/tools/modelcheck/imported_boxes.h"

#include <gtest/gtest.h>
#include <vector>

using standins::Box;
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

TEST(RayCaster, LooksAheadAmongTheTrianglesOfABlock)
{
    tools::modelcheck::ImportedMesh
        mesh; // two triangles that face along x, at x = 0 and, higher up, at x = 2
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

} // namespace
