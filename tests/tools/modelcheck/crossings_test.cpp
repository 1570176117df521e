#include "tools/modelcheck/crossings.h"

#include "tests/tools/modelcheck/imported_boxes.h"

#include <gtest/gtest.h>

using standins::Box;
using tools::modelcheck::Crossings;
using tools::modelcheck::ImportedMesh;
using tools::modelcheck::RayCaster;
using tools::modelcheck::Surface;

namespace {

constexpr Box block = {{0.0F, 0.0F, 0.0F}, {4.0F, 4.0F, 4.0F}};
constexpr Box post = {{1.0F, 2.0F, 1.0F}, {1.5F, 2.5F, 9.0F}}; // comes out of the block's top

Crossings crossingsOf(const ImportedMesh& mesh)
{
    return findCrossings(mesh, Surface(mesh), RayCaster(mesh));
}

Crossings crossingsOf(const Box& one, const Box& other)
{
    const Box boxes[] = {one, other};
    return crossingsOf(importedBoxes(boxes));
}

TEST(Crossings, AreNoneOfABoxWithItself)
{
    const Crossings found = crossingsOf(importedBoxes({&block, 1}));
    EXPECT_EQ(found.folds.count, 0U);
    EXPECT_EQ(found.parts.count, 0U);
}

TEST(Crossings, CountPartsThatGoThroughEachOtherOnce)
{
    const Crossings found = crossingsOf(block, post);
    EXPECT_EQ(found.folds.count, 0U);
    EXPECT_EQ(found.parts.count, 1U);
}

TEST(Crossings, CountPairsOfParts)
{
    const Box boxes[] = {block, post, {{1.0F, 0.5F, 5.0F}, {1.4F, 3.5F, 6.0F}}}; // the post's only
    EXPECT_EQ(crossingsOf(importedBoxes(boxes)).parts.count, 2U);
}

TEST(Crossings, CountNoPartsInsideOrOnOrBesideEachOther)
{
    const Box inside = {{1.0F, 1.0F, 1.0F}, {2.0F, 2.0F, 2.0F}};
    const Box onTop = {{1.0F, 1.0F, 4.0F}, {2.0F, 2.0F, 5.0F}};
    const Box beside = {{5.0F, 0.0F, 0.0F}, {6.0F, 4.0F, 4.0F}};
    for (const Box& other : {inside, onTop, beside}) {
        EXPECT_EQ(crossingsOf(block, other).parts.count, 0U) << other.low.x << ' ' << other.low.z;
    }
}

TEST(Crossings, AreDeeperThanRounding)
{
    EXPECT_EQ(crossingsOf(block, {{1.0F, 1.0F, 3.9999F}, {2.0F, 2.0F, 5.0F}}).parts.count, 1U);
    EXPECT_EQ(crossingsOf(block, {{1.0F, 1.0F, 3.99999F}, {2.0F, 2.0F, 5.0F}}).parts.count, 0U);
}

TEST(Crossings, AreNotSoughtBetweenNeighboursAtAVertex)
{
    ImportedMesh mesh; // one triangle lies, and one that stands goes through it
    mesh.positions = {{0.0F, 0.0F, 0.0F}, {4.0F, -1.0F, 0.0F}, {4.0F, 1.0F, 0.0F},
                      {0.0F, 0.0F, 0.0F}, {2.0F, 0.0F, -1.0F}, {2.0F, 0.0F, 1.0F}};
    mesh.triangles = {{0, 1, 2}, {3, 4, 5}};
    EXPECT_EQ(crossingsOf(mesh).folds.count, 0U);
    mesh.positions[3].x = 1.0F;
    EXPECT_EQ(crossingsOf(mesh).parts.count, 1U);
}

TEST(Crossings, CountTrianglesThatGoThroughTheirOwnPart)
{
    const Crossings found = crossingsOf(foldedBoxes());
    EXPECT_EQ(found.folds.count, 8U);
    EXPECT_EQ(found.parts.count, 0U);
}

} // namespace
